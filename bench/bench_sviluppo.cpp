// Development speed: the bare generator into the store, and with a filter that
// refuses most candidates (the usual case with conditions), on one and two threads.
#include "core/form4.h"
#include "core/giocate.h"

#include <functional>
#include <string>
#include <vector>
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
        state.counters["candidati/s"] = benchmark::Counter(static_cast<double>(s.ColonneEsaminate), benchmark::Counter::kIsIterationInvariantRate);
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

// The same development written plainly: ten levels as nested calls, a virtual
// filter call per candidate, 16-bit numbers in a (k + 1) x 20,000,001 array.
void SviluppoLetterale(benchmark::State& state, int n, int k) {
    for (auto _ : state) {
        std::vector<int16_t> colonne(static_cast<size_t>(k + 1) * 20'000'001);
        long long liv[12] = {};
        int32_t num = 0;
        int64_t esaminate = 0;
        bool pieno = false;
        std::function<void(int)> livello = [&](int j) {
            const long long limite = j == 10 ? n : n - k + j;
            while (!pieno && liv[j] < limite) {
                liv[j] += 1;
                liv[j + 1] = liv[j];
                if (j >= 2 && k < j + 1) {
                    ++esaminate;
                    if (num == 20'000'000) {
                        pieno = true;
                        return;
                    }
                    ++num;
                    for (int p = 1; p <= j; ++p)
                        colonne[static_cast<size_t>(num) * (k + 1) + p] = static_cast<int16_t>(liv[p]);
                } else {
                    livello(j + 1);
                }
            }
        };
        livello(1);
        benchmark::DoNotOptimize(colonne.data());
        state.counters["colonne"] = num;
    }
}
BENCHMARK_CAPTURE(SviluppoLetterale, sestine_di_40, 40, 6)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(SviluppoLetterale, cinquine_di_90_fino_al_limite, 90, 5)->Unit(benchmark::kMillisecond)->UseRealTime();

// VISUALIZZA of the 3,838,380 columns of 40 numbers in SESTINE.
// The 3,838,380 columns of 40 numbers in SESTINE.
void Sestine40(Sistema& s) {
    InterfacciaScriptata ui;
    for (int i = 0; i < 40; ++i) s.pad[i] = true;
    s.Label2 = "40";
    s.PronosticoDalPad();
    s.SviluppoK = 6;
    s.colonne.dimensiona(6);
    MostraForm4(s, ui);
    SviluppaColonne(s, ui);
}

void Visualizza40(benchmark::State& state) {
    Sistema s;
    InterfacciaScriptata ui;
    Sestine40(s);
    for (auto _ : state) {
        Visualizza(s, ui);
        benchmark::DoNotOptimize(s.MSFlexGrid1.Rows());
    }
    state.counters["righe"] = static_cast<double>(s.MSFlexGrid1.Rows());
}
BENCHMARK(Visualizza40)->Unit(benchmark::kMillisecond)->UseRealTime();

// The plain way: a heap string a row, built number by number.
void VisualizzaLetterale40(benchmark::State& state) {
    Sistema s;
    Sestine40(s);
    for (auto _ : state) {
        std::vector<std::string> righe(s.NumColonne);
        for (int64_t c = 1; c <= s.NumColonne; ++c) {
            std::string r;
            for (int p = 1; p <= 6; ++p) {
                std::string t = " " + std::to_string(s.colonne.get(p, c));
                while (t.size() < 3) t += " ";
                r += t;
            }
            righe[c - 1] = r;
        }
        benchmark::DoNotOptimize(righe.data());
    }
}
BENCHMARK(VisualizzaLetterale40)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
