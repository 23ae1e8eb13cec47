// Ranks of the g-subsets of a column, the key of the reductions' indices.
//
// A sorted g-subset a1 < ... < ag of 1..90 has the colex rank sum C(ai - 1, i),
// dense in 0..C(90, g) - 1, so "is this g-subset covered?" is one bit.
#pragma once

#include <array>
#include <cstdint>

namespace zef::riduzione {

struct TavolaBinomiali {
    std::array<std::array<uint64_t, 12>, 92> c{};
    constexpr TavolaBinomiali() {
        for (int n = 0; n < 92; ++n) {
            c[n][0] = 1;
            for (int r = 1; r < 12; ++r) c[n][r] = n == 0 ? 0 : c[n - 1][r - 1] + c[n - 1][r];
        }
    }
};
inline constexpr TavolaBinomiali Binomiali{};

inline uint64_t C(int n, int r) { return (r < 0 || n < 0) ? 0 : Binomiali.c[n][r]; }

// True when the k numbers are strictly ascending within 1..90: the shape the
// development stores, and the one on which mask counts equal position counts.
inline bool ColonnaRegolare(const uint8_t* v, int k) {
    for (int i = 0; i < k; ++i) {
        if (v[i] < 1 || v[i] > 90) return false;
        if (i > 0 && v[i] <= v[i - 1]) return false;
    }
    return true;
}

// A handful of numbers: insertion sort.
inline void OrdinaPochi(uint8_t* v, int n) {
    for (int i = 1; i < n; ++i)
        for (int j = i; j > 0 && v[j - 1] > v[j]; --j) {
            uint8_t t = v[j];
            v[j] = v[j - 1];
            v[j - 1] = t;
        }
}

// Calls f(rank) for every g-subset of the ascending numbers v[0..k), 1 <= g <= k.
template <class F>
inline void PerOgniSottoinsieme(const uint8_t* v, int k, int g, F&& f) {
    int idx[12];
    for (int i = 0; i < g; ++i) idx[i] = i;
    for (;;) {
        uint64_t r = 0;
        for (int i = 0; i < g; ++i) r += Binomiali.c[v[idx[i]] - 1][i + 1];
        f(r);
        int i = g - 1;
        while (i >= 0 && idx[i] == k - g + i) --i;
        if (i < 0) return;
        ++idx[i];
        for (int j = i + 1; j < g; ++j) idx[j] = idx[j - 1] + 1;
    }
}

}  // namespace zef::riduzione
