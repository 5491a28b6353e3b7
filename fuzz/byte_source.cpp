#include "fuzz/byte_source.h"

#include <array>
#include <limits>

namespace quenzel7::fuzz {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min(),
                       kMax = std::numeric_limits<std::int32_t>::max();

/// Where sums, products, signs and sizes change their nature.
constexpr std::array<std::int32_t, 16> kEdges{kMin,  kMin + 1, kMin / 2, -0x10000, -4097,  -513,
                                              512,   513,      0x1000,   0x1001,   0x4000, 0x4001,
                                              65535, 65536,    kMax / 2, kMax};

constexpr std::array<float, 8> kEdgesOfReals{0.0F,
                                             -0.0F,
                                             360.0F,
                                             1e-40F,
                                             std::numeric_limits<float>::max(),
                                             std::numeric_limits<float>::lowest(),
                                             std::numeric_limits<float>::infinity(),
                                             std::numeric_limits<float>::quiet_NaN()};

// A first byte below tells which form follows.
constexpr std::uint8_t kFirstPair = 0xC0, kFirstEdge = 0xE0, kFirstWord = 0xF0;
constexpr std::int32_t kSmallest = -64;

}  // namespace

std::uint32_t ByteSource::Word() {
  std::uint32_t word = 0;
  for (int shift = 0; shift < 32; shift += 8) word |= std::uint32_t{Byte()} << shift;
  return word;
}

std::int32_t ByteSource::Number() {
  const std::uint8_t form = Byte();
  if (form < kFirstPair) return kSmallest + form;
  if (form < kFirstEdge) {
    const int low = Byte();
    return static_cast<std::int16_t>(low | Byte() << 8);
  }
  if (form < kFirstWord) return kEdges[form - kFirstEdge];
  return static_cast<std::int32_t>(Word());
}

float ByteSource::Real() {
  const std::uint8_t form = Byte();
  if (form >= kFirstWord) return kEdgesOfReals[form % kEdgesOfReals.size()];
  // Quarter turns, whole degrees and parts of them.
  return form % 2 == 0 ? static_cast<float>(Number()) : static_cast<float>(Number()) / 7;
}

}  // namespace quenzel7::fuzz
