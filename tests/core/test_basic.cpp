#include "core/basic.h"
#include "core/errori.h"

#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

using prova::Separatore;

TEST(TestoNumeri, FormaConSegnoESemplice) {
    EXPECT_EQ(TestoConSegno(7), " 7");
    EXPECT_EQ(TestoConSegno(-7), "-7");
    EXPECT_EQ(TestoConSegno(0), " 0");
    EXPECT_EQ(TestoSemplice(42), "42");
    EXPECT_EQ(Trim("  12 "), "12");
}

TEST(TestoNumeri, ValPrendeIlNumeroIniziale) {
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("  -3"), -3);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_DOUBLE_EQ(Val("1.5"), 1.5);
    EXPECT_EQ(Val("1,5"), 1);  // Val knows only the point
    EXPECT_EQ(Val(" 1 2 3"), 123);  // blanks inside are skipped
    EXPECT_DOUBLE_EQ(Val("2e3x"), 2000);
    EXPECT_EQ(Val("7e"), 7);
}

TEST(TestoNumeri, NumeroDaTestoSegueLaLocale) {
    {
        Separatore s(',');
        EXPECT_DOUBLE_EQ(NumeroDaTesto("1,5"), 1.5);
        EXPECT_EQ(DoubleInTesto(0.5), "0,5");
        EXPECT_EQ(FormatoDecimali(3, 2), "3,00");
    }
    {
        Separatore s('.');
        EXPECT_DOUBLE_EQ(NumeroDaTesto("1.5"), 1.5);
        EXPECT_EQ(NumeroDaTesto("1,5"), 1);
        EXPECT_EQ(DoubleInTesto(0.5), "0.5");
        EXPECT_EQ(DoubleInTesto(1919190), "1919190");
    }
}

TEST(TestoNumeri, FormaDiStr) {
    EXPECT_EQ(StrDouble(33.333333333333336), " 33.3333333333333");
    EXPECT_EQ(StrDouble(100), " 100");
    EXPECT_EQ(StrDouble(0), " 0");
    EXPECT_EQ(StrDouble(0.5), " .5");
    EXPECT_EQ(StrDouble(12.5), " 12.5");
}

TEST(Interi, OverflowDelleAmpiezze) {
    EXPECT_EQ(InInteger(32767), 32767);
    EXPECT_EQ(InInteger(-32768), -32768);
    try {
        InInteger(32768);
        FAIL();
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.numero, 6);
    }
    EXPECT_THROW(InLong(2147483648LL), ErroreEsecuzione);
    EXPECT_EQ(ArrotondaBanker(2.5), 2);
    EXPECT_EQ(ArrotondaBanker(3.5), 4);
}

TEST(CurrencyTest, TestiEConti) {
    Separatore s(',');
    Currency c = Currency::daTestoLocale("0,95");
    EXPECT_EQ(c.decimillesimi(), 9500);
    EXPECT_EQ(c.testoPunto(), "0.95");
    EXPECT_EQ(c.testoLocale(), "0,95");
    EXPECT_EQ(c.testoDueDecimali(), "0,95");
    EXPECT_EQ((c * 3).testoLocale(), "2,85");
    EXPECT_EQ(Currency{}.testoPunto(), "0");
    EXPECT_EQ(Currency::daInteri(200).testoDueDecimali(), "200,00");
    EXPECT_EQ(Currency::daDecimillesimi(-500).testoPunto(), "-0.05");
    Currency p;
    ASSERT_TRUE(Currency::daTestoPunto("1.5", p));
    EXPECT_EQ(p.decimillesimi(), 15000);
    EXPECT_FALSE(Currency::daTestoPunto("1,5", p));
    EXPECT_FALSE(Currency::daTestoPunto("abc", p));
    // Beyond four decimals: half to even.
    ASSERT_TRUE(Currency::daTestoPunto("0.00005", p));
    EXPECT_EQ(p.decimillesimi(), 0);
    ASSERT_TRUE(Currency::daTestoPunto("0.00015", p));
    EXPECT_EQ(p.decimillesimi(), 2);
    // Amounts add exactly: 0.05 twenty times is 1.
    Currency somma;
    for (int i = 0; i < 20; ++i) somma += Currency::daDecimillesimi(500);
    EXPECT_EQ(somma, Currency::daInteri(1));
}

TEST(CurrencyTest, SottoLaLocaleColPunto) {
    Separatore s('.');
    EXPECT_EQ(Currency::daTestoLocale("2.5").testoLocale(), "2.5");
    EXPECT_EQ(Currency::daTestoLocale("2.5").testoDueDecimali(), "2.50");
}

TEST(CodicePagina, EuroEAccentiInUnByte) {
    std::string u8 = "COSTO SISTEMA €: 0 è";
    std::string cp = Utf8InCp1252(u8);
    EXPECT_EQ(cp, std::string("COSTO SISTEMA \x80: 0 \xE8"));
    EXPECT_EQ(Cp1252InUtf8(cp), u8);
    // A byte the code page leaves unassigned does not stop the conversion.
    EXPECT_EQ(Cp1252InUtf8(std::string("a\x81z")), "a\xEF\xBF\xBDz");
    // A character the code page lacks becomes '?'.
    EXPECT_EQ(Utf8InCp1252("a\xE2\x88\x9Ez"), "a?z");
}
