// zefiranto-cli lista and info on saved systems: the program's own, one typed by
// hand as the old platform wrote it, and bad ones.

#include "support/cartella.h"
#include "support/esegui_cli.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

using zef::prova::Esegui;
using zef::prova::Esito;

namespace {

using Cartella = zef::prova::CartellaTemporanea;

}  // namespace

TEST(CliFile, ListaEInfoDiUnSistemaSviluppatoESalvato) {
    Cartella c;
    const std::string f = c.file("quattro.zfr");
    Esito e = Esegui("sviluppa --pronostico 5,10,15,20 --k 3 --visualizza -o " + f);
    ASSERT_EQ(e.stato, 0) << e.uscita;

    e = Esegui("lista " + f);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, " 5  10 15\n 5  10 20\n 5  15 20\n 10 15 20\n");

    e = Esegui("info " + f);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "PRONOSTICO: 5 10 15 20\nSVILUPPO: 3\nCONDIZIONATE: 4\nRIDOTTE: 0\nRIGHE: 4\nCOSTO: 0\n");

    // without VISUALIZZA the list is empty, the columns are there
    const std::string g = c.file("senza_lista.zfr");
    ASSERT_EQ(Esegui("sviluppa --pronostico 1,2,3,4,5 --k 4 -o " + g).stato, 0);
    e = Esegui("lista " + g);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "");
    e = Esegui("lista --colonne " + g);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, " 1  2  3  4 \n 1  2  3  5 \n 1  2  4  5 \n 1  3  4  5 \n 2  3  4  5 \n");
}

TEST(CliFile, UnFileDiWindowsConLettereAccentate) {
    Cartella c;
    std::string b;
    for (int i = 1; i <= 90; ++i) b += (i == 3 || i == 33 || i == 63) ? "1\r\n" : "0\r\n";
    b += "2\r\n\"CONDIZIONATE: 3\"\r\n\"RIDOTTE: 1\"\r\n\"COSTO SISTEMA \x80: 1\"\r\n";
    b += "2\r\n3\r\n3\r\n33\r\n3\r\n63\r\n33\r\n63\r\n1\r\n3\r\n33\r\n";
    b += "2\r\n\" 3  33\"\r\n\"Per\xF2 \xE8 gi\xE0 \x80\"\r\n";
    for (int i = 0; i <= 10; ++i) b += "#FALSE#\r\n";
    b += "0\r\n0\r\n0\r\n0\r\n\"0,00\"\r\n\"0,00\"\r\n\"0,00\"\r\n\"0,00\"\r\n";
    b += "\"Tutte le ruote, Estratto \x80 0,50, , , , \"\r\n0.5\r\n#TRUE#\r\n0\r\n";
    std::ofstream(c.file("w.zfr"), std::ios::binary) << b;

    Esito e = Esegui("lista " + c.file("w.zfr"));
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, " 3  33\nPerò è già €\n");
    e = Esegui("lista --ridotte " + c.file("w.zfr"));
    EXPECT_EQ(e.uscita, " 3  33\n");
    e = Esegui("info " + c.file("w.zfr"));
    EXPECT_EQ(e.stato, 0);
    // two rows at 0.5 each
    EXPECT_EQ(e.uscita, "PRONOSTICO: 3 33 63\nSVILUPPO: 2\nCONDIZIONATE: 3\nRIDOTTE: 1\nRIGHE: 2\nCOSTO: 1\n");
}

TEST(CliFile, FileCattiviEsconoConUnMessaggio) {
    Cartella c;
    std::ofstream(c.file("corto.zfr"), std::ios::binary) << "0\r\n1\r\n";
    std::ofstream(c.file("testo.zfr"), std::ios::binary) << "Lista della spesa\n";
    for (const char* nome : {"corto.zfr", "testo.zfr", "manca.zfr"}) {
        for (const char* cmd : {"lista ", "info "}) {
            Esito e = Esegui(cmd + c.file(nome));
            EXPECT_EQ(e.stato, 1) << cmd << nome;
            EXPECT_NE(e.uscita.find("Si è verificato l'errore seguente: "), std::string::npos) << e.uscita;
        }
    }
    EXPECT_NE(Esegui("lista " + c.file("manca.zfr")).uscita.find("Impossibile trovare il file"), std::string::npos);
    EXPECT_NE(Esegui("lista " + c.file("corto.zfr")).uscita.find("Input oltre la fine del file"), std::string::npos);
    EXPECT_NE(Esegui("lista").stato, 0);
}
