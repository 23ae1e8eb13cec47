// The reduced development: the dialog, the walk, the cover against its plain reference.

#include "reduction/copertura.h"
#include "reduction/form19.h"

#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "riferimento_copertura.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace zef;

namespace {

std::vector<int> NumeriCasuali(std::mt19937& rng, int n) {
    std::vector<int> tutti(90);
    for (int i = 0; i < 90; ++i) tutti[i] = i + 1;
    std::shuffle(tutti.begin(), tutti.end(), rng);
    tutti.resize(n);
    std::sort(tutti.begin(), tutti.end());
    return tutti;
}

void Fissi(Sistema& s, const std::vector<int>& fissi) {
    s.NumFissi = static_cast<int16_t>(fissi.size());
    s.NumeriFissi.assign(fissi.size() + 1, 0);
    s.NumeriFissiBase = 1;
    for (size_t i = 0; i < fissi.size(); ++i) s.NumeriFissi[i] = static_cast<int16_t>(fissi[i]);
}

std::vector<std::string> Lista(const Sistema& s) {
    std::vector<std::string> v;
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) v.emplace_back(s.MSFlexGrid1.riga(r));
    return v;
}

std::vector<std::vector<int>> Colonne_(const Sistema& s, int k) {
    std::vector<std::vector<int>> v;
    for (int64_t c = 1; c <= s.NumColonne; ++c) {
        std::vector<int> col;
        for (int p = 1; p <= k; ++p) col.push_back(s.colonne.get(p, c));
        v.push_back(col);
    }
    return v;
}

// Forecast, size index, guarantee index, distance, fixed numbers.
void Prepara(Sistema& s, const std::vector<int>& numeri, int distanza, const std::vector<int>& fissi) {
    prova::ImpostaPronostico(s, numeri);
    s.DistanzaMin = static_cast<int16_t>(distanza);
    Fissi(s, fissi);
}

}  // namespace

TEST(EnumeraCombinazioni, ComeIlNidoDiLivelli) {
    std::mt19937 rng(17);
    for (int prova = 0; prova < 150; ++prova) {
        int n = 2 + static_cast<int>(rng() % 14);
        int K = 2 + static_cast<int>(rng() % 9);  // up to 10, beyond n too
        auto numeri = NumeriCasuali(rng, n);
        std::vector<int> fissi;
        if (rng() % 3 == 0) fissi.push_back(numeri[rng() % n]);
        if (rng() % 4 == 0) fissi.push_back(numeri[rng() % n]);
        int dist = static_cast<int>(rng() % 3);
        Sistema a, b;
        for (Sistema* s : {&a, &b}) {
            Prepara(*s, numeri, dist, fissi);
            s->LunghezzaEnumerazione = static_cast<int16_t>(K);
            s->colonne.dimensiona(10, 1 << 16);
            s->Liv[1] = 0;
        }
        EnumeraCombinazioni(a);
        rif::Enumera(b);
        ASSERT_EQ(a.NumColonne, b.NumColonne) << "n=" << n << " K=" << K;
        EXPECT_EQ(a.ColonneEsaminate, b.ColonneEsaminate);
        EXPECT_EQ(a.ColonneEsaminate, static_cast<int64_t>(Binomiale(n, K)));
        EXPECT_EQ(Colonne_(a, std::min(K, 10)), Colonne_(b, std::min(K, 10)));
    }
}

TEST(EnumeraCombinazioni, DistanzaEFissi) {
    Sistema s;
    Prepara(s, {1, 2, 3, 5}, 1, {});
    s.LunghezzaEnumerazione = 2;
    s.colonne.dimensiona(2, 100);
    EnumeraCombinazioni(s);
    // consecutive pairs (1,2) and (2,3) are out
    EXPECT_EQ(s.NumColonne, 4);
    Sistema t;
    Prepara(t, prova::Numeri(8), 0, {1, 2, 3});  // more fixed numbers than g
    t.LunghezzaEnumerazione = 2;
    t.colonne.dimensiona(2, 100);
    EnumeraCombinazioni(t);
    EXPECT_EQ(t.NumColonne, 0);
}

TEST(EnumeraCombinazioni, OltreLaCapacitaErrore9) {
    Sistema s;
    Prepara(s, prova::Numeri(20), 0, {});
    s.LunghezzaEnumerazione = 3;
    s.colonne.dimensiona(3, 1000);  // C(20, 3) = 1140
    try {
        EnumeraCombinazioni(s);
        FAIL() << "no error";
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.numero, errori::IndiceFuoriIntervallo);
    }
}

