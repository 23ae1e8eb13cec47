// Where the marks of a play slip go, in millimetres from the corner the printer
// starts at.
//
// The slip has a grid of the numbers 1..90 in nine rows of ten, a column of twelve
// wheels, five rows of thirteen stakes (Estratto, then Ambo to Cinquina, the biggest
// amount at the left) and seven boxes for the number of draws. Four values adjust
// it to the printer: the upper and left margins and the vertical and horizontal
// pitch of the boxes. The printed slips and the preview of the settings window use
// the same formulas.
#pragma once

#include "printing/stampante.h"

namespace zef {

struct Geometria {
    double superiore = 5;    // T
    double sinistro = 5;     // L
    double verticale = 7;    // V
    double orizzontale = 7;  // H
};

struct Punto {
    double x = 0, y = 0;
};

namespace scheda {

inline const Carattere Intestazione{"Courier New", 7, true};
inline const Carattere SegniSchedina{caratteri::Wingdings, 9, true};
// The face set when the print starts, before the first slip.
inline const Carattere SegniIniziali{caratteri::Wingdings, 10, true};

// Number of draws by the index of its option (1..7).
inline constexpr const char* Concorsi[8] = {"", "2", "3", "4", "5", "6", "9", "10"};

inline Punto PosIntestazione(const Geometria& g) { return {g.sinistro + 5, g.superiore + 10}; }

// The slip lists "Tutte le ruote" above Nazionale: the play dialog's wheels 10 and
// 11 change places on it.
inline int RigaRuota(int ruota) {
    if (ruota == 10) return 11;
    if (ruota == 11) return 10;
    return ruota;
}
inline Punto PosRuota(const Geometria& g, int riga) {
    return {g.sinistro - 5 + g.orizzontale * 12.84, g.superiore + 20 + riga * (g.verticale - 1.9)};
}

// Estratto stake box i = 65..53 (stake box index i - 1): 65 is the biggest amount.
inline Punto PosEstratto(const Geometria& g, int i) {
    return {g.sinistro + 16 + (65 - i) * (g.orizzontale - 1.3), g.superiore + 98.5};
}
// Stake box j = 52..1 (index j - 1) in the row q of its kind (1 Ambo .. 4 Cinquina).
inline Punto PosSorte(const Geometria& g, int q, int j) {
    return {g.sinistro + 16 + (13 * q - j) * (g.orizzontale - 1.3), g.superiore + 98.5 + q * (g.verticale - 0.3)};
}
// Row of the kinds' stakes that box j = 52..1 lies in: 4 Cinquina .. 1 Ambo.
inline int RigaSorte(int j) { return (j + 12) / 13; }

// The tens row of a number: 0 up to 10, 1 up to 20 ... 8 above 80.
inline int Decina(int n) {
    if (n <= 10) return 0;
    if (n > 80) return 8;
    return (n - 1) / 10;
}
inline Punto PosNumero(const Geometria& g, int n) {
    const int d = Decina(n);
    return {g.sinistro - 5 + g.orizzontale * (n - 10 * d), g.superiore + 20 + g.verticale * d};
}

// Draws box i = 1..7.
inline Punto PosConcorsi(const Geometria& g, int i) {
    return {g.sinistro + 37.4 + i * (g.orizzontale - 0.2), g.superiore + 156.7};
}

}  // namespace scheda
}  // namespace zef
