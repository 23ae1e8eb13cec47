#include "core/colonne.h"

#include "core/errori.h"

#include <sys/mman.h>
#include <unistd.h>

#include <utility>
#include <vector>

namespace zef {

Colonne::Colonne(Colonne&& o) noexcept
    : dati_(std::exchange(o.dati_, nullptr)), byte_(std::exchange(o.byte_, 0)), k_(std::exchange(o.k_, 0)),
      capacita_(std::exchange(o.capacita_, 0)) {}

Colonne& Colonne::operator=(Colonne&& o) noexcept {
    if (this != &o) {
        libera();
        dati_ = std::exchange(o.dati_, nullptr);
        byte_ = std::exchange(o.byte_, 0);
        k_ = std::exchange(o.k_, 0);
        capacita_ = std::exchange(o.capacita_, 0);
    }
    return *this;
}

Colonne::~Colonne() { libera(); }

void Colonne::libera() {
    if (dati_) munmap(dati_, byte_);
    dati_ = nullptr;
    byte_ = 0;
    k_ = 0;
    capacita_ = 0;
}

void Colonne::dimensiona(int k, int64_t capacita) {
    libera();
    if (k < 0 || capacita < 0) throw errori::indiceFuoriIntervallo();
    // 16 bytes of slack past the last column let the hot loops store a column
    // with one 16-byte write.
    size_t byte = static_cast<size_t>(k) * static_cast<size_t>(capacita);
    k_ = k;
    capacita_ = capacita;
    if (byte == 0) return;
    byte += Margine;
    void* p = mmap(nullptr, byte, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (p == MAP_FAILED) {
        k_ = 0;
        capacita_ = 0;
        throw errori::memoriaEsaurita();
    }
    // Large stores are filled front to back: huge pages spare most of the page faults.
    if (byte >= (size_t{2} << 20)) madvise(p, byte, MADV_HUGEPAGE);
    dati_ = static_cast<uint8_t*>(p);
    byte_ = byte;
}

uint8_t Colonne::at(int p, int64_t c) const {
    if (p < 1 || p > k_ || c < 1 || c > capacita_) throw errori::indiceFuoriIntervallo();
    return get(p, c);
}

void Colonne::setAt(int p, int64_t c, uint8_t v) {
    if (p < 1 || p > k_ || c < 1 || c > capacita_) throw errori::indiceFuoriIntervallo();
    set(p, c, v);
}

size_t Colonne::residente() const {
    if (!dati_) return 0;
    long pagina = sysconf(_SC_PAGESIZE);
    size_t pagine = (byte_ + pagina - 1) / pagina;
    std::vector<unsigned char> v(pagine);
    if (mincore(dati_, byte_, v.data()) != 0) return 0;
    size_t n = 0;
    for (unsigned char b : v) n += b & 1;
    return n * pagina;
}

}  // namespace zef
