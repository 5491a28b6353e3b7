#include "server/abi/variant_functions.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <set>
#include <vector>

#include "tests/server/abi/cell_samples.h"
#include "tests/support/counted_object.h"
#include "tests/support/failing_memory.h"
#include "tests/support/nothing_left.h"

namespace quenzel7::server {
namespace {

using test::ArrayValue;
using test::CellsOf;
using test::CountedObject;
using test::Failing;
using test::LongValue;
using test::NothingLeft;
using test::ObjectValue;
using test::TextValue;

static_assert(sizeof(VARIANT) == 24);
static_assert(alignof(VARIANT) == 8);
static_assert(offsetof(VARIANT, vt) == 0);
static_assert(offsetof(VARIANT, value) == 8);
static_assert(sizeof(DISPPARAMS) == 24);
static_assert(sizeof(EXCEPINFO) == 64);
static_assert(offsetof(EXCEPINFO, bstrSource) == 8);
static_assert(offsetof(EXCEPINFO, scode) == 56);

VARIANT OfKind(int kind) {
  VARIANT value = {};
  value.vt = static_cast<VARTYPE>(kind);
  return value;
}

/// A value that owns an array of two variants: a text and an array that one can lock.
struct Nested {
  Nested() : value(ArrayValue(VT_VARIANT, SafeArrayCreateVector(VT_VARIANT, 0, 2))) {
    Cells()[0] = TextValue('t');
    Cells()[1] = ArrayValue(VT_I4, SafeArrayCreateVector(VT_I4, 0, 1));
  }
  VARIANT* Cells() { return CellsOf<VARIANT>(value.value.parray); }
  SAFEARRAY* Inner() { return Cells()[1].value.parray; }

