#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::test {

/// The bytes of a file, put together number by number, the lowest byte of each first.
class FileBytes {
 public:
  FileBytes& U8(std::uint32_t number) { return Put(number, 1); }
  FileBytes& U16(std::uint32_t number) { return Put(number, 2); }
  FileBytes& U32(std::uint32_t number) { return Put(number, 4); }
  FileBytes& Append(std::span<const Byte> bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
  }
  FileBytes& Append(std::initializer_list<Byte> bytes) { return Append(std::span(bytes)); }

  std::size_t Size() const { return bytes_.size(); }
  std::vector<Byte> Bytes() const { return bytes_; }

 private:
  FileBytes& Put(std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) bytes_.push_back(static_cast<Byte>(number >> 8 * i));
    return *this;
  }

  std::vector<Byte> bytes_;
};

}  // namespace quenzel7::test
