#include "platform/corvane1/project_service.h"

#include <string>
#include <utility>

#include "platform/automation/automation_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

/// The number of the global variable that an element shows, 0 without one.
Long GlobalVariableOf(const automation::ObjectRef& element) {
  constexpr std::string_view kNumber = "GlobalVarID";
  if (element == nullptr || element->Class().Default().Find(kNumber) == nullptr) return 0;
  return automation::To<Long>(automation::GetByName(*element, kNumber));
}

}  // namespace

CollectedProjectEvents::CollectedProjectEvents(SizeOfElement sizeOfElement)
    : sizeOfElement_(std::move(sizeOfElement)) {}

void CollectedProjectEvents::NotifyElementSaved(Long elementId) {
  events_.push_back({ProjectEventKind::ElementSaved, elementId});
}

void CollectedProjectEvents::NotifyVarKeypad(Long elementId, bool keypadEntry) {
  events_.push_back({ProjectEventKind::VarKeypad, elementId, keypadEntry});
}

void CollectedProjectEvents::NotifyGlobalVarKeypad(Long globalVarId, bool keypadEntry) {
  events_.push_back({ProjectEventKind::GlobalVarKeypad, globalVarId, keypadEntry});
}

void CollectedProjectEvents::NotifyElementDeleted(Integer elementId) {
  events_.push_back({ProjectEventKind::ElementDeleted, elementId});
}

void CollectedProjectEvents::NotifyGlobalElementDeleted(const automation::ObjectRef& element) {
  events_.push_back({ProjectEventKind::GlobalElementDeleted, GlobalVariableOf(element)});
}

Long CollectedProjectEvents::ElementSize(Long elementId) {
  if (!sizeOfElement_) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet,
                                      "nothing is there that measures element " + std::to_string(elementId));
  }
  return sizeOfElement_(elementId);
}

}  // namespace quenzel7::corvane1
