// Apri, Salva and Salva con nome against a plain writer of the format, on random
// systems; files cut at every byte, foreign files, counts a file must not impose,
// and the flags, titles and bar of the three commands.

#include "core/errori.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "files/aiuti_file.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <random>

using namespace zef;
using namespace zef::prova;

namespace {

// The file as the format's table lists it, one value a line, written the plain way.
std::string ScritturaLetterale(const Sistema& s) {
    std::string o;
    auto riga = [&](const std::string& v) { o += v + "\r\n"; };
    auto testo = [&](const std::string& v) { riga("\"" + Utf8InCp1252(v) + "\""); };
    auto vero = [&](bool b) { riga(b ? "#TRUE#" : "#FALSE#"); };
    for (int i = 1; i <= 90; ++i) riga(s.pad[i - 1] ? "1" : "0");
    riga(std::to_string(s.TipoGaranzia));
    for (int p = 0; p < 3; ++p) testo(s.pannelli[p]);
    riga(std::to_string(s.SviluppoK));
    riga(std::to_string(s.NumColonne));
    for (int c = 1; c <= s.NumColonne; ++c)
        for (int p = 1; p <= s.SviluppoK; ++p) riga(std::to_string(s.colonne.get(p, c)));
    riga(std::to_string(s.NumRidotte));
    for (int c = 1; c <= s.NumRidotte; ++c)
        for (int p = 1; p <= s.SviluppoK; ++p) riga(std::to_string(s.ColonneRidotte.get(p, c)));
    riga(std::to_string(s.MSFlexGrid1.Rows()));
    for (int r = 0; r < s.MSFlexGrid1.Rows(); ++r) testo(std::string(s.MSFlexGrid1.riga(r)));
    for (int i = 0; i <= 10; ++i) vero(s.form2.Option1[i]);
    for (int i = 1; i <= 4; ++i) riga(std::to_string(s.form2.Check[i]));
    for (int i = 1; i <= 4; ++i) testo(s.form2.testi[i]);
    testo(s.Command2);
    riga(s.CostoColonna.testoPunto());
    vero(s.GaranziaAttiva);
    riga(std::to_string(s.DistanzaMin));
    return o;
}

const char* Parole[] = {"Però è già", " 1  2  3", "01 02 03 04", "città €", "", "perché"};

// A random system as the program could hold it: one wheel option on, the price
// panel as the row count makes it.
void SistemaCasuale(Sistema& s, std::mt19937& rng, int maxColonne) {
    std::vector<int> pr;
    for (int n = 1; n <= 90; ++n)
        if (rng() % 6 == 0) pr.push_back(n);
    ImpostaPronostico(s, pr);
    const int k = static_cast<int>(rng() % 11);
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k);
    s.NumColonne = static_cast<int32_t>(rng() % (maxColonne + 1));
    for (int c = 1; c <= s.NumColonne && k > 0; ++c)
        for (int p = 1; p <= k; ++p) s.colonne.set(p, c, static_cast<uint8_t>(1 + rng() % 90));
    s.NumRidotte = rng() % 3 ? static_cast<int32_t>(rng() % (maxColonne / 2 + 1)) : 0;
    if (s.NumRidotte > 0) s.ColonneRidotte.dimensiona(k, s.NumRidotte);
    for (int c = 1; c <= s.NumRidotte && k > 0; ++c)
        for (int p = 1; p <= k; ++p) s.ColonneRidotte.set(p, c, static_cast<uint8_t>(1 + rng() % 90));
    const int righe = static_cast<int>(rng() % (maxColonne + 2));
    for (int r = 0; r < righe; ++r) {
        if (rng() % 4 && k > 0 && s.NumColonne > 0) s.MSFlexGrid1.AddItem(TestoRiga(s.colonne.colonna(1 + rng() % s.NumColonne), k));
        else s.MSFlexGrid1.AddItem(Parole[rng() % std::size(Parole)]);
    }
    s.ListaCol = TestoSemplice(righe);
    s.TipoGaranzia = static_cast<int16_t>(rng() % 6);
    s.GaranziaAttiva = rng() % 2;
    s.DistanzaMin = static_cast<int16_t>(static_cast<int>(rng() % 30) - 5);
    s.CostoColonna = Currency::daDecimillesimi(static_cast<int64_t>(rng() % 5000000) - 100000);
    s.pannelli[0] = pannello::Condizionate(s.NumColonne);
    s.pannelli[1] = pannello::Ridotte(s.NumRidotte);
    Riprezza(s);
    s.form2.Option1.fill(false);
    s.form2.Option1[rng() % 12] = true;
    for (int i = 1; i <= 4; ++i) s.form2.Check[i] = static_cast<int>(rng() % 2);
    for (int i = 1; i <= 4; ++i) s.form2.testi[i] = rng() % 2 ? "0,00" : "1,5";
    s.Command2 = rng() % 2 ? "Non selezionata" : "Roma, , Ambo € 1,50, , , ";
}

