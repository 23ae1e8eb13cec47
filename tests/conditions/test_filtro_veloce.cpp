// The installed filter (flat tables, prefix skips, worker threads of the development)
// against the plain FiltraColonna over every candidate of small developments.
#include "conditions/filtra_colonna.h"
#include "conditions/form28.h"
#include "core/errori.h"
#include "core/form4.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/sviluppo.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace zef;

namespace {

// The plain test, one candidate at a time, no prefix judged.
class Letterale : public FiltroColonna {
public:
    explicit Letterale(Condizioni c) : c_(std::move(c)) {}
    bool accetta(const uint8_t* n, const int* l, int k) const override { return FiltraColonna(c_, n, l, k); }
    std::unique_ptr<FiltroColonna> clona() const override { return std::make_unique<Letterale>(*this); }

private:
    Condizioni c_;
};

Condizioni Casuali(std::mt19937& g, int k) {
    auto u = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); };
    auto moneta = [&](int percento) { return u(1, 100) <= percento; };
    Condizioni c;
    for (int i = 1; i <= 15; ++i) c.CondizioneAttiva[i] = moneta(30);
    c.Consecutivita = {0, static_cast<int16_t>(u(0, 2)), static_cast<int16_t>(u(0, 4)), static_cast<int16_t>(u(0, 1))};
    for (int i = 1; i <= 6; ++i) c.Interruzioni[i] = moneta(80);
    c.Interruzioni[6] = static_cast<int16_t>(u(1, 5));
    c.righePuntiFiltro = 6;
    for (int f = u(0, 3); f > 0; --f) {
        std::array<bool, 91> col{};
        for (int x = 1; x <= 90; ++x) col[x] = moneta(25);
        std::array<bool, 12> p{};
        for (int i = 1; i <= 6; ++i) p[i] = moneta(70);
        c.ColonneFiltro.push_back(col);
        c.PuntiFiltro.push_back(p);
    }
    for (int s = u(0, 2); s > 0; --s) {
        int16_t da = static_cast<int16_t>(u(1, 90)), a = static_cast<int16_t>(u(da, 90));
        int16_t mn = static_cast<int16_t>(u(0, 2)), cmn = static_cast<int16_t>(u(0, 1));
        c.Sezioni.push_back({0, da, a, mn, static_cast<int16_t>(u(mn, 5)), cmn, static_cast<int16_t>(u(cmn, 4))});
    }
    int media = 46 * k;
    int16_t smin = static_cast<int16_t>(u(media / 3, media)), smax = static_cast<int16_t>(u(smin, media * 3 / 2));
    c.SommaGlobale = {0, smin, smax};
    int16_t pmin = static_cast<int16_t>(u(0, 2)), dmin = static_cast<int16_t>(u(0, 2));
    c.PariDispari = {0, pmin, static_cast<int16_t>(u(pmin, 5)), static_cast<int16_t>(u(1, 5)), dmin,
                     static_cast<int16_t>(u(dmin, 5)), static_cast<int16_t>(u(1, 6))};
    int16_t dm = static_cast<int16_t>(u(1, 6));
    c.DistanzaNumeri = {0, dm, static_cast<int16_t>(u(dm, 40)), static_cast<int16_t>(u(0, 1))};
    for (int i = 1; i <= 4; ++i) c.GruppiPD[1][i] = moneta(80);
    for (int i = 1; i <= 6; ++i) c.GruppiPD[2][i] = moneta(80);
    for (int i = 1; i <= 6; ++i) c.InterruzioniPD[i] = moneta(80);
    c.InterruzioniPD[6] = static_cast<int16_t>(u(1, 5));
    for (int p = 1; p <= 10; ++p) {
        c.PosizioniNumeri[p][91] = moneta(30) ? 1 : 0;
        for (int x = 1; x <= 90; ++x) c.PosizioniNumeri[p][x] = moneta(70);
    }
    c.righePresenzeSequele = 6;
    for (int s = u(0, 2); s > 0; --s) {
        std::array<bool, 12> p{};
        for (int i = 1; i <= 6; ++i) p[i] = moneta(60);
        c.SequelePD.push_back({0, static_cast<int16_t>(u(0, 2)), static_cast<int16_t>(u(1, 2)),
                               static_cast<int16_t>(u(0, 2)), static_cast<int16_t>(u(0, 3))});
        c.PresenzeSequele.push_back(p);
    }
    for (int col = u(0, 2); col > 0; --col) {
        std::array<bool, 91> a{};
        for (int i = 0; i < 5; ++i) a[u(1, 90)] = true;
        c.NumeriArchivio.push_back(a);
    }
    for (int x = 1; x <= 90; ++x) {
        c.ValoriNumeri[x] = static_cast<int16_t>(u(0, 20));
        c.RitardiNumeri[x] = static_cast<int16_t>(u(0, 60));
    }
    float rmin = static_cast<float>(u(0, 20));
    c.RitardoFrequenza[1] = {0, rmin, rmin + static_cast<float>(u(0, 40))};
    c.RitardoFrequenza[2] = {0, static_cast<float>(u(0, 15)), static_cast<float>(u(0, 15))};
    return c;
}

