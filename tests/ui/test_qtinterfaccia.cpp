// The Qt interface: calls from a worker thread reach the interface thread and
// bring their answer back; the progress window hands ESC to the pass.
#include "ui/form4view.h"
#include "ui/qtinterfaccia.h"
#include "ui/vista_comune.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <thread>

using namespace zef;
using namespace zef::ui;

TEST(FiltroQt, DallaFormaConLaBarraAQuellaDiQt) {
    EXPECT_EQ(FiltroQt("Zefiranto files|*.zfr"), "Zefiranto files (*.zfr)");
    EXPECT_EQ(FiltroQt("Testo|*.txt;*.csv|Tutti|*.*"), "Testo (*.txt *.csv);;Tutti (*.*)");
    EXPECT_EQ(FiltroQt(""), "");
}

TEST(QtInterfaccia, MessaggioDaUnThreadRispostoNelThreadDellInterfaccia) {
    QtInterfaccia ui;
    QThread* threadRisposta = nullptr;
    ui.risponditore = [&](const BoxQt& b) {
        threadRisposta = QThread::currentThread();
        EXPECT_EQ(b.testo, "Annullare l'elaborazione?");
        EXPECT_EQ(b.titolo, "RICHIESTA");
        EXPECT_EQ(b.icona, Icona::Domanda);
        EXPECT_EQ(b.pulsanti, Pulsanti::SiNo);
        return Risposta::Si;
    };
    Risposta r = Risposta::No;
    vista::EseguiInThread([&] {
        r = ui.messaggio("Annullare l'elaborazione?", "RICHIESTA", Icona::Domanda, Pulsanti::SiNo);
    });
    EXPECT_EQ(r, Risposta::Si);
    EXPECT_EQ(threadRisposta, QApplication::instance()->thread());
}

TEST(QtInterfaccia, MessaggioVeroConIPulsantiInItaliano) {
    QtInterfaccia ui;
    // Polls until the box is up (it may take more than one turn of the loop to show).
    QTimer attesa;
    attesa.setInterval(5);
    QObject::connect(&attesa, &QTimer::timeout, [&attesa] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) return;
        attesa.stop();
        EXPECT_EQ(box->windowTitle(), "ATTENZIONE");
        EXPECT_EQ(box->text(), "Vuoi salvare il sistema ?");
        QStringList testi;
        for (auto* b : box->buttons()) testi << b->text();
        EXPECT_TRUE(testi.contains(QString::fromUtf8("Sì")));
        EXPECT_TRUE(testi.contains("No"));
        for (auto* b : box->buttons())
            if (b->text() == "No") b->click();
    });
    attesa.start();
    EXPECT_EQ(ui.messaggio("Vuoi salvare il sistema ?", "ATTENZIONE", Icona::Esclamazione, Pulsanti::SiNo),
              Risposta::No);
}

TEST(QtInterfaccia, FinestraDiAvanzamentoEdESC) {
    QtInterfaccia ui;
    StatoAvanzamento st;
    st.etichetta = "Sviluppo in corso...";
    st.etichetta1 = "Combinazioni ok:";
    st.testo1 = "10";
    st.etichetta2 = "Combinazioni esaminate:";
    st.testo2 = "20";
    st.suggerimento = "ESC per interrompere";
    st.massimo = 100;
    st.valore = 50;
    std::vector<int> tasti;
    vista::EseguiInThread([&] {
        ui.mostraAvanzamento(st);
        // ESC pressed in the window while the pass runs.
        QMetaObject::invokeMethod(
            &ui,
            [&ui] {
                ASSERT_NE(ui.finestraAvanzamento(), nullptr);
                QTest::keyClick(ui.finestraAvanzamento(), Qt::Key_Escape);
            },
            Qt::BlockingQueuedConnection);
        tasti = ui.tastiAvanzamento();
        st.testo1 = "15";
        st.valore = 75;
        ui.aggiornaAvanzamento(st);
    });
    QApplication::processEvents();
    EXPECT_EQ(tasti, std::vector<int>{27});
    EXPECT_TRUE(ui.tastiAvanzamento().empty());  // drained
    Form4View* f = ui.finestraAvanzamento();
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->Label1()->text(), "Sviluppo in corso...");
    EXPECT_EQ(f->Text1()->text(), "15");
    EXPECT_EQ(f->Text2()->text(), "20");
    EXPECT_TRUE(f->Text1()->isVisibleTo(f));
    EXPECT_TRUE(f->Text2()->isVisibleTo(f));
    EXPECT_EQ(f->ProgressBar1()->value(), 750);
    // The close button is ESC, not a way out.
    f->close();
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(ui.tastiAvanzamento(), std::vector<int>{27});
    vista::EseguiInThread([&] { ui.chiudiAvanzamento(); });
    EXPECT_EQ(ui.finestraAvanzamento(), nullptr);
}

TEST(Form4View, ConteggiVisibiliAncheSeImpostatiPrimaDiMostrare) {
    Form4View f;
    StatoAvanzamento st;
    st.etichetta1 = "Combinazioni ok:";
    st.testo1 = "3";
    f.mostra(st);
    f.show();
    EXPECT_TRUE(f.Text1()->isVisible());
    EXPECT_FALSE(f.Text2()->isVisible());  // no second count given
    EXPECT_EQ(f.ProgressBar1()->value(), 0);  // empty range
}

TEST(QtInterfaccia, BarraPrincipaleAggiornataSenzaIntasareLaCoda) {
    QtInterfaccia ui;
    QProgressBar barra;
    ui.impostaBarra(&barra);
    vista::EseguiInThread([&] {
        for (int i = 1; i <= 100000; ++i) ui.barraPrincipale(0, 100000, i);
    });
    QApplication::processEvents();
    EXPECT_EQ(barra.value(), barra.maximum());
    ui.barraPrincipale(0, 100000, 0);
    EXPECT_EQ(barra.value(), 0);
    ui.barraPrincipale(0, 0, 0);  // an empty range does not divide by zero
    EXPECT_EQ(barra.value(), 0);
}

TEST(QtInterfaccia, FileEInputDaUnThread) {
    QtInterfaccia ui;
    ui.rispostaFile = [](bool salva) -> std::optional<std::string> {
        if (salva) return std::nullopt;
        return std::string("/tmp/prova.zfr");
    };
    ui.rispostaInput = [](const std::string& prompt) -> std::optional<std::string> { return prompt + "!"; };
    std::optional<std::string> a, b, c;
    vista::EseguiInThread([&] {
        a = ui.dialogoApri("Zefiranto files|*.zfr", "");
        b = ui.dialogoSalva("Zefiranto files|*.zfr", "");
        c = ui.inputBox("Numero", "RICHIESTA", "");
    });
    EXPECT_EQ(a, std::optional<std::string>("/tmp/prova.zfr"));
    EXPECT_EQ(b, std::nullopt);
    EXPECT_EQ(c, std::optional<std::string>("Numero!"));
}

TEST(QtInterfaccia, ClessidraBilanciata) {
    {
        QtInterfaccia ui;
        vista::EseguiInThread([&] { ui.clessidra(true); });
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        ui.clessidra(false);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        ui.clessidra(false);  // one too many is harmless
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        ui.clessidra(true);
    }
    // Destroyed with the hourglass on: the pointer comes back.
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}
