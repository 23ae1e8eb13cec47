// The system file: exact bytes, round trips, files from the old platform, bad files.

#include "core/errori.h"
#include "core/form2.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zef;
namespace fs = std::filesystem;

namespace {

struct Cartella {
    fs::path p;
    Cartella() {
        p = fs::temp_directory_path() / ("zef_file_" + std::to_string(::getpid()) + "_" + std::to_string(rand()));
        fs::create_directories(p);
    }
    ~Cartella() { fs::remove_all(p); }
    std::string file(const std::string& n) const { return (p / n).string(); }
};

std::string Leggi(const std::string& f) {
    std::ifstream in(f, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}
void Scrivi(const std::string& f, const std::string& byte) {
    std::ofstream out(f, std::ios::binary);
    out << byte;
}

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
    std::string b = Leggi(c.file("a.zfr"));
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
    EXPECT_EQ(Leggi(c.file("a.zfr")), Leggi(c.file("b.zfr")));
}

TEST(FileSistema, FileScrittoSuWindowsSiCarica) {
    ImpostaSeparatoreDecimale(',');
    Cartella c;
    std::string b;
    for (int i = 1; i <= 90; ++i) b += (i <= 6) ? "1\r\n" : "0\r\n";
    b += "0\r\n\"CONDIZIONATE: 1\"\r\n\"RIDOTTE: 0\"\r\n\"COSTO SISTEMA \x80: 2,5\"\r\n";
    b += "6\r\n1\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n0\r\n";
    b += "1\r\n\" 1  2  3  4  5  6 \"\r\n";
    for (int i = 0; i <= 10; ++i) b += "#FALSE#\r\n";
    b += "0\r\n1\r\n0\r\n0\r\n\"0,00\"\r\n\"2,5\"\r\n\"0,00\"\r\n\"0,00\"\r\n";
    b += "\"Tutte le ruote, , , Terno \x80 2,50, , \"\r\n2.5\r\n#FALSE#\r\n0\r\n";
    Scrivi(c.file("w.zfr"), b);
    Sistema s;
    InterfacciaScriptata ui;
    ui.fileApri.push_back(c.file("w.zfr"));
    Apri(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 2,5");
    EXPECT_EQ(s.Command2, "Tutte le ruote, , , Terno € 2,50, , ");
    EXPECT_EQ(s.CostoColonna, Currency::daDecimillesimi(25000));
    EXPECT_TRUE(s.form2.Option1[11]);  // none of 0..10 on: the twelfth stays as loaded
    EXPECT_EQ(s.form2.testi[2], "2,5");
    EXPECT_DOUBLE_EQ(s.NumCombinazioni, 1.0);
    EXPECT_FALSE(s.PronosticoNonSviluppato);
    ImpostaSeparatoreDecimale(0);
}

TEST(FileSistema, FileCattiviSiFermanoDoveSonoSenzaCrollare) {
    Cartella c;
    Sistema buono;
    InterfacciaScriptata ui0;
    SistemaDiProva(buono, ui0);
    ScriviSistema(buono, c.file("a.zfr"));
    const std::string b = Leggi(c.file("a.zfr"));
    // cut at many points: every load ends with one box and keeps what it read; a
    // cut between two lines runs out of input, a cut inside a value may read it as
    // a value of another form
    const std::string fine = "Si è verificato l'errore seguente: Input oltre la fine del file";
    const std::string forma = "Si è verificato l'errore seguente: Tipo non corrispondente";
    for (size_t taglio = 0; taglio + 3 < b.size(); taglio += 3) {  // the last value alone still reads
        Scrivi(c.file("t.zfr"), b.substr(0, taglio));
        Sistema s;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("t.zfr"));
        Apri(s, ui);
        ASSERT_EQ(ui.box.size(), 1u) << taglio;
        if (taglio == 0 || b.compare(taglio - 2, 2, "\r\n") == 0) EXPECT_EQ(ui.box[0].testo, fine) << taglio;
        else EXPECT_TRUE(ui.box[0].testo == fine || ui.box[0].testo == forma) << taglio << ui.box[0].testo;
        EXPECT_NE(s.titolo.substr(0, 26), "Zefiranto 2.0 -  SISTEMA: ") << taglio;
        if (taglio > 90 * 3) EXPECT_EQ(s.Label2, "5") << taglio;  // the pad read stays
    }
    // a count far beyond the rows present
    {
        std::string g = b;
        g.replace(g.find("3\r\n\" 3"), 1, "99999999");
        Scrivi(c.file("g.zfr"), g);
        Sistema s;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("g.zfr"));
        Apri(s, ui);
        ASSERT_EQ(ui.box.size(), 1u);
        EXPECT_EQ(s.NumColonne, 10);
        EXPECT_GE(s.MSFlexGrid1.Rows(), 3);
    }
    // binary garbage, an empty file, a missing one
    std::mt19937 rng(7);
    std::string spazzatura;
    for (int i = 0; i < 5000; ++i) spazzatura += static_cast<char>(rng());
    Scrivi(c.file("x.zfr"), spazzatura);
    Scrivi(c.file("vuoto.zfr"), "");
    for (std::string f : {c.file("x.zfr"), c.file("vuoto.zfr"), c.file("manca.zfr")}) {
        Sistema s;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(f);
        Apri(s, ui);
        ASSERT_EQ(ui.box.size(), 1u) << f;
        EXPECT_EQ(ui.box[0].testo.rfind("Si è verificato l'errore seguente: ", 0), 0u) << f;
    }
    // columns beyond the store, numbers that are not numbers
    {
        std::string g = b;
        size_t dopoPannelli = g.find("\"COSTO");
        dopoPannelli = g.find("\r\n", dopoPannelli) + 2;
        g.replace(dopoPannelli, g.find("\r\n", dopoPannelli + 3) - dopoPannelli, "3\r\n30000000");
        Scrivi(c.file("n.zfr"), g);
        Sistema s;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("n.zfr"));
        Apri(s, ui);
        EXPECT_EQ(ui.box.size(), 1u);
    }
}

