#include "server/abi/array_conversion.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/automation_error.h"
#include "server/abi/bstr.h"
#include "tests/server/abi/cell_samples.h"
#include "tests/support/counted_object.h"
#include "tests/support/failing_memory.h"
#include "tests/support/nothing_left.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Array;
using automation::AutomationError;
using automation::BooleanCell;
using automation::Bounds;
using automation::ErrorNumber;
using automation::NullValue;
using automation::Variant;
using automation::VariantKind;
using test::CellsOf;
using test::CountedObject;
using test::Failing;
using test::NothingLeft;

/// What is asked for values, and what they are made with; one at a time.
struct Conversion {
  Conversion() { current = this; }
  ~Conversion() { current = nullptr; }

  static Conversion* current;
  std::vector<std::pair<int, const void*>> asked;
  SAFEARRAY* array = nullptr;
  HRESULT destroyed = S_OK;
  CountedObject object;
};
Conversion* Conversion::current = nullptr;

class ArrayConversion : public testing::Test {
 protected:
  const NothingLeft nothingLeft_;
  Conversion made_;
};

/// Numbers and texts; Null for what is no object; an error for VT_NULL.
Variant FromValue(const VARIANT& value) {
  Conversion::current->asked.emplace_back(value.vt, value.value.byref);
  if (Conversion::current->array != nullptr)
    Conversion::current->destroyed = SafeArrayDestroy(Conversion::current->array);
  if (value.vt == VT_I4) return value.value.lVal;
  if (value.vt == VT_BSTR) return FromBstr(value.value.bstrVal);
  if (value.vt == VT_NULL) throw AutomationError(ErrorNumber::InvalidUseOfNull, "no value");
  return NullValue();
}

/// The other way round; True is an object, Null an error.
void ToValue(const Variant& cell, VARIANT& value) {
  EXPECT_EQ(value.vt, VT_EMPTY);
  if (cell.IsNull()) throw AutomationError(ErrorNumber::InvalidUseOfNull, "no value");
  if (const Long* number = cell.If<Long>()) value = test::LongValue(*number);
  if (cell.If<bool>() != nullptr) value = test::ObjectValue(Conversion::current->object.Dispatch());
  if (cell.IsText()) {
    value.vt = VT_BSTR;
    value.value.bstrVal = ToBstr(cell.Text());
  }
}

constexpr CellConversion kCells = {&FromValue, &ToValue};

/// An array with those cells from index 4 on.
template <class Published>
SAFEARRAY* Published4(VARTYPE kind, const std::vector<Published>& cells) {
  SAFEARRAY* const array = SafeArrayCreateVector(kind, 4, static_cast<ULONG>(cells.size()));
  EXPECT_EQ(array->cbElements, sizeof(Published));
  std::memcpy(array->pvData, cells.data(), cells.size() * sizeof(Published));
  return array;
}

Array TakenAndDestroyed(SAFEARRAY* array) {
  const struct Guard {
    ~Guard() { EXPECT_EQ(SafeArrayDestroy(array), S_OK); }
    SAFEARRAY* array;
  } guard{array};
  return FromSafeArray(*array, kCells);
}

template <class T, class Published>
void ExpectTaken(VARTYPE kind, const std::vector<Published>& from, VariantKind ours,
                 const std::vector<T>& cells) {
  SCOPED_TRACE(kind);
  const Array taken = TakenAndDestroyed(Published4(kind, from));
  EXPECT_EQ(taken.ElementKind(), ours);
  ASSERT_EQ(taken.Dimensions(), 1);
  EXPECT_EQ(taken.LowerBound(1), 4);
  EXPECT_EQ(taken.UpperBound(1), 3 + static_cast<Long>(from.size()));
  const auto found = taken.Cells<T>();
  EXPECT_EQ(std::vector<T>(found.begin(), found.end()), cells);
}

TEST_F(ArrayConversion, NumbersOfOurKindsAreTakenAsTheyAre) {
  ExpectTaken<Byte, BYTE>(VT_UI1, {0, 1, 255}, VariantKind::Byte, {0, 1, 255});
  ExpectTaken<Integer, SHORT>(VT_I2, {-32768, 1, 32767}, VariantKind::Integer, {-32768, 1, 32767});
  ExpectTaken<Long, LONG>(VT_I4, {INT32_MIN, 1, INT32_MAX}, VariantKind::Long, {INT32_MIN, 1, INT32_MAX});
  ExpectTaken<Long, LONG>(VT_INT, {INT32_MIN, 1, INT32_MAX}, VariantKind::Long, {INT32_MIN, 1, INT32_MAX});
  ExpectTaken<Single, float>(VT_R4, {-0.5f, 1e30f}, VariantKind::Single, {-0.5f, 1e30f});
  ExpectTaken<Double, double>(VT_R8, {-0.1, 1e300}, VariantKind::Double, {-0.1, 1e300});
  ExpectTaken<Double, double>(VT_DATE, {45000.25}, VariantKind::Double, {45000.25});
  ExpectTaken<Currency, LONGLONG>(VT_CY, {-1, INT64_MAX}, VariantKind::Currency,
                                  {Currency{-1}, Currency{INT64_MAX}});
}

