/// What a bar asks of the graphics interface and of the colours while it is painted, what of it is full, and
/// whose the picture is.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "platform/gdi/owned.h"
#include "platform/gdi/surface.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/painting_doubles.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"
#include "variables/graphs/bargraph.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using Calls = std::vector<std::string>;

constexpr Long kBack = 7;

/// The nearest integer to the half of a number, of two as near the even one.
Long RoundedHalf(Long twice) {
  const Long below = twice >= 0 ? twice / 2 : (twice - 1) / 2;
  return twice % 2 == 0 || below % 2 == 0 ? below : below + 1;
}

/// What each frame style keeps free at the near edges, and how far from the far edges the bar ends.
struct Inset {
  Long style, margin, beforeEnd;
};
constexpr Inset kInsets[] = {{0, 0, -1}, {1, 4, 3}, {3, 4, 3}, {2, 1, 1}, {4, 1, 1}, {-1, 1, 1}};

/// The half that is full.
std::string Fill(Long type, const Inset& inset, Long w, Long h) {
  const auto rect = [](Long left, Long top, Long right, Long bottom) {
    return '{' + std::to_string(left) + ", " + std::to_string(top) + ", " + std::to_string(right) + ", " +
           std::to_string(bottom) + '}';
  };
  const Long near = inset.margin, right = w - inset.beforeEnd, bottom = h - inset.beforeEnd;
  // The far end, from where a bar begins that grows from there: half the size less what is free.
  const auto fromMiddle = [&](Long size) {
    return RoundedHalf(2 * RoundedHalf(size) + size - 2 * inset.beforeEnd);
  };
  switch (type) {
    case 1:
      return rect(near, RoundedHalf(h), right, fromMiddle(h));
    case 2:
      return rect(near, near, right, RoundedHalf(h + 2));
    case 3:
      return rect(near, near, RoundedHalf(w + 2), bottom);
    case 4:
      return rect(RoundedHalf(w), near, fromMiddle(w), bottom);
    default:
      return rect(0, 0, 0, 0);
  }
}

class PaintedBar : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().colorService = std::make_shared<test::PaintingColors>(notes_);
  }
  void TearDown() override { Platform::Current() = Platform(); }

  void Paint(clsVarBargraph& bar, Long style, Long w, Long h) {
    bar.NewDrawForBarGraphForAlsoFlatAndFixedSingle(paper_.Dc(), w, h, kBack, style);
  }
  /// The calls of something, services and graphics interface alike.
  template <class Action>
  Calls CallsOf(Action action) {
    gdi::Recorder recorder;
    recorder.NameOf(paper_.Dc());
    notes_->Into(&recorder);
    action();
    notes_->Into(nullptr);
    return recorder.Take();
  }
  Calls CallsOfPainting(Long style, Long type, Long w, Long h) {
    clsVarBargraph bar;
    bar.BargraphType(static_cast<enBarGraphDrawType>(type));
    return CallsOf([&] { Paint(bar, style, w, h); });
  }
  static std::string FillIn(const Calls& calls) {
    std::string fills;
    for (const std::string& call : calls) {
      if (call.starts_with("FillRect(")) fills += call;
    }
    return fills;
  }
  /// The same for a bar alone, with what stands around the rectangle.
  std::string FillOf(Long style, Long type, Long w, Long h) {
    const std::string fill = FillIn(CallsOfPainting(style, type, w, h));
    const std::string before = "FillRect(dc:2, ";
    return fill.substr(before.size(), fill.find('}') + 1 - before.size());
  }
  /// The picture of a bar as letters.
  static Calls RowsOf(const clsVarBargraph& bar, int w, int h) {
    gdi::Surface copy(w, h);
    const gdi::OwnedContext memory(copy.Dc());
    const gdi::Selection selection(memory.Get(), bar.DrawingElement()->hBmp());
    gdi::BitBlt(copy.Dc(), 0, 0, w, h, memory.Get(), 0, 0, gdi::SRCCOPY);
    return Rows(copy);
  }

  const test::PaintingNotesRef notes_ = std::make_shared<test::PaintingNotes>();
  const gdi::Surface paper_{4, 4};
};

// --- Calls ---

TEST_F(PaintedBar, WithABevelIsPaintedByTheseCallsInThisOrder) {
  for (const auto& [style, pressed] : {std::pair<Long, const char*>{1, "0"}, {3, "1"}}) {
    EXPECT_EQ(CallsOfPainting(style, 3, 20, 10),
              (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 20, 10) -> bitmap:1",
                     "SelectObject(dc:2, bitmap:1)",
                     std::string("DrawPressed3DRect(0, 0, 20, 10, 7, ") + pressed + ", dc:2)", "GetColor(3)",
                     "CreateSolidBrush(0x0a0003) -> brush:1", "SelectObject(dc:2, brush:1)",
                     "FillRect(dc:2, {4, 4, 11, 7}, brush:1)", "DeleteDC(dc:2)", "DeleteObject(brush:1)"}));
  }
}

