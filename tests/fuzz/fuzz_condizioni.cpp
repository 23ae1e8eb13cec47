// The condition file: any bytes are applied through the dialog or refused whole.
#include "conditions/form28.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "fuzz/file_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static const std::string file = zef::fuzz::FileDiLavoro(".json");
    zef::fuzz::Scrivi(dati, n, ".json");
    zef::Sistema s;
    zef::InterfacciaScriptata ui;
    for (int x : {3, 8, 15, 22, 40, 41, 77}) s.pad[static_cast<size_t>(x - 1)] = true;
    s.Label2 = "7";
    s.PronosticoDalPad();
    s.SviluppoK = 5;
    zef::Form28 f(s, ui);
    s.ResettaCondizioni();
    f.attiva();
    try {
        zef::CaricaCondizioniJson(file, f, ui);
    } catch (const zef::ErroreEsecuzione&) {
    }
    return 0;
}
