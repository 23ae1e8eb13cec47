// zefiranto-cli sviluppa: develops a forecast and prints the count (and the columns).
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "files/filesistema.h"

#include <iostream>

namespace zef::cli {
namespace {

struct Opzioni {
    OpzioniSviluppo sviluppo;
    bool colonne = false;
    bool visualizza = false;
    std::string uscita;
};

RegistraComando registra("sviluppa", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("sviluppa", "sviluppa il pronostico in colonne");
    AggiungiOpzioniSviluppo(sub, o->sviluppo);
    sub->add_flag("--colonne", o->colonne, "stampa le colonne");
    sub->add_flag("--visualizza", o->visualizza, "costruisce la lista delle giocate (VISUALIZZA)");
    sub->add_option("-o,--output", o->uscita, "salva il sistema in un file .zfr");

    return [o]() {
        Sistema s;
        InterfacciaScriptata ui;
        Sviluppa(s, ui, o->sviluppo);
        bool pieno = false;
        for (auto& b : ui.box) {
            if (b.testo == Form20::MessaggioNonSviluppabile) throw InputNonValido(b.testo);
            // A run-time error ended the development: nothing worth saving came of it.
            if (b.testo.rfind("Errore di run-time", 0) == 0) throw InputNonValido(b.testo);
        }
        for (auto& b : ui.box) {
            std::cerr << (b.titolo.empty() ? "" : b.titolo + ": ") << b.testo << "\n";
            pieno = pieno || b.titolo == "MEMORIA ESAURITA";
        }
        std::cout << s.pannelli[0] << "\n";
        std::cout << "ESAMINATE: " << s.ColonneEsaminate << "\n";
        if (pieno) std::cout << "MEMORIA ESAURITA\n";
        if (o->visualizza && s.NumColonne > 0) Visualizza(s, ui);
        if (!o->uscita.empty()) ScriviSistema(s, o->uscita);

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
