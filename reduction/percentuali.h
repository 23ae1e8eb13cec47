// The win percentages: every combination of L forecast numbers (L = 5..2) taken as
// a draw and compared with every row of the play list, in timer slices of 100.
//
// Form8 holds the working data that the original kept in its module between timer
// events; its table lives in Sistema::form8. A row and a combination are compared
// as 90-bit masks; a row that holds a number twice (or a blank) is counted
// position by position, as the plain comparison does.
#pragma once

#include "core/colonne.h"
#include "core/interfaccia.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

class Form8 {
public:
    static constexpr const char* Titolo = "RESA DEL SISTEMA";
    static constexpr const char* Label1 = "I valori sono espressi in %";

    Form8(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    // Menu "Visualizza percentuali di vincita": true when the window is to be shown.
    bool VisualizzaPercentuali();
    // Activation: row titles, bar, Timer1.
    void attiva();
    // One event of Timer1: up to 100 combinations.
    void timer1();
    // A key pressed in the window (27 is ESC).
    void tasto(int codice);
    // Command1: hides the window, which keeps its table.
    void clickCommand1() {}
    // Any other close: unloads, and the table is no longer valid.
    void scarica();

    // Runs the events of Timer1 while it is on, serving keys between events.
    void esegui();
    // The menu, the window and the whole calculation, as a user with no key pressed sees it.
    void avviaEdEsegui();

    // Fills the combinations of the current L (ColonneTemp) from Liv[1].
    void EnumeraPercentuali();

    // StatVincite(kind 1..4, meaning 1..2) and MinimoVincite (cinquine..ambi).
    std::array<std::array<int32_t, 3>, 5> StatVincite{};
    std::array<int16_t, 4> MinimoVincite{};
    int L = 0;

private:
    struct Riga {
        Maschera m;
        bool regolare;
        uint8_t n[10];
    };
    void leggiLista();
    // Hits of every row against one combination, counted by bit-sliced sums of
    // per-number row sets; fills W (by h) and G (by h) exactly as the ordered scan.
    void valutaPerInsiemi(const uint8_t* comb, int W[6], int G[6]);
    void preparaLivello(int nuovoL);
    void fineLivello();
    void azzeraStat();

    Sistema& s_;
    Interfaccia& ui_;
    std::vector<Riga> righe_;
    // Per number 1..90, the set of rows holding it (words of 64 rows); empty when
    // some row holds a number twice or the list is too long for it.
    std::vector<uint64_t> righePerNumero_;
    size_t parole_ = 0;
    std::array<std::vector<uint64_t>, 6> conColpi_;  // rows with h = 2..5
    Colonne ColonneTemp;
};

}  // namespace zef
