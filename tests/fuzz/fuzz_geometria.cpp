// The slips' geometry file: any text reads as four boxes holding numbers, whatever
// lines, characters or lengths it has.
#include "printing/form11.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    std::array<std::string, 4> caselle{"5", "5", "7", "7"};
    zef::LeggiGeometriaDaTesto(std::string_view(reinterpret_cast<const char*>(dati), n), caselle);
    for (const std::string& c : caselle) {
        const double v = zef::ValoreCasella(c);
        // What is read is written back as it reads.
        if (std::isfinite(v) && zef::ValoreCasella(zef::NumeroPunto(v)) != v) std::abort();
        if (c.empty()) std::abort();
    }
    return 0;
}
