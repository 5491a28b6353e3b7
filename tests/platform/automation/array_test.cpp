#include "platform/automation/array.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <new>
#include <numeric>
#include <string>
#include <vector>

#include "platform/automation/collection.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

constexpr Long kLeast = std::numeric_limits<Long>::min();
constexpr Long kMost = std::numeric_limits<Long>::max();

const VariantKind kElementKinds[] = {VariantKind::Byte,    VariantKind::Integer, VariantKind::Long,
                                     VariantKind::Single,  VariantKind::Double,  VariantKind::Currency,
                                     VariantKind::Boolean, VariantKind::String,  VariantKind::Variant};

TEST(Array, OfSizeCountsFromZero) {
  const Array array = Array::OfSize(VariantKind::Integer, 4);
  EXPECT_EQ(array.Dimensions(), 1);
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), 3);
  EXPECT_EQ(array.Size(), 4u);
  EXPECT_EQ(array.ElementKind(), VariantKind::Integer);
}

TEST(Array, OfSizeZeroHasNoCell) {
  const Array array = Array::OfSize(VariantKind::Long, 0);
  EXPECT_EQ(array.UpperBound(1), -1);
  EXPECT_EQ(array.Size(), 0u);
}

TEST(Array, OfANegativeSizeIsNone) {
  const char* const text = "array bounds 0 to -2 leave no place for a cell";
  EXPECT_RAISES(9, text, Array::OfSize(VariantKind::Long, -1));
  EXPECT_RAISES(9, text, Array::OfSize(VariantKind::Long, kLeast));
}

TEST(Array, OfBytesHoldsTheBytes) {
  const std::vector<Byte> bytes = {3, 1, 255};
  const Array array = Array::OfBytes(bytes);
  EXPECT_EQ(array.ElementKind(), VariantKind::Byte);
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), 2);
  EXPECT_EQ(std::vector<Byte>(array.Cells<Byte>().begin(), array.Cells<Byte>().end()), bytes);
  EXPECT_EQ(Array::OfBytes({}).Size(), 0u);
}

TEST(Array, BeginsWithTheZeroOfItsKind) {
  const Variant zeros[] = {Byte{0}, Integer{0}, Long{0}, 0.0f, 0.0, Currency{0}, false, "", Variant()};
  for (std::size_t index = 0; index < std::size(kElementKinds); ++index) {
    const Array array(kElementKinds[index], Bounds{0, 1});
    EXPECT_EQ(array.ElementKind(), kElementKinds[index]);
    EXPECT_EQ(array.At(0), zeros[index]) << KindName(kElementKinds[index]);
    EXPECT_EQ(array.At(1), zeros[index]) << KindName(kElementKinds[index]);
  }
}

TEST(Array, GivesBackWhatWasSetInEveryKind) {
  const Variant values[] = {Byte{200}, Integer{-2}, Long{70000},         1.5f, -2.25, Currency{12345},
                            true,      "text",      Variant(NullValue{})};
  for (std::size_t index = 0; index < std::size(kElementKinds); ++index) {
    Array array(kElementKinds[index], Bounds{0, 1});
    array.Set(1, values[index]);
    EXPECT_EQ(array.At(1), values[index]) << KindName(kElementKinds[index]);
    EXPECT_NE(array.At(0), values[index]) << KindName(kElementKinds[index]);
  }
}

TEST(Array, BooleansLieInTheCellsAsMinusOneAndZero) {
  Array array = Array::OfSize(VariantKind::Boolean, 3);
  array.Set(0, true);
  array.Set(1, Long{0});
  array.Set(2, Long{5});
  const auto cells = array.Cells<BooleanCell>();
  EXPECT_EQ(cells[0].value, -1);
  EXPECT_EQ(cells[1].value, 0);
  EXPECT_EQ(cells[2].value, -1);
  EXPECT_EQ(array.At(2), Variant(true));
}