// Offset just past the n-th line.
size_t DopoRighe(const std::string& b, int n) {
    size_t p = 0;
    for (int i = 0; i < n; ++i) p = b.find("\r\n", p) + 2;
    return p;
}

// Whatever a load left behind, the later commands must not walk past a store.
void NienteOltreLeColonne(Sistema& s, InterfacciaScriptata& ui, const std::string& altrove) {
    if (s.SviluppoK > 0) {
        EXPECT_LE(s.NumColonne, s.colonne.capacita());
        EXPECT_GE(s.NumColonne, 0);
    }
    if (s.NumRidotte > 0 && s.ColonneRidotte.k() > 0) {
        EXPECT_LE(s.NumRidotte, s.ColonneRidotte.capacita());
    }
    std::string vecchio = s.FileName;
    s.FileName = altrove;  // a new name each time: no file is replaced
    EseguiEvento(ui, [&] { Salva(s, ui); });
    s.FileName = vecchio;
    EseguiEvento(ui, [&] { Visualizza(s, ui); });
}

}  // namespace

TEST(ApriSalva, SistemiCasualiScrittiComeIlFormatoLiElencaERiletti) {
    Separatore sep(',');
    Cartella c;
    std::mt19937 rng(2026);
    for (int prova = 0; prova < 60; ++prova) {
        Sistema s;
        SistemaCasuale(s, rng, prova < 50 ? 40 : 3000);
        const std::string f = c.file("r.zfr");
        InterfacciaConBarra ui;
        ui.fileSalva.push_back(f);
        SalvaConNome(s, ui);
        ASSERT_TRUE(ui.box.empty()) << prova;
        const std::string b = LeggiFile(f);
        ASSERT_EQ(b, ScritturaLetterale(s)) << prova;

        Sistema t;
        t.form2.Check[0] = 1;
        t.form2.caricato = true;  // an open play dialog keeps its Estratto box
        ui.fileApri.push_back(f);
        Apri(t, ui);
        ASSERT_TRUE(ui.box.empty()) << prova << ' ' << ui.ultimoBox().testo;
        EXPECT_EQ(t.pad, s.pad);
        EXPECT_EQ(t.Label2, s.Label2);
        EXPECT_EQ(t.NumPronostico, s.NumPronostico);
        EXPECT_EQ(t.TipoGaranzia, s.TipoGaranzia);
        EXPECT_EQ(t.pannelli, s.pannelli);
        EXPECT_EQ(t.SviluppoK, s.SviluppoK);
        EXPECT_EQ(t.NumColonne, s.NumColonne);
        EXPECT_EQ(t.NumRidotte, s.NumRidotte);
        for (int col = 1; col <= s.NumColonne; ++col)
            for (int p = 1; p <= s.SviluppoK; ++p) ASSERT_EQ(t.colonne.get(p, col), s.colonne.get(p, col));
        for (int col = 1; col <= s.NumRidotte; ++col)
            for (int p = 1; p <= s.SviluppoK; ++p) ASSERT_EQ(t.ColonneRidotte.get(p, col), s.ColonneRidotte.get(p, col));
        ASSERT_EQ(t.MSFlexGrid1.Rows(), s.MSFlexGrid1.Rows());
        for (int r = 0; r < s.MSFlexGrid1.Rows(); ++r) ASSERT_EQ(t.MSFlexGrid1.riga(r), s.MSFlexGrid1.riga(r));
        EXPECT_EQ(t.ListaCol, s.ListaCol);
        EXPECT_EQ(t.form2.Option1, s.form2.Option1);
        EXPECT_EQ(t.form2.Check[0], 1);
        for (int i = 1; i <= 4; ++i) EXPECT_EQ(t.form2.Check[i], s.form2.Check[i]);
        EXPECT_EQ(t.form2.testi, s.form2.testi);
        EXPECT_EQ(t.Command2, s.Command2);
        EXPECT_EQ(t.CostoColonna, s.CostoColonna);
        EXPECT_EQ(t.GaranziaAttiva, s.GaranziaAttiva);
        EXPECT_EQ(t.DistanzaMin, s.DistanzaMin);
        EXPECT_EQ(t.FileName, f);
        EXPECT_EQ(t.titolo, "Zefiranto 2.0 -  SISTEMA: " + f);

        // and saved again, byte for byte the same
        ui.fileSalva.push_back(c.file("r2.zfr"));
        SalvaConNome(t, ui);
        ASSERT_EQ(LeggiFile(c.file("r2.zfr")), b) << prova;
    }
}

