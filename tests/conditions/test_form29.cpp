// "Suggerisci" and "Parametri delle colonne in archivio" without windows: the range
// asked for, the dialog reset, the load and what it shows, the position tab, and
// "Imposta questi parametri" carried through the conditions dialog to the filter.
#include "conditions/filtra_colonna.h"
#include "conditions/form28.h"
#include "conditions/form29.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/estrazioni_prova.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

using namespace zef;

namespace {

// The scripted interface, keeping the titles of the input boxes and the hourglass.
struct Interfaccia29 : InterfacciaScriptata {
    std::vector<std::string> titoliInput;
    int clessidre = 0;
    std::optional<std::string> inputBox(const std::string& p, const std::string& t, const std::string& d) override {
        titoliInput.push_back(t);
        return InterfacciaScriptata::inputBox(p, t, d);
    }
    void clessidra(bool attiva) override { clessidre += attiva ? 1 : -1; }
};

const std::vector<int> Pronostico = {3, 8, 15, 22, 40, 41, 77};

struct Banco {
    Sistema s;
    Interfaccia29 ui;
    EstrazioniInMemoria archivio;
    Form28 f28{s, ui};
    // `ruota`: the play dialog's option, 0..11 (12: none on).
    explicit Banco(std::vector<EstrazioneLetta> estrazioni, int ruota = 11) {
        archivio.righe = std::move(estrazioni);
        prova::ImpostaPronostico(s, Pronostico);
        s.SviluppoK = 5;
        s.ResettaCondizioni();
        f28.attiva();
        f28.archivio = &archivio;
        s.form2.Option1.fill(false);
        if (ruota < 12) s.form2.Option1[ruota] = true;
    }
    std::optional<IntervalloEstrazioni> suggerisci(std::optional<std::string> risposta) {
        ui.input.push_back(std::move(risposta));
        return ClickSuggerisci(f28, ui);
    }
    // Suggerisci and the load of Form29, as the button does it.
    Form29 apri(const std::string& risposta) {
        auto r = suggerisci(risposta);
        EXPECT_TRUE(r);
        Form29 f(s, ui, f28, &archivio, r.value_or(IntervalloEstrazioni{}));
        f.carica();
        return f;
    }
};

std::array<uint8_t, 5> Ordinata(const EstrazioneLetta& e, int ruota) {
    std::array<uint8_t, 5> n;
    for (int p = 1; p <= 5; ++p) n[p - 1] = static_cast<uint8_t>(e.numero(ruota, p));
    std::sort(n.begin(), n.end());
    return n;
}

}  // namespace

// ---- Suggerisci ------------------------------------------------------------------------------------

TEST(Suggerisci, DomandaEIntervalloConLeSueCorrezioni) {
    struct Caso {
        std::optional<std::string> risposta;
        int16_t prima;
    };
    const Caso casi[] = {
        {"5", 996},     {"1", 1000},     {"1000", 1},     {"0", 1000},    {"", 1000}, {std::nullopt, 1000},
        {"1001", 0},    // RC + 1: id 0, the whole archive
        {"1002", 1000},  // beyond: one draw, not the whole archive
        {"abc", 1000},  {"2.5", 998},    {" 7 colonne", 994}, {"-3", 1000},
    };
    for (const Caso& c : casi) {
        Banco b(prova::EstrazioniFormula(1000));
        auto r = b.suggerisci(c.risposta);
        ASSERT_TRUE(r) << c.risposta.value_or("(annullata)");
        EXPECT_EQ(r->PrimaEstrazione, c.prima) << c.risposta.value_or("(annullata)");
        EXPECT_EQ(r->UltimaEstrazione, 1000);
        ASSERT_EQ(b.ui.prompt.size(), 1u);
        EXPECT_EQ(b.ui.prompt[0], "Numero ultime colonne da esaminare? (1-1000)");
        EXPECT_EQ(b.ui.titoliInput[0], "Numero colonne");
        EXPECT_EQ(b.ui.clessidre, 1);
        EXPECT_TRUE(b.ui.box.empty());
    }
}

