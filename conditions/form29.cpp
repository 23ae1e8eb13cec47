#include "conditions/form29.h"

#include "conditions/form28.h"
#include "core/basic.h"
#include "core/errori.h"
#include "core/sistema.h"

#include <cmath>

namespace zef {

namespace {
int V(const std::string& t) { return static_cast<int>(Val(t)); }
}  // namespace

// ---- Suggerisci ---------------------------------------------------------------------------------

std::optional<IntervalloEstrazioni> ClickSuggerisci(Form28& f, Interfaccia& ui, const std::function<void()>& scaricaForm3) {
    try {
        if (!f.archivio) throw errori::nessunRecordCorrente();
        const long RC = f.archivio->numeroEstrazioni();
        const auto risposta = ui.inputBox("Numero ultime colonne da esaminare? (1-" + TestoSemplice(RC) + ")",
                                          form29::TitoloDomanda);
        // No answer reads as 0, so it studies RC + 1 draws back: corrected below to one.
        const double prima = static_cast<double>(RC) - (Val(risposta.value_or("")) - 1);
        if (!(std::fabs(prima) < 1e9)) throw errori::overflow();
        IntervalloEstrazioni r;
        r.PrimaEstrazione = InInteger(ArrotondaBanker(prima));
        // Too many goes back to one draw, not to the whole archive; exactly RC + 1 gives id 0.
        if (r.PrimaEstrazione > RC || r.PrimaEstrazione < 0) r.PrimaEstrazione = InInteger(RC);
        r.UltimaEstrazione = InInteger(RC);
        if (scaricaForm3) scaricaForm3();
        // The dialog is unloaded: it comes back with its load values, fitted to the forecast.
        f.visibile = false;
        f.carica();
        f.ResettaCondizioni();
        ui.clessidra(true);
        return r;
    } catch (const ErroreEsecuzione&) {
        return std::nullopt;
    }
}

// ---- Form29 -----------------------------------------------------------------------------------------

Form29::Form29(Sistema& s, Interfaccia& ui, Form28& f28, FonteEstrazioni* archivio, IntervalloEstrazioni r)
    : intervallo(r), s_(s), ui_(ui), f28_(f28), archivio_(archivio) {
    applica(ParametriColonne{});
}

std::vector<std::string> Form29::voci(int combo) {
    switch (combo) {
        case 1: case 2: return {"1", "2", "3", "4", "5", "6"};
        case 5: case 7: return {"1", "2", "3", "4", "5"};
        case 10: return {"0", "1", "2", "3", "4", "5", "6"};
    }
    return {};
}

void Form29::applica(const ParametriColonne& p) {
    Combo1 = p.Combo1;
    Combo2 = p.Combo2;
    Combo5 = p.Combo5;
    Combo7 = p.Combo7;
    Combo10 = p.Combo10;
    Check1 = p.Check1;
    chkInterruzioniPD = p.chkInterruzioniPD;
    chkGruppiPari = p.chkGruppiPari;
    chkGruppiDispari = p.chkGruppiDispari;
    txtSomma = {TestoSemplice(p.sommaMin), TestoSemplice(p.sommaMax)};
    txtPariMin = TestoSemplice(p.pariMin);
    txtPariMax = TestoSemplice(p.pariMax);
    txtPariCons = TestoSemplice(p.pariCons);
    txtDispariMin = TestoSemplice(p.dispariMin);
    txtDispariMax = TestoSemplice(p.dispariMax);
    txtDispariCons = TestoSemplice(p.dispariCons);
    SezioniSuggerite = p.SezioniSuggerite;
    PosizioniSuggerite = p.PosizioniSuggerite;
    ritardoMin = p.ritardoMin;
    ritardoMax = p.ritardoMax;
    frequenzaMin = p.frequenzaMin;
    frequenzaMax = p.frequenzaMax;
    misura = p;
}

void Form29::carica() {
    caricato = true;
    const int r = s_.form2.ruota();  // 12 when no wheel is on
    const int ruota = r >= 12 ? misura::NessunaRuota : r + 1;
    ParametriColonne p;
    if (ruota != misura::NessunaRuota) {
        try {
            if (!archivio_) throw errori::nessunRecordCorrente();
            const auto righe = LeggiPerMisura(*archivio_, intervallo.PrimaEstrazione);
            p = MisuraColonne(righe, intervallo.PrimaEstrazione, intervallo.UltimaEstrazione, ruota);
        } catch (const ErroreEsecuzione& e) {  // the archive itself failed: nothing measured
            p = ParametriColonne{};
            p.misurate = p.interrotta = true;
            p.errore = e.numero;
        }
    }
    applica(p);
    // An error in the measuring leaves the rest of the load undone.
    if (p.misurate && !p.interrotta) {
        for (int s = 1; s <= 3; ++s) {
            const auto& z = SezioniSuggerite[s];
            List3.push_back("Da" + TestoConSegno(z[1]) + " a" + TestoConSegno(z[2]) + ", min" + TestoConSegno(z[3]) +
                            " max" + TestoConSegno(z[4]) + ", c.min" + TestoConSegno(z[5] + 1) + " c.max" +
                            TestoConSegno(z[6] + 1));
        }
        // Half the mean smallest gap, a looser setting than the draws showed. The mean
        // takes one draw fewer than the range holds; a range of one draw divides by
        // zero, which is ignored, and the sum itself stands for the mean.
        const int divisore = intervallo.UltimaEstrazione - intervallo.PrimaEstrazione;
        long long media = p.sommaDistanze;
        if (divisore != 0) media = ArrotondaBanker(static_cast<double>(p.sommaDistanze) / divisore);
        txtDistanzaMin = TestoSemplice(media - static_cast<long long>(std::floor(media / 2.0)));
    }
    ui_.clessidra(false);
    cambiaTxtPosizioni();  // the first place shows on its tab from the start
}

std::string* Form29::campo(const std::string& n) {
    if (n == "txtSomma(0)") return &txtSomma[0];
    if (n == "txtSomma(1)") return &txtSomma[1];
    if (n == "txtPariMin") return &txtPariMin;
    if (n == "txtPariMax") return &txtPariMax;
    if (n == "txtPariCons") return &txtPariCons;
    if (n == "txtDispariMin") return &txtDispariMin;
    if (n == "txtDispariMax") return &txtDispariMax;
    if (n == "txtDispariCons") return &txtDispariCons;
    if (n == "txtDistanzaMin") return &txtDistanzaMin;
    if (n == "Text2") return &Text2;
    if (n == "txtPosizioni") return &txtPosizioni;
    return nullptr;
}

void Form29::cambiaTxtPosizioni() {
    const int p = V(txtPosizioni);
    if (p < 0 || p > form29::UltimaPosizione) throw errori::indiceFuoriIntervallo();
    for (int i = 0; i < 90; ++i) Check18[i] = PosizioniSuggerite[p][i + 1];
}

void Form29::upDown10(bool su) {
    const int p = V(txtPosizioni);
    if (su && p < form29::UltimaPosizione) txtPosizioni = TestoSemplice(p + 1);
    else if (!su && p > 1) txtPosizioni = TestoSemplice(p - 1);
    else return;
    cambiaTxtPosizioni();
}

void Form29::clickImposta() {
    Form28& f = f28_;
    Condizioni& c = *f.condizioni();
    // 1. consecutiveness, counted over the whole column
    f.Combo1 = Combo1;
    f.Combo2 = Combo2;
    f.Combo3 = 1;
    f.chkAttivo[1] = 1;
    // 2. interruptions
    f.Check1 = Check1;
    f.Combo5 = Combo5;
    f.chkAttivo[2] = 1;
    // 3. the three sections: the table straight from ours, the list from our entries
    c.Sezioni.assign(SezioniSuggerite.begin(), SezioniSuggerite.end());
    f.List3 = List3;
    f.List3Indice = -1;
    f.chkAttivo[4] = 1;
    // 4. sum
    f.txtSomma = txtSomma;
    f.chkAttivo[5] = 1;
    // 5. even and odd
    f.txtPariMin = txtPariMin;
    f.txtPariMax = txtPariMax;
    f.txtPariCons = txtPariCons;
    f.txtDispariMin = txtDispariMin;
    f.txtDispariMax = txtDispariMax;
    f.txtDispariCons = txtDispariCons;
    f.chkAttivo[6] = 1;
    // 6. distance, in units
    f.txtDistanzaMin = txtDistanzaMin;
    f.txtDistanzaMax = "50";
    f.Combo6 = 0;
    f.chkAttivo[7] = 1;
    // 7. parity groups
    f.chkGruppiPari = chkGruppiPari;
    f.chkGruppiDispari = chkGruppiDispari;
    f.chkAttivo[8] = 1;
    // 8. parity interruptions
    f.chkInterruzioniPD = chkInterruzioniPD;
    f.Combo7 = Combo7;
    f.chkAttivo[9] = 1;
    // 9. the five places, each controlled; the first one shows on the tab
    for (int p = 1; p <= form29::UltimaPosizione; ++p) {
        for (int x = 1; x <= 90; ++x) {
            c.PosizioniNumeri[p][x] = PosizioniSuggerite[p][x];
            if (p == 1) f.Check18[x - 1] = PosizioniSuggerite[p][x];
        }
        c.PosizioniNumeri[p][91] = 1;
        f.Check20 = 1;
    }
    f.chkAttivo[10] = 1;
    // 10. points on archive columns
    f.txtNcolonne = Text2;
    f.Combo10 = Combo10;
    f.chkAttivo[12] = 1;
    // 11. the forecast once more in the fixed numbers list (added, not replaced)
    const int conto = V(s_.Label2);
    for (int i = 1; i <= conto && i < static_cast<int>(s_.Pronostico.size()); ++i) {
        f.List1.push_back(TestoSemplice(s_.Pronostico[i]));
        f.List1Spuntato.push_back(false);
    }
    // 12. mean delay and frequency
    f.txtRitardoMin = TestoSemplice(ritardoMin);
    f.txtRitardoMax = TestoSemplice(ritardoMax);
    f.txtUltimeEstrazioni = "90";
    f.txtFrequenzaMin = TestoSemplice(frequenzaMin);
    f.txtFrequenzaMax = TestoSemplice(frequenzaMax);
    f.chkAttivo[14] = 1;
    // 13.
    caricato = false;
    ui_.messaggio(form29::Impostate, form29::TitoloImpostate, Icona::Informazione);
    if (mostraForm28) mostraForm28();
    else f.attiva();
}

void Form29::clickChiudi() { caricato = false; }

}  // namespace zef
