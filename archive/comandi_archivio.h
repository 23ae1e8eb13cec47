// The archive's commands as the main window runs them: opening the archive at
// start-up, the historical import of the Statistiche menu, the web update.
#pragma once

#include "archive/archivio.h"
#include "core/interfaccia.h"

#include <memory>
#include <string>

namespace zef {

// Start-up: opens archivio.db in the data folder, making and filling it from the
// shipped draws when missing. On failure shows "Si è verificato l'errore seguente: "
// + the error's text and returns null: DbArchivio stays empty and start-up ends there.
std::unique_ptr<ArchivioEstrazioni> ApriDbArchivio(Interfaccia& ui, const std::string& percorso = "");

// "Importa archivio storico...": asks for a .txt or .zip, imports it, tells how many
// draws were added, or the line that stopped it.
void ImportaArchivioStorico(ArchivioEstrazioni& a, Interfaccia& ui);

// "Aggiorna Estrazioni" with the web, the settings file and the data folder.
void AggiornaEstrazioniDalWeb(ArchivioEstrazioni& a, Interfaccia& ui);

namespace messaggi_archivio {
inline constexpr const char* ErroreSeguente = "Si è verificato l'errore seguente: ";
inline constexpr const char* FiltroStorico = "Archivio storico (*.txt;*.zip)|*.txt;*.zip|Tutti i file (*.*)|*.*";
inline constexpr const char* TitoloImporta = "Importa archivio storico";
}  // namespace messaggi_archivio

}  // namespace zef
