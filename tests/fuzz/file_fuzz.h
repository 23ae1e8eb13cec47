// The fuzz targets' scratch file: the readers under test take a path, so each input is
// written to a file of this process before it is read.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace zef::fuzz {

inline std::string FileDiLavoro(const std::string& estensione) {
    return (std::filesystem::temp_directory_path() / ("zef_fuzz_" + std::to_string(::getpid()) + estensione)).string();
}

inline std::string Scrivi(const uint8_t* dati, size_t n, const std::string& estensione) {
    const std::string percorso = FileDiLavoro(estensione);
    if (FILE* f = std::fopen(percorso.c_str(), "wb")) {
        if (n) std::fwrite(dati, 1, n, f);
        std::fclose(f);
    }
    return percorso;
}

}  // namespace zef::fuzz
