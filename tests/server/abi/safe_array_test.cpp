#include "server/abi/safe_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
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

static_assert(sizeof(SAFEARRAYBOUND) == 8);
static_assert(offsetof(SAFEARRAYBOUND, cElements) == 0);
static_assert(offsetof(SAFEARRAYBOUND, lLbound) == 4);
static_assert(sizeof(SAFEARRAY) == 32);
static_assert(offsetof(SAFEARRAY, cDims) == 0);
static_assert(offsetof(SAFEARRAY, fFeatures) == 2);
static_assert(offsetof(SAFEARRAY, cbElements) == 4);
static_assert(offsetof(SAFEARRAY, cLocks) == 8);
static_assert(offsetof(SAFEARRAY, pvData) == 16);
static_assert(offsetof(SAFEARRAY, rgsabound) == 24);

constexpr LONG kLeast = INT32_MIN, kMost = INT32_MAX;

SAFEARRAY* Make(VARTYPE cells, std::vector<SAFEARRAYBOUND> bounds) {
  return SafeArrayCreate(cells, static_cast<UINT>(bounds.size()), bounds.data());
}

SAFEARRAYBOUND BoundAt(SAFEARRAY* array, int place) {
  SAFEARRAYBOUND bound;
  std::memcpy(&bound, reinterpret_cast<const char*>(array) + 24 + 8 * place, sizeof bound);
  return bound;
}

std::uint32_t NumberBefore(const SAFEARRAY* array) {
  std::uint32_t number = 0;
  std::memcpy(&number, reinterpret_cast<const char*>(array) - 4, 4);
  return number;
}

BSTR Text(OLECHAR character) { return TextValue(character).value.bstrVal; }

/// An array as one makes it that tells nothing of its cells.
SAFEARRAY PlainDescriptor(void* cells, ULONG bytes, ULONG count) {
  SAFEARRAY array = {};
  array.cDims = 1;
  array.cbElements = bytes;
  array.pvData = cells;
  array.rgsabound[0] = {count, 0};
  return array;
}

TEST(SafeArray, IsLaidOutAsPublished) {
  const NothingLeft nothingLeft;
  for (const test::PublishedKind& row : test::kPublishedKinds) {
    SCOPED_TRACE(row.kind);
    SAFEARRAY* const array = Make(row.kind, {{2, 1}, {3, -7}, {4, 0}});
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->cDims, 3);
    EXPECT_EQ(array->fFeatures, 0x0080 | row.feature);
    EXPECT_EQ(array->cbElements, row.bytes);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(NumberBefore(array), row.kind);
    EXPECT_EQ(BoundAt(array, 0).cElements, 4u);
    EXPECT_EQ(BoundAt(array, 0).lLbound, 0);
    EXPECT_EQ(BoundAt(array, 1).cElements, 3u);
    EXPECT_EQ(BoundAt(array, 1).lLbound, -7);
    EXPECT_EQ(BoundAt(array, 2).cElements, 2u);
    EXPECT_EQ(BoundAt(array, 2).lLbound, 1);
    EXPECT_EQ(CellCount(*array), 24u);
    const auto* bytes = CellsOf<char>(array);
    EXPECT_TRUE(std::all_of(bytes, bytes + 24 * row.bytes, [](char byte) { return byte == 0; }));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array) % 8, 0u);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array->pvData) % 8, 0u);
    VARTYPE kind = 0;
    EXPECT_EQ(SafeArrayGetVartype(array, &kind), S_OK);
    EXPECT_EQ(kind, row.kind);
    EXPECT_EQ(SafeArrayGetElemsize(array), row.bytes);
    EXPECT_EQ(SafeArrayGetDim(array), 3u);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
  }
}

TEST(SafeArray, AVectorHasOneDimensionAndIsOfFixedSize) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 5, 3);
  ASSERT_NE(array, nullptr);
  EXPECT_EQ(array->cDims, 1);
  EXPECT_EQ(array->fFeatures, 0x0190);
  EXPECT_EQ(BoundAt(array, 0).cElements, 3u);
  EXPECT_EQ(BoundAt(array, 0).lLbound, 5);
  EXPECT_EQ(SafeArrayDestroy(array), S_OK);
  EXPECT_EQ(SafeArrayCreateVector(VT_EMPTY, 0, 1), nullptr);
}

