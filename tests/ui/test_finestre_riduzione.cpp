// The reduction windows as the program opens them: RIDUCI and the Garanzia items,
// Sviluppo ridotto with its cover in Timer4, the win percentages and the system
// information, driven through the widgets of the running program.

#include "core/form1.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "aiuti_qt.h"
#include "reduction/copertura.h"
#include "reduction/form19.h"
#include "reduction/form5.h"
#include "reduction/form9.h"
#include "reduction/percentuali.h"
#include "reduction/verifica.h"
#include "support/prova_sistema.h"
#include "ui/applicazione.h"
#include "ui/form19view.h"
#include "ui/form1view.h"
#include "ui/form20view.h"
#include "ui/form5view.h"
#include "ui/form8view.h"
#include "ui/form9view.h"
#include "ui/modellolista.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

struct Programma {
    Applicazione app{Applicazione::Opzioni{false, 0, false, {}}};
    std::vector<BoxQt> box;

    Programma() {
        app.interfaccia().risponditore = [this](const BoxQt& b) {
            box.push_back(b);
            return b.pulsanti == Pulsanti::SiNo ? Risposta::Si : Risposta::Ok;
        };
        app.avvia();
    }
    Form1View& w() { return app.finestra(); }
    Sistema& s() { return app.sistema(); }

    // The forecast on the pad, then SVILUPPA with the size of index `indice`
    // (0 COPPIE, 1 TERZINE...).
    void sviluppa(const std::vector<int>& numeri, int indice) {
        for (int n : numeri) Clic(w().Command1(n - 1));
        prova::AlProssimoModale<Form20View>([indice](Form20View* d) {
            d->Combo1()->setCurrentIndex(indice);
            Clic(d->Command1());
        });
        w().pulsante("Command3")->click();
    }
    bool haBox(const std::string& testo) const {
        return std::any_of(box.begin(), box.end(), [&](const BoxQt& b) { return b.testo == testo; });
    }
};

using Riga = std::vector<int>;

Riga Colonna(const Colonne& c, int64_t i, int k) {
    Riga r;
    for (int p = 1; p <= k; ++p) r.push_back(c.get(p, i));
    return r;
}

int Comuni(const Riga& a, const Riga& b) {
    int n = 0;
    for (int x : a) n += static_cast<int>(std::count(b.begin(), b.end(), x));
    return n;
}

bool Coperta(const Riga& c, const std::vector<Riga>& tenute, int g) {
    return std::any_of(tenute.begin(), tenute.end(), [&](const Riga& t) { return Comuni(c, t) >= g; });
}

// The fast reduction in its plain words: keep each column that no kept one covers.
std::vector<Riga> RiduzioneSemplice(const std::vector<Riga>& colonne, int g) {
    std::vector<Riga> tenute;
    for (const Riga& c : colonne)
        if (!Coperta(c, tenute, g)) tenute.push_back(c);
    return tenute;
}

std::vector<Riga> RigheLista(const Sistema& s, int k) {
    std::vector<Riga> v;
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) {
        Riga x;
        for (int p = 1; p <= k; ++p) x.push_back(NumeroInRiga(s.MSFlexGrid1.riga(r), p));
        v.push_back(x);
    }
    return v;
}

// Every combination of g of `numeri`.
void Combinazioni(const Riga& numeri, int g, size_t da, Riga& corrente, std::vector<Riga>& esito) {
    if (static_cast<int>(corrente.size()) == g) {
        esito.push_back(corrente);
        return;
    }
    for (size_t i = da; i < numeri.size(); ++i) {
        corrente.push_back(numeri[i]);
        Combinazioni(numeri, g, i + 1, corrente, esito);
        corrente.pop_back();
    }
}

// Steps run in order on the modal D once it is up, polled every 10 ms: each returns
// true when its moment came and it acted. None may wait inside: the window's own
// work runs in nested loops, and a step may be called from one of them. After
// `limite` ms the dialog is closed and the test fails.
template <class D>
void Passi(std::vector<std::function<bool(D*)>> passi, int limite = 60000) {
    auto* timer = new QTimer;
    auto* orologio = new QElapsedTimer;
    orologio->start();
    auto i = std::make_shared<size_t>(0);
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [=] {
        auto* d = qobject_cast<D*>(QApplication::activeModalWidget());
        auto fine = [&] {
            timer->stop();
            timer->deleteLater();
            delete orologio;
        };
        if (orologio->elapsed() > limite) {
            ADD_FAILURE() << "step " << *i << " never came";
            fine();
            if (d) d->reject();
            return;
        }
        if (!d || !d->isVisible()) return;
        if (passi[*i](d) && ++*i == passi.size()) fine();
    });
    timer->start();
}

}  // namespace

