// FormVerifica, "VERIFICA DEL SISTEMA SULLE ESTRAZIONI": the system of the play list
// checked against a run of past draws, chosen as the last N or by date, with the same
// rules and stakes as CERCA. It reads the archive and writes nothing to it.
#pragma once

#include "core/interfaccia.h"
#include "wincheck/verifica_periodo.h"

#include <string>
#include <vector>

namespace zef {

struct Sistema;

class FormVerifica {
public:
    static constexpr const char* Titolo = "VERIFICA DEL SISTEMA SULLE ESTRAZIONI";
    static constexpr const char* MessaggioNessunaEstrazione = "Nessuna estrazione nel periodo scelto.";
    static constexpr const char* MessaggioNumeroNonValido =
        "Indicare un numero di estrazioni valido (un numero intero maggiore di zero).";
    static constexpr const char* MessaggioDateNonValide = "Indicare le date del periodo come gg/mm/aaaa, la prima non dopo la seconda.";

    FormVerifica(Sistema& s, Interfaccia& ui, std::string archivio = "");

    // The period: the last N draws, or from/to (ISO dates, either may be empty).
    bool perUltime = true;
    std::string ultime = "100";
    std::string dal, al;

    std::vector<EsitoEstrazione> esiti;
    TotaliPeriodo totali;
    bool interrotta = false;
    // Three lines of totals under the table.
    std::vector<std::string> riepilogo;

    // AVVIA: checks the system over the period with the progress window and ESC. Runs
    // on the caller's thread; the boxes go through the interface.
    void clickAvvia();
    // "Esporta CSV": asks for a file and writes the table.
    void clickEsporta();

private:
    Sistema& s_;
    Interfaccia& ui_;
    std::string archivio_;
};

}  // namespace zef
