#include "ui/destinazione_qt.h"

#include "core/errori.h"
#include "ui/stampante_qt.h"
#include "ui/vista_comune.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <cstdio>
#include <memory>

namespace zef::ui {
namespace {

// A printer that draws nothing: the dry run that lets a failing production fail
// before any window or sheet.
class StampanteNulla : public Stampante {
public:
    void impostaCarattere(const Carattere&) override {}
    void scalaMillimetri() override {}
    void impostaX(double v) override { x_ = v; }
    void impostaY(double v) override { y_ = v; }
    double x() const override { return x_; }
    double y() const override { return y_; }
    void stampa(std::string_view) override {}
    void rigaVuota() override {}
    void nuovaPagina() override {}
    void fineDocumento() override {}

private:
    double x_ = 0, y_ = 0;
};

// The print proper. With an interface it runs on a worker thread under the progress
// window, with the pages so far on show; ESC asks whether to stop, and stopping
// fails the print as a printer would.
void InStampa(StampanteQt& st, const Produzione& produci, Interfaccia* ui, bool almenoUnaPagina) {
    if (!ui) {
        produci(st, false);
        st.chiudi(almenoUnaPagina);
        return;
    }
    StatoAvanzamento stato;
    stato.titolo = "STAMPA";
    stato.etichetta = "Stampa in corso...";
    stato.etichetta1 = "Pagine:";
    stato.testo1 = "0";
    stato.suggerimento = "ESC per interrompere";
    ui->mostraAvanzamento(stato);
    st.allaPagina = [&stato, ui](int pagine) {
        stato.testo1 = std::to_string(pagine);
        ui->aggiornaAvanzamento(stato);
        for (int tasto : ui->tastiAvanzamento())
            if (tasto == 27 &&
                ui->messaggio("Interrompere la stampa?", "RICHIESTA", Icona::Domanda, Pulsanti::SiNo) == Risposta::Si)
                throw ErroreEsecuzione(18, DestinazioneQt::Interrotta);
    };
    try {
        vista::EseguiInThread([&] {
            produci(st, false);
            st.chiudi(almenoUnaPagina);
        });
    } catch (...) {
        ui->chiudiAvanzamento();
        throw;
    }
    ui->chiudiAvanzamento();
}

QPrinterInfo StampantePredefinita() {
    QPrinterInfo p = QPrinterInfo::defaultPrinter();
    if (p.isNull()) {
        const auto tutte = QPrinterInfo::availablePrinters();
        if (!tutte.isEmpty()) p = tutte.first();
    }
    return p;
}

}  // namespace

AnteprimaStampa::AnteprimaStampa(const std::string& documento, Modulo modulo, const Produzione& produci,
                                 bool stampanteInstallata, QWidget* parent)
    : QDialog(parent), produci_(produci) {
    setObjectName("AnteprimaStampa");
    setWindowTitle(vista::Q(documento) + " - anteprima di stampa");
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    stampante_ = new QPrinter(QPrinter::HighResolution);
    stampante_->setOutputFormat(QPrinter::PdfFormat);
    ImpostaPaginaPdf(*stampante_, modulo);
    anteprima_ = new QPrintPreviewWidget(stampante_, this);
    anteprima_->setObjectName("anteprima");
    connect(anteprima_, &QPrintPreviewWidget::paintRequested, this, &AnteprimaStampa::disegna);

    auto strumento = [this](const QString& testo, const QString& suggerimento, auto azione) {
        auto* b = new QToolButton;
        b->setText(testo);
        b->setToolTip(suggerimento);
        b->setMinimumWidth(36);
        connect(b, &QToolButton::clicked, this, azione);
        return b;
    };
    auto* barra = new QHBoxLayout;
    barra->addWidget(strumento("−", "Riduci", [this] { anteprima_->zoomOut(); }));
    barra->addWidget(strumento("+", "Ingrandisci", [this] { anteprima_->zoomIn(); }));
    barra->addWidget(strumento("Larghezza", "Adatta alla larghezza", [this] { anteprima_->fitToWidth(); }));
    barra->addWidget(strumento("Pagina", "Pagina intera", [this] { anteprima_->fitInView(); }));
    barra->addStretch();
    auto* pagine = new QLabel;
    pagine->setObjectName("pagine");
    barra->addWidget(pagine);
    connect(anteprima_, &QPrintPreviewWidget::previewChanged, pagine, [this, pagine] {
        pagine->setText(QString("Pagina %1 di %2").arg(anteprima_->currentPage()).arg(anteprima_->pageCount()));
    });

    nota_ = new QLabel;
    nota_->setObjectName("nota");
    nota_->setWordWrap(true);
    if (!stampanteInstallata)
        nota_->setText("Nessuna stampante installata: la stampa può essere salvata in un file PDF.");

    stampa_ = new QPushButton("Stampa");
    stampa_->setObjectName("Stampa");
    stampa_->setEnabled(stampanteInstallata);
    stampa_->setToolTip(stampanteInstallata ? "Stampa sulla stampante predefinita" : "Nessuna stampante installata");
    pdf_ = new QPushButton("Salva in PDF...");
    pdf_->setObjectName("Pdf");
    chiudi_ = new QPushButton("Chiudi");
    chiudi_->setObjectName("Chiudi");
    (stampanteInstallata ? stampa_ : pdf_)->setDefault(true);
    connect(stampa_, &QPushButton::clicked, this, [this] {
        scelta_ = Scelta::Stampante;
        accept();
    });
    connect(pdf_, &QPushButton::clicked, this, [this] {
        scelta_ = Scelta::Pdf;
        accept();
    });
    connect(chiudi_, &QPushButton::clicked, this, &QDialog::reject);

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(nota_, 1);
    pulsanti->addWidget(stampa_);
    pulsanti->addWidget(pdf_);
    pulsanti->addWidget(chiudi_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(barra);
    layout->addWidget(anteprima_, 1);
    layout->addLayout(pulsanti);
    // As tall as the screen allows, a page's width.
    QSize misura(modulo == Modulo::Schedine ? 640 : 760, 820);
    if (QScreen* schermo = parent ? parent->screen() : QGuiApplication::primaryScreen())
        misura = misura.boundedTo(schermo->availableGeometry().size() - QSize(40, 60));
    resize(misura);
}

AnteprimaStampa::~AnteprimaStampa() {
    // The preview draws on the printer: it goes first.
    delete anteprima_;
    delete stampante_;
}

void AnteprimaStampa::disegna(QPrinter* stampante) {
    StampanteQt st(*stampante, false, LimitePagine);
    try {
        produci_(st, true);
        st.chiudi(true);
    } catch (const std::exception& e) {
        // The dry run went through: only the device can fail here.
        nota_->setText(QString("Anteprima non disponibile: %1").arg(e.what()));
        return;
    }
    pagine_ = st.pagine();
    if (st.troncata())
        nota_->setText(QString("Anteprima limitata alle prime %1 pagine: la stampa le comprende tutte.").arg(LimitePagine));
}

bool DestinazioneQt::stampa(const std::string& documento, Modulo modulo, const Produzione& produci) {
    {
        StampanteNulla prova;
        produci(prova, true);
    }
    const bool installata = stampanteInstallata ? stampanteInstallata() : !StampantePredefinita().isNull();
    AnteprimaStampa anteprima(documento, modulo, produci, installata, padre_);
    if (anteprima.exec() != QDialog::Accepted) return false;

    if (anteprima.scelta() == AnteprimaStampa::Scelta::Stampante) {
        const QPrinterInfo info = StampantePredefinita();
        if (info.isNull()) throw ErroreEsecuzione(482, "Nessuna stampante installata");
        QPrinter stampante(info, QPrinter::HighResolution);
        stampante.setDocName(vista::Q(documento));
        StampanteQt st(stampante, true, 0, "Errore della stampante " + info.printerName().toStdString());
        InStampa(st, produci, &ui_, false);
        return true;
    }
    std::optional<std::string> file = ui_.dialogoSalva(FiltroPdf, TitoloPdf);
    if (!file || file->empty()) return false;
    if (!QString::fromStdString(*file).endsWith(".pdf", Qt::CaseInsensitive)) *file += ".pdf";
    ScriviPdf(*file, modulo, produci, &ui_);
    return true;
}

void DestinazioneQt::ScriviPdf(const std::string& file, Modulo modulo, const Produzione& produci, Interfaccia* ui) {
    // Written beside and put in place at the end: a failed print leaves no half file.
    const std::string temporaneo = file + ".parziale";
    try {
        QPrinter pdf(QPrinter::HighResolution);
        pdf.setOutputFormat(QPrinter::PdfFormat);
        pdf.setOutputFileName(QString::fromStdString(temporaneo));
        pdf.setCreator("Zefiranto 2.0");
        ImpostaPaginaPdf(pdf, modulo);
        StampanteQt st(pdf, false, 0, "Impossibile scrivere il file " + file);
        InStampa(st, produci, ui, true);
    } catch (...) {
        std::remove(temporaneo.c_str());
        throw;
    }
    if (std::rename(temporaneo.c_str(), file.c_str()) != 0) {
        std::remove(temporaneo.c_str());
        throw ErroreEsecuzione(75, "Impossibile scrivere il file " + file);
    }
}

}  // namespace zef::ui
