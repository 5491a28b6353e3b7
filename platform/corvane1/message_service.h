#pragma once

#include <deque>
#include <iosfwd>
#include <string>

#include "platform/automation/types.h"
#include "platform/automation/variant.h"
#include "platform/corvane1/recent.h"

namespace quenzel7::corvane1 {

/// Answers of a user to a message.
inline constexpr Long kAnswerOk = 1;
inline constexpr Long kAnswerYes = 6;
inline constexpr Long kAnswerNo = 7;

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
class CollectedMessages final : public MessageService {
 public:
  /// Prints on standard error.
  CollectedMessages();
  /// Prints on the stream, which has to outlive this object; nullptr prints nowhere.
  explicit CollectedMessages(std::ostream* output) : output_(output) {}

  /// Leaves the argument alone; shows a number that it does not know too.
  Long ShowMessage(Long number, automation::Variant& argument) override;

  /// What ShowMessage gives from now on; `kAnswerOk` until then.
  void Answer(Long answer) { answer_ = answer; }
  /// Where messages are printed from now on, as for the constructor.
  void Output(std::ostream* output) { output_ = output; }
  /// What was shown, in order.
  const std::deque<ShownMessage>& Shown() const { return shown_.Entries(); }
  /// Forgets what was shown.
  void Clear() { shown_.Clear(); }

 private:
  std::ostream* output_;
  Long answer_ = kAnswerOk;
  Recent<ShownMessage> shown_;
};

}  // namespace quenzel7::corvane1
