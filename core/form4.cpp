#include "core/form4.h"

#include "core/giocate.h"
#include "core/sistema.h"

namespace zef {

StatoAvanzamento Form4Controlli::stato() const {
    StatoAvanzamento st;
    st.etichetta = Label1;
    st.etichetta1 = Label2;
    st.testo1 = Text1;
    st.etichetta2 = Label3;
    st.testo2 = Text2;
    st.suggerimento = Label4;
    st.minimo = minimo;
    st.massimo = massimo;
    st.valore = valore;
    return st;
}

void CaricaForm4(Sistema& s) {
    if (!s.form4.caricato) {
        s.form4.scarica();
        s.form4.caricato = true;
    }
}

void MostraForm4(Sistema& s, Interfaccia& ui) {
    CaricaForm4(s);
    s.form4.visibile = true;
    ui.mostraAvanzamento(s.form4.stato());
}

void AggiornaForm4(Sistema& s, Interfaccia& ui) {
    if (s.form4.visibile) ui.aggiornaAvanzamento(s.form4.stato());
}

void ScaricaForm4(Sistema& s, Interfaccia& ui) {
    bool eraVisibile = s.form4.visibile;
    s.form4.scarica();
    if (eraVisibile) ui.chiudiAvanzamento();
}

void Form4Tasto(Sistema& s, Interfaccia& ui, int tasto) {
    // A running cover is held while the question is up.
    bool timerFermato = false;
    if (s.Timer4Abilitato) {
        timerFermato = true;
        s.Timer4Abilitato = false;
    }
    if (tasto != 27) return;  // any other key: a stopped cover stays stopped
    Risposta r = ui.messaggio("Annullare l'elaborazione?", "RICHIESTA", Icona::Domanda, Pulsanti::SiNo);
    if (r == Risposta::Si) {
        s.pannelli[0] = pannello::Condizionate(s.NumColonne);
        ImpostaListaCol(s, TestoSemplice(s.MSFlexGrid1.Rows()));
        ScaricaForm4(s, ui);
    } else if (timerFermato) {
        s.Timer4Abilitato = true;
    }
}

bool CediForm4(Sistema& s, Interfaccia& ui) {
    for (int t : ui.tastiAvanzamento()) {
        if (!s.form4.caricato) break;
        Form4Tasto(s, ui, t);
    }
    return s.form4.visibile;
}

}  // namespace zef
