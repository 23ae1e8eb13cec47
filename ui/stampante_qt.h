// The printer seam on Qt: a QPrinter (the default printer, the preview, a PDF) or a
// QPdfWriter (the command line's PDF), drawn on with QPainter.
//
// The program's faces are Windows faces; here "Courier New" is Liberation Mono
// (same metrics, so the listing's columns line up), "Arial" Liberation Sans, and
// the mark letter of "wingdings" is drawn as a filled square of its size. Texts go
// down with their cell's top at the current position, as on the old printer, and
// a text past the bottom of the page goes on a new one.
//
// Built apart from the views (Qt Gui only), so that the command line's PDF writer
// can load it without the widgets.
#pragma once

#include "printing/destinazione.h"
#include "printing/stampante.h"

#include <QFont>
#include <QString>

#include <functional>
#include <memory>
#include <string>

class QPagedPaintDevice;
class QPainter;

namespace zef::ui {

// The face that stands in for a face of the program.
QFont FacciaStampa(const Carattere& c);

// The page of a print on a PDF or a preview: A4; a listing gets margins, a slip is
// measured from the sheet's corner.
void ImpostaPaginaPdf(QPagedPaintDevice& d, Modulo modulo);

class StampanteQt : public Stampante {
public:
    // `documentiSeparati`: each end of document sends what was drawn as a job of its
    // own (a real printer); otherwise the print is one document that chiudi() ends.
    // `limitePagine` > 0 stops drawing after that many pages (the preview of a huge
    // listing). `errore` is the text raised when the device cannot be opened.
    StampanteQt(QPagedPaintDevice& dispositivo, bool documentiSeparati = false, int limitePagine = 0,
                std::string errore = "Errore della stampante");
    ~StampanteQt() override;

    void impostaCarattere(const Carattere& c) override;
    void scalaMillimetri() override;
    void impostaX(double x) override;
    void impostaY(double y) override;
    double x() const override;
    double y() const override;
    void stampa(std::string_view testo) override;
    void rigaVuota() override;
    void nuovaPagina() override;
    void fineDocumento() override;

    // Ends the document in progress; a document with no page gets an empty one
    // when `almenoUnaPagina` (a PDF file the user asked for).
    void chiudi(bool almenoUnaPagina = false);
    // Pages drawn on, and whether the page limit cut the print short.
    int pagine() const { return pagine_; }
    bool troncata() const { return troncata_; }
    // Called as each page begins, with the pages so far; it may raise to stop the print.
    std::function<void(int)> allaPagina;

private:
    // Opens the document or the pending page before drawing; false past the limit.
    bool prepara();
    double mmPerPixelX() const;
    double mmPerPixelY() const;
    double altezzaPaginaMm() const;

    QPagedPaintDevice& d_;
    std::unique_ptr<QPainter> p_;
    bool separati_;
    int limite_;
    std::string errore_;
    Carattere carattere_{caratteri::Arial, 10, false};
    QFont font_;
    // Metrics of the face on this device: a line and the ascent, millimetres.
    double rigaMm_ = 0, ascesaMm_ = 0;
    Scala scala_ = Scala::Twip;
    double xMm_ = 0, yMm_ = 0;
    bool paginaInSospeso_ = false;
    int pagine_ = 0;
    bool troncata_ = false;
};

}  // namespace zef::ui
