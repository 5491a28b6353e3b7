#include "platform/corvane1/color_service.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

#include "platform/corvane1/bevel_shades.h"
#include "platform/corvane1/panel_palette.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "tests/platform/corvane1/bevel_picture.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();
constexpr Long kFace = 103;

using Calls = std::vector<std::string>;

/// A palette of a host that tells its colours only: black where it has none.
class HostColors final : public ColorService {
 public:
  HostColors(std::initializer_list<std::pair<const Long, std::uint32_t>> colors) : colors_(colors) {}
  std::uint32_t GetColor(Long colorNumber) override {
    const auto found = colors_.find(colorNumber);
    return found != colors_.end() ? found->second : 0;
  }

 private:
  std::map<Long, std::uint32_t> colors_;
};

TEST(ColorService, GivesThePaletteColourWithRedInTheLowByte) {
  PaletteColorService colors;
  EXPECT_EQ(colors.GetColor(0), 0x0000E0u);
  EXPECT_EQ(colors.GetColor(3), 0x00D8F0u);
  EXPECT_EQ(colors.GetColor(11), 0x004080u);
  EXPECT_EQ(colors.GetColor(96), 0xE86600u);
}

TEST(ColorService, KnowsEveryNumberOfThePalette) {
  PaletteColorService colors;
  for (Long number = 0; number < 256; ++number) {
    const std::uint32_t rgb = kPanelPalette[static_cast<std::size_t>(number)];
    const std::uint32_t red = rgb / 0x10000;
    const std::uint32_t green = rgb / 0x100 % 0x100;
    const std::uint32_t blue = rgb % 0x100;
    EXPECT_EQ(colors.GetColor(number), blue * 0x10000 + green * 0x100 + red) << number;
  }
}

TEST(ColorService, TheLastNumberIsNotTheFallBack) {
  // 254 tells the limit apart, as 255 is white itself.
  PaletteColorService colors;
  EXPECT_EQ(colors.GetColor(254), 0xAAFFFFu);
}

TEST(ColorService, NumbersOutsideThePaletteAreWhite) {
  PaletteColorService colors;
  for (const Long number :
       {-1, -2, 256, 257, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(colors.GetColor(number), 0xFFFFFFu) << number;
  }
}

TEST(ColorServiceFrames, TheFaceIsThePanelColour) {
  PaletteColorService colors;
  EXPECT_EQ(colors.Get3DFaceColor(kFace), 0xD8D8D8u);
  EXPECT_EQ(colors.Get3DFaceColor(0), 0x0000E0u);
  EXPECT_EQ(colors.Get3DFaceColor(-1), 0xFFFFFFu);
}

TEST(ColorServiceFrames, LinesAreShadesOfTheFace) {
  PaletteColorService colors;
  EXPECT_EQ(colors.Get3DShadeColor(1, kFace), 0x565656u);
  EXPECT_EQ(colors.Get3DShadeColor(4, kFace), 0xB8B8B8u);
  EXPECT_EQ(colors.Get3DShadeColor(5, kFace), 0xEFEFEFu);
  EXPECT_EQ(colors.Get3DShadeColor(8, kFace), 0xDEDEDEu);
  EXPECT_EQ(colors.Get3DShadeColor(0, kFace), 0xD8D8D8u);
  EXPECT_EQ(colors.Get3DShadeColor(9, kFace), 0xD8D8D8u);
}

TEST(ColorServiceFrames, AHostThatTellsOnlyItsColoursGetsBevelsInThem) {
  HostColors colors{{7, 0x808080}};
  EXPECT_EQ(colors.Get3DFaceColor(7), 0x808080u);
  EXPECT_EQ(colors.Get3DShadeColor(1, 7), 0x333333u);
  EXPECT_EQ(colors.Get3DShadeColor(5, 7), 0xCCCCCCu);
}

TEST(ColorServiceFrames, AHostsOwnFaceIsWhatItsBevelIsMadeOf) {
  class Faces final : public ColorService {
    std::uint32_t GetColor(Long) override { return 0xFFFFFF; }
    std::uint32_t Get3DFaceColor(Long) override { return 0x808080; }
  };
  Faces colors;
  EXPECT_EQ(colors.Get3DShadeColor(1, 7), 0x333333u);
}

TEST(ColorServiceFrames, LinesGrowDarkerAndLighterOutwardOnEveryColourOfThePalette) {
  PaletteColorService colors;
  const auto sum = [](std::uint32_t color) {
    return static_cast<int>((color & 0xFF) + (color >> 8 & 0xFF) + (color >> 16 & 0xFF));
  };
  for (Long number = 0; number < 256; ++number) {
    const int face = sum(colors.Get3DFaceColor(number));
    // From the outermost dark line by the face to the outermost light one.
    const Long levels[] = {1, 2, 3, 4, 0, 8, 7, 6, 5};
    for (int step = 1; step < 9; ++step) {
      const int before = sum(colors.Get3DShadeColor(levels[step - 1], number));
      const int after = sum(colors.Get3DShadeColor(levels[step], number));
      const bool isPossible = step <= 4 ? face > 0 : face < 3 * 255;
      if (isPossible) {
        EXPECT_LT(before, after) << number << " step " << step;
      } else {
        EXPECT_EQ(before, after) << number << " step " << step;
      }
    }
    EXPECT_GE(sum(colors.Get3DShadeColor(5, number)) - sum(colors.Get3DShadeColor(1, number)), 3 * 152)
        << number;
  }
}

TEST(DrawPressed3DRect, SunkenIsDarkAboveAndLeft) {
  const gdi::Surface surface = Red(13, 12);
  PaletteColorService().DrawPressed3DRect(0, 0, 13, 12, kFace, 1, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace),
            (Calls{"1111111111111", "1222222222225", "1233333333365", "1234444444765", "1234000008765",
                   "1234000008765", "1234000008765", "1234000008765", "1234888888765", "1237777777765",
                   "1266666666665", "1555555555555"}));
}

