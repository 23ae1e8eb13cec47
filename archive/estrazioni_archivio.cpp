#include "archive/estrazioni_archivio.h"

#include "archive/archivio.h"
#include "core/errori.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <string>

namespace zef {

namespace {

ErroreEsecuzione ErroreDatabase(const std::string& testo) { return ErroreEsecuzione(3000, "Errore del database: " + testo); }

// "SELECT id, Bari1, ..., Nazionale5 FROM estrazioni": the names built from the wheels.
std::string Selezione() {
    std::string sql = "SELECT id";
    for (int r = 1; r <= NumRuote; ++r)
        for (int p = 1; p <= 5; ++p) sql += ", " + NomeCampo(r, p);
    return sql + " FROM estrazioni";
}

}  // namespace

long EstrazioniArchivio::numeroEstrazioni() {
    try {
        return archivio_.NumeroEstrazioni();
    } catch (const SQLite::Exception& e) {
        throw ErroreDatabase(e.what());
    }
}

std::vector<EstrazioneLetta> EstrazioniArchivio::daId(long idMinimo) { return leggi(&idMinimo); }

std::vector<EstrazioneLetta> EstrazioniArchivio::tutte() { return leggi(nullptr); }

std::vector<EstrazioneLetta> EstrazioniArchivio::leggi(const long* idMinimo) {
    const std::string sql = Selezione() + (idMinimo ? " WHERE id >= ?" : "") + " ORDER BY id";
    sqlite3* h = archivio_.db().getHandle();
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(h, sql.c_str(), static_cast<int>(sql.size()), &raw, nullptr) != SQLITE_OK)
        throw ErroreDatabase(sqlite3_errmsg(h));
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guardia(raw, sqlite3_finalize);
    if (idMinimo) sqlite3_bind_int64(raw, 1, static_cast<sqlite3_int64>(*idMinimo));

    std::vector<EstrazioneLetta> righe;
    int rc;
    while ((rc = sqlite3_step(raw)) == SQLITE_ROW) {
        EstrazioneLetta e;
        e.id = static_cast<long>(sqlite3_column_int64(raw, 0));
        for (int i = 0; i < 55; ++i) {
            // SMALLINT affinity stores whole numbers as integers; anything else is read
            // as the number it starts with, kept within the 16-bit range of the table.
            if (sqlite3_column_type(raw, i + 1) == SQLITE_NULL) continue;
            const sqlite3_int64 v = sqlite3_column_int64(raw, i + 1);
            e.numeri[i] = static_cast<int16_t>(std::clamp<sqlite3_int64>(v, -32768, 32767));
        }
        righe.push_back(e);
    }
    if (rc != SQLITE_DONE) throw ErroreDatabase(sqlite3_errmsg(h));
    return righe;
}

}  // namespace zef
