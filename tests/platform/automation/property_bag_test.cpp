#include "platform/automation/property_bag.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <bit>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"
#include "platform/automation/convert.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

using Bytes = std::vector<Byte>;

/// The published CRC-32 (reflected, polynomial 0x04C11DB7), bit by bit.
std::uint32_t Crc32(const Bytes& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const Byte byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
  }
  return ~crc;
}

Bytes Little(std::uint32_t number) {
  return {static_cast<Byte>(number), static_cast<Byte>(number >> 8), static_cast<Byte>(number >> 16),
          static_cast<Byte>(number >> 24)};
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// A whole block around the entries: beginning, their number, checksum.
Bytes Block(std::uint32_t count, const Bytes& entries) {
  const Bytes body = Joined({{'Q', 'B', 'a', 'g', 1}, Little(count), entries});
  return Joined({body, Little(Crc32(body))});
}

/// The block with its checksum made right again.
Bytes Mended(Bytes block) {
  block.resize(block.size() - 4);
  return Joined({block, Little(Crc32(block))});
}

/// The entry "a" with the bytes of a kind and a value.
Bytes EntryA(const Bytes& kindAndValue) { return Joined({{1, 0, 0, 0, 'a'}, kindAndValue}); }

std::shared_ptr<PropertyBag> BagOf(const Variant& value) {
  auto bag = std::make_shared<PropertyBag>();
  bag->WriteProperty("a", value);
  return bag;
}

Variant RoundTrip(const Variant& value) {
  PropertyBag read;
  read.Contents(BagOf(value)->Contents());
  return read.ReadProperty("a");
}

test::Raised Refusal(const Bytes& bytes) {
  PropertyBag bag;
  return test::RaisedBy([&] { bag.Contents(bytes); });
}

test::Raised Damaged(const char* what) {
  return {331, std::string("not the contents of a property bag: ") + what};
}

/// A bag with a value of every kind, in every nesting.
std::shared_ptr<PropertyBag> FullBag() {
  auto inner = std::make_shared<PropertyBag>();
  inner->WriteProperty("X", Long{-2});
  Array variants(VariantKind::Variant, Bounds{1, 2});
  variants.Set(1, "in");
  variants.Set(2, Array::OfBytes(Bytes{1, 2}));
  Array booleans(VariantKind::Boolean, Bounds{-1, 0}, Bounds{0, 1});
  booleans.Set(0, 1, true);
  auto bag = std::make_shared<PropertyBag>();
  bag->WriteProperty("Empty", Variant());
  bag->WriteProperty("Null", NullValue{});
  bag->WriteProperty("Boolean", true);
  bag->WriteProperty("Byte", Byte{200});
  bag->WriteProperty("Integer", Integer{-2});
  bag->WriteProperty("Long", Long{100000});
  bag->WriteProperty("Single", 1.5f);
  bag->WriteProperty("Double", -2.25);
  bag->WriteProperty("Currency", Currency{-12345});
  bag->WriteProperty("String", "text");
  bag->WriteProperty("Bag", inner);
  bag->WriteProperty("Variants", variants);
  bag->WriteProperty("Booleans", booleans);
  return bag;
}

TEST(PropertyBag, GivesBackWhatWasWritten) {
  PropertyBag bag;
  bag.WriteProperty("Xs", Long{5});
  EXPECT_EQ(bag.ReadProperty("Xs"), Variant(Long{5}));
}

TEST(PropertyBag, NamesAreTheSameInAnyCase) {
  PropertyBag bag;
  bag.WriteProperty("Xs", Long{5});
  EXPECT_EQ(bag.ReadProperty("xS"), Variant(Long{5}));
  EXPECT_TRUE(bag.Has("XS"));
  EXPECT_FALSE(bag.Has("X"));
}

TEST(PropertyBag, KeepsNamesInTheOrderOfTheFirstWrite) {
  PropertyBag bag;
  bag.WriteProperty("b", Long{1});
  bag.WriteProperty("a", Long{2});
  bag.WriteProperty("c", Long{3});
  bag.WriteProperty("A", Long{4});
  EXPECT_EQ(bag.Names(), (std::vector<std::string>{"b", "a", "c"}));
  EXPECT_EQ(bag.ReadProperty("a"), Variant(Long{4}));
  EXPECT_EQ(bag.ReadProperty("b"), Variant(Long{1}));
  EXPECT_EQ(bag.ReadProperty("c"), Variant(Long{3}));
}

TEST(PropertyBag, FindsValuesAmongManyInAnyOrder) {
  // At each of these sizes one more value is written, some of them again.
  constexpr Long kMost = 200;
  PropertyBag bag;
  const auto name = [](Long number) { return "Name_" + std::to_string(number); };
  for (Long size = 1; size <= kMost; ++size) {
    bag.WriteProperty(name(size), size);
    bag.WriteProperty("NAME_" + std::to_string(size / 2 + 1), Long{-1});
    bag.WriteProperty(name(size / 2 + 1), size / 2 + 1);
    EXPECT_FALSE(bag.Has(name(size + 1)));
    EXPECT_EQ(bag.ReadProperty(name(size)), Variant(size));
    EXPECT_EQ(bag.ReadProperty(name(1)), Variant(Long{1}));
  }
  PropertyBag copy;
  copy.WriteProperty("Name_7", "old");
  copy.Contents(bag.Contents());
  ASSERT_EQ(copy.Names().size(), std::size_t{kMost});
  for (Long number = kMost; number >= 1; --number) {
    EXPECT_EQ(copy.ReadProperty("nAME_" + std::to_string(number)), Variant(number));
    EXPECT_EQ(copy.Names()[static_cast<std::size_t>(number) - 1], name(number));
  }
  copy.WriteProperty("More", Long{5});
  EXPECT_EQ(copy.ReadProperty("MORE"), Variant(Long{5}));
  PropertyBag few;
  few.WriteProperty("Few", Long{1});
  copy.Contents(few.Contents());
  EXPECT_FALSE(copy.Has(name(1)));
  EXPECT_EQ(copy.ReadProperty("few"), Variant(Long{1}));
}

TEST(PropertyBag, RaisesForANameThatIsNotThere) {
  PropertyBag bag;
  bag.WriteProperty("Xs", Long{5});
  EXPECT_RAISES(327, "the property bag has no value named \"Ys\"", bag.ReadProperty("Ys"));
}

TEST(PropertyBag, TheStandInIsForNamesThatAreNotThere) {
  PropertyBag bag;
  bag.WriteProperty("Xs", Variant());
  EXPECT_EQ(bag.ReadProperty("Ys", Long{7}), Variant(Long{7}));
  EXPECT_EQ(bag.ReadProperty("xs", Long{7}), Variant());
  EXPECT_EQ(bag.ReadProperty("Ys", Variant()), Variant());
}

TEST(PropertyBag, AnEmptyBagIsItsFrameOnly) {
  EXPECT_EQ(PropertyBag().Contents(), (Bytes{'Q', 'B', 'a', 'g', 1, 0, 0, 0, 0, 0x08, 0xD5, 0xC8, 0xED}));
}

TEST(PropertyBag, ContentsIsExactlyTheDescribedBlock) {
  PropertyBag bag;
  bag.WriteProperty("Xs", Long{0x01020304});
  bag.WriteProperty("On", true);
  bag.WriteProperty("T", "hey");
  EXPECT_EQ(bag.Contents(), Block(3, {
                                         2, 0, 0, 0, 'X', 's', 3,  0, 4, 3, 2, 1,              // Xs
                                         2, 0, 0, 0, 'O', 'n', 11, 0, 1,                       // On
                                         1, 0, 0, 0, 'T', 8,   0,  3, 0, 0, 0, 'h', 'e', 'y',  // T
                                     }));
}

TEST(PropertyBag, EveryNumberHasItsOwnWidthLowByteFirst) {
  const std::pair<Variant, Bytes> layouts[] = {
      {Variant(), {0, 0}},
      {NullValue{}, {1, 0}},
      {Integer{-2}, {2, 0, 0xFE, 0xFF}},
      {Long{-2}, {3, 0, 0xFE, 0xFF, 0xFF, 0xFF}},
      {1.5f, {4, 0, 0, 0, 0xC0, 0x3F}},
      {-2.25, {5, 0, 0, 0, 0, 0, 0, 0, 0x02, 0xC0}},
      {Currency{0x0102030405060708}, {6, 0, 8, 7, 6, 5, 4, 3, 2, 1}},
      {"", {8, 0, 0, 0, 0, 0}},
      {false, {11, 0, 0}},
      {Byte{200}, {17, 0, 200}},
  };
  for (const auto& [value, layout] : layouts) {
    EXPECT_EQ(BagOf(value)->Contents(), Block(1, EntryA(layout))) << KindName(value.Kind());
  }
}

TEST(PropertyBag, AnArrayIsKindDimensionsBoundsAndCells) {
  Array line(VariantKind::Integer, Bounds{-1, 0});
  line.Set(-1, Long{1});
  line.Set(0, Long{-2});
  EXPECT_EQ(BagOf(line)->Contents(),
            Block(1, EntryA({0, 0x20, 2, 0, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0xFE, 0xFF})));
  Array plane(VariantKind::Byte, Bounds{0, 1}, Bounds{5, 6});
  plane.Set(0, 5, Long{1});
  plane.Set(1, 5, Long{2});
  plane.Set(0, 6, Long{3});
  plane.Set(1, 6, Long{4});
  EXPECT_EQ(
      BagOf(plane)->Contents(),
      Block(1, EntryA({0, 0x20, 17, 0, 2, 0, 0, 0, 0, 1, 0, 0, 0, 5, 0, 0, 0, 6, 0, 0, 0, 1, 2, 3, 4})));
}

TEST(PropertyBag, CellsHaveTheLayoutOfTheirKind) {
  const struct {
    VariantKind kind;
    Variant value;
    Bytes cell;
  } kCells[] = {
      {VariantKind::Byte, Byte{9}, {9}},
      {VariantKind::Integer, Integer{-2}, {0xFE, 0xFF}},
      {VariantKind::Long, Long{-2}, {0xFE, 0xFF, 0xFF, 0xFF}},
      {VariantKind::Single, 1.5f, {0, 0, 0xC0, 0x3F}},
      {VariantKind::Double, -2.25, {0, 0, 0, 0, 0, 0, 0x02, 0xC0}},
      {VariantKind::Currency, Currency{0x0102030405060708}, {8, 7, 6, 5, 4, 3, 2, 1}},
      {VariantKind::Boolean, true, {0xFF, 0xFF}},
      {VariantKind::String, "xy", {2, 0, 0, 0, 'x', 'y'}},
      {VariantKind::Variant, Integer{3}, {2, 0, 3, 0}},
  };
  for (const auto& [kind, value, cell] : kCells) {
    Array array = Array::OfSize(kind, 1);
    array.Set(0, value);
    const Bytes head = {0, 0x20, static_cast<Byte>(kind), 0, 1, 0, 0, 0, 0, 0, 0, 0, 0};
    const Bytes block = Block(1, EntryA(Joined({head, cell})));
    EXPECT_EQ(BagOf(array)->Contents(), block) << KindName(kind);
    PropertyBag read;
    read.Contents(block);
    EXPECT_EQ(read.ReadProperty("a"), Variant(array)) << KindName(kind);
  }
}

TEST(PropertyBag, ABagWithinABagIsItsOwnBlockBehindItsLength) {
  const Bytes inner = Block(1, EntryA({17, 0, 7}));
  const Bytes length = Little(static_cast<std::uint32_t>(inner.size()));
  EXPECT_EQ(BagOf(BagOf(Byte{7}))->Contents(), Block(1, EntryA(Joined({{9, 0}, length, inner}))));
}

TEST(PropertyBag, EveryKindSurvivesTheBlock) {
  const Variant values[] = {Variant(),
                            NullValue{},
                            true,
                            false,
                            Byte{255},
                            Integer{-32768},
                            std::numeric_limits<Long>::min(),
                            std::numeric_limits<Single>::denorm_min(),
                            std::numeric_limits<Double>::max(),
                            Currency{INT64_MIN},
                            std::string("a\0b\xFF", 4),
                            "",
                            Array::OfBytes(Bytes(300, 7)),
                            Array::OfBytes({})};
  for (const Variant& value : values) EXPECT_EQ(RoundTrip(value), value) << KindName(value.Kind());
}

TEST(PropertyBag, FloatingNumbersSurviveBitForBit) {
  const Double strange = std::bit_cast<Double>(std::uint64_t{0x7FF8000000000123});
  EXPECT_EQ(std::bit_cast<std::uint64_t>(*RoundTrip(strange).If<Double>()), 0x7FF8000000000123u);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(*RoundTrip(-0.0).If<Double>()), 0x8000000000000000u);
}

