#include "reduction/riduzione.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "reduction/sottoinsiemi.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace zef {

using riduzione::C;
using riduzione::ColonnaRegolare;
using riduzione::PerOgniSottoinsieme;

namespace {

bool TutteRegolari(const Colonne& c, int64_t n, int k) {
    for (int64_t i = 1; i <= n; ++i)
        if (!ColonnaRegolare(c.colonna(i), k)) return false;
    return true;
}

// Count of positions of `col` whose number is marked, as the plain scan counts.
int ContaSegnati(const uint8_t* col, int k, const bool* segnati) {
    int c = 0;
    for (int p = 0; p < k; ++p) c += segnati[col[p]];
    return c;
}

// Bits over the ranks of the g-subsets of 1..90: those held by a kept column.
class SottoinsiemiCoperti {
public:
    SottoinsiemiCoperti(int g) : g_(g), bit_((C(90, g) + 63) / 64, 0) {}
    void aggiungi(const uint8_t* v, int k) {
        PerOgniSottoinsieme(v, k, g_, [&](uint64_t r) { bit_[r >> 6] |= uint64_t{1} << (r & 63); });
    }
    bool copre(const uint8_t* v, int k) const {
        bool si = false;
        PerOgniSottoinsieme(v, k, g_, [&](uint64_t r) { si |= (bit_[r >> 6] >> (r & 63)) & 1; });
        return si;
    }

private:
    int g_;
    std::vector<uint64_t> bit_;
};

// For every g-subset, the columns that hold it: answers "which columns share at
// least g numbers with this one?" without a scan of the list.
class IndiceSottoinsiemi {
public:
    IndiceSottoinsiemi(const Colonne& c, int64_t n, int k, int g) : k_(k), g_(g) {
        std::vector<uint64_t> voci;
        voci.reserve(static_cast<size_t>(n) * C(k, g));
        for (int64_t i = 1; i <= n; ++i)
            PerOgniSottoinsieme(c.colonna(i), k, g, [&](uint64_t r) { voci.push_back(r << 32 | uint64_t(i)); });
        std::sort(voci.begin(), voci.end());
        colonne_.resize(voci.size());
        for (size_t e = 0; e < voci.size(); ++e) {
            uint64_t r = voci[e] >> 32;
            if (chiavi_.empty() || chiavi_.back() != r) {
                chiavi_.push_back(r);
                inizi_.push_back(static_cast<uint32_t>(e));
            }
            colonne_[e] = static_cast<uint32_t>(voci[e]);
        }
        inizi_.push_back(static_cast<uint32_t>(voci.size()));
        timbro_.assign(static_cast<size_t>(n) + 1, 0);
    }

    // Calls f(i) once for every column i sharing at least g numbers with `v`.
    template <class F>
    void vicini(const uint8_t* v, F&& f) {
        ++turno_;
        PerOgniSottoinsieme(v, k_, g_, [&](uint64_t r) {
            auto it = std::lower_bound(chiavi_.begin(), chiavi_.end(), r);
            if (it == chiavi_.end() || *it != r) return;
            size_t q = static_cast<size_t>(it - chiavi_.begin());
            for (uint32_t e = inizi_[q]; e < inizi_[q + 1]; ++e) {
                uint32_t i = colonne_[e];
                if (timbro_[i] != turno_) {
                    timbro_[i] = turno_;
                    f(i);
                }
            }
        });
    }

private:
    int k_, g_;
    std::vector<uint64_t> chiavi_;
    std::vector<uint32_t> inizi_;
    std::vector<uint32_t> colonne_;
    std::vector<uint32_t> timbro_;
    uint32_t turno_ = 0;
};

void CopiaColonna(const Colonne& da, int64_t i, Colonne& a, int64_t j, int k) {
    std::memcpy(a.colonna(j), da.colonna(i), static_cast<size_t>(k));
}

}  // namespace

