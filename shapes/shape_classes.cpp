#include "shapes/shape_classes.h"

#include "shapes/rectangle.h"

namespace quenzel7 {

std::span<const automation::ClassInfo* const> ShapeClasses() {
  static const automation::ClassInfo* const classes[] = {&clsRectangle::ClassOf()};
  return classes;
}

}  // namespace quenzel7
