// Layout of the dialogs: every control inside its window, no two stake boxes on top
// of each other, each under its amount. With ZEF_SCHERMATE set to a folder, the
// windows are also saved there as pictures.

#include "core/form2.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/prova_sistema.h"
#include "ui/form12view.h"
#include "ui/form17view.h"
#include "ui/form18menu.h"
#include "ui/form20view.h"
#include "ui/form23view.h"
#include "ui/form2view.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPixmap>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

// Every visible control lies inside the window and the picture is taken.
void Verifica(QWidget* w, const char* nome) {
    if (!qobject_cast<QMenu*>(w)) w->adjustSize();
    QApplication::processEvents();
    const QRect finestra = w->rect();
    for (QWidget* c : w->findChildren<QWidget*>()) {
        if (!c->isVisibleTo(w) || c->isWindow()) continue;
        QRect r(c->mapTo(w, QPoint(0, 0)), c->size());
        EXPECT_TRUE(finestra.contains(r)) << nome << ": " << c->metaObject()->className() << " "
                                          << c->objectName().toStdString() << " out of the window";
    }
    QPixmap p = w->grab();
    ASSERT_FALSE(p.isNull()) << nome;
    if (const char* cartella = std::getenv("ZEF_SCHERMATE")) {
        EXPECT_TRUE(p.save(QString("%1/%2.png").arg(cartella, nome))) << nome;
    }
}

}  // namespace

TEST(Schermate, Form2ICasellePuntataSottoLeLoroCifre) {
    Sistema s;
    InterfacciaScriptata ui;
    s.SviluppoK = 5;
    Form2 f(s, ui);
    Form2View v(f, s, ui);
    v.show();
    Clic(v.Option1(0));
    Clic(v.Check(1));
    Clic(v.chkAmbo(4));
    Clic(v.chkAmbo(3));
    Clic(v.Check(0));
    Clic(v.chkAmbo(BaseChkAmbo[0] + 5));
    Verifica(&v, "form2");
    std::vector<QRect> caselle;
    for (int i = 0; i < 65; ++i) caselle.emplace_back(v.chkAmbo(i)->mapTo(&v, QPoint(0, 0)), v.chkAmbo(i)->size());
    for (size_t a = 0; a < caselle.size(); ++a)
        for (size_t b = a + 1; b < caselle.size(); ++b)
            EXPECT_FALSE(caselle[a].intersects(caselle[b])) << a << " " << b;
    // each amount heads its column: the boxes of a column share their centre with it
    auto intestazioni = v.findChildren<QLabel*>();
    for (int i = 0; i < 13; ++i) {
        QLabel* testa = nullptr;
        for (QLabel* l : intestazioni)
            if (l->text() == DidascaliePuntata[i]) testa = l;
        ASSERT_NE(testa, nullptr) << DidascaliePuntata[i];
        const int centro = testa->mapTo(&v, testa->rect().center()).x();
        for (int sorte = 0; sorte < 5; ++sorte) {
            const QRect r = caselle[BaseChkAmbo[sorte] + i];
            EXPECT_LE(std::abs(r.center().x() - centro), 3) << DidascaliePuntata[i] << " " << sorte;
            EXPECT_GT(r.top(), testa->mapTo(&v, QPoint(0, testa->height())).y() - 1);
        }
    }
}

TEST(Schermate, Form20EForm12) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {3, 12, 25, 31, 44, 58, 67, 72, 85, 90});
    Form20 f20(s, ui);
    Form20View v20(f20, ui);
    v20.show();
    Verifica(&v20, "form20");
    Form12 f12(s, f20);
    Form12View v12(f12, ui);
    v12.show();
    v12.List1()->item(1)->setSelected(true);
    v12.List1()->item(4)->setSelected(true);
    EXPECT_EQ(s.NumFissi, 2);
    Verifica(&v12, "form12");
}

TEST(Schermate, Form23Form17EIlMenu) {
    Sistema s;
    s.SviluppoK = 6;
    s.form2.Check[1] = s.form2.Check[2] = 1;
    s.form2.testi[1] = "1";
    s.form2.testi[2] = "0,5";
    s.form2.Option1.fill(false);
    s.form2.Option1[7] = true;
    Form23 f23(s);
    Form23View v23(f23);
    v23.show();
    EXPECT_EQ(v23.etichetta(3)->text(), "15,34");  // 16,67 less 8 per cent, to two decimals
    Verifica(&v23, "form23");

    Form17 f17(s);
    Form17View v17(f17);
    v17.show();
    v17.MaskEdBox1()->setFocus();
    v17.MaskEdBox1()->home(false);
    QTest::keyClicks(v17.MaskEdBox1(), "0311254490");
    Verifica(&v17, "form17");

    Form18Menu m(s);
    m.popup(QPoint(0, 0));
    Verifica(&m, "form18");
    m.close();
}
