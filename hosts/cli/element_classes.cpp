#include "hosts/cli/element_classes.h"

#include <string>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/user_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "shapes/shape_classes.h"
#include "variables/var_element.h"

namespace quenzel7::cli {

using automation::ClassInfo;

const ElementClasses& ElementClasses::All() {
  static const std::vector<const ClassInfo*> classes = [] {
    const auto shapes = ShapeClasses();
    std::vector<const ClassInfo*> known(shapes.begin(), shapes.end());
    known.push_back(&clsVar::ClassOf());
    return known;
  }();
  static const ElementClasses all(classes);
  return all;
}

const ClassInfo& ElementClasses::Named(std::string_view name) const {
  std::vector<std::string_view> names;
  for (const ClassInfo* known : classes_) {
    if (automation::EqualFolded(known->name, name)) return *known;
    names.push_back(known->name);
  }
  throw UserError("class " + Quoted(name) + " does not exist; nearest is " +
                  Quoted(automation::NearestName(name, names)));
}

const ClassInfo* ElementClasses::OfType(Long elementType) const {
  for (const ClassInfo* known : classes_) {
    const ElementRef fresh = Create(*known);
    const auto type = Read(*fresh, "ElementType");
    if (automation::To<Long>(type) == elementType) return known;
  }
  return nullptr;
}

ElementRef ElementClasses::Create(const ClassInfo& elementClass) {
  return automation::To<ElementRef>(elementClass.create());
}

}  // namespace quenzel7::cli
