// zefiranto-cli riduci, copertura, percentuali: the reductions and the yield of a list.
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "reduction/form19.h"
#include "reduction/form5.h"
#include "reduction/percentuali.h"
#include "reduction/verifica.h"

#include <iostream>

namespace zef::cli {
namespace {

bool SiNo(const std::string& v, const std::string& opzione) {
    if (v == "si" || v == "sì" || v == "SI") return true;
    if (v == "no" || v == "NO") return false;
    throw InputNonValido("Valore non valido per " + opzione + ": \"" + v + "\" (si o no)");
}

// The system to work on: a file, or a forecast developed here.
struct Sorgente {
    std::string file;
    std::string pronostico;
    std::string sviluppo;
    std::string distanza = "0";
    std::string fisse;

    void aggiungi(CLI::App* sub) {
        sub->add_option("file", file, "sistema .zfr di partenza")->check(CLI::ExistingFile);
        sub->add_option("-p,--pronostico", pronostico, "in alternativa al file: numeri del pronostico");
        sub->add_option("-k,--k,--sviluppo", sviluppo, "con --pronostico: numeri per colonna");
        sub->add_option("-d,--distanza", distanza, "con --pronostico: distanza minima");
        sub->add_option("-f,--fisse", fisse, "con --pronostico: numeri fissi");
    }
    void carica(Sistema& s, InterfacciaScriptata& ui) const {
        if (!file.empty()) {
            if (!pronostico.empty()) throw InputNonValido("Indicare il file oppure --pronostico, non entrambi");
            LeggiSistema(s, ui, file);
            return;
        }
        if (pronostico.empty() || sviluppo.empty())
            throw InputNonValido("Indicare un file .zfr oppure --pronostico e --k");
        OpzioniSviluppo o;
        o.pronostico = pronostico;
        o.sviluppo = sviluppo;
        o.distanza = distanza;
        o.fisse = fisse;
        Sviluppa(s, ui, o);
        ui.box.clear();
    }
};

void StampaLista(const Sistema& s) {
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) std::cout << s.MSFlexGrid1.riga(r) << "\n";
}

RegistraComando riduci("riduci", [](CLI::App& app) -> Esecuzione {
    struct Opzioni {
        Sorgente sorgente;
        int garanzia = 0;
        bool non100 = false, accurato = false, colonne = false;
        std::string uscita;
    };
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("riduci", "riduce le colonne sviluppate (AVVIA di IMPOSTAZIONE RIDUZIONE)");
    o->sorgente.aggiungi(sub);
    sub->add_option("-g,--garanzia", o->garanzia, "garanzia: 5, 4, 3 o 2")->required();
    sub->add_flag("--non-100", o->non100, "\"100%\" non spuntato");
    sub->add_flag("--accurato", o->accurato, "\"ACCURATO\" spuntato");
    sub->add_flag("--colonne", o->colonne, "stampa le colonne ridotte");
    sub->add_option("-o,--output", o->uscita, "salva il sistema ridotto in un file .zfr");
    return [o]() {
        if (o->garanzia < 2 || o->garanzia > 5) throw InputNonValido("--garanzia deve essere 5, 4, 3 o 2");
        // States the dialog can never show.
        if (o->accurato && o->non100) throw InputNonValido("--accurato implica \"100%\": non si usa con --non-100");
        if (o->garanzia == 2 && o->non100) throw InputNonValido("La garanzia ambo è sempre al 100%");
        Sistema s;
        InterfacciaScriptata ui;
        o->sorgente.carica(s, ui);
        if (s.NumColonne < 1) throw InputNonValido("Nessuna colonna sviluppata da ridurre");
        // The dialog as it shows at that moment: no click rule runs.
        s.form5.scarica();
        s.form5.caricato = true;
        s.form5.Option.fill(false);
        s.form5.Option[6 - o->garanzia - 1] = true;
        s.form5.cento = !o->non100;
        s.form5.accurato = o->accurato;
        Form5 f(s, ui);
        if (!f.clickCommand1()) {
            std::cerr << Form5::Rifiuto << "\n";
            return 3;
        }
        std::cout << "RIDOTTE: " << s.NumRidotte << "\n";
        if (o->colonne)
            for (int64_t c = 1; c <= s.NumRidotte; ++c)
                std::cout << TestoRiga(s.ColonneRidotte.colonna(c), s.SviluppoK) << "\n";
        if (!o->uscita.empty()) ScriviSistema(s, o->uscita);
        return 0;
    };
});

RegistraComando copertura("copertura", [](CLI::App& app) -> Esecuzione {
    struct Opzioni {
        std::string pronostico, sviluppo, fisse, integrali = "si", uscita;
        int garanzia = 0, distanza = 0;
        bool lista = false;
    };
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("copertura", "sviluppo ridotto (RIDUZIONI PARTICOLARI)");
    sub->add_option("-p,--pronostico", o->pronostico, "numeri del pronostico: \"1,5,9\" o \"1-40\"")->required();
    sub->add_option("-k,--k,--sviluppo", o->sviluppo, "numeri per colonna: 3..10 o TERZINE..DECINE")->required();
    sub->add_option("-g,--garanzia", o->garanzia, "garanzia: 2..5, sotto k")->required();
    sub->add_option("-d,--distanza", o->distanza, "distanza minima");
    sub->add_option("-f,--fisse", o->fisse, "numeri fissi");
    sub->add_option("--integrali", o->integrali, "sviluppa anche le giocate integrali: si o no");
    sub->add_flag("--lista", o->lista, "stampa le righe della copertura");
    sub->add_option("-o,--output", o->uscita, "salva il sistema in un file .zfr");
    return [o]() {
        Sistema s;
        InterfacciaScriptata ui;
        ImpostaPronostico(s, o->pronostico);
        const int k = DimensioneSviluppo(o->sviluppo);
        const bool integrali = SiNo(o->integrali, "--integrali");
        if (k < 3) throw InputNonValido("Lo sviluppo ridotto va da TERZINE a DECINE");
        if (o->garanzia < 2 || o->garanzia > 5 || o->garanzia >= k)
            throw InputNonValido("--garanzia deve essere tra 2 e 5 e minore di k");
        if (k > s.NumPronostico) throw InputNonValido("Il pronostico ha meno di " + std::to_string(k) + " numeri");
        if (o->distanza < 0) throw InputNonValido("--distanza non può essere negativa");
        s.DistanzaMin = static_cast<int16_t>(o->distanza);
        if (!o->fisse.empty()) {
            auto fisse = ListaNumeri(o->fisse, "--fisse");
            s.NumeriFissi.assign(fisse.size() + 1, 0);
            s.NumeriFissiBase = 1;
            for (size_t i = 0; i < fisse.size(); ++i) {
                if (fisse[i] < 1 || fisse[i] > 90 || !s.pad[fisse[i] - 1])
                    throw InputNonValido("Numero fisso fuori dal pronostico: " + std::to_string(fisse[i]));
                s.NumeriFissi[i] = static_cast<int16_t>(fisse[i]);
            }
            s.NumFissi = static_cast<int16_t>(fisse.size());
        }
        ui.risposte.push_back(integrali ? Risposta::Si : Risposta::No);
        Form19 f(s, ui);
        f.Combo1 = k - 3;
        f.Combo2 = o->garanzia - 2;
        f.avviaEdEsegui();
        std::cout << s.pannelli[1] << "\n" << s.pannelli[0] << "\n";
        if (o->lista) StampaLista(s);
        if (!o->uscita.empty()) ScriviSistema(s, o->uscita);
        return 0;
    };
});

RegistraComando percentuali("percentuali", [](CLI::App& app) -> Esecuzione {
    struct Opzioni {
        Sorgente sorgente;
        std::string con5 = "si";
    };
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("percentuali", "percentuali di vincita della lista (RESA DEL SISTEMA)");
    o->sorgente.aggiungi(sub);
    sub->add_option("--con5", o->con5, "oltre 35 numeri, calcola anche con 5 numeri: si o no");
    return [o]() {
        Sistema s;
        InterfacciaScriptata ui;
        const bool con5 = SiNo(o->con5, "--con5");
        o->sorgente.carica(s, ui);
        ui.risposte.push_back(con5 ? Risposta::Si : Risposta::No);
        Form8 f(s, ui);
        f.avviaEdEsegui();
        for (auto& b : ui.box)
            if (b.titolo != "ATTENZIONE") std::cerr << (b.titolo.empty() ? "" : b.titolo + ": ") << b.testo << "\n";
        static const char* nomi[4] = {"Cinquina", "Quaterna", "Terno", "Ambo"};
        for (int i = 0; i < 4; ++i) {
            std::cout << nomi[i] << ":";
            for (int L = 5; L >= 2; --L) {
                const std::string& c = s.form8.Perc[i][L];
                std::cout << (L == 5 ? " " : " | ") << (c.empty() ? "-" : Trim(c));
            }
            std::cout << "\n";
        }
        std::cout << "GARANZIA MASSIMA: " << s.form8.GaranziaMax << "\n";
        std::cout << "GARANZIA MINIMA: " << s.form8.GaranziaMin << "\n";
        return 0;
    };
});

}  // namespace
}  // namespace zef::cli