TEST_F(PaintedBar, WithoutABevelIsPaintedByTheseCallsInThisOrder) {
  EXPECT_EQ(CallsOfPainting(0, 3, 20, 10),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 20, 10) -> bitmap:1",
                   "SelectObject(dc:2, bitmap:1)", "DrawFlatRect(0, 0, 20, 10, 7, dc:2)", "GetColor(3)",
                   "CreateSolidBrush(0x0a0003) -> brush:1", "SelectObject(dc:2, brush:1)",
                   "FillRect(dc:2, {0, 0, 11, 11}, brush:1)", "DeleteDC(dc:2)", "DeleteObject(brush:1)"}));
}

TEST_F(PaintedBar, InAnyOtherStyleIsPaintedInAPlainFrameByTheseCallsInThisOrder) {
  for (const Long style : {2, 4, -1, 5, 100}) {
    EXPECT_EQ(CallsOfPainting(style, 3, 20, 10),
              (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 20, 10) -> bitmap:1",
                     "SelectObject(dc:2, bitmap:1)", "GetColor(7)",
                     "CreateBrushIndirect({0, 0x0a0007, 0}) -> brush:1", "SelectObject(dc:2, brush:1)",
                     "Rectangle(dc:2, 0, 0, 20, 10)", "SelectObject(dc:2, stock:0)", "DeleteObject(brush:1)",
                     "GetColor(3)", "CreateSolidBrush(0x0a0003) -> brush:2", "SelectObject(dc:2, brush:2)",
                     "FillRect(dc:2, {1, 1, 11, 9}, brush:2)", "DeleteDC(dc:2)", "DeleteObject(brush:2)"}))
        << style;
  }
}

TEST_F(PaintedBar, ThatIsDrawnIsSunkenWhateverTheDirection) {
  for (const Long type : {0, 1, 2, 3, 4}) {
    clsVarBargraph bar;
    bar.BargraphType(static_cast<enBarGraphDrawType>(type));
    EXPECT_EQ(CallsOf([&] { bar.Draw(paper_.Dc(), 30, 40, kBack); }), CallsOfPainting(3, type, 30, 40))
        << type;
  }
}

TEST_F(PaintedBar, OfAVariableIsPaintedAtItsSizeInItsStyleOnItsBackground) {
  for (const Long style : {0, 1, 2, 3}) {
    clsVarBargraph bar;
    EXPECT_EQ(CallsOf([&] {
                bar.PaintPicture({.hdc = paper_.Dc(),
                                  .dx = 30,
                                  .dy = 40,
                                  .colorBack = kBack,
                                  .flat3D = style,
                                  .fontNumber = 50,
                                  .drawBoundingRect = true});
              }),
              CallsOfPainting(style, 3, 30, 40))
        << style;
  }
}

TEST_F(PaintedBar, LeavesTheStyleThatItIsTold) {
  clsVarBargraph bar;
  for (const Long style : {0, 1, 2, 3, 9}) {
    Long told = style;
    bar.NewDrawForBarGraphForAlsoFlatAndFixedSingle(paper_.Dc(), 5, 5, kBack, told);
    EXPECT_EQ(told, style);
  }
}

TEST_F(PaintedBar, HasTheColourOfTheBarWhateverThatIs) {
  clsVarBargraph bar;
  bar.ColorFore(9);
  bar.Frame(false);
  const Calls calls = CallsOf([&] { Paint(bar, 3, 20, 10); });
  ASSERT_EQ(calls.size(), 10u);
  EXPECT_EQ(calls[4], "GetColor(9)");
  EXPECT_EQ(calls[5], "CreateSolidBrush(0x0a0009) -> brush:1");
}

// --- The half that is full ---

TEST_F(PaintedBar, IsHalfFullInEveryStyleDirectionAndSize) {
  const std::vector<Long> sizes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 100, 101};
  for (const Inset& inset : kInsets) {
    for (Long type = 0; type <= 5; ++type) {
      for (const Long w : sizes) {
        for (const Long h : sizes) {
          ASSERT_EQ(FillOf(inset.style, type, w, h), Fill(type, inset, w, h))
              << "style " << inset.style << " direction " << type << ' ' << w << " x " << h;
        }
      }
    }
  }
}

