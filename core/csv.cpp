#include "core/csv.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace zef {

std::string CellaCsv(std::string_view testo) {
    bool virgolette = testo.find_first_of(";\"\r\n") != std::string_view::npos ||
                      (!testo.empty() && (testo.front() == ' ' || testo.back() == ' '));
    if (!virgolette) return std::string(testo);
    std::string s = "\"";
    for (char c : testo) {
        if (c == '"') s += '"';
        s += c;
    }
    s += '"';
    return s;
}

std::string TestoRigaCsv(const RigaCsv& riga) {
    std::string s;
    for (size_t i = 0; i < riga.size(); ++i) {
        if (i) s += ';';
        s += CellaCsv(riga[i]);
    }
    return s;
}

std::string NumeroCsv(double v, int decimali) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimali < 0 ? 0 : decimali, v);
    std::string s = buf;
    for (char& c : s)
        if (c == '.') c = ',';
    if (s == "-0" || (s.rfind("-0,", 0) == 0 && s.find_first_not_of("-0,") == std::string::npos))
        s.erase(0, 1);  // no "-0,00" for a value that rounds to zero
    return s;
}

std::string ImportoCsv(int64_t decimillesimi) {
    const bool negativo = decimillesimi < 0;
    // |v| in hundredths, half away from zero; computed on the unsigned magnitude so
    // the most negative value does not overflow.
    uint64_t m = negativo ? 0 - static_cast<uint64_t>(decimillesimi) : static_cast<uint64_t>(decimillesimi);
    uint64_t centesimi = (m + 50) / 100;
    std::string s = std::to_string(centesimi / 100) + ',';
    uint64_t resto = centesimi % 100;
    s += static_cast<char>('0' + resto / 10);
    s += static_cast<char>('0' + resto % 10);
    if (negativo && centesimi != 0) s.insert(s.begin(), '-');
    return s;
}

void ScriviCsv(const std::string& percorso, const std::vector<RigaCsv>& righe) {
    auto errore = [&percorso](int numero) {
        return std::runtime_error("Impossibile scrivere il file \"" + percorso + "\": " + std::strerror(numero));
    };
    const std::string temporaneo = percorso + ".tmp";
    std::FILE* f = std::fopen(temporaneo.c_str(), "wb");
    if (!f) throw errore(errno);
    static constexpr char Bom[] = "\xEF\xBB\xBF";
    bool ok = std::fwrite(Bom, 1, 3, f) == 3;
    for (const auto& r : righe) {
        if (!ok) break;
        std::string riga = TestoRigaCsv(r);
        riga += "\r\n";
        if (std::fwrite(riga.data(), 1, riga.size(), f) != riga.size()) {
            ok = false;
            break;
        }
    }
    int numero = errno;
    if (std::fclose(f) != 0 && ok) {
        ok = false;
        numero = errno;
    }
    if (!ok || std::rename(temporaneo.c_str(), percorso.c_str()) != 0) {
        if (ok) numero = errno;
        std::remove(temporaneo.c_str());
        throw errore(numero);
    }
}

}  // namespace zef
