#include "platform/gdi/owned.h"

#include <gtest/gtest.h>

#include "platform/gdi/recorder.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

using Calls = std::vector<std::string>;

TEST(OwnedContext, IsMadeLikeAnotherAndDeletedAtTheEnd) {
  const Surface surface(2, 2);
  const std::size_t before = LiveObjects();
  Recorder recorder;
  {
    const OwnedContext context(surface.Dc());
    EXPECT_EQ(LiveObjects(), before + 1);
    EXPECT_NE(GetCurrentObject(context.Get(), OBJ_BITMAP), 0);
  }
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "GetCurrentObject(dc:2, 7)", "DeleteDC(dc:2)"}));
  EXPECT_EQ(LiveObjects(), before);
}

TEST(OwnedContext, ThatCouldNotBeMadeDeletesNothing) {
  Recorder recorder;
  {
    const OwnedContext context(12345);
    EXPECT_EQ(context.Get(), 0);
  }
  EXPECT_EQ(recorder.Calls(), Calls{"CreateCompatibleDC(invalid) -> null"});
}

TEST(OwnedBitmap, IsDeletedAtTheEnd) {
  const std::size_t before = LiveObjects();
  {
    const HBITMAP bitmap = CreateBitmap(2, 2, 1, 1, nullptr);
    const OwnedBitmap owned(bitmap);
    EXPECT_EQ(owned.Get(), bitmap);
    EXPECT_EQ(LiveObjects(), before + 1);
  }
  EXPECT_EQ(LiveObjects(), before);
}

TEST(OwnedBitmap, DeletesTheOldOneWhenItTakesAnother) {
  Recorder recorder;
  OwnedBitmap owned(CreateBitmap(2, 2, 1, 1, nullptr));
  owned.Reset(CreateBitmap(3, 3, 1, 1, nullptr));
  owned.Reset(0);
  EXPECT_EQ(owned.Get(), 0);
  EXPECT_EQ(recorder.Calls(),
            (Calls{"CreateBitmap(2, 2, 1, 1) -> bitmap:1", "CreateBitmap(3, 3, 1, 1) -> bitmap:2",
                   "DeleteObject(bitmap:1)", "DeleteObject(bitmap:2)"}));
}

TEST(OwnedBitmap, GivesItsBitmapAwayUndeleted) {
  const std::size_t before = LiveObjects();
  const HBITMAP bitmap = CreateBitmap(2, 2, 1, 1, nullptr);
  {
    OwnedBitmap owned(bitmap);
    EXPECT_EQ(owned.Release(), bitmap);
    EXPECT_EQ(owned.Get(), 0);
    // There is nothing left to give, nor to delete.
    EXPECT_EQ(owned.Release(), 0);
    owned.Reset(0);
  }
  EXPECT_EQ(LiveObjects(), before + 1);
  DeleteObject(bitmap);
  EXPECT_EQ(LiveObjects(), before);
}

TEST(OwnedBitmap, WithoutABitmapDeletesNothing) {
  Recorder recorder;
  {
    const OwnedBitmap none;
    EXPECT_EQ(none.Get(), 0);
    const OwnedBitmap null(0);
  }
  EXPECT_TRUE(recorder.Calls().empty());
}

TEST(Selection, GivesTheContextBackWhatItHadAndDeletesNothing) {
  const Surface surface(2, 2);
  const HBRUSH brush = CreateSolidBrush(kRed);
  Recorder recorder;
  {
    const Selection selection(surface.Dc(), brush);
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BRUSH), brush);
  }
  EXPECT_EQ(recorder.Calls(), (Calls{"SelectObject(dc:1, brush:1)", "GetCurrentObject(dc:1, 2)",
                                     "SelectObject(dc:1, stock:0)"}));
  EXPECT_EQ(DeleteObject(brush), 1);
}

TEST(Selection, ThatFailedPutsNothingBack) {
  const Surface surface(2, 2);
  Recorder recorder;
  { const Selection selection(surface.Dc(), 0); }
  EXPECT_EQ(recorder.Calls(), Calls{"SelectObject(dc:1, null)"});
}

TEST(OwnedContext, EndsAfterSelectionsAndBitmapsThatAreDeclaredAfterIt) {
  Recorder recorder;
  {
    const OwnedContext context(0);
    const OwnedBitmap bitmap(CreateCompatibleBitmap(context.Get(), 1, 1));
    const Selection selection(context.Get(), bitmap.Get());
    recorder.Take();
  }
  EXPECT_EQ(recorder.Calls(),
            (Calls{"SelectObject(dc:1, default-bitmap)", "DeleteObject(bitmap:1)", "DeleteDC(dc:1)"}));
}

}  // namespace
}  // namespace quenzel7::gdi
