#pragma once

#include <string>
#include <vector>

#include "platform/gdi/glyph.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The description of a font of this height.
inline LOGFONT Described(const char* face, int height, int weight = 0) {
  LOGFONT font{};
  font.lfHeight = height;
  font.lfWeight = weight;
  std::string(face).copy(font.lfFaceName, sizeof font.lfFaceName);
  return font;
}

/// A picture as text, one letter a pixel.
inline std::vector<std::string> RowsOf(const Glyph& glyph) {
  std::vector<std::string> rows;
  for (int y = 0; y < glyph.height; ++y) {
    std::string row;
    for (int x = 0; x < glyph.width; ++x) row += glyph.At(x, y) ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

inline const std::vector<std::string> kUnifontA = {"..##..", ".#..#.", ".#..#.", "#....#", "#....#",
                                                   "######", "#....#", "#....#", "#....#", "#....#"};

}  // namespace quenzel7::gdi
