#include "dreambook/libro.h"

#include "core/percorsi.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

namespace zef {

namespace {

// Two-byte UTF-8 letters of Latin-1 with an accent, and their base letter.
char Base(unsigned char a, unsigned char b) {
    if (a != 0xC3) return 0;
    static const char* mappa =
        // C3 80..BF: ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ
        "aaaaaaaceeeeiiiidnooooo.ouuuuyts"
        "aaaaaaaceeeeiiiidnooooo.ouuuuyty";
    if (b < 0x80 || b > 0xBF) return 0;
    const char c = mappa[b - 0x80];
    return c == '.' ? 0 : c;
}

std::vector<std::string> Campi(const std::string& riga) {
    std::vector<std::string> v;
    std::string c;
    for (char x : riga) {
        if (x == '\t') {
            v.push_back(c);
            c.clear();
        } else {
            c += x;
        }
    }
    v.push_back(c);
    return v;
}

int Numero(const std::string& t, const std::string& file, int riga) {
    if (t.empty() || t.size() > 2 || !std::all_of(t.begin(), t.end(), [](unsigned char c) { return std::isdigit(c); }))
        throw ErroreLibro(file + ", riga " + std::to_string(riga) + ": numero non valido \"" + t + "\"");
    const int n = std::stoi(t);
    if (n < 1 || n > 90) throw ErroreLibro(file + ", riga " + std::to_string(riga) + ": numero fuori da 1-90");
    return n;
}

std::string Quota(const std::string& nome) { return "\"" + nome + "\""; }

}  // namespace

std::string FormaPiana(const std::string& testo) {
    std::string out;
    out.reserve(testo.size());
    for (size_t i = 0; i < testo.size(); ++i) {
        const auto c = static_cast<unsigned char>(testo[i]);
        if (c < 0x80) {
            out += static_cast<char>(std::tolower(c));
        } else if (i + 1 < testo.size() && Base(c, static_cast<unsigned char>(testo[i + 1]))) {
            out += Base(c, static_cast<unsigned char>(testo[i + 1]));
            ++i;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out;
}

std::string Iniziale(const std::string& testo) {
    const std::string p = FormaPiana(testo);
    if (p.empty()) return {};
    // A character beyond ASCII is kept whole (its UTF-8 bytes): no table has it.
    size_t n = 1;
    const auto c = static_cast<unsigned char>(p[0]);
    if (c >= 0xC0) n = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 2;
    return p.substr(0, std::min(n, p.size()));
}

std::string PercorsoLibro() { return CartellaProgramma() + "/smorfia.db"; }

void CostruisciLibro(const std::string& cartella, const std::string& fileDb) {
    namespace fs = std::filesystem;
    const std::string provvisorio = fileDb + ".nuovo";
    std::error_code ec;
    fs::remove(provvisorio, ec);
    try {
        SQLite::Database db(provvisorio, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction t(db);
        for (const char* tab : {"Nomi Propri", "Personaggi"}) {
            db.exec("CREATE TABLE " + Quota(tab) + " (soggetto TEXT, Numero INTEGER)");
            const std::string file = cartella + (std::string(tab) == "Personaggi" ? "/personaggi.txt" : "/nomi_propri.txt");
            std::ifstream in(file);
            SQLite::Statement ins(db, "INSERT INTO " + Quota(tab) + " VALUES (?, ?)");
            std::string riga;
            int n = 0;
            while (std::getline(in, riga)) {
                ++n;
                if (!riga.empty() && riga.back() == '\r') riga.pop_back();
                if (riga.empty() || riga[0] == '#') continue;
                auto c = Campi(riga);
                if (c.size() != 2 || c[0].empty()) throw ErroreLibro(file + ", riga " + std::to_string(n) + ": attesi nome e numero");
                ins.reset();
                ins.bind(1, c[0]);
                ins.bind(2, Numero(c[1], file, n));
                ins.exec();
            }
        }
        for (char l = 'a'; l <= 'z'; ++l) {
            const std::string soggetti = std::string("soggetti ") + l, oggetti = std::string("oggetti") + l;
            db.exec("CREATE TABLE " + Quota(soggetti) + " (soggetto TEXT, Numero INTEGER, \"puntatore prima voce\" INTEGER)");
            db.exec("CREATE TABLE " + Quota(oggetti) +
                    " (puntatore INTEGER, oggetto TEXT, Numero INTEGER, \"fine blocco\" INTEGER)");
            const std::string file = cartella + "/soggetti/" + l + ".txt";
            std::ifstream in(file);
            if (!in) continue;
            // Read whole first: a subject's row needs its block's start.
            struct Soggetto {
                std::string nome;
                int numero;
                std::vector<std::pair<std::string, int>> oggetti;
            };
            std::vector<Soggetto> elenco;
            std::string riga;
            int n = 0;
            while (std::getline(in, riga)) {
                ++n;
                if (!riga.empty() && riga.back() == '\r') riga.pop_back();
                if (riga.empty() || riga[0] == '#') continue;
                auto c = Campi(riga);
                if (riga[0] == '\t') {
                    if (elenco.empty() || c.size() != 3 || c[1].empty())
                        throw ErroreLibro(file + ", riga " + std::to_string(n) + ": oggetto senza soggetto o malformato");
                    elenco.back().oggetti.emplace_back(c[1], Numero(c[2], file, n));
                } else {
                    if (c.size() != 2 || c[0].empty())
                        throw ErroreLibro(file + ", riga " + std::to_string(n) + ": attesi soggetto e numero");
                    elenco.push_back({c[0], Numero(c[1], file, n), {}});
                }
            }
            SQLite::Statement insS(db, "INSERT INTO " + Quota(soggetti) + " VALUES (?, ?, ?)");
            SQLite::Statement insO(db, "INSERT INTO " + Quota(oggetti) + " VALUES (?, ?, ?, ?)");
            int64_t puntatore = 0;
            for (const auto& s : elenco) {
                int64_t prima = 0;
                if (!s.oggetti.empty()) {
                    prima = ++puntatore;
                    insO.reset();
                    insO.bind(1, prima);
                    insO.bind(2, s.nome);
                    insO.bind(3, s.numero);
                    insO.bind(4, 0);
                    insO.exec();
                    for (size_t i = 0; i < s.oggetti.size(); ++i) {
                        insO.reset();
                        insO.bind(1, ++puntatore);
                        insO.bind(2, s.oggetti[i].first);
                        insO.bind(3, s.oggetti[i].second);
                        insO.bind(4, i + 1 == s.oggetti.size() ? 1 : 0);
                        insO.exec();
                    }
                }
                insS.reset();
                insS.bind(1, s.nome);
                insS.bind(2, s.numero);
                insS.bind(3, prima);
                insS.exec();
            }
        }
        t.commit();
    } catch (...) {
        // A source that does not read leaves no book half made, and the old one in place.
        fs::remove(provvisorio, ec);
        throw;
    }
    fs::rename(provvisorio, fileDb);
}

Libro::Libro(const std::string& fileDb) {
    if (!std::filesystem::is_regular_file(fileDb)) throw ErroreLibro("Libro dei sogni non trovato: " + fileDb);
    try {
        db_ = std::make_unique<SQLite::Database>(fileDb, SQLite::OPEN_READONLY);
    } catch (const SQLite::Exception& e) {
        throw ErroreLibro(std::string("Libro dei sogni illeggibile: ") + e.what());
    }
}

Libro::~Libro() = default;

bool Libro::haTabella(const std::string& nome) const {
    try {
        SQLite::Statement st(*db_, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND lower(name) = lower(?)");
        st.bind(1, nome);
        return st.executeStep();
    } catch (const SQLite::Exception&) {
        return false;
    }
}

std::vector<VoceLibro> Libro::tabella(const std::string& nome) const {
    // The name goes into the statement only once it is known to be a table of the book.
    if (!haTabella(nome)) throw ErroreLibro("Tabella inesistente: " + nome);
    std::vector<VoceLibro> v;
    try {
        SQLite::Statement st(*db_, "SELECT * FROM " + Quota(nome) + " ORDER BY rowid");
        const bool oggetti = st.getColumnCount() == 4;
        const bool soggetti = st.getColumnCount() == 3;
        int64_t posto = 0;
        while (st.executeStep()) {
            VoceLibro r;
            if (oggetti) {
                r.puntatore = st.getColumn(0).getInt64();
                r.testo = st.getColumn(1).getString();
                r.numero = st.getColumn(2).getInt();
                r.fineBlocco = st.getColumn(3).getInt() != 0;
            } else {
                r.puntatore = ++posto;
                r.testo = st.getColumn(0).getString();
                r.numero = st.getColumn(1).getInt();
                if (soggetti) r.primaVoce = st.getColumn(2).getInt64();
            }
            v.push_back(std::move(r));
        }
    } catch (const SQLite::Exception& e) {
        throw ErroreLibro(std::string("Libro dei sogni illeggibile: ") + e.what());
    }
    return v;
}

}  // namespace zef
