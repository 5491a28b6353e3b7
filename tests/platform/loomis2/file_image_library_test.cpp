#include "platform/loomis2/file_image_library.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"
#include "platform/loomis2/bitmap_picture.h"
#include "platform/loomis2/panel_pixels.h"
#include "platform/loomis2/resized_picture.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;
using Bytes = std::vector<Byte>;
using Pixels = std::vector<std::uint32_t>;

Variant Colors(Long first) {
  Array colors = Array::OfSize(VariantKind::Long, 2);
  colors.Set(0, first);
  colors.Set(1, Long{0xFFFFFF});
  return colors;
}

TEST(FileImageLibrary, IsEmptyAtFirst) {
  const FileImageLibrary library(nullptr);
  EXPECT_EQ(library.Name(), "");
  EXPECT_EQ(library.Folder(), "");
  EXPECT_EQ(library.Palette(), Variant());
}

TEST(FileImageLibrary, HoldsWhatItIsGiven) {
  FileImageLibrary library(nullptr);
  library.Name("plant");
  library.Folder("C:\\Images\\");
  library.Palette(Colors(5));
  EXPECT_EQ(library.Name(), "plant");
  EXPECT_EQ(library.Folder(), "C:\\Images\\");
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(FileImageLibrary, KeepsThePaletteAsItWasGiven) {
  FileImageLibrary library(nullptr);
  Variant colors = Colors(5);
  library.Palette(colors);
  colors.MutableElements().Set(0, Long{6});
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(FileImageLibrary, TakesNothingElseForAPalette) {
  FileImageLibrary library(nullptr);
  library.Palette(Colors(5));
  for (const Variant& other :
       {Variant(), Variant(Long{1}), Variant("5"), Variant(Array::OfSize(VariantKind::Byte, 2)),
        Variant(Array::OfSize(VariantKind::Variant, 2)), Variant(Array(VariantKind::Long, {0, 1}, {0, 1}))}) {
    EXPECT_RAISES(13, "a palette is an array of 32-bit integers of one dimension", library.Palette(other));
    EXPECT_EQ(library.Palette(), Colors(5));
  }
}

TEST(FileImageLibrary, IsReachedByName) {
  FileImageLibrary library(nullptr);
  automation::PutByName(library, "name", "plant");
  automation::PutByName(library, "FOLDER", "here");
  automation::PutByName(library, "Palette", Colors(7));
  EXPECT_EQ(automation::GetByName(library, "Name"), Variant("plant"));
  EXPECT_EQ(automation::GetByName(library, "Folder"), Variant("here"));
  EXPECT_EQ(automation::GetByName(library, "Palette"), Colors(7));
  EXPECT_EQ(library.Name(), "plant");
  EXPECT_EQ(library.Folder(), "here");
  EXPECT_EQ(library.Palette(), Colors(7));
}

Variant PaletteOf(const std::vector<Long>& colors) {
  Array palette = Array::OfSize(VariantKind::Long, static_cast<Long>(colors.size()));
  for (std::size_t i = 0; i < colors.size(); ++i) palette.Set(static_cast<Long>(i), colors[i]);
  return palette;
}

/// Black, white, red, green and blue.
const Variant kPalette = PaletteOf({0x000000, 0xFFFFFF, 0x0000FF, 0x00FF00, 0xFF0000});
constexpr std::uint32_t kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF, kWhite = 0xFFFFFF;

/// What a bitmap shows, which is deleted.
Picture Shown(gdi::HBITMAP bitmap) {
  const gdi::OwnedBitmap owned(bitmap);
  return PictureOf(bitmap).value_or(Picture());
}

class Pictures : public ::testing::Test {
 protected:
  Pictures() { library_.Palette(kPalette); }
  ~Pictures() override { EXPECT_EQ(gdi::LiveObjects(), live_); }

  const std::size_t live_ = gdi::LiveObjects();
  std::shared_ptr<PreparedFileChooser> chooser_ = std::make_shared<PreparedFileChooser>();
  FileImageLibrary library_{chooser_};
};

// Bitmaps of panel pixels.

TEST_F(Pictures, OfPaletteIndicesBecomeBitmapsInThePanelsColors) {
  const Picture picture = Shown(library_.CreateBitmapFrom8bpp({0, 1, 2, 9, 3, 4, 0, 9}, 3, 2));
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.pixels, (Pixels{0, kWhite, kRed, kGreen, kBlue, 0}));
}

TEST_F(Pictures, OfIndicesThatAreNoneGiveNoBitmap) {
  EXPECT_EQ(library_.CreateBitmapFrom8bpp({0, 1, 2, 0}, 3, 2), 0);
  EXPECT_EQ(library_.CreateBitmapFrom8bpp({0, 5}, 2, 1), 0);
  EXPECT_EQ(library_.CreateBitmapFrom8bpp({}, 0, 0), 0);
}

TEST_F(Pictures, OfIndicesNeedAPalette) {
  constexpr auto kMissing = "the panel has no palette of 1 to 256 colours";
  EXPECT_RAISES(5, kMissing, FileImageLibrary(nullptr).CreateBitmapFrom8bpp({0, 0}, 2, 1));
  EXPECT_RAISES(5, kMissing, FileImageLibrary(nullptr).CreateBitmapFrom8bpp({0}, 2, 1));
  library_.Palette(Array::OfSize(VariantKind::Long, 257));
  EXPECT_RAISES(5, kMissing, library_.CreateBitmapFrom8bpp({0, 0}, 2, 1));
}

TEST_F(Pictures, OfTwoBytesAPixelBecomeBitmaps) {
  FileImageLibrary library(nullptr);
  const Picture picture = Shown(library.CreateBitmapFrom16bpp({0x00, 0xF8, 0x1F, 0x00}, 1, 2));
  EXPECT_EQ(picture.width, 1);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.pixels, (Pixels{kRed, kBlue}));
  EXPECT_EQ(library.CreateBitmapFrom16bpp({0, 0, 0}, 1, 2), 0);
}

