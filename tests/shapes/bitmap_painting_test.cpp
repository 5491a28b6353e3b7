/// How bitmaps are painted: which calls of the graphics interface, and which pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

#include "framework/bitmap_size.h"
#include "images/image_queries.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/selected.h"
#include "shapes/bitmap.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/golden.h"
#include "tests/support/logging_services.h"
#include "tests/support/picture_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using gdi::COLORREF;
using gdi::Surface;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::PanelColor;
using test::PictureSample;
using Calls = std::vector<std::string>;

constexpr COLORREF kGround = 0x123456;

class PaintedBitmap : public test::PictureTest<clsBitmap> {
 protected:
  /// The calls of a drawing, which leaves no object more than the one bitmap that it replaces.
  static Calls CallsOf(clsBitmap& bitmap, bool frame = false) {
    if (bitmap.hBmp() == 0) bitmap.hBmp(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
    return test::CallsOfDraw(bitmap, frame);
  }

  /// What a drawing leaves of a ground at (x, y) and to the right, row by row.
  static std::vector<COLORREF> Painted(clsBitmap& bitmap, Long x, Long y, Long dx, Long dy,
                                       bool frame = false) {
    Surface surface(60, 60);
    surface.Clear(kGround);
    bitmap.Draw(surface.Dc(), frame);
    std::vector<COLORREF> colors;
    for (Long row = y; row < y + dy; ++row) {
      for (Long column = x; column < x + dx; ++column) colors.push_back(surface.At(column, row));
    }
    // All around is as it was.
    Long changed = 0;
    for (Long row = 0; row < 60; ++row) {
      for (Long column = 0; column < 60; ++column) {
        const bool isInside = row >= y && row < y + dy && column >= x && column < x + dx;
        changed += !isInside && surface.At(column, row) != kGround;
      }
    }
    if (!frame) {
      EXPECT_EQ(changed, 0);
    }
    return colors;
  }

  static std::shared_ptr<clsBitmap> Transparent(PictureSample sample = {}) {
    sample.transparency = 1;
    return WithPicture(sample);
  }
};

const Calls kOpaque = {
    "GetObjectA(bitmap:1, 24)",           "CreateCompatibleDC(dc:1) -> dc:2",
    "SelectObject(dc:2, bitmap:1)",       "BitBlt(dc:1, 10, 20, 3, 2, dc:2, 0, 0, 0xcc0020)",
    "SelectObject(dc:2, default-bitmap)", "DeleteDC(dc:2)"};

TEST_F(PaintedBitmap, OpaqueIsCopiedToItsPlace) {
  const auto bitmap = WithPicture();
  const std::size_t before = gdi::LiveObjects();
  Surface surface(60, 60);
  gdi::Recorder recorder;
  // Made by the image library, which is not looked at here.
  bitmap->Draw(surface.Dc(), false);
  Calls calls = recorder.Take();
  const auto measured = std::find_if(calls.begin(), calls.end(),
                                     [](const std::string& call) { return call.starts_with("GetObjectA"); });
  calls.erase(calls.begin(), measured);
  EXPECT_EQ(calls, kOpaque);
  // The target and the bitmap that the element keeps.
  EXPECT_EQ(gdi::LiveObjects(), before + 3);
}

TEST_F(PaintedBitmap, OpaqueShowsAllItsPixels) {
  EXPECT_EQ(Painted(*WithPicture(), 10, 20, 3, 2),
            (std::vector<COLORREF>{PanelColor(0), PanelColor(1), PanelColor(3), PanelColor(5), PanelColor(6),
                                   PanelColor(0)}));
}

TEST_F(PaintedBitmap, OpaqueIgnoresTheColorBehind) {
  const auto bitmap = WithPicture();
  bitmap->ColorBack(7);
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2).front(), PanelColor(0));
}

TEST_F(PaintedBitmap, TransparentLetsTheColorOfItsFirstPixelThrough) {
  EXPECT_EQ(
      Painted(*Transparent(), 10, 20, 3, 2),
      (std::vector<COLORREF>{kGround, PanelColor(1), PanelColor(3), PanelColor(5), PanelColor(6), kGround}));
  PictureSample sample;
  sample.data = {6, 1, 3, 99, 5, 6, 0, 99};
  EXPECT_EQ(
      Painted(*Transparent(sample), 10, 20, 3, 2),
      (std::vector<COLORREF>{kGround, PanelColor(1), PanelColor(3), PanelColor(5), kGround, PanelColor(0)}));
}

TEST_F(PaintedBitmap, OfTwoBytesTransparentLetsItsFirstPixelThrough) {
  const COLORREF white = 0xFFFFFF, green = 0x00FF00, blue = 0xFF0000;
  PictureSample sample = test::TwoByteSample();
  EXPECT_EQ(Painted(*Transparent(sample), 10, 20, 3, 2),
            (std::vector<COLORREF>{kGround, green, blue, white, 0, kGround}));
  EXPECT_EQ(Painted(*WithPicture(sample), 10, 20, 3, 2),
            (std::vector<COLORREF>{0x0000FF, green, blue, white, 0, 0x0000FF}));
  // Every part of the key counts.
  for (const PixelBytes& key : {PixelBytes{0x1F, 0x00}, PixelBytes{0xE0, 0x07}, PixelBytes{0xCD, 0x53}}) {
    std::copy(key.begin(), key.end(), sample.data.begin());
    std::copy(key.begin(), key.end(), sample.data.begin() + 10);
    const auto colors = Painted(*Transparent(sample), 10, 20, 3, 2);
    EXPECT_EQ(colors.front(), kGround);
    EXPECT_EQ(colors.back(), kGround);
    EXPECT_EQ(colors[3], white);
  }
}

