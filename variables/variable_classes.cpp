#include "variables/variable_classes.h"

#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"
#include "variables/var_element.h"
#include "variables/var_text_element.h"

namespace quenzel7 {

std::span<const automation::ClassInfo* const> VariableClasses() {
  static const automation::ClassInfo* const classes[] = {
      &clsVar::ClassOf(),          &clsVarTextElement::ClassOf(),  &clsVarBinaryText::ClassOf(),
      &clsVarListText::ClassOf(),  &clsVarNumeric::ClassOf(),      &clsVarBargraph::ClassOf(),
      &clsVarRangeText::ClassOf(), &clsVarDisplayString::ClassOf()};
  return classes;
}

}  // namespace quenzel7
