// Commands on the play list: building it from the stored columns, deleting and
// adding rows by hand, and the price that follows its row count.
#pragma once

#include "core/interfaccia.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zef {

struct Sistema;

// Width of a number in a row: the blank-led form padded to three characters.
constexpr int LarghezzaNumero = 3;

// Writes the k numbers as a row (" 7  42 ...", 3k characters) into `dest`.
void ScriviRiga(const uint8_t* numeri, int k, char* dest);
std::string TestoRiga(const uint8_t* numeri, int k);
// Number p (1-based) of a row, read back by position; 0 when blank or out of the row.
int NumeroInRiga(std::string_view riga, int p);

// Sets ListaCol; a change of its text reprices the system.
void ImpostaListaCol(Sistema& s, const std::string& testo);
// Panel 3 from CostoColonna and the row count (product in double precision).
void Riprezza(Sistema& s);

// VISUALIZZA (Command7, menu VediColonne).
void Visualizza(Sistema& s, Interfaccia& ui);
// Elimina (Command5): the rows between Row and RowSel.
void EliminaSelezionate(Sistema& s);
// Popup Elimina: the current row only.
void EliminaRigaCorrente(Sistema& s);

// The dialog "COLONNA DA AGGIUNGERE".
class Form17 {
public:
    static constexpr const char* Maschera = "## ## ## ## ## ## ## ## ## ##";
    static constexpr const char* Titolo = "COLONNA DA AGGIUNGERE";

    explicit Form17(Sistema& s) : s_(s) {}

    // The text of MaskEdBox1 as the box reports it, literals and blanks included.
    std::string MaskEdBox1;
    // Types characters into the mask from its start: digits, blanks and signs fill
    // the placeholders in order, anything else is refused as the box does.
    void digita(std::string_view caratteri);
    // Command1: appends the typed column. The dialog unloads afterwards.
    void clickCommand1();
    bool scaricato() const { return scaricato_; }

private:
    Sistema& s_;
    bool scaricato_ = false;
};

}  // namespace zef