TEST(SafeArray, IsNotMadeOfOtherKindsWithoutBoundsOrDimensions) {
  const NothingLeft nothingLeft;
  SAFEARRAYBOUND bound = {1, 0};
  for (const int kind : std::vector<int>{VT_EMPTY, VT_NULL, VT_DECIMAL, VT_ARRAY | VT_I4, VT_BYREF | VT_I4})
    EXPECT_EQ(SafeArrayCreate(static_cast<VARTYPE>(kind), 1, &bound), nullptr) << kind;
  EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);
  EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
}

TEST(SafeArray, HasUpTo65535Dimensions) {
  const NothingLeft nothingLeft;
  std::vector<SAFEARRAYBOUND> bounds(65536, SAFEARRAYBOUND{1, 0});
  EXPECT_EQ(SafeArrayCreate(VT_I4, 65536, bounds.data()), nullptr);
  bounds[0] = {2, 9};
  bounds[65534] = {3, 8};
  SAFEARRAY* const array = SafeArrayCreate(VT_I4, 65535, bounds.data());
  ASSERT_NE(array, nullptr);
  EXPECT_EQ(SafeArrayGetDim(array), 65535u);
  EXPECT_EQ(BoundAt(array, 0).lLbound, 8);
  EXPECT_EQ(BoundAt(array, 65534).lLbound, 9);
  EXPECT_EQ(CellCount(*array), 6u);
  SafeArrayDestroy(array);
}

TEST(SafeArray, MayHaveNoCells) {
  const NothingLeft nothingLeft;
  for (const auto& bounds : std::vector<std::vector<SAFEARRAYBOUND>>{
           {{0, 0}}, {{65536, 0}, {65536, 0}, {0, 0}}, {{0, 0}, {65536, 0}, {65536, 0}}}) {
    SAFEARRAY* const array = Make(VT_VARIANT, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(CellCount(*array), 0u);
    EXPECT_NE(array->pvData, nullptr);
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
  }
}

TEST(SafeArray, CellsThatTake4GiBAreNotEvenTried) {
  const NothingLeft nothingLeft;
  const auto tries = [](VARTYPE cells, std::vector<SAFEARRAYBOUND> bounds) {
    const Failing failing(0, 1000);
    EXPECT_EQ(Make(cells, bounds), nullptr);
    return test::allocationsLeft == -1;
  };
  EXPECT_TRUE(tries(VT_UI1, {{0xFFFFFFFF, kLeast}}));
  EXPECT_TRUE(tries(VT_UI1, {{0xFFFF, 0}, {0x10001, 0}}));
  EXPECT_FALSE(tries(VT_UI1, {{0x10000, 0}, {0x10000, 0}}));
  EXPECT_TRUE(tries(VT_I4, {{0x3FFFFFFF, 0}}));
  EXPECT_FALSE(tries(VT_I4, {{0x40000000, 0}}));
  // 2^64 and 2^65 bytes.
  EXPECT_FALSE(tries(VT_UI1, {{0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0x10000, 0}}));
  EXPECT_FALSE(tries(VT_I2, {{0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0x10000, 0}}));
}

TEST(SafeArray, UpperBoundsMustBeNumbersOf32Bits) {
  const NothingLeft nothingLeft;
  const auto has = [](LONG lower, ULONG count) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, lower, count);
    if (array == nullptr) return false;
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &upper), S_OK);
    EXPECT_EQ(std::int64_t{upper}, std::int64_t{lower} + count - 1);
    SafeArrayDestroy(array);
    return true;
  };
  EXPECT_TRUE(has(kMost, 1));
  EXPECT_FALSE(has(kMost, 2));
  EXPECT_TRUE(has(kMost, 0));
  EXPECT_TRUE(has(kMost - 1, 2));
  EXPECT_TRUE(has(kLeast, 1));
  EXPECT_FALSE(has(kLeast, 0));
  EXPECT_TRUE(has(kLeast + 1, 0));
  // Each of the dimensions, the last as well.
  EXPECT_EQ(Make(VT_UI1, {{1, 0}, {2, kMost}}), nullptr);
}