TEST(ApriSalva, TagliatoAOgniByteSiFermaDoveStaESenzaCrolli) {
    Cartella c;
    Sistema s;
    {
        InterfacciaScriptata ui;
        ImpostaPronostico(s, {5, 10, 15, 20});
        s.SviluppoK = 3;
        s.colonne.dimensiona(3);
        s.NumColonne = 4;
        const uint8_t col[4][3] = {{5, 10, 15}, {5, 10, 20}, {5, 15, 20}, {10, 15, 20}};
        for (int i = 0; i < 4; ++i) std::copy(col[i], col[i] + 3, s.colonne.colonna(i + 1));
        s.ColonneRidotte.dimensiona(3, 2);
        s.NumRidotte = 2;
        std::copy(col[0], col[0] + 3, s.ColonneRidotte.colonna(1));
        std::copy(col[3], col[3] + 3, s.ColonneRidotte.colonna(2));
        Visualizza(s, ui);
        s.MSFlexGrid1.AddItem("Però è già");
        s.form2.Option1.fill(false);
        s.form2.Option1[7] = true;
        s.Command2 = "Roma, , Ambo € 1,50, , , ";
        s.CostoColonna = Currency::daDecimillesimi(15000);
        s.DistanzaMin = 3;
    }
    const std::string b = ScritturaLetterale(s);
    const size_t finePad = DopoRighe(b, 90);
    const size_t fineColonne = DopoRighe(b, 90 + 1 + 3 + 2 + 4 * 3);
    const std::string prefisso = "Si è verificato l'errore seguente: ";
    for (size_t taglio = 0; taglio <= b.size(); ++taglio) {
        const std::string f = c.file("t.zfr");
        ScriviFile(f, b.substr(0, taglio));
        Sistema t;
        InterfacciaConBarra ui;
        ui.fileApri.push_back(f);
        Apri(t, ui);
        if (taglio + 2 >= b.size()) {  // the last value "3" still reads without its line end
            EXPECT_TRUE(ui.box.empty()) << taglio;
            EXPECT_EQ(t.DistanzaMin, 3);
            continue;
        }
        ASSERT_EQ(ui.box.size(), 1u) << taglio;
        EXPECT_EQ(ui.box[0].testo.rfind(prefisso, 0), 0u) << taglio;
        EXPECT_EQ(t.titolo, titoli::NonSalvato) << taglio;
        EXPECT_FALSE(t.SalvaAbilitato) << taglio;
        EXPECT_FALSE(ui.clessidraAttiva) << taglio;
        ASSERT_FALSE(ui.barra.empty());
        EXPECT_EQ(ui.barra.back().valore, 0) << taglio;
        for (const auto& passo : ui.barra) ASSERT_GT(passo.massimo, passo.minimo) << taglio;  // never a busy bar
        EXPECT_EQ(t.FileName, f);  // the name chosen stays the current one
        // what was read stays
        if (taglio >= finePad) {
            EXPECT_EQ(t.pad, s.pad) << taglio;
            EXPECT_EQ(t.NumPronostico, 4);
            EXPECT_EQ(t.Pronostico, s.Pronostico);
        }
        if (taglio >= fineColonne) {
            EXPECT_EQ(t.NumColonne, 4) << taglio;
            EXPECT_EQ(std::string(reinterpret_cast<const char*>(t.colonne.dati()), 12),
                      std::string(reinterpret_cast<const char*>(s.colonne.dati()), 12));
        }
        NienteOltreLeColonne(t, ui, c.file("dopo" + std::to_string(taglio) + ".zfr"));
    }
}

