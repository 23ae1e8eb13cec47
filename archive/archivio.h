// ArchivioEstrazioni: the archive database, archivio.db, open for the program's life.
//
// Start-up opens it with ApriOCrea: a missing file is made from the schema and, when
// asked, filled with the draws shipped beside the program (storico.txt.gz) in one
// transaction. A file that is not an archive (unreadable, not SQLite, no table of
// draws) raises ErroreArchivio, which start-up shows as "Si è verificato l'errore
// seguente: " + testo().
//
// A connection is used by one thread at a time (it is opened without SQLite's
// per-call mutex, which costs a fifth of a full read): a worker thread that reads
// the draws opens an ArchivioEstrazioni of its own, which takes about a millisecond.
#pragma once

#include "archive/cursore.h"
#include "core/errori.h"
#include "core/vocabolario.h"

#include <memory>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

namespace zef {

// The archive cannot be opened: number and text as the run time reports them.
struct ErroreArchivio : ErroreEsecuzione {
    using ErroreEsecuzione::ErroreEsecuzione;
};

// A failure of the database engine told in Italian: what happened to the archive, not
// the engine's English ("attempt to write a readonly database", "database or disk is full").
ErroreEsecuzione ErroreDatabase(const std::exception& e);

// The eleven wheels in the archive's order: field prefixes, headers, file codes.
extern const char* const PrefissiRuote[NumRuote];  // "Bari" ... "Nazionale"
extern const char* const IntestazioniRuote[NumRuote];  // "BARI" ... "NAZIONALE"
extern const char* const CodiciRuote[NumRuote];    // "BA" ... "RN" in the same order
// Field name of wheel 1..11, position 1..5: "Bari1", "Nazionale5".
std::string NomeCampo(int ruota, int posizione);

class ArchivioEstrazioni {
public:
    // Opens an existing archive; raises ErroreArchivio when it is missing or foreign.
    explicit ArchivioEstrazioni(const std::string& percorso);
    ~ArchivioEstrazioni();
    ArchivioEstrazioni(const ArchivioEstrazioni&) = delete;
    ArchivioEstrazioni& operator=(const ArchivioEstrazioni&) = delete;

    // Opens the archive at `percorso`, creating it when missing: schema only, or
    // filled from the shipped draws `storico` (a storico.txt.gz) when that is given.
    static std::unique_ptr<ArchivioEstrazioni> ApriOCrea(const std::string& percorso,
                                                         const std::string& storico = "");
    // The archive of the program: archivio.db in the data folder, made and filled from
    // storico.txt.gz beside the program when missing.
    static std::unique_ptr<ArchivioEstrazioni> ApriPredefinito();
    // The shipped draws beside the program.
    static std::string StoricoSpedito();
    static std::string PercorsoPredefinito();

    const std::string& percorso() const { return percorso_; }
    SQLite::Database& db() { return *db_; }

    // OpenRecordset: a bare table name opens the table; anything else is a statement
    // whose '?' take `parametri` in order.
    Cursore OpenRecordset(const std::string& sorgente, const std::vector<Valore>& parametri = {});

    long NumeroEstrazioni();
    // Does a draw with this date (ISO) exist.
    bool EsisteData(const std::string& iso);

    // A transaction: commits on Commit(), rolls back if destroyed before.
    class Transazione {
    public:
        explicit Transazione(ArchivioEstrazioni& a);
        ~Transazione();
        void Commit();
    private:
        ArchivioEstrazioni& a_;
        bool finita_ = false;
    };

private:
    std::string percorso_;
    std::unique_ptr<SQLite::Database> db_;
};

}  // namespace zef
