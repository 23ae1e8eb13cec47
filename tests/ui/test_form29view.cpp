// "Parametri delle colonne in archivio" on screen, and "Suggerisci" taken from the
// conditions dialog through the window and back.

#include "conditions/form28.h"
#include "conditions/form29.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/estrazioni_prova.h"
#include "support/prova_sistema.h"
#include "ui/finestre_giocata.h"
#include "ui/form28view.h"
#include "ui/form29view.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    EstrazioniInMemoria archivio = prova::InMemoria(prova::EstrazioniAMano());
    Form28 f28{s, ui};
    Banco() {
        prova::ImpostaPronostico(s, {3, 8, 15, 22, 40, 41, 77});
        s.SviluppoK = 5;
        s.ResettaCondizioni();
        f28.archivio = &archivio;
        s.form2.Option1.fill(false);
        s.form2.Option1[9] = true;  // Venezia
    }
};

}  // namespace

TEST(Form29View, MostraLaMisuraSulleDieciSchede) {
    Banco b;
    Form29 m(b.s, b.ui, b.f28, &b.archivio, {11, 12});
    m.carica();
    Form29View v(m, b.ui);
    v.show();
    EXPECT_EQ(v.windowTitle(), "Parametri delle colonne in archivio");
    EXPECT_EQ(v.scheda(0)->text(), QString::fromUtf8("Consecutività"));
    EXPECT_EQ(v.scheda(8)->text(), "Posizione numeri");
    EXPECT_EQ(v.scheda(9)->text(), "Punti su colonne");
    // 1 12 34 57 89 and 3 38 50 66 73
    ASSERT_EQ(v.List3()->count(), 3);
    EXPECT_EQ(v.List3()->item(0)->text().toStdString(), "Da 1 a 30, min 1 max 2, c.min 1 c.max 2");
    EXPECT_EQ(v.campo("txtSomma(0)")->text(), "193");
    EXPECT_EQ(v.campo("txtSomma(1)")->text(), "230");
    EXPECT_EQ(v.campo("Text2")->text(), "5");
    EXPECT_EQ(v.Combo(1)->currentIndex(), 0);
    EXPECT_EQ(v.Combo(10)->currentText(), "0");
    EXPECT_EQ(v.ritardoFrequenza()->text(),
              "Ritardo medio colonna: da 0 a 0     Frequenza media colonna: da 0 a 0");
    Clic(v.scheda(8));
    EXPECT_EQ(v.SSTab1()->currentIndex(), 8);
    EXPECT_TRUE(v.Check18(0)->isChecked());
    EXPECT_TRUE(v.Check18(2)->isChecked());
    EXPECT_FALSE(v.Check18(1)->isChecked());
    for (int i = 0; i < 4; ++i) Clic(v.UpDown10(true));
    EXPECT_EQ(v.campo("txtPosizioni")->text(), "5");
    EXPECT_TRUE(v.Check18(88)->isChecked());
    EXPECT_TRUE(v.Check18(72)->isChecked());
    // what the user changes on the tabs goes over to the conditions dialog
    Clic(v.scheda(9));
    v.Combo(10)->setCurrentIndex(3);
    v.campo("Text2")->setFocus();
    v.campo("Text2")->selectAll();
    QTest::keyClicks(v.campo("Text2"), "8x");
    EXPECT_EQ(m.Text2, "8");  // digits only
    Clic(v.axButton1());
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(b.f28.Combo10, 3);
    EXPECT_EQ(b.f28.txtNcolonne, "8");
    EXPECT_EQ(b.f28.txtSomma[0], "193");
    ASSERT_EQ(b.ui.box.size(), 1u);
    EXPECT_EQ(b.ui.box[0].testo, "Condizioni impostate correttamente.");
}

TEST(Form29View, ChiusuraComeChiudiFinestra) {
    Banco b;
    Form29 m(b.s, b.ui, b.f28, &b.archivio, {11, 12});
    m.carica();
    Form29View v(m, b.ui);
    v.show();
    Clic(v.axButton2());
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(m.caricato);
    EXPECT_EQ(b.f28.chkAttivo[1], 0);
    EXPECT_TRUE(b.ui.box.empty());
}

