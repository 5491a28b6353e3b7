#include "platform/gdi/handle_table.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

namespace quenzel7::gdi {
namespace {

TEST(HandleTable, FindsWhatWasAddedByItsKindOnly) {
  HandleTable table;
  const Handle pen = table.Add(Pen{PS_DOT, 1, 0x123456, false});
  const Handle bitmap = table.Add(std::make_unique<Bitmap>(2, 3, 32));
  ASSERT_NE(table.Find<Pen>(pen), nullptr);
  EXPECT_EQ(table.Find<Pen>(pen)->color, 0x123456u);
  EXPECT_EQ(table.Find<Brush>(pen), nullptr);
  EXPECT_EQ(table.Find<Bitmap>(pen), nullptr);
  ASSERT_NE(table.Find<Bitmap>(bitmap), nullptr);
  EXPECT_EQ(table.Find<Bitmap>(bitmap)->Height(), 3);
  EXPECT_EQ(table.Find<Pen>(bitmap), nullptr);
  EXPECT_EQ(table.Find<Context>(bitmap), nullptr);
}

TEST(HandleTable, HandlesArePositiveAndNeverNull) {
  HandleTable table;
  EXPECT_GT(table.Add(Brush{}), 0);
  EXPECT_EQ(table.Find<Brush>(0), nullptr);
  EXPECT_FALSE(table.Contains(0));
  EXPECT_FALSE(table.Contains(-1));
}

TEST(HandleTable, StaleHandleFindsNothingAlsoWhenItsSlotIsTakenAgain) {
  HandleTable table;
  const Handle first = table.Add(Brush{});
  EXPECT_TRUE(table.Remove(first));
  EXPECT_FALSE(table.Contains(first));
  EXPECT_FALSE(table.Remove(first));
  std::set<Handle> seen{first};
  for (int i = 0; i < 1000; ++i) {
    const Handle next = table.Add(Brush{});
    EXPECT_TRUE(seen.insert(next).second) << i;
    EXPECT_EQ(table.Find<Brush>(first), nullptr);
    table.Remove(next);
  }
}

TEST(HandleTable, ANumberComesBackOnlyAfterAMillionOthers) {
  HandleTable table;
  const Handle first = table.Add(Brush{});
  table.Remove(first);
  int until = 1;
  for (Handle next = 0; next != first; ++until) {
    next = table.Add(Brush{});
    table.Remove(next);
    ASSERT_LT(until, 2'000'000);
  }
  EXPECT_EQ(until - 1, 64 * 0x3FFF);
}

TEST(HandleTable, TakesFreeSlotsInTheOrderInWhichTheyBecameFree) {
  HandleTable table;
  std::vector<Handle> all;
  for (int i = 0; i < 64; ++i) all.push_back(table.Add(Brush{}));
  table.Remove(all[5]);
  table.Remove(all[3]);
  EXPECT_EQ(table.Add(Brush{}) & 0xFFFF, all[5] & 0xFFFF);
  EXPECT_EQ(table.Add(Brush{}) & 0xFFFF, all[3] & 0xFFFF);
  EXPECT_EQ(table.Add(Brush{}) & 0xFFFF, 64);
}

TEST(HandleTable, IsFullAt65535Objects) {
  HandleTable table;
  Handle last = 0;
  for (std::size_t i = 0; i < HandleTable::kCapacity; ++i) last = table.Add(Brush{});
  EXPECT_NE(last, 0);
  EXPECT_EQ(table.Add(Brush{}), 0);
  EXPECT_EQ(table.LiveObjects(), 65535u);
  table.Remove(last);
  EXPECT_NE(table.Add(Brush{}), 0);
}

TEST(HandleTable, MayTakeFewerObjectsOrNone) {
  HandleTable none(0);
  EXPECT_EQ(none.Add(Brush{}), 0);
  EXPECT_EQ(none.LiveObjects(), 0u);
  HandleTable two(2);
  const Handle first = two.Add(Brush{});
  EXPECT_NE(two.Add(Brush{}), 0);
  EXPECT_EQ(two.Add(Brush{}), 0);
  two.Remove(first);
  EXPECT_NE(two.Add(Brush{}), 0);
  EXPECT_EQ(two.Add(Brush{}), 0);
}

TEST(HandleTable, CountsWhatLives) {
  HandleTable table;
  EXPECT_EQ(table.LiveObjects(), 0u);
  const Handle a = table.Add(Brush{}), b = table.Add(Pen{});
  EXPECT_EQ(table.LiveObjects(), 2u);
  table.Remove(a);
  EXPECT_EQ(table.LiveObjects(), 1u);
  table.Remove(a);
  EXPECT_EQ(table.LiveObjects(), 1u);
  table.Remove(b);
  EXPECT_EQ(table.LiveObjects(), 0u);
}

TEST(HandleTable, CountsSelectionsAndForgetsThemWithTheObject) {
  HandleTable table;
  const Handle pen = table.Add(Pen{});
  table.CountSelection(pen, +1);
  table.CountSelection(pen, +1);
  EXPECT_EQ(table.Selections(pen), 2);
  table.CountSelection(pen, -1);
  EXPECT_EQ(table.Selections(pen), 1);
  EXPECT_EQ(table.Selections(12345), 0);
  table.CountSelection(12345, +1);
  table.Remove(pen);
  EXPECT_EQ(table.Selections(pen), 0);
  for (int i = 0; i < 64; ++i) EXPECT_EQ(table.Selections(table.Add(Pen{})), 0);
}

TEST(HandleTable, EachThreadHasItsOwn) {
  const Handle here = Handles().Add(Brush{});
  HandleTable* other = nullptr;
  std::size_t liveThere = 99;
  std::thread([&] {
    other = &Handles();
    liveThere = Handles().LiveObjects();
  }).join();
  EXPECT_NE(other, &Handles());
  EXPECT_EQ(liveThere, 0u);
  Handles().Remove(here);
}

TEST(FindPenAndBrush, SeeOwnAndStockObjects) {
  const Handle pen = Handles().Add(Pen{PS_DASH, 7, 0, false});
  const Handle brush = Handles().Add(Brush{BS_SOLID, 0x99, 0});
  EXPECT_EQ(FindPen(pen)->width, 7);
  EXPECT_EQ(FindBrush(brush)->color, 0x99u);
  EXPECT_EQ(FindPen(StockHandle(WHITE_PEN))->color, 0xFFFFFFu);
  EXPECT_EQ(FindBrush(StockHandle(GRAY_BRUSH))->color, 0x808080u);
  EXPECT_FALSE(FindPen(brush));
  EXPECT_FALSE(FindBrush(pen));
  EXPECT_FALSE(FindPen(StockHandle(WHITE_BRUSH)));
  EXPECT_FALSE(FindBrush(StockHandle(WHITE_PEN)));
  Handles().Remove(pen);
  Handles().Remove(brush);
}

}  // namespace
}  // namespace quenzel7::gdi
