// The archive browser through the scripted interface: opening on the latest draw,
// the arrows, stale boxes on null fields, NUOVA, MEMORIZZA, CANCELLA, "Vai al n°.".
#include "aiuto.h"

#include "archive/form3.h"
#include "core/interfaccia_scriptata.h"

#include <gtest/gtest.h>

using namespace zef;
using prova::CartellaTemporanea;
using prova::NumeroProva;

namespace {

struct UiConClessidra : InterfacciaScriptata {
    std::vector<bool> clessidre;
    void clessidra(bool a) override { clessidre.push_back(a); }
};

struct Browser : ::testing::Test {
    CartellaTemporanea dir;
    Sistema s;
    UiConClessidra ui;
    std::vector<std::string> eventi;  // windows loaded and unloaded, and boxes, in order
    std::unique_ptr<Form3> f;

    // Five draws, ids 1..5, from 2004-01-01 and 2005-01-01; the first two without Nazionale.
    void SetUp() override {
        auto a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db");
        prova::RiempiProva(*a, 2, 1, 2004, true);
        prova::RiempiProva(*a, 3, 3, 2005, false);
    }
    void apri(Form3Collegamenti c = {}) {
        if (!c.caricaForm7) c.caricaForm7 = [this] { eventi.push_back("carica Form7"); };
        c.scaricaForm6 = [this] { eventi.push_back("scarica Form6 dopo " + std::to_string(ui.box.size()) + " box"); };
        c.scaricaForm25 = [this] { eventi.push_back("scarica Form25 dopo " + std::to_string(ui.box.size()) + " box"); };
        f = std::make_unique<Form3>(s, ui, c, dir / "archivio.db");
        f->oggi = [] { return std::string("2024-03-15"); };
        f->carica();
        f->attiva();
    }
    // The boxes of wheel w (1..11).
    std::vector<std::string> ruota(int w) {
        return std::vector<std::string>(f->Text1.begin() + (w - 1) * 5, f->Text1.begin() + w * 5);
    }
    std::vector<std::string> attesa(int id, int w) {
        std::vector<std::string> v;
        for (int p = 1; p <= 5; ++p) v.push_back(std::to_string(NumeroProva(id, w, p)));
        return v;
    }
};

TEST_F(Browser, SiApreSullUltimaEstrazione) {
    apri();
    EXPECT_EQ(eventi, (std::vector<std::string>{"carica Form7"}));
    EXPECT_EQ(f->Label19, "N°  5 su  5");
    EXPECT_EQ(f->label23, "03/01/05");
    EXPECT_EQ(ruota(1), attesa(5, 1));
    EXPECT_EQ(ruota(11), attesa(5, 11));
    EXPECT_EQ(f->NumeroEstrazioni(), 5);
    EXPECT_EQ(std::string(Form3::Titolo), "ARCHIVIO ESTRAZIONI");
    EXPECT_EQ(f->Data1.Caption, "Estrazioni");
}

TEST_F(Browser, FrecceDelControlloDati) {
    apri();
    f->Data1.primo();
    EXPECT_EQ(f->Label19, "N°  1 su  5");
    EXPECT_EQ(f->label23, "01/01/04");
    f->Data1.precedente();  // before the first: back to the first
    EXPECT_EQ(f->Label19, "N°  1 su  5");
    f->Data1.successivo();
    EXPECT_EQ(f->Label19, "N°  2 su  5");
    f->Data1.ultimo();
    f->Data1.successivo();  // past the last: back to the last
    EXPECT_EQ(f->Label19, "N°  5 su  5");
    EXPECT_EQ(ruota(1), attesa(5, 1));
}

TEST_F(Browser, UnCampoNulloLasciaNellaCasellaIlNumeroPrecedente) {
    apri();
    f->Data1.primo();
    f->Data1.successivo();
    f->Data1.successivo();  // id 3, with Nazionale
    ASSERT_EQ(ruota(11), attesa(3, 11));
    f->Data1.precedente();  // id 2, Nazionale null: the boxes keep the numbers of id 3
    EXPECT_EQ(ruota(1), attesa(2, 1));
    EXPECT_EQ(ruota(11), attesa(3, 11));
    EXPECT_EQ(f->label23, "02/01/04");
}

TEST_F(Browser, NuovaSvuotaEIlMovimentoPerdeLEstrazioneDigitata) {
    apri();
    f->clickCommand3();
    for (const auto& t : f->Text1) EXPECT_EQ(t, "");
    EXPECT_EQ(f->label23, "15/03/24");
    EXPECT_EQ(f->focus, 0);
    f->Text1[0] = "11";
    f->Data1.precedente();
    EXPECT_EQ(ruota(1), attesa(4, 1));
    EXPECT_EQ(f->NumeroEstrazioni(), 5);
}

TEST_F(Browser, MemorizzaAggiungeInFondoEAvvisa) {
    apri();
    f->clickCommand3();
    for (int i = 0; i < 55; ++i) f->Text1[i] = std::to_string(i + 1);
    f->label23 = "16/03/24";
    f->clickCommand4();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "L'estrazione è stata memorizzata con successo.");
    EXPECT_EQ(ui.box[0].titolo, "FINESTRA INFORMATIVA");
    EXPECT_EQ(ui.box[0].icona, Icona::Esclamazione);
    // Form6 goes before the message, Form25 after it.
    EXPECT_EQ(eventi, (std::vector<std::string>{"carica Form7", "scarica Form6 dopo 0 box", "scarica Form25 dopo 1 box"}));
    EXPECT_FALSE(f->InModifica);
    EXPECT_EQ(f->Label19, "N°  6 su  6");
    EXPECT_EQ(f->label23, "16/03/24");
    EXPECT_EQ(f->Text1[54], "55");
    // Stored with the next id after the last.
    ArchivioEstrazioni a(dir / "archivio.db");
    auto c = a.OpenRecordset("estrazioni");
    c.MoveLast();
    EXPECT_EQ(c.numero("id"), 6);
    EXPECT_EQ(c.campo("data").comeTesto(), "2024-03-16");
    EXPECT_EQ(c.numero("Bari1"), 1);
    EXPECT_EQ(c.numero("Nazionale5"), 55);
}

