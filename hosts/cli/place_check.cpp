#include "hosts/cli/place_check.h"

#include <algorithm>
#include <cstdint>

#include "framework/element_types.h"
#include "hosts/cli/drag.h"
#include "hosts/cli/element_calls.h"

namespace quenzel7::cli {
namespace {

using automation::Variant;

std::string Pair(Long first, Long second) {
  return "(" + std::to_string(first) + ", " + std::to_string(second) + ")";
}

/// Whether the pixels from `start` on, `size` of them to the right or, below 0, to the left, all lie outside
/// of 0 to limit - 1.
bool AllOutside(Long start, Long size, Long limit) {
  std::int64_t first = start;
  std::int64_t last = first + size - (size > 0) + (size < 0);
  if (first > last) std::swap(first, last);
  return last < 0 || first >= limit;
}

enCollisionStatus StateOf(ItfHmiElement& element, Variant& map) {
  try {
    return automation::To<enCollisionStatus>(CallInPlace(element, "GetTransformState", {&map, 1}));
  } catch (const automation::AutomationError& error) {
    // A corner that does not fit a number lies outside of every page.
    if (error.Code() != automation::ErrorNumber::Overflow) throw;
    return eCS_OutOfRAnge;
  }
}

}  // namespace

std::string PlaceCheck::Check(ItfHmiElement& element, const std::optional<Panel>& panel) {
  const Long type = automation::To<Long>(Read(element, "ElementType"));
  if (type == kGroupElement) return {};
  const auto [width, height] =
      panel ? std::pair(panel->width, panel->height) : std::pair(kLargestPanel, kLargestPanel);
  const auto [map, isNew] = maps_.try_emplace({width, height});
  if (isNew) map->second = FreeMap(width, height);
  const enCollisionStatus state = StateOf(element, map->second);
  const auto [xs, ys, dx, dy] = BoundsOf(element);
  if (state == eCS_OutOfRAnge && panel) {
    const bool wholly = AllOutside(xs, dx, width) || AllOutside(ys, dy, height);
    return std::string("lies ") + (wholly ? "wholly" : "partly") + " off the page, at " + Pair(xs, ys) +
           " with size " + Pair(dx, dy) + "; a place on " + std::to_string(width) + " by " +
           std::to_string(height) + " pixels was expected";
  }
  if (state == eCS_Overlap) {
    return "has size " + Pair(dx, dy) + "; " +
           (type == kLineElement ? "another one than (0, 0)" : "a width and a height other than 0") +
           " was expected";
  }
  return {};
}

}  // namespace quenzel7::cli
