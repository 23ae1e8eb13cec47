#include "ui/disegno_scheda.h"

#include "core/vocabolario.h"
#include "ui/stampante_qt.h"

#include <QPainter>
#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>

namespace zef::ui {
namespace {

const QColor Carta(255, 252, 246);
const QColor Inchiostro(190, 52, 40);
const QColor Fondo(255, 238, 232);
const QColor ColoreSegno(20, 36, 110, 225);

// The slip is drawn for the settings it was made for.
const Geometria Origine{};

QRectF Mm(double x, double y, double w, double h, double s) { return QRectF(x * s, y * s, w * s, h * s); }

void Scrivi(QPainter& p, double s, const QRectF& mm, const QString& t, double altezzaMm, int allinea,
            bool grassetto = false) {
    QFont f = FacciaStampa({caratteri::Arial, 8, grassetto});
    f.setPixelSize(std::max(1, static_cast<int>(altezzaMm * s + 0.5)));
    p.setFont(f);
    p.drawText(Mm(mm.x(), mm.y(), mm.width(), mm.height(), s), allinea, t);
}

// A box of w x h millimetres around the middle of the mark printed at `pos`.
QRectF Casella(Punto pos, double w, double h) {
    const Punto c = CentroSegno(pos);
    return QRectF(c.x - w / 2, c.y - h / 2, w, h);
}

void DisegnaCasella(QPainter& p, double s, const QRectF& mm) {
    p.setPen(QPen(Inchiostro, std::max(1.0, 0.25 * s)));
    p.setBrush(Fondo);
    p.drawRect(Mm(mm.x(), mm.y(), mm.width(), mm.height(), s));
}

const char* NomeRigaRuota(int riga) {
    static const char* const nomi[12] = {"BARI",   "CAGLIARI", "FIRENZE", "GENOVA", "MILANO", "NAPOLI",
                                         "PALERMO", "ROMA",     "TORINO",  "VENEZIA", "TUTTE", "NAZIONALE"};
    return nomi[riga];
}

}  // namespace

Punto CentroSegno(Punto pos) {
    const QuadratoSegno q = Quadrato(pos.x, pos.y, scheda::SegniSchedina.punti);
    return {q.x + q.lato / 2, q.y + q.lato / 2};
}

void DisegnaScheda(QPainter& p, double s) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(Inchiostro, std::max(1.0, 0.5 * s)));
    p.setBrush(Carta);
    p.drawRoundedRect(Mm(0.5, 0.5, LarghezzaScheda - 1, AltezzaScheda - 1, s), 3 * s, 3 * s);
    p.setPen(Inchiostro);
    Scrivi(p, s, QRectF(4, 2.5, 80, 6), "SCHEDA DI GIOCO", 4.2, Qt::AlignLeft | Qt::AlignVCenter, true);
    Scrivi(p, s, QRectF(60, 2.5, 54, 6), "una giocata per scheda", 2.4, Qt::AlignRight | Qt::AlignVCenter);

    // The numbers, nine rows of ten.
    Scrivi(p, s, QRectF(5, 19.5, 70, 4), "NUMERI", 3, Qt::AlignCenter, true);
    for (int n = 1; n <= 90; ++n) {
        const QRectF r = Casella(scheda::PosNumero(Origine, n), 5.6, 5.0);
        DisegnaCasella(p, s, r);
        p.setPen(Inchiostro);
        Scrivi(p, s, r, QString::number(n), 2.6, Qt::AlignCenter);
    }
    // The wheels, in the slip's order.
    Scrivi(p, s, QRectF(86, 19.5, 30, 4), "RUOTE", 3, Qt::AlignLeft | Qt::AlignVCenter, true);
    for (int riga = 0; riga < 12; ++riga) {
        const QRectF r = Casella(scheda::PosRuota(Origine, riga), 4.6, 4.2);
        DisegnaCasella(p, s, r);
        p.setPen(Inchiostro);
        Scrivi(p, s, QRectF(r.right() + 1, r.top(), 22, r.height()), NomeRigaRuota(riga), 2.3,
               Qt::AlignLeft | Qt::AlignVCenter);
    }

    p.setPen(QPen(Inchiostro, std::max(1.0, 0.3 * s), Qt::DashLine));
    p.drawLine(QPointF(3 * s, 90 * s), QPointF((LarghezzaScheda - 3) * s, 90 * s));
    p.drawLine(QPointF(3 * s, 143 * s), QPointF((LarghezzaScheda - 3) * s, 143 * s));

    // The stakes: Estratto, then Ambo to Cinquina; the biggest amount at the left.
    p.setPen(Inchiostro);
    Scrivi(p, s, QRectF(20, 93.5, 72, 4), "IMPORTI IN EURO", 3, Qt::AlignCenter, true);
    static const char* const sorti[5] = {"ESTRATTO", "AMBO", "TERNO", "QUATERNA", "CINQUINA"};
    for (int colonna = 0; colonna < 13; ++colonna) {
        const QRectF prima = Casella(scheda::PosEstratto(Origine, 65 - colonna), 4.8, 5.4);
        p.setPen(Inchiostro);
        Scrivi(p, s, QRectF(prima.x() - 1, prima.top() - 3.6, prima.width() + 2, 3.2),
               DidascaliePuntata[12 - colonna], 2.2, Qt::AlignCenter);
        DisegnaCasella(p, s, prima);
        for (int q = 1; q <= 4; ++q) DisegnaCasella(p, s, Casella(scheda::PosSorte(Origine, q, 13 * q - colonna), 4.8, 5.4));
    }
    for (int q = 0; q <= 4; ++q) {
        const QRectF r = q == 0 ? Casella(scheda::PosEstratto(Origine, 65), 4.8, 5.4)
                                : Casella(scheda::PosSorte(Origine, q, 13 * q), 4.8, 5.4);
        p.setPen(Inchiostro);
        Scrivi(p, s, QRectF(1.5, r.top(), r.left() - 2.5, r.height()), sorti[q], 2.3,
               Qt::AlignRight | Qt::AlignVCenter, true);
    }

    // The number of draws.
    for (int i = 1; i <= 7; ++i) {
        const QRectF r = Casella(scheda::PosConcorsi(Origine, i), 5.2, 5.0);
        p.setPen(Inchiostro);
        Scrivi(p, s, QRectF(r.x() - 1, r.top() - 3.8, r.width() + 2, 3.4), scheda::Concorsi[i], 2.6, Qt::AlignCenter,
               true);
        DisegnaCasella(p, s, r);
    }
    const QRectF primo = Casella(scheda::PosConcorsi(Origine, 1), 5.2, 5.0);
    p.setPen(Inchiostro);
    Scrivi(p, s, QRectF(3, primo.top(), primo.left() - 5, primo.height()), "PER N. CONCORSI", 2.5,
           Qt::AlignRight | Qt::AlignVCenter, true);
    p.restore();
}

