#pragma once

#include <cstdint>

namespace quenzel7::bench {

/// Numbers of no particular order, the same every time.
class Numbers {
 public:
  /// From `from` to `to`, both included.
  int Between(int from, int to) {
    state_ = state_ * 1664525u + 1013904223u;
    return from + static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(to - from + 1));
  }
  std::uint32_t Color() { return static_cast<std::uint32_t>(Between(0, 0xFFFFFF)); }

 private:
  std::uint32_t state_ = 1;
};

}  // namespace quenzel7::bench
