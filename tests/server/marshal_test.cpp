#include "server/marshal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "tests/server/host.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::Array;
using automation::AutomationError;
using automation::ErrorNumber;
using automation::Variant;
using automation::VariantKind;
using test::Outcome;
using test::Value;

Variant Taken(const Value& value) { return FromVariant(value.Raw()); }

/// A place for a value of the library.
Value Given(const Variant& value) {
  Value given;
  ToVariant(value, given.Raw());
  return given;
}

Long ErrorOfTaking(const Value& value) {
  try {
    Taken(value);
  } catch (const AutomationError& error) {
    return error.Number();
  }
  return 0;
}

struct Pair {
  Value value;
  Variant variant;
};

TEST(Marshalling, TakesAndGivesEachKind) {
  const Pair pairs[] = {
      {Value(), {}},
      {Value::Of(VT_NULL, 0), automation::NullValue{}},
      {Value::Of<SHORT>(VT_I2, -7), Integer{-7}},
      {Value::Of<LONG>(VT_I4, -70000), Long{-70000}},
      {Value::Of(VT_R4, 1.5f), 1.5f},
      {Value::Of(VT_R8, -2.25), -2.25},
      {Value::Of<LONGLONG>(VT_CY, 12345678901), Currency{12345678901}},
      {Value("h\xC3\xA4lf"), "h\xC3\xA4lf"},
      {Value::Of<VARIANT_BOOL>(VT_BOOL, VARIANT_TRUE), true},
      {Value::Of<VARIANT_BOOL>(VT_BOOL, VARIANT_FALSE), false},
      {Value::Of<BYTE>(VT_UI1, 200), Byte{200}},
  };
  for (const Pair& pair : pairs) {
    EXPECT_EQ(Taken(pair.value), pair.variant) << pair.value.Kind();
    const Value given = Given(pair.variant);
    EXPECT_EQ(given.Kind(), pair.value.Kind());
    if (given.Kind() == VT_BSTR) {
      EXPECT_EQ(given.Text(), pair.value.Text());
    } else {
      EXPECT_EQ(std::memcmp(&given.Raw().value, &pair.value.Raw().value, 8), 0) << given.Kind();
    }
    EXPECT_EQ(given.Raw().wReserved1 | given.Raw().wReserved2 | given.Raw().wReserved3, 0);
  }
}

TEST(Marshalling, TakesOtherNumbersAsTheNearestWiderKind) {
  const Pair pairs[] = {
      {Value::Of<std::int8_t>(VT_I1, -5), Integer{-5}},
      {Value::Of<USHORT>(VT_UI2, 65535), Long{65535}},
      {Value::Of<ULONG>(VT_UI4, 2147483647), Long{2147483647}},
      {Value::Of<LONG>(VT_INT, -9), Long{-9}},
      {Value::Of<ULONG>(VT_UINT, 9), Long{9}},
      {Value::Of<LONGLONG>(VT_I8, -2147483648LL), std::numeric_limits<Long>::min()},
      {Value::Of<LONGLONG>(VT_I8, 2147483647LL), Long{2147483647}},
      {Value::Of<std::uint64_t>(VT_UI8, 2147483647), Long{2147483647}},
      {Value::Of(VT_DATE, 2.5), 2.5},
      {Value::Of<VARIANT_BOOL>(VT_BOOL, 1), true},
  };
  for (const Pair& pair : pairs) EXPECT_EQ(Taken(pair.value), pair.variant) << pair.value.Kind();
}

TEST(Marshalling, RefusesNumbersThatDoNotFit) {
  EXPECT_EQ(ErrorOfTaking(Value::Of<ULONG>(VT_UI4, 2147483648u)), 6);
  EXPECT_EQ(ErrorOfTaking(Value::Of<ULONG>(VT_UINT, 2147483648u)), 6);
  EXPECT_EQ(ErrorOfTaking(Value::Of<LONGLONG>(VT_I8, 2147483648LL)), 6);
  EXPECT_EQ(ErrorOfTaking(Value::Of<LONGLONG>(VT_I8, -2147483649LL)), 6);
  EXPECT_EQ(ErrorOfTaking(Value::Of<std::uint64_t>(VT_UI8, 2147483648u)), 6);
}

