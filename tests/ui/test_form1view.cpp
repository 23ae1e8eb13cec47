// The main window's view mirrors its model: pad, menus, toolbar, list, panels, title.
#include "core/errori.h"
#include "core/form1.h"
#include "core/form20.h"
#include "core/sistema.h"
#include "ui/applicazione.h"
#include "ui/form1view.h"
#include "ui/form4view.h"
#include "ui/frmsplash.h"
#include "ui/modellolista.h"
#include "ui/vista_comune.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

using namespace zef;
using namespace zef::ui;

namespace {

QString Q(const char* s) { return QString::fromUtf8(s); }

struct Programma {
    Applicazione app{Applicazione::Opzioni{false, 0, false, {}}};
    std::vector<BoxQt> box;
    std::vector<Risposta> risposte;

    Programma() {
        app.interfaccia().risponditore = [this](const BoxQt& b) {
            box.push_back(b);
            if (!risposte.empty()) {
                Risposta r = risposte.front();
                risposte.erase(risposte.begin());
                return r;
            }
            return b.pulsanti == Pulsanti::SiNo ? Risposta::No : Risposta::Ok;
        };
        app.avvia();
    }
    Form1View& w() { return app.finestra(); }
    Sistema& s() { return app.sistema(); }
    Form1& f() { return app.form1(); }
};

// A list of `righe` rows of k = 3 built by VISUALIZZA from a stored development.
void Lista(Programma& p, int righe) {
    Sistema& s = p.s();
    s.colonne.dimensiona(3, righe);
    for (int c = 1; c <= righe; ++c) {
        s.colonne.set(1, c, static_cast<uint8_t>(1 + c % 88));
        s.colonne.set(2, c, static_cast<uint8_t>(2 + c % 88));
        s.colonne.set(3, c, 90);
    }
    s.NumColonne = righe;
    s.SviluppoK = 3;
    p.w().pulsante("Command7")->click();
}

}  // namespace

TEST(Form1View, PadAccendeInArancioESegueIlModello) {
    Programma p;
    QPushButton* b = p.w().Command1(41);
    EXPECT_EQ(b->text(), "42");
    QTest::mouseClick(b, Qt::LeftButton);
    EXPECT_TRUE(p.s().pad[41]);
    EXPECT_EQ(p.w().Label2()->text(), "1");
    EXPECT_TRUE(b->styleSheet().contains("#FF8000"));
    p.w().Command1(6)->click();
    EXPECT_EQ(p.w().Label2()->text(), "2");
    ASSERT_EQ(p.s().NumPronostico, 2);
    EXPECT_EQ(p.s().Pronostico[1], 7);
    QTest::mouseClick(b, Qt::LeftButton);
    EXPECT_FALSE(p.s().pad[41]);
    EXPECT_FALSE(b->styleSheet().contains("#FF8000"));
    EXPECT_EQ(p.w().Label2()->text(), "1");
    // The pad never keeps the focus.
    EXPECT_EQ(b->focusPolicy(), Qt::NoFocus);
}

