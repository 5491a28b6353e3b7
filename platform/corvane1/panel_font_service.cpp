#include "platform/corvane1/panel_font_service.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/corvane1/utf8.h"
#include "platform/gdi/font.h"

namespace quenzel7::corvane1 {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

std::shared_ptr<gdi::Font> Realized(const PanelFont& font) {
  gdi::LOGFONT description{};
  description.lfHeight = font.height;
  description.lfWeight = font.weight;
  font.family.copy(description.lfFaceName, sizeof description.lfFaceName - 1);
  return gdi::FontFor(description);
}

std::int64_t LineWidth(gdi::Font& font, std::string_view line) {
  std::int64_t width = 0;
  while (!line.empty()) width += font.Advance(TakeCharacter(line));
  return width;
}

Long Clamped(std::int64_t value) {
  return static_cast<Long>(std::min<std::int64_t>(value, std::numeric_limits<Long>::max()));
}

}  // namespace

PanelFontService::PanelFontService(std::vector<PanelFont> fonts, Long defaultFont,
                                   Long defaultDescriptionFont)
    : fonts_(std::move(fonts)), defaultFont_(defaultFont), defaultDescriptionFont_(defaultDescriptionFont) {
  for (const Long number : {defaultFont_, defaultDescriptionFont_}) {
    if (Find(number) == nullptr) {
      throw std::invalid_argument("the list of panel fonts has no font of number " + std::to_string(number));
    }
  }
}

const PanelFont* PanelFontService::Find(Long fontNumber) const {
  const auto found = std::find_if(fonts_.begin(), fonts_.end(),
                                  [&](const PanelFont& font) { return font.number == fontNumber; });
  return found != fonts_.end() ? &*found : nullptr;
}

const PanelFont& PanelFontService::FontOf(Long fontNumber) const {
  const PanelFont* font = Find(fontNumber);
  return font != nullptr ? *font : *Find(defaultFont_);
}

Long PanelFontService::GetCharHeight(Long fontNumber) { return Realized(FontOf(fontNumber))->Height(); }

std::array<Long, 256> PanelFontService::GetCharWidths(Long fontNumber) {
  const auto font = Realized(FontOf(fontNumber));
  std::array<Long, 256> widths;
  for (std::size_t code = 0; code < widths.size(); ++code) {
    widths[code] = font->GlyphOfByte(static_cast<unsigned char>(code)).advance;
  }
  return widths;
}

TextExtent PanelFontService::GetTextRect(const std::string& text, Long fontNumber) {
  if (text.empty()) return {};
  const auto font = Realized(FontOf(fontNumber));
  std::int64_t widest = 0, height = 0;
  std::string_view left = text;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = left.find(kLineBreak);
    widest = std::max(widest, LineWidth(*font, left.substr(0, end)));
    height += font->Height();
    if (end != std::string_view::npos) left.remove_prefix(end + kLineBreak.size());
  }
  return {Clamped(widest), Clamped(height)};
}

}  // namespace quenzel7::corvane1
