// The development of the forecast into columns of k numbers.
//
// SviluppaColonne walks all k-combinations of the forecast's places in
// lexicographic order, asks the installed filter about each, and stores what
// passes. It yields once per pair of the two outer levels: there the keys of the
// progress window are served and the counts published, exactly as a plain
// single-threaded walk would at that point. Between two yields the rounds may be
// worked out ahead on other cores; they are stitched back in order, so columns,
// counts and stops are the same as the single-threaded walk's.
#pragma once

#include "core/interfaccia.h"

#include <cstdint>

namespace zef {

struct Sistema;

// C(n, ultimo + 1) by the running product, left in NumCombinazioni and returned.
double CalcolaCombinazioni(Sistema& s, long long ultimo, long long n);

struct ParametriSviluppo {
    // Worker threads: 0 takes the machine's cores, 1 works in the calling thread.
    int thread = 0;
    // A batch of consecutive rounds handed to one worker holds at least this many candidates.
    uint64_t candidatiPerLotto = uint64_t{1} << 16;
    // Below this many candidates in all the pass stays in the calling thread.
    uint64_t sogliaParallela = uint64_t{1} << 18;
};

// Develops Pronostico(1..NumPronostico) with SviluppoK numbers a column into
// `colonne` (whose capacity is the store's limit), from the counters as AVVIA left
// them. Shows "MEMORIA ESAURITA" when the store overflows or the filter fails.
void SviluppaColonne(Sistema& s, Interfaccia& ui, const ParametriSviluppo& parametri = {});

}  // namespace zef
