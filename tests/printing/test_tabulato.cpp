// The listing, line by line, through the recording printer.

#include "printing/tabulato.h"

#include "aiuti_stampa.h"
#include "core/errori.h"
#include "core/interfaccia_scriptata.h"
#include "reduction/percentuali.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace zef;
using prova::Righe;

namespace {

const std::string Stelle66 = "   ***************************************************************";
const std::string Stelle62 = "    **************************************************************";

std::vector<std::string> Tabulato(const Sistema& s, SezioniTabulato sez, const std::string& data = "01/02/2026") {
    StampanteRegistrata st;
    StampaTabulato(s, sez, data, st);
    return Righe(st);
}

// The lines after the heading's eleven.
std::vector<std::string> DopoIntestazione(const std::vector<std::string>& r) {
    return std::vector<std::string>(r.begin() + 11, r.end());
}

// Without the forecast section: the lines after the closing asterisks.
std::vector<std::string> DopoStelle(const std::vector<std::string>& r) {
    EXPECT_EQ(r.at(11), Stelle62);
    return std::vector<std::string>(r.begin() + 12, r.end());
}

}  // namespace

TEST(Tabulato, IntestazioneSenzaSezioni) {
    Sistema s;
    StampanteRegistrata st;
    StampaTabulato(s, {}, "05/03/26", st);
    const std::vector<std::string> attese = {
        "", "", "    Zefiranto 2.0", "", "   Elaboratore di sistemi avanzati per Lotto", "", Stelle66,
        "    NOME DEL SISTEMA: nessuno", "", "    DATA DI STAMPA: 05/03/26", "", Stelle62};
    EXPECT_EQ(Righe(st), attese);
    // The heading in Arial 18 bold, everything after it in Courier new 11.
    const auto& ops = st.operazioni;
    ASSERT_EQ(ops.front().tipo, OperazioneStampa::Tipo::Carattere);
    EXPECT_EQ(ops.front().carattere, (Carattere{"Arial", 18, true}));
    int cambi = 0;
    for (size_t i = 0; i < ops.size(); ++i) {
        if (ops[i].tipo == OperazioneStampa::Tipo::Carattere) ++cambi;
        if (ops[i].tipo == OperazioneStampa::Tipo::Testo && ops[i].testo != "    Zefiranto 2.0") {
            EXPECT_EQ(ops[i].carattere, (Carattere{"Courier new", 11, false})) << ops[i].testo;
        }
    }
    EXPECT_EQ(cambi, 2);
    EXPECT_EQ(ops.back().tipo, OperazioneStampa::Tipo::FineDocumento);
    EXPECT_EQ(prova::Conta(st, OperazioneStampa::Tipo::NuovaPagina), 0);
}

TEST(Tabulato, NomeDelSistema) {
    EXPECT_EQ(RigaNomeSistema(""), "    NOME DEL SISTEMA: nessuno");
    EXPECT_EQ(RigaNomeSistema("/home/a/sistema.zfr"), "    NOME DEL SISTEMA: /home/a/sistema.zfr");
    // Fifty characters, not bytes: the accented letters count one each.
    const std::string lungo = "/home/utente/Documenti/città/sistemi/perché/ambo_e_terno.zfr";
    const std::string atteso = "/home/utente/Documenti/città/sistemi/perché/ambo_e";
    EXPECT_EQ(RigaNomeSistema(lungo), "    NOME DEL SISTEMA: " + atteso);
    Sistema s;
    s.FileName = lungo;
    EXPECT_EQ(Tabulato(s, {})[7], "    NOME DEL SISTEMA: " + atteso);
}

TEST(Tabulato, SezionePronostico) {
    Sistema s;
    prova::ImpostaPronostico(s, {1, 7, 10, 45, 81, 90});
    s.pannelli = {"CONDIZIONATE: 20", "RIDOTTE: 0", "COSTO SISTEMA €: 20"};
    s.Command2 = "Bari, , Ambo € 1,00, , , ";
    s.form5.Option = {false, false, true, false};
    s.GaranziaAttiva = true;
    const auto r = DopoIntestazione(Tabulato(s, {true, false, false}));
    const std::vector<std::string> attese = {
        "    ************************* PRONOSTICO *************************",
        "    Numeri in elenco: 6",
        "",
        "    *  1 * -- * -- * -- * -- * -- *  7 * -- * -- * 10",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * 45 * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * -- * -- * -- * -- * -- * -- * -- * -- * -- * --",
        "    * 81 * -- * -- * -- * -- * -- * -- * -- * -- * 90",
        Stelle62,
        "     TIPO DI SISTEMA: Ridotto a garanzia terno.",
        "",
        "     GIOCATE CONDIZIONATE: 20",
        "",
        "     GIOCATE RIDOTTE: 0",
        "",
        "     COSTO SISTEMA €: 20",
        "",
        "",
        "     TIPO DI GIOCATA: Bari, , Ambo € 1,00, , , ",
        Stelle62};
    EXPECT_EQ(r, attese);
}

