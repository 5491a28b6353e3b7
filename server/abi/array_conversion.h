#pragma once

#include "platform/automation/array.h"
#include "platform/automation/variant.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// How single values go in and out of arrays whose cells are variants; see marshal.h.
struct CellConversion {
  automation::Variant (*from)(const VARIANT&);
  void (*to)(const automation::Variant&, VARIANT&);
};

/// The array with a copy of its cells; numbers of kinds that are not ours become the nearest wider one:
/// signed and unsigned ones of 8 and 16 bits Integer or Long, those of 32 bits Long, dates Double. Error 13
/// for more than two dimensions, no dimension, and cells of other kinds; error 6 for a number that does not
/// fit.
automation::Array FromSafeArray(SAFEARRAY& array, const CellConversion& cells);

/// A new array of the binary interface with a copy of the cells. Throws std::bad_alloc.
SAFEARRAY* ToSafeArray(const automation::Array& array, const CellConversion& cells);

}  // namespace quenzel7::server
