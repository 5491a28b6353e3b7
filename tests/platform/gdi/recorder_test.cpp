#include "platform/gdi/recorder.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

using Calls = std::vector<std::string>;

TEST(Recorder, NotesCallsWithArgumentsInOrder) {
  const Surface surface(10, 10);
  const Recorder recorder;
  Rectangle(surface.Dc(), 10, 20, 40, -60);
  MoveToEx(surface.Dc(), 1, 2, nullptr);
  LineTo(surface.Dc(), 3, 4);
  EXPECT_EQ(recorder.Calls(),
            (Calls{"Rectangle(dc:1, 10, 20, 40, -60)", "MoveToEx(dc:1, 1, 2)", "LineTo(dc:1, 3, 4)"}));
}

TEST(Recorder, NotesTheFieldsOfStructuresAndTheObjectsMade) {
  const Surface surface(10, 10);
  const Recorder recorder;
  {
    const LOGPEN logPen{PS_INSIDEFRAME, {3, 0}, 0x0000FF};
    const SelectedPen pen(surface.Dc(), CreatePenIndirect(&logPen));
    const LOGBRUSH logBrush{BS_SOLID, 0x00FFFF, 0};
    const SelectedBrush brush(surface.Dc(), CreateBrushIndirect(&logBrush));
  }
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreatePenIndirect({6, 3, 0x0000ff}) -> pen:1", "SelectObject(dc:1, pen:1)",
                   "CreateBrushIndirect({0, 0x00ffff, 0}) -> brush:1", "SelectObject(dc:1, brush:1)",
                   "SelectObject(dc:1, stock:0)", "DeleteObject(brush:1)", "SelectObject(dc:1, stock:7)",
                   "DeleteObject(pen:1)"}));
}

TEST(Recorder, NumbersObjectsOfEachKindAsItMeetsThem) {
  const HBRUSH before = CreateSolidBrush(0);
  const Recorder recorder;
  const HBRUSH first = CreateSolidBrush(0x010203);
  DeleteObject(before);
  DeleteObject(first);
  const HPEN pen = MakePen(PS_SOLID, 1, 0);
  DeleteObject(pen);
  DeleteObject(pen);
  EXPECT_EQ(recorder.Calls(), (Calls{"CreateSolidBrush(0x010203) -> brush:1", "DeleteObject(brush:2)",
                                     "DeleteObject(brush:1)", "CreatePenIndirect({0, 1, 0x000000}) -> pen:1",
                                     "DeleteObject(pen:1)", "DeleteObject(pen:1)"}));
}

TEST(Recorder, TellsHandlesWithoutObjects) {
  const Recorder recorder;
  const HDC dc = CreateCompatibleDC(0);
  SelectObject(dc, GetCurrentObject(dc, OBJ_BITMAP));
  SelectObject(dc, GetStockObject(SYSTEM_FONT));
  SelectObject(dc, 0);
  SelectObject(dc, 77);
  DeleteDC(dc);
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreateCompatibleDC(null) -> dc:1", "GetCurrentObject(dc:1, 7)",
                   "SelectObject(dc:1, default-bitmap)", "GetStockObject(13)", "SelectObject(dc:1, stock:13)",
                   "SelectObject(dc:1, null)", "SelectObject(dc:1, invalid)", "DeleteDC(dc:1)"}));
}

