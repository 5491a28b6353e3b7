#include "shapes/frame_styles.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "tests/platform/corvane1/bevel_picture.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using corvane1::ColorService;
using corvane1::LevelsOn;
using corvane1::PaletteColorService;
using corvane1::Red;
using test::ErrorOf;

using Calls = std::vector<std::string>;

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();
constexpr Long kPanelColor = 103;

/// Colours that tell level and panel colour, noted among the platform calls; paints nothing itself. The call
/// of the number `failAt`, counted from 1, raises error 5.
class BevelColors final : public ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override {
    Note("GetColor(" + std::to_string(colorNumber) + ")");
    return 0x010000 + static_cast<std::uint32_t>(colorNumber);
  }
  std::uint32_t Get3DShadeColor(Long level, Long colorNumber) override {
    Note("Get3DShadeColor(" + std::to_string(level) + ", " + std::to_string(colorNumber) + ")");
    return 0x020000 + static_cast<std::uint32_t>(0x100 * level + colorNumber);
  }
  std::uint32_t Get3DFaceColor(Long colorNumber) override {
    Note("Get3DFaceColor(" + std::to_string(colorNumber) + ")");
    return 0x030000 + static_cast<std::uint32_t>(colorNumber);
  }
  void DrawPressed3DRect(Long left, Long top, Long right, Long bottom, Long colorNumber, Long pressed,
                         gdi::HDC dc) override {
    std::string call = "DrawPressed3DRect(";
    for (const Long argument : {left, top, right, bottom, colorNumber, pressed}) {
      call += std::to_string(argument) + ", ";
    }
    Note(call + recorder_.NameOf(dc) + ")");
  }

  /// All calls so far, the platform's and those of this service, in their order.
  Calls Take() {
    Collect();
    return std::exchange(calls_, {});
  }

  int failAt = 0;

 private:
  void Collect() {
    for (std::string& call : recorder_.Take()) calls_.push_back(std::move(call));
  }
  void Note(const std::string& call) {
    Collect();
    calls_.push_back(call);
    if (++asked_ == failAt) {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no colour");
    }
  }

  gdi::Recorder recorder_;
  Calls calls_;
  int asked_ = 0;
};

using Draw = void (*)(Long hdc, const Descriptor& place, Long panelColor, ColorService& colors);

/// The calls of painting a frame.
Calls CallsOf(Draw draw, const Descriptor& place) {
  Calls calls;
  test::CallsOfPainting([&](Long dc) {
    BevelColors colors;
    draw(dc, place, kPanelColor, colors);
    calls = colors.Take();
  });
  return calls;
}

/// What painting a frame leaves on a red surface.
Calls PictureOf(Draw draw, const Descriptor& place, int width, int height) {
  const gdi::Surface surface = Red(width, height);
  PaletteColorService colors;
  draw(surface.Dc(), place, kPanelColor, colors);
  return LevelsOn(surface, kPanelColor);
}

TEST(FrameStyles, HaveTheirNumbers) {
  EXPECT_EQ(kFlat, 0);
  EXPECT_EQ(kRaised, 1);
  EXPECT_EQ(kBoxed, 2);
  EXPECT_EQ(kSunken, 3);
  EXPECT_EQ(kTransparent, 4);
}

TEST(FrameStyles, OnlyRaisedAndSunkenHaveABevel) {
  for (const Long style : {kLeast, -1, 0, 2, 4, 5, kMost}) EXPECT_FALSE(HasBevel(style)) << style;
  EXPECT_TRUE(HasBevel(1));
  EXPECT_TRUE(HasBevel(3));
}

// --- Raised ---

/// The calls of one level of a raised frame: from its corner to two ends.
void AddLevel(Calls& calls, Long level, const std::string& corner, const std::string& across,
              const std::string& down) {
  calls.push_back("Get3DShadeColor(" + std::to_string(level) + ", 103)");
  calls.push_back("CreatePenIndirect({0, 1, 0x020" + std::to_string(level) +
                  "67}) -> pen:" + std::to_string(level));
  const std::string own = "pen:" + std::to_string(level);
  calls.push_back("SelectObject(dc:1, " + own + ")");
  for (const std::string& end : {across, down}) {
    calls.push_back("MoveToEx(dc:1, " + corner + ")");
    calls.push_back("LineTo(dc:1, " + end + ")");
  }
  calls.push_back("SelectObject(dc:1, stock:7)");
  calls.push_back("DeleteObject(" + own + ")");
}

