#pragma once

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// Answers of a user to a message or a box: the button that was pressed.
inline constexpr Long kAnswerOk = 1;
inline constexpr Long kAnswerYes = 6;
inline constexpr Long kAnswerNo = 7;

}  // namespace quenzel7::corvane1
