// The guaranteed reduction of the developed columns.
//
// RiduciRapido keeps, in one pass, every column not yet covered by a kept one;
// RiduciAccurato is the greedy cover in two phases. Both leave ColonneRidotte and
// NumRidotte, show the shared progress window and serve its keys at the strides of
// 500 (fast), 100 and 200 (accurate). The results are those of the plain scans
// of every column against every other, reached through 90-bit masks, an index of
// g-subsets and incremental scores.
#pragma once

#include "core/interfaccia.h"

#include <cstdint>

namespace zef {

struct Sistema;

// `garanzia` is TipoGaranzia. The recursive branch (garanzia - 1 first) is never
// taken by the program, which always passes false.
void RiduciRapido(Sistema& s, Interfaccia& ui, int16_t& garanzia, bool ricorsiva);

// `garanzia` is TipoGaranzia, `k` SviluppoK.
void RiduciAccurato(Sistema& s, Interfaccia& ui, int16_t& garanzia, int16_t& k);

}  // namespace zef
