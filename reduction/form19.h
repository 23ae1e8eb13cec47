// The dialog "RIDUZIONI PARTICOLARI": the set-up of a reduced development.
#pragma once

#include "core/interfaccia.h"

#include <string>

namespace zef {

struct Sistema;

class Form19 {
public:
    static constexpr const char* Caption = "RIDUZIONI PARTICOLARI";
    static constexpr const char* Label1 = "Sviluppa in";
    static constexpr const char* Label2 = "Riduzione a garanzia";
    static constexpr const char* VociCombo1[8] = {"TERZINE", "QUARTINE", "CINQUINE", "SESTINE",
                                                  "SETTINE", "OTTINE",   "NOVINE",   "DECINE"};
    static constexpr const char* VociCombo2[4] = {"Ambo", "Terno", "Quaterna", "Cinquina"};

    Form19(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    // List indices, -1 with nothing selected (as both lists open).
    int Combo1 = -1;
    int Combo2 = -1;

    // A click on an item (the index chosen), with the rules that follow; a change
    // made by a rule fires the other list's rule as a click would.
    void clickCombo1(int indice);
    void clickCombo2(int indice);

    // Avvia: the set-up, the targets, the first row and Timer4 started. The ticks
    // are then run by the caller (EseguiTimer4). False when a list is empty.
    bool clickCommand1();
    // Avvia and the ticks to the end: what a user sees with the window up.
    bool avviaEdEsegui();

private:
    void impostaCombo1(int indice);
    void impostaCombo2(int indice);
    Sistema& s_;
    Interfaccia& ui_;
};

// Menu "Sviluppo ridotto": true when the dialog is to be shown.
bool MenuSviluppoRidotto(Sistema& s, Interfaccia& ui);

}  // namespace zef
