#include "reduction/copertura.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/form4.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "core/sviluppo.h"
#include "reduction/sottoinsiemi.h"

#include <algorithm>
#include <cstring>

namespace zef {

using riduzione::C;
using riduzione::PerOgniSottoinsieme;

using riduzione::OrdinaPochi;

std::string RigaCopertura(const uint8_t* numeri, int k) {
    std::string r = TestoRiga(numeri, k);
    if (k == 10) r.resize(27 + TestoConSegno(numeri[9]).size());
    return r;
}

void RegistraCombinazione(Sistema& s, int n) {
    for (int p = 1; p <= n; ++p) s.NumeriColonna[p] = static_cast<int16_t>(s.Pronostico.at(s.Liv[p]));
    ++s.ColonneEsaminate;
    bool accettata = true;
    for (int x = 1; x <= n - 1; ++x)  // every pair is tested, no early exit
        if (s.NumeriColonna[x + 1] - (s.NumeriColonna[x] + 1) < s.DistanzaMin) accettata = false;
    if (accettata && s.NumFissi >= 1) {
        int conta = 0;
        for (int f = 1; f <= s.NumFissi; ++f) {
            const int i = f - s.NumeriFissiBase;
            const int fisso = (i >= 0 && i < static_cast<int>(s.NumeriFissi.size())) ? s.NumeriFissi[i] : 0;
            for (int p = 1; p <= n; ++p) conta += fisso == s.NumeriColonna[p];
        }
        if (conta < s.NumFissi) accettata = false;
    }
    if (!accettata) return;
    ++s.NumColonne;
    if (s.NumColonne > s.colonne.capacita() || n > s.colonne.k()) throw errori::indiceFuoriIntervallo();
    uint8_t* col = s.colonne.colonna(s.NumColonne);
    for (int p = 1; p <= n; ++p) col[p - 1] = static_cast<uint8_t>(s.NumeriColonna[p]);
}

void EnumeraCombinazioni(Sistema& s) {
    const long long K = s.LunghezzaEnumerazione;
    const long long M = s.NumPronostico;
    auto& L = s.Liv;
    // The nest of ten levels, driven by the level indices: level l runs while
    // Liv(l) < M - (K - l), level 1 up to M - K + 1, and calls the step at depth K
    // (level 10 always does).
    int l = 1;
    for (;;) {
        const long long limite = l == 1 ? M - K + 1 : M - (K - l);
        if (L[l] < limite) {
            ++L[l];
            if (l < 10) L[l + 1] = L[l];
            if (l == 1) {
                l = 2;
            } else if (K < l + 1 || l == 10) {
                RegistraCombinazione(s, l);
            } else {
                ++l;
            }
        } else {
            if (l == 1) return;
            --l;
        }
    }
}

// ---- the index of the cover's rows ----------------------------------------------

void IndiceCopertura::sincronizza(const Sistema& s) {
    const int64_t R = s.MSFlexGrid1.Rows();
    if (k_ != s.SviluppoK || g_ != s.TipoGaranzia || R < righe_) {
        k_ = s.SviluppoK;
        g_ = s.TipoGaranzia;
        righe_ = 0;
        bit_.assign((C(90, g_) + 63) / 64, 0);
        anomale_.clear();
    }
    for (; righe_ < R; ++righe_) aggiungi(s.RigheRidotte.colonna(righe_ + 1));
}

void IndiceCopertura::aggiungi(const uint8_t* riga) {
    uint8_t v[16];
    int m = 0;
    for (int p = 0; p < k_; ++p)
        if (riga[p] >= 1 && riga[p] <= 90) v[m++] = riga[p];
    OrdinaPochi(v, m);
    if (std::adjacent_find(v, v + m) != v + m) {
        anomale_.emplace_back(riga, riga + k_);  // a number twice counts twice
        return;
    }
    if (m >= g_) PerOgniSottoinsieme(v, m, g_, [&](uint64_t r) { bit_[r >> 6] |= uint64_t{1} << (r & 63); });
}

bool IndiceCopertura::coperto(const Sistema& s, const uint8_t* bersaglio) const {
    bool regolare = true;
    for (int a = 0; a < g_; ++a) {
        regolare &= bersaglio[a] >= 1 && bersaglio[a] <= 90;
        for (int b = 0; b < a; ++b) regolare &= bersaglio[a] != bersaglio[b];
    }
    if (!regolare) {  // pair by pair against every finished row
        for (int64_t r = 1; r <= righe_; ++r) {
            const uint8_t* riga = s.RigheRidotte.colonna(r);
            int c = 0;
            for (int a = 0; a < g_; ++a)
                for (int b = 0; b < k_; ++b) c += bersaglio[a] == riga[b];
            if (c >= g_) return true;
        }
        return false;
    }
    uint8_t v[8];
    const int g = std::min(g_, 8);
    for (int i = 0; i < g; ++i) v[i] = bersaglio[i];
    OrdinaPochi(v, g_);
    uint64_t r = 0;
    for (int i = 0; i < g_; ++i) r += riduzione::Binomiali.c[v[i] - 1][i + 1];
    if ((bit_[r >> 6] >> (r & 63)) & 1) return true;
    for (const auto& riga : anomale_) {
        int c = 0;
        for (int a = 0; a < g_; ++a)
            for (int b = 0; b < k_; ++b) c += bersaglio[a] == riga[b];
        if (c >= g_) return true;
    }
    return false;
}

// ---- the tick ----------------------------------------------------------------------

namespace {

// Pairs of equal numbers over positions 1..P of the row and 1..g of the target.
int Coppie(const uint8_t* riga, int P, const uint8_t* bersaglio, int g) {
    int c = 0;
    for (int a = 0; a < P; ++a)
        for (int b = 0; b < g; ++b) c += riga[a] == bersaglio[b];
    return c;
}

bool Tiene(const uint8_t* riga, int finoA, int n) {
    for (int p = 0; p < finoA; ++p)
        if (riga[p] == n) return true;
    return false;
}

uint8_t NumeroPronostico(const Sistema& s, int i) {
    if (i < 1 || i >= static_cast<int>(s.Pronostico.size())) throw errori::indiceFuoriIntervallo();
    return static_cast<uint8_t>(s.Pronostico[i]);
}

// The walk over 1..90 that leaves the row ascending; a missing match leaves zeros.
void Ordina(uint8_t* riga, int k) {
    uint8_t lavoro[10] = {};
    int q = 0;
    for (int n = 1; n <= 90; ++n)
        for (int p = 0; p < k; ++p)
            if (riga[p] == n) lavoro[q++] = static_cast<uint8_t>(n);
    std::memcpy(riga, lavoro, static_cast<size_t>(k));
}

void Aggiungi(Sistema& s, const uint8_t* riga, int k) {
    s.MSFlexGrid1.AddItem(RigaCopertura(riga, k));
}

void Chiusura(Sistema& s, Interfaccia& ui) {
    const int k = s.SviluppoK;
    const int64_t R0 = s.MSFlexGrid1.Rows();
    if (R0 + 1 > LimiteRigheRidotte) throw errori::indiceFuoriIntervallo();
    uint8_t* riga = s.RigheRidotte.colonna(R0 + 1);
    if (riga[0] > 0) {  // a part row is left over
        --s.ColonneEsaminate;
        for (int x = 1; x <= k; ++x)
            for (int y = 1; y <= k; ++y)
                for (int z = 1; z <= k; ++z) {
                    if (riga[z - 1] == 0) riga[z - 1] = NumeroPronostico(s, z);
                    if (y != z && riga[y - 1] == riga[z - 1]) riga[z - 1] = NumeroPronostico(s, x);
                }
        Ordina(riga, k);
        s.ContatoreLavoro = 1;
        Aggiungi(s, riga, k);
    }
    AggiornaForm4(s, ui);
    ui.clessidra(true);
    s.colonne.dimensiona(k, Colonne::CapacitaSviluppo);
    s.Liv[1] = 0;
    s.LunghezzaEnumerazione = static_cast<int16_t>(k);
    s.NumColonne = 0;
    s.ColonneEsaminate = 0;
    bool integrali = true;
    if (k >= 5 && Val(s.Label2) > 30) {
        ui.clessidra(false);
        integrali = ui.messaggio("Attenzione l'elaborazione delle giocate integrali potrebbe richiedere parecchi "
                                 "minuti e non potrà essere annullata, proseguire ugualmente?",
                                 "ATTENZIONE", Icona::Domanda, Pulsanti::SiNo) == Risposta::Si;
        ui.clessidra(true);
    }
    if (integrali) EnumeraCombinazioni(s);
    ui.clessidra(false);
    ScaricaForm4(s, ui);
    const int64_t R = s.MSFlexGrid1.Rows();
    ImpostaListaCol(s, TestoSemplice(R));
    s.pannelli[1] = pannello::Ridotte(R);
    s.pannelli[0] = pannello::Condizionate(s.NumColonne);
    if (R > 0) Riprezza(s);
    CalcolaCombinazioni(s, k - 1, s.NumPronostico);
    s.Timer4Abilitato = false;
}

}  // namespace

void Timer4Tick(Sistema& s, Interfaccia& ui, IndiceCopertura* indice) {
    IndiceCopertura locale;
    if (!indice) indice = &locale;
    const int k = s.SviluppoK;
    const int g = s.TipoGaranzia;
    const int ultimo = s.NumPronostico >= 1 ? NumeroPronostico(s, s.NumPronostico) : -1;
    int contatore = 0;
    for (;;) {
        if (++contatore == 100) break;  // 99 targets a tick
        const int64_t c = s.ColonneEsaminate;
        if (c > s.colonne.capacita()) throw errori::indiceFuoriIntervallo();
        static const uint8_t zeri[10] = {};
        const uint8_t* t = c < 1 ? zeri : s.colonne.colonna(c);  // column 0 exists and is blank
        indice->sincronizza(s);
        if (!indice->coperto(s, t)) {
            const int64_t R = s.MSFlexGrid1.Rows();
            if (R + 1 > LimiteRigheRidotte) throw errori::indiceFuoriIntervallo();
            uint8_t* riga = s.RigheRidotte.colonna(R + 1);
            int P = s.ContatoreLavoro;
            if (P == 1) {
                std::memcpy(riga, t, static_cast<size_t>(g));
                P = g + 1;
            } else {
                for (int a = 0; a < g; ++a)
                    if (!Tiene(riga, P - 1, t[a])) { riga[P - 1] = t[a]; break; }
                if (riga[P - 1] == 0) {
                    // every number of the target is in the row: the first forecast number it lacks
                    for (int i = 1; i <= s.NumPronostico; ++i) {
                        uint8_t n = NumeroPronostico(s, i);
                        if (!Tiene(riga, k, n)) { riga[P - 1] = n; break; }
                    }
                }
                for (;;) {
                    int conta = Coppie(riga, P, t, g);
                    if (conta < g && P == k) {
                        --s.ColonneEsaminate;  // the target comes up again once the row is closed
                    } else if (conta < g && P < k) {
                        ++P;
                        for (int a = 0; a < g; ++a)
                            if (!Tiene(riga, P - 1, t[a])) riga[P - 1] = t[a];  // the last one stays
                    } else {
                        ++P;
                        break;
                    }
                    conta = Coppie(riga, P, t, g);
                    if (conta < g && P == k) --s.ColonneEsaminate;
                    if (P == k) {
                        ++P;
                        break;
                    }
                }
            }
            // Last-number rule.
            if (t[g - 1] == ultimo && P != k + 1) {
                int x = riga[g - 2];
                for (int i = 1; i <= s.NumPronostico; ++i) {
                    int n = NumeroPronostico(s, i);
                    if (n > x) { x = n; break; }
                }
                riga[P - 1] = static_cast<uint8_t>(x);
                ++P;
            }
            if (P == k + 1) {
                for (int x = 1; x <= k; ++x)
                    for (int y = 1; y <= k; ++y)
                        for (int z = 1; z <= k; ++z)
                            if (y != z && riga[y - 1] == riga[z - 1]) riga[z - 1] = NumeroPronostico(s, x);
                Ordina(riga, k);
                P = 1;
                Aggiungi(s, riga, k);
            }
            s.ContatoreLavoro = P;
        }
        ++s.ColonneEsaminate;
        if (s.ColonneEsaminate == s.NumColonne + 1) break;
    }
    s.form4.valore = static_cast<double>(s.ColonneEsaminate);
    s.form4.Text1 = TestoSemplice(s.MSFlexGrid1.Rows());
    s.form4.Text2 = TestoSemplice(s.ColonneEsaminate);
    AggiornaForm4(s, ui);
    if (s.ColonneEsaminate < s.NumColonne) return;
    Chiusura(s, ui);
}

void EseguiTimer4(Sistema& s, Interfaccia& ui) {
    IndiceCopertura indice;
    try {
        while (s.Timer4Abilitato) {
            Timer4Tick(s, ui, &indice);
            if (!s.Timer4Abilitato) break;
            CediForm4(s, ui);
        }
    } catch (const ErroreEsecuzione&) {
        s.Timer4Abilitato = false;
        throw;
    }
}

}  // namespace zef
