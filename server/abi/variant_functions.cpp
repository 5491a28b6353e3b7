#include "server/abi/variant_functions.h"

#include "server/abi/cell_kind.h"
#include "server/abi/safe_array.h"

namespace quenzel7::server {
namespace {

bool OwnsArray(const VARIANT& value) {
  return (value.vt & VT_ARRAY) != 0 && (value.vt & VT_BYREF) == 0 && value.value.parray != nullptr;
}

/// A copy that owns its contents, of a value of a known kind.
HRESULT MakeCopy(const VARIANT& from, VARIANT& copy) {
  copy = from;
  if (OwnsArray(from)) return SafeArrayCopy(from.value.parray, &copy.value.parray);
  // Of what is behind a pointer and of what is no cell there is nothing to own.
  const CellKind* const kind = FindCellKind(from.vt);
  return kind != nullptr ? CopyCell(*kind, &from.value, &copy.value) : S_OK;
}

}  // namespace

bool IsKnownKind(VARTYPE kind) {
  const auto base = static_cast<VARTYPE>(kind & ~(VT_ARRAY | VT_BYREF));
  if (FindCellKind(base) != nullptr) return kind != VT_VARIANT;
  if (base == VT_DECIMAL) return (kind & VT_ARRAY) == 0;
  return kind == VT_EMPTY || kind == VT_NULL;
}

bool IsLocked(const VARIANT& value) { return OwnsArray(value) && IsLocked(*value.value.parray); }

}  // namespace quenzel7::server

using namespace quenzel7::server;

void VariantInit(VARIANTARG* value) {
  if (value != nullptr) *value = VARIANT{};
}

HRESULT VariantClear(VARIANTARG* value) {
  if (value == nullptr) return E_INVALIDARG;
  if (!IsKnownKind(value->vt)) return DISP_E_BADVARTYPE;
  if (IsLocked(*value)) return DISP_E_ARRAYISLOCKED;
  // Forgotten before it is freed: an object that goes may look at the value that held it.
  VARIANT old = *value;
  *value = VARIANT{};
  if (OwnsArray(old)) return SafeArrayDestroy(old.value.parray);
  if (const CellKind* const kind = FindCellKind(old.vt)) FreeCell(*kind, &old.value);
  return S_OK;
}

HRESULT VariantCopy(VARIANTARG* to, const VARIANTARG* from) {
  if (to == nullptr || from == nullptr) return E_INVALIDARG;
  if (!IsKnownKind(from->vt)) return DISP_E_BADVARTYPE;
  if (to == from) return S_OK;
  // Copied before `to` is cleared, which may be what keeps `from`.
  VARIANT copy;
  if (const HRESULT result = MakeCopy(*from, copy); FAILED(result)) return result;
  if (const HRESULT result = VariantClear(to); FAILED(result)) {
    VariantClear(&copy);
    return result;
  }
  *to = copy;
  return S_OK;
}
