// Win percentages against a plain count, the cells and guarantee texts, the keys.

#include "reduction/percentuali.h"

#include "core/errori.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "prova_colonne.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace zef;

namespace {

// Plain reference: every combination of L forecast numbers against every row,
// positions counted one by one; returns the table and the two guarantee texts.
struct Tabella {
    std::array<std::array<std::string, 6>, 4> Perc;
    std::string max = "nessuna";
    std::string min = "nessuna";
    bool livelloVuoto = false;  // a level with no combination accepted
};

Tabella Riferimento(const Sistema& s, int Linizio) {
    Tabella t;
    const int k = s.SviluppoK, n = s.NumPronostico;
    std::vector<std::vector<int>> righe;
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) {
        std::vector<int> v;
        for (int p = 1; p <= k; ++p) v.push_back(NumeroInRiga(s.MSFlexGrid1.riga(r), p));
        righe.push_back(v);
    }
    const int R = static_cast<int>(righe.size());
    for (int L = Linizio; L >= 2; --L) {
        long S[5] = {};
        int Min[4] = {R, R, R, R};
        long contati = 0;
        std::vector<int> comb;
        std::function<void(int)> giu = [&](int da) {
            if (static_cast<int>(comb.size()) == L) {
                bool ok = true;
                for (int x = 0; x + 1 < L; ++x)
                    if (comb[x + 1] - (comb[x] + 1) < s.DistanzaMin) ok = false;
                if (!ok) return;
                ++contati;
                int W[6] = {}, G[6] = {};  // by h
                for (auto& r : righe) {
                    int h = 0;
                    for (int x : r) h += std::count(comb.begin(), comb.end(), x) > 0;
                    if (h >= 2 && h <= 5) {
                        ++W[h];
                        ++G[h];
                        for (int lower = 2; lower < h; ++lower) G[lower] = Min[5 - lower];
                    }
                    if (h == L) break;
                }
                for (int h = 5; h >= 2; --h)
                    if (W[h] > 0) { ++S[h - 1]; break; }
                for (int i = 0; i < 4; ++i) Min[i] = std::min(Min[i], G[5 - i]);
                return;
            }
            for (int i = da; i <= n; ++i) {
                comb.push_back(s.Pronostico[i]);
                giu(i + 1);
                comb.pop_back();
            }
        };
        giu(1);
        if (contati == 0) {
            t.livelloVuoto = true;
            return t;
        }
        auto cella = [](double v) {
            std::string x = StrDouble(v).substr(0, 5);
            return Val(x) > 100 ? std::string("100") : x;
        };
        const double c = static_cast<double>(contati);
        if (k >= 5) t.Perc[0][L] = cella(100 * double(S[4]) / c);
        if (k >= 4) t.Perc[1][L] = cella(100 * double(S[4] + S[3]) / c);
        if (k >= 3) t.Perc[2][L] = cella(100 * double(S[4] + S[3] + S[2]) / c);
        t.Perc[3][L] = cella(100 * double(S[4] + S[3] + S[2] + S[1]) / c);
        const char* nomi1[4] = {"1 CINQUINA CON ", "1 QUATERNA CON ", "1 TERNO CON ", "1 AMBO CON "};
        const char* nomi2[4] = {"2 CINQUINE CON ", "2 QUATERNE CON ", "2 TERNI CON ", "2 AMBI CON "};
        const char* nomiP[4] = {"PIU' CINQUINE ", "PIU' QUATERNE CON ", "PIU' TERNI CON ", "PIU' AMBI CON "};
        bool primo = true;
        for (int i = 0; i < 4; ++i) {
            if (Min[i] <= 0) continue;
            t.Perc[i][L] = "100";
            if (primo) {
                std::string g = std::string(Min[i] == 1 ? nomi1[i] : Min[i] == 2 ? nomi2[i] : nomiP[i]) +
                                std::to_string(L) + " NUMERI";
                t.min = g;
                if (t.max == "nessuna") t.max = g;
                primo = false;
            }
        }
    }
    return t;
}

// A list of rows from a development of the forecast, thinned at random.
void Lista(Sistema& s, const std::vector<int>& numeri, int k, double quota, unsigned seme) {
    prova::ImpostaPronostico(s, numeri);
    prova_rid::Sviluppa(s, numeri, k, quota, seme);
    s.SviluppoK = static_cast<int16_t>(k);
    if (s.NumColonne == 0) prova_rid::Sviluppa(s, numeri, k, 1.0, seme);
    InterfacciaScriptata ui;
    Visualizza(s, ui);
}

}  // namespace

