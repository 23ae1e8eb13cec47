// The draws read from an archive database: the same answers as the in-memory list,
// and the tables of acceptance built from them, checked against plain loops over
// the draws as written.
#include "archive/archivio.h"
#include "archive/estrazioni_archivio.h"
#include "conditions/form28.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/estrazioni_prova.h"
#include "support/prova_sistema.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <climits>

using namespace zef;
using prova::CartellaTemporanea;

namespace {

void StesseEstrazioni(const std::vector<EstrazioneLetta>& a, const std::vector<EstrazioneLetta>& b,
                      const std::string& dove) {
    ASSERT_EQ(a.size(), b.size()) << dove;
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].id, b[i].id) << dove << " riga " << i;
        EXPECT_EQ(a[i].numeri, b[i].numeri) << dove << " id " << a[i].id;
    }
}

// Both sources give the same count and the same rows from any id.
void StesseRisposte(FonteEstrazioni& archivio, FonteEstrazioni& memoria) {
    EXPECT_EQ(archivio.numeroEstrazioni(), memoria.numeroEstrazioni());
    for (long id : {LONG_MIN / 2, -1000L, -1L, 0L, 1L, 2L, 5L, 6L, 7L, 11L, 12L, 13L, 1000L, LONG_MAX / 2})
        StesseEstrazioni(archivio.daId(id), memoria.daId(id), "daId(" + std::to_string(id) + ")");
    StesseEstrazioni(archivio.tutte(), memoria.tutte(), "tutte");
}

struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    Form28 f{s, ui};
    explicit Banco(FonteEstrazioni& fonte, int ruotaGiocata) {
        prova::ImpostaPronostico(s, {3, 8, 15, 22, 40, 41, 77});
        s.SviluppoK = 5;
        s.ResettaCondizioni();
        f.attiva();
        f.archivio = &fonte;
        s.form2.Option1.fill(false);
        s.form2.Option1[ruotaGiocata] = true;
    }
};

using Tabella = std::vector<std::array<bool, 91>>;

// The archive columns of one wheel: the count n of the draws, the rows whose id is
// at least n - N in id order, the first N of them; wheel `ruota` of each.
Tabella ColonneAttese(const std::vector<EstrazioneLetta>& d, int ruota, int N, int colonneTabella) {
    const long n = static_cast<long>(d.size());
    std::vector<EstrazioneLetta> dalPrimo;
    for (const auto& e : d)
        if (e.id >= n - N) dalPrimo.push_back(e);
    Tabella t(static_cast<size_t>(colonneTabella) + 1);
    for (int c = 1; c <= N; ++c)
        for (int p = 1; p <= 5; ++p) t[c][dalPrimo[c - 1].numero(ruota, p)] = true;
    return t;
}

// A pass over the last n + 1 draws, wheel after wheel; it stops where a read fails
// (a start before the first row, a null), keeping what it had counted.
struct Passata {
    std::array<int, 91> valori{};
    bool finita = false;
};

std::vector<int> Ruote(int ruotaGiocata) {
    if (ruotaGiocata == 11) return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    return {ruotaGiocata + 1};
}

Passata FrequenzeAttese(const std::vector<EstrazioneLetta>& d, int ruotaGiocata, long n) {
    Passata r;
    const long RC = static_cast<long>(d.size());
    for (int ruota : Ruote(ruotaGiocata)) {
        if (RC - n - 1 < 0) return r;
        for (long riga = RC - n - 1; riga < RC; ++riga)
            for (int p = 1; p <= 5; ++p) {
                int x = d[riga].numero(ruota, p);
                if (x == 0) return r;
                r.valori[x] += 1;
            }
    }
    r.finita = true;
    return r;
}

Passata RitardiAttesi(const std::vector<EstrazioneLetta>& d, int ruotaGiocata, long n) {
    Passata r;
    const long RC = static_cast<long>(d.size());
    for (int ruota : Ruote(ruotaGiocata)) {  // not cleared between wheels
        if (RC - n - 1 < 0) return r;
        for (long riga = RC - n - 1; riga < RC; ++riga) {
            for (int x = 1; x <= 90; ++x) r.valori[x] += 1;
            for (int p = 1; p <= 5; ++p) {
                int x = d[riga].numero(ruota, p);
                if (x == 0) return r;
                r.valori[x] = 0;
            }
        }
    }
    r.finita = true;
    return r;
}


}  // namespace

