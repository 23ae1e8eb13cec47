#include "archive/cursore.h"

#include "archive/archivio.h"
#include "archive/date.h"
#include "core/basic.h"
#include "core/errori.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <cctype>
#include <memory>
#include <regex>

namespace zef {

namespace {

std::string minuscolo(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

ErroreEsecuzione errore(int n, const std::string& t) { return {n, t}; }

bool identificatore(const std::string& s) {
    if (s.empty()) return false;
    return std::all_of(s.begin(), s.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; });
}

Cursore::TipoCampo tipoDichiarato(std::string t) {
    t = minuscolo(t);
    if (t.find("int") != std::string::npos) return Cursore::TipoCampo::Intero;
    if (t.find("date") != std::string::npos || t.find("time") != std::string::npos) return Cursore::TipoCampo::Data;
    if (t.find("real") != std::string::npos || t.find("doub") != std::string::npos ||
        t.find("float") != std::string::npos || t.find("curr") != std::string::npos ||
        t.find("num") != std::string::npos)
        return Cursore::TipoCampo::Reale;
    return Cursore::TipoCampo::Testo;
}

void lega(SQLite::Statement& st, int i, const Valore& v) {
    std::visit(
        [&](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) st.bind(i);
            else if constexpr (std::is_same_v<T, int64_t>) st.bind(i, static_cast<int64_t>(x));
            else if constexpr (std::is_same_v<T, double>) st.bind(i, x);
            else st.bind(i, x);
        },
        v.grezzo());
}

}  // namespace

Cursore Cursore::Tabella(SQLite::Database& db, const std::string& nome) {
    if (!identificatore(nome))
        throw errore(3078, "Impossibile trovare la tabella o la query di input '" + nome + "'.");
    Cursore c;
    c.apri(db, "SELECT _rowid_, * FROM \"" + nome + "\" ORDER BY _rowid_", {}, nome);
    return c;
}

Cursore Cursore::Query(SQLite::Database& db, const std::string& sql, const std::vector<Valore>& parametri) {
    // "select * from T ..." is updatable: the rowid goes in front as a hidden column.
    static const std::regex aggiornabile(R"(^\s*select\s+\*\s+from\s+([A-Za-z_][A-Za-z0-9_]*)\b)",
                                         std::regex::icase);
    std::smatch m;
    Cursore c;
    if (std::regex_search(sql, m, aggiornabile)) {
        size_t stella = sql.find('*');
        c.apri(db, sql.substr(0, stella) + "_rowid_, " + sql.substr(stella), parametri, m[1].str());
    } else {
        c.apri(db, sql, parametri, "");
    }
    return c;
}

