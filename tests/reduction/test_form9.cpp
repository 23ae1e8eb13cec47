// System information: the type line and the ratios.

#include "reduction/form9.h"

#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "prova_colonne.h"
#include "reduction/form5.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

TEST(Form9, MenuSenzaColonne) {
    Sistema s;
    InterfacciaScriptata ui;
    EXPECT_FALSE(MenuInformazioni(s, ui));
    EXPECT_EQ(ui.ultimoBox().testo, "Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema!");
    EXPECT_EQ(ui.ultimoBox().titolo, "ERRORE SULLA RIDUZIONE");
    EXPECT_EQ(ui.ultimoBox().icona, Icona::Esclamazione);
}

TEST(Form9, SenzaListaERapporti) {
    Sistema s;
    InterfacciaScriptata ui;
    s.NumColonne = 30;
    s.NumCombinazioni = 100;
    s.TipoGaranzia = 3;
    s.Command2 = "Ruota di Bari";
    Form9 f(s, ui);
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Condizionato senza nessuna riduzione. Attualmente le giocate non sono in lista.");
    EXPECT_EQ(f.CondInt, "1: 3");
    EXPECT_EQ(f.RidInt, "-");
    EXPECT_EQ(f.RidCond, "-");
    EXPECT_EQ(f.Tipogiocata, "Ruota di Bari");
    s.TipoGaranzia = 0;
    for (int i = 0; i < 7; ++i) s.MSFlexGrid1.AddItem(" 1  2  3 ");
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Condizionato senza nessuna riduzione. Attualmente le giocate del sistema sono in lista.");
    EXPECT_EQ(f.RidCond, "1: 4");  // 30 / 7 cut down
    EXPECT_EQ(f.RidInt, "1: 14");
}

TEST(Form9, RigaDecisaDalleOpzioniEDaGaranziaAttiva) {
    // A fast reduction at terno from the dialog: the dialog is unloaded, so the line
    // says cinquina, and "non al 100%" since GaranziaAttiva was never set.
    Sistema s;
    InterfacciaScriptata ui;
    prova_rid::Sviluppa(s, prova::Numeri(9), 5);
    s.NumCombinazioni = 126;
    Form5 d(s, ui);
    d.carica();
    d.clickOption(3);
    ASSERT_TRUE(d.clickCommand1());
    for (int64_t c = 1; c <= s.NumRidotte; ++c) s.MSFlexGrid1.AddItem(" 1  2  3  4  5 ");
    Form9 f(s, ui);
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Ridotto a garanzia cinquina non al 100%.");
    // An accurate one sets GaranziaAttiva for good.
    Form5 e(s, ui);
    e.carica();
    e.clickOption(3);
    e.clickCheck2();
    ASSERT_TRUE(e.clickCommand1());
    s.MSFlexGrid1.AddItem(" 1  2  3  4  5 ");
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Ridotto a garanzia cinquina.");
    s.form5.Option = {false, false, true, false};
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Ridotto a garanzia terno.");
    s.form5.Option = {false, false, false, false};  // none: the line keeps its text
    f.attiva();
    EXPECT_EQ(f.TipoSistema, "Ridotto a garanzia terno.");
}
