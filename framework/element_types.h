#pragma once

#include "platform/automation/types.h"

namespace quenzel7 {

/// The numbers under which projects know the classes of elements: what `ElementType` reads and what stands in
/// an element's row. 9 and 10 belong to no class.
enum ElementTypeNumber : Long {
  kRectangleElement = 1,
  kLineElement = 2,
  kBitmapElement = 3,
  kTextElement = 4,
  kVariableElement = 5,
  kEllipseElement = 6,
  kRoundRectElement = 7,
  kGroupElement = 8,
  kButtonElement = 11,
  kFrameElement = 12,
};

}  // namespace quenzel7
