#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace quenzel7::gdi {

/// An empty vector with the memory of an earlier one of its kind on this thread, so that drawing does not
/// allocate each time. Up to four that live at the same time each get theirs back; one that a thread's last
/// objects still need when nothing is kept any more begins with none.
template <typename T>
class Scratch {
 public:
  Scratch() {
    if (!isGone && Kept().count > 0) values_ = std::move(Kept().values[--Kept().count]);
    values_.clear();
  }
  ~Scratch() {
    if (!isGone && Kept().count < kMost) Kept().values[Kept().count++] = std::move(values_);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::vector<T>& operator*() { return values_; }
  const std::vector<T>& operator*() const { return values_; }
  std::vector<T>* operator->() { return &values_; }
  const std::vector<T>* operator->() const { return &values_; }

 private:
  static constexpr std::size_t kMost = 4;

  struct Keeper {
    std::array<std::vector<T>, kMost> values;
    std::size_t count = 0;

    ~Keeper() { isGone = true; }
  };
  static Keeper& Kept() {
    thread_local Keeper keeper;
    return keeper;
  }

  /// Whether the thread is ending and the keeper is no more.
  static inline constinit thread_local bool isGone = false;

  std::vector<T> values_;
};

}  // namespace quenzel7::gdi
