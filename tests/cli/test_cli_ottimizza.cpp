// zefiranto-cli ottimizza: both tasks, the guarantee checked, bad input refused.
#include "support/cartella.h"
#include "support/esegui_cli.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zef {
namespace {

using prova::Esegui;
using prova::Esito;

TEST(CliOttimizza, CoverOfTheFanoPlane) {
    prova::CartellaTemporanea cartella;
    const std::string out = cartella / "f.zfr";
    Esito e = Esegui("ottimizza --copertura --pronostico 1-7 --k 3 --garanzia 2 --passi 100000 -o " + out);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_NE(e.uscita.find("LIMITE: 7\n"), std::string::npos) << e.uscita;
    EXPECT_NE(e.uscita.find("OTTIMIZZATE: 7\n"), std::string::npos) << e.uscita;
    // The saved list keeps the guarantee for the ordinary check as well.
    Esito v = Esegui("verifica " + out + " --garanzia 2");
    EXPECT_EQ(v.stato, 0) << v.uscita;
    const std::string lista = Esegui("lista " + out).uscita;
    EXPECT_EQ(std::count(lista.begin(), lista.end(), '\n'), 7) << lista;
}

TEST(CliOttimizza, ReductionOfASavedSystem) {
    prova::CartellaTemporanea cartella;
    const std::string sistema = cartella / "s.zfr", out = cartella / "o.zfr";
    ASSERT_EQ(Esegui("sviluppa --pronostico 1-10 --k 4 -o " + sistema).stato, 0);
    Esito e = Esegui("ottimizza " + sistema + " --garanzia 3 --passi 20000 --seme 3 -o " + out);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_EQ(e.uscita.rfind("INIZIALE: ", 0), 0u) << e.uscita;
    EXPECT_EQ(e.uscita.find("LIMITE"), std::string::npos);
    EXPECT_NE(e.uscita.find("OTTIMIZZATE: "), std::string::npos);
    EXPECT_EQ(Esegui("verifica " + out + " --garanzia 3").stato, 0);
}

TEST(CliOttimizza, BadInputExitsOne) {
    prova::CartellaTemporanea cartella;
    for (const std::string& a : {std::string("--copertura --pronostico 1-7 --k 3 --garanzia 7"),
                                 std::string("--copertura --pronostico 1-7 --k 3 --garanzia 3"),
                                 std::string("--copertura --k 3 --garanzia 2"),
                                 std::string("--garanzia 3"),
                                 std::string("--copertura --pronostico 1-7 --k 3 --garanzia 2 --secondi 0")}) {
        Esito e = Esegui("ottimizza " + a);
        EXPECT_EQ(e.stato, 1) << a << "\n" << e.uscita;
    }
}

}  // namespace
}  // namespace zef
