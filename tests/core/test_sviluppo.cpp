// The development against a plain level-by-level walk written from the rules.

#include "core/errori.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/sviluppo.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include <random>

using namespace zef;

namespace {

// A filter for the tests: refuses every column holding a number of the forbidden run
// vietatoDa..vietatoA, accepts the rest by a hash, and fails on the column whose hash
// hits `guasto`. With `pota` it skips prefixes that hold a forbidden number, jumping
// over the places of the run; with `decide` it names the passing places of the last
// level itself, whenever no candidate there fails.
class FiltroProva : public FiltroColonna {
public:
    int vietatoDa = 0, vietatoA = -1;  // none when da > a
    int percentuale = 100;  // share accepted
    uint32_t seme = 1;
    uint32_t guasto = 0;    // hash value that fails (0: never)
    bool pota = true;
    bool decide = false;
    std::vector<int> pronostico;  // ascending

    static uint32_t hash(const uint8_t* numeri, int k, uint32_t seme) {
        uint32_t h = 2166136261u ^ seme;
        for (int i = 0; i < k; ++i) h = (h ^ numeri[i]) * 16777619u;
        return h;
    }
    bool vietato(int x) const { return x >= vietatoDa && x <= vietatoA; }
    bool accetta(const uint8_t* numeri, const int* /*livelli*/, int k) const override {
        for (int i = 0; i < k; ++i)
            if (vietato(numeri[i])) return false;
        uint32_t h = hash(numeri, k, seme);
        if (guasto && h % 997 == guasto % 997) throw errori::indiceFuoriIntervallo();
        return static_cast<int>(h % 100) < percentuale;
    }
    int scartaPrefisso(const Prefisso& p, int) const override {
        const uint8_t* numeri = p.numeri;
        const int* livelli = p.livelli;
        const int lunghezza = p.lunghezza;
        // what the walk keeps of the prefix is what the numbers say
        const Prefisso intero = Prefisso::Di(numeri, livelli, lunghezza);
        if (p.somma != intero.somma || p.passi != intero.passi || p.pari != intero.pari)
            throw std::logic_error("prefisso tenuto male");
        if (!pota) return 0;
        for (int i = 0; i < lunghezza - 1; ++i)
            if (vietato(numeri[i])) return livelli[lunghezza - 1] + 1;
        if (!vietato(numeri[lunghezza - 1])) return 0;
        // the places of the run that follow are refused too
        int q = livelli[lunghezza - 1] + 1;
        while (q <= static_cast<int>(pronostico.size()) && vietato(pronostico[q - 1])) ++q;
        return q;
    }
    bool ultimoLivello(const Prefisso& p, int k, int n, Maschera& ammessi) const override {
        const uint8_t* numeri = p.numeri;
        const int* livelli = p.livelli;
        const Prefisso intero = Prefisso::Di(numeri, livelli, k - 1);
        if (p.lunghezza != k - 1 || p.somma != intero.somma || p.passi != intero.passi || p.pari != intero.pari)
            throw std::logic_error("prefisso tenuto male");
        ammessi = {};
        uint8_t num[10];
        std::copy(numeri, numeri + k - 1, num);
        bool tutti = true;
        for (int q = livelli[k - 2] + 1; q <= n; ++q) {
            num[k - 1] = static_cast<uint8_t>(pronostico[q - 1]);
            if (!pota || !vietato(num[k - 1])) ammessi.aggiungi(q);
            try {
                if (!accetta(num, livelli, k)) ammessi = meno(ammessi, Maschera::Intervallo(q, q));
            } catch (const ErroreEsecuzione&) {
                tutti = false;
            }
        }
        if (!decide || !tutti) {
            // only the forbidden run is left out: those candidates fail before any error
            ammessi = {};
            for (int q = livelli[k - 2] + 1; q <= n; ++q)
                if (!pota || !vietato(pronostico[q - 1])) ammessi.aggiungi(q);
            return false;
        }
        return true;
    }
    void prepara(const Sistema& s) override {
        pronostico.assign(s.Pronostico.begin() + 1, s.Pronostico.begin() + 1 + s.NumPronostico);
    }
    std::unique_ptr<FiltroColonna> clona() const override { return std::make_unique<FiltroProva>(*this); }
};

// What a pass leaves behind.
struct Esito {
    std::vector<uint8_t> colonne;
    int32_t NumColonne = 0;
    int64_t ColonneEsaminate = 0;
    int32_t ContatoreLavoro = 0;
    std::vector<std::string> box;
    long long cessioni = 0;
    std::string pannello1, pannello3;
    bool form4Visibile = false;
};

// The walk as the rules tell it: ten levels with their limits, the filter frame,
// a yield per round of level 2, the store's limit and the error handler.
Esito Letterale(const std::vector<int>& pronostico, int k, const FiltroProva* f, int64_t capacita,
                std::map<long long, std::vector<int>> tasti, std::deque<Risposta> risposte, Currency costo) {
    Esito e;
    const int n = static_cast<int>(pronostico.size());
    long long liv[12] = {};
    bool visibile = true;
    struct Fine {};
    auto chiudi = [&] {
        e.pannello1 = "CONDIZIONATE: " + std::to_string(e.NumColonne);
        if (e.NumColonne > 0) e.pannello3 = "COSTO SISTEMA €: " + (costo * e.NumColonne).testoLocale();
        visibile = false;
    };
    auto filtra = [&](int d) {
        uint8_t num[10];
        int livelli[10];
        for (int j = 1; j <= d; ++j) {
            num[j - 1] = static_cast<uint8_t>(pronostico[liv[j] - 1]);
            livelli[j - 1] = static_cast<int>(liv[j]);
        }
        e.ColonneEsaminate += 1;
        if (f && !f->accetta(num, livelli, d)) return;
        e.NumColonne += 1;
        if (e.NumColonne > capacita) throw errori::indiceFuoriIntervallo();
        e.colonne.insert(e.colonne.end(), num, num + d);
    };
    std::function<void(int)> livello = [&](int j) {
        const long long limite = j == 10 ? n : n - k + j;
        while (liv[j] < limite) {
            if (j == 1) e.ContatoreLavoro += 1;
            liv[j] += 1;
            liv[j + 1] = liv[j];
            if (j >= 2 && k < j + 1) filtra(j);
            else livello(j + 1);
            if (j == 2) {
                ++e.cessioni;
                auto it = tasti.find(e.cessioni);
                if (it != tasti.end())
                    for (int t : it->second) {
                        if (!visibile) break;
                        if (t != 27) continue;
                        e.box.push_back("Annullare l'elaborazione?");
                        Risposta r = risposte.empty() ? Risposta::No : risposte.front();
                        if (!risposte.empty()) risposte.pop_front();
                        if (r == Risposta::Si) {
                            e.pannello1 = "CONDIZIONATE: " + std::to_string(e.NumColonne);
                            visibile = false;
                        }
                    }
                if (!visibile) throw Fine{};
            }
        }
    };
    try {
        livello(1);
        chiudi();
    } catch (const Fine&) {
    } catch (const ErroreEsecuzione&) {
        e.NumColonne -= 1;
        e.box.push_back("Impossibile elaborare oltre " + std::to_string(e.NumColonne) +
                        " di colonne, attivare le condizioni!");
        if (e.colonne.size() > static_cast<size_t>(std::max(e.NumColonne, 0)) * k)
            e.colonne.resize(static_cast<size_t>(std::max(e.NumColonne, 0)) * k);
        chiudi();
    }
    e.form4Visibile = visibile;
    return e;
}

Esito Veloce(const std::vector<int>& pronostico, int k, std::shared_ptr<FiltroProva> f, int64_t capacita,
             std::map<long long, std::vector<int>> tasti, std::deque<Risposta> risposte, Currency costo,
             ParametriSviluppo par) {
    Sistema s;
    prova::ImpostaPronostico(s, pronostico);
    s.SviluppoK = static_cast<int16_t>(k);
    s.CostoColonna = costo;
    s.filtro = f;
    s.colonne.dimensiona(k, capacita);
    InterfacciaScriptata ui;
    ui.tastiAllaCessione = std::move(tasti);
    ui.risposte = std::move(risposte);
    MostraForm4(s, ui);
    SviluppaColonne(s, ui, par);
    Esito e;
    e.NumColonne = s.NumColonne;
    e.ColonneEsaminate = s.ColonneEsaminate;
    e.ContatoreLavoro = s.ContatoreLavoro;
    int64_t valide = std::max<int64_t>(s.NumColonne, 0);
    e.colonne.assign(s.colonne.dati(), s.colonne.dati() + valide * k);
    for (auto& b : ui.box) e.box.push_back(b.testo);
    e.cessioni = ui.cessioni;
    e.pannello1 = s.pannelli[0];
    e.pannello3 = s.pannelli[2] == pannello::CostoZero ? "" : s.pannelli[2];
    e.form4Visibile = s.form4.visibile;
    return e;
}

void Confronta(const Esito& a, const Esito& b, const std::string& caso) {
    EXPECT_EQ(a.NumColonne, b.NumColonne) << caso;
    EXPECT_EQ(a.ColonneEsaminate, b.ColonneEsaminate) << caso;
    EXPECT_EQ(a.ContatoreLavoro, b.ContatoreLavoro) << caso;
    EXPECT_EQ(a.box, b.box) << caso;
    EXPECT_EQ(a.pannello1, b.pannello1) << caso;
    EXPECT_EQ(a.pannello3, b.pannello3) << caso;
    EXPECT_EQ(a.form4Visibile, b.form4Visibile) << caso;
    EXPECT_TRUE(a.colonne == b.colonne) << caso;
}

}  // namespace

