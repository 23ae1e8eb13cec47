// Helpers of the system-file tests: a temporary folder, whole-file read and write,
// and a scripted interface that also keeps the main bar and the hourglass.
#pragma once

#include "core/interfaccia_scriptata.h"

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zef::prova {

struct Cartella {
    std::filesystem::path p;
    Cartella() {
        static std::atomic<int> n{0};
        p = std::filesystem::temp_directory_path() /
            ("zef_zfr_" + std::to_string(::getpid()) + "_" + std::to_string(n++));
        std::filesystem::create_directories(p);
    }
    ~Cartella() { std::filesystem::remove_all(p); }
    std::string file(const std::string& n) const { return (p / n).string(); }
};

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
