#include "framework/values.h"

#include "platform/automation/convert.h"

namespace quenzel7 {

Long NullToZero(const automation::Variant& value) { return value.IsNull() ? 0 : automation::To<Long>(value); }

void ClearCollection(const automation::CollectionRef& collection) {
  if (!collection) return;
  while (collection->Count() > 0) collection->Remove(1);
}

}  // namespace quenzel7