TEST(Tabulato, TipoDiSistemaPerOpzioneEGaranzia) {
    const char* livelli[4] = {"cinquina", "quaterna", "terno", "ambo"};
    Sistema s;
    for (int o = 0; o < 4; ++o) {
        s.form5.Option = {};
        s.form5.Option[o] = true;
        s.GaranziaAttiva = true;
        EXPECT_EQ(RigaTipoSistema(s), std::string("     TIPO DI SISTEMA: Ridotto a garanzia ") + livelli[o] + ".");
        s.GaranziaAttiva = false;
        EXPECT_EQ(RigaTipoSistema(s),
                  std::string("     TIPO DI SISTEMA: Ridotto a garanzia ") + livelli[o] + " non al 100%.");
    }
    // Two options on (the dialog does not make them exclusive): the first one speaks.
    s.form5.Option = {false, true, false, true};
    s.GaranziaAttiva = true;
    EXPECT_EQ(RigaTipoSistema(s), "     TIPO DI SISTEMA: Ridotto a garanzia quaterna.");
    s.form5.Option = {};
    EXPECT_EQ(RigaTipoSistema(s), "     TIPO DI SISTEMA: Condizionato senza riduzione.");
    s.GaranziaAttiva = false;
    EXPECT_EQ(RigaTipoSistema(s), "     TIPO DI SISTEMA: Condizionato senza riduzione.");
    // A fresh sistema has the reduction dialog's first option on.
    EXPECT_EQ(RigaTipoSistema(Sistema{}), "     TIPO DI SISTEMA: Ridotto a garanzia cinquina non al 100%.");
}

TEST(Tabulato, SezioneCondizioniDistanzaEFisse) {
    Sistema s;
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, true, false})), std::vector<std::string>{});
    s.DistanzaMin = 3;
    s.NumFissi = 2;
    s.NumeriFissi = {0, 12, 40, 0, 0, 0, 0};  // 0..6, as the fixed numbers dialog leaves it
    s.NumeriFissiBase = 0;
    const std::vector<std::string> attese = {"", "", "     Distanza tra coppie numeriche: 3", "", "",
                                             "     Fisse impostate: 2", "     12", "     40"};
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, true, false})), attese);
    // The same numbers in a table counted from 1.
    s.NumeriFissi = {12, 40, 0, 0, 0, 0};
    s.NumeriFissiBase = 1;
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, true, false})), attese);
}

TEST(Tabulato, FisseOltreLaTabellaSonoUnErrore) {
    // The conditions dialog cut the shared table back to one number after three were fixed.
    Sistema s;
    s.NumFissi = 3;
    s.NumeriFissi = {0, 12};
    s.NumeriFissiBase = 0;
    StampanteRegistrata st;
    EXPECT_EQ(prova::NumeroErrore([&] { StampaTabulato(s, {false, true, false}, "x", st); }),
              errori::IndiceFuoriIntervallo);
}

TEST(Tabulato, SezioneCondizioniConPercentuali) {
    Sistema s;
    InterfacciaScriptata ui;
    prova::ImpostaPronostico(s, {1, 2, 3, 4, 5, 6});
    // Four columns of four from six numbers.
    prova::ImpostaLista(s, 4, {prova::Riga({1, 2, 3, 4}), prova::Riga({1, 2, 5, 6}), prova::Riga({3, 4, 5, 6}),
                               prova::Riga({1, 3, 5, 6})});
    s.NumColonne = 4;
    Form8 f8(s, ui);
    f8.avviaEdEsegui();
    ASSERT_TRUE(s.PercentualiValide);
    const auto r = DopoStelle(Tabulato(s, {false, true, false}));
    ASSERT_EQ(r.size(), 18u);
    EXPECT_EQ(r[0], "");
    EXPECT_EQ(r[1], "     PERCENTUALI DI VINCITA");
    const std::string trattini = "      -----------------------------------------------------------------------";
    const std::string separatore = "     ¦-----------¦--------------¦--------------¦--------------¦--------------¦";
    EXPECT_EQ(r[2], trattini);
    EXPECT_EQ(r[3], "     ¦ PUNTEGGIO ¦ Con 5 numeri ¦ Con 4 numeri ¦ Con 3 numeri ¦ Con 2 numeri ¦");
    EXPECT_EQ(r[4], separatore);
    const char* titoli[4] = {"     ¦ Cinquina  ¦ ", "     ¦ Quaterna  ¦ ", "     ¦ Terno     ¦ ",
                             "     ¦ Ambo      ¦ "};
    for (int kind = 0; kind < 4; ++kind) {
        std::string attesa = titoli[kind];
        for (int L = 5; L >= 2; --L) {
            std::string cella = s.form8.Perc[kind][L];
            cella.resize(12, ' ');
            attesa += cella + " ¦ ";
        }
        EXPECT_EQ(r[5 + 2 * kind], attesa);
        if (kind < 3) {
            EXPECT_EQ(r[6 + 2 * kind], separatore);
        }
    }
    // With k = 4 the cinquina row keeps its design state; every pair of the forecast
    // lies in some column, so the ambo row is full at every L.
    const std::string vuota = std::string(12, ' ') + " ¦ ", cento = "100" + std::string(9, ' ') + " ¦ ";
    EXPECT_EQ(r[5], "     ¦ Cinquina  ¦ " + vuota + vuota + vuota + vuota);
    EXPECT_EQ(r[11], "     ¦ Ambo      ¦ " + cento + cento + cento + cento);
    EXPECT_EQ(r[12], trattini);
    EXPECT_EQ(r[13], "     Valori espressi in %.");
    EXPECT_EQ(r[14], "");
    EXPECT_EQ(r[15], "     GARANZIA MINIMA: " + s.form8.GaranziaMin);
    EXPECT_EQ(r[16], "");
    EXPECT_EQ(r[17], "     GARANZIA MASSIMA: 1 QUATERNA CON 5 NUMERI");
}