TEST(PropertyBag, ArraysOfEveryKindAndShapeSurviveTheBlock) {
  const std::pair<VariantKind, Variant> kinds[] = {
      {VariantKind::Byte, Byte{200}},     {VariantKind::Integer, Integer{-2}},
      {VariantKind::Long, Long{1 << 30}}, {VariantKind::Single, 0.1f},
      {VariantKind::Double, 0.1},         {VariantKind::Currency, Currency{-1}},
      {VariantKind::Boolean, true},       {VariantKind::String, "text"},
      {VariantKind::Variant, NullValue{}}};
  for (const auto& [kind, value] : kinds) {
    Array line(kind, Bounds{5, 7});
    line.Set(6, value);
    Array plane(kind, Bounds{-2, -1}, Bounds{0, 2});
    plane.Set(-2, 1, value);
    EXPECT_EQ(RoundTrip(line), Variant(line)) << KindName(kind);
    EXPECT_EQ(RoundTrip(plane), Variant(plane)) << KindName(kind);
  }
}

TEST(PropertyBag, ArraysWithoutCellsSurviveTheBlock) {
  const Array shapes[] = {
      Array(VariantKind::Long, Bounds{3, 2}), Array(VariantKind::String, Bounds{0, 99999}, Bounds{0, -1}),
      Array(VariantKind::Byte, Bounds{0, -1}, Bounds{0, 99999}),
      Array(VariantKind::Double, Bounds{std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()},
            Bounds{1, 0})};
  for (const Array& array : shapes) EXPECT_EQ(RoundTrip(array), Variant(array));
}

