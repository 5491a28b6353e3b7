#include "shapes/shape_classes.h"

#include "shapes/bitmap.h"
#include "shapes/button.h"
#include "shapes/ellipse.h"
#include "shapes/frame.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "shapes/text.h"

namespace quenzel7 {

std::span<const automation::ClassInfo* const> ShapeClasses() {
  static const automation::ClassInfo* const classes[] = {
      &clsRectangle::ClassOf(), &clsEllipse::ClassOf(), &clsRoundRect::ClassOf(),
      &clsLine::ClassOf(),      &clsText::ClassOf(),    &clsBitmap::ClassOf(),
      &clsButton::ClassOf(),    &clsFrame::ClassOf(),   &clsGroup::ClassOf()};
  return classes;
}

}  // namespace quenzel7
