// "SMORFIA" from the main menu: a subject typed and Enter, the list of objects in the
// object's place, the numbers added to the pad.
#include "core/sistema.h"
#include "dreambook/form15.h"
#include "ui/aiuti_qt.h"
#include "ui/applicazione.h"
#include "ui/form15view.h"
#include "ui/form1view.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;

TEST(Form15View, LookUpListAndAddToTheForecast) {
    Applicazione::Opzioni o;
    o.splash = false;
    o.esciAllaFine = false;
    o.archivio = "/nonexistent/archivio.db";
    Applicazione app(o);
    std::vector<std::string> box;
    app.interfaccia().risponditore = [&](const BoxQt& b) {
        box.push_back(b.testo);
        return Risposta::Ok;
    };
    app.avvia();
    box.clear();
    ASSERT_TRUE(app.finestra().voce("Smorfia")->isEnabled());
    bool aperta = false;
    prova::AlProssimoModale<Form15View>([&](Form15View* v) {
        aperta = true;
        EXPECT_EQ(v->windowTitle(), "SMORFIA");
        EXPECT_EQ(v->etichetta(1)->text(), "AGGIUNGI AL PRONOSTICO");
        EXPECT_EQ(v->Command(1)->text(), "AGGIUNGI AL PRONSTICO");
        EXPECT_FALSE(v->Command(1)->isVisible());  // under its label
        QTest::keyClicks(v->Text1(), "gatta");
        QTest::keyClick(v->Text1(), Qt::Key_Return);
        // No object typed: the subject's objects are offered in the object's place.
        ASSERT_EQ(box.size(), 1u);
        EXPECT_EQ(box[0], Form15::OggettoNonTrovato);
        EXPECT_TRUE(v->Combo1()->isVisible());
        EXPECT_FALSE(v->Text2()->isVisible());
        EXPECT_EQ(v->lblnum(0)->text(), "3");
        v->Combo1()->setCurrentText("nera");
        v->Command(3)->click();
        EXPECT_EQ(v->lblnum(1)->text(), "14");
        EXPECT_EQ(v->Text2()->text(), "nera");
        v->Command(1)->click();
        v->Command(2)->click();
        EXPECT_FALSE(v->isVisible());
    });
    app.finestra().voce("Smorfia")->trigger();
    EXPECT_TRUE(aperta);
    EXPECT_TRUE(app.sistema().pad[2]);
    EXPECT_TRUE(app.sistema().pad[13]);
    EXPECT_EQ(app.sistema().Label2, "2");
    EXPECT_EQ(app.finestra().Label2()->text(), "2");
}
