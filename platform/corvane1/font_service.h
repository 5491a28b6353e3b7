#pragma once

#include <array>
#include <string>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// Width and height of a text in panel pixels.
struct TextExtent {
  Long width = 0, height = 0;

  friend bool operator==(const TextExtent&, const TextExtent&) = default;
};

/// Knows the fonts of the panel by their numbers and measures texts in them. Texts are UTF-8; line breaks are
/// "\r\n".
class FontService {
 public:
  virtual ~FontService() = default;

  /// The number of the font that new elements take.
  virtual Long GetDefaultFontNumber() = 0;
  /// The number of the font in which the description of a keypad entry is shown.
  virtual Long GetDefaultDescriptionFontNumber() = 0;

  /// The height of a line in pixels.
  virtual Long GetCharHeight(Long fontNumber) = 0;
  /// The widths of the characters in pixels, indexed by their ANSI code.
  virtual std::array<Long, 256> GetCharWidths(Long fontNumber) = 0;
  /// The rectangle that a text takes: its widest line, and the heights of all its lines.
  virtual TextExtent GetTextRect(const std::string& text, Long fontNumber) = 0;
  /// The font's name as reports show it.
  virtual std::string GetFontName(Long fontNumber) = 0;
};

}  // namespace quenzel7::corvane1