TEST(SafeArray, WithoutRoomNoneIsMade) {
  const NothingLeft nothingLeft;
  SAFEARRAYBOUND bound = {10, 0};
  for (int after = 0; after < 2; ++after) {
    const Failing failing(after);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, &bound), nullptr);
    EXPECT_EQ(test::allocationsLeft, -1);
  }
  for (int after = 0; after < 2; ++after) {
    const Failing failing(after);
    EXPECT_EQ(SafeArrayCreateVector(VT_I4, 0, 10), nullptr);
    EXPECT_EQ(test::allocationsLeft, -1);
  }
}

TEST(SafeArray, TakesNoMoreThanItsPublishedBytesAndThoseBeforeThem) {
  const NothingLeft nothingLeft;
  const auto takesAsMuchAs = [](std::size_t bytes) {
    const Failing failing(0, bytes);
    SAFEARRAY* const array = Make(VT_UI1, {{1, 0}, {1, 0}, {1, 0}});
    if (array != nullptr) SafeArrayDestroy(array);
    return array == nullptr;
  };
  EXPECT_TRUE(takesAsMuchAs(16 + 24 + 3 * 8));
  EXPECT_FALSE(takesAsMuchAs(16 + 24 + 3 * 8 + 1));
}

TEST(SafeArray, CellsAreCountedUpTo32Bits) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = Make(VT_UI1, {{1, 0}, {1, 0}});
  array->rgsabound[0].cElements = 0xFFFFFFFF;
  EXPECT_EQ(CellCount(*array), 0xFFFFFFFFu);
  LONG upper = 0;
  EXPECT_EQ(SafeArrayGetUBound(array, 1, &upper), S_OK);
  EXPECT_EQ(upper, 0);
  const SAFEARRAYBOUND two = {2, 0};
  std::memcpy(reinterpret_cast<char*>(array) + 32, &two, sizeof two);
  EXPECT_EQ(CellCount(*array), 0x100000000u);
  array->rgsabound[0].cElements = 1;
  SafeArrayDestroy(array);
}