TEST(Form1View, MenuConLeVociEIlTesto) {
    Programma p;
    std::map<QString, QString> menu;
    for (QAction* a : p.w().menuBar()->actions()) menu[a->menu()->objectName()] = a->text();
    EXPECT_EQ(menu["File"], "&File");
    EXPECT_EQ(menu["Sistema"], "&Sistema");
    EXPECT_EQ(menu["Riduzione"], "&Riduzione");
    EXPECT_EQ(menu["Statistiche"], "&Statistiche");
    EXPECT_EQ(menu["Aiuto"], "&Aiuto");
    EXPECT_EQ(p.w().menuBar()->actions().size(), 5);

    const std::vector<std::pair<const char*, const char*>> voci = {
        {"Apri", "&Apri"},
        {"Salva", "&Salva"},
        {"SalvaConNome", "Salva con &nome"},
        {"Uscita", "&Uscita"},
        {"Nuovo", "&Nuovo"},
        {"VediColonne", "Visuali&zza le giocate in memoria"},
        {"stampa", "&Stampa"},
        {"Suggerisci", "Suggerisci &pronostico"},
        {"PronosticoStatistico", "&Statistico/Casuale"},
        {"Smorfia", "Smor&fia"},
        {"VisualizzaPercentuali", "&Visualizza percentuali di vincita"},
        {"Informazioni", "&Informazioni"},
        {"Garanzia5", "Garanzia &cinquina"},
        {"Garanzia4", "Garanzia &quaterna"},
        {"Garanzia3", "Garanzia &terno"},
        {"Garanzia2", "Garanzia &ambo"},
        {"SviluppoRidotto", "&Sviluppo ridotto"},
        {"ColonneVincenti", "&Archivio estrazioni precedenti"},
        {"AggiornaEstrazioni", "Aggiorna &Estrazioni"},
        {"Vincite", "Statistiche sulle &vincite"},
        {"sommario", "&Sommario"},
        {"AiutoInformazioni", "&Informazioni sul programma"},
    };
    for (auto& [nome, testo] : voci) {
        QAction* a = p.w().voce(nome);
        ASSERT_NE(a, nullptr) << nome;
        EXPECT_EQ(a->text(), Q(testo)) << nome;
    }
    // Salva waits for a file name; items without their window yet stay disabled.
    EXPECT_FALSE(p.w().voce("Salva")->isEnabled());
    EXPECT_TRUE(p.w().voce("Apri")->isEnabled());
    EXPECT_TRUE(p.w().voce("AiutoInformazioni")->isEnabled());
    EXPECT_TRUE(p.w().voce("VediColonne")->isEnabled());
    p.f().mostraForm5 = nullptr;  // as before the reduction windows are wired
    p.w().aggiorna(false);
    EXPECT_FALSE(p.w().voce("Garanzia3")->isEnabled());
    p.f().mostraForm5 = [](int) {};
    p.s().SalvaAbilitato = true;
    p.w().aggiorna(false);
    EXPECT_TRUE(p.w().voce("Garanzia3")->isEnabled());
    EXPECT_TRUE(p.w().voce("Salva")->isEnabled());
    EXPECT_TRUE(p.w().pulsante("Command8")->isEnabled());
}

TEST(Form1View, BarraDegliStrumentiConISuggerimenti) {
    Programma p;
    for (auto& b : PulsantiBarra) {
        QAction* a = p.w().tasto(b.chiave);
        ASSERT_NE(a, nullptr) << b.chiave;
        EXPECT_EQ(a->toolTip(), Q(b.suggerimento));
        EXPECT_FALSE(a->icon().isNull()) << b.chiave;
    }
    // A key runs its command: "aiuto" opens the guide beside the program.
    std::vector<std::string> aperti;
    p.app.interfaccia().rispostaDocumento = [&](const std::string& f) { aperti.push_back(f); };
    p.w().tasto("aiuto")->trigger();
    ASSERT_EQ(aperti.size(), 1u);
    EXPECT_TRUE(QString::fromStdString(aperti[0]).endsWith("/guida.pdf"));
}

TEST(Form1View, TestiDiAvvioEPannelli) {
    Programma p;
    EXPECT_EQ(p.w().windowTitle(), "Zefiranto 2.0 - sistema non salvato");
    EXPECT_EQ(p.w().pannello(0)->text(), "CONDIZIONATE: 0");
    EXPECT_EQ(p.w().pannello(1)->text(), "RIDOTTE: 0");
    EXPECT_EQ(p.w().pannello(2)->text(), Q("COSTO SISTEMA €: 0"));
    EXPECT_EQ(p.w().Command2()->text(), "Non selezionata");
    EXPECT_EQ(p.w().ListaCol()->text(), "0");
    EXPECT_EQ(p.w().lblVersion()->text(), "Versione 2.0.0");
    EXPECT_EQ(p.w().MSFlexGrid1()->columnWidth(0), 239);  // 3580 twips
    EXPECT_EQ(p.w().MSFlexGrid1()->font().family(), "Courier New");
    EXPECT_EQ(QFontInfo(p.w().MSFlexGrid1()->font()).fixedPitch(), true);
    for (const char* nome : {"Command3", "Command7", "Command8", "Command6", "Command5", "Command9"})
        EXPECT_NE(p.w().pulsante(nome), nullptr);
    EXPECT_EQ(p.w().pulsante("Command3")->text(), "SVILUPPA");
    EXPECT_EQ(p.w().pulsante("Command7")->text(), "VISUALIZZA");
    EXPECT_EQ(p.w().pulsante("Command8")->text(), "RIDUCI");
    EXPECT_EQ(p.w().pulsante("Command6")->text(), "SPOGLIO");
    EXPECT_EQ(p.w().pulsante("Command5")->text(), "Elimina");
    EXPECT_EQ(p.w().pulsante("Command9")->text(), "Aggiungi");
}