TEST(ApriSalva, FileEstraneiDannoUnErroreENonCrollano) {
    Cartella c;
    Sistema buono;
    ImpostaPronostico(buono, {1, 2, 3, 4, 5, 6});
    const std::string valido = ScritturaLetterale(buono);
    std::mt19937 rng(3);
    std::string spazzatura;
    for (int i = 0; i < 20000; ++i) spazzatura += static_cast<char>(rng());
    std::string numeri;
    for (int i = 0; i < 2000; ++i) numeri += std::to_string(rng() % 100000) + "\r\n";
    const std::vector<std::pair<std::string, std::string>> casi = {
        {"testo", "Lista della spesa\npane\nlatte\n"},
        {"png", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)},
        {"zip", std::string("PK\x03\x04\x14\0\0\0\x08\0", 10)},
        {"bom", "\xEF\xBB\xBF" + valido},
        {"spazzatura", spazzatura},
        {"numeri", numeri},
        {"solo zeri", std::string(4096, '\0')},
        {"virgolette", std::string(5000, '"')},
        {"k enorme", valido.substr(0, DopoRighe(valido, 94)) + "32767\r\n"},
        {"k negativo", valido.substr(0, DopoRighe(valido, 94)) + "-2\r\n"},
        {"quote al posto dei numeri", valido.substr(0, DopoRighe(valido, 95)) + "\"tanti\"\r\n"},
    };
    for (const auto& [nome, byte] : casi) {
        const std::string f = c.file(nome + ".zfr");
        ScriviFile(f, byte);
        Sistema t;
        InterfacciaConBarra ui;
        ui.fileApri.push_back(f);
        Apri(t, ui);
        ASSERT_EQ(ui.box.size(), 1u) << nome;
        EXPECT_EQ(ui.box[0].testo.rfind("Si è verificato l'errore seguente: ", 0), 0u) << nome;
        EXPECT_EQ(t.titolo, titoli::NonSalvato) << nome;
        EXPECT_FALSE(ui.clessidraAttiva);
        NienteOltreLeColonne(t, ui, c.file("dopo_" + nome + ".zfr"));
    }
}