TEST(CalcolaCombinazioni, ProdottoCorrenteDaIlBinomiale) {
    Sistema s;
    for (int n : {2, 10, 40, 90})
        for (int k = 2; k <= 10 && k <= n; ++k)
            EXPECT_DOUBLE_EQ(CalcolaCombinazioni(s, k - 1, n), static_cast<double>(Binomiale(n, k))) << n << " " << k;
    EXPECT_DOUBLE_EQ(s.NumCombinazioni, static_cast<double>(Binomiale(90, 10)));
    EXPECT_EQ(CalcolaCombinazioni(s, -1, 30), 1.0);
    // n beyond 16 bits is no problem for the running product
    EXPECT_DOUBLE_EQ(CalcolaCombinazioni(s, 0, 100000), 100000.0);
}

TEST(SviluppaColonne, UgualeAlPercorsoLetteraleSuCasiCasuali) {
    std::mt19937 rng(20261123);
    for (int caso = 0; caso < 1500; ++caso) {
        int k = 2 + static_cast<int>(rng() % 9);
        int n = k + static_cast<int>(rng() % (k >= 7 ? 8 : 14));
        std::vector<int> pool(90);
        for (int i = 0; i < 90; ++i) pool[i] = i + 1;
        std::shuffle(pool.begin(), pool.end(), rng);
        std::vector<int> pron(pool.begin(), pool.begin() + n);
        std::sort(pron.begin(), pron.end());

        std::shared_ptr<FiltroProva> f;
        if (rng() % 5) {
            f = std::make_shared<FiltroProva>();
            f->seme = rng();
            f->percentuale = static_cast<int>(rng() % 101);
            if (rng() % 2) {
                f->vietatoDa = pron[rng() % n];
                f->vietatoA = rng() % 2 ? f->vietatoDa : f->vietatoDa + static_cast<int>(rng() % 30);
            }
            f->decide = rng() % 2;
            if (rng() % 4 == 0) f->guasto = rng() | 1;
            f->pota = rng() % 2;
        }
        uint64_t tutte = Binomiale(n, k);
        int64_t capacita = rng() % 3 == 0 ? static_cast<int64_t>(1 + rng() % (tutte + 1)) : 20'000'000;
        std::map<long long, std::vector<int>> tasti;
        std::deque<Risposta> risposte;
        if (rng() % 3 == 0) {
            long long rounds = static_cast<long long>(Binomiale(n - k + 2, 2));
            tasti[1 + static_cast<long long>(rng() % rounds)] = {65, 27};
            risposte.push_back(rng() % 2 ? Risposta::Si : Risposta::No);
            if (rng() % 2) {
                tasti[1 + static_cast<long long>(rng() % rounds)] = {27};
                risposte.push_back(Risposta::Si);
            }
        }
        Currency costo = Currency::daDecimillesimi(static_cast<int64_t>(rng() % 30000));
        ParametriSviluppo par;
        par.thread = 1 + static_cast<int>(rng() % 3);
        par.candidatiPerLotto = 1 + rng() % 300;
        par.sogliaParallela = 0;

        std::string nome = "caso " + std::to_string(caso) + " n=" + std::to_string(n) + " k=" + std::to_string(k) +
                           " capacita=" + std::to_string(capacita) + " thread=" + std::to_string(par.thread) + " filtro=" + std::to_string(f != nullptr) + " tasti=" + std::to_string(tasti.size()) + " lotto=" + std::to_string(par.candidatiPerLotto);
        Esito atteso = Letterale(pron, k, f.get(), capacita, tasti, risposte, costo);
        Esito ottenuto = Veloce(pron, k, f, capacita, tasti, risposte, costo, par);
        Confronta(ottenuto, atteso, nome);
        if (HasFailure()) break;
    }
}

