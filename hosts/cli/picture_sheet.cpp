#include "hosts/cli/picture_sheet.h"

#include <algorithm>
#include <cstring>

#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"

namespace quenzel7::cli {
namespace {

constexpr std::int32_t kColumns = 8, kMargin = 8, kTitleHeight = 22;
/// A cell is the area of a sample, its name below it, and a gap.
constexpr std::int32_t kAreaWidth = 92, kAreaHeight = 46, kCellWidth = 100, kCellHeight = 66;
constexpr gdi::COLORREF kWhite = gdi::RGB(255, 255, 255), kTitleColor = gdi::RGB(20, 40, 120),
                        kNameColor = gdi::RGB(70, 70, 70);

std::int32_t HeightOf(const SheetSection& section) {
  const auto rows = static_cast<std::int32_t>((section.samples.size() + kColumns - 1) / kColumns);
  return kTitleHeight + rows * kCellHeight;
}

void Write(gdi::HDC dc, std::int32_t x, std::int32_t y, const std::string& text, std::int32_t weight,
           std::int32_t height, gdi::COLORREF color) {
  gdi::LOGFONT face{};
  face.lfHeight = -height;
  face.lfWeight = weight;
  std::strcpy(face.lfFaceName, "DejaVu Sans");
  const gdi::SelectedFont font(dc, gdi::CreateFontIndirectA(&face));
  gdi::SetTextColor(dc, color);
  gdi::SetBkColor(dc, kWhite);
  gdi::TextOutA(dc, x, y, text.c_str(), static_cast<std::int32_t>(text.size()));
}

void PaintSample(gdi::HDC dc, std::int32_t x, std::int32_t y, const SheetSample& sample) {
  const gdi::Surface area(kAreaWidth, kAreaHeight);
  gdi::PatBlt(area.Dc(), 0, 0, kAreaWidth, kAreaHeight, gdi::WHITENESS);
  sample.draw(area.Dc(), {0, 0, kAreaWidth, kAreaHeight});
  gdi::BitBlt(dc, x, y, kAreaWidth, kAreaHeight, area.Dc(), 0, 0, gdi::SRCCOPY);
}

}  // namespace

Picture PaintSheet(const std::vector<SheetSection>& sections, SheetNames names) {
  std::int32_t height = 2 * kMargin;
  for (const SheetSection& section : sections) height += HeightOf(section);
  const gdi::Surface sheet(2 * kMargin + kColumns * kCellWidth, height);
  gdi::PatBlt(sheet.Dc(), 0, 0, sheet.Width(), height, gdi::WHITENESS);

  std::int32_t top = kMargin;
  for (const SheetSection& section : sections) {
    if (names == SheetNames::kShown) Write(sheet.Dc(), kMargin, top + 3, section.title, 700, 13, kTitleColor);
    for (std::size_t i = 0; i < section.samples.size(); ++i) {
      const SheetSample& sample = section.samples[i];
      const auto place = static_cast<std::int32_t>(i);
      const std::int32_t x = kMargin + place % kColumns * kCellWidth;
      const std::int32_t y = top + kTitleHeight + place / kColumns * kCellHeight;
      PaintSample(sheet.Dc(), x, y, sample);
      if (names == SheetNames::kShown)
        Write(sheet.Dc(), x, y + kAreaHeight + 2, sample.name, 400, 9, kNameColor);
    }
    top += HeightOf(section);
  }
  const auto pixels = sheet.Pixels();
  return {sheet.Width(), height, {pixels.begin(), pixels.end()}};
}

}  // namespace quenzel7::cli