namespace zef::cli {
namespace {

RegistraComando verifica("verifica", [](CLI::App& app) -> Esecuzione {
    struct Opzioni {
        std::string file;
        int garanzia = 0;
    };
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("verifica", "verifica la garanzia della lista (Verifica garanzia)");
    sub->add_option("file", o->file, "sistema .zfr")->required()->check(CLI::ExistingFile);
    sub->add_option("-g,--garanzia", o->garanzia, "garanzia da verificare: 2..5")->required();
    return [o]() {
        if (o->garanzia < 2 || o->garanzia > 5) throw InputNonValido("--garanzia deve essere tra 2 e 5");
        Sistema s;
        InterfacciaScriptata ui;
        LeggiSistema(s, ui, o->file);
        // An empty list is built first, as the percentages do.
        if (s.MSFlexGrid1.Rows() == 0 && (s.NumRidotte > 0 || s.NumColonne > 0)) Visualizza(s, ui);
        ui.box.clear();
        EsitoVerifica e;
        const bool fatta = VerificaEMostra(s, ui, o->garanzia, &e);
        for (auto& b : ui.box) (fatta ? std::cout : std::cerr) << b.testo << "\n";
        if (!fatta) return 1;
        return e.scoperte == 0 ? 0 : 4;
    };
});

}  // namespace
}  // namespace zef::cli
