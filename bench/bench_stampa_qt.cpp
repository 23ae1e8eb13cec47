// Printing: the listing and the slips produced through the printer seam (on a
// printer that keeps nothing, then on the recorder), and written as a PDF.
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "printing/destinazione.h"
#include "printing/form11.h"
#include "printing/tabulato.h"
#include "ui/destinazione_qt.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

using namespace zef;

namespace {

// Counts what it is given and keeps nothing.
class Conteggio : public Stampante {
public:
    long righe = 0;
    void impostaCarattere(const Carattere&) override {}
    void scalaMillimetri() override {}
    void impostaX(double) override {}
    void impostaY(double) override {}
    double x() const override { return 0; }
    double y() const override { return 0; }
    void stampa(std::string_view t) override { righe += !t.empty(); }
    void rigaVuota() override {}
    void nuovaPagina() override {}
    void fineDocumento() override {}
};

// A list of `n` rows of five numbers, with a play on the ambo and the terno.
void Prepara(Sistema& s, int64_t n) {
    s.SviluppoK = 5;
    s.MSFlexGrid1.costruisci(n, 15, [](int64_t r, char* d) {
        uint8_t v[5];
        for (int p = 0; p < 5; ++p) v[p] = static_cast<uint8_t>(1 + (r * 7 + p * 13) % 90);
        ScriviRiga(v, 5, d);
    });
    s.form2.Check = {0, 1, 1, 0, 0};
    s.form2.chkAmbo[4] = s.form2.chkAmbo[13 + 3] = true;
    s.form2.testi[1] = "1.00";
    s.form2.testi[2] = "0.50";
}

void BM_Tabulato(benchmark::State& stato) {
    Sistema s;
    Prepara(s, stato.range(0));
    long righe = 0;
    for (auto _ : stato) {
        Conteggio c;
        StampaTabulato(s, {true, true, true}, "01/01/26", c);
        righe = c.righe;
    }
    stato.counters["righe"] = static_cast<double>(righe);
    stato.counters["righe/s"] = benchmark::Counter(static_cast<double>(righe), benchmark::Counter::kIsIterationInvariantRate);
}

void BM_Schedine(benchmark::State& stato) {
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata d;
    Prepara(s, stato.range(0));
    Form11 f(s, ui, d);
    f.fileGeometria = "/nonexistent/cooxy.txt";
    f.carica();
    for (auto _ : stato) {
        Conteggio c;
        f.StampaSchede(c, false);
        benchmark::DoNotOptimize(c.righe);
    }
    stato.counters["schede/s"] = benchmark::Counter(static_cast<double>(stato.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate);
}

void BM_TabulatoRegistrato(benchmark::State& stato) {
    Sistema s;
    Prepara(s, stato.range(0));
    for (auto _ : stato) {
        StampanteRegistrata r;
        StampaTabulato(s, {true, true, true}, "01/01/26", r);
        benchmark::DoNotOptimize(r.operazioni.size());
    }
}

void BM_TabulatoPdf(benchmark::State& stato) {
    Sistema s;
    Prepara(s, stato.range(0));
    const std::string file = (std::filesystem::temp_directory_path() / "zef_bench_tabulato.pdf").string();
    for (auto _ : stato)
        ui::DestinazioneQt::ScriviPdf(file, Modulo::Tabulato, [&](Stampante& st, bool) {
            StampaTabulato(s, {true, true, true}, "01/01/26", st);
        });
    stato.counters["KB"] = static_cast<double>(std::filesystem::file_size(file)) / 1024;
    std::filesystem::remove(file);
}

void BM_SchedinePdf(benchmark::State& stato) {
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata d;
    Prepara(s, stato.range(0));
    Form11 f(s, ui, d);
    f.fileGeometria = "/nonexistent/cooxy.txt";
    f.carica();
    const std::string file = (std::filesystem::temp_directory_path() / "zef_bench_schedine.pdf").string();
    for (auto _ : stato)
        ui::DestinazioneQt::ScriviPdf(file, Modulo::Schedine, [&](Stampante& st, bool a) { f.StampaSchede(st, a); });
    stato.counters["schede/s"] = benchmark::Counter(static_cast<double>(stato.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate);
    std::filesystem::remove(file);
}

}  // namespace

BENCHMARK(BM_Tabulato)->Arg(1'000)->Arg(10'000)->Arg(26'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TabulatoRegistrato)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Schedine)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TabulatoPdf)->Arg(1'000)->Arg(5'000)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_SchedinePdf)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(2);

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