// RIDUCI on cinquine: the refusal keeps the dialog and its options; without "100%"
// the fast pass runs with quaterna and its result is the plain one.
TEST(FinestreRiduzione, RiduciRifiutoPoiRapidaSenzaCento) {
    Programma p;
    p.sviluppa({3, 12, 25, 31, 44, 58, 67}, 3);
    ASSERT_EQ(p.s().NumColonne, 21);  // C(7, 5)
    ASSERT_TRUE(p.w().pulsante("Command8")->isEnabled());

    bool visto = false;
    prova::AlProssimoModale<Form5View>([&](Form5View* d) {
        visto = true;
        EXPECT_EQ(d->windowTitle(), "IMPOSTAZIONE RIDUZIONE");
        EXPECT_EQ(d->Option(1)->text(), "Riduzione a garanzia cinquina");
        EXPECT_EQ(d->Option(4)->text(), "Riduzione a garanzia ambo");
        EXPECT_TRUE(d->Option(1)->isChecked());  // cinquina survives the activation with 5
        EXPECT_TRUE(d->Check1()->isChecked());
        EXPECT_FALSE(d->Check2()->isChecked());
        Clic(d->Command1());
        EXPECT_TRUE(p.haBox(Form5::Rifiuto));
        EXPECT_TRUE(d->isVisible());  // refused: the dialog stays with its options
        EXPECT_TRUE(d->Option(1)->isChecked());
        EXPECT_EQ(p.s().NumRidotte, 0);
        Clic(d->Check1());
        EXPECT_FALSE(p.s().form5.cento);
        Clic(d->Command1());
        EXPECT_FALSE(d->isVisible());
    });
    p.w().pulsante("Command8")->click();
    ASSERT_TRUE(visto);

    std::vector<Riga> colonne;
    for (int i = 1; i <= 21; ++i) colonne.push_back(Colonna(p.s().colonne, i, 5));
    const auto attese = RiduzioneSemplice(colonne, 4);
    ASSERT_EQ(p.s().NumRidotte, static_cast<int>(attese.size()));
    for (size_t c = 0; c < attese.size(); ++c) EXPECT_EQ(Colonna(p.s().ColonneRidotte, c + 1, 5), attese[c]);
    EXPECT_EQ(p.s().TipoGaranzia, 4);
    EXPECT_EQ(p.w().pannello(1)->text().toStdString(), "RIDOTTE:  " + std::to_string(attese.size()));
    // AVVIA unloaded the dialog: it opens again as it started
    EXPECT_FALSE(p.s().form5.caricato);
    EXPECT_FALSE(p.s().GaranziaAttiva);  // the fast pass never sets it
}

// A Garanzia item fires its option's rule; ANNULLA hides the dialog with its
// choices, the close box unloads it.
TEST(FinestreRiduzione, GaranziaConLaSuaRegolaAnnullaEChiusura) {
    Programma p;
    p.sviluppa({7, 14, 21, 28, 35, 42}, 2);
    ASSERT_EQ(p.s().SviluppoK, 4);
    prova::AlProssimoModale<Form5View>([&](Form5View* d) {
        EXPECT_TRUE(d->Option(3)->isChecked());  // cinquina with quartine falls to terno
        EXPECT_FALSE(d->Option(1)->isChecked());
        Clic(d->Check2());
        EXPECT_TRUE(d->Check2()->isChecked());
        Clic(d->Command2());
        EXPECT_FALSE(d->isVisible());
    });
    p.w().voce("Garanzia5")->trigger();
    EXPECT_TRUE(p.s().form5.caricato);
    EXPECT_EQ(p.s().NumRidotte, 0);
    prova::AlProssimoModale<Form5View>([&](Form5View* d) {
        EXPECT_TRUE(d->Option(3)->isChecked());  // RIDUCI shows it as it was left
        EXPECT_TRUE(d->Check2()->isChecked());
        d->close();
    });
    p.w().pulsante("Command8")->click();
    EXPECT_FALSE(p.s().form5.caricato);
    prova::AlProssimoModale<Form5View>([&](Form5View* d) {
        EXPECT_FALSE(d->Check2()->isChecked());  // unloaded: back to the start
        EXPECT_TRUE(d->Check1()->isChecked());
        QTest::keyClick(d, Qt::Key_Escape);
    });
    p.w().pulsante("Command8")->click();
    EXPECT_EQ(p.s().NumRidotte, 0);
}

