// The play slips: every mark and text at its place in millimetres, the range, the
// single-slip mode and the geometry file.

#include "printing/form11.h"

#include "aiuti_stampa.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "support/cartella.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

using namespace zef;

namespace {

struct Segno {
    double x, y;
};

// Geometry with every value apart from the defaults, so that a formula using the
// wrong one shows: T = 3, L = 4, V = 6.5, H = 7.25.
struct Schedine : ::testing::Test {
    prova::CartellaTemporanea cartella;
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata carta;
    Form11 f{s, ui, carta};

    void SetUp() override {
        f.fileGeometria = cartella / "cooxy.txt";
        std::ofstream(f.fileGeometria) << "3\n4\n6.5\n7.25\n";
        s.form2.Option1.fill(false);
        s.form2.Option1[0] = true;  // Bari
    }
    // The slips of the list, printed as the user starts them.
    StampanteRegistrata stampa(int k, const std::vector<std::string>& righe) {
        prova::ImpostaLista(s, k, righe);
        f.carica();
        f.clickCommand1();
        return carta.carta;
    }
    static std::vector<Segno> Segni(const StampanteRegistrata& st) {
        std::vector<Segno> v;
        for (const auto& o : st.operazioni)
            if (o.segno()) v.push_back({o.x, o.y});
        return v;
    }
    // The marks after the wheel's (header, wheel, then the rest in order).
    static std::vector<Segno> SegniDopoRuota(const StampanteRegistrata& st) {
        auto v = Segni(st);
        return std::vector<Segno>(v.begin() + 1, v.end());
    }
};

void Vicino(const Segno& a, double x, double y, const std::string& cosa) {
    EXPECT_NEAR(a.x, x, 1e-9) << cosa;
    EXPECT_NEAR(a.y, y, 1e-9) << cosa;
}

}  // namespace

TEST_F(Schedine, NumeriPerDecine) {
    // k = 2: two number marks; the tens rows of 10, 11 and 90 in a row of ten.
    auto st = stampa(2, {prova::Riga({7, 42})});
    auto m = SegniDopoRuota(st);
    ASSERT_EQ(m.size(), 2u);
    Vicino(m[0], 4 - 5 + 7.25 * 7, 3 + 20, "7");
    Vicino(m[1], -1 + 7.25 * 2, 23 + 6.5 * 4, "42");

    st = stampa(10, {prova::Riga({1, 10, 11, 20, 21, 45, 80, 81, 89, 90})});
    m = SegniDopoRuota(st);
    ASSERT_EQ(m.size(), 10u);
    Vicino(m[0], -1 + 7.25, 23, "1");
    Vicino(m[1], -1 + 72.5, 23, "10 stays on the first row");
    Vicino(m[2], -1 + 7.25, 23 + 6.5, "11");
    Vicino(m[3], -1 + 72.5, 23 + 6.5, "20");
    Vicino(m[4], -1 + 7.25, 23 + 13, "21");
    Vicino(m[5], -1 + 36.25, 23 + 26, "45");
    Vicino(m[6], -1 + 72.5, 23 + 45.5, "80");
    Vicino(m[7], -1 + 7.25, 23 + 52, "81");
    Vicino(m[8], -1 + 65.25, 23 + 52, "89");
    Vicino(m[9], -1 + 72.5, 23 + 52, "90");
}

TEST_F(Schedine, CampoVuotoSegnaDavantiAllaGriglia) {
    // A hand-typed row with a blank field: the number is 0, on the first row, at X0.
    auto m = SegniDopoRuota(stampa(3, {" 7    12"}));
    ASSERT_EQ(m.size(), 3u);
    Vicino(m[1], -1, 23, "blank field");
    // A row shorter than k numbers: the missing ones are 0 too.
    m = SegniDopoRuota(stampa(4, {" 5 "}));
    ASSERT_EQ(m.size(), 4u);
    Vicino(m[3], -1, 23, "past the row's end");
}

