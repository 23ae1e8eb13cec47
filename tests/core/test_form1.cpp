// The main window's model: start-up, pad, dispatch, New, Exit and the save prompt.
#include "core/form1.h"

#include "core/errori.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace zef;

namespace {

struct Finestra {
    Sistema s;
    InterfacciaScriptata ui;
    Form1 f{s, ui};
    std::vector<std::string> eventi;

    Finestra() {
        f.SalvaConNome = [this] { eventi.push_back("SalvaConNome"); };
        f.ChiudiArchivio = [this] { eventi.push_back("ChiudiArchivio"); };
        f.fine = [this] { eventi.push_back("fine"); };
        f.scaricaForm12 = [this] { eventi.push_back("scaricaForm12"); };
        f.carica();
        eventi.clear();
    }
    void clicca(std::initializer_list<int> numeri) {
        for (int n : numeri) f.clickCommand1(n - 1);
    }
    std::vector<int> pronostico() const {
        return std::vector<int>(s.Pronostico.begin() + 1, s.Pronostico.begin() + 1 + s.NumPronostico);
    }
};

// A stored development of `conta` columns of k numbers 1..k.
void Sviluppo(Sistema& s, int k, int conta) {
    s.colonne.dimensiona(k, 100);
    for (int c = 1; c <= conta; ++c)
        for (int p = 1; p <= k; ++p) s.colonne.set(p, c, static_cast<uint8_t>(p + c - 1));
    s.NumColonne = conta;
    s.SviluppoK = static_cast<int16_t>(k);
}

}  // namespace

TEST(Form1Avvio, StatoIniziale) {
    Sistema s;
    InterfacciaScriptata ui;
    Form1 f(s, ui);
    std::vector<std::string> ordine;
    f.mostraSplash = [&] { ordine.push_back("splash"); };
    f.apriArchivio = [&] { ordine.push_back("archivio"); };
    f.scaricaSplash = [&] { ordine.push_back("scaricaSplash"); };
    s.NumColonne = 7;
    s.CostoColonna = Currency::daInteri(3);
    s.pannelli[0] = "x";
    f.carica();
    EXPECT_EQ(ordine, (std::vector<std::string>{"splash", "archivio", "scaricaSplash"}));
    EXPECT_EQ(s.pannelli[0], "CONDIZIONATE: 0");
    EXPECT_EQ(s.pannelli[1], "RIDOTTE: 0");
    EXPECT_EQ(s.pannelli[2], "COSTO SISTEMA €: 0");
    EXPECT_EQ(s.NumColonne, 0);
    EXPECT_EQ(s.CostoColonna, Currency());
    EXPECT_FALSE(s.PercentualiValide);
    EXPECT_FALSE(s.PronosticoNonSviluppato);
    EXPECT_TRUE(s.SistemaSalvato);
    EXPECT_FALSE(s.SalvaAbilitato);
    EXPECT_EQ(s.titolo, "Zefiranto 2.0 - sistema non salvato");
    EXPECT_EQ(f.larghezzaColonnaLista, 3580);
    EXPECT_TRUE(f.archivioAperto);
    EXPECT_EQ(s.colonne.capacita(), Colonne::CapacitaSviluppo);
    EXPECT_EQ(f.lblVersion, "2.0.0");
    EXPECT_TRUE(ui.box.empty());
}

TEST(Form1Avvio, ArchivioIlleggibileFermaIlCaricamento) {
    Sistema s;
    InterfacciaScriptata ui;
    Form1 f(s, ui);
    bool scaricato = false;
    f.apriArchivio = [] { throw std::runtime_error("File non trovato"); };
    f.scaricaSplash = [&] { scaricato = true; };
    f.carica();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: File non trovato");
    // The steps before the database ran, the ones after did not.
    EXPECT_EQ(s.titolo, "Zefiranto 2.0 - sistema non salvato");
    EXPECT_FALSE(f.archivioAperto);
    EXPECT_FALSE(scaricato);
    EXPECT_EQ(f.lblVersion, "");
    EXPECT_EQ(s.colonne.capacita(), 0);
}

TEST(Form1Avvio, ErroreEsecuzioneDellArchivio) {
    Sistema s;
    InterfacciaScriptata ui;
    Form1 f(s, ui);
    f.apriArchivio = [] { throw ErroreEsecuzione(3024, "Impossibile trovare il file 'archivio.db'."); };
    f.carica();
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Si è verificato l'errore seguente: Impossibile trovare il file 'archivio.db'.");
}

