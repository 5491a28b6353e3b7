#pragma once

#include <vector>

#include "framework/element_contract.h"
#include "framework/position.h"
#include "hosts/cli/page_file.h"

namespace quenzel7::cli {

/// A drag of one element, or of a group as one, with the mouse.
struct Drag {
  /// The handle that is dragged; ePD_None moves the element.
  enPickUpDirection handle = ePD_None;
  /// Where the mouse is at each step, from where the drag began, in panel pixels.
  struct Step {
    Long dx, dy;
  };
  std::vector<Step> steps;
};

/// What became of a drag.
struct DragResult {
  /// The status of the last step.
  enCollisionStatus status = eCS_Legall;
  /// Where the element was and is; of a group the box around its members.
  Descriptor before;
  Descriptor after;
};

/// A map for elements to be judged on, all of its cells free. An element's corners are judged with those just
/// beyond its last pixels, so the map has a column and a row beyond the panel's last pixels, too: an element
/// that fills the page stands on it.
automation::Variant FreeMap(Long width, Long height);

/// Drags an element as a host does, by call by name: what a step proposes is shown and accepted when it is
/// legal, else the element stays at its last legal place. A stretched bitmap shows its bounds at each step
/// and is judged where the last one leaves it, as its picture is made anew then; when that is not legal it
/// stays as it was. The element is not saved.
DragResult PerformDrag(ItfHmiElement& element, const Drag& drag, automation::Variant& map);

}  // namespace quenzel7::cli
