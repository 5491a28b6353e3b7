#include "server/abi/safe_array.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

#include "server/abi/cell_kind.h"
#include "server/abi/variant_functions.h"

namespace quenzel7::server {
namespace {

constexpr std::size_t kBefore = 16;
constexpr UINT kMostDimensions = std::numeric_limits<USHORT>::max();
constexpr std::size_t kMostBytes = std::numeric_limits<std::uint32_t>::max();

/// Memory of zeros, or null.
char* Zeros(std::size_t bytes) {
  void* memory = ::operator new(bytes, std::nothrow);
  return memory != nullptr ? static_cast<char*>(std::memset(memory, 0, bytes)) : nullptr;
}

/// The kind of the cells; nullptr for an array that does not tell it.
const CellKind* KindOf(const SAFEARRAY& array) {
  if ((array.fFeatures & FADF_HAVEVARTYPE) == 0) return FindOwningKind(array.fFeatures);
  std::uint32_t kind;
  std::memcpy(&kind, reinterpret_cast<const char*>(&array) - sizeof kind, sizeof kind);
  return FindCellKind(static_cast<VARTYPE>(kind));
}

const SAFEARRAYBOUND* BoundsOf(const SAFEARRAY& array) { return array.rgsabound; }
SAFEARRAYBOUND* BoundsOf(SAFEARRAY& array) { return array.rgsabound; }

LONG UpperBound(const SAFEARRAYBOUND& bound) {
  return static_cast<LONG>(std::int64_t{bound.lLbound} + bound.cElements - 1);
}

bool HasUpperBound(const SAFEARRAYBOUND& bound) {
  return UpperBound(bound) == std::int64_t{bound.lLbound} + bound.cElements - 1;
}

char* CellAt(const SAFEARRAY& array, std::size_t place) {
  return static_cast<char*>(array.pvData) + place * array.cbElements;
}

void FreeMemory(SAFEARRAY* array) {
  ::operator delete(array->pvData);
  ::operator delete(reinterpret_cast<char*>(array) - kBefore);
}

/// An array without bounds and cells, or null.
SAFEARRAY* MakeDescriptor(const CellKind& kind, std::size_t dimensions) {
  const std::size_t bytes = sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
  char* const block = Zeros(kBefore + bytes);
  if (block == nullptr) return nullptr;
  const std::uint32_t number = kind.kind;
  std::memcpy(block + kBefore - sizeof number, &number, sizeof number);
  auto* array = reinterpret_cast<SAFEARRAY*>(block + kBefore);
  array->cDims = static_cast<USHORT>(dimensions);
  array->fFeatures = FADF_HAVEVARTYPE | kind.feature;
  array->cbElements = kind.bytes;
  return array;
}

/// Gives the array cells of zeros, or frees it when there is no room for them.
SAFEARRAY* WithCells(SAFEARRAY* array) {
  // No more than 2^32 cells are counted, so that this cannot overflow.
  const std::size_t bytes = CellCount(*array) * array->cbElements;
  array->pvData = bytes <= kMostBytes ? Zeros(bytes) : nullptr;
  if (array->pvData != nullptr) return array;
  FreeMemory(array);
  return nullptr;
}

/// Fills new cells with copies. Those behind one that fails stay zeros.
HRESULT CopyCells(const CellKind& kind, const SAFEARRAY& from, SAFEARRAY& to) {
  const std::size_t count = CellCount(from);
  if (kind.feature == 0) {
    std::memcpy(to.pvData, from.pvData, count * kind.bytes);
    return S_OK;
  }
  for (std::size_t i = 0; i < count; ++i) {
    const HRESULT result = CopyCell(kind, CellAt(from, i), CellAt(to, i));
    if (FAILED(result)) return result;
  }
  return S_OK;
}

/// The cell of those indices; nullptr when one lies outside.
char* FindCell(const SAFEARRAY& array, const LONG* indices) {
  std::size_t place = 0;
  for (int i = 0; i < array.cDims; ++i) {
    const SAFEARRAYBOUND& bound = BoundsOf(array)[i];
    const std::int64_t index = std::int64_t{indices[array.cDims - 1 - i]} - bound.lLbound;
    if (index < 0 || index >= bound.cElements) return nullptr;
    place = place * bound.cElements + static_cast<std::size_t>(index);
  }
  return CellAt(array, place);
}

/// The bound of a dimension from 1; nullptr when the array has no such dimension.
const SAFEARRAYBOUND* FindBound(const SAFEARRAY& array, UINT dimension) {
  if (dimension < 1 || dimension > array.cDims) return nullptr;
  return BoundsOf(array) + (array.cDims - dimension);
}

bool IsPassedItself(VARTYPE kind) { return kind == VT_BSTR || kind == VT_DISPATCH || kind == VT_UNKNOWN; }

}  // namespace

bool IsLocked(const SAFEARRAY& array) {
  if (array.cLocks != 0) return true;
  if ((array.fFeatures & FADF_VARIANT) == 0) return false;
  const auto* values = static_cast<const VARIANT*>(array.pvData);
  return std::any_of(values, values + CellCount(array), [](const VARIANT& value) { return IsLocked(value); });
}

std::size_t CellCount(const SAFEARRAY& array) {
  std::size_t count = 1;
  for (int i = 0; i < array.cDims; ++i)
    count = std::min(count * BoundsOf(array)[i].cElements, kMostBytes + 1);
  return count;
}

}  // namespace quenzel7::server