TEST(ApriSalva, UnaCasellaDelDialogoConUnValoreCheNonPuoAvere) {
    Cartella c;
    Sistema buono;
    ImpostaPronostico(buono, {1, 2});
    std::string b = ScritturaLetterale(buono);
    const size_t check1 = DopoRighe(b, 90 + 1 + 3 + 1 + 1 + 1 + 1 + 11);  // after the options
    b.replace(check1, 1, "3");
    ScriviFile(c.file("c.zfr"), b);
    Sistema t;
    InterfacciaScriptata ui;
    ui.fileApri.push_back(c.file("c.zfr"));
    Apri(t, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Valore della proprietà non valido");
    EXPECT_EQ(t.form2.Check[1], 0);
}

TEST(ApriSalva, RigheVuoteSonoZeriETestiVuotiEdUnaVirgolettaTaglia) {
    Cartella c;
    // empty lines read as 0 and as empty texts, the way the input statement takes
    // them: a file of blank lines is an empty system
    ScriviFile(c.file("v.zfr"), std::string(200, '\n'));
    Sistema t;
    InterfacciaScriptata ui;
    ImpostaPronostico(t, {1, 2});
    ui.fileApri.push_back(c.file("v.zfr"));
    Apri(t, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(t.Label2, "0");
    EXPECT_EQ(t.NumColonne, 0);
    EXPECT_EQ(t.Command2, "");
    EXPECT_EQ(t.pannelli[0], "");

    // a quote inside a row goes out unescaped; read back, the row ends at it and
    // the rest of its line is passed over, and the load goes on
    Sistema s;
    s.MSFlexGrid1.AddItem("Ruota \"X\" no");
    s.MSFlexGrid1.AddItem(" 1  2");
    ui.fileSalva.push_back(c.file("q.zfr"));
    SalvaConNome(s, ui);
    EXPECT_NE(LeggiFile(c.file("q.zfr")).find("\r\n\"Ruota \"X\" no\"\r\n"), std::string::npos);
    Sistema r;
    ui.fileApri.push_back(c.file("q.zfr"));
    Apri(r, ui);
    EXPECT_TRUE(ui.box.empty());
    ASSERT_EQ(r.MSFlexGrid1.Rows(), 2);
    EXPECT_EQ(r.MSFlexGrid1.riga(0), "Ruota ");
    EXPECT_EQ(r.MSFlexGrid1.riga(1), " 1  2");
}

TEST(ApriSalva, ConteggiCheIlDepositoNonRegge) {
    Cartella c;
    Sistema buono;
    ImpostaPronostico(buono, {1, 2, 3, 4, 5, 6, 7});
    const std::string valido = ScritturaLetterale(buono);
    const std::string testa = valido.substr(0, DopoRighe(valido, 94));  // pad, level, panels
    struct Caso {
        std::string resto;
        std::string errore;
    };
    const std::vector<Caso> casi = {
        {"3\r\n30000000\r\n", "Indice non incluso nell'intervallo"},
        {"3\r\n-1\r\n", "Indice non incluso nell'intervallo"},
        {"0\r\n30000000\r\n", "Indice non incluso nell'intervallo"},  // even with no numbers a column
        {"3\r\n0\r\n20000001\r\n", "Indice non incluso nell'intervallo"},
        {"3\r\n0\r\n-7\r\n", "Indice non incluso nell'intervallo"},
        {"11\r\n", "Memoria esaurita"},
        {"3\r\n3000000000\r\n", "Overflow"},
    };
    for (const auto& caso : casi) {
        ScriviFile(c.file("n.zfr"), testa + caso.resto);
        Sistema t;
        InterfacciaScriptata ui;
        {
            // a system already in memory: developed, reduced and listed
            ImpostaPronostico(t, {1, 2, 3});
            t.SviluppoK = 2;
            t.colonne.dimensiona(2);
            t.NumColonne = 3;
            t.ColonneRidotte.dimensiona(2, 1);
            t.NumRidotte = 1;
        }
        ui.fileApri.push_back(c.file("n.zfr"));
        Apri(t, ui);
        ASSERT_EQ(ui.box.size(), 1u) << caso.resto;
        EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: " + caso.errore) << caso.resto;
        EXPECT_EQ(t.Label2, "7");  // the pad was read
        EXPECT_LE(t.NumColonne, t.colonne.capacita());
        EXPECT_LE(t.NumRidotte, t.ColonneRidotte.capacita());
        EXPECT_GE(t.NumRidotte, 0);
        NienteOltreLeColonne(t, ui, c.file("dopo.zfr"));
    }
    // k above the sizes: the size stays what it was
    {
        ScriviFile(c.file("k.zfr"), testa + "11\r\n");
        Sistema t;
        t.SviluppoK = 4;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("k.zfr"));
        Apri(t, ui);
        EXPECT_EQ(t.SviluppoK, 4);
    }
}

TEST(ApriSalva, FileDiWindowsConLettereAccentateSiCaricaESiRiscriveUguale) {
    Separatore sep(',');
    Cartella c;
    // Typed by hand as the old program writes it: Windows-1252, CRLF.
    std::string b;
    for (int i = 1; i <= 90; ++i) b += (i == 7 || i == 8 || i == 49 || i == 90) ? "1\r\n" : "0\r\n";
    b += "0\r\n\"CONDIZIONATE: 2\"\r\n\"RIDOTTE: 0\"\r\n\"COSTO SISTEMA \x80: 3\"\r\n";
    b += "2\r\n2\r\n7\r\n8\r\n49\r\n90\r\n0\r\n";
    b += "3\r\n\" 7  8 \"\r\n\" 49 90\"\r\n\"Per\xF2 \xE8 gi\xE0 \x80 \xAB\xBB\"\r\n";
    for (int i = 0; i <= 10; ++i) b += i == 2 ? "#TRUE#\r\n" : "#FALSE#\r\n";
    b += "1\r\n0\r\n0\r\n0\r\n\"1,00\"\r\n\"0,00\"\r\n\"0,00\"\r\n\"0,00\"\r\n";
    b += "\"Firenze, Ambo \x80 1,00, , , \"\r\n1\r\n#FALSE#\r\n0\r\n";
    ScriviFile(c.file("w.zfr"), b);
    Sistema s;
    InterfacciaScriptata ui;
    ui.fileApri.push_back(c.file("w.zfr"));
    Apri(s, ui);
    ASSERT_TRUE(ui.box.empty()) << ui.ultimoBox().testo;
    EXPECT_EQ(s.MSFlexGrid1.riga(2), "Però è già € «»");
    EXPECT_EQ(s.Command2, "Firenze, Ambo € 1,00, , , ");
    EXPECT_EQ(s.Pronostico, (std::vector<int>{0, 7, 8, 49, 90}));
    EXPECT_DOUBLE_EQ(s.NumCombinazioni, 0.0);  // C(4, 6)
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 3");  // three rows at 1: repriced by the list
    EXPECT_TRUE(s.form2.Option1[2]);
    EXPECT_FALSE(s.form2.Option1[11]);
    ui.fileSalva.push_back(c.file("w2.zfr"));
    SalvaConNome(s, ui);
    EXPECT_EQ(LeggiFile(c.file("w2.zfr")), b);

    // the same file after a trip through a tool that left bare line feeds
    std::string lf;
    for (char ch : b)
        if (ch != '\r') lf += ch;
    ScriviFile(c.file("lf.zfr"), lf);
    Sistema t;
    ui.fileApri.push_back(c.file("lf.zfr"));
    Apri(t, ui);
    ASSERT_TRUE(ui.box.empty());
    EXPECT_EQ(t.MSFlexGrid1.riga(2), "Però è già € «»");
    EXPECT_EQ(t.Command2, s.Command2);
    EXPECT_EQ(t.NumColonne, 2);
}

TEST(ApriSalva, CaricareToccaSoloCioCheIlFileTiene) {
    Cartella c;
    // only a pad and the play settings
    Sistema sorgente;
    ImpostaPronostico(sorgente, {2, 4, 6, 8, 10, 12, 14, 16});
    sorgente.Command2 = "Bari, , Terno € 2,00, , , ";
    ScriviFile(c.file("p.zfr"), ScritturaLetterale(sorgente));

    Sistema t;
    InterfacciaScriptata ui;
    t.NumFissi = 2;
    t.NumeriFissi = {0, 3, 9, 0, 0, 0, 0};
    bool condizioni = false;
    t.ResettaCondizioni = [&] { condizioni = true; };
    struct Filtro : FiltroColonna {
        bool accetta(const uint8_t*, const int*, int) const override { return true; }
        std::unique_ptr<FiltroColonna> clona() const override { return std::make_unique<Filtro>(); }
    };
    auto filtro = std::make_shared<Filtro>();
    t.filtro = filtro;
    t.MSFlexGrid1.AddItem(" 1  2");
    t.NumCombinazioni = 99;
    ui.fileApri.push_back(c.file("p.zfr"));
    Apri(t, ui);
    ASSERT_TRUE(ui.box.empty());
    EXPECT_EQ(t.NumColonne, 0);
    EXPECT_EQ(t.NumRidotte, 0);
    EXPECT_EQ(t.MSFlexGrid1.Rows(), 0);  // the list is cleared and none comes in
    EXPECT_EQ(t.ListaCol, "0");
    EXPECT_EQ(t.Command2, "Bari, , Terno € 2,00, , , ");
    EXPECT_DOUBLE_EQ(t.NumCombinazioni, 28.0);  // C(8, 6): the count of six, whatever the size
    EXPECT_EQ(t.NumFissi, 2);                   // fixed numbers and conditions stay
    EXPECT_EQ(t.NumeriFissi, (std::vector<int16_t>{0, 3, 9, 0, 0, 0, 0}));
    EXPECT_FALSE(condizioni);
    EXPECT_EQ(t.filtro, filtro);  // the conditions in force stay
    EXPECT_EQ(t.NumeriColonnaMax, 8);
}

TEST(ApriSalva, IlLivelloTornaUnaOpzioneSottoNelDialogoDiRiduzione) {
    Cartella c;
    // level 4 comes back with the cinquina option on, and so one below for each
    const std::array<std::array<bool, 4>, 5> attese = {{{false, false, false, true},
                                                        {false, false, true, false},
                                                        {false, true, false, false},
                                                        {true, false, false, false},
                                                        {true, false, false, false}}};
    for (int livello = 1; livello <= 5; ++livello) {
        Sistema s;
        s.TipoGaranzia = static_cast<int16_t>(livello);
        ScriviFile(c.file("g.zfr"), ScritturaLetterale(s));
        Sistema t;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("g.zfr"));
        Apri(t, ui);
        EXPECT_EQ(t.TipoGaranzia, livello);
        EXPECT_EQ(t.form5.Option, attese[livello - 1]) << livello;  // 5: nothing set, the dialog's own default
    }
}

