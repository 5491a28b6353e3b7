#include "platform/loomis2/image_library.h"

#include <gtest/gtest.h>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "tests/support/image_library_double.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Array;
using automation::CallByName;
using automation::CallKind;
using automation::Variant;
using automation::VariantKind;
using Bytes = std::vector<Byte>;
using Words = std::vector<std::string>;

std::string Joined(const Bytes& bytes) {
  std::string text;
  for (const Byte byte : bytes) text += "#" + std::to_string(byte);
  return text;
}

/// Notes what it is given, and gives numbers of its own.
class NotingLibrary final : public test::ImageLibraryDouble {
 public:
  Words given;
  Long selected = kImageDone;

  gdi::HBITMAP CreateBitmapFrom8bpp(const Bytes& pixels, Long dx, Long dy) override {
    Note("from 8", {dx, dy}, Joined(pixels));
    return 1001;
  }
  gdi::HBITMAP CreateBitmapFrom16bpp(const Bytes& pixels, Long dx, Long dy) override {
    Note("from 16", {dx, dy}, Joined(pixels));
    return 1002;
  }
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) override {
    Note("stretch", {bitmap, dx, dy});
    return 1003;
  }
  Long ConvertBitmapTo8bpp(Long mode, gdi::HBITMAP bitmap, const Variant& palette, Long dx, Long dy,
                           Bytes& pixels, Long& crc) override {
    Note("to 8", {mode, bitmap, palette.Elements().At(0) == Variant(Long{7}), dx, dy, crc}, Joined(pixels));
    pixels = {8, 9};
    crc = 77;
    return kImageApproximated;
  }
  Long ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, Bytes& pixels, Long& crc) override {
    Note("to 16", {bitmap, dx, dy, crc}, Joined(pixels));
    pixels = {10, 11};
    crc = 78;
    return kImageDone;
  }
  Long GetConversionMode(const std::string& path) override {
    Note("mode", {}, path);
    return kErrorDiffusion;
  }
  gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                Long& status) override {
    Note("load", {libCrc, dx, dy, status}, path);
    status = kImageFileNotRead;
    return 1004;
  }
  Long SelectImageFile(LibraryPicture& picture, Long dx, Long dy) override {
    Note("select",
         {picture.libCrc, picture.dxOrg, picture.dyOrg, picture.crc, picture.dx, picture.dy, picture.bits, dx,
          dy},
         picture.path + Joined(picture.dataOrg) + Joined(picture.data));
    picture = {"chosen", 21, 22, 23, {24}, 25, 26, 27, {28}, 29};
    return selected;
  }
  LibraryPicture ReadPicture(const std::string& path, Long dx, Long dy, Long bits) override {
    Note("read", {dx, dy, bits}, path);
    return {"read", 31, 32, 33, {34}, 35, 36, 37, {38}, 39};
  }

 private:
  void Note(std::string line, const std::vector<Long>& numbers, const std::string& text = {}) {
    for (const Long number : numbers) line += " " + std::to_string(number);
    given.push_back(line + " " + text);
  }
};

/// A call by name with these arguments, which it may change.
Variant Call(ImageLibrary& library, std::string_view name, std::vector<Variant>& arguments) {
  return CallByName(library, name, CallKind::Method, arguments);
}

Variant Block(const Bytes& bytes) { return automation::FromBytes(bytes); }

TEST(ImageStatuses, CountDoneAndApproximatedAsConverted) {
  EXPECT_TRUE(IsConverted(kImageDone));
  EXPECT_TRUE(IsConverted(kImageApproximated));
  for (const Long other : {-1, 1, 2, 3, 4, 5, 7}) EXPECT_FALSE(IsConverted(other)) << other;
  EXPECT_EQ((std::vector<Long>{kImageDone, kImageFileNotFound, kImageFileNotRead, kImageRefused,
                               kImageNotChosen, kImageApproximated}),
            (std::vector<Long>{0, 1, 2, 3, 4, 6}));
  EXPECT_EQ(kNearestColor, 0);
  EXPECT_EQ(kErrorDiffusion, 1);
}

TEST(LibraryPictures, AreEmptyAtFirst) {
  const LibraryPicture picture;
  EXPECT_EQ(picture.path, "");
  EXPECT_EQ(picture.libCrc, -1);
  EXPECT_EQ(picture.crc, -1);
  for (const Long number : {picture.dxOrg, picture.dyOrg, picture.dx, picture.dy, picture.bits})
    EXPECT_EQ(number, 0);
  EXPECT_TRUE(picture.dataOrg.empty());
  EXPECT_TRUE(picture.data.empty());
}

