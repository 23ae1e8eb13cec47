// The conditions dialog without a window: start values, limits and slips, list
// editors, fixed numbers, positions, Resetta and acceptance with its archive tables.
#include "conditions/form28.h"
#include "conditions/filtra_colonna.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

using namespace zef;

namespace {
struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    Form28 f{s, ui};
    explicit Banco(std::vector<int> pronostico = {3, 8, 15, 22, 40, 41, 77}, int k = 5) {
        prova::ImpostaPronostico(s, pronostico);
        s.SviluppoK = static_cast<int16_t>(k);
        s.ResettaCondizioni();
        f.attiva();
    }
};

EstrazioneLetta Estrazione(long id, int base) {
    EstrazioneLetta e;
    e.id = id;
    for (int r = 1; r <= 11; ++r)
        for (int p = 1; p <= 5; ++p) e.numeri[(r - 1) * 5 + p - 1] = static_cast<int16_t>((base + r * 7 + p * 13) % 90 + 1);
    return e;
}
}  // namespace

TEST(Form28, SchedeEValoriIniziali) {
    Banco b;
    EXPECT_EQ(std::string(form28::Schede[10]), " Posizione numeri");
    EXPECT_EQ(std::string(form28::Aiuti[14]),
              "Questa scheda serve per impostare il valore medio di ritardo e frequenza dei numeri in colonna.");
    EXPECT_NE(std::string(form28::Aiuti[10]).find("'attiva'. NB. Il filtro è valido solo con sviluppo in cinquine"),
              std::string::npos);
    EXPECT_EQ(b.f.Combo2, 4);
    EXPECT_EQ(b.f.Combo10, 6);
    EXPECT_EQ(b.f.txtSezioneMax, "5");
    // the sums of the 5 lowest and 5 highest numbers
    EXPECT_EQ(b.f.txtSomma[0], "88");
    EXPECT_EQ(b.f.txtSomma[1], "195");
    // the list filled by the reset and again by the showing
    EXPECT_EQ(b.f.List1.size(), 14u);
    EXPECT_TRUE(b.f.chkNumeriCFAbilitato[2]);
    EXPECT_FALSE(b.f.chkNumeriCFAbilitato[3]);
    // until the first acceptance the filter lets everything through
    for (int i = 1; i <= 15; ++i) EXPECT_FALSE(b.f.condizioni()->CondizioneAttiva[i]);
    EXPECT_TRUE(b.s.filtro);
}

TEST(Form28, SommaSuPronosticoCorto) {
    Banco b({10, 20, 30}, 2);  // shorter than 5: the whole forecast in both fields
    EXPECT_EQ(b.f.txtSomma[0], "60");
    EXPECT_EQ(b.f.txtSomma[1], "60");
}

TEST(Form28, LimitiDeiCampiESviste) {
    Banco b;
    b.f.txtPariMax = "7";
    b.f.esci("txtPariMax");
    EXPECT_EQ(b.f.txtPariMax, "5");
    b.f.txtPariMax = "9";
    b.f.spin("UpDownPariMax", true);
    EXPECT_EQ(b.f.txtPariMax, "10");  // the spin goes up to 10
    b.f.txtDispariCons = "9";
    b.f.esci("txtDispariCons");
    EXPECT_EQ(b.f.txtDispariCons, "6");
    b.f.txtSezioneA = "95";
    b.f.esci("txtSezioneA");
    EXPECT_EQ(b.f.txtSezioneA, "90");
    b.f.txtSezioneDa = "50";
    b.f.txtSezioneA = "20";
    b.f.esci("txtSezioneA");
    EXPECT_EQ(b.f.txtSezioneA, "50");
    b.f.txtSezioneMax = "4";
    b.f.txtSezioneMin = "6";
    b.f.esci("txtSezioneMin");
    EXPECT_EQ(b.f.txtSezioneMax, "6");  // the other field takes this one's text
    b.f.txtSomma = {"100", "90"};
    b.f.esci("txtSomma(1)");
    EXPECT_EQ(b.f.txtSomma[0], "90");
    b.f.txtSomma[1] = "265";
    b.f.spin("UpDown7(1)", true);
    EXPECT_EQ(b.f.txtSomma[1], "265");
    // crossed delay spins
    b.f.spin("UpDown12", true);
    EXPECT_EQ(b.f.txtRitardoMin, "1");
    EXPECT_EQ(b.f.txtRitardoMax, "100");
    b.f.spin("UpDown13", false);
    EXPECT_EQ(b.f.txtRitardoMax, "99");
    b.f.txtRitardoMin = "abc";
    b.f.spin("UpDown12", true);
    EXPECT_EQ(b.f.txtRitardoMin, "0");
    // UpDown16: its limit lands on txtFrequenzaMax
    b.f.txtUltimeEstrazioni = "200";
    b.f.spin("UpDown16", true);
    EXPECT_EQ(b.f.txtUltimeEstrazioni, "201");
    EXPECT_EQ(b.f.txtFrequenzaMax, "200");
    // keys
    char c = 'a';
    EXPECT_FALSE(b.f.tasto("txtSomma(0)", c));
    c = '.';
    EXPECT_TRUE(b.f.tasto("txtFrequenzaMin", c));
    EXPECT_EQ(c, ',');
}

