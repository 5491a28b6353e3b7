/// What the handlers share that show a sample of their value: the fonts of handler and drawn text, the room
/// that the text needs, and what is left after ReleaseResources.
#include "variables/text_handler.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"
#include "variables/text/display_string.h"
#include "variables/text/numeric.h"

namespace quenzel7 {
namespace {

using automation::Collection;
using automation::CollectionRef;
using automation::Variant;
using test::ErrorOf;

template <class Handler>
class SampleHandler : public test::HandlerTest {
 protected:
  void SetUp() override {
    HandlerTest::SetUp();
    handler_ = std::make_shared<Handler>();
    Fonts(5, 2);
  }

  void Fonts(Long own, Long shown) {
    handler_->FontNumber(own);
    handler_->DrawingElement()->FontNumber(shown);
  }
  void ExpectFonts(Long own, Long shown) {
    EXPECT_EQ(handler_->FontNumber(), own);
    EXPECT_EQ(handler_->DrawingElement()->FontNumber(), shown);
  }
  static CollectionRef Numbers(const std::vector<std::pair<std::string, Variant>>& items) {
    auto numbers = std::make_shared<Collection>();
    for (const auto& [key, item] : items) numbers->Add(item, key);
    return numbers;
  }
  void Validate(CollectionRef numbers) { handler_->ValidateFontNumber(numbers); }

  std::shared_ptr<Handler> handler_;
};

using SampleHandlers = ::testing::Types<clsVarNumeric, clsVarDisplayString>;
TYPED_TEST_SUITE(SampleHandler, SampleHandlers, test::ClassNameOfShape);

TYPED_TEST(SampleHandler, TakesTheNumberUnderItsOwnInBothPlaces) {
  this->Validate(this->Numbers({{"2", Long{7}}, {"5", Long{8}}}));
  this->ExpectFonts(8, 8);
  this->Validate(this->Numbers({{"1", Long{7}}, {"8", "3"}}));
  this->ExpectFonts(3, 3);
  this->Fonts(-1, 2);
  this->Validate(this->Numbers({{"1", Long{7}}, {"-1", Long{9}}}));
  this->ExpectFonts(9, 9);
}

TYPED_TEST(SampleHandler, FallsBackToTheFirstNumberForItselfAlone) {
  this->Validate(this->Numbers({{"2", Long{7}}, {"4", Long{8}}}));
  this->ExpectFonts(7, 2);
  // What is no number is not there either.
  this->Validate(this->Numbers({{"1", Long{6}}, {"7", "x"}}));
  this->ExpectFonts(6, 2);
  this->Validate(this->Numbers({{"", Long{9}}}));
  this->ExpectFonts(9, 2);
}

TYPED_TEST(SampleHandler, WithoutANumberToFallBackToKeepsItsOwn) {
  EXPECT_EQ(ErrorOf([this] { this->Validate(this->Numbers({})); }), 9);
  EXPECT_EQ(ErrorOf([this] { this->Validate(this->Numbers({{"1", "x"}})); }), 13);
  EXPECT_EQ(ErrorOf([this] { this->Validate(nullptr); }), 91);
  this->ExpectFonts(5, 2);
}

TYPED_TEST(SampleHandler, IsToldOfFontsByNameThroughItsOwnInterface) {
  automation::InvokeByName(*this->handler_, "ItfVarBinaryHandler_ValidateFontNumber",
                           {this->Numbers({{"5", Long{8}}})});
  this->ExpectFonts(8, 8);
}

TYPED_TEST(SampleHandler, ClosesUpBehindADeletedFontInBothPlacesSeparately) {
  for (const Long own : {2, 3, 4}) {
    for (const Long shown : {2, 3, 4}) {
      this->Fonts(own, shown);
      this->handler_->UpdateOnFontDelete(3);
      this->ExpectFonts(own == 4 ? 3 : own, shown == 4 ? 3 : shown);
    }
  }
}

TYPED_TEST(SampleHandler, ShowsItsTextBeforeItTakesTheGivenFont) {
  // The text is fitted in the font that was there, then in the new one.
  EXPECT_EQ(this->services_.AskedBy([this] { this->handler_->ReSyncDrawingElementParams(1, 9); }),
            (test::CallLog{"height of font 2", "widths of font 2", "height of font 9", "widths of font 9"}));
  this->ExpectFonts(5, 9);
}

TYPED_TEST(SampleHandler, UsesTheFontOfTheDrawnTextOnly) {
  EXPECT_TRUE(this->handler_->IsHmiFontInUse(2));
  for (const Long font : {1, 3, 4, 5}) EXPECT_FALSE(this->handler_->IsHmiFontInUse(font)) << font;
}

TYPED_TEST(SampleHandler, NeedsTheRoomOfTheDrawnText) {
  this->handler_->DrawingElement()->Txt("abc");
  Long dx = 1, dy = 1;
  // A character of font 2 is 3 by 6 pixels, and the sunken frame takes 4 on each side.
  this->handler_->ItfVarBinaryHandler::GetOptimalDimensions(dx, dy);
  EXPECT_EQ(dx, 3 * 3 + 8);
  EXPECT_EQ(dy, 6 + 8);
}

TYPED_TEST(SampleHandler, ReleasedHasNoTextAnyMore) {
  using Handler = TypeParam;
  this->handler_->ReleaseResources();
  EXPECT_FALSE(this->handler_->DrawingElement());
  const auto errorOf = [this](auto action) { return ErrorOf([&] { action(*this->handler_); }); };
  EXPECT_EQ(errorOf([](Handler& handler) { handler.IsHmiFontInUse(2); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) { handler.UpdateOnFontDelete(2); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) { handler.BinaryData(); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) { handler.GetBinaryDataForCRC(); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) { handler.Replica(); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) { handler.ReSyncDrawingElementParams(1, 1); }), 91);
  EXPECT_EQ(errorOf([](Handler& handler) {
              Long dx = 0, dy = 0;
              handler.ItfVarBinaryHandler::GetOptimalDimensions(dx, dy);
            }),
            91);
  // The number under its own does not reach a text, so that the first one counts.
  this->Validate(this->Numbers({{"1", Long{7}}, {"5", Long{8}}}));
  EXPECT_EQ(this->handler_->FontNumber(), 7);
  // The bags can be built again, since the operands are still there.
  this->handler_->BuildOpPropBag();
  EXPECT_TRUE(this->handler_->ColOpPropBag());
}

}  // namespace
}  // namespace quenzel7
