// Numbers and text as the program's classic run time treats them, in one place.
//
//  - the blank-led form of a number (" 7", "-7") and the plain form ("7");
//  - Val: the leading number of a text, 0 when there is none, '.' as decimal point;
//  - locale numbers: decimals in the locale's separator, read and written alike;
//  - 16-bit Integer storage that overflows with error 6;
//  - Currency: 64-bit fixed point with four decimals, exact (no binary floating point);
//  - Windows-1252 <-> UTF-8 for the files written on the old platform.
#pragma once

#include <cstdint>
#include <compare>
#include <string>
#include <string_view>

namespace zef {

// ---- number text forms ------------------------------------------------------

// " 7" / "-7": one blank where the sign would stand.
std::string TestoConSegno(long long n);
// "7" / "-7".
std::string TestoSemplice(long long n);
// A double as Str writes it: a blank or "-" in front, the point as decimal mark,
// no zero before it (" .5", " 33.3333333333333"), 15 significant digits.
std::string StrDouble(double v);
// Trims leading and trailing blanks.
std::string Trim(std::string_view s);
// Leading number of the text ('.' as decimal point, blanks skipped); 0 if none.
double Val(std::string_view s);

// ---- locale -------------------------------------------------------------------

// The decimal separator in force: taken from the C library's locale unless set here.
char SeparatoreDecimale();
// Fixes the separator (0 goes back to the C library's locale). For the program's
// start-up and for tests that run under a point and under a comma.
void ImpostaSeparatoreDecimale(char c);

// A double as the run time turns it into text in the locale: up to 15 significant
// digits, no trailing zeros, no leading blank ("0,5", "1919190", "1E+20" style avoided
// for the magnitudes used here).
std::string DoubleInTesto(double v);
// A number with exactly `decimali` decimals in the locale ("0,50").
std::string FormatoDecimali(double v, int decimali);
// Reads a locale number ("1,5" under a comma locale); leading number as Val does,
// with the locale's separator; 0 if none.
double NumeroDaTesto(std::string_view s);

// ---- 16-bit Integer -----------------------------------------------------------

// Stores a value in a 16-bit Integer, raising error 6 when it does not fit.
int16_t InInteger(long long v);
// Stores a value in a 32-bit Long, raising error 6 when it does not fit.
int32_t InLong(long long v);
// Rounds to an integer as the run time does on assignment (half to even).
long long ArrotondaBanker(double v);

// ---- Currency -----------------------------------------------------------------

class Currency {
public:
    static constexpr int64_t Scala = 10000;

    constexpr Currency() = default;
    static constexpr Currency daDecimillesimi(int64_t d) { Currency c; c.v_ = d; return c; }
    static constexpr Currency daInteri(int64_t n) {
        int64_t r = 0;
        if (__builtin_mul_overflow(n, Scala, &r)) FuoriScala();
        return daDecimillesimi(r);
    }
    // From a double, rounded half to even at the fourth decimal (as on assignment).
    static Currency daDouble(double d);
    // Parses "1.5" (always a point): the list-output form of the system file.
    static bool daTestoPunto(std::string_view s, Currency& out);
    // Parses a locale text ("1,50" under a comma locale).
    static Currency daTestoLocale(std::string_view s);

    constexpr int64_t decimillesimi() const { return v_; }
    double inDouble() const { return static_cast<double>(v_) / Scala; }

    // "1.5", "0", "-0.05": point, no trailing zeros (list-output form).
    std::string testoPunto() const;
    // "1,5" under a comma locale: the text the run time gives for a Currency.
    std::string testoLocale() const;
    // Two decimals in the locale: "1,50".
    std::string testoDueDecimali() const;

    // The arithmetic of the type: beyond its range it raises the run time's "Overflow"
    // (error 6), as the original type does, instead of wrapping.
    friend constexpr Currency operator+(Currency a, Currency b) {
        int64_t r = 0;
        if (__builtin_add_overflow(a.v_, b.v_, &r)) FuoriScala();
        return daDecimillesimi(r);
    }
    friend constexpr Currency operator-(Currency a, Currency b) {
        int64_t r = 0;
        if (__builtin_sub_overflow(a.v_, b.v_, &r)) FuoriScala();
        return daDecimillesimi(r);
    }
    friend constexpr Currency operator*(Currency a, int64_t n) {
        int64_t r = 0;
        if (__builtin_mul_overflow(a.v_, n, &r)) FuoriScala();
        return daDecimillesimi(r);
    }
    Currency& operator+=(Currency b) { return *this = *this + b; }
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    [[noreturn]] static void FuoriScala();  // raises error 6
    int64_t v_ = 0;
};

// ---- Windows-1252 -------------------------------------------------------------

// UTF-8 to Windows-1252; characters the code page lacks become '?'.
std::string Utf8InCp1252(std::string_view utf8);
// Windows-1252 to UTF-8 (the five unassigned bytes map to U+FFFD).
std::string Cp1252InUtf8(std::string_view cp1252);

}  // namespace zef
