/// What a frame asks of the graphics interface and of the services of fonts, colours and painting, and what
/// it looks like, also at half strength.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/gdi/surface.h"
#include "shapes/frame.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/frame_letters.h"
#include "tests/support/text_painting_fixture.h"

namespace quenzel7 {
namespace {

using namespace test::text_painting;
using test::DescriptorOf;
using test::LettersOf;

const Calls kFlatGround = {"GetColor(7)",
                           "CreatePenIndirect({0, 1, 0x0a0007}) -> pen:1",
                           "SelectObject(dc:1, pen:1)",
                           "CreateSolidBrush(0x0a0007) -> brush:1",
                           "SelectObject(dc:1, brush:1)",
                           "Rectangle(dc:1, 10, 20, 110, 70)",
                           "SelectObject(dc:1, stock:0)",
                           "DeleteObject(brush:1)",
                           "SelectObject(dc:1, stock:7)",
                           "DeleteObject(pen:1)"};

const Calls kPlainGround = {"GetColor(7)",
                            "CreateSolidBrush(0x0a0007) -> brush:1",
                            "SelectObject(dc:1, brush:1)",
                            "Rectangle(dc:1, 10, 20, 110, 70)",
                            "SelectObject(dc:1, stock:0)",
                            "DeleteObject(brush:1)"};

/// A style, what it paints below the caption, and the pen that the recorder meets next.
struct Ground {
  Long style;
  Calls calls;
  std::string nextPen;
};

const std::vector<Ground>& Grounds() {
  static const std::vector<Ground> grounds = {{0, kFlatGround, "pen:2"},
                                              {1, RaisedGround(), "pen:9"},
                                              {2, kPlainGround, "pen:1"},
                                              {3, kSunkenGround, "pen:1"}};
  return grounds;
}

class PaintedFrame : public test::TextPaintingTest<clsFrame> {
 protected:
  Calls CallsOfBlending(clsFrame& frame) {
    return CallsOf([&](Long dc) { frame.DrawTransparent(dc); });
  }
};

// --- Drawing ---

TEST_F(PaintedFrame, IsTheGroundOfItsStyleThenItsLinesWithTheStyleItselfAsFlag) {
  for (const auto& [style, ground, pen] : Grounds()) {
    EXPECT_EQ(CallsOf(style, "ab"), InARow({ground, InOwnColors(pen, OneLine(style, "DrawText"))})) << style;
    EXPECT_EQ(CallsOf(style, "ab\r\ncde"), InARow({ground, InOwnColors(pen, TwoLines(style, "DrawText"))}))
        << style;
    EXPECT_EQ(CallsOf(style, "ab", -2), CallsOf(style, "ab", -1)) << style;
  }
}

TEST_F(PaintedFrame, AStringOfTheLibraryIsPaintedInOneCall) {
  for (const auto& [style, ground, pen] : Grounds()) {
    for (const Long string : {0, 5}) {
      EXPECT_EQ(CallsOf(style, "ab\r\ncde", string),
                InARow({ground, InOwnColors(pen, Block(style, "DrawStorageText"))}))
          << style;
    }
  }
}

TEST_F(PaintedFrame, AStringThatAnOperandPicksIsPaintedInOneCallToo) {
  for (const auto& [style, ground, pen] : Grounds()) {
    for (const Long type : {3, -1}) {
      const auto frame = Make(style, "ab\r\ncde", 5);
      frame->StorageStringType(type);
      EXPECT_EQ(CallsOfDrawing(*frame), InARow({ground, InOwnColors(pen, Block(style, "DrawStorageText"))}))
          << style;
      // Below 0 is no address of one.
      frame->StorageStringID(-1);
      EXPECT_EQ(CallsOfDrawing(*frame), InARow({ground, InOwnColors(pen, TwoLines(style, "DrawText"))}))
          << style;
    }
  }
}

TEST_F(PaintedFrame, WithoutACaptionIsItsGroundAlone) {
  for (const auto& [style, ground, pen] : Grounds()) {
    for (const char* text : {"", " ", "   "}) {
      EXPECT_EQ(CallsOf(style, text), ground) << style;
      EXPECT_EQ(CallsOf(style, text, 5), ground) << style;
      EXPECT_EQ(backgroundAfter_, kBackgroundBefore);
    }
  }
}

TEST_F(PaintedFrame, LineBreaksAreNoBlanks) {
  EXPECT_EQ(
      CallsOf(2, "\r\n"),
      InARow({kPlainGround, InOwnColors("pen:1", {PositionAsked("\r\n", 2), PositionAsked("", 2),
                                                  "DrawText(100, 202, \"\", dc:1, 3)", "GetCharHeight(3)",
                                                  PositionAsked("", 2), "DrawText(100, 210, \"\", dc:1, 3)",
                                                  "GetCharHeight(3)"})}));
}

TEST_F(PaintedFrame, AnyOtherStylePaintsNothing) {
  for (const Long style : {4, 5, -1, kMost}) {
    for (const char* text : {"ab", ""}) {
      EXPECT_EQ(CallsOf(style, text), Calls{}) << style;
      EXPECT_EQ(CallsOf(style, text, 5), Calls{}) << style;
    }
  }
}

TEST_F(PaintedFrame, HasNoBoundingRectangle) {
  for (const Long style : {0, 1, 2, 3}) {
    const auto frame = Make(style, "ab");
    EXPECT_EQ(CallsOf([&](Long dc) { frame->Draw(dc, true); }), CallsOfDrawing(*frame)) << style;
  }
}

TEST_F(PaintedFrame, PlainHasTheContextsPenAroundItAndTheCaptionKeepsItsStyle) {
  const auto frame = Make(2, "ab");
  const Calls calls = CallsOf([&](Long dc) {
    const gdi::SelectedPen pen(dc, gdi::MakePen(gdi::PS_DOT, 1, 0x123456));
    frame->Draw(dc, false);
  });
  EXPECT_EQ(calls, InARow({{"CreatePenIndirect({2, 1, 0x123456}) -> pen:1", "SelectObject(dc:1, pen:1)"},
                           kPlainGround,
                           {"GetCurrentObject(dc:1, 1)", "GetObjectA(pen:1, 16)", "GetColor(6)",
                            "CreatePenIndirect({2, 1, 0x0a0006}) -> pen:2", "SelectObject(dc:1, pen:2)",
                            "GetColor(7)", "SetBkColor(dc:1, 0x0a0007)"},
                           OneLine(2, "DrawText"),
                           {"SetBkColor(dc:1, 0x00ff00)", "SelectObject(dc:1, pen:1)", "DeleteObject(pen:2)",
                            "SelectObject(dc:1, stock:7)", "DeleteObject(pen:1)"}}));
}

TEST_F(PaintedFrame, IsPaintedWhereItIsShownInTheMiddleOfADrag) {
  for (const Long style : {0, 1, 2, 3}) {
    const auto frame = Make(style, "ab\r\ncde"), there = Make(style, "ab\r\ncde");
    frame->SaveInitialPosition();
    frame->Stretch(7, 9, ePD_UpLeft);
    EXPECT_EQ(CallsOfDrawing(*frame), CallsOfDrawing(*there)) << style;
    frame->UpdateDisplayWithTransx();
    frame->Move(1, 1);
    frame->SaveLastLegalPosition();
    there->Xs(17);
    there->Ys(29);
    there->Dx(93);
    there->Dy(41);
    EXPECT_EQ(CallsOfDrawing(*frame), CallsOfDrawing(*there)) << style;
    EXPECT_EQ(CallsOfPrinting(*frame), CallsOfPrinting(*there)) << style;
    EXPECT_EQ(CallsOfBlending(*frame), CallsOfBlending(*there)) << style;
    EXPECT_EQ(frame->Xs(), 10);
  }
}

// --- On paper ---

TEST_F(PaintedFrame, OnPaperIsBlackLinesOnAWhiteBoxWhateverItsStyle) {
  for (const Long style : {0, 1, 2, 3, 4, -1}) {
    EXPECT_EQ(CallsOfPrinting(*Make(style, "ab\r\ncde")),
              InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", TwoLines(style, "DrawText"))}));
    EXPECT_EQ(CallsOfPrinting(*Make(style, "ab\r\ncde", 0)),
              InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", Block(style, "DrawText"))}));
    EXPECT_EQ(CallsOfPrinting(*Make(style, "  ", 5)), kPaper);
  }
}

TEST_F(PaintedFrame, OnPaperAStringThatAnOperandPicksIsOneConstantText) { ExpectPickedStringInOneOnPaper(); }

// --- At half strength ---

TEST_F(PaintedFrame, AtHalfStrengthIsDrawnInTheCornerOfAPictureAndBlended) {
  const auto frame = Make(2, "ab");
  const std::string position = "GetTextPosition(\"ab\", 3, 0, 0, 100, 50, 5, 2)";
  EXPECT_EQ(CallsOfBlending(*frame),
            (Calls{
                "CreateCompatibleDC(dc:1) -> dc:2",
                "CreateCompatibleBitmap(dc:1, 100, 50) -> bitmap:1",
                "SelectObject(dc:2, bitmap:1)",
                "GetColor(7)",
                "CreateSolidBrush(0x0a0007) -> brush:1",
                "SelectObject(dc:2, brush:1)",
                "Rectangle(dc:2, 0, 0, 100, 50)",
                "SelectObject(dc:2, stock:0)",
                "DeleteObject(brush:1)",
                "GetCurrentObject(dc:2, 1)",
                "GetObjectA(stock:7, 16)",
                "GetColor(6)",
                "CreatePenIndirect({0, 0, 0x0a0006}) -> pen:1",
                "SelectObject(dc:2, pen:1)",
                "GetColor(7)",
                "SetBkColor(dc:2, 0x0a0007)",
                position,
                position,
                "DrawText(102, 202, \"ab\", dc:2, 3)",
                "GetCharHeight(3)",
                "SetBkColor(dc:2, 0xffffff)",
                "SelectObject(dc:2, stock:7)",
                "DeleteObject(pen:1)",
                "AlphaBlend(dc:1, 10, 20, 100, 50, dc:2, 0, 0, 100, 50, {0, 0, 128, 0})",
                "SelectObject(dc:2, default-bitmap)",
                "DeleteObject(bitmap:1)",
                "DeleteDC(dc:2)",
            }));
}

TEST_F(PaintedFrame, AtHalfStrengthEveryStyleIsTheNormalDrawing) {
  for (const Long style : {0, 1, 2, 3, 4}) {
    const auto frame = Make(style, "ab\r\ncde", 5), atCorner = Make(style, "ab\r\ncde", 5);
    atCorner->Xs(0);
    atCorner->Ys(0);
    const Calls drawn = CallsOf([&](Long dc) {
      const gdi::OwnedContext memory(dc);
      const gdi::SelectedBitmap bitmap(memory.Get(), gdi::CreateCompatibleBitmap(dc, 100, 50));
      atCorner->Draw(memory.Get(), false);
      gdi::AlphaBlend(dc, 10, 20, 100, 50, memory.Get(), 0, 0, 100, 50, {0, 0, 128, 0});
    });
    EXPECT_EQ(CallsOfBlending(*frame), drawn) << style;
  }
}

TEST_F(PaintedFrame, AtHalfStrengthAllPlacesStayAsTheyWere) {
  const auto frame = Make(1, "ab");
  frame->Stretch(1, 2, ePD_DownRight);
  frame->SaveLastLegalPosition();
  frame->Move(3, 4);
  frame->UpdateDisplayWithTransx();
  frame->Move(5, 6);
  const auto places = [&] {
    return std::vector<Descriptor>{DescriptorOf(*frame, 1), DescriptorOf(*frame, 2), DescriptorOf(*frame, 3),
                                   DescriptorOf(*frame, 4)};
  };
  const std::vector<Descriptor> expected = {
      {10, 20, 100, 50}, {10, 20, 101, 52}, {15, 26, 100, 50}, {13, 24, 100, 50}};
  EXPECT_EQ(places(), expected);
  CallsOfBlending(*frame);
  EXPECT_EQ(places(), expected);
  notes_->FailAt(3);
  CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { frame->DrawTransparent(dc); }), 5); });
  EXPECT_EQ(places(), expected);
}

