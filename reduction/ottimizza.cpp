#include "reduction/ottimizza.h"

#include "reduction/sottoinsiemi.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <random>
#include <stdexcept>
#include <thread>
#include <unordered_map>

namespace zef {

namespace {

using riduzione::C;
using Orologio = std::chrono::steady_clock;

struct Bit128 {
    uint64_t b[2] = {0, 0};
    void metti(int i) { b[i >> 6] |= uint64_t{1} << (i & 63); }
    void togli(int i) { b[i >> 6] &= ~(uint64_t{1} << (i & 63)); }
    bool ha(int i) const { return (b[i >> 6] >> (i & 63)) & 1; }
};
inline int Comuni(const Bit128& a, const Bit128& c) { return std::popcount(a.b[0] & c.b[0]) + std::popcount(a.b[1] & c.b[1]); }

// The colex rank of an ascending set of small indices.
inline uint64_t Rango(const int* v, int n) {
    uint64_t r = 0;
    for (int i = 0; i < n; ++i) r += C(v[i], i + 1);
    return r;
}

// Calls f(subset, size) for every ascending r-subset of v[0..n).
template <class F>
void Sottoinsiemi(const int* v, int n, int r, F&& f) {
    if (r > n || r < 0) return;
    int idx[12];
    int sub[12];
    for (int i = 0; i < r; ++i) idx[i] = i;
    for (;;) {
        for (int i = 0; i < r; ++i) sub[i] = v[idx[i]];
        f(static_cast<const int*>(sub));
        int i = r - 1;
        while (i >= 0 && idx[i] == n - r + i) --i;
        if (i < 0) return;
        ++idx[i];
        for (int j = i + 1; j < r; ++j) idx[j] = idx[j - 1] + 1;
    }
}

// A handful of indices, ascending.
inline void Ordina(int* v, int n) {
    for (int i = 1; i < n; ++i)
        for (int j = i; j > 0 && v[j - 1] > v[j]; --j) std::swap(v[j - 1], v[j]);
}

// Inserts x into the ascending a[0..n) giving b[0..n].
inline void Inserisci(const int* a, int n, int x, int* b) {
    int i = 0, j = 0;
    while (i < n && a[i] < x) b[j++] = a[i++];
    b[j++] = x;
    while (i < n) b[j++] = a[i++];
}

// The uncovered targets as a list with O(1) insertion, removal and random pick.
struct Scoperti {
    std::vector<int32_t> lista;
    std::vector<int32_t> pos;
    void dimensiona(size_t n) { pos.assign(n, -1); lista.clear(); }
    void sincronizza(int32_t t, int32_t copertura) {
        if (copertura == 0 && pos[static_cast<size_t>(t)] < 0) {
            pos[static_cast<size_t>(t)] = static_cast<int32_t>(lista.size());
            lista.push_back(t);
        } else if (copertura > 0 && pos[static_cast<size_t>(t)] >= 0) {
            const int32_t p = pos[static_cast<size_t>(t)];
            const int32_t ultimo = lista.back();
            lista[static_cast<size_t>(p)] = ultimo;
            pos[static_cast<size_t>(ultimo)] = p;
            lista.pop_back();
            pos[static_cast<size_t>(t)] = -1;
        }
    }
};

// ---- the cover problem ------------------------------------------------------------------

struct ProblemaCopertura {
    int v = 0, k = 0, g = 0;
    std::vector<int> bersagli;      // g local indices a target
    std::vector<int32_t> idRango;   // rank of a g-subset -> target, -1 when not a target
    Bit128 fisse;
    int numFisse = 0;
};

class StatoCopertura {
public:
    StatoCopertura(const ProblemaCopertura& p, const std::vector<std::vector<int>>& inizio) : p_(p) {
        cov_.assign(p.bersagli.size() / static_cast<size_t>(std::max(1, p.g)), 0);
        scoperti_.dimensiona(cov_.size());
        for (const auto& b : inizio) {
            Blocco x;
            for (int i = 0; i < p.k; ++i) {
                x.el[i] = b[static_cast<size_t>(i)];
                x.mask.metti(b[static_cast<size_t>(i)]);
            }
            blocchi_.push_back(x);
            perBersagli(x, [&](int32_t t) { ++cov_[static_cast<size_t>(t)]; });
        }
        for (size_t t = 0; t < cov_.size(); ++t) scoperti_.sincronizza(static_cast<int32_t>(t), cov_[t]);
    }

