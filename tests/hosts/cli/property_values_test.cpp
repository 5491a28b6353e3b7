#include "hosts/cli/property_values.h"

#include <gtest/gtest.h>

#include <limits>

#include "framework/enums.h"
#include "platform/automation/member.h"
#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

using automation::TypeOf;
using automation::Variant;

template <class T>
Variant Value(const char* json) {
  return ValueFromJson(TypeOf<T>(), Json::parse(json));
}

template <class T>
std::string ErrorOf(const char* json) {
  return test::MessageOf([json] { Value<T>(json); });
}

template <class T>
std::string Written(const Variant& value) {
  return JsonFromValue(TypeOf<T>(), value).dump();
}

TEST(PropertyValues, PageFilesHoldNumbersTextsBooleansAndEnumerations) {
  for (const auto& type : {TypeOf<Byte>(), TypeOf<Integer>(), TypeOf<Long>(), TypeOf<Single>(),
                           TypeOf<Double>(), TypeOf<bool>(), TypeOf<std::string>(), TypeOf<enPenStyle>()}) {
    EXPECT_TRUE(IsPageFileType(type)) << type.name;
  }
  for (const auto& type :
       {TypeOf<Currency>(), TypeOf<Variant>(), TypeOf<std::vector<Byte>>(), TypeOf<automation::Object>()}) {
    EXPECT_FALSE(IsPageFileType(type)) << type.name;
  }
}

TEST(PropertyValues, OtherTypesCannotBeGiven) {
  EXPECT_EQ(ErrorOf<Currency>("1"), "cannot be given in a page file");
}

TEST(PropertyValues, WholeNumbersTakeTheRangeOfTheirType) {
  EXPECT_EQ(Value<Byte>("0"), Variant(Byte{0}));
  EXPECT_EQ(Value<Byte>("255"), Variant(Byte{255}));
  EXPECT_EQ(ErrorOf<Byte>("-1"), "must be a whole number from 0 to 255, -1 was given");
  EXPECT_EQ(ErrorOf<Byte>("256"), "must be a whole number from 0 to 255, 256 was given");
  EXPECT_EQ(Value<Integer>("-32768"), Variant(Integer{-32768}));
  EXPECT_EQ(Value<Integer>("32767"), Variant(Integer{32767}));
  EXPECT_EQ(ErrorOf<Integer>("-32769"), "must be a whole number from -32768 to 32767, -32769 was given");
  EXPECT_EQ(ErrorOf<Integer>("32768"), "must be a whole number from -32768 to 32767, 32768 was given");
  EXPECT_EQ(Value<Long>("-2147483648"), Variant(std::numeric_limits<Long>::min()));
  EXPECT_EQ(Value<Long>("2147483647"), Variant(Long{2147483647}));
}

TEST(PropertyValues, NumbersBeyondThirtyTwoBitsAreRefused) {
  for (const char* number : {"-2147483649", "2147483648", "1e12", "1e300", "18446744073709551615",
                             "4294967296", "-9223372036854775808", "2147483648.0", "-2147483649.0"}) {
    EXPECT_EQ(ErrorOf<Long>(number), "must be a whole number from -2147483648 to 2147483647, " +
                                         Json::parse(number).dump() + " was given");
  }
}

TEST(PropertyValues, AWholeNumberMayBeWrittenInAnyForm) {
  EXPECT_EQ(Value<Long>("10.0"), Variant(Long{10}));
  EXPECT_EQ(Value<Long>("1e3"), Variant(Long{1000}));
  EXPECT_EQ(Value<Long>("-2147483648.0"), Variant(std::numeric_limits<Long>::min()));
  EXPECT_EQ(Value<Long>("2147483647.0"), Variant(Long{2147483647}));
}

TEST(PropertyValues, FractionsAndOtherKindsAreNoWholeNumbers) {
  for (const char* wrong : {"1.5", "-0.5", "\"10\"", "true", "null", "[1]", "{}"}) {
    EXPECT_EQ(ErrorOf<Long>(wrong), "must be a whole number from -2147483648 to 2147483647, " +
                                        Json::parse(wrong).dump() + " was given");
  }
}

