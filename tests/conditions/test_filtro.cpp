// The column filter: the worked cases of each test, the subscript failures, and the
// fast filter against the plain one over whole developments.
#include "conditions/filtra_colonna.h"
#include "core/errori.h"
#include "core/form4.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/sviluppo.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <random>

using namespace zef;

namespace {

// Candidate from its numbers; levels are the numbers' own places in 1..90.
bool Passa(const Condizioni& c, std::vector<int> numeri, std::vector<int> livelli = {}) {
    std::vector<uint8_t> n(numeri.begin(), numeri.end());
    if (livelli.empty()) livelli = numeri;
    return FiltraColonna(c, n.data(), livelli.data(), static_cast<int>(n.size()));
}

Condizioni Solo(int flag) {
    Condizioni c;
    c.CondizioneAttiva[flag] = true;
    return c;
}

}  // namespace

TEST(FiltraColonna, NessunaCondizioneAccettaTutto) {
    Condizioni c;
    EXPECT_TRUE(Passa(c, {1, 2}));
    EXPECT_TRUE(Passa(c, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(FiltraColonna, NumeriFissi) {
    Condizioni c = Solo(1);
    EXPECT_TRUE(Passa(c, {3, 9, 40}));  // empty list passes
    c.NumeriFissi = {0, 9, 40};
    EXPECT_TRUE(Passa(c, {3, 9, 40}));
    EXPECT_FALSE(Passa(c, {3, 9, 41}));
    // RECUPERO on changes nothing: its allowance never reaches the filter
    c.CondizioneAttiva[14] = true;
    EXPECT_FALSE(Passa(c, {3, 9, 41}));
}

TEST(FiltraColonna, PosizioniSoloConStatoUno) {
    Condizioni c = Solo(11);
    c.PosizioniNumeri[2][91] = 1;
    c.PosizioniNumeri[2][20] = 1;
    EXPECT_TRUE(Passa(c, {5, 20, 30}));
    EXPECT_FALSE(Passa(c, {5, 21, 30}));
    c.PosizioniNumeri[2][91] = -1;  // a ticked box read as True is not 1: position off
    EXPECT_TRUE(Passa(c, {5, 21, 30}));
}

TEST(FiltraColonna, DistanzaInUnitaEInSegni) {
    Condizioni c = Solo(8);
    c.DistanzaNumeri = {0, 1, 3, 0};  // entered 0..2: differences 1..3
    EXPECT_TRUE(Passa(c, {10, 11, 14}));
    EXPECT_FALSE(Passa(c, {10, 11, 15}));
    c.DistanzaNumeri[3] = 1;  // Segni: places in the forecast
    EXPECT_TRUE(Passa(c, {10, 50, 90}, {1, 2, 4}));
    EXPECT_FALSE(Passa(c, {10, 11, 12}, {1, 2, 6}));
}

TEST(FiltraColonna, ConsecutivitaGruppoETotale) {
    Condizioni c = Solo(2);
    c.Consecutivita = {0, 0, 1, 0};  // Gruppo, min "1", max "2"
    EXPECT_FALSE(Passa(c, {1, 2, 3, 10, 11}));  // 3-10 finds cons 2 > 1
    c.Consecutivita = {0, 0, 4, 1};             // Totale, max "5"
    EXPECT_TRUE(Passa(c, {1, 2, 3, 10, 11}));   // cons ends at 3
    c.Consecutivita = {0, 0, 2, 1};             // Totale, max "3"
    EXPECT_FALSE(Passa(c, {1, 2, 3, 10, 11}));
    c.Consecutivita = {0, 1, 4, 0};  // Gruppo, min "2": a column without steps fails
    EXPECT_FALSE(Passa(c, {1, 3, 5}));
    EXPECT_TRUE(Passa(c, {1, 2, 5}));
}

TEST(FiltraColonna, InterruzioniElementoSeiDoppio) {
    Condizioni c = Solo(3);
    for (int i = 1; i <= 6; ++i) c.Interruzioni[i] = 1;
    c.Interruzioni[6] = 5;  // Combo5 at "5"
    EXPECT_TRUE(Passa(c, {5, 7, 9, 11, 13, 15}));  // totale 5 passes through element 6
    c.Interruzioni[6] = 4;
    EXPECT_FALSE(Passa(c, {5, 7, 9, 11, 13, 15}));  // massimo 5 > 4
    c.Interruzioni[6] = 5;
    c.Interruzioni[3] = 0;  // two interruptions not admitted
    EXPECT_FALSE(Passa(c, {1, 2, 4, 6}));
    EXPECT_TRUE(Passa(c, {1, 2, 4, 5}));
    // six interruptions find element 7, never set
    EXPECT_FALSE(Passa(c, {1, 3, 5, 7, 9, 11, 13}));
}

TEST(FiltraColonna, GruppiDiParita) {
    Condizioni c = Solo(9);
    // 2 4 6 7 9: one group of odd length (evens), one of even length (odds)
    c.GruppiPD[1][2] = true;  // pari = 1
    c.GruppiPD[2][2] = true;  // dispari = 1
    EXPECT_TRUE(Passa(c, {2, 4, 6, 7, 9}));
    c.GruppiPD[2][2] = false;
    EXPECT_FALSE(Passa(c, {2, 4, 6, 7, 9}));
    // 1 2 3: three groups of length one
    Condizioni d = Solo(9);
    d.GruppiPD[1][1] = true;
    d.GruppiPD[2][4] = true;
    EXPECT_TRUE(Passa(d, {1, 2, 3}));
}

TEST(FiltraColonna, ColonneFiltroEIndiceFuori) {
    Condizioni c = Solo(4);
    c.righePuntiFiltro = 6;
    std::array<bool, 91> f{};
    for (int x : {1, 2, 3, 4, 5, 6, 7}) f[x] = true;
    std::array<bool, 12> p{};
    p[2] = true;  // exactly one point
    c.ColonneFiltro.push_back(f);
    c.PuntiFiltro.push_back(p);
    EXPECT_TRUE(Passa(c, {1, 20, 30}));
    EXPECT_FALSE(Passa(c, {1, 2, 30}));
    EXPECT_FALSE(Passa(c, {20, 30, 40}));
    // six points run off the table (rows 0..6)
    try {
        Passa(c, {1, 2, 3, 4, 5, 6});
        FAIL();
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.numero, errori::IndiceFuoriIntervallo);
    }
    // a second filter with no number: only 0 points are admitted there
    std::array<bool, 12> zero{};
    zero[1] = true;
    c.ColonneFiltro.push_back({});
    c.PuntiFiltro.push_back(zero);
    EXPECT_TRUE(Passa(c, {1, 20, 30}));
}

TEST(FiltraColonna, PuntiSuColonneMassimoZero) {
    Condizioni c = Solo(13);
    std::array<bool, 91> col{};
    for (int x : {4, 18, 33, 61, 90}) col[x] = true;
    c.NumeriArchivio.push_back(col);
    EXPECT_TRUE(Passa(c, {1, 2, 3}));
    EXPECT_FALSE(Passa(c, {1, 2, 90}));  // one number in common is already too many
}

TEST(FiltraColonna, Sezioni) {
    Condizioni c = Solo(5);
    c.Sezioni.push_back({0, 1, 10, 0, 5, 1, 2});  // 1..10, consecutive "2".."3"
    EXPECT_TRUE(Passa(c, {1, 2, 30, 40, 50}));    // run 1-2 closed with 1 step
    EXPECT_FALSE(Passa(c, {1, 30, 40, 50, 60}));  // a lone number closes a run of 0
    // a run reaching the column's end is never checked
    Condizioni d = Solo(5);
    d.Sezioni.push_back({0, 50, 70, 0, 5, 0, 0});  // consecutive "1".."1"
    EXPECT_TRUE(Passa(d, {1, 2, 3, 60, 61, 62}));
    EXPECT_FALSE(Passa(d, {60, 61, 62, 80}));
    // presences
    Condizioni e = Solo(5);
    e.Sezioni.push_back({0, 1, 10, 2, 2, 0, 5});
    EXPECT_TRUE(Passa(e, {1, 5, 30}));
    EXPECT_FALSE(Passa(e, {1, 30, 40}));
    EXPECT_FALSE(Passa(e, {1, 5, 9}));
}

TEST(FiltraColonna, SommaPariDispari) {
    Condizioni c = Solo(6);
    c.SommaGlobale = {0, 10, 12};
    EXPECT_TRUE(Passa(c, {1, 2, 7}));
    EXPECT_FALSE(Passa(c, {1, 2, 10}));
    EXPECT_FALSE(Passa(c, {1, 2, 6}));
    Condizioni d = Solo(7);
    d.PariDispari = {0, 1, 2, 1, 1, 2, 2};  // evens 1..2, runs <= 1; odds 1..2, runs <= 2
    EXPECT_TRUE(Passa(d, {1, 2, 3}));
    EXPECT_FALSE(Passa(d, {2, 4, 5}));  // run of two evens
    EXPECT_FALSE(Passa(d, {1, 3, 5}));  // no even
}

TEST(FiltraColonna, InterruzioniPD) {
    Condizioni c = Solo(10);
    for (int i = 1; i <= 6; ++i) c.InterruzioniPD[i] = 1;
    c.InterruzioniPD[6] = 3;  // Combo7 below "4"
    EXPECT_FALSE(Passa(c, {2, 3, 4, 5, 6}));  // totale 4, massimo 4
    c.InterruzioniPD[6] = 4;
    EXPECT_TRUE(Passa(c, {2, 3, 4, 5, 6}));
    c.InterruzioniPD[1] = 0;  // no interruption not admitted
    EXPECT_FALSE(Passa(c, {2, 4, 6}));
}

TEST(FiltraColonna, SequeleECostanteQuattro) {
    Condizioni c = Solo(12);
    c.righePresenzeSequele = 6;
    c.SequelePD.push_back({0, 1, 2, 0, 1});  // P D, passo "1"
    std::array<bool, 12> pr{};
    pr[3] = true;  // exactly 2 presences
    c.PresenzeSequele.push_back(pr);
    // signs P D P D P: matches at j = 1 and 3, j = 4 is not tried
    EXPECT_TRUE(Passa(c, {2, 3, 4, 5, 6}));
    // P P P D: one match only, at j = 3
    EXPECT_FALSE(Passa(c, {2, 4, 6, 7}));
    // P P P P D: the pair at places 4-5 is never looked at, so no presence
    c.PresenzeSequele[1][1] = true;
    EXPECT_TRUE(Passa(c, {2, 4, 6, 8, 9}));
    // k = 6 runs off the five signs
    try {
        Passa(c, {2, 3, 4, 5, 6, 8});
        FAIL();
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.numero, errori::IndiceFuoriIntervallo);
    }
    // a sequence with only the second sign can match only past the column's end
    Condizioni d = Solo(12);
    d.SequelePD.push_back({0, 0, 1, 0, 1});
    std::array<bool, 12> una{};
    una[2] = true;  // one presence
    d.PresenzeSequele.push_back(una);
    EXPECT_FALSE(Passa(d, {3, 4}));
    EXPECT_FALSE(Passa(d, {3, 4, 5, 6, 7}));
    d.PresenzeSequele[1][1] = true;
    EXPECT_TRUE(Passa(d, {3, 4}));
}

TEST(FiltraColonna, RitardoFrequenzaConOr) {
    Condizioni c = Solo(15);
    c.ValoriNumeri[1] = 10;
    c.ValoriNumeri[2] = 11;
    c.RitardiNumeri[1] = 3;
    c.RitardiNumeri[2] = 4;
    c.RitardoFrequenza[1] = {0, 3, 3};   // mean delay exactly 3 (7 / 2 truncated)
    c.RitardoFrequenza[2] = {0, 50, 60};  // 10 is outside 50..60, but "or" lets it through
    EXPECT_TRUE(Passa(c, {1, 2}));
    c.RitardoFrequenza[2] = {0, 20, 5};  // frequency 10 outside 20..5 on both sides
    EXPECT_FALSE(Passa(c, {1, 2}));
    c.RitardoFrequenza[2] = {0, 0, 90};
    c.RitardoFrequenza[1] = {0, 4, 10};
    EXPECT_FALSE(Passa(c, {1, 2}));
}
