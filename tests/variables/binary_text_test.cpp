#include "variables/text/binary_text.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/text_list_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;

using BinaryText = test::TextLists<clsVarBinaryText>;

TEST_F(BinaryText, PublishesItsDefaultInterfaceInSlotOrder) {
  const CallLog expected = {
      "get DrawingElement() As ItfHmiElement",
      "call Clear()",
      "call AppendText()",
      "call ListTexts(Long) As clsVarTextElement",
      "get StorageText() As Long",
      "put StorageText(Long)",
      "get StorageLibNum() As Long",
      "put StorageLibNum(Long)",
      "get Switch() As Boolean",
      "put Switch(Boolean)",
      "call DeleteAllStorageIDs()",
      "call SetBinaryData(Byte())",
      "call GetBinaryData() As Byte()",
      "call ReSyncDrawingElementParams(Long, Long)",
      "call ConvertFlatColorToClosestGradientColor()",
  };
  EXPECT_EQ(clsVarBinaryText::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsVarBinaryText::ClassOf().Default().Name(), "_clsVarBinaryText");
}

TEST_F(BinaryText, IsNoSwitchUntilItIsToldToBe) {
  clsVarBinaryText handler;
  EXPECT_FALSE(handler.Switch());
  PutByName(handler, "Switch", Variant(Long{7}));
  EXPECT_TRUE(handler.Switch());
  EXPECT_EQ(GetByName(handler, "Switch"), Variant(true));
  PutByName(handler, "Switch", Variant(false));
  EXPECT_FALSE(handler.Switch());
}

TEST_F(BinaryText, KeepsTheLibraryBehindItsTexts) {
  const auto handler = Of({"a", "b"});
  EXPECT_EQ(BagOf(*handler)->Names(),
            (CallLog{"DrawingText_Txt", "DrawingText_FontNumber", "DrawingText_ColorFore",
                     "DrawingText_ColorBack", "ListCount",                                               //
                     "Txt_1", "ColorFore_1", "ColorBack_1", "StorageStringID_1", "StorageStringType_1",  //
                     "Txt_2", "ColorFore_2", "ColorBack_2", "StorageStringID_2", "StorageStringType_2",  //
                     "Switch", "StorageText", "StorageLibNum"}));
}

TEST_F(BinaryText, ReadsInTheOrderInWhichItWrites) {
  const Variant word(std::string("x"));
  const auto kept = Of({"a", "b"});
  kept->DrawingElement()->ColorBack(31);
  kept->Switch(true);
  kept->StorageText(5);
  kept->StorageLibNum(6);
  const auto readUntil = [&](const char* broken) {
    auto handler = std::make_shared<clsVarBinaryText>();
    EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(DataWith(*kept, broken, &word)); }), 13) << broken;
    return handler;
  };
  EXPECT_EQ(readUntil("ListCount")->DrawingElement()->ColorBack(), 31);
  EXPECT_EQ(TextsOf(*readUntil("ListCount")), (CallLog{"", ""}));
  EXPECT_EQ(TextsOf(*readUntil("ColorFore_2")), (CallLog{"a", "b"}));
  EXPECT_FALSE(readUntil("ColorFore_2")->Switch());
  EXPECT_EQ(TextsOf(*readUntil("Switch")), (CallLog{"a", "b"}));
  EXPECT_EQ(readUntil("Switch")->StorageText(), 0);
  EXPECT_TRUE(readUntil("StorageText")->Switch());
  EXPECT_EQ(readUntil("StorageText")->StorageLibNum(), 0);
  EXPECT_EQ(readUntil("StorageLibNum")->StorageText(), 5);
}

TEST_F(BinaryText, WithoutSwitchInTheDataIsAnError) {
  const auto handler = Of({"a"});
  EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(DataWith(*handler, "Switch", nullptr)); }), 327);
}

TEST_F(BinaryText, HasNoOperandsBesideItsLink) {
  const auto handler = Of({"a"});
  handler->ListTexts(1)->FromOpType(3);
  handler->ListTexts(1)->FromOpAddress(4);
  handler->BuildOpPropBag();
  EXPECT_EQ(handler->ColOpPropBag()->Count(), 0);
  handler->ReplaceOperand(3, 4, 5, 6);
  EXPECT_EQ(handler->ListTexts(1)->From(), (OperandPair{3, 4}));
  // Rows and operands would take a project.
  handler->AddOperandsToHmiOperands(9);
  handler->RestoreAllOperands(9);
  handler->DeleteAllOperands();
}

}  // namespace
}  // namespace quenzel7
