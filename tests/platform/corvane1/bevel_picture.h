#pragma once

#include <string>
#include <vector>

#include "platform/corvane1/color_service.h"
#include "platform/gdi/surface.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::corvane1 {

/// A surface as text: '.' what was not painted, '0' the face of a colour, '1' to '8' the levels of its bevel,
/// '?' anything else.
inline std::vector<std::string> LevelsOn(const gdi::Surface& surface, Long colorNumber) {
  PaletteColorService colors;
  std::vector<std::string> rows;
  for (int y = 0; y < surface.Height(); ++y) {
    std::string row;
    for (int x = 0; x < surface.Width(); ++x) {
      char letter = surface.At(x, y) == gdi::kRed ? '.' : '?';
      for (Long level = 0; level <= 8; ++level) {
        if (surface.At(x, y) == colors.Get3DShadeColor(level, colorNumber))
          letter = static_cast<char>('0' + level);
      }
      row += letter;
    }
    rows.push_back(row);
  }
  return rows;
}

/// A surface that is red all over.
inline gdi::Surface Red(int width, int height) {
  gdi::Surface surface(width, height);
  surface.Clear(gdi::kRed);
  return surface;
}

}  // namespace quenzel7::corvane1
