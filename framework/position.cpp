#include "framework/position.h"

#include <string>
#include <utility>

#include "platform/automation/automation_error.h"

namespace quenzel7 {

const Descriptor& Position::At(Long index) const {
  if (index < kInitial || index > kDisplayed) {
    throw automation::AutomationError(
        automation::ErrorNumber::SubscriptOutOfRange,
        "descriptor " + std::to_string(index) + " was asked for, there are 1 to 4");
  }
  return descriptors_[static_cast<std::size_t>(index) - 1];
}

Descriptor& Position::At(Long index) { return const_cast<Descriptor&>(std::as_const(*this).At(index)); }

void Position::Copy(Long from, Long to) { At(to) = At(from); }

void Position::SetAll(Long Descriptor::*number, Long value) {
  for (Descriptor& descriptor : descriptors_) descriptor.*number = value;
}

}  // namespace quenzel7