TEST(PropertyBag, ABagWithinABagSurvivesTheBlock) {
  PropertyBag read;
  read.Contents(FullBag()->Contents());
  EXPECT_EQ(read.Names(), FullBag()->Names());
  const auto inner = To<PropertyBagRef>(read.ReadProperty("Bag"));
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(inner->Names(), std::vector<std::string>{"X"});
  EXPECT_EQ(inner->ReadProperty("X"), Variant(Long{-2}));
  EXPECT_EQ(read.ReadProperty("Variants"), FullBag()->ReadProperty("Variants"));
  EXPECT_EQ(read.Contents(), FullBag()->Contents());
}

TEST(PropertyBag, ContentsReplacesAllThatWasThere) {
  PropertyBag bag;
  bag.WriteProperty("old", Long{1});
  bag.Contents(BagOf("new")->Contents());
  EXPECT_EQ(bag.Names(), std::vector<std::string>{"a"});
}

TEST(PropertyBag, AnObjectOtherThanABagIsAMismatch) {
  EXPECT_RAISES(13, "type mismatch: an object of class Collection does not fit here",
                BagOf(std::make_shared<Collection>())->Contents());
  EXPECT_RAISES(91, "an object was expected and none was given", BagOf(ObjectRef())->Contents());
}

/// A bag with that many bags within.
std::shared_ptr<PropertyBag> Nested(int levels) {
  auto bag = BagOf(Long{1});
  for (int level = 0; level < levels; ++level) bag = BagOf(bag);
  return bag;
}