TEST(Form19, RegoleDelleListe) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(7));
    Form19 f(s, ui);
    f.clickCombo1(3);
    f.clickCombo2(3);  // Cinquina
    EXPECT_EQ(f.Combo2, 3);
    f.clickCombo1(0);  // TERZINE: the guarantee follows down to Ambo
    EXPECT_EQ(f.Combo2, 0);
    f.clickCombo1(7);  // DECINE with 7 numbers falls back to SETTINE
    EXPECT_EQ(f.Combo1, 4);
    f.clickCombo2(3);
    EXPECT_EQ(f.Combo2, 3);
    Sistema t;
    prova::ImpostaPronostico(t, prova::Numeri(3));
    Form19 h(t, ui);
    h.clickCombo1(2);
    h.clickCombo2(2);
    h.clickCombo1(7);  // back to TERZINE, whose rule takes the guarantee to Ambo
    EXPECT_EQ(h.Combo1, 0);
    EXPECT_EQ(h.Combo2, 0);
}

TEST(Form19, MenuEAvviaVuoto) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {4, 9});
    EXPECT_FALSE(MenuSviluppoRidotto(s, ui));
    EXPECT_EQ(ui.ultimoBox().testo, "E' necessario impostare un pronostico prima!");
    EXPECT_EQ(ui.ultimoBox().titolo, "Attenzione");
    EXPECT_EQ(ui.ultimoBox().icona, Icona::Critico);
    prova::ImpostaPronostico(s, {4, 9, 11});
    EXPECT_TRUE(MenuSviluppoRidotto(s, ui));
    s.NumColonne = 5;
    Form19 f(s, ui);
    f.clickCombo1(0);
    EXPECT_FALSE(f.clickCommand1());  // empty guarantee: nothing happens
    EXPECT_EQ(s.NumColonne, 5);
}

TEST(Copertura, TreNumeriTerzineAmbo) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {5, 17, 60});
    Form19 f(s, ui);
    f.clickCombo1(0);
    f.clickCombo2(0);
    ASSERT_TRUE(f.clickCommand1());
    EXPECT_EQ(s.NumColonne, 3);
    EXPECT_TRUE(s.GaranziaAttiva);
    EXPECT_EQ(s.form5.Option, (std::array<bool, 4>{false, false, false, true}));
    EXPECT_EQ(s.form4.massimo, 4);
    EseguiTimer4(s, ui);
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);  // the first row covers them all
    EXPECT_EQ(std::string(s.MSFlexGrid1.riga(0)), " 5  17 60");
    EXPECT_EQ(s.pannelli[1], "RIDOTTE: 1");
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 1");  // the one integral terzina
    EXPECT_EQ(s.NumCombinazioni, 1);
    EXPECT_FALSE(s.Timer4Abilitato);
    EXPECT_FALSE(s.form4.caricato);
}

TEST(Copertura, IdenticaAlRiferimento) {
    std::mt19937 rng(29);
    for (int prova = 0; prova < 80; ++prova) {
        int n = 3 + static_cast<int>(rng() % 14);
        int k = 3 + static_cast<int>(rng() % std::min(8, n - 2));
        int g = 2 + static_cast<int>(rng() % std::min(4, k - 2));
        auto numeri = NumeriCasuali(rng, n);
        std::vector<int> fissi;
        if (rng() % 4 == 0) fissi.push_back(numeri[rng() % n]);
        int dist = rng() % 4 == 0 ? 1 : 0;
        SCOPED_TRACE(testing::Message() << "n=" << n << " k=" << k << " g=" << g << " dist=" << dist
                                        << " fissi=" << fissi.size());
        Sistema a, b;
        InterfacciaScriptata ua, ub;
        for (auto [s, ui] : {std::pair{&a, &ua}, std::pair{&b, &ub}}) {
            Prepara(*s, numeri, dist, fissi);
            Form19 f(*s, *ui);
            f.clickCombo1(k - 3);
            f.clickCombo2(g - 2);
            ASSERT_EQ(f.Combo1, k - 3);
            ASSERT_EQ(f.Combo2, g - 2);
            ASSERT_TRUE(f.clickCommand1());
        }
        EseguiTimer4(a, ua);
        int tick = 0;
        while (!rif::Tick(b, ub)) ASSERT_LT(++tick, 100000);
        ASSERT_EQ(Lista(a), Lista(b));
        EXPECT_EQ(a.pannelli, b.pannelli);
        EXPECT_EQ(a.NumColonne, b.NumColonne);
        EXPECT_EQ(a.ContatoreLavoro, b.ContatoreLavoro);
        EXPECT_EQ(Colonne_(a, k), Colonne_(b, k));
        EXPECT_EQ(a.NumCombinazioni, b.NumCombinazioni);
    }
}

