#include "hosts/cli/drag.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/array.h"

namespace quenzel7::cli {
namespace {

using automation::Add;
using automation::Subtract;
using automation::To;
using automation::Variant;

/// The lower and the higher end of a side that may have a negative length.
std::pair<Long, Long> Ends(Long start, Long length) { return std::minmax({start, Add(start, length)}); }

/// Where an element is at rest. A group does not tell its place: it is the box around its members, which for
/// lines may have negative sizes.
Descriptor AtRest(ItfHmiElement& element) {
  if (!IsGroup(element)) return BoundsOf(element);
  std::optional<std::array<Long, 4>> box;
  WalkElement(element, [&box](ItfHmiElement& member) {
    if (IsGroup(member)) return;
    const auto [xs, ys, dx, dy] = BoundsOf(member);
    const auto [left, right] = Ends(xs, dx);
    const auto [top, bottom] = Ends(ys, dy);
    if (!box) box = {left, top, right, bottom};
    *box = {std::min((*box)[0], left), std::min((*box)[1], top), std::max((*box)[2], right),
            std::max((*box)[3], bottom)};
  });
  if (!box) return {};
  const auto [left, top, right, bottom] = *box;
  return {left, top, Subtract(right, left), Subtract(bottom, top)};
}

}  // namespace

Variant FreeMap(Long width, Long height) {
  return automation::Array(automation::VariantKind::Byte, {0, width}, {0, height});
}

DragResult PerformDrag(ItfHmiElement& element, const Drag& drag, Variant& map) {
  DragResult result;
  result.before = AtRest(element);
  Call(element, "SaveInitialPosition");
  // To make a picture at another size takes long, and costs quality each time.
  const bool isPicture = element.Class().Default().Find("ResizeImageEx") != nullptr;
  const bool isBounded = isPicture && drag.handle != ePD_None;
  for (const Drag::Step& step : drag.steps) {
    if (isBounded) {
      Call(element, "UpdateBoundingRectangle", {step.dx, step.dy, Long{drag.handle}});
      if (&step != &drag.steps.back()) continue;
    }
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
      // The bounds are the old ones again, and so becomes the picture.
      if (isBounded) Call(element, "Stretch", {Long{0}, Long{0}, Long{drag.handle}});
    }
  }
  Call(element, "UpdateInitialDescriptor");
  result.after = AtRest(element);
  return result;
}

}  // namespace quenzel7::cli
