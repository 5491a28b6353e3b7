#include "platform/corvane1/global_values.h"

#include <gtest/gtest.h>

namespace quenzel7::corvane1 {
namespace {

TEST(GlobalValues, AValueThatWasNeverGivenIsZero) { EXPECT_EQ(HeldGlobalValues().Value(3), 0); }

TEST(GlobalValues, KeepsWhatItWasGivenLast) {
  HeldGlobalValues values;
  values.Set(3, 30);
  values.Set(-4, 40);
  values.Set(3, 31);
  EXPECT_EQ(values.Value(3), 31);
  EXPECT_EQ(values.Value(-4), 40);
  EXPECT_EQ(values.Value(5), 0);
}

TEST(GlobalValues, AskingGivesNoValue) {
  HeldGlobalValues values;
  EXPECT_EQ(values.Value(3), 0);
  values.Set(3, 1);
  EXPECT_EQ(values.Value(3), 1);
}

TEST(GlobalValues, TheOpenPageIsNumber25) { EXPECT_EQ(kOpenPageValue, 25); }

}  // namespace
}  // namespace quenzel7::corvane1
