// The development dialog and the fixed-numbers dialog, driven through their widgets.

#include "core/form20.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/prova_sistema.h"
#include "ui/form12view.h"
#include "ui/form20view.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

// Remembers the thread that showed the progress window.
class InterfacciaThread : public InterfacciaScriptata {
public:
    std::thread::id threadAvanzamento;
    std::function<void()> allaMostra;
    void mostraAvanzamento(const StatoAvanzamento& st) override {
        threadAvanzamento = std::this_thread::get_id();
        if (allaMostra) allaMostra();
        InterfacciaScriptata::mostraAvanzamento(st);
    }
};

void ClicRiga(QListWidget* l, int riga) {
    QRect r = l->visualItemRect(l->item(riga));
    QTest::mouseClick(l->viewport(), Qt::LeftButton, Qt::NoModifier, r.center());
}

}  // namespace

TEST(Form20View, CaricaConTerzineEDistanzaSoloCifre) {
    Sistema s;
    InterfacciaScriptata ui;
    Form20 f(s, ui);
    Form20View v(f, ui);
    v.show();
    EXPECT_EQ(v.windowTitle(), "SCELTA SVILUPPO");
    EXPECT_EQ(v.Combo1()->currentText(), "TERZINE");
    EXPECT_EQ(v.Combo1()->count(), 9);
    EXPECT_EQ(v.Text1()->text(), "0");

    v.Combo1()->setFocus();
    QTest::keyClick(v.Combo1(), Qt::Key_Down);
    EXPECT_EQ(v.Combo1()->currentText(), "QUARTINE");
    EXPECT_EQ(f.Combo1, 2);
    EXPECT_EQ(f.k(), 4);

    v.Text1()->selectAll();
    QTest::keyClicks(v.Text1(), "1a-2 ,");
    EXPECT_EQ(v.Text1()->text(), "12");
    EXPECT_EQ(f.Text1, "12");
}

TEST(Form20View, AnnullaNascondeEscScarica) {
    Sistema s;
    InterfacciaScriptata ui;
    Form20 f(s, ui);
    Form20View v(f, ui);
    v.show();
    v.Combo1()->setCurrentIndex(4);
    Clic(v.Command2());
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(f.visibile);
    EXPECT_TRUE(f.caricato);
    v.show();  // only hidden: the size is still there
    EXPECT_EQ(v.Combo1()->currentText(), "SESTINE");
    QTest::keyClick(&v, Qt::Key_Escape);
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(f.caricato);
    v.show();
    EXPECT_EQ(v.Combo1()->currentText(), "TERZINE");
}

TEST(Form20View, DimensioneOltreIlPronosticoLasciaApertoIlDialogo) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {5, 6, 7});
    s.NumColonne = 9;
    Form20 f(s, ui);
    bool condizioni = false;
    f.mostraForm28 = [&] { condizioni = true; };
    Form20View v(f, ui);
    v.show();
    v.Combo1()->setCurrentIndex(2);  // QUARTINE from three numbers
    Clic(v.Command4());
    EXPECT_FALSE(condizioni);
    Clic(v.Command1());
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[1].testo, Form20::MessaggioNonSviluppabile);
    EXPECT_EQ(ui.box[1].icona, Icona::Critico);
    EXPECT_TRUE(v.isVisible());
    EXPECT_TRUE(v.Command1()->isEnabled());
    EXPECT_TRUE(v.Combo1()->isEnabled());
    EXPECT_EQ(s.NumColonne, 9);
    EXPECT_EQ(v.Combo1()->currentText(), "QUARTINE");
    // within the forecast the conditions open
    v.Combo1()->setCurrentIndex(1);
    Clic(v.Command4());
    EXPECT_TRUE(condizioni);
}

TEST(Form20View, AvviaSviluppaFuoriDalThreadDellInterfaccia) {
    Sistema s;
    InterfacciaThread ui;
    prova::ImpostaPronostico(s, prova::Numeri(8));
    Form20 f(s, ui);
    int lavori = 0;
    auto esegui = [&](std::function<void()> lavoro) {
        ++lavori;
        vista::EseguiInThread(std::move(lavoro));
    };
    Form20View v(f, ui, esegui);
    v.show();
    v.Text1()->selectAll();
    QTest::keyClicks(v.Text1(), "1");
    Clic(v.Command1());
    EXPECT_EQ(lavori, 1);
    EXPECT_NE(ui.threadAvanzamento, std::thread::id{});
    EXPECT_NE(ui.threadAvanzamento, std::this_thread::get_id());
    EXPECT_EQ(s.NumColonne, 56);  // C(8, 3)
    EXPECT_EQ(s.SviluppoK, 3);
    EXPECT_EQ(s.DistanzaMin, 1);
    EXPECT_EQ(ui.avanzamentiAperti, 0);
    // the development unloads the dialog
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(v.result(), QDialog::Accepted);
    EXPECT_FALSE(f.caricato);
}