TEST(SviluppaColonne, CasiAlBordo) {
    // n = k: one combination, and the bar's maximum is 1
    {
        Sistema s;
        InterfacciaScriptata ui;
        prova::ImpostaPronostico(s, {3, 17, 44, 90});
        Form20 f(s, ui);
        f.carica();
        f.Combo1 = 2;  // QUARTINE
        f.clickCommand1();
        EXPECT_EQ(s.NumColonne, 1);
        EXPECT_EQ(s.NumCombinazioni, 1.0);
        ASSERT_FALSE(ui.avanzamenti.empty());
        EXPECT_EQ(ui.avanzamenti.front().massimo, 1.0);
        EXPECT_EQ(TestoRiga(s.colonne.colonna(1), 4), " 3  17 44 90");
        EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 1");
        EXPECT_FALSE(s.form4.caricato);
    }
    // k = 2: a yield after every column
    {
        Sistema s;
        InterfacciaScriptata ui;
        prova::ImpostaPronostico(s, prova::Numeri(12));
        Form20 f(s, ui);
        f.carica();
        f.Combo1 = 0;
        f.clickCommand1();
        EXPECT_EQ(s.NumColonne, 66);
        EXPECT_EQ(ui.cessioni, 66);
    }
    // k = 10: places never repeat, all C(12, 10) columns come in order
    {
        Sistema s;
        InterfacciaScriptata ui;
        prova::ImpostaPronostico(s, prova::Numeri(12, 7));
        Form20 f(s, ui);
        f.carica();
        f.Combo1 = 8;
        f.clickCommand1();
        ASSERT_EQ(s.NumColonne, 66);
        for (int64_t c = 1; c <= s.NumColonne; ++c)
            for (int p = 2; p <= 10; ++p) EXPECT_LT(s.colonne.get(p - 1, c), s.colonne.get(p, c));
        EXPECT_EQ(TestoRiga(s.colonne.colonna(66), 10), " 15 22 29 36 43 50 57 64 71 78");
    }
}

