// zefiranto-cli smorfia on a small book and on the book beside the program.
#include "dreambook/libro_prova.h"
#include "support/esegui_cli.h"

#include <gtest/gtest.h>

namespace zef {
namespace {

TEST(CliSmorfia, NumbersObjectsAndNotFound) {
    prova::CartellaTemporanea dir;
    const std::string libro = prova::LibroDiProva(dir);
    prova::Esito e = prova::Esegui("smorfia --libro " + libro + " --soggetto maria");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "NUMERI: 1 3\n");
    e = prova::Esegui("smorfia --libro " + libro + " --soggetto gatto --oggetto \"che dorme\"");
    EXPECT_EQ(e.uscita, "NUMERI: 4 35\n");
    e = prova::Esegui("smorfia --libro " + libro + " --soggetto gatto --oggetto viola");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "OGGETTI:\nbianco\nche dorme\nnero\n");
    e = prova::Esegui("smorfia --libro " + libro + " --soggetto zorro");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.uscita.find("Nome o Soggetto non presente nell'archivio"), std::string::npos);
}

TEST(CliSmorfia, TheShippedBook) {
    // A subject with objects and none given: its objects are offered.
    prova::Esito e = prova::Esegui("smorfia --soggetto Gatta");
    EXPECT_EQ(e.stato, 0) << e.uscita;
    EXPECT_EQ(e.uscita.rfind("OGGETTI:\n", 0), 0u) << e.uscita;
    e = prova::Esegui("smorfia --soggetto Gatta --oggetto nera");
    EXPECT_EQ(e.uscita.rfind("NUMERI: 3 ", 0), 0u) << e.uscita;
    e = prova::Esegui("smorfia --soggetto citta");
    EXPECT_EQ(e.stato, 0) << e.uscita;
}

}  // namespace
}  // namespace zef