TEST(DrawRaisedFrame, DrawsEightLevelsFromTheirCornersAndThenTheFace) {
  Calls expected;
  // x0 = 10, y0 = 20, x1 = 40, y1 = 60.
  AddLevel(expected, 1, "39, 59", "9, 59", "39, 19");
  AddLevel(expected, 2, "38, 58", "10, 58", "38, 20");
  AddLevel(expected, 3, "37, 57", "11, 57", "37, 21");
  AddLevel(expected, 4, "36, 56", "12, 56", "36, 22");
  AddLevel(expected, 5, "10, 20", "40, 20", "10, 60");
  AddLevel(expected, 6, "11, 21", "39, 21", "11, 59");
  AddLevel(expected, 7, "12, 22", "38, 22", "12, 58");
  AddLevel(expected, 8, "13, 23", "37, 23", "13, 57");
  for (const char* const call : {"Get3DFaceColor(103)", "CreateSolidBrush(0x030067) -> brush:1",
                                 "FillRect(dc:1, {14, 24, 36, 56}, brush:1)", "DeleteObject(brush:1)"}) {
    expected.push_back(call);
  }
  EXPECT_EQ(CallsOf(DrawRaisedFrame, {10, 20, 30, 40}), expected);
}

TEST(DrawRaisedFrame, IsLightAboveAndLeftAndDarkBelowAndRight) {
  EXPECT_EQ(
      PictureOf(DrawRaisedFrame, {2, 1, 12, 11}, 15, 13),
      (Calls{"...............", "..555555555555.", "..566666666661.", "..567777777721.", "..567888888321.",
             "..567800004321.", "..567800004321.", "..567800004321.", "..567844444321.", "..567333333321.",
             "..562222222221.", "..511111111111.", "..............."}));
}

TEST(DrawRaisedFrame, Of8PixelsHasNoFaceLeft) {
  EXPECT_EQ(PictureOf(DrawRaisedFrame, {1, 1, 8, 8}, 10, 10),
            (Calls{"..........", ".55555555.", ".56666661.", ".56777721.", ".56788321.", ".56784321.",
                   ".56733321.", ".56222221.", ".51111111.", ".........."}));
}

TEST(DrawRaisedFrame, Of7PixelsTurnsItsFaceOver) {
  EXPECT_EQ(PictureOf(DrawRaisedFrame, {1, 1, 7, 7}, 9, 9),
            (Calls{".........", ".5555555.", ".5666661.", ".5677721.", ".5670321.", ".5673321.", ".5622221.",
                   ".5111111.", "........."}));
}

TEST(DrawRaisedFrame, OfOnePixelOrNoneIsAllFaceTurnedOver) {
  const std::string none = ".............", seven = "...0000000...", eight = "..00000000...";
  EXPECT_EQ(PictureOf(DrawRaisedFrame, {6, 6, 1, 1}, 13, 13),
            (Calls{none, none, none, seven, seven, seven, seven, seven, seven, seven, none, none, none}));
  EXPECT_EQ(PictureOf(DrawRaisedFrame, {6, 6, 0, 0}, 13, 13),
            (Calls{none, none, eight, eight, eight, eight, eight, eight, eight, eight, none, none, none}));
}

TEST(DrawRaisedFrame, OfNegativeSizeFillsItsFaceTurnedOver) {
  const Calls calls = CallsOf(DrawRaisedFrame, {10, 20, -3, -5});
  ASSERT_EQ(calls.size(), 76u);
  EXPECT_EQ(calls[3], "MoveToEx(dc:1, 6, 14)");
  EXPECT_EQ(calls[4], "LineTo(dc:1, 9, 14)");
  EXPECT_EQ(calls[6], "LineTo(dc:1, 6, 19)");
  EXPECT_EQ(calls[74], "FillRect(dc:1, {14, 24, 3, 11}, brush:1)");
}

/// How many colours were asked for until an error ended the painting; nothing but that error is left.
int AskedUntilOverflow(Draw draw, const Descriptor& place) {
  int asked = 0;
  test::CallsOfPainting([&](Long dc) {
    BevelColors colors;
    EXPECT_EQ(ErrorOf([&] { draw(dc, place, kPanelColor, colors); }), 6);
    for (const std::string& call : colors.Take()) asked += call.rfind("Get3D", 0) == 0;
  });
  return asked;
}

/// The place with across and down exchanged.
Descriptor Turned(const Descriptor& place) { return {place.ys, place.xs, place.dy, place.dx}; }

