#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quenzel7::corvane1 {

/// The characters of a line in UTF-8 as they stand from left to right; nothing where that is the order in
/// which they are stored, since none of them runs to the left.
///
/// The order is that of the Unicode Bidirectional Algorithm (Unicode Standard Annex 9), for a paragraph that
/// begins on the side of its first strong character, on the left without one. Brackets and the like among
/// right-to-left characters are mirrored; marks stand behind the letter that they belong to; no character is
/// added, left out or joined with another. Bytes that are no UTF-8 count as `TakeCharacter` takes them.
std::optional<std::u32string> VisualOrder(std::string_view line);

}  // namespace quenzel7::corvane1
