#pragma once

#include <map>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// The number under which the host keeps the page that it has open.
inline constexpr Long kOpenPageValue = 25;

/// Numbered values that the host shares with the library.
class GlobalValues {
 public:
  virtual ~GlobalValues() = default;

  /// The value of that number.
  virtual Long Value(Long number) = 0;
};

/// The embedded default: keeps what it was given; a value that was never given is 0.
class HeldGlobalValues final : public GlobalValues {
 public:
  Long Value(Long number) override {
    const auto found = values_.find(number);
    return found == values_.end() ? 0 : found->second;
  }
  /// Gives a value.
  void Set(Long number, Long value) { values_[number] = value; }

 private:
  std::map<Long, Long> values_;
};

}  // namespace quenzel7::corvane1
