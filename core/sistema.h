// The sistema: every shared value of the program under its own name.
//
// One instance, owned by the application and passed by reference; a test builds a
// fresh one in one line. Besides the variables it holds the state of the controls
// that count as part of the sistema (the pad, the list, the status panels, the
// title, the play dialog), so that the window models read and write them without
// a window.
#pragma once

#include "core/basic.h"
#include "core/colonne.h"
#include "core/filtro.h"
#include "core/form4.h"
#include "core/lista.h"
#include "core/vocabolario.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zef {

// The controls of the play dialog (Form2) that make up the sistema. Unloading the
// dialog brings them back to these start values.
struct Form2Controlli {
    std::array<bool, 12> Option1{};       // wheel; 11 "Tutte le ruote" on at load
    std::array<int, 5> Check{};           // Check0..Check4: 0 or 1
    std::array<bool, 65> chkAmbo{};       // stake boxes
    std::array<std::string, 5> testi;     // text0, Text1, Text2, Text3, text4
    std::string lblCosto = "0,00";         // total of one play, two decimals
    std::array<bool, 5> abilitato{};      // Check0..Check4 enabled (with their labels)
    bool caricato = false;

    Form2Controlli() { scarica(); }
    void scarica();
    // Index of the first Option1 that is on, 0..11; 12 when none.
    int ruota() const;
};

// The win percentages window (Form8): its table outlives the window being hidden,
// and the listing prints it. Unloading brings back the design state.
struct Form8Controlli {
    static constexpr const char* CaptionDesign =
        "CALCOLO PERCENTUALI IN CORSO...                         ESC per interrompere";
    bool caricato = false;
    std::string Caption = CaptionDesign;
    // Row titles: cinquine, quaterne, terni, ambi.
    std::array<std::string, 4> titoli{"1 Cinquina/e al", "1 Quaterna/e al", "2 Terno/i al", "4 Ambo/i al"};
    // Perc5, Perc4, Perc3, Perc2, each indexed by L (2..5; 0 and 1 unused).
    std::array<std::array<std::string, 6>, 4> Perc{};
    std::string GaranziaMax = "nessuna";
    std::string GaranziaMin = "nessuna";
    bool barraVisibile = false;
    double barraMinimo = 0, barraMassimo = 0, barraValore = 0;
    bool Timer1 = false;

    void scarica() { *this = Form8Controlli{}; }
};

// The options of the reduction dialog (Form5) that outlive it in the sistema:
// Option1..Option4 (cinquina, quaterna, terno, ambo), "100%" and "ACCURATO".
struct Form5Controlli {
    std::array<bool, 4> Option{};  // Option1..Option4
    bool cento = true;
    bool accurato = false;
    bool caricato = false;

    Form5Controlli() { scarica(); }
    void scarica();
};

struct Sistema {
    Sistema();

    // ---- forecast ---------------------------------------------------------------
    // Pronostico(1..NumPronostico): element 0 is unused. `PronosticoScalare` is the
    // state of the erased array (a scalar 0): then the vector is empty.
    std::vector<int> Pronostico;
    bool PronosticoScalare = true;
    int16_t NumPronostico = 0;

    // ---- development --------------------------------------------------------------
    int16_t SviluppoK = 0;
    int16_t DistanzaMin = 0;
    int16_t NumFissi = 0;
    // NumeriFissi with its bounds: `NumeriFissiBase`..NumeriFissi.size()-1+base.
    std::vector<int16_t> NumeriFissi;
    int NumeriFissiBase = 1;

    Colonne colonne;  // `Colonne`
    int32_t NumColonne = 0;
    Colonne ColonneRidotte;
    int32_t NumRidotte = 0;
    Colonne RigheRidotte;

    std::array<int16_t, 11> NumeriColonna{};  // 0..10
    int NumeriColonnaMax = 10;                // upper bound of NumeriColonna in force

    double NumCombinazioni = 0;
    // Counted in 64 bits: a pass over C(90, 10) candidates must count them all.
    int64_t ColonneEsaminate = 0;
    int32_t ContatoreLavoro = 0;
    std::array<long long, 11> Liv{};  // Liv[1..10]
    int16_t LunghezzaEnumerazione = 0;

    // ---- reduction and price --------------------------------------------------------
    int16_t TipoGaranzia = 0;
    bool GaranziaAttiva = false;
    Currency CostoColonna;

    // ---- flags --------------------------------------------------------------------------
    bool SistemaSalvato = true;
    bool PercentualiValide = false;
    bool PronosticoNonSviluppato = false;
    int32_t ContatorePercentuali = 0;

    // ---- controls of the main window that count as state --------------------------------
    std::array<bool, 90> pad{};          // Command1(i) orange
    std::string Label2 = "0";            // count of the forecast, as text
    ListaGiocate MSFlexGrid1;            // the play list
    std::string ListaCol = "0";          // plays in the list, as text
    std::string Command2 = "Non selezionata";
    std::array<std::string, 3> pannelli; // StatusBar1 panels 1..3
    std::string FileName;                // CommonDialog1.FileName: the current file
    std::string titolo;                  // window title
    bool SalvaAbilitato = false;         // menu item Salva

    Form2Controlli form2;
    Form5Controlli form5;
    Form8Controlli form8;  // the win percentages table
    Form4Controlli form4;  // the shared progress window
    bool Timer4Abilitato = false;  // Form1.Timer4: the cover's ticks run while it is on

    // ---- links to the subsystems, wired by the application ---------------------------
    // The condition filter of the development (null: every candidate passes).
    std::shared_ptr<FiltroColonna> filtro;
    // Fits the conditions dialog to a new forecast (called by the pad).
    std::function<void()> ResettaCondizioni;

    // ---- helpers ----------------------------------------------------------------------------
    // Forecast number at index i (1-based).
    int pronostico(int i) const { return Pronostico[i]; }
    // Rebuilds Pronostico from the orange buttons of the pad (count from Label2).
    void PronosticoDalPad();
    // Count of the orange buttons of the pad.
    int contaPad() const;
};

// Texts of the status panels.
namespace pannello {
std::string Condizionate(long long n);
std::string Ridotte(long long n);
std::string Costo(const std::string& importo);
inline const char* CondizionateZero = "CONDIZIONATE: 0";
inline const char* RidotteZero = "RIDOTTE: 0";
inline const char* CostoZero = "COSTO SISTEMA €: 0";
}  // namespace pannello

// Window titles.
namespace titoli {
inline const char* NonSalvato = "Zefiranto 2.0 - sistema non salvato";
inline const char* SenzaNome = "Zefiranto 2.0 -  sistema senza nome";
std::string Sistema(const std::string& file);
}  // namespace titoli

}  // namespace zef
