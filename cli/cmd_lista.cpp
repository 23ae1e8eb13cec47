// zefiranto-cli lista / info: what a saved system holds.
#include "cli/comandi.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"

#include <iostream>

namespace zef::cli {
namespace {

// Loads a system file as the Apri command would; a failed load is bad input.
void Carica(Sistema& s, const std::string& file) {
    InterfacciaScriptata ui;
    ui.fileApri.push_back(file);
    Apri(s, ui);
    if (!ui.box.empty()) throw InputNonValido(file + ": " + ui.box.back().testo);
}

RegistraComando lista("lista", [](CLI::App& app) -> Esecuzione {
    auto file = std::make_shared<std::string>();
    auto* sub = app.add_subcommand("lista", "stampa le righe della lista di un sistema salvato");
    sub->add_option("file", *file, "file .zfr")->required();
    return [file]() {
        Sistema s;
        Carica(s, *file);
        std::string out;
        for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) {
            out.append(s.MSFlexGrid1.riga(r));
            out += '\n';
            if (out.size() > (1 << 20)) {
                std::cout << out;
                out.clear();
            }
        }
        std::cout << out;
        return 0;
    };
});

RegistraComando info("info", [](CLI::App& app) -> Esecuzione {
    auto file = std::make_shared<std::string>();
    auto* sub = app.add_subcommand("info", "riassume un sistema salvato");
    sub->add_option("file", *file, "file .zfr")->required();
    return [file]() {
        Sistema s;
        Carica(s, *file);
        std::cout << "PRONOSTICO:";
        for (int i = 1; i <= s.NumPronostico; ++i) std::cout << ' ' << s.Pronostico[i];
        std::cout << "\nSVILUPPO: " << s.SviluppoK << "\nCONDIZIONATE: " << s.NumColonne
                  << "\nRIDOTTE: " << s.NumRidotte << "\nRIGHE: " << s.MSFlexGrid1.Rows()
                  << "\nCOSTO: " << (s.CostoColonna * s.MSFlexGrid1.Rows()).testoPunto() << "\n";
        return 0;
    };
});

}  // namespace
}  // namespace zef::cli
