// Printing as the program does it: the print windows from the main window, the
// preview, the PDF of the listing (its lines, its columns) and of the slips (the
// marks where they belong), and the picture of the slip in the settings window.

#include "aiuti_qt.h"
#include "core/form1.h"
#include "core/interfaccia_scriptata.h"
#include "printing/aiuti_stampa.h"
#include "printing/form10.h"
#include "printing/form11.h"
#include "support/cartella.h"
#include "support/pdf_prova.h"
#include "ui/applicazione.h"
#include "ui/destinazione_qt.h"
#include "ui/disegno_scheda.h"
#include "ui/form10view.h"
#include "ui/form11view.h"
#include "ui/stampante_qt.h"

#include <QCheckBox>
#include <QDate>
#include <QImage>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace zef;
using namespace zef::ui;
using prova::Clic;

namespace {

std::string SenzaBlanchi(std::string t) {
    t.erase(0, t.find_first_not_of(' '));
    const size_t fine = t.find_last_not_of(' ');
    t.erase(fine == std::string::npos ? 0 : fine + 1);
    return t;
}

// Every non-empty line of `attese` is found, in order, among the lines of the PDF.
void RigheInOrdine(const std::vector<std::string>& attese, const std::vector<std::string>& pdf) {
    size_t j = 0;
    for (const std::string& a : attese) {
        const std::string t = SenzaBlanchi(a);
        if (t.empty() || t == "\f") continue;
        while (j < pdf.size() && SenzaBlanchi(pdf[j]) != t) ++j;
        if (j == pdf.size()) {
            std::string tutte;
            for (const std::string& r : pdf) tutte += r + "\n";
            FAIL() << "missing in the PDF: \"" << a << "\"\n" << tutte;
        }
        ++j;
    }
}

// Columns (in characters) of the broken bars of a line.
std::vector<size_t> Barre(const std::string& riga) {
    std::vector<size_t> v;
    size_t colonna = 0;
    for (size_t i = 0; i < riga.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(riga[i]);
        if ((c & 0xC0) == 0x80) continue;
        if (riga.compare(i, 2, "¦") == 0) v.push_back(colonna);
        ++colonna;
    }
    return v;
}

struct Programma {
    prova::CartellaTemporanea cartella;
    Applicazione app{Applicazione::Opzioni{false, 0, false, {}}};
    std::vector<BoxQt> box;
    std::string pdf = cartella / "tabulato";

    Programma() {
        app.interfaccia().risponditore = [this](const BoxQt& b) {
            box.push_back(b);
            return Risposta::Ok;
        };
        app.interfaccia().rispostaFile = [this](bool) { return std::optional<std::string>(pdf); };
        app.avvia();
    }
    Sistema& s() { return app.sistema(); }
};

}  // namespace

TEST(Stampa, TabulatoInPdfDalMenu) {
    Programma p;
    prova::ImpostaPronostico(p.s(), {3, 14, 15, 27, 65, 90});
    std::vector<std::string> righe;
    for (int i = 0; i < 7; ++i) righe.push_back(prova::Riga({3, 14, 15, i < 3 ? 27 : 65}));
    prova::ImpostaLista(p.s(), 4, righe);
    p.s().Command2 = "Tutte le ruote, , Ambo € 1,00, , , ";

    int pagineAnteprima = 0;
    bool stampaAbilitata = true;
    prova::AlProssimoModale<Form10View>([&](Form10View* d) {
        EXPECT_TRUE(d->Option1()->isChecked());
        prova::AlProssimoModale<Form24View>([&](Form24View* d24) {
            EXPECT_TRUE(d24->Check(1)->isChecked() && d24->Check(2)->isChecked() && d24->Check(3)->isChecked());
            prova::AlProssimoModale<AnteprimaStampa>([&](AnteprimaStampa* a) {
                pagineAnteprima = a->pagine();
                stampaAbilitata = a->pulsanteStampa()->isEnabled();
                Clic(a->pulsantePdf());
            });
            Clic(d24->Command1());
        });
        Clic(d->Command1());
    });
    p.app.form1().clickToolbar("stampa");

    EXPECT_TRUE(p.box.empty());
    EXPECT_EQ(pagineAnteprima, 2) << "the plays start a page of their own";
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        EXPECT_FALSE(stampaAbilitata);
    }
    const std::string file = p.pdf + ".pdf";
    ASSERT_TRUE(std::filesystem::exists(file)) << "\".pdf\" is added to the name";
    EXPECT_FALSE(std::filesystem::exists(file + ".parziale"));
    EXPECT_EQ(prova::PaginePdf(file), 2);

    StampanteRegistrata attesa;
    StampaTabulato(p.s(), {true, true, true},
                   QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString(), attesa);
    RigheInOrdine(prova::Righe(attesa), prova::RighePdf(file));
}

