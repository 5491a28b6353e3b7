#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/commands.h"
#include "hosts/cli/renderer.h"
#include "tests/hosts/cli/picture_fixture.h"
#include "tests/hosts/cli/png_reader.h"

namespace quenzel7::cli {
namespace {

using Lines = std::vector<std::string>;

class ImageCommand : public test::PictureTest {
 protected:
  std::string Add(const ImageAddition& addition) {
    std::ostringstream out, err;
    EXPECT_EQ(AddImagesCommand(Path(), addition, {out, err}), 0);
    notes_ = err.str();
    return out.str();
  }
  std::string notes_;
  ImageAddition Of(const std::vector<std::string>& names) {
    ImageAddition addition;
    for (const std::string& name : names) addition.files.push_back(File(name));
    return addition;
  }
  std::string AddError(const ImageAddition& addition) {
    std::ostringstream out, err;
    const std::string message = test::MessageOf([&] { AddImagesCommand(Path(), addition, {out, err}); });
    EXPECT_EQ(out.str(), "");
    return message;
  }
  Lines Links() {
    return Rows("SELECT PagesAndImages.* FROM PagesAndImages ORDER BY Page_ID, Image_Type",
                {"Page_ID", "Image_Type", "TransparencyLevel"});
  }
  std::string CrcOf(Long index) {
    return Rows("SELECT * FROM ProjectImages WHERE [Index]=" + std::to_string(index), {"CRC"}).at(0);
  }
};

TEST_F(ImageCommand, AddsFilesUnderTheLowestFreeTypes) {
  ImageAddition addition = Of({"pump.bmp", "fan.bmp"});
  const std::string told = Add(addition);
  EXPECT_EQ(told, "picture " + CrcOf(1) + " of 2x2: page 0, type 0, from " + File("pump.bmp") + "\npicture " +
                      CrcOf(2) + " of 2x2: page 0, type 1, from " + File("fan.bmp") +
                      "\n2 pictures added to " + Path() + "\n");
  Connection().Execute("DELETE * FROM PagesAndImages WHERE Image_Type=0");
  addition.page = 3;
  Add(addition);
  addition = Of({"pump.bmp", "pump.bmp"});
  addition.isTransparent = true;
  Add(addition);
  EXPECT_EQ(Links(), (Lines{"0 0 1", "0 1 0", "0 2 1", "3 0 0", "3 1 0"}));
}

TEST_F(ImageCommand, ATypeThatIsToldTakesThePlaceOfAnother) {
  ImageAddition addition = Of({"pump.bmp"});
  addition.type = 5;
  Add(addition);
  addition.files = {File("fan.bmp"), File("fan.bmp")};
  Add(addition);
  EXPECT_EQ(Links(), (Lines{"0 5 0", "0 6 0"}));
  // What nothing has any more is set free at once.
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages ORDER BY [Index]", {"RecordStatus"}), (Lines{"2", "3"}));
  addition.type = 2147483647;
  EXPECT_EQ(AddError(addition), "type 2147483647: there are not enough types behind it");
  addition.files.pop_back();
  Add(addition);
}

TEST_F(ImageCommand, SizeAndBitsAreThoseThatAreTold) {
  ImageAddition addition = Of({"pump.bmp"});
  addition.size = "4x2";
  addition.bits = 16;
  Add(addition);
  addition.size = "1X32767";
  addition.bits = 8;
  Add(addition);
  const std::string file = ReadTextFile(File("pump.bmp"), "file");
  const std::string source =
      std::to_string(Platform::Current().crcService->Crc(PixelBytes(file.begin(), file.end())));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"LibCRC"}), (Lines{source, source}));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages ORDER BY [Index]", {"Dx", "Dy", "DxORG", "DyORG", "Bits"}),
            (Lines{"4 2 2 2 16", "1 32767 2 2 0"}));
  for (const char* size : {"4", "0x2", "4x0", "x", "4x2x1", "32768x1", "1x32768", "-1x4", "4 x2"}) {
    addition.size = size;
    EXPECT_EQ(AddError(addition),
              "size \"" + std::string(size) + "\": WIDTHxHEIGHT in pixels from 1 to 32767 is expected");
  }
}

