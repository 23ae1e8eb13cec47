#include "wincheck/verifica_periodo.h"

#include "archive/aiuto.h"
#include "core/giocate.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <random>

namespace zef {
namespace {

// CERCA on one draw: the counts and the total label.
std::pair<std::array<int64_t, 5>, std::string> Cerca(const ListaGiocate& l, const GiocataSpoglio& g,
                                                      const std::array<std::string, 5>& puntate, const Caselle& c) {
    auto e = Spoglia(l, g, c, false);
    std::array<std::string, 5> punti;
    for (size_t s = 0; s < 5; ++s) punti[s] = e.vincite[s] > 0 ? TestoSemplice(e.vincite[s]) : " 0";
    return {e.vincite, ValoreVincite(punti, puntate, g)};
}

TEST(VerificaPeriodo, EveryDrawGivesWhatCercaGivesOnIt) {
    prova::Separatore punto('.');
    std::mt19937 rng(7);
    for (int caso = 0; caso < 60; ++caso) {
        const int k = 2 + static_cast<int>(rng() % 9);
        const int campo = 12 + static_cast<int>(rng() % 79);  // numbers 1..campo, so that hits happen
        ListaGiocate l;
        const int righe = 1 + static_cast<int>(rng() % 300);
        for (int r = 0; r < righe; ++r) {
            std::vector<uint8_t> n;
            while (static_cast<int>(n.size()) < k) {
                auto x = static_cast<uint8_t>(1 + rng() % campo);
                if (std::find(n.begin(), n.end(), x) == n.end() || rng() % 50 == 0) n.push_back(x);
            }
            std::string t = TestoRiga(n.data(), k);
            if (rng() % 60 == 0) t = t.substr(0, 3);  // a short row typed by hand
            l.AddItem(t);
        }
        GiocataSpoglio g;
        g.k = k;
        for (auto& x : g.giocata) x = rng() % 3 != 0;
        g.ruote[rng() % 12] = true;
        std::array<std::string, 5> puntate;
        for (auto& p : puntate) p = TestoSemplice(rng() % 3) + ".50";
        std::vector<EstrazioneSpoglio> estrazioni(40 + rng() % 100);
        for (size_t i = 0; i < estrazioni.size(); ++i) {
            estrazioni[i].id = static_cast<long>(i + 1);
            estrazioni[i].data = "2020-01-01";
            for (auto& v : estrazioni[i].caselle) v = rng() % 20 == 0 ? 0.0 : static_cast<double>(1 + rng() % campo);
        }
        VerificaPeriodo v(l, g, puntate, Currency::daInteri(1));
        for (int fili : {1, 2}) {
            auto esiti = v.Esegui(estrazioni, nullptr, {}, fili);
            ASSERT_EQ(esiti.size(), estrazioni.size());
            Currency saldo;
            for (size_t i = 0; i < esiti.size(); ++i) {
                auto [conti, testo] = Cerca(l, g, puntate, estrazioni[i].caselle);
                ASSERT_EQ(esiti[i].vincite, conti) << "caso " << caso << " estrazione " << i;
                ASSERT_EQ(esiti[i].vincitaTesto, testo);
                saldo += esiti[i].vincita - Currency::daInteri(righe);
                ASSERT_EQ(esiti[i].saldo, saldo);
            }
        }
    }
}

TEST(VerificaPeriodo, TotalsAndAStopKeepTheDrawsDoneInOrder) {
    prova::Separatore punto('.');
    ListaGiocate l;
    std::vector<uint8_t> riga{1, 2};
    l.AddItem(TestoRiga(riga.data(), 2));
    GiocataSpoglio g;
    g.k = 2;
    g.giocata[1] = true;
    g.ruote[0] = true;
    std::vector<EstrazioneSpoglio> e(3);
    e[0].data = "2020-01-01";
    e[1].data = "2020-01-02";
    e[2].data = "2020-01-03";
    e[1].caselle[0] = 1;
    e[1].caselle[1] = 2;
    VerificaPeriodo v(l, g, {"0", "1.00", "0", "0", "0"}, Currency::daInteri(1));
    auto esiti = v.Esegui(e);
    auto t = VerificaPeriodo::Totali(esiti);
    EXPECT_EQ(t.estrazioni, 3);
    EXPECT_EQ(t.conVincita, 1);
    EXPECT_EQ(t.spesa, Currency::daInteri(3));
    EXPECT_EQ(t.vinta, Currency::daInteri(230));
    EXPECT_EQ(t.saldo, Currency::daInteri(227));
    EXPECT_EQ(t.massima, Currency::daInteri(230));
    EXPECT_EQ(t.dataMassima, "2020-01-02");
    std::atomic<bool> ferma{true};
    EXPECT_TRUE(v.Esegui(e, &ferma).empty());
}

TEST(VerificaPeriodo, DrawsReadByDateRangeAndLastN) {
    prova::CartellaTemporanea cartella;
    auto a = ArchivioEstrazioni::ApriOCrea(cartella / "a.db");
    prova::RiempiProva(*a, 10, 1, 2020, true);
    auto tutte = LeggiEstrazioni(*a);
    ASSERT_EQ(tutte.size(), 10u);
    EXPECT_EQ(tutte[0].caselle[0], prova::NumeroProva(1, 1, 1));
    EXPECT_EQ(tutte[0].caselle[50], 0);  // Nazionale not drawn: an empty box
    auto periodo = LeggiEstrazioni(*a, "2020-01-03", "2020-01-05");
    ASSERT_EQ(periodo.size(), 3u);
    EXPECT_EQ(periodo.front().data, "2020-01-03");
    auto ultime = LeggiEstrazioni(*a, "", "", 4);
    ASSERT_EQ(ultime.size(), 4u);
    EXPECT_EQ(ultime.front().id, 7);
    EXPECT_TRUE(LeggiEstrazioni(*a, "2021-01-01", "").empty());
}

}  // namespace
}  // namespace zef
