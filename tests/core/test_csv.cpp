#include "core/csv.h"

#include "support/cartella.h"

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <sstream>

namespace zef {
namespace {

std::string Leggi(const std::string& percorso) {
    std::ifstream f(percorso, std::ios::binary);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

TEST(Csv, CelleConSeparatoriVirgoletteEBlankVannoTraVirgolette) {
    EXPECT_EQ(CellaCsv("BARI"), "BARI");
    EXPECT_EQ(CellaCsv(""), "");
    EXPECT_EQ(CellaCsv("a;b"), "\"a;b\"");
    EXPECT_EQ(CellaCsv("disse \"sì\""), "\"disse \"\"sì\"\"\"");
    EXPECT_EQ(CellaCsv("due\nrighe"), "\"due\nrighe\"");
    // The grids' cells are blank-led (" 7 R.= 12"): the blank must survive a spreadsheet.
    EXPECT_EQ(CellaCsv(" 7"), "\" 7\"");
    EXPECT_EQ(TestoRigaCsv({"DATA", " 1", "x;y", ""}), "DATA;\" 1\";\"x;y\";");
}

TEST(Csv, NumeriEImportiConLaVirgola) {
    EXPECT_EQ(NumeroCsv(1234.5, 2), "1234,50");
    EXPECT_EQ(NumeroCsv(-3, 2), "-3,00");
    EXPECT_EQ(NumeroCsv(-0.001, 2), "0,00");
    EXPECT_EQ(NumeroCsv(7.6, 0), "8");
    EXPECT_EQ(ImportoCsv(2300000), "230,00");
    EXPECT_EQ(ImportoCsv(-12345), "-1,23");
    EXPECT_EQ(ImportoCsv(-12350), "-1,24");  // half away from zero
    EXPECT_EQ(ImportoCsv(-49), "0,00");
    EXPECT_EQ(ImportoCsv(INT64_MIN), "-922337203685477,58");
}

TEST(Csv, IlFileHaUnaRigaPerRigaConCrlfESostituisceQuelloVecchio) {
    prova::CartellaTemporanea c;
    const std::string f = c.file("grid.csv");
    ScriviCsv(f, {{"a", "b"}, {"1,5", "x"}});
    EXPECT_EQ(Leggi(f), "\xEF\xBB\xBF" "a;b\r\n1,5;x\r\n");
    ScriviCsv(f, {{"nuovo"}});
    EXPECT_EQ(Leggi(f), "\xEF\xBB\xBF" "nuovo\r\n");
}

TEST(Csv, UnaCartellaInesistenteDaUnMessaggioENessunFile) {
    prova::CartellaTemporanea c;
    const std::string f = c.file("manca/grid.csv");
    try {
        ScriviCsv(f, {{"a"}});
        FAIL() << "nessun errore";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("Impossibile scrivere il file"), std::string::npos);
        EXPECT_NE(std::string(e.what()).find(f), std::string::npos);
    }
    EXPECT_FALSE(std::ifstream(f).good());
}

}  // namespace
}  // namespace zef
