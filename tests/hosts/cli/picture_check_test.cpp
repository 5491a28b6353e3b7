#include "hosts/cli/picture_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/element_picture.h"
#include "hosts/cli/project_checks.h"
#include "tests/hosts/cli/picture_fixture.h"

namespace quenzel7::cli {
namespace {

using Lines = std::vector<std::string>;

class PictureCheckTest : public test::PictureTest {
 protected:
  void SetUp() override {
    PictureTest::SetUp();
    ImportElements({Bitmap(0, 0, 4, 2, {"\"Picture\": \"pump.bmp\""}), Bitmap(0, 4, 2, 2)});
    crc_ = std::to_string(PictureCrcOf(*Load().elements[0]));
  }
  CheckResult Check() { return CheckProject(Session(), NoTerminal()); }
  Lines FindingsAfter(const std::string& statement) {
    Connection().Execute(statement);
    return Check().findings;
  }
  std::string crc_;
};

TEST_F(PictureCheckTest, SoundPicturesAreNotTold) {
  EXPECT_EQ(Check().findings, Lines());
  EXPECT_EQ(Check().notes, Lines());
}

TEST_F(PictureCheckTest, APictureThatIsNotInTheProjectIsTold) {
  const Lines expected = {"page 1, row 1 (clsBitmap): picture " + crc_ +
                              " is not in ProjectImages; the CRC of a row in use was expected",
                          "ElementsAndImages, element 1, index 0: Image_CRC " + crc_ +
                              " names no picture; the CRC of a row of ProjectImages in use was expected"};
  EXPECT_EQ(FindingsAfter("UPDATE ProjectImages SET RecordStatus=2 WHERE CRC=" + crc_), expected);
  EXPECT_EQ(FindingsAfter("DELETE * FROM ProjectImages WHERE CRC=" + crc_), expected);
}

TEST_F(PictureCheckTest, PixelsThatDoNotFitAreTold) {
  EXPECT_EQ(FindingsAfter("UPDATE HMI_Elements SET Dx=3 WHERE ID=1"), Lines{});
  EXPECT_EQ(FindingsAfter("UPDATE HMI_Elements SET Dx=6 WHERE ID=1"),
            Lines{"page 1, row 1 (clsBitmap): picture " + crc_ +
                  " has 8 bytes of pixels for size (4, 2); pixels of size (6, 2) were expected"});
}

TEST_F(PictureCheckTest, LinksOfNothingAreTold) {
  EXPECT_EQ(FindingsAfter("UPDATE ElementsAndImages SET Element_ID=77 WHERE Element_ID=1"),
            Lines{"ElementsAndImages, element 77, index 0: Element_ID names no row; the ID of a row of "
                  "HMI_Elements was expected"});
  EXPECT_EQ(
      FindingsAfter("INSERT INTO PagesAndImages (Page_ID, Image_Type, TransparencyLevel, Image_CRC) VALUES "
                    "(4, 2, 0, 9)")
          .back(),
      "PagesAndImages, page 4, type 2: Image_CRC 9 names no picture; the CRC of a row of ProjectImages in "
      "use was expected");
}

TEST_F(PictureCheckTest, PicturesThatNothingHasAreTold) {
  const Lines expected = {"ProjectImages, row 1 (CRC " + crc_ +
                          "): is in use, and no element and no page has it; a link was expected"};
  EXPECT_EQ(FindingsAfter("DELETE * FROM ElementsAndImages WHERE Element_ID=1"), expected);
  EXPECT_EQ(
      FindingsAfter("INSERT INTO PagesAndImages (Page_ID, Image_Type, TransparencyLevel, Image_CRC) VALUES "
                    "(4, 2, 0, " +
                    crc_ + ")"),
      Lines());
}

TEST_F(PictureCheckTest, PagesThatAreNotThereAreNoted) {
  for (const char* page : {"4, 2", "4, 3", "1, 0"}) {
    Connection().Execute(
        std::string(
            "INSERT INTO PagesAndImages (Page_ID, Image_Type, TransparencyLevel, Image_CRC) VALUES (") +
        page + ", 0, " + crc_ + ")");
  }
  EXPECT_EQ(Check().notes, Lines{"page 4 has pictures behind it, and is not there"});
  EXPECT_EQ(Check().findings, Lines());
}

TEST_F(PictureCheckTest, RowsThatCannotBeAreTold) {
  const auto findings = [this](const std::string& change) {
    Connection().Execute("UPDATE ProjectImages SET Bits=0, Dx=4, Dy=2, DxORG=2, DyORG=2 WHERE CRC=" + crc_);
    Lines found = FindingsAfter("UPDATE ProjectImages SET " + change + " WHERE CRC=" + crc_);
    for (std::string& line : found) {
      const std::string row = "ProjectImages, row 1 (CRC " + crc_ + "): ";
      if (line.substr(0, row.size()) == row) line.erase(0, row.size());
    }
    return found;
  };
  EXPECT_EQ(findings("Bits=NULL"), Lines());
  EXPECT_EQ(findings("Bits=16, Dx=2, DxORG=1"),
            Lines{"page 1, row 1 (clsBitmap): picture " + crc_ +
                  " has 8 bytes of pixels for size (2, 2); pixels of size (4, 2) were expected"});
  EXPECT_EQ(findings("Bits=8"), Lines{"has Bits 8; 0 or 16 was expected"});
  EXPECT_EQ(findings("Dx=-4, Dy=-2"),
            Lines{"has size (-4, -2) of its pixels; one of 0 or more was expected"});
  EXPECT_EQ(findings("DyORG=-1"),
            Lines{"has size (2, -1) of its original pixels; one of 0 or more was expected"});
  EXPECT_EQ(findings("Dx=6"), Lines{"has 8 bytes of pixels; those of size (6, 2) were expected"});
  EXPECT_EQ(findings("DxORG=3"), Lines{"has 4 bytes of original pixels; those of size (3, 2) were expected"});
  EXPECT_EQ(findings("Data8bppORG=NULL"),
            Lines{"has 0 bytes of original pixels; those of size (2, 2) were expected"});
  EXPECT_EQ(findings("Data8bppORG=NULL, DxORG=0, DyORG=0"), Lines());
  EXPECT_EQ(findings("Data8bppORG=x'0102030405'"),
            Lines{"its original pixels do not unpack; pixels of size (2, 2) were expected"});
}

TEST_F(PictureCheckTest, TheRowOfNoPictureMayTellAnySize) {
  EXPECT_EQ(FindingsAfter("UPDATE ProjectImages SET Dx=9, Dy=9, DxORG=-1 WHERE CRC=-1"), Lines());
}

TEST_F(PictureCheckTest, TwoRowsOfOneCrcAreTold) {
  const std::string columns = "CRC, LibCRC, Dx, Dy, DxORG, DyORG, Data8bpp, Data8bppORG, RecordStatus, Bits";
  const std::string copy =
      "INSERT INTO ProjectImages (" + columns + ") SELECT " + columns + " FROM ProjectImages WHERE [Index]=1";
  EXPECT_EQ(FindingsAfter(copy), Lines{"ProjectImages, row 3 (CRC " + crc_ +
                                       "): row 1 is in use with this CRC, too; one was expected"});
  EXPECT_EQ(FindingsAfter("UPDATE ProjectImages SET RecordStatus=2 WHERE [Index]=3"), Lines());
}

TEST_F(PictureCheckTest, FilesThatCannotBeReadAnyMoreAreNoted) {
  const std::string path = "picture file pump.bmp";
  const std::string end = ": its pictures are made from the pixels in the project when their size changes";
  WriteBmp("pump.bmp", {{0}});
  EXPECT_EQ(Check().notes, Lines{path + " cannot be read or is another one now" + end});
  std::filesystem::remove(File("pump.bmp"));
  EXPECT_EQ(Check().notes, Lines{path + " is not there" + end});
  EXPECT_EQ(Check().findings, Lines());
  Connection().Execute("UPDATE ProjectImages SET RecordStatus=2");
  EXPECT_EQ(Check().notes, Lines());
}

TEST_F(PictureCheckTest, EachFileIsNotedOnce) {
  ImportElements(
      {Bitmap(0, 0, 4, 2, {"\"Picture\": \"pump.bmp\""}), Bitmap(0, 0, 2, 2, {"\"Picture\": \"pump.bmp\""})});
  std::filesystem::remove(File("pump.bmp"));
  EXPECT_EQ(Check().notes.size(), 1u);
}

TEST_F(PictureCheckTest, ATableThatIsWrongIsTold) {
  EXPECT_EQ(FindingsAfter("UPDATE ProjectImages SET DxORG='x' WHERE CRC=-1"),
            (Lines{"page 1, row 2 (clsBitmap): column 'DxORG': type mismatch: \"x\" is not a number",
                   "column 'DxORG' of ProjectImages: type mismatch: \"x\" is not a number"}));
}

}  // namespace
}  // namespace quenzel7::cli