TEST(Array, ABooleanCellOfAnyOtherNumberIsTrue) {
  Array array = Array::OfSize(VariantKind::Boolean, 1);
  array.Cells<BooleanCell>()[0].value = 1;
  EXPECT_EQ(array.At(0), Variant(true));
}

TEST(Array, SetConvertsToTheKindOfTheCells) {
  Array array = Array::OfSize(VariantKind::Integer, 2);
  array.Set(0, 2.5);
  array.Set(1, "17");
  EXPECT_EQ(array.At(0), Variant(Integer{2}));
  EXPECT_EQ(array.At(1), Variant(Integer{17}));
}

TEST(Array, SetThatCannotConvertLeavesTheCell) {
  Array array = Array::OfSize(VariantKind::Byte, 1);
  array.Set(0, Byte{9});
  EXPECT_RAISES(6, "overflow: 256 does not fit a byte", array.Set(0, Long{256}));
  EXPECT_RAISES(94, "invalid use of Null: a number was expected", array.Set(0, NullValue{}));
  EXPECT_EQ(array.At(0), Variant(Byte{9}));
}

TEST(Array, CellsCountFromTheLowerBound) {
  Array array(VariantKind::Long, Bounds{-2, 3});
  EXPECT_EQ(array.Size(), 6u);
  for (Long index = -2; index <= 3; ++index) array.Set(index, index * 10);
  const auto cells = array.Cells<Long>();
  EXPECT_EQ(std::vector<Long>(cells.begin(), cells.end()), (std::vector<Long>{-20, -10, 0, 10, 20, 30}));
  EXPECT_EQ(array.At(-2), Variant(Long{-20}));
  EXPECT_EQ(array.At(3), Variant(Long{30}));
}

TEST(Array, RaisesSubscriptOneBelowAndOneAboveTheBounds) {
  Array array(VariantKind::Long, Bounds{5, 7});
  EXPECT_RAISES(9, "array index (4) is out of range", array.At(4));
  EXPECT_RAISES(9, "array index (8) is out of range", array.At(8));
  EXPECT_RAISES(9, "array index (4) is out of range", array.Set(4, Long{0}));
  EXPECT_RAISES(9, "array index (8) is out of range", array.Set(8, Long{0}));
}

TEST(Array, ADimensionWithoutCellsHasNoIndex) {
  const Array array(VariantKind::Long, Bounds{1, 0});
  EXPECT_EQ(array.Size(), 0u);
  EXPECT_EQ(array.LowerBound(1), 1);
  EXPECT_EQ(array.UpperBound(1), 0);
  EXPECT_RAISES(9, "array index (1) is out of range", array.At(1));
  EXPECT_RAISES(9, "array index (0) is out of range", array.At(0));
}

TEST(Array, TheFirstIndexRunsFastestInMemory) {
  Array array(VariantKind::Long, Bounds{0, 2}, Bounds{0, 1});
  auto cells = array.Cells<Long>();
  std::iota(cells.begin(), cells.end(), 0);
  EXPECT_EQ(array.At(0, 0), Variant(Long{0}));
  EXPECT_EQ(array.At(1, 0), Variant(Long{1}));
  EXPECT_EQ(array.At(2, 0), Variant(Long{2}));
  EXPECT_EQ(array.At(0, 1), Variant(Long{3}));
  EXPECT_EQ(array.At(2, 1), Variant(Long{5}));
}

TEST(Array, BothDimensionsCountFromTheirLowerBounds) {
  Array array(VariantKind::Integer, Bounds{10, 12}, Bounds{-1, 2});
  EXPECT_EQ(array.Dimensions(), 2);
  EXPECT_EQ(array.Size(), 12u);
  EXPECT_EQ(array.LowerBound(1), 10);
  EXPECT_EQ(array.UpperBound(1), 12);
  EXPECT_EQ(array.LowerBound(2), -1);
  EXPECT_EQ(array.UpperBound(2), 2);
  array.Set(10, -1, Long{1});
  array.Set(11, 1, Long{2});
  array.Set(12, 2, Long{3});
  const auto cells = array.Cells<Integer>();
  EXPECT_EQ(cells[0], 1);
  EXPECT_EQ(cells[7], 2);
  EXPECT_EQ(cells[11], 3);
  EXPECT_EQ(array.At(11, 1), Variant(Integer{2}));
}

