// "AVVIO DELLA STAMPA" and "OPZIONI DI STAMPA": the choice between the listing and
// the play slips, and the sections of the listing.
#pragma once

#include "core/interfaccia.h"
#include "printing/destinazione.h"
#include "printing/tabulato.h"

#include <functional>
#include <string>

namespace zef {

struct Sistema;

// The sections of the listing. AVVIA ticks the hidden Check4, which tells the
// caller to go on; ANNULLA and closing the window leave it clear.
class Form24 {
public:
    static constexpr const char* Titolo = "OPZIONI DI STAMPA";
    static constexpr const char* CaptionCheck1 = "PRONOSTICO";
    static constexpr const char* CaptionCheck2 = "CONDIZIONI";
    static constexpr const char* CaptionCheck3 = "GIOCATE";
    static constexpr const char* CaptionCommand1 = "AVVIA";
    static constexpr const char* CaptionCommand2 = "ANNULLA";

    bool Check1 = true;   // PRONOSTICO
    bool Check2 = true;   // CONDIZIONI
    bool Check3 = true;   // GIOCATE
    bool Check4 = false;  // hidden: the listing is to be printed
    bool caricato = false;
    bool visibile = false;

    void carica() {
        *this = Form24{};
        caricato = true;
    }
    // Closing the window other than by its buttons unloads it: its boxes start over.
    void scarica() { *this = Form24{}; }
    void clickCommand1() {
        Check4 = true;
        visibile = false;
    }
    void clickCommand2() {
        Check4 = false;
        visibile = false;
    }
    SezioniTabulato sezioni() const { return {Check1, Check2, Check3}; }
};

class Form10 {
public:
    static constexpr const char* Titolo = "AVVIO DELLA STAMPA";
    static constexpr const char* Label1 = "Scelta di stampa";
    static constexpr const char* CaptionOption1 = "STAMPA SU TABULATO";
    static constexpr const char* CaptionOption2 = "STAMPA SU SCHEDINE";
    static constexpr const char* CaptionCommand1 = "AVVIA";
    static constexpr const char* CaptionCommand2 = "ANNULLA";
    static constexpr const char* MessaggioPuntata = "Bisogna impostare una puntata prima di stampare il sistema!";
    static constexpr const char* TitoloPuntata = "Attenzione";
    static constexpr const char* TitoloErrore = "ERRORE DURANTE LA STAMPA";
    static constexpr const char* MessaggioErrore = "La stampa è stata annullata per il seguente motivo: ";
    static constexpr const char* DocumentoTabulato = "Zefiranto 2.0 - tabulato";
    static constexpr const char* TitoloTroppe = "ATTENZIONE";
    // The refusal of a plays section too long to print: its lines and pages.
    static std::string MessaggioTroppe(int64_t righe);

    Form10(Sistema& s, Interfaccia& ui, DestinazioneStampa& destinazione, Form24& form24)
        : s_(s), ui_(ui), destinazione_(destinazione), form24_(form24) {}

    bool Option1 = true;  // STAMPA SU TABULATO
    bool Option2 = false; // STAMPA SU SCHEDINE
    bool visibile = false;

    // The slip settings window, modal.
    std::function<void()> mostraForm11;
    // The listing's options, modal: the answer is in Form24.
    std::function<void()> mostraForm24;
    // Today's date in the short form of the user's locale (empty: the environment's).
    std::function<std::string()> dataOggi;

    void clickOption(int n) {
        Option1 = n == 1;
        Option2 = n == 2;
    }
    // AVVIA: the slips' settings, or the listing after its options.
    void clickCommand1();
    // ANNULLA: hides the window.
    void clickCommand2() { visibile = false; }
    // Closing it unloads it: the choice starts over.
    void scarica() {
        Option1 = true;
        Option2 = false;
        visibile = false;
    }

private:
    Sistema& s_;
    Interfaccia& ui_;
    DestinazioneStampa& destinazione_;
    Form24& form24_;
};

}  // namespace zef