TEST(DrawPressed3DRect, RaisedIsLightAboveAndLeft) {
  const gdi::Surface surface = Red(12, 11);
  PaletteColorService().DrawPressed3DRect(0, 0, 12, 11, kFace, 0, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"555555555555", "566666666661", "567777777721", "567888888321",
                                             "567800004321", "567800004321", "567800004321", "567844444321",
                                             "567333333321", "562222222221", "511111111111"}));
}

TEST(DrawPressed3DRect, AnyNumberButZeroIsPressed) {
  const gdi::Surface sunken = Red(9, 9), other = Red(9, 9);
  PaletteColorService().DrawPressed3DRect(0, 0, 9, 9, kFace, 1, sunken.Dc());
  PaletteColorService().DrawPressed3DRect(0, 0, 9, 9, kFace, -1, other.Dc());
  EXPECT_EQ(gdi::Colors(sunken), gdi::Colors(other));
}

TEST(DrawPressed3DRect, StandsBetweenItsCornersWithoutItsFarEdges) {
  const gdi::Surface surface = Red(8, 7);
  PaletteColorService().DrawPressed3DRect(2, 1, 6, 6, kFace, 0, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace),
            (Calls{"........", "..5555..", "..5661..", "..5621..", "..5621..", "..5111..", "........"}));
}

TEST(DrawPressed3DRect, ASmallOneHasAsManyLinesAsThereIsRoomFor) {
  const auto painted = [](Long width, Long height) {
    const gdi::Surface surface = Red(9, 3);
    PaletteColorService().DrawPressed3DRect(0, 0, width, height, kFace, 1, surface.Dc());
    return LevelsOn(surface, kFace);
  };
  EXPECT_EQ(painted(1, 1), (Calls{"0........", ".........", "........."}));
  EXPECT_EQ(painted(8, 1), (Calls{"00000000.", ".........", "........."}));
  EXPECT_EQ(painted(2, 3), (Calls{"11.......", "15.......", "15......."}));
  EXPECT_EQ(painted(4, 3), (Calls{"1111.....", "1005.....", "1555....."}));
}

