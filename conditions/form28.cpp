#include "conditions/form28.h"

#include "conditions/filtra_colonna.h"
#include "core/basic.h"
#include "core/errori.h"
#include "core/sistema.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace zef {

namespace form28 {
const std::array<const char*, 15> Schede = {
    "Numeri Fissi", "Consecutività", "Interruzioni", "Colonne Filtro", "Sezioni", "Somma", "Pari e dispari", "Distanza",
    "Gruppi", "InterruzioniPD", " Posizione numeri", "SequelePD", " Punti su colonne", "RECUPERO", "Rit/Frq"};
#define ATTIVA "Per attivare questa scheda utilizzare la casella 'attiva'."
const std::array<const char*, 15> Aiuti = {
    "Questa scheda serve per impostare i numeri che saranno 'fissi' su tutte le colonne del sistema. E' possibile "
    "impostare fino ad un massimo di 5 numeri fissi. Per impostare un numero fisso tra quelli in lista attivare la "
    "casella di spunta corrispondente al numero stesso. " ATTIVA,
    "Questa scheda serve per impostare la consecutività minima e massima per i numeri presenti nelle colonne del "
    "sistema. E' possibile scegliere se la condizione deve essere applicata a gruppi di numeri o all'intera sestina. " ATTIVA,
    "Questa scheda serve per impostare il numero di interruzioni possibili in ogni colonna. Le interruzioni sono "
    "costituite da coppie di numeri non consecutivi. " ATTIVA,
    "Questa scheda serve per impostare le colonne filtro del sistema. Per impostare una colonna filtro bisogna "
    "selezionare una combinazione di numeri ed il punteggio che le colonne dovranno rispettare in base a tale "
    "combinazione. " ATTIVA,
    "Questa scheda serve per impostare le sezioni del sistema. Per impostare una sezione definire l'intervallo "
    "numerico minimo e massimo, quindi inserire le presenze minime e massime dei numeri che ogni colonna dovrà "
    "rispettare in ogni sezione. Premere 'aggiungi' per creare la sezione. " ATTIVA,
    "Questa scheda serve per impostare l'intervallo in cui dovrà variare la somma globale dei numeri presenti in ogni "
    "colonna.  " ATTIVA,
    "Questa scheda serve per impostare il numero di pari e dispari possibili su ogni colonna. E' possibile impostare "
    "anche la consecutività sia per i pari che per i dispari.  " ATTIVA,
    "Questa scheda serve per impostare la distanza minima e massima tra i numeri presenti nelle colonne. La distanza "
    "può essere calcolata in base ai segni o in base alle unità. " ATTIVA,
    "Questa scheda serve per impostare il numero di gruppi pari e dispari costituiti da combinazioni consecutive di "
    "segni pari(P) o dispari(D).  " ATTIVA,
    "Questa scheda serve per impostare il numero di interruzioniPD possibili in ogni colonna. Le interruzioniPD sono "
    "costituite da numeri pari e dispari consecutivi. " ATTIVA,
    "Questa scheda serve per impostare l'intervallo numerico per ogni posizione in colonna.  " ATTIVA
    " NB. Il filtro è valido solo con sviluppo in cinquine",
    "Questa scheda serve per impostare combinazioni di numeri pari e/o dispari e le rispettive presenze in ogni "
    "colonna.  " ATTIVA,
    "Questa scheda serve per impostare il numero massimo di segni in comune con le colonne presenti in archivio.  " ATTIVA,
    "Questa scheda serve per impostare il numero massimo di condizioni errate ammesse. " ATTIVA,
    "Questa scheda serve per impostare il valore medio di ritardo e frequenza dei numeri in colonna."};
#undef ATTIVA
}  // namespace form28

namespace {
int V(const std::string& t) { return static_cast<int>(Val(t)); }
int16_t Intero(const std::string& t) { return InInteger(ArrotondaBanker(Val(t))); }
bool EUnNumero(const std::string& t) {
    std::string x = Trim(t);
    return !x.empty() && (std::isdigit(static_cast<unsigned char>(x[0])) || x[0] == '-' || x[0] == '+' || x[0] == '.' || x[0] == ',');
}
}  // namespace

