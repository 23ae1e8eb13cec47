// Plain reference versions of the reductions, written straight from their
// description: Segnati marks, full rescans, no index. The fast code must give the
// same lists, the same counts and the same stops.
#pragma once

#include "core/basic.h"
#include "core/errori.h"
#include "core/form4.h"
#include "core/giocate.h"
#include "core/sistema.h"

#include <cstring>
#include <vector>

namespace rif {

using namespace zef;

// Coverage test: mark the column, scan kept columns 1..r in order.
inline bool Coperta(const Sistema& s, const uint8_t* col, const std::vector<std::vector<int>>& tenute, int g) {
    bool segnati[91] = {};
    const int k = s.SviluppoK;
    for (int p = 0; p < k; ++p) segnati[col[p]] = true;
    for (const auto& t : tenute) {
        int c = 0;
        for (int p = 1; p <= k; ++p) c += segnati[t[p]];
        if (c >= g) return true;
    }
    return false;
}

inline std::vector<int> Colonna(const Sistema& s, int64_t i) {
    std::vector<int> v(s.SviluppoK + 1, 0);
    for (int p = 1; p <= s.SviluppoK; ++p) v[p] = s.colonne.get(p, i);
    return v;
}

inline void Scrivi(Sistema& s, const std::vector<std::vector<int>>& tenute) {
    const int k = s.SviluppoK;
    s.ColonneRidotte.dimensiona(k, static_cast<int64_t>(tenute.size()) + 1);
    for (size_t c = 0; c < tenute.size(); ++c)
        for (int p = 1; p <= k; ++p) s.ColonneRidotte.set(p, c + 1, static_cast<uint8_t>(tenute[c][p]));
    s.NumRidotte = static_cast<int32_t>(tenute.size());
}

inline void RiduciRapido(Sistema& s, Interfaccia& ui, int g) {
    std::vector<std::vector<int>> tenute{Colonna(s, 1)};
    CaricaForm4(s);
    s.form4.Label1 = "Riduzione in corso...";
    s.form4.massimo = s.NumColonne;
    MostraForm4(s, ui);
    for (int64_t i = 1; i <= s.NumColonne; ++i) {
        if (i % 500 == 0) {
            s.form4.valore = static_cast<double>(i);
            s.form4.Text1 = TestoSemplice(static_cast<long long>(tenute.size()));
            s.form4.Text2 = TestoSemplice(i);
            AggiornaForm4(s, ui);
            CediForm4(s, ui);
        }
        if (!Coperta(s, s.colonne.colonna(i), tenute, g)) tenute.push_back(Colonna(s, i));
    }
    Scrivi(s, tenute);
    ScaricaForm4(s, ui);
    s.form5.scarica();
}

inline void RiduciAccurato(Sistema& s, Interfaccia& ui, int g) {
    const int64_t n = s.NumColonne;
    const int k = s.SviluppoK;
    std::vector<int32_t> Punteggio(n + 1, 0);
    std::vector<int64_t> Scoperte{0};
    std::vector<bool> Coperta{false};
    s.GaranziaAttiva = true;
    s.ColonneEsaminate = 0;
    s.SistemaSalvato = false;
    s.MSFlexGrid1.Clear();
    ImpostaListaCol(s, "0");
    std::vector<std::vector<int>> tenute{Colonna(s, 1)};
    CaricaForm4(s);
    s.form4.massimo = static_cast<double>(n);
    s.form4.valore = 0;
    s.form4.Label1 = "Calcolo in corso...(fase 1 di 2)";
    MostraForm4(s, ui);
    for (int64_t i = 1; i <= n; ++i) {
        if (!rif::Coperta(s, s.colonne.colonna(i), tenute, g)) {
            Scoperte.push_back(i);
            Coperta.push_back(false);
        }
        if (i % 100 == 0) {
            s.form4.valore = static_cast<double>(i);
            AggiornaForm4(s, ui);
            CediForm4(s, ui);
        }
    }
    const int64_t U = static_cast<int64_t>(Scoperte.size()) - 1;
    if (U > 0) {
        int64_t M = U;
        if (s.form4.massimo == static_cast<double>(n)) {
            s.form4.massimo = static_cast<double>(M);
            s.form4.valore = 0;
            s.form4.Label1 = "Calcolo in corso...(fase 2 di 2)";
        }
        for (;;) {
            bool fine = false;
            for (int64_t i = 1; i <= n; ++i) {
                bool Segnati[91] = {};
                for (int p = 1; p <= k; ++p) Segnati[s.colonne.get(p, i)] = true;
                for (int64_t j = 1; j <= U; ++j) {
                    if (Coperta[j]) continue;
                    int c = 0;
                    for (int p = 1; p <= k; ++p) c += Segnati[s.colonne.get(p, Scoperte[j])];
                    if (c >= g) ++Punteggio[i];
                }
                if (i % 200 == 0) {
                    if (!s.form4.visibile) { fine = true; break; }
                    s.form4.Text2 = TestoSemplice(static_cast<long long>(s.form4.massimo) - M);
                    s.form4.valore = s.form4.massimo - static_cast<double>(M);
                    s.form4.Text1 = TestoSemplice(static_cast<long long>(tenute.size()));
                    AggiornaForm4(s, ui);
                    CediForm4(s, ui);
                }
            }
            if (fine) break;
            int32_t meglio = 0;
            int64_t indice = 0;
            for (int64_t i = 1; i <= n; ++i)
                if (meglio < Punteggio[i]) { meglio = Punteggio[i]; indice = i; }
            if (meglio == 0) break;
            // endless with columns holding a number twice: stop where the store is full
            if (static_cast<int64_t>(tenute.size()) + 1 > n + 1) {
                ScaricaForm4(s, ui);
                throw errori::memoriaEsaurita();
            }
            tenute.push_back(Colonna(s, indice));
            s.form4.Text1 = TestoSemplice(static_cast<long long>(tenute.size()));
            s.form4.Text2 = TestoSemplice(static_cast<long long>(s.form4.massimo) - M);
            s.form4.valore = s.form4.massimo - static_cast<double>(M);
            AggiornaForm4(s, ui);
            CediForm4(s, ui);
            if (!s.form4.visibile) break;
            std::fill(Punteggio.begin(), Punteggio.end(), 0);
            M = 0;
            for (int64_t j = 1; j <= U; ++j) {
                if (Coperta[j]) continue;
                if (rif::Coperta(s, s.colonne.colonna(Scoperte[j]), tenute, g)) Coperta[j] = true;
                else ++M;
            }
            if (M == 0) break;
        }
    }
    Scrivi(s, tenute);
    ScaricaForm4(s, ui);
}

}  // namespace rif
