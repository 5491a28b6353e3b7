#pragma once

#include <string>

#include "platform/automation/automation_error.h"

namespace quenzel7::files {

/// The system's words for an error number of the operating system.
std::string SystemMessage(int errorNumber);

/// The error of the automation run-time for one of the operating system: 76 where there is no such file or
/// folder, 70 where it may not be used so, 7 for want of memory, otherwise 57.
automation::ErrorNumber ErrorNumberOf(int errorNumber);

/// Raises that error as "WHAT: ..." with the system's words, such as "picture x cannot be written: No space
/// left on device".
[[noreturn]] void RaiseFileError(const std::string& what, int errorNumber);

}  // namespace quenzel7::files
