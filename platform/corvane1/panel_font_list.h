#pragma once

#include <memory>
#include <vector>

#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/panel_fonts.h"
#include "platform/gdi/types.h"

namespace quenzel7::corvane1 {

/// The fonts that texts are measured and painted in, by their numbers. Copies share the list.
///
/// A number that is not in the list is the default font: a project from a host with more fonts can so be
/// shown and measured, and keeps its numbers.
class PanelFontList {
 public:
  /// A host can give fonts of its own. Throws std::invalid_argument if one of the two defaults is not among
  /// them.
  explicit PanelFontList(std::vector<PanelFont> fonts = PanelFonts(), Long defaultFont = kDefaultFont,
                         Long defaultDescriptionFont = kDefaultDescriptionFont);

  Long DefaultNumber() const { return defaultFont_; }
  Long DefaultDescriptionNumber() const { return defaultDescriptionFont_; }
  const PanelFont& FontOf(Long number) const;
  /// The font as the graphics interface is asked for it, for texts in a code page.
  gdi::LOGFONT DescriptionOf(Long number, const AnsiCodePage& codePage) const;

 private:
  const PanelFont* Find(Long number) const;

  std::shared_ptr<const std::vector<PanelFont>> fonts_;
  Long defaultFont_, defaultDescriptionFont_;
};

}  // namespace quenzel7::corvane1
