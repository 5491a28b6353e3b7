#include "platform/gdi/text_layout.h"

#include <algorithm>

namespace quenzel7::gdi {

void TextLayout::Lay(Font& font, std::string_view text, const TextRules& rules) {
  lines_.clear();
  tabStep_ = rules.tabStep;
  TakeText(text, rules.hasPrefixes);
  std::size_t begin = 0;
  while (!rules.isSingleLine) {
    const std::size_t end = shown_.find_first_of("\r\n", begin);
    if (end == std::string::npos) break;
    LayParagraph(font, begin, end, rules);
    const bool isPair = shown_.compare(end, 2, "\r\n") == 0;
    begin = end + (isPair ? 2 : 1);
  }
  if (begin < shown_.size() || lines_.empty()) LayParagraph(font, begin, shown_.size(), rules);
  for (Line& line : lines_) {
    const bool isLast = &line == &lines_.back();
    if (rules.cutsEveryLine || (rules.cutsLastLine && isLast)) Cut(font, line, rules.width);
  }
}

std::int64_t TextLayout::WidestLine() const {
  std::int64_t widest = 0;
  for (const Line& line : lines_) widest = std::max(widest, line.width);
  return widest;
}

std::int64_t TextLayout::WidthOf(Font& font, std::size_t begin, std::size_t end) const {
  std::int64_t x = 0;
  for (std::size_t i = begin; i < end; ++i) x = After(font, i, x);
  return x;
}

void TextLayout::TakeText(std::string_view text, bool hasPrefixes) {
  shown_.clear();
  marked_.clear();
  if (!hasPrefixes) {
    shown_ = text;
    return;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '&') {
      if (++i == text.size()) break;
      if (text[i] != '&') marked_.push_back(shown_.size());
    }
    shown_ += text[i];
  }
}

void TextLayout::LayParagraph(Font& font, std::size_t begin, std::size_t end, const TextRules& rules) {
  const auto isSpace = [&](std::size_t i) { return shown_[i] == ' ' || shown_[i] == '\t'; };
  std::int64_t x = 0;
  std::size_t breakAt = begin;  // the end of the last word that fits; `begin` if there is none
  std::int64_t widthAtBreak = 0;
  for (std::size_t i = begin; rules.breaksWords && i < end; ++i) {
    const bool endsWord = isSpace(i) && i > begin && !isSpace(i - 1);
    if (endsWord) {
      breakAt = i;
      widthAtBreak = x;
    }
    x = After(font, i, x);
    if (x <= rules.width || isSpace(i) || breakAt == begin) continue;
    lines_.push_back({begin, breakAt, widthAtBreak, false});
    begin = breakAt;
    while (isSpace(begin)) ++begin;
    breakAt = begin;
    x = 0;
    i = begin - 1;
  }
  lines_.push_back({begin, end, WidthOf(font, begin, end), false});
}

void TextLayout::Cut(Font& font, Line& line, std::int64_t width) const {
  if (line.width <= width) return;
  const std::int64_t dots = 3 * static_cast<std::int64_t>(font.MeasuresOfByte('.').advance);
  std::int64_t x = 0;
  std::size_t end = line.begin;
  while (end < line.end) {
    const std::int64_t after = After(font, end, x);
    if (after + dots > width) break;
    x = after;
    ++end;
  }
  line = {line.begin, end, x + dots, true};
}

}  // namespace quenzel7::gdi
