// The play dialog: cost, accept rules, caption; the window of possible wins.

#include "core/form2.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

using prova::Separatore;

TEST(Form2, AbilitazioneSecondoLaDimensione) {
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f(s, ui);
    f.carica();
    s.form2.Check[3] = 1;
    f.attiva();
    EXPECT_EQ(s.form2.abilitato, (std::array<bool, 5>{false, false, false, false, false}));
    s.SviluppoK = 3;
    f.attiva();
    EXPECT_EQ(s.form2.abilitato, (std::array<bool, 5>{true, true, true, false, false}));
    s.SviluppoK = 7;
    f.attiva();
    EXPECT_EQ(s.form2.abilitato, (std::array<bool, 5>{true, true, true, true, true}));
    EXPECT_EQ(s.form2.Check[3], 1);  // ticks are left alone
}

TEST(Form2, CostoSommaSoloLeSortiSpuntate) {
    Separatore sep(',');
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f(s, ui);
    f.clickChkAmbo(0, true);       // ambo 0,05 with Ambo unticked: nothing
    EXPECT_EQ(s.form2.lblCosto, "0,00");
    f.clickCheck(1, true);
    EXPECT_EQ(s.form2.lblCosto, "0,05");
    f.clickChkAmbo(1, true);       // + 0,10
    f.clickChkAmbo(13 + 4, true);  // terno 1,00, unticked kind
    EXPECT_EQ(s.form2.lblCosto, "0,15");
    EXPECT_EQ(s.form2.testi[1], "0,15");
    EXPECT_EQ(s.form2.testi[2], "0,00");
    f.clickCheck(2, true);
    f.clickChkAmbo(52 + 12, true);  // estratto 200, kind unticked
    EXPECT_EQ(s.form2.lblCosto, "1,15");
    EXPECT_EQ(s.form2.testi[2], "1");  // a running sum, not two decimals
}

TEST(Form2, AccettaConDidascaliaEVirgole) {
    for (char sep : {',', '.'}) {
        Separatore ss(sep);
        Sistema s;
        InterfacciaScriptata ui;
        Form2 f(s, ui);
        f.clickOption1(0);
        f.clickCheck(1, true);
        f.clickChkAmbo(4, true);   // ambo 1
        f.clickChkAmbo(3, true);   // ambo 0,50
        s.MSFlexGrid1.AddItem(" 1  2 ");
        s.MSFlexGrid1.AddItem(" 1  3 ");
        f.clickCommand1();
        std::string unoCinquanta = std::string("1") + sep + "50";
        EXPECT_EQ(s.Command2, "Bari, , Ambo € " + unoCinquanta + ", , , ");
        EXPECT_EQ(s.CostoColonna, Currency::daDecimillesimi(15000));
        EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 3");
        EXPECT_TRUE(ui.box.empty());
    }
}

TEST(Form2, LimitiSoloConColonneInMemoria) {
    Separatore sep(',');
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f(s, ui);
    f.clickCheck(0, true);
    f.clickChkAmbo(52 + 3, true);  // 0,50
    f.clickChkAmbo(52 + 2, true);  // 0,20
    f.clickChkAmbo(52 + 1, true);  // 0,10
    f.clickChkAmbo(52 + 0, true);  // 0,05
    f.clickChkAmbo(52 + 1, true);
    // 0,95 with no columns passes
    f.clickCommand1();
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(s.CostoColonna, Currency::daDecimillesimi(8500));
    EXPECT_EQ(s.Command2, "Tutte le ruote, Estratto € 0,85, , , , ");
    // with columns: refused and the dialog unloaded
    s.NumColonne = 3;
    f.clickChkAmbo(52 + 1, true);
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "L'importo totale di giocata non può essere inferiore di 1");
    EXPECT_EQ(ui.box[0].titolo, "Puntata non valida");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    EXPECT_FALSE(s.form2.caricato);
    EXPECT_EQ(s.form2.Check[0], 0);
    EXPECT_EQ(s.CostoColonna, Currency::daDecimillesimi(8500));  // nothing else changes
    // bounds are inclusive: 1 and 200 pass, 200,05 does not
    f.clickCheck(4, true);
    f.clickChkAmbo(39 + 4, true);
    f.clickCommand1();
    EXPECT_EQ(ui.box.size(), 1u);
    f.clickChkAmbo(39 + 12, true);
    f.clickChkAmbo(39 + 4, false);
    f.clickCommand1();
    EXPECT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(s.CostoColonna, Currency::daInteri(200));
    f.clickCheck(4, true);
    f.clickChkAmbo(39 + 12, true);
    f.clickChkAmbo(39 + 0, true);
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[1].testo, "L'importo totale di giocata non può superare 200");
}

TEST(Form2, VincitePossibiliChiedonoDaUnoADuecentoSempre) {
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f(s, ui);
    int aperte = 0;
    f.mostraForm23 = [&] { ++aperte; };
    f.clickCommand2();
    EXPECT_EQ(ui.ultimoBox().testo, "La giocata non è valida deve essere di almeno 1 euro a scheda");
    EXPECT_EQ(ui.ultimoBox().icona, Icona::Critico);
    f.clickCheck(1, true);
    for (int i : {12, 11}) f.clickChkAmbo(i, true);
    f.clickCommand2();
    EXPECT_EQ(ui.ultimoBox().testo, "La giocata non è valida deve essere al massimo di 200 euro a scheda");
    f.clickChkAmbo(11, false);
    f.clickCommand2();
    EXPECT_EQ(aperte, 1);
}

TEST(Form23, VinciteNetteSecondoLaRuota) {
    Separatore sep(',');
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f(s, ui);
    s.SviluppoK = 5;
    f.clickOption1(0);
    f.clickCheck(1, true);
    f.clickChkAmbo(4, true);  // ambo 1 euro: 25, less 8 per cent
    f.clickCheck(0, true);
    f.clickChkAmbo(52 + 5, true);  // estratto 2 euro: 4,50 -> 4,14
    Form23 w(s);
    w.carica();
    EXPECT_EQ(w.etichetta[0], "-");  // Cinquina not played
    EXPECT_EQ(w.etichetta[1], "-");
    EXPECT_EQ(w.etichetta[2], "-");
    EXPECT_EQ(w.etichetta[3], "23,00");
    EXPECT_EQ(w.etichetta[4], "4,14");
    EXPECT_EQ(w.maschera[0], "0");
    // all the wheels: a tenth, before the 8 per cent
    f.clickOption1(11);
    w.carica();
    EXPECT_EQ(w.etichetta[3], "2,30");
    // 83.3 and not 83.33 for the ambo in TERZINE
    s.SviluppoK = 3;
    f.clickOption1(1);
    w.carica();
    EXPECT_EQ(w.etichetta[3], "76,64");  // 83,3 less 8%
    // no development: only Estratto could be ticked, and k = 0 has no row
    s.SviluppoK = 0;
    w.carica();
    for (auto& e : w.etichetta) EXPECT_EQ(e, "-");
}