TEST_F(PaintedFrame, AtHalfStrengthTheFrameIsAtTheCornerWhileItIsDrawn) {
  const auto frame = Make(2, "ab");
  frame->Xs(kMost);
  // Drawn where it stands, its far edge would not fit.
  CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { frame->Draw(dc, false); }), 6); });
  CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { frame->DrawTransparent(dc); }), 0); });
  EXPECT_EQ(DescriptorOf(*frame, 4), (Descriptor{kMost, 20, 100, 50}));
}

TEST_F(PaintedFrame, AtHalfStrengthCanBeCalledByName) {
  const auto frame = Make(2, "ab");
  EXPECT_EQ(CallsOf([&](Long dc) { automation::InvokeByName(*frame, "drawtransparent", {dc}); }),
            CallsOfBlending(*frame));
}

TEST_F(PaintedFrame, AtHalfStrengthWithoutASizeIsNothingAndLeavesNothingBehind) {
  for (const auto& [dx, dy] :
       {std::pair<Long, Long>{0, 0}, {0, 10}, {10, 0}, {-10, 10}, {10, -10}, {-1, -1}}) {
    for (const Long style : {0, 1, 2, 3}) {
      const auto frame = Make(style, "ab");
      frame->Dx(dx);
      frame->Dy(dy);
      frame->ActualText("ab");
      CallsOfBlending(*frame);
      EXPECT_EQ(DescriptorOf(*frame, 4), (Descriptor{10, 20, dx, dy}));
      gdi::Surface surface = gdi::White(30, 30);
      frame->DrawTransparent(surface.Dc());
      EXPECT_EQ(gdi::Colors(surface), gdi::Colors(gdi::White(30, 30))) << dx << ", " << dy;
    }
  }
}

