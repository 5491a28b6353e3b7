#include "platform/corvane1/panel_font_service.h"

#include <string_view>
#include <utility>

#include "platform/corvane1/utf8.h"
#include "platform/gdi/font.h"

namespace quenzel7::corvane1 {

PanelFontService::PanelFontService(PanelFontList fonts, AnsiCodePageSource codePage)
    : fonts_(std::move(fonts)), codePage_(std::move(codePage)) {}

gdi::Font& PanelFontService::Realized(Long fontNumber) {
  const AnsiCodePage codePage = codePage_();
  // Whoever asks for a font's height asks for its widths and its texts next.
  if (!latest_.font || latest_.number != fontNumber || latest_.codePage != codePage.Number()) {
    latest_ = {fontNumber, codePage.Number(), gdi::FontFor(fonts_.DescriptionOf(fontNumber, codePage))};
  }
  return *latest_.font;
}

Long PanelFontService::GetCharHeight(Long fontNumber) { return Realized(fontNumber).Height(); }

std::array<Long, 256> PanelFontService::GetCharWidths(Long fontNumber) {
  return Realized(fontNumber).AdvancesOfBytes();
}

TextExtent PanelFontService::GetTextRect(const std::string& text, Long fontNumber) {
  gdi::Font& font = Realized(fontNumber);
  return ExtentOfLines(text, font.Height(), [&](std::string_view line) {
    std::int64_t width = 0;
    while (!line.empty()) width += font.Advance(TakeCharacter(line));
    return width;
  });
}

}  // namespace quenzel7::corvane1