TEST(Stampa, ColonneDelTabulatoAllineate) {
    // The percentages table through the PDF writer: its bars stand in the same
    // columns on every line, so the face is of fixed pitch as on paper.
    Sistema s;
    s.PercentualiValide = true;
    s.form8.Perc[0] = {"", "", " 12.5", " 33.3", "100", ""};
    s.form8.Perc[3] = {"", "", "100", "100", "100", "100"};
    prova::CartellaTemporanea c;
    const std::string file = c / "percentuali.pdf";
    DestinazioneQt::ScriviPdf(file, Modulo::Tabulato,
                              [&](Stampante& st, bool) { StampaTabulato(s, {false, true, false}, "01/01/26", st); });
    std::vector<std::vector<size_t>> colonne;
    for (const std::string& r : prova::RighePdf(file))
        if (r.find("¦") != std::string::npos) colonne.push_back(Barre(r));
    ASSERT_EQ(colonne.size(), 9u);
    for (const auto& c2 : colonne) EXPECT_EQ(c2, colonne[0]);
    EXPECT_EQ(colonne[0].size(), 6u);
    const std::string riga = "     ¦ Cinquina  ¦ " + std::string(12, ' ') + " ¦ 100" + std::string(9, ' ') + " ¦  33.3" +
                             std::string(7, ' ') + " ¦  12.5" + std::string(7, ' ') + " ¦ ";
    RigheInOrdine({riga}, prova::RighePdf(file));
}

TEST(Stampa, RigheOltreLaPaginaVannoSullaSeguente) {
    prova::CartellaTemporanea c;
    const std::string file = c / "righe.pdf";
    DestinazioneQt::ScriviPdf(file, Modulo::Tabulato, [](Stampante& st, bool) {
        st.impostaCarattere({"Courier new", 11, false});
        for (int i = 1; i <= 150; ++i) st.stampa("riga " + std::to_string(i));
        st.fineDocumento();
    });
    // A4 less two margins of 10 mm holds some sixty lines of 11 points.
    EXPECT_EQ(prova::PaginePdf(file), 3);
    const auto righe = prova::RighePdf(file);
    EXPECT_NE(std::find_if(righe.begin(), righe.end(), [](const std::string& r) { return SenzaBlanchi(r) == "riga 150"; }),
              righe.end());
    // A print with nothing on it still gives the file a page; a failing one no file.
    DestinazioneQt::ScriviPdf(c / "vuoto.pdf", Modulo::Tabulato, [](Stampante& st, bool) { st.fineDocumento(); });
    EXPECT_EQ(prova::PaginePdf(c / "vuoto.pdf"), 1);
    EXPECT_THROW(DestinazioneQt::ScriviPdf(c / "guasto.pdf", Modulo::Tabulato,
                                           [](Stampante& st, bool) {
                                               st.stampa("prima");
                                               throw ErroreEsecuzione(9, "Indice non incluso nell'intervallo");
                                           }),
                 ErroreEsecuzione);
    EXPECT_FALSE(std::filesystem::exists(c / "guasto.pdf"));
    EXPECT_FALSE(std::filesystem::exists(c / "guasto.pdf.parziale"));
    EXPECT_THROW(DestinazioneQt::ScriviPdf(c / "manca/x.pdf", Modulo::Tabulato,
                                           [](Stampante& st, bool) { st.stampa("x"); }),
                 ErroreEsecuzione);
}

