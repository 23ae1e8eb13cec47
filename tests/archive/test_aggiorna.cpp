// The web update against pages written for the tests (tests/archive/pagine), served
// by a source in place of the web.
#include "aiuto.h"

#include "archive/aggiorna.h"
#include "archive/html.h"
#include "archive/storico.h"
#include "core/interfaccia_scriptata.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

using namespace zef;
using prova::CartellaTemporanea;
namespace msg = zef::messaggi_aggiornamento;

namespace {

const std::filesystem::path Pagine = std::filesystem::path(__FILE__).parent_path() / "pagine";

std::string Leggi(const std::filesystem::path& p) {
    std::ifstream f(p, std::ios::binary);
    std::ostringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

struct FonteFinta : FonteWeb {
    std::map<std::string, std::string> pagine;  // url -> body (status 200)
    std::map<std::string, std::string> file;    // url -> bytes of a download
    std::set<std::string> guasti;               // downloads that fail
    std::vector<std::string> richieste;
    std::string GetHTML(const std::string& url) override {
        richieste.push_back("GET " + url);
        auto it = pagine.find(url);
        return it == pagine.end() ? "" : it->second;
    }
    void Scarica(const std::string& url, const std::string& percorso) override {
        richieste.push_back("SCARICA " + url);
        if (guasti.count(url)) throw ErroreEsecuzione(35761, "Impossibile scaricare " + url);
        prova::ScriviFile(percorso, file.count(url) ? file[url] : "<html>Pagina non trovata</html>");
    }
};

const std::string Sito1 = "https://uno.example";
const std::string Sito2 = "https://due.example";
std::string Url1(int anno) { return Sito1 + "/lotto/archivio-estrazioni/?as=TXT&year=" + std::to_string(anno); }
std::string Url2(int anno) { return Sito2 + "/risultati/archivio-lotto-" + std::to_string(anno); }

struct Aggiornamento : ::testing::Test {
    CartellaTemporanea dir;
    std::unique_ptr<ArchivioEstrazioni> a;
    InterfacciaScriptata ui;
    FonteFinta fonte;
    ImpostazioniAggiornamento imp;

    void SetUp() override {
        a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db");
        imp.sito1 = Sito1;
        imp.sito2 = Sito2;
        imp.intestazione = "Archivio estrazioni del Lotto - fonte di prova";
        ui.registraOgniAvanzamento = true;
        for (int anno : {2004, 2024, 2025})
            fonte.pagine[Url2(anno)] = Leggi(Pagine / ("archivio-lotto-" + std::to_string(anno) + ".html"));
    }
    // Stores draws on these dates (ids after the last), numbers 1..5 on every wheel.
    void Memorizza(const std::vector<std::string>& date) {
        auto c = a->OpenRecordset("estrazioni");
        for (const auto& d : date) {
            c.AddNew();
            c.imposta("data", d);
            for (int w = 1; w <= 11; ++w)
                for (int p = 1; p <= 5; ++p) c.imposta(NomeCampo(w, p), p);
        }
        if (!date.empty()) c.Update();
    }
    void Aggiungi(const std::vector<std::string>& date) {
        for (const auto& d : date) Memorizza({d});
    }
    void Esegui(int annoCorrente) {
        ContestoAggiornamento c{*a, ui, fonte, imp, dir.p.string(), annoCorrente};
        AggiornaEstrazioni(c);
    }
    // (id, date) of the stored draws, in id order.
    std::vector<std::pair<int, std::string>> Archivio() {
        std::vector<std::pair<int, std::string>> v;
        auto c = a->OpenRecordset("select * from estrazioni order by id");
        for (; !c.Eof(); c.MoveNext()) v.emplace_back(*c.numero("id"), c.campo("data").comeTesto());
        return v;
    }
    std::vector<int> Ruota(const std::string& iso, int w) {
        auto c = a->OpenRecordset("select * from estrazioni where data = ?", {Valore(iso)});
        std::vector<int> v;
        if (c.Eof()) return v;
        for (int p = 1; p <= 5; ++p)
            if (auto n = c.numero(NomeCampo(w, p))) v.push_back(*n);
        return v;
    }
    void AttesoSuccesso() {
        ASSERT_EQ(ui.box.size(), 1u);
        EXPECT_EQ(ui.box[0].testo, "Aggiornamento completato con successo!");
        EXPECT_EQ(ui.box[0].titolo, "FINE AGGIORNAMENTO");
        EXPECT_EQ(ui.box[0].icona, Icona::Informazione);
        EXPECT_EQ(ui.avanzamentiAperti, 0);
    }
    bool FileTemporanei() {
        for (const auto& v : std::filesystem::directory_iterator(dir.p))
            if (v.path().filename().string().rfind("tmp", 0) == 0) return true;
        return false;
    }
};

TEST(DateDellePagine, ValidaEIso) {
    EXPECT_TRUE(IsDataValida("15/03/2024"));
    EXPECT_FALSE(IsDataValida("15-03-2024"));
    EXPECT_FALSE(IsDataValida("5/03/2024"));
    EXPECT_FALSE(IsDataValida("del 15/03/2024"));
    EXPECT_TRUE(IsDataValida("99/99/9999"));  // shape only
    EXPECT_EQ(DataToISO("15/03/2024"), "2024-03-15");
    CartellaTemporanea dir;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "a.db");
    prova::RiempiProva(*a, 40, 1, 2024);
    EXPECT_TRUE(EsisteDataLotto(*a, DataToISO("05/02/2024")));
    EXPECT_FALSE(EsisteDataLotto(*a, DataToISO("02/05/2024")));
    EXPECT_THROW(EsisteDataLotto(*a, DataToISO("99/99/9999")), ErroreEsecuzione);
}

TEST(DateDellePagine, ElementiDellaPagina) {
    DocumentoHtml d("<div class='a lottoDraws'><span>n. 1<b>2</b>3</span><span>9</span></div>"
                    "<div class='lottoDrawsX'><p>niente</p></div><ul class='BALLROW x'><li>7</li></ul>");
    auto e = d.radice().getElementsByClassName("lottoDraws");
    ASSERT_EQ(e.size(), 1u);  // a class among the classes, not a part of one
    EXPECT_EQ(ParseEstrNum(e[0]), 123);
    EXPECT_EQ(ParseEstrNum(d.radice().getElementsByClassName("lottoDrawsX")[0]), -1);
    auto ul = d.radice().getElementsByTagName("UL");
    ASSERT_EQ(ul.size(), 1u);
    EXPECT_TRUE(ContieneSenzaMaiuscole(ul[0].className(), "ballRow"));
    EXPECT_EQ(ul[0].innerText(), "7");
}

TEST_F(Aggiornamento, DueAnniNellOrdineDelleDateConLeEstrazioniMalformateSaltate) {
    Aggiungi({"2024-12-20", "2024-12-27", "2024-12-28"});  // ids 1..3
    Esegui(2025);
    AttesoSuccesso();
    // 2024 stops at the known 28/12; 2025 loses the draw with four balls on a wheel,
    // the one without the Napoli row and the one dated with hyphens.
    EXPECT_EQ(Archivio(), (std::vector<std::pair<int, std::string>>{{1, "2024-12-20"},
                                                                   {2, "2024-12-27"},
                                                                   {3, "2024-12-28"},
                                                                   {4, "2024-12-31"},
                                                                   {5, "2025-01-02"},
                                                                   {6, "2025-01-04"},
                                                                   {7, "2025-01-09"}}));
    // Numbers read off the pages.
    EXPECT_EQ(Ruota("2024-12-31", 1), (std::vector<int>{86, 15, 34, 53, 72}));
    EXPECT_EQ(Ruota("2025-01-09", 1), (std::vector<int>{27, 46, 65, 84, 13}));
    EXPECT_EQ(Ruota("2025-01-04", 11), (std::vector<int>{32, 51, 70, 89, 18}));
    EXPECT_EQ(Ruota("2025-01-02", 11), (std::vector<int>{60, 79, 8, 27, 46}));
    // The first source is always fetched, each year, before the page.
    EXPECT_EQ(fonte.richieste, (std::vector<std::string>{"SCARICA " + Url1(2024), "GET " + Url2(2024),
                                                         "SCARICA " + Url1(2025), "GET " + Url2(2025)}));
    EXPECT_FALSE(FileTemporanei());
    EXPECT_EQ(a->OpenRecordset("EstrazioniTMP").RecordCount(), 0);
    // "Attendere", one year at a time.
    std::vector<std::string> cornici;
    for (const auto& s : ui.avanzamenti) {
        EXPECT_EQ(s.titolo, "Attendere");
        if (cornici.empty() || cornici.back() != s.etichetta) cornici.push_back(s.etichetta);
    }
    EXPECT_EQ(cornici, (std::vector<std::string>{"Aggiornamento anno 2024", "Aggiornamento anno 2025"}));
    EXPECT_EQ(ui.avanzamenti.back().massimo, 3);
    EXPECT_EQ(ui.avanzamenti.back().valore, 3);
}

TEST_F(Aggiornamento, ArchivioGiaCompleto) {
    Aggiungi({"2025-01-02", "2025-01-09"});
    Esegui(2025);
    AttesoSuccesso();
    EXPECT_EQ(Archivio().size(), 2u);
    EXPECT_EQ(ui.avanzamenti.back().massimo, 1);  // an empty year still shows a bar of 1
}

TEST_F(Aggiornamento, UnaDataNotaFuoriOrdineFermaLaScansione) {
    // 27/12 is missing but the page lists it behind the known 28/12: it stays missing.
    Aggiungi({"2024-12-20", "2024-12-28"});
    Esegui(2024);
    AttesoSuccesso();
    EXPECT_EQ(Archivio(), (std::vector<std::pair<int, std::string>>{{1, "2024-12-20"}, {2, "2024-12-28"}, {3, "2024-12-31"}}));
}

TEST_F(Aggiornamento, PaginaNonScaricataPassaSenzaMessaggio) {
    Aggiungi({"2024-12-28"});
    fonte.pagine.erase(Url2(2025));
    Esegui(2025);
    AttesoSuccesso();
    EXPECT_EQ(Archivio().back(), (std::pair<int, std::string>{2, "2024-12-31"}));
}

TEST_F(Aggiornamento, PrimaFonteGuastaInterrompeTutto) {
    Aggiungi({"2024-12-28"});
    fonte.guasti.insert(Url1(2025));
    prova::ScriviFile(dir / "tmp1999.txt", "avanzo");
    Esegui(2025);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Aggiornamento NON effettuato!");
    EXPECT_EQ(ui.box[0].titolo, "Attenzione");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    EXPECT_EQ(ui.avanzamentiAperti, 0);
    // The year done before the failure stays; every tmp*.txt is gone.
    EXPECT_EQ(Archivio().back(), (std::pair<int, std::string>{2, "2024-12-31"}));
    EXPECT_FALSE(FileTemporanei());
}

TEST_F(Aggiornamento, AnniPrimaDel2005NonAggiungonoNulla) {
    Aggiungi({"2004-12-20"});
    Esegui(2005);
    AttesoSuccesso();
    // 30/12/2004 and 28/12/2004 reach the staging table, never the archive;
    // the 2005 page (none here) finds the staging table emptied first.
    EXPECT_EQ(Archivio().size(), 1u);
    EXPECT_EQ(a->OpenRecordset("EstrazioniTMP").RecordCount(), 0);
    // Stopped after 2004: the staged rows wait for the next run's cleaning.
    ui.box.clear();
    Esegui(2004);
    AttesoSuccesso();
    EXPECT_EQ(Archivio().size(), 1u);
    EXPECT_EQ(a->OpenRecordset("EstrazioniTMP").RecordCount(), 2);
}

TEST_F(Aggiornamento, ArchivioVuotoParteDallAnnoImpostato) {
    imp.annoIniziale = 2024;
    Esegui(2025);
    AttesoSuccesso();
    auto v = Archivio();
    ASSERT_EQ(v.size(), 6u);  // three new in each page
    EXPECT_EQ(v.front(), (std::pair<int, std::string>{1, "2024-12-27"}));
    EXPECT_EQ(v.back(), (std::pair<int, std::string>{6, "2025-01-09"}));
}

TEST_F(Aggiornamento, SenzaSitiImpostatiLoDice) {
    ImpostazioniAggiornamento vuote = ImpostazioniAggiornamento::Leggi(dir / "manca.ini");
    EXPECT_FALSE(vuote.completa());
    imp = vuote;
    Esegui(2025);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, msg::SenzaSiti);
    EXPECT_TRUE(fonte.richieste.empty());
}

