#pragma once

#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"

namespace quenzel7::gdi {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kBlack = 0;

/// A surface as text, one letter a pixel: white '.', black '#', red 'r', green 'g', blue 'b', others '?'.
inline std::vector<std::string> Rows(const Surface& surface) {
  std::vector<std::string> rows;
  for (int y = 0; y < surface.Height(); ++y) {
    std::string row;
    for (int x = 0; x < surface.Width(); ++x) {
      const COLORREF color = surface.At(x, y);
      row += color == kWhite   ? '.'
             : color == kBlack ? '#'
             : color == kRed   ? 'r'
             : color == kGreen ? 'g'
             : color == kBlue  ? 'b'
                               : '?';
    }
    rows.push_back(row);
  }
  return rows;
}

/// A white surface.
inline Surface White(int width, int height, int bitsPerPixel = 32) {
  Surface surface(width, height, bitsPerPixel);
  surface.Clear(kWhite);
  return surface;
}

/// The pixels of a surface, for comparing two.
inline std::vector<COLORREF> Colors(const Surface& surface) {
  std::vector<COLORREF> colors;
  for (int y = 0; y < surface.Height(); ++y) {
    for (int x = 0; x < surface.Width(); ++x) colors.push_back(surface.At(x, y));
  }
  return colors;
}

/// Pixels of no particular order.
inline void Scatter(Surface& surface, std::uint32_t seed) {
  for (int y = 0; y < surface.Height(); ++y) {
    for (int x = 0; x < surface.Width(); ++x) {
      seed = seed * 1664525u + 1013904223u;
      surface.Set(x, y, surface.BitsPerPixel() == 1 ? seed >> 31 : seed >> 8);
    }
  }
}

inline HPEN MakePen(std::uint32_t style, int width, COLORREF color) {
  const LOGPEN pen{style, {width, 0}, color};
  return CreatePenIndirect(&pen);
}

}  // namespace quenzel7::gdi