TEST_F(Pictures, BecomeBitmapsUpToTheLongestSide) {
  for (const auto& [dx, dy] : {std::pair{32767, 1}, {1, 32767}}) {
    EXPECT_EQ(Shown(library_.CreateBitmapFrom8bpp(Bytes(65536u - (dx == 1 ? 2 : 32768)), dx, dy)).width, dx);
    EXPECT_EQ(Shown(library_.CreateBitmapFrom16bpp(Bytes(65534), dx, dy)).height, dy);
  }
  for (const auto& [dx, dy] : {std::pair{32768, 1}, {1, 32768}}) {
    EXPECT_EQ(library_.CreateBitmapFrom8bpp(Bytes(dx == 1 ? 65536 : 32768), dx, dy), 0);
    EXPECT_EQ(library_.CreateBitmapFrom16bpp(Bytes(65536), dx, dy), 0);
  }
}

TEST_F(Pictures, BeyondTheLongestSideAreNeitherStretchedNorConverted) {
  Bytes pixels{1};
  Long crc = 77;
  for (const auto& [dx, dy] : {std::pair{32768, 1}, {1, 32768}}) {
    const gdi::OwnedBitmap bitmap(BitmapOf({dx, dy, Pixels(32768)}));
    EXPECT_EQ(library_.StretchBitmap(bitmap.Get(), 1, 1), 0);
    EXPECT_EQ(library_.ConvertBitmapTo8bpp(0, bitmap.Get(), kPalette, dx, dy, pixels, crc), kImageRefused);
    EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), dx, dy, pixels, crc), kImageRefused);
  }
  EXPECT_EQ(pixels, Bytes{1});
  EXPECT_EQ(crc, 77);
  for (const auto& [dx, dy] : {std::pair{32767, 1}, {1, 32767}}) {
    const gdi::OwnedBitmap bitmap(BitmapOf({dx, dy, Pixels(32767, kWhite)}));
    EXPECT_EQ(Shown(library_.StretchBitmap(bitmap.Get(), 1, 1)).pixels, Pixels{kWhite});
    EXPECT_EQ(library_.ConvertBitmapTo8bpp(0, bitmap.Get(), kPalette, dx, dy, pixels, crc), kImageDone);
    EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), dx, dy, pixels, crc), kImageDone);
  }
}

// Stretching.

TEST_F(Pictures, AreStretchedAndTheOldBitmapStays) {
  const gdi::OwnedBitmap bitmap(BitmapOf({4, 1, {kRed, kRed, kGreen, kBlue}}));
  const Picture half = Shown(library_.StretchBitmap(bitmap.Get(), 2, 1));
  EXPECT_EQ(half.pixels, (Pixels{kRed, 0x008080}));
  const Picture higher = Shown(library_.StretchBitmap(bitmap.Get(), 4, 2));
  EXPECT_EQ(higher.pixels, (Pixels{kRed, kRed, kGreen, kBlue, kRed, kRed, kGreen, kBlue}));
  EXPECT_EQ(PictureOf(bitmap.Get())->pixels, (Pixels{kRed, kRed, kGreen, kBlue}));
}

TEST_F(Pictures, OfOneBitAreStretchedIntoGrays) {
  const Byte bits[] = {0x80, 0};
  const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(2, 1, 1, 1, bits));
  EXPECT_EQ(Shown(library_.StretchBitmap(bitmap.Get(), 1, 1)).pixels, Pixels{0x808080});
  EXPECT_EQ(Shown(library_.StretchBitmap(bitmap.Get(), 2, 1)).pixels, (Pixels{kWhite, 0}));
}

TEST_F(Pictures, AreNotStretchedToWhatIsNoSize) {
  const gdi::OwnedBitmap bitmap(BitmapOf({1, 1, {kRed}}));
  for (const auto& [dx, dy] : {std::pair{0, 1},
                               {1, 0},
                               {-1, 1},
                               {1, -1},
                               {-1, -1},
                               {32768, 1},
                               {1, 32768},
                               {32767, 2049},
                               {0x10000, 0x10000}}) {
    EXPECT_EQ(library_.StretchBitmap(bitmap.Get(), dx, dy), 0) << dx << " x " << dy;
  }
  EXPECT_EQ(Shown(library_.StretchBitmap(bitmap.Get(), 32767, 1)).pixels, Pixels(32767, kRed));
  EXPECT_EQ(Shown(library_.StretchBitmap(bitmap.Get(), 1, 32767)).pixels, Pixels(32767, kRed));
}

