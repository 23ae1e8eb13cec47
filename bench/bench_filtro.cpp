// Throughput of the condition filter inside a whole development.
//
// Typical set: 90 numbers in SESTINE with Somma 266..280, Pari e dispari 3 and 3,
// Consecutività "Totale" 1..2 numbers (0..1 steps): 16,988,879 of 622,614,630
// candidates pass. Then all fourteen tests on with loose limits, so that most
// candidates reach the later tests.
#include "conditions/form28.h"
#include "core/form4.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/sviluppo.h"

#include <benchmark/benchmark.h>

using namespace zef;

namespace {

void Pronostico(Sistema& s, int n, int k) {
    s.pad.fill(false);
    for (int i = 0; i < n; ++i) s.pad[i] = true;
    s.Label2 = std::to_string(n);
    s.PronosticoDalPad();
    s.SviluppoK = static_cast<int16_t>(k);
}

void Sviluppa(benchmark::State& st, Sistema& s, int64_t atteso) {
    InterfacciaScriptata ui;
    for (auto _ : st) {
        s.NumColonne = 0;
        s.ColonneEsaminate = 0;
        MostraForm4(s, ui);
        SviluppaColonne(s, ui);
        benchmark::DoNotOptimize(s.NumColonne);
    }
    st.counters["colonne"] = s.NumColonne;
    st.counters["esaminate"] = static_cast<double>(s.ColonneEsaminate);
    if (atteso >= 0 && s.NumColonne != atteso) st.SkipWithError("conteggio diverso dall'atteso");
}

// A forecast of the first n numbers in columns of k, and the conditions dialog over it
// as a user finds it on opening.
struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    Form28 f;
    Banco(int n, int k) : f((Pronostico(s, n, k), s), ui) {
        f.ResettaCondizioni();
        f.attiva();
    }
};

void BM_SestineCondizioniTipiche(benchmark::State& st) {
    Banco b(90, 6);
    Sistema& s = b.s;
    Form28& f = b.f;
    f.chkAttivo[1] = f.chkAttivo[5] = f.chkAttivo[6] = 1;
    f.txtSomma = {"266", "280"};
    f.txtPariMin = f.txtPariMax = f.txtDispariMin = f.txtDispariMax = "3";
    f.Combo1 = 0;
    f.Combo2 = 1;
    f.Combo3 = 1;
    f.CliccaAccetta();
    s.colonne.dimensiona(6);
    Sviluppa(st, s, 16'988'879);
}
BENCHMARK(BM_SestineCondizioniTipiche)->Unit(benchmark::kMillisecond)->Iterations(3);

// Every test on, limits loose enough that most candidates go deep; k = 5 so that
// the sequences can run.
void BM_CinquineTutteLeCondizioni(benchmark::State& st) {
    Banco b(static_cast<int>(st.range(0)), 5);
    Sistema& s = b.s;
    Form28& f = b.f;
    EstrazioniInMemoria mem;
    for (int i = 1; i <= 600; ++i) {
        EstrazioneLetta e;
        e.id = i;
        for (int r = 1; r <= 11; ++r)
            for (int p = 1; p <= 5; ++p) e.numeri[(r - 1) * 5 + p - 1] = static_cast<int16_t>((i * 37 + r * 11 + p * 17) % 90 + 1);
        mem.righe.push_back(e);
    }
    f.archivio = &mem;
    f.chkAttivo.fill(1);
    f.chkAttivo[0] = 0;  // no fixed number
    f.txtDistanzaMax = "84";
    f.txtNcolonne = "1";
    f.txtSomma = {"15", "440"};
    for (int i = 0; i < 6; ++i) f.chkPuntiCF[i] = 1;
    for (int i = 0; i < 30; ++i) f.clickNumeroCF(i, 1);
    f.clickCommand1();
    f.clickCommand10();
    f.clickCommand11(0);
    f.clickCommand11(1);
    for (int i = 0; i < 6; ++i) f.Check2[i] = 1;
    f.clickCommand15();
    f.Check20 = 0;
    f.txtRitardoMax = "10000";
    f.txtFrequenzaMax = "10000";
    f.CliccaAccetta();
    s.colonne.dimensiona(5);
    Sviluppa(st, s, -1);
}
BENCHMARK(BM_CinquineTutteLeCondizioni)->Arg(60)->Arg(90)->Unit(benchmark::kMillisecond)->Iterations(1);

// All C(90, 10) = 5,720,645,481,903 candidates, with a set that keeps under the store's
// limit: neighbours 5 to 12 apart, sum 450..460, five even and five odd, no two
// consecutive numbers.
void BM_DecineTutteLeCandidate(benchmark::State& st) {
    Banco b(90, 10);
    Sistema& s = b.s;
    Form28& f = b.f;
    f.chkAttivo[1] = f.chkAttivo[5] = f.chkAttivo[6] = f.chkAttivo[7] = 1;
    f.txtDistanzaMin = "5";
    f.txtDistanzaMax = "12";
    f.txtSomma = {"450", "460"};
    f.txtPariMin = f.txtPariMax = f.txtDispariMin = f.txtDispariMax = "5";
    f.Combo1 = 0;
    f.Combo2 = 0;
    f.CliccaAccetta();
    s.colonne.dimensiona(10);
    Sviluppa(st, s, -1);
    if (s.ColonneEsaminate != 5'720'645'481'903LL) st.SkipWithError("non tutte le candidate esaminate");
}
BENCHMARK(BM_DecineTutteLeCandidate)->Unit(benchmark::kMillisecond)->Iterations(3);

// 90 numbers in DECINE with the mean delay at most 1 and nothing else: without a
// judgement of the prefixes, the first round of the second level alone would hold
// C(88, 8) candidates before the progress window is served.
void BM_DecineRitardoMedio(benchmark::State& st) {
    Banco b(90, 10);
    Sistema& s = b.s;
    Form28& f = b.f;
    EstrazioniInMemoria mem;
    for (int i = 1; i <= 600; ++i) {
        EstrazioneLetta e;
        e.id = i;
        for (int r = 1; r <= 11; ++r)
            for (int p = 1; p <= 5; ++p) e.numeri[(r - 1) * 5 + p - 1] = static_cast<int16_t>((i * 37 + r * 11 + p * 17) % 90 + 1);
        mem.righe.push_back(e);
    }
    f.archivio = &mem;
    f.chkAttivo[14] = 1;
    f.txtRitardoMin = "0";
    f.txtRitardoMax = "1";
    f.CliccaAccetta();
    s.colonne.dimensiona(10);
    Sviluppa(st, s, -1);
}
BENCHMARK(BM_DecineRitardoMedio)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
