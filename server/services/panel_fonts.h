#pragma once

#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/corvane1/font_service.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The fonts of the panel by number, and how texts are measured in them, in panel pixels.
class PanelFonts final : public ServiceView<corvane1::FontService> {
 public:
  static constexpr std::string_view kClassName = "PanelFonts";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The number of the font that new elements take.
  Long DefaultFontNumber() const { return Service()->GetDefaultFontNumber(); }
  /// The number of the font in which the description of a keypad entry is shown.
  Long DefaultDescriptionFontNumber() const { return Service()->GetDefaultDescriptionFontNumber(); }
  /// The height of a line.
  Long CharHeight(Long font);
  /// The widths of the 256 characters by their ANSI code.
  std::vector<Long> CharWidths(Long font);
  /// The rectangle that a text takes; lines are parted by "\r\n".
  void TextSize(const std::string& text, Long font, Long& width, Long& height);
  /// The font's name as reports show it.
  std::string FontName(Long font);
};

}  // namespace quenzel7::server