TEST_F(Browser, MemorizzaSenzaControlliMaConCaselleVuoteNulle) {
    apri();
    f->clickCommand3();
    f->Text1[0] = "95";  // no range test
    f->Text1[1] = "95";  // nor a test that numbers differ
    f->label23 = "03/01/05";  // nor that the date is new
    f->clickCommand4();
    EXPECT_EQ(ui.ultimoBox().titolo, "FINESTRA INFORMATIVA");
    ArchivioEstrazioni a(dir / "archivio.db");
    auto c = a.OpenRecordset("estrazioni");
    c.MoveLast();
    EXPECT_EQ(c.numero("Bari1"), 95);
    EXPECT_EQ(c.numero("Bari2"), 95);
    EXPECT_FALSE(c.numero("Bari3").has_value());
    EXPECT_EQ(a.NumeroEstrazioni(), 6);
}

TEST_F(Browser, MemorizzaConUnErroreNonSalvaEDiceLErrore) {
    apri();
    f->clickCommand3();
    f->Text1[7] = "abc";
    f->clickCommand4();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Errore di conversione del tipo di dati.");
    f->Text1[7] = "8";
    f->label23 = "32/13/24";
    f->clickCommand4();
    EXPECT_EQ(ui.ultimoBox().testo, "Si è verificato l'errore seguente: Errore di conversione del tipo di dati.");
    EXPECT_EQ(f->NumeroEstrazioni(), 5);
    EXPECT_EQ(ArchivioEstrazioni(dir / "archivio.db").NumeroEstrazioni(), 5);
    EXPECT_EQ(eventi.size(), 1u);  // nothing unloaded
    // The boxes follow the cursor again.
    f->Data1.primo();
    EXPECT_EQ(f->Label19, "N°  1 su  5");
}