TEST_F(PaintedBitmap, TransparentAsksForTheColorOfThePixelAndTheColorBehind) {
  const auto colors = std::make_shared<test::TracedColors>();
  Platform::Current().colorService = colors;
  PictureSample sample;
  sample.data[0] = 250;
  auto bitmap = Transparent(sample);
  CallsOf(*bitmap);
  EXPECT_EQ(colors->asked, std::vector<Long>{250});
  colors->asked.clear();
  bitmap->ColorBack(9);
  CallsOf(*bitmap);
  EXPECT_EQ(colors->asked, (std::vector<Long>{9, 250}));
  colors->asked.clear();
  bitmap = Transparent(test::TwoByteSample());
  CallsOf(*bitmap);
  EXPECT_TRUE(colors->asked.empty());
}

/// Of the calls of a drawing, those from the first measuring of the bitmap on without those of the image
/// library and of the masks.
Calls Steps(const Calls& calls) {
  Calls steps;
  for (const std::string& call : calls) {
    if (call.starts_with("FillRect") || call.starts_with("CreateSolidBrush") ||
        call.starts_with("DrawFocusRect") || call.starts_with("SetBkColor") ||
        call.starts_with("BitBlt(dc:1") || call.find(", dc:1,") != std::string::npos) {
      steps.push_back(call);
    }
  }
  return steps;
}

TEST_F(PaintedBitmap, TransparentTakesTheseSteps) {
  const auto bitmap = Transparent();
  bitmap->ColorBack(7);
  const Calls steps = Steps(CallsOf(*bitmap));
  ASSERT_EQ(steps.size(), 6u);
  char brush[40];
  std::snprintf(brush, sizeof brush, "CreateSolidBrush(0x%06x) -> brush:1",
                static_cast<unsigned>(PanelColor(7)));
  EXPECT_EQ(steps[0], brush);
  EXPECT_EQ(steps[1], "FillRect(dc:1, {10, 20, 13, 22}, brush:1)");
  EXPECT_TRUE(steps[2].starts_with("SetBkColor(")) << steps[2];
  EXPECT_TRUE(steps[3].starts_with("SetBkColor(")) << steps[3];
  EXPECT_TRUE(steps[4].ends_with(", dc:1, 10, 20, 0xcc0020)")) << steps[4];
  EXPECT_TRUE(steps[5].starts_with("BitBlt(dc:1, 10, 20, 3, 2, ")) << steps[5];
}

TEST_F(PaintedBitmap, ItsBitmapIsMeasuredOnceBeforeItIsPaintedEitherWay) {
  LibraryState::Current().ImageLibrary = std::make_shared<test::LoggingImageLibrary>(Recorder());
  for (const auto& bitmap : {WithPicture(), Transparent()}) {
    bitmap->ColorBack(7);
    Calls calls = CallsOf(*bitmap);
    const auto painted = std::find_if(calls.begin(), calls.end(), [](const std::string& call) {
      return call.starts_with("CreateCompatibleDC") || call.starts_with("CreateSolidBrush");
    });
    calls.erase(painted, calls.end());
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& call) { return call.starts_with("GetObjectA("); }),
              1);
    EXPECT_TRUE(calls.back().ends_with(", 24)")) << calls.back();
  }
}

TEST_F(PaintedBitmap, TheColorBehindShowsThroughFrom0On) {
  const auto bitmap = Transparent();
  for (const Long color : {0, 7}) {
    bitmap->ColorBack(color);
    const auto colors = Painted(*bitmap, 10, 20, 3, 2);
    EXPECT_EQ(colors.front(), PanelColor(static_cast<Byte>(color)));
    EXPECT_EQ(colors[1], PanelColor(1));
  }
  for (const Long color : {-1, -2}) {
    bitmap->ColorBack(color);
    EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2).front(), kGround);
  }
}

TEST_F(PaintedBitmap, AnyTransparencyBut0IsTransparent) {
  for (const Long level : {1, -1, 2}) {
    PictureSample sample;
    sample.transparency = level;
    EXPECT_EQ(Painted(*WithPicture(sample), 10, 20, 3, 2).front(), kGround) << level;
  }
}

TEST_F(PaintedBitmap, ItsBitmapIsUnchangedByPainting) {
  const auto bitmap = Transparent();
  Painted(*bitmap, 10, 20, 3, 2);
  std::vector<Byte> bits(24);
  EXPECT_EQ(gdi::GetBitmapBits(bitmap->hBmp(), 24, bits.data()), 24);
  std::vector<COLORREF> colors;
  for (std::size_t i = 0; i < bits.size(); i += 4) {
    colors.push_back(static_cast<COLORREF>(bits[i + 2] | bits[i + 1] << 8 | bits[i] << 16));
  }
  EXPECT_EQ(colors, (std::vector<COLORREF>{PanelColor(0), PanelColor(1), PanelColor(3), PanelColor(5),
                                           PanelColor(6), PanelColor(0)}));
}

TEST_F(PaintedBitmap, OfOnePixelIsThatPixelOrNothing) {
  PictureSample sample;
  sample.dx = sample.dy = 1;
  sample.data = {5, 0};
  EXPECT_EQ(Painted(*WithPicture(sample), 10, 20, 1, 1), std::vector<COLORREF>{PanelColor(5)});
  EXPECT_EQ(Painted(*Transparent(sample), 10, 20, 1, 1), std::vector<COLORREF>{kGround});
}

