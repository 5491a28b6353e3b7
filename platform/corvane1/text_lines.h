#pragma once

#include <string_view>

namespace quenzel7::corvane1 {

/// What parts the lines of a text. One half of it is a character like others.
inline constexpr std::string_view kLineBreak = "\r\n";

/// Visits the lines of a text in order, without their breaks. An empty text is one empty line; a text that
/// ends in a break has an empty last line.
template <class Visit>
void ForEachLine(std::string_view text, Visit&& visit) {
  for (;;) {
    const std::size_t end = text.find(kLineBreak);
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + kLineBreak.size());
  }
}

}  // namespace quenzel7::corvane1
