#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/automation/automation_error.h"
#include "platform/automation/types.h"

namespace quenzel7::test {

/// The number of the automation error that the action raises; 0 when it raises none.
template <class Action>
Long ErrorOf(Action action) {
  try {
    action();
  } catch (const automation::AutomationError& error) {
    return error.Number();
  }
  return 0;
}

/// The description of the automation error that the action raises; empty when it raises none.
template <class Action>
std::string DescriptionOf(Action action) {
  try {
    action();
  } catch (const automation::AutomationError& error) {
    return error.Description();
  }
  return {};
}

}  // namespace quenzel7::test
