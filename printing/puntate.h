// The stake boxes of a system read from a file.
//
// A system file keeps each kind's total stake but not the boxes that made it, nor
// the Estratto's box and total (those survive only in the play's description). The
// slips mark boxes, so the command line, which prints straight from a file, ticks
// again the boxes that make up each total.
#pragma once

#include "core/basic.h"

#include <array>
#include <optional>

namespace zef {

struct Sistema;

// The stake boxes (0..12, by amount) whose amounts add up to `totale`, the biggest
// amounts first; nullopt when no set of boxes does.
std::optional<std::array<bool, 13>> ScomponiPuntata(Currency totale);

// Where no stake box is ticked: ticks the boxes of each kind played from its total,
// and the Estratto's from the play's description ("Estratto € 1,00"). Returns false
// when some total could not be made of the boxes (its boxes stay clear).
bool RicostruisciPuntate(Sistema& s);

}  // namespace zef
