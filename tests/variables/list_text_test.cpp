#include "variables/text/list_text.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/text_list_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;

using ListText = test::TextLists<clsVarListText>;

TEST_F(ListText, PublishesItsDefaultInterfaceInSlotOrder) {
  const CallLog expected = {
      "get DrawingElement() As ItfHmiElement",
      "call Clear()",
      "call InsertBefore(Long)",
      "call RemoveText(Long)",
      "get ListCount() As Long",
      "call AppendText()",
      "call ListTexts(Long) As clsVarTextElement",
      "get StorageText() As Long",
      "put StorageText(Long)",
      "get StorageLibNum() As Long",
      "put StorageLibNum(Long)",
      "call DeleteAllStorageIDs()",
      "call SetBinaryData(Byte())",
      "call GetBinaryData() As Byte()",
      "call ReSyncDrawingElementParams(Long, Long)",
      "call ConvertFlatColorToClosestGradientColor()",
  };
  EXPECT_EQ(clsVarListText::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsVarListText::ClassOf().Default().Name(), "_clsVarListText");
}

TEST_F(ListText, IsChangedByTheNamesOfItsMembers) {
  const auto handler = Of({"a", "b"});
  InvokeByName(*handler, "InsertBefore", {Variant(Long{2})});
  EXPECT_EQ(TextsOf(*handler), (CallLog{"a", "", "b"}));
  InvokeByName(*handler, "RemoveText", {Variant(Long{1})});
  InvokeByName(*handler, "AppendText");
  EXPECT_EQ(TextsOf(*handler), (CallLog{"", "b", ""}));
  EXPECT_EQ(GetByName(*handler, "ListCount"), Variant(Long{3}));
  EXPECT_EQ(automation::To<TextElementRef>(InvokeByName(*handler, "ListTexts", {Variant(Long{2})})),
            handler->ListTexts(2));
  EXPECT_EQ(ErrorOf([&] { InvokeByName(*handler, "ListTexts", {Variant(Long{4})}); }), 9);
  handler->ListTexts(1)->StorageStringID(7);
  InvokeByName(*handler, "DeleteAllStorageIDs");
  EXPECT_EQ(handler->ListTexts(1)->StorageStringID(), -1);
  InvokeByName(*handler, "ReSyncDrawingElementParams", {Variant(Long{2}), Variant(Long{9})});
  EXPECT_EQ(handler->DrawingElement()->Txt(), "b");
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 9);
  EXPECT_EQ(automation::To<ElementRef>(GetByName(*handler, "DrawingElement")), handler->DrawingElement());
  InvokeByName(*handler, "Clear");
  EXPECT_EQ(handler->ListCount(), 0);
}

TEST_F(ListText, KeepsTheLibraryBeforeItsTexts) {
  const auto handler = Of({"a", "b"});
  EXPECT_EQ(BagOf(*handler)->Names(),
            (CallLog{"DrawingText_Txt", "DrawingText_FontNumber", "DrawingText_ColorFore",
                     "DrawingText_ColorBack", "StorageText", "StorageLibNum", "ListCount",               //
                     "Txt_1", "ColorFore_1", "ColorBack_1", "StorageStringID_1", "StorageStringType_1",  //
                     "Txt_2", "ColorFore_2", "ColorBack_2", "StorageStringID_2", "StorageStringType_2"}));
}

TEST_F(ListText, ReadsTheLengthBeforeTheLibrary) {
  const Variant word(std::string("x"));
  const auto kept = Of({"a", "b"});
  kept->DrawingElement()->ColorBack(31);
  kept->StorageText(5);
  kept->StorageLibNum(6);
  const auto readUntil = [&](const char* broken) {
    auto handler = std::make_shared<clsVarListText>();
    EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(DataWith(*kept, broken, &word)); }), 13) << broken;
    return handler;
  };
  EXPECT_EQ(readUntil("DrawingText_ColorBack")->ListCount(), 1);
  EXPECT_EQ(readUntil("ListCount")->DrawingElement()->ColorBack(), 31);
  EXPECT_EQ(readUntil("ListCount")->StorageText(), 0);
  EXPECT_EQ(TextsOf(*readUntil("StorageText")), (CallLog{"", ""}));
  EXPECT_EQ(readUntil("StorageText")->StorageLibNum(), 0);
  EXPECT_EQ(readUntil("StorageLibNum")->StorageText(), 5);
  EXPECT_EQ(TextsOf(*readUntil("StorageLibNum")), (CallLog{"", ""}));
  EXPECT_EQ(TextsOf(*readUntil("ColorFore_1")), (CallLog{"a", ""}));
  EXPECT_EQ(readUntil("ColorFore_1")->StorageLibNum(), 6);
}

TEST_F(ListText, HasNoOperandsBesideItsLink) {
  const auto handler = Of({"a"});
  handler->ListTexts(1)->ToOpType(3);
  handler->ListTexts(1)->ToOpAddress(4);
  handler->BuildOpPropBag();
  EXPECT_EQ(handler->ColOpPropBag()->Count(), 0);
  handler->ReplaceOperand(3, 4, 5, 6);
  EXPECT_EQ(handler->ListTexts(1)->To(), (OperandPair{3, 4}));
  // Rows and operands would take a project.
  handler->AddOperandsToHmiOperands(9);
  handler->RestoreAllOperands(9);
  handler->DeleteAllOperands();
}

}  // namespace
}  // namespace quenzel7
