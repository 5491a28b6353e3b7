#pragma once

#include <cstdint>
#include <span>

namespace quenzel7::bench {

/// A page's pixels, rows from the top, 0xXXRRGGBB.
using Picture = std::span<const std::uint32_t>;

/// In percent of the pixels that either page has painted, those whose colour is not in the other one, there
/// or beside: rules for edges differ by one pixel.
double Difference(Picture one, Picture other);

}  // namespace quenzel7::bench
