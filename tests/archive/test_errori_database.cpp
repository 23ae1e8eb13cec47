// What the engine refuses is told in Italian: a read-only archive, a full disk, a
// folder in place of the archive. Nothing half written stays behind.
#include "archive/aiuto.h"
#include "archive/storico.h"

#include <gtest/gtest.h>

namespace zef {
namespace {

const std::string Spedito = std::string(ZEF_DATI_SORGENTE) + "/storico.txt.gz";

std::string Messaggio(const std::function<void()>& f) {
    try {
        f();
    } catch (const ErroreEsecuzione& e) {
        return e.testo();
    }
    return "";
}

TEST(ErroriDatabase, AReadOnlyArchiveSaysSoAndKeepsWhatItHad) {
    prova::CartellaTemporanea dir;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "a.db");
    prova::RiempiProva(*a, 3);
    a->db().exec("PRAGMA query_only = 1");
    const std::string importa = Messaggio([&] { ImportaFileStorico(*a, Spedito); });
    EXPECT_NE(importa.find("sola lettura"), std::string::npos) << importa;
    EXPECT_EQ(importa.find("readonly"), std::string::npos);
    // A draw added through the cursor, as the browser stores one.
    Cursore c = a->OpenRecordset("estrazioni");
    c.AddNew();
    c.imposta("data", Valore("2030-01-01"));
    const std::string memorizza = Messaggio([&] { c.Update(); });
    EXPECT_NE(memorizza.find("sola lettura"), std::string::npos) << memorizza;
    a->db().exec("PRAGMA query_only = 0");
    EXPECT_EQ(a->NumeroEstrazioni(), 3);
}

TEST(ErroriDatabase, AFullDiskSaysSoAndImportsNothing) {
    prova::CartellaTemporanea dir;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "a.db");
    SQLite::Statement pagine(a->db(), "PRAGMA page_count");
    pagine.executeStep();
    const int usate = pagine.getColumn(0).getInt();
    a->db().exec("PRAGMA max_page_count = " + std::to_string(usate + 2));
    const std::string m = Messaggio([&] { ImportaFileStorico(*a, Spedito); });
    EXPECT_NE(m.find("Spazio su disco esaurito"), std::string::npos) << m;
    EXPECT_EQ(a->NumeroEstrazioni(), 0);
}

TEST(ErroriDatabase, AFolderInPlaceOfTheArchiveIsNamedAsSuch) {
    prova::CartellaTemporanea dir;
    std::filesystem::create_directories(dir.p / "archivio.db");
    try {
        ArchivioEstrazioni a(dir / "archivio.db");
        FAIL() << "a folder opened as an archive";
    } catch (const ErroreArchivio& e) {
        EXPECT_NE(e.testo().find("è una cartella"), std::string::npos) << e.testo();
    }
}

}  // namespace
}  // namespace zef
