// The system file of a system made through the dialogs: its exact bytes, and the
// same system read back and written again.

#include "core/errori.h"
#include "core/form2.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "files/aiuti_file.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zef;
using prova::Cartella;
namespace fs = std::filesystem;

namespace {

// A small developed, reduced and priced system with a hand-typed row.
void SistemaDiProva(Sistema& s, InterfacciaScriptata& ui) {
    prova::ImpostaPronostico(s, {3, 9, 27, 45, 81});
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = 1;
    f20.Text1 = "1";
    f20.clickCommand1();
    s.ColonneRidotte.dimensiona(3, 2);
    s.NumRidotte = 2;
    for (int p = 1; p <= 3; ++p) {
        s.ColonneRidotte.set(p, 1, s.colonne.get(p, 1));
        s.ColonneRidotte.set(p, 2, s.colonne.get(p, 10));
    }
    s.TipoGaranzia = 2;
    s.GaranziaAttiva = true;
    Visualizza(s, ui);
    Form17 f17(s);
    f17.digita("0102");
    f17.clickCommand1();
    Form2 f2(s, ui);
    f2.clickOption1(7);
    f2.clickCheck(1, true);
    f2.clickChkAmbo(4, true);
    f2.clickChkAmbo(3, true);
    f2.clickCommand1();
}

}  // namespace

TEST(FileSistema, ByteScrittiNellOrdineENeiFormiDelFormato) {
    ImpostaSeparatoreDecimale(',');
    Cartella c;
    Sistema s;
    InterfacciaScriptata ui;
    SistemaDiProva(s, ui);
    ScriviSistema(s, c.file("a.zfr"));
    std::string b = prova::LeggiFile(c.file("a.zfr"));
    std::string atteso;
    for (int i = 1; i <= 90; ++i) atteso += (i == 3 || i == 9 || i == 27 || i == 45 || i == 81) ? "1\r\n" : "0\r\n";
    atteso += "2\r\n";
    atteso += "\"CONDIZIONATE: 10\"\r\n\"RIDOTTE: 2\"\r\n\"COSTO SISTEMA \x80: 4,5\"\r\n";
    atteso += "3\r\n10\r\n";
    const int pr[] = {3, 9, 27, 45, 81};
    std::vector<std::vector<int>> col;
    for (int a = 0; a < 5; ++a)
        for (int b2 = a + 1; b2 < 5; ++b2)
            for (int d = b2 + 1; d < 5; ++d) col.push_back({pr[a], pr[b2], pr[d]});
    for (auto& v : col)
        for (int n : v) atteso += std::to_string(n) + "\r\n";
    atteso += "2\r\n";
    for (int n : col[0]) atteso += std::to_string(n) + "\r\n";
    for (int n : col[9]) atteso += std::to_string(n) + "\r\n";
    atteso += "3\r\n\" 3  9  27\"\r\n\" 27 45 81\"\r\n\"01 02" + std::string(24, ' ') + "\"\r\n";
    for (int i = 0; i <= 10; ++i) atteso += i == 7 ? "#TRUE#\r\n" : "#FALSE#\r\n";
    atteso += "1\r\n0\r\n0\r\n0\r\n";
    atteso += "\"1,5\"\r\n\"0,00\"\r\n\"0,00\"\r\n\"0,00\"\r\n";
    atteso += "\"Roma, , Ambo \x80 1,50, , , \"\r\n";
    atteso += "1.5\r\n#TRUE#\r\n1\r\n";
    EXPECT_EQ(b, atteso);
    ImpostaSeparatoreDecimale(0);
}

TEST(FileSistema, RiletturaEdUnNuovoSalvataggioDannoGliStessiByte) {
    Cartella c;
    Sistema s;
    InterfacciaScriptata ui;
    SistemaDiProva(s, ui);
    s.Command2 = "Tutte le ruote, Estratto € 1,00, , , , ";
    ScriviSistema(s, c.file("a.zfr"));
    Sistema t;
    InterfacciaScriptata ui2;
    ui2.fileApri.push_back(c.file("a.zfr"));
    Apri(t, ui2);
    EXPECT_TRUE(ui2.box.empty());
    EXPECT_EQ(t.Command2, s.Command2);
    EXPECT_EQ(t.NumColonne, 10);
    EXPECT_EQ(t.NumRidotte, 2);
    EXPECT_EQ(t.MSFlexGrid1.Rows(), 3);
    EXPECT_EQ(t.MSFlexGrid1.riga(2).substr(0, 5), "01 02");  // the hand-typed row stays as it was
    EXPECT_EQ(t.ListaCol, "3");
    EXPECT_EQ(t.Label2, "5");
    EXPECT_EQ(t.NumPronostico, 5);
    EXPECT_EQ(t.Pronostico, s.Pronostico);
    EXPECT_EQ(t.DistanzaMin, 1);
    EXPECT_TRUE(t.GaranziaAttiva);
    EXPECT_EQ(t.titolo, "Zefiranto 2.0 -  SISTEMA: " + c.file("a.zfr"));
    EXPECT_TRUE(t.SistemaSalvato);
    EXPECT_TRUE(t.SalvaAbilitato);
    EXPECT_DOUBLE_EQ(t.NumCombinazioni, 0.0);  // C(5, 6) by the count so far
    // level 2 comes back with the reduction dialog's third option
    EXPECT_EQ(t.form5.Option, (std::array<bool, 4>{false, false, true, false}));
    ScriviSistema(t, c.file("b.zfr"));
    EXPECT_EQ(prova::LeggiFile(c.file("a.zfr")), prova::LeggiFile(c.file("b.zfr")));
}

TEST(FileSistema, UnConteggioDiRigheOltreQuelleCheCiSonoSiFermaAllaFine) {
    Cartella c;
    Sistema buono;
    InterfacciaScriptata ui0;
    SistemaDiProva(buono, ui0);
    ScriviSistema(buono, c.file("a.zfr"));
    std::string g = prova::LeggiFile(c.file("a.zfr"));
    g.replace(g.find("3\r\n\" 3"), 1, "99999999");
    prova::ScriviFile(c.file("g.zfr"), g);
    Sistema s;
    InterfacciaScriptata ui;
    ui.fileApri.push_back(c.file("g.zfr"));
    Apri(s, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Input oltre la fine del file");
    EXPECT_EQ(s.NumColonne, 10);
    EXPECT_EQ(s.NumRidotte, 2);
    // the three rows, then the 23 values after them taken as rows, up to the end
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 3 + 11 + 4 + 4 + 4);
    EXPECT_EQ(s.MSFlexGrid1.riga(3), "#FALSE#");
    EXPECT_EQ(s.MSFlexGrid1.riga(25), "1");
    EXPECT_EQ(s.titolo, titoli::NonSalvato);
}
