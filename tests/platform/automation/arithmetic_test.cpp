#include "platform/automation/arithmetic.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

constexpr Long kLeast = -2147483647 - 1;
constexpr Long kMost = 2147483647;

TEST(Add, GivesTheSum) {
  EXPECT_EQ(Add(7, 5), 12);
  EXPECT_EQ(Add(7, -12), -5);
}

TEST(Add, ReachesBothLimits) {
  EXPECT_EQ(Add(kMost - 1, 1), kMost);
  EXPECT_EQ(Add(kLeast + 1, -1), kLeast);
}

TEST(Add, RaisesOverflowOneBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 2147483647 + 1 does not fit 32 bits", Add(kMost, 1));
  EXPECT_RAISES(6, "overflow: -2147483648 + -1 does not fit 32 bits", Add(kLeast, -1));
}

TEST(Subtract, GivesTheDifference) {
  EXPECT_EQ(Subtract(7, 5), 2);
  EXPECT_EQ(Subtract(5, 7), -2);
}

TEST(Subtract, ReachesBothLimits) {
  EXPECT_EQ(Subtract(-1, kLeast), kMost);
  EXPECT_EQ(Subtract(-1, kMost), kLeast);
}

TEST(Subtract, RaisesOverflowOneBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 2147483647 - -1 does not fit 32 bits", Subtract(kMost, -1));
  EXPECT_RAISES(6, "overflow: -2 - 2147483647 does not fit 32 bits", Subtract(-2, kMost));
}

TEST(Multiply, GivesTheProduct) {
  EXPECT_EQ(Multiply(7, 5), 35);
  EXPECT_EQ(Multiply(-7, 5), -35);
  EXPECT_EQ(Multiply(0, kMost), 0);
}

TEST(Multiply, ReachesBothLimits) {
  EXPECT_EQ(Multiply(kMost, 1), kMost);
  EXPECT_EQ(Multiply(1073741824, -2), kLeast);
}

TEST(Multiply, RaisesOverflowOneBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 1073741824 * 2 does not fit 32 bits", Multiply(1073741824, 2));
  EXPECT_RAISES(6, "overflow: 715827883 * -3 does not fit 32 bits", Multiply(715827883, -3));
}

TEST(Negate, TurnsTheSign) {
  EXPECT_EQ(Negate(5), -5);
  EXPECT_EQ(Negate(-5), 5);
  EXPECT_EQ(Negate(0), 0);
  EXPECT_EQ(Negate(kMost), -kMost);
  EXPECT_EQ(Negate(kLeast + 1), kMost);
}

TEST(Negate, RaisesOverflowForTheSmallestNumber) {
  EXPECT_RAISES(6, "overflow: 0 - -2147483648 does not fit 32 bits", Negate(kLeast));
}

TEST(IntDiv, TruncatesTowardZeroForEverySignPair) {
  EXPECT_EQ(IntDiv(7, 2), 3);
  EXPECT_EQ(IntDiv(-7, 2), -3);
  EXPECT_EQ(IntDiv(7, -2), -3);
  EXPECT_EQ(IntDiv(-7, -2), 3);
  EXPECT_EQ(IntDiv(1, 2), 0);
  EXPECT_EQ(IntDiv(-1, 2), 0);
}

TEST(IntDiv, DividesByMinusOneAndByOne) {
  EXPECT_EQ(IntDiv(7, -1), -7);
  EXPECT_EQ(IntDiv(kMost, -1), -kMost);
  EXPECT_EQ(IntDiv(kLeast, 1), kLeast);
  EXPECT_EQ(IntDiv(kLeast, -2), 1073741824);
}

TEST(IntDiv, RaisesOverflowWhenTheQuotientHasNoPlace) {
  EXPECT_RAISES(6, "overflow: 0 - -2147483648 does not fit 32 bits", IntDiv(kLeast, -1));
}

TEST(IntDiv, RaisesDivisionByZero) {
  EXPECT_RAISES(11, "-7 was divided by zero", IntDiv(-7, 0));
  EXPECT_RAISES(11, "0 was divided by zero", IntDiv(0, 0));
}

TEST(ToInteger, KeepsWhatFitsSixteenBits) {
  EXPECT_EQ(ToInteger(0), 0);
  EXPECT_EQ(ToInteger(32767), 32767);
  EXPECT_EQ(ToInteger(-32768), -32768);
}

TEST(ToInteger, RaisesOverflowOneBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 32768 does not fit 16 bits", ToInteger(32768));
  EXPECT_RAISES(6, "overflow: -32769 does not fit 16 bits", ToInteger(-32769));
}

TEST(RoundHalfEven, TakesAHalfToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
}

TEST(RoundHalfEven, TakesTheRestToTheNearest) {
  EXPECT_EQ(RoundHalfEven(2.4999999), 2);
  EXPECT_EQ(RoundHalfEven(2.5000001), 3);
  EXPECT_EQ(RoundHalfEven(-2.4999999), -2);
  EXPECT_EQ(RoundHalfEven(-2.5000001), -3);
  EXPECT_EQ(RoundHalfEven(7.0), 7);
}

TEST(RoundHalfEven, ReachesBothLimits) {
  EXPECT_EQ(RoundHalfEven(2147483647.4999), kMost);
  EXPECT_EQ(RoundHalfEven(-2147483648.5), kLeast);
}

TEST(RoundHalfEven, RaisesOverflowBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 2147483648.000000 does not fit 32 bits", RoundHalfEven(2147483647.5));
  EXPECT_RAISES(6, "overflow: -2147483649.000000 does not fit 32 bits", RoundHalfEven(-2147483648.5001));
}

TEST(RoundHalfEven, RaisesOverflowForWhatIsNoNumber) {
  EXPECT_RAISES(6, "overflow: nan does not fit 32 bits",
                RoundHalfEven(std::numeric_limits<Double>::quiet_NaN()));
  EXPECT_RAISES(6, "overflow: inf does not fit 32 bits",
                RoundHalfEven(std::numeric_limits<Double>::infinity()));
  EXPECT_RAISES(6, "overflow: -inf does not fit 32 bits",
                RoundHalfEven(-std::numeric_limits<Double>::infinity()));
}

TEST(Fix, TruncatesTowardZero) {
  EXPECT_EQ(Fix(2.9), 2);
  EXPECT_EQ(Fix(-2.9), -2);
  EXPECT_EQ(Fix(0.999), 0);
  EXPECT_EQ(Fix(-0.999), 0);
  EXPECT_EQ(Fix(3.0), 3);
}

TEST(Fix, ReachesBothLimits) {
  EXPECT_EQ(Fix(2147483647.999), kMost);
  EXPECT_EQ(Fix(-2147483648.999), kLeast);
}

TEST(Fix, RaisesOverflowBeyondTheLimits) {
  EXPECT_RAISES(6, "overflow: 2147483648.000000 does not fit 32 bits", Fix(2147483648.0));
  EXPECT_RAISES(6, "overflow: -2147483649.000000 does not fit 32 bits", Fix(-2147483649.5));
  EXPECT_RAISES(6, "overflow: nan does not fit 32 bits", Fix(std::numeric_limits<Double>::quiet_NaN()));
}

}  // namespace
}  // namespace quenzel7::automation
