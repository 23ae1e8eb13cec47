// The draws of the archive as the conditions read them: the whole archive, the tail
// of 501 draws of the delay pass, and Accetta with both archive-based conditions on
// every wheel ("Tutte").
#include "archive/archivio.h"
#include "archive/estrazioni_archivio.h"
#include "conditions/form28.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

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
        p = fs::temp_directory_path() / ("zef_bench_estrazioni_" + std::to_string(rd()));
        fs::create_directories(p);
    }
    ~Cartella() {
        std::error_code ec;
        fs::remove_all(p, ec);
    }
};

// The full archive from the shipped draws, built once.
ArchivioEstrazioni& Archivio() {
    static Cartella c;
    static auto a = ArchivioEstrazioni::ApriOCrea((c.p / "archivio.db").string(),
                                                  std::string(ZEF_DATI_BIN) + "/storico.txt.gz");
    return *a;
}

void BM_TutteLeEstrazioni(benchmark::State& st) {
    EstrazioniArchivio fonte(Archivio());
    for (auto _ : st) {
        auto v = fonte.tutte();
        benchmark::DoNotOptimize(v.data());
        st.counters["estrazioni"] = static_cast<double>(v.size());
    }
}
BENCHMARK(BM_TutteLeEstrazioni)->Unit(benchmark::kMillisecond);

void BM_Ultime501(benchmark::State& st) {
    EstrazioniArchivio fonte(Archivio());
    const long n = fonte.numeroEstrazioni();
    for (auto _ : st) {
        auto v = fonte.daId(n - 500);
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(BM_Ultime501)->Unit(benchmark::kMillisecond);

void BM_AccettaConArchivioTutte(benchmark::State& st) {
    EstrazioniArchivio fonte(Archivio());
    Sistema s;
    InterfacciaScriptata ui;
    for (int x : {3, 8, 15, 22, 40, 41, 77}) s.pad[x - 1] = true;
    s.Label2 = "7";
    s.PronosticoDalPad();
    s.SviluppoK = 5;
    Form28 f(s, ui);
    s.ResettaCondizioni();
    f.attiva();
    f.archivio = &fonte;
    f.chkAttivo[12] = 1;
    f.chkAttivo[14] = 1;
    f.txtNcolonne = "50";
    f.txtUltimeEstrazioni = "100";
    for (auto _ : st) f.CliccaAccetta();
}
BENCHMARK(BM_AccettaConArchivioTutte)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