void Cursore::apri(SQLite::Database& db, const std::string& sql, const std::vector<Valore>& parametri,
                   const std::string& tabella) {
    db_ = &db;
    tabella_ = tabella;
    conRowid_ = !tabella.empty();
    try {
        // Declared kinds of the table's fields decide what a write stores.
        std::unordered_map<std::string, TipoCampo> dichiarati;
        if (!tabella.empty()) {
            SQLite::Statement info(db, "PRAGMA table_info(\"" + tabella + "\")");
            while (info.executeStep())
                dichiarati[minuscolo(info.getColumn(1).getString())] = tipoDichiarato(info.getColumn(2).getString());
            if (dichiarati.empty())
                throw errore(3078, "Impossibile trovare la tabella o la query di input '" + tabella + "'.");
        }
        // Read straight through the C interface: this loop is the whole cost of an open.
        sqlite3* h = db.getHandle();
        sqlite3_stmt* raw = nullptr;
        if (sqlite3_prepare_v2(h, sql.c_str(), static_cast<int>(sql.size()), &raw, nullptr) != SQLITE_OK)
            throw SQLite::Exception(h, sqlite3_errcode(h));
        std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guardia(raw, sqlite3_finalize);
        for (size_t i = 0; i < parametri.size(); ++i) {
            const int k = static_cast<int>(i + 1);
            std::visit(
                [&](const auto& x) {
                    using T = std::decay_t<decltype(x)>;
                    if constexpr (std::is_same_v<T, std::monostate>) sqlite3_bind_null(raw, k);
                    else if constexpr (std::is_same_v<T, int64_t>) sqlite3_bind_int64(raw, k, x);
                    else if constexpr (std::is_same_v<T, double>) sqlite3_bind_double(raw, k, x);
                    else sqlite3_bind_text(raw, k, x.c_str(), static_cast<int>(x.size()), SQLITE_TRANSIENT);
                },
                parametri[i].grezzo());
        }
        const int colonne = sqlite3_column_count(raw);
        const int primo = conRowid_ ? 1 : 0;
        for (int i = primo; i < colonne; ++i) {
            std::string nome = sqlite3_column_name(raw, i);
            auto it = dichiarati.find(minuscolo(nome));
            nomi_.push_back(nome);
            tipi_.push_back(it == dichiarati.end() ? TipoCampo::Testo : it->second);
            indici_.emplace(minuscolo(nome), static_cast<int>(nomi_.size()) - 1);
            indici_.emplace(nome, static_cast<int>(nomi_.size()) - 1);
        }
        const int n = static_cast<int>(nomi_.size());
        int rc;
        while ((rc = sqlite3_step(raw)) == SQLITE_ROW) {
            if (conRowid_) rowid_.push_back(sqlite3_column_int64(raw, 0));
            for (int i = 0; i < n; ++i) {
                sqlite3_value* v = sqlite3_column_value(raw, i + primo);
                switch (sqlite3_value_type(v)) {
                    case SQLITE_INTEGER:
                        dati_.push_back(sqlite3_value_int64(v));
                        generi_.push_back(Intero);
                        break;
                    case SQLITE_FLOAT: {
                        double d = sqlite3_value_double(v);
                        int64_t b;
                        std::memcpy(&b, &d, sizeof b);
                        dati_.push_back(b);
                        generi_.push_back(Reale);
                        break;
                    }
                    case SQLITE_NULL:
                        dati_.push_back(0);
                        generi_.push_back(Nullo);
                        break;
                    default:
                        dati_.push_back(static_cast<int64_t>(testi_.size()));
                        generi_.push_back(Testo);
                        testi_.emplace_back(reinterpret_cast<const char*>(sqlite3_value_text(v)),
                                            static_cast<size_t>(sqlite3_value_bytes(v)));
                }
            }
            ++righe_;
        }
        if (rc != SQLITE_DONE) throw SQLite::Exception(h, rc);
    } catch (const SQLite::Exception& e) {
        std::string t = e.what();
        if (t.find("no such table") != std::string::npos)
            throw errore(3078, "Impossibile trovare la tabella o la query di input '" + tabella + "'.");
        throw errore(3000, "Errore del database: " + t);
    }
    aperto_ = true;
    pos_ = 0;
}

long Cursore::AbsolutePosition() const {
    if (cancellata_ || Bof() || Eof()) return -1;
    return pos_;
}

void Cursore::riposiziona(long nuova) {
    modo_ = Modo::Nessuno;  // moving away drops an unfinished AddNew or edit
    cancellata_ = false;
    pos_ = std::clamp(nuova, -1L, RecordCount());
    if (alRiposizionamento) alRiposizionamento();
}

void Cursore::MoveFirst() { riposiziona(0); }
void Cursore::MoveLast() { riposiziona(righe_ == 0 ? 0 : RecordCount() - 1); }

Valore Cursore::cella(long riga, int i) const {
    const size_t k = static_cast<size_t>(riga) * nomi_.size() + static_cast<size_t>(i);
    switch (generi_[k]) {
        case Intero: return Valore(static_cast<long long>(dati_[k]));
        case Reale: {
            double d;
            std::memcpy(&d, &dati_[k], sizeof d);
            return Valore(d);
        }
        case Testo: return Valore(testi_[static_cast<size_t>(dati_[k])]);
        default: return Valore();
    }
}

