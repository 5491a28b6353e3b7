#include "platform/corvane1/color_service.h"

#include "platform/corvane1/panel_palette.h"

namespace quenzel7::corvane1 {

std::uint32_t PaletteColorService::GetColor(Long colorNumber) {
  constexpr std::uint32_t kPageWhite = 0xFFFFFF;
  if (colorNumber < 0 || colorNumber >= static_cast<Long>(kPanelPalette.size())) return kPageWhite;
  const std::uint32_t rgb = kPanelPalette[static_cast<std::size_t>(colorNumber)];
  return (rgb & 0x0000FF) << 16 | (rgb & 0x00FF00) | rgb >> 16;
}

}  // namespace quenzel7::corvane1
