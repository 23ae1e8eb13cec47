// The optimised reduction: the same guarantee with fewer columns.
//
// The reductions of the program are greedy: they keep a column as soon as it covers
// something new, and stop there. Here the list is improved by local search, starting
// from the greedy list: the cost of a list is the number of targets it leaves
// uncovered, a move changes one column, and simulated annealing accepts a worse list
// now and then so as not to stall. Whenever a list covers everything it is kept as the
// best so far and the column that covers least on its own is dropped, so the search
// goes on one column shorter. Per-target cover counts make a move cost only the
// targets of the column changed.
//
// Two problems:
//  - Copertura: every g-subset of the forecast (those the cover itself enumerates:
//    holding the fixed numbers, with the minimum distance) inside a column of k
//    numbers of the forecast. A move swaps one number of a column for another.
//  - Riduzione: every developed column shares at least g numbers with a kept column,
//    kept columns being developed columns. A move swaps a kept column for another.
//
// Each core runs its own walk from its own seed; the smallest list wins (the first
// core's on a tie). With a fixed number of steps a run is reproducible; with a time
// budget it depends on the machine's speed. The search never returns a list larger
// than the start, and never one that leaves a target uncovered.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <vector>

namespace zef {

struct OpzioniOttimizza {
    double secondi = 30;   // time budget of the search
    uint64_t seme = 1;     // seed of the first core's walk (the others take the next ones)
    int fili = 0;          // cores to use; 0: every core, at most 2
    uint64_t passi = 0;    // when above 0: this many moves a core, and no clock
};

struct AvanzamentoOttimizza {
    int64_t iniziale = 0;  // the size of the start list
    int64_t migliore = 0;  // the best covering list so far
    int64_t limite = 0;    // a lower bound on any covering list (0 when none is known)
    double secondi = 0;    // time spent
};

using Riga = std::vector<uint8_t>;

struct EsitoOttimizza {
    std::vector<Riga> righe;  // the best list, each row ascending
    int64_t iniziale = 0;
    int64_t limite = 0;
    bool interrotta = false;  // stopped by the flag before its budget ran out
};

// The Schönheim bound on a cover of the t-subsets of v points by k-subsets.
int64_t LimiteSchonheim(int v, int k, int t);

// Every target of the cover problem is inside a row.
bool CoperturaCompleta(const std::vector<uint8_t>& numeri, int k, int g, const std::vector<uint8_t>& fisse,
                       int distanza, const std::vector<Riga>& righe);

// The cover problem. `numeri` the forecast (ascending, different, 1..90), `fisse` the
// fixed numbers among them, `distanza` the minimum distance the targets keep, `inizio`
// the start list (each row k numbers of the forecast holding every fixed one), which
// must cover every target. `avanzamento` is called now and then from the calling
// thread; `ferma` stops the search, keeping the best list found.
EsitoOttimizza OttimizzaCopertura(const std::vector<uint8_t>& numeri, int k, int g, const std::vector<uint8_t>& fisse,
                                  int distanza, const std::vector<Riga>& inizio, const OpzioniOttimizza& o,
                                  const std::atomic<bool>* ferma = nullptr,
                                  const std::function<void(const AvanzamentoOttimizza&)>& avanzamento = {});

// The reduction problem. `colonne` the developed columns (each k numbers, ascending),
// `inizio` the indices into them of the start list, which must keep the guarantee.
// Returns the rows of the kept columns.
EsitoOttimizza OttimizzaRiduzione(const std::vector<Riga>& colonne, int g, const std::vector<int64_t>& inizio,
                                  const OpzioniOttimizza& o, const std::atomic<bool>* ferma = nullptr,
                                  const std::function<void(const AvanzamentoOttimizza&)>& avanzamento = {});

// The most targets x the numbers a target's g-subsets point at that the reduction
// problem accepts (its index would not fit in memory beyond).
constexpr int64_t LimiteVociRiduzione = 60'000'000;

}  // namespace zef
