#include "server/services/embedded_messages.h"

#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using View = EmbeddedMessages;

constexpr automation::Member kMembers[] = {
    automation::Method<View, &View::ShowMessage>(
        "ShowMessage", "Shows a message as the library does; gives the answer.", "number, argument"),
    automation::Property<automation::Variant>(
        "Shown", "The latest messages in order, each an array of number and text.",
        AUTOMATION_GETTER(View, Shown), nullptr),
    AnswerMember<View>(),
    ClearMember<View>(),
    PrintedMember<View>(),
};

}  // namespace

const automation::ClassInfo& EmbeddedMessages::ClassOf() { return ServiceClass<View>(kMembers); }

Long EmbeddedMessages::ShowMessage(Long number, automation::Variant& argument) {
  return Service()->ShowMessage(number, argument);
}

automation::Variant EmbeddedMessages::Shown() const {
  return Rows(Service()->Shown(), [](const corvane1::ShownMessage& message) {
    return Fields{message.number, message.text};
  });
}

}  // namespace quenzel7::server
