// Amounts beyond the range of the currency type raise the run time's "Overflow"
// instead of wrapping round to a wrong amount.
#include "core/basic.h"
#include "core/errori.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <limits>

namespace zef {
namespace {

TEST(ValutaOverflow, SumsDifferencesAndProductsRaiseErrorSix) {
    const Currency grande = Currency::daDecimillesimi(std::numeric_limits<int64_t>::max() / 2 + 1);
    EXPECT_EQ(prova::NumeroErrore([&] { (void)(grande + grande); }), errori::Overflow);
    EXPECT_EQ(prova::NumeroErrore([&] { (void)(Currency{} - grande - grande - grande); }), errori::Overflow);
    EXPECT_EQ(prova::NumeroErrore([&] { (void)(grande * 3); }), errori::Overflow);
    EXPECT_EQ(prova::NumeroErrore([&] {
                  Currency c = grande;
                  c += grande;
              }),
              errori::Overflow);
    EXPECT_EQ(prova::NumeroErrore([&] { (void)Currency::daInteri(std::numeric_limits<int64_t>::max() / 1000); }),
              errori::Overflow);
    // Within range the arithmetic is exact, at the edge too.
    EXPECT_EQ((grande - Currency::daDecimillesimi(1)) + grande,
              Currency::daDecimillesimi(std::numeric_limits<int64_t>::max()));
    EXPECT_EQ(Currency::daInteri(2) * 20'000'000, Currency::daInteri(40'000'000));
}

}  // namespace
}  // namespace zef