TEST_F(Pictures, OfTheMostPixelsThereAreAreStretched) {
  const gdi::OwnedBitmap bitmap(BitmapOf({1, 1, {kRed}}));
  const gdi::OwnedBitmap most(library_.StretchBitmap(bitmap.Get(), 8192, 8192));
  EXPECT_NE(most.Get(), 0);
  EXPECT_EQ(library_.StretchBitmap(bitmap.Get(), 8192, 8193), 0);
  EXPECT_EQ(library_.StretchBitmap(bitmap.Get(), 8193, 8192), 0);
}

TEST_F(Pictures, AreNotStretchedWithoutABitmap) {
  EXPECT_EQ(library_.StretchBitmap(0, 1, 1), 0);
  EXPECT_EQ(library_.StretchBitmap(gdi::GetStockObject(gdi::WHITE_BRUSH), 1, 1), 0);
}

// Conversions.

TEST_F(Pictures, InThePanelsColorsBecomeTheirIndices) {
  const gdi::OwnedBitmap bitmap(BitmapOf({3, 2, {0, kWhite, kRed, kGreen, kBlue, 0}}));
  for (const Long mode : {kNearestColor, kErrorDiffusion}) {
    Bytes pixels{77};
    Long crc = 0;
    EXPECT_EQ(library_.ConvertBitmapTo8bpp(mode, bitmap.Get(), kPalette, 3, 2, pixels, crc), kImageDone);
    EXPECT_EQ(pixels, (Bytes{0, 1, 2, 0, 3, 4, 0, 0}));
    EXPECT_EQ(crc, PictureCrc(pixels));
  }
}

TEST_F(Pictures, InOtherColorsAreApproximatedByModes) {
  const gdi::OwnedBitmap bitmap(BitmapOf({4, 1, {0x6A6A6A, 0x6A6A6A, 0x6A6A6A, 0x6A6A6A}}));
  Bytes pixels;
  Long crc = 0;
  const Variant palette = PaletteOf({0x000000, 0xFFFFFF});
  EXPECT_EQ(library_.ConvertBitmapTo8bpp(kNearestColor, bitmap.Get(), palette, 4, 1, pixels, crc),
            kImageApproximated);
  EXPECT_EQ(pixels, (Bytes{0, 0, 0, 0}));
  EXPECT_EQ(crc, PictureCrc(pixels));
  EXPECT_EQ(library_.ConvertBitmapTo8bpp(kErrorDiffusion, bitmap.Get(), palette, 4, 1, pixels, crc),
            kImageApproximated);
  EXPECT_EQ(pixels, (Bytes{0, 1, 0, 1}));
  EXPECT_EQ(crc, PictureCrc(pixels));
}

TEST_F(Pictures, AreConvertedToEachPaletteInTurn) {
  const gdi::OwnedBitmap bitmap(BitmapOf({2, 1, {0xF00000, 0x0000F0}}));
  const auto converted = [&](const Variant& palette) {
    Bytes pixels;
    Long crc = 0;
    library_.ConvertBitmapTo8bpp(kNearestColor, bitmap.Get(), palette, 2, 1, pixels, crc);
    return pixels;
  };
  const Variant redBlue = PaletteOf({0x0000FF, 0xFF0000}), blueRed = PaletteOf({0xFF0000, 0x0000FF});
  EXPECT_EQ(converted(redBlue), (Bytes{0, 1}));
  EXPECT_EQ(converted(blueRed), (Bytes{1, 0}));
  EXPECT_EQ(converted(redBlue), (Bytes{0, 1}));
  EXPECT_EQ(converted(PaletteOf({0})), (Bytes{0, 0}));
}

TEST_F(Pictures, OfOneBitAreConverted) {
  const Byte bits[] = {0x40, 0};
  const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(2, 1, 1, 1, bits));
  Bytes pixels;
  Long crc = 0;
  EXPECT_EQ(library_.ConvertBitmapTo8bpp(kNearestColor, bitmap.Get(), kPalette, 2, 1, pixels, crc),
            kImageDone);
  EXPECT_EQ(pixels, (Bytes{0, 1}));
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), 2, 1, pixels, crc), kImageDone);
  EXPECT_EQ(pixels, (Bytes{0, 0, 0xFF, 0xFF}));
}

