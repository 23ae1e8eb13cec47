#include "wincheck/formverifica.h"

#include "archive/archivio.h"
#include "archive/date.h"
#include "core/percorsi.h"
#include "core/sistema.h"

#include <atomic>

namespace zef {

FormVerifica::FormVerifica(Sistema& s, Interfaccia& ui, std::string archivio)
    : s_(s), ui_(ui), archivio_(std::move(archivio)) {}

void FormVerifica::clickAvvia() {
    esiti.clear();
    totali = {};
    riepilogo.clear();
    interrotta = false;
    if (s_.MSFlexGrid1.Rows() == 0) {
        ui_.messaggio("Visualizzare le giocate per effettuare lo spoglio.", "", Icona::Informazione);
        return;
    }
    long n = 0;
    if (perUltime) {
        const std::string t = Trim(ultime);
        const double v = Val(t);
        if (t.empty() || v < 1 || v != static_cast<double>(static_cast<long>(v)) || v > 1e8 ||
            t.find_first_not_of("0123456789") != std::string::npos) {
            ui_.messaggio(MessaggioNumeroNonValido, Titolo, Icona::Esclamazione);
            return;
        }
        n = static_cast<long>(v);
    } else if (!dal.empty() && !al.empty() && dal > al) {
        ui_.messaggio(MessaggioDateNonValide, Titolo, Icona::Esclamazione);
        return;
    }
    std::vector<EstrazioneSpoglio> estrazioni;
    {
        ArchivioEstrazioni a(archivio_.empty() ? FileDati("archivio.db") : archivio_);
        estrazioni = perUltime ? LeggiEstrazioni(a, "", "", n) : LeggiEstrazioni(a, dal, al);
    }
    if (estrazioni.empty()) {
        ui_.messaggio(MessaggioNessunaEstrazione, Titolo, Icona::Informazione);
        return;
    }
    StatoAvanzamento stato;
    stato.titolo = Titolo;
    stato.etichetta = "Verifica in corso...";
    stato.etichetta1 = "Estrazioni verificate:";
    stato.testo1 = "0";
    stato.suggerimento = "ESC per interrompere";
    stato.massimo = static_cast<double>(estrazioni.size());
    ui_.mostraAvanzamento(stato);
    std::atomic<bool> ferma{false};
    VerificaPeriodo v(s_.MSFlexGrid1, GiocataDa(s_), s_.form2.testi, s_.CostoColonna);
    try {
        esiti = v.Esegui(estrazioni, &ferma, [&](size_t fatte) {
            stato.valore = static_cast<double>(fatte);
            stato.testo1 = TestoSemplice(static_cast<long long>(fatte));
            ui_.aggiornaAvanzamento(stato);
            for (int tasto : ui_.tastiAvanzamento())
                if (tasto == 27) ferma = true;
        });
    } catch (...) {
        ui_.chiudiAvanzamento();
        throw;
    }
    ui_.chiudiAvanzamento();
    interrotta = esiti.size() < estrazioni.size();
    totali = VerificaPeriodo::Totali(esiti);
    std::string periodo;
    if (!esiti.empty()) periodo = " (dal " + DataBreve(esiti.front().data) + " al " + DataBreve(esiti.back().data) + ")";
    riepilogo.push_back("Estrazioni verificate: " + TestoSemplice(totali.estrazioni) + periodo +
                        (interrotta ? ", interrotta" : "") + "   con vincita: " + TestoSemplice(totali.conVincita));
    riepilogo.push_back("Spesa: " + totali.spesa.testoDueDecimali() + "   Vincite: " + totali.vinta.testoDueDecimali() +
                        "   Saldo: " + totali.saldo.testoDueDecimali());
    riepilogo.push_back(totali.massima > Currency{}
                            ? "Vincita più alta: " + totali.massima.testoDueDecimali() + " il " + DataBreve(totali.dataMassima)
                            : std::string("Nessuna vincita nel periodo"));
}

void FormVerifica::clickEsporta() {
    if (esiti.empty()) return;
    auto file = ui_.dialogoSalva("File CSV (*.csv)|*.csv", "Esporta CSV");
    if (!file) return;
    std::string percorso = *file;
    if (percorso.size() < 4 || percorso.substr(percorso.size() - 4) != ".csv") percorso += ".csv";
    try {
        ScriviVerificaCsv(percorso, esiti);
    } catch (const std::exception& e) {
        ui_.messaggio(e.what(), Titolo, Icona::Critico);
    }
}

}  // namespace zef
