#pragma once

#include <cstdint>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// The lines of a bevel on each of its sides, counted from the outermost inward.
inline constexpr Long kBevelLines = 4;

/// The colour of a line of a bevel on a face of that colour, both 0x00BBGGRR. Levels 1 to 4 are the dark
/// lines from the outermost inward, 5 to 8 the light ones in the same order; any other level is the face.
///
/// Every channel is brought nearer to black or to white by 60, 45, 30 or 15 hundredths of the way, rounded to
/// the nearest, a half toward the face. The same hundredths on both sides keep the light and the dark line of
/// a pair equally far apart on every face, the outermost ones 153 of 255: a black face shows its light lines,
/// a white one its dark ones, and all of them read alike.
std::uint32_t BevelShade(std::uint32_t face, Long level);

/// Whether the outermost light and dark line both stand out from the face: by 12 of 255 in brightness.
bool ReadsAsBevel(std::uint32_t face, std::uint32_t darkest, std::uint32_t lightest);

/// How far two colours are apart: the sum of the squared differences of their channels.
Long ColorDistance(std::uint32_t a, std::uint32_t b);

}  // namespace quenzel7::corvane1
