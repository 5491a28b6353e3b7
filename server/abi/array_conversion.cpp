#include "server/abi/array_conversion.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "platform/automation/automation_error.h"
#include "server/abi/bstr.h"
#include "server/abi/cell_kind.h"
#include "server/abi/safe_array.h"

namespace quenzel7::server {
namespace {

using automation::Array;
using automation::AutomationError;
using automation::BooleanCell;
using automation::Bounds;
using automation::ErrorNumber;
using automation::Variant;
using automation::VariantKind;

/// Keeps an array from being destroyed.
class HeldArray {
 public:
  explicit HeldArray(SAFEARRAY& array) : array_(array) {
    void* cells = nullptr;
    // Fails only where so many hold the array that one more makes no difference.
    isHeld_ = SUCCEEDED(SafeArrayAccessData(&array, &cells));
  }
  ~HeldArray() {
    if (isHeld_) SafeArrayUnaccessData(&array_);
  }
  HeldArray(const HeldArray&) = delete;
  HeldArray& operator=(const HeldArray&) = delete;

 private:
  SAFEARRAY& array_;
  bool isHeld_;
};

struct Destroy {
  void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, Destroy>;

template <class T>
const T* CellsOf(const SAFEARRAY& array) {
  return static_cast<const T*>(array.pvData);
}

template <class T>
T* CellsOf(const OwnedArray& array) {
  return static_cast<T*>(array->pvData);
}

Bounds BoundsOf(SAFEARRAY& array, UINT dimension) {
  Bounds bounds;
  SafeArrayGetLBound(&array, dimension, &bounds.lower);
  SafeArrayGetUBound(&array, dimension, &bounds.upper);
  return bounds;
}

/// Hosts may make arrays without our help: error 13 for one whose head does not tell what its cells are.
void RequireSound(const SAFEARRAY& array, VARTYPE kind) {
  const CellKind* const cells = FindCellKind(kind);
  const bool isSound = (!cells || array.cbElements == cells->bytes) &&
                       (array.pvData || array.cDims == 0 || CellCount(array) == 0);
  if (!isSound)
    throw AutomationError(ErrorNumber::TypeMismatch, "the cells of an array are not where it says");
}

/// An array of that kind with the bounds of the other.
Array Shaped(VariantKind kind, SAFEARRAY& array) {
  if (array.cDims == 1) return Array(kind, BoundsOf(array, 1));
  if (array.cDims == 2) return Array(kind, BoundsOf(array, 1), BoundsOf(array, 2));
  throw AutomationError(ErrorNumber::TypeMismatch,
                        "an array has one or two dimensions, not " + std::to_string(array.cDims));
}

/// An array whose cells of type T are made one by one of those of type Published.
template <class T, class Published, class Make>
Array Made(VariantKind kind, SAFEARRAY& array, Make make) {
  Array result = Shaped(kind, array);
  const auto* from = CellsOf<Published>(array);
  for (T& cell : result.Cells<T>()) cell = make(*from++);
  return result;
}

/// The same of cells of one layout, as one block.
template <class T>
Array Copied(VariantKind kind, SAFEARRAY& array) {
  Array result = Shaped(kind, array);
  const auto cells = result.Cells<T>();
  if (!cells.empty()) std::memcpy(cells.data(), array.pvData, cells.size_bytes());
  return result;
}

template <class T, class Published>
Array Widened(VariantKind kind, SAFEARRAY& array) {
  return Made<T, Published>(kind, array, [kind](Published number) {
    if (!std::in_range<T>(number)) {
      throw AutomationError(ErrorNumber::Overflow,
                            std::to_string(number) + " does not fit a cell of " + automation::KindName(kind));
    }
    return static_cast<T>(number);
  });
}

/// An array of objects as one of variants.
template <class Interface>
Array OfObjects(VARTYPE kind, SAFEARRAY& array, const CellConversion& cells) {
  return Made<Variant, Interface*>(VariantKind::Variant, array, [&](Interface* object) {
    VARIANT value = {};
    value.vt = kind;
    value.value.byref = object;
    return cells.from(value);
  });
}

template <class T>
void CopyCells(const Array& from, const OwnedArray& to) {
  const auto cells = from.Cells<T>();
  if (!cells.empty()) std::memcpy(to->pvData, cells.data(), cells.size_bytes());
}

OwnedArray MakeShaped(const Array& array) {
  SAFEARRAYBOUND bounds[2];
  for (int i = 0; i < array.Dimensions(); ++i) {
    const Long lower = array.LowerBound(i + 1);
    bounds[i] = {static_cast<ULONG>(std::int64_t{array.UpperBound(i + 1)} - lower + 1), lower};
  }
  // The kinds of cells have the numbers of the binary interface.
  OwnedArray made(SafeArrayCreate(static_cast<VARTYPE>(array.ElementKind()),
                                  static_cast<UINT>(array.Dimensions()), bounds));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

static_assert(sizeof(Currency) == sizeof(CY));
static_assert(sizeof(BooleanCell) == sizeof(VARIANT_BOOL));

}  // namespace

Array FromSafeArray(SAFEARRAY& array, const CellConversion& cells) {
  const HeldArray held(array);
  VARTYPE kind = VT_EMPTY;
  SafeArrayGetVartype(&array, &kind);
  RequireSound(array, kind);
  switch (kind) {
    case VT_UI1:
      return Copied<Byte>(VariantKind::Byte, array);
    case VT_I2:
      return Copied<Integer>(VariantKind::Integer, array);
    case VT_I4:
    case VT_INT:
      return Copied<Long>(VariantKind::Long, array);
    case VT_R4:
      return Copied<Single>(VariantKind::Single, array);
    case VT_R8:
    case VT_DATE:
      return Copied<Double>(VariantKind::Double, array);
    case VT_CY:
      return Copied<Currency>(VariantKind::Currency, array);
    case VT_I1:
      return Widened<Integer, std::int8_t>(VariantKind::Integer, array);
    case VT_UI2:
      return Widened<Long, USHORT>(VariantKind::Long, array);
    case VT_UI4:
    case VT_UINT:
      return Widened<Long, ULONG>(VariantKind::Long, array);
    case VT_BOOL:
      return Made<BooleanCell, VARIANT_BOOL>(VariantKind::Boolean, array, [](VARIANT_BOOL value) {
        return BooleanCell{value != VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE};
      });
    case VT_BSTR:
      return Made<std::string, BSTR>(VariantKind::String, array, FromBstr);
    case VT_VARIANT:
      return Made<Variant, VARIANT>(VariantKind::Variant, array, cells.from);
    case VT_DISPATCH:
      return OfObjects<IDispatch>(VT_DISPATCH, array, cells);
    case VT_UNKNOWN:
      return OfObjects<IUnknown>(VT_UNKNOWN, array, cells);
    default:
      throw AutomationError(ErrorNumber::TypeMismatch,
                            "an array cannot hold cells of kind " + std::to_string(kind));
  }
}

SAFEARRAY* ToSafeArray(const Array& array, const CellConversion& cells) {
  OwnedArray made = MakeShaped(array);
  switch (array.ElementKind()) {
    case VariantKind::Byte:
      CopyCells<Byte>(array, made);
      break;
    case VariantKind::Integer:
      CopyCells<Integer>(array, made);
      break;
    case VariantKind::Long:
      CopyCells<Long>(array, made);
      break;
    case VariantKind::Single:
      CopyCells<Single>(array, made);
      break;
    case VariantKind::Double:
      CopyCells<Double>(array, made);
      break;
    case VariantKind::Currency:
      CopyCells<Currency>(array, made);
      break;
    case VariantKind::Boolean:
      CopyCells<BooleanCell>(array, made);
      break;
    case VariantKind::String:
      std::transform(array.Cells<std::string>().begin(), array.Cells<std::string>().end(),
                     CellsOf<BSTR>(made), ToBstr);
      break;
    default:
      auto* to = CellsOf<VARIANT>(made);
      for (const Variant& cell : array.Cells<Variant>()) cells.to(cell, *to++);
      break;
  }
  return made.release();
}

}  // namespace quenzel7::server
