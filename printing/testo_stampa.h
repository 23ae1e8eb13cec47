// A recorded print as plain text, for scripts: the listing's lines, or the slips'
// texts and marks with their positions.
#pragma once

#include "printing/registrazione.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zef {

// Each printed text on a line of its own, an empty line as an empty line, a new
// page as a line holding a form feed alone.
std::string RigheStampate(const std::vector<OperazioneStampa>& ops);

// "SCHEDA s" where a slip starts (at operation index i of `schede`, as {i, s}),
// then "TESTO x y text" or "SEGNO x y" per text or mark, x and y with two decimals
// and a point.
std::string PosizioniStampate(const std::vector<OperazioneStampa>& ops,
                              const std::vector<std::pair<size_t, int64_t>>& schede);

// A position with two decimals and a point, whatever the locale.
std::string DueDecimali(double v);

}  // namespace zef
