// The store of columns: k bytes a column, counted from 1 at the interface.
//
// The capacity is reserved up front as virtual memory and committed as it is
// written, so a store of 20,000,000 columns costs only what it holds. A column is
// read as a pointer to its k numbers; a 90-bit mask of it compares columns with
// popcount.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zef {

// A set of numbers 1..90 as bits 0..89.
struct Maschera {
    uint64_t lo = 0;  // numbers 1..64
    uint64_t hi = 0;  // numbers 65..90

    void aggiungi(int n) {
        if (n <= 64) lo |= uint64_t{1} << (n - 1);
        else hi |= uint64_t{1} << (n - 65);
    }
    bool contiene(int n) const {
        return n <= 64 ? (lo >> (n - 1)) & 1 : (hi >> (n - 65)) & 1;
    }
    int conta() const { return std::popcount(lo) + std::popcount(hi); }
    friend Maschera operator&(Maschera a, Maschera b) { return {a.lo & b.lo, a.hi & b.hi}; }
    friend Maschera operator|(Maschera a, Maschera b) { return {a.lo | b.lo, a.hi | b.hi}; }
    friend bool operator==(Maschera a, Maschera b) = default;
    bool vuota() const { return (lo | hi) == 0; }
    // The members of `a` not in `b`.
    friend Maschera meno(Maschera a, Maschera b) { return {a.lo & ~b.lo, a.hi & ~b.hi}; }
    // The numbers da..a (none when da > a), clipped to 1..90.
    static Maschera Intervallo(int da, int a) {
        if (da < 1) da = 1;
        if (a > 90) a = 90;
        if (da > a) return {};
        return meno(FinoA(a), FinoA(da - 1));
    }
    // The numbers 1..a (none for a <= 0, all for a >= 90).
    static Maschera FinoA(int a);
    // Calls f(n) for each member, ascending; stops when f returns false.
    template <class F>
    bool perOgni(F&& f) const {
        for (uint64_t b = lo; b; b &= b - 1)
            if (!f(std::countr_zero(b) + 1)) return false;
        for (uint64_t b = hi; b; b &= b - 1)
            if (!f(std::countr_zero(b) + 65)) return false;
        return true;
    }
    // Numbers the two sets share.
    friend int comuni(Maschera a, Maschera b) { return (a & b).conta(); }
};

namespace detail {
inline constexpr auto TabellaFinoA = [] {
    std::array<Maschera, 91> t{};
    for (int a = 1; a <= 90; ++a) {
        t[a] = t[a - 1];
        if (a <= 64) t[a].lo |= uint64_t{1} << (a - 1);
        else t[a].hi |= uint64_t{1} << (a - 65);
    }
    return t;
}();
}  // namespace detail

inline Maschera Maschera::FinoA(int a) { return detail::TabellaFinoA[a <= 0 ? 0 : a >= 90 ? 90 : a]; }

inline Maschera MascheraDi(const uint8_t* numeri, int k) {
    Maschera m;
    for (int i = 0; i < k; ++i)
        if (numeri[i] >= 1 && numeri[i] <= 90) m.aggiungi(numeri[i]);
    return m;
}

class Colonne {
public:
    static constexpr int64_t CapacitaSviluppo = 20'000'000;
    // Writable bytes past the last column (see dimensiona).
    static constexpr size_t Margine = 16;

    Colonne() = default;
    Colonne(const Colonne&) = delete;
    Colonne& operator=(const Colonne&) = delete;
    Colonne(Colonne&& o) noexcept;
    Colonne& operator=(Colonne&& o) noexcept;
    ~Colonne();

    // Reserves `capacita` columns of k numbers (the old content is gone, all zero).
    // Raises error 7 if the memory cannot be reserved.
    void dimensiona(int k, int64_t capacita = CapacitaSviluppo);
    // Frees everything: capacity 0.
    void libera();

    int k() const { return k_; }
    int64_t capacita() const { return capacita_; }

    // Column c (1-based): k bytes. No bounds check: callers keep to the capacity.
    uint8_t* colonna(int64_t c) { return dati_ + (c - 1) * k_; }
    const uint8_t* colonna(int64_t c) const { return dati_ + (c - 1) * k_; }
    // Element (p, c), both 1-based.
    uint8_t get(int p, int64_t c) const { return dati_[(c - 1) * k_ + (p - 1)]; }
    void set(int p, int64_t c, uint8_t v) { dati_[(c - 1) * k_ + (p - 1)] = v; }
    // Checked element access, raising error 9 like an array out of its bounds.
    uint8_t at(int p, int64_t c) const;
    void setAt(int p, int64_t c, uint8_t v);

    Maschera maschera(int64_t c) const { return MascheraDi(colonna(c), k_); }

    // Raw base, for bulk copies and the hot loops.
    uint8_t* dati() { return dati_; }
    const uint8_t* dati() const { return dati_; }

    // Bytes of memory actually committed (resident), for the benchmarks.
    size_t residente() const;

private:
    uint8_t* dati_ = nullptr;
    size_t byte_ = 0;
    int k_ = 0;
    int64_t capacita_ = 0;
};

}  // namespace zef
