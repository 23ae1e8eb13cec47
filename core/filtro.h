// The test a candidate column must pass to be stored by the development.
//
// The generator knows nothing of conditions: it asks a FiltroColonna. With none
// installed every candidate is accepted. The conditions subsystem installs its own.
#pragma once

#include <cstdint>
#include <memory>

namespace zef {

struct Sistema;

class FiltroColonna {
public:
    virtual ~FiltroColonna() = default;

    // Called once before a pass, on the interface thread, with the state of the sistema.
    virtual void prepara(const Sistema&) {}

    // The whole test of one candidate: `numeri` holds its k numbers (ascending) and
    // `livelli` the indices into the forecast (1-based) that produced them.
    // May raise ErroreEsecuzione where the tests run off a table.
    virtual bool accetta(const uint8_t* numeri, const int* livelli, int k) const = 0;

    // True only when every candidate that starts with this prefix of `lunghezza`
    // numbers would be refused, and refused before any error could arise: the
    // generator then skips the subtree and counts it as examined.
    virtual bool scartaPrefisso(const uint8_t* numeri, const int* livelli, int lunghezza, int k) const {
        return false;
    }

    // A copy for another thread of the same pass (state that the test mutates is per copy).
    virtual std::unique_ptr<FiltroColonna> clona() const = 0;
};

}  // namespace zef