// Garanzia ambo with ACCURATO: a true cover; the information reads the dialog as
// unloaded (cinquina) and the ratios of the list in hand.
TEST(FinestreRiduzione, GaranziaAmboAccuratoEInformazioni) {
    Programma p;
    p.sviluppa({5, 10, 15, 20, 25, 30}, 1);
    ASSERT_EQ(p.s().NumColonne, 20);  // C(6, 3)
    prova::AlProssimoModale<Form5View>([&](Form5View* d) {
        EXPECT_TRUE(d->Option(4)->isChecked());
        EXPECT_FALSE(d->Option(1)->isChecked());
        Clic(d->Check1());
        EXPECT_FALSE(d->Check1()->isChecked());
        Clic(d->Option(4));  // ambo is always 100%: "100%" comes back on
        EXPECT_TRUE(d->Check1()->isChecked());
        EXPECT_TRUE(p.s().form5.cento);
        Clic(d->Check2());
        EXPECT_TRUE(d->Check2()->isChecked());
        Clic(d->Command1());
    });
    p.w().voce("Garanzia2")->trigger();
    const int R = p.s().NumRidotte;
    ASSERT_GT(R, 1);
    ASSERT_LT(R, 20);
    EXPECT_TRUE(p.s().GaranziaAttiva);
    std::vector<Riga> tenute;
    for (int c = 1; c <= R; ++c) tenute.push_back(Colonna(p.s().ColonneRidotte, c, 3));
    for (int i = 1; i <= 20; ++i) EXPECT_TRUE(Coperta(Colonna(p.s().colonne, i, 3), tenute, 2)) << i;
    EXPECT_EQ(p.w().pannello(1)->text().toStdString(), "RIDOTTE:  " + std::to_string(R));

    // nothing in the list yet
    prova::AlProssimoModale<Form9View>([&](Form9View* d) {
        EXPECT_EQ(d->windowTitle(), "INFORMAZIONI SUL SISTEMA");
        EXPECT_EQ(d->TipoSistema()->text(),
                  "Condizionato senza nessuna riduzione. Attualmente le giocate non sono in lista.");
        EXPECT_EQ(d->CondInt()->text(), "1: 1");
        EXPECT_EQ(d->RidInt()->text(), "-");
        EXPECT_EQ(d->RidCond()->text(), "-");
        Clic(d->Command1());
    });
    p.w().voce("Informazioni")->trigger();

    p.w().pulsante("Command7")->click();  // VISUALIZZA: the reduced list
    ASSERT_EQ(p.s().MSFlexGrid1.Rows(), R);
    prova::AlProssimoModale<Form9View>([&](Form9View* d) {
        EXPECT_EQ(d->Tipogiocata()->text().toStdString(), p.s().Command2);
        EXPECT_EQ(d->TipoSistema()->text(), "Ridotto a garanzia cinquina.");
        EXPECT_EQ(d->RidInt()->text().toStdString(), "1: " + std::to_string(20 / R));
        EXPECT_EQ(d->RidCond()->text().toStdString(), "1: " + std::to_string(20 / R));
        Clic(d->Command1());
    });
    p.w().voce("Informazioni")->trigger();
}

