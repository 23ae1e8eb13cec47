// FormOttimizza, "RIDUZIONE OTTIMIZZATA": the system in memory reduced to fewer
// columns with the same guarantee (Riduzione > "Riduzione ottimizzata...").
//
// Two tasks. "Riduci le colonne sviluppate" starts from the accurate reduction of the
// developed columns at the chosen guarantee and leaves its result where the reduction
// leaves it (ColonneRidotte, the list empty until VISUALIZZA). "Copri il pronostico"
// starts from the cover of the forecast (the reduced development) and leaves its rows in
// the list as the cover does. Both then search for a shorter list for the time given
// (ESC stops it, keeping the best list found), and a list is accepted only when every
// target is covered.
#pragma once

#include "core/interfaccia.h"
#include "reduction/ottimizza.h"

#include <string>

namespace zef {

struct Sistema;

class FormOttimizza {
public:
    static constexpr const char* Titolo = "RIDUZIONE OTTIMIZZATA";
    static constexpr const char* CaptionOption1 = "Riduci le colonne sviluppate";
    static constexpr const char* CaptionOption2 = "Copri il pronostico (sviluppo ridotto)";
    static constexpr const char* MessaggioNessunaColonna =
        "Non ci sono colonne sviluppate da ridurre: sviluppare prima il sistema.";
    static constexpr const char* MessaggioTroppe =
        "Le colonne sviluppate sono troppe per la riduzione ottimizzata: ridurre prima il pronostico o la garanzia.";
    static constexpr const char* MessaggioPartenza =
        "La riduzione di partenza non mantiene la garanzia (interrotta?): ottimizzazione annullata.";
    static constexpr const char* MessaggioSecondi = "Indicare il tempo in secondi, da 1 a 3600.";
    static constexpr const char* MessaggioCopertura =
        "Per coprire il pronostico servono almeno tanti numeri quanti ne ha una colonna, e una garanzia minore della colonna.";

    FormOttimizza(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    int compito = 1;            // 1 reduce the developed columns, 2 cover the forecast
    int garanzia = 3;           // 2..5
    int k = 5;                  // task 2: numbers a column, 3..10
    std::string secondi = "30";
    std::string seme = "1";
    uint64_t passi = 0;         // above 0: a fixed number of moves (tests)

    // The last run: start size, bound, result.
    int64_t iniziale = 0, limite = 0, ottimizzate = 0;
    bool interrotta = false;

    // Defaults from the system: the guarantee and the size in force.
    void carica();
    // AVVIA: true when the list was replaced. Runs on the caller's thread; the boxes and
    // the progress window go through the interface.
    bool clickAvvia();

private:
    bool riduci(const OpzioniOttimizza& o);
    bool copri(const OpzioniOttimizza& o);
    Sistema& s_;
    Interfaccia& ui_;
};

}  // namespace zef
