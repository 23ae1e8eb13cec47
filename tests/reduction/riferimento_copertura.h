// Plain reference of the cover: the nest of levels written as levels, and the tick
// of Timer4 with every target tested pair by pair against every finished row.
#pragma once

#include "core/basic.h"
#include "core/form4.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "core/sviluppo.h"
#include "reduction/copertura.h"

namespace rif {

using namespace zef;

inline void Registra(Sistema& s, int n) {
    for (int p = 1; p <= n; ++p) s.NumeriColonna[p] = static_cast<int16_t>(s.Pronostico[s.Liv[p]]);
    s.ColonneEsaminate++;
    bool ok = true;
    for (int x = 1; x <= n - 1; ++x)
        if (s.NumeriColonna[x + 1] - (s.NumeriColonna[x] + 1) < s.DistanzaMin) ok = false;
    if (ok && s.NumFissi >= 1) {
        int c = 0;
        for (int f = 1; f <= s.NumFissi; ++f)
            for (int p = 1; p <= n; ++p) c += s.NumeriFissi[f - s.NumeriFissiBase] == s.NumeriColonna[p];
        if (c < s.NumFissi) ok = false;
    }
    if (!ok) return;
    s.NumColonne++;
    for (int p = 1; p <= n; ++p) s.colonne.set(p, s.NumColonne, static_cast<uint8_t>(s.NumeriColonna[p]));
}

inline void Livello(Sistema& s, int l) {
    const long long K = s.LunghezzaEnumerazione, M = s.NumPronostico;
    if (l == 1) {
        while (s.Liv[1] < M - K + 1) {
            s.Liv[1]++;
            s.Liv[2] = s.Liv[1];
            Livello(s, 2);
        }
        return;
    }
    while (s.Liv[l] < M - (K - l)) {
        s.Liv[l]++;
        if (l < 10) s.Liv[l + 1] = s.Liv[l];
        if (l == 10 || K < l + 1) Registra(s, l);
        else Livello(s, l + 1);
    }
}

inline void Enumera(Sistema& s) { Livello(s, 1); }

// Column 0 of the targets exists and holds zeros.
inline uint8_t Tg(const Sistema& s, int a, int64_t c) { return c < 1 ? 0 : s.colonne.get(a, c); }

inline int Conta(const Sistema& s, int64_t riga, int P, int64_t c, int g) {
    int n = 0;
    for (int a = 1; a <= P; ++a)
        for (int b = 1; b <= g; ++b) n += s.RigheRidotte.get(a, riga) == Tg(s, b, c);
    return n;
}

inline bool NellaRiga(const Sistema& s, int64_t riga, int fino, int n) {
    for (int p = 1; p <= fino; ++p)
        if (s.RigheRidotte.get(p, riga) == n) return true;
    return false;
}

inline void Ordina(Sistema& s, int64_t riga, int k) {
    int w[11] = {};
    int q = 0;
    for (int n = 1; n <= 90; ++n)
        for (int p = 1; p <= k; ++p)
            if (s.RigheRidotte.get(p, riga) == n) w[++q] = n;
    for (int p = 1; p <= k; ++p) s.RigheRidotte.set(p, riga, static_cast<uint8_t>(w[p]));
}

inline void Appendi(Sistema& s, int64_t riga, int k) {
    uint8_t v[10];
    for (int p = 1; p <= k; ++p) v[p - 1] = s.RigheRidotte.get(p, riga);
    s.MSFlexGrid1.AddItem(RigaCopertura(v, k));
}

// Returns true when the closing ran.
inline bool Tick(Sistema& s, Interfaccia& ui, bool integrali = true) {
    const int k = s.SviluppoK, g = s.TipoGaranzia;
    int cont = 0;
    for (;;) {
        cont++;
        if (cont == 100) break;
        const int64_t c = s.ColonneEsaminate;
        const int64_t R = s.MSFlexGrid1.Rows();
        bool coperto = false;
        for (int64_t r = 1; r <= R && !coperto; ++r) coperto = Conta(s, r, k, c, g) >= g;
        if (!coperto) {
            const int64_t w = R + 1;
            int& P = s.ContatoreLavoro;
            if (P == 1) {
                for (int a = 1; a <= g; ++a) s.RigheRidotte.set(a, w, Tg(s, a, c));
                P = g + 1;
            } else {
                for (int a = 1; a <= g; ++a)
                    if (!NellaRiga(s, w, P - 1, Tg(s, a, c))) {
                        s.RigheRidotte.set(P, w, Tg(s, a, c));
                        break;
                    }
                if (s.RigheRidotte.get(P, w) == 0)
                    for (int i = 1; i <= s.NumPronostico; ++i)
                        if (!NellaRiga(s, w, k, s.Pronostico[i])) {
                            s.RigheRidotte.set(P, w, static_cast<uint8_t>(s.Pronostico[i]));
                            break;
                        }
                for (;;) {
                    int n = 0;
                    for (int a = 1; a <= P; ++a)
                        for (int b = 1; b <= g; ++b) n += s.RigheRidotte.get(a, w) == Tg(s, b, c);
                    if (n < g && P == k) {
                        s.ColonneEsaminate--;
                    } else if (n < g && P < k) {
                        P++;
                        for (int a = 1; a <= g; ++a)
                            if (!NellaRiga(s, w, P - 1, Tg(s, a, c))) s.RigheRidotte.set(P, w, Tg(s, a, c));
                    } else {
                        P++;
                        break;
                    }
                    n = 0;
                    for (int a = 1; a <= P; ++a)
                        for (int b = 1; b <= g; ++b) n += s.RigheRidotte.get(a, w) == Tg(s, b, c);
                    if (n < g && P == k) s.ColonneEsaminate--;
                    if (P == k) {
                        P++;
                        break;
                    }
                }
            }
            if (Tg(s, g, c) == s.Pronostico[s.NumPronostico] && P != k + 1) {
                int x = s.RigheRidotte.get(g - 1, w);
                for (int i = 1; i <= s.NumPronostico; ++i)
                    if (s.Pronostico[i] > x) { x = s.Pronostico[i]; break; }
                s.RigheRidotte.set(P, w, static_cast<uint8_t>(x));
                P++;
            }
            if (P == k + 1) {
                for (int x = 1; x <= k; ++x)
                    for (int y = 1; y <= k; ++y)
                        for (int z = 1; z <= k; ++z)
                            if (y != z && s.RigheRidotte.get(y, w) == s.RigheRidotte.get(z, w))
                                s.RigheRidotte.set(z, w, static_cast<uint8_t>(s.Pronostico[x]));
                Ordina(s, w, k);
                P = 1;
                Appendi(s, w, k);
            }
        }
        s.ColonneEsaminate++;
        if (s.ColonneEsaminate == s.NumColonne + 1) break;
    }
    s.form4.valore = static_cast<double>(s.ColonneEsaminate);
    s.form4.Text1 = TestoSemplice(s.MSFlexGrid1.Rows());
    s.form4.Text2 = TestoSemplice(s.ColonneEsaminate);
    if (s.ColonneEsaminate < s.NumColonne) return false;
    // Closing.
    const int64_t w = s.MSFlexGrid1.Rows() + 1;
    if (s.RigheRidotte.get(1, w) > 0) {
        s.ColonneEsaminate--;
        for (int x = 1; x <= k; ++x)
            for (int y = 1; y <= k; ++y)
                for (int z = 1; z <= k; ++z) {
                    if (s.RigheRidotte.get(z, w) == 0) s.RigheRidotte.set(z, w, static_cast<uint8_t>(s.Pronostico[z]));
                    if (y != z && s.RigheRidotte.get(y, w) == s.RigheRidotte.get(z, w))
                        s.RigheRidotte.set(z, w, static_cast<uint8_t>(s.Pronostico[x]));
                }
        Ordina(s, w, k);
        s.ContatoreLavoro = 1;
        Appendi(s, w, k);
    }
    s.colonne.dimensiona(k, 20'000'000);
    s.Liv[1] = 0;
    s.LunghezzaEnumerazione = static_cast<int16_t>(k);
    s.NumColonne = 0;
    s.ColonneEsaminate = 0;
    if (integrali) Enumera(s);
    ScaricaForm4(s, ui);
    const int64_t R = s.MSFlexGrid1.Rows();
    ImpostaListaCol(s, TestoSemplice(R));
    s.pannelli[1] = "RIDOTTE: " + TestoSemplice(R);
    s.pannelli[0] = "CONDIZIONATE: " + TestoSemplice(s.NumColonne);
    if (R > 0) Riprezza(s);
    CalcolaCombinazioni(s, k - 1, s.NumPronostico);
    s.Timer4Abilitato = false;
    return true;
}

}  // namespace rif