/// The same block as a bag of nested bags would give, without the limit of writing.
Bytes NestedBlock(int levels) {
  Bytes block = Block(1, EntryA({3, 0, 1, 0, 0, 0}));
  for (int level = 0; level < levels; ++level) {
    const Bytes length = Little(static_cast<std::uint32_t>(block.size()));
    block = Block(1, EntryA(Joined({{9, 0}, length, block})));
  }
  return block;
}

constexpr const char* kTooDeep = "property bags and arrays nest more than 16 deep";

TEST(PropertyBag, SixteenBagsNestWithinABag) {
  EXPECT_EQ(Nested(16)->Contents(), NestedBlock(16));
  PropertyBag read;
  read.Contents(NestedBlock(16));
  EXPECT_EQ(read.Contents(), NestedBlock(16));
}

TEST(PropertyBag, SeventeenBagsWithinABagAreTooDeep) {
  EXPECT_RAISES(13, kTooDeep, Nested(17)->Contents());
  EXPECT_EQ(Refusal(NestedBlock(17)), (test::Raised{331, kTooDeep}));
}

TEST(PropertyBag, AnEmptyBagCountsToTheDepthToo) {
  const auto nested = [](int levels) {
    auto bag = std::make_shared<PropertyBag>();
    for (int level = 0; level < levels; ++level) bag = BagOf(bag);
    return bag;
  };
  EXPECT_RAISES(13, kTooDeep, nested(17)->Contents());
  const Bytes deepest = nested(16)->Contents();
  const Bytes length = Little(static_cast<std::uint32_t>(deepest.size()));
  EXPECT_EQ(Refusal(deepest), test::Raised{});
  EXPECT_EQ(Refusal(Block(1, EntryA(Joined({{9, 0}, length, deepest})))), (test::Raised{331, kTooDeep}));
}