TEST(Percentuali, ComeIlConteggioSemplice) {
    std::mt19937 rng(41);
    for (int prova = 0; prova < 60; ++prova) {
        int n = 4 + static_cast<int>(rng() % 8);
        int k = 2 + static_cast<int>(rng() % std::min(6, n - 1));
        auto numeri = prova_rid::NumeriCasuali(rng, n);
        Sistema s;
        Lista(s, numeri, k, 0.05 + (rng() % 50) / 100.0, rng());
        if (rng() % 4 == 0) s.DistanzaMin = 1;
        const int32_t colonne = s.NumColonne;
        InterfacciaScriptata ui;
        Form8 f(s, ui);
        SCOPED_TRACE(testing::Message() << "n=" << n << " k=" << k << " righe=" << s.MSFlexGrid1.Rows());
        Tabella t = Riferimento(s, std::min(5, n));
        if (t.livelloVuoto) {
            // the slice reads past the combinations of an empty level: error 9, not a crash
            EXPECT_THROW(f.avviaEdEsegui(), ErroreEsecuzione);
            continue;
        }
        f.avviaEdEsegui();
        EXPECT_EQ(s.form8.Perc, t.Perc);
        EXPECT_EQ(s.form8.GaranziaMax, t.max);
        EXPECT_EQ(s.form8.GaranziaMin, t.min);
        EXPECT_TRUE(s.PercentualiValide);
        EXPECT_EQ(s.form8.Caption, "RESA DEL SISTEMA");
        EXPECT_EQ(s.NumColonne, colonne);  // put back at the end
        EXPECT_FALSE(s.form8.barraVisibile);
    }
}

TEST(Percentuali, RigheConNumeriRipetuti) {
    // Rows typed by hand may hold a number twice: counted by position.
    Sistema s;
    prova::ImpostaPronostico(s, prova::Numeri(6));
    prova_rid::Imposta(s, {{1, 2, 3}});
    s.MSFlexGrid1.AddItem(" 1  1  2 ");
    s.MSFlexGrid1.AddItem(" 4  5  0 ");
    InterfacciaScriptata ui;
    Form8 f(s, ui);
    f.avviaEdEsegui();
    Tabella t = Riferimento(s, 5);
    EXPECT_EQ(s.form8.Perc, t.Perc);
    EXPECT_EQ(s.form8.GaranziaMin, t.min);
}

TEST(Percentuali, TuttiITerniDaUnaColonna) {
    // Integral terzine of 5 numbers: every draw of 3 is a column.
    Sistema s;
    Lista(s, prova::Numeri(5), 3, 1.0, 1);
    InterfacciaScriptata ui;
    Form8 f(s, ui);
    f.avviaEdEsegui();
    EXPECT_EQ(s.form8.Perc[2][3], "100");
    // all 5 drawn: the 10 terzine win; with 2 drawn the first column holding both ends the scan
    EXPECT_EQ(s.form8.GaranziaMax, "PIU' TERNI CON 5 NUMERI");
    EXPECT_EQ(s.form8.GaranziaMin, "1 AMBO CON 2 NUMERI");
    // k 3: the cells for cinquine and quaterne are never written
    for (int L = 2; L <= 5; ++L) {
        EXPECT_EQ(s.form8.Perc[0][L], "");
        EXPECT_EQ(s.form8.Perc[1][L], "");
    }
}

TEST(Percentuali, CinquineSenzaCon) {
    Sistema s;
    Lista(s, prova::Numeri(6), 5, 1.0, 1);  // all 6 cinquine of 6 numbers
    InterfacciaScriptata ui;
    Form8 f(s, ui);
    f.avviaEdEsegui();
    // each draw of 5 is a column, which ends the scan: 1 cinquina
    EXPECT_EQ(s.form8.GaranziaMax, "1 CINQUINA CON 5 NUMERI");
    EXPECT_EQ(s.form8.Perc[0][5], "100");
    Sistema t;
    // Only rows holding a number twice reach five hits without holding the whole
    // draw: three of them against a forecast of 4.
    prova::ImpostaPronostico(t, prova::Numeri(4));
    prova_rid::Imposta(t, {{1, 2, 3, 4, 5}});
    for (int i = 0; i < 3; ++i) t.MSFlexGrid1.AddItem(" 1  1  2  3  4 ");
    Form8 h(t, ui);
    h.avviaEdEsegui();
    EXPECT_EQ(t.form8.GaranziaMax, "PIU' CINQUINE 4 NUMERI");
}

TEST(Percentuali, PronosticoDiQuattroENessunaGaranzia) {
    Sistema s;
    prova::ImpostaPronostico(s, {10, 20, 30, 40});
    prova_rid::Imposta(s, {{10, 50, 60}, {20, 70, 80}});
    InterfacciaScriptata ui;
    Form8 f(s, ui);
    f.avviaEdEsegui();
    EXPECT_EQ(s.form8.Perc[3][5], "");  // L started at 4
    EXPECT_EQ(s.form8.Perc[3][4], " 0");
    EXPECT_EQ(s.form8.GaranziaMax, "nessuna");
    EXPECT_EQ(s.form8.GaranziaMin, "nessuna");
}

