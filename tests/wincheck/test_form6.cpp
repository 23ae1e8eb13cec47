#include "wincheck/form6.h"

#include "archive/aiuto.h"
#include "core/form2.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/prova_sistema.h"
#include "wincheck/form16.h"

#include <gtest/gtest.h>

namespace zef {
namespace {

struct Banco : ::testing::Test {
    prova::CartellaTemporanea cartella;
    std::string file = cartella / "archivio.db";
    Sistema s;
    InterfacciaScriptata ui;
    Form7 f7;
    prova::Separatore punto{'.'};

    void SetUp() override {
        auto a = ArchivioEstrazioni::ApriOCrea(file);
        prova::RiempiProva(*a, 3);
    }
    // A play on one wheel (0..11) with the kinds ticked and each stake at 1.00.
    void Gioca(int k, std::array<int, 5> sorti, int ruota) {
        s.SviluppoK = static_cast<int16_t>(k);
        s.form2.Check = sorti;
        s.form2.Option1.fill(false);
        s.form2.Option1[static_cast<size_t>(ruota)] = true;
        s.form2.testi = {"1.00", "1.00", "1.00", "1.00", "1.00"};
        s.CostoColonna = Currency::daInteri(2);
    }
    void Riga(std::vector<uint8_t> n) { s.MSFlexGrid1.AddItem(TestoRiga(n.data(), static_cast<int>(n.size()))); }
    TotaliVincite Totali() {
        ArchivioEstrazioni a(file);
        return LeggiVincite(a);
    }
};

TEST_F(Banco, OpensOnTheLatestDrawAndFollowsTheCursor) {
    Form6 f(s, ui, f7, file);
    f.carica();
    EXPECT_TRUE(f7.caricato);
    EXPECT_EQ(f.Text1[0], TestoSemplice(prova::NumeroProva(3, 1, 1)));
    EXPECT_EQ(f.Text1[54], TestoSemplice(prova::NumeroProva(3, 11, 5)));
    EXPECT_EQ(f.Label23, "03/01/20");
    f.Data1.primo();
    EXPECT_EQ(f.Text1[0], TestoSemplice(prova::NumeroProva(1, 1, 1)));
    for (const auto& p : f.punti) EXPECT_EQ(p, " 0");
}

TEST_F(Banco, CercaWithNoRowsSaysSoAndUnloads) {
    Form6 f(s, ui, f7, file);
    f.carica();
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Visualizzare le giocate per effettuare lo spoglio.");
    EXPECT_FALSE(f.caricato);
    EXPECT_FALSE(f.Timer1);
}

TEST_F(Banco, CercaThenTheTickChecksValuesAndFillsTheListing) {
    Form6 f(s, ui, f7, file);
    f.carica();
    const int a = prova::NumeroProva(3, 5, 1), b = prova::NumeroProva(3, 5, 2);
    Gioca(2, {0, 1, 0, 0, 0}, 4);  // ambo on Milano
    Riga({static_cast<uint8_t>(a), static_cast<uint8_t>(b)});
    uint8_t fuori = 1;  // a number not drawn on Milano
    for (int p = 1; p <= 5; ++p)
        for (int q = 1; q <= 5; ++q)
            if (prova::NumeroProva(3, 5, q) == fuori) ++fuori;
    Riga({static_cast<uint8_t>(a), fuori});
    f.clickCommand1();
    EXPECT_TRUE(f.Timer1);
    EXPECT_TRUE(f.barraVisibile);
    EXPECT_EQ(f.barraMassimo, 2);
    f.tickTimer1();
    EXPECT_FALSE(f.Timer1);
    EXPECT_FALSE(f.barraVisibile);
    EXPECT_EQ(f.punti[1], "1");
    EXPECT_EQ(f.punti[0], " 0");  // estratto not played
    EXPECT_EQ(f.lblVincitaTotale, "230.00");
    ASSERT_EQ(f7.List1.size(), 1u);
    EXPECT_EQ(f7.List1[0].substr(0, 30), "AMBO   su Milano  SCHEDINA: 1.");
    // A second CERCA starts from an empty listing.
    f.clickCommand1();
    EXPECT_TRUE(f7.List1.empty());
    // Typed boxes all empty: nothing won.
    f.clickCommand3();
    f.tickTimer1();
    EXPECT_EQ(f.punti[1], " 0");
    EXPECT_EQ(f.lblVincitaTotale, "0.00");
}

TEST_F(Banco, ResettaEmptiesTheBoxesWithTodaysDate) {
    Form6 f(s, ui, f7, file);
    f.oggi = [] { return std::string("2026-11-24"); };
    f.carica();
    f.clickCommand3();
    for (const auto& t : f.Text1) EXPECT_TRUE(t.empty());
    EXPECT_EQ(f.Label23, "24/11/26");
    EXPECT_EQ(f.focus, 0);
}

TEST_F(Banco, MemorizzaStoresOnlyADrawThatCanExist) {
    Form6 f(s, ui, f7, file);
    f.oggi = [] { return std::string("2026-11-24"); };
    f.carica();
    f.clickCommand3();
    // Out of range, a repeat within a wheel, a wheel half filled, all empty: refused.
    for (auto prova : std::vector<std::array<std::string, 5>>{
             {"1", "2", "3", "4", "91"}, {"1", "2", "3", "4", "1"}, {"1", "2", "", "", ""}, {"", "", "", "", ""},
             {"1", "2", "3", "4", "x"}, {"1", "2", "3", "4", "4.5"}}) {
        for (int i = 0; i < 5; ++i) f.Text1[static_cast<size_t>(i)] = prova[static_cast<size_t>(i)];
        f.clickCommand4();
        EXPECT_EQ(ui.ultimoBox().testo, Form6::MessaggioNumeriNonValidi);
    }
    EXPECT_EQ(ArchivioEstrazioni(file).NumeroEstrazioni(), 3);
    // Bari and Nazionale drawn, the other wheels empty: stored with nulls.
    for (int i = 0; i < 5; ++i) {
        f.Text1[static_cast<size_t>(i)] = TestoSemplice(10 + i);
        f.Text1[static_cast<size_t>(50 + i)] = TestoSemplice(80 + i);
    }
    f.clickCommand4();
    EXPECT_EQ(ui.ultimoBox().testo, "L'estrazione è stata memorizzata con successo.");
    EXPECT_EQ(ui.ultimoBox().titolo, "FINESTRA INFORMATIVA");
    EXPECT_TRUE(f.Inserimento);
    ArchivioEstrazioni a(file);
    EXPECT_EQ(a.NumeroEstrazioni(), 4);
    Cursore c = a.OpenRecordset("estrazioni");
    c.MoveLast();
    EXPECT_EQ(c.campo("data").comeTesto(), "2026-11-24");
    EXPECT_EQ(c.numero("Bari5"), 14);
    EXPECT_EQ(c.numero("Nazionale1"), 80);
    EXPECT_FALSE(c.numero("Roma1").has_value());
    // The boxes keep what was typed until the window comes back to the front.
    EXPECT_EQ(f.Text1[0], "10");
    f.attiva();
    EXPECT_FALSE(f.Inserimento);
}

TEST_F(Banco, EsciRecordsOnlyOnTheLatestDrawAndOnlyThePlayedKinds) {
    Form6 f(s, ui, f7, file);
    f.carica();
    const int a = prova::NumeroProva(3, 1, 1), b = prova::NumeroProva(3, 1, 2);
    Gioca(2, {0, 1, 0, 0, 0}, 0);
    Riga({static_cast<uint8_t>(a), static_cast<uint8_t>(b)});
    Riga({1, 2});
    Riga({3, 4});
    f.clickCommand1();
    f.tickTimer1();
    ASSERT_EQ(f.lblVincitaTotale, "230.00");
    f.punti[0] = "7";  // an estratto count that is not played stays out of the tally

    // Answer No: nothing added.
    ui.risposte = {Risposta::No};
    f.clickCommand2();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].titolo, "FINSETRA DI RICHIESTA");
    EXPECT_EQ(ui.box[0].testo, "Si vuole memorizzare l'esito del sistema?");
    EXPECT_EQ(Totali().sommaspesa, Currency{});