TEST(DrawPressed3DRect, ExactlyEightPixelsHoldTheWholeBevel) {
  const gdi::Surface surface = Red(8, 8);
  PaletteColorService().DrawPressed3DRect(0, 0, 8, 8, kFace, 1, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"11111111", "12222225", "12333365", "12344765", "12348765",
                                             "12377765", "12666665", "15555555"}));
}

TEST(DrawPressed3DRect, HasRoomForItsLinesByItsSizeAndNotByItsPlace) {
  const gdi::Surface surface = Red(9, 8);
  PaletteColorService colors;
  colors.DrawPressed3DRect(-6, -7, 1, 1, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(1, 6, 9, 7, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(6, 0, 8, 5, kFace, 0, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"5.....55.", "......51.", "......51.", "......51.", "......51.",
                                             ".........", ".00000000", "........."}));
}

TEST(DrawPressed3DRect, WithoutWidthOrHeightIsNothing) {
  const gdi::Surface surface = Red(9, 9);
  gdi::Recorder recorder;
  PaletteColorService colors;
  colors.DrawPressed3DRect(4, 4, 4, 8, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(4, 4, 8, 4, kFace, 1, surface.Dc());
  EXPECT_EQ(recorder.Calls(), Calls{});
}

TEST(DrawPressed3DRect, WithItsCornersInTheWrongOrderIsNothing) {
  const gdi::Surface surface = Red(9, 9);
  gdi::Recorder recorder;
  PaletteColorService colors;
  colors.DrawPressed3DRect(4, 1, 3, 8, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(1, 4, 8, 3, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(8, 8, 1, 1, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(kMost, 0, kLeast, 9, kFace, 1, surface.Dc());
  colors.DrawPressed3DRect(0, kMost, 9, kLeast, kFace, 1, surface.Dc());
  EXPECT_EQ(recorder.Calls(), Calls{});
}

TEST(DrawPressed3DRect, ReachesToTheFarthestCorners) {
  const gdi::Surface near = Red(2, 2), across = Red(2, 2);
  PaletteColorService colors;
  colors.DrawPressed3DRect(0, 0, kMost, kMost, kFace, 1, near.Dc());
  EXPECT_EQ(LevelsOn(near, kFace), (Calls{"11", "12"}));
  gdi::Recorder recorder;
  colors.DrawPressed3DRect(kLeast, kLeast, kMost, kMost, kFace, 1, across.Dc());
  EXPECT_EQ(LevelsOn(across, kFace), (Calls{"00", "00"}));
  const Calls calls = recorder.Calls();
  ASSERT_EQ(calls.size(), 3u + 4 * 2 * 4u);
  // The fourth line above, three pixels from the edges.
  EXPECT_EQ(calls[calls.size() - 3],
            "FillRect(dc:1, {-2147483645, -2147483645, 2147483644, -2147483644}, brush:9)");
}

TEST(DrawPressed3DRect, FillsTheFaceThenEachLineFromTheOutermost) {
  const gdi::Surface surface = Red(5, 6);
  gdi::Recorder recorder;
  PaletteColorService().DrawPressed3DRect(0, 0, 5, 6, kFace, 0, surface.Dc());
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreateSolidBrush(0xd8d8d8) -> brush:1",  //
                   "FillRect(dc:1, {0, 0, 5, 6}, brush:1)",  //
                   "DeleteObject(brush:1)",
                   "CreateSolidBrush(0x565656) -> brush:2",  //
                   "FillRect(dc:1, {0, 5, 5, 6}, brush:2)", "FillRect(dc:1, {4, 0, 5, 6}, brush:2)",
                   "DeleteObject(brush:2)",
                   "CreateSolidBrush(0xefefef) -> brush:3",  //
                   "FillRect(dc:1, {0, 0, 5, 1}, brush:3)", "FillRect(dc:1, {0, 0, 1, 6}, brush:3)",
                   "DeleteObject(brush:3)",
                   "CreateSolidBrush(0x777777) -> brush:4",  //
                   "FillRect(dc:1, {1, 4, 4, 5}, brush:4)", "FillRect(dc:1, {3, 1, 4, 5}, brush:4)",
                   "DeleteObject(brush:4)",
                   "CreateSolidBrush(0xeaeaea) -> brush:5",  //
                   "FillRect(dc:1, {1, 1, 4, 2}, brush:5)", "FillRect(dc:1, {1, 1, 2, 5}, brush:5)",
                   "DeleteObject(brush:5)"}));
}

TEST(DrawFlatRect, FillsBetweenItsCornersInWhicheverOrder) {
  const gdi::Surface surface = Red(5, 4);
  PaletteColorService colors;
  colors.DrawFlatRect(1, 1, 3, 2, kFace, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{".....", ".00..", ".....", "....."}));
  colors.DrawFlatRect(5, 4, 3, 2, kFace, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{".....", ".00..", "...00", "...00"}));
  colors.DrawFlatRect(0, 0, 5, 4, kFace, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"00000", "00000", "00000", "00000"}));
}

