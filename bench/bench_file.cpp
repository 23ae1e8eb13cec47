// Saving and loading a system of 1,000,000 columns of 6 numbers with its list,
// beside a plain iostream writer and reader of the same file.
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace zef;

namespace {

const std::string& FileProva() {
    static std::string f = (std::filesystem::temp_directory_path() / "zef_bench_file.zfr").string();
    return f;
}

void Prepara(Sistema& s, int64_t colonne) {
    s.pad.fill(false);
    for (int i = 0; i < 40; ++i) s.pad[i] = true;
    s.Label2 = "40";
    s.PronosticoDalPad();
    s.SviluppoK = 6;
    s.colonne.dimensiona(6);
    int idx[6] = {1, 2, 3, 4, 5, 6};
    for (int64_t c = 1; c <= colonne; ++c) {
        for (int p = 0; p < 6; ++p) s.colonne.set(p + 1, c, static_cast<uint8_t>(idx[p]));
        int p = 5;
        while (idx[p] == 40 - 5 + p) --p;
        ++idx[p];
        for (int q = p + 1; q < 6; ++q) idx[q] = idx[q - 1] + 1;
    }
    s.NumColonne = static_cast<int32_t>(colonne);
    InterfacciaScriptata ui;
    Visualizza(s, ui);
}

void Salva1M(benchmark::State& state) {
    Sistema s;
    Prepara(s, 1'000'000);
    for (auto _ : state) ScriviSistema(s, FileProva());
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(FileProva())) / 1e6;
}
BENCHMARK(Salva1M)->Unit(benchmark::kMillisecond)->UseRealTime();

void Carica1M(benchmark::State& state) {
    {
        Sistema s;
        Prepara(s, 1'000'000);
        ScriviSistema(s, FileProva());
    }
    for (auto _ : state) {
        Sistema s;
        InterfacciaScriptata ui;
        LeggiSistema(s, ui, FileProva());
        benchmark::DoNotOptimize(s.NumColonne);
    }
}
BENCHMARK(Carica1M)->Unit(benchmark::kMillisecond)->UseRealTime();

// The plain way: one stream statement a value.
void SalvaLetterale1M(benchmark::State& state) {
    Sistema s;
    Prepara(s, 1'000'000);
    for (auto _ : state) {
        std::ofstream out(FileProva(), std::ios::binary);
        for (int i = 0; i < 90; ++i) out << (s.pad[i] ? 1 : 0) << "\r\n";
        for (int64_t c = 1; c <= s.NumColonne; ++c)
            for (int p = 1; p <= 6; ++p) out << static_cast<int>(s.colonne.get(p, c)) << "\r\n";
        for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) out << '"' << std::string(s.MSFlexGrid1.riga(r)) << "\"\r\n";
    }
}
BENCHMARK(SalvaLetterale1M)->Unit(benchmark::kMillisecond)->UseRealTime();

void CaricaLetterale1M(benchmark::State& state) {
    {
        Sistema s;
        Prepara(s, 1'000'000);
        ScriviSistema(s, FileProva());
    }
    for (auto _ : state) {
        std::ifstream in(FileProva(), std::ios::binary);
        std::vector<std::string> righe;
        std::string riga;
        long long somma = 0;
        while (std::getline(in, riga)) {
            if (!riga.empty() && riga.back() == '\r') riga.pop_back();
            if (!riga.empty() && riga[0] == '"') righe.push_back(riga.substr(1, riga.size() - 2));
            else somma += std::atoll(riga.c_str());
        }
        benchmark::DoNotOptimize(somma);
    }
}
BENCHMARK(CaricaLetterale1M)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
