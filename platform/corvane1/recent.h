#pragma once

#include <cstddef>
#include <deque>
#include <utility>

namespace quenzel7::corvane1 {

/// How many entries are kept for a host that does not look at them.
inline constexpr std::size_t kMostRecent = 1000;

/// The latest entries in the order in which they came; the oldest give way.
template <class Entry>
class Recent {
 public:
  void Add(Entry entry) {
    if (entries_.size() == kMostRecent) entries_.pop_front();
    entries_.push_back(std::move(entry));
  }
  const std::deque<Entry>& Entries() const { return entries_; }
  void Clear() { entries_.clear(); }

 private:
  std::deque<Entry> entries_;
};

}  // namespace quenzel7::corvane1
