#pragma once

#include "platform/automation/collection.h"
#include "platform/automation/variant.h"

namespace quenzel7 {

/// 0 for Null, else the value as a 32-bit integer; errors of the conversion.
Long NullToZero(const automation::Variant& value);

/// Takes all items out of a collection, the first one each time; a missing collection is left alone.
void ClearCollection(const automation::CollectionRef& collection);

}  // namespace quenzel7
