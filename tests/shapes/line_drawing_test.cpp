/// What a line asks of the graphics interface, and what it looks like.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::CallsOfDraw;
using test::ErrorOf;

using Calls = std::vector<std::string>;

constexpr Long kMost = 2147483647;

std::shared_ptr<clsLine> At(Long xs, Long ys, Long dx, Long dy) {
  return test::Placed<clsLine>(xs, ys, dx, dy);
}

const Calls kCallsOfDraw = {
    "GetCurrentObject(dc:1, 1)",
    "GetObjectA(stock:7, 16)",
    "ExtCreatePen(0x011206, 3, {0, 0x0a0005, 0}, 0) -> pen:1",
    "SelectObject(dc:1, pen:1)",
    "BeginPath(dc:1)",
    "MoveToEx(dc:1, 10, 20)",
    "LineTo(dc:1, 5, 40)",
    "EndPath(dc:1)",
    "StrokePath(dc:1)",
    "SelectObject(dc:1, stock:7)",
    "DeleteObject(pen:1)",
};

class DrawnLine : public test::ShapeTest<clsLine> {
 protected:
  void SetUp() override {
    ShapeTest::SetUp();
    Platform::Current().colorService = colors_;
    line_ = At(10, 20, -5, 20);
    line_->ColorFore(5);
    line_->ColorBack(6);
    line_->PenWidth(3);
  }

  const std::shared_ptr<test::TracedColors> colors_ = std::make_shared<test::TracedColors>();
  std::shared_ptr<clsLine> line_;
};

/// What a line paints in its colour on a surface of 12 by 9 pixels: '#', and '.' where the ground is left.
Calls PictureOf(clsLine& line) {
  constexpr std::uint32_t kGround = 0x123456;
  gdi::Surface surface(12, 9);
  surface.Clear(kGround);
  gdi::SetBkColor(surface.Dc(), 0x00FF00);
  line.ColorFore(7);
  line.ColorBack(5);
  line.Draw(surface.Dc(), false);
  EXPECT_EQ(gdi::GetBkColor(surface.Dc()), 0x00FF00u);
  Calls rows;
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    rows.emplace_back();
    for (std::int32_t x = 0; x < surface.Width(); ++x) {
      const std::uint32_t color = surface.At(x, y);
      rows.back() += color == kGround ? '.' : color == 0x0a0007 ? '#' : '?';
    }
  }
  return rows;
}

TEST_F(DrawnLine, IsAStrokedPathInThisOrderOfCalls) {
  static_assert(0x11206 == 70150);
  EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
}

TEST_F(DrawnLine, HasNoFrameAndThePrinterGetsTheSameCalls) {
  EXPECT_EQ(CallsOfDraw(*line_, true), kCallsOfDraw);
  EXPECT_EQ(test::CallsOfPainting([this](Long dc) { line_->DrawToPrinter(dc, "alias"); }), kCallsOfDraw);
}

TEST_F(DrawnLine, IsSolidWhateverItsPenStyle) {
  for (const enPenStyle style : {ePS_Dash, ePS_Dot, ePS_Dash_Dot, ePS_Dash_Dot_Dot}) {
    line_->PenStyle(style);
    EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
  }
  line_->PenWidth(1);
  EXPECT_EQ(CallsOfDraw(*line_)[2], "ExtCreatePen(0x011206, 1, {0, 0x0a0005, 0}, 0) -> pen:1");
}

TEST_F(DrawnLine, IsPaintedAtDescriptor4) {
  line_->Stretch(1, 2, ePD_LineHead);
  EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
  line_->UpdateDisplayWithTransx();
  line_->Stretch(0, 0, ePD_None);
  EXPECT_EQ(CallsOfDraw(*line_)[5], "MoveToEx(dc:1, 11, 22)");
  EXPECT_EQ(CallsOfDraw(*line_)[6], "LineTo(dc:1, 5, 40)");
  line_->Stretch(1, 2, ePD_LineTail);
  line_->UpdateDisplayWithTransx();
  EXPECT_EQ(CallsOfDraw(*line_)[5], "MoveToEx(dc:1, 10, 20)");
  EXPECT_EQ(CallsOfDraw(*line_)[6], "LineTo(dc:1, 6, 42)");
}

TEST_F(DrawnLine, AsksForItsColourAlone) {
  colors_->asked.clear();
  CallsOfDraw(*line_);
  EXPECT_EQ(colors_->asked, std::vector<Long>{5});
}

