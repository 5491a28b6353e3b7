#pragma once

#include <string>

#include "platform/automation/class_info.h"
#include "platform/corvane1/message_boxes.h"
#include "server/services/collected_view.h"

namespace quenzel7::server {

/// The embedded message boxes: what was shown, and how that is answered.
class EmbeddedMessageBoxes final : public QuestionsView<corvane1::CollectedMessageBoxes> {
 public:
  static constexpr std::string_view kClassName = "EmbeddedMessageBoxes";

  using QuestionsView::QuestionsView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Shows a box as the library does; gives the answer.
  Long Show(const std::string& text, Long buttons, const std::string& caption);
  /// The latest boxes in order, each (text, buttons, caption).
  automation::Variant Shown() const;
};

}  // namespace quenzel7::server
