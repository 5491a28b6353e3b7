#pragma once

#include <cstddef>
#include <vector>

#include "platform/gdi/gdi.h"

namespace quenzel7::test {

/// Leaves the calling thread only so many handles for a scope.
class HandlesLeft {
 public:
  explicit HandlesLeft(std::size_t count) {
    while (const gdi::HBRUSH brush = gdi::CreateSolidBrush(0)) taken_.push_back(brush);
    for (; count > 0; --count) {
      gdi::DeleteObject(taken_.back());
      taken_.pop_back();
    }
  }
  HandlesLeft(const HandlesLeft&) = delete;
  HandlesLeft& operator=(const HandlesLeft&) = delete;
  ~HandlesLeft() {
    for (const gdi::HBRUSH brush : taken_) gdi::DeleteObject(brush);
  }

 private:
  std::vector<gdi::HBRUSH> taken_;
};

}  // namespace quenzel7::test
