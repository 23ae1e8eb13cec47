// zefiranto-cli lista / info: what a saved system holds.
#include "cli/comandi.h"
#include "core/giocate.h"
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

// Lines go out in blocks of a megabyte: 20,000,000 of them take a few seconds.
class Uscita {
public:
    void riga(std::string_view t) {
        buf_.append(t);
        buf_ += '\n';
        if (buf_.size() > (1 << 20)) svuota();
    }
    void svuota() {
        std::cout << buf_;
        buf_.clear();
    }

private:
    std::string buf_;
};

void StampaColonne(const Colonne& c, int64_t quante, int k) {
    Uscita u;
    if (k <= 0) return;
    std::string riga(static_cast<size_t>(k) * LarghezzaNumero, ' ');
    for (int64_t col = 1; col <= quante; ++col) {
        ScriviRiga(c.colonna(col), k, riga.data());
        u.riga(riga);
    }
    u.svuota();
}

struct OpzioniLista {
    std::string file;
    bool colonne = false;
    bool ridotte = false;
};

RegistraComando lista("lista", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<OpzioniLista>();
    auto* sub = app.add_subcommand("lista", "stampa le righe della lista di un sistema salvato");
    sub->add_option("file", o->file, "file .zfr")->required();
    auto* c = sub->add_flag("--colonne", o->colonne, "stampa invece le colonne condizionate in memoria");
    sub->add_flag("--ridotte", o->ridotte, "stampa invece le colonne ridotte")->excludes(c);
    return [o]() {
        Sistema s;
        Carica(s, o->file);
        if (o->colonne) {
            StampaColonne(s.colonne, s.NumColonne, s.colonne.k());
        } else if (o->ridotte) {
            StampaColonne(s.ColonneRidotte, s.NumRidotte, s.ColonneRidotte.k());
        } else {
            Uscita u;
            for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) u.riga(s.MSFlexGrid1.riga(r));
            u.svuota();
        }
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