TEST_F(Browser, CancellaChiedeEPoiTornaIndietro) {
    apri();
    ui.risposte = {Risposta::No};
    f->clickCommand5();
    EXPECT_EQ(ui.box[0].testo, "Eliminare l'estrazione corrente?");
    EXPECT_EQ(ui.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(ui.box[0].icona, Icona::Domanda);
    EXPECT_EQ(ui.box[0].pulsanti, Pulsanti::SiNo);
    EXPECT_EQ(f->NumeroEstrazioni(), 5);
    EXPECT_EQ(eventi.back(), "scarica Form25 dopo 1 box");  // on No as well

    f->Data1.primo();
    f->Data1.successivo();
    f->Data1.successivo();  // position 3, id 3
    ui.risposte = {Risposta::Si};
    f->clickCommand5();
    EXPECT_EQ(f->NumeroEstrazioni(), 4);
    EXPECT_EQ(f->Label19, "N°  2 su  4");
    EXPECT_EQ(ruota(1), attesa(2, 1));
    EXPECT_EQ(ArchivioEstrazioni(dir / "archivio.db").NumeroEstrazioni(), 4);
}

TEST_F(Browser, CancellareLaPrimaLasciaLeSueCifreFinoAlProssimoMovimento) {
    apri();
    f->Data1.primo();
    auto prima = f->Text1;
    ui.risposte = {Risposta::Si};
    f->clickCommand5();
    EXPECT_EQ(f->NumeroEstrazioni(), 4);
    EXPECT_EQ(f->Text1, prima);
    EXPECT_EQ(f->label23, "01/01/04");
    f->Data1.successivo();
    EXPECT_EQ(ruota(1), attesa(2, 1));
    EXPECT_EQ(f->Label19, "N°  1 su  4");
    EXPECT_TRUE(ui.box.size() == 1u);  // no error box
}

TEST_F(Browser, VaiAlNumeroContaLePosizioniNonGliId) {
    apri();
    f->Data1.primo();
    f->Data1.successivo();
    ui.risposte = {Risposta::Si};
    f->clickCommand5();  // id 2 gone: positions 1..4 are ids 1, 3, 4, 5
    ui.input = {std::string("2")};
    f->clickCommand8();
    EXPECT_EQ(ui.prompt.back(), "Inserire l'estrazione che si vuole visualizzare (da 1 a  4)");
    EXPECT_EQ(f->Label19, "N°  2 su  4");
    EXPECT_EQ(ruota(1), attesa(3, 1));
    // 0, R + 1, "abc", a cancelled box: nothing moves and nothing is said.
    for (std::optional<std::string> r : {std::optional<std::string>("0"), std::optional<std::string>("5"),
                                         std::optional<std::string>("abc"), std::optional<std::string>(),
                                         std::optional<std::string>("")}) {
        ui.input = {r};
        f->clickCommand8();
        EXPECT_EQ(f->Label19, "N°  2 su  4");
    }
    EXPECT_EQ(ui.box.size(), 1u);
    ui.input = {std::string(" 4 ")};
    f->clickCommand8();
    EXPECT_EQ(f->Label19, "N°  4 su  4");
}

TEST_F(Browser, PulsantiNascostiSottoLeEtichette) {
    apri();
    for (int i = 1; i <= 7; ++i) EXPECT_FALSE(f->Command[i].Visible) << i;
    EXPECT_TRUE(f->Command[8].Visible);
    f->mouseSuLabel(5);
    EXPECT_TRUE(f->Command[3].Visible);
    EXPECT_EQ(f->Label[5], "NUOVA");
    EXPECT_EQ(f->Label[13], "MEMORIZZA");
    EXPECT_EQ(f->Command[3].Caption, "NUOVA");
    f->mouseSuLabel(13);
    f->mouseSuLabel(4);
    EXPECT_TRUE(f->Command[4].Visible && f->Command[1].Visible);
    f->mouseSuForm();
    for (int i = 1; i <= 7; ++i) EXPECT_FALSE(f->Command[i].Visible) << i;
    EXPECT_TRUE(f->Command[8].Visible);
    EXPECT_EQ(f->Command[8].ToolTipText, "Visualizza l'estrazione numero...");
}

TEST_F(Browser, PulsantiDelleStatistiche) {
    int aperte13 = 0;
    Form3Collegamenti c;
    c.mostraForm13 = [&] {
        EXPECT_EQ(ui.clessidre, (std::vector<bool>{true}));
        ++aperte13;
    };
    apri(c);
    EXPECT_TRUE(f->Command[1].Enabled);
    EXPECT_FALSE(f->Command[6].Enabled);  // the pair windows are not wired
    EXPECT_FALSE(f->Command[7].Enabled);
    f->clickCommand1();
    EXPECT_EQ(aperte13, 1);
    EXPECT_EQ(ui.clessidre, (std::vector<bool>{true, false}));
    f->clickCommand6();  // nothing to open
    EXPECT_EQ(f->Command[1].ToolTipText, "Elabora le frequenze ed i ritardi dei 90 numeri");
}

TEST_F(Browser, EsciEArchivioIlleggibile) {
    apri();
    f->clickCommand2();
    EXPECT_FALSE(f->caricato);
    EXPECT_FALSE(f->Data1.aperto());
    prova::ScriviFile(dir / "archivio.db", "rovinato");
    f->carica();
    EXPECT_EQ(ui.ultimoBox().testo, "Formato di database non riconosciuto '" + (dir / "archivio.db") + "'.");
    f->attiva();
    ui.input = {std::string("1")};
    f->clickCommand8();  // no archive: nothing happens
    f->clickCommand3();
    f->clickCommand4();
    EXPECT_EQ(ui.ultimoBox().testo.rfind("Si è verificato l'errore seguente: Formato di database", 0), 0u);
}

}  // namespace
