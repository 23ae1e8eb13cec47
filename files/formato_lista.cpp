#include "files/formato_lista.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>

namespace zef {

ErroreEsecuzione ErroreFile(int err, bool scrittura) {
    switch (err) {
        case ENOENT:
            if (scrittura) return {76, "Impossibile trovare il percorso"};
            return errori::fileNonTrovato();
        case ENOTDIR: return {76, "Impossibile trovare il percorso"};
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY: return {70, "Permesso negato"};
        case ENOSPC:
        case EDQUOT: return {61, "Disco pieno"};
        case ENAMETOOLONG: return {52, "Nome o numero di file non valido"};
        case EMFILE:
        case ENFILE: return {67, "Troppi file"};
        case EIO: return {57, "Errore di I/O del dispositivo"};
        default: return {75, "Errore di accesso al percorso/file"};
    }
}

namespace {

bool SoloAscii(std::string_view t) {
    unsigned char o = 0;
    for (unsigned char c : t) o |= c;
    return o < 0x80;
}

// "0\r\n" .. "255\r\n": the lines of the numbers a column can hold.
struct RigaNumero {
    char testo[6];
    uint8_t lunghezza;
};
constexpr std::array<RigaNumero, 256> TabellaNumeri = [] {
    std::array<RigaNumero, 256> t{};
    for (int v = 0; v < 256; ++v) {
        int n = 0;
        if (v >= 100) t[v].testo[n++] = static_cast<char>('0' + v / 100);
        if (v >= 10) t[v].testo[n++] = static_cast<char>('0' + v / 10 % 10);
        t[v].testo[n++] = static_cast<char>('0' + v % 10);
        t[v].testo[n++] = '\r';
        t[v].testo[n++] = '\n';
        t[v].lunghezza = static_cast<uint8_t>(n);
    }
    return t;
}();

int ApriInScrittura(const std::string& p) { return ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666); }

}  // namespace

// ---- writer ---------------------------------------------------------------------

ScrittoreLista::ScrittoreLista(const std::string& percorso) : percorso_(percorso) {
    struct stat st {};
    bool esiste = ::stat(percorso.c_str(), &st) == 0;
    if (esiste && S_ISDIR(st.st_mode)) throw ErroreFile(EISDIR, true);
    // a link is written through, not replaced by a file of its own
    struct stat sl {};
    bool collegamento = ::lstat(percorso.c_str(), &sl) == 0 && S_ISLNK(sl.st_mode);
    if (!collegamento) {
        temporaneo_ = percorso + ".~zfr";
        fd_ = ApriInScrittura(temporaneo_);
    }
    if (fd_ >= 0) {
        if (esiste) (void)::fchmod(fd_, st.st_mode & 07777);  // the file keeps its permissions
    } else {
        temporaneo_.clear();
        fd_ = ApriInScrittura(percorso);
        if (fd_ < 0) throw ErroreFile(errno, true);
    }
    buf_.resize(Blocco);
}

ScrittoreLista::~ScrittoreLista() {
    if (fd_ >= 0) ::close(fd_);
    if (!temporaneo_.empty()) ::unlink(temporaneo_.c_str());
}

void ScrittoreLista::svuota(size_t serve) {
    size_t fatto = 0;
    while (fatto < usati_) {
        ssize_t n = ::write(fd_, buf_.data() + fatto, usati_ - fatto);
        if (n < 0) {
            if (errno == EINTR) continue;
            throw ErroreFile(errno, true);
        }
        if (n == 0) throw ErroreFile(ENOSPC, true);
        fatto += static_cast<size_t>(n);
    }
    usati_ = 0;
    if (serve > buf_.size()) buf_.resize(serve);
}

void ScrittoreLista::intero(long long v) {
    spazio(24);
    char* d = buf_.data() + usati_;
    char* f = std::to_chars(d, d + 22, v).ptr;
    *f++ = '\r';
    *f++ = '\n';
    usati_ = static_cast<size_t>(f - buf_.data());
}

void ScrittoreLista::quotato(std::string_view cp1252) {
    spazio(cp1252.size() + 4);
    char* d = buf_.data() + usati_;
    *d++ = '"';
    // An empty text may have no storage at all: nothing to copy then.
    if (!cp1252.empty()) std::memcpy(d, cp1252.data(), cp1252.size());
    d += cp1252.size();
    *d++ = '"';
    *d++ = '\r';
    *d++ = '\n';
    usati_ = static_cast<size_t>(d - buf_.data());
}

void ScrittoreLista::testo(std::string_view utf8) {
    if (SoloAscii(utf8)) quotato(utf8);
    else quotato(Utf8InCp1252(utf8));
}

