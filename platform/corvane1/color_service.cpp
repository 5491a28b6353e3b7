#include "platform/corvane1/color_service.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "platform/automation/arithmetic.h"
#include "platform/corvane1/bevel_shades.h"
#include "platform/corvane1/panel_palette.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7::corvane1 {
namespace {

using automation::Add;
using automation::Subtract;

void Fill(gdi::HDC dc, std::uint32_t color, std::initializer_list<gdi::RECT> areas) {
  const gdi::OwnedObject brush(gdi::CreateSolidBrush(color));
  for (const gdi::RECT& area : areas) gdi::FillRect(dc, &area, brush.Get());
}

/// Half the way from one edge to another, which may be more than 32 bits apart.
Long Half(Long near, Long far) { return static_cast<Long>((std::int64_t{far} - near) / 2); }

}  // namespace

std::uint32_t ColorService::Get3DShadeColor(Long level, Long colorNumber) {
  return BevelShade(Get3DFaceColor(colorNumber), level);
}

std::uint32_t ColorService::Get3DFaceColor(Long colorNumber) { return GetColor(colorNumber); }

void ColorService::DrawPressed3DRect(Long left, Long top, Long right, Long bottom, Long colorNumber,
                                     Long pressed, gdi::HDC dc) {
  if (right <= left || bottom <= top) return;
  Fill(dc, GetColor(colorNumber), {{left, top, right, bottom}});
  const Long lines = std::min({kBevelLines, Half(left, right), Half(top, bottom)});
  for (Long line = 0; line < lines; ++line, ++left, ++top, --right, --bottom) {
    const Long dark = line + 1, light = dark + kBevelLines;
    // The near sides come second: the corners between a dark and a light side are theirs.
    Fill(dc, Get3DShadeColor(pressed != 0 ? light : dark, colorNumber),
         {{left, bottom - 1, right, bottom}, {right - 1, top, right, bottom}});
    Fill(dc, Get3DShadeColor(pressed != 0 ? dark : light, colorNumber),
         {{left, top, right, top + 1}, {left, top, left + 1, bottom}});
  }
}

void ColorService::DrawFlatRect(Long x1, Long y1, Long x2, Long y2, Long colorNumber, gdi::HDC dc) {
  Fill(dc, GetColor(colorNumber), {{x1, y1, x2, y2}});
}

void ColorService::DrawCircle(Long centerX, Long centerY, Long radius, Long colorNumber, gdi::HDC dc) {
  if (radius <= 0) return;
  const gdi::RECT box{Subtract(centerX, radius), Subtract(centerY, radius), Add(centerX, radius),
                      Add(centerY, radius)};
  const std::uint32_t color = GetColor(colorNumber);
  const gdi::LOGPEN line{gdi::PS_SOLID, {1, 0}, color};
  const gdi::SelectedPen pen(dc, gdi::CreatePenIndirect(&line));
  const gdi::SelectedBrush brush(dc, gdi::CreateSolidBrush(color));
  gdi::Ellipse(dc, box.left, box.top, box.right, box.bottom);
}

Long ColorService::GetClosestGradientColor(Long colorNumber) {
  const auto reads = [this](Long number) {
    return ReadsAsBevel(Get3DFaceColor(number), Get3DShadeColor(1, number),
                        Get3DShadeColor(kBevelLines + 1, number));
  };
  if (reads(colorNumber)) return colorNumber;
  const std::uint32_t wanted = GetColor(colorNumber);
  Long nearest = colorNumber, least = std::numeric_limits<Long>::max();
  for (Long number = 0; number < kPaletteSize; ++number) {
    const Long distance = ColorDistance(GetColor(number), wanted);
    if (distance >= least || !reads(number)) continue;
    nearest = number;
    least = distance;
  }
  return nearest;
}

automation::Array ColorService::GetPalette() {
  auto palette = automation::Array::OfSize(automation::VariantKind::Long, kPaletteSize);
  Long number = 0;
  for (Long& color : palette.Cells<Long>()) color = static_cast<Long>(GetColor(number++));
  return palette;
}

std::uint32_t PaletteColorService::GetColor(Long colorNumber) {
  constexpr std::uint32_t kPageWhite = 0xFFFFFF;
  if (colorNumber < 0 || colorNumber >= static_cast<Long>(kPanelPalette.size())) return kPageWhite;
  const std::uint32_t rgb = kPanelPalette[static_cast<std::size_t>(colorNumber)];
  return (rgb & 0x0000FF) << 16 | (rgb & 0x00FF00) | rgb >> 16;
}

}  // namespace quenzel7::corvane1
