#include "core/lista.h"

namespace zef {

void ListaGiocate::AddItem(std::string_view t) {
    inizi_.push_back(testo_.size());
    testo_.insert(testo_.end(), t.begin(), t.end());
}

void ListaGiocate::Clear() {
    testo_.clear();
    inizi_.clear();
    Row = RowSel = 0;
}

void ListaGiocate::rimuovi(int64_t a, int64_t b) {
    if (a < 0) a = 0;
    if (b >= Rows()) b = Rows() - 1;
    if (a > b) return;
    uint64_t da = inizi_[a];
    uint64_t a_ = fine(b);
    uint64_t tolti = a_ - da;
    testo_.erase(testo_.begin() + da, testo_.begin() + a_);
    inizi_.erase(inizi_.begin() + a, inizi_.begin() + b + 1);
    for (size_t r = a; r < inizi_.size(); ++r) inizi_[r] -= tolti;
}

void ListaGiocate::riserva(int64_t n, int64_t caratteri) {
    inizi_.reserve(n);
    testo_.reserve(static_cast<size_t>(n * caratteri));
}

}  // namespace zef
