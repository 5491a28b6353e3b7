#pragma once

#include <string>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli::test {

/// What the user is told when the action fails; empty when it does not.
template <class Action>
std::string MessageOf(const Action& action) {
  try {
    action();
  } catch (const UserError& error) {
    return error.what();
  }
  return {};
}

}  // namespace quenzel7::cli::test