TEST(Form1View, ListaVirtualeLeggeLeRigheARichiesta) {
    Programma p;
    Lista(p, 1'000'000);
    ModelloLista* m = p.w().modelloLista();
    EXPECT_EQ(m->rowCount(), 1'000'000);
    EXPECT_EQ(m->columnCount(), 1);
    EXPECT_EQ(p.w().ListaCol()->text(), "1000000");
    EXPECT_EQ(m->data(m->index(0, 0)).toString(), QString::fromStdString(std::string(p.s().MSFlexGrid1.riga(0))));
    EXPECT_EQ(m->data(m->index(999'999, 0)).toString(), QString::fromUtf8(" 57 58 90"));
    EXPECT_FALSE(m->data(m->index(0, 0), Qt::FontRole).isNull());
    // The last row is reachable by the scroll bar.
    p.w().resize(1000, 600);
    p.w().show();
    p.w().MSFlexGrid1()->scrollToBottom();
    QApplication::processEvents();
    QScrollBar* barra = p.w().MSFlexGrid1()->verticalScrollBar();
    EXPECT_EQ(barra->value(), barra->maximum());
    EXPECT_GT(barra->maximum(), 999'000);
    EXPECT_EQ(p.w().MSFlexGrid1()->rowAt(p.w().MSFlexGrid1()->viewport()->height() - 2) / 1000, 999);
}

TEST(Form1View, EliminaUnaSelezioneTrascinataInSu) {
    Programma p;
    Lista(p, 6);
    QTableView* g = p.w().MSFlexGrid1();
    auto* sel = g->selectionModel();
    // Pressed on row 4, dragged up to row 2 (0-based).
    sel->setCurrentIndex(g->model()->index(4, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    sel->select(QItemSelection(g->model()->index(2, 0), g->model()->index(4, 0)),
                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(p.s().MSFlexGrid1.Row, 4);
    EXPECT_EQ(p.s().MSFlexGrid1.RowSel, 2);
    const std::string primo = std::string(p.s().MSFlexGrid1.riga(1));
    const std::string ultimo = std::string(p.s().MSFlexGrid1.riga(5));
    p.w().pulsante("Command5")->click();
    EXPECT_EQ(p.w().ListaCol()->text(), "3");
    ASSERT_EQ(g->model()->rowCount(), 3);
    EXPECT_EQ(g->model()->index(1, 0).data().toString().toStdString(), primo);
    EXPECT_EQ(g->model()->index(2, 0).data().toString().toStdString(), ultimo);
}

TEST(Form1View, VisualizzaSenzaColonneMostraIlMessaggio) {
    Programma p;
    p.w().voce("VediColonne")->trigger();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Nessuna giocata presente in memoria!");
    EXPECT_EQ(p.box[0].titolo, "FINESTRA INFORMATIVA");
    EXPECT_EQ(p.box[0].icona, Icona::Informazione);
}

TEST(Form1View, NuovoDalMenuEChiusuraConRichiesta) {
    Programma p;
    p.w().Command1(0)->click();
    p.w().voce("Nuovo")->trigger();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Vuoi salvare il sistema ?");
    EXPECT_EQ(p.w().windowTitle(), "Zefiranto 2.0 -  sistema senza nome");
    EXPECT_EQ(p.w().Label2()->text(), "0");
    EXPECT_FALSE(p.w().Command1(0)->styleSheet().contains("#FF8000"));

    // Closing the window is Exit: the prompt again, then the end.
    bool finito = false;
    p.f().fine = [&] { finito = true; };
    p.w().show();
    p.w().close();
    EXPECT_EQ(p.box.size(), 2u);
    EXPECT_TRUE(finito);
    EXPECT_TRUE(p.f().terminato);
}

TEST(Form1View, ClicDestroSullaListaApreIlMenuColonna) {
    Programma p;
    int popup = 0;
    p.f().mostraForm18 = [&] { ++popup; };
    emit p.w().MSFlexGrid1()->customContextMenuRequested(QPoint(5, 5));
    EXPECT_EQ(popup, 1);
}

TEST(Form1View, ErroreDiEsecuzioneNelGestoreMostratoEIlProgrammaVaAvanti) {
    Programma p;
    p.f().mostraForm17 = [] { throw ErroreEsecuzione(9, "Indice non compreso nell'intervallo"); };
    p.w().aggiorna();
    p.w().pulsante("Command9")->click();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_NE(p.box[0].testo.find("Indice non compreso nell'intervallo"), std::string::npos);
    EXPECT_EQ(p.box[0].icona, Icona::Critico);
}

// Pad, SVILUPPA, AVVIA on a worker thread, then VISUALIZZA: the development dialog is
// driven through its model, the boxes and the progress window through the Qt interface.
TEST(Form1View, DalPadAllaListaConLoSviluppoInUnThread) {
    Programma p;
    Form20 f20(p.s(), p.app.interfaccia());
    f20.parametri.thread = 1;
    p.f().mostraForm20 = [&] {
        f20.carica();
        f20.Combo1 = 1;  // TERZINE
        vista::EseguiInThread([&] { f20.clickCommand1(); });
    };
    p.w().aggiorna(false);
    for (int n : {3, 7, 12, 20, 33, 41, 56}) p.w().Command1(n - 1)->click();
    p.w().pulsante("Command3")->click();
    EXPECT_EQ(p.s().NumColonne, 35);  // C(7, 3)
    EXPECT_EQ(p.w().pannello(0)->text(), "CONDIZIONATE: 35");
    p.w().pulsante("Command7")->click();
    EXPECT_EQ(p.w().ListaCol()->text(), "35");
    EXPECT_EQ(p.w().modelloLista()->index(0, 0).data().toString(), QString::fromUtf8(" 3  7  12"));
    EXPECT_EQ(p.w().modelloLista()->index(34, 0).data().toString(), QString::fromUtf8(" 33 41 56"));
    EXPECT_EQ(p.w().ProgressBar1()->value(), 0);
    EXPECT_TRUE(p.box.empty());
}

TEST(FinestreAccessorie, SplashSiChiudeDaSolaEAboutMostraLaVersione) {
    FrmSplash splash(nullptr, 10);
    EXPECT_EQ(splash.lblVersion()->text(), "Versione 2.0.0");
    splash.mostraModale();  // returns once Timer1 has unloaded it
    EXPECT_FALSE(splash.isVisible());
    EXPECT_EQ(splash.result(), QDialog::Accepted);

    FrmAbout about;
    EXPECT_EQ(about.windowTitle(), "Informazioni su Zefiranto 2.0");
    EXPECT_EQ(about.lblVersion()->text(), "Versione 2.0.0");
    about.show();
    about.cmdOK()->click();
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(about.result(), QDialog::Accepted);
}

TEST(Form1View, ListaCheCresceInCodaNonRicominciaDaCapo) {
    Programma p;
    Lista(p, 10);
    QTableView* g = p.w().MSFlexGrid1();
    g->selectionModel()->setCurrentIndex(g->model()->index(7, 0),
                                         QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    int reset = 0, inserite = 0;
    QObject::connect(g->model(), &QAbstractItemModel::modelReset, [&] { ++reset; });
    QObject::connect(g->model(), &QAbstractItemModel::rowsInserted,
                     [&](const QModelIndex&, int primo, int ultimo) { inserite += ultimo - primo + 1; });
    p.s().MSFlexGrid1.AddItem(" 1  2  3 ");
    p.s().MSFlexGrid1.AddItem(" 4  5  6 ");
    p.w().aggiorna();
    EXPECT_EQ(reset, 0);
    EXPECT_EQ(inserite, 2);
    EXPECT_EQ(g->model()->rowCount(), 12);
    EXPECT_EQ(g->currentIndex().row(), 7);
    EXPECT_EQ(g->model()->index(11, 0).data().toString(), " 4  5  6 ");
    // Fewer rows: the model starts over.
    p.s().MSFlexGrid1.rimuovi(0, 4);
    p.w().aggiorna();
    EXPECT_EQ(reset, 1);
    EXPECT_EQ(g->model()->rowCount(), 7);
    // Same count, other rows: shown as they are now.
    p.s().MSFlexGrid1.Clear();
    for (int i = 0; i < 7; ++i) p.s().MSFlexGrid1.AddItem(" 9  9  9 ");
    p.w().aggiorna();
    EXPECT_EQ(g->model()->index(0, 0).data().toString(), " 9  9  9 ");
}

TEST(Form1View, Timer4GiraFinchéIlSistemaLoTieneAcceso) {
    Programma p;
    int tick = 0;
    p.f().tickTimer4 = [&] {
        p.s().MSFlexGrid1.AddItem(" 1  2  3 ");
        if (++tick == 5) p.s().Timer4Abilitato = false;
    };
    EXPECT_FALSE(p.w().Timer4()->isActive());
    p.s().Timer4Abilitato = true;
    p.w().aggiorna(false);
    EXPECT_TRUE(p.w().Timer4()->isActive());
    for (int i = 0; i < 200 && p.w().Timer4()->isActive(); ++i) QTest::qWait(5);
    EXPECT_FALSE(p.w().Timer4()->isActive());
    EXPECT_EQ(tick, 5);
    EXPECT_EQ(p.w().modelloLista()->rowCount(), 5);
    EXPECT_TRUE(p.w().Timer6()->isSingleShot());
    EXPECT_EQ(p.w().Timer6()->interval(), 5000);
}

// Save as, New, Open through the menus of the program: the file commands are wired
// and the window follows the title, the Salva item and the list.
TEST(Form1View, SalvaNuovoERiapriDalMenu) {
    Programma p;
    const std::string percorso = (QDir::tempPath() + "/zef_test_form1view.zfr").toStdString();
    std::remove(percorso.c_str());
    p.app.interfaccia().rispostaFile = [&](bool) -> std::optional<std::string> { return percorso; };
    for (int n : {5, 10, 15, 20}) p.w().Command1(n - 1)->click();
    Lista(p, 4);
    p.w().voce("SalvaConNome")->trigger();
    EXPECT_EQ(p.w().windowTitle().toStdString(), "Zefiranto 2.0 -  SISTEMA: " + percorso);
    EXPECT_TRUE(p.w().voce("Salva")->isEnabled());

    p.w().voce("Nuovo")->trigger();
    EXPECT_TRUE(p.box.empty());  // just saved: no prompt
    EXPECT_EQ(p.w().windowTitle(), "Zefiranto 2.0 -  sistema senza nome");
    EXPECT_FALSE(p.w().voce("Salva")->isEnabled());
    EXPECT_EQ(p.w().modelloLista()->rowCount(), 0);
    EXPECT_EQ(p.w().Label2()->text(), "0");

    p.w().voce("Apri")->trigger();  // New left it unsaved: the prompt first, No
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Vuoi salvare il sistema ?");
    EXPECT_EQ(p.w().windowTitle().toStdString(), "Zefiranto 2.0 -  SISTEMA: " + percorso);
    EXPECT_EQ(p.w().Label2()->text(), "4");
    EXPECT_TRUE(p.w().Command1(14)->styleSheet().contains("#FF8000"));
    EXPECT_EQ(p.w().ListaCol()->text(), "4");
    ASSERT_EQ(p.w().modelloLista()->rowCount(), 4);
    EXPECT_EQ(p.w().modelloLista()->index(3, 0).data().toString(),
              QString::fromStdString(std::string(p.s().MSFlexGrid1.riga(3))));
    EXPECT_EQ(p.s().NumColonne, 4);
    std::remove(percorso.c_str());
}
