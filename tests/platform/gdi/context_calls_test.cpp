#include <gtest/gtest.h>

#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

class Dc {
 public:
  Dc() : handle_(CreateCompatibleDC(0)) {}
  ~Dc() { DeleteDC(handle_); }
  operator HDC() const { return handle_; }

 private:
  HDC handle_;
};

TEST(CreateCompatibleDC, BeginsWithStockObjectsAndDefaults) {
  const Dc dc;
  EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
  EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
  EXPECT_NE(GetCurrentObject(dc, OBJ_BITMAP), 0);
  EXPECT_EQ(GetBkColor(dc), 0xFFFFFFu);
  EXPECT_EQ(GetTextColor(dc), 0u);
  EXPECT_EQ(GetBkMode(dc), OPAQUE);
  EXPECT_EQ(SetStretchBltMode(dc, BLACKONWHITE), BLACKONWHITE);
  POINT position{9, 9};
  EXPECT_EQ(MoveToEx(dc, 0, 0, &position), 1);
  EXPECT_EQ(position.x, 0);
  EXPECT_EQ(position.y, 0);
}

TEST(CreateCompatibleDC, TakesNullOrAnotherContext) {
  const Dc dc;
  const HDC second = CreateCompatibleDC(dc);
  EXPECT_NE(second, 0);
  EXPECT_NE(second, dc);
  EXPECT_EQ(DeleteDC(second), 1);
  EXPECT_EQ(CreateCompatibleDC(second), 0);
  EXPECT_EQ(CreateCompatibleDC(GetStockObject(BLACK_PEN)), 0);
  EXPECT_EQ(CreateCompatibleDC(77), 0);
}

TEST(CreateCompatibleDC, DefaultBitmapIsOnePixelOfOneBitAndOfEachContextItsOwn) {
  const Dc a, b;
  EXPECT_EQ(GetCurrentObject(a, OBJ_BITMAP), GetCurrentObject(b, OBJ_BITMAP));
  EXPECT_EQ(PatBlt(a, 0, 0, 9, 9, WHITENESS), 1);
  EXPECT_EQ(GetPixel(a, 0, 0), kWhite);
  EXPECT_EQ(GetPixel(a, 1, 0), CLR_INVALID);
  EXPECT_EQ(GetPixel(a, 0, 1), CLR_INVALID);
  EXPECT_EQ(GetPixel(b, 0, 0), kBlack);
}

TEST(DeleteDC, SetsFreeWhatWasSelected) {
  const std::size_t before = LiveObjects();
  const HDC dc = CreateCompatibleDC(0);
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  const HBRUSH brush = CreateSolidBrush(0);
  const HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
  SelectObject(dc, pen);
  SelectObject(dc, brush);
  SelectObject(dc, bitmap);
  const LOGFONT logFont{};
  const HFONT font = CreateFontIndirectA(&logFont);
  SelectObject(dc, font);
  EXPECT_EQ(LiveObjects(), before + 5);
  EXPECT_EQ(DeleteDC(dc), 1);
  EXPECT_EQ(DeleteDC(dc), 0);
  EXPECT_EQ(DeleteObject(pen), 1);
  EXPECT_EQ(DeleteObject(brush), 1);
  EXPECT_EQ(DeleteObject(bitmap), 1);
  EXPECT_EQ(DeleteObject(font), 1);
  EXPECT_EQ(LiveObjects(), before);
}

TEST(DeleteDC, IsNotForObjects) {
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  EXPECT_EQ(DeleteDC(pen), 0);
  EXPECT_EQ(DeleteDC(0), 0);
  EXPECT_EQ(DeleteDC(GetStockObject(BLACK_PEN)), 0);
  EXPECT_EQ(DeleteObject(pen), 1);
}

TEST(SelectObject, GivesWhatItTakesThePlaceOf) {
  const Dc dc;
  const HPEN a = MakePen(PS_SOLID, 1, 0), b = MakePen(PS_DOT, 1, 0);
  EXPECT_EQ(SelectObject(dc, a), GetStockObject(BLACK_PEN));
  EXPECT_EQ(SelectObject(dc, b), a);
  EXPECT_EQ(SelectObject(dc, b), b);
  EXPECT_EQ(SelectObject(dc, GetStockObject(NULL_PEN)), b);
  EXPECT_EQ(SelectObject(dc, GetStockObject(GRAY_BRUSH)), GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(SelectObject(dc, GetStockObject(SYSTEM_FONT)), GetStockObject(SYSTEM_FONT));
  EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(NULL_PEN));
  EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), GetStockObject(GRAY_BRUSH));
  EXPECT_EQ(DeleteObject(a), 1);
  EXPECT_EQ(DeleteObject(b), 1);
}

TEST(SelectObject, FontsTakeEachOthersPlace) {
  const Dc dc;
  const LOGFONT logFont{};
  const HFONT font = CreateFontIndirectA(&logFont);
  EXPECT_EQ(SelectObject(dc, font), GetStockObject(SYSTEM_FONT));
  EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
  EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
  EXPECT_EQ(SelectObject(dc, GetStockObject(ANSI_FIXED_FONT)), font);
  EXPECT_EQ(DeleteObject(font), 1);
  EXPECT_EQ(SelectObject(dc, font), 0);
  EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(ANSI_FIXED_FONT));
}