TEST(Stampa, SchedineInPdfConISegniAlPosto) {
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata nessuna;
    Form11 f(s, ui, nessuna);
    prova::CartellaTemporanea c;
    f.fileGeometria = c / "cooxy.txt";
    prova::ImpostaLista(s, 5, {prova::Riga({1, 10, 11, 45, 90}), prova::Riga({2, 3, 4, 5, 6})});
    s.form2.Option1.fill(false);
    s.form2.Option1[10] = true;  // Nazionale: the slip's last wheel row
    s.form2.Check = {0, 1, 0, 0, 0};
    s.form2.chkAmbo[4] = true;  // Ambo 1,00
    f.carica();
    f.cambia(Form11::MSuperiore, "8");
    f.clickOption3(2);
    const std::string file = c / "schedine.pdf";
    DestinazioneQt::ScriviPdf(file, Modulo::Schedine, [&](Stampante& st, bool a) { f.StampaSchede(st, a); });
    ASSERT_EQ(prova::PaginePdf(file), 2) << "a slip a page, no blank sheet at the end";

    const Geometria g = f.valori();
    const prova::Pagina pagina = prova::PaginaPdf(file, 1);
    ASSERT_GT(pagina.larghezza, 0);
    auto nero = [&](Punto pos) {
        const Punto m = CentroSegno(pos);
        return pagina.mm(m.x, m.y) < 80;
    };
    for (int n : {1, 10, 11, 45, 90}) EXPECT_TRUE(nero(scheda::PosNumero(g, n))) << n;
    for (int n : {2, 9, 12, 44, 46, 89}) EXPECT_FALSE(nero(scheda::PosNumero(g, n))) << n;
    EXPECT_TRUE(nero(scheda::PosRuota(g, 11)));
    EXPECT_FALSE(nero(scheda::PosRuota(g, 10)));
    EXPECT_TRUE(nero(scheda::PosSorte(g, 1, 5)));
    EXPECT_FALSE(nero(scheda::PosSorte(g, 1, 6)));
    EXPECT_TRUE(nero(scheda::PosConcorsi(g, 2)));
    EXPECT_FALSE(nero(scheda::PosConcorsi(g, 1)));
    // The mark is a square of its size: dark to within its edges, white past them.
    const QuadratoSegno q = Quadrato(scheda::PosNumero(g, 45).x, scheda::PosNumero(g, 45).y, 9);
    EXPECT_LT(pagina.mm(q.x + 0.3, q.y + 0.3), 80);
    EXPECT_LT(pagina.mm(q.x + q.lato - 0.3, q.y + q.lato - 0.3), 80);
    EXPECT_GT(pagina.mm(q.x - 0.4, q.y + q.lato / 2), 200);
    EXPECT_GT(pagina.mm(q.x + q.lato / 2, q.y + q.lato + 0.4), 200);
    // The header, in its face, at its place.
    const auto testo = prova::TestoPdf(file);
    EXPECT_NE(testo.find("Scheda n.1"), std::string::npos);
    EXPECT_NE(testo.find("Scheda n.2"), std::string::npos);
    const Punto h = scheda::PosIntestazione(g);
    int scuri = 0;
    for (double x = h.x; x < h.x + 20; x += 0.2) scuri += pagina.mm(x, h.y + 1.5) < 128;
    EXPECT_GT(scuri, 5);
}