TEST_F(ArrayConversion, OtherNumbersBecomeTheNearestWiderKind) {
  ExpectTaken<Integer, std::int8_t>(VT_I1, {-128, 0, 127}, VariantKind::Integer, {-128, 0, 127});
  ExpectTaken<Long, USHORT>(VT_UI2, {0, 32768, 65535}, VariantKind::Long, {0, 32768, 65535});
  ExpectTaken<Long, ULONG>(VT_UI4, {0, INT32_MAX}, VariantKind::Long, {0, INT32_MAX});
  ExpectTaken<Long, ULONG>(VT_UINT, {0, INT32_MAX}, VariantKind::Long, {0, INT32_MAX});
}

TEST_F(ArrayConversion, ANumberThatDoesNotFitIsAnOverflow) {
  for (const VARTYPE kind : {VT_UI4, VT_UINT}) {
    EXPECT_RAISES(6, "2147483648 does not fit a cell of Long",
                  TakenAndDestroyed(Published4<ULONG>(kind, {1, 0x80000000})));
  }
}

TEST_F(ArrayConversion, AnyTrueIsMinusOne) {
  ExpectTaken<BooleanCell, VARIANT_BOOL>(VT_BOOL, {0, -1, 1, 0x100}, VariantKind::Boolean,
                                         {BooleanCell{0}, BooleanCell{-1}, BooleanCell{-1}, BooleanCell{-1}});
}

TEST_F(ArrayConversion, TextsAreTakenAsUtf8) {
  ExpectTaken<std::string, BSTR>(VT_BSTR, {ToBstr("a\xC3\xA4"), nullptr, ToBstr("z")}, VariantKind::String,
                                 {"a\xC3\xA4", "", "z"});
}

TEST_F(ArrayConversion, VariantsAreTakenOneByOne) {
  ExpectTaken<Variant, VARIANT>(VT_VARIANT, {test::LongValue(7), test::TextValue('t'), VARIANT{}},
                                VariantKind::Variant, {Long{7}, "t", NullValue()});
  ASSERT_EQ(made_.asked.size(), 3u);
  EXPECT_EQ(made_.asked[0].first, VT_I4);
  EXPECT_EQ(made_.asked[2].first, VT_EMPTY);
}

TEST_F(ArrayConversion, ObjectsAreTakenAsVariantsAndHeldByTheArrayAlone) {
  for (const VARTYPE kind : {VT_DISPATCH, VT_UNKNOWN}) {
    made_.asked.clear();
    IDispatch* const object = test::ObjectValue(made_.object.Dispatch()).value.pdispVal;
    ExpectTaken<Variant, IDispatch*>(kind, {object, nullptr}, VariantKind::Variant,
                                     {NullValue(), NullValue()});
    EXPECT_EQ(made_.asked, (std::vector<std::pair<int, const void*>>{{kind, object}, {kind, nullptr}}));
    EXPECT_EQ(made_.object.Held(), 0);
  }
}

TEST_F(ArrayConversion, CellsOfOtherKindsAreRefused) {
  EXPECT_RAISES(13, "an array cannot hold cells of kind 20",
                TakenAndDestroyed(Published4<LONGLONG>(VT_I8, {1})));
  EXPECT_RAISES(13, "an array cannot hold cells of kind 21",
                TakenAndDestroyed(Published4<LONGLONG>(VT_UI8, {1})));
  EXPECT_RAISES(13, "an array cannot hold cells of kind 10",
                TakenAndDestroyed(Published4<LONG>(VT_ERROR, {1})));
  SAFEARRAY untold = {};
  untold.cDims = 1;
  EXPECT_RAISES(13, "an array cannot hold cells of kind 0", FromSafeArray(untold, kCells));
}

TEST_F(ArrayConversion, ThereAreOneOrTwoDimensions) {
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {1, 0}};
  EXPECT_RAISES(13, "an array has one or two dimensions, not 3",
                TakenAndDestroyed(SafeArrayCreate(VT_BSTR, 3, bounds)));
  SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, 1);
  array->cDims = 0;
  EXPECT_RAISES(13, "an array has one or two dimensions, not 0", FromSafeArray(*array, kCells));
  array->cDims = 1;
  EXPECT_EQ(array->cLocks, 0u);
  SafeArrayDestroy(array);
}

