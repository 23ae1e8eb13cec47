// Where a print goes. The windows hand over what they print as a production run
// against a printer; the destination decides on which printer, and how often.
//
// The program's destination (ui/) runs it first on a preview and then, as the user
// chooses, on the default printer or into a PDF file; the command line and the tests
// record it. A production may be run more than once, so it must not change the
// sistema; `anteprima` tells it that nothing reaches paper this time, so it asks no
// one anything (the slips' wait between two sheets is for paper only).
#pragma once

#include "printing/registrazione.h"

#include <functional>
#include <string>

namespace zef {

// The two kinds of print: plain pages, or positions on a fed play slip (the page
// is then measured from its corner).
enum class Modulo { Tabulato, Schedine };

using Produzione = std::function<void(Stampante&, bool anteprima)>;

class DestinazioneStampa {
public:
    virtual ~DestinazioneStampa() = default;
    // False when the user gave up before anything was printed. A printer failure,
    // or any failure of the production, is raised.
    virtual bool stampa(const std::string& documento, Modulo modulo, const Produzione& produci) = 0;
};

// Records the print. With `conAnteprima` the preview is produced first, on a
// recorder of its own; with `rinuncia` the user gives up after it.
class DestinazioneRegistrata : public DestinazioneStampa {
public:
    bool conAnteprima = false;
    bool rinuncia = false;
    StampanteRegistrata anteprima;
    StampanteRegistrata carta;
    int stampe = 0;  // prints that reached paper
    std::string documento;
    Modulo modulo = Modulo::Tabulato;

    bool stampa(const std::string& doc, Modulo m, const Produzione& produci) override {
        documento = doc;
        modulo = m;
        if (conAnteprima) {
            anteprima = StampanteRegistrata{};
            produci(anteprima, true);
        }
        if (rinuncia) return false;
        carta = StampanteRegistrata{};
        produci(carta, false);
        ++stampe;
        return true;
    }
};

}  // namespace zef