Form28::Form28(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui), cond_(std::make_shared<Condizioni>()) {
    carica();
    s_.filtro = std::make_shared<FiltroCondizioni>(cond_);
    s_.ResettaCondizioni = [this] { ResettaCondizioni(); };
}

Form28::~Form28() { s_.ResettaCondizioni = nullptr; }

std::vector<std::string> Form28::voci(int combo) {
    switch (combo) {
        case 1: return {"1", "2", "3", "4", "5", "6"};
        case 2: case 5: case 7: return {"1", "2", "3", "4", "5"};
        case 3: return {"Gruppo", "Totale"};
        case 6: return {"Unità", "Segni"};
        case 8: return {"N", "1", "2", "3"};
        case 9: case 10: return {"0", "1", "2", "3", "4", "5", "6"};
    }
    return {};
}

void Form28::carica() {
    SSTab1 = 0;
    chkAttivo.fill(0);
    List1.clear();
    List1Spuntato.clear();
    Combo1 = 0; Combo2 = 4; Combo3 = 1; Combo5 = 4; Combo6 = 0; Combo7 = 4; Combo8 = 1; Combo9 = 0; Combo10 = 6;
    Check1.fill(1);
    chkNumeriCF.fill(0);
    chkPuntiCF.fill(0);
    chkNumeriCFAbilitato.fill(false);
    List2.clear(); List3.clear(); List4.clear();
    List2Indice = List3Indice = List4Indice = -1;
    txtSezioneDa = "1"; txtSezioneA = "90"; txtSezioneMin = "0"; txtSezioneMax = "5"; txtSezioneCMin = "1"; txtSezioneCMax = "5";
    txtSomma = {"15", "265"};
    txtPariMin = "0"; txtPariMax = "5"; txtPariCons = "5";
    txtDispariMin = "0"; txtDispariMax = "5"; txtDispariCons = "5";
    txtDistanzaMin = "0"; txtDistanzaMax = "50";
    chkGruppiPari.fill(1);
    chkGruppiDispari.fill(1);
    chkInterruzioniPD.fill(1);
    Check18.fill(0);
    Check18Abilitato.fill(false);
    Check20 = 0;
    txtPosizioni = "1";
    Command11 = {"", "", ""};
    Check2.fill(0);
    txtNcolonne = "10"; txtRitardoMin = "0"; txtRitardoMax = "100"; txtFrequenzaMin = "0"; txtFrequenzaMax = "90";
    txtUltimeEstrazioni = "90";
    Text1.clear();
    cond_->carica();
}

void Form28::attiva() {
    visibile = true;
    for (int i = 0; i < 90; ++i) {
        chkNumeriCFAbilitato[i] = s_.pad[i];
        Check18Abilitato[i] = s_.pad[i];
    }
    // Appended without emptying first: each showing adds one more copy of the forecast.
    for (int i = 1; i <= s_.NumPronostico && i < static_cast<int>(s_.Pronostico.size()); ++i) {
        List1.push_back(TestoSemplice(s_.Pronostico[i]));
        List1Spuntato.push_back(false);
    }
}

void Form28::ResettaCondizioni() {
    txtSomma = {"0", "0"};
    const int U = s_.PronosticoScalare ? 0 : static_cast<int>(s_.Pronostico.size()) - 1;
    const int k = s_.SviluppoK;
    const int quanti = (U >= k && U >= 5) ? k : U;
    for (int i = 1; i <= quanti; ++i) {
        txtSomma[0] = TestoSemplice(V(txtSomma[0]) + s_.Pronostico[i]);
        txtSomma[1] = TestoSemplice(V(txtSomma[1]) + s_.Pronostico[U + 1 - i]);
    }
    List1.clear();
    List1Spuntato.clear();
    s_.NumeriFissi.assign(1, 0);
    s_.NumeriFissiBase = 0;
    const int conto = V(s_.Label2);
    for (int i = 1; i <= conto && i < static_cast<int>(s_.Pronostico.size()); ++i) {
        List1.push_back(TestoSemplice(s_.Pronostico[i]));
        List1Spuntato.push_back(false);
    }
}