TEST_F(Pictures, AreNotConvertedWhenSomethingIsWrongAndPixelsAndCrcStay) {
  const gdi::OwnedBitmap bitmap(BitmapOf({2, 3, Pixels(6)}));
  Bytes pixels{1, 2, 3};
  Long crc = 77;
  const auto to8 = [&](Long mode, gdi::HBITMAP from, const Variant& palette, Long dx, Long dy) {
    return library_.ConvertBitmapTo8bpp(mode, from, palette, dx, dy, pixels, crc);
  };
  EXPECT_EQ(to8(2, bitmap.Get(), kPalette, 2, 3), kImageRefused);
  EXPECT_EQ(to8(-1, bitmap.Get(), kPalette, 2, 3), kImageRefused);
  EXPECT_EQ(to8(0, 0, kPalette, 2, 3), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), Variant(), 2, 3), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), Array::OfSize(VariantKind::Long, 0), 2, 3), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), Array::OfSize(VariantKind::Long, 257), 2, 3), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), kPalette, 3, 3), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), kPalette, 2, 2), kImageRefused);
  EXPECT_EQ(to8(0, bitmap.Get(), kPalette, 3, 2), kImageRefused);
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(0, 2, 3, pixels, crc), kImageRefused);
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), 3, 3, pixels, crc), kImageRefused);
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), 2, 4, pixels, crc), kImageRefused);
  EXPECT_EQ(pixels, (Bytes{1, 2, 3}));
  EXPECT_EQ(crc, 77);
  EXPECT_EQ(to8(0, bitmap.Get(), kPalette, 2, 3), kImageDone);
  EXPECT_EQ(pixels, Bytes(6));
}

TEST_F(Pictures, AreConvertedToTwoBytesAPixel) {
  Bytes pixels;
  Long crc = 0;
  const gdi::OwnedBitmap exact(BitmapOf({1, 2, {kRed, kGreen}}));
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(exact.Get(), 1, 2, pixels, crc), kImageDone);
  EXPECT_EQ(pixels, (Bytes{0x00, 0xF8, 0xE0, 0x07}));
  EXPECT_EQ(crc, PictureCrc(pixels));
  const gdi::OwnedBitmap other(BitmapOf({1, 2, {kRed, 0x00FE00}}));
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(other.Get(), 1, 2, pixels, crc), kImageApproximated);
  EXPECT_EQ(pixels, (Bytes{0x00, 0xF8, 0xE0, 0x07}));
}

RC_GTEST_PROP(PaletteIndices, AreThereAgainAfterBitmapAndConversion, ()) {
  const auto dx = *rc::gen::inRange<Long>(1, 20), dy = *rc::gen::inRange<Long>(1, 20);
  std::vector<Long> colors;
  // All different, so that each index is the first of its colour.
  for (Long i = 0; i < 256; ++i) colors.push_back(i * 0x10307 & 0xFFFFFF);
  const Variant palette = PaletteOf(colors);
  FileImageLibrary library(nullptr);
  library.Palette(palette);
  auto pixels =
      *rc::gen::container<Bytes>(static_cast<std::size_t>((dx + dx % 2) * dy), rc::gen::arbitrary<Byte>());
  for (Long y = 0; dx % 2 != 0 && y < dy; ++y) pixels[static_cast<std::size_t>(y * (dx + 1) + dx)] = 0;
  const gdi::OwnedBitmap bitmap(library.CreateBitmapFrom8bpp(pixels, dx, dy));
  for (const Long mode : {kNearestColor, kErrorDiffusion}) {
    Bytes back;
    Long crc = 0;
    RC_ASSERT(library.ConvertBitmapTo8bpp(mode, bitmap.Get(), palette, dx, dy, back, crc) == kImageDone);
    RC_ASSERT(back == pixels);
    RC_ASSERT(crc == PictureCrc(pixels));
  }
}

// Room. A picture of 100 x 100 pixels takes 40000 bytes.

TEST_F(Pictures, ThatThereIsNoRoomForAreNotTakenForDamagedOnes) {
  constexpr auto kNoRoom = "there is no room for the picture";
  const gdi::OwnedBitmap bitmap(BitmapOf({100, 100, Pixels(10000)}));
  const Bytes indices(10000), words(20000);
  Bytes pixels{1, 2, 3};
  Long crc = 77;
  for (const std::size_t limit : {9999u, 19999u, 39999u}) {
    const automation::AllocationWatch watch(limit);
    EXPECT_RAISES(7, kNoRoom, library_.CreateBitmapFrom8bpp(indices, 100, 100));
    EXPECT_RAISES(7, kNoRoom, library_.CreateBitmapFrom16bpp(words, 100, 100));
    EXPECT_RAISES(7, kNoRoom, library_.StretchBitmap(bitmap.Get(), 1, 1));
    for (const Long mode : {kNearestColor, kErrorDiffusion})
      EXPECT_EQ(library_.ConvertBitmapTo8bpp(mode, bitmap.Get(), kPalette, 100, 100, pixels, crc),
                kImageRefused);
    EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), 100, 100, pixels, crc), kImageRefused);
  }
  EXPECT_EQ(pixels, (Bytes{1, 2, 3}));
  EXPECT_EQ(crc, 77);
  EXPECT_EQ(library_.ConvertBitmapTo16bpp(bitmap.Get(), 100, 100, pixels, crc), kImageDone);
}