/// A value within that many arrays of variants.
Variant InArrays(int levels) {
  Variant value(Long{1});
  for (int level = 0; level < levels; ++level) {
    Array array = Array::OfSize(VariantKind::Variant, 1);
    array.Set(0, value);
    value = array;
  }
  return value;
}

Bytes ArraysBlock(int levels) {
  Bytes value = {3, 0, 1, 0, 0, 0};
  for (int level = 0; level < levels; ++level) {
    value = Joined({{0, 0x20, 12, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}, value});
  }
  return Block(1, EntryA(value));
}

TEST(PropertyBag, SixteenArraysNestWithinOneAnother) {
  EXPECT_EQ(BagOf(InArrays(16))->Contents(), ArraysBlock(16));
  EXPECT_EQ(RoundTrip(InArrays(16)), InArrays(16));
}

TEST(PropertyBag, SeventeenArraysWithinOneAnotherAreTooDeep) {
  EXPECT_RAISES(13, kTooDeep, BagOf(InArrays(17))->Contents());
  EXPECT_EQ(Refusal(ArraysBlock(17)), (test::Raised{331, kTooDeep}));
}

TEST(PropertyBag, ABagWithinItselfIsTooDeep) {
  auto bag = std::make_shared<PropertyBag>();
  bag->WriteProperty("self", bag);
  EXPECT_RAISES(13, kTooDeep, bag->Contents());
  bag->WriteProperty("self", Variant());
}

TEST(PropertyBag, EveryTruncationIsRefused) {
  const Bytes whole = FullBag()->Contents();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(Refusal(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))).number, 331)
        << size;
  }
}

TEST(PropertyBag, EveryChangedByteIsRefusedAndLeavesTheBagAsItWas) {
  const Bytes whole = FullBag()->Contents();
  PropertyBag bag;
  bag.WriteProperty("kept", Long{5});
  const Bytes before = bag.Contents();
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const int change : {0x01, 0x80, 0xFF}) {
      Bytes damaged = whole;
      damaged[place] = static_cast<Byte>(damaged[place] ^ change);
      EXPECT_EQ(test::RaisedBy([&] { bag.Contents(damaged); }).number, 331) << place;
    }
  }
  EXPECT_EQ(bag.Contents(), before);
}

