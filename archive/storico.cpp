#include "archive/storico.h"

#include "archive/date.h"
#include "core/basic.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <zip.h>
#include <zlib.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace zef {

namespace {

// Wheel indices in the order of their codes (the file's order): RN sits between RM and TO.
constexpr int OrdineCodici[NumRuote] = {0, 1, 2, 3, 4, 5, 6, 7, 10, 8, 9};

// A historical file is a few megabytes; one that expands beyond this is not one, and
// is not read whole into memory.
constexpr size_t LimiteEspanso = 200u << 20;

ErroreStorico TroppoGrande(const std::string& percorso) {
    return ErroreStorico(0, "Il file " + percorso + " espanso supera i 200 MB: non è un archivio storico delle estrazioni.");
}

std::string leggiGz(const std::string& percorso) {
    gzFile f = gzopen(percorso.c_str(), "rb");
    if (!f) throw ErroreStorico(0, "Impossibile leggere il file " + percorso + ".");
    std::string out;
    char buf[1 << 16];
    int n;
    bool troppo = false;
    while ((n = gzread(f, buf, sizeof buf)) > 0) {
        out.append(buf, static_cast<size_t>(n));
        if (out.size() > LimiteEspanso) {
            troppo = true;
            break;
        }
    }
    // A stream cut short reads as far as it goes and then ends: zlib reports it only
    // as an error of the file, which refuses it like a cut zip.
    int codice = Z_OK;
    gzerror(f, &codice);
    const bool errore = n < 0 || (codice != Z_OK && codice != Z_STREAM_END);
    gzclose(f);
    if (troppo) throw TroppoGrande(percorso);
    if (errore) throw ErroreStorico(0, "Il file compresso " + percorso + " è danneggiato o incompleto.");
    return out;
}

bool finisceCon(std::string nome, const std::string& fine) {
    std::transform(nome.begin(), nome.end(), nome.begin(), [](unsigned char c) { return std::tolower(c); });
    return nome.size() >= fine.size() && nome.compare(nome.size() - fine.size(), fine.size(), fine) == 0;
}

std::string leggiZip(const std::string& percorso) {
    int err = 0;
    zip_t* z = zip_open(percorso.c_str(), ZIP_RDONLY, &err);
    if (!z) throw ErroreStorico(0, "Il file " + percorso + " non è un archivio zip leggibile.");
    zip_int64_t n = zip_get_num_entries(z, 0);
    zip_int64_t scelta = -1;
    // The first .txt inside, else the first file.
    for (zip_int64_t i = 0; i < n && scelta < 0; ++i) {
        const char* nome = zip_get_name(z, static_cast<zip_uint64_t>(i), 0);
        if (nome && finisceCon(nome, ".txt")) scelta = i;
    }
    for (zip_int64_t i = 0; i < n && scelta < 0; ++i) {
        const char* nome = zip_get_name(z, static_cast<zip_uint64_t>(i), 0);
        if (nome && !finisceCon(nome, "/")) scelta = i;
    }
    if (scelta < 0) {
        zip_close(z);
        throw ErroreStorico(0, "L'archivio zip " + percorso + " non contiene alcun file.");
    }
    std::string out;
    zip_file_t* f = zip_fopen_index(z, static_cast<zip_uint64_t>(scelta), 0);
    bool ok = f != nullptr;
    if (f) {
        char buf[1 << 16];
        zip_int64_t letti;
        while ((letti = zip_fread(f, buf, sizeof buf)) > 0) {
            out.append(buf, static_cast<size_t>(letti));
            if (out.size() > LimiteEspanso) break;
        }
        ok = letti == 0 || out.size() > LimiteEspanso;
        zip_fclose(f);
    }
    zip_close(z);
    if (out.size() > LimiteEspanso) throw TroppoGrande(percorso);
    if (!ok) throw ErroreStorico(0, "Il file dentro l'archivio zip " + percorso + " è danneggiato.");
    return out;
}

// Splits a line on tabs and blanks.
void campi(std::string_view riga, std::vector<std::string_view>& out) {
    out.clear();
    size_t i = 0;
    while (i < riga.size()) {
        while (i < riga.size() && (riga[i] == '\t' || riga[i] == ' ')) ++i;
        size_t j = i;
        while (j < riga.size() && riga[j] != '\t' && riga[j] != ' ') ++j;
        if (j > i) out.push_back(riga.substr(i, j - i));
        i = j;
    }
}

std::string riga(long n) { return "Errore alla riga " + TestoSemplice(n) + ": "; }

// YYYY/MM/DD (or YYYY-MM-DD) as ISO; empty when not a real date.
std::string dataStorica(std::string_view t) {
    if (t.size() != 10 || !(t[4] == '/' || t[4] == '-') || t[7] != t[4]) return {};
    for (int i : {0, 1, 2, 3, 5, 6, 8, 9})
        if (t[i] < '0' || t[i] > '9') return {};
    int a = (t[0] - '0') * 1000 + (t[1] - '0') * 100 + (t[2] - '0') * 10 + (t[3] - '0');
    int m = (t[5] - '0') * 10 + (t[6] - '0');
    int g = (t[8] - '0') * 10 + (t[9] - '0');
    if (!DataValida(a, m, g)) return {};
    return DataIso(a, m, g);
}

int codiceRuota(std::string_view c) {
    for (int i = 0; i < NumRuote; ++i)
        if (c.size() == 2 && std::toupper(static_cast<unsigned char>(c[0])) == CodiciRuote[i][0] &&
            std::toupper(static_cast<unsigned char>(c[1])) == CodiciRuote[i][1])
            return i;
    return -1;
}

}  // namespace