TEST_F(Pictures, HaveTheConversionModeOfTheirFilesEnding) {
  for (const char* path :
       {"a.jpg", "a.jpeg", "A.JPG", "a.JpEg", "library;C:\\Images\\a.jpg", "a.bmp.jpg", ".jpg"})
    EXPECT_EQ(library_.GetConversionMode(path), kErrorDiffusion) << path;
  for (const char* path : {"", "a.bmp", "a.gif", "jpg", "ajpg", "jpeg", "a.jpg.bmp", "a.jpg;b.bmp", "a.jpg/b",
                           "a.jpg ", "a.jpe", "a.jpgg"}) {
    EXPECT_EQ(library_.GetConversionMode(path), kNearestColor) << path;
  }
}

// Files.

/// A bitmap file of 24 bits a pixel.
std::string BmpOf(const Picture& picture) {
  const auto number = [](std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> 8 * i));
    return text;
  };
  std::string rows;
  for (Long y = picture.height - 1; y >= 0; --y) {
    for (Long x = 0; x < picture.width; ++x)
      rows += number(picture.pixels[static_cast<std::size_t>(y * picture.width + x)], 3);
    rows.resize((rows.size() + 3) / 4 * 4);
  }
  const auto size = static_cast<std::uint32_t>(54 + rows.size());
  return "BM" + number(size, 4) + number(0, 4) + number(54, 4) + number(40, 4) +
         number(static_cast<std::uint32_t>(picture.width), 4) +
         number(static_cast<std::uint32_t>(picture.height), 4) + number(1, 2) + number(24, 2) +
         std::string(24, '\0') + rows;
}

class PictureFiles : public Pictures {
 protected:
  PictureFiles() {
    Write("plain.bmp", kPicture);
    library_.Folder(folder_.Path() + "\\");
  }
  std::string Write(const std::string& name, const Picture& picture) {
    return WriteBytes(name, BmpOf(picture));
  }
  std::string WriteBytes(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_.File(name), std::ios::binary) << bytes;
    return folder_.File(name);
  }
  Long CrcOf(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(folder_.File(name), std::ios::binary).rdbuf();
    const std::string bytes = text.str();
    return PictureCrc(Bytes(bytes.begin(), bytes.end()));
  }
  /// The status of loading; the bitmap must be there when it is done, and only then.
  Long Load(const std::string& path, Long libCrc, Long dx, Long dy) {
    Long status = 77;
    const gdi::OwnedBitmap bitmap(library_.LoadResizedImage(path, libCrc, dx, dy, status));
    EXPECT_EQ(bitmap.Get() != 0, status == kImageDone);
    return status;
  }

  const Picture kPicture{4, 2, {kRed, kRed, kGreen, kGreen, kRed, kRed, kBlue, kBlue}};
  const test::TemporaryFolder folder_;
};

TEST_F(PictureFiles, AreLoadedAtTheSizeAskedFor) {
  Long status = 77;
  const Picture half = Shown(library_.LoadResizedImage("plain.bmp", -1, 2, 1, status));
  EXPECT_EQ(status, kImageDone);
  EXPECT_EQ(half.width, 2);
  EXPECT_EQ(half.height, 1);
  EXPECT_EQ(half.pixels, (Pixels{kRed, 0x008080}));
  const Picture own = Shown(library_.LoadResizedImage(folder_.File("plain.bmp"), -1, 4, 2, status));
  EXPECT_EQ(own.pixels, kPicture.pixels);
  EXPECT_EQ(Shown(library_.LoadResizedImage("library;plain.bmp", -1, 4, 2, status)).pixels, kPicture.pixels);
}

TEST_F(PictureFiles, AreLoadedOnlyWithTheCrcAskedFor) {
  const Long crc = CrcOf("plain.bmp");
  EXPECT_EQ(Load("plain.bmp", crc, 2, 1), kImageDone);
  EXPECT_EQ(Load("plain.bmp", crc + 1, 2, 1), kImageFileNotRead);
  EXPECT_EQ(Load("plain.bmp", 0, 2, 1), kImageFileNotRead);
  EXPECT_EQ(Load("plain.bmp", -1, 2, 1), kImageDone);
  // The first file that is found counts, whatever its CRC.
  Write("plain.bmp", {1, 1, {kBlue}});
  EXPECT_EQ(Load("plain.bmp", crc, 2, 1), kImageFileNotRead);
}

TEST_F(PictureFiles, ThatAreNotThereAreToldApartFromThoseThatCannotBeRead) {
  EXPECT_EQ(Load("none.bmp", -1, 2, 1), kImageFileNotFound);
  EXPECT_EQ(Load("", -1, 2, 1), kImageFileNotFound);
  WriteBytes("text.bmp", "no picture");
  EXPECT_EQ(Load("text.bmp", -1, 2, 1), kImageFileNotRead);
  WriteBytes("empty.bmp", "");
  EXPECT_EQ(Load("empty.bmp", -1, 2, 1), kImageFileNotRead);
  EXPECT_EQ(Load(folder_.Path(), -1, 2, 1), kImageFileNotRead);
  ASSERT_EQ(mkfifo(folder_.File("pipe.bmp").c_str(), 0600), 0);
  EXPECT_EQ(Load("pipe.bmp", -1, 2, 1), kImageFileNotRead);
}