  VARIANT value;
};

TEST(VariantFunctions, KindsAreValuesArraysAndWhatPointersLeadTo) {
  const NothingLeft nothingLeft;
  std::set<int> known = {VT_EMPTY, VT_NULL, VT_DECIMAL, VT_BYREF | VT_DECIMAL};
  for (const test::PublishedKind& row : test::kPublishedKinds) {
    if (row.kind != VT_VARIANT) known.insert(row.kind);
    known.insert({VT_ARRAY | row.kind, VT_BYREF | row.kind, VT_BYREF | VT_ARRAY | row.kind});
  }
  for (int kind = 0; kind <= 0xFFFF; ++kind) {
    EXPECT_EQ(IsKnownKind(static_cast<VARTYPE>(kind)), known.count(kind) == 1) << kind;
  }
}

TEST(VariantFunctions, InitMakesAnyMemoryEmpty) {
  const NothingLeft nothingLeft;
  VARIANT value;
  std::memset(&value, 0xFF, sizeof value);
  VariantInit(&value);
  EXPECT_EQ(value.vt, VT_EMPTY);
  EXPECT_EQ(value.wReserved1, 0);
  EXPECT_EQ(value.wReserved2, 0);
  EXPECT_EQ(value.wReserved3, 0);
  EXPECT_EQ(value.value.llVal, 0);
  VariantInit(nullptr);
}

TEST(VariantFunctions, NullPointersAreRefused) {
  const NothingLeft nothingLeft;
  VARIANT value = LongValue(3);
  EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
  EXPECT_EQ(VariantCopy(nullptr, &value), E_INVALIDARG);
  EXPECT_EQ(VariantCopy(&value, nullptr), E_INVALIDARG);
  EXPECT_EQ(value.value.lVal, 3);
}

TEST(VariantFunctions, ClearMakesAValueEmpty) {
  const NothingLeft nothingLeft;
  VARIANT value = LongValue(3);
  EXPECT_EQ(VariantClear(&value), S_OK);
  EXPECT_EQ(value.vt, VT_EMPTY);
  EXPECT_EQ(value.value.llVal, 0);
  EXPECT_EQ(VariantClear(&value), S_OK);
  for (const int kind :
       std::vector<int>{VT_NULL, VT_DECIMAL, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_ARRAY | VT_I4}) {
    VARIANT nothing = OfKind(kind);
    EXPECT_EQ(VariantClear(&nothing), S_OK) << kind;
    EXPECT_EQ(nothing.vt, VT_EMPTY) << kind;
  }
}

TEST(VariantFunctions, ClearFreesWhatTheValueOwns) {
  const NothingLeft nothingLeft;
  VARIANT text = TextValue('t');
  EXPECT_EQ(VariantClear(&text), S_OK);
  EXPECT_EQ(text.value.bstrVal, nullptr);

  CountedObject object;
  VARIANT held = ObjectValue(object.Dispatch());
  EXPECT_EQ(VariantClear(&held), S_OK);
  EXPECT_EQ(object.Held(), 0);
  held = ObjectValue(object.Dispatch());
  held.vt = VT_UNKNOWN;
  EXPECT_EQ(VariantClear(&held), S_OK);
  EXPECT_EQ(object.Held(), 0);

  VARIANT array = ArrayValue(VT_VARIANT, SafeArrayCreateVector(VT_VARIANT, 0, 1));
  *CellsOf<VARIANT>(array.value.parray) = ObjectValue(object.Dispatch());
  EXPECT_EQ(VariantClear(&array), S_OK);
  EXPECT_EQ(array.vt, VT_EMPTY);
  EXPECT_EQ(object.Held(), 0);
}

TEST(VariantFunctions, AnObjectThatGoesFindsTheValueEmpty) {
  const NothingLeft nothingLeft;
  CountedObject object;
  VARIANT value = ObjectValue(object.Dispatch());
  VARTYPE found = VT_DISPATCH;
  object.onRelease = [&] { found = value.vt; };
  VariantClear(&value);
  EXPECT_EQ(found, VT_EMPTY);
}

TEST(VariantFunctions, WhatAPointerLeadsToIsOnlyForgotten) {
  const NothingLeft nothingLeft;
  CountedObject object;
  IDispatch* place = ObjectValue(object.Dispatch()).value.pdispVal;
  VARIANT value = OfKind(VT_BYREF | VT_DISPATCH);
  value.value.ppdispVal = &place;
  EXPECT_EQ(VariantClear(&value), S_OK);
  EXPECT_EQ(value.vt, VT_EMPTY);
  EXPECT_EQ(object.Held(), 1);

  Nested nested;
  value = OfKind(VT_BYREF | VT_ARRAY | VT_VARIANT);
  value.value.pparray = &nested.value.value.parray;
  EXPECT_EQ(VariantClear(&value), S_OK);
  EXPECT_EQ(value.vt, VT_EMPTY);
  EXPECT_EQ(nested.Cells()[0].value.bstrVal[0], 't');
  VariantClear(&nested.value);
}

TEST(VariantFunctions, AnArrayInUseIsKept) {
  const NothingLeft nothingLeft;
  Nested nested;
  SAFEARRAY* const array = nested.value.value.parray;
  void* cells = nullptr;
  for (SAFEARRAY* locked : {array, nested.Inner()}) {
    SafeArrayAccessData(locked, &cells);
    EXPECT_TRUE(IsLocked(nested.value));
    EXPECT_EQ(VariantClear(&nested.value), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(nested.value.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(nested.value.value.parray, array);
    EXPECT_EQ(nested.Cells()[0].value.bstrVal[0], 't');
    SafeArrayUnaccessData(locked);
    EXPECT_FALSE(IsLocked(nested.value));
  }
  EXPECT_EQ(VariantClear(&nested.value), S_OK);
}

TEST(VariantFunctions, AValueOfNoKindIsKept) {
  const NothingLeft nothingLeft;
  for (const int kind :
       std::vector<int>{12, 15, 24, 36, VT_ARRAY, VT_ARRAY | VT_DECIMAL, VT_BYREF, VT_BYREF | VT_NULL}) {
    SCOPED_TRACE(kind);
    VARIANT value = OfKind(kind), other = LongValue(7);
    value.value.llVal = 99;
    EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE);
    EXPECT_EQ(VariantCopy(&other, &value), DISP_E_BADVARTYPE);
    EXPECT_EQ(other.vt, VT_I4);
    EXPECT_EQ(other.value.lVal, 7);
    EXPECT_EQ(VariantCopy(&value, &other), DISP_E_BADVARTYPE);
    EXPECT_EQ(VariantCopy(&value, &value), DISP_E_BADVARTYPE);
    EXPECT_EQ(value.vt, kind);
    EXPECT_EQ(value.value.llVal, 99);
  }
}

TEST(VariantFunctions, CopyTakesAllOfAValueThatOwnsNothing) {
  const NothingLeft nothingLeft;
  VARIANT from, to;
  std::memset(&from, 0x5A, sizeof from);
  for (const int kind : std::vector<int>{VT_EMPTY, VT_NULL, VT_I2, VT_R8, VT_DECIMAL, VT_UINT,
                                         VT_BYREF | VT_BSTR, VT_BYREF | VT_ARRAY | VT_I4}) {
    from.vt = static_cast<VARTYPE>(kind);
    VariantInit(&to);
    EXPECT_EQ(VariantCopy(&to, &from), S_OK) << kind;
    EXPECT_EQ(std::memcmp(&to, &from, sizeof to), 0) << kind;
  }
}

TEST(VariantFunctions, CopyOwnsATextAndAnArrayOfItsOwn) {
  const NothingLeft nothingLeft;
  VARIANT text = TextValue('t'), to = TextValue('u');
  EXPECT_EQ(VariantCopy(&to, &text), S_OK);
  EXPECT_EQ(to.vt, VT_BSTR);
  EXPECT_NE(to.value.bstrVal, text.value.bstrVal);
  EXPECT_EQ(to.value.bstrVal[0], 't');
  VariantClear(&text);

  Nested nested;
  EXPECT_EQ(VariantCopy(&to, &nested.value), S_OK);
  EXPECT_EQ(to.vt, VT_ARRAY | VT_VARIANT);
  ASSERT_NE(to.value.parray, nested.value.value.parray);
  VariantClear(&nested.value);
  EXPECT_EQ(CellsOf<VARIANT>(to.value.parray)[0].value.bstrVal[0], 't');
  VariantClear(&to);
}

TEST(VariantFunctions, CopyOfNoTextNoObjectAndNoArrayIsNone) {
  const NothingLeft nothingLeft;
  for (const int kind : std::vector<int>{VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_ARRAY | VT_BSTR}) {
    const VARIANT from = OfKind(kind);
    VARIANT to = LongValue(3);
    EXPECT_EQ(VariantCopy(&to, &from), S_OK) << kind;
    EXPECT_EQ(to.vt, kind);
    EXPECT_EQ(to.value.byref, nullptr);
  }
}

TEST(VariantFunctions, CopyHoldsTheObjectAndLetsGoWhatWasThere) {
  const NothingLeft nothingLeft;
  CountedObject object, other;
  VARIANT from = ObjectValue(object.Dispatch()), to = ObjectValue(other.Dispatch());
  EXPECT_EQ(VariantCopy(&to, &from), S_OK);
  EXPECT_EQ(to.value.pdispVal, object.Dispatch());
  EXPECT_EQ(object.Held(), 2);
  EXPECT_EQ(other.Held(), 0);
  VariantClear(&to);
  VariantClear(&from);
}

TEST(VariantFunctions, CopyOntoItselfChangesNothing) {
  const NothingLeft nothingLeft;
  CountedObject object;
  VARIANT value = ObjectValue(object.Dispatch());
  object.onRelease = [] { FAIL(); };
  EXPECT_EQ(VariantCopy(&value, &value), S_OK);
  EXPECT_EQ(value.vt, VT_DISPATCH);
  EXPECT_EQ(object.Held(), 1);

  Nested nested;
  SAFEARRAY* const array = nested.value.value.parray;
  void* cells = nullptr;
  SafeArrayAccessData(array, &cells);
  EXPECT_EQ(VariantCopy(&nested.value, &nested.value), S_OK);
  EXPECT_EQ(nested.value.value.parray, array);
  SafeArrayUnaccessData(array);
  VariantClear(&nested.value);
}

TEST(VariantFunctions, AValueCanTakeThePlaceOfTheArrayThatHeldIt) {
  const NothingLeft nothingLeft;
  Nested nested;
  EXPECT_EQ(VariantCopy(&nested.value, &nested.Cells()[0]), S_OK);
  EXPECT_EQ(nested.value.vt, VT_BSTR);
  EXPECT_EQ(nested.value.value.bstrVal[0], 't');
  VariantClear(&nested.value);
}

TEST(VariantFunctions, WhatCannotBeClearedIsKeptAndTheCopyFreed) {
  const NothingLeft nothingLeft;
  CountedObject object;
  VARIANT from = ObjectValue(object.Dispatch());
  Nested nested;
  SAFEARRAY* const array = nested.value.value.parray;
  void* cells = nullptr;
  SafeArrayAccessData(array, &cells);
  EXPECT_EQ(VariantCopy(&nested.value, &from), DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(nested.value.value.parray, array);
  EXPECT_EQ(object.Held(), 1);
  SafeArrayUnaccessData(array);
  VariantClear(&nested.value);
  VariantClear(&from);
}

TEST(VariantFunctions, WithoutRoomNothingIsCopied) {
  const NothingLeft nothingLeft;
  VARIANT text = TextValue('t'), to = TextValue('u');
  Nested nested;
  {
    const Failing failing(0);
    EXPECT_EQ(VariantCopy(&to, &text), E_OUTOFMEMORY);
  }
  // The array, its cells, the text, the inner array, its cell.
  for (int after = 0; after < 5; ++after) {
    const Failing failing(after);
    EXPECT_EQ(VariantCopy(&to, &nested.value), E_OUTOFMEMORY) << after;
  }
  EXPECT_EQ(to.vt, VT_BSTR);
  EXPECT_EQ(to.value.bstrVal[0], 'u');
  {
    const Failing failing(5);
    EXPECT_EQ(VariantCopy(&to, &nested.value), S_OK);
  }
  VariantClear(&nested.value);
  VariantClear(&text);
  VariantClear(&to);
}

}  // namespace
}  // namespace quenzel7::server
