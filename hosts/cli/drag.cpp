#include "hosts/cli/drag.h"

#include "hosts/cli/element_calls.h"
#include "platform/automation/array.h"

namespace quenzel7::cli {
namespace {

using automation::To;
using automation::Variant;

Variant CallInPlace(ItfHmiElement& element, std::string_view method, automation::Arguments arguments) {
  return automation::CallByName(element, ItfHmiElement::InterfaceOf(), method, automation::CallKind::Method,
                                arguments);
}

Descriptor AtRest(ItfHmiElement& element) {
  Variant places[4];
  CallInPlace(element, "GetBoundingRect", places);
  return {To<Long>(places[0]), To<Long>(places[1]), To<Long>(places[2]), To<Long>(places[3])};
}

}  // namespace

Variant FreeMap(const Panel& panel) {
  return automation::Array(automation::VariantKind::Byte, {0, panel.width - 1}, {0, panel.height - 1});
}

DragResult PerformDrag(ItfHmiElement& element, const Drag& drag, Variant& map) {
  DragResult result;
  result.before = AtRest(element);
  Call(element, "SaveInitialPosition");
  for (const Drag::Step& step : drag.steps) {
    if (drag.handle == ePD_None) {
      Call(element, "Move", {step.dx, step.dy});
    } else {
      Call(element, "Stretch", {step.dx, step.dy, Long{drag.handle}});
    }
    result.status = To<enCollisionStatus>(CallInPlace(element, "GetTransformState", {&map, 1}));
    if (result.status == eCS_Legall) {
      Call(element, "SaveLastLegalPosition");
      Call(element, "UpdateDisplayWithTransx");
    } else {
      Call(element, "UpdateDisplayWithLastLegal");
    }
  }
  Call(element, "UpdateInitialDescriptor");
  result.after = AtRest(element);
  return result;
}

}  // namespace quenzel7::cli
