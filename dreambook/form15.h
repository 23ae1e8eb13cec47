// Form15, "SMORFIA": a subject (a name, a person, a thing) and optionally an object or
// action looked up in the dream book; up to eight numbers, which one button adds to
// the forecast on the main window.
//
// The look-up runs its steps in a fixed order and passes over any that fails (no book,
// no table for the initial, nothing found), so the only boxes are the two messages:
// the list of the subject's objects to choose from, and the subject not found.
#pragma once

#include "core/interfaccia.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

class Form15 {
public:
    static constexpr const char* Titolo = "SMORFIA";
    static constexpr const char* Label1 = "Inserire il soggetto/nome";
    static constexpr const char* Label2 = "Inserire l'oggetto/azione";
    static constexpr const char* Frame1 = "NUMERI CORRISPONDENTI";
    static constexpr const char* Command3 = "ELABORA";
    static constexpr const char* Command1 = "AGGIUNGI AL PRONSTICO";
    static constexpr const char* Label5 = "AGGIUNGI AL PRONOSTICO";  // the label over Command1
    static constexpr const char* Command2 = "OK";
    static constexpr const char* OggettoNonTrovato =
        "Oggetto od azione non trovati! selezionare un oggetto/azione da quelli in elenco.";
    static constexpr const char* SoggettoNonTrovato =
        "Nome o Soggetto non presente nell'archivio, riprovare con altro nome/soggetto.";
    static constexpr const char* TitoloEsito = "Esito";

    // `libro`: the book file (empty: smorfia.db beside the program).
    Form15(Sistema& s, Interfaccia& ui, std::string libro = "");

    // ---- controls ------------------------------------------------------------------------
    std::string Text1, Text2;
    std::vector<std::string> Combo1;  // the subject's objects, when offered
    std::string Combo1Testo;          // the entry chosen (or typed) in Combo1
    bool Combo1Visibile = false;
    std::array<std::string, 8> lblnum;
    bool visibile = false;

    // Unloads the forecast dialog (Form14) after an addition; wired by the application.
    std::function<void()> scaricaForm14;

    // ---- events ----------------------------------------------------------------------------
    // A change of Text1 (each key): Text2 emptied, Combo1 hidden.
    void cambiaText1(const std::string& testo);
    // Enter in Text1 or Text2 presses ELABORA.
    void invio() { clickCommand3(); }
    void clickCommand3();  // ELABORA
    void clickCommand1();  // AGGIUNGI AL PRONSTICO
    void clickCommand2() { visibile = false; }  // OK: hides

    // The numbers on show, in label order (for the command line).
    std::vector<int> numeri() const;

private:
    void scriviNumero(int n);
    Sistema& s_;
    Interfaccia& ui_;
    std::string libro_;
};

}  // namespace zef
