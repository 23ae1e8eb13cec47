// Helpers of the system-file tests: a temporary folder, whole-file read and write,
// and a scripted interface that also keeps the main bar and the hourglass.
#pragma once

#include "core/interfaccia_scriptata.h"
#include "support/cartella.h"

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zef::prova {

using Cartella = CartellaTemporanea;

inline std::string LeggiFile(const std::string& f) {
    std::ifstream in(f, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

inline void ScriviFile(const std::string& f, const std::string& byte) {
    std::ofstream out(f, std::ios::binary);
    out << byte;
}

struct InterfacciaConBarra : InterfacciaScriptata {
    struct Barra {
        double minimo, massimo, valore;
    };
    std::vector<Barra> barra;
    bool clessidraAttiva = false;
    int clessidre = 0;
    void barraPrincipale(double minimo, double massimo, double valore) override {
        barra.push_back({minimo, massimo, valore});
    }
    void clessidra(bool attiva) override {
        clessidraAttiva = attiva;
        clessidre += attiva;
    }
};

}  // namespace zef::prova
