#include "platform/fennick1/operand_types.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quenzel7::fennick1 {
namespace {

TEST(OperandTypes, HaveTheseNames) {
  const struct {
    Long type;
    const char* name;
    const char* meaning;
  } expected[] = {{1, "MB", "memory bit"},
                  {2, "IB", "input bit"},
                  {3, "MW", "memory word"},
                  {4, "QB", "output bit"},
                  {5, "MD", "memory double word"},
                  {6, "SW", "system word"},
                  {7, "MR", "memory real"},
                  {15, "", "constant"},
                  {16, "MU", "memory unsigned double word"},
                  {34, "", "constant"},
                  {35, "", "constant"},
                  {36, "SU", "system unsigned double word"},
                  {37, "", "constant"},
                  {38, "", "constant"},
                  {67, "XU", "extended unsigned double word"}};
  ASSERT_EQ(OperandTypes().size(), std::size(expected));
  for (std::size_t index = 0; index < std::size(expected); ++index) {
    EXPECT_EQ(OperandTypes()[index].type, expected[index].type);
    EXPECT_EQ(OperandTypes()[index].name, expected[index].name);
    EXPECT_EQ(OperandTypes()[index].meaning, expected[index].meaning);
  }
}

TEST(OperandTypes, TheValueTypesAreTheConstants) {
  std::vector<Long> constants;
  for (const OperandTypeInfo& info : OperandTypes()) {
    if (info.IsConstant()) constants.push_back(info.type);
  }
  EXPECT_EQ(constants, (std::vector<Long>{15, 34, 35, 37, 38}));
}

TEST(OperandText, NamesTypeAndAddress) {
  EXPECT_EQ(OperandText(1, 5, 0, {}), "MB 5");
  EXPECT_EQ(OperandText(1, -1, 0, {}), "MB -1");
  EXPECT_EQ(OperandText(67, 0, 0, Currency{10000}), "XU 0");
}

TEST(OperandText, ATypeWithoutANameShowsItsNumber) {
  EXPECT_EQ(OperandText(0, 0, 0, {}), "#0 0");
  EXPECT_EQ(OperandText(23, 5, 0, {}), "#23 5");
  EXPECT_EQ(OperandText(-1, 5, 0, {}), "#-1 5");
  EXPECT_EQ(OperandText(68, 5, 0, {}), "#68 5");
  EXPECT_EQ(OperandText(66, 5, 0, {}), "#66 5");
}

TEST(OperandText, AConstantShowsItsValue) {
  for (const Long type : {15, 34, 35, 37, 38}) {
    EXPECT_EQ(OperandText(type, 3, 0, Currency{125000}), "12.5");
    EXPECT_EQ(OperandText(type, 3, 0, Currency{-70000}), "-7");
  }
}

TEST(OperandText, AnotherNetworkIsTold) {
  EXPECT_EQ(OperandText(1, 5, 3, {}), "MB 5, network 3");
  EXPECT_EQ(OperandText(37, 5, -1, Currency{10000}), "1, network -1");
}

}  // namespace
}  // namespace quenzel7::fennick1