void ScrittoreLista::booleano(bool b) {
    std::string_view t = b ? "#TRUE#\r\n" : "#FALSE#\r\n";
    spazio(t.size());
    std::memcpy(buf_.data() + usati_, t.data(), t.size());
    usati_ += t.size();
}

void ScrittoreLista::valuta(Currency c) {
    std::string t = c.testoPunto();
    spazio(t.size() + 2);
    std::memcpy(buf_.data() + usati_, t.data(), t.size());
    usati_ += t.size();
    buf_[usati_++] = '\r';
    buf_[usati_++] = '\n';
}

void ScrittoreLista::colonne(const uint8_t* primo, int64_t quante, int k, int passo) {
    if (k <= 0) return;
    const size_t perColonna = static_cast<size_t>(k) * 5 + sizeof(RigaNumero::testo);
    for (int64_t c = 0; c < quante; ++c) {
        spazio(perColonna);
        char* d = buf_.data() + usati_;
        const uint8_t* p = primo + c * passo;
        for (int i = 0; i < k; ++i) {
            const RigaNumero& r = TabellaNumeri[p[i]];
            std::memcpy(d, r.testo, sizeof r.testo);  // a fixed-size copy; the length moves on
            d += r.lunghezza;
        }
        usati_ = static_cast<size_t>(d - buf_.data());
    }
}

void ScrittoreLista::righe(const ListaGiocate& lista) {
    const int64_t n = lista.Rows();
    for (int64_t r = 0; r < n; ++r) testo(lista.riga(r));
}

void ScrittoreLista::chiudi() {
    svuota();
    int fd = fd_;
    fd_ = -1;
    if (::close(fd) != 0) throw ErroreFile(errno, true);
    if (!temporaneo_.empty()) {
        if (::rename(temporaneo_.c_str(), percorso_.c_str()) != 0) throw ErroreFile(errno, true);
        temporaneo_.clear();
    }
}

// ---- reader ---------------------------------------------------------------------

namespace {

// An integer field: digits with an optional sign; a decimal one is rounded on its
// way into the integer; an empty field reads as 0.
bool NumeroIntero(std::string_view c, long long& v) {
    if (c.empty()) {
        v = 0;
        return true;
    }
    if (c.find_first_of(".eE") != std::string_view::npos) {
        Currency x;
        if (!Currency::daTestoPunto(c, x)) return false;
        v = ArrotondaBanker(x.inDouble());
        return true;
    }
    size_t i = c[0] == '+' ? 1 : 0;
    auto r = std::from_chars(c.data() + i, c.data() + c.size(), v);
    return r.ec == std::errc{} && r.ptr == c.data() + c.size();
}

}  // namespace

LettoreLista::LettoreLista(const char* dati, size_t lunghezza)
    : dati_(dati), lunghezza_(lunghezza), totale_(lunghezza) {}

LettoreLista::LettoreLista(int fd, size_t lunghezzaFile, size_t blocco)
    : dati_(nullptr), lunghezza_(0), totale_(lunghezzaFile), fd_(fd), fine_(false) {
    buf_.resize(std::max<size_t>(blocco, 1));
    dati_ = buf_.data();
}

bool LettoreLista::riempi() {
    if (fine_) return false;
    const size_t resto = lunghezza_ - pos_;
    if (pos_ > 0 && resto > 0) std::memmove(buf_.data(), buf_.data() + pos_, resto);
    base_ += pos_;
    pos_ = 0;
    lunghezza_ = resto;
    if (lunghezza_ == buf_.size()) buf_.resize(buf_.size() * 2);  // a field longer than the buffer
    for (;;) {
        ssize_t n = ::read(fd_, buf_.data() + lunghezza_, buf_.size() - lunghezza_);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) throw ErroreFile(errno, false);
        if (n == 0) fine_ = true;
        lunghezza_ += static_cast<size_t>(n);
        break;
    }
    dati_ = buf_.data();
    return true;
}

