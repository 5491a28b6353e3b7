#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/font_service.h"
#include "platform/corvane1/panel_font_list.h"

namespace quenzel7::gdi {
class Font;
}

namespace quenzel7::corvane1 {

/// The embedded default: the fonts of a list, measured as the graphics interface paints them. What measures
/// raises the errors of the code page's source.
///
/// Where a code is asked for, characters are those of the code page. A text is measured in whatever
/// characters it has, so that texts of all languages can be compared; bytes that are no UTF-8 count as
/// U+FFFD. An empty text takes no rectangle, 0 x 0; a text that ends in a line break has an empty last line.
class PanelFontService final : public FontService {
 public:
  explicit PanelFontService(
      PanelFontList fonts = PanelFontList(), AnsiCodePageSource codePage = [] { return AnsiCodePage(); });

  Long GetDefaultFontNumber() override { return fonts_.DefaultNumber(); }
  Long GetDefaultDescriptionFontNumber() override { return fonts_.DefaultDescriptionNumber(); }
  Long GetCharHeight(Long fontNumber) override;
  std::array<Long, 256> GetCharWidths(Long fontNumber) override;
  TextExtent GetTextRect(const std::string& text, Long fontNumber) override;
  std::string GetFontName(Long fontNumber) override { return fonts_.FontOf(fontNumber).name; }

 private:
  /// The font that was asked for last.
  struct Latest {
    Long number = 0, codePage = 0;
    std::shared_ptr<gdi::Font> font;
  };

  gdi::Font& Realized(Long fontNumber);

  const PanelFontList fonts_;
  const AnsiCodePageSource codePage_;
  Latest latest_;
};

}  // namespace quenzel7::corvane1
