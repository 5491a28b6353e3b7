#include "variables/binary_handler_contract.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::CallByName;
using automation::CallKind;
using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;

/// A class that implements nothing: every operation is the contract's stub.
class BareHandler final : public ItfVarBinaryHandler {
 public:
  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"BareHandler", interfaces, nullptr};
    return info;
  }
};

TEST(HandlerContract, SlotsStandInTheirPublishedOrder) {
  const std::vector<std::string> expected = {
      "call DeleteAllOperands()",
      "call RestoreAllOperands(Long)",
      "get BinaryData() As Byte()",
      "put BinaryData(Byte())",
      "get LinkOperandType() As Long",
      "put LinkOperandType(Long)",
      "get LinkOperandAddress() As Long",
      "put LinkOperandAddress(Long)",
      "get DrawingElement() As ItfHmiElement",
      "call Replica() As ItfVarBinaryHandler",
      "call GetOptimalDimensions(ByRef Long, ByRef Long)",
      "call GetBinaryDataForCRC() As Byte()",
      "call ReplaceOperand(Long, Long, Long, Long)",
      "call AddOperandsToHmiOperands(Long)",
      "call SetNewFontNumberByLookUpTBL(ByRef Variant)",
      "call ValidateFontNumber(ByRef Collection)",
      "call IsHmiFontInUse(Long) As Boolean",
      "call UpdateOnFontDelete(Long)",
      "call BuildOpPropBag()",
      "call ReleaseResources()",
      "call Rotate()",
      "call InvertColors()",
      "call BuildImageList(Long)",
      "call ResizeImages(Long, Long, Long, Long)",
      "call SaveToDB(Long, enVarType)",
  };
  EXPECT_EQ(ItfVarBinaryHandler::InterfaceOf().Slots(), expected);
  EXPECT_EQ(ItfVarBinaryHandler::InterfaceOf().Name(), "ItfVarBinaryHandler");
}

TEST(HandlerContract, StubsReadNothingAndIgnoreWrites) {
  BareHandler handler;
  const Variant noBytes = automation::FromBytes({});
  const std::pair<const char*, Variant> stubs[] = {
      {"LinkOperandType", Long{0}}, {"LinkOperandAddress", Long{0}}, {"BinaryData", noBytes}};
  for (const auto& [name, value] : stubs) {
    EXPECT_EQ(GetByName(handler, name), value) << name;
    PutByName(handler, name, value == noBytes ? automation::FromBytes({1, 2}) : Variant(Long{7}));
    EXPECT_EQ(GetByName(handler, name), value) << name;
  }
  EXPECT_EQ(GetByName(handler, "DrawingElement"), Variant(ElementRef()));
  EXPECT_EQ(test::ErrorOf([&] { PutByName(handler, "DrawingElement", Variant(ElementRef())); }), 383);
}

TEST(HandlerContract, StubMethodsDoNothingAndGiveNothing) {
  BareHandler handler;
  for (const char* name :
       {"DeleteAllOperands", "BuildOpPropBag", "ReleaseResources", "Rotate", "InvertColors"}) {
    EXPECT_EQ(InvokeByName(handler, name), Variant()) << name;
  }
  for (const char* name :
       {"RestoreAllOperands", "AddOperandsToHmiOperands", "UpdateOnFontDelete", "BuildImageList"}) {
    EXPECT_EQ(InvokeByName(handler, name, {Long{1}}), Variant()) << name;
  }
  EXPECT_EQ(InvokeByName(handler, "ReplaceOperand", {Long{1}, Long{2}, Long{3}, Long{4}}), Variant());
  EXPECT_EQ(InvokeByName(handler, "ResizeImages", {Long{1}, Long{2}, Long{3}, Long{4}}), Variant());
  EXPECT_EQ(InvokeByName(handler, "SaveToDB", {Long{1}, Long{eVT_Numeric}}), Variant());
  EXPECT_EQ(InvokeByName(handler, "SetNewFontNumberByLookUpTBL", {Variant()}), Variant());
  EXPECT_EQ(InvokeByName(handler, "ValidateFontNumber", {Variant(automation::CollectionRef())}), Variant());
  EXPECT_EQ(InvokeByName(handler, "IsHmiFontInUse", {Long{0}}), Variant(false));
  EXPECT_EQ(InvokeByName(handler, "GetBinaryDataForCRC"), automation::FromBytes({}));
  EXPECT_EQ(InvokeByName(handler, "Replica"), Variant(HandlerRef()));
}