TEST(SafeArray, NullPointersAreRefused) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 1);
  LONG index = 0, cell = 0;
  VARTYPE kind = 0;
  void* cells = nullptr;
  SAFEARRAY* copy = array;
  EXPECT_EQ(SafeArrayDestroy(nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayCopy(nullptr, &copy), E_INVALIDARG);
  EXPECT_EQ(copy, nullptr);
  EXPECT_EQ(SafeArrayCopy(array, nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
  EXPECT_EQ(SafeArrayGetElemsize(nullptr), 0u);
  EXPECT_EQ(SafeArrayGetVartype(nullptr, &kind), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetVartype(array, nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &index), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetLBound(array, 1, nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetUBound(nullptr, 1, &index), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetUBound(array, 1, nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayAccessData(nullptr, &cells), E_INVALIDARG);
  EXPECT_EQ(SafeArrayAccessData(array, nullptr), E_INVALIDARG);
  EXPECT_EQ(array->cLocks, 0u);
  EXPECT_EQ(SafeArrayUnaccessData(nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetElement(nullptr, &index, &cell), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetElement(array, nullptr, &cell), E_INVALIDARG);
  EXPECT_EQ(SafeArrayGetElement(array, &index, nullptr), E_INVALIDARG);
  EXPECT_EQ(SafeArrayPutElement(nullptr, &index, &cell), E_INVALIDARG);
  EXPECT_EQ(SafeArrayPutElement(array, nullptr, &cell), E_INVALIDARG);
  EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), E_INVALIDARG);
  SafeArrayDestroy(array);
  SAFEARRAY* const values = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  EXPECT_EQ(SafeArrayPutElement(values, &index, nullptr), E_INVALIDARG);
  SafeArrayDestroy(values);
}

TEST(SafeArray, BoundsAreToldByDimensionFromOne) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = Make(VT_UI1, {{2, 10}, {3, -20}});
  LONG bound = 99;
  EXPECT_EQ(SafeArrayGetLBound(array, 1, &bound), S_OK);
  EXPECT_EQ(bound, 10);
  EXPECT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
  EXPECT_EQ(bound, 11);
  EXPECT_EQ(SafeArrayGetLBound(array, 2, &bound), S_OK);
  EXPECT_EQ(bound, -20);
  EXPECT_EQ(SafeArrayGetUBound(array, 2, &bound), S_OK);
  EXPECT_EQ(bound, -18);
  for (const UINT dimension : {0u, 3u, 0xFFFFFFFFu}) {
    EXPECT_EQ(SafeArrayGetLBound(array, dimension, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array, dimension, &bound), DISP_E_BADINDEX);
  }
  EXPECT_EQ(bound, -18);
  SafeArrayDestroy(array);
}

TEST(SafeArray, StaysWhileSomeoneIsAtItsCells) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 2);
  void* cells = nullptr;
  EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
  EXPECT_EQ(array->cLocks, 0u);
  EXPECT_FALSE(IsLocked(*array));
  EXPECT_EQ(SafeArrayAccessData(array, &cells), S_OK);
  EXPECT_EQ(cells, array->pvData);
  EXPECT_EQ(SafeArrayAccessData(array, &cells), S_OK);
  EXPECT_EQ(array->cLocks, 2u);
  EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
  EXPECT_TRUE(IsLocked(*array));
  EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
  EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, LocksAreNotCountedBeyondTheirNumber) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 2);
  array->cLocks = 0xFFFFFFFE;
  void* cells = nullptr;
  EXPECT_EQ(SafeArrayAccessData(array, &cells), S_OK);
  cells = nullptr;
  EXPECT_EQ(SafeArrayAccessData(array, &cells), E_UNEXPECTED);
  EXPECT_EQ(cells, nullptr);
  EXPECT_EQ(array->cLocks, 0xFFFFFFFFu);
  array->cLocks = 0;
  SafeArrayDestroy(array);
}

TEST(SafeArray, StaysWholeWhileAnArrayInItIsInUse) {
  const NothingLeft nothingLeft;
  CountedObject object;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  SAFEARRAY* const inner = SafeArrayCreateVector(VT_I4, 0, 1);
  CellsOf<VARIANT>(array)[0] = ObjectValue(object.Dispatch());
  CellsOf<VARIANT>(array)[1] = ArrayValue(VT_I4, inner);
  void* cells = nullptr;
  SafeArrayAccessData(inner, &cells);
  EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(object.Held(), 1);
  SafeArrayUnaccessData(inner);
  EXPECT_EQ(SafeArrayDestroy(array), S_OK);
  EXPECT_EQ(object.Held(), 0);
}

TEST(SafeArray, FreesWhatEachCellOwns) {
  const NothingLeft nothingLeft;
  for (const VARTYPE kind : {VT_DISPATCH, VT_UNKNOWN}) {
    CountedObject object;
    SAFEARRAY* const array = SafeArrayCreateVector(kind, 0, 3);
    CellsOf<IDispatch*>(array)[0] = ObjectValue(object.Dispatch()).value.pdispVal;
    CellsOf<IDispatch*>(array)[2] = ObjectValue(object.Dispatch()).value.pdispVal;
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(object.Held(), 0);
  }
  SAFEARRAY* const texts = SafeArrayCreateVector(VT_BSTR, 0, 2);
  CellsOf<BSTR>(texts)[1] = Text('t');
  EXPECT_EQ(SafeArrayDestroy(texts), S_OK);
}

