#include "platform/automation/convert.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/collection.h"
#include "platform/automation/property_bag.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

enum class Level : Long { Low = -3, High = 70000 };

std::string Show(bool value) { return value ? "True" : "False"; }
std::string Show(Byte value) { return std::to_string(value); }
std::string Show(Integer value) { return std::to_string(value); }
std::string Show(Long value) { return std::to_string(value); }
std::string Show(Double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.17g", value);
  return buffer;
}
std::string Show(Single value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.9g", static_cast<Double>(value));
  return buffer;
}
std::string Show(Currency value) { return std::to_string(value.tenThousandths); }
std::string Show(const std::string& value) { return '"' + value + '"'; }

/// The value as a T, or the number of the error as "error N".
template <class T>
std::string As(const Variant& value) {
  try {
    return Show(To<T>(value));
  } catch (const AutomationError& error) {
    return "error " + std::to_string(error.Number());
  }
}

struct Row {
  Variant value;
  const char* byte;
  const char* integer;
  const char* whole;
  const char* single;
  const char* number;
  const char* currency;
  const char* boolean;
  const char* text;
};

void ExpectRows(std::initializer_list<Row> rows) {
  int number = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE("row " + std::to_string(number++) + ", " + KindName(row.value.Kind()));
    EXPECT_EQ(As<Byte>(row.value), row.byte);
    EXPECT_EQ(As<Integer>(row.value), row.integer);
    EXPECT_EQ(As<Long>(row.value), row.whole);
    EXPECT_EQ(As<Single>(row.value), row.single);
    EXPECT_EQ(As<Double>(row.value), row.number);
    EXPECT_EQ(As<Currency>(row.value), row.currency);
    EXPECT_EQ(As<bool>(row.value), row.boolean);
    EXPECT_EQ(As<std::string>(row.value), row.text);
  }
}

constexpr const char* kNull = "error 94";
constexpr const char* kMismatch = "error 13";
constexpr const char* kOver = "error 6";

TEST(Convert, EmptyIsZeroFalseAndNoText) {
  ExpectRows({{Variant(), "0", "0", "0", "0", "0", "0", "False", "\"\""}});
}

TEST(Convert, NullIsNothingAtAll) {
  ExpectRows({{NullValue{}, kNull, kNull, kNull, kNull, kNull, kNull, kNull, kNull}});
}

TEST(Convert, BooleansAreMinusOneAndZero) {
  ExpectRows({
      {true, kOver, "-1", "-1", "-1", "-1", "-10000", "True", "\"True\""},
      {false, "0", "0", "0", "0", "0", "0", "False", "\"False\""},
  });
}

TEST(Convert, WholeNumbersGoWhereTheyFit) {
  ExpectRows({
      {Byte{255}, "255", "255", "255", "255", "255", "2550000", "True", "\"255\""},
      {Integer{256}, kOver, "256", "256", "256", "256", "2560000", "True", "\"256\""},
      {Integer{-1}, kOver, "-1", "-1", "-1", "-1", "-10000", "True", "\"-1\""},
      {Integer{-32768}, kOver, "-32768", "-32768", "-32768", "-32768", "-327680000", "True", "\"-32768\""},
      {Long{0}, "0", "0", "0", "0", "0", "0", "False", "\"0\""},
      {Long{255}, "255", "255", "255", "255", "255", "2550000", "True", "\"255\""},
      {Long{32767}, kOver, "32767", "32767", "32767", "32767", "327670000", "True", "\"32767\""},
      {Long{32768}, kOver, kOver, "32768", "32768", "32768", "327680000", "True", "\"32768\""},
      {Long{-32769}, kOver, kOver, "-32769", "-32769", "-32769", "-327690000", "True", "\"-32769\""},
      {Long{2147483647}, kOver, kOver, "2147483647", "2.14748365e+09", "2147483647", "21474836470000", "True",
       "\"2147483647\""},
  });
}

