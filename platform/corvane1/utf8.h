#pragma once

#include <string_view>

namespace quenzel7::corvane1 {

/// Takes the first character off a text in UTF-8, which is not empty. Bytes that are no character give
/// U+FFFD, one for each longest run that could have begun one, as the Unicode Standard recommends.
char32_t TakeCharacter(std::string_view& text);

}  // namespace quenzel7::corvane1