TEST(SafeArray, CellsLieWithTheFirstIndexRunningFastest) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = Make(VT_I2, {{2, 10}, {3, -1}, {4, 5}});
  SHORT number = 0;
  for (LONG third = 5; third < 9; ++third) {
    for (LONG second = -1; second < 2; ++second) {
      for (LONG first = 10; first < 12; ++first) {
        LONG indices[] = {first, second, third};
        ++number;
        EXPECT_EQ(SafeArrayPutElement(array, indices, &number), S_OK);
        SHORT back = 0;
        EXPECT_EQ(SafeArrayGetElement(array, indices, &back), S_OK);
        EXPECT_EQ(back, number);
      }
    }
  }
  for (SHORT i = 0; i < 24; ++i) EXPECT_EQ(CellsOf<SHORT>(array)[i], i + 1);
  SafeArrayDestroy(array);
}

TEST(SafeArray, IndicesOutsideAreRefused) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = Make(VT_I4, {{2, 10}, {3, -1}});
  const std::vector<std::vector<LONG>> outside = {{9, 0},  {12, 0},     {10, -2},     {10, 2},
                                                  {-1, 0}, {kLeast, 0}, {10, kLeast}, {kMost, kMost}};
  for (std::vector<LONG> indices : outside) {
    LONG cell = 7;
    EXPECT_EQ(SafeArrayGetElement(array, indices.data(), &cell), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayPutElement(array, indices.data(), &cell), DISP_E_BADINDEX);
    EXPECT_EQ(cell, 7);
  }
  EXPECT_TRUE(
      std::all_of(CellsOf<LONG>(array), CellsOf<LONG>(array) + 6, [](LONG each) { return each == 0; }));
  SafeArrayDestroy(array);
}

TEST(SafeArray, APlainCellIsTakenAndGivenByItsBytes) {
  const NothingLeft nothingLeft;
  for (const test::PublishedKind& row : test::kPublishedKinds) {
    if (row.feature != 0) continue;
    SCOPED_TRACE(row.kind);
    SAFEARRAY* const array = SafeArrayCreateVector(row.kind, 0, 3);
    std::memset(array->pvData, '.', 3 * row.bytes);
    LONG index = 1;
    char cell[] = "abcdefgh", back[] = "--------";
    EXPECT_EQ(SafeArrayPutElement(array, &index, cell), S_OK);
    EXPECT_EQ(SafeArrayGetElement(array, &index, back), S_OK);
    const std::string bytes(cell, row.bytes), dots(row.bytes, '.');
    EXPECT_EQ(std::string(CellsOf<char>(array), 3 * row.bytes), dots + bytes + dots);
    EXPECT_EQ(back, bytes + std::string(8 - row.bytes, '-'));
    SafeArrayDestroy(array);
  }
}

TEST(SafeArray, ATextIsPassedItselfAndCopied) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 1);
  LONG index = 0;
  const BSTR first = Text('a'), second = Text('b');
  EXPECT_EQ(SafeArrayPutElement(array, &index, first), S_OK);
  EXPECT_EQ(SafeArrayPutElement(array, &index, second), S_OK);
  EXPECT_NE(*CellsOf<BSTR>(array), second);
  SysFreeString(first);
  SysFreeString(second);
  BSTR back = nullptr;
  EXPECT_EQ(SafeArrayGetElement(array, &index, &back), S_OK);
  EXPECT_NE(back, *CellsOf<BSTR>(array));
  EXPECT_EQ(back[0], 'b');
  SysFreeString(back);
  EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
  EXPECT_EQ(*CellsOf<BSTR>(array), nullptr);
  EXPECT_EQ(SafeArrayGetElement(array, &index, &back), S_OK);
  EXPECT_EQ(back, nullptr);
  SafeArrayDestroy(array);
}

TEST(SafeArray, AnObjectIsPassedItselfAndHeld) {
  const NothingLeft nothingLeft;
  for (const VARTYPE kind : {VT_DISPATCH, VT_UNKNOWN}) {
    SCOPED_TRACE(kind);
    CountedObject object, other;
    SAFEARRAY* const array = SafeArrayCreateVector(kind, 0, 1);
    LONG index = 0;
    EXPECT_EQ(SafeArrayPutElement(array, &index, object.Dispatch()), S_OK);
    EXPECT_EQ(object.Held(), 1);
    IDispatch* back = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &back), S_OK);
    EXPECT_EQ(back, object.Dispatch());
    EXPECT_EQ(object.Held(), 2);
    back->lpVtbl->Release(back);

    IDispatch* seen = nullptr;
    object.onRelease = [&] { seen = *CellsOf<IDispatch*>(array); };
    EXPECT_EQ(SafeArrayPutElement(array, &index, other.Dispatch()), S_OK);
    EXPECT_EQ(object.Held(), 0);
    EXPECT_EQ(seen, other.Dispatch());
    EXPECT_EQ(SafeArrayPutElement(array, &index, other.Dispatch()), S_OK);
    EXPECT_EQ(other.Held(), 1);
    EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
    EXPECT_EQ(other.Held(), 0);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &back), S_OK);
    EXPECT_EQ(back, nullptr);
    SafeArrayDestroy(array);
  }
}