TEST(Marshalling, RefusesKindsThatItDoesNotKnow) {
  for (const int kind : {int{VT_ERROR}, int{VT_DECIMAL}, 15, 36, VT_BYREF | 36, VT_BYREF | VT_EMPTY}) {
    int place = 0;
    Value value = Value::Of(static_cast<VARTYPE>(kind), &place);
    EXPECT_EQ(ErrorOfTaking(value), 458) << kind;
    // There is nothing in it to clear.
    value.Raw().vt = VT_EMPTY;
  }
}

TEST(Marshalling, FollowsReferencesOfEachKind) {
  const auto place = [](VARTYPE kind, auto content) { return Taken(Value::Place(kind, &content)); };
  EXPECT_EQ(place(VT_I2, SHORT{-7}), Variant(Integer{-7}));
  EXPECT_EQ(place(VT_I4, LONG{-70000}), Variant(Long{-70000}));
  EXPECT_EQ(place(VT_INT, LONG{-70000}), Variant(Long{-70000}));
  EXPECT_EQ(place(VT_R4, 1.5f), Variant(1.5f));
  EXPECT_EQ(place(VT_R8, 2.25), Variant(2.25));
  EXPECT_EQ(place(VT_DATE, 2.25), Variant(2.25));
  EXPECT_EQ(place(VT_CY, LONGLONG{12345678901}), Variant(Currency{12345678901}));
  EXPECT_EQ(place(VT_BOOL, VARIANT_TRUE), Variant(true));
  EXPECT_EQ(place(VT_UI1, BYTE{200}), Variant(Byte{200}));
  EXPECT_EQ(place(VT_I1, std::int8_t{-3}), Variant(Integer{-3}));
  EXPECT_EQ(place(VT_UI2, USHORT{65535}), Variant(Long{65535}));
  EXPECT_EQ(place(VT_UI4, ULONG{7}), Variant(Long{7}));
  EXPECT_EQ(place(VT_I8, LONGLONG{-7}), Variant(Long{-7}));
  EXPECT_EQ(place(VT_UI8, std::uint64_t{7}), Variant(Long{7}));
  const test::Utf16 text("text");
  EXPECT_EQ(place(VT_BSTR, text.Get()), Variant("text"));
  Value inner = 5;
  EXPECT_EQ(Taken(Value::Place(inner)), Variant(Long{5}));
  LONG number = 6;
  Value reference = Value::Place(VT_I4, &number);
  EXPECT_EQ(Taken(Value::Place(reference)), Variant(Long{6}));
}

TEST(Marshalling, ANullTextIsAnEmptyOne) { EXPECT_EQ(Taken(Value::Of<BSTR>(VT_BSTR, nullptr)), Variant("")); }

TEST(Marshalling, NoObjectIsNoObject) {
  const Variant none = automation::ObjectRef();
  EXPECT_EQ(Taken(Value::Of<IDispatch*>(VT_DISPATCH, nullptr)), none);
  EXPECT_EQ(Taken(Value::Of<IUnknown*>(VT_UNKNOWN, nullptr)), none);
  EXPECT_EQ(Given(none).Kind(), VT_DISPATCH);
  EXPECT_EQ(Given(none).Raw().value.pdispVal, nullptr);
}

TEST(Marshalling, AnObjectComesBackAsItself) {
  const automation::ObjectRef object = std::make_shared<automation::Sample>();
  const Value given = Given(object);
  EXPECT_EQ(given.Kind(), VT_DISPATCH);
  EXPECT_EQ(Taken(given), Variant(object));
  Value unknown = given;
  unknown.Raw().vt = VT_UNKNOWN;
  EXPECT_EQ(Taken(unknown), Variant(object));
  IDispatch* place = given.Raw().value.pdispVal;
  EXPECT_EQ(Taken(Value::Place(VT_DISPATCH, &place)), Variant(object));
}

