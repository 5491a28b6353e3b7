/// What the tool tip of a variable says.
#include <gtest/gtest.h>

#include "tests/support/variable_fixture.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::TypeOf;

class ToolTipOfVariable : public test::VariableTest {
 protected:
  static std::string TipOf(ItfHmiElement& element) { return element.GetToolTipText(); }

  static constexpr const char* kPlace = " Pos: 10, 20 ; Size: 30, 40";
};

TEST_F(ToolTipOfVariable, NamesTheTypeAndForMostTheOperand) {
  const struct {
    Long type;
    const char* head;
  } kHeads[] = {
      {1, "Pump ( Binary Image ;  ) "},
      {2, "Pump ( Binary Text ;  ) "},
      {3, "Pump ( List Of Texts ;  ) "},
      {4, "Pump ( List Of Images ;  ) "},
      {5, "Pump ( Date/Time ) "},
      {6, "Pump ( Time Functions ;  ) "},
      {7, "Pump ( Timer ;  ) "},
      {8, "Pump ( Numeric ;  ) "},
      {9, "Pump ( Bargraph ;  ) "},
      {10, "Pump ( Float ;  ) "},
      {11, "Pump ( Range of Texts ;  ) "},
      {12, "Pump ( Range of Images ;  ) "},
      {13, "Pump ( Password ) "},
      {14, "Pump (  ;  ) "},
      {15, "Pump ( ASCII String ;  ) "},
      {16, "Pump ( Counter ;  ) "},
      {17, "Pump ( Data Table ;  ) "},
      {18, "Pump ( Shape Graph ;  ) "},
      {19, "Pump ( UTC ;  ) "},
      {20, "Pump ( Moving Image ;  ) "},
      {21, "Pump ( Meter ;  ) "},
      {22, "Pump ( Tankgraph ;  ) "},
      {23, "Pump ( Trend ;  ) "},
      {24, "Pump ( LED Graph ;  ) "},
      {25, "Pump ( Thermometer Graph ;  ) "},
      {26, "Pump (  ;  ) "},
      {27, "Pump ( Trend from SD ;  ) "},
      {28, "Pump ( Browse SD ;  ) "},
      {29, "Pump (  ;  ) "},
      {30, "Pump ( Password String ) "},
  };
  Define(7);
  const std::string operand = OperandDescription(1, 7, 0);
  ASSERT_FALSE(operand.empty());
  for (const auto& [type, head] : kHeads) {
    const auto variable = Of(type);
    variable->VarName("Pump");
    EXPECT_EQ(TipOf(*variable), std::string(head) + kPlace) << type;
    variable->OperandType(1);
    variable->OperandAddress(7);
    std::string expected = head;
    const auto gap = expected.find(";  )");
    if (gap != std::string::npos) expected.insert(gap + 2, operand);
    EXPECT_EQ(TipOf(*variable), expected + kPlace) << type;
    // One that the project does not have, and one of no type.
    variable->OperandAddress(8);
    EXPECT_EQ(TipOf(*variable), std::string(head) + kPlace) << type;
    variable->OperandAddress(7);
    variable->OperandType(0);
    EXPECT_EQ(TipOf(*variable), std::string(head) + kPlace) << type;
  }
}

TEST_F(ToolTipOfVariable, TellsATouchByItsAddressUnlessThereIsAKeypadEntry) {
  const auto variable = Of(13);
  const auto expect = [&](const std::string& touch) {
    EXPECT_EQ(TipOf(*variable), " ( Password ) " + touch + kPlace);
  };
  expect("");
  variable->KeypadEntry(true);
  expect("");
  for (const Long address : {0, 12, -2, -3}) {
    variable->SetTouchWithoutLoadingPropertyBag(address);
    variable->KeypadEntry(false);
    expect(" ; (Touch - MB " + std::to_string(address) + ") ; ");
    variable->KeypadEntry(true);
    expect(" ; (Touch - Keypad Entry) ; ");
  }
}

TEST_F(ToolTipOfVariable, TellsThePlaceThatIsShown) {
  const auto variable = Of(13);
  ItfHmiElement& element = *variable;
  element.Stretch(0, 0, 0);
  element.Move(-110, 3);
  EXPECT_EQ(TipOf(element), " ( Password )  Pos: 10, 20 ; Size: 30, 40");
  element.UpdateDisplayWithTransx();
  EXPECT_EQ(TipOf(element), " ( Password )  Pos: -100, 23 ; Size: 30, 40");
}

}  // namespace
}  // namespace quenzel7
