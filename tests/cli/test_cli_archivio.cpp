// zefiranto-cli sviluppa with conditions on the draw archive: --archivio and --ruota.

#include "archive/fonte_estrazioni.h"
#include "conditions/form28.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "support/esegui_cli.h"
#include "support/estrazioni_prova.h"
#include "support/prova_sistema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

using namespace zef;
using prova::CartellaTemporanea;
using prova::Esegui;
using prova::Esito;

namespace {

const char* CondizioneArchivio = R"({"chkAttivo": [0,0,0,0,0,0,0,0,0,0,0,0,1,0,0], "txtNcolonne": "4"})";

void Scrivi(const std::string& percorso, const std::string& testo) { std::ofstream(percorso) << testo; }

std::vector<std::string> Righe(const std::string& testo) {
    std::vector<std::string> v;
    std::stringstream ss(testo);
    std::string r;
    while (std::getline(ss, r)) v.push_back(r);
    return v;
}

// The same development through the library, the draws read from memory: the count
// line, the examined line and the columns, as the command prints them.
std::vector<std::string> SviluppoInProcesso(const std::string& condizioni, FonteEstrazioni& fonte, int ruota,
                                            std::vector<int> pronostico, int k) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, pronostico);
    s.form2.Option1.fill(false);
    s.form2.Option1[ruota] = true;
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = k - 2;
    f20.Text1 = "0";
    {
        Form28 f(s, ui);
        f.archivio = &fonte;
        f.ResettaCondizioni();
        f.attiva();
        EXPECT_TRUE(CaricaCondizioniJson(condizioni, f, ui));
    }
    f20.clickCommand1();
    std::vector<std::string> v = {s.pannelli[0], "ESAMINATE: " + std::to_string(s.ColonneEsaminate)};
    for (int64_t c = 1; c <= s.NumColonne; ++c) v.push_back(TestoRiga(s.colonne.colonna(c), s.SviluppoK));
    return v;
}

// Numbers of 1..30 that wheel `ruota` (1..11) drew in none of the draws with the ids given.
std::vector<int> NumeriMaiEstratti(const std::vector<EstrazioneLetta>& d, int ruota, std::set<long> ids) {
    std::set<int> estratti;
    for (const auto& e : d)
        if (ids.count(e.id))
            for (int p = 1; p <= 5; ++p) estratti.insert(e.numero(ruota, p));
    std::vector<int> v;
    for (int x = 1; x <= 30; ++x)
        if (!estratti.count(x)) v.push_back(x);
    return v;
}

// Every set of three of `numeri`, in the command's column text.
std::vector<std::string> Terzine(const std::vector<int>& numeri) {
    std::vector<std::string> v;
    for (size_t a = 0; a < numeri.size(); ++a)
        for (size_t b = a + 1; b < numeri.size(); ++b)
            for (size_t c = b + 1; c < numeri.size(); ++c) {
                const uint8_t col[3] = {static_cast<uint8_t>(numeri[a]), static_cast<uint8_t>(numeri[b]),
                                        static_cast<uint8_t>(numeri[c])};
                v.push_back(TestoRiga(col, 3));
            }
    return v;
}

}  // namespace

TEST(CliArchivio, LeColonneDelloSviluppoSuArchivioComeInProcesso) {
    CartellaTemporanea dir;
    const auto draws = prova::EstrazioniAMano();
    prova::ArchivioCon(dir / "archivio.db", draws);
    Scrivi(dir / "cond.json", CondizioneArchivio);
    auto memoria = prova::InMemoria(draws);
    const std::string base = "sviluppa -p 1-30 -k 3 --colonne -c " + (dir / "cond.json") + " --archivio " + (dir / "archivio.db");

    for (int ruota : {0, 9, 11}) {
        Esito e = Esegui(base + " --ruota " + std::to_string(ruota));
        ASSERT_EQ(e.stato, 0) << e.uscita;
        auto righe = Righe(e.uscita);
        EXPECT_EQ(righe, SviluppoInProcesso(dir / "cond.json", memoria, ruota, prova::Numeri(30), 3)) << ruota;
        // No column shares a number with the four draws before the newest (ids 8..11);
        // "Tutte" takes Venezia's.
        const int ruotaLetta = ruota == 11 ? 10 : ruota + 1;
        auto attese = Terzine(NumeriMaiEstratti(draws, ruotaLetta, {8, 9, 10, 11}));
        ASSERT_GE(righe.size(), 2u);
        EXPECT_EQ(righe[0], "CONDIZIONATE: " + std::to_string(attese.size())) << ruota;
        EXPECT_EQ(std::vector<std::string>(righe.begin() + 2, righe.end()), attese) << ruota;
    }
    // The wheel defaults to "Tutte".
    EXPECT_EQ(Esegui(base).uscita, Esegui(base + " --ruota 11").uscita);
    EXPECT_NE(Esegui(base + " --ruota 0").uscita, Esegui(base + " --ruota 9").uscita);
}