TEST(Stampa, FiguraDellaSchedinaEISegni) {
    // The picture's boxes sit under the marks of the default settings.
    const double s = 5;
    QImage img(static_cast<int>(LarghezzaScheda * s), static_cast<int>(AltezzaScheda * s), QImage::Format_RGB32);
    img.fill(Qt::white);
    {
        QPainter p(&img);
        DisegnaScheda(p, s);
    }
    auto colore = [&](Punto mm) { return img.pixelColor(static_cast<int>(mm.x * s), static_cast<int>(mm.y * s)); };
    // A wheel's box has no caption inside.
    const QColor fondoCasella = colore(CentroSegno(scheda::PosRuota(Geometria{}, 0)));
    for (int n : {1, 10, 11, 89}) {
        // Just inside the box, off the printed number.
        Punto c = CentroSegno(scheda::PosNumero(Geometria{}, n));
        c.y -= 2.0;
        EXPECT_EQ(colore(c), fondoCasella) << n;
    }
    for (int riga = 0; riga < 12; ++riga) EXPECT_EQ(colore(CentroSegno(scheda::PosRuota(Geometria{}, riga))), fondoCasella);
    for (int i = 1; i <= 7; ++i) {
        Punto c = CentroSegno(scheda::PosConcorsi(Geometria{}, i));
        c.x -= 2.0;
        EXPECT_EQ(colore(c), fondoCasella) << i;
    }
    for (int j = 1; j <= 52; ++j) EXPECT_EQ(colore(CentroSegno(scheda::PosSorte(Geometria{}, scheda::RigaSorte(j), j))), fondoCasella) << j;

    // The marks follow the settings: with a wider pitch, 10 leaves its box.
    QImage segni = img.copy();
    {
        QPainter p(&segni);
        DisegnaSegni(p, s, Geometria{5, 5, 7, 8}, "Scheda n.1 €.1");
    }
    auto scuro = [&](const QImage& im, Punto mm) {
        return im.pixelColor(static_cast<int>(mm.x * s), static_cast<int>(mm.y * s)).lightness() < 100;
    };
    EXPECT_TRUE(scuro(segni, CentroSegno(scheda::PosNumero(Geometria{5, 5, 7, 8}, 10))));
    EXPECT_FALSE(scuro(segni, CentroSegno(scheda::PosNumero(Geometria{}, 10))));
    EXPECT_TRUE(scuro(segni, CentroSegno(scheda::PosNumero(Geometria{}, 1))) ==
                scuro(segni, CentroSegno(scheda::PosNumero(Geometria{5, 5, 7, 8}, 1))));
}