TEST(ApriSalva, LaBarraSegueLaPosizioneInUnitaDi128Byte) {
    Cartella c;
    Sistema s;
    ImpostaPronostico(s, Numeri(20));
    s.SviluppoK = 5;
    s.colonne.dimensiona(5);
    s.NumColonne = 60000;
    for (int col = 1; col <= s.NumColonne; ++col)
        for (int p = 1; p <= 5; ++p) s.colonne.set(p, col, static_cast<uint8_t>(p * 3 + col % 7));
    ScriviFile(c.file("b.zfr"), ScritturaLetterale(s));
    const double massimo = static_cast<double>(LeggiFile(c.file("b.zfr")).size() / 128);
    Sistema t;
    InterfacciaConBarra ui;
    ui.fileApri.push_back(c.file("b.zfr"));
    Apri(t, ui);
    ASSERT_TRUE(ui.box.empty());
    ASSERT_GE(ui.barra.size(), 10u);
    EXPECT_EQ(ui.barra.front().massimo, massimo);
    EXPECT_EQ(ui.barra.front().valore, 0);
    double prima = 0;
    for (size_t i = 0; i + 1 < ui.barra.size(); ++i) {
        EXPECT_EQ(ui.barra[i].massimo, massimo);
        EXPECT_GE(ui.barra[i].valore, prima);
        EXPECT_LE(ui.barra[i].valore, massimo);
        prima = ui.barra[i].valore;
    }
    EXPECT_GT(prima, massimo * 0.9);
    EXPECT_EQ(ui.barra.back().valore, 0);  // back to 0 at the end, on the same range
    EXPECT_EQ(ui.barra.back().massimo, massimo);
    EXPECT_EQ(ui.clessidre, 1);
    EXPECT_FALSE(ui.clessidraAttiva);
}

