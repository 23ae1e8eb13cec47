// The draws of a range taken as columns of five and measured the way the conditions
// measure a column: the envelope of what the past draws did, which the window
// "Parametri delle colonne in archivio" offers as settings.
//
// Each draw also needs the delay and the frequency of its numbers as they stood at
// that draw, over the last 501 and 91 draws. Recounting those windows draw by draw
// reads some 43 million rows over the whole archive on every wheel; PassateProgressive
// keeps them up to date instead, one draw at a time, and gives the very tables the
// plain passes would leave (a pass that stops at a bad field is replayed as written).
#pragma once

#include "archive/fonte_estrazioni.h"

#include <array>
#include <cstdint>
#include <vector>

namespace zef {

namespace misura {
// Wheels as the play dialog finds them: 1..11 one wheel (11 Nazionale), 12 "Tutte"
// (Bari..Venezia, Nazionale left out), 0 none chosen.
constexpr int NessunaRuota = 0;
constexpr int Nazionale = 11;
constexpr int Tutte = 12;
// The n of the two passes for each draw: the delays over the last n + 1 draws, the
// frequencies over the last n + 1.
constexpr long UltimeRitardi = 500;
constexpr long UltimeFrequenze = 90;
}  // namespace misura

// One pass as written: the rows with id <= the draw's id are `righe[0..quante)`; it
// reads the last n + 1 of them on each wheel read (for "Tutte" Bari..Venezia in turn).
// The frequency pass counts each number drawn; the delay pass raises every number by
// one per draw read and sets the draw's numbers to 0, and is not cleared between
// wheels. The table starts at zero; a start before the first row or a field that is
// null or outside 1..90 ends the pass there, with the table as it stands. False then.
bool PassataFrequenze(const EstrazioneLetta* righe, long quante, int ruota, long n, std::array<int16_t, 91>& t);
bool PassataRitardi(const EstrazioneLetta* righe, long quante, int ruota, long n, std::array<int16_t, 91>& t);

// The two passes at growing ids, kept up to date draw by draw.
class PassateProgressive {
public:
    // `righe` in id order, outliving this object: every row the passes may read (all
    // the archive, or its tail from well before the first id asked).
    PassateProgressive(const std::vector<EstrazioneLetta>& righe, int ruota, long nRitardi = misura::UltimeRitardi,
                       long nFrequenze = misura::UltimeFrequenze);

    // The tables as the passes leave them at draw `id` (rows with id <= `id`). The ids
    // asked never go down.
    void posiziona(long id);
    int ritardo(int x) const;    // RitardiNumeri(x), x = 1..90
    int frequenza(int x) const;  // ValoriNumeri(x)

private:
    enum class Stato { Zero, Veloce, Tabella };
    void aggiungi(long riga);
    bool pulita(long primaRiga) const;  // no bad field on the wheels read from that row to the end

    const std::vector<EstrazioneLetta>& righe_;
    int ruota_;
    std::vector<int> ruote_;
    long nR_, nF_;
    long L_ = 0;  // rows read so far: those with id <= the present id
    // Per wheel read: the row where each number last came out, the count of each over
    // the frequency window, and the running count of rows with a bad field.
    std::vector<std::array<int32_t, 91>> ultima_;
    std::vector<std::array<int16_t, 91>> conteggi_;
    std::vector<std::vector<int32_t>> guaste_;
    Stato statoR_ = Stato::Zero, statoF_ = Stato::Zero;
    std::array<int16_t, 91> tabellaR_{}, tabellaF_{};
};

// What the draws of the range did, in the shape of the window's controls: list
// indices, 0/1 boxes, the values of the text fields, and the two tables.
struct ParametriColonne {
    int Combo1 = 5, Combo2 = 0;  // least and most steps ("1".."6")
    int Combo5 = 0;              // longest run of interruptions, less one
    int Combo7 = -1;             // longest run of parity interruptions, less one; no start choice
    int Combo10 = 0;             // most numbers shared with one of the ten draws before
    std::array<int, 6> Check1{};             // interruption counts seen
    std::array<int, 6> chkInterruzioniPD{};  // parity interruption counts seen
    std::array<int, 4> chkGruppiPari{};
    std::array<int, 7> chkGruppiDispari{};
    int sommaMin = 440, sommaMax = 15;
    int pariMin = 5, pariMax = 0, pariCons = 0;
    int dispariMin = 5, dispariMax = 0, dispariCons = 0;
    // SezioniSuggerite(a, s), s = 1..3: 1-30, 31-60, 61-90; the minima start high.
    std::array<std::array<int16_t, 7>, 4> SezioniSuggerite{};
    // PosizioniSuggerite(j, x): x came out at place j of the ordered draw.
    std::array<std::array<int16_t, 91>, 6> PosizioniSuggerite{};
    int16_t ritardoMin = 100, ritardoMax = 0, frequenzaMin = 90, frequenzaMax = 0;
    // The running sum of the smallest gaps, a whole number: "Tutte" divides it by ten
    // after each row, rounding it each time.
    int32_t sommaDistanze = 0;

    long righe = 0;         // draws in the range
    bool misurate = false;  // a wheel was chosen and the measuring ran
    bool interrotta = false;
    int errore = 0;         // run-time error that ended the measuring
    long rigaErrore = 0;    // the row (1..righe) it came at

    ParametriColonne();
};

// Measures the draws with `prima` <= id <= `ultima` on `ruota` (misura:: codes).
// `righe` in id order holds them and every row the passes read (see PassateProgressive).
// An error ends the measuring and leaves the envelope up to that point.
ParametriColonne MisuraColonne(const std::vector<EstrazioneLetta>& righe, long prima, long ultima, int ruota,
                               long nRitardi = misura::UltimeRitardi, long nFrequenze = misura::UltimeFrequenze);

// Reads from `fonte` what MisuraColonne needs for a range starting at `prima`: the
// tail of the archive from a little before it, or all of it when the ids leave gaps.
std::vector<EstrazioneLetta> LeggiPerMisura(FonteEstrazioni& fonte, long prima);

}  // namespace zef
