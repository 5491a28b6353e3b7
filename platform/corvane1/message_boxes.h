#pragma once

#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/answers.h"
#include "platform/corvane1/collected.h"

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
class CollectedMessageBoxes final : public MessageBoxes, public CollectedQuestions<ShownBox> {
 public:
  using CollectedQuestions::CollectedQuestions;

  Long Show(const std::string& text, Long buttons, const std::string& caption) override;
};

}  // namespace quenzel7::corvane1
