#include "platform/automation/variant.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/collection.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

const Array kThreeLongs = Array::OfSize(VariantKind::Long, 3);

TEST(Variant, KnowsItsKind) {
  EXPECT_EQ(Variant().Kind(), VariantKind::Empty);
  EXPECT_EQ(Variant(NullValue{}).Kind(), VariantKind::Null);
  EXPECT_EQ(Variant(true).Kind(), VariantKind::Boolean);
  EXPECT_EQ(Variant(Byte{1}).Kind(), VariantKind::Byte);
  EXPECT_EQ(Variant(Integer{1}).Kind(), VariantKind::Integer);
  EXPECT_EQ(Variant(Long{1}).Kind(), VariantKind::Long);
  EXPECT_EQ(Variant(1.0f).Kind(), VariantKind::Single);
  EXPECT_EQ(Variant(1.0).Kind(), VariantKind::Double);
  EXPECT_EQ(Variant(Currency{1}).Kind(), VariantKind::Currency);
  EXPECT_EQ(Variant(std::string("a")).Kind(), VariantKind::String);
  EXPECT_EQ(Variant(std::string_view("a")).Kind(), VariantKind::String);
  EXPECT_EQ(Variant("a").Kind(), VariantKind::String);
  EXPECT_EQ(Variant(std::make_shared<Collection>()).Kind(), VariantKind::Object);
  EXPECT_EQ(Variant(ObjectRef()).Kind(), VariantKind::Object);
  EXPECT_EQ(Variant(kThreeLongs).Kind(), VariantKind::Array);
}

TEST(Variant, KindsHaveTheNumbersOfTheBinaryInterface) {
  const struct {
    VariantKind kind;
    int number;
    const char* name;
  } kKinds[] = {
      {VariantKind::Empty, 0, "Empty"},       {VariantKind::Null, 1, "Null"},
      {VariantKind::Integer, 2, "Integer"},   {VariantKind::Long, 3, "Long"},
      {VariantKind::Single, 4, "Single"},     {VariantKind::Double, 5, "Double"},
      {VariantKind::Currency, 6, "Currency"}, {VariantKind::String, 8, "String"},
      {VariantKind::Object, 9, "Object"},     {VariantKind::Boolean, 11, "Boolean"},
      {VariantKind::Variant, 12, "Variant"},  {VariantKind::Byte, 17, "Byte"},
      {VariantKind::Array, 0x2000, "Array"},
  };
  for (const auto& [kind, number, name] : kKinds) {
    EXPECT_EQ(static_cast<int>(kind), number);
    EXPECT_STREQ(KindName(kind), name);
  }
}

TEST(Variant, AKindThatDoesNotExistIsCalledUnknown) {
  EXPECT_STREQ(KindName(static_cast<VariantKind>(7)), "unknown");
}

TEST(Variant, AsksForEachKindAreTrueForThatKindOnly) {
  const Variant values[] = {Variant(), NullValue{}, true, "a", ObjectRef(), kThreeLongs};
  for (const Variant& value : values) {
    EXPECT_EQ(value.IsEmpty(), value.Kind() == VariantKind::Empty);
    EXPECT_EQ(value.IsNull(), value.Kind() == VariantKind::Null);
    EXPECT_EQ(value.IsText(), value.Kind() == VariantKind::String);
    EXPECT_EQ(value.IsObject(), value.Kind() == VariantKind::Object);
    EXPECT_EQ(value.IsArray(), value.Kind() == VariantKind::Array);
  }
}

TEST(Variant, IfGivesTheValueOfExactlyThatType) {
  const Variant value(Long{5});
  ASSERT_NE(value.If<Long>(), nullptr);
  EXPECT_EQ(*value.If<Long>(), 5);
  EXPECT_EQ(value.If<Integer>(), nullptr);
  EXPECT_EQ(value.If<bool>(), nullptr);
  EXPECT_EQ(*Variant(true).If<bool>(), true);
  EXPECT_EQ(*Variant(Byte{200}).If<Byte>(), 200);
  EXPECT_EQ(*Variant(Currency{12345}).If<Currency>(), Currency{12345});
}

TEST(Variant, NoPointerBecomesABoolean) {
  EXPECT_FALSE((std::is_constructible_v<Variant, int*>));
  EXPECT_FALSE((std::is_constructible_v<Variant, void*>));
  EXPECT_TRUE((std::is_constructible_v<Variant, const char*>));
}

TEST(Variant, GivesTextObjectAndArray) {
  const auto object = std::make_shared<Collection>();
  EXPECT_EQ(Variant("text").Text(), "text");
  EXPECT_EQ(Variant(object).Object(), object);
  EXPECT_EQ(Variant(ObjectRef()).Object(), nullptr);
  EXPECT_EQ(Variant(kThreeLongs).Elements().Size(), 3u);
}

