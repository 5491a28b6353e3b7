#include "server/marshal.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/automation/enumerator.h"
#include "server/abi/array_conversion.h"
#include "server/abi/bstr.h"
#include "server/abi/variant_functions.h"
#include "server/apartment.h"
#include "server/foreign_object.h"
#include "server/results.h"
#include "server/services/late_object.h"
#include "server/stub.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::ObjectRef;
using automation::Variant;
using automation::VariantKind;

constexpr CellConversion kCells = {&FromVariant, &ToVariant};

std::string KindText(VARTYPE kind) { return "kind " + std::to_string(kind); }

[[noreturn]] void RaiseUnsupported(VARTYPE kind) {
  throw AutomationError(ErrorNumber::UnsupportedKind, "values of " + KindText(kind) + " are not known here");
}

template <class Number>
Variant LongOf(Number number) {
  if (number < std::numeric_limits<Long>::min() || number > std::numeric_limits<Long>::max()) {
    throw AutomationError(ErrorNumber::Overflow, std::to_string(number) + " does not fit 32 bits");
  }
  return static_cast<Long>(number);
}

Variant LongOfUnsigned(std::uint64_t number) {
  if (number > static_cast<std::uint64_t>(std::numeric_limits<Long>::max())) {
    throw AutomationError(ErrorNumber::Overflow, std::to_string(number) + " does not fit 32 bits");
  }
  return static_cast<Long>(number);
}

Variant FromObject(IUnknown* object) {
  if (!object) return ObjectRef();
  if (Stub* stub = StubOf(object)) {
    if (!stub->Owner().IsCurrent()) {
      throw AutomationError(ErrorNumber::TypeMismatch, "an object of another thread was given");
    }
    return stub->Object();
  }
  IDispatch* dispatch = nullptr;
  const HRESULT result =
      object->lpVtbl->QueryInterface(object, &IID_IDispatch, reinterpret_cast<void**>(&dispatch));
  if (FAILED(result) || !dispatch) {
    throw AutomationError(ErrorNumber::TypeMismatch, "an object without a dispatch interface was given");
  }
  // The new object has a reference of its own.
  struct Releaser {
    IDispatch* dispatch;
    ~Releaser() { dispatch->lpVtbl->Release(dispatch); }
  } const releaser{dispatch};
  return Apartment::Current().Import(dispatch);
}

/// How deep the arrays are that are being taken, one in a cell of another.
thread_local int arrayDepth = 0;

/// Arrays nest at most this deep: one that holds itself has no end.
constexpr int kDeepest = 16;

/// An array; one that has no memory yet has no cells.
Variant FromArray(SAFEARRAY* array, VARTYPE cells) {
  if (!array) return automation::Array::OfSize(static_cast<VariantKind>(cells), 0);
  struct Deeper {
    Deeper() { ++arrayDepth; }
    ~Deeper() { --arrayDepth; }
  } const deeper;
  if (arrayDepth > kDeepest) throw AutomationError(ErrorNumber::TypeMismatch, "arrays are nested too deep");
  return FromSafeArray(*array, kCells);
}

/// A VARIANT that is referred to may refer to a place itself, but not to a further VARIANT.
const VARIANT& ReferredTo(const VARIANT& value) {
  if (value.vt == (VT_BYREF | VT_VARIANT)) {
    throw AutomationError(ErrorNumber::TypeMismatch, "a reference to a reference was given");
  }
  return value;
}

/// The value that `value` would refer to, `place` being where it is.
Variant FromPlace(VARTYPE kind, const void* place) {
  VARIANT value;
  value.vt = kind;
  value.value.llVal = 0;
  switch (kind) {
    case VT_VARIANT:
      return FromVariant(ReferredTo(*static_cast<const VARIANT*>(place)));
    case VT_I1:
    case VT_UI1:
      std::memcpy(&value.value, place, 1);
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      std::memcpy(&value.value, place, 2);
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      std::memcpy(&value.value, place, 4);
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      std::memcpy(&value.value, place, 8);
      break;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      std::memcpy(&value.value, place, sizeof(void*));
      break;
    default:
      if ((kind & VT_ARRAY) == 0) RaiseUnsupported(kind);
      std::memcpy(&value.value, place, sizeof(void*));
  }
  return FromVariant(value);
}

/// The kind of the binary interface that carries a kind of ours.
VARTYPE KindOf(VariantKind kind) { return static_cast<VARTYPE>(kind); }

/// An array that the host has locked cannot make room for another one.
void RequireUnlocked(const VARIANT& old) {
  if (IsLocked(old)) throw AutomationError(kArrayIsLocked, "the array that was there is locked");
}

/// Moves a value of the interface into a place of just its kind, from which it is freed first.
void MoveInto(void* place, VARIANT& value) {
  VARIANT old;
  old.vt = value.vt;
  std::memcpy(&old.value, place, sizeof(void*));
  RequireUnlocked(old);
  std::memcpy(place, &value.value, sizeof(void*));
  VariantClear(&old);
}

}  // namespace

