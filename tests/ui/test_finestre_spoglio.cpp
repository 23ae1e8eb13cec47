// The win-check windows from the program: SPOGLIO on the latest draw, CERCA and its
// listing, ESCI adding to the tally, the tally window, the check over a period.
#include "archive/aiuto.h"
#include "core/form1.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "ui/aiuti_qt.h"
#include "ui/applicazione.h"
#include "ui/finestre_spoglio.h"
#include "ui/form1view.h"

#include <QAction>
#include <QApplication>
#include <QChartView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace zef;
using namespace zef::ui;

namespace {

// With ZEF_SCHERMATE set to a folder, the window is saved there as a picture.
void Schermata(QWidget* w, const char* nome) {
    if (const char* cartella = std::getenv("ZEF_SCHERMATE")) w->grab().save(QString("%1/%2.png").arg(cartella, nome));
}

struct Programma {
    prova::CartellaTemporanea cartella;
    std::string archivio = cartella / "archivio.db";
    std::unique_ptr<Applicazione> app;
    std::vector<BoxQt> box;
    Risposta risposta = Risposta::Si;

    Programma() {
        auto a = ArchivioEstrazioni::ApriOCrea(archivio);
        prova::RiempiProva(*a, 5);
        Applicazione::Opzioni o;
        o.splash = false;
        o.esciAllaFine = false;
        o.archivio = archivio;
        app = std::make_unique<Applicazione>(o);
        app->interfaccia().risponditore = [this](const BoxQt& b) {
            box.push_back(b);
            return b.pulsanti == Pulsanti::SiNo ? risposta : Risposta::Ok;
        };
        app->avvia();
        ImpostaSeparatoreDecimale('.');
    }
    // The separator the other tests of this program run under comes back.
    ~Programma() { ImpostaSeparatoreDecimale(prima); }
    char prima = SeparatoreDecimale();

    // An ambo on Bari staked 1.00, with a row that holds two numbers of the last draw there.
    void Sistema() {
        zef::Sistema& s = app->sistema();
        s.SviluppoK = 2;
        s.form2.Check = {0, 1, 0, 0, 0};
        s.form2.Option1.fill(false);
        s.form2.Option1[0] = true;
        s.form2.testi = {"0", "1.00", "0", "0", "0"};
        s.CostoColonna = Currency::daInteri(1);
        std::vector<uint8_t> vincente{static_cast<uint8_t>(prova::NumeroProva(5, 1, 1)),
                                      static_cast<uint8_t>(prova::NumeroProva(5, 1, 2))};
        s.MSFlexGrid1.AddItem(TestoRiga(vincente.data(), 2));
        std::vector<uint8_t> altra{89, 90};
        s.MSFlexGrid1.AddItem(TestoRiga(altra.data(), 2));
    }
    FinestreSpoglio& f() { return *app->spoglio(); }
};

}  // namespace

TEST(FinestreSpoglio, CercaWithAnEmptyListClosesTheWindow) {
    Programma p;
    ASSERT_TRUE(p.app->finestra().pulsante("Command6")->isEnabled());
    bool vista = false;
    prova::AlProssimoModale<Form6View>([&](Form6View* v) {
        vista = true;
        EXPECT_EQ(v->windowTitle(), "SPOGLIO COLONNE VINCENTI");
        EXPECT_EQ(v->Text1(0)->text(), QString::number(prova::NumeroProva(5, 1, 1)));
        prova::Clic(v->Command(1));
        EXPECT_FALSE(v->isVisible());
    });
    prova::Clic(p.app->finestra().pulsante("Command6"));
    EXPECT_TRUE(vista);
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Visualizzare le giocate per effettuare lo spoglio.");
}

TEST(FinestreSpoglio, CercaCountsShowsTheListingAndEsciRecords) {
    Programma p;
    p.Sistema();
    prova::AlProssimoModale<Form6View>([&](Form6View* v) {
        prova::Clic(v->Command(1));
        QTRY_COMPARE(v->punti(1)->text(), QString("1"));
        EXPECT_EQ(v->lblVincitaTotale()->text(), "230.00");
        EXPECT_FALSE(v->ProgressBar1()->isVisible());
        Schermata(v, "form6");
        prova::AlProssimoModale<Form7View>([](Form7View* l) {
            ASSERT_EQ(l->List1()->model()->rowCount(), 1);
            EXPECT_TRUE(l->List1()->model()->index(0, 0).data().toString().startsWith("AMBO   su Bari  SCHEDINA: 1."));
        });
        prova::Clic(v->Command(5));
        prova::Clic(v->Command(2));  // ESCI: the question, answered Si
    });
    prova::Clic(p.app->finestra().pulsante("Command6"));
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].titolo, "FINSETRA DI RICHIESTA");
    ArchivioEstrazioni a(p.archivio);
    TotaliVincite t = LeggiVincite(a);
    EXPECT_EQ(t.conteggi[1], 1);
    EXPECT_EQ(t.sommavinta, Currency::daInteri(230));
    EXPECT_EQ(t.sommaspesa, Currency::daInteri(2));

    // The tally window from the menu.
    prova::AlProssimoModale<Form16View>([](Form16View* v) {
        EXPECT_EQ(v->windowTitle(), "STATISTICHE SULLE VINCITE EFFETTUATE");
        EXPECT_EQ(v->Text(3)->text(), "1");
        EXPECT_EQ(v->MaskEdBox(3)->text(), "228.00");
        EXPECT_EQ(v->Text(0)->focusPolicy(), Qt::NoFocus);
        Schermata(v, "form16");
        prova::Clic(v->Command1());
        EXPECT_FALSE(v->isVisible());
    });
    p.app->finestra().voce("Vincite")->trigger();
}

TEST(FinestreSpoglio, CheckOverTheLastDrawsFillsTableTotalsAndChart) {
    Programma p;
    p.Sistema();
    bool fatto = false;
    prova::AlProssimoModale<Form6View>([&](Form6View* v) {
        prova::AlProssimoModale<FormVerificaView>([&](FormVerificaView* w) {
            EXPECT_EQ(w->windowTitle(), "VERIFICA DEL SISTEMA SULLE ESTRAZIONI");
            EXPECT_FALSE(w->esporta()->isEnabled());
            w->opzioneUltime()->setChecked(true);
            w->ultime()->setText("3");
            prova::Clic(w->avvia());
            ASSERT_EQ(w->tabella()->model()->rowCount(), 3);
            EXPECT_EQ(w->tabella()->model()->index(2, 2).data().toString(), "1");  // the last draw's ambo
            EXPECT_EQ(w->tabella()->model()->index(2, 6).data().toString(), "230.00");
            EXPECT_TRUE(w->riepilogo()->text().contains("Estrazioni verificate: 3"));
            EXPECT_EQ(w->grafico()->chart()->series().size(), 1);
            EXPECT_TRUE(w->esporta()->isEnabled());
            Schermata(w, "verifica");
            fatto = true;
        });
        prova::Clic(v->verifica());
        p.risposta = Risposta::No;
        prova::Clic(v->Command(2));
    });
    prova::Clic(p.app->finestra().pulsante("Command6"));
    EXPECT_TRUE(fatto);
}
