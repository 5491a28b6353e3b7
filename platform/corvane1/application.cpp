#include "platform/corvane1/application.h"

#include <filesystem>
#include <system_error>

#include "platform/automation/automation_error.h"

namespace quenzel7::corvane1 {

std::string RunningProgram::Path() {
  std::error_code error;
  const std::filesystem::path file = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) {
    throw automation::AutomationError(automation::ErrorNumber::PathNotFound,
                                      "the file of the running program cannot be found: " + error.message());
  }
  return file.parent_path().string();
}

}  // namespace quenzel7::corvane1