TEST(Marshalling, ArraysComeBackAsTheyWere) {
  Array map(VariantKind::Byte, {1, 3}, {-2, -1});
  map.Set(3, -1, Byte{9});
  const Value given = Given(map);
  EXPECT_EQ(given.Kind(), VT_ARRAY | VT_UI1);
  EXPECT_EQ(Taken(given), Variant(map));
  SAFEARRAY* array = given.Raw().value.parray;
  EXPECT_EQ(Taken(Value::Place(VT_ARRAY | VT_UI1, &array)), Variant(map));

  Array mixed = Array::OfSize(VariantKind::Variant, 2);
  mixed.Set(0, "one");
  mixed.Set(1, map);
  EXPECT_EQ(Given(mixed).Kind(), VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(Taken(Given(mixed)), Variant(mixed));
}

TEST(Marshalling, AnArrayWithoutMemoryHasNoCells) {
  const Variant none = Array::OfSize(VariantKind::Byte, 0);
  EXPECT_EQ(Taken(Value::Of<SAFEARRAY*>(VT_ARRAY | VT_UI1, nullptr)), none);
  SAFEARRAY* place = nullptr;
  EXPECT_EQ(Taken(Value::Place(VT_ARRAY | VT_UI1, &place)), none);
  EXPECT_EQ(ErrorOfTaking(Value::Of<SAFEARRAY*>(VT_ARRAY | VT_DISPATCH, nullptr)), 13);
}

TEST(Marshalling, RefusesReferencesToReferences) {
  Value own;
  own.Raw().vt = VT_BYREF | VT_VARIANT;
  own.Raw().value.pvarVal = &own.Raw();
  EXPECT_EQ(ErrorOfTaking(own), 13);
  Value inner = 5;
  Value outer = Value::Place(inner);
  EXPECT_EQ(ErrorOfTaking(Value::Place(outer)), 13);
  test::SampleInHands sample;
  EXPECT_EQ(sample.host.Write("Size", own).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(sample.host.Call("Sum", {own, 2, 3}).result, DISP_E_TYPEMISMATCH);
  own.Raw().vt = VT_EMPTY;
}

/// An array of so many levels, each the only cell of the next.
Value Nested(int levels) {
  Value value = 7;
  for (int level = 0; level < levels; ++level) {
    Array array = Array::OfSize(VariantKind::Variant, 1);
    SAFEARRAY* made = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG first = 0;
    SafeArrayPutElement(made, &first, &value.Raw());
    value = Value::Of(VT_ARRAY | VT_VARIANT, made);
  }
  return value;
}

TEST(Marshalling, TakesArraysThatAreNotNestedTooDeep) {
  EXPECT_EQ(ErrorOfTaking(Nested(16)), 0);
  EXPECT_EQ(ErrorOfTaking(Nested(17)), 13);
  EXPECT_EQ(ErrorOfTaking(Nested(16)), 0);
}

TEST(Marshalling, RefusesAnArrayThatHoldsItself) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  auto* cell = static_cast<VARIANT*>(array->pvData);
  cell->vt = VT_ARRAY | VT_VARIANT;
  cell->value.parray = array;
  VARIANT value;
  value.vt = VT_ARRAY | VT_VARIANT;
  value.value.parray = array;
  EXPECT_THROW(FromVariant(value), AutomationError);
  cell->vt = VT_EMPTY;
  SafeArrayDestroy(array);
}

TEST(Marshalling, RefusesArraysThatHostsHaveMadeWrongly) {
  const auto error = [](auto spoil) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 3);
    const SAFEARRAY sound = *array;
    spoil(*array);
    VARIANT value;
    value.vt = VT_ARRAY | VT_I4;
    value.value.parray = array;
    Long number = 0;
    try {
      FromVariant(value);
    } catch (const AutomationError& refused) {
      number = refused.Number();
    }
    *array = sound;
    SafeArrayDestroy(array);
    return number;
  };
  EXPECT_EQ(error([](SAFEARRAY&) {}), 0);
  EXPECT_EQ(error([](SAFEARRAY& array) { array.pvData = nullptr; }), 13);
  EXPECT_EQ(error([](SAFEARRAY& array) { array.cbElements = 8; }), 13);
  EXPECT_EQ(error([](SAFEARRAY& array) { array.cDims = 0; }), 13);
  EXPECT_EQ(error([](SAFEARRAY& array) {
              array.pvData = nullptr;
              array.rgsabound[0].cElements = 0;
            }),
            0);
}

