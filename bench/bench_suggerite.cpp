// "Parametri delle colonne in archivio": the load of the window (the draws read from
// the archive and measured, delays and frequencies at each draw included) over the
// whole archive on every wheel, and over the last 500 draws on one wheel; the plain
// load, with both passes read row by row at each draw, beside them.
#include "archive/archivio.h"
#include "archive/estrazioni_archivio.h"
#include "conditions/form28.h"
#include "conditions/form29.h"
#include "conditions/misura_colonne.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

#include "../tests/conditions/form29_letterale.h"

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
        p = fs::temp_directory_path() / ("zef_bench_suggerite_" + std::to_string(rd()));
        fs::create_directories(p);
    }
    ~Cartella() {
        std::error_code ec;
        fs::remove_all(p, ec);
    }
};

ArchivioEstrazioni& Archivio() {
    static Cartella c;
    static auto a = ArchivioEstrazioni::ApriOCrea((c.p / "archivio.db").string(),
                                                  std::string(ZEF_DATI_BIN) + "/storico.txt.gz");
    return *a;
}

// The shipped draws with every empty wheel (Cagliari and Genova before they were drawn,
// the war years) given the numbers of another wheel of the same draw: the ten wheels
// measured from the first draw to the last.
ArchivioEstrazioni& ArchivioPieno() {
    static Cartella c;
    static std::unique_ptr<ArchivioEstrazioni> a = [] {
        auto righe = EstrazioniArchivio(Archivio()).tutte();
        auto nuovo = ArchivioEstrazioni::ApriOCrea((c.p / "pieno.db").string());
        ArchivioEstrazioni::Transazione t(*nuovo);
        auto cur = nuovo->OpenRecordset("estrazioni");
        for (auto& e : righe) {
            int piena = 1;
            for (int r = 1; r <= 10; ++r)
                if (e.numero(r, 1) && e.numero(r, 5)) piena = r;
            for (int r = 1; r <= 10; ++r)
                for (int p = 1; p <= 5; ++p)
                    if (e.numero(r, p) == 0)
                        for (int q = 1; q <= 5; ++q) e.numeri[(r - 1) * 5 + q - 1] = static_cast<int16_t>(e.numero(piena, q));
            cur.AddNew();
            cur.imposta("id", Valore(e.id));
            for (int r = 1; r <= 11; ++r)
                for (int p = 1; p <= 5; ++p)
                    if (e.numero(r, p) != 0) cur.imposta(NomeCampo(r, p), e.numero(r, p));
            cur.Update();
        }
        t.Commit();
        return nuovo;
    }();
    return *a;
}

// The load of Form29 as Suggerisci opens it: draws `prima`..last, wheel of the play dialog.
void Carica(benchmark::State& st, ArchivioEstrazioni& archivio, long prima, int ruotaGiocata) {
    EstrazioniArchivio fonte(archivio);
    Sistema s;
    InterfacciaScriptata ui;
    Form28 f28(s, ui);
    s.form2.Option1.fill(false);
    s.form2.Option1[ruotaGiocata] = true;
    const long rc = fonte.numeroEstrazioni();
    IntervalloEstrazioni r{static_cast<int16_t>(prima), static_cast<int16_t>(rc)};
    for (auto _ : st) {
        Form29 f(s, ui, f28, &fonte, r);
        f.carica();
        benchmark::DoNotOptimize(f.ritardoMax);
        st.counters["estrazioni"] = static_cast<double>(f.misura.righe);
        st.counters["misurate"] = static_cast<double>(f.misura.interrotta ? f.misura.rigaErrore - 1 : f.misura.righe);
    }
}

// Suggerisci answered "7360": the whole archive. Cagliari is empty in the first draw, so
// the measuring stops there, as it is meant to.
void BM_TutteArchivioSpedito(benchmark::State& st) { Carica(st, Archivio(), 0, 11); }
BENCHMARK(BM_TutteArchivioSpedito)->Unit(benchmark::kMillisecond);

// From the first draw with all ten wheels (id 1622) to the last.
void BM_TutteDallaPrimaCompleta(benchmark::State& st) { Carica(st, Archivio(), 1622, 11); }
BENCHMARK(BM_TutteDallaPrimaCompleta)->Unit(benchmark::kMillisecond);

// All 7,359 draws on ten wheels: the case of some 43 million row reads done plainly.
void BM_TutteArchivioPieno(benchmark::State& st) { Carica(st, ArchivioPieno(), 0, 11); }
BENCHMARK(BM_TutteArchivioPieno)->Unit(benchmark::kMillisecond);

void BM_Ultime500Bari(benchmark::State& st) {
    Carica(st, Archivio(), EstrazioniArchivio(Archivio()).numeroEstrazioni() - 499, 0);
}
BENCHMARK(BM_Ultime500Bari)->Unit(benchmark::kMillisecond);

// The measuring alone, the draws already in memory.
void BM_MisuraTutteInMemoria(benchmark::State& st) {
    const auto righe = EstrazioniArchivio(ArchivioPieno()).tutte();
    for (auto _ : st) {
        auto m = MisuraColonne(righe, 0, righe.back().id, misura::Tutte);
        benchmark::DoNotOptimize(m.ritardoMax);
    }
}
BENCHMARK(BM_MisuraTutteInMemoria)->Unit(benchmark::kMillisecond);

void BM_PianoUltime500Bari(benchmark::State& st) {
    const auto righe = EstrazioniArchivio(Archivio()).tutte();
    const long ultimo = righe.back().id;
    for (auto _ : st) {
        auto m = prova::Form29Letterale(righe, ultimo - 499, ultimo, 1);
        benchmark::DoNotOptimize(m.ritardoMax);
    }
}
BENCHMARK(BM_PianoUltime500Bari)->Unit(benchmark::kMillisecond);

void BM_PianoTutteArchivioPieno(benchmark::State& st) {
    const auto righe = EstrazioniArchivio(ArchivioPieno()).tutte();
    for (auto _ : st) {
        auto m = prova::Form29Letterale(righe, 0, righe.back().id, 12);
        benchmark::DoNotOptimize(m.ritardoMax);
    }
}
BENCHMARK(BM_PianoTutteArchivioPieno)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
