// The words of the game: wheels, kinds, sizes, guarantee levels, stakes.
#pragma once

#include "core/basic.h"

#include <array>
#include <string>

namespace zef {

constexpr int NumeriLotto = 90;
constexpr int KMin = 2;
constexpr int KMax = 10;

// Wheels in the order of the play dialog's options; 11 is "Tutte le ruote".
constexpr int NumRuote = 11;
constexpr int TutteLeRuote = 11;
inline constexpr std::array<const char*, 12> NomiRuote = {
    "Bari", "Cagliari", "Firenze", "Genova", "Milano", "Napoli", "Palermo",
    "Roma", "Torino", "Venezia", "Nazionale", "Tutte le ruote"};

// Play kinds, by hits 1..5 (index 0 = Estratto).
inline constexpr std::array<const char*, 5> NomiSorti = {"Estratto", "Ambo", "Terno", "Quaterna", "Cinquina"};

// Development sizes: list index i of the size combo is k = i + 2.
inline constexpr std::array<const char*, 9> NomiSviluppo = {
    "COPPIE", "TERZINE", "QUARTINE", "CINQUINE", "SESTINE", "SETTINE", "OTTINE", "NOVINE", "DECINE"};
inline const char* NomeSviluppo(int k) { return (k >= KMin && k <= KMax) ? NomiSviluppo[k - KMin] : ""; }

// Guarantee levels 2..5.
inline const char* NomeGaranzia(int g) {
    switch (g) {
        case 2: return "ambo";
        case 3: return "terno";
        case 4: return "quaterna";
        case 5: return "cinquina";
        default: return "";
    }
}

// The thirteen stake amounts, in ten-thousandths of a euro, and their captions.
inline constexpr std::array<int64_t, 13> ImportiPuntata = {500, 1000, 2000, 5000, 10000, 20000, 30000,
                                                           50000, 100000, 200000, 500000, 1000000, 2000000};
inline constexpr std::array<const char*, 13> DidascaliePuntata = {
    "0,05", "0,10", "0,20", "0,50", "1,00", "2,00", "3,00", "5,00", "10,0", "20,0", "50,0", "100", "200"};

namespace detail {
// Pascal's triangle for n <= 90, k <= 10: the sizes the development asks in its loops.
inline constexpr auto TabellaBinomiali = [] {
    std::array<std::array<uint64_t, 11>, 91> t{};
    for (int n = 0; n <= 90; ++n) {
        t[n][0] = 1;
        for (int k = 1; k <= 10 && k <= n; ++k) t[n][k] = t[n - 1][k - 1] + (k <= n - 1 ? t[n - 1][k] : 0);
    }
    return t;
}();
}  // namespace detail

// Binomial coefficient, exact in 64 bits for n <= 90 and k <= 10 (beyond, as far as 64 bits go).
inline uint64_t Binomiale(int n, int k) {
    if (k < 0 || k > n) return 0;
    if (n <= 90 && k <= 10) return detail::TabellaBinomiali[n][k];
    if (k > n - k) k = n - k;
    __extension__ typedef unsigned __int128 U128;
    U128 r = 1;
    for (int i = 1; i <= k; ++i) r = r * (n - k + i) / i;
    return static_cast<uint64_t>(r);
}

}  // namespace zef
