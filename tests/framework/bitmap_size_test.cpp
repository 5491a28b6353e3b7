#include "framework/bitmap_size.h"

#include <gtest/gtest.h>

#include "platform/gdi/recorder.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7 {
namespace {

TEST(BitmapSize, IsAskedForIn24Bytes) {
  const gdi::HBITMAP bitmap = gdi::CreateBitmap(17, 3, 1, 32, nullptr);
  gdi::Recorder recorder;
  const BitmapSize size = BitmapSizeOf(bitmap);
  EXPECT_EQ(recorder.Take(), std::vector<std::string>{"GetObjectA(bitmap:1, 24)"});
  EXPECT_EQ(size.w, 17);
  EXPECT_EQ(size.h, 3);
  gdi::DeleteObject(bitmap);
}

TEST(BitmapSize, OfWhatIsNoBitmapIs0) {
  // A brush and a pen write where a bitmap has its width.
  const gdi::HBRUSH brush = gdi::CreateHatchBrush(gdi::HS_CROSS, 0x010203);
  const gdi::HPEN pen = gdi::MakePen(gdi::PS_SOLID, 9, 0x010203);
  const gdi::HBITMAP deleted = gdi::CreateBitmap(5, 5, 1, 1, nullptr);
  gdi::DeleteObject(deleted);
  for (const gdi::HGDIOBJ wrong : {brush, pen, deleted, 0, 12345}) {
    EXPECT_EQ(BitmapSizeOf(wrong).w, 0) << wrong;
    EXPECT_EQ(BitmapSizeOf(wrong).h, 0) << wrong;
  }
  gdi::DeleteObject(brush);
  gdi::DeleteObject(pen);
}

}  // namespace
}  // namespace quenzel7
