// The reduced development: the walk over the forecast's combinations and the
// cover built, a slice at a time, in the tick of the main window's Timer4.
#pragma once

#include "core/interfaccia.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

// Rows the cover and the targets may hold; beyond it, error 9.
constexpr int64_t LimiteRigheRidotte = 2'000'000;

// Walks every combination of LunghezzaEnumerazione places of Pronostico in
// lexicographic order from the level indices (the caller sets Liv[1] to 0), and
// hands each to RegistraCombinazione. It cannot be interrupted. A column beyond the
// capacity of Colonne raises error 9.
void EnumeraCombinazioni(Sistema& s);
// The step on one combination of n places: the distance and fixed-number tests,
// then the store.
void RegistraCombinazione(Sistema& s, int n);

// The finished rows of the cover as an index of their g-subsets, so that "is this
// target covered?" is C(g, g) = one look-up instead of a scan of the rows. Rows that
// hold a number twice are kept aside and counted pair by pair, as the plain test does.
class IndiceCopertura {
public:
    // Brings the index up to the rows finished in `s` (rebuilt if the cover restarted).
    void sincronizza(const Sistema& s);
    // True when a finished row of `s` shares g numbers with the target.
    bool coperto(const Sistema& s, const uint8_t* bersaglio) const;

private:
    void aggiungi(const uint8_t* riga);
    int k_ = 0, g_ = 0;
    int64_t righe_ = 0;
    std::vector<uint64_t> bit_;
    std::vector<std::vector<uint8_t>> anomale_;
};

// One tick of Timer4: up to 99 targets, then the progress; at the last target the
// closing steps and the integral plays. `indice` may be null (built for the tick).
void Timer4Tick(Sistema& s, Interfaccia& ui, IndiceCopertura* indice = nullptr);

// Runs the ticks while Timer4 is on, serving the progress window's keys between
// two slices. A run-time error ends the run with the timer off (a failing tick
// would fail again on every tick) and travels on.
void EseguiTimer4(Sistema& s, Interfaccia& ui);

// Row text of the list: three characters a number, the tenth without padding.
std::string RigaCopertura(const uint8_t* numeri, int k);

}  // namespace zef