TEST(CliArchivio, RitardiEFrequenzeComeInProcesso) {
    CartellaTemporanea dir;
    const auto draws = prova::EstrazioniFormula(520);
    prova::ArchivioCon(dir / "archivio.db", draws);
    // Mean delay 0..15 of the last 501 draws, mean frequency (over 41) at least 3 or at most 1.
    Scrivi(dir / "cond.json",
           R"({"chkAttivo": [0,0,0,0,0,0,0,0,0,0,0,0,0,0,1], "txtUltimeEstrazioni": "40",
               "txtRitardoMin": "0", "txtRitardoMax": "15", "txtFrequenzaMin": "3", "txtFrequenzaMax": "1"})");
    auto memoria = prova::InMemoria(draws);
    for (int ruota : {2, 11}) {
        Esito e = Esegui("sviluppa -p 1-25 -k 3 --colonne -c " + (dir / "cond.json") + " --archivio " +
                         (dir / "archivio.db") + " --ruota " + std::to_string(ruota));
        ASSERT_EQ(e.stato, 0) << e.uscita;
        auto righe = Righe(e.uscita);
        EXPECT_EQ(righe, SviluppoInProcesso(dir / "cond.json", memoria, ruota, prova::Numeri(25), 3)) << ruota;
        // the condition took some columns and left some
        EXPECT_NE(righe[0], "CONDIZIONATE: 0") << ruota;
        EXPECT_NE(righe[0], "CONDIZIONATE: 2300") << ruota;
    }
}

TEST(CliArchivio, RuotaFuoriIntervalloEArchivioMancante) {
    CartellaTemporanea dir;
    prova::ArchivioCon(dir / "archivio.db", prova::EstrazioniAMano());
    Scrivi(dir / "cond.json", CondizioneArchivio);
    Scrivi(dir / "testo.db", "questo non è un archivio\n");
    const std::string base = "sviluppa -p 1-30 -k 3 -c " + (dir / "cond.json");
    for (const char* ruota : {"12", "-1", "x", "99", "1.5", "\"\""}) {
        Esito e = Esegui(base + " --archivio " + (dir / "archivio.db") + " --ruota " + ruota);
        EXPECT_NE(e.stato, 0) << ruota;
        EXPECT_NE(e.uscita.find("Ruota non valida"), std::string::npos) << ruota << ": " << e.uscita;
        EXPECT_NE(e.uscita.find("11 Tutte"), std::string::npos) << e.uscita;
        EXPECT_EQ(e.uscita.find("CONDIZIONATE"), std::string::npos) << ruota;
    }
    // A wrong wheel is refused even with no conditions.
    EXPECT_NE(Esegui("sviluppa -p 1-9 -k 2 --ruota 12").stato, 0);

    Esito e = Esegui(base + " --archivio " + (dir / "manca.db"));
    EXPECT_NE(e.stato, 0);
    EXPECT_NE(e.uscita.find("Impossibile aprire l'archivio delle estrazioni: Impossibile trovare il file"),
              std::string::npos)
        << e.uscita;
    EXPECT_EQ(e.uscita.find("CONDIZIONATE"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "manca.db"));  // not made empty on the way

    e = Esegui(base + " --archivio " + (dir / "testo.db"));
    EXPECT_NE(e.stato, 0);
    EXPECT_NE(e.uscita.find("Impossibile aprire l'archivio delle estrazioni: Formato di database non riconosciuto"),
              std::string::npos)
        << e.uscita;
}

TEST(CliArchivio, UnNulloNelleColonneDaUnErroreNonUnCrash) {
    CartellaTemporanea dir;
    prova::ArchivioCon(dir / "archivio.db", prova::EstrazioniAMano());
    // Nazionale over ids 2..11 meets the draws that have none.
    Scrivi(dir / "cond.json", R"({"chkAttivo": [0,0,0,0,0,0,0,0,0,0,0,0,1,0,0], "txtNcolonne": "10"})");
    Esito e = Esegui("sviluppa -p 1-30 -k 3 -c " + (dir / "cond.json") + " --archivio " + (dir / "archivio.db") +
                     " --ruota 10");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.uscita.find("Errore 94: Uso non valido di Null"), std::string::npos) << e.uscita;
}

TEST(CliArchivio, SenzaOpzioneLArchivioDelProgrammaSoloSeServe) {
    // A copy of the program in a folder of its own, with the shipped draws beside it.
    CartellaTemporanea dir;
    namespace fs = std::filesystem;
    fs::copy_file(std::string(ZEF_DATI_BIN) + "/zefiranto-cli", dir / "zefiranto-cli");
    fs::copy_file(std::string(ZEF_DATI_BIN) + "/storico.txt.gz", dir / "storico.txt.gz");
    auto esegui = [&](const std::string& argomenti) {
        Esito e;
        FILE* p = popen((dir / "zefiranto-cli" + " " + argomenti + " 2>&1").c_str(), "r");
        char buf[4096];
        size_t letti;
        while ((letti = fread(buf, 1, sizeof buf, p)) > 0) e.uscita.append(buf, letti);
        int st = pclose(p);
        e.stato = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
        return e;
    };
    // Conditions that do not read the draws leave the archive alone.
    Scrivi(dir / "somma.json", R"({"chkAttivo": [0,0,0,0,0,0,0,0,0,0,0,0,0,1,0], "txtSomma": ["10", "40"]})");
    Esito e = esegui("sviluppa -p 1-20 -k 3 -c " + (dir / "somma.json"));
    ASSERT_EQ(e.stato, 0) << e.uscita;
    EXPECT_FALSE(fs::exists(dir / "archivio.db"));
    // Points on the archive open it, made from the shipped draws, and read it as
    // --archivio naming the same file does.
    Scrivi(dir / "cond.json", CondizioneArchivio);
    const std::string base = "sviluppa -p 1-30 -k 3 --colonne --ruota 4 -c " + (dir / "cond.json");
    e = esegui(base);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    ASSERT_TRUE(fs::exists(dir / "archivio.db"));
    Esito nominato = esegui(base + " --archivio " + (dir / "archivio.db"));
    EXPECT_EQ(e.uscita, nominato.uscita);
    EXPECT_NE(e.uscita.rfind("CONDIZIONATE: 4060", 0), 0u);  // the condition took some columns
}