TEST(Form20View, IlDialogoSiTogliQuandoCompareLAvanzamento) {
    Sistema s;
    InterfacciaThread ui;
    prova::ImpostaPronostico(s, prova::Numeri(10));
    Form20 f(s, ui);
    Form20View v(f, ui);  // the default runner: a thread and a local loop
    QDialog avanzamento;
    std::atomic<int> visibileAllaMostra{-1};
    std::atomic<int> comandiAttivi{-1};
    // As the Qt interface does: the worker's call is carried to the interface thread.
    ui.allaMostra = [&] {
        QMetaObject::invokeMethod(
            &avanzamento,
            [&] {
                comandiAttivi = v.Combo1()->isEnabled() + v.Command2()->isEnabled();
                avanzamento.show();
                visibileAllaMostra = v.isVisible() ? 1 : 0;
            },
            Qt::BlockingQueuedConnection);
    };
    v.show();
    Clic(v.Command1());
    EXPECT_EQ(visibileAllaMostra.load(), 0);
    EXPECT_EQ(comandiAttivi.load(), 0);  // nothing to click while the worker reads the model
    EXPECT_EQ(s.NumColonne, 120);  // C(10, 3)
}

TEST(Form20View, ErroreNelLavoroMostratoAlConfine) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(8));
    Form20 f(s, ui);
    Form20View v(f, ui);
    v.show();
    v.Text1()->selectAll();
    QTest::keyClicks(v.Text1(), "99999");  // more than an Integer holds
    Clic(v.Command1());
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Errore: Overflow");
    EXPECT_TRUE(v.isVisible());
    EXPECT_EQ(s.NumColonne, 0);
}

TEST(Form12View, AlPiuKMenoUnaFissaCliccandoLaLista) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {4, 17, 23, 56, 90});
    Form20 f20(s, ui);
    f20.carica();  // TERZINE: two fixed at most
    Form12 f(s, f20);
    Form12View v(f, ui);
    bool aperto = false;
    f20.mostraForm12 = [&] {
        aperto = true;
        v.show();
    };
    Form20View v20(f20, ui);
    v20.show();
    Clic(v20.Command3());
    ASSERT_TRUE(aperto);
    ASSERT_TRUE(v.isVisible());
    EXPECT_EQ(v.windowTitle(), "Impostazione delle fisse");
    ASSERT_EQ(v.List1()->count(), 5);
    EXPECT_EQ(v.List1()->item(1)->text(), "17");

    ClicRiga(v.List1(), 3);
    ClicRiga(v.List1(), 1);
    EXPECT_EQ(s.NumFissi, 2);
    EXPECT_EQ(s.NumeriFissi[1], 17);  // list order, not click order
    EXPECT_EQ(s.NumeriFissi[2], 56);
    // a third is refused and its row deselected
    ClicRiga(v.List1(), 4);
    EXPECT_FALSE(v.List1()->item(4)->isSelected());
    EXPECT_EQ(s.NumFissi, 2);
    // unticking one frees a place
    ClicRiga(v.List1(), 1);
    EXPECT_EQ(s.NumFissi, 1);
    EXPECT_EQ(s.NumeriFissi[1], 56);

    // Resetta: no row selected, the count waits for the next click
    Clic(v.Command2());
    EXPECT_TRUE(v.List1()->selectedItems().isEmpty());
    EXPECT_EQ(s.NumFissi, 1);

    ClicRiga(v.List1(), 0);
    Clic(v.Command1());  // Accetta hides and keeps
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(s.NumFissi, 1);
    EXPECT_EQ(s.NumeriFissi[1], 4);

    v.show();
    EXPECT_TRUE(v.List1()->item(0)->isSelected());
    QTest::keyClick(&v, Qt::Key_Escape);  // closing unloads: no fixed numbers
    EXPECT_EQ(s.NumFissi, 0);
}

TEST(Form12View, SettimaFissaDaOttineDaIlBoxDiErrore) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(12));
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = 6;  // OTTINE: seven allowed by the count, room for six
    Form12 f(s, f20);
    Form12View v(f, ui);
    v.show();
    for (int r = 0; r < 6; ++r) ClicRiga(v.List1(), r);
    EXPECT_EQ(s.NumFissi, 6);
    EXPECT_TRUE(ui.box.empty());
    ClicRiga(v.List1(), 6);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Errore di run-time '9':\n\nIndice non incluso nell'intervallo");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    // the program goes on: the dialog is still there and answers
    EXPECT_TRUE(v.isVisible());
    ClicRiga(v.List1(), 0);
    EXPECT_EQ(s.NumFissi, 6);
}
