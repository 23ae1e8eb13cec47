// The historical draw file: one line a wheel a draw,
//   YYYY/MM/DD <TAB> WHEEL <TAB> n1 <TAB> n2 <TAB> n3 <TAB> n4 <TAB> n5
// with wheel codes BA CA FI GE MI NA PA RM RN TO VE (RN is Nazionale), blanks
// accepted in place of tabs. Lines of one date make one draw; wheels missing from a
// draw stay null. The file may come plain, gzip-compressed or inside a .zip.
#pragma once

#include "archive/archivio.h"

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zef {

struct EstrazioneStorica {
    std::string data;  // ISO
    // numeri[ruota 0..10][posizione 0..4]; 0 where the wheel is missing.
    std::array<std::array<uint8_t, 5>, NumRuote> numeri{};
};

// A malformed line: the message names the line, nothing has been written.
struct ErroreStorico : std::runtime_error {
    long riga;
    ErroreStorico(long r, const std::string& testo) : std::runtime_error(testo), riga(r) {}
};

// Reads a whole file, plain, .gz or .zip (by its content). Raises ErroreStorico with
// line 0 when the file cannot be read.
std::string LeggiFileStorico(const std::string& percorso);
// Parses the text into draws in date order; raises ErroreStorico at the first bad line.
std::vector<EstrazioneStorica> AnalizzaStorico(std::string_view testo);

struct EsitoImportazione {
    long importate = 0;
    long totale = 0;
};
// Adds the draws whose date is not stored yet, with ids after the last, in date
// order, in one transaction.
EsitoImportazione ImportaEstrazioni(ArchivioEstrazioni& a, const std::vector<EstrazioneStorica>& estrazioni);
// File to archive: read, parse, import. Nothing is written when the file is bad.
EsitoImportazione ImportaFileStorico(ArchivioEstrazioni& a, const std::string& percorso);

// The archive in the same format, oldest first, wheels in code order; only wheels
// with all five numbers are written.
std::string EsportaStorico(ArchivioEstrazioni& a);

}  // namespace zef
