#include "server/registration/this_library.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/automation/automation_error.h"

namespace quenzel7::server {

namespace fs = std::filesystem;

std::string ThisLibrary() {
  // Any address of this library will do.
  static const char here = 0;
  Dl_info info{};
  const bool isKnown = dladdr(&here, &info) != 0 && info.dli_fname != nullptr;
  const fs::path loaded = isKnown ? info.dli_fname : "";
  std::error_code error;
  const fs::path folder = fs::canonical(loaded.parent_path(), error);
  const fs::path found = folder / loaded.filename();
  if (!isKnown || error || !fs::is_regular_file(found, error)) {
    throw automation::AutomationError(
        automation::ErrorNumber::FileNotFound,
        "the library is no longer where it was loaded from: \"" + loaded.string() + "\"");
  }
  return found.string();
}

}  // namespace quenzel7::server
