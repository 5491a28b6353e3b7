#pragma once

#include <string>
#include <utility>

namespace quenzel7::corvane1 {

/// Knows the program that the library works for.
class Application {
 public:
  virtual ~Application() = default;

  /// The folder that the program stands in, without a separator at its end: a host appends one and more.
  virtual std::string Path() = 0;
};

/// The folder that a file stands in, without a separator at its end: that of "/a/b" is "/a", that of "/a" is
/// empty.
std::string FolderOf(const std::string& path);

/// The embedded default: the folder of the file that the system runs.
class RunningProgram final : public Application {
 public:
  /// `link` is the symbolic link by which the system tells the file.
  explicit RunningProgram(std::string link = "/proc/self/exe") : link_(std::move(link)) {}

  /// Error 76 when the system does not tell the file.
  std::string Path() override;

 private:
  const std::string link_;
};

}  // namespace quenzel7::corvane1
