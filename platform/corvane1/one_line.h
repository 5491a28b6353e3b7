#pragma once

#include <string>

namespace quenzel7::corvane1 {

/// The text on one line: a line break, whichever way it is written, and every other control character becomes
/// one blank.
std::string OneLine(const std::string& text);

}  // namespace quenzel7::corvane1