TEST_F(PictureFiles, AreNotLoadedAtWhatIsNoSize) {
  for (const auto& [dx, dy] : {std::pair{0, 0}, {0, 1}, {1, 0}, {-1, 1}, {1, -1}, {32768, 1}, {8193, 8192}})
    EXPECT_EQ(Load("plain.bmp", -1, dx, dy), kImageRefused) << dx << " x " << dy;
  EXPECT_EQ(Load("none.bmp", -1, 0, 0), kImageRefused);
}

TEST_F(PictureFiles, AreReadAtTheirOwnSizeAndAtTheOneAskedFor) {
  const LibraryPicture picture = library_.ReadPicture("library;plain.bmp", 3, 1, 0);
  EXPECT_EQ(picture.path, "library;plain.bmp");
  EXPECT_EQ(picture.libCrc, CrcOf("plain.bmp"));
  EXPECT_EQ(picture.dxOrg, 4);
  EXPECT_EQ(picture.dyOrg, 2);
  EXPECT_EQ(picture.dataOrg, (Bytes{2, 2, 3, 3, 2, 2, 4, 4}));
  EXPECT_EQ(picture.dx, 3);
  EXPECT_EQ(picture.dy, 1);
  EXPECT_EQ(picture.data.size(), 4u);
  EXPECT_EQ(picture.data[0], 2);
  EXPECT_EQ(picture.data[3], 0);
  EXPECT_EQ(picture.crc, PictureCrc(picture.data));
  EXPECT_EQ(picture.bits, 0);
  // What is shown is reduced from the file, not from its panel pixels.
  const gdi::OwnedBitmap third(BitmapOf(Resized(kPicture, 3, 1)));
  Bytes pixels;
  Long crc = 0;
  library_.ConvertBitmapTo8bpp(kNearestColor, third.Get(), kPalette, 3, 1, pixels, crc);
  EXPECT_EQ(picture.data, pixels);
}

TEST_F(PictureFiles, AreReadAtTheirOwnSizeWhenNoneIsAskedFor) {
  const LibraryPicture picture = library_.ReadPicture("plain.bmp", 0, 0, 0);
  EXPECT_EQ(picture.dx, 4);
  EXPECT_EQ(picture.dy, 2);
  EXPECT_EQ(picture.data, (Bytes{2, 2, 3, 3, 2, 2, 4, 4}));
  EXPECT_EQ(picture.data, picture.dataOrg);
  EXPECT_EQ(picture.crc, PictureCrc(picture.data));
}

TEST_F(PictureFiles, AreConvertedOnceWhenTheirOwnSizeIsTheOneAskedFor) {
  Write("large.bmp", {100, 100, Pixels(10000)});
  const auto allocations = [&](Long dx) {
    const automation::AllocationWatch watch;
    library_.ReadPicture("large.bmp", dx, dx, 16);
    return watch.Count();
  };
  EXPECT_EQ(allocations(0), allocations(100));
  EXPECT_LT(allocations(100), allocations(99));
}

TEST_F(PictureFiles, AreReadUpToTheLongestSide) {
  for (const auto& [dx, dy] : {std::pair{32767, 1}, {1, 32767}}) {
    Write("long.bmp", {dx, dy, Pixels(32767)});
    const LibraryPicture picture = library_.ReadPicture("long.bmp", 0, 0, 16);
    EXPECT_EQ(picture.dx, dx);
    EXPECT_EQ(picture.dy, dy);
    EXPECT_EQ(Load("long.bmp", -1, 1, 1), kImageDone);
  }
  for (const auto& [dx, dy] : {std::pair{32768, 1}, {1, 32768}}) {
    Write("long.bmp", {dx, dy, Pixels(32768)});
    EXPECT_RAISES(481,
                  "picture file \"long.bmp\": a picture of " + std::to_string(dx) + " x " +
                      std::to_string(dy) + " pixels is too large: expected at most 32767 a side",
                  library_.ReadPicture("long.bmp", 0, 0, 0));
    EXPECT_EQ(Load("long.bmp", -1, 1, 1), kImageFileNotRead);
  }
}

TEST_F(PictureFiles, ThatSayThatTheyAreHugeTakeNoRoom) {
  std::string file = BmpOf({1, 1, {kRed}});
  for (const std::size_t at : {18u, 22u}) file.replace(at, 2, "\x20\x4E");
  WriteBytes("huge.bmp", file);
  chooser_->Prepare("huge.bmp");
  LibraryPicture picture;
  const automation::AllocationWatch watch;
  EXPECT_RAISES(481,
                "picture file \"huge.bmp\": a picture of 20000 x 20000 pixels is too large: expected at "
                "most 67108864",
                library_.ReadPicture("huge.bmp", 0, 0, 0));
  EXPECT_EQ(Load("huge.bmp", -1, 1, 1), kImageFileNotRead);
  EXPECT_EQ(library_.SelectImageFile(picture, 1, 1), kImageFileNotRead);
  EXPECT_LT(watch.Biggest(), 10000u);
}

