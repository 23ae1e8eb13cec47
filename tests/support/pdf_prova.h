// Reading back a PDF the program wrote: its text through pdftotext, its pages as
// grey pictures through pdftoppm (poppler-utils).
#pragma once

#include "support/cartella.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zef::prova {

inline std::string Comando(const std::string& comando) {
    std::string out;
    FILE* p = popen(comando.c_str(), "r");
    if (!p) return out;
    std::array<char, 4096> buf;
    size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) out.append(buf.data(), n);
    pclose(p);
    return out;
}

// The text of the PDF with its layout kept (columns by position), page by page.
inline std::string TestoPdf(const std::string& pdf) {
    return Comando("pdftotext -layout '" + pdf + "' - 2>/dev/null");
}

// A word of the PDF with its box, in points, and its page (from 1).
struct Parola {
    int pagina = 0;
    double x0 = 0, y0 = 0, x1 = 0;
    std::string testo;
    size_t caratteri() const {
        size_t n = 0;
        for (unsigned char c : testo) n += (c & 0xC0) != 0x80;
        return n;
    }
};

inline std::vector<Parola> ParolePdf(const std::string& pdf) {
    std::vector<Parola> v;
    std::istringstream in(Comando("pdftotext -bbox '" + pdf + "' - 2>/dev/null"));
    std::string r;
    int pagina = 0;
    auto attributo = [](const std::string& riga, const std::string& nome) {
        const size_t i = riga.find(nome + "=\"");
        return i == std::string::npos ? 0.0 : std::stod(riga.substr(i + nome.size() + 2));
    };
    while (std::getline(in, r)) {
        if (r.find("<page ") != std::string::npos) ++pagina;
        const size_t w = r.find("<word ");
        if (w == std::string::npos) continue;
        Parola p;
        p.pagina = pagina;
        p.x0 = attributo(r, "xMin");
        p.y0 = attributo(r, "yMin");
        p.x1 = attributo(r, "xMax");
        const size_t a = r.find('>', w) + 1, b = r.find("</word>", a);
        std::string t = r.substr(a, b - a);
        for (auto [entita, c] : {std::pair{"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}})
            for (size_t i; (i = t.find(entita)) != std::string::npos;) t.replace(i, std::string(entita).size(), c);
        p.testo = t;
        v.push_back(p);
    }
    return v;
}

// The lines of the PDF rebuilt from the words' places: on a fixed-pitch face every
// word lands on its column, blanks included, counted from the leftmost column of
// the document; a word of another face follows the one before after one blank.
inline std::vector<std::string> RighePdf(const std::string& pdf) {
    // pdftotext reads side-by-side blocks one after the other: lines go by place.
    std::vector<Parola> parole = ParolePdf(pdf);
    std::stable_sort(parole.begin(), parole.end(), [](const Parola& a, const Parola& b) {
        if (a.pagina != b.pagina) return a.pagina < b.pagina;
        if (std::fabs(a.y0 - b.y0) > 1) return a.y0 < b.y0;
        return a.x0 < b.x0;
    });
    // The pitch: the commonest advance a character among words of three or more.
    std::map<long, int> passi;
    for (const Parola& p : parole)
        if (p.caratteri() >= 3) ++passi[std::lround((p.x1 - p.x0) / p.caratteri() * 100)];
    long passoComune = 0;
    int volte = 0;
    for (auto [passoCentesimi, n] : passi)
        if (n > volte) volte = n, passoComune = passoCentesimi;
    const double passo = passoComune / 100.0;
    auto fisso = [&](const Parola& p) { return passo > 0 && std::fabs((p.x1 - p.x0) / p.caratteri() - passo) < 0.02; };
    double origine = 1e9;
    for (const Parola& p : parole)
        if (fisso(p)) origine = std::min(origine, p.x0);
    std::vector<std::string> righe;
    std::vector<std::vector<const Parola*>> gruppi;
    for (const Parola& p : parole) {
        if (gruppi.empty() || gruppi.back()[0]->pagina != p.pagina || std::fabs(gruppi.back()[0]->y0 - p.y0) > 1)
            gruppi.push_back({});
        gruppi.back().push_back(&p);
    }
    for (const auto& g : gruppi) {
        std::string riga;
        size_t colonne = 0;  // characters so far
        for (const Parola* p : g) {
            size_t dove = colonne == 0 ? 0 : colonne + 1;
            if (fisso(*p) || colonne == 0) {
                const long c = std::lround((p->x0 - origine) / passo);
                dove = std::max(dove, static_cast<size_t>(std::max(0L, c)));
            }
            riga.append(dove - colonne, ' ');
            riga += p->testo;
            colonne = dove + p->caratteri();
        }
        righe.push_back(riga);
    }
    return righe;
}

// A page in grey levels at `dpi`, 0 black .. 255 white.
struct Pagina {
    int larghezza = 0, altezza = 0;
    double dpi = 0;
    std::vector<uint8_t> grigi;
    int at(int x, int y) const {
        if (x < 0 || y < 0 || x >= larghezza || y >= altezza) return -1;
        return grigi[static_cast<size_t>(y) * larghezza + x];
    }
    // The grey at a point given in millimetres from the page's corner.
    int mm(double x, double y) const {
        return at(static_cast<int>(x / 25.4 * dpi), static_cast<int>(y / 25.4 * dpi));
    }
};

// Page `n` (from 1) of the PDF, rendered by pdftoppm.
inline Pagina PaginaPdf(const std::string& pdf, int n, int dpi = 100) {
    CartellaTemporanea c("zef_pgm_");
    const std::string base = c / "pagina";
    Comando("pdftoppm -gray -r " + std::to_string(dpi) + " -f " + std::to_string(n) + " -l " + std::to_string(n) +
            " -singlefile '" + pdf + "' '" + base + "' 2>/dev/null");
    Pagina p;
    p.dpi = dpi;
    std::ifstream in(base + ".pgm", std::ios::binary);
    std::string magia;
    int massimo = 0;
    in >> magia >> p.larghezza >> p.altezza >> massimo;
    in.get();
    if (magia != "P5" || massimo != 255) return Pagina{};
    p.grigi.resize(static_cast<size_t>(p.larghezza) * p.altezza);
    in.read(reinterpret_cast<char*>(p.grigi.data()), static_cast<std::streamsize>(p.grigi.size()));
    return p;
}

inline int PaginePdf(const std::string& pdf) {
    const std::string info = Comando("pdfinfo '" + pdf + "' 2>/dev/null");
    const size_t i = info.find("Pages:");
    return i == std::string::npos ? 0 : std::stoi(info.substr(i + 6));
}

}  // namespace zef::prova
