// The menu command "Aggiorna Estrazioni": brings the archive up to date from the web,
// one calendar year at a time, from the year of the latest stored draw to this year.
// Each year's draws go into the staging table EstrazioniTMP and are copied to
// estrazioni oldest first, those whose date is not there yet.
#pragma once

#include "archive/archivio.h"
#include "archive/fonte_web.h"
#include "core/interfaccia.h"

#include <string>

namespace zef {

struct ContestoAggiornamento {
    ArchivioEstrazioni& archivio;
    Interfaccia& ui;
    FonteWeb& fonte;
    ImpostazioniAggiornamento impostazioni;
    std::string cartella;  // where the tmp<year>.txt files go (the program's data folder)
    int annoCorrente;      // AnnoFine
};

// The command. Every outcome ends in one message box.
void AggiornaEstrazioni(ContestoAggiornamento& c);

// What a year's results page gave besides its draws.
struct EsitoPagina {
    int scartate = 0;              // draws passed over: a number not 1..90, or repeated on a wheel
    bool senzaEstrazioni = false;  // no element of class lottoDraws at all
};

// Fills EstrazioniTMP from a year's results page; stops at the first known date.
// `anno` is carried and not used.
EsitoPagina ParseLottoHTML(ArchivioEstrazioni& a, const std::string& html, int anno);

class ElementoHtml;
// The digits of the element's first span as a number; -1 without a span or a digit.
// Kept beside the parser, which does not call it.
long ParseEstrNum(const ElementoHtml& elemento);

// True when the text has 10 characters and the third and sixth are "/".
bool IsDataValida(const std::string& testo);
// day/month/year -> year-month-day, joining the pieces split on "/".
std::string DataToISO(const std::string& testo);
// Is a draw of this date stored. A text that is no date raises "Tipo non corrispondente".
bool EsisteDataLotto(ArchivioEstrazioni& a, const std::string& iso);

namespace messaggi_aggiornamento {
inline constexpr const char* Successo = "Aggiornamento completato con successo!";
inline constexpr const char* TitoloSuccesso = "FINE AGGIORNAMENTO";
// After the success message: the draws passed over, and the year pages without draws.
inline std::string EstrazioniScartate(int n) {
    return (n == 1 ? std::string("Un'estrazione non è stata memorizzata")
                   : std::to_string(n) + " estrazioni non sono state memorizzate") +
           ": contenevano numeri fuori da 1-90 o ripetuti sulla stessa ruota.";
}
inline std::string PaginaSenzaEstrazioni(int anno) {
    return "La pagina dei risultati dell'anno " + std::to_string(anno) +
           " non contiene alcuna estrazione: il sito potrebbe aver cambiato formato. Controllare le impostazioni "
           "di aggiornamento.";
}
inline constexpr const char* NonNecessario = "L' archivio delle estrazioni non ha bisogno di essere aggiornato!";
inline constexpr const char* NonEffettuato = "Aggiornamento NON effettuato!";
inline constexpr const char* Titolo = "Attenzione";
inline constexpr const char* SenzaSiti =
    "Aggiornamento NON effettuato: i siti delle estrazioni (sito1 e sito2) non sono impostati nel file "
    "aggiornamento.ini accanto al programma.";
inline constexpr const char* TitoloAttesa = "Attendere";
inline constexpr const char* CornicePredefinita = "Aggiornamento in corso...";
}  // namespace messaggi_aggiornamento

}  // namespace zef
