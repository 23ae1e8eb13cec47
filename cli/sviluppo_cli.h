// The options that describe a development on the command line, shared by every
// subcommand that starts from one (sviluppa, riduci, percentuali...).
#pragma once

#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

namespace zef::cli {

struct OpzioniSviluppo {
    std::string pronostico;  // "1,5,9" or "1-40"
    std::string sviluppo;    // k as a number or a size name ("CINQUINE")
    std::string fisse;
    std::string distanza = "0";
    std::string condizioni;  // JSON file of conditions
    std::string archivio;    // archivio.db for the archive-based conditions ("" the program's own)
    std::string ruota = "11";  // wheel of the play dialog, 0..11 (11 "Tutte")
    int thread = 0;          // worker threads (0: all cores)
};

void AggiungiOpzioniSviluppo(CLI::App* app, OpzioniSviluppo& o, bool sviluppoObbligatorio = true);

// The forecast as the pad would take it; throws InputNonValido.
void ImpostaPronostico(Sistema& s, const std::string& testo);
// The size as a number or a name; throws InputNonValido.
int DimensioneSviluppo(const std::string& testo);

// The wheel index of --ruota, 0..11; throws InputNonValido.
int IndiceRuota(const std::string& testo);

// Installs the conditions of o.condizioni before a development, reading the archive
// of o.archivio when they need it (wired by the conditions subsystem; null while none
// is there).
using CaricatoreCondizioni = std::function<void(Sistema&, Interfaccia&, const OpzioniSviluppo& o)>;
CaricatoreCondizioni& CaricaCondizioni();

// Sets the forecast and develops it as the development dialog would. Returns the
// boxes shown (MEMORIA ESAURITA...) in `ui`.
void Sviluppa(Sistema& s, InterfacciaScriptata& ui, const OpzioniSviluppo& o);

}  // namespace zef::cli
