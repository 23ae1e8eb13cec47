#include "core/basic.h"

#include "core/errori.h"

#include <atomic>
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iconv.h>
#include <limits>
#include <mutex>

namespace zef {

std::string TestoConSegno(long long n) {
    return n < 0 ? std::to_string(n) : " " + std::to_string(n);
}

std::string TestoSemplice(long long n) { return std::to_string(n); }

std::string Trim(std::string_view s) {
    size_t a = 0, b = s.size();
    while (a < b && s[a] == ' ') ++a;
    while (b > a && s[b - 1] == ' ') --b;
    return std::string(s.substr(a, b - a));
}

namespace {

bool blankVal(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Leading number with a given decimal mark; blanks inside are skipped as Val does.
double numeroIniziale(std::string_view s, char punto) {
    std::string t;
    t.reserve(s.size());
    size_t i = 0;
    auto prossimo = [&]() -> int {
        while (i < s.size() && blankVal(s[i])) ++i;
        return i < s.size() ? static_cast<unsigned char>(s[i]) : -1;
    };
    int c = prossimo();
    if (c == '-' || c == '+') { t += static_cast<char>(c); ++i; c = prossimo(); }
    bool cifre = false;
    while (c >= '0' && c <= '9') { t += static_cast<char>(c); cifre = true; ++i; c = prossimo(); }
    if (c == punto) {
        t += '.';
        ++i;
        c = prossimo();
        while (c >= '0' && c <= '9') { t += static_cast<char>(c); cifre = true; ++i; c = prossimo(); }
    }
    if (!cifre) return 0.0;
    if (c == 'e' || c == 'E' || c == 'd' || c == 'D') {
        std::string e = "e";
        size_t salva = i;
        ++i;
        c = prossimo();
        if (c == '-' || c == '+') { e += static_cast<char>(c); ++i; c = prossimo(); }
        bool ecifre = false;
        while (c >= '0' && c <= '9') { e += static_cast<char>(c); ecifre = true; ++i; c = prossimo(); }
        if (ecifre) t += e; else i = salva;
    }
    return std::strtod(t.c_str(), nullptr);
}

std::atomic<char> gSeparatore{0};

}  // namespace

double Val(std::string_view s) { return numeroIniziale(s, '.'); }

char SeparatoreDecimale() {
    char c = gSeparatore.load();
    if (c) return c;
    const lconv* lc = std::localeconv();
    return (lc && lc->decimal_point && lc->decimal_point[0]) ? lc->decimal_point[0] : '.';
}

void ImpostaSeparatoreDecimale(char c) { gSeparatore.store(c); }

static std::string conSeparatore(std::string s) {
    char sep = SeparatoreDecimale();
    for (char& ch : s)
        if (ch == '.') ch = sep;
    return s;
}

std::string StrDouble(double v) {
    if (v == 0) return " 0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15G", v);
    std::string t = buf;
    for (char& c : t)
        if (c == ',') c = '.';
    std::string segno = " ";
    if (t[0] == '-') {
        segno = "-";
        t.erase(0, 1);
    }
    if (t.size() > 1 && t[0] == '0' && t[1] == '.') t.erase(0, 1);  // ".5", as the run time writes it
    return segno + t;
}

std::string DoubleInTesto(double v) {
    if (v == 0) return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15G", v);
    std::string s = buf;
    // "%G" keeps no trailing zeros in the fraction; make the decimal mark the locale's.
    // C's own locale may already have put a comma: normalise to '.' first.
    for (char& ch : s)
        if (ch == ',') ch = '.';
    return conSeparatore(s);
}

std::string FormatoDecimali(double v, int decimali) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimali, v);
    std::string s = buf;
    for (char& ch : s)
        if (ch == ',') ch = '.';
    return conSeparatore(s);
}

double NumeroDaTesto(std::string_view s) { return numeroIniziale(s, SeparatoreDecimale()); }

int16_t InInteger(long long v) {
    if (v < std::numeric_limits<int16_t>::min() || v > std::numeric_limits<int16_t>::max())
        throw errori::overflow();
    return static_cast<int16_t>(v);
}

int32_t InLong(long long v) {
    if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max())
        throw errori::overflow();
    return static_cast<int32_t>(v);
}

long long ArrotondaBanker(double v) { return static_cast<long long>(std::nearbyint(v)); }

// ---- Currency -------------------------------------------------------------------

void Currency::FuoriScala() { throw errori::overflow(); }

Currency Currency::daDouble(double d) {
    double s = std::nearbyint(d * Scala);
    if (!(std::fabs(s) < 9.2e18)) throw errori::overflow();
    return daDecimillesimi(static_cast<int64_t>(s));
}