TEST_F(PictureFiles, AreReadInTwoBytesAPixelForBits16AndNoOther) {
  FileImageLibrary library(nullptr);
  const LibraryPicture picture = library.ReadPicture(folder_.File("plain.bmp"), 2, 1, 16);
  EXPECT_EQ(picture.dataOrg.size(), 16u);
  EXPECT_EQ(picture.dataOrg[1], 0xF8);
  EXPECT_EQ(picture.data, (Bytes{0x00, 0xF8, 0x10, 0x04}));
  EXPECT_EQ(picture.bits, 16);
  const LibraryPicture eight = library_.ReadPicture("plain.bmp", 2, 1, 8);
  EXPECT_EQ(eight.data.size(), 2u);
  EXPECT_EQ(eight.bits, 8);
}

TEST_F(PictureFiles, AreReducedInTheModeOfTheirEnding) {
  library_.Palette(PaletteOf({0x000000, 0xFFFFFF}));
  const Picture gray{4, 1, Pixels(4, 0x6A6A6A)};
  Write("gray.bmp", gray);
  Write("gray.jpg", gray);
  EXPECT_EQ(library_.ReadPicture("gray.bmp", 0, 0, 0).data, (Bytes{0, 0, 0, 0}));
  EXPECT_EQ(library_.ReadPicture("gray.jpg", 0, 0, 0).data, (Bytes{0, 1, 0, 1}));
  EXPECT_EQ(library_.ReadPicture("gray.jpg", 0, 0, 0).dataOrg, (Bytes{0, 1, 0, 1}));
}

TEST_F(PictureFiles, ThatAreNotReadTellWhatIsWrongWithWhichFile) {
  EXPECT_RAISES(53, "picture file \"none.bmp\": there is no such file",
                library_.ReadPicture("none.bmp", 0, 0, 0));
  EXPECT_RAISES(481, "picture file \"" + folder_.Path() + "\": it is no ordinary file",
                library_.ReadPicture(folder_.Path(), 0, 0, 0));
  WriteBytes("text.bmp", "no picture");
  EXPECT_EQ(test::ErrorOf([&] { library_.ReadPicture("text.bmp", 0, 0, 0); }), 481);
  EXPECT_EQ(test::DescriptionOf([&] {
              library_.ReadPicture("text.bmp", 0, 0, 0);
            }).rfind("picture file \"text.bmp\": ", 0),
            0u);
}

TEST_F(PictureFiles, ThatThereIsNoRoomForAreNotTaken) {
  Write("large.bmp", {100, 100, Pixels(10000)});
  // The file takes 30054 bytes, its picture 40000, twice that size 160000.
  struct Case {
    std::size_t limit;
    const char* description;
  };
  for (const Case& none : {Case{30053, "no room for the 30054 bytes of the file"},
                           Case{39999, "no room for a picture of 100 x 100 pixels"},
                           Case{159999, "there is no room for the picture"}}) {
    chooser_->Prepare("large.bmp");
    LibraryPicture picture{"p"};
    const automation::AllocationWatch watch(none.limit);
    EXPECT_RAISES(7, "picture file \"large.bmp\": " + std::string(none.description),
                  library_.ReadPicture("large.bmp", 200, 200, 16));
    EXPECT_EQ(Load("large.bmp", -1, 200, 200), kImageRefused);
    EXPECT_EQ(library_.SelectImageFile(picture, 200, 200), kImageRefused);
    EXPECT_EQ(picture.path, "p");
  }
}

TEST_F(PictureFiles, ThatAreTooLargeAreNotRead) {
  ASSERT_EQ(truncate(WriteBytes("large.bmp", "BM").c_str(), 268435457), 0);
  EXPECT_RAISES(481, "picture file \"large.bmp\": the file has 268435457 bytes, more than are read",
                library_.ReadPicture("large.bmp", 0, 0, 0));
  EXPECT_EQ(Load("large.bmp", -1, 1, 1), kImageFileNotRead);
  chooser_->Prepare("large.bmp");
  LibraryPicture picture;
  EXPECT_EQ(library_.SelectImageFile(picture, 1, 1), kImageFileNotRead);
}

TEST_F(PictureFiles, AreNotReadAtWhatIsNoSizeOrWithoutAPalette) {
  EXPECT_RAISES(5, "picture file \"plain.bmp\": 0 x 1 is no size of a picture",
                library_.ReadPicture("plain.bmp", 0, 1, 0));
  EXPECT_RAISES(5, "picture file \"plain.bmp\": 1 x 0 is no size of a picture",
                library_.ReadPicture("plain.bmp", 1, 0, 16));
  EXPECT_RAISES(5, "picture file \"plain.bmp\": -1 x -1 is no size of a picture",
                library_.ReadPicture("plain.bmp", -1, -1, 0));
  EXPECT_RAISES(5, "picture file \"plain.bmp\": 32768 x 1 is no size of a picture",
                library_.ReadPicture("plain.bmp", 32768, 1, 0));
  library_.Palette(Array::OfSize(VariantKind::Long, 257));
  EXPECT_RAISES(5, "picture file \"plain.bmp\": the panel has no palette of 1 to 256 colours",
                library_.ReadPicture("plain.bmp", 1, 1, 0));
  EXPECT_EQ(library_.ReadPicture("plain.bmp", 1, 1, 16).data.size(), 2u);
}

