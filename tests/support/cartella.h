// A folder of its own under the system's temporary folder, removed with its files.
#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace zef::prova {

struct CartellaTemporanea {
    std::filesystem::path p;

    explicit CartellaTemporanea(const std::string& prefisso = "zef_prova_") {
        static std::atomic<int> contatore{0};
        std::random_device rd;
        p = std::filesystem::temp_directory_path() /
            (prefisso + std::to_string(::getpid()) + "_" + std::to_string(contatore++) + "_" + std::to_string(rd()));
        std::filesystem::create_directories(p);
    }
    ~CartellaTemporanea() {
        std::error_code ec;
        std::filesystem::remove_all(p, ec);
    }
    CartellaTemporanea(const CartellaTemporanea&) = delete;
    CartellaTemporanea& operator=(const CartellaTemporanea&) = delete;

    // The path of a file in the folder.
    std::string operator/(const std::string& nome) const { return (p / nome).string(); }
    std::string file(const std::string& nome) const { return (p / nome).string(); }
};

}  // namespace zef::prova
