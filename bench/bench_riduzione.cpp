// Reductions, cover and win percentages on the sizes players use, each beside the
// plain version it must match (on the same input where that finishes, otherwise on
// a smaller one so the growth shows).
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "reduction/copertura.h"
#include "reduction/form19.h"
#include "reduction/percentuali.h"
#include "reduction/riduzione.h"
#include "reduction/verifica.h"
#include "tests/reduction/riferimento.h"
#include "tests/reduction/riferimento_copertura.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

using namespace zef;

namespace {

void Pronostico(Sistema& s, int n) {
    s.pad.fill(false);
    for (int i = 0; i < n; ++i) s.pad[i] = true;
    s.Label2 = std::to_string(n);
    s.PronosticoDalPad();
}

// All k-subsets of 1..n, in lexicographic order.
void Integrale(Sistema& s, int n, int k) {
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k, static_cast<int64_t>(Binomiale(n, k)) + 1);
    s.NumColonne = 0;
    std::vector<int> idx(k);
    for (int i = 0; i < k; ++i) idx[i] = i;
    for (;;) {
        ++s.NumColonne;
        uint8_t* c = s.colonne.colonna(s.NumColonne);
        for (int p = 0; p < k; ++p) c[p] = static_cast<uint8_t>(idx[p] + 1);
        int i = k - 1;
        while (i >= 0 && idx[i] == n - k + i) --i;
        if (i < 0) break;
        ++idx[i];
        for (int j = i + 1; j < k; ++j) idx[j] = idx[j - 1] + 1;
    }
}

enum Modo { Veloce, Letterale };

void Riduzione(benchmark::State& state, int n, int k, int g, bool accurato, Modo modo) {
    Sistema s;
    Integrale(s, n, k);
    for (auto _ : state) {
        InterfacciaScriptata ui;
        s.NumRidotte = 0;
        int16_t gg = static_cast<int16_t>(g), kk = static_cast<int16_t>(k);
        if (modo == Veloce) {
            if (accurato) RiduciAccurato(s, ui, gg, kk);
            else RiduciRapido(s, ui, gg, false);
        } else {
            if (accurato) rif::RiduciAccurato(s, ui, g);
            else rif::RiduciRapido(s, ui, g);
        }
        state.counters["colonne"] = s.NumColonne;
        state.counters["ridotte"] = s.NumRidotte;
    }
}

void Copertura(benchmark::State& state, int n, int k, int g, Modo modo) {
    for (auto _ : state) {
        Sistema s;
        InterfacciaScriptata ui;
        ui.risposte.push_back(Risposta::No);  // without the integral plays
        Pronostico(s, n);
        Form19 f(s, ui);
        f.Combo1 = k - 3;
        f.Combo2 = g - 2;
        f.clickCommand1();
        if (modo == Veloce) {
            EseguiTimer4(s, ui);
        } else {
            while (!rif::Tick(s, ui, false)) {}
        }
        state.counters["righe"] = static_cast<double>(s.MSFlexGrid1.Rows());
    }
}

// A list of `colonne` random columns of k numbers out of a forecast of n.
void ListaCasuale(Sistema& s, int n, int k, int colonne) {
    Pronostico(s, n);
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k, colonne + 1);
    std::mt19937 rng(7);
    std::vector<int> v(n);
    for (int i = 0; i < n; ++i) v[i] = i + 1;
    for (int c = 1; c <= colonne; ++c) {
        std::shuffle(v.begin(), v.end(), rng);
        std::sort(v.begin(), v.begin() + k);
        for (int p = 0; p < k; ++p) s.colonne.set(p + 1, c, static_cast<uint8_t>(v[p]));
    }
    s.NumColonne = colonne;
    InterfacciaScriptata ui;
    Visualizza(s, ui);
}

void Percentuali(benchmark::State& state, int n, int k, int colonne) {
    for (auto _ : state) {
        state.PauseTiming();
        Sistema s;
        ListaCasuale(s, n, k, colonne);
        InterfacciaScriptata ui;
        ui.risposte.push_back(Risposta::Si);  // with 5 numbers
        state.ResumeTiming();
        Form8 f(s, ui);
        f.avviaEdEsegui();
        benchmark::DoNotOptimize(s.form8.GaranziaMin);
    }
}

