// zefiranto-cli spoglio and vincite on a small archive made for the test.
#include "archive/aiuto.h"
#include "support/esegui_cli.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace zef {
namespace {

using prova::Esegui;
using prova::Esito;

std::vector<std::string> Righe(const std::string& t) {
    std::vector<std::string> v;
    std::istringstream in(t);
    for (std::string r; std::getline(in, r);) v.push_back(r);
    return v;
}

struct CliSpoglio : ::testing::Test {
    prova::CartellaTemporanea cartella;
    std::string db = cartella / "a.db";
    std::string zfr = cartella / "s.zfr";
    void SetUp() override {
        auto a = ArchivioEstrazioni::ApriOCrea(db);
        prova::RiempiProva(*a, 6);
        // The numbers of the last draw on Bari with two others: a terzina system.
        std::string pronostico;
        for (int p = 1; p <= 3; ++p) pronostico += TestoSemplice(prova::NumeroProva(6, 1, p)) + ",";
        pronostico += "40,41";
        ASSERT_EQ(Esegui("sviluppa --pronostico " + pronostico + " --k 3 -o " + zfr).stato, 0);
    }
};

TEST_F(CliSpoglio, LatestDrawByDefaultWithTheListingAfterTheCounts) {
    Esito e = Esegui("spoglio " + zfr + " --archivio " + db + " --ruota 0 --giocate 0,1,1,0,0 --puntate 0,1.00,1.00,0,0");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    auto r = Righe(e.uscita);
    ASSERT_GE(r.size(), 6u);
    EXPECT_EQ(r[0], "Estratti:  0");
    // Of the ten terzine, one holds all three drawn numbers; each of the three pairs of them
    // is in three terzine.
    EXPECT_EQ(r[1], "Ambi: 9");
    EXPECT_EQ(r[2], "Terni: 1");
    EXPECT_EQ(r[5].substr(0, 16), "Totale vincita: ");
    EXPECT_EQ(r.size(), 6u + 10u);
    int terni = 0;
    for (size_t i = 6; i < r.size(); ++i) terni += r[i].rfind("TERNO   su Bari  SCHEDINA:", 0) == 0;
    EXPECT_EQ(terni, 1);
}

TEST_F(CliSpoglio, ADrawByIdOrTypedBoxes) {
    Esito e = Esegui("spoglio " + zfr + " --archivio " + db + " --estrazione 1 --ruota 0 --giocate 0,0,1,0,0 --puntate 0,0,1.00,0,0");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    std::string caselle = "40,41,1,2,3";
    for (int i = 5; i < 55; ++i) caselle += ",";
    e = Esegui("spoglio " + zfr + " --caselle " + caselle + " --ruota 0 --giocate 0,1,0,0,0 --puntate 0,1.00,0,0,0");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    auto r = Righe(e.uscita);
    EXPECT_EQ(r[1], "Ambi: 3");
    EXPECT_EQ(r[5], "Totale vincita: 229.91");  // 83.3 x 3 = 249.90, less 8%
}

TEST_F(CliSpoglio, PeriodPrintsADrawALineAndTheTotals) {
    const std::string csv = cartella / "v.csv";
    Esito e = Esegui("spoglio " + zfr + " --archivio " + db +
                     " --ultime 3 --ruota 0 --giocate 0,1,1,0,0 --puntate 0,1.00,1.00,0,0 --csv " + csv);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    auto r = Righe(e.uscita);
    ASSERT_EQ(r.size(), 7u);
    EXPECT_EQ(r[0].substr(0, 11), "2020-01-04\t");
    EXPECT_EQ(r[2].substr(0, 11), "2020-01-06\t");
    EXPECT_EQ(r[3], "ESTRAZIONI: 3");
    EXPECT_EQ(r[4], "SPESA: 60.00");  // ten rows at 2.00, three draws
    std::ifstream f(csv);
    std::string intestazione;
    std::getline(f, intestazione);
    EXPECT_NE(intestazione.find("Data;Estratti;Ambi;Terni;Quaterne;Cinquine;Vincita;Spesa;Saldo"), std::string::npos);
    e = Esegui("spoglio " + zfr + " --archivio " + db + " --dal 2020-01-02 --al 2020-01-03");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_NE(e.uscita.find("ESTRAZIONI: 2"), std::string::npos);
}

TEST_F(CliSpoglio, BadInputSaysWhyAndExitsOne) {
    for (const std::string& argomenti :
         {"--archivio " + db + " --estrazione 77", "--archivio " + cartella / "manca.db",
          "--archivio " + db + " --caselle 1,2,3", "--archivio " + db + " --giocate 1,1",
          "--archivio " + db + " --giocate 1,2,0,0,0", "--archivio " + db + " --ruota 12",
          "--archivio " + db + " --puntate a,b,c,d,e", "--archivio " + db + " --dal 2020-13-01",
          "--archivio " + db + " --dal 2030-01-01", "--archivio " + db + " --csv x.csv"}) {
        Esito e = Esegui("spoglio " + zfr + " " + argomenti);
        EXPECT_EQ(e.stato, 1) << argomenti << "\n" << e.uscita;
        EXPECT_NE(e.uscita.find("Errore"), std::string::npos) << argomenti;
    }
}

TEST_F(CliSpoglio, TallyAsTheWindowShowsIt) {
    Esito e = Esegui("vincite --archivio " + db);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    auto r = Righe(e.uscita);
    ASSERT_EQ(r.size(), 8u);
    EXPECT_EQ(r[0], "Cinquine: 0");
    EXPECT_EQ(r[7], "TOTALE: 0.00");
    EXPECT_EQ(Esegui("vincite --archivio " + cartella / "manca.db").stato, 1);
}

}  // namespace
}  // namespace zef
