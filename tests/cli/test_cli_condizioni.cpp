// zefiranto-cli condizioni suggerite: the envelope printed line by line, bad input,
// and a development filtered by the condition file it writes.
#include "support/cartella.h"
#include "support/esegui_cli.h"
#include "support/estrazioni_prova.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <sstream>

using namespace zef;
using prova::CartellaTemporanea;
using prova::Esegui;
using prova::Esito;

namespace {

std::map<std::string, std::string> Voci(const std::string& uscita) {
    std::map<std::string, std::string> v;
    std::istringstream in(uscita);
    std::string riga;
    while (std::getline(in, riga)) {
        const auto due = riga.find(": ");
        if (due != std::string::npos) v[riga.substr(0, due)] += (v.count(riga.substr(0, due)) ? "|" : "") + riga.substr(due + 2);
    }
    return v;
}

std::set<int> Numeri(const std::string& lista) {
    std::set<int> s;
    std::istringstream in(lista);
    std::string n;
    while (std::getline(in, n, ',')) s.insert(std::stoi(n));
    return s;
}

int Intero(const std::map<std::string, std::string>& v, const std::string& nome) { return std::stoi(v.at(nome)); }

}  // namespace

TEST(CliCondizioniSuggerite, StampaLInviluppoRigaPerRiga) {
    CartellaTemporanea dir;
    prova::ArchivioCon(dir / "a.db", prova::EstrazioniAMano());
    // the last draw on Bari, 58 70 14 26 47: 14 26 47 58 70
    const std::string attesa =
        "Combo1: 0\nCombo2: 0\nCombo5: 3\nCombo7: 1\nCombo10: 0\n"
        "Check1: 0,0,0,0,1,0\nchkInterruzioniPD: 0,0,1,0,0,0\nchkGruppiPari: 0,0,1,0\nchkGruppiDispari: 0,1,0,0,0,0,0\n"
        "txtSomma0: 215\ntxtSomma1: 215\ntxtPariMin: 4\ntxtPariMax: 4\ntxtPariCons: 2\n"
        "txtDispariMin: 1\ntxtDispariMax: 1\ntxtDispariCons: 1\ntxtDistanzaMin: 5\n"
        "ritardoMin: 0\nritardoMax: 0\nfrequenzaMin: 0\nfrequenzaMax: 0\n"
        "List3: Da 1 a 30, min 2 max 2, c.min 1 c.max 2\n"
        "List3: Da 31 a 60, min 2 max 2, c.min 1 c.max 2\n"
        "List3: Da 61 a 90, min 1 max 1, c.min 1 c.max 2\n"
        "PosizioniSuggerite1: 14\nPosizioniSuggerite2: 26\nPosizioniSuggerite3: 47\nPosizioniSuggerite4: 58\n"
        "PosizioniSuggerite5: 70\n";
    Esito e = Esegui("condizioni suggerite --ultime 1 --ruota 0 --archivio " + (dir / "a.db"));
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, attesa);
    // an answer that is no number reads as none: one draw as well
    e = Esegui("condizioni suggerite --ultime tre --ruota 0 --archivio " + (dir / "a.db"));
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, attesa);
}

TEST(CliCondizioniSuggerite, InputSbagliato) {
    CartellaTemporanea dir;
    prova::ArchivioCon(dir / "a.db", prova::EstrazioniAMano());
    prova::ArchivioCon(dir / "vuoto.db", {});
    const std::string a = " --archivio " + (dir / "a.db");
    for (const std::string& argomenti :
         {"condizioni suggerite --ultime 3 --ruota 12" + a, "condizioni suggerite --ultime 3 --ruota x" + a,
          "condizioni suggerite --ultime 99999" + a, "condizioni suggerite --ruota 1" + a,
          "condizioni suggerite --ultime 3 --archivio " + (dir / "manca.db"),
          "condizioni suggerite --ultime 3 --archivio " + (dir / "vuoto.db"),
          "condizioni suggerite --ultime 3 -o " + (dir / "no/c.json") + a, std::string("condizioni")}) {
        Esito e = Esegui(argomenti);
        EXPECT_NE(e.stato, 0) << argomenti;
        EXPECT_FALSE(e.uscita.empty()) << argomenti;
        // the envelope is printed before the file is written, never on a refusal
        const bool scrive = argomenti.find(" -o ") != std::string::npos;
        EXPECT_EQ(e.uscita.find("txtSomma0") != std::string::npos, scrive) << argomenti;
    }
    EXPECT_NE(Esegui("condizioni suggerite --ultime 3 --archivio " + (dir / "manca.db")).uscita.find("archivio"),
              std::string::npos);
    EXPECT_NE(Esegui("condizioni suggerite --ultime 99999" + a).uscita.find("99999"), std::string::npos);
}

