#pragma once

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Values go over the boundary by copy, objects by reference: one of the library as the face of its default
/// interface, one of the host as what it was.

/// The value of an argument or a result of a host, references followed. Kinds that are not ours become the
/// nearest wider one: whole numbers of any width Integer or Long, dates Double. Errors: 6 for a number that
/// does not fit, 13 for an object that has no dispatch interface or belongs to another thread, and for arrays
/// that the library cannot hold, 458 for any other kind.
automation::Variant FromVariant(const VARIANT& value);

/// The value for a host, who owns it. `place` is written over, whatever it holds. Throws std::bad_alloc.
void ToVariant(const automation::Variant& value, VARIANT& place);

/// Whether a reference that a host passes is to a place of just the kind that a parameter by reference needs,
/// or to a VARIANT, which takes any value.
bool IsPlaceFor(const VARIANT& reference, const automation::TypeInfo& type);

/// Writes a value back into the place that the host refers to and frees what was there. Error 13 when the
/// place cannot take it; it then stays as it is.
void WriteBack(const automation::Variant& value, const VARIANT& reference);

}  // namespace quenzel7::server