TEST(Recorder, NotesEveryOtherCall) {
  const Surface surface(10, 10);
  const HDC dc = surface.Dc();
  const Recorder recorder;
  const RECT rect{1, 2, 3, 4};
  const std::array<POINT, 2> points{{{1, 2}, {-3, 4}}};
  const LOGBRUSH solid{BS_SOLID, 0x0000FF, 0};
  FillRect(dc, &rect, GetStockObject(WHITE_BRUSH));
  FillRect(dc, nullptr, 0);
  DrawFocusRect(dc, &rect);
  PatBlt(dc, 1, 2, 3, 4, WHITENESS);
  Polyline(dc, points.data(), 2);
  Polyline(dc, nullptr, 2);
  Ellipse(dc, 1, 2, 3, 4);
  RoundRect(dc, 1, 2, 3, 4, 5, 6);
  SetBkColor(dc, 0x123456);
  GetBkColor(dc);
  SetTextColor(dc, 0x00ABCD);
  GetTextColor(dc);
  SetStretchBltMode(dc, 3);
  GetPixel(dc, 5, 6);
  const HBITMAP bitmap = CreateBitmap(4, 5, 1, 1, nullptr);
  const HBITMAP compatible = CreateCompatibleBitmap(dc, 6, 7);
  GetBitmapBits(bitmap, 10, nullptr);
  GetObjectA(bitmap, 24, nullptr);
  DeleteObject(bitmap);
  DeleteObject(compatible);
  DeleteObject(ExtCreatePen(0x11206, 4, &solid, 0, nullptr));
  DeleteObject(CreateHatchBrush(3, 0xFF));
  CreatePenIndirect(nullptr);
  CreateBrushIndirect(nullptr);
  EXPECT_EQ(recorder.Calls(), (Calls{"GetStockObject(0)",
                                     "FillRect(dc:1, {1, 2, 3, 4}, stock:0)",
                                     "FillRect(dc:1, null, null)",
                                     "DrawFocusRect(dc:1, {1, 2, 3, 4})",
                                     "PatBlt(dc:1, 1, 2, 3, 4, 0xff0062)",
                                     "Polyline(dc:1, {{1, 2}, {-3, 4}})",
                                     "Polyline(dc:1, {})",
                                     "Ellipse(dc:1, 1, 2, 3, 4)",
                                     "RoundRect(dc:1, 1, 2, 3, 4, 5, 6)",
                                     "SetBkColor(dc:1, 0x123456)",
                                     "GetBkColor(dc:1)",
                                     "SetTextColor(dc:1, 0x00abcd)",
                                     "GetTextColor(dc:1)",
                                     "SetStretchBltMode(dc:1, 3)",
                                     "GetPixel(dc:1, 5, 6)",
                                     "CreateBitmap(4, 5, 1, 1) -> bitmap:1",
                                     "CreateCompatibleBitmap(dc:1, 6, 7) -> bitmap:2",
                                     "GetBitmapBits(bitmap:1, 10)",
                                     "GetObjectA(bitmap:1, 24)",
                                     "DeleteObject(bitmap:1)",
                                     "DeleteObject(bitmap:2)",
                                     "ExtCreatePen(0x011206, 4, {0, 0x0000ff, 0}, 0) -> pen:1",
                                     "DeleteObject(pen:1)",
                                     "CreateHatchBrush(3, 0x0000ff) -> brush:1",
                                     "DeleteObject(brush:1)",
                                     "CreatePenIndirect(null) -> null",
                                     "CreateBrushIndirect(null) -> null"}));
}

TEST(Recorder, NotesBlitsPathsAndRegions) {
  const Surface surface(10, 10), source(10, 10);
  const HDC dc = surface.Dc();
  const Recorder recorder;
  const RECT rect{1, 2, 3, 4};
  BitBlt(dc, 1, 2, 3, 4, source.Dc(), 5, 6, SRCAND);
  StretchBlt(dc, 1, 2, 3, 4, source.Dc(), 5, 6, 2, 1, SRCCOPY);
  AlphaBlend(dc, 1, 2, 3, 4, source.Dc(), 5, 6, 2, 1, {0, 0, 128, 0});
  BeginPath(dc);
  AngleArc(dc, 5, 6, 4, 22.5f, -90);
  EndPath(dc);
  StrokePath(dc);
  StrokeAndFillPath(dc);
  const HRGN ellipse = CreateEllipticRgn(0, 1, 2, 3);
  const HRGN rounded = CreateRoundRectRgn(0, 1, 2, 3, 4, 5);
  PtInRegion(ellipse, 6, 7);
  RectInRegion(rounded, &rect);
  DeleteObject(ellipse);
  DeleteObject(rounded);
  EXPECT_EQ(
      recorder.Calls(),
      (Calls{"BitBlt(dc:1, 1, 2, 3, 4, dc:2, 5, 6, 0x8800c6)",
             "StretchBlt(dc:1, 1, 2, 3, 4, dc:2, 5, 6, 2, 1, 0xcc0020)",
             "AlphaBlend(dc:1, 1, 2, 3, 4, dc:2, 5, 6, 2, 1, {0, 0, 128, 0})", "BeginPath(dc:1)",
             "AngleArc(dc:1, 5, 6, 4, 22.5, -90)", "EndPath(dc:1)", "StrokePath(dc:1)",
             "StrokeAndFillPath(dc:1)", "CreateEllipticRgn(0, 1, 2, 3) -> region:1",
             "CreateRoundRectRgn(0, 1, 2, 3, 4, 5) -> region:2", "PtInRegion(region:1, 6, 7)",
             "RectInRegion(region:2, {1, 2, 3, 4})", "DeleteObject(region:1)", "DeleteObject(region:2)"}));
}

