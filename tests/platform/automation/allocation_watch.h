#pragma once

#include <cstddef>

namespace quenzel7::automation {

/// While it lives: notes the biggest single allocation of its thread and how many there are, and refuses
/// (std::bad_alloc) those above a limit. One at a time on a thread.
class AllocationWatch {
 public:
  static constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

  explicit AllocationWatch(std::size_t limit = kNoLimit);
  AllocationWatch(const AllocationWatch&) = delete;
  AllocationWatch& operator=(const AllocationWatch&) = delete;
  ~AllocationWatch();

  /// The bytes of the biggest allocation that was asked for, refused ones too.
  std::size_t Biggest() const;
  /// How many allocations were asked for, refused ones too.
  std::size_t Count() const;
};

}  // namespace quenzel7::automation
