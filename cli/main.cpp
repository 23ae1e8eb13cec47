// zefiranto-cli: the core of the program without windows, for scripts and benchmarks.
#include "cli/comandi.h"
#include "core/errori.h"

#include <iostream>
#include <map>

int main(int argc, char** argv) {
    CLI::App app{"Zefiranto 2.0 - riga di comando", "zefiranto-cli"};
    app.require_subcommand(1);
    std::map<std::string, zef::cli::Esecuzione> esecuzioni;
    for (auto& voce : zef::cli::Comandi()) esecuzioni[voce.nome] = voce.costruttore(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    }
    try {
        for (auto* sub : app.get_subcommands()) {
            auto it = esecuzioni.find(sub->get_name());
            if (it != esecuzioni.end()) return it->second();
        }
    } catch (const zef::cli::InputNonValido& e) {
        std::cerr << "Errore: " << e.what() << "\n";
        return 1;
    } catch (const zef::ErroreEsecuzione& e) {
        std::cerr << "Errore " << e.numero << ": " << e.what() << "\n";
        return 1;
    } catch (const std::exception& e) {
        std::cerr << "Errore: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
