#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::cli {

/// One thing that the graphics interface draws: its name, and how it is drawn into an area of a context, in
/// pixels. The area is 92 x 46 pixels, white, and what lies outside it is another sample's.
struct SheetSample {
  std::string name;
  std::function<void(gdi::HDC, const gdi::RECT&)> draw;
};

/// Samples of one kind.
struct SheetSection {
  std::string title;
  std::vector<SheetSample> samples;
};

/// Everything that the graphics interface draws, text aside: pens, brushes, figures, arcs, paths, regions,
/// raster codes, stretching, mixing.
const std::vector<SheetSection>& DrawingSections();

/// Fonts in several heights and weights, alignments and formats.
const std::vector<SheetSection>& TextSections();

}  // namespace quenzel7::cli
