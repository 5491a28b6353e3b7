#include "server/services/embedded_changes.h"

#include <string_view>

#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using View = EmbeddedChanges;

constexpr automation::Member kMembers[] = {
    automation::Property<std::vector<Long>>("Elements", "IDs of the elements that changed.",
                                            AUTOMATION_GETTER(View, Elements), nullptr),
    automation::Property<std::vector<Long>>("Pages", "Numbers of the pages that changed.",
                                            AUTOMATION_GETTER(View, Pages), nullptr),
    automation::Property<automation::Variant>(
        "Events",
        "What became of elements, in order, each an array of kind, number and whether keys enter the value.",
        AUTOMATION_GETTER(View, Events), nullptr),
    automation::Method<View, &View::Clear>("Clear", "Forgets what was collected."),
};

std::string_view NameOf(corvane1::ProjectEventKind kind) {
  // In the order of the enumeration.
  constexpr std::string_view kNames[] = {"ElementSaved", "VarKeypad", "GlobalVarKeypad", "ElementDeleted",
                                         "GlobalElementDeleted"};
  return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace

const automation::ClassInfo& EmbeddedChanges::ClassOf() { return ServiceClass<View>(kMembers); }

automation::Variant EmbeddedChanges::Events() const {
  return Rows(services_.second->Events(), [](const corvane1::ProjectEvent& event) {
    return Fields{NameOf(event.kind), event.number, event.keypadEntry};
  });
}

void EmbeddedChanges::Clear() {
  services_.first->Clear();
  services_.second->Clear();
}

}  // namespace quenzel7::server
