// The reduction dialog: click rules, activation, AVVIA and the commands that open it.

#include "reduction/form5.h"

#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "prova_colonne.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

namespace {
std::array<bool, 4> Opz(int n) {
    std::array<bool, 4> a{};
    a[n - 1] = true;
    return a;
}
}  // namespace

TEST(Form5, StatoIniziale) {
    Sistema s;
    InterfacciaScriptata ui;
    Form5 f(s, ui);
    f.carica();
    EXPECT_EQ(f.opzione(), 1);
    EXPECT_TRUE(s.form5.cento);
    EXPECT_FALSE(s.form5.accurato);
    EXPECT_STREQ(Form5::Caption, "IMPOSTAZIONE RIDUZIONE");
}

TEST(Form5, RegoleDelleCaselle) {
    Sistema s;
    InterfacciaScriptata ui;
    Form5 f(s, ui);
    f.carica();
    s.SviluppoK = 7;
    f.clickCheck2();  // ACCURATO on
    EXPECT_TRUE(s.form5.accurato);
    f.clickCheck1();  // 100% off clears ACCURATO
    EXPECT_FALSE(s.form5.cento);
    EXPECT_FALSE(s.form5.accurato);
    f.clickCheck2();  // ACCURATO on with 100% off sets 100%
    EXPECT_TRUE(s.form5.cento);
    EXPECT_TRUE(s.form5.accurato);
    f.clickCheck2();
    f.clickCheck1();
    EXPECT_FALSE(s.form5.cento);
    f.clickOption(4);  // ambo sets 100%
    EXPECT_TRUE(s.form5.cento);
}

TEST(Form5, RegoleDelleOpzioniSecondoK) {
    struct Caso { int k, click, atteso; bool cento; };
    const Caso casi[] = {
        {6, 1, 1, false}, {5, 1, 2, false}, {4, 1, 3, false}, {3, 1, 4, true}, {2, 1, 4, true},
        {5, 2, 2, false}, {4, 2, 3, false}, {3, 2, 4, true},
        {4, 3, 3, false}, {3, 3, 4, true}, {2, 3, 4, true},
        {9, 4, 4, true},
    };
    for (const Caso& c : casi) {
        Sistema s;
        InterfacciaScriptata ui;
        Form5 f(s, ui);
        f.carica();
        s.form5.cento = false;
        s.SviluppoK = static_cast<int16_t>(c.k);
        f.clickOption(c.click);
        EXPECT_EQ(s.form5.Option, Opz(c.atteso)) << "k=" << c.k << " click=" << c.click;
        EXPECT_EQ(s.form5.cento, c.cento) << "k=" << c.k << " click=" << c.click;
    }
}

TEST(Form5, AttivazionePiuLarga) {
    struct Caso { int opz, k, atteso; };
    // cinquina with 5, quaterna with 4, terno with 3 survive activation.
    const Caso casi[] = {{1, 5, 1}, {2, 4, 2}, {3, 3, 3}, {1, 4, 3}, {1, 3, 4}, {2, 3, 4},
                         {3, 2, 4}, {2, 2, 4}, {1, 2, 4}, {4, 2, 4}};
    for (const Caso& c : casi) {
        Sistema s;
        InterfacciaScriptata ui;
        Form5 f(s, ui);
        f.carica();
        s.form5.Option = Opz(c.opz);
        s.SviluppoK = static_cast<int16_t>(c.k);
        f.attiva();
        EXPECT_EQ(s.form5.Option, Opz(c.atteso)) << "opz=" << c.opz << " k=" << c.k;
    }
}

TEST(Form5, ComandiControllanoLeColonne) {
    Sistema s;
    InterfacciaScriptata ui;
    EXPECT_FALSE(ClickRiduci(s, ui));
    EXPECT_EQ(ui.ultimoBox().testo,
              "Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema condizionato!");
    EXPECT_EQ(ui.ultimoBox().titolo, "ERRORE SULLA RIDUZIONE");
    EXPECT_EQ(ui.ultimoBox().icona, Icona::Esclamazione);
    s.NumColonne = 1;
    EXPECT_FALSE(MenuGaranzia(s, ui, 3));
    EXPECT_EQ(ui.ultimoBox().testo, "Non è possibile ridurre una sola colonna!");
    prova_rid::Sviluppa(s, prova::Numeri(8), 4);
    EXPECT_TRUE(MenuGaranzia(s, ui, 5));  // k 4: cinquina goes to terno by the click rule
    EXPECT_EQ(s.form5.Option, Opz(3));
    s.form5.cento = false;
    EXPECT_TRUE(ClickRiduci(s, ui));  // options as they stand
    EXPECT_FALSE(s.form5.cento);
}

TEST(Form5, AvviaRifiutoDopoAverButtatoLaLista) {
    Sistema s;
    InterfacciaScriptata ui;
    prova_rid::Sviluppa(s, prova::Numeri(8), 5);
    s.NumRidotte = 3;
    s.MSFlexGrid1.AddItem(" 1  2  3  4  5");
    Form5 f(s, ui);
    f.carica();  // cinquina, 100%
    EXPECT_FALSE(f.clickCommand1());
    EXPECT_EQ(ui.ultimoBox().testo, "Non è possibile ridurre questo tipo di sistema.");
    EXPECT_EQ(ui.ultimoBox().icona, Icona::Informazione);
    EXPECT_EQ(s.NumRidotte, 0);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
    EXPECT_EQ(s.TipoGaranzia, 5);
    EXPECT_TRUE(s.form5.caricato);  // stays open with its options
    // With 100% unticked the run goes on at g = 4.
    f.clickCheck1();
    EXPECT_TRUE(f.clickCommand1());
    EXPECT_EQ(s.TipoGaranzia, 4);
    EXPECT_GT(s.NumRidotte, 1);
    EXPECT_EQ(s.pannelli[1], "RIDOTTE:  " + std::to_string(s.NumRidotte));
    // Unloaded: back to cinquina, 100%.
    EXPECT_EQ(s.form5.Option, Opz(1));
    EXPECT_TRUE(s.form5.cento);
}

TEST(Form5, AvviaAccuratoScriveGaranziaAttiva) {
    Sistema s;
    InterfacciaScriptata ui;
    prova_rid::Sviluppa(s, prova::Numeri(10), 5);
    Form5 f(s, ui);
    f.carica();
    f.clickOption(3);
    f.clickCheck2();
    ASSERT_TRUE(f.clickCommand1());
    EXPECT_TRUE(s.GaranziaAttiva);
    EXPECT_EQ(s.TipoGaranzia, 3);
    Sistema t;
    prova_rid::Sviluppa(t, prova::Numeri(10), 5);
    Form5 h(t, ui);
    h.carica();
    h.clickOption(3);
    ASSERT_TRUE(h.clickCommand1());
    EXPECT_FALSE(t.GaranziaAttiva);
    EXPECT_EQ(t.pannelli[1], "RIDOTTE:  " + std::to_string(t.NumRidotte));
}