TEST(PropertyBag, EveryTruncationBehindARightChecksumIsRefused) {
  const Bytes whole = FullBag()->Contents();
  PropertyBag bag;
  bag.WriteProperty("kept", Long{5});
  const Bytes before = bag.Contents();
  for (std::size_t size = 4; size < whole.size(); ++size) {
    const Bytes cut = Mended(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_EQ(test::RaisedBy([&] { bag.Contents(cut); }).number, 331) << size;
  }
  EXPECT_EQ(bag.Contents(), before);
}

TEST(PropertyBag, EveryChangedByteBehindARightChecksumIsRefusedOrReadWithoutHugeMemory) {
  const Bytes whole = FullBag()->Contents();
  PropertyBag bag;
  int refused = 0;
  for (std::size_t place = 0; place + 4 < whole.size(); ++place) {
    for (const int change : {1, 2, 3, 4, 8, 16, 32, 64, 128, 255}) {
      Bytes damaged = whole;
      damaged[place] = static_cast<Byte>(damaged[place] ^ change);
      damaged = Mended(damaged);
      const AllocationWatch watch;
      const test::Raised raised = test::RaisedBy([&] { bag.Contents(damaged); });
      ASSERT_LT(watch.Biggest(), 64 * whole.size()) << place;
      if (raised.number == 0) {
        // What was read is whole: it can be written again.
        EXPECT_NO_THROW(bag.Contents()) << place;
      } else {
        ASSERT_EQ(raised.number, 331) << place;
        ++refused;
      }
    }
  }
  EXPECT_GT(refused, 0);
}

TEST(PropertyBag, RefusalsTellWhatIsWrong) {
  Bytes newer = PropertyBag().Contents();
  newer[4] = 2;
  Bytes wrongSum = PropertyBag().Contents();
  wrongSum.back() ^= 1;
  EXPECT_EQ(Refusal({}), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal({'Q', 'B', 'a', 'g'}), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal({'Q', 'B', 'a', 'g', 1, 0, 0, 0, 0, 0, 0, 0}), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal({'q', 'B', 'a', 'g', 1}), Damaged("the beginning is wrong"));
  EXPECT_EQ(Refusal(Mended(newer)), Damaged("the beginning is wrong"));
  EXPECT_EQ(Refusal(wrongSum), Damaged("the checksum is wrong"));
  EXPECT_EQ(Refusal(Block(0, {0})), Damaged("bytes are left over"));
  EXPECT_EQ(Refusal(Block(1, {})), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal(Block(2, EntryA({0, 0}))), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal(Block(1, EntryA({7, 0}))), Damaged("a value is of an unknown kind"));
  EXPECT_EQ(Refusal(Block(1, EntryA({12, 0}))), Damaged("a value is of an unknown kind"));
  EXPECT_EQ(Refusal(Block(1, EntryA({3, 1, 0, 0, 0, 0}))), Damaged("a value is of an unknown kind"));
  EXPECT_EQ(Refusal(Block(2, Joined({EntryA({0, 0}), {1, 0, 0, 0, 'A', 0, 0}}))),
            Damaged("a name stands twice"));
}

TEST(PropertyBag, ALengthBeyondTheBytesIsRefused) {
  EXPECT_EQ(Refusal(Block(1, {0xFF, 0xFF, 0xFF, 0xFF, 'a', 0, 0})), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal(Block(1, EntryA({8, 0, 3, 0, 0, 0, 'x', 'y'}))), Damaged("the bytes end too early"));
  EXPECT_EQ(Refusal(Block(0xFFFFFFFF, {})), Damaged("the bytes end too early"));
}

TEST(PropertyBag, AnInnerBagIsCheckedLikeTheOuter) {
  Bytes inner = Block(0, {});
  inner.back() ^= 1;
  const Bytes length = Little(static_cast<std::uint32_t>(inner.size()));
  EXPECT_EQ(Refusal(Block(1, EntryA(Joined({{9, 0}, length, inner})))), Damaged("the checksum is wrong"));
}

/// The block of an array value with the given head and that many bytes of cells.
Bytes ArrayBlock(const Bytes& kindAndDimensions, std::initializer_list<Long> bounds, std::size_t cells) {
  Bytes value = Joined({{0, 0x20}, kindAndDimensions});
  for (const Long bound : bounds) value = Joined({value, Little(static_cast<std::uint32_t>(bound))});
  return Block(1, EntryA(Joined({value, Bytes(cells, 0)})));
}

TEST(PropertyBag, AnArrayHasOneOrTwoDimensions) {
  const test::Raised refusal = Damaged("an array has neither one nor two dimensions");
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 0}, {0, 0}, 1)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 3}, {0, 0, 0, 0, 0, 0}, 1)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {0, 0}, 1)), test::Raised{});
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 2}, {0, 0, 0, 0}, 1)), test::Raised{});
}

TEST(PropertyBag, AnArrayHasPossibleBounds) {
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {5, 3}, 0)), Damaged("an array has impossible bounds"));
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 2}, {0, 0, 5, 3}, 0)), Damaged("an array has impossible bounds"));
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {5, 4}, 0)), test::Raised{});
}

TEST(PropertyBag, AnArrayHasNoMoreCellsThanBytes) {
  const AllocationWatch watch;
  const test::Raised refusal = Damaged("an array has more cells than the bytes hold");
  constexpr Long kLeast = std::numeric_limits<Long>::min();
  constexpr Long kMost = std::numeric_limits<Long>::max();
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {0, 7}, 8)), test::Raised{});
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {0, 8}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 2}, {0, 2, 0, 2}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 1}, {0, kMost}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({17, 0, 2}, {kLeast, kMost, kLeast, kMost}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({3, 0, 1}, {0, 7}, 31)), Damaged("the bytes end too early"));
  EXPECT_LT(watch.Biggest(), 4096u);
}

