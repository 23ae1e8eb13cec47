#include "conditions/misura_colonne.h"

#include "core/basic.h"
#include "core/errori.h"

#include <algorithm>
#include <bit>

namespace zef {

namespace {

std::vector<int> RuoteLette(int ruota) {
    if (ruota == misura::Tutte) return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    if (ruota >= 1 && ruota <= misura::Nazionale) return {ruota};
    return {};
}

bool Valido(int x) { return x >= 1 && x <= 90; }

bool Guasta(const EstrazioneLetta& e, int ruota) {
    for (int p = 1; p <= 5; ++p)
        if (!Valido(e.numero(ruota, p))) return true;
    return false;
}

// The walk both passes share: positioned on the last n + 1 rows, wheel after wheel.
template <class PerEstrazione>
bool Passata(const EstrazioneLetta* righe, long quante, int ruota, long n, PerEstrazione&& leggi) {
    for (int r : RuoteLette(ruota)) {
        if (quante - n - 1 < 0) return false;  // the move starts before the first row
        for (long i = quante - n - 1; i < quante; ++i)
            if (!leggi(righe[i], r)) return false;
    }
    return true;
}

}  // namespace

bool PassataFrequenze(const EstrazioneLetta* righe, long quante, int ruota, long n, std::array<int16_t, 91>& t) {
    t.fill(0);
    return Passata(righe, quante, ruota, n, [&](const EstrazioneLetta& e, int r) {
        for (int p = 1; p <= 5; ++p) {
            const int x = e.numero(r, p);
            if (!Valido(x)) return false;
            t[x] += 1;
        }
        return true;
    });
}

bool PassataRitardi(const EstrazioneLetta* righe, long quante, int ruota, long n, std::array<int16_t, 91>& t) {
    t.fill(0);
    return Passata(righe, quante, ruota, n, [&](const EstrazioneLetta& e, int r) {
        for (int x = 1; x <= 90; ++x) t[x] += 1;
        for (int p = 1; p <= 5; ++p) {
            const int x = e.numero(r, p);
            if (!Valido(x)) return false;
            t[x] = 0;
        }
        return true;
    });
}

// ---- the passes kept up to date -------------------------------------------------------------

PassateProgressive::PassateProgressive(const std::vector<EstrazioneLetta>& righe, int ruota, long nRitardi,
                                       long nFrequenze)
    : righe_(righe), ruota_(ruota), ruote_(RuoteLette(ruota)), nR_(nRitardi), nF_(nFrequenze) {
    ultima_.resize(ruote_.size());
    for (auto& u : ultima_) u.fill(-1);
    conteggi_.resize(ruote_.size());
    guaste_.assign(ruote_.size(), std::vector<int32_t>(righe_.size() + 1, 0));
    for (size_t k = 0; k < ruote_.size(); ++k)
        for (size_t i = 0; i < righe_.size(); ++i) guaste_[k][i + 1] = guaste_[k][i] + (Guasta(righe_[i], ruote_[k]) ? 1 : 0);
}

void PassateProgressive::aggiungi(long riga) {
    const long uscente = riga - nF_ - 1;  // leaves the frequency window as `riga` enters it
    for (size_t k = 0; k < ruote_.size(); ++k) {
        const int r = ruote_[k];
        for (int p = 1; p <= 5; ++p) {
            const int x = righe_[riga].numero(r, p);
            if (!Valido(x)) continue;
            ultima_[k][x] = static_cast<int32_t>(riga);
            conteggi_[k][x] += 1;
        }
        if (uscente >= 0)
            for (int p = 1; p <= 5; ++p) {
                const int x = righe_[uscente].numero(r, p);
                if (Valido(x)) conteggi_[k][x] -= 1;
            }
    }
}

bool PassateProgressive::pulita(long primaRiga) const {
    for (const auto& g : guaste_)
        if (g[L_] != g[primaRiga]) return false;
    return true;
}

void PassateProgressive::posiziona(long id) {
    const long n = static_cast<long>(righe_.size());
    while (L_ < n && righe_[L_].id <= id) aggiungi(L_++);
    // A window with a bad field stops the pass part way: that one is replayed as written.
    auto stato = [&](long nPassata, std::array<int16_t, 91>& tabella, bool ritardi) {
        if (ruote_.empty() || L_ - nPassata - 1 < 0) return Stato::Zero;
        if (pulita(L_ - nPassata - 1)) return Stato::Veloce;
        if (ritardi) PassataRitardi(righe_.data(), L_, ruota_, nPassata, tabella);
        else PassataFrequenze(righe_.data(), L_, ruota_, nPassata, tabella);
        return Stato::Tabella;
    };
    statoR_ = stato(nR_, tabellaR_, true);
    statoF_ = stato(nF_, tabellaF_, false);
}

int PassateProgressive::ritardo(int x) const {
    if (statoR_ == Stato::Zero) return 0;
    if (statoR_ == Stato::Tabella) return tabellaR_[x];
    // Each wheel's window adds one a draw and clears the number where it came out;
    // a number absent from a wheel's window carries on from the wheel before.
    const long inizio = L_ - nR_ - 1;
    int v = 0;
    for (const auto& u : ultima_) {
        const int32_t dove = u[x];
        if (dove >= inizio) v = static_cast<int>(L_ - 1 - dove);
        else v += static_cast<int>(nR_ + 1);
    }
    return v;
}

int PassateProgressive::frequenza(int x) const {
    if (statoF_ == Stato::Zero) return 0;
    if (statoF_ == Stato::Tabella) return tabellaF_[x];
    int v = 0;
    for (const auto& c : conteggi_) v += c[x];
    return v;
}

// ---- the measuring ----------------------------------------------------------------------------

ParametriColonne::ParametriColonne() {
    for (int s = 1; s <= 3; ++s) {
        auto& z = SezioniSuggerite[s];
        z[1] = static_cast<int16_t>(30 * s - 29);
        z[2] = static_cast<int16_t>(30 * s);
        z[3] = 6;  // least presences, from above
        z[4] = 0;
        z[5] = 6;  // least steps, from above
        z[6] = 1;
    }
}

namespace {

bool Pari(int x) { return (x & 1) == 0; }

// The numbers seen in the draws so far, one set a row.
struct Visti {
    std::vector<std::array<uint64_t, 2>> righe;
    static std::array<uint64_t, 2> Insieme(const std::array<int, 6>& n) {
        std::array<uint64_t, 2> m{};
        for (int j = 1; j <= 5; ++j) m[n[j] >> 6] |= uint64_t{1} << (n[j] & 63);
        return m;
    }
    int punti(const std::array<int, 6>& n, const std::array<uint64_t, 2>& insieme, bool distinti, long riga) const {
        const auto& v = righe[riga];
        if (distinti) return std::popcount(insieme[0] & v[0]) + std::popcount(insieme[1] & v[1]);
        int c = 0;  // a number twice in the draw counts twice
        for (int j = 1; j <= 5; ++j) c += (v[n[j] >> 6] >> (n[j] & 63)) & 1;
        return c;
    }
};

struct Misuratore {
    ParametriColonne& m;
    Visti visti;

