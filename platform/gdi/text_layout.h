#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gdi/font.h"

namespace quenzel7::gdi {

/// What breaks a text into lines and lines into stretches. Widths are in pixels.
struct TextRules {
  std::int64_t width = 0;      ///< that lines have
  std::int64_t tabStep = 0;    ///< between the places that tabs move on to; 0: tabs are characters
  bool isSingleLine = false;   ///< line ends are characters
  bool breaksWords = false;    ///< lines that are too wide are broken between words
  bool hasPrefixes = false;    ///< & marks the character behind it
  bool cutsEveryLine = false;  ///< lines that are too wide end in three dots
  bool cutsLastLine = false;   ///< ... the last one does
};

/// A text in lines. One object serves many texts, so that laying one out seldom needs memory.
class TextLayout {
 public:
  /// A line: bytes of `Shown()`, and three dots behind them if it was cut.
  struct Line {
    std::size_t begin, end;
    std::int64_t width;
    bool isCut;
  };

  void Lay(Font& font, std::string_view text, const TextRules& rules);

  const std::vector<Line>& Lines() const { return lines_; }
  std::int64_t WidestLine() const;

  /// Calls `paint(x, bytes)` for each stretch of a line between tabs, x counted from the line's beginning,
  /// then `mark(x, width)` for each character of it that is marked.
  template <typename Paint, typename Mark>
  void ForEachPart(Font& font, const Line& line, Paint&& paint, Mark&& mark) const {
    std::int64_t x = 0, from = 0;
    std::size_t begin = line.begin;
    for (std::size_t i = line.begin; i < line.end; ++i) {
      if (!IsTab(i)) {
        x += AdvanceAt(font, i);
        continue;
      }
      if (i > begin) paint(from, std::string_view(shown_).substr(begin, i - begin));
      from = x = AfterTab(x);
      begin = i + 1;
    }
    if (line.end > begin) paint(from, std::string_view(shown_).substr(begin, line.end - begin));
    if (line.isCut) paint(x, kDots);
    x = 0;
    auto next = std::lower_bound(marked_.begin(), marked_.end(), line.begin);
    for (std::size_t i = line.begin; i < line.end && next != marked_.end(); ++i) {
      const std::int64_t after = After(font, i, x);
      if (*next == i) {
        mark(x, after - x);
        ++next;
      }
      x = after;
    }
  }

 private:
  static constexpr std::string_view kDots = "...";

  bool IsTab(std::size_t i) const { return tabStep_ > 0 && shown_[i] == '\t'; }
  std::int64_t AfterTab(std::int64_t x) const { return (x / tabStep_ + 1) * tabStep_; }
  std::int64_t AdvanceAt(Font& font, std::size_t i) const {
    return font.MeasuresOfByte(static_cast<unsigned char>(shown_[i])).advance;
  }
  /// Where the character behind the one at x is.
  std::int64_t After(Font& font, std::size_t i, std::int64_t x) const {
    return IsTab(i) ? AfterTab(x) : x + AdvanceAt(font, i);
  }
  std::int64_t WidthOf(Font& font, std::size_t begin, std::size_t end) const;

  void TakeText(std::string_view text, bool hasPrefixes);
  /// Lays the bytes between two line ends into one or more lines.
  void LayParagraph(Font& font, std::size_t begin, std::size_t end, const TextRules& rules);
  void Cut(Font& font, Line& line, std::int64_t width) const;

  std::string shown_;                ///< the text without its prefixes
  std::vector<std::size_t> marked_;  ///< the bytes that had one, in their order
  std::vector<Line> lines_;
  std::int64_t tabStep_ = 0;
};

}  // namespace quenzel7::gdi