TEST(EstrazioniArchivio, LeStesseRisposteDellaListaInMemoria) {
    CartellaTemporanea dir;
    auto draws = prova::EstrazioniAMano();
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    auto memoria = prova::InMemoria(draws);
    StesseRisposte(archivio, memoria);
    // nulls read as 0: the first draws have no Nazionale, draw 2 no third Bari number
    auto righe = archivio.daId(1);
    ASSERT_EQ(righe.size(), 12u);
    for (int p = 1; p <= 5; ++p) EXPECT_EQ(righe[0].numero(11, p), 0);
    EXPECT_EQ(righe[1].numero(1, 3), 0);
    EXPECT_EQ(righe[1].numero(1, 4), 19);
    EXPECT_EQ(righe[11].numero(10, 5), 50);
    EXPECT_EQ(righe[3].numero(11, 1), 4);

    // A draw deleted leaves a gap in the ids: count and rows follow it.
    a->db().exec("DELETE FROM estrazioni WHERE id = 6");
    draws.erase(draws.begin() + 5);
    memoria = prova::InMemoria(draws);
    StesseRisposte(archivio, memoria);
    EXPECT_EQ(archivio.numeroEstrazioni(), 11);

    // An empty archive.
    auto vuoto = prova::ArchivioCon(dir / "vuoto.db", {});
    EstrazioniArchivio niente(*vuoto);
    EXPECT_EQ(niente.numeroEstrazioni(), 0);
    EXPECT_TRUE(niente.daId(0).empty());
    EXPECT_TRUE(niente.tutte().empty());
}

TEST(EstrazioniArchivio, RigheInOrdineDiIdAncheSeInseriteAllaRinfusa) {
    CartellaTemporanea dir;
    auto draws = prova::EstrazioniAMano();
    std::vector<EstrazioneLetta> mescolate = {draws[7], draws[2], draws[11], draws[0], draws[5]};
    auto a = prova::ArchivioCon(dir / "archivio.db", mescolate);
    EstrazioniArchivio archivio(*a);
    auto righe = archivio.tutte();
    ASSERT_EQ(righe.size(), 5u);
    for (size_t i = 1; i < righe.size(); ++i) EXPECT_LT(righe[i - 1].id, righe[i].id);
    auto da6 = archivio.daId(6);
    ASSERT_EQ(da6.size(), 3u);
    EXPECT_EQ(da6[0].id, 6);
    EXPECT_EQ(da6[2].id, 12);
    EXPECT_EQ(da6[1].numeri, draws[7].numeri);
}

TEST(EstrazioniArchivio, UnGuastoDelDatabaseEUnErroreDiEsecuzione) {
    CartellaTemporanea dir;
    auto a = prova::ArchivioCon(dir / "archivio.db", prova::EstrazioniAMano());
    EstrazioniArchivio archivio(*a);
    a->db().exec("DROP TABLE estrazioni");
    EXPECT_EQ(prova::NumeroErrore([&] { archivio.numeroEstrazioni(); }), 3000);
    EXPECT_EQ(prova::NumeroErrore([&] { archivio.daId(1); }), 3000);
    // Acceptance has no trap of its own: the failure reaches the caller...
    Banco b(archivio, 0);
    b.f.chkAttivo[12] = 1;
    EXPECT_EQ(prova::NumeroErrore([&] { b.f.CliccaAccetta(); }), 3000);
    // ...while the frequency and delay passes end quietly.
    b.f.chkAttivo[12] = 0;
    b.f.chkAttivo[14] = 1;
    b.f.txtUltimeEstrazioni = "3";
    EXPECT_EQ(prova::NumeroErrore([&] { b.f.CliccaAccetta(); }), 0);
    for (int x = 1; x <= 90; ++x) EXPECT_EQ(b.f.condizioni()->ValoriNumeri[x], 0);
}

