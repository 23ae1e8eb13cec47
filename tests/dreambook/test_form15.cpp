// The dream book window on a small book: the look-up in its order, the list of objects,
// the first-word search, the two messages, and the numbers added to the forecast.
#include "dreambook/form15.h"

#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "libro_prova.h"

#include <gtest/gtest.h>

namespace zef {
namespace {

struct Banco : ::testing::Test {
    prova::CartellaTemporanea dir;
    std::string libro = prova::LibroDiProva(dir);
    Sistema s;
    InterfacciaScriptata ui;
    Form15 f{s, ui, libro};
    std::vector<std::string> etichette() const { return {f.lblnum.begin(), f.lblnum.end()}; }
};

TEST_F(Banco, ANameInBothTablesGivesTwoNumbersInOrder) {
    f.cambiaText1("Maria");
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{1, 3}));
    EXPECT_TRUE(ui.box.empty());
}

TEST_F(Banco, ASubjectWithoutObjectsIgnoresTheObject) {
    f.cambiaText1("gamba");
    f.Text2 = "rotta";
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{78}));
    EXPECT_FALSE(f.Combo1Visibile);
    EXPECT_TRUE(f.Text2.empty());
    EXPECT_TRUE(ui.box.empty());
}

TEST_F(Banco, AnObjectNotInTheBookOffersTheBlockSortedThenTheChoiceIsFound) {
    f.cambiaText1("gatto");
    f.Text2 = "giallo";
    f.clickCommand3();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, Form15::OggettoNonTrovato);
    EXPECT_EQ(ui.box[0].titolo, "Esito");
    EXPECT_EQ(ui.box[0].icona, Icona::Esclamazione);
    EXPECT_TRUE(f.Combo1Visibile);
    EXPECT_EQ(f.Combo1, (std::vector<std::string>{"bianco", "che dorme", "nero"}));
    EXPECT_EQ(f.numeri(), (std::vector<int>{4}));  // the subject's number stays on show
    f.Combo1Testo = "bianco";
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{4, 5}));
    EXPECT_EQ(f.Text2, "bianco");
    EXPECT_FALSE(f.Combo1Visibile);
    EXPECT_EQ(ui.box.size(), 1u);
}

TEST_F(Banco, SeveralWordsAreSoughtByTheFirstAcrossTheTable) {
    // "nero di penne" is gallo's; "nero ..." matches the first "nero" in table order: gatto's.
    f.cambiaText1("gallo");
    f.Text2 = "nero di penne";
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{25, 14}));
    // One word is sought exactly.
    f.Text2 = "nero";
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{25, 14}));
    f.Text2 = "ner";
    f.clickCommand3();
    EXPECT_TRUE(f.Combo1Visibile);
}

TEST_F(Banco, CaseAndAccentsDoNotMatter) {
    f.cambiaText1("CITTA");
    f.Text2 = "Grande";
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{30, 40}));
}

TEST_F(Banco, WhatTheBookLacksGivesTheMessageAndNothingElse) {
    for (std::string soggetto : {"zorro", "l'acqua'; DROP TABLE \"Personaggi\"; --", "", "9 di coppe", "ñandù"}) {
        ui.box.clear();
        f.cambiaText1(soggetto);
        f.clickCommand3();
        ASSERT_EQ(ui.box.size(), 1u) << soggetto;
        EXPECT_EQ(ui.box[0].testo, Form15::SoggettoNonTrovato);
        EXPECT_TRUE(f.numeri().empty());
    }
    // The book is untouched.
    f.cambiaText1("pulcinella");
    f.clickCommand3();
    EXPECT_EQ(f.numeri(), (std::vector<int>{70}));
    // No book at all.
    Form15 senza(s, ui, dir / "manca.db");
    ui.box.clear();
    senza.cambiaText1("maria");
    senza.clickCommand3();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, Form15::SoggettoNonTrovato);
}

TEST_F(Banco, ChangingTheSubjectEmptiesTheObjectAndHidesTheList) {
    f.cambiaText1("gatto");
    f.Text2 = "giallo";
    f.clickCommand3();
    ASSERT_TRUE(f.Combo1Visibile);
    f.cambiaText1("gatt");
    EXPECT_TRUE(f.Text2.empty());
    EXPECT_FALSE(f.Combo1Visibile);
}

TEST_F(Banco, AddingMarksThePadOnceAndRebuildsTheForecast) {
    s.pad[3] = true;  // 4 already chosen
    s.Label2 = "1";
    s.PronosticoDalPad();
    s.pannelli[0] = "CONDIZIONATE: 12";
    bool scaricato = false;
    f.scaricaForm14 = [&] { scaricato = true; };
    f.cambiaText1("gatto");
    f.Text2 = "nero";
    f.clickCommand3();
    ASSERT_EQ(f.numeri(), (std::vector<int>{4, 14}));
    f.clickCommand1();
    EXPECT_TRUE(s.pad[13]);
    EXPECT_EQ(s.Label2, "2");
    EXPECT_EQ(s.NumPronostico, 2);
    EXPECT_EQ(s.Pronostico[1], 4);
    EXPECT_EQ(s.Pronostico[2], 14);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 0");
    EXPECT_TRUE(scaricato);
    // Twice: the count stays.
    f.clickCommand1();
    EXPECT_EQ(s.Label2, "2");
    f.clickCommand2();
    EXPECT_FALSE(f.visibile);
}

}  // namespace
}  // namespace zef
