/// How a variable is painted, on a page and on paper.
#include <gtest/gtest.h>

#include <initializer_list>

#include "framework/library_state.h"
#include "platform/corvane1/ansi_code_page.h"
#include "tests/support/golden.h"
#include "tests/support/painting_doubles.h"
#include "tests/support/raises.h"
#include "tests/support/variable_fixture.h"
#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;
using test::TypeOf;

bool Has(std::initializer_list<Long> types, Long type) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

/// Gives a picture of its own kind for each number, and notes which it gives.
class NotingResources final : public corvane1::Resources {
 public:
  explicit NotingResources(test::NoteTaker::Notes notes) : notes_(std::move(notes)) {}

  bool fails = false;

  gdi::OwnedBitmap LoadPicture(Long number) override {
    notes_("picture " + std::to_string(number));
    if (fails) throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no picture");
    // A column of white pixels at the left.
    std::vector<std::uint32_t> pixels(64, 0x0000FF);
    for (std::size_t row = 0; row < 8; ++row) pixels[8 * row] = 0xFFFFFF;
    return gdi::OwnedBitmap(gdi::CreateBitmap(8, 8, 1, 32, pixels.data()));
  }

 private:
  test::NoteTaker::Notes notes_;
};

class PaintedVariable : public test::VariableTest {
 protected:
  void SetUp() override {
    VariableTest::SetUp();
    Platform::Current().resources = resources_;
    Platform::Current().messageService = std::make_shared<corvane1::CollectedMessages>(nullptr);
    LibraryState::Current().ImageResizeFailed = false;
  }
  void TearDown() override {
    LibraryState::Current().ImageResizeFailed = false;
    VariableTest::TearDown();
  }

  /// What a drawing has done, but for what is only read; the context is "dc".
  CallLog CallsOf(ItfHmiElement& element, bool frame) {
    Long context = 0;
    CallLog calls = test::CallsOfPainting([&](Long dc, gdi::Recorder& recorder) {
      // Named first.
      gdi::GetBkColor(dc);
      recorder.Take();
      context = dc;
      painting_ = &recorder;
      element.Draw(dc, frame);
      painting_ = nullptr;
    });
    std::erase_if(calls, [](const std::string& call) { return call.ends_with('?'); });
    const std::string drawing = "element.Draw(" + std::to_string(context) + ", False)";
    std::replace(calls.begin(), calls.end(), drawing, std::string("element.Draw(dc, False)"));
    painted_ = context;
    return calls;
  }

  /// A variable of the type whose fields differ.
  std::shared_ptr<clsVar> Colored(Long type) {
    auto variable = Of(type);
    variable->ColorBack(77);
    ItfHmiElement& element = *variable;
    element.Flat3D(Integer{1});
    variable->Alignment(2);
    variable->FontNumber(12);
    variable->DescriptionFontNumber(13);
    variable->TransparencyLevel(6);
    TakeLog();
    return variable;
  }

  /// Drags the upper left corner and shows that, then begins to drag the whole further: the frame is at
  /// (110, 120) to (140, 160).
  static void Drag(ItfHmiElement& element, Long dx, Long dy) {
    if (dx == 0 && dy == 0) {
      element.Move(1, 2);
    } else {
      element.UpdateBoundingRectangle(dx, dy, ePD_UpLeft);
    }
    element.UpdateDisplayWithTransx();
    element.Move(100, 100);
  }

  std::shared_ptr<NotingResources> resources_ = std::make_shared<NotingResources>(Notes());
  Long painted_ = 0;
};

// --- The element ---