// --- What goes wrong ---

TEST_F(PaintedFrame, AServiceThatFailsLeavesNothingBehind) {
  for (const Long style : {0, 1, 2, 3}) {
    for (const Long string : {-1, 5}) {
      const auto frame = Make(style, "ab\r\ncde", string);
      ExpectToLeaveNothingBehind([&](Long dc) { frame->Draw(dc, false); });
      ExpectToLeaveNothingBehind([&](Long dc) { frame->DrawToPrinter(dc, ""); });
      ExpectToLeaveNothingBehind([&](Long dc) { frame->DrawTransparent(dc); });
      EXPECT_EQ(DescriptorOf(*frame, 4), (Descriptor{10, 20, 100, 50}));
    }
  }
}

TEST_F(PaintedFrame, AFarEdgeBeyond32BitsOverflowsAndLeavesNothingBehind) {
  for (const Long style : {0, 1, 2, 3}) {
    for (const bool across : {true, false}) {
      const auto frame = Make(style, "");
      across ? frame->Xs(kMost) : frame->Ys(kMost);
      CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { frame->Draw(dc, false); }), 6); });
    }
  }
}

TEST_F(PaintedFrame, OnAWrongContextPaintsNothing) {
  const std::size_t before = gdi::LiveObjects();
  for (const Long style : {0, 1, 2, 3}) {
    for (const Long dc : {0, 12345}) {
      Make(style, "ab")->Draw(dc, false);
      Make(style, "ab")->DrawToPrinter(dc, "");
      Make(style, "ab")->DrawTransparent(dc);
    }
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- Pixels ---

using PixelsOfFrame = test::LetterTest<clsFrame>;

TEST_F(PixelsOfFrame, FlatHasItsBorderInTheColourOfItsBody) {
  EXPECT_EQ(LettersOf(*Make(0, 4, 3), 6, 5), (Calls{"......",  //
                                                    ".HHHH.",  //
                                                    ".HHHH.",  //
                                                    ".HHHH.",  //
                                                    "......"}));
}

TEST_F(PixelsOfFrame, PlainHasTheBlackBorderOfAFreshContext) {
  EXPECT_EQ(LettersOf(*Make(2, 4, 3), 6, 5), (Calls{"......",  //
                                                    ".????.",  //
                                                    ".?HH?.",  //
                                                    ".????.",  //
                                                    "......"}));
}

TEST_F(PixelsOfFrame, HasNoMarkerWhereNothingFits) {
  EXPECT_EQ(LettersOf(*Make(0, 4, 3, "I"), 6, 5), LettersOf(*Make(0, 4, 3), 6, 5));
}

TEST_F(PixelsOfFrame, AtHalfStrengthIsMixedWithWhatIsThere) {
  class BlackAndWhite final : public corvane1::ColorService {
    std::uint32_t GetColor(Long number) override { return number == 7 ? 0xFF4001 : 0; }
  };
  Platform::Current().colorService = std::make_shared<BlackAndWhite>();
  const auto frame = Make(0, 3, 2);
  gdi::Surface surface(5, 4);
  surface.Clear(0x00FF80);
  frame->DrawTransparent(surface.Dc());
  for (std::int32_t y = 0; y < 4; ++y) {
    for (std::int32_t x = 0; x < 5; ++x) {
      const bool inside = x >= 1 && x < 4 && y >= 1 && y < 3;
      EXPECT_EQ(surface.At(x, y), inside ? 0x809F40u : 0x00FF80u) << x << ", " << y;
    }
  }
}

}  // namespace
}  // namespace quenzel7
