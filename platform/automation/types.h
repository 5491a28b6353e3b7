#pragma once

#include <cstdint>

/// The number types of the automation run-time, under their own names.
namespace quenzel7 {

using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;
using Double = double;

/// A fixed-point number with four decimals, kept as a 64-bit integer of ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;

  friend bool operator==(Currency, Currency) = default;
};

}  // namespace quenzel7
