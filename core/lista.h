// Storage of the play list: the rows of text of the main window's grid.
//
// Rows live in one arena of characters with an offset a row, so 20,000,000 rows
// cost their characters and eight bytes each, with no heap string per row.
// Row indices are 0-based, as the grid's.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zef {

class ListaGiocate {
public:
    int64_t Rows() const { return static_cast<int64_t>(inizi_.size()); }
    bool vuota() const { return inizi_.empty(); }
    std::string_view riga(int64_t r) const {
        return std::string_view(testo_.data() + inizi_[r], fine(r) - inizi_[r]);
    }

    void AddItem(std::string_view testo);
    // Empties the list (Clear with Rows = 0).
    void Clear();
    // Removes rows a..b inclusive (0-based, a <= b).
    void rimuovi(int64_t a, int64_t b);
    // Makes room for n rows of about `caratteri` characters each.
    void riserva(int64_t n, int64_t caratteri);

    // Bulk build: `righe` rows of `larghezza` characters each, written by `scrivi(r, dest)`.
    template <class F>
    void costruisci(int64_t righe, int larghezza, F&& scrivi) {
        Clear();
        testo_.resize(static_cast<size_t>(righe) * larghezza);
        inizi_.resize(righe);
        for (int64_t r = 0; r < righe; ++r) {
            inizi_[r] = static_cast<uint64_t>(r) * larghezza;
            scrivi(r, testo_.data() + inizi_[r]);
        }
    }

    // Selection of the grid: Row and RowSel (0-based), as the grid reports them.
    int64_t Row = 0;
    int64_t RowSel = 0;

private:
    uint64_t fine(int64_t r) const {
        return r + 1 < Rows() ? inizi_[r + 1] : static_cast<uint64_t>(testo_.size());
    }
    std::vector<char> testo_;
    std::vector<uint64_t> inizi_;
};

}  // namespace zef
