// The system file (.zfr): the pad, the stored columns, the list as it stands,
// the play settings and the cost, one value a line in the list-output forms of
// the classic run time, in Windows-1252 with CRLF, with no header and no version.
//
// The reader trusts the order of the values: a file that ends early or holds a
// value of another form stops the load where it stands, and what was read stays.
#pragma once

#include "core/interfaccia.h"

#include <string>

namespace zef {

struct Sistema;

constexpr const char* FiltroFileSistema = "Zefiranto files|*.zfr";

// Writes the sistema to `percorso` (the forms and the streaming are in
// files/formato_lista.h). Raises ErroreEsecuzione when the file cannot be written;
// the file that was there stays as it was then.
void ScriviSistema(const Sistema& s, const std::string& percorso);
// Reads a file into the sistema (the steps of a load between the dialog and the
// closing steps). Raises ErroreEsecuzione at the first value it cannot read; the
// values read before it stay.
void LeggiSistema(Sistema& s, Interfaccia& ui, const std::string& percorso);

// The menu and toolbar commands of the main window, each under its own error
// trap: a cancelled dialog passes in silence, any other error shows one box
// "Si è verificato l'errore seguente: " and the error's text. None of them raises.
//
// SalvaConNome: the save dialog (the view asks before overwriting), then the file;
//   the name chosen becomes FileName, the title "Zefiranto 2.0 -  SISTEMA: " and
//   the name, SistemaSalvato and SalvaAbilitato True, PercentualiValide False.
// Salva: the same on FileName without a dialog; with no name it does nothing.
// Apri: the save prompt when SistemaSalvato is False, the open dialog, the load
//   with the main bar, the list's count and price, the reduction dialog's option,
//   title and flags; the name chosen stays FileName even when the load fails.
void SalvaConNome(Sistema& s, Interfaccia& ui);
void Salva(Sistema& s, Interfaccia& ui);
void Apri(Sistema& s, Interfaccia& ui);

// The save prompt of Apri, New and Exit: "Vuoi salvare il sistema ?" (title
// "ATTENZIONE", exclamation, Yes/No), and on Yes SalvaConNome. There is no Cancel.
void ChiediSalvataggio(Sistema& s, Interfaccia& ui);

}  // namespace zef
