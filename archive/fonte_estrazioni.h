// The draws as acceptance reads them: the record count of the archive and the draws
// from an id on, in id order. The archive's cursor implements it for the program;
// tests use the in-memory list.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zef {

struct EstrazioneLetta {
    long id = 0;
    // numeri[(ruota - 1) * 5 + posizione - 1], ruota 1..11, posizione 1..5; 0 is a null
    std::array<int16_t, 55> numeri{};
    int numero(int ruota, int posizione) const { return numeri[(ruota - 1) * 5 + posizione - 1]; }
};

class FonteEstrazioni {
public:
    virtual ~FonteEstrazioni() = default;
    // Rows of "select * from estrazioni order by id".
    virtual long numeroEstrazioni() = 0;
    // Rows with id >= `idMinimo`, in id order.
    virtual std::vector<EstrazioneLetta> daId(long idMinimo) = 0;
    // Every row, in id order.
    virtual std::vector<EstrazioneLetta> tutte() { return daId(-2147483647L); }
};

class EstrazioniInMemoria : public FonteEstrazioni {
public:
    std::vector<EstrazioneLetta> righe;  // kept in id order by the caller
    long numeroEstrazioni() override { return static_cast<long>(righe.size()); }
    std::vector<EstrazioneLetta> daId(long idMinimo) override {
        std::vector<EstrazioneLetta> v;
        for (const auto& r : righe)
            if (r.id >= idMinimo) v.push_back(r);
        return v;
    }
};

}  // namespace zef