TEST(Variant, TextMayHoldAnyByte) {
  const std::string text("a\0b\xff", 4);
  EXPECT_EQ(Variant(text).Text(), text);
  EXPECT_EQ(Variant(std::string_view(text)).Text(), text);
}

TEST(Variant, RaisesMismatchForAnotherKind) {
  Variant number(Long{1});
  EXPECT_RAISES(13, "type mismatch: Long where String was expected", number.Text());
  EXPECT_RAISES(13, "type mismatch: Long where Object was expected", number.Object());
  EXPECT_RAISES(13, "type mismatch: Long where Array was expected", number.Elements());
  EXPECT_RAISES(13, "type mismatch: Long where Array was expected", number.MutableElements());
  EXPECT_RAISES(13, "type mismatch: Null where String was expected", Variant(NullValue{}).Text());
}

TEST(Variant, ACopyDoesNotSeeLaterWrites) {
  Variant first(kThreeLongs);
  const Variant copy = first;
  first.MutableElements().Set(1, Long{7});
  EXPECT_EQ(first.Elements().At(1), Variant(Long{7}));
  EXPECT_EQ(copy.Elements().At(1), Variant(Long{0}));
}

TEST(Variant, CopiesShareTheirArrayUntilOneIsWritten) {
  Variant first(kThreeLongs);
  Variant copy = first;
  const Array* shared = &first.Elements();
  EXPECT_EQ(&copy.Elements(), shared);
  EXPECT_NE(&copy.MutableElements(), shared);
  EXPECT_EQ(&first.Elements(), shared);
}

TEST(Variant, AnUnsharedArrayIsWrittenInPlace) {
  Variant value(kThreeLongs);
  const Array* before = &value.Elements();
  EXPECT_EQ(&value.MutableElements(), before);
  {
    const Variant copy = value;
    EXPECT_EQ(&copy.Elements(), before);
  }
  EXPECT_EQ(&value.MutableElements(), before);
}

TEST(Variant, CopiesShareTheirText) {
  const Variant first("a text that is too long to lie within the value itself");
  const Variant copy = first;
  EXPECT_EQ(&copy.Text(), &first.Text());
}

TEST(Variant, TheSameKindAndValueAreEqual) {
  const auto object = std::make_shared<Collection>();
  const auto other = std::make_shared<Collection>();
  Array changed = kThreeLongs;
  changed.Set(2, Long{1});
  const std::pair<Variant, Variant> unequal[] = {
      {false, true}, {Byte{1}, Byte{2}}, {Integer{1}, Integer{2}},   {Long{1}, Long{2}},
      {1.0f, 2.0f},  {1.0, 2.0},         {Currency{1}, Currency{2}}, {"a", "b"},
      {"a", "A"},    {object, other},    {object, ObjectRef()},      {kThreeLongs, changed},
  };
  for (const auto& [a, b] : unequal) {
    EXPECT_TRUE(a == Variant(a)) << KindName(a.Kind());
    EXPECT_FALSE(a == b) << KindName(a.Kind());
  }
  EXPECT_TRUE(Variant() == Variant());
  EXPECT_TRUE(Variant(NullValue{}) == Variant(NullValue{}));
}

TEST(Variant, EqualTextsAndArraysNeedNotBeShared) {
  EXPECT_TRUE(Variant("abc") == Variant(std::string("abc")));
  EXPECT_TRUE(Variant(kThreeLongs) == Variant(Array::OfSize(VariantKind::Long, 3)));
}

TEST(Variant, DifferentKindsAreNeverEqual) {
  const std::vector<Variant> zeros = {Variant(), NullValue{}, false,       Byte{0}, Integer{0},  Long{0},
                                      0.0f,      0.0,         Currency{0}, "",      ObjectRef(), kThreeLongs};
  for (std::size_t a = 0; a < zeros.size(); ++a) {
    for (std::size_t b = 0; b < zeros.size(); ++b) EXPECT_EQ(zeros[a] == zeros[b], a == b) << a << " " << b;
  }
}

TEST(Variant, ANotANumberIsNotEqualToItself) {
  const Variant value(std::numeric_limits<Double>::quiet_NaN());
  EXPECT_FALSE(value == value);
}

TEST(Variant, KeepsItsObjectAlive) {
  std::weak_ptr<Collection> watched;
  {
    Variant value;
    {
      const auto object = std::make_shared<Collection>();
      watched = object;
      value = object;
    }
    EXPECT_FALSE(watched.expired());
  }
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace quenzel7::automation
