#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

/// Makes an object, hands it over and deletes it.
template <typename Use>
void With(HGDIOBJ object, Use&& use) {
  ASSERT_NE(object, 0);
  use(object);
  EXPECT_EQ(DeleteObject(object), 1);
}

LOGPEN PenOf(HGDIOBJ object) {
  LOGPEN pen{99, {99, 99}, 99};
  EXPECT_EQ(GetObjectA(object, sizeof pen, &pen), 16);
  return pen;
}

LOGBRUSH BrushOf(HGDIOBJ object) {
  LOGBRUSH brush{99, 99, 99};
  EXPECT_EQ(GetObjectA(object, sizeof brush, &brush), 12);
  return brush;
}

TEST(CreatePenIndirect, KeepsStyleWidthAndColor) {
  for (const std::uint32_t style : {0u, 1u, 2u, 3u, 4u, 6u}) {
    With(MakePen(style, 12, 0x800080), [&](HPEN pen) {
      EXPECT_EQ(PenOf(pen).lopnStyle, style);
      EXPECT_EQ(PenOf(pen).lopnWidth.x, 12);
      EXPECT_EQ(PenOf(pen).lopnWidth.y, 0);
      EXPECT_EQ(PenOf(pen).lopnColor, 0x800080u);
    });
  }
  With(MakePen(PS_SOLID, 0, 0), [](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnWidth.x, 0); });
}

// What is kept of a pen without lines is left open by the interface; all such pens are alike here.
TEST(CreatePenIndirect, PenWithoutLinesKeepsNeitherWidthNorColor) {
  With(MakePen(PS_NULL, 4, 0x404040), [](HPEN pen) {
    EXPECT_EQ(PenOf(pen).lopnStyle, PS_NULL);
    EXPECT_EQ(PenOf(pen).lopnWidth.x, 1);
    EXPECT_EQ(PenOf(pen).lopnColor, 0u);
  });
}

TEST(CreatePenIndirect, UnknownStylesAreSolid) {
  With(MakePen(7, 3, 1), [](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnStyle, PS_SOLID); });
  With(MakePen(0xFFFFFFFF, 3, 1), [](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnStyle, PS_SOLID); });
}

TEST(CreatePenIndirect, NegativeWidthCountsAsItsAmount) {
  constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
  With(MakePen(PS_SOLID, -3, 1), [](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnWidth.x, 3); });
  With(MakePen(PS_SOLID, kMin, 1), [&](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnWidth.x, kMax); });
}

TEST(CreatePenIndirect, OfNothingIsNothing) { EXPECT_EQ(CreatePenIndirect(nullptr), 0); }

TEST(CreatePenIndirect, DropsTheFourthByteOfAColor) {
  With(MakePen(PS_SOLID, 1, 0xFF123456), [](HPEN pen) { EXPECT_EQ(PenOf(pen).lopnColor, 0x123456u); });
}

TEST(ExtCreatePen, KeepsStyleWidthAndColor) {
  const LOGBRUSH solid{BS_SOLID, 0x123456, 0};
  With(ExtCreatePen(0x11206, 4, &solid, 0, nullptr), [](HPEN pen) {
    EXTLOGPEN out{};
    EXPECT_EQ(GetObjectA(pen, sizeof out, &out), 28);
    EXPECT_EQ(out.elpPenStyle, 0x11206u);
    EXPECT_EQ(out.elpWidth, 4u);
    EXPECT_EQ(out.elpBrushStyle, BS_SOLID);
    EXPECT_EQ(out.elpColor, 0x123456u);
    EXPECT_EQ(out.elpHatch, 0u);
    EXPECT_EQ(out.elpNumEntries, 0u);
    LOGPEN tooSmall{};
    EXPECT_EQ(GetObjectA(pen, sizeof tooSmall, &tooSmall), 0);
  });
  With(ExtCreatePen(PS_GEOMETRIC, 0xFFFFFFFF, &solid, 0, nullptr), [](HPEN pen) {
    EXTLOGPEN out{};
    GetObjectA(pen, sizeof out, &out);
    EXPECT_EQ(out.elpWidth, 0x7FFFFFFFu);
  });
}

