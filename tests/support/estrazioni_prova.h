// Draws for the tests of the archive-based conditions: a few written out by hand,
// or many made by a formula, stored both in an archive database (made through the
// archive's own creation path) and in the in-memory list.
#pragma once

#include "support/cartella.h"
#include "archive/archivio.h"
#include "archive/fonte_estrazioni.h"

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace zef::prova {

inline void Imposta(EstrazioneLetta& e, int ruota, std::array<int, 5> numeri) {
    for (int p = 1; p <= 5; ++p) e.numeri[(ruota - 1) * 5 + p - 1] = static_cast<int16_t>(numeri[p - 1]);
}

// Wheel r, position p of draw i for the wheels not written by hand: distinct in a wheel.
inline int NumeroFormula(long i, int r, int p) { return static_cast<int>((i * 7 + r * 13 + p * 17) % 90) + 1; }

// Twelve draws, ids 1..12. Bari and Venezia written by hand; Nazionale null in the
// first three (before that wheel existed); Bari3 of draw 2 null; the other wheels by
// the formula.
inline std::vector<EstrazioneLetta> EstrazioniAMano() {
    struct Riga {
        std::array<int, 5> bari, venezia, nazionale;
    };
    const std::vector<Riga> righe = {
        {{12, 45, 3, 88, 67}, {5, 9, 77, 31, 60}, {0, 0, 0, 0, 0}},
        {{7, 45, 0, 19, 80}, {14, 22, 35, 61, 90}, {0, 0, 0, 0, 0}},
        {{33, 1, 56, 72, 9}, {8, 44, 17, 53, 26}, {0, 0, 0, 0, 0}},
        {{90, 11, 24, 38, 65}, {2, 71, 48, 15, 83}, {4, 18, 29, 57, 76}},
        {{6, 50, 73, 21, 44}, {39, 12, 66, 87, 30}, {61, 3, 45, 70, 88}},
        {{18, 2, 59, 85, 41}, {77, 54, 20, 9, 63}, {13, 26, 39, 52, 65}},
        {{64, 27, 13, 49, 3}, {41, 86, 7, 58, 24}, {1, 2, 3, 4, 5}},
        {{31, 75, 8, 60, 22}, {19, 33, 47, 80, 11}, {90, 80, 70, 60, 50}},
        {{45, 16, 79, 54, 37}, {68, 5, 29, 82, 43}, {11, 22, 33, 44, 55}},
        {{10, 20, 30, 40, 50}, {15, 25, 35, 45, 55}, {7, 14, 21, 28, 35}},
        {{81, 4, 36, 62, 29}, {1, 89, 57, 34, 12}, {6, 12, 18, 24, 30}},
        {{58, 70, 14, 26, 47}, {73, 38, 3, 66, 50}, {9, 27, 45, 63, 81}},
    };
    std::vector<EstrazioneLetta> v;
    for (size_t i = 0; i < righe.size(); ++i) {
        EstrazioneLetta e;
        e.id = static_cast<long>(i + 1);
        for (int r = 2; r <= 9; ++r)
            for (int p = 1; p <= 5; ++p) e.numeri[(r - 1) * 5 + p - 1] = static_cast<int16_t>(NumeroFormula(e.id, r, p));
        Imposta(e, 1, righe[i].bari);
        Imposta(e, 10, righe[i].venezia);
        Imposta(e, 11, righe[i].nazionale);
        v.push_back(e);
    }
    return v;
}

// n draws, ids 1..n, all wheels by the formula; Nazionale null below id 100.
inline std::vector<EstrazioneLetta> EstrazioniFormula(long n) {
    std::vector<EstrazioneLetta> v;
    for (long i = 1; i <= n; ++i) {
        EstrazioneLetta e;
        e.id = i;
        for (int r = 1; r <= 11; ++r)
            for (int p = 1; p <= 5; ++p)
                e.numeri[(r - 1) * 5 + p - 1] = r == 11 && i < 100 ? 0 : static_cast<int16_t>(NumeroFormula(i, r, p));
        v.push_back(e);
    }
    return v;
}

// A new archive at `percorso` holding the draws (a 0 is stored as null), one a day.
inline std::unique_ptr<ArchivioEstrazioni> ArchivioCon(const std::string& percorso,
                                                       const std::vector<EstrazioneLetta>& estrazioni) {
    auto a = ArchivioEstrazioni::ApriOCrea(percorso);
    ArchivioEstrazioni::Transazione t(*a);
    auto c = a->OpenRecordset("estrazioni");
    for (const auto& e : estrazioni) {
        c.AddNew();
        c.imposta("id", Valore(e.id));
        c.imposta("data", "2001-01-" + std::to_string(10 + e.id % 20));
        for (int r = 1; r <= 11; ++r)
            for (int p = 1; p <= 5; ++p)
                if (e.numero(r, p) != 0) c.imposta(NomeCampo(r, p), e.numero(r, p));
        c.Update();
    }
    t.Commit();
    return a;
}

inline EstrazioniInMemoria InMemoria(const std::vector<EstrazioneLetta>& estrazioni) {
    EstrazioniInMemoria m;
    m.righe = estrazioni;
    return m;
}

}  // namespace zef::prova
