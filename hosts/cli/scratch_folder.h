#pragma once

#include <filesystem>
#include <string>

namespace quenzel7::cli {

/// A folder of its own among the system's temporary files, removed with all that is in it at the end.
class ScratchFolder {
 public:
  /// Throws UserError.
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace quenzel7::cli