TEST(FileSistema, AnnullareNonDiceNullaESalvaSenzaNomeNonFaNulla) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {1, 2, 3});
    ui.fileApri.push_back(std::nullopt);
    ui.fileSalva.push_back(std::nullopt);
    Apri(s, ui);  // SistemaSalvato is True at start: no prompt
    SalvaConNome(s, ui);
    Salva(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(s.NumPronostico, 3);  // rebuilt from the pad whatever happened
    EXPECT_EQ(s.titolo, "Zefiranto 2.0 - sistema non salvato");
}

TEST(FileSistema, ApriChiedeDiSalvareUnSistemaNonSalvato) {
    Cartella c;
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {1, 2, 3});
    s.SistemaSalvato = false;
    ui.risposte.push_back(Risposta::Si);
    ui.fileSalva.push_back(c.file("prima.zfr"));
    ui.fileApri.push_back(std::nullopt);
    Apri(s, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Vuoi salvare il sistema ?");
    EXPECT_EQ(ui.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(ui.box[0].icona, Icona::Esclamazione);
    EXPECT_TRUE(fs::exists(c.file("prima.zfr")));
    EXPECT_TRUE(s.SistemaSalvato);
    EXPECT_EQ(s.titolo, "Zefiranto 2.0 -  SISTEMA: " + c.file("prima.zfr"));
}

TEST(FileSistema, SalvataggioImpossibileMostraLErrore) {
    Sistema s;
    InterfacciaScriptata ui;
    ui.fileSalva.push_back("/nessuna/cartella/x.zfr");
    SalvaConNome(s, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo.rfind("Si è verificato l'errore seguente: ", 0), 0u);
    EXPECT_FALSE(s.SalvaAbilitato);
}
