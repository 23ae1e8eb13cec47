// "AVVIO DELLA STAMPA" and "OPZIONI DI STAMPA": which print starts, the refusal of
// slips at cost 0, the error box, and the geometry file of the slips.

#include "printing/form10.h"
#include "printing/form11.h"
#include "printing/puntate.h"

#include "aiuti_stampa.h"
#include "core/interfaccia_scriptata.h"
#include "support/cartella.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace zef;

namespace {

struct AvvioStampa : ::testing::Test {
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata carta;
    Form24 f24;
    Form10 f10{s, ui, carta, f24};
    int aperteForm11 = 0;
    // What the user does in "OPZIONI DI STAMPA".
    std::function<void(Form24&)> scelta = [](Form24& f) { f.clickCommand1(); };

    void SetUp() override {
        f10.mostraForm11 = [this] { ++aperteForm11; };
        f10.mostraForm24 = [this] { scelta(f24); };
        f10.dataOggi = [] { return std::string("24/12/2025"); };
        prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 "});
    }
};

std::string Leggi(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

}  // namespace

TEST_F(AvvioStampa, SchedineACostoZeroRifiutate) {
    f10.clickOption(2);
    ASSERT_EQ(s.pannelli[2], "COSTO SISTEMA €: 0");
    f10.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Bisogna impostare una puntata prima di stampare il sistema!");
    EXPECT_EQ(ui.box[0].titolo, "Attenzione");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
    EXPECT_EQ(aperteForm11, 0);
    // With a stake the settings window opens; the listing is never refused for it.
    s.CostoColonna = Currency::daInteri(1);
    Riprezza(s);
    f10.clickCommand1();
    EXPECT_EQ(aperteForm11, 1);
    EXPECT_EQ(carta.stampe, 0);
}

TEST_F(AvvioStampa, TabulatoConLeSezioniScelte) {
    f10.clickCommand1();
    EXPECT_TRUE(ui.box.empty());
    ASSERT_EQ(carta.stampe, 1) << "printed at cost 0";
    EXPECT_EQ(carta.modulo, Modulo::Tabulato);
    const auto tutte = prova::Righe(carta.carta);
    EXPECT_EQ(tutte[9], "    DATA DI STAMPA: 24/12/2025");
    EXPECT_NE(std::find(tutte.begin(), tutte.end(), "     Giocate "), tutte.end());

    scelta = [](Form24& f) {
        f.Check1 = false;
        f.Check3 = false;
        f.clickCommand1();
    };
    f10.clickCommand1();
    const auto solo = prova::Righe(carta.carta);
    EXPECT_EQ(solo.size(), 12u) << "conditions on, but none to print";
    // The choices stay with the window while it is only hidden.
    scelta = [](Form24& f) { f.clickCommand1(); };
    f10.clickCommand1();
    EXPECT_EQ(prova::Righe(carta.carta).size(), 12u);
}

TEST_F(AvvioStampa, AnnullaOChiusuraNonStampano) {
    scelta = [](Form24& f) { f.clickCommand2(); };
    f10.clickCommand1();
    EXPECT_EQ(carta.stampe, 0);
    // After an AVVIA, closing the window unloads it: Check4 reads clear again.
    scelta = [](Form24& f) { f.clickCommand1(); };
    f10.clickCommand1();
    EXPECT_EQ(carta.stampe, 1);
    scelta = [](Form24& f) { f.scarica(); };
    f10.clickCommand1();
    EXPECT_EQ(carta.stampe, 1);
    // Given up at the preview.
    scelta = [](Form24& f) { f.clickCommand1(); };
    carta.rinuncia = true;
    f10.clickCommand1();
    EXPECT_EQ(carta.stampe, 1);
    EXPECT_TRUE(ui.box.empty());
}

TEST_F(AvvioStampa, ErroreDuranteLaStampa) {
    s.NumFissi = 2;
    s.NumeriFissi = {0, 12};
    s.NumeriFissiBase = 0;
    f10.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].titolo, "ERRORE DURANTE LA STAMPA");
    EXPECT_EQ(ui.box[0].testo, "La stampa è stata annullata per il seguente motivo: Indice non incluso nell'intervallo");
    EXPECT_EQ(carta.stampe, 0);
    // A printer that fails.
    struct Guasta : DestinazioneStampa {
        bool stampa(const std::string&, Modulo, const Produzione&) override {
            throw ErroreEsecuzione(482, "Errore della stampante");
        }
    } guasta;
    Form10 altro(s, ui, guasta, f24);
    altro.mostraForm24 = [this] { f24.clickCommand1(); };
    ui.box.clear();
    altro.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "La stampa è stata annullata per il seguente motivo: Errore della stampante");
}

TEST_F(AvvioStampa, GiocateTroppeDaStampare) {
    // 27,000 rows: 225 rounds of the whole list, 9,006 lines each.
    std::vector<std::string> righe(27000, " 1  2 ");
    prova::ImpostaLista(s, 2, righe);
    f10.clickCommand1();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(ui.box[0].testo,
              "La sezione GIOCATE del tabulato conterebbe 2026350 righe (circa 33772 pagine): sono troppe per la "
              "stampa. Stampare il tabulato senza le giocate, oppure con meno giocate in lista.");
    EXPECT_EQ(carta.stampe, 0);
    // Without the plays the listing goes.
    scelta = [](Form24& f) {
        f.Check3 = false;
        f.clickCommand1();
    };
    f10.clickCommand1();
    EXPECT_EQ(carta.stampe, 1);
    // The longest list still printed: 26,000 rows.
    righe.resize(26000);
    prova::ImpostaLista(s, 2, righe);
    EXPECT_LE(RigheSezioneGiocate(26000), tabulato::LimiteRigheGiocate);
}