TEST(Stampa, ImpostazioniDiStampaSuSchermo) {
    Sistema s;
    QtInterfaccia ui;
    DestinazioneRegistrata carta;
    Form11 f(s, ui, carta);
    prova::CartellaTemporanea c;
    f.fileGeometria = c / "cooxy.txt";
    std::ofstream(f.fileGeometria) << "6\n4.5\n";
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 "});
    f.carica();
    Form11View v(f, ui);
    v.show();
    EXPECT_EQ(v.casella(Form11::MSuperiore)->text(), "6");
    EXPECT_EQ(v.casella(Form11::MSinistro)->text(), "4.5");
    EXPECT_EQ(v.casella(Form11::SchedeA)->text(), "3");
    EXPECT_DOUBLE_EQ(v.Image1()->geometria().superiore, 6);
    // Typing and the arrows redraw the picture at once.
    QTest::keyClicks(v.casella(Form11::POrizzontale), ",5");
    EXPECT_DOUBLE_EQ(v.Image1()->geometria().orizzontale, 7.5);
    Clic(v.freccia(Form11::PVerticale, +1));
    EXPECT_EQ(v.casella(Form11::PVerticale)->text(), "7.5");
    EXPECT_DOUBLE_EQ(v.Image1()->geometria().verticale, 7.5);
    Clic(v.freccia(Form11::SchedeDA, -1));
    EXPECT_EQ(v.casella(Form11::SchedeDA)->text(), "1");
    // The tool tip of the single-slip box, the wrong way round.
    Clic(v.Check1());
    EXPECT_EQ(v.Check1()->toolTip().toStdString(), Form11::ToolTipSpuntato);
    Clic(v.Check1());
    // A draws option taken off by a second click.
    Clic(v.Option3(3));
    EXPECT_TRUE(f.Option3[3]);
    Clic(v.Option3(3));
    EXPECT_FALSE(f.Option3[3]);
    EXPECT_FALSE(v.Option3(3)->isChecked());

    Clic(v.Command1());
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(carta.stampe, 1);
    EXPECT_EQ(prova::Conta(carta.carta, OperazioneStampa::Tipo::NuovaPagina), 3);
    std::ifstream in(f.fileGeometria, std::ios::binary);
    std::string letto((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(letto, "6\r\n4.5\r\n7.5\r\n7.5\r\n");
}

TEST(Stampa, FinestreComposte) {
    // Every control inside its window; with ZEF_SCHERMATE set, the pictures of the guide.
    Sistema s;
    QtInterfaccia ui;
    DestinazioneRegistrata carta;
    Form24 f24;
    Form10 f10(s, ui, carta, f24);
    Form11 f11(s, ui, carta);
    prova::CartellaTemporanea c;
    f11.fileGeometria = c / "cooxy.txt";
    prova::ImpostaLista(s, 3, {" 1  2  3 ", " 4  5  6 "});
    s.form2.Check = {0, 1, 0, 0, 0};
    s.form2.testi[1] = "1,00";
    f11.carica();
    f11.clickOption3(2);
    f24.carica();
    Form10View v10(f10, ui);
    Form24View v24(f24);
    Form11View v11(f11, ui);
    for (auto [w, nome] : {std::pair<QWidget*, const char*>{&v10, "form10"}, {&v24, "form24"}, {&v11, "form11"}}) {
        w->show();
        w->adjustSize();
        QApplication::processEvents();
        for (QWidget* figlio : w->findChildren<QWidget*>()) {
            if (!figlio->isVisibleTo(w) || figlio->isWindow()) continue;
            const QRect r(figlio->mapTo(w, QPoint(0, 0)), figlio->size());
            EXPECT_TRUE(w->rect().contains(r)) << nome << ": " << figlio->objectName().toStdString();
        }
        const QPixmap p = w->grab();
        ASSERT_FALSE(p.isNull());
        if (const char* cartella = std::getenv("ZEF_SCHERMATE")) {
            EXPECT_TRUE(p.save(QString("%1/%2.png").arg(cartella, nome)));
        }
    }
    // The slip's picture keeps its proportions inside its widget.
    EXPECT_LE(v11.Image1()->scala() * LarghezzaScheda, v11.Image1()->width() + 0.5);
    EXPECT_LE(v11.Image1()->scala() * AltezzaScheda, v11.Image1()->height() + 0.5);
}

TEST(Stampa, EscInterrompeUnaStampaLunga) {
    // The print runs under the progress window: ESC and a Yes stop it, and the PDF
    // is not left half written.
    QtInterfaccia ui;
    std::vector<BoxQt> box;
    ui.risponditore = [&box](const BoxQt& b) {
        box.push_back(b);
        return Risposta::Si;
    };
    int pagineViste = 0;
    QTimer esc;
    esc.setInterval(5);
    QObject::connect(&esc, &QTimer::timeout, [&ui] {
        if (ui.finestraAvanzamento()) ui.accodaTasto(27);
    });
    esc.start();
    prova::CartellaTemporanea c;
    const std::string file = c / "lungo.pdf";
    try {
        DestinazioneQt::ScriviPdf(
            file, Modulo::Tabulato,
            [&pagineViste](Stampante& st, bool) {
                st.impostaCarattere({"Courier new", 11, false});
                for (int i = 0; i < 200000; ++i) st.stampa("riga " + std::to_string(i));
                st.fineDocumento();
                pagineViste = -1;  // not reached
            },
            &ui);
        FAIL() << "the print was not stopped";
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.testo(), "Stampa interrotta dall'utente");
    }
    esc.stop();
    EXPECT_EQ(pagineViste, 0);
    ASSERT_FALSE(box.empty());
    EXPECT_EQ(box[0].testo, "Interrompere la stampa?");
    EXPECT_EQ(box[0].titolo, "RICHIESTA");
    EXPECT_EQ(ui.finestraAvanzamento(), nullptr);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::exists(file + ".parziale"));
}
