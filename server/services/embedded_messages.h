#pragma once

#include "platform/automation/class_info.h"
#include "platform/corvane1/message_service.h"
#include "server/services/collected_view.h"

namespace quenzel7::server {

/// The embedded message service: what was shown, and how that is answered.
class EmbeddedMessages final : public QuestionsView<corvane1::CollectedMessages> {
 public:
  static constexpr std::string_view kClassName = "EmbeddedMessages";

  using QuestionsView::QuestionsView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Shows a message as the library does; gives the answer.
  Long ShowMessage(Long number, automation::Variant& argument);
  /// The latest messages in order, each (number, text).
  automation::Variant Shown() const;
};

}  // namespace quenzel7::server