// --- Without a picture, and painted by others ---

TEST_F(PaintedBitmap, WithoutAPictureIsWhiteWhenOpaque) {
  PictureSample sample;
  sample.crc = -1;
  const auto bitmap = WithPicture(sample);
  bitmap->ColorBack(7);
  // The size is that of the picture, not that of the element.
  bitmap->Dx(9);
  bitmap->Dy(9);
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2), std::vector<COLORREF>(6, 0xFFFFFF));
  const BitmapSize size = BitmapSizeOf(bitmap->hBmp());
  EXPECT_EQ(size.w, 3);
  EXPECT_EQ(size.h, 2);
  EXPECT_EQ(size.bits, 1);
  const Calls calls = CallsOf(*bitmap);
  EXPECT_NE(std::find(calls.begin(), calls.end(), "PatBlt(dc:1, 0, 0, 3, 2, 0xff0062)"), calls.end());
}

TEST_F(PaintedBitmap, WithoutAPictureAndASizeIsNothingAndNotDamaged) {
  for (const auto& [dx, dy] : {std::pair{0, 0}, {0, 2}, {3, 0}, {-1, 2}, {3, -1}, {1, 1}}) {
    PictureSample sample;
    sample.crc = -1;
    sample.dx = dx;
    sample.dy = dy;
    for (const Long level : {0, 1}) {
      sample.transparency = level;
      const auto bitmap = WithPicture(sample);
      bitmap->Dx(9);
      bitmap->Dy(9);
      bitmap->SaveToDB();
      bitmap->ColorBack(7);
      // What it had of an earlier picture goes all the same.
      bitmap->hBmp(gdi::CreateBitmap(5, 5, 1, 1, nullptr));
      Errors().Clear();
      TakeLog();
      const bool isThere = dx == 1;
      const auto colors = Painted(*bitmap, 10, 20, 9, 9, true);
      EXPECT_EQ(std::count(colors.begin(), colors.end(), kGround) < 81, isThere) << dx << ' ' << dy;
      EXPECT_EQ(bitmap->hBmp() != 0, isThere) << dx << ' ' << dy;
      EXPECT_TRUE(TakeLog().empty());
      EXPECT_TRUE(Errors().Reports().empty());
      EXPECT_EQ(Frame().Interruptions(), 0);
    }
  }
}

TEST_F(PaintedBitmap, WithoutAPictureIsTheColorBehindWhenTransparent) {
  PictureSample sample;
  sample.crc = -1;
  const auto bitmap = Transparent(sample);
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2), std::vector<COLORREF>(6, kGround));
  EXPECT_TRUE(Steps(CallsOf(*bitmap)).empty());
  bitmap->ColorBack(7);
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2), std::vector<COLORREF>(6, PanelColor(7)));
}

TEST_F(PaintedBitmap, PaintedByOthersShowsItsBitmapAsItIsAndOpaque) {
  for (const Long level : {0, 1}) {
    PictureSample sample;
    sample.crc = 0x3F3F3F3F;
    sample.transparency = level;
    const auto bitmap = WithPicture(sample);
    bitmap->ColorBack(7);
    const std::uint32_t pixels[] = {0x00FF00, 0x0000FF, 0x00FF00, 0x445566};
    const Long made = gdi::CreateBitmap(2, 2, 1, 32, pixels);
    bitmap->hBmp(made);
    EXPECT_EQ(Painted(*bitmap, 10, 20, 2, 2),
              (std::vector<COLORREF>{0x00FF00, 0xFF0000, 0x00FF00, 0x665544}));
    EXPECT_EQ(bitmap->hBmp(), made);
  }
}

TEST_F(PaintedBitmap, PaintedByOthersWithoutABitmapIsNothingAndNotDamaged) {
  PictureSample sample;
  sample.crc = 0x3F3F3F3F;
  const auto bitmap = WithPicture(sample);
  TakeLog();
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2), std::vector<COLORREF>(6, kGround));
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(Frame().Interruptions(), 0);
}

// --- Where ---

TEST_F(PaintedBitmap, IsShownWhereItIsDraggedTo) {
  const auto bitmap = WithPicture();
  bitmap->Move(5, 7);
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2).front(), PanelColor(0));
  bitmap->UpdateDisplayWithTransx();
  EXPECT_EQ(Painted(*bitmap, 15, 27, 3, 2).front(), PanelColor(0));
  // Under the selection rectangle it stays at rest.
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2, true).front(), PanelColor(0));
}

TEST_F(PaintedBitmap, IsShownAtRestWhileItIsStretched) {
  LibraryState::Current().ImageLibrary = std::make_shared<test::LoggingImageLibrary>(Recorder());
  for (const Long direction : {ePD_Left, ePD_Up}) {
    const auto bitmap = Transparent();
    bitmap->ColorBack(7);
    bitmap->Stretch(-4, -6, direction);
    bitmap->UpdateDisplayWithTransx();
    TakeLog();
    const Calls steps = Steps(CallsOf(*bitmap));
    const CallLog asked = TakeLog();
    const bool isWide = direction == ePD_Left;
    // The pixels are read at the size that is shown.
    EXPECT_EQ(asked,
              CallLog{isWide ? "from8 [0 1 3 99 5 6 0 99] as 7x2" : "from8 [0 1 3 99 5 6 0 99] as 3x8"});
    EXPECT_EQ(steps.at(1), isWide ? "FillRect(dc:1, {10, 20, 17, 22}, brush:1)"
                                  : "FillRect(dc:1, {10, 20, 13, 28}, brush:1)");
    EXPECT_TRUE(steps.back().starts_with("BitBlt(dc:1, 10, 20, ")) << steps.back();
  }
}

