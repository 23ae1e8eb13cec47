// The shipped dream book: built from its sources, every table in shape.
#include "dreambook/libro.h"
#include "support/cartella.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace zef {
namespace {

TEST(Libro, TheShippedBookIsWhole) {
    prova::CartellaTemporanea dir;
    const std::string db = dir / "smorfia.db";
    CostruisciLibro(std::string(ZEF_DATI_SORGENTE) + "/smorfia", db);
    Libro libro(db);
    auto controlla = [](const std::vector<VoceLibro>& righe, const std::string& tabella) {
        std::set<std::string> visti;
        for (const auto& r : righe) {
            EXPECT_GE(r.numero, 1) << tabella << " " << r.testo;
            EXPECT_LE(r.numero, 90) << tabella << " " << r.testo;
            EXPECT_FALSE(r.testo.empty()) << tabella;
            EXPECT_TRUE(visti.insert(r.testo).second) << tabella << ": \"" << r.testo << "\" twice";
        }
    };
    const auto nomi = libro.tabella("Nomi Propri"), personaggi = libro.tabella("Personaggi");
    controlla(nomi, "Nomi Propri");
    controlla(personaggi, "Personaggi");
    EXPECT_GE(nomi.size(), 300u);
    EXPECT_GE(personaggi.size(), 150u);
    size_t soggetti = 0, conBlocco = 0, oggetti = 0;
    for (char l = 'a'; l <= 'z'; ++l) {
        const std::string s = std::string("soggetti ") + l, o = std::string("oggetti") + l;
        ASSERT_TRUE(libro.haTabella(s)) << s;
        ASSERT_TRUE(libro.haTabella(o)) << o;
        const auto ss = libro.tabella(s);
        const auto oo = libro.tabella(o);
        EXPECT_FALSE(ss.empty()) << s;
        controlla(ss, s);
        soggetti += ss.size();
        for (const auto& sg : ss) {
            EXPECT_EQ(FormaPiana(sg.testo).substr(0, 1), std::string(1, l)) << sg.testo;
            if (sg.primaVoce == 0) continue;
            ++conBlocco;
            // The block: the head (the subject itself), then objects up to the closing mark.
            ASSERT_LE(static_cast<size_t>(sg.primaVoce), oo.size()) << sg.testo;
            const VoceLibro& testa = oo[static_cast<size_t>(sg.primaVoce - 1)];
            EXPECT_EQ(testa.puntatore, sg.primaVoce);
            EXPECT_EQ(testa.testo, sg.testo);
            std::set<std::string> delBlocco;
            size_t i = static_cast<size_t>(sg.primaVoce);
            bool chiuso = false;
            for (; i < oo.size(); ++i) {
                EXPECT_EQ(oo[i].puntatore, static_cast<int64_t>(i + 1));
                EXPECT_TRUE(delBlocco.insert(oo[i].testo).second) << sg.testo << ": " << oo[i].testo << " twice";
                ++oggetti;
                if (oo[i].fineBlocco) {
                    chiuso = true;
                    break;
                }
            }
            EXPECT_TRUE(chiuso) << sg.testo << ": block never closed";
        }
        for (const auto& r : oo) {
            EXPECT_GE(r.numero, 1);
            EXPECT_LE(r.numero, 90);
        }
    }
    EXPECT_GE(soggetti, 1500u);
    EXPECT_GE(conBlocco, 400u);
    EXPECT_GE(oggetti, 4000u);
}

TEST(Libro, PlainFormsAndInitials) {
    EXPECT_EQ(FormaPiana("Città"), "citta");
    EXPECT_EQ(FormaPiana("PERCHÉ così"), "perche cosi");
    EXPECT_EQ(FormaPiana("l'Àncora"), "l'ancora");
    EXPECT_EQ(Iniziale("Élite"), "e");
    EXPECT_EQ(Iniziale(""), "");
    EXPECT_EQ(Iniziale("9 di coppe"), "9");
}

TEST(Libro, AMalformedSourceIsNamedWithItsLine) {
    prova::CartellaTemporanea dir;
    std::filesystem::create_directories(dir.p / "f" / "soggetti");
    std::ofstream(dir.p / "f" / "nomi_propri.txt") << "maria\t1\nluca\t91\n";
    try {
        CostruisciLibro((dir.p / "f").string(), dir / "x.db");
        FAIL() << "built";
    } catch (const ErroreLibro& e) {
        EXPECT_NE(std::string(e.what()).find("riga 2"), std::string::npos) << e.what();
    }
    EXPECT_FALSE(std::filesystem::exists(dir.p / "x.db"));
}

}  // namespace
}  // namespace zef