TEST(Tabulato, GiocateTreARiga) {
    Sistema s;
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 ", " 7  8 "});
    const auto r = DopoStelle(Tabulato(s, {false, false, true}));
    const std::vector<std::string> attese = {"\f", "", "", "", "     Giocate ", "",
                                             "     1  2       3  4       5  6 ", "     7  8 ", ""};
    EXPECT_EQ(r, attese);
    // Rows filling the lines exactly: the round still reads one line past the end.
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 "});
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, false, true})).back(), "");
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, false, true})).size(), 8u);
    // Two rows on the last line.
    prova::ImpostaLista(s, 2, {" 1  2 ", " 3  4 ", " 5  6 ", " 7  8 ", "11 12 "});
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, false, true}))[7], "     7  8      11 12 ");
    // An empty list still has its heading.
    EXPECT_EQ(RigheSezioneGiocate(0), 6);
    prova::ImpostaLista(s, 2, {});
    EXPECT_EQ(DopoStelle(Tabulato(s, {false, false, true})),
              (std::vector<std::string>{"\f", "", "", "", "     Giocate ", "", ""}));
}

TEST(Tabulato, OgniCentoventiRigheLaListaRipartedallInizio) {
    Sistema s;
    for (int righe : {120, 121, 240, 241, 361}) {
        std::vector<std::string> lista;
        for (int i = 0; i < righe; ++i) lista.push_back(prova::Riga({1 + i % 30, 31 + i / 30, 90}));
        prova::ImpostaLista(s, 3, lista);
        StampanteRegistrata st;
        StampaTabulato(s, {false, false, true}, "x", st);
        const auto r = Righe(st);
        const int giri = (righe - 1) / 120 + 1;
        EXPECT_EQ(std::count(r.begin(), r.end(), "     Giocate "), giri) << righe;
        EXPECT_EQ(std::count(r.begin(), r.end(), "\f"), giri) << righe;  // one before the section, one between rounds
        // Every round starts from the first row and prints the whole list.
        const std::string prima = "    " + lista[0] + "     " + lista[1] + "     " + lista[2];
        EXPECT_EQ(std::count(r.begin(), r.end(), prima), giri) << righe;
        const size_t lineePerGiro = (righe + 2) / 3 + 1;
        EXPECT_EQ(r.size(), 12 + 1 + giri * (4 + 1 + lineePerGiro) + (giri - 1)) << righe;
        EXPECT_EQ(RigheSezioneGiocate(righe), static_cast<int64_t>(r.size()) - 12 - giri) << righe;
    }
}

TEST(Tabulato, TutteLeSezioniInOrdine) {
    Sistema s;
    prova::ImpostaPronostico(s, {5, 6, 7});
    prova::ImpostaLista(s, 2, {" 5  6 ", " 5  7 ", " 6  7 "});
    s.DistanzaMin = 1;
    const auto r = Tabulato(s, {true, true, true});
    auto pos = [&](const std::string& t) { return std::find(r.begin(), r.end(), t) - r.begin(); };
    EXPECT_LT(pos("    ************************* PRONOSTICO *************************"),
              pos("     Distanza tra coppie numeriche: 1"));
    EXPECT_LT(pos("     Distanza tra coppie numeriche: 1"), pos("\f"));
    EXPECT_LT(pos("\f"), pos("     Giocate "));
    EXPECT_EQ(r.back(), "");
    EXPECT_EQ(std::count(r.begin(), r.end(), Stelle62), 2);
}
