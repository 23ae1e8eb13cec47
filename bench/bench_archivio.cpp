// The draw archive: opening and reading every draw, importing the shipped file, and a
// year's web update against a server on 127.0.0.1.
#include "archive/aggiorna.h"
#include "archive/archivio.h"
#include "archive/storico.h"
#include "core/interfaccia_scriptata.h"
#include "tests/archive/server_prova.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

using namespace zef;
namespace fs = std::filesystem;

namespace {

const std::string Storico = std::string(ZEF_DATI_BIN) + "/storico.txt.gz";

struct Cartella {
    fs::path p;
    Cartella() {
        std::random_device rd;
        p = fs::temp_directory_path() / ("zef_bench_archivio_" + std::to_string(rd()));
        fs::create_directories(p);
    }
    ~Cartella() {
        std::error_code ec;
        fs::remove_all(p, ec);
    }
};

// The full archive, built once.
const std::string& ArchivioPieno() {
    static Cartella c;
    static std::string percorso = [] {
        std::string p = (c.p / "archivio.db").string();
        ArchivioEstrazioni::ApriOCrea(p, Storico);
        return p;
    }();
    return percorso;
}

// Open, then every number of every draw through the cursor, fields by name.
void BM_ApriELeggiTutto(benchmark::State& st) {
    const std::string& p = ArchivioPieno();
    std::vector<std::string> nomi;
    for (int w = 1; w <= NumRuote; ++w)
        for (int q = 1; q <= 5; ++q) nomi.push_back(NomeCampo(w, q));
    for (auto _ : st) {
        ArchivioEstrazioni a(p);
        Cursore c = a.OpenRecordset("Estrazioni");
        c.MoveLast();
        c.MoveFirst();
        long somma = 0;
        for (; !c.Eof(); c.MoveNext())
            for (const auto& n : nomi)
                if (auto v = c.numero(n)) somma += *v;
        benchmark::DoNotOptimize(somma);
    }
}
BENCHMARK(BM_ApriELeggiTutto)->Unit(benchmark::kMillisecond);

// The open alone: every row read into the cursor.
void BM_SoloApertura(benchmark::State& st) {
    const std::string& p = ArchivioPieno();
    for (auto _ : st) {
        ArchivioEstrazioni a(p);
        Cursore c = a.OpenRecordset("Estrazioni");
        benchmark::DoNotOptimize(c.RecordCount());
    }
}
BENCHMARK(BM_SoloApertura)->Unit(benchmark::kMillisecond);

// The 76,824 lines of the shipped file into an empty archive.
void BM_ImportaStorico(benchmark::State& st) {
    Cartella c;
    int n = 0;
    for (auto _ : st) {
        st.PauseTiming();
        std::string p = (c.p / ("a" + std::to_string(n++) + ".db")).string();
        auto a = ArchivioEstrazioni::ApriOCrea(p);
        st.ResumeTiming();
        auto e = ImportaFileStorico(*a, Storico);
        benchmark::DoNotOptimize(e.importate);
    }
}
BENCHMARK(BM_ImportaStorico)->Unit(benchmark::kMillisecond);

// A results page of the draws after the archive's last, newest first, then the last known.
std::string PaginaAnno(int anno, int nuove) {
    std::string h = "<html><body>";
    auto draw = [&](int g, int m) {
        char d[16];
        std::snprintf(d, sizeof d, "%02d/%02d/%04d", g, m, anno);
        h += "<div class=\"lottoDraws\"><strong>del " + std::string(d) + "</strong>";
        for (int w = 0; w < NumRuote; ++w) {
            h += "<ul class=\"ballRow\">";
            for (int q = 0; q < 5; ++q) h += "<li class=\"ball\">" + std::to_string((g * 7 + m * 3 + w * 11 + q * 17) % 90 + 1) + "</li>";
            h += "</ul>";
        }
        h += "</div>";
    };
    // Draws of August..December after the 1st of August, three a week.
    std::vector<std::pair<int, int>> date;
    for (int m = 8; m <= 12 && static_cast<int>(date.size()) < nuove; ++m)
        for (int g = 2; g <= 28 && static_cast<int>(date.size()) < nuove; g += 2) date.emplace_back(g, m);
    for (auto it = date.rbegin(); it != date.rend(); ++it) draw(it->first, it->second);
    draw(1, 8);  // known: the scan stops here
    for (int m = 7; m >= 1; --m) draw(15, m);
    return h + "</body></html>";
}

// One year's update: 2026 with 60 new draws, served over HTTP on 127.0.0.1.
void BM_AggiornamentoAnno(benchmark::State& st) {
    Cartella c;
    std::string p = (c.p / "archivio.db").string();
    fs::copy_file(ArchivioPieno(), p);
    prova::ServerProva server;
    server.imposta("/risultati/archivio-lotto-2026", {200, PaginaAnno(2026, 60), ""});
    server.imposta("/lotto/archivio-estrazioni/?as=TXT&year=2026", {200, "testo", ""});
    ImpostazioniAggiornamento imp;
    imp.sito1 = server.url();
    imp.sito2 = server.url();
    FonteCurl fonte(5);
    for (auto _ : st) {
        st.PauseTiming();
        {
            SQLite::Database db(p, SQLite::OPEN_READWRITE);
            db.exec("DELETE FROM estrazioni WHERE data > '2026-08-01'");
        }
        auto a = std::make_unique<ArchivioEstrazioni>(p);
        InterfacciaScriptata ui;
        st.ResumeTiming();
        ContestoAggiornamento ctx{*a, ui, fonte, imp, c.p.string(), 2026};
        AggiornaEstrazioni(ctx);
        if (a->NumeroEstrazioni() != 7359 + 60) st.SkipWithError("aggiornamento incompleto");
    }
}
BENCHMARK(BM_AggiornamentoAnno)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
