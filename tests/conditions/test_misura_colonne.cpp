// The measuring of the draws as columns: each measure on draws written by hand, the
// failures that end it, and the whole of it, passes included, against the plain
// step-by-step load on random archives (gaps in the ids, nulls, bad fields).
#include "conditions/misura_colonne.h"
#include "conditions/form29_letterale.h"
#include "core/errori.h"
#include "support/estrazioni_prova.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

using namespace zef;

namespace {

// A draw with the same five numbers on every wheel (Nazionale included).
EstrazioneLetta Riga(long id, std::array<int, 5> n) {
    EstrazioneLetta e;
    e.id = id;
    for (int r = 1; r <= 11; ++r) prova::Imposta(e, r, n);
    return e;
}

std::vector<int> Segnati(const ParametriColonne& m, int j) {
    std::vector<int> v;
    for (int x = 0; x <= 90; ++x)
        if (m.PosizioniSuggerite[j][x]) v.push_back(x);
    return v;
}

void Uguali(const ParametriColonne& a, const ParametriColonne& b, const std::string& caso) {
    EXPECT_EQ(a.Combo1, b.Combo1) << caso;
    EXPECT_EQ(a.Combo2, b.Combo2) << caso;
    EXPECT_EQ(a.Combo5, b.Combo5) << caso;
    EXPECT_EQ(a.Combo7, b.Combo7) << caso;
    EXPECT_EQ(a.Combo10, b.Combo10) << caso;
    EXPECT_EQ(a.Check1, b.Check1) << caso;
    EXPECT_EQ(a.chkInterruzioniPD, b.chkInterruzioniPD) << caso;
    EXPECT_EQ(a.chkGruppiPari, b.chkGruppiPari) << caso;
    EXPECT_EQ(a.chkGruppiDispari, b.chkGruppiDispari) << caso;
    EXPECT_EQ(a.sommaMin, b.sommaMin) << caso;
    EXPECT_EQ(a.sommaMax, b.sommaMax) << caso;
    EXPECT_EQ(a.pariMin, b.pariMin) << caso;
    EXPECT_EQ(a.pariMax, b.pariMax) << caso;
    EXPECT_EQ(a.pariCons, b.pariCons) << caso;
    EXPECT_EQ(a.dispariMin, b.dispariMin) << caso;
    EXPECT_EQ(a.dispariMax, b.dispariMax) << caso;
    EXPECT_EQ(a.dispariCons, b.dispariCons) << caso;
    EXPECT_EQ(a.SezioniSuggerite, b.SezioniSuggerite) << caso;
    EXPECT_EQ(a.PosizioniSuggerite, b.PosizioniSuggerite) << caso;
    EXPECT_EQ(a.ritardoMin, b.ritardoMin) << caso;
    EXPECT_EQ(a.ritardoMax, b.ritardoMax) << caso;
    EXPECT_EQ(a.frequenzaMin, b.frequenzaMin) << caso;
    EXPECT_EQ(a.frequenzaMax, b.frequenzaMax) << caso;
    EXPECT_EQ(a.sommaDistanze, b.sommaDistanze) << caso;
    EXPECT_EQ(a.righe, b.righe) << caso;
    EXPECT_EQ(a.misurate, b.misurate) << caso;
    EXPECT_EQ(a.interrotta, b.interrotta) << caso;
    EXPECT_EQ(a.errore, b.errore) << caso;
    EXPECT_EQ(a.rigaErrore, b.rigaErrore) << caso;
}

// Random archives: five distinct numbers a wheel, ids rising with or without gaps,
// Nazionale null at first, and now and then a bad field (null, out of range, twice).
struct Casuale {
    std::mt19937 g;
    explicit Casuale(unsigned seme) : g(seme) {}
    int tra(int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); }
    bool moneta(double p) { return std::bernoulli_distribution(p)(g); }

