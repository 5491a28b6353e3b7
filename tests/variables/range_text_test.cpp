#include "variables/text/range_text.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/text_list_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;
using test::OperandsIn;

using RangeText = test::TextLists<clsVarRangeText>;

TEST_F(RangeText, PublishesItsDefaultInterfaceInSlotOrder) {
  const CallLog expected = {
      "get DrawingElement() As ItfHmiElement",
      "get ColOpPropBag() As Collection",
      "putref ColOpPropBag(Collection)",
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
  EXPECT_EQ(clsVarRangeText::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsVarRangeText::ClassOf().Default().Name(), "_clsVarRangeText");
}

TEST_F(RangeText, KeepsTheLibraryBeforeItsTextsAndTheBoundsWithEach) {
  EXPECT_EQ(BagOf(*Of({"a", "b"}))->Names(), (CallLog{"DrawingText_Txt",
                                                      "DrawingText_FontNumber",
                                                      "DrawingText_ColorFore",
                                                      "DrawingText_ColorBack",
                                                      "StorageText",
                                                      "StorageLibNum",
                                                      "ListCount",  //
                                                      "Txt_1",
                                                      "ColorFore_1",
                                                      "ColorBack_1",
                                                      "FromOpType_1",
                                                      "FromOpAddress_1",  //
                                                      "ToOpType_1",
                                                      "ToOpAddress_1",
                                                      "StorageStringID_1",
                                                      "StorageStringType_1",  //
                                                      "Txt_2",
                                                      "ColorFore_2",
                                                      "ColorBack_2",
                                                      "FromOpType_2",
                                                      "FromOpAddress_2",  //
                                                      "ToOpType_2",
                                                      "ToOpAddress_2",
                                                      "StorageStringID_2",
                                                      "StorageStringType_2"}));
}

TEST_F(RangeText, ReadsInTheOrderInWhichItWrites) {
  const Variant word(std::string("x"));
  const auto kept = Of({"a", "b"});
  kept->DrawingElement()->ColorBack(31);
  kept->StorageText(5);
  kept->StorageLibNum(6);
  kept->ListTexts(1)->FromOpType(11);
  kept->ListTexts(1)->FromOpAddress(12);
  kept->ListTexts(1)->ToOpType(13);
  kept->ListTexts(1)->ToOpAddress(14);
  const auto readUntil = [&](const char* broken) {
    auto handler = std::make_shared<clsVarRangeText>();
    EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(DataWith(*kept, broken, &word)); }), 13) << broken;
    return handler;
  };
  EXPECT_EQ(readUntil("StorageText")->DrawingElement()->ColorBack(), 31);
  EXPECT_EQ(readUntil("StorageText")->StorageLibNum(), 0);
  EXPECT_EQ(readUntil("StorageLibNum")->StorageText(), 5);
  EXPECT_EQ(readUntil("StorageLibNum")->ListCount(), 1);
  EXPECT_EQ(readUntil("ListCount")->StorageLibNum(), 6);
  EXPECT_EQ(readUntil("ListCount")->ListTexts(1)->Txt(), "");
  EXPECT_EQ(TextsOf(*readUntil("ColorFore_2")), (CallLog{"a", "b"}));
  EXPECT_EQ(readUntil("FromOpAddress_1")->ListTexts(1)->From(), (OperandPair{11, 0}));
  EXPECT_EQ(readUntil("ToOpType_1")->ListTexts(1)->From(), (OperandPair{11, 12}));
  EXPECT_EQ(readUntil("ToOpAddress_1")->ListTexts(1)->To(), (OperandPair{13, 0}));
  EXPECT_EQ(readUntil("StorageStringID_1")->ListTexts(1)->To(), (OperandPair{13, 14}));
}

TEST_F(RangeText, WithoutABoundInTheDataIsAnError) {
  const auto handler = Of({"a"});
  for (const char* name : {"FromOpType_1", "FromOpAddress_1", "ToOpType_1", "ToOpAddress_1"}) {
    EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(DataWith(*handler, name, nullptr)); }), 327) << name;
  }
}

/// Range texts in a project, and what it is told of their operands.
class RangeTextOperands : public test::HandlerTest {
 protected:
  /// Two texts with the bounds 1 5, 2 6 and 34 7, 0 8.
  static std::shared_ptr<clsVarRangeText> Two() {
    auto handler = std::make_shared<clsVarRangeText>();
    handler->AppendText();
    handler->LinkOperandType(1);
    handler->LinkOperandAddress(5);
    handler->ListTexts(1)->From() = {1, 5};
    handler->ListTexts(1)->To() = {2, 6};
    handler->ListTexts(2)->From() = {34, 7};
    handler->ListTexts(2)->To() = {0, 8};
    return handler;
  }
  static std::vector<OperandPair> BoundsOf(const clsVarRangeText& handler) {
    std::vector<OperandPair> bounds;
    for (Long text = 1; text <= handler.ListCount(); ++text) {
      bounds.push_back(handler.ListTexts(text)->From());
      bounds.push_back(handler.ListTexts(text)->To());
    }
    return bounds;
  }
};

TEST_F(RangeTextOperands, HaveABagEachInTheOrderOfTheTextsAndFromBeforeTo) {
  const auto handler = Two();
  const auto before = handler->ColOpPropBag();
  handler->BuildOpPropBag();
  EXPECT_EQ(OperandsIn(handler->ColOpPropBag()), (CallLog{"1 5", "2 6", "34 7", "0 8"}));
  EXPECT_NE(handler->ColOpPropBag(), before);
  EXPECT_EQ(before->Count(), 0);
  EXPECT_EQ(automation::To<automation::CollectionRef>(GetByName(*handler, "ColOpPropBag")),
            handler->ColOpPropBag());
  handler->RemoveText(1);
  handler->BuildOpPropBag();
  EXPECT_EQ(OperandsIn(handler->ColOpPropBag()), (CallLog{"34 7", "0 8"}));
}