TEST(ImpostazioniAggiornamentoFile, LettoConHttpsPredefinito) {
    CartellaTemporanea dir;
    prova::ScriviFile(dir / "aggiornamento.ini",
                      "# siti\r\n[aggiornamento]\r\nsito1 = uno.example/\r\nSITO2=http://127.0.0.1:8080\r\n"
                      "intestazione = Archivio  X \r\nanno_iniziale = 2010\r\n");
    auto imp = ImpostazioniAggiornamento::Leggi(dir / "aggiornamento.ini");
    EXPECT_TRUE(imp.completa());
    EXPECT_EQ(imp.url1(2024), "https://uno.example/lotto/archivio-estrazioni/?as=TXT&year=2024");
    EXPECT_EQ(imp.url2(2024), "http://127.0.0.1:8080/risultati/archivio-lotto-2024");
    EXPECT_EQ(imp.intestazione, "Archivio  X");
    EXPECT_EQ(imp.annoIniziale, 2010);
}

TEST_F(Aggiornamento, PercorsoDiTestoQuandoCEUnTmpTxt) {
    Aggiungi({"2025-01-09"});
    prova::ScriviFile(dir / "tmp.txt", "");
    fonte.file[Url1(2025)] = Leggi(Pagine / "testo-2025.txt");
    Esegui(2025);
    AttesoSuccesso();
    EXPECT_EQ(Archivio(), (std::vector<std::pair<int, std::string>>{{1, "2025-01-09"}, {2, "2025-01-10"}, {3, "2025-01-11"}}));
    EXPECT_EQ(Ruota("2025-01-11", 1), (std::vector<int>{89, 18, 37, 56, 75}));
    EXPECT_EQ(Ruota("2025-01-10", 1), (std::vector<int>{58, 77, 6, 25, 44}));
    EXPECT_EQ(Ruota("2025-01-10", 11).size(), 5u);
    // The text path does not fetch the page.
    EXPECT_EQ(fonte.richieste, (std::vector<std::string>{"SCARICA " + Url1(2025)}));
}