    std::vector<EstrazioneLetta> archivio(long n, bool buchi, double guasti) {
        std::vector<EstrazioneLetta> v;
        long id = tra(-2, 3);
        const long senzaNazionale = tra(0, static_cast<int>(n / 2));
        std::array<int, 90> urna;
        std::iota(urna.begin(), urna.end(), 1);
        for (long i = 0; i < n; ++i) {
            EstrazioneLetta e;
            e.id = id;
            id += buchi && moneta(0.2) ? tra(2, 4) : 1;
            for (int r = 1; r <= 11; ++r) {
                for (int p = 0; p < 5; ++p) std::swap(urna[p], urna[tra(p, 89)]);
                for (int p = 1; p <= 5; ++p) e.numeri[(r - 1) * 5 + p - 1] = static_cast<int16_t>(urna[p - 1]);
                if (r == 11 && i < senzaNazionale)
                    for (int p = 1; p <= 5; ++p) e.numeri[50 + p - 1] = 0;
                if (moneta(guasti)) {
                    const int16_t cattivi[] = {0, 0, 95, -3, e.numeri[(r - 1) * 5]};
                    e.numeri[(r - 1) * 5 + tra(1, 4)] = cattivi[tra(0, 4)];
                }
            }
            v.push_back(e);
        }
        return v;
    }
};

}  // namespace

// ---- each measure on draws written by hand ----------------------------------------------------

TEST(MisuraColonne, UnaSolaEstrazioneDaMinimiEMassimiUguali) {
    // 12 45 3 88 67 sorted: 3 12 45 67 88 (odd, even, odd, odd, even)
    std::vector<EstrazioneLetta> a = {Riga(1, {12, 45, 3, 88, 67})};
    const auto m = MisuraColonne(a, 1, 1, 1);
    EXPECT_TRUE(m.misurate);
    EXPECT_FALSE(m.interrotta);
    EXPECT_EQ(m.righe, 1);
    EXPECT_EQ(m.sommaDistanze, 8);  // smallest of 8, 32, 21, 20
    EXPECT_EQ(m.Combo1, 0);
    EXPECT_EQ(m.Combo2, 0);
    EXPECT_EQ(m.Check1, (std::array<int, 6>{0, 0, 0, 0, 1, 0}));
    EXPECT_EQ(m.Combo5, 3);  // four interruptions in a row
    // groups [3] [12] [45 67] [88]: one of even length, three of odd length
    EXPECT_EQ(m.chkGruppiPari, (std::array<int, 4>{0, 1, 0, 0}));
    EXPECT_EQ(m.chkGruppiDispari, (std::array<int, 7>{0, 0, 0, 1, 0, 0, 0}));
    EXPECT_EQ(Segnati(m, 1), std::vector<int>{3});
    EXPECT_EQ(Segnati(m, 5), std::vector<int>{88});
    // sections: 3, 12 in the first; 45 in the second; 67, 88 in the third; no steps
    EXPECT_EQ(m.SezioniSuggerite[1], (std::array<int16_t, 7>{0, 1, 30, 2, 2, 0, 1}));
    EXPECT_EQ(m.SezioniSuggerite[2], (std::array<int16_t, 7>{0, 31, 60, 1, 1, 0, 1}));
    EXPECT_EQ(m.SezioniSuggerite[3], (std::array<int16_t, 7>{0, 61, 90, 2, 2, 0, 1}));
    EXPECT_EQ(m.sommaMin, 215);
    EXPECT_EQ(m.sommaMax, 215);
    EXPECT_EQ(m.pariMin, 2);
    EXPECT_EQ(m.pariMax, 2);
    EXPECT_EQ(m.pariCons, 1);
    EXPECT_EQ(m.dispariMin, 3);
    EXPECT_EQ(m.dispariMax, 3);
    EXPECT_EQ(m.dispariCons, 2);
    // o e o o e: three changes of parity, at most two in a row
    EXPECT_EQ(m.chkInterruzioniPD, (std::array<int, 6>{0, 0, 0, 1, 0, 0}));
    EXPECT_EQ(m.Combo7, 1);
    EXPECT_EQ(m.Combo10, 0);
    // one draw is too short for either pass: both tables stay at zero
    EXPECT_EQ(m.ritardoMin, 0);
    EXPECT_EQ(m.ritardoMax, 0);
    EXPECT_EQ(m.frequenzaMin, 0);
    EXPECT_EQ(m.frequenzaMax, 0);
}

