#include "hosts/cli/console.h"

#include <exception>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

int RunCommand(const Console& console, const std::function<int()>& command) {
  try {
    const int status = command();
    console.out.flush();
    if (!console.out) throw UserError("standard output cannot be written");
    return status;
  } catch (const std::exception& error) {
    console.err << OneLine(error.what()) << std::endl;
    return kFailed;
  }
}

}  // namespace quenzel7::cli