TEST_F(PaintedBar, RoundsHalvesToTheEvenNumber) {
  const struct {
    Long style, type, w, h;
    const char* fill;
  } kBars[] = {
      {0, 3, 101, 101, "{0, 0, 52, 102}"}, {0, 4, 101, 101, "{50, 0, 102, 102}"},
      {0, 2, 101, 101, "{0, 0, 102, 52}"}, {0, 1, 101, 101, "{0, 50, 102, 102}"},
      {0, 3, 103, 50, "{0, 0, 52, 51}"},   {0, 4, 103, 50, "{52, 0, 104, 51}"},
      {1, 3, 101, 60, "{4, 4, 52, 57}"},   {1, 4, 101, 60, "{50, 4, 98, 57}"},
      {3, 2, 60, 101, "{4, 4, 57, 52}"},   {3, 1, 60, 101, "{4, 50, 57, 98}"},
      {3, 4, 103, 60, "{52, 4, 100, 57}"}, {3, 1, 60, 103, "{4, 52, 57, 100}"},
      {2, 3, 101, 60, "{1, 1, 52, 59}"},   {2, 4, 101, 60, "{50, 1, 100, 59}"},
      {2, 2, 60, 101, "{1, 1, 59, 52}"},   {2, 1, 60, 101, "{1, 50, 59, 100}"},
      {2, 4, 103, 60, "{52, 1, 102, 59}"}, {2, 4, 100, 60, "{50, 1, 99, 59}"},
      {1, 1, 100, 60, "{4, 30, 97, 57}"},  {1, 4, 100, 60, "{50, 4, 97, 57}"},
  };
  for (const auto& [style, type, w, h, fill] : kBars) {
    EXPECT_EQ(FillOf(style, type, w, h), fill) << style << ' ' << type << ' ' << w << " x " << h;
  }
}

TEST_F(PaintedBar, ThatGrowsInNoDirectionIsItsBackgroundAlone) {
  for (const Long type : {0, 5, -1}) {
    EXPECT_EQ(FillIn(CallsOfPainting(3, type, 20, 10)), "FillRect(dc:2, {0, 0, 0, 0}, brush:1)") << type;
  }
}

// --- Pixels ---

/// White 7, red 3.
class FlagColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override { return colorNumber == 7 ? 0xFFFFFF : 0x0000FF; }
};

TEST_F(PaintedBar, ShowsItsColourOnItsBackground) {
  Platform::Current().colorService = std::make_shared<FlagColors>();
  clsVarBargraph bar;
  bar.BargraphType(eBD_None);
  Paint(bar, 0, 3, 2);
  EXPECT_EQ(RowsOf(bar, 3, 2), (Calls{"...", "..."}));
  bar.BargraphType(eBD_LeftToRight);
  Paint(bar, 2, 8, 5);
  EXPECT_EQ(RowsOf(bar, 8, 5), (Calls{"########",  //
                                      "#rrrr..#",  //
                                      "#rrrr..#",  //
                                      "#rrrr..#",  //
                                      "########"}));
  bar.BargraphType(eBD_BottomToTop);
  Paint(bar, 0, 4, 6);
  EXPECT_EQ(RowsOf(bar, 4, 6), (Calls{"....", "....", "....", "rrrr", "rrrr", "rrrr"}));
  bar.BargraphType(eBD_RightToLeft);
  Paint(bar, 2, 8, 4);
  EXPECT_EQ(RowsOf(bar, 8, 4), (Calls{"########", "#...rrr#", "#...rrr#", "########"}));
  bar.BargraphType(eBD_TopToBottom);
  for (const Long style : {1, 3}) {
    Paint(bar, style, 12, 12);
    const Calls rows = RowsOf(bar, 12, 12);
    for (std::size_t y = 4; y <= 8; ++y) {
      for (std::size_t x = 4; x <= 8; ++x) {
        EXPECT_EQ(rows[y][x] == 'r', y < 7) << style << ' ' << x << ' ' << y;
      }
    }
    // The bevel's lines: light above and dark below when raised, the other way round when sunken.
    EXPECT_NE(rows[1][1], rows[10][10]) << style;
    EXPECT_NE(rows[1][1], 'r') << style;
    EXPECT_NE(rows[10][10], 'r') << style;
  }
}

TEST_F(PaintedBar, ShowsInAReplicaWhiteAndBlackAlone) {
  Platform::Current().colorService = std::make_shared<FlagColors>();
  clsVarBargraph bar;
  Paint(bar, 2, 8, 5);
  const auto copy = std::dynamic_pointer_cast<clsVarBargraph>(bar.Replica());
  EXPECT_EQ(RowsOf(*copy, 8, 5), (Calls{"########",  //
                                        "#####..#",  //
                                        "#####..#",  //
                                        "#####..#",  //
                                        "########"}));
  EXPECT_EQ(RowsOf(bar, 8, 5)[1], "#rrrr..#");
}

