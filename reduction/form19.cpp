#include "reduction/form19.h"

#include "core/basic.h"
#include "core/form4.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "reduction/copertura.h"
#include "reduction/form5.h"

namespace zef {

bool MenuSviluppoRidotto(Sistema& s, Interfaccia& ui) {
    if (Val(s.Label2) >= 3) return true;
    ui.messaggio("E' necessario impostare un pronostico prima!", "Attenzione", Icona::Critico);
    return false;
}

void Form19::impostaCombo1(int indice) {
    if (Combo1 == indice) return;  // a list fires its click only on a change
    Combo1 = indice;
    clickCombo1(indice);
}

void Form19::impostaCombo2(int indice) {
    if (Combo2 == indice) return;
    Combo2 = indice;
    clickCombo2(indice);
}

void Form19::clickCombo1(int indice) {
    Combo1 = indice;
    if (Combo2 > Combo1) impostaCombo2(Combo1);
    const int numeri = static_cast<int>(Val(s_.Label2));
    if (numeri < Combo1 + 3) impostaCombo1(numeri - 3 < -1 ? -1 : numeri - 3);
}

void Form19::clickCombo2(int indice) {
    Combo2 = indice;
    if (Combo1 < Combo2) impostaCombo2(Combo1);
}

bool Form19::clickCommand1() {
    if (Combo1 < 0 || Combo2 < 0) return false;  // an empty choice is ignored
    Sistema& s = s_;
    const int k = Combo1 + 3;
    s.SviluppoK = static_cast<int16_t>(k);
    s.TipoGaranzia = static_cast<int16_t>(Combo2 + 2);
    s.LunghezzaEnumerazione = s.TipoGaranzia;
    {
        Form5 f5(s, ui_);
        f5.carica();
        f5.selezionaOption(4 - Combo2);  // read back by the system information
    }
    s.GaranziaAttiva = true;
    s.ColonneEsaminate = 0;
    s.NumColonne = 0;
    s.ContatorePercentuali = 0;
    s.ContatoreLavoro = 0;
    s.pannelli[1] = pannello::RidotteZero;
    ImpostaListaCol(s, "0");
    s.pannelli[2] = pannello::CostoZero;
    s.MSFlexGrid1.Clear();
    ui_.clessidra(true);
    // The previous system's columns are gone from here on.
    s.RigheRidotte.dimensiona(k, LimiteRigheRidotte);
    s.colonne.dimensiona(k, LimiteRigheRidotte);
    s.NumeriColonna.fill(0);
    s.NumeriColonnaMax = k;
    s.Liv[1] = 0;
    try {
        EnumeraCombinazioni(s);
    } catch (...) {
        ui_.clessidra(false);
        throw;
    }
    s.ColonneEsaminate = 1;
    s.ContatoreLavoro = 1;
    s.ContatorePercentuali = 0;
    CaricaForm4(s);
    s.form4.massimo = static_cast<double>(s.NumColonne) + 1;
    ui_.clessidra(false);
    uint8_t prima[10] = {};
    for (int p = 1; p <= k; ++p) {
        prima[p - 1] = static_cast<uint8_t>(p < static_cast<int>(s.Pronostico.size()) ? s.Pronostico[p] : 0);
        s.RigheRidotte.set(p, 1, prima[p - 1]);
    }
    s.MSFlexGrid1.AddItem(RigaCopertura(prima, k));
    s.form4.minimo = 0;
    s.Timer4Abilitato = true;
    s.PercentualiValide = false;
    s.PronosticoNonSviluppato = false;
    s.SistemaSalvato = false;
    MostraForm4(s, ui_);
    return true;
}

bool Form19::avviaEdEsegui() {
    if (!clickCommand1()) return false;
    EseguiTimer4(s_, ui_);
    return true;
}

}  // namespace zef
