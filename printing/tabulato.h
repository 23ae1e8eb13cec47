// The listing: the system printed on plain paper as fixed-pitch lines.
//
// A heading, then up to three sections chosen in "OPZIONI DI STAMPA": the forecast
// with the kind of system, the conditions with the win percentages, and the plays
// three to a line. Every line is blank-padded text in one fixed-pitch face.
#pragma once

#include "printing/stampante.h"

#include <string>

namespace zef {

struct Sistema;

struct SezioniTabulato {
    bool pronostico = false;
    bool condizioni = false;
    bool giocate = false;
};

namespace tabulato {
inline const Carattere Titolo{caratteri::Arial, 18, true};
inline const Carattere Righe{"Courier new", 11, false};
// Rows of the list per round of the plays section.
constexpr int RighePerGiro = 120;
// Lines of the plays section beyond which a print is refused: the section grows
// with the square of the list (some 30,000 pages here, from about 27,000 rows).
constexpr int64_t LimiteRigheGiocate = 2000000;
constexpr int64_t RighePerPagina = 60;
}  // namespace tabulato

// Prints the listing and ends the document. `data` is today's date in the locale's
// short form. Raises ErroreEsecuzione where the fixed numbers run off their table.
void StampaTabulato(const Sistema& s, const SezioniTabulato& sezioni, const std::string& data, Stampante& st);

// Lines the plays section prints for a list of `righe` rows (its new pages apart).
int64_t RigheSezioneGiocate(int64_t righe);

// The line of the system's name: "nessuno" or the first 50 characters of the file name.
std::string RigaNomeSistema(const std::string& fileName);
// Line r (1..9) of the number table.
std::string RigaTabellaNumeri(const Sistema& s, int r);
// The kind of system by the reduction dialog's option and GaranziaAttiva.
std::string RigaTipoSistema(const Sistema& s);

// Today's date in the short form of the environment's locale (the command line;
// the program passes the one of its own locale).
std::string DataCortaLocale();

}  // namespace zef
