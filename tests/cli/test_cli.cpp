// zefiranto-cli as a script would run it: output lines and exit status.

#include "support/esegui_cli.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

using zef::prova::Esegui;
using zef::prova::Esito;

TEST(CliSviluppa, ContaEStampaLeColonne) {
    Esito e = Esegui("sviluppa --pronostico 5,10,15,20 --k 3 --colonne");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita,
              "CONDIZIONATE: 4\nESAMINATE: 4\n"
              " 5  10 15\n 5  10 20\n 5  15 20\n 10 15 20\n");
    e = Esegui("sviluppa --pronostico 1-20 --k QUARTINE");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "CONDIZIONATE: 4845\nESAMINATE: 4845\n");
}

TEST(CliSviluppa, MagazzinoPienoSuUnaRigaPropria) {
    Esito e = Esegui("sviluppa --pronostico 1-90 --k 5");
    EXPECT_EQ(e.stato, 0);
    EXPECT_NE(e.uscita.find("CONDIZIONATE: 20000000\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("ESAMINATE: 20000001\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("\nMEMORIA ESAURITA\n"), std::string::npos);
}

TEST(CliSviluppa, InputSbagliatoDaMessaggioEUscitaNonZero) {
    for (const char* argomenti :
         {"sviluppa --pronostico 1,2,95 --k 2", "sviluppa --pronostico 1,2,2 --k 2", "sviluppa --pronostico 1,x --k 2",
          "sviluppa --pronostico 1,2,3 --k 5", "sviluppa --pronostico 1-9 --k UNDICINE",
          "sviluppa --pronostico 1-9 --k 4 --fisse 1,2,3,4", "sviluppa --pronostico 1-9 --k 4 --fisse 12",
          "sviluppa --k 4", "nessuno"}) {
        Esito e = Esegui(argomenti);
        EXPECT_NE(e.stato, 0) << argomenti;
        EXPECT_FALSE(e.uscita.empty()) << argomenti;
        EXPECT_EQ(e.uscita.find("CONDIZIONATE"), std::string::npos) << argomenti;
    }
    EXPECT_NE(Esegui("sviluppa --pronostico 1,2,3 --k 5").uscita.find("Non è possibile sviluppare"), std::string::npos);
}
