/// Pictures of bitmaps made anew at another size: what is asked of the image library and of the host, in
/// which order, and what the bitmap has afterwards.
#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "shapes/bitmap.h"
#include "tests/support/logging_services.h"
#include "tests/support/picture_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;
using test::PictureSample;

constexpr Long kDx = 30, kDy = 20;
const char* const kOldPixels = "[0 1 3 99 5 6 0 99]";

/// What a bitmap has of its picture, in a line.
std::string PictureOf(const clsBitmap& bitmap) {
  const ItfImage& image = bitmap;
  Descriptor natural;
  bitmap.GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  return image.ImagePath() + ' ' + std::to_string(image.ImageLibCRC()) + ' ' +
         test::SizeText(natural.dx, natural.dy) + ' ' + std::to_string(image.Image8bppCRC()) + ' ' +
         test::SizeText(image.Dx(), image.Dy()) + ' ' + test::BytesText(image.GetImageData8bpp()) + ' ' +
         std::to_string(bitmap.Bits());
}

class ResizedBitmap : public test::PictureTest<clsBitmap> {
 protected:
  void SetUp() override {
    PictureTest::SetUp();
    library_ = std::make_shared<test::LoggingImageLibrary>(Recorder());
    LibraryState::Current().ImageLibrary = library_;
    messages_ = std::make_shared<test::NotingMessages>(Recorder());
    Platform::Current().messageService = messages_;
    Platform::Current().hostFrame = std::make_shared<test::NotingFrame>(Recorder());
  }

