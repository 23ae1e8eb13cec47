// Saving and loading a system of 1,000,000 and of 20,000,000 columns of 6 numbers
// with its list (the rows VISUALIZZA makes), beside a plain writer and reader of the
// same file: one stream statement a value, one getline and one string a line.
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

using namespace zef;

namespace {

std::string FileProva(int64_t colonne) {
    return (std::filesystem::temp_directory_path() / ("zef_bench_file_" + std::to_string(colonne) + ".zfr")).string();
}

// The first `colonne` sestine of 60 numbers in lexicographic order, listed.
void Prepara(Sistema& s, int64_t colonne) {
    constexpr int n = 60;
    s.pad.fill(false);
    for (int i = 0; i < n; ++i) s.pad[i] = true;
    s.Label2 = TestoSemplice(n);
    s.PronosticoDalPad();
    s.SviluppoK = 6;
    s.colonne.dimensiona(6);
    int idx[6] = {1, 2, 3, 4, 5, 6};
    for (int64_t c = 1; c <= colonne; ++c) {
        uint8_t* d = s.colonne.colonna(c);
        for (int p = 0; p < 6; ++p) d[p] = static_cast<uint8_t>(idx[p]);
        int p = 5;
        while (p > 0 && idx[p] == n - 5 + p) --p;
        ++idx[p];
        for (int q = p + 1; q < 6; ++q) idx[q] = idx[q - 1] + 1;
    }
    s.NumColonne = static_cast<int32_t>(colonne);
    s.pannelli[0] = pannello::Condizionate(colonne);
    s.Command2 = "Roma, , Ambo € 1,00, , , ";
    s.CostoColonna = Currency::daInteri(1);
    InterfacciaScriptata ui;
    Visualizza(s, ui);
}

// One prepared system a size, kept for all the runs (20,000,000 take a while to build).
Sistema& Preparato(int64_t colonne) {
    static std::map<int64_t, std::unique_ptr<Sistema>> pronti;
    auto& p = pronti[colonne];
    if (!p) {
        p = std::make_unique<Sistema>();
        Prepara(*p, colonne);
    }
    return *p;
}

void Salva(benchmark::State& state) {
    const int64_t n = state.range(0);
    Sistema& s = Preparato(n);
    for (auto _ : state) ScriviSistema(s, FileProva(n));
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(FileProva(n))) / 1e6;
}

void Carica(benchmark::State& state) {
    const int64_t n = state.range(0);
    ScriviSistema(Preparato(n), FileProva(n));
    for (auto _ : state) {
        Sistema s;
        InterfacciaScriptata ui;
        LeggiSistema(s, ui, FileProva(n));
        if (s.NumColonne != n || s.MSFlexGrid1.Rows() != n) state.SkipWithError("caricamento incompleto");
        benchmark::DoNotOptimize(s.NumColonne);
    }
}

// The plain way: one stream statement a value, in the order of the format.
void SalvaLetterale(benchmark::State& state) {
    const int64_t n = state.range(0);
    Sistema& s = Preparato(n);
    for (auto _ : state) {
        std::ofstream out(FileProva(n) + ".lett", std::ios::binary);
        auto testo = [&](const std::string& t) { out << '"' << Utf8InCp1252(t) << "\"\r\n"; };
        auto vero = [&](bool b) { out << (b ? "#TRUE#" : "#FALSE#") << "\r\n"; };
        for (int i = 0; i < 90; ++i) out << (s.pad[i] ? 1 : 0) << "\r\n";
        out << s.TipoGaranzia << "\r\n";
        for (auto& p : s.pannelli) testo(p);
        out << s.SviluppoK << "\r\n" << s.NumColonne << "\r\n";
        for (int64_t c = 1; c <= s.NumColonne; ++c)
            for (int p = 1; p <= s.SviluppoK; ++p) out << static_cast<int>(s.colonne.get(p, c)) << "\r\n";
        out << s.NumRidotte << "\r\n" << s.MSFlexGrid1.Rows() << "\r\n";
        for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) testo(std::string(s.MSFlexGrid1.riga(r)));
        for (int i = 0; i <= 10; ++i) vero(s.form2.Option1[i]);
        for (int i = 1; i <= 4; ++i) out << s.form2.Check[i] << "\r\n";
        for (int i = 1; i <= 4; ++i) testo(s.form2.testi[i]);
        testo(s.Command2);
        out << s.CostoColonna.testoPunto() << "\r\n";
        vero(s.GaranziaAttiva);
        out << s.DistanzaMin << "\r\n";
    }
    std::filesystem::remove(FileProva(n) + ".lett");
}

// The plain way back: a getline and a string a line, a number by stoi, a text unquoted.
void CaricaLetterale(benchmark::State& state) {
    const int64_t n = state.range(0);
    ScriviSistema(Preparato(n), FileProva(n));
    for (auto _ : state) {
        Sistema s;
        std::ifstream in(FileProva(n), std::ios::binary);
        std::string riga;
        auto linea = [&] {
            std::getline(in, riga);
            if (!riga.empty() && riga.back() == '\r') riga.pop_back();
            return riga;
        };
        auto numero = [&] { return std::stoll(linea()); };
        auto testo = [&] {
            std::string t = linea();
            return Cp1252InUtf8(t.size() >= 2 ? t.substr(1, t.size() - 2) : t);
        };
        for (int i = 0; i < 90; ++i) s.pad[i] = numero() == 1;
        s.TipoGaranzia = static_cast<int16_t>(numero());
        for (auto& p : s.pannelli) p = testo();
        s.SviluppoK = static_cast<int16_t>(numero());
        s.colonne.dimensiona(s.SviluppoK);
        s.NumColonne = static_cast<int32_t>(numero());
        for (int64_t c = 1; c <= s.NumColonne; ++c)
            for (int p = 1; p <= s.SviluppoK; ++p) s.colonne.set(p, c, static_cast<uint8_t>(numero()));
        s.NumRidotte = static_cast<int32_t>(numero());
        const long long righe = numero();
        for (long long r = 0; r < righe; ++r) s.MSFlexGrid1.AddItem(testo());
        if (s.MSFlexGrid1.Rows() != n) state.SkipWithError("caricamento incompleto");
        benchmark::DoNotOptimize(s.NumColonne);
    }
}

BENCHMARK(Salva)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SalvaLetterale)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Carica)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CaricaLetterale)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();
// 20,000,000: one or two runs each, the plain ones take several seconds
BENCHMARK(Salva)->Arg(20'000'000)->Iterations(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SalvaLetterale)->Arg(20'000'000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Carica)->Arg(20'000'000)->Iterations(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CaricaLetterale)->Arg(20'000'000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    for (int64_t n : {1'000'000, 20'000'000}) std::filesystem::remove(FileProva(n));  // a gigabyte of test file
    return 0;
}