TEST(ApriSalva, SalvaEConNomeFlagTitoliEFallimenti) {
    Cartella c;
    Sistema s;
    InterfacciaConBarra ui;
    ImpostaPronostico(s, {1, 2, 3});
    s.SistemaSalvato = false;
    s.PercentualiValide = true;

    // no name yet: Salva does nothing at all
    Salva(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_FALSE(s.SistemaSalvato);

    // a cancelled dialog is silent and changes nothing
    ui.fileSalva.push_back(std::nullopt);
    SalvaConNome(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_FALSE(s.SistemaSalvato);
    EXPECT_EQ(s.FileName, "");
    EXPECT_FALSE(s.SalvaAbilitato);

    const std::string f = c.file("s.zfr");
    ui.fileSalva.push_back(f);
    SalvaConNome(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(s.FileName, f);
    EXPECT_EQ(s.titolo, "Zefiranto 2.0 -  SISTEMA: " + f);
    EXPECT_TRUE(s.SistemaSalvato);
    EXPECT_TRUE(s.SalvaAbilitato);
    EXPECT_FALSE(s.PercentualiValide);
    EXPECT_FALSE(ui.clessidraAttiva);

    // Salva writes on the current name without a dialog
    s.SistemaSalvato = false;
    s.pad[50] = true;
    Salva(s, ui);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_TRUE(s.SistemaSalvato);
    EXPECT_EQ(LeggiFile(f), ScritturaLetterale(s));

    // a save that fails half-way shows the error and keeps the file that was there
    const std::string prima = LeggiFile(f);
    s.SviluppoK = 4;  // more numbers a column than the store holds
    s.colonne.dimensiona(2);
    s.NumColonne = 5;
    s.SistemaSalvato = false;
    Salva(s, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Indice non incluso nell'intervallo");
    EXPECT_EQ(LeggiFile(f), prima);
    EXPECT_FALSE(s.SistemaSalvato);
    EXPECT_FALSE(ui.clessidraAttiva);
    EXPECT_FALSE(std::filesystem::exists(f + ".~zfr"));

    // a folder that is not there
    ui.fileSalva.push_back(c.file("manca/x.zfr"));
    SalvaConNome(s, ui);
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[1].testo, "Si è verificato l'errore seguente: Impossibile trovare il percorso");
}

TEST(ApriSalva, LaDomandaDiSalvataggioPrimaDiAprire) {
    Cartella c;
    Sistema vecchio;
    ImpostaPronostico(vecchio, {9});
    ScriviFile(c.file("v.zfr"), ScritturaLetterale(vecchio));

    // No: nothing saved, the open goes on
    {
        Sistema s;
        InterfacciaScriptata ui;
        s.SistemaSalvato = false;
        ui.risposte.push_back(Risposta::No);
        ui.fileApri.push_back(c.file("v.zfr"));
        Apri(s, ui);
        ASSERT_EQ(ui.box.size(), 1u);
        EXPECT_EQ(ui.box[0].testo, "Vuoi salvare il sistema ?");
        EXPECT_EQ(ui.box[0].titolo, "ATTENZIONE");
        EXPECT_EQ(ui.box[0].icona, Icona::Esclamazione);
        EXPECT_EQ(ui.box[0].pulsanti, Pulsanti::SiNo);
        EXPECT_TRUE(ui.fileSalva.empty());
        EXPECT_EQ(s.Label2, "1");
        EXPECT_TRUE(s.SistemaSalvato);
    }
    // Yes, then the save dialog cancelled: the open still comes
    {
        Sistema s;
        InterfacciaScriptata ui;
        s.SistemaSalvato = false;
        ui.risposte.push_back(Risposta::Si);
        ui.fileSalva.push_back(std::nullopt);
        ui.fileApri.push_back(c.file("v.zfr"));
        Apri(s, ui);
        EXPECT_EQ(ui.box.size(), 1u);
        EXPECT_TRUE(ui.fileApri.empty());
        EXPECT_EQ(s.Label2, "1");
    }
    // a cancelled open: the forecast comes back from the pad, nothing else moves
    {
        Sistema s;
        InterfacciaScriptata ui;
        ImpostaPronostico(s, {4, 5});
        s.FileName = "prima.zfr";
        ui.fileApri.push_back(std::nullopt);
        Apri(s, ui);
        EXPECT_TRUE(ui.box.empty());
        EXPECT_EQ(s.FileName, "prima.zfr");
        EXPECT_EQ(s.Pronostico, (std::vector<int>{0, 4, 5}));
        EXPECT_EQ(s.titolo, titoli::NonSalvato);
    }
    // a missing file
    {
        Sistema s;
        InterfacciaScriptata ui;
        ui.fileApri.push_back(c.file("manca.zfr"));
        Apri(s, ui);
        ASSERT_EQ(ui.box.size(), 1u);
        EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Impossibile trovare il file");
        EXPECT_EQ(ui.box[0].icona, Icona::Nessuna);
    }
}
