// The win check: the plays of the list against one draw.
//
// Every row of the play list is read back out of its text (cells of three characters,
// up to SviluppoK numbers), and for each wheel the play covers, the row's hits among
// the wheel's five boxes are counted; the hits decide how many wins of each kind the
// row makes (a played cinquina also pays its five quaterne, ten terni ...). The boxes
// are compared as numbers, so a number typed twice counts twice and an empty box (0)
// matches a missing number of a short row: both are kept, the check has always
// counted that way.
//
// Speed: each row is parsed once, and the hits of a wheel are the sum of K lookups in
// a table of the wheel's boxes; a row whose cells are not small whole numbers goes
// through the plain comparison instead.
#pragma once

#include "core/basic.h"
#include "core/lista.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zef {

struct Sistema;

// The kinds by hits, as the play dialog's boxes: 0 estratto ... 4 cinquina.
constexpr int NumSorti = 5;

// The draw in the 55 boxes: wheel w (1..11) owns indices 5(w-1) .. 5(w-1)+4.
constexpr int NumCaselle = 55;
using Caselle = std::array<double, NumCaselle>;
// Val of each box's text (an empty box reads 0).
Caselle CaselleDaTesti(const std::array<std::string, NumCaselle>& testi);

// What the check reads of the play dialog.
struct GiocataSpoglio {
    int k = 0;                           // SviluppoK
    std::array<bool, NumSorti> giocata{};  // Check0..Check4 ticked
    std::array<bool, 12> ruote{};        // Option1(0..11); 11 is "Tutte le ruote"
    bool contaRuota(int w) const { return ruote[11] || ruote[static_cast<size_t>(w - 1)]; }
};
GiocataSpoglio GiocataDa(const Sistema& s);

// Wins added for `colpiti` hits by kind (0 estratto .. 4 cinquina): the ways to take
// the kind's size out of the hits; nothing for 0 or more than 5 hits.
int VinciteDaColpiti(int colpiti, int sorte);

// Words that open a listing line, by kind.
extern const std::array<const char*, NumSorti> ParoleSorti;  // "ESTRATTO " ... "CINQUINA "
// A listing line: kind, wheel (1..11), row index (0-based) and the row's text.
std::string RigaVincente(int sorte, int ruota, int64_t riga, std::string_view testo);

// The listing of the wins: a line per win, in order. It keeps a copy of the rows, the
// boxes and the play as they were checked, and the running count of lines at each row;
// a line is written out only when it is read (a window shows a few dozen), so a check
// that wins millions of estratti costs no more than the count of them.
class ListaVincente {
public:
    size_t size() const { return totale_; }
    bool empty() const { return totale_ == 0; }
    void clear();
    // Line i as the window lists it.
    std::string operator[](size_t i) const;
    std::vector<std::string> testi() const;

    // Used by the check: the state it checks, then the running count after each row.
    void prepara(const ListaGiocate& lista, const struct GiocataSpoglio& g, const Caselle& c);
    void fineRiga(uint64_t righeFinora) {
        fine_.push_back(righeFinora);
        totale_ = righeFinora;
    }

private:
    // The lines of row r, in order.
    std::vector<std::string> righeDi(int64_t r) const;
    ListaGiocate lista_;
    std::vector<int> ruote_;
    int k_ = 0;
    std::array<bool, 5> giocata_{};
    Caselle caselle_{};
    std::vector<uint64_t> fine_;
    uint64_t totale_ = 0;
};

struct EsitoSpoglio {
    std::array<int64_t, NumSorti> vincite{};  // by kind
    ListaVincente righe;                      // the listing, in order
};

// The check of every row. `righe` false leaves the listing empty (counts only).
// `avanzamento(r)` is called now and then with the row reached.
EsitoSpoglio Spoglia(const ListaGiocate& lista, const GiocataSpoglio& g, const Caselle& c, bool righe = true,
                     const std::function<void(int64_t)>& avanzamento = {});

// The value of the wins as the window's total label goes through it: for each kind
// from cinquina to estratto, stake x coefficient x count (a tenth with "Tutte le
// ruote"), added to the label; then 8% withheld. `puntate` are the stake boxes'
// texts by kind, `conteggi` the counters' texts by kind. Returns the label's text.
std::string ValoreVincite(const std::array<std::string, NumSorti>& conteggi,
                          const std::array<std::string, NumSorti>& puntate, const GiocataSpoglio& g);

}  // namespace zef
