// The condition set: fifteen on/off flags and the flat tables the filter reads.
//
// Tables are addressed 1-based as the dialog writes them; element 0 is unused unless
// told. The list-held tables (filter columns, sections, sequences) grow one entry
// per add; `PuntiFiltro` and `PresenzeSequele` keep the number of rows they have,
// because a count that runs past them is a subscript failure of the filter.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zef {

struct Condizioni {
    Condizioni() { carica(); }
    // The shapes and zero contents the dialog gives at load.
    void carica();

    // CondizioneAttiva(1..15): chkAttivo(i) is flag i + 1.
    std::array<bool, 16> CondizioneAttiva{};

    std::array<int16_t, 4> Consecutivita{};   // 1 least steps, 2 most steps, 3 mode (0 Gruppo, 1 Totale)
    std::array<int16_t, 12> Interruzioni{};   // 1..6 presences; element 6 doubles as the run limit
    // ColonneFiltro(x, f), x = 1..90, f = 1..n: entry 0 of the vector is unused.
    std::vector<std::array<bool, 91>> ColonneFiltro;
    // PuntiFiltro(p + 1, f): rows 0..righePuntiFiltro.
    std::vector<std::array<bool, 12>> PuntiFiltro;
    int righePuntiFiltro = 11;
    // Sezioni(a, s), a = 1..6: Da, A, min, max, consecutive min and max in steps.
    std::vector<std::array<int16_t, 7>> Sezioni;
    std::array<int16_t, 3> SommaGlobale{};
    std::array<int16_t, 11> PariDispari{};
    std::array<int16_t, 4> DistanzaNumeri{};  // 1 min + 1, 2 max + 1, 3 mode (0 Unità, 1 Segni)
    // GruppiPD(1, x + 1) even-length groups admitted, GruppiPD(2, x + 1) odd-length.
    std::array<std::array<bool, 12>, 3> GruppiPD{};
    std::array<int16_t, 12> InterruzioniPD{};
    // PosizioniNumeri(p, x): p = 1..10, x = 1..90 allowed, x = 91 the position's state.
    std::array<std::array<int16_t, 92>, 11> PosizioniNumeri{};
    // SequelePD(a, s): 1..3 the signs (1 P, 2 D, 0 none), 4 the passo (0 = "N").
    std::vector<std::array<int16_t, 5>> SequelePD;
    std::vector<std::array<bool, 12>> PresenzeSequele;
    int righePresenzeSequele = 11;
    // NumeriArchivio(x, c), c = 1..N.
    std::vector<std::array<bool, 91>> NumeriArchivio;
    // RitardoFrequenza(1, 1..2) mean delay limits, (2, 1..2) mean frequency limits.
    bool esisteRitardoFrequenza = false;
    std::array<std::array<float, 3>, 3> RitardoFrequenza{};
    std::array<int16_t, 91> ValoriNumeri{};
    std::array<int16_t, 91> RitardiNumeri{};
    std::array<std::array<int16_t, 3>, 91> RitFrqNumeri{};

    // NumeriFissi(1..n): the fixed numbers of the first test. The table is shared with
    // the fixed-numbers dialog of the development, so the filter takes it from the
    // sistema at each pass; this copy is what the filter works on.
    std::vector<int16_t> NumeriFissi{0};

    int numFiltri() const { return static_cast<int>(ColonneFiltro.size()) - 1; }
    int numSezioni() const { return static_cast<int>(Sezioni.size()) - 1; }
    int numSequele() const { return static_cast<int>(SequelePD.size()) - 1; }
    int numColonneArchivio() const { return static_cast<int>(NumeriArchivio.size()) - 1; }
    int numFissi() const { return static_cast<int>(NumeriFissi.size()) - 1; }
};

}  // namespace zef