// Sviluppo ridotto: the lists follow their rules, an empty choice does nothing, and
// Avvia leaves the cover to Timer4, which ends with every terno of the forecast in a row.
TEST(FinestreRiduzione, SviluppoRidottoCostruisceLaCopertura) {
    Programma p;
    const Riga numeri = {2, 9, 17, 33, 41, 56, 70, 88};
    for (int n : numeri) Clic(p.w().Command1(n - 1));
    bool visto = false;
    prova::AlProssimoModale<Form19View>([&](Form19View* d) {
        visto = true;
        EXPECT_EQ(d->windowTitle(), "RIDUZIONI PARTICOLARI");
        EXPECT_EQ(d->Combo1()->currentIndex(), -1);
        EXPECT_EQ(d->Combo2()->currentIndex(), -1);
        Clic(d->Command1());  // nothing chosen: ignored
        EXPECT_TRUE(d->isVisible());
        d->Combo1()->setFocus();
        QTest::keyClick(d->Combo1(), Qt::Key_Down);
        QTest::keyClick(d->Combo1(), Qt::Key_Down);
        EXPECT_EQ(d->Combo1()->currentText(), "QUARTINE");
        emit d->Combo2()->activated(3);  // Cinquina above QUARTINE falls back to Terno
        EXPECT_EQ(d->Combo2()->currentText(), "Terno");
        Clic(d->Command1());
        EXPECT_FALSE(d->isVisible());
    });
    p.w().voce("SviluppoRidotto")->trigger();
    ASSERT_TRUE(visto);
    EXPECT_EQ(p.s().SviluppoK, 4);
    EXPECT_EQ(p.s().TipoGaranzia, 3);
    // the dialog is gone; the cover goes on in the main window's ticks, behind the bar
    EXPECT_TRUE(p.w().Timer4()->isActive());
    EXPECT_NE(p.app.interfaccia().finestraAvanzamento(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !p.s().Timer4Abilitato; }, 30000));
    EXPECT_FALSE(p.w().Timer4()->isActive());

    const auto righe = RigheLista(p.s(), 4);
    ASSERT_FALSE(righe.empty());
    EXPECT_LT(righe.size(), 70u);  // fewer than the C(8, 4) integral plays
    EXPECT_EQ(p.w().modelloLista()->rowCount(), static_cast<int>(righe.size()));
    for (const Riga& r : righe)
        for (int x : r) EXPECT_NE(std::find(numeri.begin(), numeri.end(), x), numeri.end());
    std::vector<Riga> terni;
    Riga c;
    Combinazioni(numeri, 3, 0, c, terni);
    for (const Riga& t : terni) EXPECT_TRUE(Coperta(t, righe, 3)) << t[0] << " " << t[1] << " " << t[2];
}

// The percentages of the integral terzine of six numbers: every draw of 3 or more
// holds a played terzina, every pair lies in four rows and the first ends the scan.
TEST(FinestreRiduzione, PercentualiRiempionoLaTabella) {
    Programma p;
    p.sviluppa({1, 2, 3, 4, 5, 6}, 1);
    ASSERT_EQ(p.s().NumColonne, 20);
    bool visto = false;
    Passi<Form8View>({[&](Form8View* d) {
        if (d->windowTitle() != "RESA DEL SISTEMA") return false;
        visto = true;
        EXPECT_EQ(d->titolo(0)->text(), "Cinquina/e al");
        EXPECT_EQ(d->titolo(3)->text(), "Ambo/i al");
        for (int L = 2; L <= 5; ++L) {
            EXPECT_EQ(d->Perc(3, L)->text(), "100") << L;
            EXPECT_EQ(d->Perc(0, L)->text(), "") << L;  // terzine never reach a cinquina
            EXPECT_EQ(d->Perc(1, L)->text(), "") << L;
        }
        for (int L = 3; L <= 5; ++L) EXPECT_EQ(d->Perc(2, L)->text(), "100") << L;
        EXPECT_EQ(d->Perc(2, 2)->text(), " 0");
        EXPECT_EQ(d->GaranziaMax()->text(), "PIU' TERNI CON 5 NUMERI");
        EXPECT_EQ(d->GaranziaMin()->text(), "1 AMBO CON 2 NUMERI");
        EXPECT_FALSE(d->ProgressBar1()->isVisible());
        EXPECT_FALSE(d->Timer1()->isActive());
        Clic(d->Command1());
        return true;
    }});
    p.w().voce("VisualizzaPercentuali")->trigger();
    ASSERT_TRUE(visto);
    EXPECT_TRUE(p.s().PercentualiValide);
    EXPECT_EQ(p.s().NumColonne, 20);  // put back after the borrowing
    EXPECT_EQ(p.s().MSFlexGrid1.Rows(), 20);  // VISUALIZZA ran first

    // Hidden with its table: it comes back at once, with nothing to compute.
    prova::AlProssimoModale<Form8View>([&](Form8View* d) {
        EXPECT_EQ(d->windowTitle(), "RESA DEL SISTEMA");
        EXPECT_EQ(d->Perc(2, 3)->text(), "100");
        EXPECT_FALSE(d->Timer1()->isActive());
        d->close();  // any other close unloads: the table is no longer valid
    });
    p.w().voce("VisualizzaPercentuali")->trigger();
    EXPECT_FALSE(p.s().PercentualiValide);
}

