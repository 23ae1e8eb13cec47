// zefiranto-cli aggiornamento: the check for a newer program, without the question.
#include "cli/comandi.h"
#include "core/interfaccia_scriptata.h"
#include "core/percorsi.h"
#include "upkeep/aggiornamento_programma.h"

#include <iostream>

namespace zef::cli {

RegistraComando aggiornamento("aggiornamento", [](CLI::App& app) -> Esecuzione {
    auto cartella = std::make_shared<std::string>();
    auto* sub = app.add_subcommand("aggiornamento", "controlla se c'è una versione nuova del programma (update.txt)");
    sub->add_option("--cartella", *cartella, "cartella del programma (predefinita: quella dell'eseguibile)");
    return [cartella]() {
        InterfacciaScriptata ui;
        ScaricatoreCurl curl;
        const EsitoControllo e =
            ControllaAggiornamento(cartella->empty() ? CartellaProgramma() : *cartella, curl, ui, "Zefiranto 2.0", {}, false);
        std::cout << "VERSIONE LOCALE: " << VersioneCorrente() << "\n"
                  << "VERSIONE DISPONIBILE: " << e.versioneDisponibile << "\n"
                  << "NUOVA VERSIONE: " << (e.nuova ? "si" : "no") << "\n";
        return 0;
    };
});

}  // namespace zef::cli