    int64_t costo() const { return static_cast<int64_t>(scoperti_.lista.size()); }
    size_t blocchi() const { return blocchi_.size(); }
    // A move changes a handful of targets: the temperature is read as it stands.
    void misuraScala(std::mt19937_64&) {}

    std::vector<std::vector<int>> soluzione() const {
        std::vector<std::vector<int>> s;
        for (const auto& b : blocchi_) s.emplace_back(b.el, b.el + p_.k);
        return s;
    }

    // One move: a column that misses one number of an uncovered target takes it in
    // place of one of its own.
    void passo(std::mt19937_64& rng, double temperatura) {
        if (scoperti_.lista.empty() || blocchi_.empty()) return;
        const int32_t t = scoperti_.lista[rng() % scoperti_.lista.size()];
        const int* T = &p_.bersagli[static_cast<size_t>(t) * static_cast<size_t>(p_.g)];
        Bit128 tm;
        for (int i = 0; i < p_.g; ++i) tm.metti(T[i]);
        candidati_.clear();
        for (size_t b = 0; b < blocchi_.size(); ++b)
            if (Comuni(blocchi_[b].mask, tm) == p_.g - 1) candidati_.push_back(static_cast<int32_t>(b));
        size_t b;
        if (!candidati_.empty()) b = static_cast<size_t>(candidati_[rng() % candidati_.size()]);
        else b = rng() % blocchi_.size();
        Blocco& B = blocchi_[b];
        // y: a number of the target the column lacks; x: one of the column's own that
        // is neither fixed nor in the target.
        int mancanti[12], nm = 0;
        for (int i = 0; i < p_.g; ++i)
            if (!B.mask.ha(T[i])) mancanti[nm++] = T[i];
        int liberi[12], nl = 0;
        for (int i = 0; i < p_.k; ++i)
            if (!tm.ha(B.el[i]) && !p_.fisse.ha(B.el[i])) liberi[nl++] = i;
        if (nm == 0 || nl == 0) return;
        const int y = mancanti[rng() % static_cast<unsigned>(nm)];
        const int px = liberi[rng() % static_cast<unsigned>(nl)];
        const int x = B.el[px];
        int resto[12], nr = 0;
        for (int i = 0; i < p_.k; ++i)
            if (i != px) resto[nr++] = B.el[i];
        Ordina(resto, nr);
        int persi = 0, presi = 0;
        Sottoinsiemi(resto, nr, p_.g - 1, [&](const int* r) {
            int s[12];
            Inserisci(r, p_.g - 1, x, s);
            const int32_t a = p_.idRango[Rango(s, p_.g)];
            if (a >= 0 && cov_[static_cast<size_t>(a)] == 1) ++persi;
            Inserisci(r, p_.g - 1, y, s);
            const int32_t c = p_.idRango[Rango(s, p_.g)];
            if (c >= 0 && cov_[static_cast<size_t>(c)] == 0) ++presi;
        });
        const int delta = persi - presi;
        if (delta > 0) {
            const double u = std::uniform_real_distribution<double>(0, 1)(rng);
            if (u >= std::exp(-delta / temperatura)) return;
        }
        Sottoinsiemi(resto, nr, p_.g - 1, [&](const int* r) {
            int s[12];
            Inserisci(r, p_.g - 1, x, s);
            const int32_t a = p_.idRango[Rango(s, p_.g)];
            if (a >= 0 && --cov_[static_cast<size_t>(a)] == 0) scoperti_.sincronizza(a, 0);
            Inserisci(r, p_.g - 1, y, s);
            const int32_t c = p_.idRango[Rango(s, p_.g)];
            if (c >= 0 && ++cov_[static_cast<size_t>(c)] == 1) scoperti_.sincronizza(c, 1);
        });
        B.el[px] = y;
        B.mask.togli(x);
        B.mask.metti(y);
    }

