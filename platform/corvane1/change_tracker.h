#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include "platform/automation/types.h"
#include "platform/corvane1/project_database.h"

namespace quenzel7::corvane1 {

/// Is told what changed, so that the host knows what to send to the panel again.
class ChangeTracker {
 public:
  virtual ~ChangeTracker() = default;

  /// The element of that ID changed.
  virtual void NotifyElementChanged(Long elementId) = 0;
  /// The page of that number changed: an element came or went.
  virtual void NotifyPageChanged(Long pageId) = 0;
  /// The size in bytes that the element of that ID takes in the panel.
  virtual Long ElementSize(Long elementId) = 0;
};

/// An estimate in bytes of what an element takes in the panel, from its row: 4 for a whole number of up to 32
/// bits, 8 for any other number, a text and a block of bytes as many as they have, nothing for Null, and 0
/// where there is no row. What a host's own database gives as a narrower number is counted in that width: 2
/// for an Integer or a Boolean, 1 for a Byte. The operands and pictures of an element are not in it. Errors
/// of the database.
Long ElementRowSize(ado::Connection& project, Long elementId);

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

/// The embedded default: collects what changed until the host has seen to it. For sizes it has an estimate
/// only, which a host that compiles for a panel replaces by what it knows.
class CollectedChanges final : public ChangeTracker {
 public:
  /// Elements are measured in the project that the database holds; without one, sizes are error 91.
  explicit CollectedChanges(std::shared_ptr<ProjectDatabase> projectDatabase = nullptr);

  void NotifyElementChanged(Long elementId) override { elements_.Add(elementId); }
  void NotifyPageChanged(Long pageId) override { pages_.Add(pageId); }
  /// ElementRowSize in the open project; error 91 when no project is open.
  Long ElementSize(Long elementId) override;

  /// IDs of the elements that changed, in the order of their first change.
  const std::vector<Long>& ChangedElements() const { return elements_.Numbers(); }
  /// Numbers of the pages that changed, in the order of their first change.
  const std::vector<Long>& ChangedPages() const { return pages_.Numbers(); }
  /// Forgets all changes.
  void Clear() {
    elements_ = {};
    pages_ = {};
  }

 private:
  std::shared_ptr<ProjectDatabase> projectDatabase_;
  DistinctNumbers elements_;
  DistinctNumbers pages_;
};

}  // namespace quenzel7::corvane1