TEST(PropertyBag, AnArrayHasCellsOfAKnownKind) {
  const test::Raised refusal = Damaged("an array has cells of an unknown kind");
  EXPECT_EQ(Refusal(ArrayBlock({0, 0, 1}, {0, 0}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({1, 0, 1}, {0, 0}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({7, 0, 1}, {0, 0}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({9, 0, 1}, {0, 0}, 8)), refusal);
  EXPECT_EQ(Refusal(ArrayBlock({0, 0x20, 1}, {0, 0}, 8)), refusal);
}

/// Random values of every kind that a block can hold.
Variant RandomValue(int depth) {
  switch (*rc::gen::inRange(0, depth < 3 ? 13 : 11)) {
    case 0:
      return {};
    case 1:
      return NullValue{};
    case 2:
      return *rc::gen::arbitrary<bool>();
    case 3:
      return *rc::gen::arbitrary<Byte>();
    case 4:
      return *rc::gen::arbitrary<Integer>();
    case 5:
      return *rc::gen::arbitrary<Long>();
    case 6:
      return *rc::gen::arbitrary<Single>();
    case 7:
      return *rc::gen::arbitrary<Double>();
    case 8:
      return Currency{*rc::gen::arbitrary<std::int64_t>()};
    case 9:
      return *rc::gen::arbitrary<std::string>();
    case 10:
      return Array::OfBytes(*rc::gen::arbitrary<Bytes>());
    case 11: {
      const Long lower = *rc::gen::inRange<Long>(-5, 5);
      Array array(VariantKind::Variant, Bounds{lower, lower + *rc::gen::inRange<Long>(-1, 3)});
      for (Long index = lower; index <= array.UpperBound(1); ++index)
        array.Set(index, RandomValue(depth + 1));
      return array;
    }
    default: {
      Array array(VariantKind::Long, Bounds{0, *rc::gen::inRange<Long>(-1, 4)},
                  Bounds{1, *rc::gen::inRange<Long>(0, 4)});
      for (Long& cell : array.Cells<Long>()) cell = *rc::gen::arbitrary<Long>();
      return array;
    }
  }
}

TEST(PropertyBag, EveryBagSurvivesItsBlock) {
  ASSERT_TRUE(rc::check([] {
    PropertyBag bag;
    for (const std::string& name : *rc::gen::arbitrary<std::vector<std::string>>()) {
      bag.WriteProperty(name, RandomValue(0));
    }
    PropertyBag read;
    read.Contents(bag.Contents());
    RC_ASSERT(read.Names() == bag.Names());
    for (const std::string& name : bag.Names()) RC_ASSERT(read.ReadProperty(name) == bag.ReadProperty(name));
    RC_ASSERT(read.Contents() == bag.Contents());
  }));
}

TEST(PropertyBag, RandomBytesAreNeverMoreThanRefused) {
  ASSERT_TRUE(rc::check([](const Bytes& entries, std::uint32_t count) {
    const test::Raised raised = Refusal(Block(count % 4, entries));
    RC_ASSERT(raised.number == 0 || raised.number == 331);
  }));
}

TEST(PropertyBag, LateBoundHostsSeeItsMembers) {
  const ClassInfo& info = PropertyBag().Class();
  EXPECT_EQ(info.name, "PropertyBag");
  EXPECT_EQ(info.Default().Name(), "PropertyBag");
  EXPECT_EQ(
      info.Default().Slots(),
      (std::vector<std::string>{"call ReadProperty(String, [Variant]) As Variant",
                                "call WriteProperty(String, Variant)", "get Contents() As Byte()",
                                "put Contents(Byte())", "get Count() As Long", "get _NewEnum() As Object"}));
  EXPECT_EQ(info.Default().Members().size(), 5U);
  EXPECT_NE(std::dynamic_pointer_cast<PropertyBag>(info.create()), nullptr);
}

TEST(PropertyBag, LateBoundHostsWalkOverItsNamesInOrder) {
  const auto bag = BagOf(Long{1});
  bag->WriteProperty("Xs", Long{2});
  bag->WriteProperty("A", Long{3});
  EXPECT_EQ(GetByName(*bag, "Count"), Variant(Long{2}));
  const auto names = To<EnumeratorRef>(GetByName(*bag, "_NewEnum"));
  Variant name;
  ASSERT_TRUE(names->Next(name));
  EXPECT_EQ(name, Variant("a"));
  const EnumeratorRef other = names->Clone();
  ASSERT_TRUE(names->Next(name));
  EXPECT_EQ(name, Variant("Xs"));
  EXPECT_FALSE(names->Next(name));
  EXPECT_EQ(name, Variant("Xs"));
  // Names that come meanwhile are given too.
  bag->WriteProperty("b", Long{4});
  ASSERT_TRUE(names->Next(name));
  EXPECT_EQ(name, Variant("b"));
  ASSERT_TRUE(other->Next(name));
  EXPECT_EQ(name, Variant("Xs"));
  other->Reset();
  ASSERT_TRUE(other->Next(name));
  EXPECT_EQ(name, Variant("a"));
}

TEST(PropertyBag, AnEmptyBagCountsNoneAndAnEnumeratorKeepsItsBag) {
  auto bag = std::make_shared<PropertyBag>();
  EXPECT_EQ(bag->Count(), 0);
  const EnumeratorRef names = bag->NewEnum();
  Variant name(Long{9});
  EXPECT_FALSE(names->Next(name));
  EXPECT_EQ(name, Variant(Long{9}));
  bag->WriteProperty("late", Long{1});
  bag.reset();
  ASSERT_TRUE(names->Next(name));
  EXPECT_EQ(name, Variant("late"));
}

TEST(PropertyBag, LateBoundHostsReadAndWrite) {
  PropertyBag bag;
  InvokeByName(bag, "writeproperty", {"Xs", Long{5}});
  EXPECT_EQ(InvokeByName(bag, "ReadProperty", {"xs"}), Variant(Long{5}));
  EXPECT_EQ(InvokeByName(bag, "ReadProperty", {"xs", Long{7}}), Variant(Long{5}));
  EXPECT_EQ(InvokeByName(bag, "ReadProperty", {"ys", Long{7}}), Variant(Long{7}));
  EXPECT_RAISES(327, "the property bag has no value named \"ys\"", InvokeByName(bag, "ReadProperty", {"ys"}));
  EXPECT_RAISES(327, "the property bag has no value named \"ys\"",
                InvokeByName(bag, "ReadProperty", {"ys", Variant()}));
}

TEST(PropertyBag, LateBoundHostsTakeAndGiveTheBlock) {
  const auto bag = BagOf(Long{5});
  EXPECT_EQ(GetByName(*bag, "Contents"), From(bag->Contents()));
  PropertyBag other;
  PutByName(other, "Contents", From(bag->Contents()));
  EXPECT_EQ(other.ReadProperty("a"), Variant(Long{5}));
  EXPECT_RAISES(13, "type mismatch: String where an array of bytes was expected",
                PutByName(other, "Contents", "QBag"));
}

TEST(PropertyBag, ItsMembersAreDocumentedAndUnmarked) {
  std::vector<std::string> words;
  for (const Member& member : PropertyBag().Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, Mark::None) << member.name;
  }
  EXPECT_EQ(words,
            (std::vector<std::string>{
                "ReadProperty: The value under a name, or the given one when there is none.",
                "WriteProperty: Keeps a value under a name.", "Contents: All values as one block of bytes.",
                "Count: Number of values.", "_NewEnum: Walks over the names in order."}));
}

/// Runs something when it goes.
class LastWord final : public Object {
 public:
  explicit LastWord(std::function<void()> word) : word_(std::move(word)) {}
  ~LastWord() override { word_(); }
  const ClassInfo& Class() const override { return PropertyBag::ClassOf(); }

 private:
  std::function<void()> word_;
};

TEST(PropertyBag, MayBeUsedByAnObjectThatGoesWithItsValue) {
  PropertyBag bag;
  bag.WriteProperty("a", std::make_shared<LastWord>([&bag] {
                      for (int number = 0; number < 100; ++number)
                        bag.WriteProperty("b" + std::to_string(number), Long{number});
                    }));
  bag.WriteProperty("a", Long{1});
  EXPECT_EQ(bag.Names().size(), 101u);
  EXPECT_EQ(bag.ReadProperty("a"), Variant(Long{1}));
  EXPECT_EQ(bag.ReadProperty("b99"), Variant(Long{99}));
}

}  // namespace
}  // namespace quenzel7::automation