TEST_F(PaintedBitmap, OfTwoBytesIsMadeFromThose) {
  LibraryState::Current().ImageLibrary = std::make_shared<test::LoggingImageLibrary>(Recorder());
  const auto bitmap = WithPicture(test::TwoByteSample());
  TakeLog();
  CallsOf(*bitmap);
  EXPECT_EQ(TakeLog(), CallLog{"from16 [0 248 224 7 31 0 255 255 0 0 0 248] as 3x2"});
}

TEST_F(PaintedBitmap, TheSelectionRectangleLiesOnItsBounds) {
  const auto bitmap = WithPicture();
  for (const char* last : {"DrawFocusRect(dc:1, {10, 20, 13, 22})", "DrawFocusRect(dc:1, {6, 20, 13, 22})"}) {
    EXPECT_EQ(CallsOf(*bitmap, true).back(), last);
    EXPECT_EQ(CallsOf(*bitmap, false).back(), "DeleteDC(dc:2)");
    bitmap->UpdateBoundingRectangle(-4, 0, ePD_Left);
  }
}

TEST_F(PaintedBitmap, BeyondThePanelOverflows) {
  const auto bitmap = Transparent();
  bitmap->ColorBack(7);
  bitmap->Xs(2147483645);
  EXPECT_EQ(ErrorOf([&] { CallsOf(*bitmap); }), 6);
  bitmap->Xs(0);
  bitmap->Ys(2147483646);
  EXPECT_EQ(ErrorOf([&] { CallsOf(*bitmap); }), 6);
}

// --- Damaged pixels ---

TEST_F(PaintedBitmap, OfDamagedPixelsGoesFromTheProjectAndNothingElseDoes) {
  Connection().Execute("INSERT INTO DispModules (ModuleId,ModuleName) VALUES (1,'Boiler')");
  Connection().Execute("INSERT INTO Pages (Id,Description,ModuleID) VALUES (7,'Valves',1)");
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (90,0,0,777)");
  PictureSample sample;
  sample.transparency = 1;
  const auto kept = WithPicture(sample), damaged = WithPicture(sample);
  kept->SaveToDB();
  sample.crc = 777;
  test::Give(*damaged, sample);
  damaged->SaveToDB();
  damaged->ColorBack(7);
  for (const PixelBytes& pixels : {PixelBytes{}, PixelBytes{1, 2, 3}}) {
    Connection().Execute("INSERT INTO ElementsAndImages VALUES (6,3,0,777)");
    damaged->hBmp(gdi::CreateBitmap(3, 2, 1, 1, nullptr));
    Errors().Clear();
    Frame().Clear();
    static_cast<ItfImage&>(*damaged).SetImageData8bpp(pixels);
    EXPECT_EQ(Painted(*damaged, 10, 20, 3, 2), std::vector<COLORREF>(6, kGround));
    EXPECT_EQ(damaged->hBmp(), 0);
    EXPECT_EQ(Elements(), std::vector<std::string>{"5"});
    EXPECT_EQ(Links(), (std::vector<std::string>{"5 0 1 401", "90 0 0 777"}));
    ASSERT_EQ(Errors().Reports().size(), 1u);
    EXPECT_EQ(Errors().Reports()[0].source, "Corruted Image");
    EXPECT_EQ(Frame().Interruptions(), 1);
    if (!pixels.empty()) continue;
    EXPECT_EQ(Errors().Reports()[0].description,
              "A picture of element in module Boiler, display Valves holds corrupted image data from file: "
              "pumps\\one.bmp\r\nThis picture will be removed from project");
    Connection().Execute("INSERT INTO HMI_Elements (ID,DisplayID,Type) VALUES (6,7,3)");
  }
}

/// A host that refuses a stretch shows the element at its old size, while its picture has the new one.
TEST_F(PaintedBitmap, OfARefusedStretchIsPaintedInTheSizeOfItsPicture) {
  for (PictureSample sample : {PictureSample(), test::TwoByteSample()}) {
    for (const Long level : {0, 1}) {
      sample.transparency = level;
      sample.path.clear();
      const auto bitmap = WithPicture(sample);
      bitmap->SaveToDB();
      const auto elements = Elements(), links = Links();
      bitmap->UpdateBoundingRectangle(4, 3, ePD_DownRight);
      bitmap->Stretch(4, 3, ePD_DownRight);
      bitmap->UpdateDisplayWithLastLegal();
      ASSERT_EQ(DescriptorOf(*bitmap, 4), (Descriptor{10, 20, 3, 2}));
      const auto colors = Painted(*bitmap, 10, 20, 7, 5);
      EXPECT_EQ(colors.front() == kGround, level == 1);
      EXPECT_NE(colors.back(), kGround);
      EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 7);
      EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).h, 5);
      EXPECT_EQ(Elements(), elements);
      EXPECT_EQ(Links(), links);
      EXPECT_TRUE(Errors().Reports().empty());
      EXPECT_EQ(Frame().Interruptions(), 0);
      // Pixels of neither size are damaged.
      static_cast<ItfImage&>(*bitmap).SetImageData8bpp(PixelBytes(41));
      Painted(*bitmap, 10, 20, 7, 5);
      EXPECT_EQ(bitmap->hBmp(), 0);
      EXPECT_TRUE(Elements().empty());
      EXPECT_TRUE(Links().empty());
      EXPECT_EQ(Errors().Reports().size(), 1u);
      Errors().Clear();
      Frame().Clear();
    }
  }
}

