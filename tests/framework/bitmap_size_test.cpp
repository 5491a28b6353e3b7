#include "framework/bitmap_size.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/gdi/owned.h"
#include "platform/gdi/recorder.h"
#include "tests/framework/wrong_handles.h"

namespace quenzel7 {
namespace {

/// The measures as numbers, for comparing.
std::vector<Long> Measured(gdi::HBITMAP bitmap) {
  const BitmapSize size = BitmapSizeOf(bitmap);
  return {size.w, size.h, size.bits};
}

const std::vector<Long> kNone = {0, 0, 0};

TEST(BitmapSize, IsAskedForIn24Bytes) {
  const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(17, 3, 1, 32, nullptr));
  gdi::Recorder recorder;
  EXPECT_EQ(Measured(bitmap.Get()), (std::vector<Long>{17, 3, 32}));
  EXPECT_EQ(recorder.Take(), std::vector<std::string>{"GetObjectA(bitmap:1, 24)"});
}

TEST(BitmapSize, IsKnownOfAnyBitmap) {
  for (const Long bits : {1, 32}) {
    for (const Long w : {1, 2, 15, 16, 17, 640}) {
      const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(w, 3, 1, static_cast<std::uint32_t>(bits), nullptr));
      EXPECT_EQ(Measured(bitmap.Get()), (std::vector<Long>{w, 3, bits}));
    }
  }
}

TEST(BitmapSize, OfTheBitmapOfANewContextIsOnePixelAndOneBit) {
  const gdi::OwnedContext context(0);
  EXPECT_EQ(Measured(gdi::GetCurrentObject(context.Get(), gdi::OBJ_BITMAP)), (std::vector<Long>{1, 1, 1}));
}

TEST(BitmapSize, OfWhatIsNoBitmapIs0) {
  const test::WrongHandles wrong;
  for (const auto& [name, handle] : wrong.All()) EXPECT_EQ(Measured(handle), kNone) << name;
}

/// A font whose description begins like that of a bitmap.
gdi::LOGFONT LikeABitmap(Long type, Long w, Long h, Long widthBytes, Long planes, Long bits) {
  return {type, w, h, widthBytes, planes | bits * 65536, 0, 0, 0, 0, 0, 0, 0, 0, ""};
}

std::vector<Long> MeasuredAsABitmap(const gdi::LOGFONT& description) {
  const gdi::OwnedObject font(gdi::CreateFontIndirectA(&description));
  return Measured(font.Get());
}

TEST(BitmapSize, TellsAFontFromABitmapByEachFieldThatOnlyABitmapHasSo) {
  // In all fields like a bitmap: nothing tells them apart. Each row below differs in one.
  ASSERT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, 3, 4, 1, 1)), (std::vector<Long>{17, 3, 1}));
  ASSERT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, 3, 68, 1, 32)), (std::vector<Long>{17, 3, 32}));
  ASSERT_EQ(MeasuredAsABitmap(LikeABitmap(0, 1, 1, 2, 1, 1)), (std::vector<Long>{1, 1, 1}));

  for (const Long type : {-9, -1, 1, 16}) {
    EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(type, 17, 3, 4, 1, 1)), kNone) << type;
  }
  for (const Long h : {-2147483647 - 1, -3, -1, 0}) {
    EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, h, 4, 1, 1)), kNone) << h;
  }
  for (const Long widthBytes : {-4, 0, 2, 3, 5, 6, 68}) {
    EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, 3, widthBytes, 1, 1)), kNone) << widthBytes;
  }
  for (const Long planes : {0, 2, 400}) {
    EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, 3, 4, planes, 1)), kNone) << planes;
  }
  struct Row {
    Long bits, widthBytes;
  };
  for (const Row& row : {Row{0, 0}, Row{2, 6}, Row{4, 10}, Row{8, 18}, Row{16, 34}, Row{24, 52}, Row{31, 66},
                         Row{33, 72}, Row{-1, 0}}) {
    EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 17, 3, row.widthBytes, 1, row.bits)), kNone) << row.bits;
  }
}

TEST(BitmapSize, TellsAFontFromABitmapByAWidthThatIsNotPositive) {
  EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 0, 3, 0, 1, 1)), kNone);
  // Rows of -1 bits take 0 bytes, rows of -32 bits -2.
  EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, -1, 3, 0, 1, 1)), kNone);
  EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, -1, 3, -2, 1, 32)), kNone);
}

TEST(BitmapSize, TellsAFontFromABitmapWhereARowWouldTakeMoreThanANumberHolds) {
  // 8589934588 bytes, of which the low 32 bits are -4.
  EXPECT_EQ(MeasuredAsABitmap(LikeABitmap(0, 2147483647, 3, -4, 1, 32)), kNone);
}

TEST(BitmapSize, TellsAFontFromABitmapByWhatStandsInThePlaceOfThePixels) {
  for (std::uint8_t gdi::LOGFONT::*field : {&gdi::LOGFONT::lfItalic, &gdi::LOGFONT::lfUnderline,
                                            &gdi::LOGFONT::lfStrikeOut, &gdi::LOGFONT::lfCharSet}) {
    gdi::LOGFONT font = LikeABitmap(0, 17, 3, 4, 1, 1);
    font.*field = 1;
    EXPECT_EQ(MeasuredAsABitmap(font), kNone);
  }
}

}  // namespace
}  // namespace quenzel7
