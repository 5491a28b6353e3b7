#include "platform/automation/automation_error.h"

#include <utility>

namespace quenzel7::automation {

AutomationError::AutomationError(ErrorNumber number, const std::string& description, std::string source)
    : std::runtime_error(description), number_(number), source_(std::move(source)) {}

AutomationError AutomationError::In(std::string_view context) const {
  return AutomationError(number_, std::string(context) + ": " + what(), source_);
}

AutomationError AutomationError::OfArgument(std::size_t place) const {
  AutomationError error = *this;
  error.argument_ = place;
  return error;
}

AutomationError AutomationError::OfNoArgument() const {
  AutomationError error = *this;
  error.argument_.reset();
  return error;
}

}  // namespace quenzel7::automation
