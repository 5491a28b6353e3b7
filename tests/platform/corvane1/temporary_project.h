#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/corvane1/project_file.h"

namespace quenzel7::corvane1 {

/// A folder of its own on disk with a new project in it; both go with this object.
class TemporaryProject {
 public:
  TemporaryProject() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quenzel7-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
    folder_ = pattern;
  }
  TemporaryProject(const TemporaryProject&) = delete;
  TemporaryProject& operator=(const TemporaryProject&) = delete;
  ~TemporaryProject() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  /// A new connection on the project.
  ado::SqliteConnectionRef Open(const std::string& name = "project.qz7") const {
    return OpenProject((folder_ / name).string(), ProjectMode::Create);
  }
  std::string Folder() const { return folder_.string(); }
  /// Writes a file in the folder.
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace quenzel7::corvane1