struct Esito {
    int32_t NumColonne;
    int64_t ColonneEsaminate;
    std::vector<uint8_t> colonne;
    std::vector<std::string> box;
    long long cessioni;
};

Esito Sviluppa(const std::vector<int>& pronostico, int k, std::shared_ptr<FiltroColonna> f,
               const std::vector<int16_t>& fissi, int64_t capacita, int thread) {
    Sistema s;
    prova::ImpostaPronostico(s, pronostico);
    s.SviluppoK = static_cast<int16_t>(k);
    s.NumeriFissi = fissi;
    s.NumeriFissiBase = 0;
    s.filtro = std::move(f);
    s.colonne.dimensiona(k, capacita);
    InterfacciaScriptata ui;
    MostraForm4(s, ui);
    ParametriSviluppo par;
    par.thread = thread;
    par.sogliaParallela = 0;
    par.candidatiPerLotto = 64;
    SviluppaColonne(s, ui, par);
    Esito e{s.NumColonne, s.ColonneEsaminate, {}, {}, ui.cessioni};
    e.colonne.assign(s.colonne.dati(), s.colonne.dati() + std::max(s.NumColonne, 0) * k);
    for (auto& b : ui.box) e.box.push_back(b.testo);
    return e;
}

}  // namespace

TEST(FiltroCondizioni, UgualeAlFiltroLetteraleSuSviluppiCasuali) {
    std::mt19937 g(20261123);
    int conErrore = 0, alLimite = 0, saltati = 0, conColonne = 0, tagliati = 0, decisi = 0, salti = 0;
    for (int caso = 0; caso < 400; ++caso) {
        auto u = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); };
        // now and then a long forecast, whose places run past the first 64
        const bool lungo = caso % 10 == 0;
        const int k = lungo ? u(2, 3) : u(2, 7);
        const int n = lungo ? u(60, 90) : u(k, 16);
        std::vector<int> tutti(90);
        for (int i = 0; i < 90; ++i) tutti[i] = i + 1;
        std::shuffle(tutti.begin(), tutti.end(), g);
        std::vector<int> pronostico(tutti.begin(), tutti.begin() + n);
        std::sort(pronostico.begin(), pronostico.end());

        Condizioni c = Casuali(g, k);
        // fixed numbers: from the forecast, now and then one outside it
        std::vector<int16_t> fissi{0};
        for (int i = u(0, 2); i > 0; --i) fissi.push_back(static_cast<int16_t>(pronostico[u(0, n - 1)]));
        if (u(1, 10) == 1) fissi.push_back(static_cast<int16_t>(u(1, 90)));
        Condizioni letterale = c;
        letterale.NumeriFissi = fissi;

        const int64_t capacita = u(1, 4) == 1 ? u(1, 30) : 100000;
        const int thread = u(1, 2);
        auto sorgente = std::make_shared<Condizioni>(c);
        Esito a = Sviluppa(pronostico, k, std::make_shared<Letterale>(letterale), fissi, capacita, 1);
        Esito b = Sviluppa(pronostico, k, std::make_shared<FiltroCondizioni>(sorgente), fissi, capacita, thread);
        const std::string nome = "caso " + std::to_string(caso);
        ASSERT_EQ(a.NumColonne, b.NumColonne) << nome;
        ASSERT_EQ(a.ColonneEsaminate, b.ColonneEsaminate) << nome;
        ASSERT_EQ(a.colonne, b.colonne) << nome;
        ASSERT_EQ(a.box, b.box) << nome;
        ASSERT_EQ(a.cessioni, b.cessioni) << nome;
        if (a.NumColonne > 0) ++conColonne;
        if (!a.box.empty()) (capacita < 100000 ? alLimite : conErrore)++;
        // and candidate by candidate, without the development
        FiltroCondizioni f(sorgente);
        Sistema s;
        prova::ImpostaPronostico(s, pronostico);
        s.NumeriFissi = fissi;
        s.NumeriFissiBase = 0;
        f.prepara(s);
        std::vector<int> liv(k);
        for (int i = 0; i < k; ++i) liv[i] = i + 1;
        for (;;) {
            uint8_t num[10];
            for (int i = 0; i < k; ++i) num[i] = static_cast<uint8_t>(pronostico[liv[i] - 1]);
            int esitoA = 0, esitoB = 0;
            try { esitoA = FiltraColonna(letterale, num, liv.data(), k) ? 1 : 0; } catch (const ErroreEsecuzione&) { esitoA = 2; }
            try { esitoB = f.accetta(num, liv.data(), k) ? 1 : 0; } catch (const ErroreEsecuzione&) { esitoB = 2; }
            ASSERT_EQ(esitoA, esitoB) << nome;
            // a place left out for the last number holds a refused candidate; a place
            // of a decided level holds one that passes
            {
                Maschera ammessi;
                const bool deciso = f.ultimoLivello(Prefisso::Di(num, liv.data(), k - 1), k, n, ammessi);
                if (!ammessi.contiene(liv[k - 1])) {
                    ++tagliati;
                    ASSERT_EQ(esitoA, 0) << nome << " ultimo " << liv[k - 1];
                } else if (deciso) {
                    ++decisi;
                    ASSERT_EQ(esitoA, 1) << nome << " ultimo " << liv[k - 1];
                }
            }
            // a skipped prefix covers only candidates the plain filter refuses without
            // error, and so does the jump of an earlier place at the same level
            for (int len = 2; len < k; ++len) {
                const int salta = f.scartaPrefisso(Prefisso::Di(num, liv.data(), len), k);
                if (salta) {
                    ++saltati;
                    ASSERT_GT(salta, liv[len - 1]) << nome;
                    ASSERT_EQ(esitoA, 0) << nome << " prefisso " << len;
                }
                uint8_t fratello[10];
                std::vector<int> livFratello(liv.begin(), liv.begin() + len);
                std::copy(num, num + len, fratello);
                for (int q = liv[len - 2] + 1; q < liv[len - 1]; ++q) {
                    livFratello[len - 1] = q;
                    fratello[len - 1] = static_cast<uint8_t>(pronostico[q - 1]);
                    if (f.scartaPrefisso(Prefisso::Di(fratello, livFratello.data(), len), k) > liv[len - 1]) {
                        ++salti;
                        ASSERT_EQ(esitoA, 0) << nome << " salto da " << q << " al livello " << len;
                        break;
                    }
                }
            }
            int i = k - 1;
            while (i >= 0 && liv[i] == n - k + i + 1) --i;
            if (i < 0) break;
            ++liv[i];
            for (int j = i + 1; j < k; ++j) liv[j] = liv[j - 1] + 1;
        }
    }
    // the draw reaches every kind of ending
    EXPECT_GT(conErrore, 0);
    EXPECT_GT(alLimite, 0);
    EXPECT_GT(saltati, 0);
    EXPECT_GT(conColonne, 100);
    EXPECT_GT(tagliati, 0);
    EXPECT_GT(decisi, 0);
    EXPECT_GT(salti, 0);
}

