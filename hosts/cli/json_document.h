#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace quenzel7::cli {

/// JSON with the members of an object in the order of the text.
using Json = nlohmann::ordered_json;

/// Objects and arrays nest at most this deep, so that no text exhausts the stack.
inline constexpr std::size_t kDeepestJson = 16;

/// Reads a JSON text. A key that an object has twice is kept twice, so that a reader can name it.
/// Throws UserError "PLACE, line L, column C: malformed JSON: ..." (lines and columns counted from 1, columns
/// in characters).
Json ParseJson(std::string_view text, const std::string& place);

/// The value as messages show it, cut short when it is long.
std::string Shown(const Json& value);

}  // namespace quenzel7::cli
