#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/automation/automation_error.h"

namespace quenzel7::cli {

/// What the user is told when a command cannot be done: one sentence that names the place. The program prints
/// it as one line on standard error and ends with kFailed.
class UserError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Exit status of a command that could not be done.
inline constexpr int kFailed = 2;

/// The text on one line: control characters are written as escapes such as \n or \u001b.
std::string OneLine(std::string_view text);

/// A name in double quotes, as messages show what was asked for.
std::string Quoted(std::string_view name);

/// Does something at a place. What it raises, errors of its own and of the automation run-time, becomes a
/// UserError "PLACE: DESCRIPTION"; other exceptions pass.
template <class Work>
decltype(auto) AtPlace(const std::string& place, const Work& work) {
  try {
    return work();
  } catch (const UserError& error) {
    throw UserError(place + ": " + error.what());
  } catch (const automation::AutomationError& error) {
    throw UserError(place + ": " + error.Description());
  }
}

/// Does something whose errors of the automation run-time name their place themselves: they become UserErrors
/// in the same words. Other exceptions pass.
template <class Work>
decltype(auto) InItsWords(const Work& work) {
  try {
    return work();
  } catch (const automation::AutomationError& error) {
    throw UserError(error.Description());
  }
}

/// What an action raises, errors of its own and of the automation run-time, in words; empty when it can be
/// done. Other exceptions pass.
template <class Action>
std::string ErrorOf(const Action& action) {
  try {
    action();
  } catch (const UserError& error) {
    return error.what();
  } catch (const automation::AutomationError& error) {
    return error.Description();
  }
  return {};
}

}  // namespace quenzel7::cli
