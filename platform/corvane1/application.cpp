#include "platform/corvane1/application.h"

#include <filesystem>
#include <system_error>

#include "platform/automation/automation_error.h"

namespace quenzel7::corvane1 {

std::string FolderOf(const std::string& path) {
  const auto separator = path.rfind('/');
  return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

std::string RunningProgram::Path() {
  std::error_code error;
  const std::filesystem::path file = std::filesystem::read_symlink(link_, error);
  if (error) {
    throw automation::AutomationError(automation::ErrorNumber::PathNotFound,
                                      "the file of the running program cannot be found: " + error.message());
  }
  return FolderOf(file.string());
}

}  // namespace quenzel7::corvane1
