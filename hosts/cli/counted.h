#pragma once

#include <cstddef>
#include <string>

namespace quenzel7::cli {

/// A number of things: "1 page", "2 pages".
inline std::string Counted(std::size_t number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace quenzel7::cli
