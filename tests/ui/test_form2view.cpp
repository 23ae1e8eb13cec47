// The play dialog and the window of possible wins, driven through their widgets.

#include "core/form2.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "ui/form23view.h"
#include "ui/form2view.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    Form2 f{s, ui};
    Form2View v{f, s, ui};
};

constexpr int Estratto = 0, Ambo = 1, Terno = 2, Quaterna = 3, Cinquina = 4;
// Stake i of the table: 4 is 1,00, 3 is 0,50, 0 is 0,05.
int Box(int sorte, int i) { return BaseChkAmbo[sorte] + i; }

}  // namespace

TEST(Form2View, LeSortiSonoOffertePerLaDimensioneAdOgniApertura) {
    Banco b;
    b.s.SviluppoK = 0;
    b.v.show();
    // nothing developed: no kind on offer, sum labels with their boxes
    for (int sorte = 0; sorte < 5; ++sorte) {
        EXPECT_FALSE(b.v.Check(sorte)->isEnabled()) << sorte;
        EXPECT_FALSE(b.v.testo(sorte)->isEnabled()) << sorte;
    }
    // the stake boxes stay usable
    EXPECT_TRUE(b.v.chkAmbo(Box(Cinquina, 12))->isEnabled());
    b.v.hide();

    b.s.SviluppoK = 5;
    b.v.show();
    for (int sorte = 0; sorte < 5; ++sorte) EXPECT_TRUE(b.v.Check(sorte)->isEnabled()) << sorte;
    Clic(b.v.Check(Cinquina));
    b.v.hide();

    b.s.SviluppoK = 3;  // terzine: Estratto, Ambo and Terno
    b.v.show();
    for (int sorte : {Estratto, Ambo, Terno}) {
        EXPECT_TRUE(b.v.Check(sorte)->isEnabled()) << sorte;
        EXPECT_TRUE(b.v.testo(sorte)->isEnabled()) << sorte;
    }
    for (int sorte : {Quaterna, Cinquina}) {
        EXPECT_FALSE(b.v.Check(sorte)->isEnabled()) << sorte;
        EXPECT_FALSE(b.v.testo(sorte)->isEnabled()) << sorte;
    }
    // the tick itself is left alone
    EXPECT_TRUE(b.v.Check(Cinquina)->isChecked());
    EXPECT_EQ(b.s.form2.Check[Cinquina], 1);
}

TEST(Form2View, IlCostoSegueLeSpunte) {
    Banco b;
    b.s.SviluppoK = 5;
    b.v.show();
    EXPECT_EQ(b.v.lblCosto()->text(), "0,00");
    EXPECT_TRUE(b.v.Option1(TutteLeRuote)->isChecked());

    Clic(b.v.Check(Ambo));
    Clic(b.v.chkAmbo(Box(Ambo, 4)));  // 1,00
    EXPECT_TRUE(b.s.form2.chkAmbo[Box(Ambo, 4)]);
    EXPECT_EQ(b.s.form2.Check[Ambo], 1);
    EXPECT_EQ(b.v.lblCosto()->text(), "1,00");
    EXPECT_EQ(b.s.form2.lblCosto, "1,00");

    // amounts of one kind add up; the sum label holds the running sum as a number
    Clic(b.v.chkAmbo(Box(Ambo, 3)));  // 0,50
    EXPECT_EQ(b.v.lblCosto()->text(), "1,50");
    EXPECT_EQ(b.v.testo(Ambo)->text(), "1,5");

    // amounts under a kind that is not ticked count for nothing
    Clic(b.v.chkAmbo(Box(Terno, 0)));
    EXPECT_TRUE(b.v.chkAmbo(Box(Terno, 0))->isChecked());
    EXPECT_EQ(b.v.lblCosto()->text(), "1,50");
    EXPECT_EQ(b.v.testo(Terno)->text(), "0,00");
    // ...until the kind is ticked
    Clic(b.v.Check(Terno));
    EXPECT_EQ(b.v.lblCosto()->text(), "1,55");

    // unticking the 1,00 box takes it off again
    Clic(b.v.chkAmbo(Box(Ambo, 4)));
    EXPECT_FALSE(b.s.form2.chkAmbo[Box(Ambo, 4)]);
    EXPECT_EQ(b.v.lblCosto()->text(), "0,55");
}

TEST(Form2View, LaRuotaEUnaSola) {
    Banco b;
    b.v.show();
    Clic(b.v.Option1(0));
    EXPECT_TRUE(b.s.form2.Option1[0]);
    EXPECT_FALSE(b.s.form2.Option1[TutteLeRuote]);
    EXPECT_FALSE(b.v.Option1(TutteLeRuote)->isChecked());
    Clic(b.v.Option1(10));
    EXPECT_EQ(b.s.form2.ruota(), 10);
    EXPECT_TRUE(b.v.Option1(10)->isChecked());
    EXPECT_FALSE(b.v.Option1(0)->isChecked());
}

