#include "archive/valore.h"

#include "archive/cursore.h"
#include "core/basic.h"
#include "core/errori.h"

#include <cstdio>

namespace zef {

namespace {

// A whole number written in full (blanks around allowed); nullopt otherwise.
std::optional<int64_t> interoDaTesto(const std::string& s) {
    std::string t = Trim(s);
    if (t.empty()) return std::nullopt;
    size_t i = (t[0] == '-' || t[0] == '+') ? 1 : 0;
    if (i == t.size()) return std::nullopt;
    int64_t v = 0;
    for (; i < t.size(); ++i) {
        if (t[i] < '0' || t[i] > '9' || v > 100000000000LL) return std::nullopt;
        v = v * 10 + (t[i] - '0');
    }
    return t[0] == '-' ? -v : v;
}
}  // namespace

std::optional<int64_t> Valore::numero() const {
    if (auto p = std::get_if<int64_t>(&v_)) return *p;
    if (auto p = std::get_if<double>(&v_)) return ArrotondaBanker(*p);
    if (auto p = std::get_if<std::string>(&v_)) {
        if (auto n = interoDaTesto(*p)) return n;
        throw errori::tipoNonCorrispondente();
    }
    return std::nullopt;
}

int64_t Valore::comeIntero() const {
    auto n = numero();
    if (!n) throw errori::usoNonValidoNull();
    return *n;
}

double Valore::comeReale() const {
    if (auto p = std::get_if<double>(&v_)) return *p;
    if (auto p = std::get_if<int64_t>(&v_)) return static_cast<double>(*p);
    if (auto p = std::get_if<std::string>(&v_)) {
        std::string t = Trim(*p);
        char* fine = nullptr;
        double d = std::strtod(t.c_str(), &fine);
        if (t.empty() || *fine) throw errori::tipoNonCorrispondente();
        return d;
    }
    throw errori::usoNonValidoNull();
}

std::string Valore::comeTesto() const {
    if (auto p = std::get_if<std::string>(&v_)) return *p;
    if (auto p = std::get_if<int64_t>(&v_)) return TestoSemplice(*p);
    if (auto p = std::get_if<double>(&v_)) return DoubleInTesto(*p);
    throw errori::usoNonValidoNull();
}

std::string Valore::testoOVuoto() const { return nullo() ? std::string() : comeTesto(); }

}  // namespace zef
