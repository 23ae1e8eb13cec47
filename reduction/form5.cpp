#include "reduction/form5.h"

#include "core/basic.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "reduction/riduzione.h"

namespace zef {

namespace {

constexpr const char* TitoloErrore = "ERRORE SULLA RIDUZIONE";

bool ControllaColonne(Sistema& s, Interfaccia& ui) {
    if (s.NumColonne <= 0) {
        ui.messaggio("Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema condizionato!",
                     TitoloErrore, Icona::Esclamazione);
        return false;
    }
    if (s.NumColonne == 1) {
        ui.messaggio("Non è possibile ridurre una sola colonna!", TitoloErrore, Icona::Esclamazione);
        return false;
    }
    return true;
}

}  // namespace

void Form5::carica() {
    if (!s_.form5.caricato) {
        s_.form5.scarica();
        s_.form5.caricato = true;
    }
}

int Form5::opzione() const {
    for (int i = 0; i < 4; ++i)
        if (s_.form5.Option[i]) return i + 1;
    return 0;
}

void Form5::selezionaOption(int n) {
    s_.form5.Option.fill(false);
    s_.form5.Option[n - 1] = true;
    regolaOption(n);
}

void Form5::clickOption(int n) { selezionaOption(n); }

void Form5::regolaOption(int n) {
    const int k = s_.SviluppoK;
    switch (n) {
        case 1:
            if (k >= 6) return;
            selezionaOption(k == 5 ? 2 : k == 4 ? 3 : 4);
            return;
        case 2:
            if (k >= 5) return;
            selezionaOption(k == 4 ? 3 : 4);
            return;
        case 3:
            if (k >= 4) return;
            selezionaOption(2);  // whose own rule goes on to ambo
            return;
        case 4:
            impostaCheck1(true);  // ambo is always 100%: g never reaches 1
            return;
    }
}

void Form5::impostaCheck1(bool v) {
    if (s_.form5.cento == v) return;  // a check box fires only on a change
    s_.form5.cento = v;
    if (!v) impostaCheck2(false);
}

void Form5::impostaCheck2(bool v) {
    if (s_.form5.accurato == v) return;
    s_.form5.accurato = v;
    if (v) impostaCheck1(true);  // "ACCURATO" always means "100%"
}

void Form5::clickCheck1() { impostaCheck1(!s_.form5.cento); }
void Form5::clickCheck2() { impostaCheck2(!s_.form5.accurato); }

void Form5::attiva() {
    carica();
    const int k = s_.SviluppoK;
    const auto& o = s_.form5.Option;
    // One step looser than the click rules: cinquina with 5, quaterna with 4 and
    // terno with 3 pass here.
    if ((o[2] && k < 3) || (o[1] && k < 4) || (o[0] && k < 5)) {
        if (k == 4) selezionaOption(3);
        else if (k == 3 || k == 2) selezionaOption(4);
    }
}

bool Form5::clickCommand1() {
    carica();
    const int n = opzione();
    if (n != 0) s_.TipoGaranzia = static_cast<int16_t>(6 - n);
    // The list goes before the test below: a refused start has already dropped it.
    s_.NumRidotte = 0;
    s_.MSFlexGrid1.Clear();
    ImpostaListaCol(s_, "0");
    if (!s_.form5.cento) --s_.TipoGaranzia;
    if (s_.TipoGaranzia == s_.SviluppoK) {
        ui_.messaggio(Rifiuto, "", Icona::Informazione);
        return false;
    }
    const bool accurato = s_.form5.accurato;
    s_.form5.scarica();  // unloaded: its options fall back to the start state
    if (accurato) RiduciAccurato(s_, ui_, s_.TipoGaranzia, s_.SviluppoK);
    else RiduciRapido(s_, ui_, s_.TipoGaranzia, false);
    s_.pannelli[1] = "RIDOTTE: " + TestoConSegno(s_.NumRidotte);  // two blanks after the colon
    return true;
}

bool ClickRiduci(Sistema& s, Interfaccia& ui) {
    if (!ControllaColonne(s, ui)) return false;
    Form5 f(s, ui);
    f.carica();
    f.attiva();  // shown: activated
    return true;
}

bool MenuGaranzia(Sistema& s, Interfaccia& ui, int g) {
    if (!ControllaColonne(s, ui)) return false;
    Form5 f(s, ui);
    f.carica();
    f.selezionaOption(6 - g);
    f.attiva();
    return true;
}

}  // namespace zef