std::string_view LettoreLista::campo(bool comeTesto) {
    auto delimitatore = [](char c) { return c == ',' || c == '\r' || c == '\n'; };
    // Parsed from the start again whenever the buffer ends before the field does.
    for (;;) {
        const char* d = dati_;
        const size_t n = lunghezza_;
        size_t i = pos_;
        while (i < n && (d[i] == ' ' || d[i] == '\t')) ++i;
        if (i >= n) {
            if (riempi()) continue;
            throw errori::inputOltreFine();
        }
        const bool quotato = d[i] == '"';
        size_t a, b;
        if (quotato) {
            a = ++i;
            const void* q = std::memchr(d + i, '"', n - i);
            if (!q && riempi()) continue;
            b = q ? static_cast<size_t>(static_cast<const char*>(q) - d) : n;
            i = q ? b + 1 : n;
            while (i < n && !delimitatore(d[i])) ++i;  // whatever follows the closing quote is passed over
        } else {
            a = i;
            while (i < n && !delimitatore(d[i])) ++i;
            b = i;
            while (b > a && (d[b - 1] == ' ' || d[b - 1] == '\t')) --b;
        }
        if (i >= n && riempi()) continue;
        if (i < n) {
            if (d[i] == ',') {
                ++i;
            } else if (d[i] == '\r') {
                ++i;
                if (i >= n && riempi()) continue;
                if (i < n && d[i] == '\n') ++i;
            } else {
                ++i;  // '\n'
            }
        }
        pos_ = i;
        if (quotato && !comeTesto) throw errori::tipoNonCorrispondente();
        return std::string_view(d + a, b - a);
    }
}

long long LettoreLista::intero(long long minimo, long long massimo) {
    std::string_view c = campo(false);
    long long v = 0;
    if (!NumeroIntero(c, v)) throw errori::tipoNonCorrispondente();
    if (v < minimo || v > massimo) throw errori::overflow();
    return v;
}

bool LettoreLista::booleano() {
    std::string_view c = campo(false);
    if (c == "#TRUE#") return true;
    if (c == "#FALSE#") return false;
    long long v = 0;
    if (NumeroIntero(c, v)) return v != 0;
    throw errori::tipoNonCorrispondente();
}

Currency LettoreLista::valuta() {
    std::string_view c = campo(false);
    if (c.empty()) return {};
    Currency v;
    if (!Currency::daTestoPunto(c, v)) throw errori::tipoNonCorrispondente();
    return v;
}

std::string LettoreLista::testo() {
    std::string_view c = campo(true);
    return SoloAscii(c) ? std::string(c) : Cp1252InUtf8(c);
}

void LettoreLista::numeri(uint8_t* dest, int64_t quante) {
    for (int64_t i = 0; i < quante; ++i) {
        anticipa(16);
        // the plain line: one to three digits and CRLF
        const char* d = dati_ + pos_;
        const size_t r = lunghezza_ - pos_;
        unsigned a = r >= 3 ? static_cast<unsigned char>(d[0]) - '0' : 10u;
        if (a < 10) {
            if (d[1] == '\r' && d[2] == '\n') {
                dest[i] = static_cast<uint8_t>(a);
                pos_ += 3;
                continue;
            }
            unsigned b = static_cast<unsigned char>(d[1]) - '0';
            if (r >= 4 && b < 10) {
                if (d[2] == '\r' && d[3] == '\n') {
                    dest[i] = static_cast<uint8_t>(a * 10 + b);
                    pos_ += 4;
                    continue;
                }
                unsigned c = static_cast<unsigned char>(d[2]) - '0';
                unsigned v = a * 100 + b * 10 + c;
                if (r >= 5 && c < 10 && v <= 255 && d[3] == '\r' && d[4] == '\n') {
                    dest[i] = static_cast<uint8_t>(v);
                    pos_ += 5;
                    continue;
                }
            }
        }
        dest[i] = static_cast<uint8_t>(intero(0, 255));
    }
}

bool LettoreLista::rigaSemplice(ListaGiocate& lista) {
    if (pos_ >= lunghezza_ || dati_[pos_] != '"') return false;
    const char* inizio = dati_ + pos_ + 1;
    const char* fine = dati_ + lunghezza_;
    const void* q = std::memchr(inizio, '"', static_cast<size_t>(fine - inizio));
    if (!q) return false;
    const char* chiusa = static_cast<const char*>(q);
    if (fine - chiusa < 3 || chiusa[1] != '\r' || chiusa[2] != '\n') return false;
    std::string_view t(inizio, static_cast<size_t>(chiusa - inizio));
    if (SoloAscii(t)) lista.AddItem(t);
    else lista.AddItem(Cp1252InUtf8(t));
    pos_ = static_cast<size_t>(chiusa + 3 - dati_);
    return true;
}

// ---- file for input -----------------------------------------------------------------

FileInLettura::FileInLettura(const std::string& percorso) {
    fd_ = ::open(percorso.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0) throw ErroreFile(errno, false);
    struct stat st {};
    int errore = 0;
    if (::fstat(fd_, &st) != 0) errore = errno;
    else if (S_ISDIR(st.st_mode)) errore = EISDIR;
    if (errore) {
        ::close(fd_);
        throw ErroreFile(errore, false);
    }
    if (S_ISREG(st.st_mode)) {
        lunghezza_ = static_cast<size_t>(st.st_size);
        ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
}

FileInLettura::~FileInLettura() { ::close(fd_); }

}  // namespace zef
