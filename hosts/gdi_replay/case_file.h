#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/gdi/types.h"

/// Drawing cases: calls of the graphics device interface together with the pixels and values expected.
namespace quenzel7::gdi_replay {

/// A picture of colours, rows from the top.
struct Picture {
  std::int32_t width = 0, height = 0;
  std::vector<gdi::COLORREF> colors;

  gdi::COLORREF At(std::int32_t x, std::int32_t y) const {
    return colors[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

/// One line of a case, with what belongs to it: the picture of a `check`, the result of a `query`.
struct Step {
  int line = 0;
  std::vector<std::string> words;
  std::vector<std::string> result;
  std::optional<Picture> picture;
};

struct Case {
  std::string name;
  bool isQuirk = false;  ///< what was recorded looks doubtful
  std::string comment;   ///< why, for quirks
  std::vector<Step> steps;
};

/// A file that does not keep to the format; says where: "blit.txt:12: row is 7 pixels wide, expected 8".
class FormatError : public std::runtime_error {
 public:
  FormatError(const std::filesystem::path& file, int line, const std::string& message);
};

/// Reads all cases of a file. Throws FormatError.
std::vector<Case> ReadCases(const std::filesystem::path& file);

/// A decimal or 0x number that fits into 32 bits, signed or not; nothing for any other text.
std::optional<std::int32_t> ParseNumber(const std::string& word);

}  // namespace quenzel7::gdi_replay