    // Drops the column that covers the fewest targets on its own.
    void togliUna() {
        size_t peggiore = 0;
        int minimo = INT32_MAX;
        for (size_t b = 0; b < blocchi_.size(); ++b) {
            int soli = 0;
            perBersagli(blocchi_[b], [&](int32_t t) { soli += cov_[static_cast<size_t>(t)] == 1; });
            if (soli < minimo) {
                minimo = soli;
                peggiore = b;
            }
        }
        perBersagli(blocchi_[peggiore], [&](int32_t t) {
            if (--cov_[static_cast<size_t>(t)] == 0) scoperti_.sincronizza(t, 0);
        });
        blocchi_[peggiore] = blocchi_.back();
        blocchi_.pop_back();
    }

private:
    struct Blocco {
        int el[10] = {};
        Bit128 mask;
    };
    template <class F>
    void perBersagli(const Blocco& b, F&& f) const {
        int v[10];
        std::copy(b.el, b.el + p_.k, v);
        Ordina(v, p_.k);
        Sottoinsiemi(v, p_.k, p_.g, [&](const int* s) {
            const int32_t t = p_.idRango[Rango(s, p_.g)];
            if (t >= 0) f(t);
        });
    }

    const ProblemaCopertura& p_;
    std::vector<Blocco> blocchi_;
    std::vector<int32_t> cov_;
    Scoperti scoperti_;
    std::vector<int32_t> candidati_;
};

// ---- the reduction problem ---------------------------------------------------------------

struct ProblemaRiduzione {
    int k = 0, g = 0;
    std::vector<Bit128> maschere;          // a developed column's numbers (bit n-1)
    std::vector<std::vector<int>> numeri;  // the same, ascending, 0-based
    std::vector<int64_t> inizi;            // CSR over the g-subsets: first entry of each
    std::vector<int32_t> voci;             // the columns holding each g-subset
    std::unordered_map<uint64_t, int32_t> idSotto;  // rank of a g-subset -> its index
    struct HashMaschera {
        size_t operator()(const std::pair<uint64_t, uint64_t>& m) const {
            return std::hash<uint64_t>{}(m.first * 0x9E3779B97F4A7C15ull ^ m.second);
        }
    };
    std::unordered_map<std::pair<uint64_t, uint64_t>, int32_t, HashMaschera> idColonna;  // numbers -> column

    template <class F>
    void perCoperti(int32_t c, std::vector<uint32_t>& visto, uint32_t epoca, F&& f) const {
        const auto& n = numeri[static_cast<size_t>(c)];
        Sottoinsiemi(n.data(), k, g, [&](const int* s) {
            const auto it = idSotto.find(Rango(s, g));
            if (it == idSotto.end()) return;
            for (int64_t i = inizi[static_cast<size_t>(it->second)]; i < inizi[static_cast<size_t>(it->second) + 1]; ++i) {
                const int32_t t = voci[static_cast<size_t>(i)];
                if (visto[static_cast<size_t>(t)] != epoca) {
                    visto[static_cast<size_t>(t)] = epoca;
                    f(t);
                }
            }
        });
    }
};

class StatoRiduzione {
public:
    StatoRiduzione(const ProblemaRiduzione& p, const std::vector<std::vector<int>>& inizio) : p_(p) {
        const size_t n = p.numeri.size();
        cov_.assign(n, 0);
        tenuta_.assign(n, 0);
        visto1_.assign(n, 0);
        visto2_.assign(n, 0);
        scoperti_.dimensiona(n);
        for (const auto& b : inizio) {
            const int32_t c = b[0];
            if (tenuta_[static_cast<size_t>(c)]) continue;
            tenuta_[static_cast<size_t>(c)] = 1;
            tenute_.push_back(c);
            p_.perCoperti(c, visto1_, ++epoca_, [&](int32_t t) { ++cov_[static_cast<size_t>(t)]; });
        }
        for (size_t t = 0; t < n; ++t) scoperti_.sincronizza(static_cast<int32_t>(t), cov_[t]);
    }

    int64_t costo() const { return static_cast<int64_t>(scoperti_.lista.size()); }
    size_t blocchi() const { return tenute_.size(); }
    std::vector<std::vector<int>> soluzione() const {
        std::vector<std::vector<int>> s;
        for (int32_t c : tenute_) s.push_back({c});
        return s;
    }

