// The archive from the program: the browser on a small archive (arrows, position,
// new draw, hidden buttons, go to), the import menu item, and a start-up whose
// archive cannot be opened.
#include "archive/archivio.h"
#include "archive/form3.h"
#include "core/form1.h"
#include "ui/applicazione.h"
#include "ui/form1view.h"
#include "ui/form3view.h"

#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

using namespace zef;
using namespace zef::ui;
namespace fs = std::filesystem;

namespace {

const char* const Codici[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "RN", "TO", "VE"};
// The archive's wheel order against the file's codes: Nazionale (RN) is the last wheel.
const int RuotaDelCodice[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};

// Number at position p (0..4) of wheel w (1..11) in draw d: five different numbers.
int Numero(int d, int w, int p) { return (d * 11 + w * 7 + p) % 90 + 1; }

// A historical file of the draws `date` ("2024/01/02"), numbered from `primo`.
std::string FileStorico(const fs::path& cartella, const std::string& nome, const std::vector<std::string>& date,
                        int primo) {
    const fs::path f = cartella / nome;
    std::ofstream o(f);
    for (size_t i = 0; i < date.size(); ++i) {
        const int d = primo + static_cast<int>(i);
        for (int c = 0; c < 11; ++c) {
            o << date[i] << '\t' << Codici[c];
            for (int p = 0; p < 5; ++p) o << '\t' << Numero(d, RuotaDelCodice[c], p);
            o << '\n';
        }
    }
    return f.string();
}

fs::path CartellaProva() {
    static std::atomic<int> n{0};
    fs::path p = fs::temp_directory_path() / ("zef_form3_" + std::to_string(getpid()) + "_" + std::to_string(n++));
    fs::remove_all(p);
    fs::create_directories(p);
    return p;
}

// The program on an archive of three draws: 2024/01/02, 2024/01/04, 2024/01/05.
struct Programma {
    fs::path cartella = CartellaProva();
    std::string archivio;
    std::unique_ptr<Applicazione> app;
    std::vector<BoxQt> box;
    std::vector<std::optional<std::string>> input;
    std::optional<std::string> file;

    explicit Programma(bool crea = true) {
        archivio = (cartella / "archivio.db").string();
        if (crea)
            ArchivioEstrazioni::ApriOCrea(archivio, FileStorico(cartella, "tre.txt",
                                                                {"2024/01/02", "2024/01/04", "2024/01/05"}, 1));
    }
    ~Programma() {
        app.reset();
        std::error_code ec;
        fs::remove_all(cartella, ec);
    }
    void avvia() {
        Applicazione::Opzioni o;
        o.splash = false;
        o.durataSplash = 0;
        o.esciAllaFine = false;
        o.archivio = archivio;
        app = std::make_unique<Applicazione>(o);
        QtInterfaccia& ui = app->interfaccia();
        ui.risponditore = [this](const BoxQt& b) {
            box.push_back(b);
            return b.pulsanti == Pulsanti::SiNo ? Risposta::Si : Risposta::Ok;
        };
        ui.rispostaInput = [this](const std::string&) {
            auto r = input.empty() ? std::nullopt : input.front();
            if (!input.empty()) input.erase(input.begin());
            return r;
        };
        ui.rispostaFile = [this](bool) { return file; };
        app->avvia();
    }
    Form3View& apriBrowser() {
        app->finestra().voce("ColonneVincenti")->trigger();
        return *app->vista3();
    }
    Form3& f3() { return *app->form3(); }
};

// The boxes of wheel w (1..11) hold the numbers of draw d.
void VerificaEstrazione(Form3View& v, int d) {
    for (int w = 1; w <= 11; ++w)
        for (int p = 0; p < 5; ++p)
            ASSERT_EQ(v.Text1((w - 1) * 5 + p)->text(), QString::number(Numero(d, w, p))) << "ruota " << w;
}

}  // namespace

