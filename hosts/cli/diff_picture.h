#pragma once

#include <cstdint>
#include <vector>

#include "hosts/cli/picture.h"

namespace quenzel7::cli {

/// A page as it is painted, and the pixels that the elements in question paint on it.
struct PaintedPage {
  Picture picture;
  std::vector<bool> covered;
};

/// Where pages differ: what only a's differing elements paint there, what only b's, and what both do or
/// neither.
inline constexpr std::uint32_t kDiffersInA = 0xE02020;
inline constexpr std::uint32_t kDiffersInB = 0x1060F0;
inline constexpr std::uint32_t kDiffersInBoth = 0xA020C0;

/// The difference of two pages: equal pixels in faded grey, the others in one of three colours. What lies on
/// one of the pages only is in the colour of that page, what lies on neither is white.
Picture DiffPicture(const PaintedPage& a, const PaintedPage& b);

}  // namespace quenzel7::cli