bool IsPlace(int kind, const automation::TypeInfo& type) {
  VARIANT reference;
  reference.vt = static_cast<VARTYPE>(VT_BYREF | kind);
  reference.value.byref = nullptr;
  return IsPlaceFor(reference, type);
}

TEST(PlacesOfHosts, AreOfJustTheKindOrVariants) {
  const struct {
    automation::TypeInfo type;
    std::vector<int> kinds;
  } rows[] = {
      {automation::TypeOf<Byte>(), {VT_UI1}},
      {automation::TypeOf<Integer>(), {VT_I2}},
      {automation::TypeOf<Long>(), {VT_I4, VT_INT}},
      {automation::TypeOf<automation::Taste>(), {VT_I4, VT_INT}},
      {automation::TypeOf<Single>(), {VT_R4}},
      {automation::TypeOf<Double>(), {VT_R8}},
      {automation::TypeOf<Currency>(), {VT_CY}},
      {automation::TypeOf<bool>(), {VT_BOOL}},
      {automation::TypeOf<std::string>(), {VT_BSTR}},
      {automation::TypeOf<automation::Object>(), {VT_DISPATCH, VT_UNKNOWN}},
      {automation::TypeOf<std::vector<Byte>>(), {VT_ARRAY | VT_UI1}},
      {automation::TypeOf<std::vector<Long>>(), {VT_ARRAY | VT_I4}},
  };
  const int all[] = {VT_UI1,
                     VT_I2,
                     VT_I4,
                     VT_INT,
                     VT_R4,
                     VT_R8,
                     VT_CY,
                     VT_BOOL,
                     VT_BSTR,
                     VT_DISPATCH,
                     VT_UNKNOWN,
                     VT_UI4,
                     VT_DATE,
                     VT_ARRAY | VT_UI1,
                     VT_ARRAY | VT_I4,
                     VT_ARRAY | VT_VARIANT};
  for (const auto& row : rows) {
    for (const int kind : all) {
      const bool fits = std::find(row.kinds.begin(), row.kinds.end(), kind) != row.kinds.end();
      EXPECT_EQ(IsPlace(kind, row.type), fits) << row.type.name << " " << kind;
      EXPECT_TRUE(IsPlace(kind, automation::TypeOf<Variant>())) << kind;
    }
    EXPECT_TRUE(IsPlace(VT_VARIANT, row.type)) << row.type.name;
  }
}

TEST(PlacesOfHosts, AreSeenThroughAVariantThatRefersToThem) {
  LONG number = 1;
  Value inner = Value::Place(VT_I4, &number);
  EXPECT_TRUE(IsPlaceFor(Value::Place(inner).Raw(), automation::TypeOf<Long>()));
  EXPECT_FALSE(IsPlaceFor(Value::Place(inner).Raw(), automation::TypeOf<Integer>()));
  Value plain = 1;
  EXPECT_TRUE(IsPlaceFor(Value::Place(plain).Raw(), automation::TypeOf<Integer>()));
  EXPECT_TRUE(IsPlaceFor(Value::Place(VT_VARIANT, nullptr).Raw(), automation::TypeOf<Integer>()));
}

TEST(WritingBack, LeavesALockedArrayWhereItIs) {
  Value place = Given(Array::OfSize(VariantKind::Byte, 2));
  SAFEARRAY* const locked = place.Raw().value.parray;
  void* cells = nullptr;
  ASSERT_EQ(SafeArrayAccessData(locked, &cells), S_OK);
  const Variant longer = Array::OfSize(VariantKind::Byte, 5);
  for (const Value& reference :
       {Value::Place(VT_ARRAY | VT_UI1, &place.Raw().value.parray), Value::Place(place)}) {
    try {
      WriteBack(longer, reference.Raw());
      ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), 10);
    }
    EXPECT_EQ(place.Raw().value.parray, locked);
  }
  SafeArrayUnaccessData(locked);
}

