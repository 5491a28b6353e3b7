#pragma once

#include <array>
#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/text_extent.h"

namespace quenzel7::corvane1 {

/// A place in panel pixels, x to the right, y downwards.
struct TextPosition {
  Long x = 0, y = 0;

  friend bool operator==(const TextPosition&, const TextPosition&) = default;
};

/// Knows the fonts of the panel by their numbers and measures texts in them. Texts are UTF-8; line breaks are
/// "\r\n".
class FontService {
 public:
  /// How far a text in a 3D frame keeps from the frame's edges, in pixels: the width of its bevel.
  static constexpr Long kFrameMargin = 4;

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
  /// The digit that stands for all of them where room for a number is shown: the widest, the greatest of
  /// those as wide. Made from `GetCharWidths`.
  virtual Long GetGUIDigit(Long fontNumber);
  /// The font's name as reports show it.
  virtual std::string GetFontName(Long fontNumber) = 0;

  /// The top left corner at which a text, all its lines as one block, stands in a rectangle. `alignment` runs
  /// by rows: 0 to 2 top left, centre and right, 3 to 5 the middle, 6 to 8 the bottom; any other number is
  /// top left. Halves of a pixel go to the left and up.
  ///
  /// `frameFlag` 1 and 3, the raised and the sunken frame, keep `kFrameMargin` pixels free on every side: a
  /// text in a rectangle larger by twice that stands exactly inside. Any other flag uses the whole rectangle.
  /// A text larger than its room begins where the room does, so that its beginning shows; one pixel too
  /// large, as fitting allows in a frame, it so reaches one pixel into the margin on the far side.
  ///
  /// Made from `GetTextRect`. Error 6 when the place does not fit 32 bits.
  virtual TextPosition GetTextPosition(const std::string& text, Long fontNumber, Long x, Long y, Long width,
                                       Long height, Long alignment, Long frameFlag);
};

}  // namespace quenzel7::corvane1
