// The dialog "COLONNA DA AGGIUNGERE" and the list's popup menu, driven through their widgets.

#include "core/giocate.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "ui/form17view.h"
#include "ui/form18menu.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include <string>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {
// The text of the box as the masked box reports it: typed digits in their places,
// blanks elsewhere, the literal blanks of the mask kept; 29 characters.
std::string Riga(const std::string& inizio) { return inizio + std::string(29 - inizio.size(), ' '); }
}  // namespace

TEST(Form17View, LaColonnaDigitataVaInFondoAllaLista) {
    Sistema s;
    s.CostoColonna = Currency::daInteri(2);
    s.MSFlexGrid1.AddItem(" 1  2  3 ");
    Form17 f(s);
    Form17View v(f);
    v.show();
    EXPECT_EQ(v.windowTitle(), "COLONNA DA AGGIUNGERE");
    v.MaskEdBox1()->setFocus();
    v.MaskEdBox1()->home(false);
    QTest::keyClicks(v.MaskEdBox1(), "071142");
    EXPECT_EQ(f.MaskEdBox1, Riga("07 11 42"));
    Clic(v.Command1());
    EXPECT_FALSE(v.isVisible());
    EXPECT_TRUE(f.scaricato());
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 2);
    EXPECT_EQ(s.MSFlexGrid1.riga(1), Riga("07 11 42"));
    EXPECT_EQ(s.ListaCol, "2");
    // the change of the count reprices: two rows at two euro
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 4");
}

TEST(Form17View, LettereRifiutateELaScatolaIntattaNonAggiunge) {
    Sistema s;
    Form17 f(s);
    Form17View v(f);
    v.show();
    v.MaskEdBox1()->setFocus();
    v.MaskEdBox1()->home(false);
    QTest::keyClicks(v.MaskEdBox1(), "ab");
    EXPECT_EQ(f.MaskEdBox1.find_first_not_of(' '), std::string::npos);
    Clic(v.Command1());
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
    EXPECT_FALSE(v.isVisible());  // it unloads all the same
}

TEST(Form17View, NessunControlloSuiNumeri) {
    // a hand-typed column is taken as it stands, out of range numbers and all
    Sistema s;
    Form17 f(s);
    Form17View v(f);
    v.show();
    v.MaskEdBox1()->setFocus();
    v.MaskEdBox1()->home(false);
    QTest::keyClicks(v.MaskEdBox1(), "9900");
    Clic(v.Command1());
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(s.MSFlexGrid1.riga(0), Riga("99 00"));
}

TEST(Form18Menu, EliminaTogliLaRigaCorrente) {
    Sistema s;
    s.MSFlexGrid1.AddItem(" 1  2 ");
    s.MSFlexGrid1.AddItem(" 3  4 ");
    s.MSFlexGrid1.AddItem(" 5  6 ");
    s.ListaCol = "3";
    s.MSFlexGrid1.Row = s.MSFlexGrid1.RowSel = 1;
    int modifiche = 0;
    Form18Menu m(s, [&] { ++modifiche; });
    EXPECT_EQ(m.title(), "Colonna");
    EXPECT_EQ(m.Aggiungi()->text(), "Aggiungi");
    EXPECT_EQ(m.Elimina()->text(), "Elimina");
    m.Elimina()->trigger();
    EXPECT_EQ(modifiche, 1);
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 2);
    EXPECT_EQ(s.MSFlexGrid1.riga(0), " 1  2 ");
    EXPECT_EQ(s.MSFlexGrid1.riga(1), " 5  6 ");
    EXPECT_EQ(s.ListaCol, "2");
    // the last row goes too: the list can be emptied
    m.Elimina()->trigger();
    m.Elimina()->trigger();
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(s.ListaCol, "0");
}

TEST(Form18Menu, AggiungiApreLaColonnaDaAggiungere) {
    Sistema s;
    int modifiche = 0;
    Form18Menu m(s, [&] { ++modifiche; });
    prova::AlProssimoModale<Form17View>([](Form17View* d) {
        d->MaskEdBox1()->setFocus();
        d->MaskEdBox1()->home(false);
        QTest::keyClicks(d->MaskEdBox1(), "0510");
        Clic(d->Command1());
    });
    m.Aggiungi()->trigger();
    EXPECT_EQ(modifiche, 1);
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(s.MSFlexGrid1.riga(0), Riga("05 10"));
}

TEST(Form17View, BlanchiESegniOccupanoIPosti) {
    // a blank fills a place as a digit does: " 7 8" gives the blank-led form of the list
    Sistema s;
    Form17 f(s);
    Form17View v(f);
    v.show();
    v.MaskEdBox1()->setFocus();
    v.MaskEdBox1()->home(false);
    QTest::keyClicks(v.MaskEdBox1(), " 7 8-1");
    EXPECT_EQ(v.MaskEdBox1()->displayText().toStdString(), Riga(" 7  8 -1"));
    EXPECT_EQ(f.MaskEdBox1, Riga(" 7  8 -1"));
    Clic(v.Command1());
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(NumeroInRiga(s.MSFlexGrid1.riga(0), 1), 7);
    EXPECT_EQ(NumeroInRiga(s.MSFlexGrid1.riga(0), 2), 8);
}
