#include "fuzz/gdi_session.h"

#include <gtest/gtest.h>

#include <vector>

namespace quenzel7::fuzz {
namespace {

using Kind = GdiSession::Kind;
using Bytes = std::vector<std::uint8_t>;

TEST(GdiSession, BeginsWithTwoContextsAndEndsWithNothing) {
  const std::size_t before = gdi::LiveObjects();
  GdiSession session({});
  EXPECT_EQ(gdi::LiveObjects(), before + 4);
  session.End();
  EXPECT_EQ(session.Complaint(), "");
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(GdiSession, PicksOfTheKindAskedFor) {
  const Bytes bytes{0, 1, 2, 0, 1};
  GdiSession session(bytes);
  const gdi::HDC first = session.Pick(Kind::kContext), second = session.Pick(Kind::kContext);
  EXPECT_NE(first, second);
  EXPECT_EQ(session.Pick(Kind::kContext), first);
  for (const gdi::HDC dc : {first, second}) EXPECT_EQ(gdi::GetBkColor(dc), 0xFFFFFFu);
  const gdi::HBITMAP bitmap = session.Pick(Kind::kBitmap);
  EXPECT_EQ(gdi::GetCurrentObject(first, gdi::OBJ_BITMAP), bitmap);
  session.End();
}

TEST(GdiSession, PicksOthersTooWhereTheFirstByteSaysSo) {
  // Null, a stock object, the bitmap of a fresh context, a handle not yet given out, any number, any of all.
  const Bytes bytes{0xD0, 0, 0xD0, 1 + 8 * gdi::BLACK_PEN, 0xFF, 2, 0xD0, 3, 0, 0xD0, 4, 1, 2, 3, 4,
                    0xD0, 5, 3};
  GdiSession session(bytes);
  EXPECT_EQ(session.Pick(Kind::kContext), 0);
  EXPECT_EQ(session.Pick(Kind::kContext), gdi::GetStockObject(gdi::BLACK_PEN));
  const gdi::HDC fresh = gdi::CreateCompatibleDC(0);
  EXPECT_EQ(session.Pick(Kind::kContext), gdi::GetCurrentObject(fresh, gdi::OBJ_BITMAP));
  gdi::DeleteDC(fresh);
  const gdi::Handle stale = session.Pick(Kind::kContext);
  EXPECT_EQ(gdi::GetBkColor(stale - 0x10000), 0xFFFFFFu);
  EXPECT_EQ(gdi::GetBkColor(stale), gdi::CLR_INVALID);
  EXPECT_EQ(session.Pick(Kind::kContext), 0x04030201);
  EXPECT_GT(gdi::GetObjectA(session.Pick(Kind::kContext), 0, nullptr), 0);
  session.End();
}

TEST(GdiSession, KeepsDeletedHandlesForPicking) {
  const Bytes bytes{0, 0};
  GdiSession session(bytes);
  const gdi::HBRUSH brush = gdi::CreateSolidBrush(0);
  session.Made(Kind::kBrush, brush);
  session.DeleteObject(brush);
  EXPECT_EQ(session.Pick(Kind::kBrush), brush);
  session.End();
  EXPECT_EQ(session.Complaint(), "");
}

TEST(GdiSession, KnowsFontsThatAreHeld) {
  const Bytes bytes{0};
  GdiSession session(bytes);
  const gdi::LOGFONT look{};
  const gdi::HFONT font = gdi::CreateFontIndirectA(&look);
  session.Made(Kind::kFont, font);
  gdi::SelectObject(session.Pick(Kind::kContext), font);
  session.DeleteObject(font);
  session.Check();
  session.DeleteObject(gdi::GetStockObject(gdi::DEFAULT_GUI_FONT));
  EXPECT_EQ(session.Complaint(), "");
  session.End();
  EXPECT_EQ(session.Complaint(), "");
}

TEST(GdiSession, AcceptsRefusalsThatAreRight) {
  GdiSession session({});
  const gdi::HPEN pen = gdi::CreatePenIndirect(nullptr);
  session.Made(Kind::kPen, pen);
  session.DeleteObject(0);
  session.DeleteContext(77);
  session.DeleteObject(gdi::GetStockObject(gdi::WHITE_BRUSH));
  session.Check();
  session.End();
  EXPECT_EQ(session.Complaint(), "");
}

TEST(GdiSession, ComplainsOfObjectsThatItDoesNotKnow) {
  GdiSession session({});
  const gdi::HBRUSH unknown = gdi::CreateSolidBrush(0);
  session.Check();
  EXPECT_EQ(session.Complaint(), "LiveObjects counts what was made and not deleted");
  gdi::DeleteObject(unknown);
  session.End();
}

TEST(GdiSession, ComplainsOfObjectsThatVanish) {
  GdiSession session({});
  const gdi::HBRUSH brush = gdi::CreateSolidBrush(0);
  session.Made(Kind::kBrush, brush);
  gdi::DeleteObject(brush);
  session.DeleteObject(brush);
  EXPECT_EQ(session.Complaint(), "DeleteObject ends living objects that no context holds, and nothing else");
  session.End();
}

TEST(GdiSession, ComplainsOfAHandleGivenOutTwice) {
  GdiSession session({});
  const gdi::HBRUSH brush = gdi::CreateSolidBrush(0);
  session.Made(Kind::kBrush, brush);
  session.Made(Kind::kBrush, brush);
  EXPECT_EQ(session.Complaint(), "a new handle is not one that is still alive");
  session.End();
}

TEST(GdiSession, ComplainsOfWhatAContextShouldNotHold) {
  const Bytes bytes{0};
  GdiSession session(bytes);
  const gdi::HDC dc = session.Pick(Kind::kContext);
  const gdi::HPEN pen = gdi::CreateSolidBrush(0);
  gdi::SelectObject(dc, pen);
  session.Made(Kind::kPen, pen);
  session.Check();
  EXPECT_EQ(session.Complaint(), "what a context holds is alive and of its kind");
  session.End();
}

}  // namespace
}  // namespace quenzel7::fuzz
