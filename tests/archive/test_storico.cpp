// The historical draw file: the shipped draws, import rules, refused lines, zip, export.
#include "aiuto.h"

#include "archive/archivio.h"
#include "archive/storico.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <array>
#include <cstdio>
#include <sys/wait.h>

using namespace zef;
using prova::CartellaTemporanea;

namespace {

const std::string Spedito = std::string(ZEF_DATI_SORGENTE) + "/storico.txt.gz";

// One draw on one wheel as five numbers; empty when the wheel is null.
std::vector<int> Ruota(Cursore& c, int ruota) {
    std::vector<int> v;
    for (int p = 1; p <= 5; ++p)
        if (auto n = c.numero(NomeCampo(ruota, p))) v.push_back(*n);
    return v;
}

// Moves to the draw of a date.
bool Vai(Cursore& c, const std::string& iso) {
    for (c.MoveFirst(); !c.Eof(); c.MoveNext())
        if (c.campo("data").comeTesto() == iso) return true;
    return false;
}

TEST(ArchivioSpedito, CreatoERiempitoDalleEstrazioniSpedite) {
    CartellaTemporanea dir;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db", Spedito);
    auto c = a->OpenRecordset("Estrazioni");
    ASSERT_EQ(c.RecordCount(), 7359);
    EXPECT_EQ(c.numero("id"), 1);
    EXPECT_EQ(c.campo("data").comeTesto(), "1939-01-07");
    // First line of the file: 1939/01/07 BA 58 22 47 49 69.
    EXPECT_EQ(Ruota(c, 1), (std::vector<int>{58, 22, 47, 49, 69}));
    c.MoveLast();
    EXPECT_EQ(c.numero("id"), 7359);
    EXPECT_EQ(c.campo("data").comeTesto(), "2026-08-01");
    // Last lines: RN 71 65 17 9 20, VE 74 1 30 46 54.
    EXPECT_EQ(Ruota(c, 11), (std::vector<int>{71, 65, 17, 9, 20}));
    EXPECT_EQ(Ruota(c, 10), (std::vector<int>{74, 1, 30, 46, 54}));
    // 2024/03/12: RM 56 87 75 39 11, RN 20 54 44 48 40.
    ASSERT_TRUE(Vai(c, "2024-03-12"));
    EXPECT_EQ(Ruota(c, 8), (std::vector<int>{56, 87, 75, 39, 11}));
    EXPECT_EQ(Ruota(c, 11), (std::vector<int>{20, 54, 44, 48, 40}));
    // Ids follow the dates; Nazionale is null before 2005 and the first draw has no Cagliari.
    long senzaNazionale = 0;
    std::string prima;
    for (c.MoveFirst(); !c.Eof(); c.MoveNext()) {
        std::string d = c.campo("data").comeTesto();
        EXPECT_LT(prima, d);
        prima = d;
        if (d < "2005") {
            EXPECT_TRUE(Ruota(c, 11).empty()) << d;
            ++senzaNazionale;
        }
    }
    EXPECT_EQ(senzaNazionale, 3861);  // distinct dates before 2005 in the file (counted with awk)
    ASSERT_TRUE(Vai(c, "1939-01-07"));
    EXPECT_TRUE(Ruota(c, 2).empty());
}

TEST(ArchivioSpedito, EsportareRidaIlFileDiPartenza) {
    CartellaTemporanea dir;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db", Spedito);
    // The shipped file is sorted by date and wheel code, so the export gives it back byte for byte.
    EXPECT_EQ(EsportaStorico(*a), LeggiFileStorico(Spedito));
    // And importing the export into an empty archive gives the same draws.
    prova::ScriviFile(dir / "esportato.txt", EsportaStorico(*a));
    auto b = ArchivioEstrazioni::ApriOCrea(dir / "copia.db");
    auto e = ImportaFileStorico(*b, dir / "esportato.txt");
    EXPECT_EQ(e.importate, 7359);
    auto x = a->OpenRecordset("estrazioni");
    auto y = b->OpenRecordset("estrazioni");
    ASSERT_EQ(x.RecordCount(), y.RecordCount());
    for (; !x.Eof(); x.MoveNext(), y.MoveNext())
        for (const auto& campo : x.campi()) ASSERT_EQ(x.campo(campo), y.campo(campo)) << campo;
}

struct Importazione : ::testing::Test {
    CartellaTemporanea dir;
    std::unique_ptr<ArchivioEstrazioni> a;
    void SetUp() override { a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db"); }
    EsitoImportazione importa(const std::string& testo) {
        prova::ScriviFile(dir / "storico.txt", testo);
        return ImportaFileStorico(*a, dir / "storico.txt");
    }
};

TEST_F(Importazione, RigheDiUnaDataFannoUnEstrazioneERuoteMancantiRestanoNulle) {
    auto e = importa(
        "2021/05/08\tBA\t1\t2\t3\t4\t5\r\n"
        "2021/05/06 RN  90 89 88 87 86\r\n"  // blanks in place of tabs, CRLF
        "\n"
        "2021/05/08\trn\t10\t20\t30\t40\t50\n"
        "2021/05/06\tVE\t5\t6\t7\t8\t9");    // no newline at the end
    EXPECT_EQ(e.importate, 2);
    EXPECT_EQ(e.totale, 2);
    auto c = a->OpenRecordset("estrazioni");
    EXPECT_EQ(c.campo("data").comeTesto(), "2021-05-06");  // ids in date order, not file order
    EXPECT_EQ(c.numero("id"), 1);
    EXPECT_EQ(Ruota(c, 11), (std::vector<int>{90, 89, 88, 87, 86}));
    EXPECT_EQ(Ruota(c, 10), (std::vector<int>{5, 6, 7, 8, 9}));
    EXPECT_TRUE(Ruota(c, 1).empty());
    c.MoveNext();
    EXPECT_EQ(c.campo("data").comeTesto(), "2021-05-08");
    EXPECT_EQ(Ruota(c, 1), (std::vector<int>{1, 2, 3, 4, 5}));
    EXPECT_EQ(Ruota(c, 11), (std::vector<int>{10, 20, 30, 40, 50}));
    EXPECT_TRUE(Ruota(c, 10).empty());
}

TEST_F(Importazione, DateGiaPresentiSaltateENuoveDopoLUltimoId) {
    prova::RiempiProva(*a, 3, 10, 2020);  // ids 10..12, 2020-01-01..03
    auto e = importa(
        "2020/01/02\tBA\t1\t2\t3\t4\t5\n"   // stored: skipped, its numbers untouched
        "2021/01/01\tBA\t1\t2\t3\t4\t5\n"
        "2019/06/01\tBA\t6\t7\t8\t9\t10\n");
    EXPECT_EQ(e.importate, 2);
    EXPECT_EQ(e.totale, 5);
    auto c = a->OpenRecordset("estrazioni");
    ASSERT_TRUE(Vai(c, "2020-01-02"));
    EXPECT_EQ(c.numero("Bari1"), prova::NumeroProva(11, 1, 1));
    ASSERT_TRUE(Vai(c, "2019-06-01"));
    EXPECT_EQ(c.numero("id"), 13);
    ASSERT_TRUE(Vai(c, "2021-01-01"));
    EXPECT_EQ(c.numero("id"), 14);
    // A second run finds nothing new.
    prova::ScriviFile(dir / "storico.txt", "2021/01/01\tBA\t1\t2\t3\t4\t5\n");
    EXPECT_EQ(ImportaFileStorico(*a, dir / "storico.txt").importate, 0);
}

TEST_F(Importazione, OgniRigaMalformataRifiutataConIlSuoNumeroESenzaScrivere) {
    prova::RiempiProva(*a, 2);
    const std::string buone = "2022/01/04\tBA\t1\t2\t3\t4\t5\n\n2022/01/04\tCA\t1\t2\t3\t4\t5\n";
    struct Caso {
        std::string riga;
        std::string testo;
    };
    const std::vector<Caso> casi = {
        {"2022/02/30\tBA\t1\t2\t3\t4\t5", "data non valida \"2022/02/30\""},
        {"2022/13/01\tBA\t1\t2\t3\t4\t5", "data non valida"},
        {"22/01/2022\tBA\t1\t2\t3\t4\t5", "data non valida"},
        {"2022/01/0x\tBA\t1\t2\t3\t4\t5", "data non valida"},
        {"2022/01/05\tXX\t1\t2\t3\t4\t5", "ruota sconosciuta \"XX\""},
        {"2022/01/05\tBA\t1\t2\t3\t4\t91", "numero fuori dall'intervallo 1-90 \"91\""},
        {"2022/01/05\tBA\t0\t2\t3\t4\t5", "numero fuori dall'intervallo 1-90 \"0\""},
        {"2022/01/05\tBA\t1\t2\tx\t4\t5", "numero fuori dall'intervallo 1-90 \"x\""},
        {"2022/01/05\tBA\t1\t2\t3\t4\t-5", "numero fuori dall'intervallo 1-90 \"-5\""},
        {"2022/01/05\tBA\t7\t2\t3\t7\t5", "il numero 7 è ripetuto sulla ruota BA"},
        {"2022/01/05\tBA\t1\t2\t3\t4", "attesi data, ruota e cinque numeri, trovati 6 campi"},
        {"2022/01/05\tBA\t1\t2\t3\t4\t5\t6", "trovati 8 campi"},
        {"2022/01/04\tBA\t9\t8\t7\t6\t5", "la ruota BA compare due volte"},
    };
    for (const auto& caso : casi) {
        SCOPED_TRACE(caso.riga);
        try {
            importa(buone + caso.riga + "\n2022/01/06\tBA\t1\t2\t3\t4\t5\n");
            ADD_FAILURE() << "accettata";
        } catch (const ErroreStorico& e) {
            EXPECT_EQ(e.riga, 4);
            std::string t = e.what();
            EXPECT_EQ(t.rfind("Errore alla riga 4: ", 0), 0u) << t;
            EXPECT_NE(t.find(caso.testo), std::string::npos) << t;
        }
        EXPECT_EQ(a->NumeroEstrazioni(), 2);
    }
    EXPECT_THROW(ImportaFileStorico(*a, dir / "non_esiste.txt"), ErroreStorico);
}

TEST_F(Importazione, DaUnArchivioZip) {
    std::string testo = "2023/07/01\tTO\t11\t22\t33\t44\t55\n2023/07/04\tTO\t1\t2\t3\t4\t5\n";
    int err = 0;
    zip_t* z = zip_open((dir / "storico.zip").c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
    ASSERT_NE(z, nullptr);
    zip_source_t* leggimi = zip_source_buffer(z, "leggimi", 7, 0);
    zip_file_add(z, "LEGGIMI", leggimi, ZIP_FL_OVERWRITE);
    zip_source_t* s = zip_source_buffer(z, testo.data(), testo.size(), 0);
    ASSERT_GE(zip_file_add(z, "dati/storico.TXT", s, ZIP_FL_OVERWRITE), 0);
    ASSERT_EQ(zip_close(z), 0);
    auto e = ImportaFileStorico(*a, dir / "storico.zip");
    EXPECT_EQ(e.importate, 2);
    auto c = a->OpenRecordset("estrazioni");
    EXPECT_EQ(Ruota(c, 9), (std::vector<int>{11, 22, 33, 44, 55}));
    // A damaged zip is refused with a message.
    prova::ScriviFile(dir / "rotto.zip", std::string("PK\x03\x04", 4) + "spazzatura");
    EXPECT_THROW(ImportaFileStorico(*a, dir / "rotto.zip"), ErroreStorico);
}

TEST_F(Importazione, EsportaSoloRuoteComplete) {
    auto c = a->OpenRecordset("estrazioni");
    c.AddNew();
    c.imposta("data", "2024-02-05");
    for (int p = 1; p <= 5; ++p) c.imposta(NomeCampo(11, p), p);
    for (int p = 1; p <= 4; ++p) c.imposta(NomeCampo(1, p), 10 + p);  // Bari short of one: not written
    c.Update();
    EXPECT_EQ(EsportaStorico(*a), "2024/02/05\tRN\t1\t2\t3\t4\t5\n");
}

// zefiranto-cli as a script runs it.
std::pair<int, std::string> Cli(const std::string& argomenti) {
    std::string comando = std::string(ZEF_DATI_BIN) + "/zefiranto-cli " + argomenti + " 2>&1";
    FILE* p = popen(comando.c_str(), "r");
    std::string out;
    std::array<char, 4096> buf;
    size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) out.append(buf.data(), n);
    int st = pclose(p);
    return {WIFEXITED(st) ? WEXITSTATUS(st) : -1, out};
}

TEST(CliArchivio, ImportaInfoEsporta) {
    if (!std::filesystem::exists(std::string(ZEF_DATI_BIN) + "/zefiranto-cli")) GTEST_SKIP() << "zefiranto-cli non costruito";
    CartellaTemporanea dir;
    const std::string db = dir / "nuovo.db";
    auto r = Cli("archivio info --archivio " + db);
    EXPECT_EQ(r, std::make_pair(0, std::string("ESTRAZIONI: 0\n")));
    prova::ScriviFile(dir / "a.txt", "2025/01/02\tBA\t1\t2\t3\t4\t5\n2024/12/31\tRN\t6\t7\t8\t9\t10\n");
    r = Cli("archivio importa " + (dir / "a.txt") + " --archivio " + db);
    EXPECT_EQ(r, std::make_pair(0, std::string("IMPORTATE: 2\nESTRAZIONI: 2\n")));
    r = Cli("archivio info --archivio " + db);
    EXPECT_EQ(r.second, "ESTRAZIONI: 2\nPRIMA: 2024/12/31\nULTIMA: 2025/01/02\n");
    r = Cli("archivio esporta --archivio " + db);
    EXPECT_EQ(r.second, "2024/12/31\tRN\t6\t7\t8\t9\t10\n2025/01/02\tBA\t1\t2\t3\t4\t5\n");
    prova::ScriviFile(dir / "b.txt", "2025/01/09\tBA\t1\t2\t3\t4\t5\n2025/01/10\tBA\t1\t1\t3\t4\t5\n");
    r = Cli("archivio importa " + (dir / "b.txt") + " --archivio " + db);
    EXPECT_EQ(r.first, 1);
    EXPECT_NE(r.second.find("riga 2"), std::string::npos);
    prova::ScriviFile(dir / "falso.db", "niente");
    r = Cli("archivio info --archivio " + (dir / "falso.db"));
    EXPECT_EQ(r.first, 1);
    EXPECT_NE(r.second.find("Formato di database non riconosciuto"), std::string::npos);
}

}  // namespace