TEST(Convert, FloatingNumbersRoundToTheNearestAndHalvesToEven) {
  ExpectRows({
      {0.5, "0", "0", "0", "0.5", "0.5", "5000", "True", "\"0.5\""},
      {1.5f, "2", "2", "2", "1.5", "1.5", "15000", "True", "\"1.5\""},
      {2.5, "2", "2", "2", "2.5", "2.5", "25000", "True", "\"2.5\""},
      {-0.5, "0", "0", "0", "-0.5", "-0.5", "-5000", "True", "\"-0.5\""},
      {-0.75f, kOver, "-1", "-1", "-0.75", "-0.75", "-7500", "True", "\"-0.75\""},
      {255.5, kOver, "256", "256", "255.5", "255.5", "2555000", "True", "\"255.5\""},
      {254.5, "254", "254", "254", "254.5", "254.5", "2545000", "True", "\"254.5\""},
      {32767.5, kOver, kOver, "32768", "32767.5", "32767.5", "327675000", "True", "\"32767.5\""},
      {2147483647.5, kOver, kOver, kOver, "2.14748365e+09", "2147483647.5", "21474836475000", "True",
       "\"2147483647.5\""},
      {-2147483648.5, kOver, kOver, "-2147483648", "-2.14748365e+09", "-2147483648.5", "-21474836485000",
       "True", "\"-2147483648.5\""},
      {0.0f, "0", "0", "0", "0", "0", "0", "False", "\"0\""},
      {0.0, "0", "0", "0", "0", "0", "0", "False", "\"0\""},
  });
}

TEST(Convert, CurrencyIsAFixedPointNumber) {
  ExpectRows({
      {Currency{15000}, "2", "2", "2", "1.5", "1.5", "15000", "True", "\"1.5\""},
      {Currency{25000}, "2", "2", "2", "2.5", "2.5", "25000", "True", "\"2.5\""},
      {Currency{1}, "0", "0", "0", "9.99999975e-05", "0.0001", "1", "True", "\"0.0001\""},
      {Currency{0}, "0", "0", "0", "0", "0", "0", "False", "\"0\""},
      {Currency{-10000}, kOver, "-1", "-1", "-1", "-1", "-10000", "True", "\"-1\""},
  });
}

TEST(Convert, TextIsReadAsADecimalNumber) {
  ExpectRows({
      {"17", "17", "17", "17", "17", "17", "170000", "True", "\"17\""},
      {"  17  ", "17", "17", "17", "17", "17", "170000", "True", "\"  17  \""},
      {"+17", "17", "17", "17", "17", "17", "170000", "True", "\"+17\""},
      {" -2.5 ", kOver, "-2", "-2", "-2.5", "-2.5", "-25000", "True", "\" -2.5 \""},
      {"1e2", "100", "100", "100", "100", "100", "1000000", "True", "\"1e2\""},
      {"1.5E+1", "15", "15", "15", "15", "15", "150000", "True", "\"1.5E+1\""},
      {"25e-1", "2", "2", "2", "2.5", "2.5", "25000", "True", "\"25e-1\""},
      {".5", "0", "0", "0", "0.5", "0.5", "5000", "True", "\".5\""},
      {"0", "0", "0", "0", "0", "0", "0", "False", "\"0\""},
      {"1e39", kOver, kOver, kOver, kOver, "9.9999999999999994e+38", kOver, "True", "\"1e39\""},
  });
}

TEST(Convert, TextThatIsNoNumberIsAMismatch) {
  for (const char* text : {"",      " ",    "a",  "1a",  "1 2",  "--1", "+-1", "-+1", "++1",    "+",  "-",
                           "1.2.3", "0x10", "1e", "inf", "-inf", "nan", "\t1", "1,5", "1e400x", "+ 1"}) {
    EXPECT_RAISES(13, std::string("type mismatch: \"") + text + "\" is not a number",
                  To<Double>(Variant(text)));
  }
}

TEST(Convert, TextBeyondEveryNumberIsAnOverflow) {
  EXPECT_RAISES(6, "overflow: \" 1e400\" does not fit a number", To<Double>(Variant(" 1e400")));
  EXPECT_RAISES(6, "overflow: \"-1e400\" does not fit a number", To<Long>(Variant("-1e400")));
}

TEST(Convert, TrueAndFalseAreBooleansAsTextAndNothingElse) {
  EXPECT_EQ(As<bool>("True"), "True");
  EXPECT_EQ(As<bool>("False"), "False");
  EXPECT_EQ(As<bool>("true"), kMismatch);
  EXPECT_EQ(As<bool>(""), kMismatch);
  EXPECT_EQ(As<Long>("True"), kMismatch);
}

