// zefiranto-cli smorfia: the dream book's look-up, as ELABORA of the window.
#include "cli/comandi.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "dreambook/form15.h"

#include <iostream>

namespace zef::cli {

RegistraComando smorfia("smorfia", [](CLI::App& app) -> Esecuzione {
    struct Opzioni {
        std::string soggetto, oggetto, libro;
    };
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("smorfia", "cerca nel libro dei sogni i numeri di un soggetto");
    sub->add_option("-s,--soggetto", o->soggetto, "nome, personaggio o soggetto")->required();
    sub->add_option("--oggetto", o->oggetto, "oggetto o azione");
    sub->add_option("--libro", o->libro, "smorfia.db da usare (predefinito: quello del programma)");
    return [o]() {
        Sistema s;
        InterfacciaScriptata ui;
        Form15 f(s, ui, o->libro);
        f.cambiaText1(o->soggetto);
        f.Text2 = o->oggetto;
        f.clickCommand3();
        if (f.Combo1Visibile) {
            std::string out = "OGGETTI:\n";
            for (const auto& x : f.Combo1) out += x + "\n";
            std::cout << out;
            return 0;
        }
        const auto numeri = f.numeri();
        if (numeri.empty()) {
            std::cerr << Form15::SoggettoNonTrovato << "\n";
            return 1;
        }
        std::string out = "NUMERI:";
        for (int n : numeri) out += " " + std::to_string(n);
        std::cout << out << "\n";
        return 0;
    };
});

}  // namespace zef::cli
