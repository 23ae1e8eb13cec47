// The play list: building, deleting, adding by hand, repricing.

#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

#include <gtest/gtest.h>

using namespace zef;

namespace {
void Riempi(Colonne& c, int k, const std::vector<std::vector<int>>& colonne) {
    c.dimensiona(k, 1000);
    for (size_t i = 0; i < colonne.size(); ++i)
        for (int p = 0; p < k; ++p) c.set(p + 1, static_cast<int64_t>(i) + 1, static_cast<uint8_t>(colonne[i][p]));
}
std::vector<std::string> Righe(const Sistema& s) {
    std::vector<std::string> r;
    for (int64_t i = 0; i < s.MSFlexGrid1.Rows(); ++i) r.emplace_back(s.MSFlexGrid1.riga(i));
    return r;
}
}  // namespace

TEST(Righe, FormatoATreCaratteri) {
    uint8_t a[] = {7, 42, 90};
    EXPECT_EQ(TestoRiga(a, 3), " 7  42 90");
    uint8_t d[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    std::string r = TestoRiga(d, 10);
    EXPECT_EQ(r.size(), 30u);
    for (int p = 1; p <= 10; ++p) EXPECT_EQ(NumeroInRiga(r, p), p);
    EXPECT_EQ(NumeroInRiga(" 7 ", 2), 0);
}

TEST(Visualizza, NienteInMemoria) {
    Sistema s;
    InterfacciaScriptata ui;
    Visualizza(s, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Nessuna giocata presente in memoria!");
    EXPECT_EQ(ui.box[0].titolo, "FINESTRA INFORMATIVA");
    EXPECT_EQ(ui.box[0].icona, Icona::Informazione);
}

TEST(Visualizza, LeRidottePrevalgonoSulleCondizionate) {
    Sistema s;
    InterfacciaScriptata ui;
    Riempi(s.colonne, 3, {{1, 2, 3}, {1, 2, 4}, {1, 3, 4}, {2, 3, 4}});
    s.NumColonne = 4;
    Riempi(s.ColonneRidotte, 3, {{1, 2, 3}, {2, 3, 4}});
    s.NumRidotte = 2;
    s.TipoGaranzia = 2;
    s.CostoColonna = Currency::daDecimillesimi(12500);
    s.PercentualiValide = true;
    Visualizza(s, ui);
    EXPECT_EQ(Righe(s), (std::vector<std::string>{" 1  2  3 ", " 2  3  4 "}));
    EXPECT_EQ(s.ListaCol, "2");
    EXPECT_EQ(s.TipoGaranzia, 2);
    EXPECT_EQ(s.pannelli[1], "RIDOTTE: 2");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: " + Currency::daDecimillesimi(25000).testoLocale());
    EXPECT_FALSE(s.PercentualiValide);
    // without reduced columns the developed ones come, and the guarantee is gone
    s.NumRidotte = 0;
    Visualizza(s, ui);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 4);
    EXPECT_EQ(s.ListaCol, "4");
    EXPECT_EQ(s.TipoGaranzia, 0);
    EXPECT_EQ(s.pannelli[1], "RIDOTTE: 0");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 5");
}

TEST(Elimina, SelezioneDrittaOInvertitaTolgonoLeStesseRighe) {
    for (bool invertita : {false, true}) {
        Sistema s;
        for (int i = 0; i < 6; ++i) s.MSFlexGrid1.AddItem("r" + std::to_string(i));
        s.ListaCol = "6";
        s.CostoColonna = Currency::daInteri(1);
        s.MSFlexGrid1.Row = invertita ? 3 : 1;
        s.MSFlexGrid1.RowSel = invertita ? 1 : 3;
        EliminaSelezionate(s);
        EXPECT_EQ(Righe(s), (std::vector<std::string>{"r0", "r4", "r5"}));
        EXPECT_EQ(s.ListaCol, "3");
        EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 3");
    }
}

TEST(Elimina, LUnicaRigaSvuotaLaLista) {
    Sistema s;
    s.MSFlexGrid1.AddItem(" 1  2 ");
    s.ListaCol = "1";
    s.CostoColonna = Currency::daInteri(2);
    EliminaSelezionate(s);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 0");
    EliminaSelezionate(s);  // nothing to do
    EXPECT_EQ(s.ListaCol, "0");
    // the popup item: current row, or clear on the last one
    for (int i = 0; i < 3; ++i) s.MSFlexGrid1.AddItem("x" + std::to_string(i));
    s.MSFlexGrid1.Row = 1;
    EliminaRigaCorrente(s);
    EXPECT_EQ(Righe(s), (std::vector<std::string>{"x0", "x2"}));
    EliminaRigaCorrente(s);
    EliminaRigaCorrente(s);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
}

TEST(Form17, LaColonnaScrittaEntraComEStaSoloNellaLista) {
    Sistema s;
    s.CostoColonna = Currency::daDecimillesimi(5000);
    {
        Form17 f(s);
        f.digita("0102x9");
        f.clickCommand1();
        EXPECT_TRUE(f.scaricato());
    }
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(s.MSFlexGrid1.riga(0), "01 02 9" + std::string(22, ' '));
    EXPECT_EQ(s.ListaCol, "1");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: " + std::string("0") + SeparatoreDecimale() + "5");
    EXPECT_EQ(s.NumColonne, 0);
    {
        Form17 f(s);  // nothing typed: nothing added
        f.clickCommand1();
    }
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 1);
    {
        Form17 f(s);  // no check of range or forecast
        f.digita("9999");
        f.clickCommand1();
    }
    EXPECT_EQ(s.MSFlexGrid1.riga(1).substr(0, 5), "99 99");
}
