// The system file reader: any bytes read as a system or refused with a message,
// never a crash; what was read is written and read back the same.
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "fuzz/file_fuzz.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    const std::string file = zef::fuzz::Scrivi(dati, n, ".zfr");
    zef::Sistema s;
    zef::InterfacciaScriptata ui;
    try {
        zef::LeggiSistema(s, ui, file);
    } catch (const std::exception&) {
        return 0;
    }
    if (!ui.box.empty()) return 0;
    // A file that reads must also write and read back.
    const std::string copia = zef::fuzz::FileDiLavoro("_copia.zfr");
    zef::ScriviSistema(s, copia);
    zef::Sistema t;
    zef::InterfacciaScriptata ui2;
    zef::LeggiSistema(t, ui2, copia);
    if (!ui2.box.empty() || t.NumColonne != s.NumColonne || t.MSFlexGrid1.Rows() != s.MSFlexGrid1.Rows()) std::abort();
    return 0;
}
