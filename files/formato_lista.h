// The list-output forms of the classic run time, one value a line with CRLF,
// texts in Windows-1252: the writer of `Write #` and the reader of `Input #`.
//
//   Integer, Long   12, -3
//   String          "text"   (a quote inside is not escaped)
//   Boolean         #TRUE#, #FALSE#
//   Currency        1.5      (always a point, no trailing zeros)
//
// Both work on large blocks of bytes with no allocation per value, and have bulk
// paths for the stored columns (one small number a line) and the rows of the list
// (one quoted text a line), so that 20,000,000 columns go through in seconds.
#pragma once

#include "core/basic.h"
#include "core/errori.h"
#include "core/lista.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zef {

// Errors of the run time for a failed open, read or write; `scrittura` picks the
// path error for a missing folder where a read would report a missing file.
ErroreEsecuzione ErroreFile(int err, bool scrittura);

// Buffered writer of one value a line. The file is written under a temporary name
// beside it and takes its place on chiudi(), so a failed save leaves the old file
// as it was (straight onto the name where no temporary can be made there).
class ScrittoreLista {
public:
    explicit ScrittoreLista(const std::string& percorso);
    ~ScrittoreLista();
    ScrittoreLista(const ScrittoreLista&) = delete;
    ScrittoreLista& operator=(const ScrittoreLista&) = delete;

    void intero(long long v);
    // `utf8` is written in Windows-1252.
    void testo(std::string_view utf8);
    void booleano(bool b);
    void valuta(Currency c);
    // `quante` columns of `k` numbers each, `passo` bytes apart from `primo`.
    void colonne(const uint8_t* primo, int64_t quante, int k, int passo);
    // Every row of the list as a text.
    void righe(const ListaGiocate& lista);
    // Writes what is left; raises the run time's error when the disk refuses it.
    void chiudi();

private:
    static constexpr size_t Blocco = size_t{1} << 20;
    void spazio(size_t n) {
        if (usati_ + n > buf_.size()) svuota(n);
    }
    void svuota(size_t serve = 0);
    void quotato(std::string_view cp1252);
    int fd_ = -1;
    std::string percorso_;
    std::string temporaneo_;  // empty: writing straight onto the name
    std::vector<char> buf_;
    size_t usati_ = 0;
};

// Reader of one field at a time as `Input #` reads it: blanks skipped, a quoted
// text up to the next quote, anything else up to a comma or the end of the line
// (CRLF, CR or LF). Running past the end raises error 62; a field of another form
// raises error 13; a number out of its type, 6.
//
// It reads either bytes already in memory or a file streamed through a buffer of
// `blocco` bytes (grown only for a field longer than that); a field that crosses
// the end of the buffer is parsed again once the buffer holds it.
class LettoreLista {
public:
    LettoreLista(const char* dati, size_t lunghezza);
    // `fd` stays the caller's; `lunghezzaFile` is for the progress bar and reserves only.
    LettoreLista(int fd, size_t lunghezzaFile, size_t blocco = size_t{1} << 20);

    size_t lunghezza() const { return totale_; }
    size_t posizione() const { return base_ + pos_; }
    size_t restanti() const { return totale_ > posizione() ? totale_ - posizione() : 0; }

    long long intero(long long minimo, long long massimo);
    bool booleano();
    Currency valuta();
    // The text in UTF-8.
    std::string testo();

    // `quante` values 0..255 into dest[0..quante): as many calls of intero(0, 255),
    // with a straight path for the plain "12\r\n" lines. On an error the values
    // before it are in place.
    void numeri(uint8_t* dest, int64_t quante);
    // Appends `quante` texts to the list, as many calls of testo() would.
    // `ogni` is called after every 1024 rows (for the progress bar).
    template <class F>
    void righe(ListaGiocate& lista, long long quante, F&& ogni);

private:
    std::string_view campo(bool comeTesto);
    // The straight path of one row; false leaves the position untouched.
    bool rigaSemplice(ListaGiocate& lista);
    // Moves the unread bytes to the front and reads more after them. False when
    // the input had already ended; after a true every offset into the buffer is stale.
    bool riempi();
    void anticipa(size_t n) {
        if (lunghezza_ - pos_ < n && !fine_) riempi();
    }

    const char* dati_;
    size_t lunghezza_;  // bytes in the buffer
    size_t pos_ = 0;    // in the buffer
    size_t base_ = 0;   // offset in the input of the buffer's first byte
    size_t totale_;
    int fd_ = -1;
    bool fine_ = true;  // nothing more to read beyond the buffer
    std::vector<char> buf_;
};

template <class F>
void LettoreLista::righe(ListaGiocate& lista, long long quante, F&& ogni) {
    for (long long i = 1; i <= quante; ++i) {
        anticipa(4096);
        if (!rigaSemplice(lista)) lista.AddItem(testo());
        if ((i & 1023) == 0) ogni();
    }
}

// A file opened for input, with its length (0 for what is not a regular file).
class FileInLettura {
public:
    explicit FileInLettura(const std::string& percorso);
    ~FileInLettura();
    FileInLettura(const FileInLettura&) = delete;
    FileInLettura& operator=(const FileInLettura&) = delete;

    int fd() const { return fd_; }
    size_t lunghezza() const { return lunghezza_; }

private:
    int fd_ = -1;
    size_t lunghezza_ = 0;
};

}  // namespace zef
