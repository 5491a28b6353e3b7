#include "platform/ado/cells.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "platform/automation/array.h"

namespace quenzel7::ado {
namespace {

using automation::NullValue;
using automation::Variant;

const std::vector<Byte> kBytes = {1, 0, 255};

std::vector<Variant> OneOfEachKind() {
  return {NullValue{}, Long{-7},
          Double{0.5}, Currency{std::numeric_limits<std::int64_t>::min()},
          "text",      automation::Array::OfBytes(kBytes)};
}

TEST(Cells, NewCellsAreNull) {
  Cells cells;
  cells.Resize(2);
  EXPECT_EQ(cells.Size(), 2u);
  EXPECT_EQ(cells.Get(0), Variant(NullValue{}));
  EXPECT_EQ(cells.Get(1), Variant(NullValue{}));
}

TEST(Cells, EachKindComesBackAsItWentIn) {
  const std::vector<Variant> values = OneOfEachKind();
  Cells cells;
  cells.Resize(values.size());
  for (std::size_t place = 0; place < values.size(); ++place) cells.Set(place, values[place]);
  for (std::size_t place = 0; place < values.size(); ++place)
    EXPECT_EQ(cells.Get(place), values[place]) << place;
}

TEST(Cells, EachKindTakesThePlaceOfEachOther) {
  for (const Variant& first : OneOfEachKind()) {
    for (const Variant& second : OneOfEachKind()) {
      Cells cells;
      cells.Resize(2);
      cells.Set(1, "neighbour");
      cells.Set(0, first);
      cells.Set(0, second);
      EXPECT_EQ(cells.Get(0), second);
      EXPECT_EQ(cells.Get(1), Variant("neighbour"));
    }
  }
}

TEST(Cells, SetLongAndSetNullOverwriteTexts) {
  Cells cells;
  cells.Resize(2);
  cells.Set(0, "a");
  cells.Set(1, "b");
  cells.SetLong(0, std::numeric_limits<Long>::min());
  cells.SetNull(1);
  EXPECT_EQ(cells.Get(0), Variant(std::numeric_limits<Long>::min()));
  EXPECT_EQ(cells.Get(1), Variant(NullValue{}));
}

TEST(Cells, EraseClosesTheGap) {
  Cells cells;
  cells.Resize(5);
  for (Long place = 0; place < 5; ++place) cells.SetLong(static_cast<std::size_t>(place), place);
  cells.Erase(1, 2);
  ASSERT_EQ(cells.Size(), 3u);
  EXPECT_EQ(cells.Get(0), Variant(Long{0}));
  EXPECT_EQ(cells.Get(1), Variant(Long{3}));
  EXPECT_EQ(cells.Get(2), Variant(Long{4}));
}

TEST(Cells, CellsThatComeBackAreNullAgain) {
  Cells cells;
  cells.Resize(1);
  cells.Set(0, "text");
  cells.Resize(0);
  cells.Resize(1);
  EXPECT_EQ(cells.Get(0), Variant(NullValue{}));
  cells.Set(0, "text");
  cells.Clear();
  EXPECT_EQ(cells.Size(), 0u);
  cells.Resize(1);
  EXPECT_EQ(cells.Get(0), Variant(NullValue{}));
}

/// As many cells, each with its place as its value.
Cells Counting(Long count) {
  Cells cells;
  cells.Resize(static_cast<std::size_t>(count));
  for (Long place = 0; place < count; ++place) cells.SetLong(static_cast<std::size_t>(place), place);
  return cells;
}

std::vector<Variant> ValuesOf(const Cells& cells) {
  std::vector<Variant> values;
  for (std::size_t place = 0; place < cells.Size(); ++place) values.push_back(cells.Get(place));
  return values;
}

std::vector<Variant> Longs(std::initializer_list<Long> numbers) {
  return std::vector<Variant>(numbers.begin(), numbers.end());
}

TEST(Cells, AnyNumberOfCellsKeepsItsValuesWhenMoreAreAdded) {
  for (Long count = 0; count <= 17; ++count) {
    for (Long more = 0; more <= 17; ++more) {
      Cells cells = Counting(count + more);
      cells.Resize(static_cast<std::size_t>(count));
      cells.Resize(static_cast<std::size_t>(count + more));
      ASSERT_EQ(cells.Size(), static_cast<std::size_t>(count + more));
      for (Long place = 0; place < count + more; ++place) {
        ASSERT_EQ(cells.Get(static_cast<std::size_t>(place)),
                  place < count ? Variant(place) : Variant(NullValue{}))
            << count << ' ' << more << ' ' << place;
      }
    }
  }
}

TEST(Cells, EraseMovesWhatFollowsWhateverItIs) {
  Cells cells = Counting(8);
  cells.Resize(10);
  cells.Set(8, "text");
  cells.Set(9, 0.5);
  cells.Erase(2, 6);
  EXPECT_EQ(ValuesOf(cells), (std::vector<Variant>{Long{0}, Long{1}, "text", 0.5}));
  cells.Erase(3, 1);
  EXPECT_EQ(ValuesOf(cells), (std::vector<Variant>{Long{0}, Long{1}, "text"}));
  cells.Erase(0, 3);
  EXPECT_EQ(cells.Size(), 0u);
}

TEST(Cells, ArrangePutsRowsInOrder) {
  Cells cells = Counting(9);
  cells.Arrange({2, 0, 1}, 3);
  EXPECT_EQ(ValuesOf(cells), Longs({6, 7, 8, 0, 1, 2, 3, 4, 5}));
}

TEST(Cells, ArrangeLeavesRowsOutAndRepeatsThem) {
  Cells cells = Counting(8);
  cells.Arrange({3, 3, 0}, 2);
  EXPECT_EQ(ValuesOf(cells), Longs({6, 7, 6, 7, 0, 1}));
  cells.Arrange({1, 1, 1, 0, 2}, 2);
  EXPECT_EQ(ValuesOf(cells), Longs({6, 7, 6, 7, 6, 7, 6, 7, 0, 1}));
}

TEST(Cells, ArrangeKeepsEachKind) {
  const std::vector<Variant> values = OneOfEachKind();
  Cells cells;
  cells.Resize(values.size());
  for (std::size_t place = 0; place < values.size(); ++place) cells.Set(place, values[place]);
  cells.Arrange({5, 4, 3, 2, 1, 0}, 1);
  EXPECT_EQ(ValuesOf(cells), std::vector<Variant>(values.rbegin(), values.rend()));
}

}  // namespace
}  // namespace quenzel7::ado