// --- Whose the picture is ---

TEST_F(PaintedBar, BelongsToTheElementUntilItIsPaintedAnew) {
  const std::size_t before = gdi::LiveObjects();
  {
    clsVarBargraph bar;
    EXPECT_EQ(bar.DrawingElement()->hBmp(), 0);
    EXPECT_EQ(bar.DrawingElement()->ImageCRC(), -1);
    Paint(bar, 3, 20, 10);
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    EXPECT_NE(bar.DrawingElement()->hBmp(), 0);
    EXPECT_EQ(bar.DrawingElement()->ImageCRC(), 0x3F3F3F3F);
    const Calls calls = CallsOf([&] { Paint(bar, 3, 30, 10); });
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    // Before the context ends that holds the new one.
    ASSERT_EQ(calls.size(), 11u);
    EXPECT_EQ(calls[8], "DeleteObject(bitmap:2)");
    EXPECT_EQ(calls[9], "DeleteDC(dc:2)");
    for (const Long style : {0, 1, 2}) Paint(bar, style, 30, 10);
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PaintedBar, EndsWithTheElementWhenItIsReleased) {
  const std::size_t before = gdi::LiveObjects();
  clsVarBargraph bar;
  Paint(bar, 3, 20, 10);
  bar.ReleaseResources();
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(ErrorOf([&] { Paint(bar, 3, 20, 10); }), 91);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PaintedBar, LeavesNothingBehindAndItsOldPictureWhenAColourFails) {
  for (const Long style : {0, 1, 2, 3}) {
    clsVarBargraph bar;
    Paint(bar, 3, 20, 10);
    const Long picture = bar.DrawingElement()->hBmp();
    bar.DrawingElement()->ImageCRC(0x3F3F3F3F);
    const std::size_t before = gdi::LiveObjects();
    for (const int call : {1, 2}) {
      const Calls calls = CallsOf([&] {
        notes_->FailAt(call);
        EXPECT_EQ(ErrorOf([&] { Paint(bar, style, 30, 10); }), 5) << style;
      });
      EXPECT_EQ(gdi::LiveObjects(), before) << style << ' ' << call;
      EXPECT_EQ(bar.DrawingElement()->hBmp(), picture);
      EXPECT_EQ(calls[calls.size() - 2], "DeleteDC(dc:2)");
      EXPECT_EQ(calls[calls.size() - 1], "DeleteObject(bitmap:1)");
      EXPECT_EQ(FillIn(calls), "");
    }
    notes_->FailAt(0);
    Paint(bar, style, 30, 10);
    EXPECT_EQ(gdi::LiveObjects(), before);
  }
}

TEST_F(PaintedBar, WhoseEdgeDoesNotFit32BitsLeavesNothingBehind) {
  constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();
  clsVarBargraph bar;
  const std::size_t before = gdi::LiveObjects();
  EXPECT_EQ(ErrorOf([&] { Paint(bar, 3, 20, kLeast); }), 6);
  EXPECT_EQ(ErrorOf([&] { Paint(bar, 3, 20, kLeast + 2); }), 6);
  EXPECT_EQ(ErrorOf([&] { Paint(bar, 2, 20, kLeast); }), 6);
  EXPECT_EQ(ErrorOf([&] { Paint(bar, 0, 20, kMost); }), 6);
  EXPECT_EQ(gdi::LiveObjects(), before);
  // The rectangle comes before the colour.
  const Calls calls = CallsOf([&] { EXPECT_EQ(ErrorOf([&] { Paint(bar, 3, 20, kLeast); }), 6); });
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "GetColor(3)"), 0);
  EXPECT_TRUE(std::none_of(calls.begin(), calls.end(),
                           [](const std::string& call) { return call.starts_with("CreateSolidBrush"); }));
  EXPECT_EQ(bar.DrawingElement()->ImageCRC(), -1);
  // No picture has such a size, but its rectangle can be told.
  EXPECT_EQ(FillOf(3, 3, 20, kLeast + 3), "{4, 4, 11, -2147483648}");
  EXPECT_EQ(FillOf(0, 3, 20, kMost - 1), "{0, 0, 11, 2147483647}");
}

TEST_F(PaintedBar, OfASizeBelow1x1HasAPictureAllTheSameOrNone) {
  clsVarBargraph bar;
  Paint(bar, 3, 0, 0);
  EXPECT_EQ(RowsOf(bar, 1, 1), Calls{"#"});
  Paint(bar, 3, -1, 5);
  EXPECT_EQ(bar.DrawingElement()->hBmp(), 0);
  EXPECT_EQ(bar.DrawingElement()->ImageCRC(), 0x3F3F3F3F);
}

}  // namespace
}  // namespace quenzel7
