#include "core/sistema.h"

namespace zef {

void Form2Controlli::scarica() {
    Option1.fill(false);
    Option1[TutteLeRuote] = true;
    Check.fill(0);
    chkAmbo.fill(false);
    for (auto& t : testi) t = FormatoDecimali(0, 2);
    lblCosto = FormatoDecimali(0, 2);
    abilitato.fill(false);
    caricato = false;
}

int Form2Controlli::ruota() const {
    for (int r = 0; r < 12; ++r)
        if (Option1[r]) return r;
    return 12;
}

void Form5Controlli::scarica() {
    Option.fill(false);
    Option[0] = true;
    cento = true;
    accurato = false;
    caricato = false;
}

Sistema::Sistema() {
    pannelli = {pannello::CondizionateZero, pannello::RidotteZero, pannello::CostoZero};
    titolo = titoli::NonSalvato;
    NumeriFissi.assign(6, 0);
    NumeriFissiBase = 1;
}

int Sistema::contaPad() const {
    int n = 0;
    for (bool b : pad) n += b;
    return n;
}

void Sistema::PronosticoDalPad() {
    int n = static_cast<int>(Val(Label2));
    if (n > 0) {
        Pronostico.assign(n + 1, 0);
        PronosticoScalare = false;
        int j = 0;
        for (int i = 0; i < 90 && j < n; ++i)
            if (pad[i]) Pronostico[++j] = i + 1;
    }
    NumPronostico = static_cast<int16_t>(n);
}

namespace pannello {
std::string Condizionate(long long n) { return "CONDIZIONATE: " + TestoSemplice(n); }
std::string Ridotte(long long n) { return "RIDOTTE: " + TestoSemplice(n); }
std::string Costo(const std::string& importo) { return "COSTO SISTEMA €: " + Trim(importo); }
}  // namespace pannello

namespace titoli {
std::string Sistema(const std::string& file) { return "Zefiranto 2.0 -  SISTEMA: " + file; }
}  // namespace titoli

}  // namespace zef