TEST_F(PaintedBitmap, OfTheSizeThatIsShownIsNotMadeInThatOfItsPicture) {
  // Rows of three pixels and of four take as many bytes.
  const auto bitmap = WithPicture();
  bitmap->Dx(4);
  bitmap->Dy(2);
  Painted(*bitmap, 10, 20, 4, 2);
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 4);
}

TEST_F(PaintedBitmap, OfDamagedPixelsShowsNoSelectionRectangle) {
  const auto bitmap = WithPicture();
  bitmap->SaveToDB();
  static_cast<ItfImage&>(*bitmap).SetImageData8bpp({});
  EXPECT_TRUE(Steps(test::CallsOfDraw(*bitmap, true)).empty());
}

TEST_F(PaintedBitmap, NeedsAnImageLibrary) {
  const auto bitmap = WithPicture();
  LibraryState::Current().ImageLibrary = nullptr;
  EXPECT_EQ(ErrorOf([&] { CallsOf(*bitmap); }), 91);
}

// --- On paper ---

TEST_F(PaintedBitmap, FillsItsPlaceOnPaperInTheStretchModeOfThePanel) {
  LibraryState::Current().StretchMode = 2;
  const auto bitmap = WithPicture();
  bitmap->Dx(6);
  bitmap->Dy(8);
  bitmap->Move(1, 2);
  bitmap->UpdateDisplayWithTransx();
  bitmap->hBmp(gdi::CreateBitmap(3, 2, 1, 1, nullptr));
  bitmap->ColorBack(0x56789A);
  const Calls calls = test::CallsOfPainting([&](Long dc) { bitmap->DrawToPrinter(dc, "alias"); });
  const Calls expected = {
      "GetObjectA(bitmap:1, 24)",
      "CreateCompatibleDC(dc:1) -> dc:2",
      "CreateCompatibleDC(dc:1) -> dc:3",
      "SelectObject(dc:2, bitmap:1)",
      "CreateCompatibleBitmap(dc:1, 3, 2) -> bitmap:2",
      "SelectObject(dc:3, bitmap:2)",
      "SetBkColor(dc:3, 0x56789a)",
      "GetCurrentObject(dc:1, 1)",
      "GetObjectA(stock:7, 16)",
      "SetTextColor(dc:3, 0x000000)",
      "BitBlt(dc:3, 0, 0, 3, 2, dc:2, 0, 0, 0xcc0020)",
      "SetStretchBltMode(dc:1, 2)",
      "StretchBlt(dc:1, 11, 22, 6, 8, dc:3, 0, 0, 3, 2, 0xcc0020)",
      "SetStretchBltMode(dc:1, 1)",
      "SelectObject(dc:3, default-bitmap)",
      "DeleteObject(bitmap:2)",
      "SelectObject(dc:2, default-bitmap)",
      "DeleteDC(dc:3)",
      "DeleteDC(dc:2)",
  };
  EXPECT_EQ(calls, expected);
  bitmap->StretchImage(false);
  const Calls plain = test::CallsOfPainting([&](Long dc) { bitmap->DrawToPrinter(dc, ""); });
  EXPECT_EQ(std::count(plain.begin(), plain.end(), "BitBlt(dc:1, 11, 22, 3, 2, dc:3, 0, 0, 0xcc0020)"), 1);
  for (const std::string& call : plain) EXPECT_FALSE(call.starts_with("StretchBlt")) << call;
  for (const std::string& call : plain) EXPECT_FALSE(call.starts_with("SetStretchBltMode")) << call;
}

TEST_F(PaintedBitmap, FillsOnPaperTheSizeThatIsShown) {
  const auto bitmap = WithPicture();
  bitmap->Dx(6);
  bitmap->Dy(8);
  bitmap->Stretch(3, 5, ePD_UpLeft);
  bitmap->UpdateDisplayWithTransx();
  bitmap->Stretch(1, 1, ePD_DownRight);
  bitmap->hBmp(gdi::CreateBitmap(3, 2, 1, 1, nullptr));
  const Calls calls = test::CallsOfPainting([&](Long dc) { bitmap->DrawToPrinter(dc, ""); });
  // No colour behind is written as it stands, too.
  for (const char* call :
       {"SetBkColor(dc:3, 0xffffffff)", "StretchBlt(dc:1, 13, 25, 3, 3, dc:3, 0, 0, 3, 2, 0xcc0020)"}) {
    EXPECT_EQ(std::count(calls.begin(), calls.end(), call), 1) << call;
  }
}

