#pragma once

#include "platform/loomis2/nearest_color.h"

namespace quenzel7::loomis2 {

/// The palette indices of a picture, each pixel the colour that looks nearest.
PanelPixels ReducedToNearest(const Picture& picture, NearestColor& nearest);

/// The same, and what a pixel loses in each channel goes to neighbours that are still to come: 7/16 to the
/// next one, 3/16, 5/16 and 1/16 to the three below it from left to right (Floyd and Steinberg, 1976). All
/// rows go from left to right. The colour that the nearest one is looked for is rounded to whole channels, a
/// half up, and cut to 0 to 255; what that takes away is not handed on.
PanelPixels ReducedByDiffusion(const Picture& picture, NearestColor& nearest);

}  // namespace quenzel7::loomis2