TEST(Convert, ObjectsAndArraysAreNoNumbersAndNoText) {
  for (const Variant& value : {Variant(std::make_shared<Collection>()), Variant(ObjectRef()),
                               Variant(Array::OfSize(VariantKind::Long, 1))}) {
    ExpectRows(
        {{value, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch}});
  }
}

TEST(Convert, MessagesTellWhatWasFoundAndWhatWasExpected) {
  const Variant null(NullValue{});
  const Variant array(Array::OfSize(VariantKind::Long, 1));
  EXPECT_RAISES(94, "invalid use of Null: a number was expected", To<Long>(null));
  EXPECT_RAISES(94, "invalid use of Null: a number was expected", To<bool>(null));
  EXPECT_RAISES(94, "invalid use of Null: a text was expected", To<std::string>(null));
  EXPECT_RAISES(94, "invalid use of Null: an object was expected", To<ObjectRef>(null));
  EXPECT_RAISES(94, "invalid use of Null: an array of bytes was expected", To<std::vector<Byte>>(null));
  EXPECT_RAISES(13, "type mismatch: Array where a number was expected", To<Double>(array));
  EXPECT_RAISES(13, "type mismatch: Array where a text was expected", To<std::string>(array));
  EXPECT_RAISES(13, "type mismatch: Long where an object was expected", To<ObjectRef>(Variant(Long{0})));
  EXPECT_RAISES(13, "type mismatch: String where an array of bytes was expected",
                To<std::vector<Byte>>(Variant("a")));
  EXPECT_RAISES(13, "the cells of the array are of Long", To<std::vector<Byte>>(array));
}

TEST(Convert, OverflowMessagesTellTheValue) {
  EXPECT_RAISES(6, "overflow: 256 does not fit a byte", To<Byte>(Variant(Long{256})));
  EXPECT_RAISES(6, "overflow: -1 does not fit a byte", To<Byte>(Variant("-1")));
  EXPECT_RAISES(6, "overflow: 32768 does not fit 16 bits", To<Integer>(Variant(Long{32768})));
  EXPECT_RAISES(6, "overflow: 2147483648.000000 does not fit 32 bits", To<Long>(Variant(2147483648.0)));
  EXPECT_RAISES(6, "overflow: 1e+39 does not fit a single", To<Single>(Variant(1e39)));
  EXPECT_RAISES(6, "overflow: the value does not fit a currency", To<Currency>(Variant(1e15)));
}

TEST(Convert, ASingleReachesItsBiggestNumber) {
  constexpr Double kMost = std::numeric_limits<Single>::max();
  EXPECT_EQ(To<Single>(Variant(kMost)), std::numeric_limits<Single>::max());
  EXPECT_EQ(To<Single>(Variant(-kMost)), std::numeric_limits<Single>::lowest());
  EXPECT_EQ(As<Single>(kMost * 1.0000001), kOver);
  EXPECT_EQ(As<Single>(-kMost * 1.0000001), kOver);
  EXPECT_EQ(To<Single>(Variant(std::numeric_limits<Double>::infinity())),
            std::numeric_limits<Single>::infinity());
  EXPECT_TRUE(std::isnan(To<Single>(Variant(std::numeric_limits<Double>::quiet_NaN()))));
}

TEST(Convert, CurrencyRoundsTheFifthDecimal) {
  EXPECT_EQ(As<Currency>(1.00004), "10000");
  EXPECT_EQ(As<Currency>(1.00006), "10001");
  EXPECT_EQ(As<Currency>(-1.00006), "-10001");
  EXPECT_EQ(As<Currency>(0.00003125 * 16), "5");
}

TEST(Convert, CurrencyReachesItsLimits) {
  EXPECT_EQ(As<Currency>(-922337203685477.5808), "-9223372036854775808");
  EXPECT_EQ(As<Currency>(-922337203685477.75), kOver);
  EXPECT_EQ(As<Currency>(922337203685477.5), "9223372036854774784");
  EXPECT_EQ(As<Currency>(922337203685477.75), kOver);
  EXPECT_EQ(As<Currency>(std::numeric_limits<Double>::quiet_NaN()), kOver);
  EXPECT_EQ(As<Currency>(Currency{INT64_MAX}), "9223372036854775807");
}

