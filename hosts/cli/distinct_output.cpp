#include "hosts/cli/distinct_output.h"

#include <filesystem>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

void RequireDistinctOutput(const std::string& place, const std::string& output,
                           std::initializer_list<std::string> inputs) {
  if (output.empty()) return;
  for (const std::string& input : inputs) {
    // Files that are not there are told by who reads or writes them.
    std::error_code ignored;
    if (std::filesystem::equivalent(output, input, ignored)) {
      throw UserError(place + " cannot be written: it is " + input + ", which is read");
    }
  }
}

}  // namespace quenzel7::cli
