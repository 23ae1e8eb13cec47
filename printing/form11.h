// "IMPOSTAZIONI DI STAMPA": the play slips, one play of the list a slip.
//
// The four boxes of the geometry are texts, read with "," taken as "."; they are
// kept in cooxy.txt, read when the window loads and written anew only after a
// print. The walk prints every slip of the range through the printer seam; in
// single-slip mode it ends the document after each slip and waits for the user.
#pragma once

#include "core/interfaccia.h"
#include "printing/destinazione.h"
#include "printing/scheda.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zef {

struct Sistema;

// The geometry file: up to four lines (upper margin, left margin, vertical pitch,
// horizontal pitch), each taken by its leading number with "," read as ".". A
// missing file, or fewer lines, leaves the texts not read as they were.
void LeggiGeometria(const std::string& file, std::array<std::string, 4>& caselle);
// The same on the file's text.
void LeggiGeometriaDaTesto(std::string_view testo, std::array<std::string, 4>& caselle);
// Writes the four values anew, one a line with a point. Raises ErroreEsecuzione
// when the file cannot be written; the file that was there then stays whole.
void ScriviGeometria(const std::string& file, const std::array<std::string, 4>& caselle);
// The value of a box of the geometry: its leading number with "," read as ".".
double ValoreCasella(const std::string& testo);
// A number as the geometry file holds it ("5", "7.5").
std::string NumeroPunto(double v);

class Form11 {
public:
    static constexpr const char* Titolo = "IMPOSTAZIONI DI STAMPA";
    static constexpr const char* CaptionOption1 = "INTERVALLO";
    static constexpr const char* CaptionOption2 = "TUTTE";
    static constexpr const char* CaptionFrame1 = "Giocate valide per n.concorsi";
    static constexpr const char* CaptionCheck1 = "SCHEDINA SINGOLA";
    static constexpr const char* CaptionCommand1 = "STAMPA";
    static constexpr const char* CaptionCommand2 = "ANNULLA";
    // The tool tips are the wrong way round with respect to the box, and stay so.
    static constexpr const char* ToolTipSpuntato = "stampa le schedine in modo continuo senza richiesta di inserimento";
    static constexpr const char* ToolTipNonSpuntato = "stampa le schedine una per volta, con richiesta di inserimento";
    static constexpr const char* TitoloAttesa = "Attesa";
    static constexpr const char* MessaggioAttesa = "Inserire una scheda nuova, e premere su ok quando pronti.";
    static constexpr const char* TitoloAnnulla = "ANNULLARE LA STAMPA?";
    static constexpr const char* MessaggioAnnulla = "Si vuole annulare la stampa? ";
    static constexpr const char* DocumentoSchedine = "Zefiranto 2.0 - schedine";
    static constexpr const char* NomeFileGeometria = "cooxy.txt";

    // The boxes with spinners: the geometry (UpDown3..UpDown6), then the range.
    enum Casella { MSuperiore, MSinistro, PVerticale, POrizzontale, SchedeDA, SchedeA };
    // Step of the geometry's spinners, millimetres.
    static constexpr double PassoGeometria = 0.5;

    Form11(Sistema& s, Interfaccia& ui, DestinazioneStampa& destinazione);

    // ---- controls ------------------------------------------------------------------
    // MSuperiore, MSinistro, PVerticale, POrizzontale.
    std::array<std::string, 4> geometria{"5", "5", "7", "7"};
    std::string schedeDA = "1";
    std::string schedeA = "0";
    bool Option1 = false;  // INTERVALLO
    bool Option2 = true;   // TUTTE
    std::array<bool, 8> Option3{};  // 1..7: 2, 3, 4, 5, 6, 9, 10 draws; none on: one draw
    bool Check1 = false;            // SCHEDINA SINGOLA
    std::string Check1ToolTip = ToolTipNonSpuntato;
    bool caricato = false;
    bool visibile = false;

    // The geometry file; the program's own unless changed. The command line reads
    // another and writes none (salvaGeometria false).
    std::string fileGeometria;
    bool salvaGeometria = true;
    // Called as each slip of the range starts, with its number (the command line
    // marks the slips in its listing of positions).
    std::function<void(int64_t)> allaScheda;

    // ---- events ----------------------------------------------------------------------
    void carica();
    void scarica();
    void clickCheck1();
    void clickOption(int n);        // 1 INTERVALLO, 2 TUTTE
    // 1..7. A click on the option that is on takes it off: back to one draw.
    void clickOption3(int i);
    // A spinner's arrow: +1 up, -1 down.
    void upDown(Casella c, int verso);
    // The text of a box as typed.
    void cambia(Casella c, const std::string& testo);
    const std::string& testo(Casella c) const;
    // The geometry in force (the preview draws it on every change).
    Geometria valori() const;
    // The header of slip s: its number and the stake of one play, the labels of the
    // kinds played added up.
    std::string intestazione(int64_t s) const;

    // Prints the slips; after a print the geometry is saved and the window hidden.
    void clickCommand1();
    void clickCommand2() { visibile = false; }

    // The walk over the list. `anteprima` leaves out the wait between sheets.
    void StampaSchede(Stampante& st, bool anteprima);

private:
    Sistema& s_;
    Interfaccia& ui_;
    DestinazioneStampa& destinazione_;
};

}  // namespace zef
