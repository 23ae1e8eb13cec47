#include "conditions/condizioni.h"

namespace zef {

void Condizioni::carica() {
    CondizioneAttiva.fill(false);
    Consecutivita.fill(0);
    Interruzioni.fill(0);
    ColonneFiltro.assign(1, {});
    PuntiFiltro.assign(1, {});
    righePuntiFiltro = 11;  // 0..11 at load, 0..6 from the first add on
    Sezioni.assign(1, {});
    SommaGlobale.fill(0);
    PariDispari.fill(0);
    DistanzaNumeri.fill(0);
    for (auto& r : GruppiPD) r.fill(false);
    InterruzioniPD.fill(0);
    for (auto& r : PosizioniNumeri) r.fill(0);
    SequelePD.assign(1, {});
    PresenzeSequele.assign(1, {});
    righePresenzeSequele = 11;
    NumeriArchivio.assign(1, {});
    esisteRitardoFrequenza = false;
    for (auto& r : RitardoFrequenza) r.fill(0);
    ValoriNumeri.fill(0);
    RitardiNumeri.fill(0);
    for (auto& r : RitFrqNumeri) r.fill(0);
    NumeriFissi.assign(1, 0);
}

}  // namespace zef
