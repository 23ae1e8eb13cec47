// The dream book: its sources (data/smorfia/, plain text) turned into smorfia.db, and
// the look-ups the dream book window makes in it.
//
// smorfia.db is an SQLite file with the tables the window reads: "Nomi Propri" and
// "Personaggi" (soggetto, Numero); for each initial l, "soggetti l" (soggetto, Numero,
// "puntatore prima voce") and "oggettil" (puntatore, oggetto, Numero, "fine blocco").
// A subject with objects owns a run of consecutive entries of its objects table: the
// head, at its "puntatore prima voce", is the subject itself with its own number, then
// its objects in the order of the source, the last marked "fine blocco".
//
// Names are matched without regard to case or accents ("citta" finds "città"): the
// texts are compared in a plain form, lower case with the accents taken off.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

namespace zef {

// Lower case, accented Latin letters as their base letter, the rest as it is.
std::string FormaPiana(const std::string& testo);
// The initial that names a subject's tables: the plain form's first character; empty
// when the text is empty.
std::string Iniziale(const std::string& testo);

struct ErroreLibro : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Builds the book from the sources folder (nomi_propri.txt, personaggi.txt,
// soggetti/<l>.txt) into `fileDb`, replacing it. Raises ErroreLibro naming the file and
// line of a malformed source.
void CostruisciLibro(const std::string& cartellaSorgenti, const std::string& fileDb);

// The book beside the program.
std::string PercorsoLibro();

// A row of a book table, in table order.
struct VoceLibro {
    int64_t puntatore = 0;  // objects tables; the row's place otherwise
    std::string testo;      // soggetto / oggetto
    int numero = 0;
    int64_t primaVoce = 0;  // subjects tables
    bool fineBlocco = false;
};

class Libro {
public:
    // Opens the book read-only; raises ErroreLibro when it cannot.
    explicit Libro(const std::string& fileDb);
    ~Libro();
    Libro(const Libro&) = delete;
    Libro& operator=(const Libro&) = delete;

    bool haTabella(const std::string& nome) const;
    // The rows of a table in table order; raises ErroreLibro when there is no such table.
    std::vector<VoceLibro> tabella(const std::string& nome) const;

private:
    std::unique_ptr<SQLite::Database> db_;
};

}  // namespace zef