void Cursore::scriviCella(size_t k, const Valore& v) {
    std::visit(
        [&](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                dati_[k] = 0;
                generi_[k] = Nullo;
            } else if constexpr (std::is_same_v<T, int64_t>) {
                dati_[k] = x;
                generi_[k] = Intero;
            } else if constexpr (std::is_same_v<T, double>) {
                std::memcpy(&dati_[k], &x, sizeof x);
                generi_[k] = Reale;
            } else {
                dati_[k] = static_cast<int64_t>(testi_.size());
                generi_[k] = Testo;
                testi_.push_back(x);
            }
        },
        v.grezzo());
}

void Cursore::scriviRiga(long riga, const std::vector<Valore>& v) {
    const size_t base = static_cast<size_t>(riga) * nomi_.size();
    for (size_t i = 0; i < nomi_.size(); ++i) scriviCella(base + i, v[i]);
}

std::vector<Valore> Cursore::leggiRiga(long riga) const {
    std::vector<Valore> v;
    v.reserve(nomi_.size());
    for (size_t i = 0; i < nomi_.size(); ++i) v.push_back(cella(riga, static_cast<int>(i)));
    return v;
}

void Cursore::MoveNext() {
    if (cancellata_) return riposiziona(pos_);  // the next row has taken the deleted one's place
    if (Eof()) throw errori::nessunRecordCorrente();
    riposiziona(pos_ + 1);
}

void Cursore::MovePrevious() {
    if (cancellata_) return riposiziona(pos_ - 1);
    if (Bof()) throw errori::nessunRecordCorrente();
    riposiziona(pos_ - 1);
}

void Cursore::Move(long n) {
    if (cancellata_) return riposiziona(n > 0 ? pos_ + n - 1 : pos_ + n);
    if (n != 0 && (Bof() || Eof())) throw errori::nessunRecordCorrente();
    riposiziona(pos_ + n);
}

int Cursore::indiceCampo(const std::string& nome) const {
    auto it = indici_.find(std::string_view(nome));
    if (it != indici_.end()) return it->second;
    it = indici_.find(minuscolo(nome));
    return it == indici_.end() ? -1 : it->second;
}

void Cursore::richiediRigaCorrente() const {
    if (!aperto_) throw errore(errori_archivio::OperazioneNonConsentita, "Operazione non consentita: cursore chiuso.");
    if (cancellata_) throw errore(errori_archivio::RecordEliminato, "Record eliminato.");
    if (Bof() || Eof()) throw errori::nessunRecordCorrente();
}

Valore Cursore::campo(const std::string& nome) const {
    int i = indiceCampo(nome);
    if (i < 0) throw errore(errori_archivio::ElementoNonTrovato, "Elemento non trovato in questo insieme.");
    if (modo_ != Modo::Nessuno) return buffer_[i];
    richiediRigaCorrente();
    return cella(pos_, i);
}

Valore Cursore::campo(int i) const {
    if (i < 0 || i >= static_cast<int>(nomi_.size()))
        throw errore(errori_archivio::ElementoNonTrovato, "Elemento non trovato in questo insieme.");
    if (modo_ != Modo::Nessuno) return buffer_[i];
    richiediRigaCorrente();
    return cella(pos_, i);
}

std::optional<int> Cursore::numero(const std::string& nome) const {
    int i = indiceCampo(nome);
    if (i < 0) throw errore(errori_archivio::ElementoNonTrovato, "Elemento non trovato in questo insieme.");
    return numero(i);
}

std::optional<int> Cursore::numero(int i) const {
    // The common read of a draw, straight from the packed row.
    if (modo_ == Modo::Nessuno && i >= 0 && i < static_cast<int>(nomi_.size()) && !cancellata_ && !Bof() &&
        !Eof()) {
        const size_t k = static_cast<size_t>(pos_) * nomi_.size() + static_cast<size_t>(i);
        if (generi_[k] == Intero) return static_cast<int>(dati_[k]);
        if (generi_[k] == Nullo) return std::nullopt;
    }
    auto n = campo(i).numero();
    if (!n) return std::nullopt;
    return static_cast<int>(*n);
}