TEST(ExtCreatePen, RefusesWhatItDoesNotKnow) {
  const LOGBRUSH solid{BS_SOLID, 0, 0}, hatched{BS_HATCHED, 0, 0};
  const std::uint32_t pattern[] = {1, 2};
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 1, nullptr, 0, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 1, &hatched, 0, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 1, &solid, 2, pattern), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 1, &solid, 2, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 1, &solid, 0, pattern), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | 7, 1, &solid, 0, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | 0x300, 1, &solid, 0, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | 0x3000, 1, &solid, 0, nullptr), 0);
  EXPECT_EQ(ExtCreatePen(0x20000, 1, &solid, 0, nullptr), 0);
  for (const std::uint32_t style : {0x0u, 0x10006u, 0x10200u, 0x12000u, 0x10100u, 0x11000u}) {
    With(ExtCreatePen(style, 1, &solid, 0, nullptr), [](HPEN) {});
  }
}

TEST(CreateBrushIndirect, KeepsStyleColorAndHatch) {
  const LOGBRUSH solid{BS_SOLID, 0xCBC0FF, 0}, none{BS_NULL, 0x112233, 0}, hatched{BS_HATCHED, 0x00FFFF, 5};
  for (const LOGBRUSH& wanted : {solid, none, hatched}) {
    With(CreateBrushIndirect(&wanted), [&](HBRUSH brush) {
      EXPECT_EQ(BrushOf(brush).lbStyle, wanted.lbStyle);
      EXPECT_EQ(BrushOf(brush).lbColor, wanted.lbColor);
      EXPECT_EQ(BrushOf(brush).lbHatch, wanted.lbHatch);
    });
  }
}

TEST(CreateBrushIndirect, RefusesOtherStylesAndHatches) {
  const LOGBRUSH pattern{3, 0, 0}, wrongHatch{BS_HATCHED, 0, 6};
  EXPECT_EQ(CreateBrushIndirect(&pattern), 0);
  EXPECT_EQ(CreateBrushIndirect(&wrongHatch), 0);
  EXPECT_EQ(CreateBrushIndirect(nullptr), 0);
  const LOGBRUSH unusedHatch{BS_SOLID, 1, 99};
  With(CreateBrushIndirect(&unusedHatch), [](HBRUSH brush) { EXPECT_EQ(BrushOf(brush).lbHatch, 0u); });
}

TEST(CreateSolidBrush, IsSolid) {
  With(CreateSolidBrush(0xFF123456), [](HBRUSH brush) {
    EXPECT_EQ(BrushOf(brush).lbStyle, BS_SOLID);
    EXPECT_EQ(BrushOf(brush).lbColor, 0x123456u);
  });
}

TEST(CreateHatchBrush, KnowsHatchesZeroToFive) {
  for (int hatch = 0; hatch <= 5; ++hatch) {
    With(CreateHatchBrush(hatch, 0x11), [&](HBRUSH brush) {
      EXPECT_EQ(BrushOf(brush).lbStyle, BS_HATCHED);
      EXPECT_EQ(BrushOf(brush).lbColor, 0x11u);
      EXPECT_EQ(BrushOf(brush).lbHatch, static_cast<std::uint32_t>(hatch));
    });
  }
  EXPECT_EQ(CreateHatchBrush(6, 0), 0);
  EXPECT_EQ(CreateHatchBrush(-1, 0), 0);
}