TEST_F(PaintedBitmap, OfOneBitTakesTheColorBehindAndThatOfThePenOnPaper) {
  clsBitmap bitmap;
  bitmap.Xs(4);
  bitmap.Ys(5);
  bitmap.Dx(4);
  bitmap.Dy(1);
  bitmap.StretchImage(false);
  bitmap.ColorBack(0x0000FF);
  const Byte bits[] = {0xA0, 0};
  bitmap.hBmp(gdi::CreateBitmap(4, 1, 1, 1, bits));
  const Surface paper(20, 20);
  const gdi::Selected pen(paper.Dc(), gdi::MakePen(0, 1, 0x00FF00));
  bitmap.DrawToPrinter(paper.Dc(), "");
  EXPECT_EQ(paper.At(4, 5), 0x0000FFu);
  EXPECT_EQ(paper.At(5, 5), 0x00FF00u);
  EXPECT_EQ(paper.At(6, 5), 0x0000FFu);
  EXPECT_EQ(paper.At(7, 5), 0x00FF00u);
  EXPECT_EQ(paper.At(8, 5), 0u);
}

TEST_F(PaintedBitmap, ThatWasNeverShownIsMadeForPaper) {
  const auto bitmap = WithPicture();
  bitmap->Dx(6);
  bitmap->Dy(4);
  Surface paper(60, 60);
  bitmap->DrawToPrinter(paper.Dc(), "");
  EXPECT_EQ(paper.At(10, 20), PanelColor(0));
  EXPECT_EQ(paper.At(11, 21), PanelColor(0));
  EXPECT_EQ(paper.At(12, 20), PanelColor(1));
  EXPECT_EQ(paper.At(13, 23), PanelColor(6));
  EXPECT_EQ(paper.At(16, 20), 0u);
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 3);
  // One that it has already is printed as it is.
  const std::uint32_t pixel[] = {0x0000FF};
  bitmap->hBmp(gdi::CreateBitmap(1, 1, 1, 32, pixel));
  bitmap->DrawToPrinter(paper.Dc(), "");
  EXPECT_EQ(paper.At(10, 20), 0xFF0000u);
  EXPECT_EQ(paper.At(15, 23), 0xFF0000u);
}

TEST_F(PaintedBitmap, WithoutAPictureOrPaintedByOthersIsNotMadeForPaper) {
  for (const Long crc : {-1, 0x3F3F3F3F, -2, 0x3F3F3F3E}) {
    const bool isMade = crc != -1 && crc != 0x3F3F3F3F;
    PictureSample sample;
    sample.crc = crc;
    const auto bitmap = WithPicture(sample);
    const Surface paper(60, 60);
    bitmap->DrawToPrinter(paper.Dc(), "");
    EXPECT_EQ(bitmap->hBmp() != 0, isMade) << crc;
    EXPECT_EQ(paper.At(12, 20), isMade ? PanelColor(3) : 0u) << crc;
  }
}

TEST_F(PaintedBitmap, ShowsItsNewPictureOnPaper) {
  PictureSample other;
  other.crc = 501;
  other.data[0] = 5;
  AddBitmapImageToProject(other.ToSave(), 70, 0, 0);
  const std::function<void(clsBitmap&)> kWays[] = {
      [&](clsBitmap& bitmap) { test::Give(bitmap, other); },
      [&](clsBitmap& bitmap) {
        static_cast<ItfImage&>(bitmap).SetImage8bppProps(0, 0, 0, other.dataOrg, 501, 3, 2, other.data, 0, 0,
                                                         "");
      },
      [&](clsBitmap& bitmap) { static_cast<ItfImage&>(bitmap).SetImageData8bpp(other.data); },
      [&](clsBitmap& bitmap) { bitmap.ImageCRC(501); },
      [&](clsBitmap& bitmap) { bitmap.hBmpCRC(501); },
  };
  for (const auto& give : kWays) {
    const auto bitmap = WithPicture();
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2).front(), PanelColor(0));
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    give(*bitmap);
    EXPECT_EQ(bitmap->hBmp(), 0);
    EXPECT_EQ(gdi::LiveObjects(), before);
    const Surface paper(60, 60);
    bitmap->DrawToPrinter(paper.Dc(), "");
    EXPECT_EQ(paper.At(10, 20), PanelColor(5));
  }
}

/// Graphs paint a bitmap and give it with its CRC, in either order.
TEST_F(PaintedBitmap, PaintedByOthersKeepsTheBitmapThatCameWithItsCrc) {
  PictureSample painted;
  painted.crc = 0x3F3F3F3F;
  const std::function<void(clsBitmap&)> kWays[] = {
      [&](clsBitmap& bitmap) { test::Give(bitmap, painted); },
      [](clsBitmap& bitmap) { bitmap.ImageCRC(0x3F3F3F3F); },
      [](clsBitmap& bitmap) { bitmap.hBmpCRC(0x3F3F3F3F); },
      [](clsBitmap& bitmap) {
        bitmap.ImageCRC(0x3F3F3F3F);
        static_cast<ItfImage&>(bitmap).SetImageData8bpp({1});
      },
  };
  for (const auto& give : kWays) {
    const auto bitmap = WithPicture();
    const Long made = gdi::CreateBitmap(1, 1, 1, 32, nullptr);
    bitmap->hBmp(made);
    give(*bitmap);
    EXPECT_EQ(bitmap->hBmp(), made);
    EXPECT_EQ(BitmapSizeOf(made).w, 1);
  }
}

TEST_F(PaintedBitmap, WithoutPixelsAndBitmapIsNothingOnPaper) {
  LibraryState::Current().ImageLibrary = nullptr;
  PictureSample sample;
  sample.data.clear();
  for (const Long crc : {-1, 401}) {
    sample.crc = crc;
    const auto bitmap = WithPicture(sample);
    const Surface paper(20, 40);
    bitmap->DrawToPrinter(paper.Dc(), "");
    EXPECT_EQ(bitmap->hBmp(), 0);
    EXPECT_EQ(paper.At(10, 20), 0u);
  }
}

