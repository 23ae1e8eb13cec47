#include "cli/comandi.h"

#include <sstream>

namespace zef::cli {

std::vector<VoceComando>& Comandi() {
    static std::vector<VoceComando> v;
    return v;
}

RegistraComando::RegistraComando(const std::string& nome, Costruttore c) {
    Comandi().push_back({nome, std::move(c)});
}

std::vector<int> ListaNumeri(const std::string& testo, const std::string& opzione) {
    std::vector<int> out;
    std::string voce;
    std::stringstream ss(testo);
    while (std::getline(ss, voce, ',')) {
        size_t a = voce.find_first_not_of(" \t");
        size_t b = voce.find_last_not_of(" \t");
        if (a == std::string::npos) throw InputNonValido("Valore mancante in " + opzione + ": \"" + testo + "\"");
        voce = voce.substr(a, b - a + 1);
        size_t usati = 0;
        int n = 0;
        try {
            n = std::stoi(voce, &usati);
        } catch (...) {
            usati = 0;
        }
        if (usati != voce.size()) throw InputNonValido("Numero non valido in " + opzione + ": \"" + voce + "\"");
        out.push_back(n);
    }
    return out;
}

}  // namespace zef::cli