TEST(WritingBack, FillsAPlaceOfEachKind) {
  const auto write = [](VARTYPE kind, const Variant& value, auto place) {
    WriteBack(value, Value::Place(kind, &place).Raw());
    return place;
  };
  EXPECT_EQ(write(VT_UI1, Byte{200}, BYTE{}), 200);
  EXPECT_EQ(write(VT_I2, Integer{-7}, SHORT{}), -7);
  EXPECT_EQ(write(VT_BOOL, true, VARIANT_BOOL{}), VARIANT_TRUE);
  EXPECT_EQ(write(VT_I4, Long{-70000}, LONG{}), -70000);
  EXPECT_EQ(write(VT_INT, Long{-70000}, LONG{}), -70000);
  EXPECT_EQ(write(VT_R4, 1.5f, 0.0f), 1.5f);
  EXPECT_EQ(write(VT_R8, 2.25, 0.0), 2.25);
  EXPECT_EQ(write(VT_CY, Currency{12345678901}, LONGLONG{}), 12345678901);
}

TEST(WritingBack, TouchesNothingBesideThePlace) {
  struct {
    BYTE before = 1, place = 2, behind[6] = {3, 3, 3, 3, 3, 3};
  } cells;
  WriteBack(Byte{9}, Value::Place(VT_UI1, &cells.place).Raw());
  EXPECT_EQ(cells.before, 1);
  EXPECT_EQ(cells.place, 9);
  for (const BYTE cell : cells.behind) EXPECT_EQ(cell, 3);
  SHORT narrow[4] = {1, 2, 3, 4};
  WriteBack(true, Value::Place(VT_BOOL, &narrow[1]).Raw());
  EXPECT_EQ(narrow[2], 3);
  LONG numbers[3] = {1, 2, 3};
  WriteBack(Long{9}, Value::Place(VT_I4, &numbers[1]).Raw());
  EXPECT_EQ(numbers[2], 3);
}

TEST(WritingBack, FreesWhatWasThere) {
  const auto old = std::make_shared<automation::Sample>(), now = std::make_shared<automation::Sample>();
  Value place = Given(automation::ObjectRef(old));
  EXPECT_EQ(old.use_count(), 2);
  WriteBack(automation::ObjectRef(now), Value::Place(VT_DISPATCH, &place.Raw().value.pdispVal).Raw());
  EXPECT_EQ(old.use_count(), 1);
  EXPECT_EQ(now.use_count(), 2);
  EXPECT_EQ(Taken(place), Variant(automation::ObjectRef(now)));
  WriteBack(Long{3}, Value::Place(place).Raw());
  EXPECT_EQ(now.use_count(), 1);
  EXPECT_EQ(place.Number(), 3);
}

TEST(WritingBack, FollowsVariantsOfReferences) {
  LONG number = 1;
  Value inner = Value::Place(VT_I4, &number);
  WriteBack(Long{7}, Value::Place(inner).Raw());
  EXPECT_EQ(number, 7);
  EXPECT_EQ(inner.Kind(), VT_BYREF | VT_I4);
}

TEST(WritingBack, ReplacesArrays) {
  Value place = Given(Array::OfSize(VariantKind::Byte, 2));
  const Variant longer = Array::OfSize(VariantKind::Byte, 5);
  WriteBack(longer, Value::Place(VT_ARRAY | VT_UI1, &place.Raw().value.parray).Raw());
  EXPECT_EQ(Taken(place), longer);
}

TEST(WritingBack, LeavesAPlaceThatCannotTakeTheValue) {
  LONG number = 4;
  const Value reference = Value::Place(VT_I4, &number);
  EXPECT_THROW(WriteBack("text", reference.Raw()), AutomationError);
  EXPECT_THROW(WriteBack(Byte{1}, reference.Raw()), AutomationError);
  EXPECT_EQ(number, 4);
  try {
    WriteBack("text", reference.Raw());
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Code(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error.Description(), "String cannot be written back where kind 3 is");
  }
}

}  // namespace
}  // namespace quenzel7::server