TEST(EstrazioniArchivio, ColonneDellArchivioPerUnaRuota) {
    CartellaTemporanea dir;
    const auto draws = prova::EstrazioniAMano();
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    struct Caso {
        int ruota;  // index of the play dialog's wheel
        std::string txtNcolonne;
        int N;
    };
    for (const Caso& k : {Caso{0, "4", 4}, Caso{9, "4", 4}, Caso{9, "1", 1}, Caso{0, "9", 9}, Caso{9, "100", 12},
                          Caso{10, "8", 8}, Caso{9, "12", 12}}) {
        Banco b(archivio, k.ruota);
        b.f.chkAttivo[12] = 1;
        b.f.txtNcolonne = k.txtNcolonne;
        b.f.CliccaAccetta();
        const std::string dove = "ruota " + std::to_string(k.ruota) + " N " + k.txtNcolonne;
        EXPECT_EQ(b.f.txtNcolonne, std::to_string(k.N)) << dove;
        EXPECT_EQ(b.f.condizioni()->NumeriArchivio, ColonneAttese(draws, k.ruota + 1, k.N, k.N)) << dove;
        EXPECT_TRUE(b.f.condizioni()->CondizioneAttiva[13]);
    }
    // Four columns leave the newest draw out: ids 8..11 on Bari.
    Banco b(archivio, 0);
    b.f.chkAttivo[12] = 1;
    b.f.txtNcolonne = "4";
    b.f.CliccaAccetta();
    const auto& t = b.f.condizioni()->NumeriArchivio;
    EXPECT_TRUE(t[1][31] && t[1][75] && t[4][81] && t[4][29]);
    for (int c = 1; c <= 4; ++c) EXPECT_FALSE(t[c][58]) << c;  // draw 12 not taken
    // Off: the table is the empty (0..0, 0..0) one.
    b.f.chkAttivo[12] = 0;
    b.f.CliccaAccetta();
    EXPECT_EQ(b.f.condizioni()->numColonneArchivio(), 0);
}

TEST(EstrazioniArchivio, UnNulloNelleColonneEUnErroreNonIntercettato) {
    CartellaTemporanea dir;
    auto a = prova::ArchivioCon(dir / "archivio.db", prova::EstrazioniAMano());
    EstrazioniArchivio archivio(*a);
    // Bari over the whole archive meets the null third number of draw 2.
    Banco bari(archivio, 0);
    bari.f.chkAttivo[12] = 1;
    bari.f.txtNcolonne = "11";
    EXPECT_EQ(prova::NumeroErrore([&] { bari.f.CliccaAccetta(); }), 94);
    // Nazionale over the oldest draws, which have none.
    Banco naz(archivio, 10);
    naz.f.chkAttivo[12] = 1;
    naz.f.txtNcolonne = "10";
    EXPECT_EQ(prova::NumeroErrore([&] { naz.f.CliccaAccetta(); }), 94);
}

TEST(EstrazioniArchivio, TutteLasciaSoloVenezia) {
    CartellaTemporanea dir;
    const auto draws = prova::EstrazioniAMano();
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    for (int N : {3, 7}) {
        Banco b(archivio, 11);
        b.f.chkAttivo[12] = 1;
        b.f.txtNcolonne = std::to_string(N);
        b.f.CliccaAccetta();
        const auto& t = b.f.condizioni()->NumeriArchivio;
        ASSERT_EQ(b.f.condizioni()->numColonneArchivio(), 10 * N);
        EXPECT_EQ(t, ColonneAttese(draws, 10, N, 10 * N)) << N;
        // Bari's numbers of the same draws are not there unless Venezia drew them too
        const auto bari = ColonneAttese(draws, 1, N, N);
        const auto venezia = ColonneAttese(draws, 10, N, N);
        for (int c = 1; c <= N; ++c)
            for (int x = 1; x <= 90; ++x)
                if (bari[c][x] && !venezia[c][x]) {
                    EXPECT_FALSE(t[c][x]) << c << " " << x;
                }
    }
    // No wheel chosen also counts as "Tutte".
    Banco b(archivio, 11);
    b.s.form2.Option1.fill(false);
    b.f.chkAttivo[12] = 1;
    b.f.txtNcolonne = "3";
    b.f.CliccaAccetta();
    EXPECT_EQ(b.f.condizioni()->NumeriArchivio, ColonneAttese(draws, 10, 3, 30));
}

TEST(EstrazioniArchivio, ColonneDopoUnBucoNegliId) {
    CartellaTemporanea dir;
    auto draws = prova::EstrazioniAMano();
    draws.erase(draws.begin() + 4);  // id 5 deleted: 11 draws, ids up to 12
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    Banco b(archivio, 9);
    b.f.chkAttivo[12] = 1;
    b.f.txtNcolonne = "3";
    b.f.CliccaAccetta();
    // The query starts at the count minus N (id 8), not at the last id minus N.
    const auto& t = b.f.condizioni()->NumeriArchivio;
    EXPECT_EQ(t, ColonneAttese(draws, 10, 3, 3));
    EXPECT_TRUE(t[1][19] && t[1][80]);  // draw 8 on Venezia
    EXPECT_TRUE(t[3][15] && t[3][55]);  // draw 10
}

