// Tables for a spreadsheet: "Esporta..." of the grids and the backtest.
//
// UTF-8 with a byte-order mark (so that a spreadsheet opened by a double click reads the
// accents right), cells separated by ';', one row a line ending in CRLF, decimals with a comma
// whatever the locale (the files are read by Italian spreadsheets). A cell holding
// ';', '"', a line break or leading/trailing blanks is quoted, with '"' doubled.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zef {

using RigaCsv = std::vector<std::string>;

// One cell as it goes into the file.
std::string CellaCsv(std::string_view testo);
// One row, without its line end.
std::string TestoRigaCsv(const RigaCsv& riga);
// A number with `decimali` decimals and a comma ("1234,50", "-3,00"); 0 decimals: "12".
std::string NumeroCsv(double v, int decimali);
// An amount in ten-thousandths (Currency) with two decimals, rounded half away from zero.
std::string ImportoCsv(int64_t decimillesimi);

// Writes the rows to `percorso` through a temporary file renamed at the end, so a
// failed export never leaves half a file in place of an old one. Raises
// std::runtime_error with an Italian message naming the file when it cannot write.
void ScriviCsv(const std::string& percorso, const std::vector<RigaCsv>& righe);

}  // namespace zef
