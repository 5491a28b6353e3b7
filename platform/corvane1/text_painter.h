#pragma once

#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/text_extent.h"
#include "platform/gdi/types.h"

namespace quenzel7::corvane1 {

/// Paints texts in the fonts of the panel. Texts are UTF-8; the place of a text is the top left corner of its
/// first character's cell; its colour is that of the pen that the context holds. An element owns one for its
/// life.
class TextPainter {
 public:
  virtual ~TextPainter() = default;

  /// Paints a constant text on the context's background colour.
  virtual void DrawText(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) = 0;
  /// Paints a constant text without background.
  virtual void DrawTextTransparent(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) = 0;
  /// Paints a text of the string library, all its lines, on the context's background colour.
  virtual void DrawStorageText(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber) = 0;
  /// Paints a text of the string library, all its lines, without background. `option` is 255 where a text
  /// element paints line by line, and 1 where a button paints all lines at once.
  virtual void DrawStorageTextTransparent(Long x, Long y, const std::string& text, gdi::HDC dc,
                                          Long fontNumber, Long option) = 0;

  /// The size of a text as it is painted.
  virtual TextExtent GetTextSize(const std::string& text, Long fontNumber) = 0;
};

}  // namespace quenzel7::corvane1
