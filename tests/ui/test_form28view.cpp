// The conditions dialog driven through its widgets, the model checked behind it.

#include "conditions/form28.h"
#include "core/form20.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "support/prova_sistema.h"
#include "ui/finestre_giocata.h"
#include "ui/form20view.h"
#include "ui/form28view.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

// A forecast of 3, 7, 12, 20, 33, 45, 58, 71 and the dialog shown over it.
struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    std::unique_ptr<Form28> f;
    std::unique_ptr<Form28View> v;
    Banco() {
        prova::ImpostaPronostico(s, {3, 7, 12, 20, 33, 45, 58, 71});
        s.SviluppoK = 5;
        f = std::make_unique<Form28>(s, ui);
        f->ResettaCondizioni();
        v = std::make_unique<Form28View>(*f, ui);
        v->show();
        v->activateWindow();
        (void)QTest::qWaitForWindowActive(v.get());
    }
    ~Banco() { v.reset(); }
    void scheda(int i) { Clic(v->scheda(i)); }
    // Types into a field as the user does, then leaves it for the next control.
    void digita(const std::string& campo, const char* tasti, bool esci = true) {
        QLineEdit* t = v->campo(campo);
        t->setFocus();
        t->selectAll();
        QTest::keyClicks(t, tasti);
        if (esci) v->axButton2()->setFocus();  // Tab order aside, any other control takes the focus
    }
};

QColor Fondo(QPushButton* b) { return b->palette().color(QPalette::Button); }
QColor Testo(QPushButton* b) { return b->palette().color(QPalette::ButtonText); }

void ClicRiga(QListWidget* l, int riga) {
    QTest::mouseClick(l->viewport(), Qt::LeftButton, Qt::NoModifier, l->visualItemRect(l->item(riga)).center());
}

}  // namespace

