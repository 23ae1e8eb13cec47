// The test a candidate column must pass to be stored by the development.
//
// The generator knows nothing of conditions: it asks a FiltroColonna. With none
// installed every candidate is accepted. The conditions subsystem installs its own.
#pragma once

#include "core/colonne.h"

#include <cstdint>
#include <memory>

namespace zef {

struct Sistema;

// A prefix of a candidate as the generator holds it: its numbers and places, and
// what the walk keeps of them level by level.
struct Prefisso {
    const uint8_t* numeri = nullptr;  // ascending
    const int* livelli = nullptr;     // places in the forecast, 1-based
    int lunghezza = 0;
    int somma = 0;       // of the numbers
    unsigned passi = 0;  // bit j: number j follows number j - 1 by one
    unsigned pari = 0;   // bit j: number j is even

    // Everything worked out from the numbers, for callers that do not keep it.
    static Prefisso Di(const uint8_t* numeri, const int* livelli, int lunghezza) {
        Prefisso p{numeri, livelli, lunghezza};
        for (int j = 0; j < lunghezza; ++j) {
            p.somma += numeri[j];
            if (!(numeri[j] & 1)) p.pari |= 1u << j;
            if (j && numeri[j] == numeri[j - 1] + 1) p.passi |= 1u << j;
        }
        return p;
    }
};

class FiltroColonna {
public:
    virtual ~FiltroColonna() = default;

    // Called once before a pass, on the interface thread, with the state of the sistema.
    virtual void prepara(const Sistema&) {}

    // The whole test of one candidate: `numeri` holds its k numbers (ascending) and
    // `livelli` the indices into the forecast (1-based) that produced them.
    // May raise ErroreEsecuzione where the tests run off a table.
    virtual bool accetta(const uint8_t* numeri, const int* livelli, int k) const = 0;

    // Judges a prefix of p.lunghezza numbers, whose last sits at place P of the
    // forecast. 0: its candidates may pass. Otherwise the first place Q > P from which
    // the prefix's last number may pass again: every candidate that starts with the
    // first p.lunghezza - 1 numbers and has its next number at a place in P..Q-1 is
    // refused, and refused before any error could arise. The generator then skips
    // those subtrees and counts them as examined.
    virtual int scartaPrefisso(const Prefisso& /*p*/, int /*k*/) const { return 0; }

    // For a prefix `p` of k - 1 numbers, the level of the last number: `ammessi` gets the
    // places of the forecast (after the prefix's last, up to `n`) whose candidates may
    // pass; every candidate left out is refused before any error could arise, so the
    // generator counts it as examined without asking. Returns true when every
    // candidate in `ammessi` passes for sure: the generator stores them without asking
    // `accetta` either.
    virtual bool ultimoLivello(const Prefisso& p, int k, int n, Maschera& ammessi) const {
        ammessi = Maschera::Intervallo(p.livelli[k - 2] + 1, n);
        return false;
    }

    // After `prepara`: true when every candidate passes and none raises an error, so
    // the pass may go as if no filter were installed.
    virtual bool accettaTutte() const { return false; }

    // A copy for another thread of the same pass (state that the test mutates is per copy).
    virtual std::unique_ptr<FiltroColonna> clona() const = 0;
};

}  // namespace zef
