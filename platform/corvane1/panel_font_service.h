#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/corvane1/font_service.h"
#include "platform/corvane1/panel_fonts.h"

namespace quenzel7::corvane1 {

/// The embedded default: the fonts of a list, measured as the graphics interface paints them.
///
/// A number that is not in the list is the default font: a project from a host with more fonts can so be
/// shown and measured, and keeps its numbers. Characters are those of code page 1252 where a code is asked
/// for. Bytes that are no UTF-8 count as U+FFFD. An empty text takes no rectangle, 0 x 0; a text that ends in
/// a line break has an empty last line.
class PanelFontService final : public FontService {
 public:
  /// A host can give a list of its own. Throws std::invalid_argument if one of the two defaults is not in it.
  explicit PanelFontService(std::vector<PanelFont> fonts = PanelFonts(), Long defaultFont = kDefaultFont,
                            Long defaultDescriptionFont = kDefaultDescriptionFont);

  Long GetDefaultFontNumber() override { return defaultFont_; }
  Long GetDefaultDescriptionFontNumber() override { return defaultDescriptionFont_; }
  Long GetCharHeight(Long fontNumber) override;
  std::array<Long, 256> GetCharWidths(Long fontNumber) override;
  TextExtent GetTextRect(const std::string& text, Long fontNumber) override;
  std::string GetFontName(Long fontNumber) override { return FontOf(fontNumber).name; }

 private:
  const PanelFont* Find(Long fontNumber) const;
  const PanelFont& FontOf(Long fontNumber) const;

  const std::vector<PanelFont> fonts_;
  const Long defaultFont_, defaultDescriptionFont_;
};

}  // namespace quenzel7::corvane1