TEST(Form1Pad, ClicAccendeESpegne) {
    Finestra w;
    w.clicca({12, 3, 7});
    EXPECT_EQ(w.s.Label2, "3");
    EXPECT_EQ(w.s.NumPronostico, 3);
    EXPECT_EQ(w.pronostico(), (std::vector<int>{3, 7, 12}));
    EXPECT_TRUE(w.s.pad[11]);
    EXPECT_FALSE(w.s.SistemaSalvato);
    w.clicca({7});
    EXPECT_FALSE(w.s.pad[6]);
    EXPECT_EQ(w.s.Label2, "2");
    EXPECT_EQ(w.pronostico(), (std::vector<int>{3, 12}));
}

TEST(Form1Pad, DoppioClicLasciaIlPadComEraMaNonSalvato) {
    Finestra w;
    w.clicca({5, 90});
    auto pad = w.s.pad;
    w.s.SistemaSalvato = true;
    w.clicca({40, 40});
    EXPECT_EQ(w.s.pad, pad);
    EXPECT_EQ(w.s.Label2, "2");
    EXPECT_EQ(w.pronostico(), (std::vector<int>{5, 90}));
    EXPECT_FALSE(w.s.SistemaSalvato);
}

TEST(Form1Pad, ZeroNumeriTieneIlVecchioPronostico) {
    Finestra w;
    w.clicca({8, 9});
    w.clicca({8, 9});
    EXPECT_EQ(w.s.Label2, "0");
    EXPECT_EQ(w.s.NumPronostico, 0);
    // 1..1 as the last click with a count left it (9 alone).
    ASSERT_EQ(w.s.Pronostico.size(), 2u);
    EXPECT_EQ(w.s.Pronostico[1], 9);
    EXPECT_FALSE(w.s.PronosticoScalare);
}

TEST(Form1Pad, PannelloCondizionateSottoSeiNumeri) {
    Finestra w;
    w.clicca({1, 2, 3, 4, 5, 6, 7});
    w.s.pannelli[0] = "CONDIZIONATE: 120";
    w.clicca({7});  // 6 left: stays
    EXPECT_EQ(w.s.pannelli[0], "CONDIZIONATE: 120");
    w.clicca({7});  // selecting never touches it
    w.clicca({7, 6});  // 5 left
    EXPECT_EQ(w.s.pannelli[0], "CONDIZIONATE: 0");
}

TEST(Form1Pad, AzzeraCombinazioniEChiamaLeCondizioni) {
    Finestra w;
    int condizioni = 0;
    w.s.ResettaCondizioni = [&] { ++condizioni; };
    w.s.NumCombinazioni = 84;
    w.clicca({30});
    EXPECT_EQ(w.s.NumCombinazioni, 0);
    EXPECT_EQ(condizioni, 1);
    EXPECT_EQ(w.eventi, (std::vector<std::string>{"scaricaForm12"}));
}

TEST(Form1Pad, LeColonneInMemoriaRestano) {
    Finestra w;
    Sviluppo(w.s, 3, 4);
    w.clicca({1});
    EXPECT_EQ(w.s.NumColonne, 4);
}

TEST(Form1Pad, IndiceFuoriDalPadIgnorato) {
    Finestra w;
    w.f.clickCommand1(90);
    w.f.clickCommand1(-1);
    EXPECT_EQ(w.s.Label2, "0");
    EXPECT_TRUE(w.s.SistemaSalvato);
}