void Form28::spuntaList1(int indice, bool spuntato) {
    if (indice < 0 || indice >= static_cast<int>(List1.size())) return;
    List1Spuntato[indice] = spuntato;
    s_.NumeriFissi.assign(6, 0);  // 0..5
    s_.NumeriFissiBase = 0;
    int conto = 0;
    for (size_t i = 0; i < List1.size(); ++i) {
        if (!List1Spuntato[i]) continue;
        if (conto == 5) {  // a sixth tick is taken off
            List1Spuntato[i] = false;
            break;
        }
        s_.NumeriFissi[++conto] = Intero(List1[i]);
    }
    s_.NumeriFissi.resize(conto + 1);
}

// ---- typing and limits ------------------------------------------------------------------------

std::string* Form28::campo(const std::string& n) {
    if (n == "txtSezioneDa") return &txtSezioneDa;
    if (n == "txtSezioneA") return &txtSezioneA;
    if (n == "txtSezioneMin") return &txtSezioneMin;
    if (n == "txtSezioneMax") return &txtSezioneMax;
    if (n == "txtSezioneCMin") return &txtSezioneCMin;
    if (n == "txtSezioneCMax") return &txtSezioneCMax;
    if (n == "txtSomma(0)") return &txtSomma[0];
    if (n == "txtSomma(1)") return &txtSomma[1];
    if (n == "txtPariMin") return &txtPariMin;
    if (n == "txtPariMax") return &txtPariMax;
    if (n == "txtPariCons") return &txtPariCons;
    if (n == "txtDispariMin") return &txtDispariMin;
    if (n == "txtDispariMax") return &txtDispariMax;
    if (n == "txtDispariCons") return &txtDispariCons;
    if (n == "txtDistanzaMin") return &txtDistanzaMin;
    if (n == "txtDistanzaMax") return &txtDistanzaMax;
    if (n == "txtNcolonne") return &txtNcolonne;
    if (n == "txtPosizioni") return &txtPosizioni;
    if (n == "txtRitardoMin") return &txtRitardoMin;
    if (n == "txtRitardoMax") return &txtRitardoMax;
    if (n == "txtFrequenzaMin") return &txtFrequenzaMin;
    if (n == "txtFrequenzaMax") return &txtFrequenzaMax;
    if (n == "txtUltimeEstrazioni") return &txtUltimeEstrazioni;
    return nullptr;
}

bool Form28::tasto(const std::string& nome, char& c) {
    if (nome == "txtRitardoMin" || nome == "txtRitardoMax" || nome == "txtFrequenzaMin" || nome == "txtFrequenzaMax") {
        if (c == '.') c = ',';
        return true;
    }
    return std::isdigit(static_cast<unsigned char>(c)) || c == '\b';
}

void Form28::esci(const std::string& n) {
    std::string* t = campo(n);
    if (!t) return;
    auto limita = [&](int basso, int alto) {
        int v = V(*t);
        if (v < basso) *t = TestoSemplice(basso);
        else if (v > alto) *t = TestoSemplice(alto);
    };
    auto soloAlto = [&](int alto) {
        if (V(*t) > alto) *t = TestoSemplice(alto);
    };
    if (n == "txtSezioneDa") {
        limita(1, 90);
        if (V(txtSezioneDa) > V(txtSezioneA)) txtSezioneDa = txtSezioneA;
    } else if (n == "txtSezioneA") {
        limita(0, 90);
        if (V(txtSezioneA) < V(txtSezioneDa)) txtSezioneA = txtSezioneDa;
    } else if (n == "txtSezioneMin") {
        limita(0, 90);
        if (V(txtSezioneMin) > V(txtSezioneMax)) txtSezioneMax = txtSezioneMin;
    } else if (n == "txtSezioneMax") {
        limita(0, 90);
        if (V(txtSezioneMax) < V(txtSezioneMin)) txtSezioneMin = txtSezioneMax;
    } else if (n == "txtSezioneCMin") {
        limita(0, 90);
        if (V(txtSezioneCMin) > V(txtSezioneCMax)) txtSezioneCMax = txtSezioneCMin;
    } else if (n == "txtSezioneCMax") {
        limita(0, 90);
        if (V(txtSezioneCMax) < V(txtSezioneCMin)) txtSezioneCMin = txtSezioneCMax;
    } else if (n == "txtSomma(0)" || n == "txtSomma(1)") {
        if (V(txtSomma[1]) < V(txtSomma[0])) txtSomma[0] = txtSomma[1];
    } else if (n == "txtPariMin" || n == "txtPariMax" || n == "txtDispariMin" || n == "txtDispariMax") {
        soloAlto(5);
    } else if (n == "txtPariCons") {
        limita(1, 5);
    } else if (n == "txtDispariCons") {
        limita(1, 6);
    } else if (n == "txtDistanzaMin" || n == "txtDistanzaMax") {
        soloAlto(84);
    } else if (n == "txtNcolonne") {
        soloAlto(100);
    }
}