TEST(MisuraColonne, PassiContatiSenzaAzzerareESezioniSulNumeroCheApre) {
    // 10 11 12 | 40 41: the count of steps goes on across the gap
    std::vector<EstrazioneLetta> a = {Riga(1, {41, 10, 40, 12, 11})};
    auto m = MisuraColonne(a, 1, 1, 2);
    EXPECT_EQ(m.Combo1, 3);
    EXPECT_EQ(m.Combo2, 3);
    EXPECT_EQ(m.Check1[1], 1);
    EXPECT_EQ(m.Combo5, 0);
    EXPECT_EQ(m.sommaDistanze, 0);
    EXPECT_EQ(m.SezioniSuggerite[1][5], 2);  // 10-11, 11-12
    EXPECT_EQ(m.SezioniSuggerite[1][3], 3);
    EXPECT_EQ(m.SezioniSuggerite[2][5], 1);  // 40-41
    EXPECT_EQ(m.SezioniSuggerite[2][3], 2);
    // a step from the last number of a section into the next counts for the first
    a = {Riga(1, {29, 30, 31, 70, 80})};
    m = MisuraColonne(a, 1, 1, 1);
    EXPECT_EQ(m.SezioniSuggerite[1][5], 2);
    EXPECT_EQ(m.SezioniSuggerite[1][3], 2);
    EXPECT_EQ(m.SezioniSuggerite[2][5], 0);
    EXPECT_EQ(m.SezioniSuggerite[2][3], 1);
    // the last pair counts as well: 89-90 is a step of the third section
    a = {Riga(1, {1, 20, 40, 89, 90})};
    m = MisuraColonne(a, 1, 1, 1);
    EXPECT_EQ(m.SezioniSuggerite[3][5], 1);
    EXPECT_EQ(m.SezioniSuggerite[3][3], 2);
}

TEST(MisuraColonne, InviluppoSuPiuEstrazioniESpunteSoloPerIContiVisti) {
    std::vector<EstrazioneLetta> a = {Riga(1, {2, 4, 6, 8, 10}), Riga(2, {1, 3, 5, 7, 9}), Riga(3, {1, 2, 3, 4, 5}),
                                      Riga(4, {10, 30, 50, 70, 90})};
    const auto m = MisuraColonne(a, 1, 4, 5);
    EXPECT_EQ(m.sommaMin, 15);
    EXPECT_EQ(m.sommaMax, 250);
    EXPECT_EQ(m.pariMin, 0);
    EXPECT_EQ(m.pariMax, 5);
    EXPECT_EQ(m.pariCons, 5);
    EXPECT_EQ(m.dispariCons, 5);
    EXPECT_EQ(m.Combo1, 0);
    EXPECT_EQ(m.Combo2, 4);
    // interruptions: 4, 4, 0, 4 -> only 0 and 4 ticked
    EXPECT_EQ(m.Check1, (std::array<int, 6>{1, 0, 0, 0, 1, 0}));
    // parity interruptions: 0, 0, 4, 0
    EXPECT_EQ(m.chkInterruzioniPD, (std::array<int, 6>{1, 0, 0, 0, 1, 0}));
    EXPECT_EQ(m.Combo7, 3);
    // one even group of five ... five odd groups of one
    EXPECT_EQ(m.chkGruppiPari, (std::array<int, 4>{1, 0, 0, 0}));
    EXPECT_EQ(m.chkGruppiDispari, (std::array<int, 7>{0, 1, 0, 0, 0, 1, 0}));
    EXPECT_EQ(Segnati(m, 1), (std::vector<int>{1, 2, 10}));
    EXPECT_EQ(m.sommaDistanze, 1 + 1 + 0 + 19);
    // the section 1-30 saw from 0 (the last draw has 10, 30: two) to 5 numbers
    EXPECT_EQ(m.SezioniSuggerite[1][3], 2);
    EXPECT_EQ(m.SezioniSuggerite[1][4], 5);
    EXPECT_EQ(m.SezioniSuggerite[2][3], 0);
}

TEST(MisuraColonne, PuntiSoloDallUndicesimaControLeDieciPrecedenti) {
    std::vector<EstrazioneLetta> a;
    // row i holds i, i + 15 ... i + 60: no two rows share a number
    for (int i = 1; i <= 12; ++i) a.push_back(Riga(i, {i, i + 15, i + 30, i + 45, i + 60}));
    auto m = MisuraColonne(a, 1, 12, 1);
    EXPECT_EQ(m.Combo10, 0);
    // row 11 against rows 1..10: three numbers of row 1
    a[10] = Riga(11, {1, 16, 31, 90, 89});
    m = MisuraColonne(a, 1, 11, 1);
    EXPECT_EQ(m.Combo10, 3);
    // row 12 against rows 2..11 only: row 1 is out of reach
    a[10] = Riga(11, {75, 76, 77, 78, 79});
    a[11] = Riga(12, {1, 16, 31, 46, 61});
    m = MisuraColonne(a, 1, 12, 1);
    EXPECT_EQ(m.Combo10, 0);
    // row 11 is one of them
    a[11] = Riga(12, {75, 76, 77, 2, 3});
    m = MisuraColonne(a, 1, 12, 1);
    EXPECT_EQ(m.Combo10, 3);
    // the rows counted are those of the range, not of the archive
    m = MisuraColonne(a, 3, 12, 1);
    EXPECT_EQ(m.Combo10, 0);
}