TEST(Form28, NumeriFissiSestaSpuntaTolta) {
    Banco b({1, 2, 3, 4, 5, 6, 7}, 5);
    for (int i = 0; i < 6; ++i) b.f.spuntaList1(i, true);
    EXPECT_FALSE(b.f.List1Spuntato[5]);
    ASSERT_EQ(b.s.NumeriFissi.size(), 6u);
    EXPECT_EQ(b.s.NumeriFissi[5], 5);
    // the second copy of the list counts the same number twice
    Banco d({1, 2, 3, 4, 5, 6, 7}, 5);
    d.f.spuntaList1(0, true);
    d.f.spuntaList1(7, true);
    EXPECT_EQ(d.s.NumeriFissi, (std::vector<int16_t>{0, 1, 1}));
}

TEST(Form28, ColonneFiltroEditore) {
    Banco b;
    b.f.clickCommand1();
    EXPECT_EQ(b.f.List2.back(), "  Punti: ");
    b.f.clickNumeroCF(2, 1);
    b.f.clickNumeroCF(7, 1);
    b.f.chkPuntiCF[0] = b.f.chkPuntiCF[2] = 1;
    EXPECT_EQ(b.f.coloreNumeroCF(2), form28::ColoreGiallo);
    b.f.clickCommand1();
    EXPECT_EQ(b.f.List2.back(), "3,8,  Punti: 0,2,");
    auto c = b.f.condizioni();
    ASSERT_EQ(c->numFiltri(), 2);
    EXPECT_TRUE(c->ColonneFiltro[2][8]);
    EXPECT_TRUE(c->PuntiFiltro[2][3]);
    EXPECT_EQ(c->righePuntiFiltro, 6);
    // modify with nothing selected: the add still runs
    b.f.clickCommand2();
    EXPECT_EQ(b.f.List2.size(), 3u);
    b.f.List2Indice = 0;
    b.f.clickCommand3();
    EXPECT_EQ(c->numFiltri(), 2);
    EXPECT_EQ(b.f.List2[0], "3,8,  Punti: 0,2,");
    b.ui.risposte = {Risposta::No};
    b.f.clickCommand4();
    EXPECT_EQ(b.f.List2.size(), 2u);
    EXPECT_EQ(b.ui.ultimoBox().testo, "Si è sicuri di voler cancellare tutte le colonne filtro?");
    b.ui.risposte = {Risposta::Si};
    b.f.clickCommand4();
    EXPECT_TRUE(b.f.List2.empty());
    EXPECT_EQ(c->numFiltri(), 0);
    EXPECT_EQ(b.f.chkNumeriCF[2], 0);
}

TEST(Form28, SezioniESequele) {
    Banco b;
    b.f.clickCommand10();
    EXPECT_EQ(b.f.List3[0], "Da 1 a 90, min 0 max 5, c.min 1 c.max 5");
    EXPECT_EQ(b.f.condizioni()->Sezioni[1], (std::array<int16_t, 7>{0, 1, 90, 0, 5, 0, 4}));
    b.f.clickCommand6();
    EXPECT_EQ(b.f.txtSezioneMax, "6");
    // a sequence needs its second sign
    b.f.clickCommand11(0);
    b.f.clickCommand15();
    EXPECT_EQ(b.ui.ultimoBox().testo, "La sequela deve essere di almeno 2 segni P/D a partire da sinistra");
    EXPECT_EQ(b.ui.ultimoBox().icona, Icona::Critico);
    EXPECT_TRUE(b.f.List4.empty());
    b.f.clickCommand11(1);
    b.f.clickCommand11(1);  // "D"
    b.f.Check2[2] = 1;
    b.f.clickCommand15();
    EXPECT_EQ(b.f.List4[0], "PD;  Passo: 1; Presenze: 2,");
    EXPECT_EQ(b.f.condizioni()->SequelePD[1], (std::array<int16_t, 5>{0, 1, 2, 0, 1}));
    // Command16 runs off its boxes: a run-time error, after clearing them
    EseguiEvento(b.ui, [&] { b.f.clickCommand16(); });
    EXPECT_EQ(b.f.Check2[2], 0);
    EXPECT_EQ(b.f.Command11[0], "");
    EXPECT_FALSE(b.ui.box.empty());
}