void RiduciRapido(Sistema& s, Interfaccia& ui, int16_t& garanzia, bool ricorsiva) {
    if (ricorsiva) {
        int16_t minore = static_cast<int16_t>(garanzia - 1);
        RiduciRapido(s, ui, minore, false);
    }
    const int k = s.SviluppoK;
    const int g = garanzia;
    const int64_t n = s.NumColonne;
    if (s.NumRidotte == 0) {
        s.ColonneRidotte.dimensiona(k, n + 1);
        s.NumRidotte = 1;
        CopiaColonna(s.colonne, 1, s.ColonneRidotte, 1, k);  // column 1 is always kept
    } else if (s.ColonneRidotte.capacita() < s.NumRidotte + n) {
        // A list already there (the recursive branch) grows keeping its columns.
        Colonne piu;
        piu.dimensiona(k, s.NumRidotte + n + 1);
        std::memcpy(piu.dati(), s.ColonneRidotte.dati(), static_cast<size_t>(s.NumRidotte) * k);
        s.ColonneRidotte = std::move(piu);
    }

    CaricaForm4(s);
    s.form4.Label1 = "Riduzione in corso...";
    s.form4.massimo = static_cast<double>(n);
    ui.clessidra(true);
    MostraForm4(s, ui);
    if (!s.form4.visibile) return;

    // g above k covers nothing (column 1 is then kept twice); g of 0 or less covers all.
    const bool regolari = g >= 1 && g <= k && TutteRegolari(s.colonne, n, k) &&
                          TutteRegolari(s.ColonneRidotte, s.NumRidotte, k);
    // One bit per g-subset of 1..90 up to g = 5 (5.5 MB); above, masks against every kept column.
    const bool conIndice = regolari && g <= 5;
    std::vector<Maschera> tenute;
    std::vector<SottoinsiemiCoperti> indice;
    if (regolari && !conIndice)
        for (int64_t r = 1; r <= s.NumRidotte; ++r) tenute.push_back(s.ColonneRidotte.maschera(r));
    if (conIndice) {
        indice.emplace_back(g);
        for (int64_t r = 1; r <= s.NumRidotte; ++r) indice[0].aggiungi(s.ColonneRidotte.colonna(r), k);
    }
    bool segnati[256];
    for (int64_t i = 1; i <= n; ++i) {
        if (i % 500 == 0) {
            s.form4.valore = static_cast<double>(i);
            s.form4.Text1 = TestoSemplice(s.NumRidotte);
            s.form4.Text2 = TestoSemplice(i);
            AggiornaForm4(s, ui);
            CediForm4(s, ui);  // no stop is looked for: an ESC leaves the result whole
        }
        const uint8_t* col = s.colonne.colonna(i);
        bool coperta;
        if (conIndice) {
            coperta = indice[0].copre(col, k);
        } else if (regolari) {
            const Maschera mc = MascheraDi(col, k);
            coperta = false;
            for (const Maschera& t : tenute)
                if (comuni(t, mc) >= g) { coperta = true; break; }
        } else {
            std::memset(segnati, 0, sizeof segnati);
            for (int p = 0; p < k; ++p) segnati[col[p]] = true;
            coperta = false;
            for (int64_t r = 1; r <= s.NumRidotte && !coperta; ++r)
                coperta = ContaSegnati(s.ColonneRidotte.colonna(r), k, segnati) >= g;
        }
        if (!coperta) {
            ++s.NumRidotte;
            CopiaColonna(s.colonne, i, s.ColonneRidotte, s.NumRidotte, k);
            if (conIndice) indice[0].aggiungi(col, k);
            else if (regolari) tenute.push_back(MascheraDi(col, k));
        }
    }
    ui.clessidra(false);
    ScaricaForm4(s, ui);
    s.form5.scarica();
}