TEST(MisuraColonne, TutteMisuraDieciRuoteSenzaNazionale) {
    EstrazioneLetta e = Riga(1, {10, 30, 50, 70, 90});
    prova::Imposta(e, 9, {20, 21, 22, 60, 80});    // Torino: two steps, smallest gap 0
    prova::Imposta(e, 11, {1, 2, 3, 4, 5});        // Nazionale: four steps, never measured
    std::vector<EstrazioneLetta> a = {e};
    auto m = MisuraColonne(a, 1, 1, misura::Tutte);
    EXPECT_EQ(m.Combo2, 2);
    EXPECT_EQ(m.sommaMax, 250);
    EXPECT_EQ(m.sommaMin, 203);
    // nine wheels with gap 19 and Torino with 0, the sum divided by ten: 171 / 10
    EXPECT_EQ(m.sommaDistanze, 17);
    EXPECT_EQ(m.SezioniSuggerite[1][4], 3);
    // the same draw on Torino alone, and on Nazionale alone
    EXPECT_EQ(MisuraColonne(a, 1, 1, 9).Combo2, 2);
    EXPECT_EQ(MisuraColonne(a, 1, 1, misura::Nazionale).Combo2, 4);
    // the division comes after each row, rounded half to even: (171/10 = 17, then
    // (17 + 171) / 10 = 18.8 -> 19)
    e.id = 2;
    a.push_back(e);
    EXPECT_EQ(MisuraColonne(a, 1, 2, misura::Tutte).sommaDistanze, 19);
}

TEST(MisuraColonne, UnCampoVuotoFermaLaMisuraAllaSuaRiga) {
    std::vector<EstrazioneLetta> a = {Riga(1, {1, 2, 3, 4, 5}), Riga(2, {10, 20, 30, 40, 50}),
                                      Riga(3, {80, 82, 84, 86, 88})};
    a[1].numeri[2 * 5 + 3] = 0;  // Firenze4 of the second draw is null
    auto m = MisuraColonne(a, 1, 3, 3);
    EXPECT_TRUE(m.interrotta);
    EXPECT_EQ(m.errore, errori::UsoNonValidoNull);
    EXPECT_EQ(m.rigaErrore, 2);
    EXPECT_EQ(m.sommaMax, 15);  // the envelope of the first draw alone
    // "Tutte": the wheels before Firenze of that row are measured, then it stops
    m = MisuraColonne(a, 1, 3, misura::Tutte);
    EXPECT_EQ(m.rigaErrore, 2);
    EXPECT_EQ(m.sommaMax, 150);
    EXPECT_EQ(m.sommaMin, 15);
    // a number outside 1..90 passes the first four measures, then fails on the positions
    a = {Riga(1, {20, 40, 60, 80, 95})};
    m = MisuraColonne(a, 1, 1, 1);
    EXPECT_EQ(m.errore, errori::IndiceFuoriIntervallo);
    EXPECT_EQ(m.sommaDistanze, 14);
    EXPECT_EQ(m.Check1[4], 1);
    EXPECT_EQ(Segnati(m, 4), std::vector<int>{80});
    EXPECT_TRUE(Segnati(m, 5).empty());
    EXPECT_EQ(m.sommaMin, 440);  // the sum comes after the positions
    // no draw in the range: there is no last row to go to
    m = MisuraColonne(a, 5, 9, 1);
    EXPECT_TRUE(m.interrotta);
    EXPECT_EQ(m.errore, errori::NessunRecordCorrente);
    EXPECT_EQ(m.righe, 0);
}

// ---- the passes at each draw --------------------------------------------------------------------

TEST(PassateProgressive, UgualiAllePassateScritteRigaPerRiga) {
    Casuale c(17);
    for (int caso = 0; caso < 120; ++caso) {
        const long n = c.tra(1, 70);
        const auto archivio = c.archivio(n, c.moneta(0.5), caso % 3 == 0 ? 0.02 : 0.0);
        const int ruota = c.tra(1, 12);
        const long nR = c.tra(0, 25), nF = c.tra(0, 12);
        PassateProgressive passate(archivio, ruota, nR, nF);
        long id = archivio.front().id - c.tra(0, 3);
        const long fine = archivio.back().id + 3;
        for (; id <= fine; id += c.tra(1, 2)) {
            passate.posiziona(id);
            const auto r = prova::ElaboraRitardiLetterale(archivio, id, nR, ruota);
            const auto f = prova::ElaboraFrequenzeLetterale(archivio, id, nF, ruota);
            for (int x = 1; x <= 90; ++x) {
                ASSERT_EQ(passate.ritardo(x), r[x]) << "caso " << caso << " id " << id << " x " << x;
                ASSERT_EQ(passate.frequenza(x), f[x]) << "caso " << caso << " id " << id << " x " << x;
            }
        }
    }
}

