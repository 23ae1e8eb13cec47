// "Verifica garanzia": does the list in hand really keep a guarantee?
//
// After a reduction (NumRidotte above 0) every developed column must share at least
// g numbers with a row of the list; otherwise (a cover, or a list typed by hand)
// every combination of g numbers of the forecast must lie in a row. The rows are
// taken as sets of numbers. Every covered g-subset is one bit, so a column costs
// C(k, g) look-ups.
#pragma once

#include "core/interfaccia.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

struct EsitoVerifica {
    bool controColonne = false;  // developed columns (true) or g-combinations of the forecast
    int64_t esaminate = 0;
    int64_t scoperte = 0;
    std::vector<std::vector<int>> prime;  // the first ones left uncovered
};

EsitoVerifica VerificaGaranzia(const Sistema& s, int g, size_t quante = 10);

// The text that tells the result.
std::string TestoVerifica(const EsitoVerifica& e, int g);

constexpr const char* TitoloVerifica = "VERIFICA GARANZIA";

// The menu item: asks for the guarantee, checks and says so. Returns the result when a
// check ran.
bool MenuVerificaGaranzia(Sistema& s, Interfaccia& ui, EsitoVerifica* esito = nullptr);
// The check with g given; shows the box. False when nothing could be checked.
bool VerificaEMostra(Sistema& s, Interfaccia& ui, int g, EsitoVerifica* esito = nullptr);

}  // namespace zef