TEST_F(ImageCommand, AFileThatCannotBeReadLeavesTheProjectAsItWas) {
  EXPECT_EQ(AddError(Of({"pump.bmp", "gone.bmp"})),
            "picture file \"" + File("gone.bmp") + "\": there is no such file");
  EXPECT_EQ(Links(), Lines());
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC"}), Lines());
}

TEST_F(ImageCommand, AddingShowsProgressOnATerminal) {
  std::ostringstream out, err;
  AddImagesCommand(Path(), Of({"pump.bmp", "fan.bmp"}), {out, err, true});
  EXPECT_NE(err.str().find("adding [############             ]  50 %"), std::string::npos);
}

TEST_F(ImageCommand, AddedPicturesStayWhenAnElementIsSaved) {
  Add(Of({"fan.bmp"}));
  ImportElements({Bitmap(0, 0, 2, 2, {"\"Picture\": \"pump.bmp\""})});
  ImportElements({});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages WHERE RecordStatus=3", {"ImagePath"}),
            Lines{File("fan.bmp") + ";" + File("fan.bmp")});
}

TEST_F(ImageCommand, TheOnlyPageIsTaken) {
  Add(Of({"pump.bmp"}));
  EXPECT_EQ(notes_, "note: page 0 has no elements\n");
  EXPECT_EQ(Links(), Lines{"0 0 0"});
  ImportElements({Bitmap(0, 0, 2, 2)});
  Add(Of({"pump.bmp"}));
  EXPECT_EQ(notes_, "");
  EXPECT_EQ(Links(), (Lines{"0 0 0", "1 0 0"}));
  ImageAddition addition = Of({"pump.bmp"});
  addition.page = 7;
  Add(addition);
  EXPECT_EQ(notes_, "note: page 7 has no elements\n");
  const std::string text = PageOf({});
  Import("{\n  \"page\": 2" + text.substr(text.find(',')), File(""));
  Add(Of({"fan.bmp"}));
  EXPECT_EQ(Links(), (Lines{"0 0 0", "0 1 0", "1 0 0", "7 0 0"}));
}

TEST_F(ImageCommand, APictureInUseKeepsItsPath) {
  ImportElements({Bitmap(0, 0, 2, 2, {"\"Picture\": \"pump.bmp\""})});
  std::filesystem::copy_file(File("pump.bmp"), File("copy.bmp"));
  Add(Of({"copy.bmp"}));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"ImagePath"}), Lines{"pump.bmp;" + File("pump.bmp")});
}

TEST_F(ImageCommand, ListTellsRowsStatesAndUsers) {
  ImportElements(
      {Bitmap(0, 0, 4, 2, {"\"Picture\": \"pump.bmp\""}), Bitmap(0, 0, 4, 2, {"\"Picture\": \"pump.bmp\""})});
  ImageAddition addition = Of({"fan.bmp"});
  addition.bits = 16;
  addition.page = 7;
  Add(addition);
  Connection().Execute(
      "INSERT INTO ProjectImages (CRC, LibCRC, Dx, Dy, DxORG, DyORG, RecordStatus) VALUES "
      "(7, -1, 0, 0, 0, 0, 2)");
  Connection().Execute("UPDATE ProjectImages SET CRC=1234567 WHERE [Index]=1");
  Connection().Execute("UPDATE ElementsAndImages SET Image_CRC=1234567");
  Connection().Execute("UPDATE ProjectImages SET CRC=-5, ImagePath='fan.bmp;/x/fan.bmp' WHERE [Index]=2");
  Connection().Execute("UPDATE PagesAndImages SET Image_CRC=-5");
  std::ostringstream out, err;
  EXPECT_EQ(ListImagesCommand(Path(), {out, err}), 0);
  EXPECT_EQ(out.str(),
            "index      CRC  state   size  original  bits  links  used by               path\n"
            "    1  1234567  in use  4x2   2x2          8      2  element 1, element 2  pump.bmp\n"
            "    2       -5  in use  2x2   2x2         16      1  page 7 type 0         fan.bmp\n"
            "    3        7  free    0x0   0x0          8      0\n");
}