TEST_F(Schedine, RuoteConNazionaleETutteScambiate) {
    for (int ruota = 0; ruota < 12; ++ruota) {
        s.form2.Option1.fill(false);
        s.form2.Option1[ruota] = true;
        const auto m = Segni(stampa(2, {" 1  2 "}));
        ASSERT_EQ(m.size(), 3u);
        const int riga = ruota == 10 ? 11 : ruota == 11 ? 10 : ruota;
        Vicino(m[0], -1 + 7.25 * 12.84, 23 + riga * (6.5 - 1.9), NomiRuote[ruota]);
    }
    Vicino(Segni(stampa(2, {" 1  2 "}))[0], -1 + 7.25 * 12.84, 23 + 10 * 4.6, "Tutte le ruote");
    s.form2.Option1.fill(false);
    EXPECT_EQ(Segni(stampa(2, {" 1  2 "})).size(), 2u) << "no wheel, no wheel mark";
}

TEST_F(Schedine, PuntateEstratto) {
    s.form2.Check[0] = 1;
    s.form2.chkAmbo[64] = true;  // 200
    s.form2.chkAmbo[52] = true;  // 0,05
    s.form2.chkAmbo[56] = true;  // 1,00
    auto m = SegniDopoRuota(stampa(2, {" 1  2 "}));
    ASSERT_EQ(m.size(), 5u);
    // From the biggest amount, at the left, down to the smallest.
    Vicino(m[0], 4 + 16, 3 + 98.5, "200");
    Vicino(m[1], 20 + 8 * 5.95, 101.5, "1,00");
    Vicino(m[2], 20 + 12 * 5.95, 101.5, "0,05");
    // The kind unticked: its boxes print nothing.
    s.form2.Check[0] = 0;
    EXPECT_EQ(SegniDopoRuota(stampa(2, {" 1  2 "})).size(), 2u);
}

TEST_F(Schedine, PuntateDelleAltreSorti) {
    // Each kind's biggest and smallest box: row q, column 13q - j.
    const char* nomi[5] = {"", "Ambo", "Terno", "Quaterna", "Cinquina"};
    for (int q = 1; q <= 4; ++q) {
        s.form2.Check = {};
        s.form2.chkAmbo = {};
        s.form2.Check[q] = 1;
        const int base = 13 * (q - 1);
        s.form2.chkAmbo[base] = true;       // 0,05, j = base + 1
        s.form2.chkAmbo[base + 12] = true;  // 200, j = base + 13
        s.form2.chkAmbo[52] = true;         // an Estratto box, its kind unticked
        auto m = SegniDopoRuota(stampa(2, {" 1  2 "}));
        ASSERT_EQ(m.size(), 4u) << nomi[q];
        const double y = 101.5 + q * (6.5 - 0.3);
        Vicino(m[0], 20, y, std::string(nomi[q]) + " 200");
        Vicino(m[1], 20 + 12 * 5.95, y, std::string(nomi[q]) + " 0,05");
    }
    // All four kinds: marks from the Cinquina's row down to the Ambo's.
    s.form2.Check = {0, 1, 1, 1, 1};
    s.form2.chkAmbo = {};
    for (int i = 0; i < 52; i += 13) s.form2.chkAmbo[i + 4] = true;  // 1,00 of each
    auto m = SegniDopoRuota(stampa(2, {" 1  2 "}));
    ASSERT_EQ(m.size(), 6u);
    for (int i = 0; i < 4; ++i) Vicino(m[i], 20 + 8 * 5.95, 101.5 + (4 - i) * 6.2, "1,00 of row " + std::to_string(4 - i));
    // A kind ticked with no box: nothing.
    s.form2.chkAmbo = {};
    EXPECT_EQ(SegniDopoRuota(stampa(2, {" 1  2 "})).size(), 2u);
}