TEST(FiltroCondizioni, SenzaTestAttiviLoSviluppoVaComeSenzaFiltro) {
    // RECUPERO alone refuses nothing; any other test may
    Condizioni c;
    FiltroCondizioni f(std::make_shared<Condizioni>(c));
    const std::vector<int> pronostico{0, 3, 8, 21, 40, 55, 61, 77, 90};
    f.preparaDa(c, pronostico, 8);
    EXPECT_TRUE(f.accettaTutte());
    c.CondizioneAttiva[14] = true;
    f.preparaDa(c, pronostico, 8);
    EXPECT_TRUE(f.accettaTutte());
    for (int i = 1; i <= 15; ++i) {
        if (i == 14) continue;
        Condizioni d;
        d.CondizioneAttiva[i] = true;
        f.preparaDa(d, pronostico, 8);
        EXPECT_FALSE(f.accettaTutte()) << i;
    }
    // and a development through the idle set gives what one without a filter gives
    const std::vector<int> numeri(pronostico.begin() + 1, pronostico.end());
    Esito con = Sviluppa(numeri, 4, std::make_shared<FiltroCondizioni>(std::make_shared<Condizioni>(c)), {0}, 100000, 2);
    Esito senza = Sviluppa(numeri, 4, nullptr, {0}, 100000, 2);
    EXPECT_EQ(con.NumColonne, 70);
    EXPECT_EQ(con.colonne, senza.colonne);
    EXPECT_EQ(con.ColonneEsaminate, senza.ColonneEsaminate);
}