TEST(Recorder, NotesFontsAndTexts) {
  const Surface surface(10, 10);
  const HDC dc = surface.Dc();
  const Recorder recorder;
  const LOGFONT logFont{-9, 1, 2, 3, 400, 4, 5, 6, 7, 8, 9, 10, 34, "Small Fonts"};
  {
    const SelectedFont font(dc, CreateFontIndirectA(&logFont));
    TextOutA(dc, -1, 2, "5\" \\ \xe4\x1f ~", 9);
    TextOutA(dc, 1, 2, "abc", 2);
    TextOutA(dc, 1, 2, "abc", -2);
    TextOutA(dc, 1, 2, nullptr, 2);
  }
  SIZE size{};
  std::int32_t widths[2];
  TEXTMETRICA metrics{};
  GetTextExtentPoint32A(dc, "ab", 2, &size);
  RECT rect{1, 2, 3, 4};
  DrawTextA(dc, "abc", -1, &rect, DT_CENTER | DT_WORD_ELLIPSIS);
  DrawTextA(dc, "abc", 2, nullptr, 0);
  GetTextMetricsA(dc, &metrics);
  GetCharWidth32A(dc, 65, 66, widths);
  SetBkMode(dc, TRANSPARENT);
  GetBkMode(dc);
  CreateFontIndirectA(nullptr);
  EXPECT_EQ(
      recorder.Calls(),
      (Calls{"CreateFontIndirectA({-9, 1, 2, 3, 400, 4, 5, 6, 7, 8, 9, 10, 34, \"Small Fonts\"}) -> font:1",
             "SelectObject(dc:1, font:1)", "TextOutA(dc:1, -1, 2, \"5\\\" \\\\ \\xe4\\x1f ~\", 9)",
             "TextOutA(dc:1, 1, 2, \"ab\", 2)", "TextOutA(dc:1, 1, 2, \"\", -2)",
             "TextOutA(dc:1, 1, 2, null, 2)", "SelectObject(dc:1, stock:13)", "DeleteObject(font:1)",
             "GetTextExtentPoint32A(dc:1, \"ab\", 2)", "DrawTextA(dc:1, \"abc\", -1, {1, 2, 3, 4}, 0x040001)",
             "DrawTextA(dc:1, \"ab\", 2, null, 0x000000)", "GetTextMetricsA(dc:1)",
             "GetCharWidth32A(dc:1, 65, 66)", "SetBkMode(dc:1, 1)", "GetBkMode(dc:1)",
             "CreateFontIndirectA(null) -> null"}));
}

TEST(Recorder, OnlyTheYoungestNotesAndTheOlderGoesOnAfterIt) {
  const Recorder outer;
  GetStockObject(1);
  {
    const Recorder inner;
    GetStockObject(2);
    EXPECT_EQ(inner.Calls(), Calls{"GetStockObject(2)"});
  }
  GetStockObject(3);
  EXPECT_EQ(outer.Calls(), (Calls{"GetStockObject(1)", "GetStockObject(3)"}));
}

TEST(Recorder, TakeForgetsTheCallsAndKeepsTheNames) {
  Recorder recorder;
  const HBRUSH brush = CreateSolidBrush(0);
  EXPECT_EQ(recorder.Take(), Calls{"CreateSolidBrush(0x000000) -> brush:1"});
  EXPECT_TRUE(recorder.Calls().empty());
  DeleteObject(brush);
  DeleteObject(CreateSolidBrush(0));
  EXPECT_EQ(recorder.Take(), (Calls{"DeleteObject(brush:1)", "CreateSolidBrush(0x000000) -> brush:2",
                                    "DeleteObject(brush:2)"}));
}

TEST(Recorder, OffLeavesNoTrace) {
  { const Recorder gone; }
  GetStockObject(1);
  const Recorder recorder;
  EXPECT_TRUE(recorder.Calls().empty());
}

}  // namespace
}  // namespace quenzel7::gdi
