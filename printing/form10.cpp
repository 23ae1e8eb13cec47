#include "printing/form10.h"

#include "core/sistema.h"

#include <exception>

namespace zef {

std::string Form10::MessaggioTroppe(int64_t righe) {
    return "La sezione GIOCATE del tabulato conterebbe " + std::to_string(righe) + " righe (circa " +
           std::to_string(righe / tabulato::RighePerPagina) +
           " pagine): sono troppe per la stampa. Stampare il tabulato senza le giocate, oppure con meno giocate in "
           "lista.";
}

void Form10::clickCommand1() {
    if (!Option1) {
        if (s_.pannelli[2] == pannello::CostoZero) {
            ui_.messaggio(MessaggioPuntata, TitoloPuntata, Icona::Critico);
            return;
        }
        if (mostraForm11) mostraForm11();
        return;
    }
    if (!form24_.caricato) form24_.carica();
    form24_.visibile = true;
    if (mostraForm24) mostraForm24();
    if (!form24_.Check4) return;
    const SezioniTabulato sezioni = form24_.sezioni();
    // Each round of the plays section prints the whole list again: a long list would
    // keep the printer busy for days.
    if (sezioni.giocate) {
        const int64_t righe = RigheSezioneGiocate(s_.MSFlexGrid1.Rows());
        if (righe > tabulato::LimiteRigheGiocate) {
            ui_.messaggio(MessaggioTroppe(righe), TitoloTroppe, Icona::Esclamazione);
            return;
        }
    }
    const std::string data = dataOggi ? dataOggi() : DataCortaLocale();
    try {
        destinazione_.stampa(DocumentoTabulato, Modulo::Tabulato, [this, sezioni, data](Stampante& st, bool) {
            StampaTabulato(s_, sezioni, data, st);
        });
    } catch (const std::exception& e) {
        ui_.messaggio(std::string(MessaggioErrore) + e.what(), TitoloErrore, Icona::Critico);
    }
}

}  // namespace zef