TEST(Form28View, SchedeAiutiEControlliDentroLaFinestra) {
    Banco b;
    EXPECT_EQ(b.v->windowTitle().toStdString(), "Impostazione delle condizioni");
    ASSERT_EQ(b.v->SSTab1()->count(), 15);
    QApplication::processEvents();
    for (int i = 0; i < 15; ++i) {
        b.scheda(i);
        EXPECT_EQ(b.v->SSTab1()->currentIndex(), i);
        EXPECT_EQ(b.f->SSTab1, i);
        EXPECT_EQ(b.v->SSTab1()->tabText(i), QString::fromUtf8(form28::Schede[i]));
        auto* aiuto = b.v->SSTab1()->widget(i)->findChild<QLabel*>(QString("Label1_%1").arg(i));
        ASSERT_TRUE(aiuto);
        EXPECT_EQ(aiuto->text(), QString::fromUtf8(form28::Aiuti[i]));
        QApplication::processEvents();
        // nothing clipped by the window
        const QRect finestra = b.v->rect();
        for (QWidget* c : b.v->findChildren<QWidget*>()) {
            if (!c->isVisibleTo(b.v.get()) || c->isWindow()) continue;
            const QRect r(c->mapTo(b.v.get(), QPoint(0, 0)), c->size());
            EXPECT_TRUE(finestra.contains(r)) << "tab " << i << ": " << c->objectName().toStdString();
        }
        if (const char* cartella = std::getenv("ZEF_SCHERMATE"))
            b.v->grab().save(QString("%1/form28_%2.png").arg(cartella).arg(i, 2, 10, QChar('0')));
    }
    // Ctrl+Tab from a field steps to the next page, the strip follows
    b.scheda(6);
    b.v->campo("txtPariMin")->setFocus();
    QTest::keyClick(b.v->campo("txtPariMin"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(b.f->SSTab1, 7);
    EXPECT_TRUE(b.v->scheda(7)->isChecked());
    EXPECT_TRUE(b.v->scheda(7)->font().bold());
    EXPECT_FALSE(b.v->scheda(6)->font().bold());
    b.scheda(6);
    Clic(b.v->chkAttivo(6));
    EXPECT_EQ(b.f->chkAttivo[6], 1);
    EXPECT_EQ(b.f->chkAttivo[5], 0);
}

TEST(Form28View, TastiRifiutatiVirgolaLimitiEFrecce) {
    Banco b;
    b.scheda(6);
    // digits only; leaving applies the limit of 5, while the arrows climb to 10
    b.digita("txtPariMax", "7a.-");
    EXPECT_EQ(b.f->txtPariMax, "5");
    EXPECT_EQ(b.v->campo("txtPariMax")->text(), "5");
    for (int i = 0; i < 7; ++i) Clic(b.v->spin("UpDownPariMax", true));
    EXPECT_EQ(b.v->campo("txtPariMax")->text(), "10");
    // backspace is a typed key the field takes
    b.digita("txtPariMin", "34\b", false);
    EXPECT_EQ(b.f->txtPariMin, "3");
    // the down arrow turns a text that is no number into the lower limit
    b.f->txtDistanzaMin = "x";
    b.v->aggiorna();
    Clic(b.v->spin("UpDown8", false));
    EXPECT_EQ(b.v->campo("txtDistanzaMin")->text(), "0");

    b.scheda(14);
    b.digita("txtRitardoMin", "2.5");
    EXPECT_EQ(b.v->campo("txtRitardoMin")->text(), "2,5");
    EXPECT_EQ(b.f->txtRitardoMin, "2,5");
    // the arrows beside the least delay move the greatest
    Clic(b.v->spin("UpDown13", true));
    EXPECT_EQ(b.f->txtRitardoMax, "101");
    EXPECT_EQ(b.f->txtRitardoMin, "2,5");

    b.scheda(4);
    b.digita("txtSezioneDa", "95");
    EXPECT_EQ(b.v->campo("txtSezioneDa")->text(), "90");
    b.digita("txtSezioneA", "40");
    EXPECT_EQ(b.v->campo("txtSezioneA")->text(), "90");  // below the start it takes the start's text
}

TEST(Form28View, CaselleDeiNumeriEColonneFiltro) {
    Banco b;
    b.scheda(3);
    // forecast numbers are on in blue, the rest off in black
    EXPECT_TRUE(b.v->chkNumeriCF(6)->isEnabled());
    EXPECT_EQ(Testo(b.v->chkNumeriCF(6)), QColor(Qt::blue));
    EXPECT_FALSE(b.v->chkNumeriCF(5)->isEnabled());
    EXPECT_EQ(Testo(b.v->chkNumeriCF(5)), QColor(Qt::black));
    const QColor faccia = Fondo(b.v->chkNumeriCF(6));
    EXPECT_NE(faccia, QColor(Qt::yellow));

    Clic(b.v->chkNumeriCF(6));
    Clic(b.v->chkNumeriCF(11));
    EXPECT_EQ(b.f->chkNumeriCF[6], 1);
    EXPECT_EQ(Fondo(b.v->chkNumeriCF(6)), QColor(Qt::yellow));
    Clic(b.v->chkPuntiCF(2));
    Clic(b.v->Command(1));
    ASSERT_EQ(b.v->List2()->count(), 1);
    EXPECT_EQ(b.v->List2()->item(0)->text(), "7,12,  Punti: 2,");

    // unticked, the box gets its face back
    Clic(b.v->chkNumeriCF(11));
    EXPECT_EQ(Fondo(b.v->chkNumeriCF(11)), faccia);
    Clic(b.v->Command(1));
    auto c = b.f->condizioni();
    ASSERT_EQ(c->numFiltri(), 2);
    EXPECT_TRUE(c->ColonneFiltro[1][12]);
    EXPECT_FALSE(c->ColonneFiltro[2][12]);
    EXPECT_TRUE(c->PuntiFiltro[2][3]);

    // delete the first through the list and the button
    ClicRiga(b.v->List2(), 0);
    EXPECT_EQ(b.f->List2Indice, 0);
    Clic(b.v->Command(3));
    ASSERT_EQ(b.v->List2()->count(), 1);
    EXPECT_EQ(b.v->List2()->item(0)->text(), "7,  Punti: 2,");
    ASSERT_EQ(c->numFiltri(), 1);
    EXPECT_TRUE(c->ColonneFiltro[1][7]);
    EXPECT_FALSE(c->ColonneFiltro[1][12]);
    EXPECT_TRUE(b.v->List2()->selectedItems().isEmpty());

    // azzera clears the boxes and their colours
    Clic(b.v->Command(5));
    EXPECT_FALSE(b.v->chkNumeriCF(6)->isChecked());
    EXPECT_FALSE(b.v->chkPuntiCF(2)->isChecked());
    EXPECT_EQ(Fondo(b.v->chkNumeriCF(6)), faccia);
}

TEST(Form28View, AzzeraSequelaMostraLErroreEIlDialogoResta) {
    Banco b;
    b.scheda(11);
    Clic(b.v->Command11(0));
    Clic(b.v->Command11(1));
    Clic(b.v->Command11(1));
    EXPECT_EQ(b.v->Command11(0)->text(), "P");
    EXPECT_EQ(b.v->Command11(1)->text(), "D");
    Clic(b.v->Check2(1));
    Clic(b.v->Command(15));
    ASSERT_EQ(b.v->List4()->count(), 1);
    EXPECT_EQ(b.v->List4()->item(0)->text(), "PD;  Passo: 1; Presenze: 1,");

    Clic(b.v->Command(16));
    ASSERT_EQ(b.ui.box.size(), 1u);
    EXPECT_EQ(b.ui.box[0].testo.rfind("Errore di run-time '9'", 0), 0u) << b.ui.box[0].testo;
    EXPECT_EQ(b.ui.box[0].icona, Icona::Critico);
    EXPECT_TRUE(b.v->isVisible());
    // what ran before the failure shows
    EXPECT_EQ(b.v->Command11(0)->text(), "");
    EXPECT_FALSE(b.v->Check2(1)->isChecked());
    // a one-sign sequence is refused with its message
    Clic(b.v->Command11(0));
    Clic(b.v->Command(15));
    EXPECT_EQ(b.ui.ultimoBox().testo, "La sequela deve essere di almeno 2 segni P/D a partire da sinistra");
    EXPECT_EQ(b.v->List4()->count(), 1);
}

TEST(Form28View, PosizioniConLeFrecce) {
    Banco b;
    b.scheda(10);
    Clic(b.v->Check18(2));
    Clic(b.v->Check20());
    EXPECT_EQ(Fondo(b.v->Check18(2)), QColor(Qt::yellow));
    Clic(b.v->spin("UpDown10", true));
    EXPECT_EQ(b.v->campo("txtPosizioni")->text(), "2");
    EXPECT_FALSE(b.v->Check18(2)->isChecked());
    EXPECT_FALSE(b.v->Check20()->isChecked());
    EXPECT_EQ(b.f->condizioni()->PosizioniNumeri[1][3], 1);
    EXPECT_EQ(b.f->condizioni()->PosizioniNumeri[1][91], 1);
    Clic(b.v->spin("UpDown10", false));
    EXPECT_TRUE(b.v->Check18(2)->isChecked());
    EXPECT_TRUE(b.v->Check20()->isChecked());
    // typing a position outside 1..10 is a run-time error, shown
    b.digita("txtPosizioni", "12", false);
    EXPECT_EQ(b.ui.ultimoBox().testo.rfind("Errore di run-time '9'", 0), 0u);
    EXPECT_TRUE(b.v->isVisible());
}

TEST(Form28View, AccettaRiempieLeCondizioniENasconde) {
    Banco b;
    b.scheda(0);
    ASSERT_EQ(b.v->List1()->count(), 16);  // the forecast after the reset, and once more at showing
    // a sixth tick is taken off the list on screen
    for (int i = 2; i <= 7; ++i) b.v->List1()->item(i)->setCheckState(Qt::Checked);
    EXPECT_EQ(b.v->List1()->item(7)->checkState(), Qt::Unchecked);
    EXPECT_EQ(b.s.NumeriFissi.size(), 6u);
    for (int i = 2; i <= 6; ++i) b.v->List1()->item(i)->setCheckState(Qt::Unchecked);
    b.v->List1()->item(1)->setCheckState(Qt::Checked);
    EXPECT_EQ(b.s.NumeriFissi.size(), 2u);
    EXPECT_EQ(b.s.NumeriFissi[1], 7);
    Clic(b.v->chkAttivo(0));
    b.scheda(1);
    b.v->Combo(2)->setCurrentIndex(2);
    b.scheda(5);
    Clic(b.v->chkAttivo(5));
    b.digita("txtSomma(0)", "100");
    b.digita("txtSomma(1)", "80");  // below the least: the least takes it
    EXPECT_EQ(b.v->campo("txtSomma(0)")->text(), "80");
    b.scheda(6);
    b.digita("txtPariMin", "3");
    b.digita("txtPariMax", "1");
    b.scheda(2);
    Clic(b.v->Check1(4));
    Clic(b.v->axButton1());
    EXPECT_FALSE(b.v->isVisible());
    EXPECT_EQ(b.v->result(), QDialog::Accepted);
    auto c = b.f->condizioni();
    EXPECT_TRUE(c->CondizioneAttiva[1]);
    EXPECT_TRUE(c->CondizioneAttiva[6]);
    EXPECT_FALSE(c->CondizioneAttiva[7]);
    EXPECT_EQ(c->Consecutivita[2], 2);
    EXPECT_EQ(c->SommaGlobale[1], 80);
    EXPECT_EQ(c->SommaGlobale[2], 80);
    EXPECT_EQ(c->Interruzioni[5], 0);
    EXPECT_EQ(c->Interruzioni[4], 1);
    // normalised on screen and in the table
    EXPECT_EQ(c->PariDispari[2], 3);
    EXPECT_EQ(b.v->campo("txtPariMax")->text(), "3");
}

TEST(Form28View, ResettaChiedeERicaricaADialogoAperto) {
    Banco b;
    b.scheda(3);
    Clic(b.v->chkNumeriCF(6));
    Clic(b.v->Command(1));
    b.ui.risposte = {Risposta::No};
    Clic(b.v->axButton2());
    EXPECT_EQ(b.v->List2()->count(), 1);
    b.ui.risposte = {Risposta::Si};
    Clic(b.v->axButton2());
    EXPECT_EQ(b.ui.ultimoBox().testo, "Si è sicuri di voler resettare tutte le condizioni?");
    EXPECT_TRUE(b.v->isVisible());
    EXPECT_EQ(b.v->List2()->count(), 0);
    EXPECT_EQ(b.f->condizioni()->numFiltri(), 0);
    EXPECT_FALSE(b.v->chkNumeriCF(6)->isChecked());
    EXPECT_EQ(b.v->List1()->count(), 16);  // the reset's list and one activation
    EXPECT_EQ(b.v->campo("txtSomma(0)")->text(), "75");  // 3 + 7 + 12 + 20 + 33
}

TEST(Form28View, SalvaECaricaRipristinanoIControlli) {
    QTemporaryDir cartella;
    const std::string file = cartella.filePath("mie").toStdString();
    Banco b;
    b.scheda(3);
    Clic(b.v->chkAttivo(3));
    Clic(b.v->chkNumeriCF(19));
    Clic(b.v->chkPuntiCF(0));
    Clic(b.v->Command(1));
    b.scheda(7);
    b.v->Combo(6)->setCurrentIndex(1);
    b.digita("txtDistanzaMax", "30");
    b.ui.fileSalva = {file};  // no extension: ".json" is added
    Clic(b.v->salvaCondizioni());
    ASSERT_TRUE(QFile::exists(QString::fromStdString(file + ".json")));

    // changed after saving, then the file brings the saved state back
    b.v->Combo(6)->setCurrentIndex(0);
    b.digita("txtDistanzaMax", "12");
    b.scheda(3);
    Clic(b.v->Command(3));  // nothing selected: nothing goes
    Clic(b.v->chkNumeriCF(2));
    Clic(b.v->Command(1));
    ASSERT_EQ(b.v->List2()->count(), 2);
    b.ui.fileApri = {file + ".json"};
    Clic(b.v->caricaCondizioni());
    EXPECT_TRUE(b.v->isVisible());
    EXPECT_EQ(b.v->Combo(6)->currentIndex(), 1);
    EXPECT_EQ(b.v->campo("txtDistanzaMax")->text(), "30");
    EXPECT_TRUE(b.v->chkAttivo(3)->isChecked());
    ASSERT_EQ(b.v->List2()->count(), 1);
    EXPECT_EQ(b.v->List2()->item(0)->text(), "20,  Punti: 0,");
    EXPECT_TRUE(b.f->condizioni()->CondizioneAttiva[4]);  // loading accepts
    EXPECT_EQ(b.f->condizioni()->DistanzaNumeri[2], 31);

    // a bad file: its message, and the dialog as it was
    const std::string rotto = cartella.filePath("rotto.json").toStdString();
    FILE* out = std::fopen(rotto.c_str(), "w");
    std::fputs("{\"Combo6\": 7}", out);
    std::fclose(out);
    b.ui.fileApri = {rotto};
    Clic(b.v->caricaCondizioni());
    EXPECT_EQ(b.ui.ultimoBox().testo.rfind("File delle condizioni non valido", 0), 0u);
    EXPECT_EQ(b.v->Combo(6)->currentIndex(), 1);
    ASSERT_EQ(b.v->List2()->count(), 1);
    EXPECT_EQ(b.f->condizioni()->numFiltri(), 1);
    // a cancelled dialog does nothing
    const size_t box = b.ui.box.size();
    Clic(b.v->caricaCondizioni());
    EXPECT_EQ(b.ui.box.size(), box);
}

TEST(Form28View, ApertoDaImpostaLeCondizioniConLArchivio) {
    Sistema s;
    InterfacciaScriptata ui;
    QWidget principale;
    prova::ImpostaPronostico(s, {5, 10, 15, 20, 25, 30});
    EstrazioniInMemoria archivio;
    FinestreGiocata w(s, ui, &principale);
    int richieste = 0;
    w.fonteArchivio = [&]() -> FonteEstrazioni* {
        ++richieste;
        return &archivio;
    };
    EXPECT_EQ(s.filtro, nullptr);  // no conditions until the dialog is first needed
    int aperture = 0;
    prova::AlProssimoModale<Form28View>([&](Form28View* d) {
        ++aperture;
        EXPECT_EQ(d->List1()->count(), 6);
        EXPECT_TRUE(d->chkNumeriCF(4)->isEnabled());
        EXPECT_FALSE(d->chkNumeriCF(3)->isEnabled());
        Clic(d->chkAttivo(5));
        Clic(d->axButton1());
    });
    prova::AlProssimoModale<Form20View>([](Form20View* d) {
        Clic(d->Command4());
        Clic(d->Command2());
    });
    w.apriForm20();
    EXPECT_EQ(aperture, 1);
    EXPECT_EQ(richieste, 1);
    EXPECT_EQ(w.form28().archivio, &archivio);
    EXPECT_TRUE(w.form28().condizioni()->CondizioneAttiva[6]);
    ASSERT_NE(s.filtro, nullptr);
    // a second opening keeps the state and appends the forecast again
    prova::AlProssimoModale<Form28View>([&](Form28View* d) {
        ++aperture;
        EXPECT_TRUE(d->chkAttivo(5)->isChecked());
        EXPECT_EQ(d->List1()->count(), 12);
    });
    w.apriForm28();
    EXPECT_EQ(aperture, 2);
}

TEST(Form28View, UnNuovoPronosticoAdattaLeCondizioniAncheADialogoMaiAperto) {
    Sistema s;
    InterfacciaScriptata ui;
    QWidget principale;
    prova::ImpostaPronostico(s, {5, 10, 15, 20, 25, 30});
    s.SviluppoK = 3;
    FinestreGiocata w(s, ui, &principale);
    ASSERT_TRUE(s.ResettaCondizioni);
    // what the main window runs after a change of the forecast
    s.ResettaCondizioni();
    EXPECT_EQ(w.form28().txtSomma[0], "30");  // 5 + 10 + 15
    EXPECT_EQ(w.form28().txtSomma[1], "75");  // 20 + 25 + 30
    EXPECT_EQ(w.form28().List1.size(), 6u);
    ASSERT_NE(s.filtro, nullptr);
    // the first showing appends its own copy of the forecast
    int aperture = 0;
    prova::AlProssimoModale<Form28View>([&](Form28View* d) {
        ++aperture;
        EXPECT_EQ(d->List1()->count(), 12);
        Clic(d->axButton1());
    });
    w.apriForm28();
    EXPECT_EQ(aperture, 1);
}
