// The win check: CERCA over a big list on every wheel with every kind played, and the
// check of a system over all the shipped draws (10,000 and 100,000 rows).
#include "archive/archivio.h"
#include "core/giocate.h"
#include "core/lista.h"
#include "wincheck/spoglio.h"
#include "wincheck/verifica_periodo.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

using namespace zef;
namespace fs = std::filesystem;

namespace {

struct Cartella {
    fs::path p;
    Cartella() {
        std::random_device rd;
        p = fs::temp_directory_path() / ("zef_bench_spoglio_" + std::to_string(rd()));
        fs::create_directories(p);
    }
    ~Cartella() {
        std::error_code ec;
        fs::remove_all(p, ec);
    }
};

// All the shipped draws, read once.
const std::vector<EstrazioneSpoglio>& Estrazioni() {
    static Cartella c;
    static auto a = ArchivioEstrazioni::ApriOCrea((c.p / "archivio.db").string(),
                                                  std::string(ZEF_DATI_BIN) + "/storico.txt.gz");
    static std::vector<EstrazioneSpoglio> e = LeggiEstrazioni(*a);
    return e;
}

// n rows of six different numbers, as a development would list them.
ListaGiocate Lista(int64_t n) {
    std::mt19937 rng(42);
    ListaGiocate l;
    l.riserva(n, 18);
    std::vector<uint8_t> riga;
    for (int64_t r = 0; r < n; ++r) {
        riga.clear();
        while (riga.size() < 6) {
            auto x = static_cast<uint8_t>(1 + rng() % 90);
            if (std::find(riga.begin(), riga.end(), x) == riga.end()) riga.push_back(x);
        }
        std::sort(riga.begin(), riga.end());
        l.AddItem(TestoRiga(riga.data(), 6));
    }
    return l;
}

GiocataSpoglio TutteLeSorti() {
    GiocataSpoglio g;
    g.k = 6;
    g.giocata.fill(true);
    g.ruote[11] = true;
    return g;
}

void BM_Cerca(benchmark::State& st) {
    const ListaGiocate l = Lista(st.range(0));
    const GiocataSpoglio g = TutteLeSorti();
    const Caselle c = Estrazioni().back().caselle;
    for (auto _ : st) {
        EsitoSpoglio e = Spoglia(l, g, c, st.range(1) != 0);
        benchmark::DoNotOptimize(e.vincite);
    }
    st.counters["righe"] = static_cast<double>(l.Rows());
}
BENCHMARK(BM_Cerca)->Args({1000000, 1})->Args({1000000, 0})->Unit(benchmark::kMillisecond);

void BM_VerificaPeriodo(benchmark::State& st) {
    const ListaGiocate l = Lista(st.range(0));
    const auto& e = Estrazioni();
    const std::array<std::string, 5> puntate{"1.00", "1.00", "1.00", "1.00", "1.00"};
    for (auto _ : st) {
        // The sets of rows are built afresh each time: a user pays for them at each check.
        VerificaPeriodo v(l, TutteLeSorti(), puntate, Currency::daInteri(5));
        auto esiti = v.Esegui(e, nullptr, {}, static_cast<int>(st.range(1)));
        benchmark::DoNotOptimize(esiti.data());
    }
    st.counters["estrazioni"] = static_cast<double>(e.size());
}
BENCHMARK(BM_VerificaPeriodo)->Args({10000, 1})->Args({10000, 2})->Args({100000, 2})->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