Variant FromVariant(const VARIANT& value) {
  const auto& held = value.value;
  if (value.vt & VT_BYREF) {
    if (!held.byref) throw AutomationError(ErrorNumber::TypeMismatch, "a reference to nothing was given");
    return FromPlace(static_cast<VARTYPE>(value.vt & ~VT_BYREF), held.byref);
  }
  if (value.vt & VT_ARRAY) return FromArray(held.parray, static_cast<VARTYPE>(value.vt & ~VT_ARRAY));
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return automation::NullValue{};
    case VT_I2:
      return Integer{held.iVal};
    case VT_I4:
    case VT_INT:
      return Long{held.lVal};
    case VT_R4:
      return held.fltVal;
    case VT_R8:
    case VT_DATE:
      return held.dblVal;
    case VT_CY:
      return Currency{held.cyVal.int64};
    case VT_BSTR:
      return FromBstr(held.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return FromObject(held.punkVal);
    case VT_BOOL:
      return held.boolVal != VARIANT_FALSE;
    case VT_I1:
      return Integer{held.cVal};
    case VT_UI1:
      return Byte{held.bVal};
    case VT_UI2:
      return Long{held.uiVal};
    case VT_UI4:
    case VT_UINT:
      return LongOfUnsigned(held.ulVal);
    case VT_I8:
      return LongOf(held.llVal);
    case VT_UI8:
      return LongOfUnsigned(held.ullVal);
    default:
      RaiseUnsupported(value.vt);
  }
}

void ToVariant(const Variant& value, VARIANT& place) {
  VARIANT made;
  std::memset(&made, 0, sizeof made);
  made.vt = KindOf(value.Kind());
  auto& held = made.value;
  switch (value.Kind()) {
    case VariantKind::Empty:
    case VariantKind::Null:
    case VariantKind::Variant:
      break;
    case VariantKind::Integer:
      held.iVal = *value.If<Integer>();
      break;
    case VariantKind::Long:
      held.lVal = *value.If<Long>();
      break;
    case VariantKind::Single:
      held.fltVal = *value.If<Single>();
      break;
    case VariantKind::Double:
      held.dblVal = *value.If<Double>();
      break;
    case VariantKind::Currency:
      held.cyVal.int64 = value.If<Currency>()->tenThousandths;
      break;
    case VariantKind::String:
      held.bstrVal = ToBstr(value.Text());
      break;
    case VariantKind::Object: {
      const ObjectRef object = HostObjectOf(value.Object());
      if (!object) break;
      if (const auto* foreign = ForeignObject::Of(*object)) {
        held.pdispVal = foreign->NewReference();
        break;
      }
      held.pdispVal = Apartment::Current().Hold(object)->Default();
      if (dynamic_cast<const automation::Enumerator*>(object.get())) made.vt = VT_UNKNOWN;
      break;
    }
    case VariantKind::Boolean:
      held.boolVal = *value.If<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case VariantKind::Byte:
      held.bVal = *value.If<Byte>();
      break;
    case VariantKind::Array:
      held.parray = ToSafeArray(value.Elements(), kCells);
      made.vt = static_cast<VARTYPE>(VT_ARRAY | KindOf(value.Elements().ElementKind()));
      break;
  }
  place = made;
}

bool IsPlaceFor(const VARIANT& reference, const automation::TypeInfo& type) {
  const auto kind = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
  if (kind == VT_VARIANT) {
    const VARIANT* const variant = reference.value.pvarVal;
    return !variant || !(variant->vt & VT_BYREF) || IsPlaceFor(*variant, type);
  }
  if (type.kind == VariantKind::Variant) return true;
  switch (type.kind) {
    case VariantKind::Array:
      return kind == (VT_ARRAY | KindOf(type.cells));
    case VariantKind::Long:
      return kind == VT_I4 || kind == VT_INT;
    case VariantKind::Object:
      return kind == VT_DISPATCH || kind == VT_UNKNOWN;
    default:
      return kind == KindOf(type.kind);
  }
}

void WriteBack(const Variant& value, const VARIANT& reference) {
  void* place = reference.value.byref;
  auto kind = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
  if (kind == VT_VARIANT) {
    VARIANT& variant = *static_cast<VARIANT*>(place);
    if (variant.vt & VT_BYREF) return WriteBack(value, variant);
    RequireUnlocked(variant);
    VARIANT made;
    ToVariant(value, made);
    VARIANT old = variant;
    variant = made;
    VariantClear(&old);
    return;
  }
  if (kind == VT_INT) kind = VT_I4;
  VARIANT made;
  ToVariant(value, made);
  if (made.vt != kind && !(made.vt == VT_DISPATCH && kind == VT_UNKNOWN)) {
    VariantClear(&made);
    throw AutomationError(
        ErrorNumber::TypeMismatch,
        std::string(KindName(value.Kind())) + " cannot be written back where " + KindText(kind) + " is");
  }
  switch (kind) {
    case VT_UI1:
      std::memcpy(place, &made.value, 1);
      break;
    case VT_I2:
    case VT_BOOL:
      std::memcpy(place, &made.value, 2);
      break;
    case VT_I4:
    case VT_R4:
      std::memcpy(place, &made.value, 4);
      break;
    case VT_R8:
    case VT_CY:
      std::memcpy(place, &made.value, 8);
      break;
    default:
      try {
        MoveInto(place, made);
      } catch (...) {
        VariantClear(&made);
        throw;
      }
  }
}

}  // namespace quenzel7::server
