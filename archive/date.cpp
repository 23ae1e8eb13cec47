#include "archive/date.h"

#include <chrono>
#include <cstdio>
#include <vector>

namespace zef {

bool DataValida(int anno, int mese, int giorno) {
    if (anno < 1 || anno > 9999 || mese < 1 || mese > 12 || giorno < 1) return false;
    std::chrono::year_month_day d{std::chrono::year(anno), std::chrono::month(static_cast<unsigned>(mese)),
                                  std::chrono::day(static_cast<unsigned>(giorno))};
    return d.ok();
}

std::string DataIso(int anno, int mese, int giorno) {
    char b[16];
    std::snprintf(b, sizeof b, "%04d-%02d-%02d", anno, mese, giorno);
    return b;
}

namespace {
// Splits on one separator; every piece must be 1..4 digits.
bool pezzi(std::string_view t, char sep, std::vector<int>& out, std::vector<size_t>& lunghezze) {
    out.clear();
    lunghezze.clear();
    size_t i = 0;
    while (true) {
        size_t j = t.find(sep, i);
        std::string_view p = t.substr(i, j == std::string_view::npos ? std::string_view::npos : j - i);
        if (p.empty() || p.size() > 4) return false;
        int v = 0;
        for (char c : p) {
            if (c < '0' || c > '9') return false;
            v = v * 10 + (c - '0');
        }
        out.push_back(v);
        lunghezze.push_back(p.size());
        if (j == std::string_view::npos) break;
        i = j + 1;
    }
    return out.size() == 3;
}
}  // namespace

std::optional<std::string> DataInIso(std::string_view testo) {
    while (!testo.empty() && (testo.front() == ' ' || testo.front() == '\t')) testo.remove_prefix(1);
    while (!testo.empty() && (testo.back() == ' ' || testo.back() == '\t')) testo.remove_suffix(1);
    std::vector<int> v;
    std::vector<size_t> l;
    int a = 0, m = 0, g = 0;
    if (pezzi(testo, '-', v, l) || pezzi(testo, '/', v, l)) {
        if (l[0] == 4) {
            a = v[0], m = v[1], g = v[2];
        } else {
            g = v[0], m = v[1], a = v[2];
            if (l[2] <= 2) a += a < 30 ? 2000 : 1900;
            else if (l[2] != 4) return std::nullopt;
        }
    } else {
        return std::nullopt;
    }
    if (!DataValida(a, m, g)) return std::nullopt;
    return DataIso(a, m, g);
}

std::string DataBreve(const std::string& iso) {
    if (iso.size() < 10) return iso;
    return iso.substr(8, 2) + "/" + iso.substr(5, 2) + "/" + iso.substr(2, 2);
}

int AnnoDi(const std::string& iso) { return iso.size() >= 4 ? std::stoi(iso.substr(0, 4)) : 0; }

std::string OggiIso() {
    auto oggi = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    std::chrono::year_month_day d{oggi};
    return DataIso(static_cast<int>(d.year()), static_cast<int>(static_cast<unsigned>(d.month())),
                   static_cast<int>(static_cast<unsigned>(d.day())));
}

}  // namespace zef
