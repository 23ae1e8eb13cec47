// The optimised reduction: known optimal covers reached, the guarantee always kept,
// never longer than the start, reproducible with a seed, a stop keeping the best, and
// the result going through the system as the ordinary reduction's would.
#include "reduction/ottimizza.h"

#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "prova_colonne.h"
#include "reduction/formottimizza.h"
#include "reduction/verifica.h"
#include "support/cartella.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace zef {
namespace {

std::vector<uint8_t> Da1A(int n) {
    std::vector<uint8_t> v;
    for (int i = 1; i <= n; ++i) v.push_back(static_cast<uint8_t>(i));
    return v;
}

// Every k-subset of the numbers holding all the fixed ones: a start that covers all.
std::vector<Riga> Tutte(const std::vector<uint8_t>& numeri, int k, const std::vector<uint8_t>& fisse = {}) {
    std::vector<Riga> v;
    const int n = static_cast<int>(numeri.size());
    std::vector<int> idx(static_cast<size_t>(k));
    for (int i = 0; i < k; ++i) idx[static_cast<size_t>(i)] = i;
    for (;;) {
        Riga r;
        for (int i : idx) r.push_back(numeri[static_cast<size_t>(i)]);
        if (std::all_of(fisse.begin(), fisse.end(), [&](uint8_t f) { return std::find(r.begin(), r.end(), f) != r.end(); }))
            v.push_back(r);
        int i = k - 1;
        while (i >= 0 && idx[static_cast<size_t>(i)] == n - k + i) --i;
        if (i < 0) return v;
        ++idx[static_cast<size_t>(i)];
        for (int j = i + 1; j < k; ++j) idx[static_cast<size_t>(j)] = idx[static_cast<size_t>(j - 1)] + 1;
    }
}

OpzioniOttimizza Passi(uint64_t passi, uint64_t seme = 1, int fili = 1) {
    OpzioniOttimizza o;
    o.passi = passi;
    o.seme = seme;
    o.fili = fili;
    return o;
}

TEST(Ottimizza, SchonheimBound) {
    EXPECT_EQ(LimiteSchonheim(7, 3, 2), 7);
    EXPECT_EQ(LimiteSchonheim(20, 5, 3), 116);
    EXPECT_EQ(LimiteSchonheim(25, 6, 3), 121);
    EXPECT_EQ(LimiteSchonheim(30, 5, 3), 438);
    EXPECT_EQ(LimiteSchonheim(40, 6, 3), 520);
    EXPECT_EQ(LimiteSchonheim(90, 5, 2), 414);
}

TEST(Ottimizza, ReachesKnownOptimalCovers) {
    struct Caso {
        int v, k, g;
        size_t ottimo;
    };
    // The Fano plane, the affine plane of order 3, and C(8,4,3) = 14.
    for (Caso c : {Caso{7, 3, 2, 7}, Caso{9, 3, 2, 12}, Caso{8, 4, 3, 14}}) {
        const auto numeri = Da1A(c.v);
        const auto inizio = Tutte(numeri, c.k);
        EsitoOttimizza e = OttimizzaCopertura(numeri, c.k, c.g, {}, 0, inizio, Passi(400000));
        EXPECT_EQ(e.righe.size(), c.ottimo) << c.v << " " << c.k << " " << c.g;
        EXPECT_TRUE(CoperturaCompleta(numeri, c.k, c.g, {}, 0, e.righe));
        EXPECT_EQ(e.iniziale, static_cast<int64_t>(inizio.size()));
        EXPECT_EQ(e.limite, static_cast<int64_t>(c.ottimo));
    }
}

TEST(Ottimizza, RandomCoversKeepTheGuaranteeAndNeverGrow) {
    std::mt19937 rng(11);
    for (int caso = 0; caso < 25; ++caso) {
        const int v = 6 + static_cast<int>(rng() % 6);
        const int k = 3 + static_cast<int>(rng() % 3);
        const int g = 2 + static_cast<int>(rng() % static_cast<unsigned>(k - 2));
        std::vector<uint8_t> numeri;
        while (static_cast<int>(numeri.size()) < v) {
            auto x = static_cast<uint8_t>(1 + rng() % 90);
            if (std::find(numeri.begin(), numeri.end(), x) == numeri.end()) numeri.push_back(x);
        }
        std::sort(numeri.begin(), numeri.end());
        std::vector<uint8_t> fisse;
        if (rng() % 3 == 0) fisse.push_back(numeri[rng() % numeri.size()]);
        const int distanza = rng() % 4 == 0 ? 1 : 0;
        const auto inizio = Tutte(numeri, k, fisse);
        ASSERT_TRUE(CoperturaCompleta(numeri, k, g, fisse, distanza, inizio));
        EsitoOttimizza e = OttimizzaCopertura(numeri, k, g, fisse, distanza, inizio, Passi(20000, caso, 2));
        EXPECT_TRUE(CoperturaCompleta(numeri, k, g, fisse, distanza, e.righe)) << "caso " << caso;
        EXPECT_LE(e.righe.size(), inizio.size());
        for (const auto& r : e.righe)
            for (uint8_t f : fisse) EXPECT_NE(std::find(r.begin(), r.end(), f), r.end());
    }
    // A list that misses a target is told apart.
    auto numeri = Da1A(7);
    auto righe = Tutte(numeri, 3);
    righe.erase(std::remove_if(righe.begin(), righe.end(), [](const Riga& r) { return r[0] == 1 && r[1] == 2; }),
                righe.end());
    EXPECT_FALSE(CoperturaCompleta(numeri, 3, 2, {}, 0, righe));
}

TEST(Ottimizza, ASeedAndAFixedNumberOfMovesGiveTheSameList) {
    const auto numeri = Da1A(12);
    const auto inizio = Tutte(numeri, 4);
    EsitoOttimizza a = OttimizzaCopertura(numeri, 4, 3, {}, 0, inizio, Passi(30000, 5, 2));
    EsitoOttimizza b = OttimizzaCopertura(numeri, 4, 3, {}, 0, inizio, Passi(30000, 5, 2));
    EXPECT_EQ(a.righe, b.righe);
}

TEST(Ottimizza, AStopKeepsTheBestFoundSoFar) {
    const auto numeri = Da1A(10);
    const auto inizio = Tutte(numeri, 4);
    std::atomic<bool> ferma{true};
    OpzioniOttimizza o;
    o.secondi = 30;
    EsitoOttimizza e = OttimizzaCopertura(numeri, 4, 2, {}, 0, inizio, o, &ferma);
    EXPECT_TRUE(e.interrotta);
    EXPECT_TRUE(CoperturaCompleta(numeri, 4, 2, {}, 0, e.righe));
    EXPECT_LE(e.righe.size(), inizio.size());
}

TEST(Ottimizza, ReductionKeepsEveryColumnWithinTheGuarantee) {
    std::mt19937 rng(3);
    for (int caso = 0; caso < 8; ++caso) {
        const int n = 8 + static_cast<int>(rng() % 3);
        const int k = 4 + static_cast<int>(rng() % 2);
        const int g = 2 + static_cast<int>(rng() % 2);
        std::vector<Riga> colonne = Tutte(Da1A(n), k);
        // Thinned as a condition would.
        std::vector<Riga> tenute;
        for (auto& c : colonne)
            if (rng() % 4 != 0) tenute.push_back(c);
        std::vector<int64_t> inizio(tenute.size());
        for (size_t i = 0; i < inizio.size(); ++i) inizio[i] = static_cast<int64_t>(i);
        EsitoOttimizza e = OttimizzaRiduzione(tenute, g, inizio, Passi(3000, caso, 1 + caso % 2));
        EXPECT_LT(e.righe.size(), inizio.size());
        for (const auto& c : tenute) {
            bool coperta = false;
            for (const auto& r : e.righe) {
                int comuni = 0;
                for (uint8_t x : c) comuni += std::find(r.begin(), r.end(), x) != r.end();
                coperta |= comuni >= g;
            }
            EXPECT_TRUE(coperta) << "caso " << caso;
        }
        for (const auto& r : e.righe) EXPECT_NE(std::find(tenute.begin(), tenute.end(), r), tenute.end());
    }
}

TEST(FormOttimizza, CoverGoesToTheListPricedSavedAndReloaded) {
    prova::CartellaTemporanea cartella;
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {3, 9, 14, 22, 35, 41, 58, 63, 77});
    s.CostoColonna = Currency::daInteri(1);
    FormOttimizza f(s, ui);
    f.compito = 2;
    f.k = 3;
    f.garanzia = 2;
    f.passi = 200000;
    ASSERT_TRUE(f.clickAvvia());
    EXPECT_EQ(f.ottimizzate, 12);
    EXPECT_GT(f.iniziale, 12);
    EXPECT_EQ(f.limite, 12);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 12);
    EXPECT_EQ(s.ListaCol, "12");
    EXPECT_EQ(s.TipoGaranzia, 2);
    EXPECT_TRUE(s.GaranziaAttiva);
    EXPECT_EQ(s.pannelli[1], pannello::Ridotte(12));
    EXPECT_NE(s.pannelli[2].find("12"), std::string::npos);
    EXPECT_EQ(VerificaGaranzia(s, 2).scoperte, 0);
    // The progress window came and went.
    EXPECT_EQ(ui.avanzamentiAperti, 0);

    const std::string file = cartella / "s.zfr";
    ScriviSistema(s, file);
    Sistema t;
    InterfacciaScriptata ui2;
    LeggiSistema(t, ui2, file);
    ASSERT_EQ(t.MSFlexGrid1.Rows(), 12);
    for (int64_t r = 0; r < 12; ++r) EXPECT_EQ(t.MSFlexGrid1.riga(r), s.MSFlexGrid1.riga(r));
    EXPECT_EQ(t.pannelli[2], s.pannelli[2]);
}