TEST(HandlerContract, StubsLeaveASizeAsItWas) {
  BareHandler handler;
  Long dx = 3, dy = 4;
  handler.GetOptimalDimensions(dx, dy);
  EXPECT_EQ(dx, 3);
  EXPECT_EQ(dy, 4);
}

TEST(HandlerContract, HasAWordOnEveryMember) {
  for (const automation::Member& member : ItfVarBinaryHandler::InterfaceOf().Members()) {
    EXPECT_FALSE(member.documentation.empty()) << member.name;
  }
}

/// Notes what it is called with, as hosts call it by name.
class NotingHandler final : public ItfVarBinaryHandler {
 public:
  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"NotingHandler", interfaces, nullptr};
    return info;
  }
  std::vector<std::string> calls;

 protected:
  void Note(const std::string& name, std::initializer_list<Long> arguments = {}) {
    std::string call = name;
    for (const Long argument : arguments) call += " " + std::to_string(argument);
    calls.push_back(call);
  }
  void ItfVarBinaryHandler_DeleteAllOperands() override { Note("DeleteAllOperands"); }
  void ItfVarBinaryHandler_RestoreAllOperands(Long pVarID) override { Note("RestoreAllOperands", {pVarID}); }
  std::vector<Byte> ItfVarBinaryHandler_BinaryData() const override { return {1, 2}; }
  void ItfVarBinaryHandler_BinaryData(std::vector<Byte> pValue) override {
    Note("BinaryData", {pValue.at(0)});
  }
  Long ItfVarBinaryHandler_LinkOperandType() const override { return 3; }
  void ItfVarBinaryHandler_LinkOperandType(Long pValue) override { Note("LinkOperandType", {pValue}); }
  Long ItfVarBinaryHandler_LinkOperandAddress() const override { return 4; }
  void ItfVarBinaryHandler_LinkOperandAddress(Long pValue) override { Note("LinkOperandAddress", {pValue}); }
  HandlerRef ItfVarBinaryHandler_Replica() override { return std::make_shared<BareHandler>(); }
  void ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) override {
    pDx += 10;
    pDy += 20;
  }
  std::vector<Byte> ItfVarBinaryHandler_GetBinaryDataForCRC() const override { return {5}; }
  void ItfVarBinaryHandler_ReplaceOperand(Long pOpType, Long pOpAddress, Long pNewOpType,
                                          Long pNewOpAddress) override {
    Note("ReplaceOperand", {pOpType, pOpAddress, pNewOpType, pNewOpAddress});
  }
  void ItfVarBinaryHandler_AddOperandsToHmiOperands(Long pVarID) override {
    Note("AddOperandsToHmiOperands", {pVarID});
  }
  void ItfVarBinaryHandler_SetNewFontNumberByLookUpTBL(Variant& pFontNumberLookUpTBL) override {
    pFontNumberLookUpTBL = Long{6};
  }
  void ItfVarBinaryHandler_ValidateFontNumber(automation::CollectionRef& pFontNumCollection) override {
    Note("ValidateFontNumber", {pFontNumCollection->Count()});
  }
  bool ItfVarBinaryHandler_IsHmiFontInUse(Long pFontNum) const override { return pFontNum == 7; }
  void ItfVarBinaryHandler_UpdateOnFontDelete(Long pFontNum) override {
    Note("UpdateOnFontDelete", {pFontNum});
  }
  void ItfVarBinaryHandler_BuildOpPropBag() override { Note("BuildOpPropBag"); }
  void ItfVarBinaryHandler_ReleaseResources() override { Note("ReleaseResources"); }
  void ItfVarBinaryHandler_Rotate() override { Note("Rotate"); }
  void ItfVarBinaryHandler_InvertColors() override { Note("InvertColors"); }
  void ItfVarBinaryHandler_BuildImageList(Long pElementID) override { Note("BuildImageList", {pElementID}); }
  void ItfVarBinaryHandler_ResizeImages(Long pNewDx, Long pNewDy, Long pElementID,
                                        Long pIndexInVar) override {
    Note("ResizeImages", {pNewDx, pNewDy, pElementID, pIndexInVar});
  }
  void ItfVarBinaryHandler_SaveToDB(Long pElementID, enVarType pVarType) override {
    Note("SaveToDB", {pElementID, pVarType});
  }
};