TEST(SviluppaColonne, FiltroCheRifiutaTuttoLasciaIlCostoComEra) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(10));
    auto f = std::make_shared<FiltroProva>();
    f->percentuale = 0;
    s.filtro = f;
    s.CostoColonna = Currency::daInteri(2);
    Form20 form(s, ui);
    form.carica();
    form.Combo1 = 3;
    form.clickCommand1();
    EXPECT_EQ(s.NumColonne, 0);
    EXPECT_EQ(s.ColonneEsaminate, 252);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 0");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 0");
}

TEST(SviluppaColonne, IlMagazzinoPienoTieneVentiMilioniDiColonne) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(90));
    Form20 f(s, ui);
    f.carica();
    f.Combo1 = 3;  // CINQUINE: 43,949,268 candidates
    f.clickCommand1();
    EXPECT_EQ(s.NumColonne, 20'000'000);
    EXPECT_EQ(s.ColonneEsaminate, 20'000'001);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].titolo, "MEMORIA ESAURITA");
    EXPECT_EQ(ui.box[0].testo, "Impossibile elaborare oltre 20000000 di colonne, attivare le condizioni!");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 20000000");
    // the last stored column is the 20,000,000th in lexicographic order
    std::vector<int> idx = {1, 2, 3, 4, 5};
    for (int c = 1; c < 20'000'000; ++c) {
        int p = 4;
        while (idx[p] == 90 - 4 + p) --p;
        ++idx[p];
        for (int q = p + 1; q < 5; ++q) idx[q] = idx[q - 1] + 1;
    }
    for (int p = 0; p < 5; ++p) EXPECT_EQ(s.colonne.get(p + 1, 20'000'000), idx[p]);
}

TEST(SviluppaColonne, EscConNoRiprendeEConSiFerma) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(20));
    ui.tastiAllaCessione[5] = {27};
    ui.tastiAllaCessione[9] = {27};
    ui.risposte = {Risposta::No, Risposta::Si};
    Form20 f(s, ui);
    f.carica();
    f.Combo1 = 2;
    f.clickCommand1();
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[0].testo, "Annullare l'elaborazione?");
    EXPECT_EQ(ui.box[0].titolo, "RICHIESTA");
    EXPECT_EQ(ui.box[0].icona, Icona::Domanda);
    // rounds (1,2)..(1,10): C(18,2)+...+C(10,2) columns
    int64_t attese = 0;
    for (int i2 = 2; i2 <= 10; ++i2) attese += static_cast<int64_t>(Binomiale(20 - i2, 2));
    EXPECT_EQ(s.NumColonne, attese);
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: " + std::to_string(attese));
    EXPECT_EQ(ui.cessioni, 9);
    EXPECT_FALSE(s.form4.visibile);
    EXPECT_FALSE(s.SistemaSalvato);
}
