// The cursor and the archive file: positions, writes through to the file, nulls,
// names in any case, bound parameters, the typed errors of a bad archive.
#include "aiuto.h"

#include "archive/archivio.h"
#include "archive/cursore.h"

#include <gtest/gtest.h>

using namespace zef;
using prova::CartellaTemporanea;

namespace {

struct ArchivioProva : ::testing::Test {
    CartellaTemporanea dir;
    std::unique_ptr<ArchivioEstrazioni> a;
    void SetUp() override { a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db"); }
    int errore(const std::function<void()>& f) {
        try {
            f();
        } catch (const ErroreEsecuzione& e) {
            return e.numero;
        }
        return 0;
    }
};

TEST_F(ArchivioProva, NuovoArchivioHaLeTabelleEIlRecordDelleVincite) {
    EXPECT_EQ(a->NumeroEstrazioni(), 0);
    auto e = a->OpenRecordset("select * from estrazioni order by id");
    EXPECT_TRUE(e.Eof());
    EXPECT_TRUE(e.Bof());
    EXPECT_EQ(e.RecordCount(), 0);
    EXPECT_EQ(e.campi().size(), 57u);
    EXPECT_EQ(e.campi()[0], "id");
    EXPECT_EQ(e.campi()[56], "Nazionale5");
    auto t = a->OpenRecordset("estrazionitmp");
    EXPECT_EQ(t.campi().size(), 57u);
    auto v = a->OpenRecordset("Vincite");
    ASSERT_EQ(v.RecordCount(), 1);
    for (const char* c : {"estratti", "ambi", "terni", "quaterne", "cinquine", "sommaspesa", "sommavinta"})
        EXPECT_EQ(v.campo(c).comeReale(), 0.0) << c;
    // Opening again does not add a second record of wins.
    a.reset();
    a = std::make_unique<ArchivioEstrazioni>(dir / "archivio.db");
    EXPECT_EQ(a->OpenRecordset("Vincite").RecordCount(), 1);
}

TEST_F(ArchivioProva, PosizioniEMovimenti) {
    prova::RiempiProva(*a, 10);
    auto c = a->OpenRecordset("Estrazioni");
    EXPECT_EQ(c.RecordCount(), 10);
    EXPECT_EQ(c.AbsolutePosition(), 0);  // opens on the first row
    c.MoveLast();
    EXPECT_EQ(c.AbsolutePosition(), 9);
    EXPECT_EQ(c.numero("id"), 10);
    c.MoveNext();
    EXPECT_TRUE(c.Eof());
    EXPECT_FALSE(c.Bof());
    EXPECT_EQ(c.AbsolutePosition(), -1);
    EXPECT_EQ(errore([&] { c.MoveNext(); }), 3021);
    EXPECT_EQ(errore([&] { c.campo("id"); }), 3021);
    c.MovePrevious();
    EXPECT_EQ(c.numero("id"), 10);
    // Move counts from the current row, not from the first.
    c.MoveFirst();
    c.Move(5);
    EXPECT_EQ(c.AbsolutePosition(), 5);
    c.Move(-2);
    EXPECT_EQ(c.AbsolutePosition(), 3);
    c.Move(0);
    EXPECT_EQ(c.AbsolutePosition(), 3);
    c.Move(6);
    EXPECT_EQ(c.AbsolutePosition(), 9);
    c.Move(1);
    EXPECT_TRUE(c.Eof());
    c.MoveLast();
    c.Move(-100);
    EXPECT_TRUE(c.Bof());
    EXPECT_EQ(errore([&] { c.MovePrevious(); }), 3021);
    EXPECT_EQ(errore([&] { c.Move(1); }), 3021);
    c.MoveNext();
    EXPECT_EQ(c.AbsolutePosition(), 0);
}

TEST_F(ArchivioProva, CancellareUnaRigaLasciaIlBucoEIlProssimoIdVaOltreLUltimo) {
    prova::RiempiProva(*a, 1000);
    auto c = a->OpenRecordset("select * from estrazioni order by id");
    c.Move(499);
    ASSERT_EQ(c.numero("id"), 500);
    c.Delete();
    EXPECT_EQ(c.RecordCount(), 999);
    EXPECT_EQ(errore([&] { c.campo("id"); }), 3167);
    c.MoveNext();  // the row that followed the deleted one
    EXPECT_EQ(c.numero("id"), 501);
    EXPECT_EQ(c.AbsolutePosition(), 499);
    // Positions run 0..998 over the ids without 500.
    c.MoveFirst();
    long passi = 0;
    while (!c.Eof()) {
        EXPECT_EQ(c.AbsolutePosition(), passi);
        EXPECT_NE(c.numero("id"), 500);
        c.MoveNext();
        ++passi;
    }
    EXPECT_EQ(passi, 999);
    c.MoveLast();
    EXPECT_EQ(c.numero("id"), 1000);

    // Written through: another cursor sees the gap.
    auto d = a->OpenRecordset("estrazioni");
    EXPECT_EQ(d.RecordCount(), 999);

    // A row added without an id gets one above all others and sorts last.
    d.AddNew();
    d.imposta("data", "2030-01-01");
    d.imposta("Bari1", 7);
    d.Update();
    EXPECT_EQ(d.RecordCount(), 1000);
    d.MoveLast();
    EXPECT_EQ(d.numero("id"), 1001);
    EXPECT_EQ(d.numero("bari1"), 7);
    auto e = a->OpenRecordset("Estrazioni");
    e.MoveLast();
    EXPECT_EQ(e.numero("id"), 1001);
    EXPECT_EQ(e.campo("data").comeTesto(), "2030-01-01");
    EXPECT_FALSE(e.numero("Bari2").has_value());
}

TEST_F(ArchivioProva, CancellareLaPrimaEMuoversiIndietroPortaAlBof) {
    prova::RiempiProva(*a, 3);
    auto c = a->OpenRecordset("estrazioni");
    c.Delete();
    c.MovePrevious();
    EXPECT_TRUE(c.Bof());
    c.MoveNext();
    EXPECT_EQ(c.numero("id"), 2);
    // Deleting the last: the next move is past the end.
    c.MoveLast();
    c.Delete();
    c.MoveNext();
    EXPECT_TRUE(c.Eof());
    c.MoveFirst();
    c.Delete();
    EXPECT_EQ(c.RecordCount(), 0);
    c.MoveNext();
    EXPECT_TRUE(c.Eof() && c.Bof());
    EXPECT_EQ(a->NumeroEstrazioni(), 0);
}

TEST_F(ArchivioProva, NomiSenzaRiguardoAlleMaiuscoleENulli) {
    prova::RiempiProva(*a, 2, 1, 2000, true);
    auto c = a->OpenRecordset("ESTRAZIONI");
    EXPECT_EQ(c.numero("BARI1"), c.numero("bari1"));
    EXPECT_EQ(c.numero("Bari1"), prova::NumeroProva(1, 1, 1));
    EXPECT_EQ(c.campo("NAZIONALE3").nullo(), true);
    EXPECT_FALSE(c.numero("Nazionale3").has_value());
    // A null read as a number raises "Uso non valido di Null".
    EXPECT_EQ(errore([&] { c.campo("Nazionale3").comeIntero(); }), 94);
    // A null compares false with every number: no hit for any number.
    for (int n = 1; n <= 90; ++n)
        for (int p = 1; p <= 5; ++p) EXPECT_NE(c.numero(NomeCampo(11, p)), std::optional<int>(n));
    EXPECT_EQ(errore([&] { c.campo("Bari6"); }), 3265);
    EXPECT_EQ(a->OpenRecordset("EstrazioniTMP").RecordCount(), 0);
    EXPECT_EQ(a->OpenRecordset("select * from estrazioniTMP").RecordCount(), 0);
    EXPECT_EQ(errore([&] { a->OpenRecordset("Nessuna"); }), 3078);
    EXPECT_EQ(errore([&] { a->OpenRecordset("estrazioni; drop table estrazioni"); }), 3000);
    EXPECT_EQ(a->NumeroEstrazioni(), 2);
}

TEST_F(ArchivioProva, ParametriLegatiNonIncollati) {
    prova::RiempiProva(*a, 40, 1, 2024);
    // 5 February 2024 is the 36th day.
    auto c = a->OpenRecordset("SELECT ID FROM estrazioni WHERE data = ?", {Valore("2024-02-05")});
    ASSERT_EQ(c.RecordCount(), 1);
    EXPECT_EQ(c.numero("id"), 36);
    EXPECT_TRUE(a->EsisteData("2024-02-05"));
    EXPECT_FALSE(a->EsisteData("2024-05-02"));
    auto d = a->OpenRecordset("SELECT ID FROM estrazioni WHERE data = ?", {Valore("x' OR '1'='1")});
    EXPECT_EQ(d.RecordCount(), 0);
    auto r = a->OpenRecordset("SELECT * FROM estrazioni WHERE id >= ? and id <= ? order by id", {Valore(10), Valore(12)});
    EXPECT_EQ(r.RecordCount(), 3);
    r.MoveLast();
    EXPECT_EQ(r.numero("id"), 12);
    // A read-only statement refuses writes.
    EXPECT_EQ(errore([&] { c.AddNew(); }), 3027);
    // "order by id desc" reads newest first.
    auto g = a->OpenRecordset("select * from estrazioni order by id desc");
    EXPECT_EQ(g.numero("id"), 40);
}

TEST_F(ArchivioProva, ScrittureConvertiteAlTipoDelCampo) {
    prova::RiempiProva(*a, 1);
    auto c = a->OpenRecordset("estrazioni");
    c.imposta("Bari1", " 12 ");      // text of an edit box
    c.imposta("Bari2", 7.5);         // a floating-point number from the web page, half to even
    c.imposta("Bari3", "");          // an empty box stores null
    c.imposta("data", "15/03/24");   // typed date, two-digit year
    c.Update();
    auto d = a->OpenRecordset("estrazioni");
    EXPECT_EQ(d.numero("Bari1"), 12);
    EXPECT_EQ(d.numero("Bari2"), 8);
    EXPECT_FALSE(d.numero("Bari3").has_value());
    EXPECT_EQ(d.campo("data").comeTesto(), "2024-03-15");
    EXPECT_EQ(errore([&] { d.imposta("Bari4", "abc"); }), 3421);
    EXPECT_EQ(errore([&] { d.imposta("data", "31/02/2024"); }), 3421);
    d.CancelUpdate();
    EXPECT_EQ(errore([&] { d.Update(); }), 3020);
}

TEST_F(ArchivioProva, IlRiposizionamentoAvvisaAOgniMovimento) {
    prova::RiempiProva(*a, 4);
    auto c = a->OpenRecordset("estrazioni");
    std::vector<long> viste;
    c.alRiposizionamento = [&] { viste.push_back(c.AbsolutePosition()); };
    c.MoveLast();
    c.MovePrevious();
    c.MoveFirst();
    c.Move(2);
    EXPECT_EQ(viste, (std::vector<long>{3, 2, 0, 2}));
}

TEST_F(ArchivioProva, UnaTransazioneNonConfermataLasciaLArchivioComEra) {
    prova::RiempiProva(*a, 5);
    {
        ArchivioEstrazioni::Transazione t(*a);
        auto c = a->OpenRecordset("estrazioni");
        c.Delete();
        c.AddNew();
        c.imposta("data", "2031-01-01");
        c.Update();
    }
    EXPECT_EQ(a->NumeroEstrazioni(), 5);
    auto c = a->OpenRecordset("estrazioni");
    EXPECT_EQ(c.numero("id"), 1);
}

TEST(ArchivioFile, FileMancanteOEstraneoDannoUnErroreTipizzato) {
    CartellaTemporanea dir;
    try {
        ArchivioEstrazioni a(dir / "manca.db");
        FAIL();
    } catch (const ErroreArchivio& e) {
        EXPECT_EQ(e.numero, 3024);
        EXPECT_NE(e.testo().find("manca.db"), std::string::npos);
    }
    prova::ScriviFile(dir / "testo.db", "questo non e' un database\n");
    try {
        ArchivioEstrazioni a(dir / "testo.db");
        FAIL();
    } catch (const ErroreArchivio& e) {
        EXPECT_EQ(e.numero, 3343);
        EXPECT_EQ(e.testo(), "Formato di database non riconosciuto '" + (dir / "testo.db") + "'.");
    }
    {
        SQLite::Database db(dir / "altro.db", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec("CREATE TABLE estrazioni (id INTEGER, data DATE)");
    }
    EXPECT_THROW(ArchivioEstrazioni(dir / "altro.db"), ErroreArchivio);
    // ApriOCrea does not overwrite a foreign file either.
    EXPECT_THROW(ArchivioEstrazioni::ApriOCrea(dir / "testo.db"), ErroreArchivio);
}

}  // namespace

namespace {

TEST_F(ArchivioProva, FindFirstEFindNext) {
    prova::RiempiProva(*a, 30, 1, 2024);
    auto c = a->OpenRecordset("estrazioni");
    c.Move(3);
    // Bari1 of id i is (7i + 30) mod 90 + 1, which repeats only every 90 ids: 45 is id 2's alone.
    ASSERT_EQ(prova::NumeroProva(2, 1, 1), 45);
    EXPECT_TRUE(c.FindFirst("BARI1", Valore(45)));
    EXPECT_EQ(c.numero("id"), 2);
    EXPECT_FALSE(c.FindNext("Bari1", Valore(45)));
    EXPECT_TRUE(c.NoMatch());
    EXPECT_EQ(c.numero("id"), 2);  // the row stays
    EXPECT_TRUE(c.FindFirst("data", Valore("2024-01-05")));
    EXPECT_EQ(c.AbsolutePosition(), 4);
    EXPECT_FALSE(c.NoMatch());
    EXPECT_FALSE(c.FindFirst("Bari1", Valore()));  // null matches nothing
}

// Random walks, writes and deletes: what the cursor shows always equals what a fresh
// open of the file reads, row by row and field by field.
TEST_F(ArchivioProva, OperazioniCasualiRestanoCoerentiColFile) {
    prova::RiempiProva(*a, 60, 1, 2021, true);
    std::mt19937 rng(20240315);
    auto c = a->OpenRecordset("select * from estrazioni order by id");
    for (int passo = 0; passo < 600; ++passo) {
        int op = static_cast<int>(rng() % 8);
        try {
            switch (op) {
                case 0: c.MoveNext(); break;
                case 1: c.MovePrevious(); break;
                case 2: c.Move(static_cast<long>(rng() % 21) - 10); break;
                case 3: c.MoveFirst(); break;
                case 4: c.MoveLast(); break;
                case 5: c.Delete(); break;
                case 6:
                    c.AddNew();
                    c.imposta("data", "2030-01-01");
                    c.imposta(NomeCampo(1 + static_cast<int>(rng() % 11), 1 + static_cast<int>(rng() % 5)),
                              static_cast<int>(rng() % 90) + 1);
                    c.Update();
                    break;
                case 7:
                    c.imposta(NomeCampo(1 + static_cast<int>(rng() % 11), 1 + static_cast<int>(rng() % 5)),
                              rng() % 4 == 0 ? Valore() : Valore(static_cast<int>(rng() % 90) + 1));
                    c.Update();
                    break;
            }
        } catch (const ErroreEsecuzione& e) {
            // Only the errors of no current row or of a deleted one.
            ASSERT_TRUE(e.numero == 3021 || e.numero == 3167) << e.numero << " " << e.what();
        }
        if (passo % 50 != 49) continue;
        auto f = a->OpenRecordset("select * from estrazioni order by id");
        ASSERT_EQ(f.RecordCount(), c.RecordCount());
        long posizione = c.AbsolutePosition();
        std::vector<Valore> corrente;
        if (posizione >= 0)
            for (const auto& n : c.campi()) corrente.push_back(c.campo(n));
        for (c.MoveFirst(); !c.Eof(); c.MoveNext(), f.MoveNext())
            for (int i = 0; i < static_cast<int>(c.campi().size()); ++i) ASSERT_EQ(c.campo(i), f.campo(i));
        // Back where it was, and the same row there.
        if (posizione >= 0) {
            c.MoveFirst();
            c.Move(posizione);
            for (size_t i = 0; i < corrente.size(); ++i) EXPECT_EQ(c.campo(static_cast<int>(i)), corrente[i]);
        }
    }
    // The ids that were added went above all others, in order.
    auto f = a->OpenRecordset("estrazioni");
    long ultimo = 0;
    for (; !f.Eof(); f.MoveNext()) {
        EXPECT_GT(*f.numero("id"), ultimo);
        ultimo = *f.numero("id");
    }
}

}  // namespace