  /// The bitmap that the tests resize, which has a row.
  std::shared_ptr<clsBitmap> Made(const PictureSample& sample = {}) {
    auto bitmap = std::make_shared<clsBitmap>();
    test::Give(*bitmap, sample);
    bitmap->ID(6);
    bitmap->hBmp(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
    return bitmap;
  }

  CallLog LogOfResizing(clsBitmap& bitmap, bool expected = true, Long dx = kDx, Long dy = kDy) {
    TakeLog();
    EXPECT_EQ(bitmap.ResizeImageEx(dx, dy, dx, dy), expected);
    return TakeLog();
  }

  std::shared_ptr<test::LoggingImageLibrary> library_;
  std::shared_ptr<test::NotingMessages> messages_;
};

const CallLog kBegin = {"mode pumps\\one.bmp", "pointer 11", "load pumps\\one.bmp 402 30x20"};
const CallLog kFromOriginal = {"from8 [3 5 4 2 6 7] as 6x1", "stretch 6x1 to 30x20",
                               "to8 by 7 30x20 as 30x20"};
const CallLog kEnd = {"pointer 0", "element 6"};

TEST_F(ResizedBitmap, IsReadFromItsFileAgain) {
  const auto bitmap = Made();
  const std::size_t before = gdi::LiveObjects();
  EXPECT_EQ(LogOfResizing(*bitmap),
            test::Joined({kBegin, {"to8 by 7 30x20 as 30x20", "from8 [8 9] as 30x20"}, kEnd}));
  EXPECT_EQ(PictureOf(*bitmap), "pumps\\one.bmp 402 6x1 501 30x20 [8 9] 8");
  EXPECT_EQ(bitmap->hBmp(), library_->ofPixels);
  // The earlier bitmap and the one of the file are gone.
  EXPECT_EQ(gdi::LiveObjects(), before);
  // Its place in the page is the caller's to set.
  EXPECT_EQ(bitmap->Dx(), 3);
  EXPECT_EQ(bitmap->Dy(), 2);
}

TEST_F(ResizedBitmap, OfTwoBytePixelsIsConvertedToThose) {
  const auto bitmap = Made(test::TwoByteSample());
  EXPECT_EQ(LogOfResizing(*bitmap),
            test::Joined({kBegin, {"to16 30x20 as 30x20", "from16 [8 9] as 30x20"}, kEnd}));
  EXPECT_EQ(PictureOf(*bitmap), "pumps\\one.bmp 402 6x1 501 30x20 [8 9] 16");
  EXPECT_EQ(bitmap->hBmp(), library_->ofPixels);
}

TEST_F(ResizedBitmap, IsMadeFromItsOriginalPixelsWhereTheFileIsNotRead) {
  messages_->answer = 7;
  const struct {
    Long status;
    CallLog message;
  } kCases[] = {{1, {"message 377 one.bmp"}}, {2, {"message 378 one.bmp"}}, {6, {}}};
  for (const auto& [status, message] : kCases) {
    for (const bool givesBitmap : {false, true}) {
      library_->loadStatus = status;
      library_->givesBitmapAnyway = givesBitmap;
      const auto bitmap = Made();
      const std::size_t before = gdi::LiveObjects();
      EXPECT_EQ(LogOfResizing(*bitmap), test::Joined({kBegin, kFromOriginal, message, kEnd})) << status;
      EXPECT_EQ(PictureOf(*bitmap), "pumps\\one.bmp 402 6x1 501 30x20 [8 9] 8") << status;
      EXPECT_EQ(bitmap->hBmp(), library_->stretched) << status;
      EXPECT_EQ(gdi::LiveObjects(), before) << status;
    }
  }
}

TEST_F(ResizedBitmap, OfTwoBytePixelsIsMadeFromItsOriginalOnesLikewise) {
  library_->loadStatus = 6;
  const auto bitmap = Made(test::TwoByteSample());
  EXPECT_EQ(LogOfResizing(*bitmap), test::Joined({kBegin,
                                                  {"from16 [31 0 224 7 255 255 0 248 0 0 1 0] as 6x1",
                                                   "stretch 6x1 to 30x20", "to16 30x20 as 30x20"},
                                                  kEnd}));
  EXPECT_EQ(bitmap->hBmp(), library_->stretched);
}

TEST_F(ResizedBitmap, WithoutAFileIsMadeFromItsOriginalPixelsUnasked) {
  PictureSample sample;
  sample.path.clear();
  const auto bitmap = Made(sample);
  EXPECT_EQ(LogOfResizing(*bitmap), test::Joined({{"mode ", "pointer 11"}, kFromOriginal, kEnd}));
  EXPECT_EQ(PictureOf(*bitmap), " 402 6x1 501 30x20 [8 9] 8");
}

TEST_F(ResizedBitmap, StaysAsItIsAfterAnyOtherStatus) {
  for (const Long status : {3, 4, 5, 7, -1}) {
    library_->loadStatus = status;
    library_->givesBitmapAnyway = true;
    const auto bitmap = Made();
    const Long hBmp = bitmap->hBmp();
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(LogOfResizing(*bitmap), test::Joined({kBegin, kEnd})) << status;
    EXPECT_EQ(PictureOf(*bitmap), std::string("pumps\\one.bmp 402 6x1 401 3x2 ") + kOldPixels + " 8");
    EXPECT_EQ(bitmap->hBmp(), hBmp);
    EXPECT_EQ(gdi::LiveObjects(), before);
  }
}

TEST_F(ResizedBitmap, StaysAsItIsWhenItCannotBeConverted) {
  messages_->answer = 7;
  for (const Long loadStatus : {0, 1, 6}) {
    for (const Long status : {1, 3, 5, 7}) {
      library_->loadStatus = loadStatus;
      library_->convertStatus = status;
      const auto bitmap = Made();
      const Long hBmp = bitmap->hBmp();
      const std::size_t before = gdi::LiveObjects();
      const CallLog message = loadStatus == 1 ? CallLog{"message 377 one.bmp"} : CallLog{};
      EXPECT_EQ(LogOfResizing(*bitmap), loadStatus == 0
                                            ? test::Joined({kBegin, {"to8 by 7 30x20 as 30x20"}, kEnd})
                                            : test::Joined({kBegin, kFromOriginal, message, kEnd}));
      EXPECT_EQ(PictureOf(*bitmap), std::string("pumps\\one.bmp 402 6x1 401 3x2 ") + kOldPixels + " 8");
      EXPECT_EQ(bitmap->hBmp(), hBmp);
      EXPECT_EQ(gdi::LiveObjects(), before);
    }
  }
}

TEST_F(ResizedBitmap, InNearColorsIsConverted) {
  for (const Long loadStatus : {0, 6}) {
    library_->loadStatus = loadStatus;
    library_->convertStatus = 6;
    const auto bitmap = Made();
    LogOfResizing(*bitmap);
    EXPECT_EQ(PictureOf(*bitmap), "pumps\\one.bmp 402 6x1 501 30x20 [8 9] 8");
  }
}

// --- Another file ---

const loomis2::LibraryPicture kOther{"other.gif", 602, 5, 4, {6}, 601, 31, 21, {7, 7}, 16};
const char* const kSelected = "select pumps\\one.bmp 402 6x1[3 5 4 2 6 7] 501 30x20[8 9] 8 for 30x20";

TEST_F(ResizedBitmap, TakesAllOfAnotherFileThatTheUserChooses) {
  library_->selected = kOther;
  for (const Long status : {1, 2}) {
    library_->loadStatus = status;
    const auto bitmap = Made();
    const std::size_t before = gdi::LiveObjects();
    const CallLog message = {status == 1 ? "message 377 one.bmp" : "message 378 one.bmp"};
    EXPECT_EQ(LogOfResizing(*bitmap), test::Joined({kBegin, kFromOriginal, message, {kSelected}, kEnd}));
    EXPECT_EQ(PictureOf(*bitmap), "other.gif 602 5x4 601 31x21 [7 7] 16");
    // The bitmap was that of the earlier file.
    EXPECT_EQ(bitmap->hBmp(), 0);
    EXPECT_EQ(gdi::LiveObjects(), before - 1);
    // The original pixels too, which the next resizing shows.
    library_->loadStatus = 6;
    EXPECT_EQ(LogOfResizing(*bitmap),
              (CallLog{"mode other.gif", "pointer 11", "load other.gif 602 30x20", "from16 [6] as 5x4",
                       "stretch 5x4 to 30x20", "to16 30x20 as 30x20", "pointer 0", "element 6"}));
  }
}

TEST_F(ResizedBitmap, KeepsWhatItHasWhenTheChoiceIsNotDone) {
  library_->selected = kOther;
  library_->loadStatus = 1;
  for (const Long status : {1, 2, 4, 6, -1}) {
    library_->selectStatus = status;
    const auto bitmap = Made();
    EXPECT_EQ(LogOfResizing(*bitmap),
              test::Joined({kBegin, kFromOriginal, {"message 377 one.bmp", kSelected}, kEnd}));
    EXPECT_EQ(PictureOf(*bitmap), "pumps\\one.bmp 402 6x1 501 30x20 [8 9] 8");
  }
}

TEST_F(ResizedBitmap, IsOfTheNewSizeOnlyWhileTheUserChoosesWhenItCouldNotBeConverted) {
  library_->loadStatus = 2;
  library_->convertStatus = 3;
  library_->selectStatus = 4;
  const auto bitmap = Made();
  EXPECT_EQ(
      LogOfResizing(*bitmap).at(7),
      std::string("select pumps\\one.bmp 402 6x1[3 5 4 2 6 7] 401 30x20") + kOldPixels + " 8 for 30x20");
  EXPECT_EQ(PictureOf(*bitmap), std::string("pumps\\one.bmp 402 6x1 401 3x2 ") + kOldPixels + " 8");
}

TEST_F(ResizedBitmap, AsksForNoFileUnlessTheAnswerIsYes) {
  library_->loadStatus = 1;
  for (const Long answer : {0, 1, 2, 5, 7}) {
    messages_->answer = answer;
    EXPECT_EQ(LogOfResizing(*Made()), test::Joined({kBegin, kFromOriginal, {"message 377 one.bmp"}, kEnd}));
  }
}

TEST_F(ResizedBitmap, NamesTheFileBehindTheSourceInAMessage) {
  library_->loadStatus = 1;
  messages_->answer = 7;
  PictureSample sample;
  sample.path = "library one;c:\\new\\pump station.jpg";
  EXPECT_EQ(LogOfResizing(*Made(sample)).at(6), "message 377 pump station.jpg");
}

// --- Nothing to do ---

TEST_F(ResizedBitmap, OfTheSizeThatItHasTouchesNothingButTheTracker) {
  const auto bitmap = Made();
  const std::string before = PictureOf(*bitmap);
  const Long hBmp = bitmap->hBmp();
  EXPECT_EQ(LogOfResizing(*bitmap, false, 3, 2), (CallLog{"mode pumps\\one.bmp", "element 6"}));
  EXPECT_EQ(PictureOf(*bitmap), before);
  EXPECT_EQ(bitmap->hBmp(), hBmp);
  // One measure alone is another size.
  EXPECT_EQ(LogOfResizing(*bitmap, true, 3, 4).at(2), "load pumps\\one.bmp 402 3x4");
  EXPECT_EQ(LogOfResizing(*bitmap, true, 5, 4).at(2), "load pumps\\one.bmp 402 5x4");
}

TEST_F(ResizedBitmap, WithoutAPictureOrPaintedByOthersStays) {
  for (const Long crc : {-1, 0x3F3F3F3F}) {
    PictureSample sample;
    sample.crc = crc;
    const auto bitmap = Made(sample);
    const std::string before = PictureOf(*bitmap);
    EXPECT_EQ(LogOfResizing(*bitmap, false), (CallLog{"mode pumps\\one.bmp", "element 6"})) << crc;
    EXPECT_EQ(PictureOf(*bitmap), before) << crc;
  }
  for (const Long crc : {0, -2, 0x3F3F3F3E}) {
    PictureSample sample;
    sample.crc = crc;
    LogOfResizing(*Made(sample));
  }
}

TEST_F(ResizedBitmap, TheOldSizeDoesNotCount) {
  const auto bitmap = Made();
  EXPECT_TRUE(bitmap->ResizeImageEx(kDx, kDy, kDx, kDy));
  EXPECT_FALSE(bitmap->ResizeImageEx(3, 2, kDx, kDy));
  EXPECT_EQ(automation::InvokeByName(*bitmap, "ResizeImageEx", {Long{1}, Long{1}, Long{4}, Long{4}}),
            automation::Variant(true));
}

TEST_F(ResizedBitmap, IsToldOfUnlessItHasNoRow) {
  const auto bitmap = Made();
  for (const Long id : {0, -2, 7}) {
    bitmap->ID(id);
    EXPECT_EQ(LogOfResizing(*bitmap, false, 3, 2).back(), "element " + std::to_string(id));
  }
  bitmap->ID(-1);
  EXPECT_EQ(LogOfResizing(*bitmap, false, 3, 2), CallLog{"mode pumps\\one.bmp"});
  EXPECT_EQ(LogOfResizing(*bitmap).back(), "pointer 0");
}

// --- Errors ---

TEST_F(ResizedBitmap, PutsThePointerBackAndTellsNobodyWhenTheLibraryRaises) {
  for (const char* operation : {"load", "stretch", "to8", "from8 ", "select"}) {
    library_->loadStatus = 1;
    library_->failing = operation;
    const auto bitmap = Made();
    TakeLog();
    EXPECT_EQ(ErrorOf([&] { bitmap->ResizeImageEx(0, 0, kDx, kDy); }), 5) << operation;
    EXPECT_EQ(TakeLog().back(), "pointer 0") << operation;
  }
  library_->failing = "mode";
  const auto bitmap = Made();
  TakeLog();
  EXPECT_EQ(ErrorOf([&] { bitmap->ResizeImageEx(0, 0, kDx, kDy); }), 5);
  EXPECT_EQ(TakeLog(), CallLog{"mode pumps\\one.bmp"});
}

TEST_F(ResizedBitmap, DeletesItsBitmapBeforeItMakesTheNext) {
  library_->failing = "from8 ";
  const auto bitmap = Made();
  const std::size_t before = gdi::LiveObjects();
  EXPECT_EQ(ErrorOf([&] { bitmap->ResizeImageEx(0, 0, kDx, kDy); }), 5);
  EXPECT_EQ(bitmap->hBmp(), 0);
  EXPECT_EQ(gdi::LiveObjects(), before - 1);
}

TEST_F(ResizedBitmap, NeedsAnImageLibrary) {
  const auto bitmap = Made();
  LibraryState::Current().ImageLibrary = nullptr;
  TakeLog();
  EXPECT_EQ(ErrorOf([&] { bitmap->ResizeImageEx(0, 0, 3, 2); }), 91);
  EXPECT_TRUE(TakeLog().empty());
}

}  // namespace
}  // namespace quenzel7
