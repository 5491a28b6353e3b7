#include "platform/ado/cells.h"

#include <gtest/gtest.h>

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
  cells.Clear();
  EXPECT_EQ(cells.Size(), 0u);
}

}  // namespace
}  // namespace quenzel7::ado
