#include "server/services/embedded_frame.h"

#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Property;
using automation::Variant;
using View = EmbeddedFrame;

constexpr automation::Member kMembers[] = {
    Property<Variant>("Outputs", "The latest lines of the output list, each an array of text and kind.",
                      AUTOMATION_GETTER(View, Outputs), nullptr),
    Property<std::vector<Long>>("Pointers", "The latest pointers that were asked for.",
                                AUTOMATION_GETTER(View, Pointers), nullptr),
    Property<Long>("Interruptions", "How often work was interrupted.", AUTOMATION_GETTER(View, Interruptions),
                   nullptr),
    Property<Variant>("Refreshes", "What was to be shown anew lately, each an array of which and what.",
                      AUTOMATION_GETTER(View, Refreshes), nullptr),
    ClearMember<View>(),
    PrintedMember<View>(),
};

}  // namespace

const automation::ClassInfo& EmbeddedFrame::ClassOf() { return ServiceClass<View>(kMembers); }

Variant EmbeddedFrame::Outputs() const {
  return Rows(Service()->Outputs(), [](const corvane1::OutputEntry& line) {
    return Fields{line.text, line.kind};
  });
}

std::vector<Long> EmbeddedFrame::Pointers() const {
  return {Service()->Pointers().begin(), Service()->Pointers().end()};
}

Variant EmbeddedFrame::Refreshes() const {
  return Rows(Service()->Refreshes(), [](const corvane1::RefreshRequest& request) {
    return Fields{request.which, request.what};
  });
}

}  // namespace quenzel7::server