TEST_F(ArrayConversion, MoreThan2GiBAreRefused) {
  SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, INT32_MIN, 1);
  array->rgsabound[0].cElements = 0x80000001;
  EXPECT_RAISES(7, "an array of 2147483649 cells takes more than 2 GiB", FromSafeArray(*array, kCells));
  array->rgsabound[0].cElements = 1;
  SafeArrayDestroy(array);
}

TEST_F(ArrayConversion, TheArrayStaysWhileItsValuesAreTaken) {
  SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  made_.array = array;
  FromSafeArray(*array, kCells);
  EXPECT_EQ(made_.destroyed, DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(array->cLocks, 0u);

  CellsOf<VARIANT>(array)->vt = VT_NULL;
  EXPECT_RAISES(94, "no value", FromSafeArray(*array, kCells));
  EXPECT_EQ(array->cLocks, 0u);

  CellsOf<VARIANT>(array)->vt = VT_EMPTY;
  array->cLocks = 0xFFFFFFFF;
  FromSafeArray(*array, kCells);
  EXPECT_EQ(array->cLocks, 0xFFFFFFFFu);
  array->cLocks = 0;
  SafeArrayDestroy(array);
}

TEST_F(ArrayConversion, TwoDimensionsKeepTheirBoundsAndTheOrderOfTheirCells) {
  Array ours(VariantKind::Long, Bounds{10, 11}, Bounds{-1, 1});
  for (Long y = -1; y <= 1; ++y)
    for (Long x = 10; x <= 11; ++x) ours.Set(x, y, 100 * x + y);
  SAFEARRAY* const array = ToSafeArray(ours, kCells);
  ASSERT_EQ(array->cDims, 2);
  LONG bound = 0;
  SafeArrayGetLBound(array, 1, &bound);
  EXPECT_EQ(bound, 10);
  SafeArrayGetUBound(array, 1, &bound);
  EXPECT_EQ(bound, 11);
  SafeArrayGetLBound(array, 2, &bound);
  EXPECT_EQ(bound, -1);
  SafeArrayGetUBound(array, 2, &bound);
  EXPECT_EQ(bound, 1);
  LONG indices[] = {11, -1}, cell = 0;
  EXPECT_EQ(SafeArrayGetElement(array, indices, &cell), S_OK);
  EXPECT_EQ(cell, 1099);
  EXPECT_EQ(TakenAndDestroyed(array), ours);
}

template <class T>
SAFEARRAY* GivenOf(VariantKind kind, const std::vector<T>& cells) {
  Array ours(kind, Bounds{-2, static_cast<Long>(cells.size()) - 3});
  std::copy(cells.begin(), cells.end(), ours.Cells<T>().begin());
  return ToSafeArray(ours, kCells);
}

template <class T, class Published>
void ExpectGiven(VariantKind kind, const std::vector<T>& cells, VARTYPE published,
                 const std::vector<Published>& expected) {
  SCOPED_TRACE(published);
  SAFEARRAY* const array = GivenOf(kind, cells);
  VARTYPE found = 0;
  SafeArrayGetVartype(array, &found);
  EXPECT_EQ(found, published);
  EXPECT_EQ(array->cDims, 1);
  EXPECT_EQ(array->cLocks, 0u);
  EXPECT_EQ(array->rgsabound[0].lLbound, -2);
  EXPECT_EQ(array->rgsabound[0].cElements, expected.size());
  EXPECT_EQ(std::memcmp(array->pvData, expected.data(), expected.size() * sizeof(Published)), 0);
  SafeArrayDestroy(array);
}

TEST_F(ArrayConversion, NumbersAreGivenAsTheyAre) {
  ExpectGiven<Byte, BYTE>(VariantKind::Byte, {0, 255}, VT_UI1, {0, 255});
  ExpectGiven<Integer, SHORT>(VariantKind::Integer, {-32768, 32767}, VT_I2, {-32768, 32767});
  ExpectGiven<Long, LONG>(VariantKind::Long, {INT32_MIN, 5}, VT_I4, {INT32_MIN, 5});
  ExpectGiven<Single, float>(VariantKind::Single, {-0.5f, 2}, VT_R4, {-0.5f, 2});
  ExpectGiven<Double, double>(VariantKind::Double, {-0.1, 2}, VT_R8, {-0.1, 2});
  ExpectGiven<Currency, LONGLONG>(VariantKind::Currency, {Currency{-1}, Currency{7}}, VT_CY, {-1, 7});
  ExpectGiven<BooleanCell, VARIANT_BOOL>(VariantKind::Boolean, {BooleanCell{0}, BooleanCell{-1}}, VT_BOOL,
                                         {0, -1});
}

TEST_F(ArrayConversion, TextsAreGivenOneByOne) {
  SAFEARRAY* const array = GivenOf<std::string>(VariantKind::String, {"a\xC3\xA4", ""});
  VARTYPE kind = 0;
  SafeArrayGetVartype(array, &kind);
  EXPECT_EQ(kind, VT_BSTR);
  EXPECT_EQ(SysStringLen(CellsOf<BSTR>(array)[0]), 2u);
  EXPECT_EQ(CellsOf<BSTR>(array)[0][1], 0xE4);
  EXPECT_NE(CellsOf<BSTR>(array)[1], nullptr);
  SafeArrayDestroy(array);
}

TEST_F(ArrayConversion, VariantsAreGivenOneByOne) {
  SAFEARRAY* const array = GivenOf<Variant>(VariantKind::Variant, {Long{7}, true, Variant()});
  VARTYPE kind = 0;
  SafeArrayGetVartype(array, &kind);
  EXPECT_EQ(kind, VT_VARIANT);
  EXPECT_EQ(CellsOf<VARIANT>(array)[0].vt, VT_I4);
  EXPECT_EQ(CellsOf<VARIANT>(array)[0].value.lVal, 7);
  EXPECT_EQ(CellsOf<VARIANT>(array)[1].value.pdispVal, made_.object.Dispatch());
  EXPECT_EQ(CellsOf<VARIANT>(array)[2].vt, VT_EMPTY);
  EXPECT_EQ(made_.object.Held(), 1);
  SafeArrayDestroy(array);
  EXPECT_EQ(made_.object.Held(), 0);
}

TEST_F(ArrayConversion, WhatAValueRaisesLeavesNothing) {
  EXPECT_RAISES(94, "no value", GivenOf<Variant>(VariantKind::Variant, {true, NullValue()}));
  EXPECT_EQ(made_.object.Held(), 0);
}

TEST_F(ArrayConversion, WithoutRoomNothingIsGiven) {
  Array ours(VariantKind::String, Bounds{0, 1});
  ours.Set(0, "a");
  // The array, its cells, the two texts.
  for (int after = 0; after < 4; ++after) {
    const Failing failing(after);
    EXPECT_THROW(ToSafeArray(ours, kCells), std::bad_alloc) << after;
  }
  const Failing failing(4);
  SafeArrayDestroy(ToSafeArray(ours, kCells));
}

TEST_F(ArrayConversion, ArraysWithoutCellsGoBothWays) {
  for (const VariantKind kind :
       {VariantKind::Long, VariantKind::Boolean, VariantKind::String, VariantKind::Variant}) {
    const Array one(kind, Bounds{5, 4}), two(kind, Bounds{INT32_MIN + 1, INT32_MIN}, Bounds{3, 9});
    EXPECT_EQ(TakenAndDestroyed(ToSafeArray(one, kCells)), one);
    EXPECT_EQ(TakenAndDestroyed(ToSafeArray(two, kCells)), two);
  }
}

TEST(ArrayRoundTrip, WhatIsGivenIsTakenBackTheSame) {
  Conversion made;
  EXPECT_TRUE(
      rc::check("arrays of all kinds", [](Long lower, Long otherLower, const std::vector<Long>& numbers) {
        static constexpr VariantKind kKinds[] = {
            VariantKind::Byte,    VariantKind::Integer, VariantKind::Long,
            VariantKind::Single,  VariantKind::Double,  VariantKind::Currency,
            VariantKind::Boolean, VariantKind::String,  VariantKind::Variant};
        lower = std::clamp(lower, INT32_MIN + 1, INT32_MAX - 1000);
        otherLower = std::min(otherLower, INT32_MAX - 1);
        const auto size = static_cast<Long>(numbers.size());
        for (const VariantKind kind : kKinds) {
          Array one(kind, Bounds{lower, lower + size - 1});
          Array two(kind, Bounds{lower, lower + size - 1}, Bounds{otherLower, otherLower + 1});
          for (Long i = 0; i < size; ++i) {
            const bool isSmall = kind == VariantKind::Byte || kind == VariantKind::Integer;
            const Long number = isSmall ? numbers[i] & 0x7F : numbers[i];
            one.Set(lower + i, number);
            two.Set(lower + i, otherLower, number / 3);
            two.Set(lower + i, otherLower + 1, number / 2);
          }
          RC_ASSERT(TakenAndDestroyed(ToSafeArray(one, kCells)) == one);
          RC_ASSERT(TakenAndDestroyed(ToSafeArray(two, kCells)) == two);
        }
      }));
}

}  // namespace
}  // namespace quenzel7::server