TEST(Suggerisci, IlDialogoPerdeOgniImpostazione) {
    Banco b(prova::EstrazioniFormula(30));
    b.f28.chkAttivo[5] = 1;
    b.f28.txtPariMin = "3";
    b.f28.clickCommand10();
    b.f28.spuntaList1(0, true);
    b.f28.CliccaAccetta();
    b.f28.visibile = true;
    ASSERT_TRUE(b.f28.condizioni()->CondizioneAttiva[6]);
    ASSERT_EQ(b.f28.List1.size(), 14u);  // fitted, then shown

    ASSERT_TRUE(b.suggerisci("3"));
    EXPECT_FALSE(b.f28.visibile);
    EXPECT_EQ(b.f28.chkAttivo[5], 0);
    EXPECT_EQ(b.f28.txtPariMin, "0");
    EXPECT_TRUE(b.f28.List3.empty());
    EXPECT_EQ(b.f28.condizioni()->numSezioni(), 0);
    EXPECT_FALSE(b.f28.condizioni()->CondizioneAttiva[6]);
    EXPECT_EQ(b.s.NumeriFissi.size(), 1u);
    // fitted to the forecast once more: the five lowest and highest numbers
    EXPECT_EQ(b.f28.List1.size(), 7u);
    EXPECT_EQ(b.f28.txtSomma[0], "88");
    EXPECT_EQ(b.f28.txtSomma[1], "195");
}

TEST(Suggerisci, LasciaInSilenzioSuOgniErrore) {
    // an answer beyond the 16-bit range
    Banco b(prova::EstrazioniFormula(30));
    b.f28.chkAttivo[3] = 1;
    b.f28.visibile = true;
    EXPECT_FALSE(b.suggerisci("99999"));
    EXPECT_FALSE(b.suggerisci("1e300"));
    EXPECT_EQ(b.f28.chkAttivo[3], 1);
    EXPECT_TRUE(b.f28.visibile);
    EXPECT_EQ(b.ui.clessidre, 0);
    EXPECT_TRUE(b.ui.box.empty());
    // no archive: not even the question
    Banco c(prova::EstrazioniFormula(30));
    c.f28.archivio = nullptr;
    EXPECT_FALSE(c.suggerisci("3"));
    EXPECT_TRUE(c.ui.prompt.empty());
}

// ---- the load -----------------------------------------------------------------------------------------

TEST(Form29, ValoriInizialiESenzaRuotaNullaDaMisurare) {
    Banco b(prova::EstrazioniFormula(40), 12);
    Form29 f = b.apri("10");
    EXPECT_EQ(std::string(form29::Titolo), "Parametri delle colonne in archivio");
    EXPECT_TRUE(f.caricato);
    EXPECT_FALSE(f.misura.misurate);
    EXPECT_EQ(f.Combo1, 5);
    EXPECT_EQ(f.Combo2, 0);
    EXPECT_EQ(f.Combo7, -1);
    EXPECT_EQ(f.txtSomma[0], "440");
    EXPECT_EQ(f.txtSomma[1], "15");
    EXPECT_EQ(f.txtPariMin, "5");
    EXPECT_EQ(f.txtDispariCons, "0");
    EXPECT_EQ(f.txtDistanzaMin, "0");
    EXPECT_EQ(f.Text2, "5");
    EXPECT_TRUE(f.List3.empty());
    EXPECT_EQ(f.Check1, (std::array<int, 6>{}));
    EXPECT_EQ(f.ritardoMin, 100);
    EXPECT_EQ(f.frequenzaMin, 90);
    EXPECT_EQ(b.ui.clessidre, 0);  // the pointer comes back all the same
}

TEST(Form29, UnaSolaEstrazioneOffreMetaDellaDistanzaMinima) {
    auto d = prova::EstrazioniAMano();
    Banco b(d, 0);  // Bari; the last draw: 58 70 14 26 47 -> 14 26 47 58 70, smallest gap 10
    Form29 f = b.apri("1");
    EXPECT_EQ(f.intervallo.PrimaEstrazione, 12);
    EXPECT_EQ(f.txtSomma[0], "215");
    EXPECT_EQ(f.txtSomma[1], "215");
    EXPECT_EQ(f.misura.sommaDistanze, 10);
    EXPECT_EQ(f.txtDistanzaMin, "5");  // the range of one draw divides by zero: the sum less its half
    ASSERT_EQ(f.List3.size(), 3u);
    EXPECT_EQ(f.List3[0], "Da 1 a 30, min 2 max 2, c.min 1 c.max 2");
    EXPECT_EQ(f.List3[1], "Da 31 a 60, min 2 max 2, c.min 1 c.max 2");
    EXPECT_EQ(f.List3[2], "Da 61 a 90, min 1 max 1, c.min 1 c.max 2");
    // the first place shows from the start
    EXPECT_EQ(f.Check18[13], 1);
    EXPECT_EQ(std::count(f.Check18.begin(), f.Check18.end(), 1), 1);
}

