#pragma once

#include <string_view>

namespace quenzel7::corvane1 {

/// What `TakeCharacter` does where the first byte is no character by itself, that is from 0x80 on.
char32_t TakeLongCharacter(std::string_view& text);

/// Takes the first character off a text in UTF-8, which is not empty. Bytes that are no character give
/// U+FFFD, one for each longest run that could have begun one, as the Unicode Standard recommends.
inline char32_t TakeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first >= 0x80) return TakeLongCharacter(text);
  text.remove_prefix(1);
  return first;
}

}  // namespace quenzel7::corvane1