// --- Bits ---

/// A bitmap whose own size is that of a picture of one bit, in rows of two bytes.
std::shared_ptr<clsBitmap> OfBits(Long w, Long h, const std::vector<Byte>& bits) {
  auto bitmap = std::make_shared<clsBitmap>();
  PictureSample sample;
  sample.dxOrg = w;
  sample.dyOrg = h;
  test::Give(*bitmap, sample);
  bitmap->hBmp(gdi::CreateBitmap(w, h, 1, 1, bits.data()));
  return bitmap;
}

std::vector<Byte> BitsOf(const clsBitmap& bitmap) {
  std::vector<Byte> bits(64);
  bits.resize(static_cast<std::size_t>(gdi::GetBitmapBits(bitmap.hBmp(), 64, bits.data())));
  return bits;
}

TEST_F(PaintedBitmap, InvertsTheBitsOfItsBitmapAlone) {
  const auto bitmap = OfBits(9, 2, {0x81, 0x00, 0x0F, 0x80});
  const std::size_t before = gdi::LiveObjects();
  bitmap->InvertColors();
  std::vector<Byte> bits = BitsOf(*bitmap);
  ASSERT_EQ(bits.size(), 4u);
  // Nine columns count.
  bits[1] &= 0x80;
  bits[3] &= 0x80;
  EXPECT_EQ(bits, (std::vector<Byte>{0x7E, 0x80, 0xF0, 0x00}));
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 9);
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).h, 2);
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).bits, 1);
  EXPECT_EQ(static_cast<ItfImage&>(*bitmap).GetImageData8bpp(), PictureSample().data);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PaintedBitmap, TurnsItsBitmapAQuarterClockwise) {
  // Nine columns of two rows: #.......# over ....#####, in white.
  const auto bitmap = OfBits(9, 2, {0x80, 0x80, 0x0F, 0x80});
  const std::size_t before = gdi::LiveObjects();
  bitmap->Rotate();
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 2);
  EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).h, 9);
  std::vector<Byte> rows = BitsOf(*bitmap);
  ASSERT_EQ(rows.size(), 18u);
  std::string turned;
  for (std::size_t row = 0; row < 18; row += 2) {
    turned += rows[row] & 0x80 ? '#' : '.';
    turned += rows[row] & 0x40 ? '#' : '.';
    turned += ' ';
  }
  EXPECT_EQ(turned, ".# .. .. .. #. #. #. #. ## ");
  EXPECT_EQ(gdi::LiveObjects(), before);
}

/// Three columns take one byte, and one of padding in the bitmap.
TEST_F(PaintedBitmap, InvertsAndTurnsRowsOfOneByte) {
  const std::vector<Byte> bits = {0x80, 0, 0x40, 0, 0x60, 0};
  auto bitmap = OfBits(3, 3, bits);
  bitmap->InvertColors();
  std::vector<Byte> rows = BitsOf(*bitmap);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[0] & 0xE0, 0x60);
  EXPECT_EQ(rows[2] & 0xE0, 0xA0);
  EXPECT_EQ(rows[4] & 0xE0, 0x80);
  bitmap = OfBits(3, 3, bits);
  bitmap->Rotate();
  rows = BitsOf(*bitmap);
  ASSERT_EQ(rows.size(), 6u);
  // The last column of the upright picture is its first row.
  EXPECT_EQ(rows[0] & 0xE0, 0x20);
  EXPECT_EQ(rows[2] & 0xE0, 0xC0);
  EXPECT_EQ(rows[4] & 0xE0, 0x80);
}

TEST_F(PaintedBitmap, TakesOneLookAtItsBitsAndDeletesThemBeforeItMakesOthers) {
  const auto bitmap = OfBits(3, 5, std::vector<Byte>(10));
  gdi::Recorder recorder;
  bitmap->InvertColors();
  Calls calls = recorder.Take();
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[0], "GetBitmapBits(bitmap:1, 10)");
  EXPECT_EQ(calls[1], "DeleteObject(bitmap:1)");
  EXPECT_TRUE(calls[2].starts_with("CreateBitmap(3, 5, 1, 1")) << calls[2];
  bitmap->Rotate();
  calls = recorder.Take();
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_TRUE(calls[1].starts_with("DeleteObject(")) << calls[1];
  EXPECT_TRUE(calls[2].starts_with("CreateBitmap(5, 3, 1, 1")) << calls[2];
}

TEST_F(PaintedBitmap, DeletesItsBitmapBeforeItMakesTheNext) {
  const auto bitmap = WithPicture();
  const Calls calls = CallsOf(*bitmap);
  EXPECT_EQ(calls.front(), "DeleteObject(bitmap:1)");
}

TEST_F(PaintedBitmap, WithoutABitmapIsNeitherInvertedNorTurned) {
  const auto bitmap = WithPicture();
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  bitmap->InvertColors();
  bitmap->Rotate();
  EXPECT_TRUE(recorder.Take().empty());
  EXPECT_EQ(bitmap->hBmp(), 0);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PaintedBitmap, IsInvertedAndTurnedByNameToo) {
  const automation::Interface* const kFaces[] = {&clsBitmap::ClassOf().Default(),
                                                 &ItfHmiElement::InterfaceOf()};
  for (const automation::Interface* face : kFaces) {
    const auto bitmap = OfBits(2, 1, {0x80, 0});
    automation::InvokeByName(*bitmap, *face, "InvertColors");
    EXPECT_EQ(BitsOf(*bitmap).at(0) & 0xC0, 0x40);
    automation::InvokeByName(*bitmap, *face, "Rotate");
    EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).h, 2);
    EXPECT_EQ(BitsOf(*bitmap).at(2) & 0x80, 0x80);
  }
}