TEST_F(PaintedVariable, PaintsItsPictureThenPreparesPlacesAndDrawsItsElement) {
  const struct {
    Long dx, dy;
    Descriptor shown;
  } kDrags[] = {{0, 0, {11, 22, 30, 40}},
                {-3, 0, {7, 20, 33, 40}},
                {0, -4, {10, 16, 30, 44}},
                {-3, -4, {7, 16, 33, 44}}};
  for (Long type = 1; type <= 30; ++type) {
    for (const Long elementType : {kTextElement, kBitmapElement, kLineElement}) {
      for (const Long storage : {0, -1, 1}) {
        for (const auto& [dx, dy, shown] : kDrags) {
          for (const bool frame : {false, true}) {
            element_ = NewDrawing(elementType);
            const auto variable = Colored(type);
            handler_->storageText = storage;
            Drag(*variable, dx, dy);
            TakeLog();
            const std::string width = std::to_string(shown.dx), height = std::to_string(shown.dy);
            CallLog expected;
            if (Has({9, 21, 22, 23, 24, 25, 27}, type)) {
              expected.push_back("handler.PaintPicture(" + width + ", " + height + ", 77, 1, 12, " +
                                 (frame ? "True)" : "False)"));
            }
            expected.insert(expected.end(), {"element.ID=5", "element.ColorBack=77", "element.Flat3D=1",
                                             "element.Alignment=2", "element.FontNumber=12"});
            if (storage == -1 && Has({2, 3, 8, 11, 13, 29, 30}, type)) {
              expected.push_back("element.FontNumber=702");
            }
            if (Has({2, 3, 11, 29}, type)) expected.push_back("element.ColorBack=701");
            Descriptor place = shown;
            if ((elementType == kBitmapElement || Has({1, 4, 12, 20, 22}, type)) &&
                !Has({9, 21, 23, 24, 25, 27}, type)) {
              if (dx != 0 || dy != 0 || frame) place = {10, 20, 30, 40};
              expected.push_back("element.TransparencyLevel=6");
            }
            expected.push_back("element.Xs=" + std::to_string(place.xs));
            expected.push_back("element.Ys=" + std::to_string(place.ys));
            expected.push_back("element.Dx=" + std::to_string(place.dx));
            expected.push_back("element.Dy=" + std::to_string(place.dy));
            expected.push_back("element.Draw(dc, False)");
            if (frame) expected.push_back("DrawFocusRect(dc:1, {110, 120, 140, 160})");
            ASSERT_EQ(CallsOf(*variable, frame), expected) << type << " by " << elementType << ", " << storage
                                                           << ", " << dx << ' ' << dy << ' ' << frame;
            EXPECT_EQ(TakeLog(), CallLog{});
            EXPECT_EQ(handler_->paintedFor, Has({9, 21, 22, 23, 24, 25, 27}, type) ? painted_ : 0);
          }
        }
      }
    }
  }
}

TEST_F(PaintedVariable, APictureDraggedWithTheFrameStaysWhereItWasUnderTheFrame) {
  element_ = NewDrawing(kBitmapElement);
  const auto variable = Of(1);
  ItfHmiElement& element = *variable;
  element.UpdateBoundingRectangle(5, 6, ePD_DownRight);
  element.UpdateDisplayWithTransx();
  const CallLog calls = CallsOf(element, true);
  const CallLog last = {"element.Xs=10", "element.Ys=20",           "element.Dx=30",
                        "element.Dy=40", "element.Draw(dc, False)", "DrawFocusRect(dc:1, {10, 20, 45, 66})"};
  ASSERT_GE(calls.size(), last.size());
  EXPECT_EQ(CallLog(calls.end() - 6, calls.end()), last);
}

TEST_F(PaintedVariable, OfId0IsNotPaintedAtAll) {
  const auto variable = Of(9);
  variable->ID(0);
  variable->GlobalVarID(1);
  LibraryState::Current().ImageResizeFailed = true;
  EXPECT_EQ(CallsOf(*variable, true), CallLog{});
  EXPECT_TRUE(LibraryState::Current().ImageResizeFailed);
  clsVar withoutHandler;
  withoutHandler.ID(0);
  EXPECT_EQ(CallsOf(withoutHandler, true), CallLog{});
  for (const Long id : {-1, 1}) {
    variable->ID(id);
    const CallLog calls = CallsOf(*variable, false);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[1], "element.ID=" + std::to_string(id));
  }
}

TEST_F(PaintedVariable, AStyleOrAlignmentBeyond16BitsIsAnOverflow) {
  const gdi::Surface surface(4, 4);
  const auto variable = Of(5);
  variable->Flat3D(32768);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false); }), 6);
  variable->Flat3D(32767);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false); }), 0);
  variable->Alignment(32768);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false); }), 6);
}

TEST_F(PaintedVariable, AHostMayTakeTheHandlerAwayWhileItPaints) {
  const gdi::Surface surface(4, 4);
  const auto variable = Of(9);
  const auto draw = [&] {
    return ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false); });
  };
  const std::weak_ptr<test::DrawnDouble> element = element_;
  element_->during = [&variable, &element](const std::string& asked) {
    if (asked != "Draw") return;
    variable->SetBinaryHandler(eVT_BarGraph, nullptr);
    EXPECT_FALSE(element.expired());
  };
  // Nobody else holds them.
  element_ = nullptr;
  handler_ = nullptr;
  EXPECT_EQ(draw(), 0);
  EXPECT_TRUE(element.expired());

  auto handler = std::make_shared<test::HandlerDouble>("handler", Notes(), NewDrawing(kBitmapElement));
  const std::weak_ptr<test::HandlerDouble> held = handler;
  handler->during = [&](const std::string& asked) {
    if (asked != "PaintPicture") return;
    variable->SetBinaryHandler(eVT_BarGraph, nullptr);
    EXPECT_FALSE(held.expired());
  };
  variable->SetBinaryHandler(eVT_BarGraph, std::move(handler));
  EXPECT_EQ(draw(), 91);
}

