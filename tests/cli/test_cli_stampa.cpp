// zefiranto-cli stampa: the listing's lines, the slips' positions, the PDFs, and
// the refusals.

#include "core/interfaccia_scriptata.h"
#include "files/filesistema.h"
#include "printing/aiuti_stampa.h"
#include "printing/tabulato.h"
#include "reduction/percentuali.h"
#include "support/cartella.h"
#include "support/esegui_cli.h"
#include "support/pdf_prova.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <algorithm>
#include <fstream>

using namespace zef;
using prova::Esegui;
using prova::Esito;

namespace {

struct CliStampa : ::testing::Test {
    prova::CartellaTemporanea c;
    std::string zfr = c / "sistema.zfr";
    std::string cooxy = c / "cooxy.txt";

    // A system on Bari with 1,00 on the ambo, saved as the program saves it.
    void Salva(const std::vector<std::string>& righe, int k = 2, bool puntata = true) {
        Sistema s;
        prova::ImpostaPronostico(s, {7, 12, 30, 42, 55});
        s.form2.Option1.fill(false);
        s.form2.Option1[0] = true;
        if (puntata) {
            s.form2.Check[1] = 1;
            s.form2.testi[1] = "1.00";
            s.Command2 = "Bari, , Ambo € 1.00, , , ";
            s.CostoColonna = Currency::daInteri(1);
        }
        prova::ImpostaLista(s, k, righe);
        // The rows are also the columns in memory, as after VISUALIZZA.
        s.colonne.dimensiona(k, 64);
        for (const std::string& r : righe) {
            ++s.NumColonne;
            for (int p = 1; p <= k; ++p) s.colonne.set(p, s.NumColonne, static_cast<uint8_t>(NumeroInRiga(r, p)));
        }
        ScriviSistema(s, zfr);
        std::ofstream(cooxy) << "3\n4\n6.5\n7.25\n";
    }
};

}  // namespace

TEST_F(CliStampa, TabulatoComeTesto) {
    Salva({" 7 12 ", "30 42 ", "42 55 ", " 7 55 "});
    Esito e = Esegui("stampa " + zfr + " --tabulato --pronostico --giocate --testo");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    Sistema s;
    InterfacciaScriptata ui;
    LeggiSistema(s, ui, zfr);
    s.FileName = zfr;  // opened, so named
    StampanteRegistrata attesa;
    StampaTabulato(s, {true, false, true}, DataCortaLocale(), attesa);
    EXPECT_EQ(e.uscita, RigheStampate(attesa.operazioni));
    EXPECT_NE(e.uscita.find("\n    NOME DEL SISTEMA: " + zfr.substr(0, 50) + "\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("\n\f\n\n\n\n     Giocate \n\n     7 12      30 42      42 55 \n     7 55 \n\n"),
              std::string::npos);
    EXPECT_EQ(e.uscita.find("CONDIZIONI"), std::string::npos);

    // Nothing chosen: the heading and the two lines of asterisks.
    e = Esegui("stampa " + zfr + " --tabulato --testo");
    EXPECT_EQ(std::count(e.uscita.begin(), e.uscita.end(), '\n'), 12);
}

TEST_F(CliStampa, TabulatoConLePercentuali) {
    Salva({" 7 12 30 ", "42 55  7 ", "12 30 42 "}, 3);
    const Esito e = Esegui("stampa " + zfr + " --tabulato --condizioni --percentuali --testo");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    Sistema s;
    InterfacciaScriptata ui;
    LeggiSistema(s, ui, zfr);
    Form8(s, ui).avviaEdEsegui();
    ASSERT_TRUE(s.PercentualiValide);
    EXPECT_NE(e.uscita.find("\n     PERCENTUALI DI VINCITA\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("\n     GARANZIA MASSIMA: " + s.form8.GaranziaMax + "\n"), std::string::npos);
    const std::string terno = "     ¦ Terno     ¦ ";
    const size_t i = e.uscita.find(terno);
    ASSERT_NE(i, std::string::npos);
    std::string attesa = terno;
    for (int L = 5; L >= 2; --L) {
        std::string cella = s.form8.Perc[2][L];
        cella.resize(12, ' ');
        attesa += cella + " ¦ ";
    }
    EXPECT_EQ(e.uscita.substr(i, e.uscita.find('\n', i) - i), attesa);
    // Without the flag the percentages are not valid, and the section leaves them out.
    EXPECT_EQ(Esegui("stampa " + zfr + " --tabulato --condizioni --testo").uscita.find("PERCENTUALI"), std::string::npos);
}

TEST_F(CliStampa, PosizioniDelleSchedine) {
    Salva({" 7 42 ", "12 30 "});
    Esito e = Esegui("stampa " + zfr + " --schedine --cooxy " + cooxy + " --concorsi 5 --posizioni");
    ASSERT_EQ(e.stato, 0) << e.uscita;
    // T 3, L 4, V 6.5, H 7.25; the ambo's 1,00 rebuilt from the saved stake.
    EXPECT_EQ(e.uscita,
              "SCHEDA 1\n"
              "TESTO 9.00 13.00 Scheda n.1 €.1\n"
              "SEGNO 92.09 23.00\n"
              "SEGNO 67.60 107.70\n"
              "SEGNO 49.75 23.00\n"
              "SEGNO 13.50 49.00\n"
              "SEGNO 69.60 159.70\n"
              "SCHEDA 2\n"
              "TESTO 9.00 13.00 Scheda n.2 €.1\n"
              "SEGNO 92.09 23.00\n"
              "SEGNO 67.60 107.70\n"
              "SEGNO 13.50 29.50\n"
              "SEGNO 71.50 36.00\n"
              "SEGNO 69.60 159.70\n");
    e = Esegui("stampa " + zfr + " --schedine --cooxy " + cooxy + " --da 2 --a 2 --posizioni");
    EXPECT_EQ(e.uscita,
              "SCHEDA 2\n"
              "TESTO 9.00 13.00 Scheda n.2 €.1\n"
              "SEGNO 92.09 23.00\n"
              "SEGNO 67.60 107.70\n"
              "SEGNO 13.50 29.50\n"
              "SEGNO 71.50 36.00\n");
}

TEST_F(CliStampa, Rifiuti) {
    Salva({" 7 42 ", "12 30 "}, 2, false);
    Esito e = Esegui("stampa " + zfr + " --schedine --posizioni");
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.uscita, "Errore: Bisogna impostare una puntata prima di stampare il sistema!\n");
    // The listing is not refused at cost 0.
    EXPECT_EQ(Esegui("stampa " + zfr + " --tabulato --testo").stato, 0);

    Salva({" 7 42 ", "12 30 "});
    for (const std::string intervallo : {"--da 2 --a 1", "--da 0 --a 1", "--a 3", "--da x"}) {
        e = Esegui("stampa " + zfr + " --schedine --posizioni " + intervallo);
        EXPECT_EQ(e.stato, 1) << intervallo;
        EXPECT_NE(e.uscita.find(intervallo == std::string("--da x") ? "Valore non valido per --da"
                                                                    : "Intervallo di schede non valido"),
                  std::string::npos)
            << e.uscita;
    }
    e = Esegui("stampa " + zfr + " --schedine --posizioni --concorsi 7");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.uscita.find("Numero di concorsi non valido"), std::string::npos);
    EXPECT_EQ(Esegui("stampa " + zfr + " --schedine --testo").stato, 1);
    EXPECT_EQ(Esegui("stampa " + zfr + " --tabulato --posizioni").stato, 1);
    EXPECT_EQ(Esegui("stampa " + zfr + " --testo").stato, 1);
    EXPECT_EQ(Esegui("stampa " + zfr + " --tabulato").stato, 1);
    EXPECT_EQ(Esegui("stampa " + zfr + " --schedine --posizioni --cooxy " + (c / "manca.txt")).stato, 1);

    Salva({});
    e = Esegui("stampa " + zfr + " --tabulato --testo");
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.uscita, "Errore: Nessuna giocata presente in memoria!\n");
}

