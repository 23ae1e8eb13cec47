// Where the program's data files live: the folder of the executable.
#pragma once

#include <string>

namespace zef {

// The folder of the running executable (no trailing slash).
std::string CartellaProgramma();
// Overrides the folder (the Qt program passes a per-user folder when the
// executable's folder is not writable; tests pass a temporary one).
void ImpostaCartellaDati(const std::string& cartella);
// The folder of the data files: the override if set, else the program's folder.
std::string CartellaDati();
// CartellaDati() + "/" + nome.
std::string FileDati(const std::string& nome);

}  // namespace zef
