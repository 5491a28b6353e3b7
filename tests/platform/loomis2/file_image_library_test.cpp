#include "platform/loomis2/file_image_library.h"

#include <gtest/gtest.h>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/owned.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;

Variant Colors(Long first) {
  Array colors = Array::OfSize(VariantKind::Long, 2);
  colors.Set(0, first);
  colors.Set(1, Long{0xFFFFFF});
  return colors;
}

TEST(ImageLibrary, IsEmptyAtFirst) {
  const FileImageLibrary library(std::make_shared<PreparedFileChooser>());
  EXPECT_EQ(library.Name(), "");
  EXPECT_EQ(library.Folder(), "");
  EXPECT_EQ(library.Palette(), Variant());
}

TEST(ImageLibrary, HoldsWhatItIsGiven) {
  FileImageLibrary library(std::make_shared<PreparedFileChooser>());
  library.Name("plant");
  library.Folder("C:\\Images\\");
  library.Palette(Colors(5));
  EXPECT_EQ(library.Name(), "plant");
  EXPECT_EQ(library.Folder(), "C:\\Images\\");
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(ImageLibrary, KeepsThePaletteAsItWasGiven) {
  FileImageLibrary library(std::make_shared<PreparedFileChooser>());
  Variant colors = Colors(5);
  library.Palette(colors);
  colors.MutableElements().Set(0, Long{6});
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(ImageLibrary, TakesNothingElseForAPalette) {
  FileImageLibrary library(std::make_shared<PreparedFileChooser>());
  library.Palette(Colors(5));
  for (const Variant& other :
       {Variant(), Variant(Long{1}), Variant("5"), Variant(Array::OfSize(VariantKind::Byte, 2)),
        Variant(Array::OfSize(VariantKind::Variant, 2)), Variant(Array(VariantKind::Long, {0, 1}, {0, 1}))}) {
    EXPECT_RAISES(13, "a palette is an array of 32-bit integers of one dimension", library.Palette(other));
    EXPECT_EQ(library.Palette(), Colors(5));
  }
}

TEST(ImageLibrary, IsReachedByName) {
  FileImageLibrary library(std::make_shared<PreparedFileChooser>());
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

TEST(ImageLibrary, HasThisSurfaceAndIsNotCreatedByHosts) {
  const automation::ClassInfo& info = FileImageLibrary(nullptr).Class();
  EXPECT_EQ(info.name, "ImageLibrary");
  EXPECT_EQ(info.create, nullptr);
  EXPECT_EQ(info.Default().Name(), "_ImageLibrary");
  EXPECT_EQ(
      info.Default().Slots(),
      (std::vector<std::string>{
          "get Name() As String", "put Name(String)", "get Folder() As String", "put Folder(String)",
          "get Palette() As Variant", "put Palette(Variant)",
          "call CreateBitmapFrom8bpp(Byte(), Long, Long) As Long",
          "call CreateBitmapFrom16bpp(Byte(), Long, Long) As Long",
          "call StretchBitmap(Long, Long, Long) As Long",
          "call ConvertBitmapTo8bpp(Long, Long, Variant, Long, Long, ByRef Byte(), ByRef Long) As Long",
          "call ConvertBitmapTo16bpp(Long, Long, Long, ByRef Byte(), ByRef Long) As Long",
          "call GetConversionMode(String) As Long",
          "call LoadResizedImage(String, Long, Long, Long, ByRef Long) As Long",
          "call SelectImageFile(ByRef String, ByRef Long, ByRef Long, ByRef Long, ByRef Byte(), ByRef Long, "
          "ByRef "
          "Byte(), ByRef Long, Long, Long) As Long",
          "call ReadPicture(String, ByRef Long, ByRef Long, Long, ByRef Long, ByRef Long, ByRef Long, ByRef "
          "Byte(), ByRef Long, ByRef Byte())"}));
}

TEST(ImageLibrary, ItsMembersAreDocumentedAndUnmarked) {
  std::vector<std::string> words;
  for (const automation::Member& member : FileImageLibrary(nullptr).Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
  EXPECT_EQ(
      words,
      (std::vector<std::string>{
          "Name: The library's name.",
          "Folder: The folder of the picture files, with a separator at its end.",
          "Palette: The panel's colours, an array of 32-bit integers.",
          "CreateBitmapFrom8bpp: A bitmap of palette indices; 0 when they are no such picture.",
          "CreateBitmapFrom16bpp: A bitmap of pixels of two bytes; 0 when they are no such picture.",
          "StretchBitmap: A copy of a bitmap at another size; 0 when it is none or the size is none.",
          "ConvertBitmapTo8bpp: Turns a bitmap into palette indices with their CRC; gives a status, 0 or 6 "
          "when done.",
          "ConvertBitmapTo16bpp: Turns a bitmap into pixels of two bytes with their CRC; gives a status, 0 "
          "or 6 when done.",
          "GetConversionMode: The conversion mode that suits the picture in a file.",
          "LoadResizedImage: Reads a picture file as a bitmap of that size, with a status, 0 when done.",
          "SelectImageFile: Lets the user choose a picture file; gives a status, 0 when done.",
          "ReadPicture: Reads a picture file at a size, 0 x 0 for its own."}));
}

TEST(FileImageLibrary, TurnsPixelsIntoABitmapAndBack) {
  FileImageLibrary library(nullptr);
  library.Palette(Colors(0x0000FF));
  const std::vector<Byte> pixels{0, 1, 1, 0, 1, 0, 0, 0};
  const gdi::OwnedBitmap bitmap(library.CreateBitmapFrom8bpp(pixels, 3, 2));
  ASSERT_NE(bitmap.Get(), 0);
  for (const Long mode : {kNearestColor, kErrorDiffusion}) {
    std::vector<Byte> back;
    Long crc = 0;
    EXPECT_EQ(library.ConvertBitmapTo8bpp(mode, bitmap.Get(), library.Palette(), 3, 2, back, crc),
              kImageDone);
    EXPECT_EQ(back, pixels);
  }
}

}  // namespace
}  // namespace quenzel7::loomis2
