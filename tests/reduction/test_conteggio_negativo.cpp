// A development that ends on its first candidate leaves the count at -1 (one column
// fewer than none). Every command that reads the count takes it for an empty store:
// a message instead of a crash, and a file that reads back.
#include "core/form1.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "reduction/form5.h"
#include "reduction/form9.h"
#include "reduction/percentuali.h"
#include "support/cartella.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

namespace zef {
namespace {

// The state such a development leaves: forecast 1..8 in SESTINE, count -1.
void SviluppoFinitoSubito(Sistema& s) {
    prova::ImpostaPronostico(s, prova::Numeri(8));
    s.SviluppoK = 6;
    s.colonne.dimensiona(6, 16);
    s.NumColonne = -1;
    s.NumRidotte = 0;
    s.pannelli[0] = pannello::Condizionate(-1);
}

TEST(ConteggioNegativo, EveryCommandTakesItForAnEmptyStore) {
    Sistema s;
    InterfacciaScriptata ui;
    SviluppoFinitoSubito(s);

    Visualizza(s, ui);
    EXPECT_EQ(ui.ultimoBox().testo, "Nessuna giocata presente in memoria!");
    EXPECT_EQ(s.MSFlexGrid1.Rows(), 0);

    EXPECT_FALSE(ClickRiduci(s, ui));
    EXPECT_NE(ui.ultimoBox().testo.find("Nessuna giocata condizionata"), std::string::npos);
    EXPECT_FALSE(MenuGaranzia(s, ui, 3));

    EXPECT_FALSE(MenuInformazioni(s, ui));
    EXPECT_NE(ui.ultimoBox().testo.find("Nessuna giocata condizionata"), std::string::npos);

    Form1 f1(s, ui);
    bool aperta = false;
    f1.mostraForm5 = [&](int) { aperta = true; };
    f1.clickCommand8();
    EXPECT_FALSE(aperta);

    const size_t prima = ui.box.size();
    Form8 f8(s, ui);
    EXPECT_FALSE(f8.VisualizzaPercentuali());
    EXPECT_GT(ui.box.size(), prima);
}

TEST(ConteggioNegativo, SavedFileReadsBackEmpty) {
    prova::CartellaTemporanea cartella;
    Sistema s;
    InterfacciaScriptata ui;
    SviluppoFinitoSubito(s);
    const std::string file = cartella / "s.zfr";
    ScriviSistema(s, file);
    Sistema t;
    LeggiSistema(t, ui, file);
    EXPECT_TRUE(ui.box.empty()) << ui.ultimoBox().testo;
    EXPECT_EQ(t.NumColonne, 0);
    EXPECT_EQ(t.SviluppoK, 6);
    EXPECT_EQ(t.NumPronostico, 8);
}

}  // namespace
}  // namespace zef