TEST(DeleteObject, FailsWhileAContextHoldsTheObject) {
  const HDC dc = CreateCompatibleDC(0);
  const HBRUSH brush = CreateSolidBrush(kRed);
  const HBITMAP bitmap = CreateBitmap(1, 1, 1, 32, nullptr);
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  const LOGFONT logFont{};
  const HFONT font = CreateFontIndirectA(&logFont);
  SelectObject(dc, font);
  const HGDIOBJ freshBitmap = SelectObject(dc, bitmap);
  SelectObject(dc, brush);
  SelectObject(dc, pen);
  for (const HGDIOBJ object : {brush, bitmap, pen, font}) EXPECT_EQ(DeleteObject(object), 0);
  SelectObject(dc, freshBitmap);
  SelectObject(dc, GetStockObject(WHITE_BRUSH));
  SelectObject(dc, GetStockObject(BLACK_PEN));
  SelectObject(dc, GetStockObject(SYSTEM_FONT));
  for (const HGDIOBJ object : {brush, bitmap, pen, font}) EXPECT_EQ(DeleteObject(object), 1);
  for (const HGDIOBJ object : {brush, bitmap, pen, font}) EXPECT_EQ(DeleteObject(object), 0);
  DeleteDC(dc);
}

TEST(DeleteObject, LeavesStockObjectsAlone) {
  const std::size_t before = LiveObjects();
  const HDC dc = CreateCompatibleDC(0);
  for (const int index : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 13, 17}) {
    EXPECT_EQ(DeleteObject(GetStockObject(index)), 1) << index;
    EXPECT_EQ(GetStockObject(index), GetStockObject(index)) << index;
  }
  EXPECT_EQ(DeleteObject(GetCurrentObject(dc, OBJ_BITMAP)), 1);
  EXPECT_EQ(DeleteObject(dc), 0);
  EXPECT_EQ(DeleteObject(0), 0);
  EXPECT_EQ(DeleteObject(77), 0);
  EXPECT_EQ(DeleteDC(dc), 1);
  EXPECT_EQ(LiveObjects(), before);
}

