#pragma once

#include "framework/library_state.h"

namespace quenzel7::test {

/// Sets the library's stretch mode for a scope.
class StretchModeIs {
 public:
  explicit StretchModeIs(Long mode) { LibraryState::Current().StretchMode = mode; }
  StretchModeIs(const StretchModeIs&) = delete;
  StretchModeIs& operator=(const StretchModeIs&) = delete;
  ~StretchModeIs() { LibraryState::Current().StretchMode = before_; }

 private:
  const Long before_ = LibraryState::Current().StretchMode;
};

}  // namespace quenzel7::test
