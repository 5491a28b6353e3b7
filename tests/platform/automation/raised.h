#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/automation/automation_error.h"

namespace quenzel7::automation {

/// What a call raised: number and description; 0 and "" when it raised nothing.
struct Raised {
  Long number = 0;
  std::string description;

  friend bool operator==(const Raised&, const Raised&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Raised& raised) {
    return out << raised.number << ": " << raised.description;
  }
};

template <class Call>
Raised RaisedBy(Call call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return {error.Number(), error.Description()};
  }
  return {};
}

}  // namespace quenzel7::automation

/// Expects the call to raise an automation error of that number with exactly that description.
#define EXPECT_RAISES(errorNumber, description, ...)                                   \
  EXPECT_EQ(::quenzel7::automation::RaisedBy([&] { static_cast<void>(__VA_ARGS__); }), \
            (::quenzel7::automation::Raised{errorNumber, description}))
