#include "printing/puntate.h"

#include "core/form2.h"
#include "core/sistema.h"
#include "core/vocabolario.h"

#include <algorithm>
#include <cctype>

namespace zef {
namespace {

// Depth-first from the biggest amount, taking a box before leaving it out: the
// first set found is the one with the biggest amounts.
bool Cerca(int i, int64_t resto, std::array<bool, 13>& scelti) {
    if (resto == 0) return true;
    if (i < 0) return false;
    if (ImportiPuntata[i] <= resto) {
        scelti[i] = true;
        if (Cerca(i - 1, resto - ImportiPuntata[i], scelti)) return true;
        scelti[i] = false;
    }
    return Cerca(i - 1, resto, scelti);
}

// The amount after "Estratto € " in the play's description: digits, the decimal
// mark and two decimals, as the play dialog wrote them.
std::optional<std::string> ImportoEstratto(const std::string& descrizione) {
    static const std::string chiave = "Estratto € ";
    const size_t inizio = descrizione.find(chiave);
    if (inizio == std::string::npos) return std::nullopt;
    size_t i = inizio + chiave.size();
    const size_t cifre = i;
    while (i < descrizione.size() && std::isdigit(static_cast<unsigned char>(descrizione[i]))) ++i;
    if (i == cifre) return std::nullopt;
    if (i + 2 < descrizione.size() && (descrizione[i] == ',' || descrizione[i] == '.') &&
        std::isdigit(static_cast<unsigned char>(descrizione[i + 1])) &&
        std::isdigit(static_cast<unsigned char>(descrizione[i + 2])))
        i += 3;
    return descrizione.substr(cifre, i - cifre);
}

}  // namespace

std::optional<std::array<bool, 13>> ScomponiPuntata(Currency totale) {
    std::array<bool, 13> scelti{};
    if (totale.decimillesimi() <= 0) return std::nullopt;
    if (!Cerca(12, totale.decimillesimi(), scelti)) return std::nullopt;
    return scelti;
}

bool RicostruisciPuntate(Sistema& s) {
    Form2Controlli& f2 = s.form2;
    if (std::any_of(f2.chkAmbo.begin(), f2.chkAmbo.end(), [](bool b) { return b; })) return true;
    bool tutte = true;
    auto spunta = [&](int sorte, Currency totale) {
        const auto scelti = ScomponiPuntata(totale);
        if (!scelti) {
            tutte = false;
            return;
        }
        for (int i = 0; i < 13; ++i) f2.chkAmbo[BaseChkAmbo[sorte] + i] = (*scelti)[i];
    };
    for (int sorte = 1; sorte <= 4; ++sorte)
        if (f2.Check[sorte]) spunta(sorte, Currency::daTestoLocale(f2.testi[sorte]));
    if (!f2.Check[0]) {
        if (const auto importo = ImportoEstratto(s.Command2)) {
            std::string testo = *importo;
            for (char& c : testo)
                if (c == ',' || c == '.') c = SeparatoreDecimale();
            const Currency totale = Currency::daTestoLocale(testo);
            if (totale.decimillesimi() > 0) {
                f2.Check[0] = 1;
                f2.testi[0] = totale.testoDueDecimali();
                spunta(0, totale);
            }
        }
    }
    return tutte;
}

}  // namespace zef
