// Condition files: applied through the dialog as a user would, bad files refused whole.
#include "conditions/form28.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

using namespace zef;

namespace {
struct Banco {
    Sistema s;
    InterfacciaScriptata ui;
    Form28 f{s, ui};
    std::string file = ::testing::TempDir() + "condizioni_prova.json";
    Banco() {
        prova::ImpostaPronostico(s, {3, 8, 15, 22, 40, 41, 77});
        s.SviluppoK = 5;
        s.ResettaCondizioni();
        f.attiva();
    }
    bool carica(const std::string& testo) {
        std::ofstream(file) << testo;
        return CaricaCondizioniJson(file, f, ui);
    }
};
}  // namespace

TEST(CondizioniJson, ApplicaComeUnUtente) {
    Banco b;
    ASSERT_TRUE(b.carica(R"({
      "chkAttivo": [1,0,0,1,1,1,1,0,0,0,1,1,0,0,0],
      "fisse": [8, 40],
      "Combo1": 1, "Combo3": 0,
      "txtSomma": ["266", "300"],
      "txtPariMin": "1", "txtPariMax": "7",
      "colonneFiltro": [{"numeri": [3, 8], "punti": [1,1,0,0,0,0]}],
      "sezioni": [{"da": "1", "a": "30", "min": "0", "max": "2", "cmin": "1", "cmax": "2"}],
      "sequele": [{"segni": ["P", "D", ""], "passo": 1, "presenze": [0,1,0,0,0,0]}],
      "posizioni": [{"posizione": 2, "attivo": 1, "numeri": [8, 15]}]
    })"));
    auto c = b.f.condizioni();
    EXPECT_TRUE(c->CondizioneAttiva[1]);
    EXPECT_TRUE(c->CondizioneAttiva[4]);
    EXPECT_EQ(b.s.NumeriFissi, (std::vector<int16_t>{0, 8, 40}));
    EXPECT_EQ(c->Consecutivita[1], 1);
    EXPECT_EQ(c->Consecutivita[3], 0);
    EXPECT_EQ(c->SommaGlobale[1], 266);  // both typed before leaving: above the old maximum
    EXPECT_EQ(c->SommaGlobale[2], 300);
    EXPECT_EQ(b.f.txtPariMax, "5");  // left the field: limited
    EXPECT_EQ(c->PariDispari[2], 5);
    ASSERT_EQ(c->numFiltri(), 1);
    EXPECT_EQ(b.f.List2[0], "3,8,  Punti: 0,1,");
    EXPECT_EQ(c->Sezioni[1], (std::array<int16_t, 7>{0, 1, 30, 0, 2, 0, 1}));
    EXPECT_EQ(b.f.List4[0], "PD;  Passo: 1; Presenze: 1,");
    EXPECT_EQ(c->PosizioniNumeri[2][91], 1);
    EXPECT_EQ(c->PosizioniNumeri[2][15], 1);
    EXPECT_EQ(c->PosizioniNumeri[2][16], 0);
    EXPECT_TRUE(b.ui.box.empty());

    // saved and loaded again in a fresh dialog: the same tables
    ASSERT_TRUE(SalvaCondizioniJson(b.file, b.f, b.ui));
    Banco d;
    std::ifstream in(b.file);
    std::string testo((std::istreambuf_iterator<char>(in)), {});
    ASSERT_TRUE(d.carica(testo));
    auto e = d.f.condizioni();
    EXPECT_EQ(e->CondizioneAttiva, c->CondizioneAttiva);
    EXPECT_EQ(e->ColonneFiltro, c->ColonneFiltro);
    EXPECT_EQ(e->Sezioni, c->Sezioni);
    EXPECT_EQ(e->SequelePD, c->SequelePD);
    EXPECT_EQ(e->PosizioniNumeri, c->PosizioniNumeri);
    EXPECT_EQ(e->SommaGlobale, c->SommaGlobale);
    EXPECT_EQ(d.s.NumeriFissi, b.s.NumeriFissi);
}

TEST(CondizioniJson, FileCattiviNonCambianoNulla) {
    for (const char* testo : {"non json", "[1,2]", R"({"chkAttivo": [1,0]})", R"({"Combo1": 9})",
                              R"({"fisse": [5]})", R"({"txtPariMin": 3})", R"({"txtSomma": ["1a", "2"]})",
                              R"({"colonneFiltro": [{"numeri": [90], "punti": [0,0,0,0,0,0]}]})",
                              R"({"sconosciuta": 1})", R"({"posizioni": [{"posizione": 11}]})",
                              R"({"chkAttivo": [1,1,1,1,1,1,1,1,1,1,1,1,1,1,1], "Combo2": -1})"}) {
        Banco b;
        EXPECT_FALSE(b.carica(testo)) << testo;
        ASSERT_EQ(b.ui.box.size(), 1u) << testo;
        EXPECT_EQ(b.ui.box[0].testo.rfind("File delle condizioni non valido: ", 0), 0u) << b.ui.box[0].testo;
        EXPECT_EQ(b.ui.box[0].icona, Icona::Critico);
        EXPECT_EQ(b.f.chkAttivo[0], 0) << testo;
        for (int i = 1; i <= 15; ++i) EXPECT_FALSE(b.f.condizioni()->CondizioneAttiva[i]);
    }
}

// Conditions set from the archive name places' numbers of all ninety and may leave
// Combo7 with no choice; fixed numbers must still be in the forecast.
TEST(CondizioniJson, PosizioniOltreIlPronosticoEDCombo7Vuota) {
    Banco b;
    ASSERT_TRUE(b.carica(R"({"chkAttivo": [0,0,0,0,0,0,0,0,0,1,1,0,0,0,0], "Combo7": -1,
                             "posizioni": [{"posizione": 1, "attivo": 1, "numeri": [3, 89, 90]}]})"));
    auto c = b.f.condizioni();
    EXPECT_EQ(c->PosizioniNumeri[1][3], 1);
    EXPECT_EQ(c->PosizioniNumeri[1][90], 1);
    EXPECT_EQ(c->PosizioniNumeri[1][8], 0);
    EXPECT_EQ(c->InterruzioniPD[6], 0);  // no change of parity allowed in a row
    EXPECT_TRUE(b.ui.box.empty());
    for (const char* testo : {R"({"posizioni": [{"posizione": 1, "numeri": [91]}]})",
                              R"({"posizioni": [{"posizione": 1, "numeri": [0]}]})", R"({"fisse": [90]})",
                              R"({"Combo7": -2})", R"({"Combo5": -1})"}) {
        Banco d;
        EXPECT_FALSE(d.carica(testo)) << testo;
    }
}
