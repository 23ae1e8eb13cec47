// "RIDUZIONE OTTIMIZZATA": the menu item, and the window running the cover of a
// forecast off the interface thread into the list.
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "reduction/formottimizza.h"
#include "support/prova_sistema.h"
#include "ui/aiuti_qt.h"
#include "ui/applicazione.h"
#include "ui/form1view.h"
#include "ui/formottimizzaview.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;

TEST(FormOttimizzaView, MenuItemOfTheReductionMenu) {
    Applicazione::Opzioni o;
    o.splash = false;
    o.esciAllaFine = false;
    o.archivio = "/nonexistent/archivio.db";
    Applicazione app(o);
    app.interfaccia().risponditore = [](const BoxQt&) { return Risposta::Ok; };
    app.avvia();
    QAction* voce = app.finestra().voce("RiduzioneOttimizzata");
    ASSERT_NE(voce, nullptr);
    EXPECT_TRUE(voce->isEnabled());
    EXPECT_EQ(voce->text(), "Riduzione &ottimizzata...");
    bool aperta = false;
    prova::AlProssimoModale<FormOttimizzaView>([&](FormOttimizzaView* v) {
        aperta = true;
        EXPECT_EQ(v->windowTitle(), "RIDUZIONE OTTIMIZZATA");
    });
    voce->trigger();
    EXPECT_TRUE(aperta);
}

TEST(FormOttimizzaView, CoverOfTheForecastFillsTheList) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {2, 11, 19, 27, 38, 46, 55, 68, 81});
    FormOttimizza f(s, ui);
    f.passi = 100000;
    f.carica();
    FormOttimizzaView v(f, ui);
    v.aggiorna();
    v.show();
    EXPECT_TRUE(v.Option2()->isChecked());  // nothing developed: the cover is offered
    EXPECT_EQ(v.secondi()->text(), "30");
    v.sviluppo()->setCurrentIndex(v.sviluppo()->findData(3));
    v.garanzia()->setCurrentIndex(v.garanzia()->findData(2));
    prova::Clic(v.avvia());
    EXPECT_EQ(f.ottimizzate, 12);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 12);
    EXPECT_FALSE(v.isVisible());
    EXPECT_TRUE(v.esito()->text().contains("12"));
    // A bad time: the box, and the window stays.
    v.show();
    v.secondi()->setText("tanti");
    prova::Clic(v.avvia());
    EXPECT_EQ(ui.ultimoBox().testo, FormOttimizza::MessaggioSecondi);
    EXPECT_TRUE(v.isVisible());
}