void RiduciAccurato(Sistema& s, Interfaccia& ui, int16_t& garanzia, int16_t& kk) {
    const int k = kk;
    const int g = garanzia;
    const int64_t n = s.NumColonne;

    s.GaranziaAttiva = true;
    s.ColonneEsaminate = 0;
    s.SistemaSalvato = false;
    s.MSFlexGrid1.Clear();
    ImpostaListaCol(s, "0");
    s.ColonneRidotte.dimensiona(k, n + 1);
    CopiaColonna(s.colonne, 1, s.ColonneRidotte, 1, k);  // column 1 is always kept
    int64_t R = 1;

    CaricaForm4(s);
    s.form4.massimo = static_cast<double>(n);
    s.form4.valore = 0;
    s.form4.Label1 = "Calcolo in corso...(fase 1 di 2)";
    MostraForm4(s, ui);

    try {
        std::vector<Maschera> m(static_cast<size_t>(n) + 1);
        for (int64_t i = 1; i <= n; ++i) m[i] = s.colonne.maschera(i);
        // Masks count shared numbers only when no column holds a number twice; else
        // the positions of b whose number is in a are counted, as the plain scan does.
        const bool regolari = TutteRegolari(s.colonne, n, k);
        auto condivide = [&](int64_t a, int64_t b) {
            if (regolari) return comuni(m[a], m[b]) >= g;
            bool segnati[256] = {};
            const uint8_t* ca = s.colonne.colonna(a);
            for (int p = 0; p < k; ++p) segnati[ca[p]] = true;
            return ContaSegnati(s.colonne.colonna(b), k, segnati) >= g;
        };

        // Phase 1: what column 1 leaves uncovered.
        std::vector<uint32_t> scoperte;  // indices into Colonne, ascending
        for (int64_t i = 1; i <= n; ++i) {
            if (!condivide(i, 1)) scoperte.push_back(static_cast<uint32_t>(i));
            if (i % 100 == 0) {
                s.form4.valore = static_cast<double>(i);
                AggiornaForm4(s, ui);
                CediForm4(s, ui);  // a stop here is seen at the first check of phase 2
            }
        }

        if (!scoperte.empty()) {
            int64_t M = static_cast<int64_t>(scoperte.size());
            if (s.form4.massimo == static_cast<double>(n)) {
                s.form4.massimo = static_cast<double>(M);
                s.form4.valore = 0;
                s.form4.Label1 = "Calcolo in corso...(fase 2 di 2)";
            }
            // Score of a candidate: uncovered columns it shares at least g numbers with.
            // Built once, then lowered as columns get covered.
            std::vector<int32_t> punteggio(static_cast<size_t>(n) + 1, 0);
            std::vector<uint32_t> restanti = scoperte;
            const bool conIndice = regolari && g >= 1 && g <= k;
            std::unique_ptr<IndiceSottoinsiemi> indice;
            if (conIndice) {
                indice = std::make_unique<IndiceSottoinsiemi>(s.colonne, n, k, g);
                for (uint32_t j : restanti) indice->vicini(s.colonne.colonna(j), [&](uint32_t i) { ++punteggio[i]; });
            } else {
                for (uint32_t j : restanti)
                    for (int64_t i = 1; i <= n; ++i) punteggio[i] += condivide(i, j);
            }
            for (;;) {
                // The yields of the scoring pass, every 200 candidates.
                bool fermato = false;
                for (int64_t i = 200; i <= n; i += 200) {
                    if (!s.form4.visibile) { fermato = true; break; }
                    s.form4.Text2 = TestoSemplice(static_cast<long long>(s.form4.massimo) - M);
                    s.form4.valore = s.form4.massimo - static_cast<double>(M);
                    s.form4.Text1 = TestoSemplice(R);
                    AggiornaForm4(s, ui);
                    CediForm4(s, ui);
                }
                if (fermato) break;
                // Lowest index wins a tie.
                int32_t meglio = 0;
                int64_t migliore = 0;
                for (int64_t i = 1; i <= n; ++i)
                    if (meglio < punteggio[i]) { meglio = punteggio[i]; migliore = i; }
                if (meglio == 0) break;
                // A column holding a number twice can score on a column it does not
                // cover: then the rounds never end and the list grows until memory runs out.
                if (R + 1 > s.ColonneRidotte.capacita()) throw std::bad_alloc();
                ++R;
                CopiaColonna(s.colonne, migliore, s.ColonneRidotte, R, k);
                s.form4.Text1 = TestoSemplice(R);
                s.form4.Text2 = TestoSemplice(static_cast<long long>(s.form4.massimo) - M);
                s.form4.valore = s.form4.massimo - static_cast<double>(M);
                AggiornaForm4(s, ui);
                if (!CediForm4(s, ui)) break;
                // Only the new column can cover what the earlier ones left uncovered.
                M = 0;
                size_t w = 0;
                for (uint32_t j : restanti) {
                    if (condivide(j, migliore)) {
                        if (conIndice) indice->vicini(s.colonne.colonna(j), [&](uint32_t i) { --punteggio[i]; });
                        else for (int64_t i = 1; i <= n; ++i) punteggio[i] -= condivide(i, j);
                    } else {
                        restanti[w++] = j;
                        ++M;
                    }
                }
                restanti.resize(w);
                if (M == 0) break;
            }
        }
    } catch (const std::bad_alloc&) {
        // The index of a very large list does not fit: keep what was kept so far.
        s.NumRidotte = static_cast<int32_t>(R);
        ScaricaForm4(s, ui);
        throw errori::memoriaEsaurita();
    }
    s.NumRidotte = static_cast<int32_t>(R);
    ScaricaForm4(s, ui);
}

}  // namespace zef