TEST(Convert, CurrencyTextShowsTheDecimalsThatThereAre) {
  EXPECT_EQ(To<std::string>(Variant(Currency{12345})), "1.2345");
  EXPECT_EQ(To<std::string>(Variant(Currency{10500})), "1.05");
  EXPECT_EQ(To<std::string>(Variant(Currency{-5})), "-0.0005");
  EXPECT_EQ(To<std::string>(Variant(Currency{1000000})), "100");
  EXPECT_EQ(To<std::string>(Variant(Currency{INT64_MAX})), "922337203685477.5807");
  EXPECT_EQ(To<std::string>(Variant(Currency{INT64_MIN})), "-922337203685477.5808");
}

TEST(Convert, FloatingTextShowsSevenAndFifteenDigits) {
  EXPECT_EQ(To<std::string>(Variant(0.1f)), "0.1");
  EXPECT_EQ(To<std::string>(Variant(1234567.9f)), "1234568");
  EXPECT_EQ(To<std::string>(Variant(12345678.0f)), "1.234568e+07");
  EXPECT_EQ(To<std::string>(Variant(0.1)), "0.1");
  EXPECT_EQ(To<std::string>(Variant(1.0 / 3)), "0.333333333333333");
  EXPECT_EQ(To<std::string>(Variant(123456789012345.0)), "123456789012345");
  EXPECT_EQ(To<std::string>(Variant(1234567890123456.0)), "1.23456789012346e+15");
  EXPECT_EQ(To<std::string>(Variant(-1e-300)), "-1e-300");
}

TEST(Convert, EnumerationsAreTheirNumbers) {
  EXPECT_EQ(To<Level>(Variant("70000")), Level::High);
  EXPECT_EQ(To<Level>(Variant(-3.0)), Level::Low);
  EXPECT_EQ(From(Level::High), Variant(Long{70000}));
}

TEST(Convert, AVariantStaysAsItIs) {
  EXPECT_EQ(To<Variant>(Variant(NullValue{})), Variant(NullValue{}));
  EXPECT_EQ(From(Variant("a")), Variant("a"));
}

TEST(Convert, FromKeepsTheKind) {
  EXPECT_EQ(From(true), Variant(true));
  EXPECT_EQ(From(Byte{3}), Variant(Byte{3}));
  EXPECT_EQ(From(Integer{3}), Variant(Integer{3}));
  EXPECT_EQ(From(Long{3}), Variant(Long{3}));
  EXPECT_EQ(From(3.0f), Variant(3.0f));
  EXPECT_EQ(From(3.0), Variant(3.0));
  EXPECT_EQ(From(Currency{3}), Variant(Currency{3}));
  EXPECT_EQ(From(std::string("a")), Variant("a"));
}

TEST(Convert, ByteBlocksAreArraysOfBytes) {
  const std::vector<Byte> bytes = {1, 0, 255};
  const Variant value = From(bytes);
  EXPECT_EQ(value.Elements().ElementKind(), VariantKind::Byte);
  EXPECT_EQ(value.Elements().LowerBound(1), 0);
  EXPECT_EQ(value.Elements().UpperBound(1), 2);
  EXPECT_EQ(To<std::vector<Byte>>(value), bytes);
}

TEST(Convert, VectorsOfLongAreArraysOfLong) {
  const Variant value = From(std::vector<Long>{-1, 0, 70000});
  const Array& array = value.Elements();
  EXPECT_EQ(array.ElementKind(), VariantKind::Long);
  EXPECT_EQ(array.Dimensions(), 1);
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), 2);
  EXPECT_EQ(array.At(0), Variant(Long{-1}));
  EXPECT_EQ(array.At(1), Variant(Long{0}));
  EXPECT_EQ(array.At(2), Variant(Long{70000}));
  EXPECT_EQ(FromLongs({}).Elements().UpperBound(1), -1);
}

