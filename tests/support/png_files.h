#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quenzel7::test {

/// Pixels, each 0x00RRGGBB, row by row from the top.
struct Pixels {
  std::int32_t width = 0, height = 0;
  std::vector<std::uint32_t> words;
};

/// The pixels of a PNG file; none when it is none.
Pixels ReadPngFile(const std::string& path);

/// Writes a PNG file; whether it could be written.
bool WritePngFile(const std::string& path, const Pixels& pixels);

}  // namespace quenzel7::test
