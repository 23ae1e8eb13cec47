// The dialogs opened as the main window opens them, one inside the other.

#include "core/form2.h"
#include "core/form20.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/prova_sistema.h"
#include "ui/finestre_giocata.h"
#include "ui/form12view.h"
#include "ui/form17view.h"
#include "ui/form20view.h"
#include "ui/form2view.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

TEST(FinestreGiocata, GiocataPoiSviluppoConUnaFissa) {
    Sistema s;
    InterfacciaScriptata ui;
    QWidget principale;
    prova::ImpostaPronostico(s, prova::Numeri(7, 3));
    s.SviluppoK = 2;  // an earlier development: the Estratto is on offer
    FinestreGiocata w(s, ui, &principale);
    int modifiche = 0;
    w.dopoModifica = [&] { ++modifiche; };

    prova::AlProssimoModale<Form2View>([](Form2View* d) {
        Clic(d->Option1(7));  // Roma
        Clic(d->Check(0));
        Clic(d->chkAmbo(BaseChkAmbo[0] + 4));
        Clic(d->Command1());
    });
    w.apriForm2();
    EXPECT_EQ(s.Command2, "Roma, Estratto € 1,00, , , , ");
    EXPECT_EQ(modifiche, 1);

    prova::AlProssimoModale<Form12View>([](Form12View* d) {
        QListWidget* l = d->List1();
        QTest::mouseClick(l->viewport(), Qt::LeftButton, Qt::NoModifier, l->visualItemRect(l->item(2)).center());
        Clic(d->Command1());
    });
    prova::AlProssimoModale<Form20View>([](Form20View* d) {
        d->Combo1()->setCurrentIndex(2);  // QUARTINE
        Clic(d->Command3());              // fixed numbers, modal over the dialog
        Clic(d->Command1());
    });
    w.apriForm20();
    EXPECT_EQ(s.NumFissi, 1);
    EXPECT_EQ(s.NumeriFissi[1], 7);  // third of 1, 4, 7...
    EXPECT_EQ(s.SviluppoK, 4);
    EXPECT_EQ(s.NumColonne, 35);  // C(7, 4)
    EXPECT_EQ(modifiche, 2);
    EXPECT_FALSE(w.form20().caricato);

    // a new forecast unloads the fixed numbers
    w.scaricaForm12();
    EXPECT_EQ(s.NumFissi, 0);
    // the play dialog reopens as it was left; unloaded, it starts over
    w.scaricaForm2();
    EXPECT_TRUE(s.form2.Option1[TutteLeRuote]);
}

TEST(FinestreGiocata, AggiungiDaPulsanteEDaMenu) {
    Sistema s;
    InterfacciaScriptata ui;
    QWidget principale;
    FinestreGiocata w(s, ui, &principale);
    int modifiche = 0;
    w.dopoModifica = [&] { ++modifiche; };
    prova::AlProssimoModale<Form17View>([](Form17View* d) {
        d->MaskEdBox1()->setFocus();
        d->MaskEdBox1()->home(false);
        QTest::keyClicks(d->MaskEdBox1(), "1234");
        Clic(d->Command1());
    });
    w.apriForm17();
    EXPECT_EQ(modifiche, 1);
    ASSERT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(s.MSFlexGrid1.riga(0).substr(0, 5), "12 34");
    // a second opening starts from an empty box
    prova::AlProssimoModale<Form17View>([](Form17View* d) {
        EXPECT_EQ(d->MaskEdBox1()->text().trimmed(), "");
        Clic(d->Command1());
    });
    w.apriForm17();
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(modifiche, 2);
}