// The plain count of the percentages' inner loop: every combination of 5 against
// every row, positions compared one by one (the work of level 5, the largest).
void PercentualiLetterale(benchmark::State& state, int n, int k, int colonne) {
    Sistema s;
    ListaCasuale(s, n, k, colonne);
    std::vector<std::vector<int>> righe;
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) {
        std::vector<int> v;
        for (int p = 1; p <= k; ++p) v.push_back(NumeroInRiga(s.MSFlexGrid1.riga(r), p));
        righe.push_back(v);
    }
    for (auto _ : state) {
        long vinte = 0;
        int c[5];
        for (c[0] = 1; c[0] <= n; ++c[0])
            for (c[1] = c[0] + 1; c[1] <= n; ++c[1])
                for (c[2] = c[1] + 1; c[2] <= n; ++c[2])
                    for (c[3] = c[2] + 1; c[3] <= n; ++c[3])
                        for (c[4] = c[3] + 1; c[4] <= n; ++c[4])
                            for (auto& r : righe) {
                                int h = 0;
                                for (int x : r)
                                    for (int q = 0; q < 5; ++q) h += x == c[q];
                                vinte += h >= 2;
                                if (h == 5) break;
                            }
        benchmark::DoNotOptimize(vinte);
    }
}

// The check of the guarantee on the reduced list of a development.
void Verifica(benchmark::State& state, int n, int k, int g) {
    Sistema s;
    Integrale(s, n, k);
    InterfacciaScriptata ui;
    int16_t gg = static_cast<int16_t>(g);
    RiduciRapido(s, ui, gg, false);
    Visualizza(s, ui);
    for (auto _ : state) {
        EsitoVerifica e = VerificaGaranzia(s, g);
        state.counters["scoperte"] = static_cast<double>(e.scoperte);
    }
}

}  // namespace

// Guarantee check, 90 numbers in QUARTINE reduced at ambo: target < 1 s.
BENCHMARK_CAPTURE(Verifica, quartine_90_ambo, 90, 4, 2)->Unit(benchmark::kMillisecond)->Iterations(3);

// Accurate reduction, 30 numbers in CINQUINE (142,506 columns), terno: target < 5 s.
BENCHMARK_CAPTURE(Riduzione, accurato_30_cinquine_terno, 30, 5, 3, true, Veloce)->Unit(benchmark::kMillisecond)->Iterations(1);
// The plain accurate reduction grows with columns x uncovered x k a round: smaller inputs.
BENCHMARK_CAPTURE(Riduzione, accurato_14_cinquine_terno, 14, 5, 3, true, Veloce)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Riduzione, accurato_14_cinquine_terno_letterale, 14, 5, 3, true, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Riduzione, accurato_16_cinquine_terno, 16, 5, 3, true, Veloce)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Riduzione, accurato_16_cinquine_terno_letterale, 16, 5, 3, true, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Riduzione, accurato_20_cinquine_terno, 20, 5, 3, true, Veloce)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Riduzione, accurato_20_cinquine_terno_letterale, 20, 5, 3, true, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
// Fast reduction of the same 30/5/3: target < 0.2 s.
BENCHMARK_CAPTURE(Riduzione, rapido_30_cinquine_terno, 30, 5, 3, false, Veloce)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Riduzione, rapido_30_cinquine_terno_letterale, 30, 5, 3, false, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
// Fast reduction, 90 numbers in QUARTINE (2,555,190 columns), ambo: target < 1 s.
BENCHMARK_CAPTURE(Riduzione, rapido_90_quartine_ambo, 90, 4, 2, false, Veloce)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(Riduzione, rapido_90_quartine_ambo_letterale, 90, 4, 2, false, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Riduzione, rapido_50_quartine_ambo_letterale, 50, 4, 2, false, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Riduzione, rapido_50_quartine_ambo, 50, 4, 2, false, Veloce)->Unit(benchmark::kMillisecond);
// Cover of 40 numbers in SESTINE at terno, no integral plays: target < 0.5 s.
BENCHMARK_CAPTURE(Copertura, sestine_40_terno, 40, 6, 3, Veloce)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Copertura, sestine_40_terno_letterale, 40, 6, 3, Letterale)->Unit(benchmark::kMillisecond)->Iterations(1);
// Win percentages of 1,000 columns of 6 out of 40 numbers, with 5: target < 2 s.
BENCHMARK_CAPTURE(Percentuali, colonne_1000_sestine_40, 40, 6, 1000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(PercentualiLetterale, livello5_colonne_1000_sestine_40, 40, 6, 1000)->Unit(benchmark::kMillisecond)->Iterations(1);

BENCHMARK_MAIN();