void Form28::spin(const std::string& nome, bool su) {
    struct Regola {
        const char* spin;
        const char* campo;
        int basso, alto;  // alto < 0: none
        int nonNumero;    // a text that is no number goes to the lower limit: 0 never, 1 down arrow, 2 both
    };
    // UpDown12 and UpDown13 move the two delay fields crosswise to their places on the tab.
    static const Regola regole[] = {
        {"UpDown1", "txtSezioneDa", 1, 90, 0},      {"UpDown2", "txtSezioneA", 1, 90, 0},
        {"UpDown3", "txtSezioneMin", 0, 5, 0},      {"UpDown4", "txtSezioneMax", 0, 5, 0},
        {"UpDown5", "txtSezioneCMin", 1, 5, 0},     {"UpDown6", "txtSezioneCMax", 1, 5, 0},
        {"UpDown7(0)", "txtSomma(0)", 15, 265, 0},  {"UpDown7(1)", "txtSomma(1)", 15, 265, 0},
        {"UpDownPariMin", "txtPariMin", 0, 5, 1},   {"UpDownPariMax", "txtPariMax", 0, 10, 1},
        {"UpDownPariCons", "txtPariCons", 1, 10, 1}, {"UpDownDispariMin", "txtDispariMin", 0, 10, 1},
        {"UpDownDispariMax", "txtDispariMax", 0, 10, 1}, {"UpDownDispariCons", "txtDispariCons", 1, 10, 1},
        {"UpDown8", "txtDistanzaMin", 0, 84, 1},    {"UpDown9", "txtDistanzaMax", 0, 84, 1},
        {"UpDown11", "txtNcolonne", 1, 100, 0},     {"UpDown12", "txtRitardoMin", 0, -1, 2},
        {"UpDown13", "txtRitardoMax", 0, -1, 2},    {"UpDown14", "txtFrequenzaMin", 0, -1, 2},
        {"UpDown15", "txtFrequenzaMax", 0, -1, 2},
    };
    if (nome == "UpDown10") {
        upDown10(su);
        return;
    }
    if (nome == "UpDown16") {
        // the limit is written to txtFrequenzaMax; txtUltimeEstrazioni moves freely beyond it
        if (!EUnNumero(txtUltimeEstrazioni)) {
            txtUltimeEstrazioni = "1";
            return;
        }
        int v = V(txtUltimeEstrazioni) + (su ? 1 : -1);
        txtUltimeEstrazioni = TestoSemplice(v);
        if (v > 200) txtFrequenzaMax = "200";
        else if (v < 1) txtFrequenzaMax = "1";
        return;
    }
    for (const Regola& r : regole) {
        if (nome != r.spin) continue;
        std::string* t = campo(r.campo);
        if (!EUnNumero(*t) && (r.nonNumero == 2 || (r.nonNumero == 1 && !su))) {
            *t = TestoSemplice(r.basso);
            return;
        }
        int v = V(*t) + (su ? 1 : -1);
        if (v < r.basso) v = r.basso;
        if (r.alto >= 0 && v > r.alto) v = r.alto;
        *t = TestoSemplice(v);
        return;
    }
}

// ---- boxes --------------------------------------------------------------------------------------

void Form28::clickNumeroCF(int i, int valore) {
    if (i >= 0 && i < 90) chkNumeriCF[i] = valore ? 1 : 0;
    Text1.clear();
}
void Form28::clickCheck18(int i, int valore) {
    if (i >= 0 && i < 90) Check18[i] = valore ? 1 : 0;
}

