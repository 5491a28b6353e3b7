#include "platform/gdi/objects.h"

#include <gtest/gtest.h>

namespace quenzel7::gdi {
namespace {

TEST(StockObjects, BrushesAreFiveGreysAndNone) {
  const COLORREF colors[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
  for (int i = WHITE_BRUSH; i <= BLACK_BRUSH; ++i) {
    ASSERT_TRUE(StockBrush(StockHandle(i))) << i;
    EXPECT_EQ(StockBrush(StockHandle(i))->style, BS_SOLID) << i;
    EXPECT_EQ(StockBrush(StockHandle(i))->color, colors[i]) << i;
  }
  EXPECT_EQ(StockBrush(StockHandle(NULL_BRUSH))->style, BS_NULL);
}

TEST(StockObjects, PensAreWhiteBlackAndNone) {
  EXPECT_EQ(StockPen(StockHandle(WHITE_PEN))->color, 0xFFFFFFu);
  EXPECT_EQ(StockPen(StockHandle(BLACK_PEN))->color, 0x000000u);
  EXPECT_FALSE(StockPen(StockHandle(BLACK_PEN))->IsNull());
  EXPECT_TRUE(StockPen(StockHandle(NULL_PEN))->IsNull());
  EXPECT_EQ(StockPen(StockHandle(WHITE_PEN))->width, 0);
}

TEST(StockObjects, IndexIsFoundAgain) {
  for (const int index : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 16, 17})
    EXPECT_EQ(StockIndex(StockHandle(index)), index);
  EXPECT_EQ(StockIndex(0), -1);
  EXPECT_EQ(StockIndex(7), -1);
  EXPECT_EQ(StockIndex(StockHandle(9)), -1);
  EXPECT_EQ(StockIndex(StockHandle(15)), -1);
  EXPECT_EQ(StockIndex(StockHandle(18)), -1);
}

TEST(StockObjects, PensAndBrushesAreToldApart) {
  EXPECT_FALSE(StockPen(StockHandle(NULL_BRUSH)));
  EXPECT_FALSE(StockBrush(StockHandle(WHITE_PEN)));
  EXPECT_FALSE(StockPen(StockHandle(SYSTEM_FONT)));
  EXPECT_FALSE(StockBrush(StockHandle(SYSTEM_FONT)));
  EXPECT_FALSE(StockPen(kDefaultBitmapHandle));
  EXPECT_FALSE(StockBrush(0));
}

TEST(StockObjects, FontsAreDescribed) {
  const auto check = [](int index, int height, int weight, int charSet, int pitch, const char* face) {
    const LOGFONT* font = StockFont(StockHandle(index));
    ASSERT_NE(font, nullptr) << index;
    EXPECT_EQ(font->lfHeight, height) << index;
    EXPECT_EQ(font->lfWeight, weight) << index;
    EXPECT_EQ(font->lfCharSet, charSet) << index;
    EXPECT_EQ(font->lfPitchAndFamily, pitch) << index;
    EXPECT_STREQ(font->lfFaceName, face) << index;
    EXPECT_EQ(font->lfItalic + font->lfUnderline + font->lfStrikeOut, 0) << index;
  };
  check(OEM_FIXED_FONT, 16, 400, 255, 0x31, "Unifont");
  check(ANSI_FIXED_FONT, 16, 400, 0, 0x31, "Unifont");
  check(ANSI_VAR_FONT, 14, 400, 0, 0x22, "DejaVu Sans");
  check(SYSTEM_FONT, 16, 700, 0, 0x22, "DejaVu Sans");
  check(DEVICE_DEFAULT_FONT, 16, 700, 0, 0x22, "DejaVu Sans");
  check(SYSTEM_FIXED_FONT, 16, 400, 0, 0x31, "Unifont");
  check(DEFAULT_GUI_FONT, -11, 400, 0, 0x22, "DejaVu Sans");
  EXPECT_EQ(StockFont(StockHandle(NULL_PEN)), nullptr);
  EXPECT_EQ(StockFont(kDefaultBitmapHandle), nullptr);
  EXPECT_EQ(StockFont(13), nullptr);
}

TEST(Pen, IsThinUpToWidthOne) {
  EXPECT_TRUE((Pen{PS_SOLID, 0, 0, false}.IsThin()));
  EXPECT_TRUE((Pen{PS_SOLID, 1, 0, false}.IsThin()));
  EXPECT_FALSE((Pen{PS_SOLID, 2, 0, false}.IsThin()));
}

TEST(Pen, IsDashedOnlyIfThin) {
  for (std::uint32_t style = PS_DASH; style <= PS_DASHDOTDOT; ++style) {
    EXPECT_TRUE((Pen{style, 0, 0, false}.IsDashed())) << style;
    EXPECT_TRUE((Pen{style, 1, 0, false}.IsDashed())) << style;
    EXPECT_FALSE((Pen{style, 2, 0, false}.IsDashed())) << style;
  }
  EXPECT_FALSE((Pen{PS_SOLID, 1, 0, false}.IsDashed()));
  EXPECT_FALSE((Pen{PS_NULL, 1, 0, false}.IsDashed()));
  EXPECT_FALSE((Pen{PS_INSIDEFRAME, 1, 0, false}.IsDashed()));
}

TEST(Pen, LineStyleIsWithoutTheFlagsOfAnExtendedPen) {
  const Pen pen{0x11206, 4, 0, true};
  EXPECT_EQ(pen.Line(), PS_INSIDEFRAME);
  EXPECT_TRUE((Pen{PS_GEOMETRIC | PS_NULL, 4, 0, true}.IsNull()));
}

TEST(Context, BeginsWithBlackPenWhiteBrushAndOnePixel) {
  const Context context;
  EXPECT_EQ(context.penHandle, StockHandle(BLACK_PEN));
  EXPECT_EQ(context.pen.color, 0u);
  EXPECT_EQ(context.pen.Line(), PS_SOLID);
  EXPECT_EQ(context.brushHandle, StockHandle(WHITE_BRUSH));
  EXPECT_EQ(context.brush.color, 0xFFFFFFu);
  EXPECT_EQ(context.bitmapHandle, kDefaultBitmapHandle);
  EXPECT_EQ(context.bitmap->Width(), 1);
  EXPECT_EQ(context.bitmap->Height(), 1);
  EXPECT_TRUE(context.bitmap->IsMono());
  EXPECT_EQ(context.fontHandle, StockHandle(SYSTEM_FONT));
  EXPECT_STREQ(context.font.lfFaceName, "DejaVu Sans");
  EXPECT_EQ(context.backgroundMode, OPAQUE);
}

TEST(Context, GapsHaveTheBackgroundColorOnlyIfItIsOpaque) {
  Context context;
  context.background = 0x123456;
  EXPECT_EQ(context.GapColor(), 0x123456u);
  context.backgroundMode = TRANSPARENT;
  EXPECT_FALSE(context.GapColor());
}

}  // namespace
}  // namespace quenzel7::gdi
