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
                  {2, "SB", "system bit"},
                  {3, "MI", "memory integer"},
                  {4, "SI", "system integer"},
                  {5, "ML", "memory long"},
                  {6, "SL", "system long"},
                  {7, "MF", "memory float"},
                  {15, "", "constant"},
                  {16, "MDW", "memory double word"},
                  {34, "", "constant"},
                  {35, "", "constant"},
                  {36, "SDW", "system double word"},
                  {37, "", "constant"},
                  {38, "", "constant"},
                  {65, "EI", "extended integer"},
                  {66, "EL", "extended long"},
                  {67, "EDW", "extended double word"}};
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
  EXPECT_EQ(OperandText(67, 0, 0, Currency{10000}), "EDW 0");
}

TEST(OperandText, ATypeWithoutANameShowsItsNumber) {
  EXPECT_EQ(OperandText(0, 0, 0, {}), "#0 0");
  EXPECT_EQ(OperandText(23, 5, 0, {}), "#23 5");
  EXPECT_EQ(OperandText(-1, 5, 0, {}), "#-1 5");
  EXPECT_EQ(OperandText(68, 5, 0, {}), "#68 5");
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