TEST(Form1Nuovo, AzzeraEChiedeDiSalvare) {
    Finestra w;
    w.clicca({1, 2, 3, 4});
    Sviluppo(w.s, 3, 4);
    w.s.Command2 = "Bari ...";
    w.s.MSFlexGrid1.AddItem(" 1  2  3 ");
    w.s.ListaCol = "1";
    w.s.CostoColonna = Currency::daInteri(1);
    w.s.TipoGaranzia = 3;
    w.s.pannelli = {"CONDIZIONATE: 4", "RIDOTTE: 2", "COSTO SISTEMA €: 4"};
    w.s.SalvaAbilitato = true;
    w.eventi.clear();
    w.ui.risposte.push_back(Risposta::Si);
    w.f.Nuovo();
    ASSERT_EQ(w.ui.box.size(), 1u);
    EXPECT_EQ(w.ui.box[0].testo, "Vuoi salvare il sistema ?");
    EXPECT_EQ(w.ui.box[0].titolo, "ATTENZIONE");
    EXPECT_EQ(w.ui.box[0].icona, Icona::Esclamazione);
    EXPECT_EQ(w.ui.box[0].pulsanti, Pulsanti::SiNo);
    EXPECT_EQ(w.eventi.front(), "SalvaConNome");
    EXPECT_EQ(w.s.Command2, "Non selezionata");
    EXPECT_EQ(w.s.ListaCol, "0");
    EXPECT_EQ(w.s.MSFlexGrid1.Rows(), 0);
    EXPECT_EQ(w.s.contaPad(), 0);
    EXPECT_EQ(w.s.Label2, "0");
    EXPECT_TRUE(w.s.Pronostico.empty());
    EXPECT_EQ(w.s.NumPronostico, 0);
    EXPECT_TRUE(w.s.PronosticoNonSviluppato);
    EXPECT_FALSE(w.s.SistemaSalvato);
    EXPECT_FALSE(w.s.SalvaAbilitato);
    EXPECT_EQ(w.s.NumColonne, 0);
    EXPECT_EQ(w.s.colonne.k(), 2);
    EXPECT_EQ(w.s.TipoGaranzia, 0);
    EXPECT_EQ(w.s.CostoColonna, Currency());
    EXPECT_EQ(w.s.pannelli[0], "CONDIZIONATE: 0");
    EXPECT_EQ(w.s.pannelli[1], "RIDOTTE: 0");
    EXPECT_EQ(w.s.pannelli[2], "COSTO SISTEMA €: 0");
    EXPECT_EQ(w.s.titolo, "Zefiranto 2.0 -  sistema senza nome");
}

TEST(Form1Nuovo, NoNonSalvaESistemaSalvatoNonChiede) {
    Finestra w;
    w.ui.risposte.push_back(Risposta::No);
    w.clicca({4});
    w.f.Nuovo();
    EXPECT_EQ(w.ui.box.size(), 1u);
    EXPECT_TRUE(w.eventi.empty() || w.eventi.back() != "SalvaConNome");
    for (auto& e : w.eventi) EXPECT_NE(e, "SalvaConNome");

    Finestra v;  // just started: saved, no prompt
    v.f.Nuovo();
    EXPECT_TRUE(v.ui.box.empty());
}

TEST(Form1Nuovo, ScaricaIlDialogoDiGiocata) {
    Finestra w;
    w.s.form2.caricato = true;
    w.s.form2.Option1.fill(false);
    w.s.form2.Option1[0] = true;
    w.s.form2.Check[2] = 1;
    w.f.Nuovo();
    EXPECT_FALSE(w.s.form2.caricato);
    EXPECT_EQ(w.s.form2.ruota(), 11);
    EXPECT_EQ(w.s.form2.Check[2], 0);
}