namespace {

// Exact decimal parse with a given mark; rounds half to even beyond four decimals.
bool parseDecimale(std::string_view s, char punto, int64_t& out, bool interoTesto) {
    size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    bool neg = false;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) { neg = s[i] == '-'; ++i; }
    int64_t intero = 0;
    bool cifre = false;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
        if (intero > 922337203685476LL) throw errori::overflow();
        intero = intero * 10 + (s[i] - '0');
        cifre = true;
        ++i;
    }
    int64_t frazione = 0;
    int nfr = 0;
    int resto = -1;       // fifth decimal
    bool oltre = false;   // anything non-zero after the fifth
    if (i < s.size() && s[i] == punto) {
        ++i;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
            int d = s[i] - '0';
            if (nfr < 4) { frazione = frazione * 10 + d; ++nfr; }
            else if (resto < 0) resto = d;
            else if (d) oltre = true;
            cifre = true;
            ++i;
        }
    }
    while (i < s.size() && s[i] == ' ') ++i;
    if (!cifre || (interoTesto && i != s.size())) return false;
    while (nfr < 4) { frazione *= 10; ++nfr; }
    int64_t v = intero * Currency::Scala + frazione;
    if (resto > 5 || (resto == 5 && (oltre || (v & 1)))) ++v;
    out = neg ? -v : v;
    return true;
}

std::string testoDecimale(int64_t v, char punto) {
    bool neg = v < 0;
    uint64_t a = neg ? static_cast<uint64_t>(-(v + 1)) + 1 : static_cast<uint64_t>(v);
    std::string s = std::to_string(a / Currency::Scala);
    uint64_t fr = a % Currency::Scala;
    if (fr) {
        char buf[8];
        std::snprintf(buf, sizeof buf, "%04llu", static_cast<unsigned long long>(fr));
        std::string f = buf;
        while (!f.empty() && f.back() == '0') f.pop_back();
        s += punto;
        s += f;
    }
    return neg ? "-" + s : s;
}

}  // namespace

bool Currency::daTestoPunto(std::string_view s, Currency& out) {
    int64_t v;
    if (!parseDecimale(s, '.', v, true)) return false;
    out = daDecimillesimi(v);
    return true;
}

Currency Currency::daTestoLocale(std::string_view s) {
    int64_t v = 0;
    if (!parseDecimale(s, SeparatoreDecimale(), v, false)) return {};
    return daDecimillesimi(v);
}

std::string Currency::testoPunto() const { return testoDecimale(v_, '.'); }
std::string Currency::testoLocale() const { return testoDecimale(v_, SeparatoreDecimale()); }

std::string Currency::testoDueDecimali() const {
    // Round half away from zero to two decimals, as the run time's Format does.
    int64_t a = v_ < 0 ? -v_ : v_;
    int64_t centesimi = (a + 50) / 100;
    std::string s = std::to_string(centesimi / 100);
    char buf[4];
    std::snprintf(buf, sizeof buf, "%02lld", static_cast<long long>(centesimi % 100));
    s += SeparatoreDecimale();
    s += buf;
    return (v_ < 0 && centesimi) ? "-" + s : s;
}

// ---- Windows-1252 ---------------------------------------------------------------

namespace {

std::string converti(std::string_view in, const char* da, const char* a, const char* sostituto) {
    iconv_t cd = iconv_open(a, da);
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string(in);
    std::string out;
    out.resize(in.size() * 4 + 16);
    char* pin = const_cast<char*>(in.data());
    size_t lin = in.size();
    char* pout = out.data();
    size_t lout = out.size();
    while (lin > 0) {
        size_t r = iconv(cd, &pin, &lin, &pout, &lout);
        if (r != static_cast<size_t>(-1)) break;
        if (errno == E2BIG) {
            size_t usati = pout - out.data();
            out.resize(out.size() * 2);
            pout = out.data() + usati;
            lout = out.size() - usati;
            continue;
        }
        // Invalid or unmappable input: one byte (or one UTF-8 sequence) becomes the substitute.
        size_t salta = 1;
        if (std::strcmp(da, "UTF-8") == 0) {
            unsigned char c = static_cast<unsigned char>(*pin);
            salta = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
            if (salta > lin) salta = lin;
        }
        pin += salta;
        lin -= salta;
        size_t ls = std::strlen(sostituto);
        if (lout < ls) {
            size_t usati = pout - out.data();
            out.resize(out.size() * 2 + ls);
            pout = out.data() + usati;
            lout = out.size() - usati;
        }
        std::memcpy(pout, sostituto, ls);
        pout += ls;
        lout -= ls;
    }
    out.resize(pout - out.data());
    iconv_close(cd);
    return out;
}

}  // namespace

std::string Utf8InCp1252(std::string_view utf8) { return converti(utf8, "UTF-8", "CP1252", "?"); }
std::string Cp1252InUtf8(std::string_view cp) { return converti(cp, "CP1252", "UTF-8", "\xEF\xBF\xBD"); }

}  // namespace zef
