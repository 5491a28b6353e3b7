#pragma once

#include <filesystem>
#include <string>

#include "platform/corvane1/project_file.h"

namespace quenzel7::cli {

/// The project file that a command writes. A new project grows under a temporary name, so that nothing is at
/// its place before it is complete; one that is not committed is removed.
class ProjectTarget {
 public:
  explicit ProjectTarget(const std::string& path);
  ProjectTarget(const ProjectTarget&) = delete;
  ProjectTarget& operator=(const ProjectTarget&) = delete;
  ~ProjectTarget();

  /// Where and how the project is opened.
  std::string OpenPath() const;
  corvane1::ProjectMode Mode() const;
  /// Puts a new project, closed by now, in its place. Throws UserError when that cannot be done.
  void Commit();

 private:
  bool IsNew() const { return !temporary_.empty(); }

  std::filesystem::path path_;
  std::filesystem::path temporary_;
};

}  // namespace quenzel7::cli
