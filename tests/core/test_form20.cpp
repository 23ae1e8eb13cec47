// The development dialog and the fixed-numbers dialog.

#include "core/errori.h"
#include "core/form20.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

TEST(Form20, DimensioneOltreIlPronosticoERifiutataSenzaToccareNulla) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {5, 6, 7});
    s.NumColonne = 12;
    s.pannelli[0] = "CONDIZIONATE: 12";
    Form20 f(s, ui);
    f.carica();
    f.visibile = true;
    f.Combo1 = 2;  // QUARTINE from three numbers
    bool condizioni = false;
    f.mostraForm28 = [&] { condizioni = true; };
    f.clickCommand4();
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 2u);
    for (auto& b : ui.box) {
        EXPECT_EQ(b.testo, Form20::MessaggioNonSviluppabile);
        EXPECT_EQ(b.titolo, "");
        EXPECT_EQ(b.icona, Icona::Critico);
    }
    EXPECT_FALSE(condizioni);
    EXPECT_EQ(s.NumColonne, 12);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 12");
    EXPECT_TRUE(f.visibile);
}

TEST(Form20, AvviaAzzeraContatoriListaEPannelliPoiSvilupp) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(8));
    s.NumRidotte = 4;
    s.TipoGaranzia = 3;
    s.MSFlexGrid1.AddItem(" 1  2 ");
    s.ListaCol = "1";
    s.CostoColonna = Currency::daDecimillesimi(15000);  // 1.50
    s.PercentualiValide = true;
    s.PronosticoNonSviluppato = true;
    s.SistemaSalvato = true;
    Form20 f(s, ui);
    f.carica();
    f.Combo1 = 1;
    f.Text1 = "2";
    f.clickCommand1();
    EXPECT_EQ(s.NumRidotte, 0);
    EXPECT_EQ(s.TipoGaranzia, 0);
    EXPECT_EQ(s.SviluppoK, 3);
    EXPECT_EQ(s.DistanzaMin, 2);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
    EXPECT_EQ(s.NumColonne, 56);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 56");
    EXPECT_EQ(s.pannelli[1], "RIDOTTE: 0");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: " + Currency::daInteri(84).testoLocale());
    EXPECT_FALSE(s.PercentualiValide);
    EXPECT_FALSE(s.PronosticoNonSviluppato);
    EXPECT_FALSE(s.SistemaSalvato);
    // the dialog is unloaded: its controls are back to their start values
    EXPECT_FALSE(f.caricato);
    EXPECT_EQ(f.Combo1, 1);
    EXPECT_EQ(f.Text1, "0");
    // the progress window came up with its captions and went away
    ASSERT_FALSE(ui.avanzamenti.empty());
    EXPECT_EQ(ui.avanzamenti.front().etichetta, "Sviluppo in corso...");
    EXPECT_EQ(ui.avanzamenti.front().etichetta1, "Combinazioni ok:");
    EXPECT_EQ(ui.avanzamenti.front().etichetta2, "Combinazioni esaminate:");
    EXPECT_EQ(ui.avanzamenti.front().suggerimento, "ESC per interrompere");
    EXPECT_EQ(ui.avanzamentiAperti, 0);
}

TEST(Form20, DistanzaNonNumericaFermaAvviaConLErrore) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(8));
    Form20 f(s, ui);
    f.carica();
    f.Text1 = "";
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Errore: Tipo non corrispondente");
    EXPECT_EQ(s.NumColonne, 0);
    EXPECT_EQ(ui.avanzamenti.size(), 0u);
    f.Text1 = "99999";
    f.clickCommand1();
    EXPECT_EQ(ui.ultimoBox().testo, "Errore: Overflow");
}

TEST(Form12, AlPiuKMenoUnaFissa) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {4, 8, 15, 16, 23, 42});
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = 1;  // TERZINE: two fixed at most
    Form12 f(s, f20);
    f.carica();
    ASSERT_EQ(f.List1, (std::vector<std::string>{"4", "8", "15", "16", "23", "42"}));
    f.clickList1(4, true);
    f.clickList1(1, true);
    EXPECT_EQ(s.NumFissi, 2);
    EXPECT_EQ(s.NumeriFissi[1], 8);   // list order, not click order
    EXPECT_EQ(s.NumeriFissi[2], 23);
    f.clickList1(0, true);  // a third: the row past the limit is unticked
    EXPECT_EQ(s.NumFissi, 2);
    EXPECT_EQ(s.NumeriFissi[1], 4);
    EXPECT_EQ(s.NumeriFissi[2], 8);
    EXPECT_FALSE(f.selezionata[4]);
    EXPECT_TRUE(f.selezionata[0]);
    // Resetta clears the selection; the count waits for the next click
    f.clickCommand2();
    EXPECT_EQ(s.NumFissi, 2);
    EXPECT_EQ(std::count(f.selezionata.begin(), f.selezionata.end(), true), 0);
    f.clickCommand1();
    EXPECT_EQ(s.NumFissi, 0);
    // unloading forgets the fixed numbers and reshapes the array 0..5
    f.clickList1(2, true);
    f.scarica();
    EXPECT_EQ(s.NumFissi, 0);
    EXPECT_EQ(s.NumeriFissi.size(), 6u);
    EXPECT_EQ(s.NumeriFissiBase, 0);
}

TEST(Form12, SettimaFissaDaOttineEsceDallArray) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(12));
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = 6;  // OTTINE: seven allowed by the count, six by the array
    Form12 f(s, f20);
    f.carica();
    for (int r = 0; r < 6; ++r) f.clickList1(r, true);
    EXPECT_EQ(s.NumFissi, 6);
    try {
        f.clickList1(6, true);
        FAIL() << "no error";
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.numero, 9);
    }
    EXPECT_EQ(s.NumFissi, 7);
    // shown as a run-time error box at the event boundary, and the program goes on
    EseguiEvento(ui, [&] { f.clickList1(6, true); });
    EXPECT_EQ(ui.ultimoBox().testo, "Errore di run-time '9':\n\nIndice non incluso nell'intervallo");
}

TEST(Form12, DialogoDelloSviluppoScaricatoRileggeTerzine) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(10));
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = 5;
    f20.scarica();
    Form12 f(s, f20);
    f.carica();
    for (int r = 0; r < 5; ++r) f.clickList1(r, true);
    EXPECT_EQ(s.NumFissi, 2);
}
