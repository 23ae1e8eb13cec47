// The 90-bit sets the filter and the reductions compare columns with.
#include "core/colonne.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

using namespace zef;

namespace {

std::set<int> Membri(Maschera m) {
    std::set<int> v;
    m.perOgni([&](int x) {
        v.insert(x);
        return true;
    });
    return v;
}

}  // namespace

TEST(Maschera, IntervalliFinoAiBordiDelleDueParole) {
    // every interval, including those that cross 64/65 and those past either end
    for (int da = -2; da <= 93; ++da)
        for (int a = -2; a <= 93; ++a) {
            std::set<int> atteso;
            for (int x = std::max(da, 1); x <= std::min(a, 90); ++x) atteso.insert(x);
            const Maschera m = Maschera::Intervallo(da, a);
            ASSERT_EQ(Membri(m), atteso) << da << ".." << a;
            ASSERT_EQ(m.conta(), static_cast<int>(atteso.size())) << da << ".." << a;
            ASSERT_EQ(m.vuota(), atteso.empty());
        }
    EXPECT_EQ(Maschera::FinoA(90).conta(), 90);
    EXPECT_EQ(Maschera::FinoA(200), Maschera::FinoA(90));
    EXPECT_TRUE(Maschera::FinoA(0).vuota());
}

TEST(Maschera, PerOgniInOrdineEFermabile) {
    Maschera m;
    for (int x : {90, 1, 64, 65, 33}) m.aggiungi(x);
    std::vector<int> visti;
    m.perOgni([&](int x) {
        visti.push_back(x);
        return true;
    });
    EXPECT_EQ(visti, (std::vector<int>{1, 33, 64, 65, 90}));
    visti.clear();
    const bool finito = m.perOgni([&](int x) {
        visti.push_back(x);
        return x < 64;
    });
    EXPECT_FALSE(finito);
    EXPECT_EQ(visti, (std::vector<int>{1, 33, 64}));
    EXPECT_EQ(Membri(meno(m, Maschera::Intervallo(33, 65))), (std::set<int>{1, 90}));
    EXPECT_EQ(comuni(m, Maschera::Intervallo(60, 90)), 3);
}
