#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quenzel7::fuzz {

/// Bytes taken one after the other as the values of calls. When they are used up, everything is 0.
class ByteSource {
 public:
  explicit ByteSource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool IsUsedUp() const { return next_ >= bytes_.size(); }

  std::uint8_t Byte() { return IsUsedUp() ? std::uint8_t{0} : bytes_[next_++]; }

  /// Four bytes, the lowest first.
  std::uint32_t Word();

  /// A measure or coordinate. One byte gives -64 to 127, more bytes give 16 bits, the numbers at which
  /// arithmetic breaks, or any 32 bits.
  std::int32_t Number();

  /// A number in floating point, an infinity or no number at all.
  float Real();

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t next_ = 0;
};

}  // namespace quenzel7::fuzz