TEST(HandlerContract, EveryMemberReachesTheClassByName) {
  NotingHandler handler;
  EXPECT_EQ(GetByName(handler, "BinaryData"), automation::FromBytes({1, 2}));
  EXPECT_EQ(GetByName(handler, "LinkOperandType"), Variant(Long{3}));
  EXPECT_EQ(GetByName(handler, "LinkOperandAddress"), Variant(Long{4}));
  EXPECT_EQ(InvokeByName(handler, "GetBinaryDataForCRC"), automation::FromBytes({5}));
  EXPECT_EQ(InvokeByName(handler, "IsHmiFontInUse", {Long{7}}), Variant(true));
  EXPECT_EQ(InvokeByName(handler, "IsHmiFontInUse", {Long{8}}), Variant(false));
  EXPECT_EQ(InvokeByName(handler, "Replica").Object()->Class().name, "BareHandler");
  std::vector<Variant> size{Long{1}, Long{2}};
  CallByName(handler, "GetOptimalDimensions", CallKind::Method, size);
  EXPECT_EQ(size, (std::vector<Variant>{Long{11}, Long{22}}));
  std::vector<Variant> fonts{Long{1}};
  CallByName(handler, "SetNewFontNumberByLookUpTBL", CallKind::Method, fonts);
  EXPECT_EQ(fonts.front(), Variant(Long{6}));
  EXPECT_TRUE(handler.calls.empty());

  InvokeByName(handler, "DeleteAllOperands");
  InvokeByName(handler, "RestoreAllOperands", {Long{11}});
  PutByName(handler, "BinaryData", automation::FromBytes({12}));
  PutByName(handler, "LinkOperandType", Variant(Long{13}));
  PutByName(handler, "LinkOperandAddress", Variant(Long{14}));
  InvokeByName(handler, "ReplaceOperand", {Long{15}, Long{16}, Long{17}, Long{18}});
  InvokeByName(handler, "AddOperandsToHmiOperands", {Long{19}});
  InvokeByName(handler, "ValidateFontNumber", {std::make_shared<automation::Collection>()});
  InvokeByName(handler, "UpdateOnFontDelete", {Long{20}});
  InvokeByName(handler, "BuildOpPropBag");
  InvokeByName(handler, "ReleaseResources");
  InvokeByName(handler, "Rotate");
  InvokeByName(handler, "InvertColors");
  InvokeByName(handler, "BuildImageList", {Long{21}});
  InvokeByName(handler, "ResizeImages", {Long{22}, Long{23}, Long{24}, Long{25}});
  InvokeByName(handler, "SaveToDB", {Long{26}, Long{eVT_Meter}});
  EXPECT_EQ(handler.calls, (std::vector<std::string>{
                               "DeleteAllOperands", "RestoreAllOperands 11", "BinaryData 12",
                               "LinkOperandType 13", "LinkOperandAddress 14", "ReplaceOperand 15 16 17 18",
                               "AddOperandsToHmiOperands 19", "ValidateFontNumber 0", "UpdateOnFontDelete 20",
                               "BuildOpPropBag", "ReleaseResources", "Rotate", "InvertColors",
                               "BuildImageList 21", "ResizeImages 22 23 24 25", "SaveToDB 26 21"}));
}

}  // namespace
}  // namespace quenzel7