TEST(Percentuali, MessaggiDelMenu) {
    Sistema s;
    InterfacciaScriptata ui;
    Form8 f(s, ui);
    EXPECT_FALSE(f.VisualizzaPercentuali());
    EXPECT_EQ(ui.ultimoBox().testo,
              "Le giocate non sono presenti in memoria, impossibile calcolare le percentuali di vincita.");
    EXPECT_EQ(ui.ultimoBox().titolo, "Attenzione");
    // Above 35 numbers the question; No starts at L = 4.
    Sistema t;
    Lista(t, prova::Numeri(36), 2, 0.01, 3);
    InterfacciaScriptata u2;
    u2.risposte.push_back(Risposta::No);
    Form8 h(t, u2);
    h.avviaEdEsegui();
    ASSERT_EQ(u2.box.size(), 1u);
    EXPECT_EQ(u2.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(u2.box[0].testo,
              "Il calcolo delle percentuali di vincita con 5 numeri potrebbe richiedere molto tempo.\n"
              "Proseguire ugualmente?");
    EXPECT_EQ(t.form8.Perc[3][5], "");
    EXPECT_NE(t.form8.Perc[3][4], "");
    // Valid: the menu only shows the table again.
    EXPECT_TRUE(h.VisualizzaPercentuali());
    EXPECT_EQ(u2.box.size(), 1u);
}

TEST(Percentuali, TastoFermaEscNoRiprende) {
    Sistema s, r;
    Lista(s, prova::Numeri(12), 4, 0.3, 9);
    Lista(r, prova::Numeri(12), 4, 0.3, 9);
    InterfacciaScriptata ui;
    ui.tastiAllaCessione[2] = {65};
    Form8 f(s, ui);
    f.avviaEdEsegui();
    EXPECT_FALSE(s.form8.Timer1);  // halted, window up, nothing asked
    EXPECT_TRUE(s.form8.caricato);
    EXPECT_EQ(s.ColonneEsaminate, 200);
    EXPECT_TRUE(ui.box.empty());
    f.tasto(27);  // ESC, then No: it runs again
    EXPECT_TRUE(s.form8.Timer1);
    f.esegui();
    InterfacciaScriptata ur;
    Form8 h(r, ur);
    h.avviaEdEsegui();
    EXPECT_EQ(s.form8.Perc, r.form8.Perc);
    EXPECT_EQ(s.form8.GaranziaMin, r.form8.GaranziaMin);
}

TEST(Percentuali, EscSiNoPassaAlLivelloSuccessivo) {
    Sistema s;
    Lista(s, prova::Numeri(12), 4, 0.3, 9);
    const int32_t colonne = s.NumColonne;
    InterfacciaScriptata ui;
    ui.tastiAllaCessione[1] = {27};
    ui.risposte = {Risposta::Si, Risposta::No};
    Form8 f(s, ui);
    f.avviaEdEsegui();
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[0].testo, "Annullare l'elaborazione corrente?");
    EXPECT_EQ(ui.box[1].testo, "Annullare anche le altre elaborazioni?");
    EXPECT_EQ(ui.box[1].titolo, "RICHIESTA");
    EXPECT_EQ(s.form8.Perc[3][5], "");  // given up
    EXPECT_NE(s.form8.Perc[3][4], "");
    EXPECT_TRUE(s.PercentualiValide);
    EXPECT_EQ(s.NumColonne, colonne);

    Sistema t;
    Lista(t, prova::Numeri(12), 4, 0.3, 9);
    InterfacciaScriptata u2;
    u2.tastiAllaCessione[1] = {27};
    u2.risposte = {Risposta::Si, Risposta::Si};
    Form8 h(t, u2);
    h.avviaEdEsegui();
    EXPECT_FALSE(t.form8.caricato);
    EXPECT_FALSE(t.PercentualiValide);
    EXPECT_EQ(t.NumColonne, colonne);  // put back
}

TEST(Percentuali, EscSiAL2NonRimetteNumColonne) {
    Sistema s;
    prova::ImpostaPronostico(s, prova::Numeri(2));
    prova_rid::Imposta(s, {{1, 2}, {1, 3}, {2, 3}});
    InterfacciaScriptata ui;
    Visualizza(s, ui);
    ui.risposte = {Risposta::Si};
    Form8 f(s, ui);
    ASSERT_TRUE(f.VisualizzaPercentuali());
    f.attiva();
    EXPECT_EQ(f.L, 2);
    f.tasto(27);
    EXPECT_FALSE(s.form8.caricato);
    EXPECT_EQ(s.NumColonne, 1);  // the count of the combinations, left as it was
}
