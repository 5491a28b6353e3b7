#pragma once

#include <fstream>
#include <string>

#include "platform/corvane1/project_file.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::corvane1 {

/// A folder of its own on disk with a new project in it; both go with this object.
class TemporaryProject {
 public:
  /// A new connection on the project.
  ado::SqliteConnectionRef Open(const std::string& name = "project.qz7") const {
    return OpenProject(folder_.File(name), ProjectMode::Create);
  }
  std::string Folder() const { return folder_.Path(); }
  /// Writes a file in the folder.
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_.File(name), std::ios::binary) << text;
  }

 private:
  test::TemporaryFolder folder_;
};

}  // namespace quenzel7::corvane1