// A development keeps only columns inside the envelope printed; the file holds places
// for all ninety numbers, and a forecast of forty takes it as well.
TEST(CliCondizioniSuggerite, SviluppoConLeCondizioniScritte) {
    CartellaTemporanea dir;
    std::mt19937 g(11);
    std::vector<EstrazioneLetta> d = prova::EstrazioniFormula(620);
    for (auto& e : d)
        for (int r = 1; r <= 10; ++r) {
            std::array<int, 90> urna;
            std::iota(urna.begin(), urna.end(), 1);
            std::shuffle(urna.begin(), urna.end(), g);
            prova::Imposta(e, r, {urna[0], urna[1], urna[2], urna[3], urna[4]});
        }
    const std::string db = dir / "a.db";
    prova::ArchivioCon(db, d);
    const std::string json = dir / "c.json";
    Esito e = Esegui("condizioni suggerite --ultime 20 --ruota 3 --archivio " + db + " -o " + json);
    ASSERT_EQ(e.stato, 0) << e.uscita;
    const auto v = Voci(e.uscita);

    Esito quaranta = Esegui("sviluppa --pronostico 1-40 --k 5 --condizioni " + json + " --archivio " + db + " --ruota 3");
    EXPECT_EQ(quaranta.stato, 0) << quaranta.uscita;
    EXPECT_NE(quaranta.uscita.find("\nESAMINATE: 658008\n"), std::string::npos);  // C(40, 5)

    // With every tab the file switches on, only columns of numbers just drawn are left:
    // the delays at each draw count the draw itself, so the mean delay offered is 0 to 0.
    Esito tutte = Esegui("sviluppa --pronostico 1-90 --k 5 --condizioni " + json + " --archivio " + db + " --ruota 3");
    EXPECT_EQ(tutte.stato, 0);
    EXPECT_EQ(Voci(tutte.uscita)["CONDIZIONATE"], "0");
    EXPECT_EQ(v.at("ritardoMin") + v.at("ritardoMax"), "00");
    // without the delay tab
    nlohmann::json file;
    std::ifstream(json) >> file;
    file["chkAttivo"][14] = 0;
    std::ofstream(json) << file.dump();
    Esito s = Esegui("sviluppa --pronostico 1-90 --k 5 --condizioni " + json + " --archivio " + db +
                     " --ruota 3 --colonne");
    ASSERT_EQ(s.stato, 0) << s.uscita;
    std::istringstream righe(s.uscita);
    std::string riga;
    std::getline(righe, riga);
    const long condizionate = std::stol(riga.substr(riga.find(": ") + 2));
    std::getline(righe, riga);
    EXPECT_EQ(riga, "ESAMINATE: 43949268");  // C(90, 5)
    EXPECT_GT(condizionate, 0);
    EXPECT_LT(condizionate, 43949268 / 10);

    // the five draws before the last on Genova: no number of theirs may appear
    std::set<int> recenti;
    for (int i = 614; i <= 618; ++i)
        for (int p = 1; p <= 5; ++p) recenti.insert(d[i].numero(4, p));
    std::array<std::set<int>, 6> posti;
    for (int p = 1; p <= 5; ++p) posti[p] = Numeri(v.at("PosizioniSuggerite" + std::to_string(p)));
    long viste = 0;
    while (std::getline(righe, riga)) {
        std::istringstream in(riga);
        std::vector<int> c;
        for (int x; in >> x;) c.push_back(x);
        ASSERT_EQ(c.size(), 5u) << riga;
        ++viste;
        const int somma = std::accumulate(c.begin(), c.end(), 0);
        EXPECT_GE(somma, Intero(v, "txtSomma0")) << riga;
        EXPECT_LE(somma, Intero(v, "txtSomma1")) << riga;
        const int pari = static_cast<int>(std::count_if(c.begin(), c.end(), [](int x) { return x % 2 == 0; }));
        EXPECT_GE(pari, Intero(v, "txtPariMin")) << riga;
        EXPECT_LE(pari, Intero(v, "txtPariMax")) << riga;
        int passi = 0;
        for (int j = 0; j < 4; ++j) {
            passi += c[j + 1] == c[j] + 1;
            EXPECT_GE(c[j + 1] - c[j] - 1, Intero(v, "txtDistanzaMin")) << riga;
            EXPECT_LE(c[j + 1] - c[j], 51) << riga;
        }
        EXPECT_GE(passi, Intero(v, "Combo1")) << riga;
        EXPECT_LE(passi, Intero(v, "Combo2")) << riga;
        for (int j = 0; j < 5; ++j) {
            EXPECT_TRUE(posti[j + 1].count(c[j])) << riga;
            EXPECT_FALSE(recenti.count(c[j])) << riga;
        }
        if (HasFailure()) return;
    }
    EXPECT_EQ(viste, condizionate);
}