    // One move: a kept column gives its place to a developed column that covers an
    // uncovered one. Preferably a kept column that misses the uncovered one by a single
    // number takes that number in place of one of its own (a small, local change);
    // otherwise a random kept column makes room for a random column covering it.
    void passo(std::mt19937_64& rng, double temperatura) {
        int32_t nuova = -1;
        size_t posVecchia = 0;
        if (!proponi(rng, nuova, posVecchia)) return;
        const int32_t vecchia = tenute_[posVecchia];
        const int delta = valuta(nuova, vecchia);
        if (delta > 0) {
            const double u = std::uniform_real_distribution<double>(0, 1)(rng);
            if (u >= std::exp(-delta / (temperatura * scala_))) return;
        }
        for (int32_t c : nuovi_) ++cov_[static_cast<size_t>(c)];
        for (int32_t c : vecchi_) --cov_[static_cast<size_t>(c)];
        for (int32_t c : vecchi_) scoperti_.sincronizza(c, cov_[static_cast<size_t>(c)]);
        for (int32_t c : nuovi_) scoperti_.sincronizza(c, cov_[static_cast<size_t>(c)]);
        tenuta_[static_cast<size_t>(vecchia)] = 0;
        tenuta_[static_cast<size_t>(nuova)] = 1;
        tenute_[posVecchia] = nuova;
    }

    // The scale of a move's cost, measured on a sample of moves from the start list:
    // the temperature is read in those units.
    void misuraScala(std::mt19937_64& rng) {
        double somma = 0;
        int n = 0;
        for (int i = 0; i < 400 && !scoperti_.lista.empty(); ++i) {
            int32_t nuova = -1;
            size_t pos = 0;
            if (!proponi(rng, nuova, pos)) continue;
            const int d = valuta(nuova, tenute_[pos]);
            if (d > 0) {
                somma += d;
                ++n;
            }
        }
        scala_ = n > 0 ? std::clamp(somma / n / 10.0, 1.0, 3.0) : 1.0;
    }

    void togliUna() {
        size_t peggiore = 0;
        int minimo = INT32_MAX;
        for (size_t b = 0; b < tenute_.size(); ++b) {
            int soli = 0;
            p_.perCoperti(tenute_[b], visto1_, ++epoca_, [&](int32_t c) { soli += cov_[static_cast<size_t>(c)] == 1; });
            if (soli < minimo) {
                minimo = soli;
                peggiore = b;
            }
        }
        const int32_t via = tenute_[peggiore];
        p_.perCoperti(via, visto1_, ++epoca_, [&](int32_t c) {
            if (--cov_[static_cast<size_t>(c)] == 0) scoperti_.sincronizza(c, 0);
        });
        tenuta_[static_cast<size_t>(via)] = 0;
        tenute_[peggiore] = tenute_.back();
        tenute_.pop_back();
    }

private:
    bool proponi(std::mt19937_64& rng, int32_t& nuova, size_t& posVecchia) {
        if (scoperti_.lista.empty() || tenute_.empty()) return false;
        const int32_t t = scoperti_.lista[rng() % scoperti_.lista.size()];
        const Bit128& mt = p_.maschere[static_cast<size_t>(t)];
        vicine_.clear();
        for (size_t b = 0; b < tenute_.size(); ++b)
            if (Comuni(p_.maschere[static_cast<size_t>(tenute_[b])], mt) == p_.g - 1) vicine_.push_back(b);
        if (!vicine_.empty()) {
            posVecchia = vicine_[rng() % vicine_.size()];
            const Bit128& mb = p_.maschere[static_cast<size_t>(tenute_[posVecchia])];
            int dentro[12], nd = 0, fuori[12], nf = 0;
            for (int x : p_.numeri[static_cast<size_t>(t)])
                if (!mb.ha(x)) dentro[nd++] = x;
            for (int x : p_.numeri[static_cast<size_t>(tenute_[posVecchia])])
                if (!mt.ha(x)) fuori[nf++] = x;
            if (nd > 0 && nf > 0) {
                Bit128 m = mb;
                m.togli(fuori[rng() % static_cast<unsigned>(nf)]);
                m.metti(dentro[rng() % static_cast<unsigned>(nd)]);
                const auto it = p_.idColonna.find({m.b[0], m.b[1]});
                if (it != p_.idColonna.end() && !tenuta_[static_cast<size_t>(it->second)]) {
                    nuova = it->second;
                    return true;
                }
            }
        }
        // A column sharing g numbers with t, through a random g-subset of t.
        const auto& nt = p_.numeri[static_cast<size_t>(t)];
        int scelti[12];
        int pos[12];
        for (int i = 0; i < p_.k; ++i) pos[i] = i;
        for (int i = 0; i < p_.g; ++i) std::swap(pos[i], pos[i + static_cast<int>(rng() % static_cast<unsigned>(p_.k - i))]);
        for (int i = 0; i < p_.g; ++i) scelti[i] = nt[static_cast<size_t>(pos[i])];
        Ordina(scelti, p_.g);
        const auto it = p_.idSotto.find(Rango(scelti, p_.g));
        if (it == p_.idSotto.end()) return false;
        const int64_t da = p_.inizi[static_cast<size_t>(it->second)], a = p_.inizi[static_cast<size_t>(it->second) + 1];
        nuova = p_.voci[static_cast<size_t>(da + static_cast<int64_t>(rng() % static_cast<uint64_t>(a - da)))];
        if (tenuta_[static_cast<size_t>(nuova)]) return false;
        posVecchia = rng() % tenute_.size();
        return true;
    }

