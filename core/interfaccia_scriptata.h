// An Interfaccia that answers from a script and records what it was shown.
//
// Tests queue the answers of message boxes, input boxes and file dialogs, and the
// keys that the progress window receives at given yield points; afterwards they read
// every box that came up (text, title, icon, buttons). The command line uses it with
// fixed answers.
#pragma once

#include "core/interfaccia.h"

#include <deque>
#include <map>
#include <mutex>

namespace zef {

struct BoxMostrato {
    std::string testo;
    std::string titolo;
    Icona icona;
    Pulsanti pulsanti;
    Risposta risposta;
};

class InterfacciaScriptata : public Interfaccia {
public:
    // Answers, taken in order. With none left: Ok for Ok boxes, `rispostaPredefinita` else.
    std::deque<Risposta> risposte;
    Risposta rispostaPredefinita = Risposta::No;
    std::deque<std::optional<std::string>> input;
    std::deque<std::optional<std::string>> fileApri;
    std::deque<std::optional<std::string>> fileSalva;
    // Keys delivered at the n-th call of tastiAvanzamento (counted from 1).
    std::map<long long, std::vector<int>> tastiAllaCessione;

    // What happened.
    std::vector<BoxMostrato> box;
    std::vector<std::string> prompt;
    std::vector<StatoAvanzamento> avanzamenti;  // every show and update, in order
    long long cessioni = 0;                     // calls of tastiAvanzamento
    int avanzamentiAperti = 0;                  // shows minus closes
    int chiusureAvanzamento = 0;
    std::vector<std::string> documentiAperti;
    // Set to keep every progress update (off: only the last is kept, for long passes).
    bool registraOgniAvanzamento = false;

    Risposta messaggio(const std::string& testo, const std::string& titolo, Icona icona,
                       Pulsanti pulsanti) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& titolo,
                                        const std::string& predefinito) override;
    std::optional<std::string> dialogoApri(const std::string& filtro, const std::string& titolo) override;
    std::optional<std::string> dialogoSalva(const std::string& filtro, const std::string& titolo) override;
    void mostraAvanzamento(const StatoAvanzamento& stato) override;
    void aggiornaAvanzamento(const StatoAvanzamento& stato) override;
    void chiudiAvanzamento() override;
    std::vector<int> tastiAvanzamento() override;
    void barraPrincipale(double minimo, double massimo, double valore) override;
    void clessidra(bool attiva) override;
    void apriDocumento(const std::string& percorso) override;

    // The last box, or an empty one.
    BoxMostrato ultimoBox() const;

private:
    std::mutex m_;
};

}  // namespace zef
