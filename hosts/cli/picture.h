#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quenzel7::cli {

/// Painted pixels, each 0x00RRGGBB, row by row from the top.
struct Picture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;
};

/// The number of pixels in which two pictures differ; all of the larger one when their sizes differ.
std::size_t DifferingPixels(const Picture& a, const Picture& b);

}  // namespace quenzel7::cli