TEST(Array, EachOfTwoIndicesIsCheckedOnBothSides) {
  Array array(VariantKind::Long, Bounds{1, 2}, Bounds{3, 5});
  EXPECT_RAISES(9, "array index (0, 3) is out of range", array.At(0, 3));
  EXPECT_RAISES(9, "array index (3, 3) is out of range", array.At(3, 3));
  EXPECT_RAISES(9, "array index (1, 2) is out of range", array.At(1, 2));
  EXPECT_RAISES(9, "array index (1, 6) is out of range", array.At(1, 6));
  EXPECT_RAISES(9, "array index (1, 6) is out of range", array.Set(1, 6, Long{0}));
  EXPECT_EQ(array.At(1, 3), Variant(Long{0}));
  EXPECT_EQ(array.At(2, 5), Variant(Long{0}));
}

TEST(Array, RaisesSubscriptForAnotherNumberOfIndices) {
  const Array line(VariantKind::Long, Bounds{0, 4});
  const Array plane(VariantKind::Long, Bounds{0, 4}, Bounds{0, 4});
  EXPECT_RAISES(9, "array index (1, 0) is out of range", line.At(1, 0));
  EXPECT_RAISES(9, "array index (1) is out of range", plane.At(1));
}

TEST(Array, HasOnlyItsOwnDimensions) {
  const Array line(VariantKind::Long, Bounds{0, 4});
  const Array plane(VariantKind::Long, Bounds{0, 4}, Bounds{0, 4});
  EXPECT_RAISES(9, "the array has 1 dimensions, dimension 0 was asked for", line.LowerBound(0));
  EXPECT_RAISES(9, "the array has 1 dimensions, dimension 2 was asked for", line.UpperBound(2));
  EXPECT_RAISES(9, "the array has 2 dimensions, dimension 3 was asked for", plane.UpperBound(3));
}

TEST(Array, AnUpperBoundTwoBelowTheLowerIsNone) {
  EXPECT_RAISES(9, "array bounds 5 to 3 leave no place for a cell", Array(VariantKind::Long, Bounds{5, 3}));
  EXPECT_RAISES(9, "array bounds 2147483647 to -2147483648 leave no place for a cell",
                Array(VariantKind::Long, Bounds{kMost, kLeast}));
  EXPECT_RAISES(9, "array bounds 1 to -1 leave no place for a cell",
                Array(VariantKind::Long, Bounds{0, 1}, Bounds{1, -1}));
}

TEST(Array, CannotHoldCellsOfTheOtherKinds) {
  const Bounds one{0, 0};
  EXPECT_RAISES(13, "an array cannot hold cells of Empty", Array(VariantKind::Empty, one));
  EXPECT_RAISES(13, "an array cannot hold cells of Null", Array(VariantKind::Null, one));
  EXPECT_RAISES(13, "an array cannot hold cells of Object", Array(VariantKind::Object, one));
  EXPECT_RAISES(13, "an array cannot hold cells of Array", Array(VariantKind::Array, one, one));
}

TEST(Array, TakesUpToTwoGigabytesAndNoMore) {
  const AllocationWatch watch(1 << 20);
  EXPECT_RAISES(7, "an array of 2147483649 cells takes more than 2 GiB",
                Array(VariantKind::Byte, Bounds{-1, kMost}));
  EXPECT_RAISES(7, "an array of 536870913 cells takes more than 2 GiB",
                Array(VariantKind::Long, Bounds{0, 536870912}));
  EXPECT_LT(watch.Biggest(), 4096u);
  // The biggest that is allowed asks for exactly so much memory.
  EXPECT_THROW(Array(VariantKind::Byte, Bounds{-1, kMost - 1}), std::bad_alloc);
  EXPECT_EQ(watch.Biggest(), std::size_t{1} << 31);
}