TEST(Convert, VectorsOfTextsAreArraysOfTexts) {
  const Variant value = From(std::vector<std::string>{"b", "", "a"});
  const Array& array = value.Elements();
  EXPECT_EQ(array.ElementKind(), VariantKind::String);
  EXPECT_EQ(array.Dimensions(), 1);
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), 2);
  EXPECT_EQ(array.At(0), Variant("b"));
  EXPECT_EQ(array.At(1), Variant(""));
  EXPECT_EQ(array.At(2), Variant("a"));
  EXPECT_EQ(FromTexts({}).Elements().UpperBound(1), -1);
}

TEST(Convert, ObjectsComeBackAsTheirClass) {
  const auto object = std::make_shared<Collection>();
  const Variant value(object);
  EXPECT_EQ(To<ObjectRef>(value), object);
  EXPECT_EQ(To<CollectionRef>(value), object);
  EXPECT_EQ(&ToReference<Collection>(value), object.get());
  EXPECT_EQ(&ToReference<Object>(value), object.get());
}

TEST(Convert, AnObjectOfAnotherClassIsAMismatch) {
  const Variant value(std::make_shared<Collection>());
  const char* const text = "type mismatch: an object of class Collection does not fit here";
  EXPECT_RAISES(13, text, To<PropertyBagRef>(value));
  EXPECT_RAISES(13, text, ToReference<PropertyBag>(value));
}

TEST(Convert, EmptyAndNoObjectAreNoObject) {
  for (const Variant& value : {Variant(), Variant(ObjectRef())}) {
    EXPECT_EQ(To<ObjectRef>(value), nullptr);
    EXPECT_EQ(To<CollectionRef>(value), nullptr);
    EXPECT_RAISES(91, "an object was expected and none was given", ToReference<Collection>(value));
    EXPECT_RAISES(91, "an object was expected and none was given", ToReference<Object>(value));
  }
}

TEST(Convert, EveryWholeNumberSurvivesItsText) {
  ASSERT_TRUE(rc::check([](Long number) {
    RC_ASSERT(To<Long>(Variant(To<std::string>(Variant(number)))) == number);
    RC_ASSERT(To<std::string>(Variant(number)) == std::to_string(number));
  }));
}

TEST(Convert, EveryFloatingNumberRoundsToANeighbourAtMostAHalfAway) {
  ASSERT_TRUE(rc::check([](Integer whole, Integer fraction) {
    const Double number = whole + fraction / 65536.0;
    const Long rounded = To<Long>(Variant(number));
    RC_ASSERT(std::abs(rounded - number) <= 0.5);
    RC_ASSERT(std::abs(rounded - number) < 0.5 || rounded % 2 == 0);
  }));
}

TEST(LongFromText, ReadsATextAsToLongDoes) {
  EXPECT_EQ(LongFromText(" -17 "), -17);
  EXPECT_EQ(LongFromText("2.5"), 2);
  EXPECT_EQ(LongFromText("3.5"), 4);
  EXPECT_EQ(test::RaisedBy([] { LongFromText("wide"); }).number, 13);
  EXPECT_EQ(test::RaisedBy([] { LongFromText("2147483648"); }).number, 6);
}

TEST(To, APlusSignBeforeOneDigitIsRead) { EXPECT_EQ(To<Double>(Variant("+5")), 5.0); }

TEST(To, CurrencyOverflowsAtItsLimit) {
  EXPECT_EQ(test::ErrorOf([] { To<Currency>(Variant(922337203685477.5808)); }), 6);
}

TEST(FromArgument, GivesWhatIsMadeOfTheArgument) {
  EXPECT_EQ(FromArgument(3, [] { return Long{7}; }), 7);
}

TEST(FromArgument, TellsThePlaceWithTheError) {
  try {
    FromArgument(3, []() -> Long { throw AutomationError(ErrorNumber::Overflow, "too big", "Fennick"); });
    FAIL() << "nothing was raised";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Argument(), 3u);
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "too big");
    EXPECT_EQ(error.Source(), "Fennick");
  }
}

TEST(FromArgument, LetsOtherExceptionsPass) {
  EXPECT_THROW(FromArgument(0, []() -> Long { throw std::bad_alloc(); }), std::bad_alloc);
}

}  // namespace
}  // namespace quenzel7::automation
