// The shared progress window: its controls and its key handler.
//
// The development, the reductions and the cover show it. A long pass drains the
// keys pressed in it at its yield points and hands them to Form4Tasto, which asks
// about ESC and may unload the window; the pass sees that and stops.
#pragma once

#include "core/interfaccia.h"

#include <string>

namespace zef {

struct Sistema;

struct Form4Controlli {
    bool caricato = false;
    bool visibile = false;
    std::string Label1 = "Sviluppo in corso...";
    std::string Label2 = "Combinazioni ok:";
    std::string Label3 = "Combinazioni esaminate:";
    std::string Label4 = "ESC per interrompere";
    std::string Text1;
    std::string Text2;
    double minimo = 0;
    double massimo = 0;
    double valore = 0;

    // Back to the state of a freshly loaded window.
    void scarica() { *this = Form4Controlli{}; }
    StatoAvanzamento stato() const;
};

// Loads the window (not shown yet).
void CaricaForm4(Sistema& s);
// Shows it (non-modal in the original; the interface decides how it blocks).
void MostraForm4(Sistema& s, Interfaccia& ui);
// Pushes the current counts to the window.
void AggiornaForm4(Sistema& s, Interfaccia& ui);
// Unloads it.
void ScaricaForm4(Sistema& s, Interfaccia& ui);
// A key pressed in the window (27 is ESC).
void Form4Tasto(Sistema& s, Interfaccia& ui, int tasto);
// Serves every key pressed since the last yield; false when the window is gone.
bool CediForm4(Sistema& s, Interfaccia& ui);

}  // namespace zef