TEST(Array, TheLimitHoldsForTheProductOfBothDimensions) {
  const AllocationWatch watch(1 << 20);
  EXPECT_RAISES(7, "an array of 4294967296 cells takes more than 2 GiB",
                Array(VariantKind::Byte, Bounds{0, 65535}, Bounds{0, 65535}));
  EXPECT_RAISES(7, "an array of 9223372036854775807 cells takes more than 2 GiB",
                Array(VariantKind::Byte, Bounds{kLeast, kMost}, Bounds{kLeast, kMost}));
  EXPECT_LT(watch.Biggest(), 4096u);
}

TEST(Array, OneEmptyDimensionLeavesNoCellHoweverLongTheOther) {
  const Array array(VariantKind::Double, Bounds{kLeast, kMost}, Bounds{0, -1});
  EXPECT_EQ(array.Size(), 0u);
  EXPECT_EQ(array.UpperBound(1), kMost);
  EXPECT_RAISES(9, "array index (0, 0) is out of range", array.At(0, 0));
}

TEST(Array, CellsOfAnotherTypeAreAMismatch) {
  Array array = Array::OfSize(VariantKind::Long, 1);
  EXPECT_RAISES(13, "the cells of the array are of Long", array.Cells<Byte>());
  EXPECT_RAISES(13, "the cells of the array are of Long", std::as_const(array).Cells<Integer>());
}

TEST(Array, IsEqualWhenKindBoundsAndCellsAre) {
  const Array array(VariantKind::Long, Bounds{0, 3});
  Array changed = array;
  EXPECT_TRUE(array == changed);
  changed.Set(3, Long{1});
  EXPECT_FALSE(array == changed);
  EXPECT_FALSE(array == Array(VariantKind::Long, Bounds{1, 4}));
  EXPECT_FALSE(array == Array(VariantKind::Single, Bounds{0, 3}));
  EXPECT_FALSE(array == Array(VariantKind::Long, Bounds{0, 3}, Bounds{0, 0}));
  EXPECT_FALSE(Array(VariantKind::Long, Bounds{0, 3}, Bounds{0, 1}) ==
               Array(VariantKind::Long, Bounds{0, 1}, Bounds{0, 3}));
}

TEST(Array, CellsOfVariantsHoldArraysAndObjects) {
  const auto object = std::make_shared<Collection>();
  Array array = Array::OfSize(VariantKind::Variant, 2);
  array.Set(0, object);
  array.Set(1, Array::OfBytes({}));
  EXPECT_EQ(array.At(0).Object(), object);
  EXPECT_EQ(array.At(1).Elements().ElementKind(), VariantKind::Byte);
}

TEST(Array, GoesIntoItsOwnCellAsACopy) {
  Variant value(Array::OfSize(VariantKind::Variant, 2));
  Array& array = value.MutableElements();
  array.Set(0, Long{5});
  array.Set(1, value);
  EXPECT_NE(&array.At(1).Elements(), &array);
  array.Set(0, Long{6});
  EXPECT_EQ(array.At(1).Elements().At(0), Variant(Long{5}));
  EXPECT_TRUE(array.At(1).Elements().At(1).IsEmpty());
}

TEST(Array, AnArrayOfAnotherVariantIsSharedIntoACell) {
  const Variant inner(Array::OfSize(VariantKind::Long, 1));
  Array array = Array::OfSize(VariantKind::Variant, 1);
  array.Set(0, inner);
  EXPECT_EQ(&array.At(0).Elements(), &inner.Elements());
}

}  // namespace
}  // namespace quenzel7::automation
