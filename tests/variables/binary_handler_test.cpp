/// What all handlers share: how hosts see their classes, the life of the operands beside the link operand,
/// and what is left after ReleaseResources.
#include "variables/binary_handler.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using test::ErrorOf;

class BinaryHandlers : public test::HandlerTest {};

TEST_F(BinaryHandlers, HaveADefaultInterfaceAndTheContract) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    ASSERT_EQ(info->interfaces.size(), 2u) << info->name;
    EXPECT_EQ(info->Default().Name(), "_" + std::string(info->name));
    EXPECT_EQ(info->interfaces[1], &ItfVarBinaryHandler::InterfaceOf()) << info->name;
    EXPECT_EQ(&info->create()->Class(), info) << info->name;
  }
}

TEST_F(BinaryHandlers, AreAllClassesOfVariablesButTheElementAndTheTexts) {
  std::vector<std::string_view> others;
  for (const automation::ClassInfo* info : VariableClasses()) {
    if (!info->FindInterface("ItfVarBinaryHandler")) others.push_back(info->name);
  }
  EXPECT_EQ(others, (std::vector<std::string_view>{"clsVar", "clsVarTextElement"}));
  EXPECT_EQ(test::HandlerClasses().size() + 2, VariableClasses().size());
}

TEST_F(BinaryHandlers, KeepTheLinkOperandThatTheyAreGiven) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    EXPECT_EQ(handler->LinkOperandType(), 0) << info->name;
    EXPECT_EQ(handler->LinkOperandAddress(), 0) << info->name;
    handler->LinkOperandType(12);
    handler->LinkOperandAddress(13);
    EXPECT_EQ(handler->LinkOperandType(), 12) << info->name;
    EXPECT_EQ(handler->LinkOperandAddress(), 13) << info->name;
  }
}

TEST_F(BinaryHandlers, GiveTheSameElementThroughBothInterfaces) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    const ElementRef element = handler->ItfVarBinaryHandler::DrawingElement();
    ASSERT_TRUE(element) << info->name;
    EXPECT_EQ(automation::GetByName(*handler, "DrawingElement"), Variant(element)) << info->name;
    EXPECT_EQ(element->Class().name, info->name == "clsVarBargraph" ? "clsBitmap" : "clsText");
  }
}

TEST_F(BinaryHandlers, GiveTheSameDataThroughBothInterfaces) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    const Variant data = automation::InvokeByName(*handler, "GetBinaryData");
    EXPECT_EQ(data, automation::FromBytes(handler->BinaryData())) << info->name;
    test::SettingList settings = test::SettingsIn(handler->BinaryData());
    const auto color = std::find_if(settings.begin(), settings.end(), [](const test::Setting& setting) {
      return setting.first.find("ColorFore") != std::string::npos;
    });
    ASSERT_NE(color, settings.end()) << info->name;
    color->second = Long{77};
    automation::InvokeByName(*handler, "SetBinaryData", {automation::FromBytes(test::DataOf(settings))});
    EXPECT_EQ(test::SettingsIn(handler->BinaryData()), settings) << info->name;
  }
}

TEST_F(BinaryHandlers, NewOnesHaveNoBagsAndReleasedOnesNoCollection) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    ASSERT_TRUE(handler->ColOpPropBag()) << info->name;
    EXPECT_EQ(handler->ColOpPropBag()->Count(), 0) << info->name;
    handler->ReleaseResources();
    EXPECT_FALSE(handler->ColOpPropBag()) << info->name;
    EXPECT_FALSE(handler->ItfVarBinaryHandler::DrawingElement()) << info->name;
    EXPECT_EQ(automation::GetByName(*handler, "DrawingElement").Object(), nullptr) << info->name;
    // A second time there is nothing left to release.
    handler->ReleaseResources();
  }
}

TEST_F(BinaryHandlers, ShareTheBagsThatTheyAreGivenByName) {
  const std::vector<std::string_view> publishing = {"clsVarNumeric", "clsVarBargraph", "clsVarRangeText",
                                                    "clsVarDisplayString"};
  std::vector<std::string_view> found;
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    if (!info->Default().Find("ColOpPropBag")) continue;
    SCOPED_TRACE(info->name);
    found.push_back(info->name);
    const auto handler = test::NewHandlerOf(*info);
    const auto bags = std::make_shared<automation::Collection>();
    automation::PutByName(*handler, "ColOpPropBag", bags);
    EXPECT_EQ(handler->ColOpPropBag(), bags);
    if (info->name == "clsVarBargraph") {
      EXPECT_EQ(ErrorOf([&] { automation::GetByName(*handler, "ColOpPropBag"); }), 394);
    } else {
      EXPECT_EQ(automation::GetByName(*handler, "ColOpPropBag"), Variant(bags));
    }
  }
  EXPECT_EQ(found, publishing);
}

TEST_F(BinaryHandlers, BuildingTheBagsMakesANewCollection) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    const auto before = handler->ColOpPropBag();
    handler->BuildOpPropBag();
    EXPECT_NE(handler->ColOpPropBag(), before) << info->name;
    EXPECT_EQ(before->Count(), 0) << info->name;
  }
}

TEST_F(BinaryHandlers, LastUntilTheirOperandsAreRestored) {
  const char* const kOperands[][3] = {
      {"clsVarNumeric", "EntryLimitMinOpType", "EntryLimitMinOpAddress"},
      {"clsVarBargraph", "MaxOpType", "MaxOpAddress"},
      {"clsVarDisplayString", "StartVectorOpType", "StartVectorOpAddress"},
  };
  const auto operands = Platform::Current().operands;
  for (const auto& [name, type, address] : kOperands) {
    SCOPED_TRACE(name);
    auto handler = test::NewHandlerOf(test::HandlerClassNamed(name));
    const std::weak_ptr<BinaryHandler> observed = handler;
    if (handler->Class().Default().Find("UseEntryLimits")) {
      automation::PutByName(*handler, "UseEntryLimits", true);
    }
    automation::PutByName(*handler, type, Long{1});
    automation::PutByName(*handler, address, Long{5});
    Platform::Current().operands = operands;
    handler->BuildOpPropBag();
    WhileOperandsAreAsked([&] {
      handler.reset();
      EXPECT_FALSE(observed.expired());
    });
    TakeLog();
    handler->RestoreAllOperands(9);
    EXPECT_EQ(TakeLog(), test::CallLog{RowOf(9, 1, 5)});
    EXPECT_TRUE(observed.expired());
  }
}

TEST_F(BinaryHandlers, DoNothingOfWhatNoneOfThemDoes) {
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    const auto handler = test::NewHandlerOf(*info);
    const test::Bytes before = handler->BinaryData();
    Variant fonts = automation::FromLongs({9, 8, 7, 6, 5, 4, 3});
    const Variant same = fonts;
    handler->SetNewFontNumberByLookUpTBL(fonts);
    EXPECT_EQ(fonts, same) << info->name;
    handler->Rotate();
    handler->InvertColors();
    handler->BuildImageList(5);
    handler->ResizeImages(1, 2, 3, 4);
    handler->SaveToDB(5, eVT_Numeric);
    handler->SuspendPainting(true);
    EXPECT_EQ(handler->BinaryData(), before) << info->name;
    EXPECT_TRUE(TakeLog().empty()) << info->name;
  }
}

}  // namespace
}  // namespace quenzel7
