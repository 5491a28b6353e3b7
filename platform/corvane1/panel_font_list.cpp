#include "platform/corvane1/panel_font_list.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace quenzel7::corvane1 {

PanelFontList::PanelFontList(std::vector<PanelFont> fonts, Long defaultFont, Long defaultDescriptionFont)
    : fonts_(std::make_shared<const std::vector<PanelFont>>(std::move(fonts))),
      defaultFont_(defaultFont),
      defaultDescriptionFont_(defaultDescriptionFont) {
  for (const Long number : {defaultFont_, defaultDescriptionFont_}) {
    if (Find(number) == nullptr) {
      throw std::invalid_argument("the list of panel fonts has no font of number " + std::to_string(number));
    }
  }
}

const PanelFont* PanelFontList::Find(Long number) const {
  const auto found = std::find_if(fonts_->begin(), fonts_->end(),
                                  [&](const PanelFont& font) { return font.number == number; });
  return found != fonts_->end() ? &*found : nullptr;
}

const PanelFont& PanelFontList::FontOf(Long number) const {
  const PanelFont* font = Find(number);
  return font != nullptr ? *font : *Find(defaultFont_);
}

gdi::LOGFONT PanelFontList::DescriptionOf(Long number, const AnsiCodePage& codePage) const {
  const PanelFont& font = FontOf(number);
  gdi::LOGFONT description{};
  description.lfHeight = font.height;
  description.lfWeight = font.weight;
  description.lfCharSet = codePage.CharSet();
  font.family.copy(description.lfFaceName, sizeof description.lfFaceName - 1);
  return description;
}

}  // namespace quenzel7::corvane1