std::string LeggiFileStorico(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    if (!in) throw ErroreStorico(0, "Impossibile aprire il file " + percorso + ".");
    char testa[4] = {};
    in.read(testa, 4);
    auto letti = in.gcount();
    if (letti >= 2 && static_cast<unsigned char>(testa[0]) == 0x1f && static_cast<unsigned char>(testa[1]) == 0x8b)
        return leggiGz(percorso);
    if (letti >= 4 && testa[0] == 'P' && testa[1] == 'K' && testa[2] == 3 && testa[3] == 4) return leggiZip(percorso);
    in.clear();
    in.seekg(0);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::vector<EstrazioneStorica> AnalizzaStorico(std::string_view testo) {
    if (testo.size() >= 3 && testo.substr(0, 3) == "\xEF\xBB\xBF") testo.remove_prefix(3);
    std::map<std::string, EstrazioneStorica> perData;
    std::vector<std::string_view> f;
    f.reserve(8);
    long n = 0;
    size_t i = 0;
    while (i < testo.size()) {
        size_t j = testo.find('\n', i);
        if (j == std::string_view::npos) j = testo.size();
        std::string_view r = testo.substr(i, j - i);
        i = j + 1;
        ++n;
        if (!r.empty() && r.back() == '\r') r.remove_suffix(1);
        campi(r, f);
        if (f.empty()) continue;
        if (f.size() != 7)
            throw ErroreStorico(n, riga(n) + "attesi data, ruota e cinque numeri, trovati " +
                                       TestoSemplice(static_cast<long long>(f.size())) + " campi.");
        std::string data = dataStorica(f[0]);
        if (data.empty()) throw ErroreStorico(n, riga(n) + "data non valida \"" + std::string(f[0]) + "\".");
        int ruota = codiceRuota(f[1]);
        if (ruota < 0) throw ErroreStorico(n, riga(n) + "ruota sconosciuta \"" + std::string(f[1]) + "\".");
        auto& e = perData[data];
        e.data = data;
        if (e.numeri[ruota][0] != 0)
            throw ErroreStorico(n, riga(n) + "la ruota " + CodiciRuote[ruota] + " compare due volte nell'estrazione del " +
                                       std::string(f[0]) + ".");
        std::array<uint8_t, 5> numeri{};
        for (int p = 0; p < 5; ++p) {
            std::string_view t = f[2 + p];
            int v = 0;
            bool cifre = !t.empty() && t.size() <= 3;
            // At most three digits are read: a long field is refused, never added up.
            for (size_t c = 0; cifre && c < t.size(); ++c) {
                if (t[c] < '0' || t[c] > '9') cifre = false;
                else v = v * 10 + (t[c] - '0');
            }
            if (!cifre || v < 1 || v > 90)
                throw ErroreStorico(n, riga(n) + "numero fuori dall'intervallo 1-90 \"" + std::string(t) + "\".");
            for (int q = 0; q < p; ++q)
                if (numeri[q] == v)
                    throw ErroreStorico(n, riga(n) + "il numero " + TestoSemplice(v) + " è ripetuto sulla ruota " +
                                               CodiciRuote[ruota] + ".");
            numeri[p] = static_cast<uint8_t>(v);
        }
        e.numeri[ruota] = numeri;
    }
    std::vector<EstrazioneStorica> out;
    out.reserve(perData.size());
    for (auto& [d, e] : perData) out.push_back(std::move(e));
    return out;
}

EsitoImportazione ImportaEstrazioni(ArchivioEstrazioni& a, const std::vector<EstrazioneStorica>& estrazioni) {
    auto& db = a.db();
    EsitoImportazione esito;
    std::set<std::string> presenti;
    int64_t ultimo = 0;
    {
        SQLite::Statement st(db, "SELECT data FROM estrazioni");
        while (st.executeStep())
            if (!st.getColumn(0).isNull()) presenti.insert(st.getColumn(0).getString());
        SQLite::Statement m(db, "SELECT COALESCE(MAX(id), 0) FROM estrazioni");
        if (m.executeStep()) ultimo = m.getColumn(0).getInt64();
    }
    std::string sql = "INSERT INTO estrazioni (id, data";
    for (int r = 1; r <= NumRuote; ++r)
        for (int p = 1; p <= 5; ++p) sql += ", " + NomeCampo(r, p);
    sql += ") VALUES (?, ?";
    for (int k = 0; k < NumRuote * 5; ++k) sql += ", ?";
    sql += ")";
    ArchivioEstrazioni::Transazione t(a);
    try {
        SQLite::Statement ins(db, sql);
        for (const auto& e : estrazioni) {  // already in date order
            if (!presenti.insert(e.data).second) continue;
            ins.reset();
            ins.bind(1, static_cast<int64_t>(++ultimo));
            ins.bind(2, e.data);
            for (int r = 0; r < NumRuote; ++r)
                for (int p = 0; p < 5; ++p) {
                    int k = 3 + r * 5 + p;
                    if (e.numeri[r][p]) ins.bind(k, static_cast<int>(e.numeri[r][p]));
                    else ins.bind(k);
                }
            ins.exec();
            ++esito.importate;
        }
    } catch (const SQLite::Exception& e) {
        // A read-only archive, a full disk: nothing of the file stays, the message says why.
        throw ErroreDatabase(e);
    }
    t.Commit();
    esito.totale = a.NumeroEstrazioni();
    return esito;
}

EsitoImportazione ImportaFileStorico(ArchivioEstrazioni& a, const std::string& percorso) {
    auto estrazioni = AnalizzaStorico(LeggiFileStorico(percorso));
    return ImportaEstrazioni(a, estrazioni);
}

std::string EsportaStorico(ArchivioEstrazioni& a) {
    std::string sql = "SELECT data";
    for (int r = 1; r <= NumRuote; ++r)
        for (int p = 1; p <= 5; ++p) sql += ", " + NomeCampo(r, p);
    sql += " FROM estrazioni WHERE data IS NOT NULL ORDER BY data, id";
    SQLite::Statement st(a.db(), sql);
    std::string out;
    out.reserve(static_cast<size_t>(a.NumeroEstrazioni()) * 11 * 30);
    while (st.executeStep()) {
        std::string data = st.getColumn(0).getString();
        if (data.size() != 10) continue;
        std::string d = data.substr(0, 4) + "/" + data.substr(5, 2) + "/" + data.substr(8, 2);
        for (int r : OrdineCodici) {
            bool completa = true;
            for (int p = 0; p < 5; ++p) completa = completa && !st.getColumn(1 + r * 5 + p).isNull();
            if (!completa) continue;
            out += d;
            out += '\t';
            out += CodiciRuote[r];
            for (int p = 0; p < 5; ++p) {
                out += '\t';
                out += std::to_string(st.getColumn(1 + r * 5 + p).getInt());
            }
            out += '\n';
        }
    }
    return out;
}

}  // namespace zef