// --- The badge ---

TEST_F(PaintedVariable, AGlobalVariableHasABadgeAfterAllElse) {
  for (const Long global : {-1, 0, 1, 2147483647}) {
    const auto variable = Of(5);
    static_cast<ItfHmiElement&>(*variable).Move(-9, 3);
    static_cast<ItfHmiElement&>(*variable).UpdateDisplayWithTransx();
    variable->GlobalVarID(global);
    const CallLog calls = CallsOf(*variable, true);
    const auto frame = std::find(calls.begin(), calls.end(), "DrawFocusRect(dc:1, {1, 23, 31, 63})");
    ASSERT_NE(frame, calls.end());
    const CallLog expected = {
        "CreateCompatibleDC(null) -> dc:2",
        "picture 501",
        "CreateBitmap(8, 8, 1, 32) -> bitmap:1",
        // The copy.
        "GetObjectA(bitmap:1, 24)",
        "CreateCompatibleDC(null) -> dc:3",
        "SelectObject(dc:3, bitmap:1)",
        "CreateCompatibleDC(null) -> dc:4",
        "CreateCompatibleBitmap(dc:4, 8, 8) -> bitmap:2",
        "SelectObject(dc:4, bitmap:2)",
        "BitBlt(dc:4, 0, 0, 8, 8, dc:3, 0, 0, 0xcc0020)",
        "DeleteDC(dc:4)",
        "DeleteDC(dc:3)",
        "DeleteObject(bitmap:1)",
        // What is shown.
        "SelectObject(dc:2, bitmap:2)",
        "BitBlt(dc:1, 1, 55, 8, 8, dc:2, 0, 0, 0xcc0020)",
        "DeleteDC(dc:2)",
        "DeleteObject(bitmap:2)",
    };
    EXPECT_EQ(CallLog(frame + 1, calls.end()), global > 0 ? expected : CallLog{}) << global;
  }
}

TEST_F(PaintedVariable, TheBadgeIsInTheLowerLeftCornerInBlackAndWhite) {
  const auto variable = Of(5);
  variable->GlobalVarID(1);
  gdi::Surface surface(60, 70);
  surface.Clear(0x123456);
  static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false);
  for (Long y = 0; y < 70; ++y) {
    for (Long x = 0; x < 60; ++x) {
      const bool inside = x >= 10 && x < 18 && y >= 52 && y < 60;
      const gdi::COLORREF expected = !inside ? 0x123456 : x == 10 ? 0xFFFFFF : 0;
      ASSERT_EQ(surface.At(x, y), expected) << x << ' ' << y;
    }
  }
}

TEST_F(PaintedVariable, TheBadgeOfTheLibraryIsAWhiteG) {
  Platform::Current().resources = Platform().resources;
  const auto variable = Of(5);
  variable->GlobalVarID(1);
  gdi::Surface surface(60, 70);
  surface.Clear(0x123456);
  static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false);
  std::vector<std::string> rows;
  for (Long y = 52; y < 60; ++y) {
    rows.emplace_back();
    for (Long x = 10; x < 18; ++x) {
      rows.back() += surface.At(x, y) == 0xFFFFFF ? '#' : surface.At(x, y) == 0 ? '.' : '?';
    }
  }
  EXPECT_EQ(rows, (CallLog{"........", "..####..", ".#....#.", ".#......", ".#..###.", ".#....#.", "..####..",
                           "........"}));
}

TEST_F(PaintedVariable, ABadgeThatCannotBeLoadedLeavesNothingBehind) {
  const auto variable = Of(5);
  variable->GlobalVarID(1);
  resources_->fails = true;
  LibraryState::Current().ImageResizeFailed = true;
  const CallLog calls = test::CallsOfPainting([&](Long dc) {
    EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(dc, false); }), 5);
  });
  EXPECT_EQ(calls, (CallLog{"CreateCompatibleDC(null) -> dc:1", "DeleteDC(dc:1)"}));
  EXPECT_TRUE(LibraryState::Current().ImageResizeFailed);
}

