#pragma once

#include "platform/automation/array.h"
#include "platform/automation/variant.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// How single values go in and out of arrays whose cells are variants; see marshal.h.
struct CellConversion {
  automation::Variant (*from)(const VARIANT&);
  /// Makes what is VT_EMPTY a value that owns its contents.
  void (*to)(const automation::Variant&, VARIANT&);
};

/// The array with a copy of its cells and the same bounds; numbers of kinds that are not ours become the
/// nearest wider one: signed and unsigned ones of 8 and 16 bits Integer or Long, those of 32 bits Long, dates
/// Double. Any True is -1. Objects become cells of Variant. Error 13 for more than two dimensions, no
/// dimension, and cells of other kinds; error 6 for a number that does not fit; error 7 for more than 2 GiB;
/// what `cells` raises. The array cannot be destroyed while `cells` is asked.
automation::Array FromSafeArray(SAFEARRAY& array, const CellConversion& cells);

/// A new array of the binary interface with a copy of the cells and the same bounds. Throws std::bad_alloc,
/// and what `cells` raises.
SAFEARRAY* ToSafeArray(const automation::Array& array, const CellConversion& cells);

}  // namespace quenzel7::server
