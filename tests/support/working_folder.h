#pragma once

#include <filesystem>
#include <string>

namespace quenzel7::test {

/// Makes a folder the current one for as long as it lives.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& folder) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;
  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_;
};

}  // namespace quenzel7::test
