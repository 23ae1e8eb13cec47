// zefiranto-cli riduci, copertura, percentuali: output, exit status, bad input.

#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "reduction/form19.h"
#include "reduction/riduzione.h"

#include <gtest/gtest.h>

#include "support/esegui_cli.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>

using zef::prova::Esegui;
using zef::prova::Esito;

namespace {

// Reduced count of the integral development of 1..n in k, computed in process.
long Ridotte(int n, int k, int g, bool accurato) {
    zef::Sistema s;
    zef::InterfacciaScriptata ui;
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(k, 1 << 20);
    std::vector<int> idx(k);
    for (int i = 0; i < k; ++i) idx[i] = i;
    for (;;) {
        ++s.NumColonne;
        for (int p = 0; p < k; ++p) s.colonne.set(p + 1, s.NumColonne, static_cast<uint8_t>(idx[p] + 1));
        int i = k - 1;
        while (i >= 0 && idx[i] == n - k + i) --i;
        if (i < 0) break;
        ++idx[i];
        for (int j = i + 1; j < k; ++j) idx[j] = idx[j - 1] + 1;
    }
    int16_t gg = static_cast<int16_t>(g), kk = static_cast<int16_t>(k);
    if (accurato) zef::RiduciAccurato(s, ui, gg, kk);
    else zef::RiduciRapido(s, ui, gg, false);
    return s.NumRidotte;
}

}  // namespace

TEST(CliRiduci, ContiDaPronosticoEDaFile) {
    Esito e = Esegui("riduci -p 1-12 -k 5 -g 3 --accurato");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "RIDOTTE: " + std::to_string(Ridotte(12, 5, 3, true)) + "\n");
    e = Esegui("riduci -p 1-12 -k 5 -g 4 --non-100");  // g 3, fast
    EXPECT_EQ(e.uscita, "RIDOTTE: " + std::to_string(Ridotte(12, 5, 3, false)) + "\n");

    auto dir = std::filesystem::temp_directory_path() / ("zef_rid_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string in = (dir / "in.zfr").string(), out = (dir / "out.zfr").string();
    ASSERT_EQ(Esegui("sviluppa -p 1-10 -k 4 -o " + in).stato, 0);
    e = Esegui("riduci " + in + " -g 3 -o " + out);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "RIDOTTE: " + std::to_string(Ridotte(10, 4, 3, false)) + "\n");
    e = Esegui("percentuali " + out);
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita.substr(0, 26), "Cinquina: - | - | - | -\nQu");
    EXPECT_NE(e.uscita.find("\nGARANZIA MASSIMA: "), std::string::npos);
    EXPECT_NE(e.uscita.find("\nGARANZIA MINIMA: "), std::string::npos);
    e = Esegui("verifica " + out + " -g 3");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "La lista garantisce il terno su tutte le 210 colonne sviluppate.\n");
    e = Esegui("verifica " + out + " -g 4");  // reduced at terno: the quaterna is not kept
    EXPECT_EQ(e.stato, 4);
    EXPECT_EQ(e.uscita.rfind("La lista non garantisce la quaterna: ", 0), 0u);
    EXPECT_EQ(Esegui("verifica " + out + " -g 6").stato, 1);
    std::filesystem::remove_all(dir);
}

TEST(CliRiduci, RifiutoEStatiImpossibili) {
    Esito e = Esegui("riduci -p 1-8 -k 5 -g 5");
    EXPECT_EQ(e.stato, 3);
    EXPECT_EQ(e.uscita, "Non è possibile ridurre questo tipo di sistema.\n");
    for (const char* a : {"riduci -p 1-8 -k 5 -g 4 --accurato --non-100", "riduci -p 1-8 -k 5 -g 2 --non-100",
                          "riduci -p 1-8 -k 5 -g 7", "riduci -g 3", "riduci -p 1-8 -g 3"}) {
        e = Esegui(a);
        EXPECT_EQ(e.stato, 1) << a;
        EXPECT_EQ(e.uscita.find("RIDOTTE"), std::string::npos) << a;
    }
}

TEST(CliCopertura, ConteggiEIntegrali) {
    Esito e = Esegui("copertura -p 5,17,60 -k 3 -g 2 --lista");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "RIDOTTE: 1\nCONDIZIONATE: 1\n 5  17 60\n");
    e = Esegui("copertura -p 1-31 -k 5 -g 2 --integrali no");
    EXPECT_EQ(e.stato, 0);
    EXPECT_NE(e.uscita.find("\nCONDIZIONATE: 0\n"), std::string::npos);
    for (const char* a : {"copertura -p 1-10 -k 3 -g 3", "copertura -p 1-4 -k 5 -g 2", "copertura -p 1-10 -k 5 -g 2 "
                                                                                      "--integrali forse",
                          "copertura -p 1-10 -k 5 -g 2 --fisse 40"}) {
        e = Esegui(a);
        EXPECT_EQ(e.stato, 1) << a;
    }
}

TEST(CliPercentuali, Formato) {
    // All six cinquine of 6 numbers: every draw is in the list; with fewer drawn no
    // higher kind than the draw can win, and the first column holding the whole
    // draw ends each scan, so one win of each kind is guaranteed.
    Esito e = Esegui("percentuali -p 1-6 -k 5");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita,
              "Cinquina: 100 | 0 | 0 | 0\n"
              "Quaterna: 100 | 100 | 0 | 0\n"
              "Terno: 100 | 100 | 100 | 0\n"
              "Ambo: 100 | 100 | 100 | 100\n"
              "GARANZIA MASSIMA: 1 CINQUINA CON 5 NUMERI\n"
              "GARANZIA MINIMA: 1 AMBO CON 2 NUMERI\n");
    // Terzine: the cells for 5 and 4 are never written.
    e = Esegui("percentuali -p 1-5 -k 3");
    EXPECT_EQ(e.uscita.substr(0, 48), "Cinquina: - | - | - | -\nQuaterna: - | - | - | -\n");
}