TEST(SafeArray, AVariantIsCopiedInAndOut) {
  const NothingLeft nothingLeft;
  CountedObject object;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  LONG index = 1;
  VARIANT value = ObjectValue(object.Dispatch()), back;
  EXPECT_EQ(SafeArrayPutElement(array, &index, &value), S_OK);
  EXPECT_EQ(object.Held(), 2);
  // The room for what is got needs no value in it.
  std::memset(&back, 0xFF, sizeof back);
  EXPECT_EQ(SafeArrayGetElement(array, &index, &back), S_OK);
  EXPECT_EQ(back.vt, VT_DISPATCH);
  EXPECT_EQ(back.value.pdispVal, object.Dispatch());
  EXPECT_EQ(object.Held(), 3);
  VariantClear(&back);
  VariantClear(&value);
  value = LongValue(4);
  EXPECT_EQ(SafeArrayPutElement(array, &index, &value), S_OK);
  EXPECT_EQ(object.Held(), 0);
  EXPECT_EQ(CellsOf<VARIANT>(array)[1].value.lVal, 4);
  EXPECT_EQ(CellsOf<VARIANT>(array)[0].vt, VT_EMPTY);
  value.vt = 15;
  EXPECT_EQ(SafeArrayPutElement(array, &index, &value), DISP_E_BADVARTYPE);
  EXPECT_EQ(CellsOf<VARIANT>(array)[1].vt, VT_I4);
  SafeArrayDestroy(array);
}

TEST(SafeArray, WithoutRoomACellStaysAsItIs) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 1);
  LONG index = 0;
  const BSTR text = Text('a'), other = Text('b');
  SafeArrayPutElement(array, &index, text);
  const BSTR kept = *CellsOf<BSTR>(array);
  BSTR back = text;
  {
    const Failing failing(0);
    EXPECT_EQ(SafeArrayPutElement(array, &index, other), E_OUTOFMEMORY);
  }
  EXPECT_EQ(*CellsOf<BSTR>(array), kept);
  EXPECT_EQ(kept[0], 'a');
  {
    const Failing failing(0);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &back), E_OUTOFMEMORY);
  }
  EXPECT_EQ(back, text);
  SysFreeString(text);
  SysFreeString(other);
  SafeArrayDestroy(array);
}

TEST(SafeArray, CopyHasTheSameBoundsAndCellsOfItsOwn) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = Make(VT_I4, {{2, 10}, {3, -1}});
  for (LONG i = 0; i < 6; ++i) CellsOf<LONG>(array)[i] = i + 100;
  SAFEARRAY* copy = nullptr;
  EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, array);
  EXPECT_NE(copy->pvData, array->pvData);
  EXPECT_EQ(copy->cDims, 2);
  EXPECT_EQ(copy->cbElements, 4u);
  EXPECT_EQ(NumberBefore(copy), 3u);
  EXPECT_EQ(BoundAt(copy, 0).cElements, 3u);
  EXPECT_EQ(BoundAt(copy, 0).lLbound, -1);
  EXPECT_EQ(BoundAt(copy, 1).cElements, 2u);
  EXPECT_EQ(BoundAt(copy, 1).lLbound, 10);
  SafeArrayDestroy(array);
  for (LONG i = 0; i < 6; ++i) EXPECT_EQ(CellsOf<LONG>(copy)[i], i + 100);
  SafeArrayDestroy(copy);
}

