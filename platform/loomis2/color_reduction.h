#pragma once

#include "platform/loomis2/nearest_color.h"

namespace quenzel7::loomis2 {

/// The palette indices of a picture, each pixel the colour that looks nearest.
PanelPixels ReducedToNearest(const Picture& picture, NearestColor& nearest);

/// The same, and what each channel of a pixel loses goes to neighbours that are still to come: 7/16 to the
/// next one, 3/16, 5/16 and 1/16 to the three below (Floyd and Steinberg, 1976). Rows are walked there and
/// back by turns, so that what is left over does not all drift to one side.
PanelPixels ReducedByDiffusion(const Picture& picture, NearestColor& nearest);

}  // namespace quenzel7::loomis2
