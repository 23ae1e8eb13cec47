// The system checked against a run of past draws: what it would have won and spent,
// draw by draw, with the same rules and stakes as CERCA. Nothing is written.
//
// The rows are parsed once and turned into one bit set of rows per number; for a
// wheel, the five numbers' sets are added up bit-sliced (three bits a row), so a
// draw costs a few word operations per 64 rows and wheel, and the number of rows with
// each count of hits falls out of popcounts. Rows that cannot go in the sets (a cell
// that is not a number 1..90, a number twice) are checked one by one as CERCA does.
// The draws are split over the cores; the results do not depend on the split.
#pragma once

#include "core/basic.h"
#include "core/lista.h"
#include "wincheck/spoglio.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zef {

class ArchivioEstrazioni;

struct EstrazioneSpoglio {
    long id = 0;
    std::string data;  // ISO
    Caselle caselle{};  // a null field reads 0, as an empty box
};

// The draws of the archive in id order; `dal`/`al` ISO dates (empty: no bound), then
// the last `ultime` of them (0: all).
std::vector<EstrazioneSpoglio> LeggiEstrazioni(ArchivioEstrazioni& a, const std::string& dal = "",
                                               const std::string& al = "", long ultime = 0);

struct EsitoEstrazione {
    long id = 0;
    std::string data;
    std::array<int64_t, NumSorti> vincite{};  // by kind, estratti .. cinquine
    std::string vincitaTesto;                 // the total label after the tax
    Currency vincita;
    Currency spesa;
    Currency saldo;  // running balance up to this draw
};

struct TotaliPeriodo {
    int64_t estrazioni = 0;
    int64_t conVincita = 0;
    Currency spesa, vinta, saldo;
    Currency massima;          // the largest win of one draw
    std::string dataMassima;   // and its date
};

class VerificaPeriodo {
public:
    // `puntate`: the stake boxes' texts by kind; `costoColonna` the price of a row.
    VerificaPeriodo(const ListaGiocate& lista, const GiocataSpoglio& g, std::array<std::string, NumSorti> puntate,
                    Currency costoColonna);

    // Checks every draw; `avanzamento(fatte)` is called now and then from the calling
    // thread; `ferma` stops the pass (the results up to where it got are kept, in order).
    std::vector<EsitoEstrazione> Esegui(const std::vector<EstrazioneSpoglio>& estrazioni,
                                        const std::atomic<bool>* ferma = nullptr,
                                        const std::function<void(size_t)>& avanzamento = {}, int fili = 0) const;

    // The wins of one draw by kind (the counts CERCA would show).
    std::array<int64_t, NumSorti> Conta(const Caselle& c) const;

    static TotaliPeriodo Totali(const std::vector<EsitoEstrazione>& esiti);

private:
    GiocataSpoglio g_;
    std::array<std::string, NumSorti> puntate_;
    Currency costoRiga_;
    int64_t righe_ = 0;
    size_t parole_ = 0;                            // 64-bit words a set
    std::vector<uint64_t> insiemi_;                // 91 sets: rows holding number n
    ListaGiocate irregolari_;                      // rows checked one by one
    std::vector<int> ruote_;                       // the wheels the play covers
};

// The table of a check over a period for a spreadsheet (date, the five counts, win
// after tax, spent, running balance); raises std::runtime_error when it cannot write.
void ScriviVerificaCsv(const std::string& percorso, const std::vector<EsitoEstrazione>& esiti);

}  // namespace zef
