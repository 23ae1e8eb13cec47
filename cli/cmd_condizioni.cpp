// Conditions from a JSON file for the development commands (--condizioni).
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "conditions/form28.h"

#include <memory>

namespace zef::cli {

namespace {

[[maybe_unused]] const bool registrato = [] {
    CaricaCondizioni() = [](Sistema& s, Interfaccia& ui, const std::string& file) {
        // The dialog goes once the set is accepted; the installed filter keeps the set.
        auto f = std::make_unique<Form28>(s, ui);
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