TEST(Form28, PosizioniConLoSpin) {
    Banco b;
    b.f.clickCheck18(2, 1);
    b.f.Check20 = 1;
    b.f.spin("UpDown10", true);
    EXPECT_EQ(b.f.txtPosizioni, "2");
    EXPECT_EQ(b.f.Check18[2], 0);
    EXPECT_EQ(b.f.condizioni()->PosizioniNumeri[1][3], 1);
    EXPECT_EQ(b.f.condizioni()->PosizioniNumeri[1][91], 1);
    b.f.spin("UpDown10", false);
    EXPECT_EQ(b.f.Check18[2], 1);
    EXPECT_EQ(b.f.Check20, 1);
    // Accetta stores 1..55 only: a tick on 77 waits for the spin button
    b.f.clickCheck18(76, 1);
    b.f.clickCheck18(39, 1);
    b.f.CliccaAccetta();
    EXPECT_EQ(b.f.condizioni()->PosizioniNumeri[1][40], 1);
    EXPECT_EQ(b.f.condizioni()->PosizioniNumeri[1][77], 0);
}

TEST(Form28, AccettaNormalizzaEScriveLeTabelle) {
    Banco b;
    b.f.txtPariMin = "3";
    b.f.txtPariMax = "1";
    b.f.txtDistanzaMin = "4";
    b.f.txtDistanzaMax = "2";
    b.f.chkAttivo[13] = 1;
    b.f.Combo9 = 6;
    b.f.chkAttivo[5] = 1;
    b.f.CliccaAccetta();
    auto c = b.f.condizioni();
    EXPECT_EQ(b.f.txtPariMax, "3");
    EXPECT_EQ(c->PariDispari[2], 3);
    EXPECT_EQ(b.f.txtDistanzaMax, "4");
    EXPECT_EQ(c->DistanzaNumeri[1], 5);
    EXPECT_EQ(c->Interruzioni[6], 5);
    EXPECT_EQ(c->InterruzioniPD[6], 5);
    EXPECT_FALSE(c->GruppiPD[2][7]);  // seventh odd box never stored
    EXPECT_TRUE(c->CondizioneAttiva[14]);
    EXPECT_TRUE(c->CondizioneAttiva[6]);
    EXPECT_EQ(c->SommaGlobale[1], 88);
    EXPECT_FALSE(c->esisteRitardoFrequenza);
}

TEST(Form28, ArchivioColonneEFrequenze) {
    Banco b;
    EstrazioniInMemoria mem;
    for (int i = 1; i <= 40; ++i) mem.righe.push_back(Estrazione(i, i * 3));
    b.f.archivio = &mem;
    b.s.form2.Option1.fill(false);
    b.s.form2.Option1[0] = true;  // Bari
    b.f.chkAttivo[12] = 1;
    b.f.txtNcolonne = "100";
    b.f.CliccaAccetta();
    EXPECT_EQ(b.f.txtNcolonne, "40");
    auto c = b.f.condizioni();
    EXPECT_EQ(c->numColonneArchivio(), 40);
    // ids from 30 on: the columns are ids 30..39, the newest draw left out
    b.f.txtNcolonne = "10";
    b.f.CliccaAccetta();
    ASSERT_EQ(c->numColonneArchivio(), 10);
    for (int col = 1; col <= 10; ++col)
        for (int p = 1; p <= 5; ++p) EXPECT_TRUE(c->NumeriArchivio[col][mem.righe[29 + col - 1].numero(1, p)]);
    // Tutte: Venezia's numbers in a table of 10 N columns
    b.s.form2.Option1.fill(false);
    b.s.form2.Option1[11] = true;
    b.f.CliccaAccetta();
    ASSERT_EQ(c->numColonneArchivio(), 100);
    EXPECT_TRUE(c->NumeriArchivio[1][mem.righe[29].numero(10, 1)]);
    // delay and frequency over the last n + 1 draws
    b.s.form2.Option1.fill(false);
    b.s.form2.Option1[0] = true;
    b.f.chkAttivo[14] = 1;
    b.f.txtUltimeEstrazioni = "4";
    b.f.txtRitardoMax = "12,5";
    ImpostaSeparatoreDecimale(',');
    b.f.CliccaAccetta();
    ImpostaSeparatoreDecimale(0);
    std::array<int, 91> attese{};
    for (int i = 35; i <= 39; ++i)
        for (int p = 1; p <= 5; ++p) attese[mem.righe[i].numero(1, p)]++;
    for (int x = 1; x <= 90; ++x) EXPECT_EQ(c->ValoriNumeri[x], attese[x]) << x;
    EXPECT_FLOAT_EQ(c->RitardoFrequenza[1][2], 12.5f);
    // 500 draws asked of 40: the delay pass ends quietly with zeroed delays
    for (int x = 1; x <= 90; ++x) EXPECT_EQ(c->RitardiNumeri[x], 0);
}

TEST(Form28, ResettaChiedeERicarica) {
    Banco b;
    b.f.chkAttivo[3] = 1;
    b.f.clickCommand1();
    b.ui.risposte = {Risposta::Si};
    b.f.clickResetta();
    EXPECT_EQ(b.ui.ultimoBox().testo, "Si è sicuri di voler resettare tutte le condizioni?");
    EXPECT_EQ(b.f.chkAttivo[3], 0);
    EXPECT_TRUE(b.f.List2.empty());
    EXPECT_EQ(b.f.condizioni()->numFiltri(), 0);
    EXPECT_EQ(b.f.txtSomma[0], "88");
}