// A key halts the calculation with no notice; ESC then No starts it again, and it
// comes to the table of a run with no key pressed.
TEST(FinestreRiduzione, PercentualiFermateDaUnTastoERiprese) {
    Programma p;
    p.sviluppa(prova::Numeri(30), 2);
    ASSERT_EQ(p.s().NumColonne, 27405);  // C(30, 4)
    p.app.interfaccia().risponditore = [&](const BoxQt& b) {
        p.box.push_back(b);
        return b.pulsanti == Pulsanti::SiNo ? Risposta::No : Risposta::Ok;
    };
    double fermo = -1;
    const size_t boxPrima = p.box.size();
    QElapsedTimer attesa;
    bool finito = false;
    Passi<Form8View>({
        [&](Form8View* d) {
            EXPECT_TRUE(d->ProgressBar1()->isVisible());
            QTest::keyClick(d, Qt::Key_A);
            return true;
        },
        [&](Form8View* d) {
            if (p.s().form8.Timer1) return false;
            // halted before the end, with no box
            EXPECT_NE(d->windowTitle(), "RESA DEL SISTEMA");
            EXPECT_EQ(p.box.size(), boxPrima);
            fermo = p.s().form8.barraValore;
            attesa.start();
            return true;
        },
        [&](Form8View* d) {
            if (attesa.elapsed() < 60) return false;
            EXPECT_EQ(p.s().form8.barraValore, fermo);
            EXPECT_FALSE(d->Timer1()->isActive());
            QTest::keyClick(d, Qt::Key_Escape);  // "Annullare...?" No: it goes on
            EXPECT_TRUE(p.haBox("Annullare l'elaborazione corrente?"));
            EXPECT_TRUE(p.s().form8.Timer1);
            return true;
        },
        [&](Form8View* d) {
            if (d->windowTitle() != "RESA DEL SISTEMA") return false;
            finito = true;
            Clic(d->Command1());
            return true;
        },
    });
    p.w().voce("VisualizzaPercentuali")->trigger();
    ASSERT_TRUE(finito);
    EXPECT_TRUE(p.s().PercentualiValide);

    // The same list computed headless, with no key pressed.
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(30));
    s.SviluppoK = 4;
    s.NumColonne = p.s().NumColonne;
    for (int64_t r = 0; r < p.s().MSFlexGrid1.Rows(); ++r) s.MSFlexGrid1.AddItem(std::string(p.s().MSFlexGrid1.riga(r)));
    Form8 f(s, ui);
    f.avviaEdEsegui();
    ASSERT_TRUE(s.PercentualiValide);
    EXPECT_EQ(p.s().form8.Perc, s.form8.Perc);
    EXPECT_EQ(p.s().form8.GaranziaMax, s.form8.GaranziaMax);
    EXPECT_EQ(p.s().form8.GaranziaMin, s.form8.GaranziaMin);
}

// Command1 hides the window in the middle of the work, which goes on hidden and
// gives back the borrowed column count at the end.
TEST(FinestreRiduzione, PercentualiNascosteProseguono) {
    Programma p;
    p.sviluppa(prova::Numeri(30), 2);
    ASSERT_EQ(p.s().NumColonne, 27405);
    Passi<Form8View>({[&](Form8View* d) {
        Clic(d->Command1());
        return true;
    }});
    p.w().voce("VisualizzaPercentuali")->trigger();
    EXPECT_FALSE(p.s().PercentualiValide);
    EXPECT_TRUE(p.s().form8.Timer1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return p.s().PercentualiValide; }, 60000));
    EXPECT_EQ(p.s().NumColonne, 27405);
    EXPECT_EQ(p.s().form8.Caption, "RESA DEL SISTEMA");
    EXPECT_NE(p.s().form8.GaranziaMin, "nessuna");
    // shown again at once, with its table
    prova::AlProssimoModale<Form8View>([&](Form8View* d) {
        EXPECT_EQ(d->GaranziaMin()->text().toStdString(), p.s().form8.GaranziaMin);
        EXPECT_FALSE(d->Timer1()->isActive());
        Clic(d->Command1());
    });
    p.w().voce("VisualizzaPercentuali")->trigger();
    EXPECT_TRUE(p.s().PercentualiValide);
}