TEST_F(Aggiornamento, PercorsoDiTestoVuotoNonHaBisognoDiAggiornamento) {
    Aggiungi({"2025-01-09"});
    prova::ScriviFile(dir / "tmp.txt", "");
    fonte.file[Url1(2025)] = "";
    Esegui(2025);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "L' archivio delle estrazioni non ha bisogno di essere aggiornato!");
    EXPECT_EQ(ui.box[0].titolo, "Attenzione");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    EXPECT_FALSE(FileTemporanei());  // tmp.txt goes with the others
}

TEST_F(Aggiornamento, ParseLottoHtmlDirettamente) {
    Aggiungi({"2025-01-04"});
    ParseLottoHTML(*a, Leggi(Pagine / "archivio-lotto-2025.html"), 2025);
    // Staging ids run with the page: 09/01 gets 1, the dropped 08/01 and 07/01 keep their steps.
    auto t = a->OpenRecordset("select * from EstrazioniTMP order by id");
    ASSERT_EQ(t.RecordCount(), 1);
    EXPECT_EQ(t.numero("id"), 1);
    EXPECT_EQ(t.campo("data").comeTesto(), "2025-01-09");
    // A second page continues after the last staged id; skipped draws still count.
    ParseLottoHTML(*a, Leggi(Pagine / "archivio-lotto-2024.html"), 2024);
    auto u = a->OpenRecordset("select * from EstrazioniTMP order by id");
    ASSERT_EQ(u.RecordCount(), 4);
    u.MoveLast();
    EXPECT_EQ(u.numero("id"), 4);
    // No draws on the page: nothing happens.
    ParseLottoHTML(*a, "<html><body><p>Nessun risultato</p></body></html>", 2026);
    ParseLottoHTML(*a, "", 2026);
    EXPECT_EQ(a->OpenRecordset("EstrazioniTMP").RecordCount(), 4);
}

