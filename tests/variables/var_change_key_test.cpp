/// The change key of a variable: what enters it, and what does not.
#include <gtest/gtest.h>

#include <functional>

#include "tests/support/raises.h"
#include "tests/support/variable_fixture.h"
#include "variables/text/numeric.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;
using test::TypeOf;

/// Keeps the bytes that it is given, and gives their number.
class KeepingCrc final : public corvane1::CrcService {
 public:
  std::vector<Byte> bytes;

  Long Crc(std::span<const Byte> data) override {
    bytes.assign(data.begin(), data.end());
    return 1000 + static_cast<Long>(data.size());
  }
};

class ChangeKeyOfVariable : public test::VariableTest {
 protected:
  void SetUp() override {
    VariableTest::SetUp();
    Platform::Current().crcService = crc_;
  }

  const std::shared_ptr<KeepingCrc> crc_ = std::make_shared<KeepingCrc>();
};

/// The shell of a variable that shows the global variable 6 as a number with a keypad entry.
std::vector<Byte> ExpectedShell() {
  automation::PropertyBag shell;
  shell.WriteProperty("GlobalVarID", Long{6});
  shell.WriteProperty("KeypadEntry", true);
  shell.WriteProperty("VarType", Long{8});
  return shell.Contents();
}

TEST_F(ChangeKeyOfVariable, IsMadeOfItsShellThenOfWhatItsHandlerSays) {
  const auto variable = Of(8);
  variable->GlobalVarID(6);
  variable->KeypadEntry(true);
  handler_->changeKey = {7, 8, 9};
  std::vector<Byte> expected = ExpectedShell();
  EXPECT_EQ(variable->GetDataCRC(), 1000 + static_cast<Long>(expected.size()) + 3);
  expected.insert(expected.end(), {7, 8, 9});
  EXPECT_EQ(crc_->bytes, expected);
  EXPECT_EQ(TakeLog(), CallLog{"handler.GetBinaryDataForCRC()"});
  handler_->changeKey.clear();
  EXPECT_EQ(variable->GetDataCRC(), 1000 + static_cast<Long>(expected.size()) - 3);
}

TEST_F(ChangeKeyOfVariable, NamesTheShellInThisOrder) {
  const auto variable = Of(8);
  variable->GetDataCRC();
  automation::PropertyBag shell;
  shell.Contents(crc_->bytes);
  EXPECT_EQ(shell.Names(), (CallLog{"GlobalVarID", "KeypadEntry", "VarType"}));
  EXPECT_EQ(shell.ReadProperty("GlobalVarID"), automation::Variant(Long{0}));
  EXPECT_EQ(shell.ReadProperty("KeypadEntry"), automation::Variant(false));
  EXPECT_EQ(shell.ReadProperty("VarType"), automation::Variant(Long{8}));
}

TEST_F(ChangeKeyOfVariable, ChangesWithTheShellAndTheHandlerAlone) {
  const auto variable = Of(30);
  ItfHmiElement& element = *variable;
  const auto bytes = [&] {
    variable->GetDataCRC();
    return crc_->bytes;
  };
  const std::function<void()> outside[] = {
      [&] { variable->ID(9); },
      [&] { variable->GroupID(9); },
      [&] { variable->Xs(9); },
      [&] { variable->Ys(9); },
      [&] { variable->Dx(9); },
      [&] { variable->Dy(9); },
      [&] { variable->SetTouchWithoutLoadingPropertyBag(9); },
      [&] { variable->EnabledOpAddr(9); },
      [&] { variable->VisibleOpAddr(9); },
      [&] { variable->HighlightOpAddr(9); },
      [&] { variable->KeypadSuccessOpAddr(9); },
      [&] { variable->OperandType(9); },
      [&] { variable->OperandAddress(9); },
      [&] { variable->VarName("nine"); },
      [&] { variable->HatchStyle(eHS_Cross); },
      [&] { variable->DefaultDisplay(9); },
      [&] { variable->DisplayID(9); },
      [&] { variable->ColorBack(9); },
      [&] { variable->ColorBackTouch(9); },
      [&] { variable->Alignment(7); },
      [&] { variable->Flat3D(1); },
      [&] { variable->FontNumber(9); },
      [&] { variable->DescriptionFontNumber(9); },
      [&] { variable->TabIndex(9); },
      [&] { variable->TransparencyLevel(1); },
      [&] { variable->ListText()->StorageStringID(9); },
      [&] { variable->StorageText(-1); },
      [&] { variable->StorageLibNum(9); },
      [&] { element.Move(9, 9); },
  };
  const auto before = bytes();
  for (std::size_t i = 0; i < std::size(outside); ++i) {
    outside[i]();
    EXPECT_EQ(bytes(), before) << i;
  }
  variable->KeypadEntry(true);
  const auto withKeypad = bytes();
  EXPECT_NE(withKeypad, before);
  variable->GlobalVarID(1);
  const auto asGlobal = bytes();
  EXPECT_NE(asGlobal, withKeypad);
  variable->SetBinaryHandler(eVT_Password, handler_);
  variable->VarType(eVT_Password);
  EXPECT_NE(bytes(), asGlobal);
}

TEST_F(ChangeKeyOfVariable, IsTheCrcOfTheHost) {
  Platform::Current().crcService = std::make_shared<corvane1::StandardCrc>();
  clsVar variable;
  variable.VarType(eVT_Numeric);
  variable.GlobalVarID(6);
  variable.KeypadEntry(true);
  std::vector<Byte> joined = ExpectedShell();
  const std::vector<Byte> settings = variable.BinaryHandlers(eVT_Numeric)->GetBinaryDataForCRC();
  ASSERT_FALSE(settings.empty());
  joined.insert(joined.end(), settings.begin(), settings.end());
  EXPECT_EQ(variable.GetDataCRC(), corvane1::StandardCrc().Crc(joined));
}

TEST_F(ChangeKeyOfVariable, IsThatOfTheHandlerOfTheTypeAlone) {
  clsVar variable;
  variable.VarType(eVT_Numeric);
  const Long before = variable.GetDataCRC();
  const auto number = std::dynamic_pointer_cast<clsVarNumeric>(variable.BinaryHandlers(eVT_Numeric));
  variable.VarType(eVT_DisplayString);
  const Long ofString = variable.GetDataCRC();
  number->Postfix("bar");
  EXPECT_EQ(variable.GetDataCRC(), ofString);
  variable.VarType(eVT_Numeric);
  EXPECT_NE(variable.GetDataCRC(), before);
}

}  // namespace
}  // namespace quenzel7
