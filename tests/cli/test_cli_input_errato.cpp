// Bad input on the command line: a message, a non-zero exit, and no file written.
#include "support/cartella.h"
#include "support/esegui_cli.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zef {
namespace {

TEST(CliInputErrato, ABadDistanceWritesNothing) {
    prova::CartellaTemporanea cartella;
    for (std::string d : {"abc", "-1", "99999999999999999999", "4.5", ""}) {
        const std::string out = cartella / "s.zfr";
        prova::Esito e = prova::Esegui("sviluppa --pronostico 1-8 --k 3 --distanza \"" + d + "\" -o " + out);
        EXPECT_NE(e.stato, 0) << d << "\n" << e.uscita;
        EXPECT_NE(e.uscita.find("Distanza non valida"), std::string::npos) << e.uscita;
        EXPECT_FALSE(std::filesystem::exists(out)) << d;
    }
    // A good one still develops.
    prova::Esito e = prova::Esegui("sviluppa --pronostico 1-8 --k 3 --distanza 1");
    EXPECT_EQ(e.stato, 0) << e.uscita;
    EXPECT_EQ(e.uscita.rfind("CONDIZIONATE: ", 0), 0u) << e.uscita;
}

}  // namespace
}  // namespace zef