TEST(Form3View, ApreSullUltimaEstrazioneELeFrecceLaSpostano) {
    Programma p;
    p.avvia();
    ASSERT_TRUE(p.box.empty());
    ASSERT_NE(p.app->archivio(), nullptr);
    ASSERT_TRUE(p.app->finestra().voce("ColonneVincenti")->isEnabled());
    Form3View& v = p.apriBrowser();
    ASSERT_TRUE(v.isVisible());
    EXPECT_EQ(v.windowTitle(), "ARCHIVIO ESTRAZIONI");
    EXPECT_EQ(v.findChild<QLabel*>("Ruota1")->text(), "BARI");
    EXPECT_EQ(v.findChild<QLabel*>("Ruota11")->text(), "NAZIONALE");

    // Activation walks to the latest draw.
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  3");
    EXPECT_EQ(v.label23()->text(), "05/01/24");
    VerificaEstrazione(v, 3);

    QTest::mouseClick(v.freccia(0), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  1 su  3");
    EXPECT_EQ(v.label23()->text(), "02/01/24");
    VerificaEstrazione(v, 1);
    // Before the first the arrow stays on the first.
    QTest::mouseClick(v.freccia(1), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  1 su  3");
    QTest::mouseClick(v.freccia(2), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  2 su  3");
    EXPECT_EQ(v.label23()->text(), "04/01/24");
    VerificaEstrazione(v, 2);
    QTest::mouseClick(v.freccia(3), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  3");
    // Past the last it stays on the last.
    QTest::mouseClick(v.freccia(2), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  3");
    VerificaEstrazione(v, 3);
    EXPECT_TRUE(p.box.empty());

    // ESCI unloads the window; opening it again lands on the latest draw once more.
    QTest::mouseClick(v.freccia(0), Qt::LeftButton);
    v.Command(2)->click();
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(p.f3().caricato);
    // The toolbar's archive key opens the same window.
    ASSERT_TRUE(p.app->finestra().tasto("archivio")->isEnabled());
    p.app->finestra().tasto("archivio")->trigger();
    EXPECT_TRUE(v.isVisible());
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  3");
}

TEST(Form3View, NuovaEMemorizzaAggiungonoUnEstrazione) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    p.f3().oggi = [] { return std::string("2024-02-10"); };
    v.Command(3)->click();
    for (int i = 0; i < 55; ++i) EXPECT_TRUE(v.Text1(i)->text().isEmpty());
    EXPECT_EQ(v.label23()->text(), "10/02/24");
    EXPECT_EQ(p.f3().Text1[0], "");

    // Typed as the user types: the model follows every key.
    for (int i = 0; i < 55; ++i) {
        v.Text1(i)->setFocus();
        QTest::keyClicks(v.Text1(i), QString::number(Numero(4, i / 5 + 1, i % 5)));
    }
    EXPECT_EQ(p.f3().Text1[54], std::to_string(Numero(4, 11, 4)));
    v.Command(4)->click();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "L'estrazione è stata memorizzata con successo.");
    EXPECT_EQ(p.box[0].titolo, "FINESTRA INFORMATIVA");
    EXPECT_EQ(v.Label19()->text(), "N°  4 su  4");
    EXPECT_EQ(v.label23()->text(), "10/02/24");
    VerificaEstrazione(v, 4);
    EXPECT_EQ(p.app->archivio()->NumeroEstrazioni(), 4);

    // The stored draw reads back from the file after walking away and back.
    QTest::mouseClick(v.freccia(0), Qt::LeftButton);
    VerificaEstrazione(v, 1);
    QTest::mouseClick(v.freccia(3), Qt::LeftButton);
    VerificaEstrazione(v, 4);
    EXPECT_EQ(v.label23()->text(), "10/02/24");

    // NUOVA then an arrow: the typed draw is dropped and the boxes follow the cursor.
    v.Command(3)->click();
    QTest::keyClicks(v.Text1(0), "77");
    QTest::mouseClick(v.freccia(1), Qt::LeftButton);
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  4");
    VerificaEstrazione(v, 3);
    EXPECT_EQ(p.app->archivio()->NumeroEstrazioni(), 4);
}

TEST(Form3View, CancellaEVaiAlNumero) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    // "Vai al n°.": 2 goes there; 0, 4 and a word move nothing; the prompt tells the range.
    p.input = {std::string("2"), std::string("0"), std::string("4"), std::string("abc"), std::nullopt};
    v.Command(8)->click();
    EXPECT_EQ(v.Label19()->text(), "N°  2 su  3");
    for (int i = 0; i < 4; ++i) {
        v.Command(8)->click();
        EXPECT_EQ(v.Label19()->text(), "N°  2 su  3");
        VerificaEstrazione(v, 2);
    }
    EXPECT_TRUE(p.box.empty());

    // CANCELLA with Yes: gone from the file, the cursor on the one before.
    p.f3().mouseSuLabel(7);
    v.aggiorna();
    v.Command(5)->click();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Eliminare l'estrazione corrente?");
    EXPECT_EQ(p.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(p.app->archivio()->NumeroEstrazioni(), 2);
    VerificaEstrazione(v, 1);
    EXPECT_EQ(v.label23()->text(), "02/01/24");
}

TEST(Form3View, IPulsantiStannoSottoLeEtichette) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    const std::vector<std::pair<int, int>> coppie = {{1, 4}, {2, 6}, {3, 5}, {4, 13}, {5, 7}, {6, 8}, {7, 12}};
    for (auto [c, l] : coppie) {
        EXPECT_FALSE(v.Command(c)->isVisible()) << c;
        EXPECT_EQ(v.Label(l)->text(), v.Command(c)->text()) << c;
        // The button covers its label exactly.
        EXPECT_EQ(v.Command(c)->geometry(), v.Label(l)->geometry()) << c;
    }
    EXPECT_TRUE(v.Command(8)->isVisible());
    EXPECT_EQ(v.Command(8)->text(), "Vai al n°.");
    EXPECT_EQ(v.Command(8)->toolTip(), "Visualizza l'estrazione numero...");
    EXPECT_EQ(v.Command(1)->text(), " Fr./Rit. Num.");
    EXPECT_EQ(v.Command(6)->toolTip(), "Elabora i ritardi per i 4005 ambi possibili");
    EXPECT_EQ(v.Label(14)->text(), "Modifica Estrazioni");
    EXPECT_EQ(v.Label(18)->text(), "Statistiche");

    // The mouse over a label shows its button; over the form it hides them all.
    for (auto [c, l] : coppie) {
        QEnterEvent entra(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(v.Label(l), &entra);
        EXPECT_TRUE(v.Command(c)->isVisible()) << c;
    }
    // The statistics windows are not there yet: their buttons stay disabled.
    EXPECT_FALSE(v.Command(1)->isEnabled());
    EXPECT_FALSE(v.Command(6)->isEnabled());
    EXPECT_FALSE(v.Command(7)->isEnabled());
    EXPECT_TRUE(v.Command(3)->isEnabled());
    QMouseEvent muovi(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&v, &muovi);
    for (int c = 1; c <= 7; ++c) EXPECT_FALSE(v.Command(c)->isVisible()) << c;
    EXPECT_TRUE(v.Command(8)->isVisible());
}

TEST(Form3View, ImportaArchivioDalMenu) {
    Programma p;
    p.avvia();
    QAction* voce = p.app->finestra().voce("ImportaArchivio");
    ASSERT_NE(voce, nullptr);
    EXPECT_EQ(voce->text(), "&Importa archivio storico...");
    ASSERT_TRUE(voce->isEnabled());
    Form3View& v = p.apriBrowser();
    EXPECT_EQ(v.Label19()->text(), "N°  3 su  3");

    // One known date and two new ones: two are added, and the open browser follows.
    p.file = FileStorico(p.cartella, "nuove.txt", {"2024/01/05", "2024/01/06", "2024/01/09"}, 3);
    voce->trigger();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Estrazioni importate: 2.\nEstrazioni in archivio: 5.");
    EXPECT_EQ(p.app->archivio()->NumeroEstrazioni(), 5);
    EXPECT_EQ(v.Label19()->text(), "N°  5 su  5");
    EXPECT_EQ(v.label23()->text(), "09/01/24");
    VerificaEstrazione(v, 5);

    // A bad file adds nothing and says so; a cancelled dialog says nothing.
    const fs::path rotto = p.cartella / "rotto.txt";
    std::ofstream(rotto) << "2024/01/20\tXX\t1\t2\t3\t4\t5\n";
    p.file = rotto.string();
    voce->trigger();
    ASSERT_EQ(p.box.size(), 2u);
    EXPECT_EQ(p.box[1].titolo, "ATTENZIONE");
    EXPECT_NE(p.box[1].testo.find("Nessuna estrazione è stata importata."), std::string::npos);
    EXPECT_EQ(p.app->archivio()->NumeroEstrazioni(), 5);
    p.file = std::nullopt;
    voce->trigger();
    EXPECT_EQ(p.box.size(), 2u);
}

TEST(Form3View, ArchivioIlleggibileAllAvvio) {
    Programma p(false);
    std::ofstream(p.archivio) << "questo non e' un archivio, solo testo qualsiasi che SQLite rifiuta\n";
    p.avvia();
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo.rfind("Si è verificato l'errore seguente: ", 0), 0u) << p.box[0].testo;
    EXPECT_EQ(p.app->archivio(), nullptr);
    EXPECT_FALSE(p.app->form1().archivioAperto);
    EXPECT_TRUE(p.app->finestra().isVisible());

    // The import has nothing to import into; the browser reports the file it cannot open.
    p.file = p.archivio;
    p.app->finestra().voce("ImportaArchivio")->trigger();
    ASSERT_EQ(p.box.size(), 2u);
    EXPECT_EQ(p.box[1].testo, "L'archivio delle estrazioni non è aperto.");
    p.app->finestra().voce("AggiornaEstrazioni")->trigger();
    ASSERT_EQ(p.box.size(), 3u);
    EXPECT_EQ(p.box[2].testo, "L'archivio delle estrazioni non è aperto.");
    Form3View& v = p.apriBrowser();
    EXPECT_EQ(p.box.size(), 4u);
    EXPECT_TRUE(v.Label19()->text().isEmpty());
    EXPECT_TRUE(p.app->finestra().isVisible());
}

TEST(Form3View, UscitaChiudeArchivioEBrowser) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    ASSERT_TRUE(v.isVisible());
    p.app->finestra().voce("Uscita")->trigger();
    EXPECT_TRUE(p.app->form1().terminato);
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(p.f3().caricato);
    EXPECT_EQ(p.app->archivio(), nullptr);
    // The file is left whole: it opens again with its three draws.
    EXPECT_EQ(ArchivioEstrazioni(p.archivio).NumeroEstrazioni(), 3);
}

// Every visible control lies inside the window, no two boxes overlap; with
// ZEF_SCHERMATE set to a folder the window is saved there as form3.png.
TEST(Form3View, DisposizioneESchermata) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    QApplication::processEvents();
    const QRect finestra = v.rect();
    for (QWidget* c : v.findChildren<QWidget*>()) {
        if (!c->isVisibleTo(&v) || c->isWindow()) continue;
        QRect r(c->mapTo(&v, QPoint(0, 0)), c->size());
        EXPECT_TRUE(finestra.contains(r)) << c->objectName().toStdString() << " out of the window";
    }
    for (int i = 0; i < 55; ++i)
        for (int j = i + 1; j < 55; ++j)
            EXPECT_FALSE(v.Text1(i)->geometry().intersects(v.Text1(j)->geometry())) << i << " " << j;
    // Each wheel's boxes on one row, beside its label.
    for (int w = 0; w < 11; ++w) {
        auto* nome = v.findChild<QLabel*>(QString("Ruota%1").arg(w + 1));
        EXPECT_EQ(nome->geometry().center().y(), v.Text1(w * 5)->geometry().center().y()) << w;
        EXPECT_LT(nome->geometry().right(), v.Text1(w * 5)->geometry().left()) << w;
    }
    QPixmap foto = v.grab();
    ASSERT_FALSE(foto.isNull());
    if (const char* cartella = std::getenv("ZEF_SCHERMATE")) {
        EXPECT_TRUE(foto.save(QString("%1/form3.png").arg(cartella)));
    }
}