TEST_F(PaintedVariable, ABadgeBeyond32BitsIsAnOverflowThatLeavesNothingBehind) {
  const auto variable = Of(5);
  variable->GlobalVarID(1);
  variable->Dy(1);
  variable->Ys(2147483647);
  LibraryState::Current().ImageResizeFailed = true;
  const CallLog calls = test::CallsOfPainting([&](Long dc) {
    EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(dc, false); }), 6);
  });
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(CallLog(calls.end() - 2, calls.end()), (CallLog{"DeleteDC(dc:1)", "DeleteObject(bitmap:2)"}));
  EXPECT_TRUE(LibraryState::Current().ImageResizeFailed);
}

// --- The message ---

/// Notes messages among the calls of a drawing, and whether the flag stood then.
class NotingMessages final : public corvane1::MessageService {
 public:
  explicit NotingMessages(test::NoteTaker::Notes notes) : notes_(std::move(notes)) {}
  Long ShowMessage(Long number, automation::Variant& argument) override {
    notes_("message " + std::to_string(number) + (argument.IsEmpty() ? "" : " with an insert") +
           (LibraryState::Current().ImageResizeFailed ? "" : " after the flag"));
    return 0;
  }

 private:
  test::NoteTaker::Notes notes_;
};

TEST_F(PaintedVariable, PicturesThatCouldNotBeResizedAreToldOnceAtTheEnd) {
  Platform::Current().messageService = std::make_shared<NotingMessages>(Notes());
  const auto variable = Of(5);
  variable->GlobalVarID(1);
  LibraryState::Current().ImageResizeFailed = true;
  const CallLog calls = CallsOf(*variable, true);
  ASSERT_FALSE(calls.empty());
  // A host that draws the page anew while the message is shown must not be shown it again.
  EXPECT_EQ(calls.back(), "message 383 after the flag");
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "message 383 after the flag"), 1);
  EXPECT_FALSE(LibraryState::Current().ImageResizeFailed);
  const CallLog again = CallsOf(*variable, true);
  EXPECT_EQ(again, CallLog(calls.begin(), calls.end() - 1));
}

// --- Paper ---

TEST_F(PaintedVariable, OnPaperIsABoxWithItsShortNameNearTheMiddle) {
  const auto variable = Of(14);
  ItfHmiElement& element = *variable;
  const auto calls = [&](const std::string& alias) {
    return test::CallsOfPainting([&](Long dc) { element.DrawToPrinter(dc, alias); });
  };
  const auto expected = [](const std::string& box, const std::string& text) {
    return CallLog{
        "Rectangle(dc:1, " + box + ")",
        "CreateFontIndirectA({-9, 0, 0, 0, 400, 0, 0, 0, 0, 1, 2, 1, 34, \"Small Fonts\"}) -> font:1",
        "SelectObject(dc:1, font:1)",
        "TextOutA(dc:1, " + text + ")",
        "SelectObject(dc:1, stock:13)",
        "DeleteObject(font:1)"};
  };
  EXPECT_EQ(calls("N1"), expected("10, 20, 40, 60", "21, 36, \"N1\", 2"));
  element.UpdateBoundingRectangle(1, 3, ePD_DownRight);
  EXPECT_EQ(calls(""), expected("10, 20, 40, 60", "21, 36, \"\", 0"));
  element.UpdateDisplayWithTransx();
  EXPECT_EQ(calls("abc"), expected("10, 20, 41, 63", "21, 37, \"abc\", 3"));
  variable->Xs(-10);
  variable->Ys(-20);
  variable->Dx(-31);
  variable->Dy(-43);
  EXPECT_EQ(calls("abc"), expected("-10, -20, -41, -63", "-29, -45, \"abc\", 3"));
  EXPECT_EQ(TakeLog(), CallLog{});
}

TEST_F(PaintedVariable, OnPaperTheNameIsInTheCodePageOfTheHost) {
  const auto variable = Of(14);
  const CallLog calls = test::CallsOfPainting(
      [&](Long dc) { static_cast<ItfHmiElement&>(*variable).DrawToPrinter(dc, "\xC3\xA4"); });
  ASSERT_EQ(calls.size(), 6u);
  const std::string encoded = corvane1::AnsiCodePageOf(*Platform::Current().settings).Encoded("\xC3\xA4");
  ASSERT_EQ(encoded, "\xE4");
  EXPECT_EQ(calls[3], "TextOutA(dc:1, 21, 36, \"\\xe4\", 1)");
}