TEST_F(Schedine, Concorsi) {
    for (int i = 1; i <= 7; ++i) {
        f.carica();
        f.clickOption3(i);
        prova::ImpostaLista(s, 2, {" 1  2 "});
        f.clickCommand1();
        auto m = SegniDopoRuota(carta.carta);
        ASSERT_EQ(m.size(), 3u);
        Vicino(m[2], 4 + 37.4 + i * (7.25 - 0.2), 3 + 156.7, scheda::Concorsi[i]);
    }
    // None on: one draw, no mark. A second click on the option on takes it off.
    EXPECT_EQ(SegniDopoRuota(stampa(2, {" 1  2 "})).size(), 2u);
    f.clickOption3(3);
    f.clickOption3(5);
    EXPECT_TRUE(f.Option3[5] && !f.Option3[3]);
    f.clickOption3(5);
    EXPECT_EQ(std::count(f.Option3.begin(), f.Option3.end(), true), 0);
}

TEST_F(Schedine, IntestazioneEFacce) {
    prova::Separatore virgola(',');
    s.form2.Check = {1, 1, 0, 1, 0};
    s.form2.testi = {"0,50", "1,00", "7,00", "0,25", "9,00"};  // Terno and Cinquina not played
    const auto st = stampa(2, {" 1  2 ", " 3  4 "});
    const auto testi = prova::Testi(st);
    ASSERT_EQ(testi.size(), 2u * 4);
    EXPECT_EQ(testi[0].testo, "Scheda n.1 €.1,75");
    EXPECT_EQ(testi[4].testo, "Scheda n.2 €.1,75");
    EXPECT_NEAR(testi[0].x, 9, 1e-9);
    EXPECT_NEAR(testi[0].y, 13, 1e-9);
    EXPECT_EQ(testi[0].carattere, (Carattere{"Courier New", 7, true}));
    EXPECT_EQ(testi[1].carattere, (Carattere{"wingdings", 9, true}));
    // Millimetres first, the marks' face before the first slip; a page per slip.
    ASSERT_GE(st.operazioni.size(), 2u);
    EXPECT_EQ(st.operazioni[0].tipo, OperazioneStampa::Tipo::Scala);
    EXPECT_EQ(st.operazioni[1].carattere, (Carattere{"wingdings", 10, true}));
    EXPECT_EQ(prova::Conta(st, OperazioneStampa::Tipo::NuovaPagina), 2);
    EXPECT_EQ(prova::Conta(st, OperazioneStampa::Tipo::FineDocumento), 1);
    EXPECT_EQ(st.operazioni.back().tipo, OperazioneStampa::Tipo::FineDocumento);
}

TEST_F(Schedine, Intervallo) {
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 ", " 7  8 ", " 9 10 "});
    auto schede = [&](const std::string& da, const std::string& a, bool intervallo) {
        std::vector<int64_t> v;
        f.allaScheda = [&v](int64_t n) { v.push_back(n); };
        f.carica();
        f.clickOption(intervallo ? 1 : 2);
        f.schedeDA = da;
        f.schedeA = a;
        f.clickCommand1();
        f.allaScheda = nullptr;
        EXPECT_EQ(prova::Conta(carta.carta, OperazioneStampa::Tipo::NuovaPagina), static_cast<int>(v.size()));
        return v;
    };
    EXPECT_EQ(schede("2", "4", true), (std::vector<int64_t>{2, 3, 4}));
    EXPECT_EQ(schede("2", "4", false), (std::vector<int64_t>{1, 2, 3, 4, 5})) << "TUTTE ignores the range";
    EXPECT_EQ(schede("4", "2", true), std::vector<int64_t>{}) << "DA above A prints nothing";
    EXPECT_EQ(schede("5", "9", true), (std::vector<int64_t>{5}));
    EXPECT_EQ(schede("0", "1", true), (std::vector<int64_t>{1}));
    EXPECT_EQ(schede("x", "2", true), (std::vector<int64_t>{1, 2})) << "a text reads as 0";
}

TEST_F(Schedine, DaSopraANonFermaIlGiro) {
    // The walk reads every row until the list ends: a row that cannot be read,
    // past an inverted range, still ends the print (with no message) and keeps
    // the geometry file as it was.
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", "9E9 1 "});
    f.carica();
    f.clickOption(1);
    f.schedeDA = "3";
    f.schedeA = "1";
    f.geometria[0] = "8";
    f.clickCommand1();
    EXPECT_TRUE(ui.box.empty());
    std::ifstream in(f.fileGeometria);
    std::string prima;
    std::getline(in, prima);
    EXPECT_EQ(prima, "3");
    // Stopping at A leaves the bad row unread: the print goes through.
    f.schedeDA = "1";
    f.schedeA = "2";
    f.clickCommand1();
    EXPECT_EQ(prova::Conta(carta.carta, OperazioneStampa::Tipo::NuovaPagina), 2);
}

