// Conditions from a JSON file for the development commands (--condizioni).
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "conditions/form28.h"

#include <memory>

namespace zef::cli {

namespace {

// The dialog stays for the rest of the run, as the window does once loaded.
std::unique_ptr<Form28>& Dialogo() {
    static std::unique_ptr<Form28> f;
    return f;
}

const bool registrato = [] {
    CaricaCondizioni() = [](Sistema& s, Interfaccia& ui, const std::string& file) {
        auto& f = Dialogo();
        f = std::make_unique<Form28>(s, ui);
        f->ResettaCondizioni();
        f->attiva();
        if (!CaricaCondizioniJson(file, *f, ui)) {
            auto* scr = dynamic_cast<InterfacciaScriptata*>(&ui);
            throw InputNonValido(scr && !scr->box.empty() ? scr->box.back().testo : "File delle condizioni non valido");
        }
    };
    return true;
}();

}  // namespace

}  // namespace zef::cli