TEST(DrawFlatRect, MakesItsBrushAndDeletesIt) {
  const gdi::Surface surface = Red(2, 2);
  gdi::Recorder recorder;
  PaletteColorService().DrawFlatRect(1, 2, 3, 4, 0, surface.Dc());
  EXPECT_EQ(recorder.Calls(), (Calls{"CreateSolidBrush(0x0000e0) -> brush:1",
                                     "FillRect(dc:1, {1, 2, 3, 4}, brush:1)", "DeleteObject(brush:1)"}));
}

TEST(DrawCircle, FillsAsManyPixelsBeforeItsCentreAsBehind) {
  const gdi::Surface surface = Red(8, 8);
  PaletteColorService().DrawCircle(4, 3, 3, kFace, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"...00...", "..0000..", ".000000.", ".000000.", "..0000..",
                                             "...00...", "........", "........"}));
}

TEST(DrawCircle, IsAnEllipseWithPenAndBrushOfItsColour) {
  const gdi::Surface surface = Red(2, 2);
  gdi::Recorder recorder;
  PaletteColorService().DrawCircle(10, 20, 5, 0, surface.Dc());
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreatePenIndirect({0, 1, 0x0000e0}) -> pen:1", "SelectObject(dc:1, pen:1)",
                   "CreateSolidBrush(0x0000e0) -> brush:1", "SelectObject(dc:1, brush:1)",
                   "Ellipse(dc:1, 5, 15, 15, 25)", "SelectObject(dc:1, stock:0)", "DeleteObject(brush:1)",
                   "SelectObject(dc:1, stock:7)", "DeleteObject(pen:1)"}));
}

TEST(DrawCircle, WithoutRadiusIsNothing) {
  const gdi::Surface surface = Red(4, 4);
  PaletteColorService colors;
  gdi::Recorder recorder;
  colors.DrawCircle(2, 2, 0, kFace, surface.Dc());
  colors.DrawCircle(2, 2, -2, kFace, surface.Dc());
  colors.DrawCircle(2, 2, kLeast, kFace, surface.Dc());
  EXPECT_EQ(recorder.Calls(), Calls{});
  colors.DrawCircle(2, 2, 1, kFace, surface.Dc());
  EXPECT_EQ(LevelsOn(surface, kFace), (Calls{"....", ".00.", ".00.", "...."}));
}

TEST(DrawCircle, BeyondAllNumbersIsAnErrorAndPaintsNothing) {
  const gdi::Surface surface = Red(1, 1);
  PaletteColorService colors;
  gdi::Recorder recorder;
  EXPECT_EQ(test::ErrorOf([&] { colors.DrawCircle(kMost, 0, 1, kFace, surface.Dc()); }), 6);
  EXPECT_EQ(test::ErrorOf([&] { colors.DrawCircle(0, kMost, 1, kFace, surface.Dc()); }), 6);
  EXPECT_EQ(test::ErrorOf([&] { colors.DrawCircle(kLeast, 0, 1, kFace, surface.Dc()); }), 6);
  EXPECT_EQ(test::ErrorOf([&] { colors.DrawCircle(0, kLeast, 1, kFace, surface.Dc()); }), 6);
  EXPECT_EQ(recorder.Calls(), Calls{});
}