TEST(Form29, IlCaricamentoMostraLaMisuraDellIntervallo) {
    auto d = prova::EstrazioniFormula(1000);
    d[996].numeri[5 * 5 + 1] = 32;  // Napoli of draw 997: 16 32 33 55 89, a step
    Banco b(d, 5);
    Form29 f = b.apri("5");
    EXPECT_EQ(f.intervallo.PrimaEstrazione, 996);
    const auto m = MisuraColonne(d, 996, 1000, 6);
    EXPECT_EQ(f.misura.righe, 5);
    EXPECT_EQ(f.Combo2, m.Combo2);
    EXPECT_EQ(f.txtSomma[0], std::to_string(m.sommaMin));
    EXPECT_EQ(f.txtPariCons, std::to_string(m.pariCons));
    EXPECT_EQ(f.ritardoMax, m.ritardoMax);
    EXPECT_EQ(f.PosizioniSuggerite, m.PosizioniSuggerite);
    // the mean takes four, one less than the five draws
    const long long media = std::llround(std::nearbyint(m.sommaDistanze / 4.0));
    EXPECT_EQ(f.txtDistanzaMin, std::to_string(media - media / 2));
    ASSERT_EQ(f.List3.size(), 3u);
    EXPECT_EQ(f.List3[0].rfind("Da 1 a 30, min ", 0), 0u);
}

TEST(Form29, UnErroreLasciaLInviluppoFinoAllaRigaSenzaSezioniNeDistanza) {
    auto d = prova::EstrazioniAMano();
    Banco b(d, 0);  // Bari3 of draw 2 is null
    Form29 f = b.apri("12");
    EXPECT_EQ(f.intervallo.PrimaEstrazione, 1);
    EXPECT_TRUE(f.misura.interrotta);
    EXPECT_EQ(f.misura.rigaErrore, 2);
    EXPECT_EQ(f.txtSomma[0], "215");  // the first draw alone: 3 12 45 67 88
    EXPECT_TRUE(f.List3.empty());
    EXPECT_EQ(f.txtDistanzaMin, "0");
    EXPECT_EQ(b.ui.clessidre, 0);
}

TEST(Form29, SchedaPosizioni) {
    auto d = prova::EstrazioniAMano();
    Banco b(d, 9);  // Venezia
    Form29 f = b.apri("2");
    // draws 11 and 12: 1 12 34 57 89 and 3 38 50 66 73
    EXPECT_EQ(f.txtPosizioni, "1");
    EXPECT_EQ(f.Check18[0] + f.Check18[2], 2);
    f.upDown10(false);
    EXPECT_EQ(f.txtPosizioni, "1");
    for (int i = 0; i < 6; ++i) f.upDown10(true);
    EXPECT_EQ(f.txtPosizioni, "5");
    EXPECT_EQ(f.Check18[88] + f.Check18[72], 2);
    EXPECT_EQ(std::count(f.Check18.begin(), f.Check18.end(), 1), 2);
    f.upDown10(false);
    EXPECT_EQ(f.Check18[56] + f.Check18[65], 2);
    f.txtPosizioni = "6";
    EXPECT_EQ(prova::NumeroErrore([&] { f.cambiaTxtPosizioni(); }), errori::IndiceFuoriIntervallo);
}

// ---- "Imposta questi parametri" -----------------------------------------------------------------

