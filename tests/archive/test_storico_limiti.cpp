// Compressed historical files that must not be imported: cut short, or expanding
// to far more than any archive of draws.
#include "archive/aiuto.h"
#include "archive/storico.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <fstream>
#include <iterator>

namespace zef {
namespace {

const std::string Spedito = std::string(ZEF_DATI_SORGENTE) + "/storico.txt.gz";

TEST(StoricoCompresso, ACutStreamIsRefusedAndNothingStored) {
    prova::CartellaTemporanea dir;
    std::ifstream in(Spedito, std::ios::binary);
    std::string intero((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    ASSERT_GT(intero.size(), 1000u);
    prova::ScriviFile(dir / "tagliato.txt.gz", intero.substr(0, intero.size() / 2));
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "a.db");
    try {
        ImportaFileStorico(*a, dir / "tagliato.txt.gz");
        FAIL() << "a cut file was imported";
    } catch (const ErroreStorico& e) {
        EXPECT_NE(std::string(e.what()).find("danneggiato o incompleto"), std::string::npos) << e.what();
    }
    EXPECT_EQ(a->NumeroEstrazioni(), 0);
    // The whole file still reads.
    EXPECT_GT(LeggiFileStorico(Spedito).size(), 1000000u);
}

TEST(StoricoCompresso, AFileThatExpandsBeyondAnyArchiveIsRefused) {
    prova::CartellaTemporanea dir;
    const std::string file = dir / "bomba.txt.gz";
    gzFile g = gzopen(file.c_str(), "wb9");
    ASSERT_NE(g, nullptr);
    std::string blocco(1 << 20, ' ');
    for (int i = 0; i < 201; ++i) ASSERT_EQ(gzwrite(g, blocco.data(), static_cast<unsigned>(blocco.size())), static_cast<int>(blocco.size()));
    gzclose(g);
    try {
        LeggiFileStorico(file);
        FAIL() << "a file of 201 MB was read";
    } catch (const ErroreStorico& e) {
        EXPECT_NE(std::string(e.what()).find("200 MB"), std::string::npos) << e.what();
    }
}

}  // namespace
}  // namespace zef

namespace zef {
namespace {

TEST(StoricoCompresso, AnAbsurdlyLongNumberFieldIsRefusedAsOutOfRange) {
    prova::CartellaTemporanea dir;
    prova::ScriviFile(dir / "lungo.txt", "2024/01/02\tBA\t123456789012345678901234567890\t2\t3\t4\t5\n");
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "a.db");
    try {
        ImportaFileStorico(*a, dir / "lungo.txt");
        FAIL() << "imported";
    } catch (const ErroreStorico& e) {
        EXPECT_NE(std::string(e.what()).find("fuori dall'intervallo 1-90"), std::string::npos) << e.what();
    }
    EXPECT_EQ(a->NumeroEstrazioni(), 0);
}

}  // namespace
}  // namespace zef
