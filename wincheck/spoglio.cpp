#include "wincheck/spoglio.h"

#include "core/form2.h"
#include "core/sistema.h"
#include "core/vocabolario.h"

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

EsitoSpoglio Spoglia(const ListaGiocate& lista, const GiocataSpoglio& g, const Caselle& c, bool righe,
                     const std::function<void(int64_t)>& avanzamento) {
    EsitoSpoglio e;
    const int k = std::max(0, static_cast<int>(g.k));
    std::vector<int> ruote;
    for (int w = 1; w <= NumRuote; ++w)
        if (g.contaRuota(w)) ruote.push_back(w);
    if (ruote.empty() || lista.Rows() == 0) return e;

    // For each counted wheel, how many of its boxes hold each whole number.
    std::vector<uint8_t> tabella(ruote.size() * DimTabella, 0);
    for (size_t i = 0; i < ruote.size(); ++i)
        for (int b = 0; b < 5; ++b) {
            const double v = c[static_cast<size_t>(5 * (ruote[i] - 1) + b)];
            if (v == std::floor(v) && v >= MinimoTabella && v <= MaxTabella)
                ++tabella[i * DimTabella + static_cast<size_t>(static_cast<int>(v) - MinimoTabella)];
        }

    bool quali[NumSorti];
    bool qualcuna = false;
    for (int s = 0; s < NumSorti; ++s) qualcuna |= (quali[s] = g.giocata[static_cast<size_t>(s)]);
    if (!qualcuna) return e;

    std::vector<double> numeri(static_cast<size_t>(k));
    std::vector<int> indici(static_cast<size_t>(k));
    const int64_t n = lista.Rows();
    for (int64_t r = 0; r < n; ++r) {
        if (avanzamento && (r & 0xFFFF) == 0) avanzamento(r);
        const std::string_view testo = lista.riga(r);
        bool regolare = true;
        for (int p = 0; p < k; ++p) {
            const size_t inizio = static_cast<size_t>(3 * p);
            const double v = inizio < testo.size() ? Val(testo.substr(inizio, 3)) : 0.0;
            numeri[static_cast<size_t>(p)] = v;
            if (v == std::floor(v) && v >= MinimoTabella && v <= MaxTabella)
                indici[static_cast<size_t>(p)] = static_cast<int>(v) - MinimoTabella;
            else
                regolare = false;
        }
        for (size_t i = 0; i < ruote.size(); ++i) {
            int colpiti = 0;
            if (regolare) {
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
                if (righe) {
                    const std::string linea = RigaVincente(s, ruote[i], r, testo);
                    for (int q = 0; q < quante; ++q) e.righe.push_back(linea);
                }
            }
        }
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