TEST(Form29, ImpostaCopiaLInviluppoInTrediciPassi) {
    auto d = prova::EstrazioniFormula(300);
    Banco b(d, 0);
    Form29 f = b.apri("40");
    int mostrata = 0;
    f.mostraForm28 = [&] { ++mostrata; };
    f.Combo10 = 2;  // what the user leaves on the tabs is what goes over
    f.Text2 = "7";
    f.clickImposta();
    Form28& g = b.f28;
    auto c = g.condizioni();
    EXPECT_EQ(g.Combo1, f.Combo1);
    EXPECT_EQ(g.Combo2, f.Combo2);
    EXPECT_EQ(g.Combo3, 1);
    EXPECT_EQ(g.Check1, f.Check1);
    EXPECT_EQ(g.Combo5, f.Combo5);
    ASSERT_EQ(c->numSezioni(), 3);
    for (int s = 1; s <= 3; ++s) EXPECT_EQ(c->Sezioni[s], f.SezioniSuggerite[s]);
    EXPECT_EQ(g.List3, f.List3);
    EXPECT_EQ(g.txtSomma, f.txtSomma);
    EXPECT_EQ(g.txtPariMin, f.txtPariMin);
    EXPECT_EQ(g.txtDispariCons, f.txtDispariCons);
    EXPECT_EQ(g.txtDistanzaMin, f.txtDistanzaMin);
    EXPECT_EQ(g.txtDistanzaMax, "50");
    EXPECT_EQ(g.Combo6, 0);
    EXPECT_EQ(g.chkGruppiPari, f.chkGruppiPari);
    EXPECT_EQ(g.chkGruppiDispari, f.chkGruppiDispari);
    EXPECT_EQ(g.chkInterruzioniPD, f.chkInterruzioniPD);
    EXPECT_EQ(g.Combo7, f.Combo7);
    for (int p = 1; p <= 5; ++p) {
        for (int x = 1; x <= 90; ++x) EXPECT_EQ(c->PosizioniNumeri[p][x], f.PosizioniSuggerite[p][x]);
        EXPECT_EQ(c->PosizioniNumeri[p][91], 1);
    }
    EXPECT_EQ(c->PosizioniNumeri[6][91], 0);
    for (int x = 1; x <= 90; ++x) EXPECT_EQ(g.Check18[x - 1], f.PosizioniSuggerite[1][x]);
    EXPECT_EQ(g.Check20, 1);
    EXPECT_EQ(g.txtNcolonne, "7");
    EXPECT_EQ(g.Combo10, 2);
    EXPECT_EQ(g.List1.size(), 14u);  // the forecast added once more to the reset list
    EXPECT_EQ(g.txtRitardoMin, std::to_string(f.ritardoMin));
    EXPECT_EQ(g.txtRitardoMax, std::to_string(f.ritardoMax));
    EXPECT_EQ(g.txtFrequenzaMin, std::to_string(f.frequenzaMin));
    EXPECT_EQ(g.txtFrequenzaMax, std::to_string(f.frequenzaMax));
    EXPECT_EQ(g.txtUltimeEstrazioni, "90");
    const std::array<int, 15> attivi = {0, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 0, 1, 0, 1};
    EXPECT_EQ(g.chkAttivo, attivi);
    // not accepted yet: the filter still has nothing on
    for (int i = 1; i <= 15; ++i) EXPECT_FALSE(c->CondizioneAttiva[i]);
    EXPECT_FALSE(f.caricato);
    ASSERT_EQ(b.ui.box.size(), 1u);
    EXPECT_EQ(b.ui.box[0].testo, "Condizioni impostate correttamente.");
    EXPECT_EQ(b.ui.box[0].titolo, "Condizioni");
    EXPECT_EQ(b.ui.box[0].icona, Icona::Informazione);
    EXPECT_EQ(mostrata, 1);
}

TEST(Form29, SenzaFinestraLImpostaRiportaAvantiIlDialogo) {
    Banco b(prova::EstrazioniFormula(50), 3);
    Form29 f = b.apri("20");
    f.clickImposta();
    EXPECT_TRUE(b.f28.visibile);
    EXPECT_EQ(b.f28.List1.size(), 21u);  // reset, Imposta, and the showing
}

TEST(Form29, ChiudiNonCambiaNulla) {
    Banco b(prova::EstrazioniFormula(50), 3);
    Form29 f = b.apri("20");
    f.clickChiudi();
    EXPECT_FALSE(f.caricato);
    EXPECT_EQ(b.f28.chkAttivo, (std::array<int, 15>{}));
    EXPECT_TRUE(b.f28.List3.empty());
    EXPECT_FALSE(b.f28.visibile);
    EXPECT_TRUE(b.ui.box.empty());
}

TEST(Form29, LeEstrazioniStudiatePassanoIlFiltroImpostato) {
    // Every measure is an envelope of the draws, so once accepted each of them passes;
    // the distance (half the mean), the sections (counted by runs in the filter), the
    // draws just before and the delays of today are not envelopes, and stay off.
    for (int ruota : {0, 7, 11}) {
        auto d = prova::EstrazioniFormula(700);
        std::mt19937 g(static_cast<unsigned>(ruota));
        for (auto& e : d)
            for (int r = 1; r <= 10; ++r) {
                std::array<int, 90> urna;
                std::iota(urna.begin(), urna.end(), 1);
                std::shuffle(urna.begin(), urna.end(), g);
                prova::Imposta(e, r, {urna[0], urna[1], urna[2], urna[3], urna[4]});
            }
        Banco b(d, ruota);
        Form29 f = b.apri("150");
        f.clickImposta();
        for (int i : {4, 7, 12, 14}) b.f28.chkAttivo[i] = 0;
        b.f28.CliccaAccetta();
        const Condizioni& c = *b.f28.condizioni();
        const int livelli[5] = {1, 2, 3, 4, 5};
        const std::vector<int> ruote = ruota == 11 ? std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10} : std::vector<int>{ruota + 1};
        for (long i = 551; i <= 700; ++i)
            for (int r : ruote) {
                const auto n = Ordinata(d[i - 1], r);
                EXPECT_TRUE(FiltraColonna(c, n.data(), livelli, 5)) << "ruota " << r << " estrazione " << i;
            }
        // and a column out of the envelope does not: five numbers in a row
        const uint8_t fila[5] = {41, 42, 43, 44, 45};
        if (f.Combo2 < 4) {
            EXPECT_FALSE(FiltraColonna(c, fila, livelli, 5));
        }
    }
}
