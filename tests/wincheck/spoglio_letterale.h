// The check written as plainly as the window's procedure reads: texts, Val, a counter
// kept as the label's text, one comparison per number and box. The reference the
// fast check is held to.
#pragma once

#include "core/basic.h"
#include "core/lista.h"
#include "core/vocabolario.h"
#include "wincheck/spoglio.h"

#include <array>
#include <string>
#include <vector>

namespace zef::prova {

struct EsitoLetterale {
    std::array<std::string, NumSorti> punti{" 0", " 0", " 0", " 0", " 0"};
    std::vector<std::string> righe;
};

inline EsitoLetterale SpogliaLetterale(const ListaGiocate& lista, const GiocataSpoglio& g,
                                       const std::array<std::string, NumCaselle>& caselle) {
    EsitoLetterale e;
    // Cinquina, quaterna, terno, ambo, estratto: what each hit count adds.
    static const int tabella[6][5] = {
        {0, 0, 0, 0, 0}, {0, 0, 0, 0, 1}, {0, 0, 0, 1, 2}, {0, 0, 1, 3, 3}, {0, 1, 4, 6, 4}, {1, 5, 10, 10, 5}};
    static const char* parole[5] = {"CINQUINA ", "QUATERNA ", "TERNO ", "AMBO ", "ESTRATTO "};
    for (long long r = 0; r < lista.Rows(); ++r) {
        std::string testo(lista.riga(r));
        std::vector<double> numeri;
        for (int p = 1; p <= g.k; ++p) {
            std::string cella = static_cast<size_t>(3 * p - 3) < testo.size() ? testo.substr(3 * p - 3, 3) : "";
            numeri.push_back(Val(cella));
        }
        for (int w = 1; w <= 11; ++w) {
            if (!(g.ruote[11] || g.ruote[w - 1])) continue;
            int colpiti = 0;
            for (int b = 0; b < 5; ++b) {
                double v = Val(caselle[5 * (w - 1) + b]);
                for (int p = 0; p < g.k; ++p)
                    if (v == numeri[p]) colpiti++;
            }
            if (colpiti < 1 || colpiti > 5) continue;
            for (int col = 0; col < 5; ++col) {
                int sorte = 4 - col;
                if (!g.giocata[sorte]) continue;
                int quante = tabella[colpiti][col];
                if (quante == 0) continue;
                e.punti[sorte] = TestoSemplice(static_cast<long long>(Val(e.punti[sorte])) + quante);
                for (int q = 0; q < quante; ++q) {
                    std::string n = TestoConSegno(r + 1);
                    e.righe.push_back(std::string(parole[col]) + "  " + "su " + NomiRuote[w - 1] + "  SCHEDINA:" + n +
                                      "." + std::string(n.size() < 10 ? 10 - n.size() : 0, ' ') + testo);
                }
            }
        }
    }
    return e;
}

}  // namespace zef::prova
