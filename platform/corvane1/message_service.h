#pragma once

#include <string>

#include "platform/automation/types.h"
#include "platform/automation/variant.h"
#include "platform/corvane1/answers.h"
#include "platform/corvane1/collected.h"

namespace quenzel7::corvane1 {

/// Shows numbered messages, whose texts it keeps, to the user.
class MessageService {
 public:
  virtual ~MessageService() = default;

  /// Shows a message with the argument as its only insert, and gives the user's answer. The service may
  /// change the argument.
  virtual Long ShowMessage(Long number, automation::Variant& argument) = 0;
};

/// A message as it was shown.
struct ShownMessage {
  Long number = 0;
  std::string text = {};

  friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// The text of a message with its insert; a message without a text of its own is "message 77: insert".
/// Nothing is inserted for Empty and Null, the name of its kind for what is no single value.
std::string MessageText(Long number, const automation::Variant& argument);

/// The embedded default, for hosts without a window: prints each message as a line, keeps the latest
/// `kMostRecent`, and answers what it was told to answer.
class CollectedMessages final : public MessageService, public CollectedQuestions<ShownMessage> {
 public:
  using CollectedQuestions::CollectedQuestions;

  /// Leaves the argument alone; shows a number that it does not know too.
  Long ShowMessage(Long number, automation::Variant& argument) override;
};

}  // namespace quenzel7::corvane1
