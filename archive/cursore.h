// Cursore: a record cursor over a table or a select statement of the archive.
//
// The rows are read into memory when the cursor opens (the whole archive is a few
// thousand rows), so moving and reading never touch the file. AddNew/Update/Delete
// write through to the file at once, one statement each, which SQLite makes atomic;
// callers that write many rows wrap them in a transaction of the database.
//
// Positions: -1 is BOF, 0..RecordCount-1 a row, RecordCount is EOF. After Delete the
// current row is gone: reading it fails, MoveNext goes to the row that followed it,
// MovePrevious to the one that preceded it.
//
// A cursor is updatable when it was opened on a table or on "select * from T ...":
// rows are then identified by their rowid. A row added by AddNew/Update goes at the
// end of the cursor, and the current row stays where it was.
#pragma once

#include "archive/valore.h"
#include "core/errori.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace SQLite {
class Database;
}

namespace zef {

// Error numbers and texts of the store, as the run time reports them.
namespace errori_archivio {
constexpr int UsoNonValidoNull = errori::UsoNonValidoNull;
constexpr int NessunRecordCorrente = errori::NessunRecordCorrente;
constexpr int ElementoNonTrovato = 3265;
constexpr int ConversioneTipo = 3421;
constexpr int RecordEliminato = 3167;
constexpr int OperazioneNonConsentita = 3027;
constexpr int AggiornamentoSenzaAddNew = 3020;
}  // namespace errori_archivio

class Cursore {
public:
    // Kind of a field as declared in the table, which decides what a write stores.
    enum class TipoCampo { Intero, Reale, Data, Testo };

    Cursore() = default;
    // Whole table by name (any case), in physical order, which is rowid (= id) order.
    static Cursore Tabella(SQLite::Database& db, const std::string& nome);
    // A statement with '?' parameters bound in order.
    static Cursore Query(SQLite::Database& db, const std::string& sql,
                         const std::vector<Valore>& parametri = {});

    bool aperto() const { return aperto_; }
    bool Eof() const { return righe_ == 0 || (!cancellata_ && pos_ >= RecordCount()); }
    bool Bof() const { return righe_ == 0 || (!cancellata_ && pos_ < 0); }
    long RecordCount() const { return righe_; }
    // 0-based position of the current row, -1 when there is none.
    long AbsolutePosition() const;

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    // Moves n rows from the current one; beyond either end it stops at BOF/EOF.
    void Move(long n);

    // Field by name (any case). A name not in the cursor raises 3265.
    Valore campo(const std::string& nome) const;
    // Field by its index in campi(): for loops that read one field many times.
    Valore campo(int indice) const;
    // The field as a number, nullopt for null: the common read of a draw.
    std::optional<int> numero(const std::string& nome) const;
    std::optional<int> numero(int indice) const;
    // Writes into the row being added or edited; on a current row, starts an edit.
    void imposta(const std::string& nome, const Valore& v);

    // FindFirst/FindNext: the first row (from the top, or after the current one) whose
    // field equals the value (texts without regard to case, numbers as numbers). On a
    // match it becomes current; otherwise NoMatch() is true and the row stays.
    bool FindFirst(const std::string& nome, const Valore& v);
    bool FindNext(const std::string& nome, const Valore& v);
    bool NoMatch() const { return nessunaCorrispondenza_; }

    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    void Delete();
    void Close();

    const std::vector<std::string>& campi() const { return nomi_; }
    int indiceCampo(const std::string& nome) const;  // -1 if absent

    // Called after every change of the current row (the bound view's reposition).
    std::function<void()> alRiposizionamento;

private:
    void apri(SQLite::Database& db, const std::string& sql, const std::vector<Valore>& parametri,
              const std::string& tabella);
    void riposiziona(long nuova);
    void richiediRigaCorrente() const;
    Valore converti(int indice, const Valore& v) const;

    enum class Modo { Nessuno, Aggiunta, Modifica };

    SQLite::Database* db_ = nullptr;
    std::string tabella_;  // empty: read-only
    bool aperto_ = false;
    bool conRowid_ = false;  // column 0 of the statement is the hidden rowid
    std::vector<std::string> nomi_;
    std::vector<TipoCampo> tipi_;
    struct HashNome {
        using is_transparent = void;
        size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
    };
    // Names as given and in lower case -> field index; the exact spelling is found
    // without building a string.
    std::unordered_map<std::string, int, HashNome, std::equal_to<>> indici_;
    // Rows packed, one 8-byte payload and one kind byte a cell: an open allocates
    // three blocks, not one per row.
    enum Genere : uint8_t { Nullo, Intero, Reale, Testo };
    Valore cella(long riga, int i) const;
    void scriviCella(size_t k, const Valore& v);
    void scriviRiga(long riga, const std::vector<Valore>& v);
    std::vector<Valore> leggiRiga(long riga) const;
    long righe_ = 0;
    std::vector<int64_t> dati_;
    std::vector<uint8_t> generi_;
    std::vector<std::string> testi_;
    std::vector<int64_t> rowid_;
    long pos_ = -1;
    bool cancellata_ = false;  // the current row was deleted
    bool nessunaCorrispondenza_ = false;
    bool trova(long da, const std::string& nome, const Valore& v);
    Modo modo_ = Modo::Nessuno;
    std::vector<Valore> buffer_;
    std::vector<bool> toccato_;
};

}  // namespace zef
