// zefiranto-cli archivio importa / esporta / info: the draw archive from scripts.
//
// Without --archivio the program's own archive is used, made and filled from the
// shipped draws when missing; --archivio naming a missing file makes an empty one.
#include "archive/aggiorna.h"
#include "archive/archivio.h"
#include "archive/storico.h"
#include "cli/comandi.h"
#include "core/interfaccia_scriptata.h"
#include "core/percorsi.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <chrono>
#include <fstream>
#include <iostream>

namespace zef::cli {
namespace {

struct OpzioniArchivio {
    std::string archivio;
    std::string file;
    std::string uscita;
    std::string impostazioni;
    int anno = 0;
};

std::unique_ptr<ArchivioEstrazioni> Apri(const OpzioniArchivio& o) {
    try {
        return o.archivio.empty() ? ArchivioEstrazioni::ApriPredefinito() : ArchivioEstrazioni::ApriOCrea(o.archivio);
    } catch (const ErroreArchivio& e) {
        throw InputNonValido("Si è verificato l'errore seguente: " + e.testo());
    }
}

// 'YYYY-MM-DD' as the historical file writes it.
std::string DataStorica(const std::string& iso) {
    std::string d = iso;
    for (char& c : d)
        if (c == '-') c = '/';
    return d;
}

RegistraComando archivio("archivio", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<OpzioniArchivio>();
    auto* sub = app.add_subcommand("archivio", "archivio delle estrazioni: importa, esporta, info, aggiorna");
    sub->require_subcommand(1);
    auto* importa = sub->add_subcommand("importa", "importa un archivio storico (testo o .zip)");
    importa->add_option("file", o->file, "file storico, una riga per ruota per estrazione")->required();
    importa->add_option("--archivio", o->archivio, "archivio.db da usare");
    auto* esporta = sub->add_subcommand("esporta", "scrive l'archivio nel formato storico, dalla più vecchia");
    esporta->add_option("--archivio", o->archivio, "archivio.db da usare");
    esporta->add_option("-o,--uscita", o->uscita, "file da scrivere (predefinito: standard output)");
    auto* info = sub->add_subcommand("info", "numero di estrazioni, prima e ultima data");
    info->add_option("--archivio", o->archivio, "archivio.db da usare");

    auto* aggiorna = sub->add_subcommand("aggiorna", "aggiorna l'archivio dal web (siti in aggiornamento.ini)");
    aggiorna->add_option("--archivio", o->archivio, "archivio.db da usare");
    aggiorna->add_option("--impostazioni", o->impostazioni, "file delle impostazioni (predefinito: aggiornamento.ini)");
    aggiorna->add_option("--anno", o->anno, "anno finale (predefinito: l'anno corrente)");

    return [o, importa, esporta, info, aggiorna]() {
        auto a = Apri(*o);
        if (importa->parsed()) {
            EsitoImportazione e;
            try {
                e = ImportaFileStorico(*a, o->file);
            } catch (const ErroreStorico& err) {
                throw InputNonValido(err.what());
            }
            std::cout << "IMPORTATE: " << e.importate << "\nESTRAZIONI: " << e.totale << "\n";
        } else if (esporta->parsed()) {
            std::string testo = EsportaStorico(*a);
            if (o->uscita.empty()) {
                std::cout << testo;
            } else {
                std::ofstream f(o->uscita, std::ios::binary);
                f << testo;
                if (!f) throw InputNonValido("Impossibile scrivere il file " + o->uscita + ".");
            }
        } else if (aggiorna->parsed()) {
            InterfacciaScriptata ui;
            FonteCurl fonte;
            int anno = o->anno;
            if (anno == 0) {
                std::chrono::year_month_day oggi{std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
                anno = static_cast<int>(oggi.year());
            }
            ContestoAggiornamento c{*a, ui, fonte,
                                    ImpostazioniAggiornamento::Leggi(o->impostazioni.empty()
                                                                         ? ImpostazioniAggiornamento::PercorsoPredefinito()
                                                                         : o->impostazioni),
                                    CartellaDati(), anno};
            AggiornaEstrazioni(c);
            std::string esito = ui.ultimoBox().testo;
            std::cout << esito << "\nESTRAZIONI: " << a->NumeroEstrazioni() << "\n";
            return esito == messaggi_aggiornamento::Successo ? 0 : 1;
        } else if (info->parsed()) {
            SQLite::Statement st(a->db(), "SELECT COUNT(*), MIN(data), MAX(data) FROM estrazioni");
            st.executeStep();
            std::cout << "ESTRAZIONI: " << st.getColumn(0).getInt64() << "\n";
            if (st.getColumn(0).getInt64() > 0)
                std::cout << "PRIMA: " << DataStorica(st.getColumn(1).getString())
                          << "\nULTIMA: " << DataStorica(st.getColumn(2).getString()) << "\n";
        }
        return 0;
    };
});

}  // namespace
}  // namespace zef::cli