TEST(Copertura, DomandaSulleIntegraliOltre30Numeri) {
    for (int n : {30, 31}) {
        Sistema s;
        InterfacciaScriptata ui;
        ui.risposte.push_back(Risposta::No);
        prova::ImpostaPronostico(s, prova::Numeri(n));
        Form19 f(s, ui);
        f.clickCombo1(2);  // CINQUINE
        f.clickCombo2(0);
        if (n == 30) {
            // no question: the integral plays are developed (C(30, 5))
            f.avviaEdEsegui();
            EXPECT_TRUE(ui.box.empty());
            EXPECT_EQ(s.NumColonne, 142506);
        } else {
            f.avviaEdEsegui();
            ASSERT_EQ(ui.box.size(), 1u);
            EXPECT_EQ(ui.box[0].titolo, "ATTENZIONE");
            EXPECT_EQ(ui.box[0].icona, Icona::Domanda);
            EXPECT_EQ(ui.box[0].testo, "Attenzione l'elaborazione delle giocate integrali potrebbe richiedere "
                                       "parecchi minuti e non potrà essere annullata, proseguire ugualmente?");
            EXPECT_EQ(s.NumColonne, 0);
            EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 0");
            EXPECT_GT(s.MSFlexGrid1.Rows(), 1);
            EXPECT_EQ(s.ListaCol, std::to_string(s.MSFlexGrid1.Rows()));
        }
    }
}

namespace {
// A cover of 20 numbers in SESTINE at terno, set up and not yet ticked.
void Avvia20(Sistema& s, InterfacciaScriptata& ui) {
    prova::ImpostaPronostico(s, prova::Numeri(20));
    Form19 f(s, ui);
    f.clickCombo1(3);
    f.clickCombo2(1);
    ASSERT_TRUE(f.clickCommand1());
}
}  // namespace

TEST(Copertura, EscConSiFermaLaCopertura) {
    Sistema s, r;
    InterfacciaScriptata ui, ur;
    ui.tastiAllaCessione[2] = {27};
    ui.risposte.push_back(Risposta::Si);
    Avvia20(s, ui);
    Avvia20(r, ur);
    EseguiTimer4(s, ui);
    rif::Tick(r, ur);
    rif::Tick(r, ur);  // two slices done, then the stop
    EXPECT_FALSE(s.Timer4Abilitato);
    EXPECT_FALSE(s.form4.caricato);
    EXPECT_EQ(ui.cessioni, 2);
    EXPECT_EQ(s.ColonneEsaminate, r.ColonneEsaminate);
    EXPECT_EQ(Lista(s), Lista(r));
    EXPECT_EQ(s.NumColonne, 1140);  // the targets stay
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 1140");
    EXPECT_EQ(s.ListaCol, std::to_string(s.MSFlexGrid1.Rows()));

    // Another key halts the timer after the first slice and leaves the window up.
    Sistema t, q;
    InterfacciaScriptata u2, uq;
    u2.tastiAllaCessione[1] = {65};
    Avvia20(t, u2);
    Avvia20(q, uq);
    EseguiTimer4(t, u2);
    rif::Tick(q, uq);
    EXPECT_FALSE(t.Timer4Abilitato);
    EXPECT_TRUE(t.form4.visibile);
    EXPECT_EQ(t.ColonneEsaminate, q.ColonneEsaminate);
    EXPECT_TRUE(u2.box.empty());
}

TEST(Copertura, RigaDiDecineSenzaSpazioFinale) {
    const uint8_t v[10] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 7};
    EXPECT_EQ(RigaCopertura(v, 10), " 1  2  3  4  5  6  7  8  9  7");
    const uint8_t w[3] = {1, 42, 7};
    EXPECT_EQ(RigaCopertura(w, 3), " 1  42 7 ");
}

TEST(Copertura, OltreDueMilioniDiBersagliErroreSenzaCrash) {
    // 90 numbers have 43,949,268 cinquine: the targets overflow the 2,000,000 rows.
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(90));
    Form19 f(s, ui);
    f.Combo1 = 3;
    f.Combo2 = 3;
    EseguiEvento(ui, [&] { f.avviaEdEsegui(); });
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_NE(ui.box[0].testo.find("Indice non incluso nell'intervallo"), std::string::npos);
    EXPECT_FALSE(s.Timer4Abilitato);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.NumColonne, 2'000'001);
}
