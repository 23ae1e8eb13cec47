// The historical draw file: text, or the same bytes taken as a .gz and as a .zip.
// Every draw that passes holds numbers 1..90, five different ones a wheel.
#include "archive/storico.h"
#include "fuzz/file_fuzz.h"

#include <cstdlib>

namespace {
void Controlla(const std::vector<zef::EstrazioneStorica>& estrazioni) {
    for (const auto& e : estrazioni)
        for (const auto& ruota : e.numeri)
            for (int p = 0; p < 5; ++p) {
                if (ruota[0] == 0) continue;  // a wheel not drawn
                if (ruota[static_cast<size_t>(p)] < 1 || ruota[static_cast<size_t>(p)] > 90) std::abort();
                for (int q = 0; q < p; ++q)
                    if (ruota[static_cast<size_t>(q)] == ruota[static_cast<size_t>(p)]) std::abort();
            }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    try {
        Controlla(zef::AnalizzaStorico(std::string_view(reinterpret_cast<const char*>(dati), n)));
    } catch (const zef::ErroreStorico&) {
    }
    for (const char* estensione : {".txt.gz", ".zip"}) {
        try {
            const std::string testo = zef::LeggiFileStorico(zef::fuzz::Scrivi(dati, n, estensione));
            Controlla(zef::AnalizzaStorico(testo));
        } catch (const zef::ErroreStorico&) {
        }
    }
    return 0;
}
