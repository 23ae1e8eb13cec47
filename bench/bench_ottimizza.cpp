// The optimised reduction on the cases of the README's table: the size reached from
// the program's greedy list in a time budget (ZEF_BENCH_SECONDI, default 60), seed 1,
// both cores. The time is the budget; the counters are what matters.
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "reduction/formottimizza.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

using namespace zef;

namespace {

std::string Secondi() {
    const char* s = std::getenv("ZEF_BENCH_SECONDI");
    return s ? s : "60";
}

void Pronostico(Sistema& s, int n) {
    s.pad.fill(false);
    for (int i = 0; i < n; ++i) s.pad[static_cast<size_t>(i)] = true;
    s.Label2 = TestoSemplice(n);
    s.PronosticoDalPad();
}

void BM_Copertura(benchmark::State& st) {
    const int v = static_cast<int>(st.range(0)), k = static_cast<int>(st.range(1)), g = static_cast<int>(st.range(2));
    for (auto _ : st) {
        Sistema s;
        InterfacciaScriptata ui;
        ui.rispostaPredefinita = Risposta::No;  // no integral plays
        Pronostico(s, v);
        FormOttimizza f(s, ui);
        f.compito = 2;
        f.k = k;
        f.garanzia = g;
        f.secondi = Secondi();
        f.clickAvvia();
        st.counters["iniziale"] = static_cast<double>(f.iniziale);
        st.counters["limite"] = static_cast<double>(f.limite);
        st.counters["ottimizzate"] = static_cast<double>(f.ottimizzate);
    }
}
BENCHMARK(BM_Copertura)
    ->Args({20, 5, 3})
    ->Args({25, 6, 3})
    ->Args({30, 5, 3})
    ->Args({40, 6, 3})
    ->Args({90, 5, 2})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

void BM_Riduzione(benchmark::State& st) {
    for (auto _ : st) {
        Sistema s;
        InterfacciaScriptata ui;
        Pronostico(s, 30);
        // All C(30, 5) columns, as the development leaves them.
        s.SviluppoK = 5;
        s.colonne.dimensiona(5, 142507);
        int idx[5] = {0, 1, 2, 3, 4};
        int32_t n = 0;
        for (;;) {
            ++n;
            for (int p = 0; p < 5; ++p) s.colonne.set(p + 1, n, static_cast<uint8_t>(idx[p] + 1));
            int i = 4;
            while (i >= 0 && idx[i] == 30 - 5 + i) --i;
            if (i < 0) break;
            ++idx[i];
            for (int j = i + 1; j < 5; ++j) idx[j] = idx[j - 1] + 1;
        }
        s.NumColonne = n;
        FormOttimizza f(s, ui);
        f.compito = 1;
        f.garanzia = 3;
        f.secondi = Secondi();
        f.clickAvvia();
        st.counters["iniziale"] = static_cast<double>(f.iniziale);
        st.counters["ottimizzate"] = static_cast<double>(f.ottimizzate);
    }
}
BENCHMARK(BM_Riduzione)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

BENCHMARK_MAIN();
