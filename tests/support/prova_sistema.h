// Small helpers shared by the tests: a forecast set as the pad would set it.
#pragma once

#include "core/errori.h"
#include "core/sistema.h"

#include <vector>

namespace zef::prova {

// Ticks the numbers on the pad and takes the forecast from it.
inline void ImpostaPronostico(Sistema& s, const std::vector<int>& numeri) {
    s.pad.fill(false);
    for (int n : numeri) s.pad[n - 1] = true;
    s.Label2 = TestoSemplice(s.contaPad());
    s.PronosticoDalPad();
}

// The first n numbers, or n numbers spread over 1..90.
inline std::vector<int> Numeri(int n, int passo = 1, int primo = 1) {
    std::vector<int> v;
    for (int i = 0; i < n; ++i) v.push_back(primo + i * passo);
    return v;
}

// The number of the run-time error `f` raises, 0 if none.
template <class F>
int NumeroErrore(F&& f) {
    try {
        f();
    } catch (const ErroreEsecuzione& e) {
        return e.numero;
    }
    return 0;
}

// Fixes the decimal separator for the life of the object.
struct Separatore {
    explicit Separatore(char c) { ImpostaSeparatoreDecimale(c); }
    ~Separatore() { ImpostaSeparatoreDecimale(0); }
};

}  // namespace zef::prova
