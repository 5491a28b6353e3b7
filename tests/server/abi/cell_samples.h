#pragma once

#include "server/quenzel7_automation.h"

namespace quenzel7::test {

/// A kind of cells as automation publishes it.
struct PublishedKind {
  VARTYPE kind;
  ULONG bytes;
  USHORT feature;
};

inline constexpr PublishedKind kPublishedKinds[] = {
    {2, 2, 0},      {3, 4, 0},  {4, 4, 0},  {5, 8, 0},        {6, 8, 0},       {7, 8, 0},  {8, 8, 0x0100},
    {9, 8, 0x0400}, {10, 4, 0}, {11, 2, 0}, {12, 24, 0x0800}, {13, 8, 0x0200}, {16, 1, 0}, {17, 1, 0},
    {18, 2, 0},     {19, 4, 0}, {20, 8, 0}, {21, 8, 0},       {22, 4, 0},      {23, 4, 0},
};

inline VARIANT LongValue(LONG number) {
  VARIANT value = {};
  value.vt = VT_I4;
  value.value.lVal = number;
  return value;
}

/// A value that owns a text of one character.
inline VARIANT TextValue(OLECHAR character) {
  VARIANT value = {};
  value.vt = VT_BSTR;
  value.value.bstrVal = SysAllocStringLen(&character, 1);
  return value;
}

/// A value that owns one of the counts of the object.
inline VARIANT ObjectValue(IDispatch* object) {
  VARIANT value = {};
  value.vt = VT_DISPATCH;
  value.value.pdispVal = object;
  object->lpVtbl->AddRef(object);
  return value;
}

/// A value that owns an array.
inline VARIANT ArrayValue(VARTYPE cells, SAFEARRAY* array) {
  VARIANT value = {};
  value.vt = static_cast<VARTYPE>(VT_ARRAY | cells);
  value.value.parray = array;
  return value;
}

template <class T>
T* CellsOf(SAFEARRAY* array) {
  return static_cast<T*>(array->pvData);
}

}  // namespace quenzel7::test
