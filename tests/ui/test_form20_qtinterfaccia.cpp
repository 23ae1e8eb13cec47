// AVVIA with the program's own Qt interface: the development runs on a worker while
// the progress window is modal, the dialog steps aside, ESC and Yes stop the pass.
// Built once the Qt interface and the progress window are in the tree.

#if __has_include("ui/qtinterfaccia.h") && __has_include("ui/form4view.h")

#include "core/form20.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/prova_sistema.h"
#include "ui/form20view.h"
#include "ui/form4view.h"
#include "ui/qtinterfaccia.h"

#include <QComboBox>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;

TEST(Form20ViewQt, AvviaSviluppaEChiudeLAvanzamento) {
    Sistema s;
    QtInterfaccia ui;
    std::vector<BoxQt> box;
    ui.risponditore = [&](const BoxQt& b) {
        box.push_back(b);
        return Risposta::Si;
    };
    prova::ImpostaPronostico(s, prova::Numeri(20));
    Form20 f(s, ui);
    Form20View v(f, ui);
    v.show();
    v.Combo1()->setCurrentIndex(3);  // CINQUINE
    prova::Clic(v.Command1());
    EXPECT_EQ(s.NumColonne, 15504);  // C(20, 5)
    EXPECT_FALSE(v.isVisible());
    EXPECT_TRUE(!ui.finestraAvanzamento() || !ui.finestraAvanzamento()->isVisible());
    EXPECT_TRUE(box.empty());
}

TEST(Form20ViewQt, EscConSiFermaLoSviluppo) {
    Sistema s;
    QtInterfaccia ui;
    std::vector<BoxQt> box;
    ui.risponditore = [&](const BoxQt& b) {
        box.push_back(b);
        return Risposta::Si;
    };
    prova::ImpostaPronostico(s, prova::Numeri(60));
    Form20 f(s, ui);
    Form20View v(f, ui);
    v.show();
    v.Combo1()->setCurrentIndex(4);  // SESTINE: C(60, 6) = 50063860, beyond the store
    bool dialogoDaParte = false;
    prova::AlProssimoModale<Form4View>([&](Form4View* w) {
        dialogoDaParte = !v.isVisible() && w->isVisible();
        QTest::keyClick(w, Qt::Key_Escape);
    });
    prova::Clic(v.Command1());
    EXPECT_TRUE(dialogoDaParte);
    ASSERT_FALSE(box.empty());
    EXPECT_EQ(box[0].testo, "Annullare l'elaborazione?");
    EXPECT_EQ(box[0].titolo, "RICHIESTA");
    EXPECT_GT(s.NumColonne, 0);
    EXPECT_LT(s.NumColonne, 20000000);  // stopped well before the store's limit
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: " + std::to_string(s.NumColonne));
}

#endif