// Exit while the import's worker holds the archive: the connection outlives the
// worker's use of it and is closed after; the import is whole.
TEST(Form3View, UscitaDuranteLImportazione) {
    Programma p;
    p.avvia();
    const std::string nuove = FileStorico(p.cartella, "nuove.txt", {"2024/01/06", "2024/01/09"}, 4);
    p.app->interfaccia().rispostaFile = [&p, nuove](bool) -> std::optional<std::string> {
        p.app->finestra().voce("Uscita")->trigger();
        EXPECT_NE(p.app->archivio(), nullptr);
        return nuove;
    };
    p.app->finestra().voce("ImportaArchivio")->trigger();
    EXPECT_TRUE(p.app->form1().terminato);
    EXPECT_EQ(p.app->archivio(), nullptr);
    ASSERT_EQ(p.box.size(), 1u);
    EXPECT_EQ(p.box[0].testo, "Estrazioni importate: 2.\nEstrazioni in archivio: 5.");
    EXPECT_EQ(ArchivioEstrazioni(p.archivio).NumeroEstrazioni(), 5);
}

// A move over a shown button climbs to the cell behind it: the button stays; a
// move over the bare frame of the boxes hides it.
TEST(Form3View, IlMovimentoSulPulsanteNonLoNasconde) {
    Programma p;
    p.avvia();
    Form3View& v = p.apriBrowser();
    QEnterEvent entra(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(v.Label(5), &entra);
    ASSERT_TRUE(v.Command(3)->isVisible());
    QWidget* cella = v.Command(3)->parentWidget();
    const QPointF sulPulsante = v.Command(3)->geometry().center();
    QMouseEvent risale(QEvent::MouseMove, sulPulsante, sulPulsante, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(cella, &risale);
    EXPECT_TRUE(v.Command(3)->isVisible());
    QWidget* fondo = v.findChild<QWidget*>("FrameRuote");
    QMouseEvent fuori(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(fondo, &fuori);
    EXPECT_FALSE(v.Command(3)->isVisible());
}