    // One draw on one wheel as a column of five; `i` its row in the range.
    void colonna(const EstrazioneLetta& e, int ruota, long i, const PassateProgressive& passate) {
        std::array<int, 6> n{};
        for (int p = 1; p <= 5; ++p) {
            n[p] = e.numero(ruota, p);
            if (n[p] == 0) throw errori::usoNonValidoNull();
        }
        std::sort(n.begin() + 1, n.end());
        auto passo = [&](int j) { return n[j + 1] == n[j] + 1; };

        // a. the smallest gap
        int g = 84;
        for (int j = 1; j <= 4; ++j) g = std::min(g, n[j + 1] - n[j] - 1);
        m.sommaDistanze += g;

        // b. consecutiveness: the steps of the whole column
        int cons = 0;
        for (int j = 1; j <= 4; ++j) {
            if (passo(j)) ++cons;
            else if (cons > m.Combo2) m.Combo2 = cons;
        }
        if (cons < m.Combo1) m.Combo1 = cons;
        if (cons > m.Combo2) m.Combo2 = cons;

        // c. interruptions
        int corrente = 0, totale = 0, massimo = 0;
        for (int j = 1; j <= 4; ++j) {
            if (passo(j)) {
                corrente = 0;
            } else {
                ++corrente;
                ++totale;
                massimo = std::max(massimo, corrente);
            }
        }
        m.Check1[totale] = 1;
        if (massimo > m.Combo5 + 1) m.Combo5 = massimo - 1;

        // d. parity groups, counted as the filter counts them
        bool stato = false;
        int gPari = 0, gDispari = 0;
        for (int j = 1; j <= 4; ++j) {
            if (Pari(n[j] + n[j + 1])) {
                stato = !stato;
                if (j == 4) ++(stato ? gPari : gDispari);
            } else {
                if (stato) {
                    ++gPari;
                    stato = false;
                } else {
                    ++gDispari;
                }
                if (j == 4) ++gDispari;
            }
        }
        m.chkGruppiPari[gPari] = 1;
        m.chkGruppiDispari[gDispari] = 1;

        // e. positions
        for (int j = 1; j <= 5; ++j) {
            if (n[j] < 0 || n[j] > 90) throw errori::indiceFuoriIntervallo();
            m.PosizioniSuggerite[j][n[j]] = 1;
        }

        // f. the three sections
        for (int s = 1; s <= 3; ++s) {
            auto& z = m.SezioniSuggerite[s];
            auto dentro = [&](int x) { return x >= z[1] && x <= z[2]; };
            int presenze = 0, passi = 0;
            for (int j = 1; j <= 4; ++j)
                if (dentro(n[j])) {
                    ++presenze;
                    if (passo(j)) ++passi;
                }
            if (z[5] > passi) z[5] = static_cast<int16_t>(passi);
            if (z[6] < passi) z[6] = static_cast<int16_t>(passi);
            if (dentro(n[5])) ++presenze;
            if (z[3] > presenze) z[3] = static_cast<int16_t>(presenze);
            if (z[4] < presenze) z[4] = static_cast<int16_t>(presenze);
        }

        // g. sum
        const int somma = n[1] + n[2] + n[3] + n[4] + n[5];
        m.sommaMin = std::min(m.sommaMin, somma);
        m.sommaMax = std::max(m.sommaMax, somma);

        // h. even and odd, and their longest runs
        int pari = 0, dispari = 0, runPari = 0, runDispari = 0, maxPari = 0, maxDispari = 0;
        for (int j = 1; j <= 5; ++j) {
            if (Pari(n[j])) {
                ++pari;
                ++runPari;
                runDispari = 0;
                maxPari = std::max(maxPari, runPari);
            } else {
                ++dispari;
                ++runDispari;
                runPari = 0;
                maxDispari = std::max(maxDispari, runDispari);
            }
        }
        m.pariMin = std::min(m.pariMin, pari);
        m.pariMax = std::max(m.pariMax, pari);
        m.pariCons = std::max(m.pariCons, maxPari);
        m.dispariMin = std::min(m.dispariMin, dispari);
        m.dispariMax = std::max(m.dispariMax, dispari);
        m.dispariCons = std::max(m.dispariCons, maxDispari);

        // i. parity interruptions
        runPari = runDispari = totale = corrente = massimo = 0;
        for (int j = 1; j <= 5; ++j) {
            int& altra = Pari(n[j]) ? runDispari : runPari;
            int& propria = Pari(n[j]) ? runPari : runDispari;
            if (altra < 1) {
                corrente = 0;
            } else {
                ++totale;
                ++corrente;
                massimo = std::max(massimo, corrente);
            }
            ++propria;
            altra = 0;
        }
        m.chkInterruzioniPD[totale] = 1;
        if (massimo > m.Combo7 + 1) m.Combo7 = massimo - 1;

        // j. points against the ten draws before, from the eleventh on
        const auto insieme = Visti::Insieme(n);
        if (i >= 11) {
            const bool distinti = std::popcount(insieme[0]) + std::popcount(insieme[1]) == 5;
            for (long c = 1; c <= 10; ++c) m.Combo10 = std::max(m.Combo10, visti.punti(n, insieme, distinti, i - c));
        }
        visti.righe[i][0] |= insieme[0];
        visti.righe[i][1] |= insieme[1];

        // k. mean delay and mean frequency as they stood at this draw
        int ritardi = 0, frequenze = 0;
        for (int j = 1; j <= 5; ++j) {
            ritardi += passate.ritardo(n[j]);
            frequenze += passate.frequenza(n[j]);
        }
        const int ritardo = ritardi / 5, frequenza = frequenze / 5;
        if (ritardo < m.ritardoMin) m.ritardoMin = static_cast<int16_t>(ritardo);
        if (ritardo > m.ritardoMax) m.ritardoMax = static_cast<int16_t>(ritardo);
        if (frequenza < m.frequenzaMin) m.frequenzaMin = static_cast<int16_t>(frequenza);
        if (frequenza > m.frequenzaMax) m.frequenzaMax = static_cast<int16_t>(frequenza);
    }
};

}  // namespace

ParametriColonne MisuraColonne(const std::vector<EstrazioneLetta>& righe, long prima, long ultima, int ruota,
                               long nRitardi, long nFrequenze) {
    ParametriColonne m;
    const std::vector<int> ruote = RuoteLette(ruota);
    if (ruote.empty()) return m;
    m.misurate = true;
    const auto inizio = std::lower_bound(righe.begin(), righe.end(), prima,
                                         [](const EstrazioneLetta& e, long id) { return e.id < id; });
    const auto fine = std::upper_bound(inizio, righe.end(), ultima,
                                       [](long id, const EstrazioneLetta& e) { return id < e.id; });
    m.righe = static_cast<long>(fine - inizio);
    if (m.righe == 0) {  // no last row to go to
        m.interrotta = true;
        m.errore = errori::NessunRecordCorrente;
        return m;
    }
    PassateProgressive passate(righe, ruota, nRitardi, nFrequenze);
    Misuratore mis{m, {}};
    mis.visti.righe.assign(static_cast<size_t>(m.righe) + 1, {});
    for (long i = 1; i <= m.righe; ++i) {
        const EstrazioneLetta& e = *(inizio + (i - 1));
        // the passes take the draw's place in the range as its id
        passate.posiziona(prima - 1 + i);
        try {
            for (int r : ruote) mis.colonna(e, r, i, passate);
        } catch (const ErroreEsecuzione& err) {
            m.interrotta = true;
            m.errore = err.numero;
            m.rigaErrore = i;
            return m;
        }
        if (ruote.size() > 1) m.sommaDistanze = static_cast<int32_t>(ArrotondaBanker(m.sommaDistanze / 10.0));
    }
    return m;
}

std::vector<EstrazioneLetta> LeggiPerMisura(FonteEstrazioni& fonte, long prima) {
    // Enough draws up to the first id for both windows, when the ids run without gaps.
    const long servono = std::max(misura::UltimeRitardi, misura::UltimeFrequenze) + 1;
    auto righe = fonte.daId(prima - servono - 100);
    long finoAllaPrima = 0;
    for (const auto& e : righe)
        if (e.id <= prima) ++finoAllaPrima;
    if (finoAllaPrima >= servono || static_cast<long>(righe.size()) == fonte.numeroEstrazioni()) return righe;
    return fonte.tutte();
}

}  // namespace zef
