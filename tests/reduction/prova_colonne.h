// Columns for the reduction tests, written straight into Sistema::colonne.
#pragma once

#include "core/sistema.h"

#include <random>
#include <vector>

namespace prova_rid {

using namespace zef;

// All k-subsets of `numeri` in lexicographic order; each kept with probability
// `quota` (1: all), as a condition filter would thin them.
inline void Sviluppa(Sistema& s, const std::vector<int>& numeri, int k, double quota = 1.0,
                     unsigned seme = 1) {
    std::mt19937 rng(seme);
    std::uniform_real_distribution<double> u(0, 1);
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k, 1 << 20);
    s.NumColonne = 0;
    const int n = static_cast<int>(numeri.size());
    std::vector<int> idx(k);
    for (int i = 0; i < k; ++i) idx[i] = i;
    if (k > n) return;
    for (;;) {
        if (quota >= 1.0 || u(rng) < quota) {
            ++s.NumColonne;
            for (int p = 0; p < k; ++p) s.colonne.set(p + 1, s.NumColonne, static_cast<uint8_t>(numeri[idx[p]]));
        }
        int i = k - 1;
        while (i >= 0 && idx[i] == n - k + i) --i;
        if (i < 0) break;
        ++idx[i];
        for (int j = i + 1; j < k; ++j) idx[j] = idx[j - 1] + 1;
    }
}

// Columns given by hand.
inline void Imposta(Sistema& s, const std::vector<std::vector<int>>& colonne) {
    const int k = static_cast<int>(colonne.at(0).size());
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k, static_cast<int64_t>(colonne.size()) + 1);
    s.NumColonne = static_cast<int32_t>(colonne.size());
    for (size_t c = 0; c < colonne.size(); ++c)
        for (int p = 0; p < k; ++p) s.colonne.set(p + 1, c + 1, static_cast<uint8_t>(colonne[c][p]));
}

inline std::vector<std::vector<int>> Ridotte(const Sistema& s) {
    std::vector<std::vector<int>> v;
    for (int64_t c = 1; c <= s.NumRidotte; ++c) {
        std::vector<int> col;
        for (int p = 1; p <= s.SviluppoK; ++p) col.push_back(s.ColonneRidotte.get(p, c));
        v.push_back(col);
    }
    return v;
}

// n distinct numbers drawn from 1..90, ascending.
inline std::vector<int> NumeriCasuali(std::mt19937& rng, int n) {
    std::vector<int> tutti(90);
    for (int i = 0; i < 90; ++i) tutti[i] = i + 1;
    std::shuffle(tutti.begin(), tutti.end(), rng);
    tutti.resize(n);
    std::sort(tutti.begin(), tutti.end());
    return tutti;
}

}  // namespace prova_rid