TEST(ColorServicePainting, LeavesNothingBehindAlsoOnAWrongHandle) {
  const gdi::Surface surface = Red(20, 20);
  const std::size_t before = gdi::LiveObjects();
  PaletteColorService colors;
  for (const gdi::HDC dc : {surface.Dc(), gdi::HDC{0}, gdi::HDC{12345}}) {
    colors.DrawPressed3DRect(0, 0, 20, 20, kFace, 1, dc);
    colors.DrawFlatRect(0, 0, 20, 20, kFace, dc);
    colors.DrawCircle(10, 10, 5, kFace, dc);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN));
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), gdi::GetStockObject(0));
}

TEST(GetClosestGradientColor, IsTheColourItselfWhereABevelCanBeRead) {
  PaletteColorService colors;
  for (const Long number : {0, 1, 2, 3, 96, 103, 104, 101}) {
    EXPECT_EQ(colors.GetClosestGradientColor(number), number);
  }
}

TEST(GetClosestGradientColor, IsTheNearestOneElse) {
  PaletteColorService colors;
  EXPECT_EQ(colors.GetClosestGradientColor(8), 104);
  EXPECT_EQ(colors.GetClosestGradientColor(-1), 104);
  EXPECT_EQ(colors.GetClosestGradientColor(111), 104);
  EXPECT_EQ(colors.GetClosestGradientColor(9), 97);
}

TEST(GetClosestGradientColor, ReadsOnEveryColourThatItGives) {
  PaletteColorService colors;
  for (Long number = -1; number <= 256; ++number) {
    const Long closest = colors.GetClosestGradientColor(number);
    EXPECT_TRUE(ReadsAsBevel(colors.GetColor(closest), colors.Get3DShadeColor(1, closest),
                             colors.Get3DShadeColor(5, closest)))
        << number;
    EXPECT_EQ(colors.GetClosestGradientColor(closest), closest);
  }
}

TEST(GetClosestGradientColor, OfSeveralAsNearIsTheFirst) {
  HostColors colors{{3, 0x808080}, {5, 0x808080}, {255, 0x707070}};
  EXPECT_EQ(colors.GetClosestGradientColor(0), 255);
  HostColors alike{{3, 0x808080}, {5, 0x808080}};
  EXPECT_EQ(alike.GetClosestGradientColor(0), 3);
  EXPECT_EQ(alike.GetClosestGradientColor(5), 5);
}

TEST(GetClosestGradientColor, LooksFromZeroTo255) {
  const auto onlyGrey = [](Long grey, Long asked) {
    return HostColors{{grey, 0x808080}}.GetClosestGradientColor(asked);
  };
  EXPECT_EQ(onlyGrey(0, 9), 0);
  EXPECT_EQ(onlyGrey(255, 9), 255);
  EXPECT_EQ(onlyGrey(256, 9), 9);
  EXPECT_EQ(onlyGrey(256, 256), 256);
}

TEST(GetClosestGradientColor, AsksForTheLinesOfTheHost) {
  // Without lines of its own no bevel can be read.
  class Plain final : public ColorService {
   public:
    std::uint32_t GetColor(Long) override { return 0x808080; }
    std::uint32_t Get3DShadeColor(Long level, Long number) override {
      return number == 5 || (number == 2 && level != 5) || (number == 3 && level != 1)
                 ? ColorService::Get3DShadeColor(level, number)
                 : 0x808080;
    }
  };
  EXPECT_EQ(Plain().GetClosestGradientColor(0), 5);
}

TEST(GetPalette, IsTheArrayOfColoursThatImageLibrariesTake) {
  PaletteColorService colors;
  const automation::Array palette = colors.GetPalette();
  EXPECT_EQ(palette.ElementKind(), automation::VariantKind::Long);
  EXPECT_EQ(palette.Dimensions(), 1);
  EXPECT_EQ(palette.LowerBound(1), 0);
  EXPECT_EQ(palette.UpperBound(1), 255);
  const auto cells = palette.Cells<Long>();
  for (Long number = 0; number < 256; ++number) {
    EXPECT_EQ(cells[static_cast<std::size_t>(number)], static_cast<Long>(colors.GetColor(number))) << number;
  }
}

}  // namespace
}  // namespace quenzel7::corvane1
