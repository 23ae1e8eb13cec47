#include "archive/comandi_archivio.h"

#include "archive/aggiorna.h"
#include "archive/fonte_web.h"
#include "archive/storico.h"
#include "core/basic.h"
#include "core/percorsi.h"

#include <chrono>

namespace zef {

using namespace messaggi_archivio;

std::unique_ptr<ArchivioEstrazioni> ApriDbArchivio(Interfaccia& ui, const std::string& percorso) {
    try {
        if (percorso.empty()) return ArchivioEstrazioni::ApriPredefinito();
        return ArchivioEstrazioni::ApriOCrea(percorso, ArchivioEstrazioni::StoricoSpedito());
    } catch (const ErroreEsecuzione& e) {
        ui.messaggio(std::string(ErroreSeguente) + e.testo(), "", Icona::Critico);
    } catch (const std::exception& e) {
        ui.messaggio(std::string(ErroreSeguente) + e.what(), "", Icona::Critico);
    }
    return nullptr;
}

void ImportaArchivioStorico(ArchivioEstrazioni& a, Interfaccia& ui) {
    auto file = ui.dialogoApri(FiltroStorico, TitoloImporta);
    if (!file) return;
    ui.clessidra(true);
    try {
        EsitoImportazione e = ImportaFileStorico(a, *file);
        ui.clessidra(false);
        ui.messaggio("Estrazioni importate: " + TestoSemplice(e.importate) + ".\nEstrazioni in archivio: " +
                         TestoSemplice(e.totale) + ".",
                     "FINESTRA INFORMATIVA", Icona::Informazione);
    } catch (const ErroreStorico& e) {
        ui.clessidra(false);
        ui.messaggio(std::string(e.what()) + "\nNessuna estrazione è stata importata.", "ATTENZIONE", Icona::Critico);
    } catch (const std::exception& e) {
        ui.clessidra(false);
        ui.messaggio(std::string(ErroreSeguente) + e.what(), "ATTENZIONE", Icona::Critico);
    }
}

void AggiornaEstrazioniDalWeb(ArchivioEstrazioni& a, Interfaccia& ui) {
    FonteCurl fonte;
    std::chrono::year_month_day oggi{std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
    ContestoAggiornamento c{a, ui, fonte, ImpostazioniAggiornamento::Leggi(ImpostazioniAggiornamento::PercorsoPredefinito()),
                            CartellaDati(), static_cast<int>(oggi.year())};
    AggiornaEstrazioni(c);
}

}  // namespace zef
