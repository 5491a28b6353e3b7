#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/automation/types.h"

namespace quenzel7::loomis2 {

/// Reads bytes from first to last, numbers with their lowest byte first. Error 481 tells whose bytes end
/// before what is asked for.
class ByteReader {
 public:
  /// The bytes stay the caller's and must outlive the reader. `name` says in errors what they are.
  ByteReader(std::span<const Byte> bytes, std::string name);

  /// The number of the byte that comes next.
  std::size_t Position() const { return position_; }
  /// How many bytes are left.
  std::size_t Left() const { return bytes_.size() - position_; }

  /// The next bytes.
  std::span<const Byte> Take(std::uint64_t count);
  /// Goes to the byte of that number, or to the end where that is the number of bytes.
  void Seek(std::uint64_t position);

  Byte U8() { return Take(1)[0]; }
  std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
  std::uint32_t U32() { return Number(4); }
  std::int32_t S32() { return static_cast<std::int32_t>(Number(4)); }

 private:
  std::uint32_t Number(std::size_t bytes);

  std::span<const Byte> bytes_;
  std::string name_;
  std::size_t position_ = 0;
};

/// The number in up to four bytes, the lowest first.
std::uint32_t NumberOf(std::span<const Byte> bytes);

}  // namespace quenzel7::loomis2
