#include "archive/archivio.h"

#include "archive/schema.h"
#include "archive/storico.h"
#include "core/percorsi.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>

namespace zef {

const char* const PrefissiRuote[NumRuote] = {"Bari",   "Cagliari", "Firenze", "Genova",  "Milano",   "Napoli",
                                             "Palermo", "Roma",     "Torino",  "Venezia", "Nazionale"};
const char* const IntestazioniRuote[NumRuote] = {"BARI",    "CAGLIARI", "FIRENZE", "GENOVA",  "MILANO",   "NAPOLI",
                                         "PALERMO", "ROMA",     "TORINO",  "VENEZIA", "NAZIONALE"};
const char* const CodiciRuote[NumRuote] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};

std::string NomeCampo(int ruota, int posizione) {
    return std::string(PrefissiRuote[ruota - 1]) + static_cast<char>('0' + posizione);
}

namespace {

ErroreArchivio nonRiconosciuto(const std::string& p) {
    return ErroreArchivio(3343, "Formato di database non riconosciuto '" + p + "'.");
}

// The table of draws must be there with every field the program reads.
bool tabellaEstrazioniValida(SQLite::Database& db) {
    SQLite::Statement st(db, "PRAGMA table_info(estrazioni)");
    std::vector<std::string> nomi;
    while (st.executeStep()) {
        std::string n = st.getColumn(1).getString();
        for (char& c : n) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        nomi.push_back(n);
    }
    auto ha = [&](std::string n) {
        for (char& c : n) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return std::find(nomi.begin(), nomi.end(), n) != nomi.end();
    };
    if (!ha("id") || !ha("data")) return false;
    for (int r = 1; r <= NumRuote; ++r)
        for (int p = 1; p <= 5; ++p)
            if (!ha(NomeCampo(r, p))) return false;
    return true;
}

}  // namespace

ErroreEsecuzione ErroreDatabase(const std::exception& e) {
    const auto* s = dynamic_cast<const SQLite::Exception*>(&e);
    const int codice = s ? (s->getErrorCode() & 0xFF) : -1;
    switch (codice) {
        case SQLITE_READONLY:
            return {3027, "L'archivio delle estrazioni è di sola lettura (file protetto o cartella senza permesso "
                          "di scrittura): la modifica non è stata salvata."};
        case SQLITE_FULL:
            return {3026, "Spazio su disco esaurito: la modifica dell'archivio delle estrazioni non è stata salvata."};
        case SQLITE_IOERR:
            return {3026, "Errore di lettura o scrittura del disco sull'archivio delle estrazioni: la modifica non è "
                          "stata salvata."};
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return {3343, "L'archivio delle estrazioni è danneggiato."};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {3260, "L'archivio delle estrazioni è in uso da un altro programma: riprovare più tardi."};
        case SQLITE_CANTOPEN:
            return {3024, "Impossibile aprire il file dell'archivio delle estrazioni."};
        default:
            return {3000, std::string("Errore del database: ") + e.what()};
    }
}

ArchivioEstrazioni::ArchivioEstrazioni(const std::string& percorso) : percorso_(percorso) {
    std::error_code ec;
    if (std::filesystem::is_directory(percorso, ec))
        throw ErroreArchivio(3024, "'" + percorso + "' è una cartella: indicare il file dell'archivio delle estrazioni.");
    if (!std::filesystem::is_regular_file(percorso, ec))
        throw ErroreArchivio(3024, "Impossibile trovare il file '" + percorso + "'.");
    try {
        // One thread uses a connection at a time: no mutex around every column read.
        db_ = std::make_unique<SQLite::Database>(percorso, SQLite::OPEN_READWRITE | SQLITE_OPEN_NOMUTEX);
        db_->setBusyTimeout(5000);
        if (!tabellaEstrazioniValida(*db_)) throw nonRiconosciuto(percorso);
        // An archive of an older build may lack the staging table or the win record.
        SQLite::Statement t(*db_,
                            "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND lower(name) IN "
                            "('estrazionitmp', 'vincite')");
        t.executeStep();
        if (t.getColumn(0).getInt() < 2) db_->exec(SchemaArchivio);
    } catch (const SQLite::Exception&) {
        throw nonRiconosciuto(percorso);
    }
}