TEST(Form1Nuovo, LaRiduzioneResta) {
    Finestra w;
    w.s.ColonneRidotte.dimensiona(3, 10);
    for (int p = 1; p <= 3; ++p) w.s.ColonneRidotte.set(p, 1, static_cast<uint8_t>(p * 10));
    w.s.NumRidotte = 1;
    w.s.CostoColonna = Currency::daInteri(2);
    w.f.Nuovo();
    EXPECT_EQ(w.s.NumRidotte, 1);
    w.f.clickCommand7();
    ASSERT_EQ(w.s.MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(w.s.MSFlexGrid1.riga(0), " 10 20 30");
}

TEST(Form1Uscita, DopoNuovoChiedeAncheSeVuoto) {
    Finestra w;
    w.f.Nuovo();
    w.eventi.clear();
    w.ui.risposte.push_back(Risposta::No);
    w.f.Uscita();
    ASSERT_EQ(w.ui.box.size(), 1u);
    EXPECT_EQ(w.ui.box[0].testo, "Vuoi salvare il sistema ?");
    EXPECT_EQ(w.eventi, (std::vector<std::string>{"ChiudiArchivio", "fine"}));
    EXPECT_TRUE(w.f.terminato);
}

TEST(Form1Uscita, SiSalvaPrimaDiChiudere) {
    Finestra w;
    w.clicca({1});
    w.eventi.clear();
    w.ui.risposte.push_back(Risposta::Si);
    w.f.clickToolbar("uscita");
    EXPECT_EQ(w.eventi, (std::vector<std::string>{"SalvaConNome", "ChiudiArchivio", "fine"}));
}

TEST(Form1Uscita, SalvatoEsceSubito) {
    Finestra w;
    w.f.menuUscita();
    EXPECT_TRUE(w.ui.box.empty());
    EXPECT_EQ(w.eventi, (std::vector<std::string>{"ChiudiArchivio", "fine"}));
}

TEST(Form1Riduzione, MessaggiEOpzioneDellaGaranzia) {
    Finestra w;
    int aperto = -1;
    w.f.mostraForm5 = [&](int opzione) { aperto = opzione; };
    w.f.clickCommand8();
    EXPECT_EQ(w.ui.ultimoBox().titolo, "ERRORE SULLA RIDUZIONE");
    EXPECT_EQ(w.ui.ultimoBox().testo,
              "Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema condizionato!");
    EXPECT_EQ(w.ui.ultimoBox().icona, Icona::Esclamazione);
    Sviluppo(w.s, 2, 1);
    w.f.menuGaranzia(3);
    EXPECT_EQ(w.ui.ultimoBox().testo, "Non è possibile ridurre una sola colonna!");
    EXPECT_EQ(aperto, -1);

    Sviluppo(w.s, 2, 5);
    const std::array<int, 4> livelli = {5, 4, 3, 2};
    for (int i = 0; i < 4; ++i) {
        w.f.menuGaranzia(livelli[i]);
        EXPECT_EQ(aperto, i + 1);
        for (int o = 0; o < 4; ++o) EXPECT_EQ(w.s.form5.Option[o], o == i) << livelli[i];
    }
    EXPECT_TRUE(w.s.form5.caricato);
    // Command8 leaves the options as they stand.
    w.f.clickCommand8();
    EXPECT_EQ(aperto, 0);
    EXPECT_TRUE(w.s.form5.Option[3]);
    EXPECT_EQ(w.ui.box.size(), 2u);
}

TEST(Form1Riduzione, LOpzioneVaImpostataDopoIlCaricamento) {
    Finestra w;
    Sviluppo(w.s, 2, 5);
    std::vector<std::string> ordine;
    // A load that brings the options back to cinquina must not undo the item's choice.
    w.f.caricaForm5 = [&] {
        ordine.push_back("carica");
        w.s.form5.scarica();
        w.s.form5.caricato = true;
    };
    w.f.mostraForm5 = [&](int opzione) {
        ordine.push_back("mostra " + std::to_string(opzione));
        EXPECT_TRUE(w.s.form5.Option[2]);
        EXPECT_FALSE(w.s.form5.Option[0]);
    };
    w.f.menuGaranzia(3);
    EXPECT_EQ(ordine, (std::vector<std::string>{"carica", "mostra 3"}));
    // An already loaded dialog keeps its other options when no load hook is set.
    Finestra v;
    Sviluppo(v.s, 2, 5);
    v.s.form5.caricato = true;
    v.s.form5.cento = false;
    v.f.mostraForm5 = [](int) {};
    v.f.menuGaranzia(2);
    EXPECT_FALSE(v.s.form5.cento);
    EXPECT_TRUE(v.s.form5.Option[3]);
}

TEST(Form1Menu, StampaInformazioniSviluppoRidotto) {
    Finestra w;
    int stampa = 0, info = 0, ridotto = 0;
    w.f.mostraForm10 = [&] { ++stampa; };
    w.f.mostraForm9 = [&] { ++info; };
    w.f.mostraForm19 = [&] { ++ridotto; };

    w.f.menustampa();
    EXPECT_EQ(w.ui.ultimoBox().titolo, "ERRORE NESSUNA COLONNA");
    EXPECT_EQ(w.ui.ultimoBox().testo,
              "Nessuna giocata ridotta o condizinata è presente in lista. E' necessario visualizzare le giocate "
              "prima di stamparle.");
    EXPECT_EQ(w.ui.ultimoBox().icona, Icona::Critico);
    w.s.MSFlexGrid1.AddItem(" 1  2 ");
    w.f.clickToolbar("stampa");
    EXPECT_EQ(stampa, 1);

    w.f.menuInformazioni();
    EXPECT_EQ(w.ui.ultimoBox().testo, "Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema!");
    EXPECT_EQ(w.ui.ultimoBox().titolo, "ERRORE SULLA RIDUZIONE");
    EXPECT_EQ(w.ui.ultimoBox().icona, Icona::Esclamazione);
    Sviluppo(w.s, 2, 1);
    w.f.menuInformazioni();
    EXPECT_EQ(info, 1);

    w.clicca({1, 2});
    w.f.menuSviluppoRidotto();
    EXPECT_EQ(w.ui.ultimoBox().titolo, "Attenzione");
    EXPECT_EQ(w.ui.ultimoBox().testo, "E' necessario impostare un pronostico prima!");
    EXPECT_EQ(w.ui.ultimoBox().icona, Icona::Critico);
    EXPECT_EQ(ridotto, 0);
    w.clicca({3});
    w.f.menuSviluppoRidotto();
    EXPECT_EQ(ridotto, 1);
    EXPECT_EQ(w.ui.box.size(), 3u);
}

TEST(Form1Menu, BarraDegliStrumenti) {
    Finestra w;
    std::vector<std::string> aperti;
    auto segna = [&](const char* nome) { return [&aperti, nome] { aperti.push_back(nome); }; };
    w.f.mostraForm20 = segna("Form20");
    w.f.Apri = segna("Apri");
    w.f.Salva = segna("Salva");
    w.f.mostraForm6 = segna("Form6");
    w.f.PronosticoStatistico = segna("PronosticoStatistico");
    w.f.mostraForm3 = segna("Form3");
    w.f.mostraForm15 = segna("Form15");
    for (auto& p : PulsantiBarra)
        if (std::string(p.chiave) != "uscita" && std::string(p.chiave) != "stampa") w.f.clickToolbar(p.chiave);
    EXPECT_EQ(aperti, (std::vector<std::string>{"Form20", "Apri", "Salva", "Form6", "PronosticoStatistico",
                                                "Form3", "Form15"}));
    ASSERT_EQ(w.ui.documentiAperti.size(), 1u);
    EXPECT_NE(w.ui.documentiAperti[0].find("/guida.pdf"), std::string::npos);

    // SVILUPPA from the toolbar only while the button is enabled.
    aperti.clear();
    w.f.Command3Abilitato = false;
    w.f.clickToolbar("sviluppo");
    w.f.clickToolbar("sconosciuto");
    EXPECT_TRUE(aperti.empty());
}

TEST(Form1Menu, ComandiSenzaFinestraNonFannoNulla) {
    Sistema s;
    InterfacciaScriptata ui;
    Form1 f(s, ui);
    f.clickCommand2();
    f.clickCommand3();
    f.clickCommand9();
    f.menuApri();
    f.menuVisualizzaPercentuali();
    f.mouseDownLista(2);
    EXPECT_TRUE(ui.box.empty());
}

TEST(Form1Lista, VisualizzaEliminaEMenuContestuale) {
    Finestra w;
    int popup = 0;
    w.f.mostraForm18 = [&] { ++popup; };
    w.f.menuVediColonne();
    EXPECT_EQ(w.ui.ultimoBox().testo, "Nessuna giocata presente in memoria!");
    Sviluppo(w.s, 3, 4);
    w.s.CostoColonna = Currency::daInteri(1);
    w.f.clickCommand7();
    EXPECT_EQ(w.s.ListaCol, "4");
    EXPECT_EQ(w.s.MSFlexGrid1.riga(1), " 2  3  4 ");
    // An upward drag deletes rows 2..3 (1-based), the same as a downward one.
    w.s.MSFlexGrid1.Row = 2;
    w.s.MSFlexGrid1.RowSel = 1;
    w.f.clickCommand5();
    EXPECT_EQ(w.s.ListaCol, "2");
    EXPECT_EQ(w.s.MSFlexGrid1.riga(1), " 4  5  6 ");
    w.f.clickLista();
    EXPECT_EQ(w.f.coloreSelezione, 16777215);
    w.f.mouseDownLista(1);
    w.f.mouseDownLista(2);
    EXPECT_EQ(popup, 1);
}

TEST(Form1Timer, Timer6UnaVoltaSolaETimer4SoloSeAbilitato) {
    Finestra w;
    int controlli = 0, tick = 0;
    w.f.ControllaAggiornamento = [&] { ++controlli; };
    w.f.tickTimer4 = [&] { ++tick; };
    w.f.timer6();
    w.f.timer6();
    EXPECT_EQ(controlli, 1);
    w.f.timer4();
    EXPECT_EQ(tick, 0);
    w.s.Timer4Abilitato = true;
    w.f.timer4();
    w.f.timer4();
    EXPECT_EQ(tick, 2);
}