TEST(DrawRaisedFrame, IsAnErrorWhereAnEdgeDoesNotFit) {
  struct Row {
    Descriptor place;
    int asked;
  };
  for (const Row& row : {Row{{kMost, 0, 1, 9}, 0}, Row{{kLeast, 0, -1, 9}, 0},
                         // The first line reaches one pixel beyond the near edges.
                         Row{{kLeast, 0, 9, 9}, 0},
                         // Dark lines, from the far edges.
                         Row{{0, 0, kLeast, 9}, 0}, Row{{kLeast + 1, 0, 0, 9}, 1},
                         Row{{kLeast + 1, 0, 1, 9}, 2}, Row{{kLeast + 1, 0, 2, 9}, 3},
                         // What they reach on the near side, light lines, and the face.
                         Row{{kMost, 0, -9, 9}, 2}, Row{{kMost - 1, 0, -9, 9}, 3},
                         Row{{kMost - 2, 0, -9, 9}, 7}, Row{{kMost - 3, 0, -9, 9}, 9}}) {
    EXPECT_EQ(AskedUntilOverflow(DrawRaisedFrame, row.place), row.asked) << row.place.xs;
    EXPECT_EQ(AskedUntilOverflow(DrawRaisedFrame, Turned(row.place)), row.asked) << row.place.xs << " turned";
  }
}

TEST(DrawRaisedFrame, GoesUpToTheLastNumbers) {
  for (const Descriptor& place : {Descriptor{kMost - 4, 0, 4, 9}, Descriptor{kLeast + 1, 0, 3, 9}}) {
    EXPECT_EQ(CallsOf(DrawRaisedFrame, place).size(), 76u) << place.xs;
    EXPECT_EQ(CallsOf(DrawRaisedFrame, Turned(place)).size(), 76u) << place.xs;
  }
}

// --- Sunken ---

TEST(DrawSunkenFrame, IsPaintedApartAndCopiedAndThenHasItsFace) {
  EXPECT_EQ(CallsOf(DrawSunkenFrame, {10, 20, 30, 40}),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 30, 40) -> bitmap:1",
                   "SelectObject(dc:2, bitmap:1)", "DrawPressed3DRect(0, 0, 30, 40, 103, 1, dc:2)",
                   "BitBlt(dc:1, 10, 20, 30, 40, dc:2, 0, 0, 0xcc0020)", "DeleteDC(dc:2)",
                   "DeleteObject(bitmap:1)", "Get3DFaceColor(103)", "CreateSolidBrush(0x030067) -> brush:1",
                   "FillRect(dc:1, {14, 24, 37, 57}, brush:1)", "DeleteObject(brush:1)"}));
}

TEST(DrawSunkenFrame, OfNegativeSizeHasNoPicture) {
  EXPECT_EQ(CallsOf(DrawSunkenFrame, {1, 2, -3, -5}),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, -3, -5) -> null",
                   "SelectObject(dc:2, null)", "DrawPressed3DRect(0, 0, -3, -5, 103, 1, dc:2)",
                   "BitBlt(dc:1, 1, 2, -3, -5, dc:2, 0, 0, 0xcc0020)", "DeleteDC(dc:2)",
                   "Get3DFaceColor(103)", "CreateSolidBrush(0x030067) -> brush:1",
                   "FillRect(dc:1, {5, 6, -5, -6}, brush:1)", "DeleteObject(brush:1)"}));
}

TEST(DrawSunkenFrame, IsDarkAboveAndLeftWithAFaceOnePixelLargerBelowAndRight) {
  EXPECT_EQ(
      PictureOf(DrawSunkenFrame, {2, 1, 12, 11}, 15, 13),
      (Calls{"...............", "..111111111111.", "..122222222225.", "..123333333365.", "..123444444765.",
             "..123400000765.", "..123400000765.", "..123400000765.", "..123400000765.", "..123777777765.",
             "..126666666665.", "..155555555555.", "..............."}));
}

TEST(DrawSunkenFrame, Of8PixelsHasAFaceOfOne) {
  EXPECT_EQ(PictureOf(DrawSunkenFrame, {1, 1, 8, 8}, 10, 10),
            (Calls{"..........", ".11111111.", ".12222225.", ".12333365.", ".12344765.", ".12340765.",
                   ".12377765.", ".12666665.", ".15555555.", ".........."}));
}

TEST(DrawSunkenFrame, Of7PixelsHasTheBevelAlone) {
  EXPECT_EQ(PictureOf(DrawSunkenFrame, {1, 1, 7, 7}, 9, 9),
            (Calls{".........", ".1111111.", ".1222225.", ".1233365.", ".1230765.", ".1237765.", ".1266665.",
                   ".1555555.", "........."}));
}