// Pictures of the four windows (saved with ZEF_SCHERMATE set to a folder); every
// control lies inside its window.
TEST(FinestreRiduzione, Schermate) {
    auto verifica = [](QWidget* w, const char* nome) {
        w->adjustSize();
        QApplication::processEvents();
        const QRect finestra = w->rect();
        for (QWidget* c : w->findChildren<QWidget*>()) {
            if (!c->isVisibleTo(w) || c->isWindow()) continue;
            QRect r(c->mapTo(w, QPoint(0, 0)), c->size());
            EXPECT_TRUE(finestra.contains(r)) << nome << ": " << c->objectName().toStdString() << " out of the window";
        }
        QPixmap pm = w->grab();
        ASSERT_FALSE(pm.isNull()) << nome;
        if (const char* cartella = std::getenv("ZEF_SCHERMATE")) {
            EXPECT_TRUE(pm.save(QString("%1/%2.png").arg(cartella, nome))) << nome;
        }
    };
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {4, 11, 19, 23, 37, 42, 58, 66});
    s.SviluppoK = 6;
    {
        Form5 f(s, ui);
        Form5View v(f, s, ui);
        v.show();
        Clic(v.Check2());
        verifica(&v, "form5");
        v.hide();
    }
    {
        Form19 f(s, ui);
        Form19View v(f, ui);
        v.show();
        emit v.Combo1()->activated(2);
        emit v.Combo2()->activated(1);
        verifica(&v, "form19");
    }
    {
        // a list of quartine, its percentages computed headless
        s.SviluppoK = 4;
        const uint8_t righe[4][4] = {{4, 11, 19, 23}, {37, 42, 58, 66}, {4, 19, 37, 58}, {11, 23, 42, 66}};
        for (const auto& r : righe) s.MSFlexGrid1.AddItem(RigaCopertura(r, 4));
        s.NumColonne = static_cast<int32_t>(s.MSFlexGrid1.Rows());
        Form8 f(s, ui);
        f.avviaEdEsegui();
        ASSERT_TRUE(s.PercentualiValide);
        Form8View v(f, s, ui);
        v.show();
        EXPECT_FALSE(v.Timer1()->isActive());
        verifica(&v, "form8");
        v.hide();
    }
    {
        s.Command2 = "Napoli, Ambo € 1,00, Terno € 0,50, , , ";
        s.NumCombinazioni = 70;
        s.NumColonne = 70;
        s.TipoGaranzia = 3;
        s.GaranziaAttiva = true;
        s.form5.Option = {false, false, true, false};
        s.form5.caricato = true;
        Form9 f(s, ui);
        Form9View v(f, ui);
        v.show();
        EXPECT_EQ(v.TipoSistema()->text(), "Ridotto a garanzia terno.");
        EXPECT_EQ(v.RidCond()->text(), "1: 17");  // 70 / 4 rows, cut down
        verifica(&v, "form9");
    }
}

// "Verifica garanzia" asks for the guarantee and says whether the list keeps it:
// the integral list of terzine keeps every ambo, a list cut by hand does not.
TEST(FinestreRiduzione, VerificaGaranziaDalMenu) {
    Programma p;
    p.sviluppa({4, 9, 16, 25, 36}, 1);
    ASSERT_EQ(p.s().NumColonne, 10);
    p.w().pulsante("Command7")->click();
    ASSERT_EQ(p.s().MSFlexGrid1.Rows(), 10);
    QAction* voce = p.w().findChild<QAction*>("VerificaGaranzia");
    ASSERT_NE(voce, nullptr);
    ASSERT_TRUE(voce->isEnabled());
    p.app.interfaccia().rispostaInput = [](const std::string&) { return std::optional<std::string>("2"); };
    p.box.clear();
    voce->trigger();
    ASSERT_FALSE(p.box.empty());
    EXPECT_EQ(p.box.back().titolo, TitoloVerifica);
    const std::string tenuta = p.box.back().testo;
    // the ambo 4-9 lives only in the first three rows: drop them
    for (int i = 0; i < 3; ++i) {
        p.s().MSFlexGrid1.Row = p.s().MSFlexGrid1.RowSel = 0;
        EliminaSelezionate(p.s());
    }
    p.box.clear();
    voce->trigger();
    ASSERT_FALSE(p.box.empty());
    EXPECT_EQ(p.box.back().titolo, TitoloVerifica);
    EXPECT_NE(p.box.back().testo, tenuta);
    EXPECT_NE(p.box.back().testo.find("1 su le 10 combinazioni"), std::string::npos) << p.box.back().testo;
    EXPECT_NE(p.box.back().testo.find("\n4 9"), std::string::npos) << p.box.back().testo;
}