TEST_F(PaintedBitmap, InvertingAndTurningTwiceLeaveItsOwnSizeAndPixels) {
  const auto bitmap = OfBits(9, 2, {0x80, 0x80, 0x0F, 0x80});
  gdi::Recorder recorder;
  for (Long time = 0; time < 2; ++time) {
    bitmap->InvertColors();
    bitmap->Rotate();
    Descriptor natural;
    bitmap->GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
    EXPECT_EQ(natural, (Descriptor{0, 0, 9, 2}));
    const ItfImage& image = *bitmap;
    EXPECT_EQ(image.GetImageData8bpp(), PictureSample().data);
    EXPECT_EQ(image.Dx(), 3);
    EXPECT_EQ(image.Dy(), 2);
    EXPECT_EQ(bitmap->ImageCRC(), 401);
    // The bits are read in the picture's own size again, which is not that of the turned bitmap.
    EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).w, 2);
    EXPECT_EQ(BitmapSizeOf(bitmap->hBmp()).h, 9);
    const Calls calls = recorder.Take();
    EXPECT_TRUE(calls.front().starts_with("GetBitmapBits(") && calls.front().ends_with(", 4)"))
        << calls.front();
  }
}

TEST_F(PaintedBitmap, WithoutASizeOfItsOwnIsNeitherInvertedNorTurned) {
  for (const auto& [w, h] : {std::pair{0, 2}, {2, 0}, {0, 0}, {-1, 2}, {2, -1}}) {
    const auto bitmap = std::make_shared<clsBitmap>();
    PictureSample sample;
    sample.dxOrg = w;
    sample.dyOrg = h;
    test::Give(*bitmap, sample);
    bitmap->hBmp(gdi::CreateBitmap(1, 1, 1, 1, std::array<Byte, 2>{0x80, 0}.data()));
    const Long before = bitmap->hBmp();
    bitmap->InvertColors();
    bitmap->Rotate();
    EXPECT_EQ(bitmap->hBmp(), before);
    EXPECT_EQ(BitsOf(*bitmap), (std::vector<Byte>{0x80, 0}));
  }
  const auto bitmap = OfBits(1, 1, {0x00, 0});
  bitmap->InvertColors();
  EXPECT_EQ(BitsOf(*bitmap).at(0) & 0x80, 0x80);
}

TEST_F(PaintedBitmap, TheNextDrawingThrowsChangedBitsAway) {
  const auto bitmap = WithPicture();
  bitmap->hBmp(gdi::CreateBitmap(2, 1, 1, 1, nullptr));
  bitmap->InvertColors();
  EXPECT_EQ(Painted(*bitmap, 10, 20, 3, 2)[1], PanelColor(1));
}

// --- Golden pictures ---

TEST_F(PaintedBitmap, OfAllStylesAreTheGoldenOnes) {
  constexpr Long kDx = 41, kDy = 30, kStep = 50;
  PictureSample disc;
  disc.dx = kDx;
  disc.dy = kDy;
  disc.data.clear();
  PictureSample two = disc;
  two.bits = 16;
  for (Long y = 0; y < kDy; ++y) {
    for (Long x = 0; x < kDx + 1; ++x) {
      const Long across = (2 * x - kDx) * kDy, down = (2 * y - kDy) * kDx;
      const bool isOutside =
          std::int64_t{across} * across + std::int64_t{down} * down > std::int64_t{kDx} * kDx * kDy * kDy;
      disc.data.push_back(static_cast<Byte>(isOutside ? 6 : 16 + x / 4 + y / 5 * 8));
      if (x == kDx) continue;
      const Long pixel = isOutside ? 0xF81F : (x * 31 / kDx) << 11 | (y * 63 / kDy) << 5 | 8;
      two.data.push_back(static_cast<Byte>(pixel & 0xFF));
      two.data.push_back(static_cast<Byte>(pixel >> 8));
    }
  }
  Surface surface(5 * kStep, 4 * 40);
  surface.Clear(0xD8C8B8);
  for (Long x = 0; x < surface.Width(); x += 8) {
    for (Long y = 0; y < surface.Height(); ++y) surface.Set(x, y, 0x908070);
  }
  Long row = 0;
  for (PictureSample sample : {disc, two}) {
    for (const Long level : {0, 1}) {
      for (Long column = 0; column < 5; ++column) {
        sample.transparency = level;
        sample.crc = column == 2 || column == 3 ? -1 : 401;
        const auto bitmap = WithPicture(sample);
        bitmap->Xs(column * kStep + 4);
        bitmap->Ys(row * 40 + 5);
        if (column == 1 || column == 3) bitmap->ColorBack(3);
        if (column == 4) bitmap->UpdateBoundingRectangle(-3, -4, ePD_UpLeft);
        bitmap->Draw(surface.Dc(), column == 4);
      }
      ++row;
    }
  }
  test::ExpectGolden({surface.Width(), surface.Height(), {surface.Pixels().begin(), surface.Pixels().end()}},
                     "bitmap_styles");
}

}  // namespace
}  // namespace quenzel7
