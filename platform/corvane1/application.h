#pragma once

#include <string>

namespace quenzel7::corvane1 {

/// Knows the program that the library works for.
class Application {
 public:
  virtual ~Application() = default;

  /// The folder that the program stands in, without a separator at its end.
  virtual std::string Path() = 0;
};

/// The embedded default: the folder of the file that the system runs.
class RunningProgram final : public Application {
 public:
  /// Error 76 when the system does not tell the file.
  std::string Path() override;
};

}  // namespace quenzel7::corvane1
