#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quenzel7::test {

/// A variable of the environment with another value, or without one, for as long as the object lives.
class Environment {
 public:
  Environment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  ~Environment() { Set(before_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  void Set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace quenzel7::test
