#include "hosts/cli/page_operands.h"

#include <gtest/gtest.h>

#include "framework/operands.h"
#include "platform/fennick1/operand.h"
#include "shapes/rectangle.h"
#include "shapes/text.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/every_kind_element.h"

namespace quenzel7::cli {
namespace {

class PageOperandsTest : public test::CliProjectTest {
 protected:
  static void Define(Long type, Long address, const std::string& comment, Long network = 0) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(type);
    operand.OperandAddress(address);
    operand.OperandNetID(network);
    operand.OperandComment(comment);
    operand.AddToProject();
  }
  std::vector<std::string> Operands() {
    return Rows("SELECT * FROM Operands ORDER BY Type, Address", {"Type", "Address", "NetID", "Comment"});
  }
  std::vector<std::string> OperandRows() {
    return Rows("SELECT * FROM HMI_Operands ORDER BY ElementID, OprndPurpose",
                {"ElementID", "OprndType", "OprndAddr", "OprndNetID", "OprndPurpose"});
  }
};

TEST_F(PageOperandsTest, RowsThatNameNoOperandAreNoHindrance) {
  Define(1, 8, "eight");
  for (const char* row : {"1, Null, 8, 0, 2", "1, 1, 'x', 0, 2", "1, 1, 8, Null, 2", "1, 1, 8, 0, 2"}) {
    Connection().Execute(std::string("INSERT INTO HMI_Operands VALUES (") + row + ")");
  }
  PageOperands operands(Connection());
  Connection().Execute("DELETE * FROM Operands");
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 0 eight"});
}

TEST_F(PageOperandsTest, AddsRowsForTouchAndHideOperands) {
  PageOperands operands(Connection());
  clsRectangle element;
  static_cast<ItfHmiElement&>(element).ID(3);
  element.TouchOprndAddr(8);
  element.VisibleOpAddr(0);
  operands.AddRows(element);
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"3 1 8 0 2", "3 1 0 0 5"}));
}

TEST_F(PageOperandsTest, AddsNoRowBelowZero) {
  PageOperands operands(Connection());
  clsRectangle element;
  static_cast<ItfHmiElement&>(element).ID(3);
  element.TouchOprndAddr(-2);
  operands.AddRows(element);
  operands.Settle();
  EXPECT_TRUE(OperandRows().empty());
  EXPECT_TRUE(Operands().empty());
}

TEST_F(PageOperandsTest, AddsNoRowForAClassWithoutOperands) {
  PageOperands operands(Connection());
  test::EveryKindElement element;
  operands.AddRows(element);
  EXPECT_TRUE(OperandRows().empty());
}

TEST_F(PageOperandsTest, AddsARowForTheOperandThatPicksAString) {
  PageOperands operands(Connection());
  clsText element;
  static_cast<ItfHmiElement&>(element).ID(3);
  element.StorageStringID(0);
  operands.AddRows(element);
  EXPECT_TRUE(OperandRows().empty());
  element.StorageStringType(3);
  operands.AddRows(element);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"3 3 0 0 " + std::to_string(eOP_StorageStringIdOperand)});
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"3 0 0 "});
  static_cast<ItfHmiElement&>(element).ID(-1);
  element.StorageStringID(-1);
  operands.AddRows(element);
  EXPECT_EQ(OperandRows().size(), 1u);
}

TEST_F(PageOperandsTest, NewOperandsAreEnteredWhenThePageIsSettled) {
  PageOperands operands(Connection());
  clsRectangle element;
  element.TouchOprndAddr(8);
  operands.AddRows(element);
  EXPECT_TRUE(Operands().empty());
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 0 "});
}

TEST_F(PageOperandsTest, AnOperandThatIsDefinedKeepsItsComment) {
  Define(1, 8, "pump");
  PageOperands operands(Connection());
  clsRectangle element;
  element.TouchOprndAddr(8);
  operands.AddRows(element);
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 0 pump"});
}

TEST_F(PageOperandsTest, AnOperandThatOthersUseComesBack) {
  Define(1, 8, "pump");
  Define(1, 9, "valve");
  AddOperandRow(70, 1, 8, eOP_TouchOperand, 0);
  AddOperandRow(71, 1, 9, eOP_TouchOperand, 0);
  PageOperands operands(Connection());
  Connection().Execute("DELETE * FROM Operands");
  RemoveAllOperandRows(71);
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 0 pump"});
}

TEST_F(PageOperandsTest, AnOperandThatTheNewPageUsesAgainKeepsItsComment) {
  Define(1, 8, "pump");
  AddOperandRow(70, 1, 8, eOP_TouchOperand, 0);
  PageOperands operands(Connection());
  Connection().Execute("DELETE * FROM Operands");
  RemoveAllOperandRows(70);
  clsRectangle element;
  element.VisibleOpAddr(8);
  operands.AddRows(element);
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 0 pump"});
}

TEST_F(PageOperandsTest, AnOperandOfAnotherNetworkComesBackInItsNetwork) {
  Define(1, 8, "remote", 2);
  AddOperandRow(70, 1, 8, eOP_VarLinkOperand, 2);
  PageOperands operands(Connection());
  Connection().Execute("DELETE * FROM Operands");
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"1 8 2 remote"});
}

TEST_F(PageOperandsTest, WhatWasNotDefinedIsNotBroughtBack) {
  AddOperandRow(70, 1, 8, eOP_TouchOperand, 0);
  PageOperands operands(Connection());
  operands.Settle();
  EXPECT_TRUE(Operands().empty());
}

TEST_F(PageOperandsTest, OperandsThatHoldAValueAreLeftAlone) {
  Define(34, 8, "limit");
  AddOperandRow(70, 34, 8, eOP_VarLinkOperand, 0);
  PageOperands operands(Connection());
  operands.Settle();
  EXPECT_EQ(Operands(), std::vector<std::string>{"34 8 0 limit"});
}

}  // namespace
}  // namespace quenzel7::cli
