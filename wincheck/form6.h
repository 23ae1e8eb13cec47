// Form6, "SPOGLIO COLONNE VINCENTI": the plays of the list against the draw in the
// window, and Form7, "VISUALIZZAZIONE COLONNE VINCENTI", the listing of the wins.
//
// The 55 boxes follow the archive's current draw through the data control, unless a
// draw is being stored; "resetta" empties them for a draw typed by hand. CERCA starts
// the check on the timer's first tick, so the bar can paint before the work, which
// then runs in one go. ESCI offers to add the result to the running tally of wins,
// only when the window stands on the latest draw.
#pragma once

#include "archive/controllo_dati.h"
#include "core/interfaccia.h"
#include "wincheck/spoglio.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

class Form7 {
public:
    static constexpr const char* Titolo = "VISUALIZZAZIONE COLONNE VINCENTI";
    static constexpr const char* Label1 = "GIOCATE VINCENTI";

    ListaVincente List1;
    bool caricato = false;

    void carica() {
        caricato = true;
        List1.clear();
    }
};

class Form6 {
public:
    static constexpr const char* Titolo = "SPOGLIO COLONNE VINCENTI";
    static constexpr const char* MessaggioListaVuota = "Visualizzare le giocate per effettuare lo spoglio.";
    static constexpr const char* MessaggioMemorizzata = "L'estrazione è stata memorizzata con successo.";
    static constexpr const char* MessaggioNumeriNonValidi =
        "L'estrazione non è stata memorizzata: ogni numero deve essere compreso tra 1 e 90 e non ripetersi sulla "
        "stessa ruota.";
    static constexpr const char* DomandaMemorizza = "Si vuole memorizzare l'esito del sistema?";
    static constexpr const char* TitoloDomanda = "FINSETRA DI RICHIESTA";
    // Captions beside the counters, estratti to cinquine.
    static constexpr std::array<const char*, NumSorti> EtichettePunti = {"Estratti:", "   Ambi:", "   Terni:",
                                                                          "Quaterne:", "Cinquine:"};

    // `archivio`: the archive file (empty: archivio.db in the data folder).
    Form6(Sistema& s, Interfaccia& ui, Form7& form7, std::string archivio = "");

    // ---- controls --------------------------------------------------------------------
    ControlloDati Data1;
    std::array<std::string, NumCaselle> Text1;  // 5(w-1) + p-1
    std::string Label23;                        // the draw's date
    std::array<std::string, NumSorti> punti;    // punti1..punti5: estratti .. cinquine
    std::string lblVincitaTotale;
    bool barraVisibile = false;
    double barraMassimo = 0, barraValore = 0;
    bool Timer1 = false;
    bool Inserimento = false;
    int focus = -1;
    bool caricato = false;

    // Today's date (ISO); tests fix it.
    std::function<std::string()> oggi;
    // Command5: Form7 modal.
    std::function<void()> mostraForm7;
    // "Verifica su un periodo...": the check over a run of draws.
    std::function<void()> mostraVerifica;
    static constexpr const char* CaptionVerifica = "Verifica su un periodo...";

    // ---- events ------------------------------------------------------------------------
    void carica();  // Form_Load: Form7 loaded and emptied, the archive at its last draw
    void attiva();  // Form_Activate
    void Data1_Reposition();
    void clickCommand1();  // CERCA; with an empty list the window unloads (caricato false)
    void tickTimer1();     // the check itself
    void clickCommand2();  // ESCI: the tally, then the window hides
    void clickCommand3();  // resetta
    void clickCommand4();  // memorizza
    void clickCommand5() {
        if (mostraForm7) mostraForm7();
    }
    void clickVerifica() {
        if (mostraVerifica) mostraVerifica();
    }
    void scarica();

    const std::string& archivio() const { return Data1.DatabaseName; }

private:
    Sistema& s_;
    Interfaccia& ui_;
    Form7& f7_;
    std::string archivio_;
};

}  // namespace zef