TEST(ImageLibrary, MakesBitmapsByName) {
  NotingLibrary library;
  std::vector<Variant> pixels{Block({1, 2}), Long{3}, Long{4}}, stretched{Long{5}, Long{6}, Long{7}};
  EXPECT_EQ(Call(library, "CreateBitmapFrom8bpp", pixels), Variant(Long{1001}));
  EXPECT_EQ(Call(library, "createbitmapfrom16BPP", pixels), Variant(Long{1002}));
  EXPECT_EQ(Call(library, "StretchBitmap", stretched), Variant(Long{1003}));
  EXPECT_EQ(library.given, (Words{"from 8 3 4 #1#2", "from 16 3 4 #1#2", "stretch 5 6 7 "}));
}

TEST(ImageLibrary, ConvertsBitmapsByName) {
  NotingLibrary library;
  Array palette = Array::OfSize(VariantKind::Long, 1);
  palette.Set(0, Long{7});
  std::vector<Variant> to8{Long{1}, Long{2}, palette, Long{3}, Long{4}, Block({5}), Long{6}};
  EXPECT_EQ(Call(library, "ConvertBitmapTo8bpp", to8), Variant(Long{6}));
  EXPECT_EQ(to8[5], Block({8, 9}));
  EXPECT_EQ(to8[6], Variant(Long{77}));
  std::vector<Variant> to16{Long{1}, Long{2}, Long{3}, Block({}), Long{4}};
  EXPECT_EQ(Call(library, "ConvertBitmapTo16bpp", to16), Variant(Long{0}));
  EXPECT_EQ(to16[3], Block({10, 11}));
  EXPECT_EQ(to16[4], Variant(Long{78}));
  EXPECT_EQ(library.given, (Words{"to 8 1 2 1 3 4 6 #5", "to 16 1 2 3 4 "}));
}

TEST(ImageLibrary, LoadsResizedImagesByName) {
  NotingLibrary library;
  std::vector<Variant> mode{"a.jpg"}, load{"a.bmp", Long{1}, Long{2}, Long{3}, Long{4}};
  EXPECT_EQ(Call(library, "GetConversionMode", mode), Variant(Long{1}));
  EXPECT_EQ(Call(library, "LoadResizedImage", load), Variant(Long{1004}));
  EXPECT_EQ(load[4], Variant(Long{2}));
  EXPECT_EQ(library.given, (Words{"mode a.jpg", "load 1 2 3 4 a.bmp"}));
}

std::vector<Variant> SelectArguments() {
  return {"p", Long{1}, Long{2}, Long{3}, Block({4}), Long{5}, Block({6}), Long{7}, Long{8}, Long{9}};
}

TEST(ImageLibrary, SelectsAFileByNameIntoTheFieldsOfAPicture) {
  NotingLibrary library;
  std::vector<Variant> fields = SelectArguments();
  EXPECT_EQ(Call(library, "SelectImageFile", fields), Variant(Long{0}));
  EXPECT_EQ(library.given, Words{"select 1 2 3 5 8 9 7 8 9 p#4#6"});
  EXPECT_EQ(fields, (std::vector<Variant>{"chosen", Long{21}, Long{22}, Long{23}, Block({24}), Long{25},
                                          Block({28}), Long{29}, Long{8}, Long{9}}));
}

TEST(ImageLibrary, LeavesTheFieldsAloneWhenNoneIsSelected) {
  NotingLibrary library;
  for (const Long status : {kImageFileNotFound, kImageFileNotRead, kImageRefused, kImageNotChosen}) {
    library.selected = status;
    std::vector<Variant> fields = SelectArguments();
    EXPECT_EQ(Call(library, "SelectImageFile", fields), Variant(status));
    EXPECT_EQ(fields, SelectArguments());
  }
}

TEST(ImageLibrary, ReadsAPictureByNameIntoItsFields) {
  NotingLibrary library;
  std::vector<Variant> fields{"p", Long{1}, Long{2}, Long{3}, {}, {}, {}, Block({}), {}, Block({})};
  EXPECT_EQ(Call(library, "ReadPicture", fields), Variant());
  EXPECT_EQ(library.given, Words{"read 1 2 3 p"});
  EXPECT_EQ(fields, (std::vector<Variant>{"p", Long{36}, Long{37}, Long{3}, Long{31}, Long{32}, Long{33},
                                          Block({34}), Long{35}, Block({38})}));
}

TEST(ImageLibrary, HasThisSurfaceAndIsNotCreatedByHosts) {
  const automation::ClassInfo& info = ImageLibrary::ClassOf();
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
  for (const automation::Member& member : ImageLibrary::ClassOf().Default().Members()) {
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

}  // namespace
}  // namespace quenzel7::loomis2