    ui.risposte = {Risposta::Si};
    f.clickCommand2();
    TotaliVincite t = Totali();
    EXPECT_EQ(t.conteggi[1], 1);
    EXPECT_EQ(t.conteggi[0], 0);
    EXPECT_EQ(t.sommavinta, Currency::daInteri(230));
    EXPECT_EQ(t.sommaspesa, Currency::daInteri(6));  // three rows at 2.00
    // Recording twice adds twice.
    ui.risposte = {Risposta::Si};
    f.clickCommand2();
    EXPECT_EQ(Totali().conteggi[1], 2);

    // Off the latest draw: no question, nothing added.
    f.Data1.precedente();
    const size_t prima = ui.box.size();
    f.clickCommand2();
    EXPECT_EQ(ui.box.size(), prima);
    EXPECT_EQ(Totali().conteggi[1], 2);
}

TEST_F(Banco, TallyWindowShowsTheRecordAndARedLoss) {
    {
        ArchivioEstrazioni a(file);
        AggiungiVincite(a, {4, 3, 2, 1, 0}, {true, true, true, true, true}, Currency::daInteri(10),
                        Currency::daInteri(25));
    }
    Form16 f(ui, file);
    f.carica();
    EXPECT_EQ(f.Text, (std::array<std::string, 5>{"0", "1", "2", "3", "4"}));
    EXPECT_EQ(f.MaskEdBox1, "10.00");
    EXPECT_EQ(f.MaskEdBox2, "25.00");
    EXPECT_EQ(f.MaskEdBox3, "-15.00");
    EXPECT_TRUE(f.totaleRosso);
    {
        ArchivioEstrazioni a(file);
        AggiungiVincite(a, {}, {}, Currency::daInteri(15), Currency{});
    }
    Form16 g(ui, file);
    g.carica();
    EXPECT_EQ(g.MaskEdBox3, "0.00");
    EXPECT_FALSE(g.totaleRosso);
    EXPECT_TRUE(ui.box.empty());
    // A table without its record: the error is shown, the window stays usable.
    {
        ArchivioEstrazioni a(file);
        a.db().exec("DELETE FROM Vincite");
        EXPECT_EQ(prova::NumeroErrore([&] { AggiungiVincite(a, {}, {}, Currency{}, Currency{}); }), 3021);
    }
    Form16 h(ui, file);
    h.carica();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
}

}  // namespace
}  // namespace zef