TEST_F(RangeTextOperands, ComeBackFromTheirBagsEachWithARow) {
  const auto handler = Two();
  handler->BuildOpPropBag();
  NoteOperands();
  handler->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 5", RowOf(9, 1, 5),  //
                                "add operand 6", RowOf(9, 2, 6),  //
                                "add operand 0", RowOf(9, 37, 0)}));
  EXPECT_EQ(BoundsOf(*handler), (std::vector<OperandPair>{{1, 5}, {2, 6}, {37, 0}, {0, 8}}));
}

TEST_F(RangeTextOperands, ComeBackAsFarAsThereAreBags) {
  const auto kept = Two();
  kept->BuildOpPropBag();
  const auto handler = Two();
  handler->AppendText();
  handler->ListTexts(3)->From() = {3, 9};
  handler->ColOpPropBag(kept->ColOpPropBag());
  NoteOperands();
  EXPECT_EQ(ErrorOf([&] { handler->RestoreAllOperands(9); }), 9);
  EXPECT_EQ(OperandRows().size(), 3u);
  EXPECT_EQ(handler->ListTexts(3)->From(), (OperandPair{3, 9}));

  handler->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([&] { handler->RestoreAllOperands(9); }), 91);
  handler->Clear();
  handler->RestoreAllOperands(9);
  EXPECT_EQ(OperandRows().size(), 3u);
}

TEST_F(RangeTextOperands, HaveRowsAsTheyStand) {
  const auto handler = Two();
  NoteOperands();
  handler->AddOperandsToHmiOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{RowOf(9, 1, 5), RowOf(9, 2, 6), RowOf(9, 34, 7)}));
  EXPECT_EQ(BoundsOf(*handler), BoundsOf(*Two()));
  EXPECT_EQ(handler->ColOpPropBag()->Count(), 0);
}

TEST_F(RangeTextOperands, LeaveTheProjectWhereThereAreAny) {
  const auto handler = Two();
  NoteOperands();
  handler->DeleteAllOperands();
  EXPECT_EQ(TakeLog(), (CallLog{"remove operand 5", "remove operand 6", "remove operand 7"}));
  EXPECT_EQ(BoundsOf(*handler), BoundsOf(*Two()));
}

TEST_F(RangeTextOperands, AreReplacedWhereTypeAndAddressAreTheOldOnes) {
  const auto handler = Two();
  handler->AppendText();
  handler->ListTexts(3)->From() = {1, 6};
  handler->ListTexts(3)->To() = {1, 5};
  handler->ReplaceOperand(1, 5, 21, 22);
  EXPECT_EQ(BoundsOf(*handler),
            (std::vector<OperandPair>{{21, 22}, {2, 6}, {34, 7}, {0, 8}, {1, 6}, {21, 22}}));
  EXPECT_EQ(handler->LinkOperandType(), 1);
  EXPECT_EQ(handler->LinkOperandAddress(), 5);
  handler->ReplaceOperand(2, 5, 31, 32);
  handler->ReplaceOperand(1, 7, 31, 32);
  EXPECT_EQ(BoundsOf(*handler),
            (std::vector<OperandPair>{{21, 22}, {2, 6}, {34, 7}, {0, 8}, {1, 6}, {21, 22}}));
  handler->ReplaceOperand(0, 8, 31, 32);
  EXPECT_EQ(handler->ListTexts(2)->To(), (OperandPair{31, 32}));
}

// --- Hosts that change the handler while they are asked ---

TEST_F(RangeTextOperands, ComeBackAllWhenTheTextsAreTakenOutMeanwhile) {
  const auto handler = Two();
  handler->BuildOpPropBag();
  const std::weak_ptr<clsVarTextElement> last = handler->ListTexts(2);
  WhileOperandsAreAsked([&] {
    handler->Clear();
    EXPECT_FALSE(last.expired());
  });
  handler->RestoreAllOperands(9);
  EXPECT_EQ(OperandRows(), (CallLog{"9 1 5 0 3", "9 2 6 0 3", "9 37 0 0 3"}));
  EXPECT_EQ(handler->ListCount(), 0);
  EXPECT_TRUE(last.expired());
}

TEST_F(RangeTextOperands, ComeBackUntilTheBagsAreTakenAway) {
  const auto handler = Two();
  handler->BuildOpPropBag();
  WhileOperandsAreAsked([&] { handler->ColOpPropBag(nullptr); });
  EXPECT_EQ(ErrorOf([&] { handler->RestoreAllOperands(9); }), 91);
  EXPECT_EQ(OperandRows(), CallLog{"9 1 5 0 3"});
  EXPECT_EQ(BoundsOf(*handler), BoundsOf(*Two()));
}

TEST_F(RangeTextOperands, EnterTheChangeKeyOfTheListThatItBeganWith) {
  const auto handler = Two();
  handler->ListTexts(1)->From() = {34, 5};
  const std::vector<Byte> key = handler->GetBinaryDataForCRC();
  WhileOperandsAreAsked([&] {
    handler->Clear();
    handler->AppendText();
    handler->AppendText();
  });
  EXPECT_EQ(handler->GetBinaryDataForCRC(), key);
  EXPECT_EQ(handler->ListTexts(2)->From(), OperandPair());
}

}  // namespace
}  // namespace quenzel7
