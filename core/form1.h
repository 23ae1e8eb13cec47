// The main window "Zefiranto 2.0" without its widgets: start-up, the forecast pad,
// the command dispatch of the toolbar, menus and buttons, New and Exit with the
// save prompt, the status panels and the title.
//
// The state the window shows lives in Sistema (pad, Label2, list, ListaCol,
// Command2, panels, title, Salva). The commands of other subsystems and the
// other windows are hooks, wired by the application: an empty hook is a command
// whose window is not there yet, and the view keeps its item disabled.
#pragma once

#include "core/interfaccia.h"

#include <array>
#include <functional>
#include <string>

namespace zef {

struct Sistema;

// Version as major.minor.revision ("2.0.0").
std::string VersioneProgramma();

// Toolbar keys with their tool tips, in the order the keys are compared.
struct PulsanteBarra {
    const char* chiave;
    const char* suggerimento;
};
inline constexpr std::array<PulsanteBarra, 10> PulsantiBarra = {{
    {"sviluppo", "avvia lo sviluppo del sistema"},
    {"uscita", "esce dal programma"},
    {"apri", "apre un file precedentemente salvato"},
    {"salva", "salva l'attuale sistema sul disco fisso"},
    {"spoglio", "effettua lo spoglio delle giocate vincenti"},
    {"stampa", "manda in stampa il sistema"},
    {"suggerisci", "suggerisce il pronostico"},
    {"archivio", "visualizza l'archivio delle estrazioni precedenti"},
    {"aiuto", "visualizza l'help"},
    {"smorfia", "apre la finestra di gestione delle smorfia"},
}};

class Form1 {
public:
    static constexpr const char* Titolo = "Zefiranto 2.0";

