#pragma once

#include <cstddef>
#include <memory>

#include "platform/corvane1/message_boxes.h"

namespace quenzel7::cli {

/// Has the library's message boxes shown nowhere for as long as it lives. Elements are made more than once
/// when pages are brought in, compared and checked, and each time they show the same boxes.
class QuietBoxes {
 public:
  QuietBoxes();
  QuietBoxes(const QuietBoxes&) = delete;
  QuietBoxes& operator=(const QuietBoxes&) = delete;
  ~QuietBoxes();

  /// How many boxes would have been shown.
  std::size_t Count() const { return boxes_->Shown().size(); }

 private:
  std::shared_ptr<corvane1::CollectedMessageBoxes> boxes_;
  std::shared_ptr<corvane1::MessageBoxes> before_;
};

}  // namespace quenzel7::cli