using namespace quenzel7::server;

SAFEARRAY* SafeArrayCreate(VARTYPE cells, UINT dimensions, SAFEARRAYBOUND* bounds) {
  const CellKind* const kind = FindCellKind(cells);
  if (kind == nullptr || dimensions < 1 || dimensions > kMostDimensions || bounds == nullptr) return nullptr;
  if (!std::all_of(bounds, bounds + dimensions, HasUpperBound)) return nullptr;
  SAFEARRAY* const array = MakeDescriptor(*kind, dimensions);
  if (array == nullptr) return nullptr;
  std::reverse_copy(bounds, bounds + dimensions, BoundsOf(*array));
  return WithCells(array);
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE cells, LONG lowerBound, ULONG count) {
  SAFEARRAYBOUND bound = {count, lowerBound};
  SAFEARRAY* const array = SafeArrayCreate(cells, 1, &bound);
  if (array != nullptr) array->fFeatures |= FADF_FIXEDSIZE;
  return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
  if (array == nullptr) return E_INVALIDARG;
  if (IsLocked(*array)) return DISP_E_ARRAYISLOCKED;
  if (const CellKind* const kind = FindOwningKind(array->fFeatures)) {
    const std::size_t count = CellCount(*array);
    for (std::size_t i = 0; i < count; ++i) FreeCell(*kind, CellAt(*array, i));
  }
  FreeMemory(array);
  return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) {
  if (copy == nullptr) return E_INVALIDARG;
  *copy = nullptr;
  if (array == nullptr) return E_INVALIDARG;
  const CellKind* const kind = KindOf(*array);
  if (kind == nullptr) return E_INVALIDARG;
  // One of its own: neither locked nor of fixed size, whatever the other is.
  SAFEARRAY* made = MakeDescriptor(*kind, array->cDims);
  if (made == nullptr) return E_OUTOFMEMORY;
  std::copy_n(BoundsOf(*array), array->cDims, BoundsOf(*made));
  made = WithCells(made);
  if (made == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = CopyCells(*kind, *array, *made);
  if (SUCCEEDED(result)) {
    *copy = made;
  } else {
    SafeArrayDestroy(made);
  }
  return result;
}

UINT SafeArrayGetDim(SAFEARRAY* array) { return array != nullptr ? array->cDims : 0; }

UINT SafeArrayGetElemsize(SAFEARRAY* array) { return array != nullptr ? array->cbElements : 0; }

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* cells) {
  if (array == nullptr || cells == nullptr) return E_INVALIDARG;
  const CellKind* const kind = KindOf(*array);
  if (kind == nullptr) return E_INVALIDARG;
  *cells = kind->kind;
  return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  const SAFEARRAYBOUND* const found = FindBound(*array, dimension);
  if (found == nullptr) return DISP_E_BADINDEX;
  *bound = found->lLbound;
  return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  const SAFEARRAYBOUND* const found = FindBound(*array, dimension);
  if (found == nullptr) return DISP_E_BADINDEX;
  *bound = UpperBound(*found);
  return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** cells) {
  if (array == nullptr || cells == nullptr) return E_INVALIDARG;
  if (array->cLocks == std::numeric_limits<ULONG>::max()) return E_UNEXPECTED;
  ++array->cLocks;
  *cells = array->pvData;
  return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) {
  if (array == nullptr) return E_INVALIDARG;
  if (array->cLocks == 0) return E_UNEXPECTED;
  --array->cLocks;
  return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* cell) {
  if (array == nullptr || indices == nullptr || cell == nullptr) return E_INVALIDARG;
  const CellKind* const kind = KindOf(*array);
  if (kind == nullptr) return E_INVALIDARG;
  const char* const found = FindCell(*array, indices);
  return found != nullptr ? CopyCell(*kind, found, cell) : DISP_E_BADINDEX;
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* cell) {
  if (array == nullptr || indices == nullptr) return E_INVALIDARG;
  const CellKind* const kind = KindOf(*array);
  if (kind == nullptr) return E_INVALIDARG;
  const void* const source = IsPassedItself(kind->kind) ? &cell : cell;
  if (source == nullptr) return E_INVALIDARG;
  char* const found = FindCell(*array, indices);
  if (found == nullptr) return DISP_E_BADINDEX;
  if (kind->kind == VT_VARIANT)
    return VariantCopy(reinterpret_cast<VARIANT*>(found), static_cast<const VARIANT*>(source));
  LONGLONG fresh, old;
  if (const HRESULT result = CopyCell(*kind, source, &fresh); FAILED(result)) return result;
  // Freed last: an object that goes may look at the array that held it.
  std::memcpy(&old, found, kind->bytes);
  std::memcpy(found, &fresh, kind->bytes);
  FreeCell(*kind, &old);
  return S_OK;
}
