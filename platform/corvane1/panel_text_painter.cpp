#include "platform/corvane1/panel_text_painter.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/corvane1/text_lines.h"
#include "platform/corvane1/visual_order.h"
#include "platform/gdi/font.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7::corvane1 {
namespace {

static_assert(offsetof(gdi::LOGPEN, lopnColor) == offsetof(gdi::EXTLOGPEN, elpColor));

/// The colour of a pen, which stands at the same place in both descriptions that there are.
gdi::COLORREF ColorOf(gdi::HGDIOBJ pen) {
  gdi::EXTLOGPEN description{};
  gdi::GetObjectA(pen, sizeof description, &description);
  return description.elpColor;
}

/// A line as it is painted from left to right.
std::string InCodePage(const AnsiCodePage& codePage, std::string_view line) {
  const auto ordered = VisualOrder(line);
  return ordered ? codePage.Encoded(*ordered) : codePage.Encoded(line);
}

/// How a context paints texts, for as long as this lives.
class TextManner {
 public:
  TextManner(gdi::HDC dc, gdi::COLORREF color, gdi::BackgroundMode background)
      : dc_(dc), colorBefore_(gdi::SetTextColor(dc, color)), modeBefore_(gdi::SetBkMode(dc, background)) {}
  TextManner(const TextManner&) = delete;
  TextManner& operator=(const TextManner&) = delete;
  ~TextManner() {
    gdi::SetBkMode(dc_, modeBefore_);
    gdi::SetTextColor(dc_, colorBefore_);
  }

 private:
  gdi::HDC dc_;
  gdi::COLORREF colorBefore_;
  std::int32_t modeBefore_;
};

}  // namespace

PanelTextPainter::PanelTextPainter(PanelFontList fonts, AnsiCodePageSource codePage)
    : fonts_(std::move(fonts)), codePage_(std::move(codePage)) {}

void PanelTextPainter::DrawText(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) {
  Paint(x, y, line, dc, fontNumber, gdi::OPAQUE);
}

void PanelTextPainter::DrawTextTransparent(Long x, Long y, const std::string& line, gdi::HDC dc,
                                           Long fontNumber) {
  Paint(x, y, line, dc, fontNumber, gdi::TRANSPARENT);
}

void PanelTextPainter::DrawStorageText(Long x, Long y, const std::string& text, gdi::HDC dc,
                                       Long fontNumber) {
  Paint(x, y, text, dc, fontNumber, gdi::OPAQUE);
}

void PanelTextPainter::DrawStorageTextTransparent(Long x, Long y, const std::string& text, gdi::HDC dc,
                                                  Long fontNumber, Long) {
  Paint(x, y, text, dc, fontNumber, gdi::TRANSPARENT);
}

TextExtent PanelTextPainter::GetTextSize(const std::string& text, Long fontNumber) {
  const AnsiCodePage codePage = codePage_();
  const auto font = gdi::FontFor(fonts_.DescriptionOf(fontNumber, codePage));
  return ExtentOfLines(codePage.Encoded(text), font->Height(), [&](std::string_view line) {
    std::int64_t width = 0;
    for (const char code : line) width += font->MeasuresOfByte(static_cast<unsigned char>(code)).advance;
    return width;
  });
}

void PanelTextPainter::Paint(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber,
                             gdi::BackgroundMode background) const {
  const AnsiCodePage codePage = codePage_();
  const gdi::LOGFONT description = fonts_.DescriptionOf(fontNumber, codePage);
  const gdi::HGDIOBJ pen = gdi::GetCurrentObject(dc, gdi::OBJ_PEN);
  if (pen == 0) return;
  const TextManner manner(dc, ColorOf(pen), background);
  const gdi::SelectedFont font(dc, gdi::CreateFontIndirectA(&description));
  const Long lineHeight = gdi::FontFor(description)->Height();
  std::int64_t top = y;
  ForEachLine(text, [&](std::string_view line) {
    // Lines below all coordinates do not show.
    if (top > std::numeric_limits<Long>::max()) return;
    const std::string shown = InCodePage(codePage, line);
    gdi::TextOutA(dc, x, static_cast<Long>(top), shown.data(), static_cast<std::int32_t>(shown.size()));
    top += lineHeight;
  });
}

}  // namespace quenzel7::corvane1