// Suggerisci from the conditions dialog: it goes away, Form29 comes up, and after
// "Imposta questi parametri" the dialog is back with the conditions switched on.
TEST(Form29View, DaSuggerisciAlleCondizioniImpostate) {
    Sistema s;
    InterfacciaScriptata ui;
    QWidget principale;
    auto archivio = prova::InMemoria(prova::EstrazioniAMano());
    prova::ImpostaPronostico(s, {3, 8, 15, 22, 40, 41, 77});
    s.SviluppoK = 5;
    s.form2.Option1.fill(false);
    s.form2.Option1[0] = true;  // Bari
    FinestreGiocata w(s, ui, &principale);
    w.fonteArchivio = [&]() -> FonteEstrazioni* { return &archivio; };
    int form3Scaricato = 0;
    w.scaricaForm3 = [&] { ++form3Scaricato; };
    ui.input.push_back("1");

    bool riaperto = false;
    prova::AlProssimoModale<Form28View>([](Form28View* d) {
        EXPECT_TRUE(d->axButton3()->isVisible());
        Clic(d->scheda(13));
        Clic(d->chkAttivo(13));  // a setting of the user's, lost by Suggerisci
        Clic(d->axButton3());
    });
    prova::AlProssimoModale<Form29View>([&](Form29View* d) {
        EXPECT_EQ(d->campo("txtSomma(0)")->text(), "215");
        Clic(d->axButton1());
        prova::AlProssimoModale<Form28View>([&](Form28View* d28) {
            riaperto = true;
            EXPECT_TRUE(d28->chkAttivo(5)->isChecked());
            EXPECT_FALSE(d28->chkAttivo(13)->isChecked());
            EXPECT_EQ(d28->campo("txtSomma(0)")->text(), "215");
            EXPECT_EQ(d28->List3()->count(), 3);
        });
    });
    w.apriForm28();
    EXPECT_TRUE(riaperto);
    EXPECT_EQ(form3Scaricato, 1);
    EXPECT_EQ(ui.prompt.back(), "Numero ultime colonne da esaminare? (1-12)");
    ASSERT_FALSE(ui.box.empty());
    EXPECT_EQ(ui.box[0].testo, "Condizioni impostate correttamente.");
    EXPECT_EQ(ui.box[0].titolo, "Condizioni");
    EXPECT_EQ(w.form28().chkAttivo[10], 1);
    EXPECT_EQ(w.form28().condizioni()->PosizioniNumeri[1][14], 1);

    // "Chiudi finestra": the dialog stays away
    ui.input.push_back("2");
    int volte28 = 0;
    prova::AlProssimoModale<Form28View>([&](Form28View* d) {
        ++volte28;
        Clic(d->axButton3());
    });
    prova::AlProssimoModale<Form29View>([](Form29View* d) { Clic(d->axButton2()); });
    w.apriForm28();
    EXPECT_EQ(volte28, 1);
    EXPECT_EQ(w.form28().chkAttivo[10], 0);
}

// Every tab's controls lie inside the window; with ZEF_SCHERMATE set to a folder the
// tabs are also saved there as pictures.
TEST(Form29View, OgniSchedaDentroLaFinestra) {
    Banco b;
    b.s.form2.Option1.fill(false);
    b.s.form2.Option1[11] = true;
    Form29 m(b.s, b.ui, b.f28, &b.archivio, {1, 12});
    m.carica();
    ASSERT_TRUE(m.misura.interrotta);  // Bari3 of draw 2 is empty: the envelope of one draw
    Form29View v(m, b.ui);
    v.show();
    for (int i = 0; i < 10; ++i) {
        Clic(v.scheda(i));
        v.adjustSize();
        QApplication::processEvents();
        const QRect finestra = v.rect();
        for (QWidget* c : v.findChildren<QWidget*>()) {
            if (!c->isVisibleTo(&v) || c->isWindow()) continue;
            const QRect r(c->mapTo(&v, QPoint(0, 0)), c->size());
            EXPECT_TRUE(finestra.contains(r)) << "scheda " << i << ": " << c->objectName().toStdString();
        }
        if (const char* cartella = std::getenv("ZEF_SCHERMATE")) {
            EXPECT_TRUE(v.grab().save(QString("%1/form29_%2.png").arg(cartella).arg(i)));
        }
    }
}