TEST(FormOttimizza, ReductionReplacesTheReducedColumns) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(10));
    prova_rid::Sviluppa(s, prova::Numeri(10), 4);
    FormOttimizza f(s, ui);
    f.compito = 1;
    f.garanzia = 3;
    f.passi = 20000;
    ASSERT_TRUE(f.clickAvvia());
    EXPECT_LE(f.ottimizzate, f.iniziale);
    EXPECT_EQ(s.NumRidotte, f.ottimizzate);
    EXPECT_EQ(s.TipoGaranzia, 3);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);
    Visualizza(s, ui);
    EXPECT_EQ(s.MSFlexGrid1.Rows(), f.ottimizzate);
    EXPECT_EQ(VerificaGaranzia(s, 3).scoperte, 0);

    // Bad input: no columns, a time that is not a number.
    Sistema vuoto;
    FormOttimizza g(vuoto, ui);
    g.compito = 1;
    EXPECT_FALSE(g.clickAvvia());
    EXPECT_EQ(ui.ultimoBox().testo, FormOttimizza::MessaggioNessunaColonna);
    g.secondi = "abc";
    EXPECT_FALSE(g.clickAvvia());
    EXPECT_EQ(ui.ultimoBox().testo, FormOttimizza::MessaggioSecondi);
}

}  // namespace
}  // namespace zef
