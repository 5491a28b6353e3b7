#include "bench/canvas.h"

#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"

namespace quenzel7::bench {

std::array<gdi::POINT, 7> Figure::Corners() const {
  const int last = bottom - 1, tip = right - 1, neck = left + (right - left) * 5 / 8;
  const int upper = top + (bottom - top) / 4, lower = last - (bottom - top) / 4;
  return {{{left, upper},
           {neck, upper},
           {neck, top},
           {tip, (top + last) / 2},
           {neck, last},
           {neck, lower},
           {left, lower}}};
}

std::array<std::uint8_t, 8> HatchRows(int hatch) {
  const gdi::Surface pattern(8, 8);
  const gdi::RECT all{0, 0, 8, 8};
  const gdi::HBRUSH brush = gdi::CreateHatchBrush(hatch, 0);
  gdi::FillRect(pattern.Dc(), &all, brush);
  gdi::DeleteObject(brush);
  std::array<std::uint8_t, 8> rows{};
  for (std::size_t i = 0; i < 64; ++i) {
    if (pattern.Pixels()[i] == 0) rows[i / 8] |= static_cast<std::uint8_t>(0x80 >> i % 8);
  }
  return rows;
}

}  // namespace quenzel7::bench