TEST_F(ImageCommand, ExtractWritesPanelPixelsOrOriginalOnes) {
  ImageAddition addition = Of({"pump.bmp"});
  addition.size = "4x2";
  Add(addition);
  std::ostringstream out, err;
  EXPECT_EQ(ExtractImageCommand(Path(), CrcOf(1), false, File("o.png"), {out, err}), 0);
  constexpr std::uint32_t R = 0xE00000, W = 0xFFFFFF, K = 0x000000, B = 0x0066E8;
  EXPECT_EQ(test::ReadPng(File("o.png")).pixels, (std::vector<std::uint32_t>{R, R, W, W, K, K, B, B}));
  EXPECT_EQ(ExtractImageCommand(Path(), CrcOf(1), true, File("o.png"), {out, err}), 0);
  EXPECT_EQ(test::ReadPng(File("o.png")).width, 2);
  EXPECT_EQ(test::ReadPng(File("o.png")).pixels, (std::vector<std::uint32_t>{R, W, K, B}));
  EXPECT_EQ(out.str(), "");
}

TEST_F(ImageCommand, WhatCannotBeExtractedIsTold) {
  Add(Of({"pump.bmp"}));
  const std::string crc = CrcOf(1);
  std::ostringstream out, err;
  const auto error = [&](const std::string& number, bool original, const std::string& output) {
    return test::MessageOf([&] { ExtractImageCommand(Path(), number, original, output, {out, err}); });
  };
  EXPECT_EQ(error("x1", false, File("o.png")), "CRC \"x1\": a whole number of 32 bits is expected");
  EXPECT_EQ(error("5", false, File("o.png")),
            "project " + Path() + " has no picture 5; quenzel7 image PROJECT list tells them");
  EXPECT_EQ(error(crc, false, Path()),
            "picture " + Path() + " cannot be written: it is " + Path() + ", which is read");
  Connection().Execute("UPDATE ProjectImages SET Dx=3, Data8bppORG=NULL");
  EXPECT_EQ(error(crc, false, File("o.png")), "project " + Path() + ", picture " + crc +
                                                  ": has 4 bytes of pixels, which do not fit its size 3x2");
  EXPECT_EQ(error(crc, true, File("o.png")), "project " + Path() + ", picture " + crc + ": has no pixels");
  EXPECT_THROW(ReadTextFile(File("o.png"), "file"), UserError);
}

TEST_F(ImageCommand, PicturesLieBehindTheirPage) {
  ImportElements({Element("Rectangle", 1, 0, 1, 1,
                          {"\"FillStyle\": \"eFS_Solid\"", "\"ColorBack\": 9", "\"ColorFore\": 9"})});
  ImageAddition addition = Of({"pump.bmp"});
  addition.page = 1;
  addition.type = 3;
  Add(addition);
  constexpr std::uint32_t R = 0xE00000, W = 0xFFFFFF, K = 0x000000, B = 0x0066E8;
  const auto corner = [this] {
    const Picture page = RenderPage(Load(), NoTerminal());
    return std::vector<std::uint32_t>{page.pixels[0], page.pixels[1], page.pixels[2], page.pixels[8],
                                      page.pixels[9]};
  };
  EXPECT_EQ(corner(), (std::vector<std::uint32_t>{R, K, W, K, B}));
  // A higher type lies above it; the colour of its first pixel lets it show.
  addition.files = {File("fan.bmp")};
  addition.type = 4;
  addition.isTransparent = true;
  Add(addition);
  EXPECT_EQ(corner(), (std::vector<std::uint32_t>{R, K, W, K, K}));
  addition.type = 2;
  Add(addition);
  Connection().Execute("DELETE * FROM PagesAndImages WHERE Image_Type=4");
  EXPECT_EQ(corner(), (std::vector<std::uint32_t>{R, K, W, K, B}));
}

TEST_F(ImageCommand, ADamagedPictureIsToldAndTheRestIsPainted) {
  ImportElements(
      {Bitmap(0, 0, 2, 2, {"\"Picture\": \"pump.bmp\""}), Bitmap(2, 0, 2, 2, {"\"Picture\": \"fan.bmp\""})});
  Connection().Execute("UPDATE HMI_Elements SET Dy=9 WHERE ID=1");
  Connection().Execute("UPDATE ProjectImages SET Dy=9 WHERE [Index]=1");
  Open(corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  const Picture page = RenderPage(Load(), {out, err});
  EXPECT_EQ(err.str(), "note: row 1 of HMI_Elements (clsBitmap) is not painted: its picture is damaged\n");
  EXPECT_EQ(page.pixels[0], 0xFFFFFFu);
  EXPECT_EQ(page.pixels[8 + 2], 0x000000u);
}

}  // namespace
}  // namespace quenzel7::cli
