// Development speed: the bare generator into the store, and with a filter that
// refuses most candidates (the usual case with conditions), on one and two threads.
#include "core/form4.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/sviluppo.h"

#include <benchmark/benchmark.h>

using namespace zef;

namespace {

// Accepts about one candidate in a hundred, by a hash of its numbers.
class FiltroHash : public FiltroColonna {
public:
    bool accetta(const uint8_t* numeri, const int*, int k) const override {
        uint32_t h = 2166136261u;
        for (int i = 0; i < k; ++i) h = (h ^ numeri[i]) * 16777619u;
        return h % 100 == 0;
    }
    std::unique_ptr<FiltroColonna> clona() const override { return std::make_unique<FiltroHash>(*this); }
};

void Sviluppa(benchmark::State& state, int n, int k, bool filtro, int thread) {
    for (auto _ : state) {
        state.PauseTiming();
        Sistema s;
        InterfacciaScriptata ui;
        for (int i = 0; i < n; ++i) s.pad[i] = true;
        s.Label2 = std::to_string(n);
        s.PronosticoDalPad();
        s.SviluppoK = static_cast<int16_t>(k);
        if (filtro) s.filtro = std::make_shared<FiltroHash>();
        s.colonne.dimensiona(k);
        MostraForm4(s, ui);
        ParametriSviluppo par;
        par.thread = thread;
        state.ResumeTiming();
        SviluppaColonne(s, ui, par);
        benchmark::DoNotOptimize(s.NumColonne);
        state.counters["colonne"] = s.NumColonne;
        state.counters["esaminate"] = static_cast<double>(s.ColonneEsaminate);
        state.counters["candidati/s"] = benchmark::Counter(static_cast<double>(s.ColonneEsaminate), benchmark::Counter::kIsRate);
        state.counters["byte/numero"] = static_cast<double>(s.colonne.residente()) / (static_cast<double>(s.NumColonne) * k);
    }
}

}  // namespace

BENCHMARK_CAPTURE(Sviluppa, sestine_di_40_senza_condizioni, 40, 6, false, 0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Sviluppa, cinquine_di_90_fino_al_limite, 90, 5, false, 0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Sviluppa, decine_di_90_fino_al_limite, 90, 10, false, 0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Sviluppa, sestine_di_40_filtro_1_thread, 40, 6, true, 1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Sviluppa, sestine_di_40_filtro_2_thread, 40, 6, true, 2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Sviluppa, cinquine_di_90_filtro_2_thread, 90, 5, true, 2)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