TEST_F(AvvioStampa, AnteprimaUgualeAllaCarta) {
    prova::ImpostaPronostico(s, {1, 2, 3, 4});
    carta.conAnteprima = true;
    f10.clickCommand1();
    EXPECT_EQ(RigheStampate(carta.anteprima.operazioni), RigheStampate(carta.carta.operazioni));
}

TEST(Geometria, LettaDalFile) {
    prova::CartellaTemporanea c;
    const std::string file = c / "cooxy.txt";
    std::array<std::string, 4> g{"5", "5", "7", "7"};
    LeggiGeometria(file, g);
    EXPECT_EQ(g, (std::array<std::string, 4>{"5", "5", "7", "7"})) << "missing file";

    std::ofstream(file, std::ios::binary) << "4.5\r\n3,25\r\n";
    LeggiGeometria(file, g);
    EXPECT_EQ(g, (std::array<std::string, 4>{"4.5", "3.25", "7", "7"})) << "two lines, a comma, CRLF";

    std::ofstream(file, std::ios::binary) << " 6 mm\nabc\n-1.5\n8\n99\n";
    LeggiGeometria(file, g);
    EXPECT_EQ(g, (std::array<std::string, 4>{"6", "0", "-1.5", "8"})) << "leading numbers; the fifth line ignored";
}

TEST(Geometria, ScrittaDopoLaStampa) {
    prova::CartellaTemporanea c;
    Sistema s;
    InterfacciaScriptata ui;
    DestinazioneRegistrata carta;
    Form11 f(s, ui, carta);
    f.fileGeometria = c / "cooxy.txt";
    prova::ImpostaLista(s, 2, {" 1  2 "});
    f.carica();
    f.cambia(Form11::MSuperiore, "4,5");
    f.cambia(Form11::PVerticale, "6.75 circa");
    // Given up at the preview: nothing written.
    carta.rinuncia = true;
    f.clickCommand1();
    EXPECT_FALSE(std::filesystem::exists(f.fileGeometria));
    carta.rinuncia = false;
    f.clickCommand1();
    EXPECT_EQ(Leggi(f.fileGeometria), "4.5\r\n5\r\n6.75\r\n7\r\n");
    // Read back by the next load.
    f.scarica();
    f.carica();
    EXPECT_EQ(f.geometria, (std::array<std::string, 4>{"4.5", "5", "6.75", "7"}));
    // A folder that cannot be written: the print stays silent, the old file whole.
    f.fileGeometria = c / "manca/cooxy.txt";
    f.visibile = true;
    f.clickCommand1();
    EXPECT_TRUE(ui.box.empty());
    EXPECT_TRUE(f.visibile);
    EXPECT_EQ(prova::NumeroErrore([&] { ScriviGeometria(f.fileGeometria, f.geometria); }), 75);
}

TEST(Puntate, ScomposteDaiTotali) {
    auto caselle = [](int64_t decimillesimi) {
        std::vector<int> v;
        if (auto s = ScomponiPuntata(Currency::daDecimillesimi(decimillesimi)))
            for (int i = 0; i < 13; ++i)
                if ((*s)[i]) v.push_back(i);
        return v;
    };
    EXPECT_EQ(caselle(35000), (std::vector<int>{3, 6})) << "3,50 = 3 + 0,50";
    EXPECT_EQ(caselle(1500), (std::vector<int>{0, 1})) << "0,15";
    EXPECT_EQ(caselle(40000), (std::vector<int>{4, 6})) << "4 = 3 + 1, not 2 + ...";
    EXPECT_EQ(caselle(4000), std::vector<int>{}) << "0,40 cannot be made";
    EXPECT_EQ(caselle(0), std::vector<int>{});
    EXPECT_EQ(caselle(3918500).size(), 13u) << "every box";

    prova::Separatore virgola(',');
    Sistema s;
    s.form2.Check = {0, 1, 0, 0, 1};
    s.form2.testi = {"0,00", "1,50", "0,00", "0,00", "0,40"};
    s.Command2 = "Roma, Estratto € 2,05, Ambo € 1,50, , , Cinquina € 0,40";
    EXPECT_FALSE(RicostruisciPuntate(s)) << "the cinquina's 0,40";
    EXPECT_TRUE(s.form2.chkAmbo[0 + 4] && s.form2.chkAmbo[0 + 3]);  // Ambo 1 + 0,50
    EXPECT_EQ(s.form2.Check[0], 1);
    EXPECT_EQ(s.form2.testi[0], "2,05");
    EXPECT_TRUE(s.form2.chkAmbo[52 + 5] && s.form2.chkAmbo[52 + 0]);  // Estratto 2 + 0,05
    int spuntate = 0;
    for (bool b : s.form2.chkAmbo) spuntate += b;
    EXPECT_EQ(spuntate, 4);
    // Boxes already ticked are left alone.
    s.form2.chkAmbo = {};
    s.form2.chkAmbo[7] = true;
    EXPECT_TRUE(RicostruisciPuntate(s));
    spuntate = 0;
    for (bool b : s.form2.chkAmbo) spuntate += b;
    EXPECT_EQ(spuntate, 1);
}