// ---- filter columns ----------------------------------------------------------------------------

void Form28::clickCommand1() {
    std::string voce;
    for (int i = 0; i < 90; ++i)
        if (chkNumeriCF[i]) voce += TestoSemplice(i + 1) + ",";
    voce += "  Punti: ";
    for (int i = 0; i < 6; ++i)
        if (chkPuntiCF[i]) voce += TestoSemplice(i) + ",";
    List2.push_back(voce);
    std::array<bool, 91> col{};
    for (int i = 0; i < 90; ++i) col[i + 1] = chkNumeriCF[i] != 0;
    std::array<bool, 12> punti{};
    for (int i = 0; i < 6; ++i) punti[i + 1] = chkPuntiCF[i] != 0;
    cond_->ColonneFiltro.resize(List2.size() + 1);
    cond_->PuntiFiltro.resize(List2.size() + 1);
    cond_->ColonneFiltro.back() = col;
    cond_->PuntiFiltro.back() = punti;
    cond_->righePuntiFiltro = 6;  // rows 0..6 from the first add on
}

void Form28::clickCommand3() {
    if (List2Indice < 0 || List2Indice >= static_cast<int>(List2.size())) return;
    const int i = List2Indice;
    cond_->ColonneFiltro.erase(cond_->ColonneFiltro.begin() + i + 1);
    cond_->PuntiFiltro.erase(cond_->PuntiFiltro.begin() + i + 1);
    List2.erase(List2.begin() + i);
    List2Indice = -1;
}

void Form28::clickCommand2() {
    clickCommand3();
    clickCommand1();
}

void Form28::clickCommand4() {
    if (ui_.messaggio("Si è sicuri di voler cancellare tutte le colonne filtro?", "Attenzione", Icona::Domanda,
                      Pulsanti::SiNo) != Risposta::Si)
        return;
    List2.clear();
    List2Indice = -1;
    clickCommand5();
    cond_->ColonneFiltro.assign(1, {});
    cond_->PuntiFiltro.assign(1, {});
}

// Runs over a seventh points box that does not exist, under a trap that ignores it.
void Form28::clickCommand5() {
    chkNumeriCF.fill(0);
    chkPuntiCF.fill(0);
}

// ---- sections ----------------------------------------------------------------------------------

void Form28::clickCommand10() {
    List3.push_back("Da " + txtSezioneDa + " a " + txtSezioneA + ", min " + txtSezioneMin + " max " + txtSezioneMax +
                    ", c.min " + txtSezioneCMin + " c.max " + txtSezioneCMax);
    std::array<int16_t, 7> s{0,
                             Intero(txtSezioneDa),
                             Intero(txtSezioneA),
                             Intero(txtSezioneMin),
                             Intero(txtSezioneMax),
                             static_cast<int16_t>(Intero(txtSezioneCMin) - 1),
                             static_cast<int16_t>(Intero(txtSezioneCMax) - 1)};
    cond_->Sezioni.resize(List3.size() + 1);
    cond_->Sezioni.back() = s;
}

void Form28::clickCommand8() {
    if (List3Indice < 0 || List3Indice >= static_cast<int>(List3.size())) return;
    cond_->Sezioni.erase(cond_->Sezioni.begin() + List3Indice + 1);
    List3.erase(List3.begin() + List3Indice);
    List3Indice = -1;
}

void Form28::clickCommand9() {
    clickCommand8();
    clickCommand10();
}

void Form28::clickCommand7() {
    if (ui_.messaggio("Si è sicuri di voler cancellare tutte le sezioni?", "Attenzione", Icona::Domanda,
                      Pulsanti::SiNo) != Risposta::Si)
        return;
    List3.clear();
    List3Indice = -1;
    clickCommand6();
    cond_->Sezioni.assign(1, {});
}

void Form28::clickCommand6() {
    txtSezioneDa = "1";
    txtSezioneA = "90";
    txtSezioneMin = "0";
    txtSezioneMax = "6";
    txtSezioneCMin = "1";
    txtSezioneCMax = "6";
}

// ---- parity sequences --------------------------------------------------------------------------