Valore Cursore::converti(int i, const Valore& v) const {
    auto conversione = [] {
        return errore(errori_archivio::ConversioneTipo, "Errore di conversione del tipo di dati.");
    };
    if (v.nullo()) return v;
    // An empty text is stored as null, in every kind of field.
    if (v.testuale() && Trim(v.comeTesto()).empty()) return Valore();
    switch (tipi_[i]) {
        case TipoCampo::Intero:
            if (v.testuale()) {
                try {
                    return Valore(static_cast<long long>(*v.numero()));
                } catch (const ErroreEsecuzione&) {
                    throw conversione();
                }
            }
            return Valore(static_cast<long long>(*v.numero()));
        case TipoCampo::Reale:
            if (v.testuale()) {
                try {
                    return Valore(v.comeReale());
                } catch (const ErroreEsecuzione&) {
                    throw conversione();
                }
            }
            return v;
        case TipoCampo::Data: {
            if (!v.testuale()) throw conversione();
            auto d = DataInIso(v.comeTesto());
            if (!d) throw conversione();
            return Valore(*d);
        }
        case TipoCampo::Testo:
            return v.testuale() ? v : Valore(v.comeTesto());
    }
    return v;
}

void Cursore::imposta(const std::string& nome, const Valore& v) {
    int i = indiceCampo(nome);
    if (i < 0) throw errore(errori_archivio::ElementoNonTrovato, "Elemento non trovato in questo insieme.");
    if (modo_ == Modo::Nessuno) Edit();
    buffer_[i] = converti(i, v);
    toccato_[i] = true;
}

bool Cursore::trova(long da, const std::string& nome, const Valore& v) {
    const int i = indiceCampo(nome);
    if (i < 0) throw errore(errori_archivio::ElementoNonTrovato, "Elemento non trovato in questo insieme.");
    auto uguale = [&](const Valore& x) {
        if (x.nullo() || v.nullo()) return false;
        if (x.testuale() || v.testuale()) return minuscolo(x.comeTesto()) == minuscolo(v.comeTesto());
        return x.comeReale() == v.comeReale();
    };
    for (long r = std::max(da, 0L); r < righe_; ++r)
        if (uguale(cella(r, i))) {
            nessunaCorrispondenza_ = false;
            riposiziona(r);
            return true;
        }
    nessunaCorrispondenza_ = true;
    return false;
}

bool Cursore::FindFirst(const std::string& nome, const Valore& v) { return trova(0, nome, v); }

bool Cursore::FindNext(const std::string& nome, const Valore& v) {
    return trova(cancellata_ ? pos_ : pos_ + 1, nome, v);
}

void Cursore::AddNew() {
    if (!aperto_) throw errore(errori_archivio::OperazioneNonConsentita, "Operazione non consentita: cursore chiuso.");
    if (tabella_.empty())
        throw errore(errori_archivio::OperazioneNonConsentita, "Impossibile aggiornare. Database o oggetto di sola lettura.");
    modo_ = Modo::Aggiunta;
    buffer_.assign(nomi_.size(), Valore());
    toccato_.assign(nomi_.size(), false);
}

void Cursore::Edit() {
    richiediRigaCorrente();
    if (tabella_.empty())
        throw errore(errori_archivio::OperazioneNonConsentita, "Impossibile aggiornare. Database o oggetto di sola lettura.");
    modo_ = Modo::Modifica;
    buffer_ = leggiRiga(pos_);
    toccato_.assign(nomi_.size(), false);
}

void Cursore::CancelUpdate() { modo_ = Modo::Nessuno; }