ArchivioEstrazioni::~ArchivioEstrazioni() = default;

std::unique_ptr<ArchivioEstrazioni> ArchivioEstrazioni::ApriOCrea(const std::string& percorso,
                                                                  const std::string& storico) {
    std::error_code ec;
    if (!std::filesystem::exists(percorso, ec)) {
        // Built under a temporary name and renamed, so a failure leaves no half archive.
        std::string provvisorio = percorso + ".nuovo";
        std::filesystem::remove(provvisorio, ec);
        try {
            {
                SQLite::Database db(provvisorio, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
                db.exec(SchemaArchivio);
            }
            if (!storico.empty()) {
                ArchivioEstrazioni nuovo(provvisorio);
                ImportaFileStorico(nuovo, storico);
            }
        } catch (const SQLite::Exception& e) {
            std::filesystem::remove(provvisorio, ec);
            throw ErroreArchivio(3051, "Impossibile creare l'archivio '" + percorso + "': " + e.what());
        } catch (const ErroreStorico& e) {
            std::filesystem::remove(provvisorio, ec);
            throw ErroreArchivio(3051, "Impossibile riempire l'archivio '" + percorso + "': " + e.what());
        } catch (...) {
            std::filesystem::remove(provvisorio, ec);
            throw;
        }
        std::filesystem::rename(provvisorio, percorso, ec);
        if (ec) throw ErroreArchivio(3051, "Impossibile creare l'archivio '" + percorso + "'.");
    }
    return std::make_unique<ArchivioEstrazioni>(percorso);
}

std::string ArchivioEstrazioni::StoricoSpedito() { return CartellaProgramma() + "/storico.txt.gz"; }
std::string ArchivioEstrazioni::PercorsoPredefinito() { return FileDati("archivio.db"); }

std::unique_ptr<ArchivioEstrazioni> ArchivioEstrazioni::ApriPredefinito() {
    std::error_code ec;
    std::string storico = StoricoSpedito();
    if (!std::filesystem::exists(storico, ec)) storico.clear();
    return ApriOCrea(PercorsoPredefinito(), storico);
}

Cursore ArchivioEstrazioni::OpenRecordset(const std::string& sorgente, const std::vector<Valore>& parametri) {
    bool nome = !sorgente.empty() && sorgente.find_first_of(" \t\n") == std::string::npos;
    return nome ? Cursore::Tabella(*db_, sorgente) : Cursore::Query(*db_, sorgente, parametri);
}

long ArchivioEstrazioni::NumeroEstrazioni() {
    SQLite::Statement st(*db_, "SELECT COUNT(*) FROM estrazioni");
    st.executeStep();
    return static_cast<long>(st.getColumn(0).getInt64());
}

bool ArchivioEstrazioni::EsisteData(const std::string& iso) {
    SQLite::Statement st(*db_, "SELECT id FROM estrazioni WHERE data = ?");
    st.bind(1, iso);
    return st.executeStep();
}

ArchivioEstrazioni::Transazione::Transazione(ArchivioEstrazioni& a) : a_(a) {
    try {
        a_.db().exec("BEGIN IMMEDIATE");
    } catch (const SQLite::Exception& e) {
        throw ErroreDatabase(e);
    }
}

ArchivioEstrazioni::Transazione::~Transazione() {
    if (!finita_) {
        try {
            a_.db().exec("ROLLBACK");
        } catch (...) {
        }
    }
}

void ArchivioEstrazioni::Transazione::Commit() {
    try {
        a_.db().exec("COMMIT");
    } catch (const SQLite::Exception& e) {
        throw ErroreDatabase(e);
    }
    finita_ = true;
}

}  // namespace zef