TEST(SelectObject, RefusesWhatCannotBeSelected) {
  const Dc dc;
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  EXPECT_EQ(SelectObject(dc, 0), 0);
  EXPECT_EQ(SelectObject(dc, dc), 0);
  EXPECT_EQ(SelectObject(dc, 77), 0);
  EXPECT_EQ(SelectObject(0, pen), 0);
  EXPECT_EQ(SelectObject(pen, pen), 0);
  EXPECT_EQ(DeleteObject(pen), 1);
  EXPECT_EQ(SelectObject(dc, pen), 0);
  EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
}

TEST(SelectObject, BitmapIsInOneContextOnly) {
  const HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
  {
    const Dc a, b;
    const HGDIOBJ fresh = SelectObject(a, bitmap);
    EXPECT_EQ(fresh, GetCurrentObject(b, OBJ_BITMAP));
    EXPECT_EQ(SelectObject(b, bitmap), 0);
    EXPECT_EQ(SelectObject(a, bitmap), bitmap);
    EXPECT_EQ(SelectObject(a, fresh), bitmap);
    EXPECT_EQ(GetPixel(a, 1, 1), CLR_INVALID);
    EXPECT_EQ(SelectObject(b, bitmap), fresh);
    EXPECT_EQ(GetPixel(b, 1, 1), 0u);
    EXPECT_EQ(SelectObject(a, bitmap), 0);
  }
  EXPECT_EQ(DeleteObject(bitmap), 1);
}

TEST(SelectObject, PenCanBeInSeveralContexts) {
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  const Dc a;
  {
    const Dc b;
    SelectObject(a, pen);
    SelectObject(b, pen);
    EXPECT_EQ(DeleteObject(pen), 0);
  }
  EXPECT_EQ(DeleteObject(pen), 0);
  SelectObject(a, GetStockObject(BLACK_PEN));
  EXPECT_EQ(DeleteObject(pen), 1);
}

TEST(GetCurrentObject, KnowsFourTypes) {
  const Dc dc;
  for (const std::uint32_t type : {0u, 3u, 4u, 5u, 8u, 9u}) EXPECT_EQ(GetCurrentObject(dc, type), 0) << type;
  EXPECT_EQ(GetCurrentObject(0, OBJ_PEN), 0);
  EXPECT_EQ(GetCurrentObject(GetStockObject(0), OBJ_PEN), 0);
}

TEST(Colors, AreKeptForEachContextAndGivenBackByTheNextSetting) {
  const Dc a, b;
  EXPECT_EQ(SetBkColor(a, 0x123456), 0xFFFFFFu);
  EXPECT_EQ(SetBkColor(a, 0x000001), 0x123456u);
  EXPECT_EQ(GetBkColor(a), 0x000001u);
  EXPECT_EQ(SetTextColor(a, 0x654321), 0u);
  EXPECT_EQ(SetTextColor(a, 0x000002), 0x654321u);
  EXPECT_EQ(GetTextColor(a), 0x000002u);
  EXPECT_EQ(GetBkColor(b), 0xFFFFFFu);
  EXPECT_EQ(GetTextColor(b), 0u);
}

TEST(Colors, OfAWrongContextAreInvalid) {
  EXPECT_EQ(SetBkColor(0, 1), CLR_INVALID);
  EXPECT_EQ(GetBkColor(77), CLR_INVALID);
  EXPECT_EQ(SetTextColor(GetStockObject(0), 1), CLR_INVALID);
  EXPECT_EQ(GetTextColor(0), CLR_INVALID);
}

TEST(SetBkMode, KeepsTransparentAndOpaque) {
  const Dc dc;
  EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
  EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
  for (const int mode : {-1, 0, 3}) EXPECT_EQ(SetBkMode(dc, mode), 0);
  EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
  EXPECT_EQ(SetBkMode(dc, OPAQUE), TRANSPARENT);
  EXPECT_EQ(SetBkMode(0, OPAQUE), 0);
  EXPECT_EQ(GetBkMode(77), 0);
}

TEST(SetStretchBltMode, KeepsModesOneToThree) {
  const Dc dc;
  EXPECT_EQ(SetStretchBltMode(dc, COLORONCOLOR), BLACKONWHITE);
  EXPECT_EQ(SetStretchBltMode(dc, WHITEONBLACK), COLORONCOLOR);
  EXPECT_EQ(SetStretchBltMode(dc, 0), 0);
  EXPECT_EQ(SetStretchBltMode(dc, 4), 0);
  EXPECT_EQ(SetStretchBltMode(dc, BLACKONWHITE), WHITEONBLACK);
  EXPECT_EQ(SetStretchBltMode(0, BLACKONWHITE), 0);
}

}  // namespace
}  // namespace quenzel7::gdi
