#include "server/abi/cell_kind.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace quenzel7::server {
namespace {

constexpr CellKind kKinds[] = {
    {VT_I2, 2},
    {VT_I4, 4},
    {VT_R4, 4},
    {VT_R8, 8},
    {VT_CY, sizeof(CY)},
    {VT_DATE, 8},
    {VT_BSTR, sizeof(BSTR), FADF_BSTR},
    {VT_DISPATCH, sizeof(IDispatch*), FADF_DISPATCH},
    {VT_ERROR, sizeof(SCODE)},
    {VT_BOOL, sizeof(VARIANT_BOOL)},
    {VT_VARIANT, sizeof(VARIANT), FADF_VARIANT},
    {VT_UNKNOWN, sizeof(IUnknown*), FADF_UNKNOWN},
    {VT_I1, 1},
    {VT_UI1, 1},
    {VT_UI2, 2},
    {VT_UI4, 4},
    {VT_I8, 8},
    {VT_UI8, 8},
    {VT_INT, 4},
    {VT_UINT, 4},
};

template <class Matches>
const CellKind* FirstKind(Matches matches) {
  const auto* found = std::find_if(std::begin(kKinds), std::end(kKinds), matches);
  return found != std::end(kKinds) ? found : nullptr;
}

template <class T>
T Read(const void* cell) {
  T value;
  std::memcpy(&value, cell, sizeof value);
  return value;
}

HRESULT CopyText(const void* from, void* to) {
  auto text = Read<BSTR>(from);
  if (text != nullptr) {
    text = SysAllocStringByteLen(reinterpret_cast<const char*>(text), SysStringByteLen(text));
    if (text == nullptr) return E_OUTOFMEMORY;
  }
  std::memcpy(to, &text, sizeof text);
  return S_OK;
}

HRESULT CopyValue(const void* from, void* to) {
  VARIANT copy = {};
  const HRESULT result = VariantCopy(&copy, static_cast<const VARIANT*>(from));
  if (SUCCEEDED(result)) std::memcpy(to, &copy, sizeof copy);
  return result;
}

template <class Interface>
HRESULT CopyObject(const void* from, void* to) {
  auto* object = Read<Interface*>(from);
  if (object != nullptr) object->lpVtbl->AddRef(object);
  std::memcpy(to, &object, sizeof object);
  return S_OK;
}

template <class Interface>
void FreeObject(const void* cell) {
  auto* object = Read<Interface*>(cell);
  if (object != nullptr) object->lpVtbl->Release(object);
}

}  // namespace

const CellKind* FindCellKind(VARTYPE kind) {
  return FirstKind([kind](const CellKind& each) { return each.kind == kind; });
}

const CellKind* FindOwningKind(USHORT features) {
  return FirstKind([features](const CellKind& each) { return (each.feature & features) != 0; });
}

HRESULT CopyCell(const CellKind& kind, const void* from, void* to) {
  switch (kind.kind) {
    case VT_BSTR:
      return CopyText(from, to);
    case VT_DISPATCH:
      return CopyObject<IDispatch>(from, to);
    case VT_UNKNOWN:
      return CopyObject<IUnknown>(from, to);
    case VT_VARIANT:
      return CopyValue(from, to);
    default:
      std::memcpy(to, from, kind.bytes);
      return S_OK;
  }
}

void FreeCell(const CellKind& kind, void* cell) {
  switch (kind.kind) {
    case VT_BSTR:
      SysFreeString(Read<BSTR>(cell));
      break;
    case VT_DISPATCH:
      FreeObject<IDispatch>(cell);
      break;
    case VT_UNKNOWN:
      FreeObject<IUnknown>(cell);
      break;
    case VT_VARIANT:
      VariantClear(static_cast<VARIANT*>(cell));
      break;
    default:
      break;
  }
}

}  // namespace quenzel7::server
