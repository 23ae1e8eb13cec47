#include "wincheck/spoglio.h"

#include "core/form2.h"
#include "core/sistema.h"
#include "core/vocabolario.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace zef {

namespace {

// Row cells read as whole numbers in this range go through the lookup table.
constexpr int MinimoTabella = -100;
constexpr int MaxTabella = 999;
constexpr int DimTabella = MaxTabella - MinimoTabella + 1;

constexpr int Combinazioni[6][6] = {
    {1, 0, 0, 0, 0, 0}, {1, 1, 0, 0, 0, 0}, {1, 2, 1, 0, 0, 0},
    {1, 3, 3, 1, 0, 0}, {1, 4, 6, 4, 1, 0}, {1, 5, 10, 10, 5, 1},
};

// Hits of a row on wheel w by plain comparison of every number with every box.
int ColpitiLetterale(const double* numeri, int k, const Caselle& c, int w) {
    int colpiti = 0;
    for (int b = 0; b < 5; ++b) {
        const double v = c[static_cast<size_t>(5 * (w - 1) + b)];
        for (int p = 0; p < k; ++p)
            if (numeri[p] == v) ++colpiti;
    }
    return colpiti;
}

}  // namespace

const std::array<const char*, NumSorti> ParoleSorti = {"ESTRATTO ", "AMBO ", "TERNO ", "QUATERNA ", "CINQUINA "};

Caselle CaselleDaTesti(const std::array<std::string, NumCaselle>& testi) {
    Caselle c{};
    for (size_t i = 0; i < testi.size(); ++i) c[i] = Val(testi[i]);
    return c;
}

GiocataSpoglio GiocataDa(const Sistema& s) {
    GiocataSpoglio g;
    g.k = s.SviluppoK;
    for (int i = 0; i < NumSorti; ++i) g.giocata[static_cast<size_t>(i)] = s.form2.Check[static_cast<size_t>(i)] == 1;
    g.ruote = s.form2.Option1;
    return g;
}

int VinciteDaColpiti(int colpiti, int sorte) {
    if (colpiti < 1 || colpiti > 5 || sorte < 0 || sorte >= NumSorti) return 0;
    return Combinazioni[colpiti][sorte + 1];
}

std::string RigaVincente(int sorte, int ruota, int64_t riga, std::string_view testo) {
    std::string numero = TestoConSegno(riga + 1);
    std::string r;
    r.reserve(40 + testo.size());
    r += ParoleSorti[static_cast<size_t>(sorte)];
    r += "  su ";
    r += NomiRuote[static_cast<size_t>(ruota - 1)];
    r += "  SCHEDINA:";
    r += numero;
    r += '.';
    if (numero.size() < 10) r.append(10 - numero.size(), ' ');
    r += testo;
    return r;
}

void ListaVincente::clear() {
    lista_.Clear();
    fine_.clear();
    totale_ = 0;
}

void ListaVincente::prepara(const ListaGiocate& lista, const GiocataSpoglio& g, const Caselle& c) {
    clear();
    lista_ = lista;
    ruote_.clear();
    for (int w = 1; w <= NumRuote; ++w)
        if (g.contaRuota(w)) ruote_.push_back(w);
    k_ = std::max(0, static_cast<int>(g.k));
    giocata_ = g.giocata;
    caselle_ = c;
    fine_.reserve(static_cast<size_t>(lista.Rows()));
}

std::vector<std::string> ListaVincente::righeDi(int64_t r) const {
    std::vector<std::string> v;
    const std::string_view testo = lista_.riga(r);
    std::vector<double> numeri(static_cast<size_t>(k_));
    for (int p = 0; p < k_; ++p) {
        const size_t inizio = static_cast<size_t>(3 * p);
        numeri[static_cast<size_t>(p)] = inizio < testo.size() ? Val(testo.substr(inizio, 3)) : 0.0;
    }
    for (int w : ruote_) {
        const int colpiti = ColpitiLetterale(numeri.data(), k_, caselle_, w);
        for (int s = NumSorti - 1; s >= 0; --s) {
            if (!giocata_[static_cast<size_t>(s)]) continue;
            const int quante = VinciteDaColpiti(colpiti, s);
            for (int q = 0; q < quante; ++q) v.push_back(RigaVincente(s, w, r, testo));
        }
    }
    return v;
}

std::string ListaVincente::operator[](size_t i) const {
    const auto it = std::upper_bound(fine_.begin(), fine_.end(), static_cast<uint64_t>(i));
    const int64_t r = it - fine_.begin();
    const uint64_t prima = r == 0 ? 0 : fine_[static_cast<size_t>(r - 1)];
    return righeDi(r)[static_cast<size_t>(i - prima)];
}

std::vector<std::string> ListaVincente::testi() const {
    std::vector<std::string> t;
    t.reserve(size());
    uint64_t prima = 0;
    for (size_t r = 0; r < fine_.size(); ++r) {
        if (fine_[r] != prima) {
            auto v = righeDi(static_cast<int64_t>(r));
            t.insert(t.end(), v.begin(), v.end());
        }
        prima = fine_[r];
    }
    return t;
}

namespace {

// A cell of three characters that is blanks around a run of digits: its number, as
// Val would read it; -1 for anything else (left to Val).
inline int CellaSemplice(std::string_view c) {
    size_t i = 0;
    while (i < c.size() && c[i] == ' ') ++i;
    if (i == c.size() || c[i] < '0' || c[i] > '9') return i == c.size() ? 0 : -1;
    int n = 0;
    while (i < c.size() && c[i] >= '0' && c[i] <= '9') n = n * 10 + (c[i++] - '0');
    while (i < c.size() && c[i] == ' ') ++i;
    return i == c.size() ? n : -1;
}

struct Maschera128 {
    uint64_t b[2] = {0, 0};
};

}  // namespace

