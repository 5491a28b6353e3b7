#pragma once

#include <functional>
#include <ostream>

namespace quenzel7::cli {

/// Where a command tells what it did.
struct Console {
  std::ostream& out;
  std::ostream& err;
  /// A person watches standard error, so that long work may show how far it is.
  bool errIsTerminal = false;
};

/// Runs a command and gives its exit status. What it throws is told in one line on standard error, and the
/// status is kFailed; so it is when standard output could not be written.
int RunCommand(const Console& console, const std::function<int()>& command);

}  // namespace quenzel7::cli
