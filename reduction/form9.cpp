#include "reduction/form9.h"

#include "core/sistema.h"
#include "reduction/percentuali.h"

#include <cmath>

namespace zef {

bool MenuInformazioni(Sistema& s, Interfaccia& ui) {
    if (s.NumColonne > 0) return true;
    ui.messaggio("Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema!",
                 "ERRORE SULLA RIDUZIONE", Icona::Esclamazione);
    return false;
}

namespace {
// "1: 12": the whole part, cut toward the lower number, with a blank for the sign.
std::string Rapporto(double a, double b) { return "1:" + StrDouble(std::floor(a / b)); }
}  // namespace

void Form9::attiva() {
    Sistema& s = s_;
    Tipogiocata = s.Command2;
    const int64_t R = s.MSFlexGrid1.Rows();
    if (R == 0 || s.TipoGaranzia == 0) {
        TipoSistema = std::string("Condizionato senza nessuna riduzione.") +
                      (R > 0 ? " Attualmente le giocate del sistema sono in lista."
                             : " Attualmente le giocate non sono in lista.");
    } else {
        // Read from the reduction dialog's options and GaranziaAttiva, not from
        // TipoGaranzia nor "100%": after AVVIA the dialog reads back as cinquina.
        if (!s.form5.caricato) {
            s.form5.scarica();
            s.form5.caricato = true;
        }
        static const char* tipi[4] = {"cinquina", "quaterna", "terno", "ambo"};
        int scelta = -1;
        for (int i = 0; i < 4; ++i)
            if (s.form5.Option[i]) { scelta = i; break; }
        if (scelta >= 0)  // with none selected the line keeps its text
            TipoSistema = std::string("Ridotto a garanzia ") + tipi[scelta] +
                          (s.GaranziaAttiva ? "." : " non al 100%.");
    }
    if (s.NumColonne != 0) CondInt = Rapporto(s.NumCombinazioni, s.NumColonne);
    RidInt = R == 0 ? "-" : Rapporto(s.NumCombinazioni, static_cast<double>(R));
    RidCond = R == 0 ? "-" : Rapporto(s.NumColonne, static_cast<double>(R));
}

}  // namespace zef