TEST(DrawSunkenFrame, OfOnePixelOrNoneIsAllFaceTurnedOver) {
  const std::string none = ".............", six = "....000000...", seven = "...0000000...";
  EXPECT_EQ(PictureOf(DrawSunkenFrame, {6, 6, 1, 1}, 13, 13),
            (Calls{none, none, none, none, six, six, six, six, six, six, none, none, none}));
  EXPECT_EQ(PictureOf(DrawSunkenFrame, {6, 6, 0, 0}, 13, 13),
            (Calls{none, none, none, seven, seven, seven, seven, seven, seven, seven, none, none, none}));
}

TEST(DrawSunkenFrame, IsAnErrorWhereAnEdgeDoesNotFit) {
  struct Row {
    Descriptor place;
    int asked;
  };
  for (const Row& row : {Row{{kMost, 0, 1, 9}, 0}, Row{{kLeast, 0, -1, 9}, 0}, Row{{kMost - 3, 0, 3, 9}, 1},
                         Row{{kLeast, 0, 2, 9}, 1}}) {
    EXPECT_EQ(AskedUntilOverflow(DrawSunkenFrame, row.place), row.asked) << row.place.xs;
    EXPECT_EQ(AskedUntilOverflow(DrawSunkenFrame, Turned(row.place)), row.asked) << row.place.xs << " turned";
  }
}

TEST(DrawSunkenFrame, GoesUpToTheLastNumbers) {
  for (const Descriptor& place : {Descriptor{kMost - 4, 0, 4, 9}, Descriptor{kLeast, 0, 3, 9}}) {
    EXPECT_EQ(CallsOf(DrawSunkenFrame, place).size(), 11u) << place.xs;
    EXPECT_EQ(CallsOf(DrawSunkenFrame, Turned(place)).size(), 11u) << place.xs;
  }
}

// --- Both ---

/// The calls of painting a frame with a colour service that raises an error at that call of its own.
Calls CallsUntilFailure(Draw draw, int failAt) {
  Calls calls;
  test::CallsOfPainting([&](Long dc) {
    BevelColors colors;
    colors.failAt = failAt;
    EXPECT_RAISES(5, "no colour", draw(dc, {10, 20, 30, 40}, kPanelColor, colors));
    calls = colors.Take();
  });
  return calls;
}

TEST(DrawRaisedFrame, LeavesNothingBehindWhicheverColourFails) {
  const Calls whole = CallsOf(DrawRaisedFrame, {10, 20, 30, 40});
  for (int failAt = 1; failAt <= 9; ++failAt) {
    // Nine calls a level, the first of them that for its colour.
    const Calls expected(whole.begin(), whole.begin() + (failAt - 1) * 9 + 1);
    EXPECT_EQ(CallsUntilFailure(DrawRaisedFrame, failAt), expected) << failAt;
  }
}

TEST(DrawSunkenFrame, LeavesNothingBehindWhenTheBevelFails) {
  EXPECT_EQ(CallsUntilFailure(DrawSunkenFrame, 1),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 30, 40) -> bitmap:1",
                   "SelectObject(dc:2, bitmap:1)", "DrawPressed3DRect(0, 0, 30, 40, 103, 1, dc:2)",
                   "DeleteDC(dc:2)", "DeleteObject(bitmap:1)"}));
}

TEST(DrawSunkenFrame, LeavesNothingBehindWhenTheFaceFails) {
  const Calls whole = CallsOf(DrawSunkenFrame, {10, 20, 30, 40});
  EXPECT_EQ(CallsUntilFailure(DrawSunkenFrame, 2), Calls(whole.begin(), whole.begin() + 8));
}

