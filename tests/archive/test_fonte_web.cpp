// libcurl against a server on 127.0.0.1 started by the test: status, redirects,
// headers, bytes of a download, and a whole update served over HTTP.
#include "aiuto.h"
#include "server_prova.h"

#include "archive/aggiorna.h"
#include "archive/fonte_web.h"
#include "core/interfaccia_scriptata.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace zef;
using prova::CartellaTemporanea;
using prova::ServerProva;

namespace {

std::string Leggi(const std::filesystem::path& p) {
    std::ifstream f(p, std::ios::binary);
    std::ostringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

TEST(FonteCurl, GetHtmlSoloCon200ESeguendoIRinvii) {
    ServerProva s;
    s.imposta("/pagina", {200, "<p>Estrazioni \xC3\xA8 qui</p>", ""});
    s.imposta("/vecchia", {301, "", "/pagina"});
    s.imposta("/errore", {500, "<p>guasto</p>", ""});
    FonteCurl f(5);
    EXPECT_EQ(f.GetHTML(s.url() + "/pagina"), "<p>Estrazioni \xC3\xA8 qui</p>");
    EXPECT_EQ(f.GetHTML(s.url() + "/vecchia"), "<p>Estrazioni \xC3\xA8 qui</p>");
    EXPECT_EQ(f.GetHTML(s.url() + "/manca"), "");
    EXPECT_EQ(f.GetHTML(s.url() + "/errore"), "");
    auto r = s.richieste();
    ASSERT_FALSE(r.empty());
    EXPECT_EQ(r[0].rfind("GET /pagina HTTP/1.1", 0), 0u);
    EXPECT_NE(r[0].find("User-Agent: Mozilla/5.0"), std::string::npos);
    EXPECT_NE(r[0].find("Accept: text/html"), std::string::npos);
}

TEST(FonteCurl, ScaricaScriveIByteEFallisceSenzaServer) {
    ServerProva s;
    std::string byte("riga 1\r\n\x00\xff fine", 15);
    s.imposta("/file?as=TXT&year=2025", {200, byte, ""});
    CartellaTemporanea dir;
    FonteCurl f(5);
    f.Scarica(s.url() + "/file?as=TXT&year=2025", dir / "tmp2025.txt");
    EXPECT_EQ(Leggi(dir / "tmp2025.txt"), byte);
    // A status other than 200 still writes what came back.
    f.Scarica(s.url() + "/manca", dir / "tmp2024.txt");
    EXPECT_EQ(Leggi(dir / "tmp2024.txt"), "<html>non trovata</html>");
    std::string chiuso;
    {
        ServerProva t;
        chiuso = t.url();
    }
    EXPECT_THROW(f.Scarica(chiuso + "/file", dir / "tmp2023.txt"), ErroreEsecuzione);
    EXPECT_EQ(f.GetHTML(chiuso + "/pagina"), "");
}

TEST(FonteCurl, AggiornamentoAttraversoIlServer) {
    ServerProva s;
    const auto pagine = std::filesystem::path(__FILE__).parent_path() / "pagine";
    s.imposta("/risultati/archivio-lotto-2025", {200, Leggi(pagine / "archivio-lotto-2025.html"), ""});
    s.imposta("/lotto/archivio-estrazioni/?as=TXT&year=2025", {200, "testo non letto", ""});
    CartellaTemporanea dir;
    prova::ScriviFile(dir / "aggiornamento.ini", "sito1 = " + s.url() + "\nsito2 = " + s.url() + "\n");
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db");
    {
        auto c = a->OpenRecordset("estrazioni");
        c.AddNew();
        c.imposta("data", "2025-01-02");
        c.Update();
    }
    InterfacciaScriptata ui;
    FonteCurl f(5);
    ContestoAggiornamento ctx{*a, ui, f, ImpostazioniAggiornamento::Leggi(dir / "aggiornamento.ini"), dir.p.string(), 2025};
    AggiornaEstrazioni(ctx);
    EXPECT_EQ(ui.ultimoBox().testo, "Aggiornamento completato con successo!");
    EXPECT_EQ(a->NumeroEstrazioni(), 3);  // 04/01 and 09/01
    EXPECT_TRUE(a->EsisteData("2025-01-09"));
}

}  // namespace

namespace {

TEST(CliArchivioAggiorna, AggiornaDalServerLocale) {
    const std::string cli = std::string(ZEF_DATI_BIN) + "/zefiranto-cli";
    if (!std::filesystem::exists(cli)) GTEST_SKIP() << "zefiranto-cli non costruito";
    ServerProva s;
    const auto pagine = std::filesystem::path(__FILE__).parent_path() / "pagine";
    s.imposta("/risultati/archivio-lotto-2025", {200, Leggi(pagine / "archivio-lotto-2025.html"), ""});
    CartellaTemporanea dir;
    prova::ScriviFile(dir / "agg.ini", "sito1 = " + s.url() + "\nsito2 = " + s.url() + "\n");
    prova::ScriviFile(dir / "a.txt", "2025/01/02\tBA\t1\t2\t3\t4\t5\n");
    const std::string db = " --archivio " + (dir / "a.db");
    ASSERT_EQ(std::system((cli + " archivio importa " + (dir / "a.txt") + db + " >/dev/null").c_str()), 0);
    std::string comando = cli + " archivio aggiorna --anno 2025 --impostazioni " + (dir / "agg.ini") + db + " > " +
                          (dir / "uscita.txt");
    EXPECT_EQ(std::system(comando.c_str()), 0);
    EXPECT_EQ(Leggi(dir / "uscita.txt"), "Aggiornamento completato con successo!\nESTRAZIONI: 3\n");
}

}  // namespace
