// zefiranto-cli sviluppa: develops a forecast and prints the count (and the columns).
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "core/giocate.h"

#include <iostream>

namespace zef::cli {
namespace {

struct Opzioni {
    OpzioniSviluppo sviluppo;
    bool colonne = false;
};

RegistraComando registra("sviluppa", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("sviluppa", "sviluppa il pronostico in colonne");
    AggiungiOpzioniSviluppo(sub, o->sviluppo);
    sub->add_flag("--colonne", o->colonne, "stampa le colonne");
    return [o]() {
        Sistema s;
        InterfacciaScriptata ui;
        Sviluppa(s, ui, o->sviluppo);
        for (auto& b : ui.box) std::cerr << (b.titolo.empty() ? "" : b.titolo + ": ") << b.testo << "\n";
        std::cout << s.pannelli[0] << "\n";
        std::cout << "ESAMINATE: " << s.ColonneEsaminate << "\n";
        if (o->colonne) {
            std::string riga;
            for (int64_t c = 1; c <= s.NumColonne; ++c) {
                riga = TestoRiga(s.colonne.colonna(c), s.SviluppoK);
                std::cout << riga << "\n";
            }
        }
        return 0;
    };
});

}  // namespace
}  // namespace zef::cli