TEST_F(CliStampa, PdfDelTabulatoEDelleSchedine) {
    // The PDF writer is a Qt module: a build without the windows has none.
    if (!std::filesystem::exists(std::string(ZEF_DATI_BIN) + "/zefiranto-pdf.so")) GTEST_SKIP() << "senza zefiranto-pdf.so";
    Salva({" 7 12 ", "30 42 ", "42 55 "});
    const std::string tab = c / "tabulato.pdf", sch = c / "schedine.pdf";
    Esito e = Esegui("stampa " + zfr + " --tabulato --pronostico --giocate --pdf " + tab);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_EQ(e.uscita, "");
    const auto righe = prova::RighePdf(tab);
    auto riga = [&](const std::string& t) {
        return std::any_of(righe.begin(), righe.end(), [&](const std::string& r) { return Trim(r) == t; });
    };
    EXPECT_TRUE(riga("Zefiranto 2.0"));
    EXPECT_TRUE(riga("Elaboratore di sistemi avanzati per Lotto"));
    EXPECT_TRUE(riga("7 12      30 42      42 55"));
    EXPECT_TRUE(riga("* -- * -- * -- * -- * -- * -- *  7 * -- * -- * --"));
    EXPECT_EQ(prova::PaginePdf(tab), 2);

    e = Esegui("stampa " + zfr + " --schedine --cooxy " + cooxy + " --pdf " + sch);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_EQ(prova::PaginePdf(sch), 3);
    const prova::Pagina p = prova::PaginaPdf(sch, 2);
    // Slip 2 holds 30 and 42. A mark's middle lies 0.38 em right of and 0.6 em below
    // its position (9 points: 1.21 and 1.91 mm).
    auto nero = [&](double x, double y) { return p.mm(x + 1.21, y + 1.91) < 80; };
    EXPECT_TRUE(nero(-1 + 7.25 * 10, 23 + 6.5 * 2)) << "30";
    EXPECT_TRUE(nero(-1 + 7.25 * 2, 23 + 6.5 * 4)) << "42";
    EXPECT_FALSE(nero(-1 + 7.25 * 7, 23)) << "7 is on slip 1";
    EXPECT_TRUE(nero(92.09, 23)) << "Bari";
    // The command line loads no Qt of its own.
    EXPECT_EQ(prova::Comando("ldd " + std::string(ZEF_DATI_BIN) + "/zefiranto-cli | grep -c libQt"), "0\n");
    // A PDF that cannot be written.
    e = Esegui("stampa " + zfr + " --tabulato --pdf " + (c / "manca/x.pdf"));
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.uscita.find("Impossibile scrivere il file"), std::string::npos) << e.uscita;
}
