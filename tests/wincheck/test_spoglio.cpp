#include "wincheck/spoglio.h"

#include "core/giocate.h"
#include "core/lista.h"
#include "support/prova_sistema.h"
#include "wincheck/spoglio_letterale.h"

#include <gtest/gtest.h>

#include <random>

namespace zef {
namespace {

ListaGiocate Lista(const std::vector<std::vector<int>>& righe) {
    ListaGiocate l;
    for (const auto& r : righe) {
        std::vector<uint8_t> n(r.begin(), r.end());
        l.AddItem(TestoRiga(n.data(), static_cast<int>(n.size())));
    }
    return l;
}

GiocataSpoglio Giocata(int k, std::array<bool, 5> giocata, int ruota) {
    GiocataSpoglio g;
    g.k = k;
    g.giocata = giocata;
    g.ruote[static_cast<size_t>(ruota)] = true;
    return g;
}

// Boxes with the given numbers on wheel w (1..11), the rest empty.
std::array<std::string, NumCaselle> Caselle(int w, const std::vector<int>& numeri) {
    std::array<std::string, NumCaselle> c;
    for (size_t i = 0; i < numeri.size(); ++i) c[static_cast<size_t>(5 * (w - 1)) + i] = TestoSemplice(numeri[i]);
    return c;
}

TEST(Spoglio, TernoOnThreeNumbersCountsEveryKindItHolds) {
    ListaGiocate l = Lista({{4, 17, 33}});
    auto c = Caselle(5, {33, 1, 4, 90, 17});  // Milano
    auto soloTerno = Spoglia(l, Giocata(3, {false, false, true, false, false}, 4), CaselleDaTesti(c));
    EXPECT_EQ(soloTerno.vincite[2], 1);
    EXPECT_EQ(soloTerno.vincite[1], 0);
    ASSERT_EQ(soloTerno.righe.size(), 1u);
    EXPECT_EQ(soloTerno.righe[0], "TERNO   su Milano  SCHEDINA: 1.        " + std::string(l.riga(0)));

    auto tutte = Spoglia(l, Giocata(3, {true, true, true, true, true}, 4), CaselleDaTesti(c));
    EXPECT_EQ(tutte.vincite[0], 3);
    EXPECT_EQ(tutte.vincite[1], 3);
    EXPECT_EQ(tutte.vincite[2], 1);
    ASSERT_EQ(tutte.righe.size(), 7u);
    // Kinds from the largest down inside a row and wheel.
    EXPECT_EQ(tutte.righe[0].substr(0, 6), "TERNO ");
    EXPECT_EQ(tutte.righe[1].substr(0, 5), "AMBO ");
    EXPECT_EQ(tutte.righe[6].substr(0, 9), "ESTRATTO ");
}

TEST(Spoglio, HitsOutsideTheTableAddNothing) {
    // A pair hitting both numbers with only the cinquina played: nothing.
    ListaGiocate l = Lista({{4, 17}});
    auto c = Caselle(1, {4, 17, 5, 6, 7});
    auto e = Spoglia(l, Giocata(2, {false, false, false, false, true}, 0), CaselleDaTesti(c));
    EXPECT_EQ(e.vincite, (std::array<int64_t, 5>{}));
    // A row typed by hand with a number twice, against a number typed three times in
    // the boxes: eight hits, nothing.
    ListaGiocate doppia = Lista({{4, 4, 17, 20}});
    auto d = Caselle(1, {4, 4, 4, 17, 20});
    auto f = Spoglia(doppia, Giocata(4, {true, true, true, true, true}, 0), CaselleDaTesti(d));
    EXPECT_EQ(f.vincite, (std::array<int64_t, 5>{}));
    // A doubled box counted twice: two hits from one number typed twice.
    ListaGiocate q = Lista({{4, 17, 20, 21}});
    auto g = Caselle(1, {4, 4, 50, 51, 52});
    auto h = Spoglia(q, Giocata(4, {false, true, false, false, false}, 0), CaselleDaTesti(g));
    EXPECT_EQ(h.vincite[1], 1);
}

TEST(Spoglio, EveryWheelWithAllWheelsGetsItsOwnLines) {
    ListaGiocate l = Lista({{10, 20}});
    std::array<std::string, NumCaselle> c;
    c[0] = "10";   // Bari
    c[47] = "20";  // Venezia
    c[50] = "10";  // Nazionale
    c[51] = "20";
    GiocataSpoglio g = Giocata(2, {true, true, false, false, false}, 11);
    auto e = Spoglia(l, g, CaselleDaTesti(c));
    EXPECT_EQ(e.vincite[0], 4);
    EXPECT_EQ(e.vincite[1], 1);
    ASSERT_EQ(e.righe.size(), 5u);
    EXPECT_NE(e.righe[0].find("su Bari"), std::string::npos);
    EXPECT_NE(e.righe[1].find("su Venezia"), std::string::npos);
    EXPECT_EQ(e.righe[2].substr(0, 5), "AMBO ");
    EXPECT_NE(e.righe[2].find("su Nazionale"), std::string::npos);
}

TEST(Spoglio, ListingLinePadsTheRowNumberToTenCharacters) {
    EXPECT_EQ(RigaVincente(1, 2, 0, " 1  2"), "AMBO   su Cagliari  SCHEDINA: 1.         1  2");
    EXPECT_EQ(RigaVincente(4, 10, 123455, "x"), "CINQUINA   su Venezia  SCHEDINA: 123456.   x");
    EXPECT_EQ(RigaVincente(0, 11, 1234567889, "x"), "ESTRATTO   su Nazionale  SCHEDINA: 1234567890.x");
}

TEST(Spoglio, ValueOfTheWinsAsTheLabelGoesThroughIt) {
    prova::Separatore punto('.');
    std::array<std::string, 5> puntate{"0", "1.00", "1.00", "0", "0"};
    // Milano only, a pair staked 1.00 on ambo hitting both numbers.
    GiocataSpoglio milano = Giocata(2, {false, true, false, false, false}, 4);
    EXPECT_EQ(ValoreVincite({" 0", "1", " 0", " 0", " 0"}, puntate, milano), "230.00");
    GiocataSpoglio tutte = Giocata(2, {false, true, false, false, false}, 11);
    EXPECT_EQ(ValoreVincite({" 0", "1", " 0", " 0", " 0"}, puntate, tutte), "23.00");
    // A terno of three numbers staked 1.00: 4500 less 8%.
    GiocataSpoglio terno = Giocata(3, {false, false, true, false, false}, 0);
    EXPECT_EQ(ValoreVincite({" 0", " 0", "1", " 0", " 0"}, puntate, terno), "4140.00");
    // Nothing won.
    EXPECT_EQ(ValoreVincite({" 0", " 0", " 0", " 0", " 0"}, puntate, terno), "0.00");
    // A kind won but not played is not valued; 83.3 is taken as written.
    GiocataSpoglio ambo3 = Giocata(3, {false, true, false, false, false}, 0);
    EXPECT_EQ(ValoreVincite({" 0", "3", "1", " 0", " 0"}, puntate, ambo3), "229.91");
    prova::Separatore virgola(',');
    std::array<std::string, 5> puntateVirgola{"0", "1,00", "0", "0", "0"};
    EXPECT_EQ(ValoreVincite({" 0", "1", " 0", " 0", " 0"}, puntateVirgola, milano), "230,00");
}

TEST(Spoglio, FastCheckMatchesThePlainOneOnRandomListsAndDraws) {
    std::mt19937 rng(20261124);
    for (int caso = 0; caso < 300; ++caso) {
        const int k = 2 + static_cast<int>(rng() % 9);
        ListaGiocate l;
        const int righe = 1 + static_cast<int>(rng() % 40);
        for (int r = 0; r < righe; ++r) {
            std::vector<uint8_t> n;
            // Mostly numbers from a small range, so that hits happen; now and then a
            // short row, a row with a number twice, or a cell that is not a number.
            const int quanti = (rng() % 10 == 0) ? 1 + static_cast<int>(rng() % k) : k;
            for (int p = 0; p < quanti; ++p) n.push_back(static_cast<uint8_t>(1 + rng() % 15));
            std::string testo = TestoRiga(n.data(), static_cast<int>(n.size()));
            if (rng() % 25 == 0) testo[1] = '.';
            l.AddItem(testo);
        }
        std::array<std::string, NumCaselle> c;
        for (auto& t : c) {
            switch (rng() % 12) {
                case 0: t = ""; break;
                case 1: t = "abc"; break;
                case 2: t = "7.5"; break;
                case 3: t = "-3"; break;
                default: t = TestoSemplice(1 + rng() % 15);
            }
        }
        GiocataSpoglio g;
        g.k = k;
        for (auto& x : g.giocata) x = rng() % 2;
        g.ruote[rng() % 12] = true;
        auto veloce = Spoglia(l, g, CaselleDaTesti(c));
        auto letterale = prova::SpogliaLetterale(l, g, c);
        for (int s = 0; s < 5; ++s)
            EXPECT_EQ(Val(letterale.punti[static_cast<size_t>(s)]), static_cast<double>(veloce.vincite[static_cast<size_t>(s)]))
                << "caso " << caso << " sorte " << s;
        EXPECT_EQ(veloce.righe.testi(), letterale.righe) << "caso " << caso;
        auto contiSoli = Spoglia(l, g, CaselleDaTesti(c), false);
        EXPECT_EQ(contiSoli.vincite, veloce.vincite);
        EXPECT_TRUE(contiSoli.righe.empty());
    }
}

}  // namespace
}  // namespace zef