void Form28::clickCommand11(int i) {
    if (i < 0 || i > 2) return;
    std::string& c = Command11[i];
    c = c.empty() ? "P" : c == "P" ? "D" : "";
}

void Form28::clickCommand15() {
    if (Command11[1].empty()) {
        ui_.messaggio("La sequela deve essere di almeno 2 segni P/D a partire da sinistra", "Attenzione", Icona::Critico);
        return;
    }
    std::string voce = Command11[0] + Command11[1] + Command11[2] + ";  Passo: " + voci(8)[Combo8] + "; Presenze: ";
    for (int i = 0; i < 6; ++i)
        if (Check2[i]) voce += TestoSemplice(i) + ",";
    List4.push_back(voce);
    std::array<int16_t, 5> seq{};
    for (int i = 0; i < 3; ++i) seq[i + 1] = Command11[i] == "P" ? 1 : Command11[i] == "D" ? 2 : 0;
    seq[4] = static_cast<int16_t>(Combo8);
    std::array<bool, 12> pres{};
    for (int i = 0; i < 6; ++i) pres[i + 1] = Check2[i] != 0;
    cond_->SequelePD.resize(List4.size() + 1);
    cond_->PresenzeSequele.resize(List4.size() + 1);
    cond_->SequelePD.back() = seq;
    cond_->PresenzeSequele.back() = pres;
    cond_->righePresenzeSequele = 6;
}

void Form28::clickCommand13() {
    if (List4Indice < 0 || List4Indice >= static_cast<int>(List4.size())) return;
    cond_->SequelePD.erase(cond_->SequelePD.begin() + List4Indice + 1);
    cond_->PresenzeSequele.erase(cond_->PresenzeSequele.begin() + List4Indice + 1);
    List4.erase(List4.begin() + List4Indice);
    List4Indice = -1;
}

void Form28::clickCommand14() {
    clickCommand13();
    clickCommand15();
}

void Form28::clickCommand12() {
    if (ui_.messaggio("Si è sicuri di voler cancellare tutte le sequelePD?", "Attenzione", Icona::Domanda,
                      Pulsanti::SiNo) != Risposta::Si)
        return;
    List4.clear();
    List4Indice = -1;
    cond_->SequelePD.assign(1, {});
    cond_->PresenzeSequele.assign(1, {});
    cond_->righePresenzeSequele = 7;  // (0..7, 0..0)
    clickCommand16();
}

// The walk runs to Check2(6), past the last box: the failure is not trapped here.
void Form28::clickCommand16() {
    Command11 = {"", "", ""};
    Combo8 = 1;
    for (int i = 0; i <= 6; ++i) {
        if (i >= static_cast<int>(Check2.size())) throw errori::indiceFuoriIntervallo();
        Check2[i] = 0;
    }
}

// ---- positions ---------------------------------------------------------------------------------

void Form28::upDown10(bool su) {
    const int p = V(txtPosizioni);
    if (p < 1 || p > 10) throw errori::indiceFuoriIntervallo();
    for (int i = 0; i < 90; ++i) cond_->PosizioniNumeri[p][i + 1] = static_cast<int16_t>(Check18[i]);
    cond_->PosizioniNumeri[p][91] = static_cast<int16_t>(Check20);
    if (!su && p > 1) txtPosizioni = TestoSemplice(p - 1);
    else if (su && p < 10) txtPosizioni = TestoSemplice(p + 1);
    else return;
    cambiaTxtPosizioni();
}

void Form28::cambiaTxtPosizioni() {
    const int p = V(txtPosizioni);
    if (p < 1 || p > 10) throw errori::indiceFuoriIntervallo();
    for (int i = 0; i < 90; ++i) Check18[i] = cond_->PosizioniNumeri[p][i + 1];
    Check20 = cond_->PosizioniNumeri[p][91];
}

// ---- Resetta -----------------------------------------------------------------------------------

void Form28::clickResetta() {
    if (ui_.messaggio("Si è sicuri di voler resettare tutte le condizioni?", "Attenzione", Icona::Domanda,
                      Pulsanti::SiNo) != Risposta::Si)
        return;
    visibile = false;
    carica();
    ResettaCondizioni();
    attiva();
    if (mostra) mostra();
}

}  // namespace zef
