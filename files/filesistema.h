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

// Writes the sistema to `percorso`. Raises ErroreEsecuzione when the file cannot be written.
void ScriviSistema(const Sistema& s, const std::string& percorso);
// Reads a file into the sistema (the steps of a load between the dialog and the
// closing steps). Raises ErroreEsecuzione at the first value it cannot read; the
// values read before it stay.
void LeggiSistema(Sistema& s, Interfaccia& ui, const std::string& percorso);

// The menu commands, with their dialogs, titles, flags and error boxes.
void SalvaConNome(Sistema& s, Interfaccia& ui);
void Salva(Sistema& s, Interfaccia& ui);
void Apri(Sistema& s, Interfaccia& ui);

// The save prompt: "Vuoi salvare il sistema ?", and on Yes SalvaConNome.
void ChiediSalvataggio(Sistema& s, Interfaccia& ui);

}  // namespace zef
