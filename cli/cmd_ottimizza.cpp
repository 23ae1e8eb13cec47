// zefiranto-cli ottimizza: the optimised reduction of a saved system (the developed
// columns at a guarantee), or the optimised cover of a forecast.
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "reduction/formottimizza.h"
#include "reduction/verifica.h"

#include <iostream>

namespace zef::cli {
namespace {

struct OpzioniOttimizzaCli {
    std::string file, pronostico, sviluppo, fisse, uscita;
    int garanzia = 0;
    double secondi = 30;
    uint64_t seme = 1, passi = 0;
    bool copertura = false;
};

int Esegui(const OpzioniOttimizzaCli& o) {
    if (o.garanzia < 2 || o.garanzia > 5) throw InputNonValido("--garanzia deve essere 5, 4, 3 o 2");
    if (!(o.secondi >= 1 && o.secondi <= 3600)) throw InputNonValido("--secondi deve essere tra 1 e 3600");
    Sistema s;
    InterfacciaScriptata ui;
    FormOttimizza f(s, ui);
    if (o.copertura) {
        if (!o.file.empty()) throw InputNonValido("con --copertura si indica --pronostico, non un file");
        if (o.pronostico.empty() || o.sviluppo.empty()) throw InputNonValido("--copertura vuole --pronostico e --k");
        ImpostaPronostico(s, o.pronostico);
        f.k = DimensioneSviluppo(o.sviluppo);
        if (!o.fisse.empty()) {
            auto fisse = ListaNumeri(o.fisse, "--fisse");
            s.NumeriFissi.assign(fisse.size() + 1, 0);
            s.NumeriFissiBase = 1;
            for (size_t i = 0; i < fisse.size(); ++i) {
                if (fisse[i] < 1 || fisse[i] > 90 || !s.pad[static_cast<size_t>(fisse[i] - 1)])
                    throw InputNonValido("Numero fisso fuori dal pronostico: " + std::to_string(fisse[i]));
                s.NumeriFissi[i] = static_cast<int16_t>(fisse[i]);
            }
            s.NumFissi = static_cast<int16_t>(fisse.size());
        }
        f.compito = 2;
        ui.rispostaPredefinita = Risposta::No;  // no integral plays
    } else {
        if (o.file.empty()) throw InputNonValido("Indicare il sistema .zfr, oppure --copertura con --pronostico");
        LeggiSistema(s, ui, o.file);
        ui.box.clear();
        f.compito = 1;
    }
    f.garanzia = o.garanzia;
    f.secondi = std::to_string(static_cast<int>(o.secondi));
    f.seme = std::to_string(o.seme);
    f.passi = o.passi;
    if (!f.clickAvvia()) throw InputNonValido(ui.box.empty() ? "ottimizzazione non eseguita" : ui.ultimoBox().testo);
    std::cout << "INIZIALE: " << f.iniziale << "\n";
    if (o.copertura) std::cout << "LIMITE: " << f.limite << "\n";
    std::cout << "OTTIMIZZATE: " << f.ottimizzate << "\n";
    // The guarantee checked as the menu item checks it, on the list as VISUALIZZA shows it.
    bool tiene;
    if (o.copertura && s.NumFissi > 0) {
        std::vector<uint8_t> numeri, fisse;
        for (int i = 1; i <= s.NumPronostico; ++i) numeri.push_back(static_cast<uint8_t>(s.Pronostico[static_cast<size_t>(i)]));
        for (int i = 0; i < s.NumFissi; ++i) fisse.push_back(static_cast<uint8_t>(s.NumeriFissi[static_cast<size_t>(i)]));
        std::vector<Riga> righe;
        for (int64_t r = 1; r <= s.MSFlexGrid1.Rows(); ++r) {
            const uint8_t* p = s.RigheRidotte.colonna(r);
            righe.emplace_back(p, p + f.k);
        }
        tiene = CoperturaCompleta(numeri, f.k, o.garanzia, fisse, s.DistanzaMin, righe);
    } else {
        if (!o.copertura) Visualizza(s, ui);
        tiene = VerificaGaranzia(s, o.garanzia).scoperte == 0;
    }
    if (!o.uscita.empty()) ScriviSistema(s, o.uscita);
    if (!tiene) {
        std::cerr << "La lista ottimizzata non mantiene la garanzia\n";
        return 4;
    }
    return 0;
}

}  // namespace

RegistraComando ottimizza("ottimizza", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<OpzioniOttimizzaCli>();
    auto* sub = app.add_subcommand("ottimizza", "riduzione ottimizzata: la stessa garanzia con meno colonne");
    sub->add_option("file", o->file, "sistema .zfr con le colonne sviluppate")->check(CLI::ExistingFile);
    sub->add_option("-g,--garanzia", o->garanzia, "garanzia: 5, 4, 3 o 2")->required();
    sub->add_option("--secondi", o->secondi, "tempo della ricerca in secondi (predefinito 30)");
    sub->add_option("--seme", o->seme, "seme della ricerca casuale (predefinito 1)");
    sub->add_option("--passi", o->passi, "numero fisso di mosse per nucleo: risultato riproducibile");
    sub->add_flag("--copertura", o->copertura, "copre il pronostico (sviluppo ridotto) invece di ridurre il file");
    sub->add_option("-p,--pronostico", o->pronostico, "con --copertura: numeri del pronostico");
    sub->add_option("-k,--k,--sviluppo", o->sviluppo, "con --copertura: numeri per colonna");
    sub->add_option("-f,--fisse", o->fisse, "con --copertura: numeri fissi");
    sub->add_option("-o,--output", o->uscita, "salva il sistema ottimizzato in un file .zfr");
    return [o]() { return Esegui(*o); };
});

}  // namespace zef::cli
