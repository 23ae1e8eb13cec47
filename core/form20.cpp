#include "core/form20.h"

#include "core/errori.h"
#include "core/giocate.h"
#include "core/sistema.h"

#include <cctype>

namespace zef {

void Form20::carica() {
    if (caricato) return;
    Combo1 = 1;
    Text1 = "0";
    caricato = true;
}

void Form20::scarica() {
    caricato = false;
    visibile = false;
    Combo1 = 1;
    Text1 = "0";
}

bool Form20::dimensioneValida() {
    if (k() > s_.NumPronostico) {
        ui_.messaggio(MessaggioNonSviluppabile, "", Icona::Critico);
        return false;
    }
    return true;
}

void Form20::clickCommand3() {
    if (mostraForm12) mostraForm12();
}

void Form20::clickCommand4() {
    if (!dimensioneValida()) return;
    if (mostraForm28) mostraForm28();
}

namespace {
// The text of the distance box taken as an Integer, as an assignment converts it.
int16_t DistanzaDaTesto(const std::string& t) {
    std::string s = Trim(t);
    bool cifre = !s.empty();
    for (char c : s) cifre = cifre && std::isdigit(static_cast<unsigned char>(c));
    if (!cifre) throw errori::tipoNonCorrispondente();
    return InInteger(ArrotondaBanker(Val(s)));
}
}  // namespace

void Form20::clickCommand1() {
    const int k = this->k();
    if (!dimensioneValida()) return;
    try {
        s_.NumRidotte = 0;
        s_.ColonneEsaminate = 0;
        s_.NumColonne = 0;
        s_.ContatoreLavoro = 0;
        s_.pannelli[0] = pannello::CondizionateZero;
        s_.pannelli[1] = pannello::RidotteZero;
        ImpostaListaCol(s_, "0");
        s_.pannelli[2] = pannello::CostoZero;
        s_.TipoGaranzia = 0;
        s_.SviluppoK = static_cast<int16_t>(k);
        s_.MSFlexGrid1.Clear();
        s_.DistanzaMin = DistanzaDaTesto(Text1);
        s_.Liv[1] = 0;
        CaricaForm4(s_);
        s_.NumCombinazioni = 1;
        s_.form4.minimo = 0;
        s_.form4.massimo = CalcolaCombinazioni(s_, k - 1, s_.NumPronostico);
        ui_.clessidra(true);
        s_.colonne.dimensiona(k);
        s_.NumeriColonnaMax = k;
        ui_.clessidra(false);
    } catch (const ErroreEsecuzione& e) {
        ui_.clessidra(false);
        ui_.messaggio("Errore: " + e.testo());
        return;
    }
    scarica();
    MostraForm4(s_, ui_);
    SviluppaColonne(s_, ui_, parametri);
    s_.PercentualiValide = false;
    s_.PronosticoNonSviluppato = false;
    s_.SistemaSalvato = false;
}

void Form12::carica() {
    List1.clear();
    for (int i = 1; i <= s_.NumPronostico && i < static_cast<int>(s_.Pronostico.size()); ++i)
        List1.push_back(TestoSemplice(s_.Pronostico[i]));
    selezionata.assign(List1.size(), false);
    caricato = true;
}

void Form12::scarica() {
    s_.NumFissi = 0;
    s_.NumeriFissi.assign(6, 0);  // 0..5
    s_.NumeriFissiBase = 0;
    List1.clear();
    selezionata.clear();
    caricato = false;
    visibile = false;
}

void Form12::ricostruisci() {
    s_.NumFissi = 0;
    s_.NumeriFissi.assign(7, 0);  // 0..6
    s_.NumeriFissiBase = 0;
    if (!f20_.caricato) f20_.carica();  // reading its list loads the dialog
    const int massimo = f20_.Combo1 + 1;
    for (size_t r = 0; r < List1.size(); ++r) {
        if (!selezionata[r]) continue;
        if (s_.NumFissi == massimo) {
            selezionata[r] = false;
            return;
        }
        s_.NumFissi = static_cast<int16_t>(s_.NumFissi + 1);
        // Room for six: a seventh fixed number runs off the array.
        if (s_.NumFissi >= static_cast<int>(s_.NumeriFissi.size())) throw errori::indiceFuoriIntervallo();
        s_.NumeriFissi[s_.NumFissi] = static_cast<int16_t>(Val(List1[r]));
    }
}

void Form12::clickList1(int riga, bool selezionare) {
    if (riga >= 0 && riga < static_cast<int>(selezionata.size())) selezionata[riga] = selezionare;
    ricostruisci();
}

void Form12::clickCommand1() {
    ricostruisci();
    visibile = false;
}

void Form12::clickCommand2() { carica(); }

}  // namespace zef
