#pragma once

#include <deque>
#include <iosfwd>
#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/message_service.h"
#include "platform/corvane1/recent.h"

namespace quenzel7::corvane1 {

/// The buttons of a message box that has OK alone.
inline constexpr Long kOkButton = 0;

/// Shows boxes with a text of the library's own to the user.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Shows a box with these buttons and gives the one that the user pressed, `kAnswerOk` and so on.
  virtual Long Show(const std::string& text, Long buttons, const std::string& caption) = 0;
};

/// A box as it was shown.
struct ShownBox {
  std::string text;
  Long buttons = kOkButton;
  std::string caption;

  friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// The embedded default, for hosts without a window: prints each box as a line, "CAPTION: TEXT", keeps the
/// latest `kMostRecent`, and answers what it was told to answer.
class CollectedMessageBoxes final : public MessageBoxes {
 public:
  /// Prints on standard error.
  CollectedMessageBoxes();
  /// Prints on the stream, which has to outlive this object; nullptr prints nowhere.
  explicit CollectedMessageBoxes(std::ostream* output) : output_(output) {}

  Long Show(const std::string& text, Long buttons, const std::string& caption) override;

  /// What Show gives from now on; `kAnswerOk` until then.
  void Answer(Long answer) { answer_ = answer; }
  /// Where boxes are printed from now on, as for the constructor.
  void Output(std::ostream* output) { output_ = output; }
  /// What was shown, in order.
  const std::deque<ShownBox>& Shown() const { return shown_.Entries(); }
  /// Forgets what was shown.
  void Clear() { shown_.Clear(); }

 private:
  std::ostream* output_;
  Long answer_ = kAnswerOk;
  Recent<ShownBox> shown_;
};

}  // namespace quenzel7::corvane1