TEST_F(Aggiornamento, StrongSenzaDataOConAltroTesto) {
    std::string pagina = Leggi(Pagine / "archivio-lotto-2025.html");
    // "Estrazione del 09/01/2025" is no date once "del" is removed; the draw is passed over.
    auto pos = pagina.find("<strong>del 09/01/2025</strong>");
    ASSERT_NE(pos, std::string::npos);
    pagina.replace(pos, 31, "<strong>Estrazione del 09/01/2025</strong>");
    ParseLottoHTML(*a, pagina, 2025);
    auto t = a->OpenRecordset("select * from EstrazioniTMP order by id");
    ASSERT_EQ(t.RecordCount(), 2);
    EXPECT_EQ(t.campo("data").comeTesto(), "2025-01-04");
}

}  // namespace

namespace {
// A draw as the results page shows it: Bari's first two balls given, every other ball
// a number that can be drawn.
std::string EstrazioneHtml(const std::string& data, const std::string& primo, const std::string& secondo = "2") {
    std::string h = "<div class=\"lottoDraws\"><div class=\"drawHeader\"><strong>del " + data + "</strong></div>";
    const char* ruote[] = {"Bari", "Cagliari", "Firenze", "Genova", "Milano", "Napoli", "Palermo", "Roma", "Torino", "Venezia", "Nazionale"};
    for (int w = 0; w < 11; ++w) {
        h += "<ul class=\"ballRow\"><li class=\"wheelName\">" + std::string(ruote[w]) + "</li>";
        for (int p = 0; p < 5; ++p) {
            std::string n = std::to_string(10 + w * 5 + p);
            if (w == 0 && p == 0) n = primo;
            if (w == 0 && p == 1) n = secondo;
            h += "<li class=\"ball\">" + n + "</li>";
        }
        h += "</ul>";
    }
    return h + "</div>";
}
}  // namespace