TEST_F(Schedine, SchedinaSingola) {
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 ", " 7  8 "});
    f.carica();
    f.clickCheck1();
    // Ok after slip 1; Annulla then No after slip 2; Annulla then Si after slip 3.
    ui.risposte = {Risposta::Ok, Risposta::Annulla, Risposta::No, Risposta::Annulla, Risposta::Si};
    f.visibile = true;
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 5u);
    EXPECT_EQ(ui.box[0].titolo, "Attesa");
    EXPECT_EQ(ui.box[0].testo, "Inserire una scheda nuova, e premere su ok quando pronti.");
    EXPECT_EQ(ui.box[0].pulsanti, Pulsanti::OkAnnulla);
    EXPECT_EQ(ui.box[2].titolo, "ANNULLARE LA STAMPA?");
    EXPECT_EQ(ui.box[2].testo, "Si vuole annulare la stampa? ");
    EXPECT_EQ(ui.box[2].pulsanti, Pulsanti::SiNo);
    const auto& st = carta.carta;
    EXPECT_EQ(prova::Conta(st, OperazioneStampa::Tipo::NuovaPagina), 3);
    // Each slip's document ends before its box, and once more after the walk.
    EXPECT_EQ(prova::Conta(st, OperazioneStampa::Tipo::FineDocumento), 4);
    EXPECT_FALSE(f.visibile);

    // The last slip of a range stops the walk before the box.
    ui.box.clear();
    ui.risposte.clear();
    f.clickOption(1);
    f.schedeDA = "2";
    f.schedeA = "3";
    f.clickCommand1();
    EXPECT_EQ(ui.box.size(), 1u);
    // The preview never waits; given up there, the window stays.
    ui.box.clear();
    carta.conAnteprima = true;
    carta.rinuncia = true;
    f.visibile = true;
    f.clickCommand1();
    EXPECT_TRUE(ui.box.empty());
    EXPECT_TRUE(f.visibile);
    EXPECT_EQ(prova::Conta(carta.anteprima, OperazioneStampa::Tipo::FineDocumento), 1);
    EXPECT_EQ(prova::Conta(carta.anteprima, OperazioneStampa::Tipo::NuovaPagina), 2);
}

TEST_F(Schedine, ToolTipAlRovescio) {
    f.carica();
    EXPECT_FALSE(f.Check1);
    f.clickCheck1();
    EXPECT_EQ(f.Check1ToolTip, "stampa le schedine in modo continuo senza richiesta di inserimento");
    f.clickCheck1();
    EXPECT_EQ(f.Check1ToolTip, "stampa le schedine una per volta, con richiesta di inserimento");
}

TEST_F(Schedine, FrecceDelleCaselle) {
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 "});
    f.carica();
    EXPECT_EQ(f.schedeDA, "1");
    EXPECT_EQ(f.schedeA, "2");
    f.upDown(Form11::SchedeDA, -1);
    EXPECT_EQ(f.schedeDA, "1") << "below 1 goes back to 1";
    f.upDown(Form11::SchedeA, +1);
    EXPECT_EQ(f.schedeA, "3");
    f.cambia(Form11::MSuperiore, "3,2");
    f.upDown(Form11::MSuperiore, +1);
    EXPECT_EQ(f.geometria[Form11::MSuperiore], "3.7");
    f.cambia(Form11::POrizzontale, "0.2");
    f.upDown(Form11::POrizzontale, -1);
    EXPECT_EQ(f.geometria[Form11::POrizzontale], "0");
    EXPECT_DOUBLE_EQ(f.valori().superiore, 3.7);
    EXPECT_DOUBLE_EQ(f.valori().verticale, 6.5);
}
