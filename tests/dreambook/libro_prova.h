// A small dream book written for the tests.
#pragma once

#include "dreambook/libro.h"
#include "support/cartella.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace zef::prova {

inline std::string LibroDiProva(const CartellaTemporanea& dir) {
    std::filesystem::create_directories(dir.p / "fonti" / "soggetti");
    auto scrivi = [&](const std::string& nome, const std::string& testo) {
        std::ofstream(dir.p / "fonti" / nome, std::ios::binary) << testo;
    };
    scrivi("nomi_propri.txt", "# nomi\nmaria\t1\ngiuseppe\t2\n");
    scrivi("personaggi.txt", "maria\t3\npulcinella\t70\n");
    scrivi("soggetti/g.txt",
           "gatto\t4\n\tnero\t14\n\tche dorme\t35\n\tbianco\t5\n"
           "gallo\t25\n\tche canta\t10\n\tnero di penne\t60\n"
           "gamba\t78\n");
    scrivi("soggetti/c.txt", "città\t30\n\tgrande\t40\n\tdi notte\t23\n");
    const std::string db = dir / "smorfia.db";
    CostruisciLibro((dir.p / "fonti").string(), db);
    return db;
}

}  // namespace zef::prova
