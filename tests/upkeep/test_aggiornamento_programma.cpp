// The check for a newer program against a local HTTP server only.
#include "upkeep/aggiornamento_programma.h"

#include "archive/server_prova.h"
#include "core/interfaccia_scriptata.h"
#include "support/cartella.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace zef {
namespace {

// A program file as the build makes it: bytes around the version marker.
std::string Programma(const std::string& versione) {
    return std::string("\x7f" "ELF...codice...") + "\x01ZEF-VERSIONE\x02" + versione + "\x03" + "...altro";
}

void Scrivi(const std::string& percorso, const std::string& testo) { std::ofstream(percorso, std::ios::binary) << testo; }

struct Controllo : ::testing::Test {
    prova::CartellaTemporanea dir;
    prova::ServerProva server;
    ScaricatoreCurl curl{5};
    InterfacciaScriptata ui;
    int avvii = 0;
    EsitoControllo esegui(bool chiedi = true) {
        return ControllaAggiornamento(dir.p.string(), curl, ui, "Zefiranto 2.0", [this] { ++avvii; }, chiedi);
    }
};

TEST(VersioneFile, ReadFromTheMarkerOfAnyFile) {
    prova::CartellaTemporanea dir;
    Scrivi(dir / "a", Programma("3.1.4"));
    EXPECT_EQ(VersioneFile(dir / "a"), "3.1.4");
    Scrivi(dir / "b", "nessun marcatore qui");
    EXPECT_EQ(VersioneFile(dir / "b"), "");
    EXPECT_EQ(VersioneFile(dir / "manca"), "");
    Scrivi(dir / "c", std::string("\x01ZEF-VERSIONE\x02") + "x.y" + "\x03");
    EXPECT_EQ(VersioneFile(dir / "c"), "");
    EXPECT_EQ(VersioneCorrente(), "2.0.0");
    // The program itself carries its own.
    EXPECT_EQ(VersioneFile(std::string(ZEF_DATI_BIN) + "/zefiranto-cli"), VersioneCorrente());
}

TEST_F(Controllo, WithoutUpdateTxtNothingGoesToTheNetwork) {
    server.imposta("/nuovo", {200, Programma("9.9.9"), ""});
    EsitoControllo e = esegui();
    EXPECT_FALSE(e.eseguito);
    EXPECT_TRUE(server.richieste().empty());
    EXPECT_TRUE(ui.box.empty());
}

TEST_F(Controllo, ANewerOrLowerVersionAsksAndYesStartsTheUpdater) {
    server.imposta("/nuovo", {200, Programma("2.1.0"), ""});
    Scrivi(dir / "update.txt", server.url() + "/nuovo\r\nzefiranto\r\n");
    ui.risposte = {Risposta::Si};
    EsitoControllo e = esegui();
    EXPECT_TRUE(e.nuova);
    EXPECT_EQ(e.versioneDisponibile, "2.1.0");
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "nuova versione disponibile di Zefiranto 2.0\r\nAggiornare adesso?");
    EXPECT_EQ(ui.box[0].pulsanti, Pulsanti::SiNo);
    EXPECT_EQ(avvii, 1);
    EXPECT_TRUE(std::filesystem::exists(dir.p / "zefiranto.upd"));  // left for the updater
    // A lower version counts as new too; No leaves things as they are.
    server.imposta("/nuovo", {200, Programma("1.9.9"), ""});
    ui.risposte = {Risposta::No};
    e = esegui();
    EXPECT_TRUE(e.nuova);
    EXPECT_EQ(avvii, 1);
}

TEST_F(Controllo, TheSameVersionSaysNothing) {
    server.imposta("/nuovo", {200, Programma(VersioneCorrente()), ""});
    Scrivi(dir / "update.txt", server.url() + "/nuovo\nzefiranto\n");
    EsitoControllo e = esegui();
    EXPECT_TRUE(e.eseguito);
    EXPECT_FALSE(e.nuova);
    EXPECT_TRUE(ui.box.empty());
}

TEST_F(Controllo, AOneLineFileNamesTheCopyDotUpd) {
    server.imposta("/nuovo", {200, Programma("2.0.1"), ""});
    Scrivi(dir / "update.txt", server.url() + "/nuovo");
    EsitoControllo e = esegui(false);
    EXPECT_TRUE(e.nuova);
    EXPECT_TRUE(std::filesystem::exists(dir.p / ".upd"));
    EXPECT_TRUE(ui.box.empty());  // not asked
}

TEST_F(Controllo, AnUnreachableEndpointUsesAnOldCopyOrEndsSilently) {
    Scrivi(dir / "update.txt", "http://127.0.0.1:1/nuovo\nzefiranto\n");
    EsitoControllo e = esegui();
    EXPECT_TRUE(e.eseguito);
    EXPECT_EQ(e.versioneDisponibile, "");
    EXPECT_TRUE(ui.box.empty());
    EXPECT_FALSE(std::filesystem::exists(dir.p / "zefiranto.upd"));
    // An older copy lies there: compared all the same.
    Scrivi(dir / "zefiranto.upd", Programma("1.0.0"));
    ui.risposte = {Risposta::No};
    e = esegui();
    EXPECT_EQ(e.versioneDisponibile, "1.0.0");
    EXPECT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(VersioneFile(dir / "zefiranto.upd"), "1.0.0");  // not overwritten by the failure
}

}  // namespace
}  // namespace zef