TEST(FiltroCondizioni, SestineDiNovantaConLeCondizioniTipiche) {
    // Somma 266..280, three even and three odd, at most one step: the count a user of
    // such a program knows for this set, over all C(90, 6) candidates
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, prova::Numeri(90));
    s.SviluppoK = 6;
    Form28 f(s, ui);
    f.ResettaCondizioni();
    f.attiva();
    f.chkAttivo[1] = f.chkAttivo[5] = f.chkAttivo[6] = 1;
    f.txtSomma = {"266", "280"};
    f.txtPariMin = f.txtPariMax = f.txtDispariMin = f.txtDispariMax = "3";
    f.Combo1 = 0;
    f.Combo2 = 1;
    f.Combo3 = 1;
    f.CliccaAccetta();
    s.colonne.dimensiona(6);
    MostraForm4(s, ui);
    SviluppaColonne(s, ui);
    ASSERT_EQ(s.NumColonne, 16'988'879);
    EXPECT_EQ(s.ColonneEsaminate, 622'614'630);
    EXPECT_TRUE(ui.box.empty());
    // in the order of the walk, each one passing the plain filter
    const Condizioni& c = *f.condizioni();
    int livelli[6] = {};
    for (int32_t i = 1; i <= s.NumColonne; i += 997) {
        const uint8_t* col = s.colonne.colonna(i);
        for (int j = 0; j < 6; ++j) livelli[j] = col[j];
        ASSERT_TRUE(FiltraColonna(c, col, livelli, 6)) << "colonna " << i;
        if (i > 1) {
            const uint8_t* prima = s.colonne.colonna(i - 1);
            ASSERT_TRUE(std::lexicographical_compare(prima, prima + 6, col, col + 6)) << "colonna " << i;
        }
    }
}
