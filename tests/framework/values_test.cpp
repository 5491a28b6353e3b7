#include "framework/values.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Collection;
using automation::NullValue;
using automation::Variant;

TEST(NullToZero, GivesZeroForNullAndElseTheValue) {
  EXPECT_EQ(NullToZero(NullValue{}), 0);
  EXPECT_EQ(NullToZero(Variant(Long{17})), 17);
  EXPECT_EQ(NullToZero(Variant(Long{-1})), -1);
  EXPECT_EQ(NullToZero(Variant(2.5)), 2);
}

TEST(NullToZero, PassesOnTheErrorOfTheConversion) {
  EXPECT_EQ(test::ErrorOf([] { NullToZero(Variant("tank")); }), 13);
}

TEST(ClearCollection, TakesAllItemsOut) {
  const auto collection = std::make_shared<Collection>();
  collection->Add(Long{1}, "a");
  collection->Add(Long{2});
  ClearCollection(collection);
  EXPECT_EQ(collection->Count(), 0);
  // The keys are free again.
  collection->Add(Long{3}, "a");
  EXPECT_EQ(collection->Count(), 1);
}

TEST(ClearCollection, LeavesAnEmptyAndAMissingCollectionAlone) {
  const auto collection = std::make_shared<Collection>();
  ClearCollection(collection);
  EXPECT_EQ(collection->Count(), 0);
  ClearCollection(nullptr);
}

}  // namespace
}  // namespace quenzel7