TEST(SafeArray, CopyIsNeitherLockedNorOfFixedSize) {
  const NothingLeft nothingLeft;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 2);
  CellsOf<BSTR>(array)[0] = Text('a');
  array->cLocks = 1;
  SAFEARRAY* copy = nullptr;
  EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
  EXPECT_EQ(copy->cLocks, 0u);
  EXPECT_EQ(copy->fFeatures, 0x0180);
  EXPECT_NE(CellsOf<BSTR>(copy)[0], CellsOf<BSTR>(array)[0]);
  EXPECT_EQ(CellsOf<BSTR>(copy)[0][0], 'a');
  EXPECT_EQ(CellsOf<BSTR>(copy)[1], nullptr);
  array->cLocks = 0;
  SafeArrayDestroy(array);
  SafeArrayDestroy(copy);
}

TEST(SafeArray, CopyHoldsTheObjectsOfItsCells) {
  const NothingLeft nothingLeft;
  for (const VARTYPE kind : {VT_DISPATCH, VT_UNKNOWN}) {
    CountedObject object;
    SAFEARRAY *const array = SafeArrayCreateVector(kind, 0, 2), *copy = nullptr;
    CellsOf<IDispatch*>(array)[1] = ObjectValue(object.Dispatch()).value.pdispVal;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(object.Held(), 2);
    SafeArrayDestroy(array);
    EXPECT_EQ(CellsOf<IDispatch*>(copy)[1], object.Dispatch());
    SafeArrayDestroy(copy);
    EXPECT_EQ(object.Held(), 0);
  }
}

TEST(SafeArray, ACopyThatFailsLeavesNothing) {
  const NothingLeft nothingLeft;
  CountedObject object;
  SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 3);
  CellsOf<VARIANT>(array)[0] = ObjectValue(object.Dispatch());
  CellsOf<VARIANT>(array)[1] = TextValue('t');
  SAFEARRAY* copy = nullptr;
  // The array, its cells, the text.
  for (int after = 0; after < 3; ++after) {
    copy = array;
    const Failing failing(after);
    EXPECT_EQ(SafeArrayCopy(array, &copy), E_OUTOFMEMORY) << after;
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(object.Held(), 1);
  }
  CellsOf<VARIANT>(array)[2].vt = 15;
  copy = array;
  EXPECT_EQ(SafeArrayCopy(array, &copy), DISP_E_BADVARTYPE);
  EXPECT_EQ(copy, nullptr);
  EXPECT_EQ(object.Held(), 1);
  SafeArrayDestroy(array);
  EXPECT_EQ(object.Held(), 0);
}

TEST(SafeArray, TheKindOfCellsMayBeToldByTheirFeaturesAlone) {
  const NothingLeft nothingLeft;
  BSTR texts[] = {Text('a'), nullptr};
  SAFEARRAY array = PlainDescriptor(texts, 8, 2);
  VARTYPE kind = 99;
  SAFEARRAY* copy = &array;
  LONG index = 0;
  EXPECT_EQ(SafeArrayGetVartype(&array, &kind), E_INVALIDARG);
  EXPECT_EQ(kind, 99);
  EXPECT_EQ(SafeArrayCopy(&array, &copy), E_INVALIDARG);
  EXPECT_EQ(copy, nullptr);
  EXPECT_EQ(SafeArrayGetElement(&array, &index, &texts[1]), E_INVALIDARG);
  EXPECT_EQ(SafeArrayPutElement(&array, &index, texts[0]), E_INVALIDARG);
  array.fFeatures = FADF_BSTR;
  EXPECT_EQ(SafeArrayGetVartype(&array, &kind), S_OK);
  EXPECT_EQ(kind, VT_BSTR);
  EXPECT_EQ(SafeArrayCopy(&array, &copy), S_OK);
  EXPECT_EQ(copy->fFeatures, 0x0180);
  EXPECT_EQ(CellsOf<BSTR>(copy)[0][0], 'a');
  SafeArrayDestroy(copy);
  SysFreeString(texts[0]);
}

}  // namespace
}  // namespace quenzel7::server
