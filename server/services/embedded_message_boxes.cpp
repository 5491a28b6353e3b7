#include "server/services/embedded_message_boxes.h"

#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using View = EmbeddedMessageBoxes;

constexpr automation::Member kMembers[] = {
    automation::Method<View, &View::Show>("Show", "Shows a box as the library does; gives the answer.",
                                          "text, buttons, caption"),
    automation::Property<automation::Variant>(
        "Shown", "The latest boxes in order, each an array of text, buttons and caption.",
        AUTOMATION_GETTER(View, Shown), nullptr),
    AnswerMember<View>(),
    ClearMember<View>(),
    PrintedMember<View>(),
};

}  // namespace

const automation::ClassInfo& EmbeddedMessageBoxes::ClassOf() { return ServiceClass<View>(kMembers); }

Long EmbeddedMessageBoxes::Show(const std::string& text, Long buttons, const std::string& caption) {
  return Service()->Show(text, buttons, caption);
}

automation::Variant EmbeddedMessageBoxes::Shown() const {
  return Rows(Service()->Shown(), [](const corvane1::ShownBox& box) {
    return Fields{box.text, box.buttons, box.caption};
  });
}

}  // namespace quenzel7::server