EsitoSpoglio Spoglia(const ListaGiocate& lista, const GiocataSpoglio& g, const Caselle& c, bool righe,
                     const std::function<void(int64_t)>& avanzamento) {
    EsitoSpoglio e;
    const int k = std::max(0, static_cast<int>(g.k));
    std::vector<int> ruote;
    for (int w = 1; w <= NumRuote; ++w)
        if (g.contaRuota(w)) ruote.push_back(w);
    if (ruote.empty() || lista.Rows() == 0) return e;

    bool quali[NumSorti];
    bool qualcuna = false;
    for (int s = 0; s < NumSorti; ++s) qualcuna |= (quali[s] = g.giocata[static_cast<size_t>(s)]);
    if (!qualcuna) return e;

    // For each counted wheel, how many of its boxes hold each whole number; and, when
    // its boxes are different numbers 0..127, the set of them.
    std::vector<uint8_t> tabella(ruote.size() * DimTabella, 0);
    std::vector<Maschera128> maschere(ruote.size());
    bool tutteMaschere = true;
    for (size_t i = 0; i < ruote.size(); ++i)
        for (int b = 0; b < 5; ++b) {
            const double v = c[static_cast<size_t>(5 * (ruote[i] - 1) + b)];
            if (v == std::floor(v) && v >= MinimoTabella && v <= MaxTabella) {
                const int n = static_cast<int>(v);
                if (++tabella[i * DimTabella + static_cast<size_t>(n - MinimoTabella)] > 1 || n < 0 || n > 127)
                    tutteMaschere = false;
                else
                    maschere[i].b[n >> 6] |= uint64_t{1} << (n & 63);
            }
        }

    std::vector<double> numeri(static_cast<size_t>(k));
    std::vector<int> indici(static_cast<size_t>(k));
    const int64_t n = lista.Rows();
    uint64_t linee = 0;
    if (righe) e.righe.prepara(lista, g, c);
    for (int64_t r = 0; r < n; ++r) {
        if (avanzamento && (r & 0xFFFF) == 0) avanzamento(r);
        const std::string_view testo = lista.riga(r);
        bool regolare = true;
        Maschera128 riga;
        bool distinti = true;
        for (int p = 0; p < k; ++p) {
            const size_t inizio = static_cast<size_t>(3 * p);
            const std::string_view cella = inizio < testo.size() ? testo.substr(inizio, 3) : std::string_view();
            int x = CellaSemplice(cella);
            double v = x >= 0 ? static_cast<double>(x) : Val(cella);
            numeri[static_cast<size_t>(p)] = v;
            if (v == std::floor(v) && v >= MinimoTabella && v <= MaxTabella) {
                x = static_cast<int>(v);
                indici[static_cast<size_t>(p)] = x - MinimoTabella;
                if (x < 0 || x > 127) {
                    distinti = false;
                } else {
                    uint64_t& parola = riga.b[x >> 6];
                    const uint64_t bit = uint64_t{1} << (x & 63);
                    if (parola & bit) distinti = false;
                    parola |= bit;
                }
            } else {
                regolare = false;
            }
        }
        const bool perMaschera = regolare && distinti && tutteMaschere;
        for (size_t i = 0; i < ruote.size(); ++i) {
            int colpiti = 0;
            if (perMaschera) {
                colpiti = std::popcount(riga.b[0] & maschere[i].b[0]) + std::popcount(riga.b[1] & maschere[i].b[1]);
            } else if (regolare) {
                const uint8_t* t = tabella.data() + i * DimTabella;
                for (int p = 0; p < k; ++p) colpiti += t[indici[static_cast<size_t>(p)]];
            } else {
                colpiti = ColpitiLetterale(numeri.data(), k, c, ruote[i]);
            }
            if (colpiti < 1 || colpiti > 5) continue;
            for (int s = NumSorti - 1; s >= 0; --s) {
                if (!quali[s]) continue;
                const int quante = Combinazioni[colpiti][s + 1];
                if (quante == 0) continue;
                e.vincite[static_cast<size_t>(s)] += quante;
                linee += static_cast<uint64_t>(quante);
            }
        }
        if (righe) e.righe.fineRiga(linee);
    }
    return e;
}

std::string ValoreVincite(const std::array<std::string, NumSorti>& conteggi,
                          const std::array<std::string, NumSorti>& puntate, const GiocataSpoglio& g) {
    std::string etichetta = " 0";
    for (int s = NumSorti - 1; s >= 0; --s) {
        Currency x;
        const double fattore = FattoreVincita(g.k, s);
        if (g.giocata[static_cast<size_t>(s)] && fattore != 0) {
            const double puntata =
                NumeroDaTesto(FormatoDecimali(NumeroDaTesto(puntate[static_cast<size_t>(s)]), 2));
            x = Currency::daDouble(puntata * fattore * Val(conteggi[static_cast<size_t>(s)]));
        }
        if (g.ruote[11]) x = Currency::daDouble(x.inDouble() / 10);
        const Currency finora = Currency::daTestoLocale(DoubleInTesto(NumeroDaTesto(etichetta)));
        etichetta = (finora + x).testoLocale();
    }
    // 8 per cent withheld at the source.
    const std::string dueDecimali = FormatoDecimali(NumeroDaTesto(etichetta), 2);
    const Currency totale = Currency::daTestoLocale(dueDecimali);
    const Currency tassa = Currency::daDouble(NumeroDaTesto(dueDecimali) / 100 * 8);
    return FormatoDecimali((totale - tassa).inDouble(), 2);
}

}  // namespace zef
