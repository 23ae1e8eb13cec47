// "Parametri delle colonne in archivio": the conditions that the latest draws would
// have passed, offered as settings for the conditions dialog.
//
// Form28's "Suggerisci" asks how many of the latest draws to study and resets the
// dialog (ClickSuggerisci); Form29 measures those draws when it loads, shows the
// envelope on ten tabs, and "Imposta questi parametri" copies it into Form28 and
// switches those conditions on.
#pragma once

#include "archive/fonte_estrazioni.h"
#include "conditions/misura_colonne.h"
#include "core/interfaccia.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zef {

struct Sistema;
class Form28;

namespace form29 {
inline const char* Titolo = "Parametri delle colonne in archivio";
inline const char* TitoloDomanda = "Numero colonne";
inline const char* Impostate = "Condizioni impostate correttamente.";
inline const char* TitoloImpostate = "Condizioni";
// The tabs, in the order of the conditions dialog, with the index of its tab.
constexpr std::array<int, 10> SchedeForm28 = {1, 2, 4, 5, 6, 7, 8, 9, 10, 12};
constexpr int UltimaPosizione = 5;  // places of a draw
}  // namespace form29

// The draws to study: ids PrimaEstrazione..UltimaEstrazione.
struct IntervalloEstrazioni {
    int16_t PrimaEstrazione = 0;
    int16_t UltimaEstrazione = 0;
};

// Form28's "Suggerisci" (axButton3): asks the number of draws, fixes the range, hides
// and reloads the dialog (every earlier setting is lost), fits it to the forecast and
// turns the pointer to the hourglass. The caller then shows Form29 with the range.
// Any failure (no archive, an answer out of the 16-bit range) leaves quietly: nullopt.
// `scaricaForm3` unloads the archive browser, if the program has one open.
std::optional<IntervalloEstrazioni> ClickSuggerisci(Form28& f, Interfaccia& ui,
                                                    const std::function<void()>& scaricaForm3 = {});

class Form29 {
public:
    // The draws come from `archivio` (null: the measuring fails at once, as a load
    // without its recordset would).
    Form29(Sistema& s, Interfaccia& ui, Form28& f28, FonteEstrazioni* archivio, IntervalloEstrazioni intervallo);

    // Shows Form28 again after "Imposta questi parametri" (the window layer wires it);
    // without it the dialog's model is only brought to the front (activated).
    std::function<void()> mostraForm28;

    // ---- controls -------------------------------------------------------------------
    int SSTab1 = 0;
    int Combo1 = 5, Combo2 = 0, Combo5 = 0, Combo7 = -1, Combo10 = 0;
    std::array<int, 6> Check1{};
    std::array<int, 6> chkInterruzioniPD{};
    std::array<int, 4> chkGruppiPari{};
    std::array<int, 7> chkGruppiDispari{};
    std::array<std::string, 2> txtSomma{"440", "15"};
    std::string txtPariMin = "5", txtPariMax = "0", txtPariCons = "0";
    std::string txtDispariMin = "5", txtDispariMax = "0", txtDispariCons = "0";
    std::string txtDistanzaMin = "0";
    std::string Text2 = "5";  // "N° sestine considerate", handed to txtNcolonne
    std::vector<std::string> List3;
    std::array<int, 90> Check18{};
    std::string txtPosizioni = "1";

    // ---- form state ---------------------------------------------------------------------
    IntervalloEstrazioni intervallo;
    std::array<std::array<int16_t, 7>, 4> SezioniSuggerite{};
    std::array<std::array<int16_t, 91>, 6> PosizioniSuggerite{};
    int16_t ritardoMin = 100, ritardoMax = 0, frequenzaMin = 90, frequenzaMax = 0;
    // What the load measured (for the command line and the tests).
    ParametriColonne misura;
    bool caricato = false;

    static std::vector<std::string> voci(int combo);  // items of ComboN

    // ---- events -----------------------------------------------------------------------
    // Form_Load: measures the draws of the range (all the work of the window).
    void carica();
    void cambiaTxtPosizioni();
    void upDown10(bool su);
    // axButton1 "Imposta questi parametri".
    void clickImposta();
    // axButton2 "Chiudi finestra".
    void clickChiudi();

    // Text of a field by name (null if unknown), for the view.
    std::string* campo(const std::string& nome);

private:
    void applica(const ParametriColonne& p);

    Sistema& s_;
    Interfaccia& ui_;
    Form28& f28_;
    FonteEstrazioni* archivio_;
};

}  // namespace zef