TEST(PassateProgressive, FinestreVereSuUnArchivioLungo) {
    Casuale c(4);
    const auto archivio = c.archivio(700, true, 0.0005);
    for (int ruota : {1, 11, 12}) {
        PassateProgressive passate(archivio, ruota);
        for (long id = archivio[480].id; id <= archivio.back().id; id += 7) {
            passate.posiziona(id);
            const auto r = prova::ElaboraRitardiLetterale(archivio, id, 500, ruota);
            const auto f = prova::ElaboraFrequenzeLetterale(archivio, id, 90, ruota);
            for (int x = 1; x <= 90; ++x) {
                ASSERT_EQ(passate.ritardo(x), r[x]) << "ruota " << ruota << " id " << id << " x " << x;
                ASSERT_EQ(passate.frequenza(x), f[x]) << "ruota " << ruota << " id " << id << " x " << x;
            }
        }
    }
}

// ---- the whole measuring against the plain load -------------------------------------------------

TEST(MisuraColonne, UgualeAlCaricamentoLetteraleSuArchiviCasuali) {
    Casuale c(2024);
    for (int caso = 0; caso < 400; ++caso) {
        const long n = c.tra(1, 60);
        const auto archivio = c.archivio(n, c.moneta(0.4), caso % 4 == 0 ? 0.01 : 0.0);
        const long primoId = archivio.front().id, ultimoId = archivio.back().id;
        const long prima = c.tra(static_cast<int>(primoId) - 2, static_cast<int>(ultimoId) + 1);
        const long ultima = c.tra(static_cast<int>(prima) - 1, static_cast<int>(ultimoId) + 2);
        const int ruota = c.tra(0, 12);
        const long nR = c.tra(0, 20), nF = c.tra(0, 10);
        const std::string caso_ = "caso " + std::to_string(caso) + " ruota " + std::to_string(ruota) + " da " +
                                  std::to_string(prima) + " a " + std::to_string(ultima);
        Uguali(MisuraColonne(archivio, prima, ultima, ruota, nR, nF),
               prova::Form29Letterale(archivio, prima, ultima, ruota, nR, nF), caso_);
        if (HasFailure()) return;
    }
}

TEST(MisuraColonne, UgualeAlCaricamentoLetteraleConLeFinestreVere) {
    Casuale c(99);
    const auto archivio = c.archivio(640, false, 0.0);
    const long ultimo = archivio.back().id;
    // the range reaches back before the first full windows; then a range past them
    Uguali(MisuraColonne(archivio, ultimo - 200, ultimo, 1), prova::Form29Letterale(archivio, ultimo - 200, ultimo, 1),
           "Bari");
    Uguali(MisuraColonne(archivio, ultimo - 150, ultimo, 11), prova::Form29Letterale(archivio, ultimo - 150, ultimo, 11),
           "Nazionale");
    Uguali(MisuraColonne(archivio, ultimo - 25, ultimo, misura::Tutte),
           prova::Form29Letterale(archivio, ultimo - 25, ultimo, misura::Tutte), "Tutte");
}

TEST(MisuraColonne, LetturaDellaCodaUgualeAllArchivioIntero) {
    Casuale c(7);
    for (bool buchi : {false, true}) {
        auto archivio = c.archivio(900, buchi, 0.0);
        auto fonte = prova::InMemoria(archivio);
        const long ultimo = archivio.back().id;
        for (long prima : {ultimo - 5, ultimo - 300, archivio[550].id, archivio[10].id}) {
            const auto coda = LeggiPerMisura(fonte, prima);
            EXPECT_LE(coda.size(), archivio.size());
            if (!buchi && prima > archivio[700].id) {
                EXPECT_LT(coda.size(), archivio.size());
            }
            Uguali(MisuraColonne(coda, prima, ultimo, 4), MisuraColonne(archivio, prima, ultimo, 4),
                   "da " + std::to_string(prima));
        }
    }
}
