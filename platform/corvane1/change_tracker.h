#pragma once

#include <unordered_set>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// Is told what changed, so that the host knows what to send to the panel again.
class ChangeTracker {
 public:
  virtual ~ChangeTracker() = default;

  /// The element of that ID changed.
  virtual void NotifyElementChanged(Long elementId) = 0;
  /// The page of that number changed: an element came or went.
  virtual void NotifyPageChanged(Long pageId) = 0;
};

/// Numbers in the order in which they first came, each once.
class DistinctNumbers {
 public:
  void Add(Long number) {
    if (known_.insert(number).second) numbers_.push_back(number);
  }
  const std::vector<Long>& Numbers() const { return numbers_; }

 private:
  std::vector<Long> numbers_;
  std::unordered_set<Long> known_;
};

/// The embedded default: collects what changed until the host has seen to it.
class CollectedChanges final : public ChangeTracker {
 public:
  void NotifyElementChanged(Long elementId) override { elements_.Add(elementId); }
  void NotifyPageChanged(Long pageId) override { pages_.Add(pageId); }

  /// IDs of the elements that changed, in the order of their first change.
  const std::vector<Long>& ChangedElements() const { return elements_.Numbers(); }
  /// Numbers of the pages that changed, in the order of their first change.
  const std::vector<Long>& ChangedPages() const { return pages_.Numbers(); }
  /// Forgets all changes.
  void Clear() { *this = {}; }

 private:
  DistinctNumbers elements_;
  DistinctNumbers pages_;
};

}  // namespace quenzel7::corvane1