TEST(FrameStyles, OnAContextThatIsNoneLeaveNothingBehind) {
  const std::size_t before = gdi::LiveObjects();
  PaletteColorService colors;
  DrawRaisedFrame(0, {1, 1, 9, 9}, kPanelColor, colors);
  DrawSunkenFrame(0, {1, 1, 9, 9}, kPanelColor, colors);
  FillPlace(0, {1, 1, 9, 9}, 0x123456);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- Flat and plain ---

using DrawBox = void (*)(Long hdc, const Descriptor& place, std::uint32_t color);

Calls CallsOfBox(DrawBox draw, const Descriptor& place) {
  return test::CallsOfPainting([&](Long dc) { draw(dc, place, 0x123456); });
}

TEST(DrawFlatFrame, IsARectangleInPenAndBrushOfOneColour) {
  EXPECT_EQ(CallsOfBox(DrawFlatFrame, {10, 20, 30, 40}),
            (Calls{"CreatePenIndirect({0, 1, 0x123456}) -> pen:1", "SelectObject(dc:1, pen:1)",
                   "CreateSolidBrush(0x123456) -> brush:1", "SelectObject(dc:1, brush:1)",
                   "Rectangle(dc:1, 10, 20, 40, 60)", "SelectObject(dc:1, stock:0)", "DeleteObject(brush:1)",
                   "SelectObject(dc:1, stock:7)", "DeleteObject(pen:1)"}));
}

TEST(DrawPlainFrame, IsARectangleInTheContextsPen) {
  EXPECT_EQ(
      CallsOfBox(DrawPlainFrame, {10, 20, -3, -5}),
      (Calls{"CreateSolidBrush(0x123456) -> brush:1", "SelectObject(dc:1, brush:1)",
             "Rectangle(dc:1, 10, 20, 7, 15)", "SelectObject(dc:1, stock:0)", "DeleteObject(brush:1)"}));
}

TEST(FrameStyles, OfBoxesDifferInTheirBorder) {
  const gdi::Surface flat = gdi::White(6, 5), plain = gdi::White(6, 5);
  DrawFlatFrame(flat.Dc(), {1, 1, 4, 3}, gdi::kBlue);
  EXPECT_EQ(gdi::Rows(flat), (Calls{"......", ".bbbb.", ".bbbb.", ".bbbb.", "......"}));
  DrawPlainFrame(plain.Dc(), {1, 1, 4, 3}, gdi::kBlue);
  EXPECT_EQ(gdi::Rows(plain), (Calls{"......", ".####.", ".#bb#.", ".####.", "......"}));
}

TEST(FrameStyles, OfBoxesAreErrorsWhereAFarEdgeDoesNotFit) {
  for (const DrawBox draw : {DrawFlatFrame, DrawPlainFrame}) {
    for (const Descriptor& place : {Descriptor{kMost, 0, 1, 9}, Descriptor{0, kMost, 9, 1},
                                    Descriptor{kLeast, 0, -1, 9}, Descriptor{0, kLeast, 9, -1}}) {
      test::CallsOfPainting([&](Long dc) { EXPECT_EQ(ErrorOf([&] { draw(dc, place, 0); }), 6); });
    }
    const std::size_t before = gdi::LiveObjects();
    draw(0, {1, 1, 9, 9}, 0x123456);
    EXPECT_EQ(gdi::LiveObjects(), before);
  }
}

// --- Places ---

Calls CallsOfFill(const Descriptor& place) {
  return test::CallsOfPainting([&](Long dc) { FillPlace(dc, place, 0x123456); });
}

TEST(FillPlace, FillsTheRectangleInTheColour) {
  EXPECT_EQ(CallsOfFill({10, 20, 30, 40}),
            (Calls{"CreateSolidBrush(0x123456) -> brush:1", "FillRect(dc:1, {10, 20, 40, 60}, brush:1)",
                   "DeleteObject(brush:1)"}));
  EXPECT_EQ(CallsOfFill({10, 20, -3, -5})[1], "FillRect(dc:1, {10, 20, 7, 15}, brush:1)");
  EXPECT_EQ(CallsOfFill({10, 20, 0, 0})[1], "FillRect(dc:1, {10, 20, 10, 20}, brush:1)");
}

TEST(FillPlace, LeavesOutTheFarEdges) {
  const gdi::Surface surface = gdi::White(6, 5);
  FillPlace(surface.Dc(), {1, 2, 4, 2}, gdi::kBlue);
  EXPECT_EQ(gdi::Rows(surface), (Calls{"......", "......", ".bbbb.", ".bbbb.", "......"}));
}

TEST(FillPlace, IsAnErrorWhereAFarEdgeDoesNotFit) {
  for (const Descriptor& place : {Descriptor{kMost, 0, 1, 9}, Descriptor{0, kMost, 9, 1},
                                  Descriptor{kLeast, 0, -1, 9}, Descriptor{0, kLeast, 9, -1}}) {
    const Calls calls =
        test::CallsOfPainting([&](Long dc) { EXPECT_EQ(ErrorOf([&] { FillPlace(dc, place, 0); }), 6); });
    EXPECT_EQ(calls, Calls{}) << place.xs;
  }
  EXPECT_EQ(CallsOfFill({kMost - 1, kMost - 1, 1, 1})[1],
            "FillRect(dc:1, {2147483646, 2147483646, 2147483647, 2147483647}, brush:1)");
}

}  // namespace
}  // namespace quenzel7
