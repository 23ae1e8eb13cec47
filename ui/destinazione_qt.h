// Where the program's prints go: first a preview on screen, then, as the user
// chooses there, the system's default printer or a PDF file. With no printer
// installed the preview offers the PDF only.
#pragma once

#include "core/interfaccia.h"
#include "printing/destinazione.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <string>

class QLabel;
class QPrintPreviewWidget;
class QPrinter;
class QPushButton;

namespace zef::ui {

// The preview of a print: its pages, and the way out to paper or PDF.
class AnteprimaStampa : public QDialog {
    Q_OBJECT
public:
    enum class Scelta { Chiudi, Stampante, Pdf };
    static constexpr int LimitePagine = 300;

    AnteprimaStampa(const std::string& documento, Modulo modulo, const Produzione& produci, bool stampanteInstallata,
                    QWidget* parent = nullptr);
    ~AnteprimaStampa() override;

    Scelta scelta() const { return scelta_; }
    QPrintPreviewWidget* anteprima() const { return anteprima_; }
    QPushButton* pulsanteStampa() const { return stampa_; }
    QPushButton* pulsantePdf() const { return pdf_; }
    QPushButton* pulsanteChiudi() const { return chiudi_; }
    QLabel* nota() const { return nota_; }
    // Pages the preview drew.
    int pagine() const { return pagine_; }

private:
    void disegna(QPrinter* stampante);

    const Produzione& produci_;
    QPrinter* stampante_;
    QPrintPreviewWidget* anteprima_;
    QPushButton* stampa_;
    QPushButton* pdf_;
    QPushButton* chiudi_;
    QLabel* nota_;
    Scelta scelta_ = Scelta::Chiudi;
    int pagine_ = 0;
};

class DestinazioneQt : public DestinazioneStampa {
public:
    static constexpr const char* FiltroPdf = "Documenti PDF|*.pdf";
    static constexpr const char* TitoloPdf = "Salva la stampa in un file PDF";

    DestinazioneQt(Interfaccia& ui, QWidget* padre) : ui_(ui), padre_(padre) {}

    bool stampa(const std::string& documento, Modulo modulo, const Produzione& produci) override;

    // Whether the system has a printer (tests fix it).
    std::function<bool()> stampanteInstallata;

    // Writes a print into a PDF file, whole or not at all. With `ui` the work runs off
    // the interface thread under the progress window, where ESC stops it.
    static void ScriviPdf(const std::string& file, Modulo modulo, const Produzione& produci,
                          Interfaccia* ui = nullptr);
    static constexpr const char* Interrotta = "Stampa interrotta dall'utente";

private:
    Interfaccia& ui_;
    QWidget* padre_;
};

}  // namespace zef::ui