TEST(Form2View, AccettaScriveDidascaliaECostoEChiude) {
    Banco b;
    b.s.SviluppoK = 2;
    b.v.show();
    Clic(b.v.Option1(0));  // Bari
    Clic(b.v.Check(Ambo));
    Clic(b.v.chkAmbo(Box(Ambo, 4)));
    Clic(b.v.Command1());
    EXPECT_FALSE(b.v.isVisible());
    // empty texts keep their commas: two behind the wheel, three at the end
    EXPECT_EQ(b.s.Command2, "Bari, , Ambo € 1,00, , , ");
    EXPECT_EQ(b.s.CostoColonna, Currency::daInteri(1));
    EXPECT_TRUE(b.ui.box.empty());
    // the dialog was only hidden: its ticks are there at the next opening
    b.v.show();
    EXPECT_TRUE(b.v.chkAmbo(Box(Ambo, 4))->isChecked());
    EXPECT_TRUE(b.v.Option1(0)->isChecked());
}

TEST(Form2View, AccettaFuoriLimitiConColonneScaricaIlDialogo) {
    Banco b;
    b.s.SviluppoK = 2;
    b.s.NumColonne = 3;
    b.v.show();
    Clic(b.v.Option1(0));
    Clic(b.v.Check(Estratto));
    Clic(b.v.chkAmbo(Box(Estratto, 3)));  // 0,50: below one euro
    Clic(b.v.Command1());
    EXPECT_FALSE(b.v.isVisible());
    ASSERT_EQ(b.ui.box.size(), 1u);
    EXPECT_EQ(b.ui.box[0].testo, "L'importo totale di giocata non può essere inferiore di 1");
    EXPECT_EQ(b.ui.box[0].titolo, "Puntata non valida");
    EXPECT_EQ(b.ui.box[0].icona, Icona::Critico);
    EXPECT_EQ(b.s.Command2, "Non selezionata");
    // unloaded: the next opening starts from "Tutte le ruote" and no ticks
    b.v.show();
    EXPECT_TRUE(b.v.Option1(TutteLeRuote)->isChecked());
    EXPECT_FALSE(b.v.Check(Estratto)->isChecked());
    EXPECT_EQ(b.v.lblCosto()->text(), "0,00");
}

TEST(Form2View, VinciteNonValideSottoUnEuro) {
    Banco b;
    b.s.SviluppoK = 2;
    b.v.show();
    bool aperta = false;
    b.f.mostraForm23 = [&] { aperta = true; };
    Clic(b.v.Command2());
    EXPECT_FALSE(aperta);
    ASSERT_EQ(b.ui.box.size(), 1u);
    EXPECT_EQ(b.ui.box[0].testo, "La giocata non è valida deve essere di almeno 1 euro a scheda");
    EXPECT_TRUE(b.v.isVisible());
}

TEST(Form2View, VinciteSuTutteLeRuoteUnDecimoMenoL8PerCento) {
    Banco b;
    b.s.SviluppoK = 2;
    b.v.show();
    Clic(b.v.Check(Ambo));
    Clic(b.v.chkAmbo(Box(Ambo, 4)));  // 1,00 on the ambo, all wheels
    QString cinquina, ambo, estratto, mascheraAmbo;
    prova::AlProssimoModale<Form23View>([&](Form23View* w) {
        EXPECT_EQ(w->windowTitle(), "VINCITE POSSIBILI");
        cinquina = w->etichetta(0)->text();
        ambo = w->etichetta(3)->text();
        mascheraAmbo = w->maschera(3)->text();
        estratto = w->etichetta(4)->text();
        Clic(w->Command1());
    });
    Clic(b.v.Command2());
    // 250 for one euro with two numbers, a tenth over all wheels, less 8 per cent: 23
    EXPECT_EQ(ambo, "23,00");
    EXPECT_EQ(mascheraAmbo, "23");
    EXPECT_EQ(cinquina, "-");
    EXPECT_EQ(estratto, "-");  // not ticked
    EXPECT_TRUE(b.ui.box.empty());
}

TEST(Form23View, SenzaSviluppoTuttiITrattini) {
    Sistema s;
    s.SviluppoK = 0;
    s.form2.Check[Estratto] = 1;
    s.form2.testi[Estratto] = "5";
    Form23 f(s);
    Form23View v(f);
    for (int riga = 0; riga < 5; ++riga) EXPECT_EQ(v.etichetta(riga)->text(), "-") << riga;
}