TEST(PropertyValues, FloatingNumbersTakeAnyNumberThatFits) {
  EXPECT_EQ(Value<Double>("0.1"), Variant(0.1));
  EXPECT_EQ(Value<Double>("3"), Variant(3.0));
  EXPECT_EQ(Value<Double>("-1e300"), Variant(-1e300));
  EXPECT_EQ(Value<Single>("0.1"), Variant(0.1f));
  EXPECT_EQ(Value<Single>("-7"), Variant(-7.0f));
  EXPECT_EQ(Value<Single>("3.4028234663852886e38"), Variant(std::numeric_limits<Single>::max()));
  EXPECT_EQ(ErrorOf<Single>("-3.5e38"),
            "must be a number from -3.4028234663852886e+38 to 3.4028234663852886e+38, -3.5e+38 was given");
  EXPECT_EQ(ErrorOf<Single>("\"x\""), "must be a number, \"x\" was given");
  EXPECT_EQ(ErrorOf<Double>("true"), "must be a number, true was given");
}

TEST(PropertyValues, BooleansAreTrueOrFalseOnly) {
  EXPECT_EQ(Value<bool>("true"), Variant(true));
  EXPECT_EQ(Value<bool>("false"), Variant(false));
  EXPECT_EQ(ErrorOf<bool>("-1"), "must be true or false, -1 was given");
}

TEST(PropertyValues, TextsAreTextsOnly) {
  EXPECT_EQ(Value<std::string>("\"a\\u00e4\""), Variant("aä"));
  EXPECT_EQ(ErrorOf<std::string>("5"), "must be a text, 5 was given");
}

TEST(PropertyValues, EnumerationsTakeNamesInAnyCase) {
  EXPECT_EQ(Value<enPenStyle>("\"ePS_Dash\""), Variant(Long{1}));
  EXPECT_EQ(Value<enPenStyle>("\"eps_dash_DOT\""), Variant(Long{3}));
  EXPECT_EQ(Value<enHatchStyle>("\"eHS_None\""), Variant(Long{99}));
}

TEST(PropertyValues, EnumerationsTakeAnyWholeNumber) {
  EXPECT_EQ(Value<enPenStyle>("2"), Variant(Long{2}));
  EXPECT_EQ(Value<enPenStyle>("-2147483648"), Variant(std::numeric_limits<Long>::min()));
}

TEST(PropertyValues, EnumerationsSuggestTheNearestName) {
  EXPECT_EQ(
      ErrorOf<enPenStyle>("\"ePS_Dsh\""),
      "must be a member of enPenStyle or a whole number, \"ePS_Dsh\" was given; nearest is \"ePS_Dash\"");
  EXPECT_EQ(ErrorOf<enPenStyle>("1.5"), "must be a member of enPenStyle or a whole number, 1.5 was given");
  EXPECT_EQ(ErrorOf<enPenStyle>("2147483648"),
            "must be a member of enPenStyle or a whole number, 2147483648 was given");
}

TEST(PropertyValues, EveryMemberOfEveryEnumerationIsWrittenByName) {
  for (const automation::EnumInfo* enumeration : clsEnums::Enumerations()) {
    const automation::TypeInfo type{enumeration->name, enumeration, automation::VariantKind::Long};
    for (const auto& member : enumeration->members) {
      const Json written = JsonFromValue(type, member.value);
      EXPECT_EQ(written, Json(member.name));
      EXPECT_EQ(ValueFromJson(type, written), Variant(member.value));
    }
  }
}

TEST(PropertyValues, ANumberWithoutANameIsWrittenAsNumber) { EXPECT_EQ(Written<enPenStyle>(Long{77}), "77"); }

TEST(PropertyValues, ValuesAreWrittenInTheFormOfTheirType) {
  EXPECT_EQ(Written<Byte>(Byte{255}), "255");
  EXPECT_EQ(Written<Integer>(Integer{-5}), "-5");
  EXPECT_EQ(Written<Long>(Long{-2147483647}), "-2147483647");
  EXPECT_EQ(Written<bool>(true), "true");
  EXPECT_EQ(Written<std::string>("a\"b"), "\"a\\\"b\"");
  EXPECT_EQ(Written<Double>(0.1), "0.1");
  EXPECT_EQ(Written<Single>(0.1f), "0.1");
  EXPECT_EQ(Written<Single>(16777216.0f), "16777216.0");
}

TEST(PropertyValues, BoundsOfAWholeNumberAreIncluded) {
  EXPECT_EQ(WholeNumberFromJson(Json(1), 1, 3), 1);
  EXPECT_EQ(WholeNumberFromJson(Json(3), 1, 3), 3);
  EXPECT_EQ(test::MessageOf([] { WholeNumberFromJson(Json(0), 1, 3); }),
            "must be a whole number from 1 to 3, 0 was given");
  EXPECT_EQ(test::MessageOf([] { WholeNumberFromJson(Json(4), 1, 3); }),
            "must be a whole number from 1 to 3, 4 was given");
}

}  // namespace
}  // namespace quenzel7::cli