TEST_F(DrawnLine, AFailingColourServiceLeavesNothingBehind) {
  class Failing final : public corvane1::ColorService {
    std::uint32_t GetColor(Long) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no colours");
    }
  };
  Platform::Current().colorService = std::make_shared<Failing>();
  const auto line = At(10, 20, -5, 20);
  const Calls calls =
      test::CallsOfPainting([&](Long dc) { EXPECT_EQ(ErrorOf([&] { line->Draw(dc, false); }), 5); });
  EXPECT_EQ(calls, Calls(kCallsOfDraw.begin(), kCallsOfDraw.begin() + 2));
}

TEST_F(DrawnLine, ATailBeyond32BitsOverflowsAndLeavesNothingBehind) {
  for (const auto& line : {At(kMost, 0, 1, 5), At(0, kMost, 5, 1)}) {
    line->ColorFore(5);
    line->PenWidth(3);
    const Calls calls =
        test::CallsOfPainting([&](Long dc) { EXPECT_EQ(ErrorOf([&] { line->Draw(dc, false); }), 6); });
    // No path is begun.
    EXPECT_EQ(calls, (Calls{kCallsOfDraw[0], kCallsOfDraw[1], kCallsOfDraw[2], kCallsOfDraw[3],
                            kCallsOfDraw[9], kCallsOfDraw[10]}));
  }
}

TEST_F(DrawnLine, AnyWidthGoesIntoThePen) {
  line_->PenWidth(0);
  EXPECT_EQ(CallsOfDraw(*line_)[2], "ExtCreatePen(0x011206, 0, {0, 0x0a0005, 0}, 0) -> pen:1");
  line_->PenWidth(-1);
  EXPECT_EQ(CallsOfDraw(*line_)[2], "ExtCreatePen(0x011206, 4294967295, {0, 0x0a0005, 0}, 0) -> pen:1");
}

TEST_F(DrawnLine, WithoutLengthIsTheSamePathAndLeavesNoPixel) {
  const auto line = At(5, 4, 0, 0);
  for (const Long width : {1, 3}) {
    line->PenWidth(width);
    const Calls calls = CallsOfDraw(*line);
    EXPECT_EQ(Calls(calls.begin() + 4, calls.begin() + 9),
              (Calls{"BeginPath(dc:1)", "MoveToEx(dc:1, 5, 4)", "LineTo(dc:1, 5, 4)", "EndPath(dc:1)",
                     "StrokePath(dc:1)"}));
    EXPECT_EQ(PictureOf(*line), Calls(9, "............")) << width;
  }
}

TEST_F(DrawnLine, OnAWrongContextPaintsNothing) {
  const std::size_t before = gdi::LiveObjects();
  line_->Draw(0, false);
  line_->Draw(12345, false);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(DrawnLine, PaintsItsLengthWithFlatEndsInItsWidth) {
  const auto line = At(2, 4, 8, 0);
  EXPECT_EQ(PictureOf(*line), (Calls{"............",  //
                                     "............",  //
                                     "............",  //
                                     "............",  //
                                     "..########..",  //
                                     "............",  //
                                     "............",  //
                                     "............",  //
                                     "............"}));
  line->PenWidth(3);
  const Calls thick = {"............",  //
                       "............",  //
                       "............",  //
                       "..########..",  //
                       "..########..",  //
                       "..########..",  //
                       "............",  //
                       "............",  //
                       "............"};
  EXPECT_EQ(PictureOf(*line), thick);
  // A gap would show the ground.
  line->PenStyle(ePS_Dash);
  EXPECT_EQ(PictureOf(*line), thick);
}

TEST_F(DrawnLine, PaintsDownAndAcross) {
  const auto down = At(5, 1, 0, 6);
  EXPECT_EQ(PictureOf(*down), (Calls{"............",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     "............",  //
                                     "............"}));
  const auto across = At(2, 2, 8, 6);
  EXPECT_EQ(PictureOf(*across), (Calls{"............",  //
                                       "............",  //
                                       "..#.........",  //
                                       "...##.......",  //
                                       ".....#......",  //
                                       "......#.....",  //
                                       ".......##...",  //
                                       ".........#..",  //
                                       "............"}));
}

}  // namespace
}  // namespace quenzel7
