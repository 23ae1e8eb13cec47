// Accetta of the conditions dialog: the controls become the condition set.
#include "conditions/form28.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/sistema.h"

#include <cmath>

namespace zef {

namespace {
int V(const std::string& t) { return static_cast<int>(Val(t)); }
int16_t Intero(const std::string& t) { return InInteger(ArrotondaBanker(Val(t))); }
}  // namespace

int Form28::ruota() const {
    const int r = s_.form2.ruota();  // 12 when none is on
    return r >= 12 ? 0 : r + 1;
}

void Form28::CliccaAccetta() {
    Condizioni& c = *cond_;
    // 1. normalise
    if (V(txtPariMax) < V(txtPariMin)) txtPariMax = txtPariMin;
    if (V(txtPariMax) < V(txtPariCons)) txtPariCons = txtPariMax;
    if (V(txtDispariMax) < V(txtDispariMin)) txtDispariMax = txtDispariMin;
    if (V(txtDispariMax) < V(txtDispariCons)) txtDispariCons = txtDispariMax;
    if (V(txtDistanzaMax) < V(txtDistanzaMin)) txtDistanzaMax = txtDistanzaMin;
    // 2..7
    c.Consecutivita = {0, static_cast<int16_t>(Combo1), static_cast<int16_t>(Combo2), static_cast<int16_t>(Combo3)};
    for (int i = 0; i < 6; ++i) c.Interruzioni[i + 1] = static_cast<int16_t>(Check1[i]);
    c.Interruzioni[6] = static_cast<int16_t>(Combo5 + 1);  // element 6 doubles as the run limit
    c.SommaGlobale[1] = Intero(txtSomma[0]);
    c.SommaGlobale[2] = Intero(txtSomma[1]);
    c.PariDispari[1] = Intero(txtPariMin);
    c.PariDispari[2] = Intero(txtPariMax);
    c.PariDispari[3] = Intero(txtPariCons);
    c.PariDispari[4] = Intero(txtDispariMin);
    c.PariDispari[5] = Intero(txtDispariMax);
    c.PariDispari[6] = Intero(txtDispariCons);
    c.DistanzaNumeri[1] = InInteger(ArrotondaBanker(Val(txtDistanzaMin) + 1));
    c.DistanzaNumeri[2] = InInteger(ArrotondaBanker(Val(txtDistanzaMax) + 1));
    c.DistanzaNumeri[3] = static_cast<int16_t>(Combo6);
    for (int i = 0; i < 6; ++i) c.InterruzioniPD[i + 1] = static_cast<int16_t>(chkInterruzioniPD[i]);
    c.InterruzioniPD[6] = static_cast<int16_t>(Combo7 + 1);
    // 8. only the numbers 1..55 of the position shown: the rest waits for the spin button
    const int p = V(txtPosizioni);
    if (p < 0 || p > 10) throw errori::indiceFuoriIntervallo();
    for (int i = 0; i <= 54; ++i) c.PosizioniNumeri[p][i + 1] = static_cast<int16_t>(Check18[i]);
    // 9. the seventh odd-groups box is never stored
    for (int i = 0; i < 4; ++i) c.GruppiPD[1][i + 1] = chkGruppiPari[i] != 0;
    for (int i = 0; i < 6; ++i) c.GruppiPD[2][i + 1] = chkGruppiDispari[i] != 0;
    // 10, 11
    if (chkAttivo[12]) costruisciNumeriArchivio();
    else c.NumeriArchivio.assign(1, {});
    if (chkAttivo[14]) {
        for (auto& r : c.RitardoFrequenza) r.fill(0);
        for (auto& r : c.RitFrqNumeri) r.fill(0);
        ElaboraFrequenze(static_cast<long>(Val(txtUltimeEstrazioni)));
        ElaboraRitardi(500);  // a constant, whatever the controls say
        c.RitardoFrequenza[1][1] = static_cast<float>(NumeroDaTesto(txtRitardoMin));
        c.RitardoFrequenza[1][2] = static_cast<float>(NumeroDaTesto(txtRitardoMax));
        c.RitardoFrequenza[2][1] = static_cast<float>(NumeroDaTesto(txtFrequenzaMin));
        c.RitardoFrequenza[2][2] = static_cast<float>(NumeroDaTesto(txtFrequenzaMax));
        c.esisteRitardoFrequenza = true;
    }
    // 12. the RECUPERO allowance is read and dropped
    [[maybe_unused]] int ammesse = Combo9;
    // 13, 14
    for (int i = 0; i < 15; ++i) c.CondizioneAttiva[i + 1] = chkAttivo[i] != 0;
    visibile = false;
}

// "Tutte" builds every wheel afresh, so only Venezia's columns remain.
void Form28::costruisciNumeriArchivio() {
    Condizioni& c = *cond_;
    if (!archivio) {
        c.NumeriArchivio.assign(1, {});
        return;
    }
    const int w = ruota();
    auto perRuota = [&](int ruota, int colonneTabella) {
        const long n = archivio->numeroEstrazioni();
        if (Val(txtNcolonne) > n) txtNcolonne = TestoSemplice(n);
        const int N = V(txtNcolonne);
        auto righe = archivio->daId(n - N);
        c.NumeriArchivio.assign(static_cast<size_t>(std::max(colonneTabella, 0)) + 1, {});
        for (int col = 1; col <= N; ++col) {
            if (col > static_cast<int>(righe.size())) throw errori::nessunRecordCorrente();
            for (int pos = 1; pos <= 5; ++pos) {
                int x = righe[col - 1].numero(ruota, pos);
                if (x == 0) throw errori::usoNonValidoNull();
                if (x < 0 || x > 90 || col >= static_cast<int>(c.NumeriArchivio.size())) throw errori::indiceFuoriIntervallo();
                c.NumeriArchivio[col][x] = true;
            }
        }
        [[maybe_unused]] int puntiMassimi = Combo10;  // read and dropped
    };
    if (w >= 1 && w <= 11) {
        perRuota(w, V(txtNcolonne) > archivio->numeroEstrazioni() ? static_cast<int>(archivio->numeroEstrazioni())
                                                                  : V(txtNcolonne));
    } else {
        for (int r = 1; r <= 10; ++r) {
            const long n = archivio->numeroEstrazioni();
            const int N = Val(txtNcolonne) > n ? static_cast<int>(n) : V(txtNcolonne);
            perRuota(r, 10 * N);
        }
    }
}

// The last n + 1 draws, read for each wheel asked ("Tutte" walks the ten wheels in
// turn): `visita(estrazione, ruota)`. False when a pass ended at a failure: both
// passes end quietly there, with the tables as they stand.
bool Form28::scorriUltime(long n, const std::function<void(const EstrazioneLetta&, int)>& visita) {
    const int w = ruota();
    if (w == 0 || !archivio) return false;
    try {
        auto righe = archivio->tutte();
        const long RC = static_cast<long>(righe.size());
        Text1 = TestoSemplice(RC);
        auto passa = [&](int r) {
            if (RC - n - 1 < 0) throw errori::nessunRecordCorrente();  // the move starts before the first row
            for (long i = RC - n - 1; i <= RC - 1; ++i) visita(righe[i], r);
        };
        if (w == 12) for (int r = 1; r <= 10; ++r) passa(r);
        else passa(w);
        return true;
    } catch (const ErroreEsecuzione&) {
        return false;
    }
}

void Form28::ElaboraFrequenze(long n) {
    Condizioni& c = *cond_;
    c.ValoriNumeri.fill(0);
    const bool finita = scorriUltime(n, [&](const EstrazioneLetta& e, int ruota) {
        for (int p = 1; p <= 5; ++p) {
            const int x = e.numero(ruota, p);
            if (x <= 0 || x > 90) throw errori::usoNonValidoNull();
            c.ValoriNumeri[x] += 1;
        }
    });
    if (finita)
        for (int x = 1; x <= 90; ++x) c.RitFrqNumeri[x][2] = c.ValoriNumeri[x];
}

void Form28::ElaboraRitardi(long n) {
    Condizioni& c = *cond_;
    c.RitardiNumeri.fill(0);
    // "Tutte" does not clear between wheels: delays go on counting
    const bool finita = scorriUltime(n, [&](const EstrazioneLetta& e, int ruota) {
        for (int x = 1; x <= 90; ++x) c.RitardiNumeri[x] += 1;
        for (int p = 1; p <= 5; ++p) {
            const int x = e.numero(ruota, p);
            if (x <= 0 || x > 90) throw errori::usoNonValidoNull();
            c.RitardiNumeri[x] = 0;
        }
    });
    if (finita)
        for (int x = 1; x <= 90; ++x) c.RitFrqNumeri[x][1] = c.RitardiNumeri[x];
}

}  // namespace zef