void DisegnaSegni(QPainter& p, double s, const Geometria& g, const std::string& intestazione) {
    p.save();
    auto segno = [&p, s](Punto pos) {
        const QuadratoSegno q = Quadrato(pos.x, pos.y, scheda::SegniSchedina.punti);
        p.fillRect(Mm(q.x, q.y, q.lato, q.lato, s), ColoreSegno);
    };
    for (int n = 1; n <= 90; ++n) segno(scheda::PosNumero(g, n));
    for (int riga = 0; riga < 12; ++riga) segno(scheda::PosRuota(g, riga));
    for (int i = 65; i >= 53; --i) segno(scheda::PosEstratto(g, i));
    for (int j = 52; j >= 1; --j) segno(scheda::PosSorte(g, scheda::RigaSorte(j), j));
    for (int i = 1; i <= 7; ++i) segno(scheda::PosConcorsi(g, i));

    QFont f = FacciaStampa(scheda::Intestazione);
    f.setPixelSize(std::max(1, static_cast<int>(scheda::Intestazione.punti * 25.4 / 72.0 * s + 0.5)));
    p.setFont(f);
    p.setPen(ColoreSegno);
    const Punto pos = scheda::PosIntestazione(g);
    p.drawText(QPointF(pos.x * s, pos.y * s + QFontMetricsF(f).ascent()), QString::fromStdString(intestazione));
    p.restore();
}

DisegnoScheda::DisegnoScheda(QWidget* parent) : QWidget(parent) {
    setObjectName("Image1");
    setMinimumSize(354, 516);
    setToolTip("Anteprima dei segni sulla schedina con i margini e i passi impostati");
}

void DisegnoScheda::imposta(const Geometria& g, const std::string& intestazione) {
    g_ = g;
    intestazione_ = intestazione;
    update();
}

double DisegnoScheda::scala() const {
    return std::min(width() / LarghezzaScheda, height() / AltezzaScheda);
}

QSize DisegnoScheda::sizeHint() const { return QSize(472, 688); }

void DisegnoScheda::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const double s = scala();
    DisegnaScheda(p, s);
    DisegnaSegni(p, s, g_, intestazione_);
}

}  // namespace zef::ui