TEST_F(PictureFiles, AreTakenAsTheUserChoosesThem) {
  chooser_->Prepare(folder_.File("plain.bmp"));
  LibraryPicture picture;
  EXPECT_EQ(library_.SelectImageFile(picture, 2, 1), kImageDone);
  const LibraryPicture read = library_.ReadPicture(folder_.File("plain.bmp"), 2, 1, 0);
  EXPECT_EQ(picture.path, folder_.File("plain.bmp"));
  EXPECT_EQ(picture.libCrc, read.libCrc);
  EXPECT_EQ(picture.dxOrg, 4);
  EXPECT_EQ(picture.dyOrg, 2);
  EXPECT_EQ(picture.dataOrg, read.dataOrg);
  EXPECT_EQ(picture.crc, read.crc);
  EXPECT_EQ(picture.dx, 2);
  EXPECT_EQ(picture.dy, 1);
  EXPECT_EQ(picture.data, read.data);
  EXPECT_EQ(picture.bits, 0);
}

TEST_F(PictureFiles, AreTakenInThePixelsThatThePictureHas) {
  chooser_->Prepare(folder_.File("plain.bmp"));
  LibraryPicture picture;
  picture.bits = 16;
  EXPECT_EQ(library_.SelectImageFile(picture, 2, 1), kImageDone);
  EXPECT_EQ(picture.data.size(), 4u);
  EXPECT_EQ(picture.bits, 16);
}

TEST_F(PictureFiles, WithASemicolonInTheirNamesAreFoundAgain) {
  const std::string file = Write("a;b.bmp", kPicture);
  chooser_->Prepare(file);
  LibraryPicture picture;
  EXPECT_EQ(library_.SelectImageFile(picture, 4, 2), kImageDone);
  EXPECT_EQ(picture.path, ";" + file);
  EXPECT_EQ(Load(picture.path, picture.libCrc, 4, 2), kImageDone);
}

/// Notes what it is asked for.
class NotingChooser final : public FileChooser {
 public:
  std::vector<FileType> types;

  std::string Choose(const std::vector<FileType>& asked) override {
    types = asked;
    return {};
  }
};

TEST(FileImageLibrary, WithoutAChooserHasNothingChosen) {
  LibraryPicture picture;
  EXPECT_EQ(FileImageLibrary(nullptr).SelectImageFile(picture, 1, 1), kImageNotChosen);
}

TEST(FileImageLibrary, AsksForPictureFiles) {
  const auto chooser = std::make_shared<NotingChooser>();
  LibraryPicture picture;
  for (const auto& [dx, dy] : {std::pair{0, 0}, {0, 1}, {1, 0}, {32768, 1}}) {
    EXPECT_EQ(FileImageLibrary(chooser).SelectImageFile(picture, dx, dy), kImageRefused);
    EXPECT_EQ(chooser->types, std::vector<FileType>());
  }
  EXPECT_EQ(FileImageLibrary(chooser).SelectImageFile(picture, 1, 1), kImageNotChosen);
  EXPECT_EQ(chooser->types, PictureFileTypes());
}

TEST_F(PictureFiles, ThatAreNotTakenLeaveThePictureAsItIs) {
  WriteBytes("text.bmp", "no picture");
  const struct {
    std::string chosen;
    Long dx, dy, status;
  } cases[] = {{"", 1, 1, kImageNotChosen},
               {"none.bmp", 1, 1, kImageFileNotFound},
               {folder_.File("text.bmp"), 1, 1, kImageFileNotRead},
               {"", 0, 0, kImageRefused},
               {"", 1, 0, kImageRefused},
               {"", 32768, 1, kImageRefused}};
  for (const auto& expected : cases) {
    if (!expected.chosen.empty()) chooser_->Prepare(expected.chosen);
    LibraryPicture picture{"p", 1, 2, 3, {4}, 5, 6, 7, {8}, 9};
    EXPECT_EQ(library_.SelectImageFile(picture, expected.dx, expected.dy), expected.status)
        << expected.chosen;
    EXPECT_EQ(picture.path, "p");
    EXPECT_EQ((std::vector<Long>{picture.libCrc, picture.dxOrg, picture.dyOrg, picture.crc, picture.dx,
                                 picture.dy, picture.bits}),
              (std::vector<Long>{1, 2, 3, 5, 6, 7, 9}));
    EXPECT_EQ(picture.dataOrg, Bytes{4});
    EXPECT_EQ(picture.data, Bytes{8});
  }
  chooser_->Prepare(folder_.File("plain.bmp"));
  library_.Palette(Array::OfSize(VariantKind::Long, 0));
  LibraryPicture picture;
  EXPECT_EQ(library_.SelectImageFile(picture, 1, 1), kImageRefused);
}

}  // namespace
}  // namespace quenzel7::loomis2
