#include "ui/stampante_qt.h"

#include "core/errori.h"

#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>

#include <cmath>

namespace zef::ui {
namespace {

// Positions a program could mean on a sheet; anything else is not drawn (a box of
// the slip settings may hold any number).
bool Disegnabile(double xMm, double yMm) {
    return std::isfinite(xMm) && std::isfinite(yMm) && std::fabs(xMm) < 10000 && std::fabs(yMm) < 10000;
}

}  // namespace

QFont FacciaStampa(const Carattere& c) {
    QFont f;
    if (caratteri::Fisso(c.nome)) {
        f.setFamilies({"Liberation Mono", "DejaVu Sans Mono"});
        f.setStyleHint(QFont::Monospace);
        f.setFixedPitch(true);
    } else if (caratteri::StessoNome(c.nome, caratteri::Arial) || caratteri::Segni(c.nome)) {
        f.setFamilies({"Liberation Sans", "DejaVu Sans"});
        f.setStyleHint(QFont::SansSerif);
    } else {
        f.setFamily(QString::fromStdString(c.nome));
    }
    f.setPointSizeF(c.punti > 0 ? c.punti : 1);
    f.setBold(c.grassetto);
    f.setKerning(false);
    return f;
}

void ImpostaPaginaPdf(QPagedPaintDevice& d, Modulo modulo) {
    const double margine = modulo == Modulo::Tabulato ? 10 : 0;
    d.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                QMarginsF(margine, margine, margine, margine), QPageLayout::Millimeter));
}

StampanteQt::StampanteQt(QPagedPaintDevice& dispositivo, bool documentiSeparati, int limitePagine, std::string errore)
    : d_(dispositivo), separati_(documentiSeparati), limite_(limitePagine), errore_(std::move(errore)) {
    impostaCarattere(carattere_);
}

StampanteQt::~StampanteQt() {
    if (p_ && p_->isActive()) p_->end();
}

double StampanteQt::mmPerPixelX() const { return 25.4 / d_.logicalDpiX(); }
double StampanteQt::mmPerPixelY() const { return 25.4 / d_.logicalDpiY(); }

double StampanteQt::altezzaPaginaMm() const { return d_.height() * mmPerPixelY(); }

bool StampanteQt::prepara() {
    if (p_ && !paginaInSospeso_) return true;
    if (limite_ > 0 && pagine_ >= limite_) {
        troncata_ = true;
        return false;
    }
    if (!p_) {
        p_ = std::make_unique<QPainter>();
        if (!p_->begin(&d_)) {
            p_.reset();
            throw ErroreEsecuzione(482, errore_);
        }
    } else if (!d_.newPage()) {
        throw ErroreEsecuzione(482, errore_);
    }
    paginaInSospeso_ = false;
    ++pagine_;
    if (allaPagina) allaPagina(pagine_);
    return true;
}

void StampanteQt::impostaCarattere(const Carattere& c) {
    carattere_ = c;
    font_ = FacciaStampa(c);
    const QFontMetricsF fm(font_, &d_);
    rigaMm_ = fm.height() * mmPerPixelY();
    ascesaMm_ = fm.ascent() * mmPerPixelY();
}

void StampanteQt::scalaMillimetri() { scala_ = Scala::Millimetri; }

void StampanteQt::impostaX(double v) { xMm_ = scala_ == Scala::Millimetri ? v : v / TwipPerMillimetro; }
void StampanteQt::impostaY(double v) { yMm_ = scala_ == Scala::Millimetri ? v : v / TwipPerMillimetro; }
double StampanteQt::x() const { return scala_ == Scala::Millimetri ? xMm_ : xMm_ * TwipPerMillimetro; }
double StampanteQt::y() const { return scala_ == Scala::Millimetri ? yMm_ : yMm_ * TwipPerMillimetro; }

void StampanteQt::stampa(std::string_view testo) {
    const double riga = rigaMm_;
    // A line that would cross the bottom of the page goes at the top of the next.
    if (yMm_ > 0 && yMm_ + riga > altezzaPaginaMm()) {
        yMm_ = 0;
        if (p_) paginaInSospeso_ = true;
    }
    if (!testo.empty() && Disegnabile(xMm_, yMm_) && prepara()) {
        const double pxX = 1 / mmPerPixelX(), pxY = 1 / mmPerPixelY();
        const QString t = QString::fromUtf8(testo.data(), static_cast<int>(testo.size()));
        const double ascesa = ascesaMm_ * pxY;
        p_->setFont(font_);
        p_->setPen(Qt::black);
        if (caratteri::Segni(carattere_.nome)) {
            // The mark letter is a filled square; the face has no other use here.
            double x = xMm_;
            const double em = carattere_.punti * 25.4 / 72.0;
            for (const QChar ch : t) {
                if (ch == QLatin1Char(caratteri::Segno[0])) {
                    const QuadratoSegno q = Quadrato(x, yMm_, carattere_.punti);
                    p_->fillRect(QRectF(q.x * pxX, q.y * pxY, q.lato * pxX, q.lato * pxY), Qt::black);
                    x += 0.75 * em;
                } else {
                    p_->drawText(QPointF(x * pxX, yMm_ * pxY + ascesa), QString(ch));
                    x += QFontMetricsF(font_, &d_).horizontalAdvance(ch) / pxX;
                }
            }
        } else {
            p_->drawText(QPointF(xMm_ * pxX, yMm_ * pxY + ascesa), t);
        }
    }
    xMm_ = 0;
    yMm_ += riga;
}

void StampanteQt::rigaVuota() { stampa({}); }

void StampanteQt::nuovaPagina() {
    // Taken when something is drawn next: a new page right before the end of the
    // document leaves no blank sheet.
    if (p_) paginaInSospeso_ = true;
    xMm_ = yMm_ = 0;
}

void StampanteQt::fineDocumento() {
    xMm_ = yMm_ = 0;
    if (!p_) return;
    if (!separati_) {
        paginaInSospeso_ = true;
        return;
    }
    const bool ok = p_->end();
    p_.reset();
    paginaInSospeso_ = false;
    if (!ok) throw ErroreEsecuzione(482, errore_);
}

void StampanteQt::chiudi(bool almenoUnaPagina) {
    if (!p_ && almenoUnaPagina && pagine_ == 0) prepara();
    if (!p_) return;
    const bool ok = p_->end();
    p_.reset();
    paginaInSospeso_ = false;
    if (!ok) throw ErroreEsecuzione(482, errore_);
}

}  // namespace zef::ui