    // Targets lost minus targets gained by the swap; leaves the two cover sets in
    // nuovi_ and vecchi_.
    int valuta(int32_t nuova, int32_t vecchia) {
        nuovi_.clear();
        const uint32_t eNuova = ++epoca_;
        p_.perCoperti(nuova, visto1_, eNuova, [&](int32_t c) { nuovi_.push_back(c); });
        vecchi_.clear();
        const uint32_t eVecchia = ++epoca_;
        int persi = 0;
        p_.perCoperti(vecchia, visto2_, eVecchia, [&](int32_t c) {
            vecchi_.push_back(c);
            if (visto1_[static_cast<size_t>(c)] != eNuova && cov_[static_cast<size_t>(c)] == 1) ++persi;
        });
        int presi = 0;
        for (int32_t c : nuovi_)
            if (visto2_[static_cast<size_t>(c)] != eVecchia && cov_[static_cast<size_t>(c)] == 0) ++presi;
        return persi - presi;
    }

    const ProblemaRiduzione& p_;
    double scala_ = 1.0;
    std::vector<size_t> vicine_;
    std::vector<int32_t> cov_;
    std::vector<uint8_t> tenuta_;
    std::vector<int32_t> tenute_;
    std::vector<uint32_t> visto1_, visto2_;
    uint32_t epoca_ = 0;
    Scoperti scoperti_;
    std::vector<int32_t> nuovi_, vecchi_;
};

// ---- the walk, the same for both ------------------------------------------------------------

struct Cammino {
    std::vector<std::vector<int>> migliore;
    bool interrotto = false;
};

// Simulated annealing with reheats: from T0 down to Tmin over a cycle of steps
// proportional to the list, then up again. Each covering list is kept and one column
// dropped from it.
template <class Stato>
Cammino Cammina(Stato& st, uint64_t seme, const OpzioniOttimizza& o, Orologio::time_point fine,
                const std::atomic<bool>* ferma, std::atomic<int64_t>& migliorGlobale,
                const std::function<void()>& riferisci) {
    Cammino c;
    std::mt19937_64 rng(seme);
    c.migliore = st.soluzione();
    if (st.costo() != 0 || st.blocchi() <= 1) return c;
    st.togliUna();
    st.misuraScala(rng);
    constexpr double T0 = 0.6, Tmin = 0.04;
    auto ciclo = [&] { return std::max<double>(20000.0, 400.0 * static_cast<double>(st.blocchi())); };
    double alfa = std::pow(Tmin / T0, 1.0 / ciclo());
    double T = T0;
    for (uint64_t passi = 0;; ++passi) {
        if ((passi & 1023) == 0) {
            if (o.passi > 0 ? passi >= o.passi : Orologio::now() >= fine) break;
            if (ferma && ferma->load(std::memory_order_relaxed)) {
                c.interrotto = true;
                break;
            }
            if (riferisci && (passi & 65535) == 0) riferisci();

        }
        st.passo(rng, T);
        if (st.costo() == 0) {
            c.migliore = st.soluzione();
            int64_t m = static_cast<int64_t>(c.migliore.size());
            int64_t g = migliorGlobale.load();
            while (m < g && !migliorGlobale.compare_exchange_weak(g, m)) {
            }
            if (st.blocchi() <= 1) break;
            st.togliUna();
            alfa = std::pow(Tmin / T0, 1.0 / ciclo());
            T = T0;
            continue;
        }
        T *= alfa;
        if (T < Tmin) T = T0;
    }
    return c;
}

struct Risultato {
    std::vector<std::vector<int>> righe;
    bool interrotta = false;
};

template <class Stato, class Problema>
Risultato Esegui(const Problema& p, const std::vector<std::vector<int>>& inizio, const OpzioniOttimizza& o,
                 const std::atomic<bool>* ferma, const std::function<void(const AvanzamentoOttimizza&)>& avanzamento,
                 int64_t limite) {
    const auto partenza = Orologio::now();
    const auto fine = partenza + std::chrono::duration_cast<Orologio::duration>(std::chrono::duration<double>(o.secondi));
    const int fili = o.fili > 0 ? o.fili : static_cast<int>(std::max(1u, std::min(2u, std::thread::hardware_concurrency())));
    std::atomic<int64_t> migliore{static_cast<int64_t>(inizio.size())};
    std::vector<Cammino> cammini(static_cast<size_t>(fili));
    auto riferisci = [&] {
        if (!avanzamento) return;
        AvanzamentoOttimizza a;
        a.iniziale = static_cast<int64_t>(inizio.size());
        a.migliore = migliore.load();
        a.limite = limite;
        a.secondi = std::chrono::duration<double>(Orologio::now() - partenza).count();
        avanzamento(a);
    };
    {
        std::vector<std::jthread> altri;
        for (int f = 1; f < fili; ++f)
            altri.emplace_back([&, f] {
                Stato st(p, inizio);
                cammini[static_cast<size_t>(f)] = Cammina(st, o.seme + static_cast<uint64_t>(f), o, fine, ferma, migliore, {});
            });
        Stato st(p, inizio);
        cammini[0] = Cammina(st, o.seme, o, fine, ferma, migliore, riferisci);
    }
    riferisci();
    Risultato r;
    size_t scelto = 0;
    for (size_t f = 1; f < cammini.size(); ++f)
        if (cammini[f].migliore.size() < cammini[scelto].migliore.size()) scelto = f;
    for (const auto& c : cammini) r.interrotta |= c.interrotto;
    r.righe = std::move(cammini[scelto].migliore);
    return r;
}

// Ranks of g-subsets of v points, with the targets of the cover problem numbered.
ProblemaCopertura Prepara(const std::vector<uint8_t>& numeri, int k, int g, const std::vector<uint8_t>& fisse,
                          int distanza) {
    ProblemaCopertura p;
    p.v = static_cast<int>(numeri.size());
    p.k = k;
    p.g = g;
    for (uint8_t f : fisse) {
        const auto it = std::find(numeri.begin(), numeri.end(), f);
        if (it == numeri.end()) throw std::invalid_argument("fixed number outside the forecast");
        p.fisse.metti(static_cast<int>(it - numeri.begin()));
        ++p.numFisse;
    }
    p.idRango.assign(C(p.v, g), -1);
    std::vector<int> punti(static_cast<size_t>(p.v));
    for (int i = 0; i < p.v; ++i) punti[static_cast<size_t>(i)] = i;
    int32_t n = 0;
    Sottoinsiemi(punti.data(), p.v, g, [&](const int* s) {
        // The targets the cover enumerates: the fixed numbers all in, the distance kept.
        int fissi = 0;
        bool ok = true;
        for (int i = 0; i < g; ++i) {
            fissi += p.fisse.ha(s[i]);
            if (i > 0 && numeri[static_cast<size_t>(s[i])] - (numeri[static_cast<size_t>(s[i - 1])] + 1) < distanza) ok = false;
        }
        if (fissi < p.numFisse || !ok) return;
        p.idRango[Rango(s, g)] = n++;
        p.bersagli.insert(p.bersagli.end(), s, s + g);
    });
    return p;
}

}  // namespace

int64_t LimiteSchonheim(int v, int k, int t) {
    if (t <= 0 || k <= 0 || v < k) return 0;
    // L(v, k, t) = ceil(v/k * L(v-1, k-1, t-1)), L(., ., 0) = 1.
    int64_t l = 1;
    for (int i = t - 1; i >= 0; --i) {
        const int64_t vv = v - i, kk = k - i;
        l = (vv * l + kk - 1) / kk;
    }
    return l;
}

bool CoperturaCompleta(const std::vector<uint8_t>& numeri, int k, int g, const std::vector<uint8_t>& fisse,
                       int distanza, const std::vector<Riga>& righe) {
    if (g < 1 || g > k || static_cast<int>(numeri.size()) < k) return false;
    const ProblemaCopertura p = Prepara(numeri, k, g, fisse, distanza);
    std::vector<uint8_t> coperto(p.bersagli.size() / static_cast<size_t>(g), 0);
    for (const auto& r : righe) {
        if (static_cast<int>(r.size()) != k) return false;
        std::vector<int> v;
        for (uint8_t n : r) {
            const auto it = std::find(numeri.begin(), numeri.end(), n);
            if (it == numeri.end()) return false;
            v.push_back(static_cast<int>(it - numeri.begin()));
        }
        std::sort(v.begin(), v.end());
        if (std::adjacent_find(v.begin(), v.end()) != v.end()) return false;
        Sottoinsiemi(v.data(), k, g, [&](const int* s) {
            const int32_t t = p.idRango[Rango(s, g)];
            if (t >= 0) coperto[static_cast<size_t>(t)] = 1;
        });
    }
    return std::all_of(coperto.begin(), coperto.end(), [](uint8_t c) { return c != 0; });
}

EsitoOttimizza OttimizzaCopertura(const std::vector<uint8_t>& numeri, int k, int g, const std::vector<uint8_t>& fisse,
                                  int distanza, const std::vector<Riga>& inizio, const OpzioniOttimizza& o,
                                  const std::atomic<bool>* ferma,
                                  const std::function<void(const AvanzamentoOttimizza&)>& avanzamento) {
    if (g < 1 || g >= k || static_cast<int>(numeri.size()) < k || numeri.size() > 90 || k > 10)
        throw std::invalid_argument("cover out of range");
    const ProblemaCopertura p = Prepara(numeri, k, g, fisse, distanza);
    std::vector<std::vector<int>> start;
    for (const auto& r : inizio) {
        std::vector<int> v;
        for (uint8_t n : r) {
            const auto it = std::find(numeri.begin(), numeri.end(), n);
            if (it == numeri.end()) throw std::invalid_argument("start row outside the forecast");
            v.push_back(static_cast<int>(it - numeri.begin()));
        }
        start.push_back(std::move(v));
    }
    const int libere = static_cast<int>(numeri.size()) - p.numFisse;
    const int64_t limite = p.numFisse == 0 ? LimiteSchonheim(static_cast<int>(numeri.size()), k, g)
                                           : LimiteSchonheim(libere, k - p.numFisse, g - p.numFisse);
    Risultato r = Esegui<StatoCopertura>(p, start, o, ferma, avanzamento, limite);
    EsitoOttimizza e;
    e.iniziale = static_cast<int64_t>(inizio.size());
    e.limite = limite;
    e.interrotta = r.interrotta;
    for (const auto& b : r.righe) {
        Riga riga;
        for (int i : b) riga.push_back(numeri[static_cast<size_t>(i)]);
        std::sort(riga.begin(), riga.end());
        e.righe.push_back(std::move(riga));
    }
    std::sort(e.righe.begin(), e.righe.end(), [](const Riga& a, const Riga& b) {
        for (size_t i = 0; i < a.size() && i < b.size(); ++i)
            if (a[i] != b[i]) return a[i] < b[i];
        return a.size() < b.size();
    });
    // Never a list that leaves a target out, never a longer one.
    if (!CoperturaCompleta(numeri, k, g, fisse, distanza, e.righe) || e.righe.size() > inizio.size()) e.righe = inizio;
    return e;
}

EsitoOttimizza OttimizzaRiduzione(const std::vector<Riga>& colonne, int g, const std::vector<int64_t>& inizio,
                                  const OpzioniOttimizza& o, const std::atomic<bool>* ferma,
                                  const std::function<void(const AvanzamentoOttimizza&)>& avanzamento) {
    if (colonne.empty()) throw std::invalid_argument("no columns");
    ProblemaRiduzione p;
    p.k = static_cast<int>(colonne[0].size());
    p.g = g;
    if (g < 1 || g > p.k || colonne.size() > static_cast<size_t>(INT32_MAX) ||
        static_cast<int64_t>(colonne.size()) * static_cast<int64_t>(C(p.k, g)) > LimiteVociRiduzione)
        throw std::invalid_argument("reduction out of range");
    p.numeri.reserve(colonne.size());
    p.maschere.reserve(colonne.size());
    std::vector<uint64_t> ranghi;
    ranghi.reserve(colonne.size() * C(p.k, g));
    for (const auto& c : colonne) {
        std::vector<int> v(c.begin(), c.end());
        for (int& x : v) --x;
        std::sort(v.begin(), v.end());
        Bit128 m;
        for (int x : v) m.metti(x);
        p.idColonna.emplace(std::make_pair(m.b[0], m.b[1]), static_cast<int32_t>(p.maschere.size()));
        p.maschere.push_back(m);
        Sottoinsiemi(v.data(), p.k, g, [&](const int* s) { ranghi.push_back(Rango(s, g)); });
        p.numeri.push_back(std::move(v));
    }
    std::vector<uint64_t> distinti = ranghi;
    std::sort(distinti.begin(), distinti.end());
    distinti.erase(std::unique(distinti.begin(), distinti.end()), distinti.end());
    p.idSotto.reserve(distinti.size());
    for (size_t i = 0; i < distinti.size(); ++i) p.idSotto.emplace(distinti[i], static_cast<int32_t>(i));
    p.inizi.assign(distinti.size() + 1, 0);
    std::vector<int32_t> id(ranghi.size());
    for (size_t i = 0; i < ranghi.size(); ++i) {
        id[i] = p.idSotto[ranghi[i]];
        ++p.inizi[static_cast<size_t>(id[i]) + 1];
    }
    for (size_t i = 1; i < p.inizi.size(); ++i) p.inizi[i] += p.inizi[i - 1];
    p.voci.resize(ranghi.size());
    {
        std::vector<int64_t> pos(p.inizi.begin(), p.inizi.end() - 1);
        const size_t per = static_cast<size_t>(C(p.k, g));
        for (size_t i = 0; i < ranghi.size(); ++i)
            p.voci[static_cast<size_t>(pos[static_cast<size_t>(id[i])]++)] = static_cast<int32_t>(i / per);
    }
    std::vector<std::vector<int>> start;
    for (int64_t i : inizio) {
        if (i < 0 || i >= static_cast<int64_t>(colonne.size())) throw std::invalid_argument("start column out of range");
        start.push_back({static_cast<int>(i)});
    }
    Risultato r = Esegui<StatoRiduzione>(p, start, o, ferma, avanzamento, 0);
    EsitoOttimizza e;
    e.iniziale = static_cast<int64_t>(inizio.size());
    e.interrotta = r.interrotta;
    std::vector<int32_t> tenute;
    for (const auto& b : r.righe) tenute.push_back(b[0]);
    std::sort(tenute.begin(), tenute.end());
    // Checked on its own: every column shares g numbers with a kept one.
    std::vector<uint8_t> coperta(colonne.size(), 0);
    for (int32_t t : tenute)
        for (size_t c = 0; c < colonne.size(); ++c)
            if (!coperta[c] && Comuni(p.maschere[c], p.maschere[static_cast<size_t>(t)]) >= g) coperta[c] = 1;
    const bool tiene = std::all_of(coperta.begin(), coperta.end(), [](uint8_t c) { return c != 0; });
    if (!tiene || tenute.size() > inizio.size()) {
        for (int64_t i : inizio) e.righe.push_back(colonne[static_cast<size_t>(i)]);
        return e;
    }
    for (int32_t t : tenute) e.righe.push_back(colonne[static_cast<size_t>(t)]);
    return e;
}

}  // namespace zef
