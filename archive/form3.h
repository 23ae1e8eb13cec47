// Form3, "ARCHIVIO ESTRAZIONI": the archive browser and editor, one draw at a time.
//
// Its data control Data1 is also where the statistics windows read the number of
// draws: the application keeps this model loaded (hidden if need be) while they run.
#pragma once

#include "archive/controllo_dati.h"
#include "core/interfaccia.h"
#include "core/sistema.h"

#include <array>
#include <functional>
#include <string>

namespace zef {

// The windows Form3 loads, unloads and opens, wired by the application. A statistics
// window left empty keeps its button disabled.
struct Form3Collegamenti {
    std::function<void()> caricaForm7;    // load the win-check window and empty its list
    std::function<void()> scaricaForm6;   // the win-check window reloads with the new archive
    std::function<void()> scaricaForm25;  // pair delays hold stale draws
    std::function<void()> mostraForm13;   // frequencies and delays of the 90 numbers
    std::function<void()> mostraForm25;   // pair delays
    std::function<void()> mostraForm27;   // pair frequencies
};

class Form3 {
public:
    struct Pulsante {
        std::string Caption;
        std::string ToolTipText;
        bool Visible = false;
        bool Enabled = true;
    };

    static constexpr const char* Titolo = "ARCHIVIO ESTRAZIONI";

    // `archivio`: the archive file (empty: archivio.db in the data folder).
    Form3(Sistema& s, Interfaccia& ui, Form3Collegamenti collegamenti = {}, std::string archivio = "");

    // ---- controls ------------------------------------------------------------------
    ControlloDati Data1;
    std::string Label19;               // "N°  12 su  7359"
    std::string label23;               // date "dd/MM/yy"
    std::array<std::string, 55> Text1; // (w-1)*5 + p-1
    int focus = -1;                    // Text1 index holding the focus
    std::array<Pulsante, 9> Command;   // Command1..Command8 (0 unused)
    // Captions of the labels: the ones over the hidden buttons (4, 5, 6, 7, 8, 12, 13)
    // and the group headings (14, 18). The wheel labels are IntestazioniRuote.
    std::array<std::string, 19> Label;
    bool InModifica = false;
    bool caricato = false;

    // Today's date (ISO); tests fix it.
    std::function<std::string()> oggi;

    // ---- events ---------------------------------------------------------------------
    void carica();  // Form_Load
    void attiva();  // Form_Activate
    void Data1_Reposition();
    // Mouse over a label: Label4, 5, 6, 7, 8, 12, 13 show their buttons.
    void mouseSuLabel(int numero);
    // Mouse over the form: the seven buttons hide again.
    void mouseSuForm();
    void clickCommand1();  // " Fr./Rit. Num."
    void clickCommand2();  // "ESCI"
    void clickCommand3();  // "NUOVA"
    void clickCommand4();  // "MEMORIZZA"
    void clickCommand5();  // "CANCELLA"
    void clickCommand6();  // "Rit. Ambi"
    void clickCommand7();  // "Fr. Ambi"
    void clickCommand8();  // "Vai al n°."
    void scarica();

    // The number of draws, as the statistics windows read it.
    long NumeroEstrazioni() { return Data1.Recordset().RecordCount(); }

private:
    void apriStatistica(const std::function<void()>& mostra, bool clessidra);

    Sistema& s_;
    Interfaccia& ui_;
    Form3Collegamenti col_;
    std::string archivio_;
};

}  // namespace zef