TEST(GetObjectA, DescribesBitmaps) {
  With(CreateBitmap(33, 7, 1, 1, nullptr), [](HBITMAP bitmap) {
    BITMAP out{9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(GetObjectA(bitmap, sizeof out, &out), 24);
    EXPECT_EQ(out.bmType, 0);
    EXPECT_EQ(out.bmWidth, 33);
    EXPECT_EQ(out.bmHeight, 7);
    EXPECT_EQ(out.bmWidthBytes, 6);
    EXPECT_EQ(out.bmPlanes, 1);
    EXPECT_EQ(out.bmBitsPixel, 1);
    EXPECT_EQ(out.bmBits, 0u);
  });
  With(CreateBitmap(10, 10, 1, 32, nullptr), [](HBITMAP bitmap) {
    BITMAP out{};
    GetObjectA(bitmap, sizeof out, &out);
    EXPECT_EQ(out.bmWidthBytes, 40);
    EXPECT_EQ(out.bmBitsPixel, 32);
  });
  const HDC dc = CreateCompatibleDC(0);
  BITMAP out{};
  EXPECT_EQ(GetObjectA(GetCurrentObject(dc, OBJ_BITMAP), sizeof out, &out), 24);
  EXPECT_EQ(out.bmWidth, 1);
  EXPECT_EQ(out.bmHeight, 1);
  EXPECT_EQ(out.bmBitsPixel, 1);
  DeleteDC(dc);
}

TEST(GetObjectA, TellsTheSizeAndNeedsThatMuchRoom) {
  const HPEN pen = GetStockObject(BLACK_PEN);
  const HBRUSH brush = GetStockObject(GRAY_BRUSH);
  char room[32] = "unchanged";
  EXPECT_EQ(GetObjectA(pen, 0, nullptr), 16);
  EXPECT_EQ(GetObjectA(brush, 0, nullptr), 12);
  EXPECT_EQ(GetObjectA(pen, 15, room), 0);
  EXPECT_EQ(GetObjectA(pen, -1, room), 0);
  EXPECT_EQ(GetObjectA(brush, 11, room), 0);
  EXPECT_STREQ(room, "unchanged");
  EXPECT_EQ(GetObjectA(pen, 17, room), 16);
  EXPECT_EQ(GetObjectA(brush, 12, room), 12);
}

TEST(CreateFontIndirectA, KeepsTheWholeDescription) {
  const LOGFONT wanted{-9, 1, 2, 3, 400, 4, 5, 6, 7, 8, 9, 10, 34, "Small Fonts"};
  With(CreateFontIndirectA(&wanted), [&](HFONT font) {
    LOGFONT found{};
    EXPECT_EQ(GetObjectA(font, sizeof found, &found), 60);
    EXPECT_EQ(std::memcmp(&found, &wanted, sizeof found), 0);
  });
  EXPECT_EQ(CreateFontIndirectA(nullptr), 0);
}

TEST(CreateFontIndirectA, EndsTheNameWithinItsField) {
  LOGFONT wanted{};
  std::memset(wanted.lfFaceName, 'x', sizeof wanted.lfFaceName);
  With(CreateFontIndirectA(&wanted), [](HFONT font) {
    LOGFONT found{};
    GetObjectA(font, sizeof found, &found);
    EXPECT_EQ(std::string(found.lfFaceName), std::string(31, 'x'));
  });
}

TEST(GetObjectA, GivesAsMuchOfAFontAsThereIsRoomFor) {
  char room[64];
  const HFONT font = GetStockObject(SYSTEM_FONT);
  EXPECT_EQ(GetObjectA(font, 0, nullptr), 60);
  for (const auto& [size, count] : {std::pair(-1, 0), {0, 0}, {1, 1}, {4, 4}, {59, 59}, {60, 60}, {61, 60}}) {
    std::memset(room, 0x55, sizeof room);
    EXPECT_EQ(GetObjectA(font, size, room), count);
    EXPECT_EQ(room[count], 0x55) << size;
    EXPECT_EQ(room[0], count == 0 ? 0x55 : 16) << size;
  }
}

TEST(GetObjectA, OfNoObjectIsZero) {
  LOGPEN out{};
  const HDC dc = CreateCompatibleDC(0);
  EXPECT_EQ(GetObjectA(0, sizeof out, &out), 0);
  EXPECT_EQ(GetObjectA(77, sizeof out, &out), 0);
  EXPECT_EQ(GetObjectA(dc, sizeof out, &out), 0);
  DeleteDC(dc);
}

TEST(GetObjectA, DescribesStockObjects) {
  EXPECT_EQ(PenOf(GetStockObject(BLACK_PEN)).lopnColor, 0u);
  EXPECT_EQ(PenOf(GetStockObject(BLACK_PEN)).lopnWidth.x, 0);
  EXPECT_EQ(PenOf(GetStockObject(WHITE_PEN)).lopnColor, 0xFFFFFFu);
  EXPECT_EQ(BrushOf(GetStockObject(LTGRAY_BRUSH)).lbColor, 0xC0C0C0u);
  EXPECT_EQ(BrushOf(GetStockObject(NULL_BRUSH)).lbStyle, BS_NULL);
}

TEST(GetStockObject, KnowsBrushesPensAndFonts) {
  for (const int index : {0, 8, 10, 11, 12, 13, 14, 16, 17}) EXPECT_NE(GetStockObject(index), 0) << index;
  const int min = std::numeric_limits<int>::min(), max = std::numeric_limits<int>::max();
  for (const int index : {-1, 9, 15, 18, 20, 21, 0x40000000, 0x40000007, min, max}) {
    EXPECT_EQ(GetStockObject(index), 0) << index;
  }
}

TEST(LiveObjects, CountsWhatWasMadeAndNotDeleted) {
  const std::size_t before = LiveObjects();
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  EXPECT_EQ(LiveObjects(), before + 1);
  GetStockObject(BLACK_PEN);
  EXPECT_EQ(LiveObjects(), before + 1);
  DeleteObject(pen);
  EXPECT_EQ(LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7::gdi
