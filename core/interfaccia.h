// The only way the logic talks to a person.
//
// ui/ implements it with Qt; tests and the command line use InterfacciaScriptata,
// which answers from a queue and records every box. Calls may come from the worker
// thread of a long pass: the Qt implementation carries them to the interface thread
// and waits for the answer, so the logic never touches a widget.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zef {

enum class Icona { Nessuna, Critico, Domanda, Esclamazione, Informazione };
enum class Pulsanti { Ok, OkAnnulla, SiNo, SiNoAnnulla };
enum class Risposta { Ok, Annulla, Si, No };

// What a progress window shows (the shared progress window and its kin).
struct StatoAvanzamento {
    std::string titolo;       // window title, may be empty
    std::string etichetta;    // "Sviluppo in corso..."
    std::string etichetta1;   // caption beside the first count ("Combinazioni ok:")
    std::string testo1;       // first count
    std::string etichetta2;   // "Combinazioni esaminate:"
    std::string testo2;       // second count
    std::string suggerimento; // "ESC per interrompere"
    double minimo = 0;
    double massimo = 0;
    double valore = 0;
};

class Interfaccia {
public:
    virtual ~Interfaccia() = default;

    // Message box: text, title (empty: the program's title), icon and buttons.
    virtual Risposta messaggio(const std::string& testo, const std::string& titolo = "",
                               Icona icona = Icona::Nessuna, Pulsanti pulsanti = Pulsanti::Ok) = 0;

    // Input box: nullopt when cancelled.
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& titolo,
                                                const std::string& predefinito = "") = 0;

    // File dialogs. `filtro` in the form "Zefiranto files|*.zfr"; nullopt when cancelled.
    virtual std::optional<std::string> dialogoApri(const std::string& filtro, const std::string& titolo = "") = 0;
    virtual std::optional<std::string> dialogoSalva(const std::string& filtro, const std::string& titolo = "") = 0;

    // The progress window of a long pass: shown modal, updated, closed.
    virtual void mostraAvanzamento(const StatoAvanzamento& stato) = 0;
    virtual void aggiornaAvanzamento(const StatoAvanzamento& stato) = 0;
    virtual void chiudiAvanzamento() = 0;
    // Keys pressed in the progress window since the last call (27 is ESC). The pass
    // drains them at its yield points and serves them there, in order.
    virtual std::vector<int> tastiAvanzamento() = 0;

    // The bar of the main window (list building, file loading).
    virtual void barraPrincipale(double minimo, double massimo, double valore) = 0;

    // Hourglass on the busy controls while a command works.
    virtual void clessidra(bool attiva) = 0;

    // Opens a document with the system's default viewer; result ignored.
    virtual void apriDocumento(const std::string& percorso) = 0;
};

// Shows a run-time error the way the run time does, and returns: the program keeps running.
void MostraErroreEsecuzione(Interfaccia& ui, int numero, const std::string& testo);

// Runs an event handler; an untrapped run-time error ends the handler and is shown in
// a run-time error box, as the event boundary of the original would.
void EseguiEvento(Interfaccia& ui, const std::function<void()>& gestore);

}  // namespace zef