    Form1(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    // ---- controls that are the window's own (the rest lives in Sistema) -----------
    std::string lblVersion;            // version, written at the end of start-up
    bool Command3Abilitato = true;     // SVILUPPA; the toolbar key follows it
    bool archivioAperto = false;       // DbArchivio holds a database
    bool terminato = false;            // Exit ran: the program ends
    int larghezzaColonnaLista = 0;     // MSFlexGrid1.ColWidth(0), twips

    // ---- hooks: the application wires them ----------------------------------------
    // Start-up and exit.
    std::function<void()> mostraSplash;     // frmSplash modal (its timer unloads it)
    std::function<void()> scaricaSplash;    // unload frmSplash if still loaded
    // Opens DbArchivio; raises (ErroreEsecuzione or std::exception) when it cannot.
    std::function<void()> apriArchivio;
    std::function<void()> ChiudiArchivio;   // unloads Form3 and Form6, closes DbArchivio
    std::function<void()> fine;             // ends the program at once

    // Timer6: once, five seconds after start (the check for a new version).
    std::function<void()> ControllaAggiornamento;
    // Timer4: one tick of the cover, run again while Sistema::Timer4Abilitato holds.
    std::function<void()> tickTimer4;

    // Files.
    std::function<void()> Apri;             // prompts itself when unsaved
    std::function<void()> Salva;
    std::function<void()> SalvaConNome;

    // Windows opened by the buttons and the menu.
    std::function<void()> mostraForm2;      // Command2: play dialog, modal
    std::function<void()> mostraForm20;     // Command3: development dialog, modal
    std::function<void()> mostraForm6;      // Command6: win check, modal
    std::function<void()> mostraForm17;     // Command9 and popup Aggiungi
    std::function<void()> mostraForm18;     // right button on the list: popup menu
    // Reduction dialog. A Garanzia item loads it (caricaForm5; when empty, the
    // options come back to their start values if it was not loaded), sets the option
    // of its level in Sistema::form5, then shows it: `opzione` 1..4 (cinquina..ambo),
    // 0 from RIDUCI, which shows it as it stands.
    std::function<void()> caricaForm5;
    std::function<void(int opzione)> mostraForm5;
    std::function<void()> mostraForm19;     // Sviluppo ridotto
    std::function<void()> mostraFormOttimizza;  // Riduzione ottimizzata, modal
    std::function<void()> VerificaGaranzia; // is the list's guarantee real
    std::function<void()> mostraForm9;      // Informazioni
    std::function<void()> mostraForm10;     // print
    std::function<void()> PronosticoStatistico;  // loads Form13, Form14 modal, unloads Form13
    std::function<void()> mostraForm15;     // dream book
    std::function<void()> VisualizzaPercentuali;
    std::function<void()> mostraForm3;      // archive browser
    std::function<void()> AggiornaEstrazioni;
    std::function<void()> ImportaArchivio;  // historical draw file into the archive
    std::function<void()> mostraForm16;     // win statistics
    std::function<void()> mostraAbout;      // frmAbout modal

    // Unloading and loading other windows (New, the pad).
    std::function<void()> scaricaForm2;
    std::function<void()> scaricaForm8;
    std::function<void()> caricaForm8;
    std::function<void()> scaricaForm12;

    // ---- events ------------------------------------------------------------------------
    void carica();                       // Form_Load
    void clickCommand1(int indice);      // pad button, 0..89
    void clickCommand2() { chiama(mostraForm2); }
    void clickCommand3() { chiama(mostraForm20); }
    void clickCommand5();                // Elimina
    void clickCommand6() { chiama(mostraForm6); }
    void clickCommand7();                // VISUALIZZA
    void clickCommand8() { Riduzione(0); }
    void clickCommand9() { chiama(mostraForm17); }
    // A click on a row of the list: the grid's selection colour.
    void clickLista() { coloreSelezione = 16777215; }
    long coloreSelezione = -1;           // MSFlexGrid1.BackColorSel; -1 the grid's own
    void mouseDownLista(int pulsante);   // 2 pops up the Colonna menu
    void clickToolbar(const std::string& chiave);
    // Timer6 fires once: the check runs at most once per run.
    void timer6();
    bool Timer6Abilitato = true;
    static constexpr int IntervalloTimer6 = 5000;
    // Timer4 ticks only while enabled; the tick itself may turn it off.
    void timer4();

    // Menu items, under their names.
    void menuApri() { chiama(Apri); }
    void menuSalva() { chiama(Salva); }
    void menuSalvaConNome() { chiama(SalvaConNome); }
    void menuUscita() { Uscita(); }
    void menuNuovo() { Nuovo(); }
    void menuVediColonne() { clickCommand7(); }
    void menustampa();
    void menuPronosticoStatistico() { chiama(PronosticoStatistico); }
    void menuSmorfia() { chiama(mostraForm15); }
    void menuVisualizzaPercentuali() { chiama(VisualizzaPercentuali); }
    void menuInformazioni();
    void menuGaranzia(int livello);      // 5, 4, 3, 2
    void menuSviluppoRidotto();
    void menuVerificaGaranzia() { chiama(VerificaGaranzia); }
    void menuRiduzioneOttimizzata() { chiama(mostraFormOttimizza); }
    void menuColonneVincenti() { chiama(mostraForm3); }
    void menuAggiornaEstrazioni() { chiama(AggiornaEstrazioni); }
    void menuImportaArchivio() { chiama(ImportaArchivio); }
    void menuVincite() { chiama(mostraForm16); }
    void menusommario();
    void menuAiutoInformazioni() { chiama(mostraAbout); }

    // New and Exit. Exit also serves the closing of the window.
    void Nuovo();
    void Uscita();
    // The save prompt: Yes runs SalvaConNome, No goes on; there is no Cancel.
    void ChiediSalvataggio();
    // The reduction entry of Command8 (livello 0) and of the Garanzia items.
    void Riduzione(int livello);

private:
    static void chiama(const std::function<void()>& f) {
        if (f) f();
    }
    Sistema& s_;
    Interfaccia& ui_;
};

}  // namespace zef