void Cursore::Update() {
    if (modo_ == Modo::Nessuno)
        throw errore(errori_archivio::AggiornamentoSenzaAddNew, "Aggiornamento o CancelUpdate senza AddNew o Edit.");
    std::vector<int> campi;
    for (size_t i = 0; i < toccato_.size(); ++i)
        if (toccato_[i]) campi.push_back(static_cast<int>(i));
    try {
        if (modo_ == Modo::Aggiunta) {
            std::string sql = "INSERT INTO \"" + tabella_ + "\"";
            if (campi.empty()) {
                sql += " DEFAULT VALUES";
            } else {
                std::string elenco, segnaposto;
                for (int i : campi) {
                    elenco += (elenco.empty() ? "\"" : ", \"") + nomi_[i] + "\"";
                    segnaposto += segnaposto.empty() ? "?" : ", ?";
                }
                sql += " (" + elenco + ") VALUES (" + segnaposto + ")";
            }
            SQLite::Statement st(*db_, sql);
            for (size_t k = 0; k < campi.size(); ++k) lega(st, static_cast<int>(k + 1), buffer_[campi[k]]);
            st.exec();
            int64_t rowid = db_->getLastInsertRowid();
            // The row as stored: an integer key left empty has been given its value.
            SQLite::Statement rilettura(*db_, "SELECT * FROM \"" + tabella_ + "\" WHERE _rowid_ = ?");
            rilettura.bind(1, static_cast<int64_t>(rowid));
            if (rilettura.executeStep()) {
                for (int k = 0; k < rilettura.getColumnCount(); ++k) {
                    int i = indiceCampo(rilettura.getColumnName(k));
                    if (i < 0) continue;
                    auto col = rilettura.getColumn(k);
                    if (col.isInteger()) buffer_[i] = Valore(static_cast<long long>(col.getInt64()));
                    else if (col.isFloat()) buffer_[i] = Valore(col.getDouble());
                    else if (col.isNull()) buffer_[i] = Valore();
                    else buffer_[i] = Valore(col.getString());
                }
            }
            bool eraEof = Eof() && righe_ > 0;
            dati_.resize(dati_.size() + nomi_.size());
            generi_.resize(generi_.size() + nomi_.size());
            ++righe_;
            scriviRiga(righe_ - 1, buffer_);
            rowid_.push_back(rowid);
            // A cursor that was past its end stays past its end.
            if (eraEof) pos_ = RecordCount();
        } else {
            if (!campi.empty()) {
                std::string sql = "UPDATE \"" + tabella_ + "\" SET ";
                for (size_t k = 0; k < campi.size(); ++k) sql += (k ? ", \"" : "\"") + nomi_[campi[k]] + "\" = ?";
                sql += " WHERE _rowid_ = ?";
                SQLite::Statement st(*db_, sql);
                for (size_t k = 0; k < campi.size(); ++k) lega(st, static_cast<int>(k + 1), buffer_[campi[k]]);
                st.bind(static_cast<int>(campi.size() + 1), static_cast<int64_t>(rowid_[pos_]));
                st.exec();
            }
            scriviRiga(pos_, buffer_);
        }
    } catch (const SQLite::Exception& e) {
        modo_ = Modo::Nessuno;
        throw ErroreDatabase(e);
    }
    modo_ = Modo::Nessuno;
    buffer_.clear();
}

void Cursore::Delete() {
    richiediRigaCorrente();
    if (tabella_.empty())
        throw errore(errori_archivio::OperazioneNonConsentita, "Impossibile aggiornare. Database o oggetto di sola lettura.");
    try {
        SQLite::Statement st(*db_, "DELETE FROM \"" + tabella_ + "\" WHERE _rowid_ = ?");
        st.bind(1, static_cast<int64_t>(rowid_[pos_]));
        st.exec();
    } catch (const SQLite::Exception& e) {
        throw ErroreDatabase(e);
    }
    const auto n = static_cast<long>(nomi_.size());
    dati_.erase(dati_.begin() + pos_ * n, dati_.begin() + (pos_ + 1) * n);
    generi_.erase(generi_.begin() + pos_ * n, generi_.begin() + (pos_ + 1) * n);
    --righe_;
    rowid_.erase(rowid_.begin() + pos_);
    modo_ = Modo::Nessuno;
    cancellata_ = true;
}

void Cursore::Close() {
    aperto_ = false;
    righe_ = 0;
    dati_.clear();
    generi_.clear();
    testi_.clear();
    rowid_.clear();
    pos_ = -1;
    modo_ = Modo::Nessuno;
    alRiposizionamento = nullptr;
}

}  // namespace zef