TEST_F(PaintedVariable, OnPaperTheNameIsInTheCodePageOfTheSettings) {
  const auto variable = Of(14);
  const auto settings = std::make_shared<corvane1::LayeredSettings>(Platform::Current().heldProject);
  Platform::Current().settings = settings;
  const auto print = [&](Long dc) { static_cast<ItfHmiElement&>(*variable).DrawToPrinter(dc, "\xCE\xB1"); };
  settings->Set(7000, 1, "1253");
  const CallLog calls = test::CallsOfPainting(print);
  ASSERT_EQ(calls.size(), 6u);
  EXPECT_EQ(calls[3], "TextOutA(dc:1, 21, 36, \"\\xe1\", 1)");
  // No page of that number: all is as before but for the name.
  settings->Set(7000, 1, "932");
  const CallLog refused = test::CallsOfPainting([&](Long dc) { EXPECT_EQ(ErrorOf([&] { print(dc); }), 5); });
  CallLog expected = calls;
  expected.erase(expected.begin() + 3);
  EXPECT_EQ(refused, expected);
}

TEST_F(PaintedVariable, OnPaperItIsAlikeWithAndWithoutARowOrAHandler) {
  const auto callsOf = [](ItfHmiElement& element) {
    return test::CallsOfPainting([&](Long dc) { element.DrawToPrinter(dc, "N1"); });
  };
  const auto variable = Of(5);
  const CallLog expected = callsOf(*variable);
  EXPECT_EQ(expected.size(), 6u);
  for (const Long id : {0, -1}) {
    variable->ID(id);
    EXPECT_EQ(callsOf(*variable), expected) << id;
  }
  variable->SetBinaryHandler(eVT_DateTime, nullptr);
  EXPECT_EQ(callsOf(*variable), expected);
}

TEST_F(PaintedVariable, OnPaperAnEdgeBeyond32BitsIsAnOverflow) {
  const auto print = [](clsVar& variable) {
    const gdi::Surface surface(4, 4);
    return ErrorOf([&] { static_cast<ItfHmiElement&>(variable).DrawToPrinter(surface.Dc(), ""); });
  };
  clsVar variable;
  variable.Dx(1);
  variable.Dy(1);
  EXPECT_EQ(print(variable), 0);
  variable.Xs(2147483647);
  EXPECT_EQ(print(variable), 6);
  variable.Xs(0);
  variable.Ys(2147483647);
  EXPECT_EQ(print(variable), 6);
}

// --- Golden pictures ---

/// Variables of the types that paint themselves, by their own handlers: two rows each, at rest, and dragged
/// with the frame of the stretch and the badge of a global variable; in the styles 0 to 4.
TEST(PicturesOfVariables, AreTheGoldenOnes) {
  Platform::Current() = Platform();
  {
    constexpr Long kColumn = 122, kRow = 50, kStyles = 5, kGap = 8;
    const enVarType types[] = {eVT_BinaryText, eVT_ListText,   eVT_Numeric,
                               eVT_BarGraph,   eVT_RangeTexts, eVT_DisplayString};
    gdi::Surface sheet(kStyles * kColumn + kGap, 2 * static_cast<Long>(std::size(types)) * kRow + kGap);
    sheet.Clear(0xD8C8B8);
    Long row = 0;
    for (const enVarType type : types) {
      for (const bool dragged : {false, true}) {
        for (Long style = 0; style < kStyles; ++style) {
          clsVar variable;
          variable.VarType(type);
          variable.ColorBack(103);
          variable.FontNumber(1);
          const HandlerRef handler = variable.BinaryHandlers(type);
          if (const auto texts = std::dynamic_pointer_cast<TextListHandler>(handler)) {
            if (texts->ListCount() == 0) texts->AppendText();
            texts->ListTexts(1)->Txt(type == eVT_RangeTexts ? "below 50" : "Pump 1\r\noff");
            texts->ListTexts(1)->ColorBack(type == eVT_ListText ? 40 : 20);
          } else if (const auto number = std::dynamic_pointer_cast<clsVarNumeric>(handler)) {
            number->Format("999.99");
            number->Postfix("bar");
          }
          if (const auto typed = std::dynamic_pointer_cast<BinaryHandler>(handler)) {
            typed->ReSyncDrawingElementParams(1, 1);
          }
          variable.Flat3D(style);
          variable.Xs(style * kColumn + kGap);
          variable.Ys(row * kRow + kGap);
          variable.Dx(kColumn - 4 * kGap);
          variable.Dy(kRow - 2 * kGap);
          ItfHmiElement& element = variable;
          if (dragged) {
            element.UpdateBoundingRectangle(12, 6, ePD_DownRight);
            element.UpdateDisplayWithTransx();
            variable.GlobalVarID(1);
          }
          element.Draw(sheet.Dc(), dragged);
        }
        ++row;
      }
    }
    test::ExpectGolden({sheet.Width(), sheet.Height(), {sheet.Pixels().begin(), sheet.Pixels().end()}},
                       "variable_styles");
  }
  Platform::Current() = Platform();
}

}  // namespace
}  // namespace quenzel7
