#include "printing/testo_stampa.h"

#include <cmath>
#include <cstdio>

namespace zef {

std::string DueDecimali(double v) {
    const double centesimi = std::round(v * 100);
    if (!std::isfinite(centesimi)) return v < 0 ? "-inf" : "inf";
    const long long c = static_cast<long long>(centesimi);
    const long long a = c < 0 ? -c : c;
    char buf[48];
    std::snprintf(buf, sizeof buf, "%s%lld.%02lld", c < 0 ? "-" : "", a / 100, a % 100);
    return buf;
}

std::string RigheStampate(const std::vector<OperazioneStampa>& ops) {
    std::string out;
    for (const OperazioneStampa& o : ops) {
        switch (o.tipo) {
            case OperazioneStampa::Tipo::Testo: out += o.testo + "\n"; break;
            case OperazioneStampa::Tipo::RigaVuota: out += "\n"; break;
            case OperazioneStampa::Tipo::NuovaPagina: out += "\f\n"; break;
            default: break;
        }
    }
    return out;
}

std::string PosizioniStampate(const std::vector<OperazioneStampa>& ops,
                              const std::vector<std::pair<size_t, int64_t>>& schede) {
    std::string out;
    size_t prossima = 0;
    for (size_t i = 0; i <= ops.size(); ++i) {
        while (prossima < schede.size() && schede[prossima].first == i)
            out += "SCHEDA " + std::to_string(schede[prossima++].second) + "\n";
        if (i == ops.size()) break;
        const OperazioneStampa& o = ops[i];
        if (o.tipo != OperazioneStampa::Tipo::Testo) continue;
        const std::string xy = DueDecimali(o.x) + " " + DueDecimali(o.y);
        out += o.segno() ? "SEGNO " + xy + "\n" : "TESTO " + xy + " " + o.testo + "\n";
    }
    return out;
}

}  // namespace zef
