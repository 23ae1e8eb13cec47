// The reduction dialog "IMPOSTAZIONE RIDUZIONE" and the commands that open it.
//
// Its options live in Sistema::form5, so that they outlive the dialog being hidden
// and read back as the start state once it is unloaded.
#pragma once

#include "core/interfaccia.h"

namespace zef {

struct Sistema;

class Form5 {
public:
    static constexpr const char* Caption = "IMPOSTAZIONE RIDUZIONE";
    static constexpr const char* Label1 = "Tipo di riduzione";
    static constexpr const char* Label4 = "GARANZIA";
    static constexpr const char* Label5 = "TIPO RIDUZIONE";
    static constexpr const char* CaptionOption[4] = {
        "Riduzione a garanzia cinquina", "Riduzione a garanzia quaterna", "Riduzione a garanzia terno",
        "Riduzione a garanzia ambo"};
    static constexpr const char* CaptionCheck1 = "100%";
    static constexpr const char* CaptionCheck2 = "ACCURATO";
    static constexpr const char* CaptionCommand1 = "AVVIA";
    static constexpr const char* CaptionCommand2 = "ANNULLA";
    static constexpr const char* Rifiuto = "Non è possibile ridurre questo tipo di sistema.";

    Form5(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    // Loads the dialog if it is not loaded (start state).
    void carica();
    // Activation: the looser test on the size.
    void attiva();

    // A user's click: the control changes, then its rule runs.
    void clickOption(int n);  // 1..4
    void clickCheck1();       // toggles "100%"
    void clickCheck2();       // toggles "ACCURATO"

    // Programmatic changes, firing the rule as the control would.
    void selezionaOption(int n);
    void impostaCheck1(bool v);
    void impostaCheck2(bool v);

    // AVVIA. True when the reduction ran (the dialog is gone), false on the refusal.
    bool clickCommand1();
    // ANNULLA: hides; the dialog stays loaded with its choices.
    void clickCommand2() {}

    // Selected option 1..4, 0 if none.
    int opzione() const;

private:
    void regolaOption(int n);
    Sistema& s_;
    Interfaccia& ui_;
};

// Command8 "RIDUCI": true when the dialog is to be shown (its options as they stand).
bool ClickRiduci(Sistema& s, Interfaccia& ui);
// Menu Garanzia5..Garanzia2 (g = 5..2): loads the dialog and switches on the option
// of g; true when the dialog is to be shown.
bool MenuGaranzia(Sistema& s, Interfaccia& ui, int g);

}  // namespace zef
