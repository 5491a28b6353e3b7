#pragma once

#include <cstdint>

namespace quenzel7::loomis2 {

/// Some adjacent bits of a pixel that hold one of its colours.
class BitField {
 public:
  /// The field of no bits, which holds 0.
  BitField() = default;
  /// The field of the bits that are set. Error 481 when they are not adjacent.
  explicit BitField(std::uint32_t mask);

  /// The colour that the pixel has in these bits: as many 255ths as its part of the largest number that they
  /// can hold, rounded to the nearest.
  std::uint32_t Of(std::uint32_t pixel) const;

 private:
  int shift_ = 0;
  std::uint64_t largest_ = 0;
};

}  // namespace quenzel7::loomis2
