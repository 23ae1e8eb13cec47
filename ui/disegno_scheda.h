// The picture of a play slip in the slip settings window, and the marks on it.
//
// The program draws its own slip from the slip's geometry at the default settings:
// a box wherever a mark lands with them. On top, the marks of every box at the
// settings being typed, so the user sees at once where the printer will put them.
#pragma once

#include "printing/scheda.h"

#include <QWidget>

#include <string>

class QPainter;

namespace zef::ui {

// Size of the slip, millimetres.
inline constexpr double LarghezzaScheda = 118;
inline constexpr double AltezzaScheda = 172;

// The slip at `pxPerMm` pixels a millimetre, its corner at the painter's origin.
void DisegnaScheda(QPainter& p, double pxPerMm);
// The marks of every box, and the header `intestazione`, for the geometry `g`.
void DisegnaSegni(QPainter& p, double pxPerMm, const Geometria& g, const std::string& intestazione);
// Where the middle of a mark printed at `pos` lands, millimetres.
Punto CentroSegno(Punto pos);

class DisegnoScheda : public QWidget {
    Q_OBJECT
public:
    explicit DisegnoScheda(QWidget* parent = nullptr);
    void imposta(const Geometria& g, const std::string& intestazione);
    const Geometria& geometria() const { return g_; }
    // Pixels a millimetre at the widget's size.
    double scala() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    Geometria g_;
    std::string intestazione_;
};

}  // namespace zef::ui