TEST(EstrazioniArchivio, FrequenzeERitardiSuUnArchivioLungo) {
    CartellaTemporanea dir;
    // 530 draws (the delay pass always reads 501); a null in Venezia2 of draw 400
    auto draws = prova::EstrazioniFormula(530);
    draws[399].numeri[9 * 5 + 1] = 0;
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    prova::Separatore virgola(',');
    for (int ruota : {0, 4, 9, 10, 11}) {
        for (const char* ultime : {"0", "20", "131", "529", "530", "600"}) {
            Banco b(archivio, ruota);
            b.f.chkAttivo[14] = 1;
            b.f.txtUltimeEstrazioni = ultime;
            b.f.txtRitardoMin = "3";
            b.f.txtRitardoMax = "12,5";
            b.f.txtFrequenzaMin = "1";
            b.f.txtFrequenzaMax = "7,25";
            b.f.CliccaAccetta();
            const auto& c = *b.f.condizioni();
            const std::string dove = "ruota " + std::to_string(ruota) + " ultime " + ultime;
            const Passata frq = FrequenzeAttese(draws, ruota, std::stol(ultime));
            const Passata rit = RitardiAttesi(draws, ruota, 500);
            for (int x = 1; x <= 90; ++x) {
                EXPECT_EQ(c.ValoriNumeri[x], frq.valori[x]) << dove << " numero " << x;
                EXPECT_EQ(c.RitFrqNumeri[x][2], frq.finita ? frq.valori[x] : 0) << dove << " numero " << x;
                EXPECT_EQ(c.RitardiNumeri[x], rit.valori[x]) << dove << " numero " << x;
                EXPECT_EQ(c.RitFrqNumeri[x][1], rit.finita ? rit.valori[x] : 0) << dove << " numero " << x;
            }
            EXPECT_EQ(b.f.Text1, "530") << dove;
            EXPECT_FLOAT_EQ(c.RitardoFrequenza[1][1], 3.0f);
            EXPECT_FLOAT_EQ(c.RitardoFrequenza[1][2], 12.5f);
            EXPECT_FLOAT_EQ(c.RitardoFrequenza[2][2], 7.25f);
            EXPECT_TRUE(c.esisteRitardoFrequenza);
        }
    }
    // The reference itself: Bari's delays are whole, Venezia's stop at the null and
    // Nazionale's count from draw 30, where they are null until 99.
    EXPECT_TRUE(RitardiAttesi(draws, 0, 500).finita);
    EXPECT_FALSE(RitardiAttesi(draws, 9, 500).finita);
    EXPECT_FALSE(RitardiAttesi(draws, 10, 500).finita);
    EXPECT_FALSE(FrequenzeAttese(draws, 0, 530).finita);
}

TEST(EstrazioniArchivio, PassateChiamateDirettamenteSuPocheEstrazioni) {
    CartellaTemporanea dir;
    const auto draws = prova::EstrazioniAMano();
    auto a = prova::ArchivioCon(dir / "archivio.db", draws);
    EstrazioniArchivio archivio(*a);
    for (int ruota : {0, 9, 10, 11})
        for (long n : {0L, 3L, 8L, 9L, 10L, 11L, 12L}) {
            Banco b(archivio, ruota);
            b.f.ElaboraFrequenze(n);
            b.f.ElaboraRitardi(n);
            const auto& c = *b.f.condizioni();
            const Passata frq = FrequenzeAttese(draws, ruota, n), rit = RitardiAttesi(draws, ruota, n);
            for (int x = 1; x <= 90; ++x) {
                EXPECT_EQ(c.ValoriNumeri[x], frq.valori[x]) << ruota << " " << n << " " << x;
                EXPECT_EQ(c.RitardiNumeri[x], rit.valori[x]) << ruota << " " << n << " " << x;
                // the copy is made only by a pass that ran to its end
                EXPECT_EQ(c.RitFrqNumeri[x][2], frq.finita ? frq.valori[x] : 0) << ruota << " " << n << " " << x;
                EXPECT_EQ(c.RitFrqNumeri[x][1], rit.finita ? rit.valori[x] : 0) << ruota << " " << n << " " << x;
            }
        }
    // Hand check of one case: Venezia over the last three draws (ids 10..12).
    Banco b(archivio, 9);
    b.f.ElaboraFrequenze(2);
    const auto& c = *b.f.condizioni();
    EXPECT_EQ(c.ValoriNumeri[55], 1);
    EXPECT_EQ(c.ValoriNumeri[12], 1);
    EXPECT_EQ(c.ValoriNumeri[3], 1);
    EXPECT_EQ(c.ValoriNumeri[5], 0);  // drawn in 1 and 9 only
    int totale = 0;
    for (int x = 1; x <= 90; ++x) totale += c.ValoriNumeri[x];
    EXPECT_EQ(totale, 15);
}
