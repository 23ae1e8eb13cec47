// The list-output forms: each form read and written, the straight paths of the
// columns and the rows against value-by-value reading, and the save that goes
// through a temporary file.

#include "core/errori.h"
#include "core/lista.h"
#include "files/formato_lista.h"
#include "support/cartella.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zef;
namespace fs = std::filesystem;

namespace {

using Cartella = prova::CartellaTemporanea;

std::string Leggi(const std::string& f) {
    std::ifstream in(f, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}


}  // namespace

TEST(FormatoLista, OgniFormaScrittaComeLIstruzioneDiListaLaScrive) {
    Cartella c;
    const std::string f = c.file("forme.txt");
    {
        ScrittoreLista w(f);
        w.intero(12);
        w.intero(-3);
        w.intero(0);
        w.testo("CONDIZIONATE: 0");
        w.testo("COSTO SISTEMA €: 4,5");     // the euro sign is one byte, 0x80
        w.testo("di \"lui\", però");         // a quote inside goes out as it is
        w.testo("");
        w.booleano(true);
        w.booleano(false);
        w.valuta(Currency::daDecimillesimi(15000));   // 1.5
        w.valuta(Currency::daDecimillesimi(0));       // 0
        w.valuta(Currency::daDecimillesimi(-500));    // -0.05
        w.valuta(Currency::daDecimillesimi(20000000)); // 2000
        w.chiudi();
    }
    EXPECT_EQ(Leggi(f),
              "12\r\n-3\r\n0\r\n\"CONDIZIONATE: 0\"\r\n\"COSTO SISTEMA \x80: 4,5\"\r\n"
              "\"di \"lui\", per\xF2\"\r\n\"\"\r\n#TRUE#\r\n#FALSE#\r\n1.5\r\n0\r\n-0.05\r\n2000\r\n");
    EXPECT_FALSE(fs::exists(f + ".~zfr"));
}

TEST(FormatoLista, CampiLettiComeLIstruzioneDiInputLiLegge) {
    // numbers: blanks around, a sign, a comma as delimiter, an empty field as 0,
    // a decimal rounded half to even on its way into the integer
    {
        std::string b = " 7 \r\n-12,+5\r\n\r\n2.5\r\n3.5\n0007\r";
        LettoreLista r(b.data(), b.size());
        EXPECT_EQ(r.intero(-100, 100), 7);
        EXPECT_EQ(r.intero(-100, 100), -12);
        EXPECT_EQ(r.intero(-100, 100), 5);
        EXPECT_EQ(r.intero(-100, 100), 0);
        EXPECT_EQ(r.intero(-100, 100), 2);
        EXPECT_EQ(r.intero(-100, 100), 4);
        EXPECT_EQ(r.intero(-100, 100), 7);
        EXPECT_EQ(prova::NumeroErrore([&] { r.intero(-100, 100); }), errori::InputOltreFine);
    }
    // another form, a value out of its type
    {
        std::string b = "abc\r\n\"12\"\r\n70000\r\n1 2\r\n";
        LettoreLista r(b.data(), b.size());
        EXPECT_EQ(prova::NumeroErrore([&] { r.intero(INT16_MIN, INT16_MAX); }), errori::TipoNonCorrispondente);
        EXPECT_EQ(prova::NumeroErrore([&] { r.intero(INT16_MIN, INT16_MAX); }), errori::TipoNonCorrispondente);
        EXPECT_EQ(prova::NumeroErrore([&] { r.intero(INT16_MIN, INT16_MAX); }), errori::Overflow);
        EXPECT_EQ(prova::NumeroErrore([&] { r.intero(INT16_MIN, INT16_MAX); }), errori::TipoNonCorrispondente);
    }
    // texts: quoted up to the next quote (commas inside kept), unquoted up to a
    // comma, Windows-1252 turned into UTF-8, a text without its closing quote
    {
        std::string b = "\"Roma, , Ambo \x80 1,50\"\r\n  \"a\"dopo,b c ,\"\xE8\"\r\n\"aperta";
        LettoreLista r(b.data(), b.size());
        EXPECT_EQ(r.testo(), "Roma, , Ambo € 1,50");
        EXPECT_EQ(r.testo(), "a");
        EXPECT_EQ(r.testo(), "b c");
        EXPECT_EQ(r.testo(), "è");
        EXPECT_EQ(r.testo(), "aperta");
        EXPECT_EQ(prova::NumeroErrore([&] { r.testo(); }), errori::InputOltreFine);
    }
    // booleans and currency
    {
        std::string b = "#TRUE#\r\n#FALSE#\r\n-1\r\n0\r\nvero\r\n1.5\r\n-0.05\r\n3\r\n1,5\r\n\"1.5\"\r\n";
        LettoreLista r(b.data(), b.size());
        EXPECT_TRUE(r.booleano());
        EXPECT_FALSE(r.booleano());
        EXPECT_TRUE(r.booleano());
        EXPECT_FALSE(r.booleano());
        EXPECT_EQ(prova::NumeroErrore([&] { r.booleano(); }), errori::TipoNonCorrispondente);
        EXPECT_EQ(r.valuta(), Currency::daDecimillesimi(15000));
        EXPECT_EQ(r.valuta(), Currency::daDecimillesimi(-500));
        EXPECT_EQ(r.valuta(), Currency::daInteri(3));
        EXPECT_EQ(r.valuta(), Currency::daInteri(1));  // "1,5" is two fields: 1 and 5
        EXPECT_EQ(r.valuta(), Currency::daInteri(5));
        EXPECT_EQ(prova::NumeroErrore([&] { r.valuta(); }), errori::TipoNonCorrispondente);
    }
}

namespace {

// Random bytes that are mostly the lines of a file of columns and rows, with the
// odd blank, quote, comma, sign, lone CR or LF, long number and foreign byte.
std::string Disordine(std::mt19937& rng, int linee) {
    std::string b;
    for (int i = 0; i < linee; ++i) {
        switch (rng() % 12) {
            case 0: b += std::to_string(rng() % 400); break;
            case 1: b += " " + std::to_string(rng() % 90) + " "; break;
            case 2: b += "\"" + std::to_string(rng() % 90) + "\""; break;
            case 3: b += "-" + std::to_string(rng() % 9); break;
            case 4: b += std::to_string(rng() % 90) + "," + std::to_string(rng() % 90); break;
            case 5: b += "\" 1  2  3 \xE8\""; break;
            case 6: b += "\"ab\"cd"; break;
            case 7: b += static_cast<char>(rng() % 256); break;
            case 8: b += "1.5"; break;
            default: b += std::to_string(rng() % 91); break;
        }
        switch (rng() % 10) {
            case 0: b += "\n"; break;
            case 1: b += "\r"; break;
            case 2: break;
            default: b += "\r\n"; break;
        }
    }
    if (rng() % 2) b.resize(b.size() - rng() % 3 % (b.size() + 1));
    return b;
}

}  // namespace

TEST(FormatoLista, NumeriInBloccoComeLettiUnoAllaVolta) {
    std::mt19937 rng(11);
    for (int prova = 0; prova < 3000; ++prova) {
        std::string b = Disordine(rng, 1 + static_cast<int>(rng() % 40));
        const int64_t quanti = 1 + rng() % 45;
        std::vector<uint8_t> blocco(quanti, 0xEE), uno(quanti, 0xEE);
        LettoreLista a(b.data(), b.size()), c(b.data(), b.size());
        int ea = prova::NumeroErrore([&] { a.numeri(blocco.data(), quanti); });
        int ec = prova::NumeroErrore([&] {
            for (int64_t i = 0; i < quanti; ++i) uno[i] = static_cast<uint8_t>(c.intero(0, 255));
        });
        ASSERT_EQ(ea, ec) << prova;
        ASSERT_EQ(a.posizione(), c.posizione()) << prova;
        ASSERT_EQ(blocco, uno) << prova;
    }
}

TEST(FormatoLista, RigheInBloccoComeLetteUnaAllaVolta) {
    std::mt19937 rng(12);
    for (int prova = 0; prova < 3000; ++prova) {
        std::string b = Disordine(rng, 1 + static_cast<int>(rng() % 40));
        const long long quante = 1 + rng() % 45;
        ListaGiocate blocco, una;
        LettoreLista a(b.data(), b.size()), c(b.data(), b.size());
        int chiamate = 0;
        int ea = prova::NumeroErrore([&] { a.righe(blocco, quante, [&] { ++chiamate; }); });
        int ec = prova::NumeroErrore([&] {
            for (long long i = 0; i < quante; ++i) una.AddItem(c.testo());
        });
        ASSERT_EQ(ea, ec) << prova;
        ASSERT_EQ(a.posizione(), c.posizione()) << prova;
        ASSERT_EQ(blocco.Rows(), una.Rows()) << prova;
        for (int64_t r = 0; r < una.Rows(); ++r) ASSERT_EQ(blocco.riga(r), una.riga(r)) << prova;
    }
}

TEST(FormatoLista, ColonneERigheScritteComeUnValoreAllaVolta) {
    Cartella c;
    std::mt19937 rng(5);
    for (int k : {1, 2, 6, 10}) {
        const int passo = k + static_cast<int>(rng() % 3);  // columns inside a wider store
        const int64_t quante = 3000;
        std::vector<uint8_t> dati(quante * passo);
        for (auto& v : dati) v = static_cast<uint8_t>(rng() % 256);
        ListaGiocate lista;
        for (int r = 0; r < 500; ++r) lista.AddItem(r % 7 ? std::string(rng() % 31, ' ') + "12" : "però €");
        {
            ScrittoreLista w(c.file("a"));
            w.colonne(dati.data(), quante, k, passo);
            w.righe(lista);
            w.chiudi();
        }
        {
            ScrittoreLista w(c.file("b"));
            for (int64_t col = 0; col < quante; ++col)
                for (int p = 0; p < k; ++p) w.intero(dati[col * passo + p]);
            for (int64_t r = 0; r < lista.Rows(); ++r) w.testo(lista.riga(r));
            w.chiudi();
        }
        EXPECT_EQ(Leggi(c.file("a")), Leggi(c.file("b"))) << k;
    }
}

TEST(FormatoLista, UnSalvataggioFallitoLasciaIlFileDiPrimaEdErroriDelRunTime) {
    Cartella c;
    const std::string f = c.file("s.zfr");
    {
        ScrittoreLista w(f);
        w.intero(1);
        w.chiudi();
    }
    ::chmod(f.c_str(), 0640);
    {
        // a writer dropped before chiudi() (an error in the middle) leaves no trace
        ScrittoreLista w(f);
        w.intero(2);
    }
    EXPECT_EQ(Leggi(f), "1\r\n");
    EXPECT_FALSE(fs::exists(f + ".~zfr"));
    {
        ScrittoreLista w(f);
        w.intero(3);
        w.chiudi();
    }
    EXPECT_EQ(Leggi(f), "3\r\n");
    struct stat st {};
    ASSERT_EQ(::stat(f.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0640u);  // the replaced file keeps its permissions

    // a link to the file stays a link, and the file behind it gets the values
    std::filesystem::create_symlink(f, c.file("link.zfr"));
    {
        ScrittoreLista w(c.file("link.zfr"));
        w.intero(4);
        w.chiudi();
    }
    EXPECT_TRUE(fs::is_symlink(c.file("link.zfr")));
    EXPECT_EQ(Leggi(f), "4\r\n");

    EXPECT_EQ(prova::NumeroErrore([&] { ScrittoreLista w(c.file("manca/x.zfr")); }), 76);
    EXPECT_EQ(prova::NumeroErrore([&] { ScrittoreLista w(c.p.string()); }), 75);
    EXPECT_EQ(prova::NumeroErrore([&] { FileInLettura r(c.file("manca.zfr")); }), errori::FileNonTrovato);
    EXPECT_EQ(prova::NumeroErrore([&] { FileInLettura r(c.p.string()); }), 75);
    {
        std::ofstream(c.file("vuoto.zfr"));
        FileInLettura r(c.file("vuoto.zfr"));
        EXPECT_EQ(r.lunghezza(), 0u);
        LettoreLista l(r.fd(), r.lunghezza());
        EXPECT_EQ(prova::NumeroErrore([&] { l.intero(0, 1); }), errori::InputOltreFine);
    }
}

namespace {

// One step of a load: which read, and what came of it.
struct Passo {
    int errore = 0;
    size_t posizione = 0;
    std::string valore;
};

// A random sequence of reads, the same for both readers (the seed decides it).
std::vector<Passo> Leggi(LettoreLista& r, uint32_t seme) {
    std::mt19937 rng(seme);
    std::vector<Passo> passi;
    for (int i = 0; i < 30; ++i) {
        Passo p;
        const int tipo = static_cast<int>(rng() % 6);
        const int quanti = 1 + static_cast<int>(rng() % 9);
        p.errore = prova::NumeroErrore([&] {
            switch (tipo) {
                case 0: p.valore = std::to_string(r.intero(-100000, 100000)); break;
                case 1: p.valore = r.testo(); break;
                case 2: p.valore = r.booleano() ? "V" : "F"; break;
                case 3: p.valore = r.valuta().testoPunto(); break;
                case 4: {
                    std::vector<uint8_t> v(quanti);
                    try {
                        r.numeri(v.data(), quanti);
                    } catch (...) {
                        p.valore.assign(v.begin(), v.end());
                        throw;
                    }
                    p.valore.assign(v.begin(), v.end());
                    break;
                }
                default: {
                    ListaGiocate l;
                    try {
                        r.righe(l, quanti, [] {});
                    } catch (...) {
                        for (int64_t j = 0; j < l.Rows(); ++j) p.valore += std::string(l.riga(j)) + "|";
                        throw;
                    }
                    for (int64_t j = 0; j < l.Rows(); ++j) p.valore += std::string(l.riga(j)) + "|";
                }
            }
        });
        p.posizione = r.posizione();
        passi.push_back(p);
        if (p.errore == errori::InputOltreFine) break;
    }
    return passi;
}

}  // namespace

TEST(FormatoLista, LetturaAPezziDaUnFileComeDallaMemoria) {
    Cartella c;
    std::mt19937 rng(21);
    for (int prova = 0; prova < 600; ++prova) {
        std::string b = Disordine(rng, 5 + static_cast<int>(rng() % 60));
        if (prova % 5 == 0) b += "\"" + std::string(50 + rng() % 200, 'x') + "\"\r\n";  // longer than the buffer
        const std::string f = c.file("p.txt");
        {
            std::ofstream(f, std::ios::binary) << b;
        }
        const uint32_t seme = static_cast<uint32_t>(rng());
        LettoreLista m(b.data(), b.size());
        auto attesi = Leggi(m, seme);
        FileInLettura file(f);
        LettoreLista s(file.fd(), file.lunghezza(), 1 + rng() % 9);  // a buffer of 1 to 9 bytes
        auto letti = Leggi(s, seme);
        ASSERT_EQ(letti.size(), attesi.size()) << prova;
        for (size_t i = 0; i < attesi.size(); ++i) {
            ASSERT_EQ(letti[i].errore, attesi[i].errore) << prova << ' ' << i;
            ASSERT_EQ(letti[i].valore, attesi[i].valore) << prova << ' ' << i;
            ASSERT_EQ(letti[i].posizione, attesi[i].posizione) << prova << ' ' << i;
        }
    }
}
