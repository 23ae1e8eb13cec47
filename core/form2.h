// The play dialog "Selezione tipo di giocata/puntata" and the window of possible
// wins "VINCITE POSSIBILI".
//
// The dialog's controls live in Sistema::form2, since they are part of the sistema
// (they are saved with it and read by the slips and the win check).
#pragma once

#include "core/basic.h"
#include "core/interfaccia.h"

#include <array>
#include <functional>
#include <string>

namespace zef {

struct Sistema;

// Stake boxes: the first chkAmbo index of each kind, by kind 0 (Estratto) .. 4 (Cinquina).
constexpr std::array<int, 5> BaseChkAmbo = {52, 0, 13, 26, 39};
// Payout of one euro by k (2..10) and kind (0 Estratto .. 4 Cinquina); 0 where none.
double FattoreVincita(int k, int sorte);

class Form2 {
public:
    static constexpr const char* Titolo = "Selezione tipo di giocata/puntata";
    static constexpr const char* lblCostoLabel = "Costo singola giocata ";

    Form2(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    std::function<void()> mostraForm23;  // "Vincite possibili", modal

    void carica();
    void scarica();
    // Each time the dialog comes to the front.
    void attiva();
    // A click on a kind box (0..4) or on a stake box (0..64): the new state, then the total.
    void clickCheck(int sorte, bool spuntata);
    void clickChkAmbo(int indice, bool spuntata);
    void clickOption1(int ruota);
    // The total of one play; the five sum labels follow.
    Currency CalcolaCosto();

    void clickCommand1();  // accept
    void clickCommand2();  // "Vincite possibili"

private:
    Sistema& s_;
    Interfaccia& ui_;
};

class Form23 {
public:
    static constexpr const char* Titolo = "VINCITE POSSIBILI";
    static constexpr const char* Label10 = "Valori espressi in € ed esenti da tasse";

    explicit Form23(const Sistema& s) : s_(s) {}

    // By kind, in the order of the rows: Cinquina, Quaterna, Terno, Ambo, Estratto.
    std::array<std::string, 5> maschera;   // the MaskEdBox of the kind
    std::array<std::string, 5> etichetta;  // the row label: "-" or the net win
    void carica();

private:
    const Sistema& s_;
};

}  // namespace zef