TEST_F(Aggiornamento, DrawsThatCannotExistArePassedOverAndCounted) {
    Aggiungi({"2025-12-20"});
    std::string pagina = "<html><body>";
    pagina += EstrazioneHtml("30/12/2025", "3");
    for (const char* cattivo : {"999", "-3", "4.5", "tre", "0"}) pagina += EstrazioneHtml("29/12/2025", cattivo);
    pagina += EstrazioneHtml("27/12/2025", "7", "7");  // the same number twice on Bari
    pagina += EstrazioneHtml("23/12/2025", "90");
    fonte.pagine[Url2(2025)] = pagina + "</body></html>";
    Esegui(2025);
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[0].testo, "Aggiornamento completato con successo!");
    EXPECT_EQ(ui.box[1].testo, messaggi_aggiornamento::EstrazioniScartate(6));
    EXPECT_NE(ui.box[1].testo.find("6 estrazioni"), std::string::npos);
    const auto archivio = Archivio();
    ASSERT_EQ(archivio.size(), 3u);
    EXPECT_EQ(archivio[1].second, "2025-12-23");
    EXPECT_EQ(archivio[2].second, "2025-12-30");
    EXPECT_EQ(Ruota("2025-12-30", 1), (std::vector<int>{3, 2, 12, 13, 14}));
    auto c = a->OpenRecordset("select * from estrazioni");
    for (; !c.Eof(); c.MoveNext())
        for (int w = 1; w <= 11; ++w)
            for (int p = 1; p <= 5; ++p) {
                auto n = c.numero(NomeCampo(w, p));
                if (n) {
                    EXPECT_TRUE(*n >= 1 && *n <= 90) << *n;
                }
            }
}

TEST_F(Aggiornamento, APageWithNoDrawAtAllSaysTheSourceMayHaveChanged) {
    Aggiungi({"2025-12-20"});
    fonte.pagine[Url2(2025)] = "<html><body><div class=\"estrazioniNuove\">09/01/2025 27 46 65</div></body></html>";
    Esegui(2025);
    ASSERT_EQ(ui.box.size(), 2u);
    EXPECT_EQ(ui.box[0].testo, "Aggiornamento completato con successo!");
    EXPECT_EQ(ui.box[1].testo, messaggi_aggiornamento::PaginaSenzaEstrazioni(2025));
    EXPECT_NE(ui.box[1].testo.find("2025"), std::string::npos);
    EXPECT_EQ(Archivio().size(), 1u);
}
