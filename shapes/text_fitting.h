#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/automation/types.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/text_extent.h"
#include "platform/gdi/types.h"

/// Fitting of texts into rectangles, by the widths of their characters. There is no wrap: a line that is too
/// long is cut, lines for which there is no room are dropped.
///
/// A line with a character that the code page does not have cannot be measured: it is told to the user in a
/// message box, each time, and counts as an empty line of width 0.
namespace quenzel7 {

/// Widths of characters in pixels, indexed by their ANSI code.
using CharWidths = std::array<Long, 256>;

/// A line as far as there is room for it.
struct FittedLine {
  std::string_view text;
  /// Width of the whole line, and of what is left of it.
  Long fullWidth = 0, usedWidth = 0;
};

/// The longest beginning of a line (UTF-8) that is at most `width` pixels wide. Error 6 when the line's width
/// does not fit 32 bits.
FittedLine FitLineToWidth(std::string_view line, Long width, const CharWidths& widths,
                          const corvane1::AnsiCodePage& codePage);

/// A text as far as there is room for it.
struct FittedText {
  std::string text;
  /// The sizes that the whole text and what fits of it take. A width is that of the widest line, also of one
  /// for which there is no room; a height is that of so many lines, below 0 where the rectangle's is.
  corvane1::TextExtent full, used;
};

/// What fits of a text, lines parted by "\r\n", into a rectangle in panel pixels; the code page is that of
/// the settings. Errors: 11 when the line height is 0, 6 when a size does not fit 32 bits, those of the
/// setting.
FittedText FitTextToRect(const std::string& text, const gdi::RECT& rectangle, Long lineHeight,
                         const CharWidths& widths);

}  // namespace quenzel7
