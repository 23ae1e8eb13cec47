#include "ui/destinazione_qt.h"

#include "core/errori.h"
#include "ui/stampante_qt.h"
#include "ui/vista_comune.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
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
    resize(modulo == Modulo::Schedine ? 640 : 760, 820);
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
        produci(st, false);
        st.chiudi();
        return true;
    }
    std::optional<std::string> file = ui_.dialogoSalva(FiltroPdf, TitoloPdf);
    if (!file || file->empty()) return false;
    if (!QString::fromStdString(*file).endsWith(".pdf", Qt::CaseInsensitive)) *file += ".pdf";
    ScriviPdf(*file, modulo, produci);
    return true;
}

void DestinazioneQt::ScriviPdf(const std::string& file, Modulo modulo, const Produzione& produci) {
    // Written beside and put in place at the end: a failed print leaves no half file.
    const std::string temporaneo = file + ".parziale";
    try {
        QPrinter pdf(QPrinter::HighResolution);
        pdf.setOutputFormat(QPrinter::PdfFormat);
        pdf.setOutputFileName(QString::fromStdString(temporaneo));
        pdf.setCreator("Zefiranto 2.0");
        ImpostaPaginaPdf(pdf, modulo);
        StampanteQt st(pdf, false, 0, "Impossibile scrivere il file " + file);
        produci(st, false);
        st.chiudi(true);
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
