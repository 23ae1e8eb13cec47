// The development dialog "SCELTA SVILUPPO" and the fixed-numbers dialog.
#pragma once

#include "core/interfaccia.h"
#include "core/sviluppo.h"

#include <functional>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

class Form20 {
public:
    static constexpr const char* Titolo = "SCELTA SVILUPPO";
    static constexpr const char* MessaggioNonSviluppabile =
        "Non è possibile sviluppare questo sistema, controllare che i numeri in pronostico siano corretti.";

    Form20(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    // Controls.
    int Combo1 = 1;              // list index of the size: k = index + 2; "TERZINE" on load
    std::string Text1 = "0";     // "DISTANZA MIN UNITA'"
    bool caricato = false;
    bool visibile = false;

    // Windows that the buttons open (wired by the application).
    std::function<void()> mostraForm12;  // "Impostazioni fisse"
    std::function<void()> mostraForm28;  // "Imposta le condizioni", modal
    ParametriSviluppo parametri;

    void carica();
    void scarica();
    int k() const { return Combo1 + 2; }

    void clickCommand1();  // AVVIA
    void clickCommand2() { visibile = false; }  // ANNULLA
    void clickCommand3();
    void clickCommand4();

private:
    bool dimensioneValida();
    Sistema& s_;
    Interfaccia& ui_;
};

class Form12 {
public:
    static constexpr const char* Titolo = "Impostazione delle fisse";

    Form12(Sistema& s, Form20& f20) : s_(s), f20_(f20) {}

    std::vector<std::string> List1;  // the forecast, as text
    std::vector<bool> selezionata;   // multiple selection
    bool caricato = false;
    bool visibile = false;

    void carica();
    // Unloading forgets the fixed numbers.
    void scarica();
    // The user ticks or unticks row i, then the click handler runs.
    void clickList1(int riga, bool selezionare);
    void clickCommand1();  // Accetta
    void clickCommand2();  // Resetta

private:
    void ricostruisci();
    Sistema& s_;
    Form20& f20_;
};

}  // namespace zef
