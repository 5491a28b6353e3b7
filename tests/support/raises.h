#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/automation/automation_error.h"
#include "platform/automation/types.h"

namespace quenzel7::test {

/// What an action raised: number and description; 0 and "" when it raised nothing.
struct Raised {
  Long number = 0;
  std::string description;

  friend bool operator==(const Raised&, const Raised&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Raised& raised) {
    return out << raised.number << ": " << raised.description;
  }
};

template <class Action>
Raised RaisedBy(Action action) {
  try {
    action();
  } catch (const automation::AutomationError& error) {
    return {error.Number(), error.Description()};
  }
  return {};
}

/// The number of the automation error that the action raises; 0 when it raises none.
template <class Action>
Long ErrorOf(Action action) {
  return RaisedBy(action).number;
}

/// The description of the automation error that the action raises; empty when it raises none.
template <class Action>
std::string DescriptionOf(Action action) {
  return RaisedBy(action).description;
}

}  // namespace quenzel7::test

/// Expects the call to raise an automation error of that number with exactly that description.
#define EXPECT_RAISES(errorNumber, description, ...)                             \
  EXPECT_EQ(::quenzel7::test::RaisedBy([&] { static_cast<void>(__VA_ARGS__); }), \
            (::quenzel7::test::Raised{errorNumber, description}))
