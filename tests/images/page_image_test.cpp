#include "images/page_image.h"

#include <gtest/gtest.h>

#include "images/image_links.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::From;
using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using Lines = std::vector<std::string>;

class PageImage : public test::ImageProjectTest {
 protected:
  /// All that a picture has.
  static std::string Shown(const clsPageImage& image) {
    std::string line;
    for (const Long number :
         {image.CRC8bpp(), image.SourceCRC(), image.DxORG(), image.DyORG(), image.TransparencyLevel(),
          image.Bits(), Long(image.GetData8bpp().size()), Long(image.GetData8bppORG().size())}) {
      line += std::to_string(number) + " ";
    }
    return line + image.Path();
  }

  const std::shared_ptr<clsPageImage> image_ = RecordOf<clsPageImage>(Picture(50), 4);
};

TEST_F(PageImage, HasThisSurfaceInSlotOrder) {
  EXPECT_EQ(image_->Class().name, "clsPageImage");
  ASSERT_EQ(image_->Class().interfaces.size(), 1u);
  EXPECT_EQ(image_->Class().Default().Name(), "_clsPageImage");
  EXPECT_EQ(image_->Class().Default().Slots(), (Lines{"get CRC8bpp() As Long",
                                                      "put CRC8bpp(Long)",
                                                      "call SetData8bpp(Byte())",
                                                      "call GetData8bpp() As Byte()",
                                                      "call SetData8bppORG(Byte())",
                                                      "call GetData8bppORG() As Byte()",
                                                      "get Path() As String",
                                                      "put Path(String)",
                                                      "get SourceCRC() As Long",
                                                      "put SourceCRC(Long)",
                                                      "get DxORG() As Long",
                                                      "put DxORG(Long)",
                                                      "get DyORG() As Long",
                                                      "put DyORG(Long)",
                                                      "get TransparencyLevel() As Long",
                                                      "put TransparencyLevel(Long)",
                                                      "get Bits() As Long",
                                                      "put Bits(Long)",
                                                      "call SaveToDB(Long, Long, Long, Long)",
                                                      "call SaveToDBEx(Long, Long, Long, Long, Long)",
                                                      "call ReadImagePropsFromDB(Long) As Boolean"}));
}

TEST_F(PageImage, ItsMembersAreDocumentedAndUnmarked) {
  Lines words;
  for (const automation::Member& member : image_->Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
  EXPECT_EQ(
      words,
      (Lines{"CRC8bpp: CRC of the panel pixels, which is the picture's key; -1 none.",
             "SetData8bpp: Takes a copy of panel pixels.", "GetData8bpp: Gives a copy of the panel pixels.",
             "SetData8bppORG: Takes a copy of original pixels.",
             "GetData8bppORG: Gives a copy of the original pixels.", "Path: File that the picture came from.",
             "SourceCRC: CRC of the source in the image library; -1 none.",
             "DxORG: Width of the original pixels.", "DyORG: Height of the original pixels.",
             "TransparencyLevel: 0 opaque, otherwise transparent.", "Bits: 16 when a pixel takes two bytes.",
             "SaveToDB: Saves the picture as one of a page's.",
             "SaveToDBEx: Saves the picture as one of a page's, telling the bits of a pixel.",
             "ReadImagePropsFromDB: Reads the picture of the CRC; False when there is none."}));
}

TEST_F(PageImage, BeginsWithoutAPicture) { EXPECT_EQ(Shown(clsPageImage()), "-1 -1 0 0 0 0 0 0 "); }

TEST_F(PageImage, KeepsEachValueInAPlaceOfItsOwn) {
  const char* const names[] = {"CRC8bpp", "SourceCRC", "DxORG", "DyORG", "TransparencyLevel", "Bits"};
  Long value = 100;
  for (const char* name : names) PutByName(*image_, name, Variant(Long{value++}));
  PutByName(*image_, "Path", Variant("p"));
  InvokeByName(*image_, "SetData8bpp", {From(PixelBytes{1, 2})});
  InvokeByName(*image_, "SetData8bppORG", {From(PixelBytes{3})});
  EXPECT_EQ(Shown(*image_), "100 101 102 103 104 105 2 1 p");
  value = 100;
  for (const char* name : names) EXPECT_EQ(GetByName(*image_, name), Variant(Long{value++})) << name;
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(*image_, "GetData8bpp")), (PixelBytes{1, 2}));
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(*image_, "GetData8bppORG")), PixelBytes{3});
}

// Saving.

TEST_F(PageImage, IsSavedRowThenLinkAndCollectsNothing) {
  PutImage(1, 10, kImageInUse);
  TakeLog();
  image_->SaveToDB(6, 2, 3, 2);
  const CallLog log = Writes();
  EXPECT_EQ(test::StatementsIn(log).size(), 3u);
  const CallLog link = {"open SELECT * FROM PagesAndImages WHERE Page_ID=6 AND Image_Type=2 [2,3,1]",
                        "AddNew",
                        "put Page_ID=6:Long",
                        "put Image_Type=2:Long",
                        "put TransparencyLevel=4:Long",
                        "put Image_CRC=50:Long",
                        "Update",
                        "Close"};
  ASSERT_GT(log.size(), link.size());
  EXPECT_EQ(CallLog(log.end() - 8, log.end()), link);
  EXPECT_EQ(Images(), (Lines{"1 10 3", "2 50 3"}));
  EXPECT_EQ(ImageAt(2), "1050 3 2 4 3 C:\\p\\50.png 8x8 12x8");
  EXPECT_EQ(PageLinks(), Lines{"6 2 4 50"});
  EXPECT_EQ(Links(), Lines{});
}

TEST_F(PageImage, SavedTwiceHasOneLink) {
  image_->SaveToDB(6, 2, 3, 2);
  image_->TransparencyLevel(5);
  image_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(PageLinks(), Lines{"6 2 5 50"});
  image_->SaveToDB(6, 3, 3, 2);
  image_->SaveToDB(7, 2, 3, 2);
  EXPECT_EQ(PageLinks(), (Lines{"6 2 5 50", "6 3 5 50", "7 2 5 50"}));
  EXPECT_EQ(Images(), Lines{"1 50 3"});
}

TEST_F(PageImage, APictureThatAPageStopsUsingGoesWithTheNextSaveOfAnElement) {
  image_->SaveToDB(6, 2, 3, 2);
  RecordOf<clsPageImage>(Picture(60))->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(Images(), (Lines{"1 50 3", "2 60 3"}));
  RecordOf(Picture(70))->SaveToDB(1, 0, 3, 2);
  EXPECT_EQ(Images(), (Lines{"1 50 2", "2 60 3", "3 70 3"}));
}

TEST_F(PageImage, LinksOfPagesKeepThePictureOfAnElement) {
  image_->SaveToDB(6, 2, 3, 2);
  Link(1, 0, 50);
  ReleaseElementImages(1);
  EXPECT_EQ(Images(), Lines{"1 50 3"});
}

TEST_F(PageImage, IsSavedInTheBitsThatAreGivenWhateverItsOwn) {
  image_->Bits(16);
  image_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"0"});
  image_->SetData8bpp(PixelBytes(12, 1));
  image_->Bits(0);
  InvokeByName(*image_, "SaveToDBEx", {Long{6}, Long{2}, Long{3}, Long{2}, Long{16}});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"16"});
  EXPECT_TRUE(Errors().empty());
}

TEST_F(PageImage, KeepsItsCrcAndTakesOverRepairedPixels) {
  UseNotingLibrary();
  image_->SetData8bpp({1});
  image_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(image_->CRC8bpp(), 50);
  EXPECT_EQ(image_->GetData8bpp(), (PixelBytes{1, 2}));
  EXPECT_EQ(PageLinks(), Lines{"6 2 4 50"});
  EXPECT_EQ(Images(), Lines{"1 50 3"});
  EXPECT_EQ(Errors().size(), 1u);
}

// Reading.

TEST_F(PageImage, IsReadWithTheTransparencyOfItsKind) {
  PutImage(1, 50, kImageInUse, Long{16});
  LinkPage(6, 1, 50, 7);
  LinkPage(6, 2, 50, 8);
  LinkPage(6, 3, 60, 9);
  TakeLog();
  clsPageImage read;
  read.CRC8bpp(50);
  read.TransparencyLevel(3);
  EXPECT_TRUE(read.ReadImagePropsFromDB(2));
  CallLog log = TakeLog();
  // A column may be looked at twice.
  log.erase(std::unique(log.begin(), log.end()), log.end());
  EXPECT_EQ(
      log, (CallLog{"open SELECT * FROM ProjectImages WHERE CRC=50 AND RecordStatus=3 [0,3,1]", "get LibCRC",
                    "get ImagePath", "get DxORG", "get DyORG", "get Data8bpp", "get Data8bppORG", "get Bits",
                    "Close",
                    "open SELECT TransparencyLevel FROM PagesAndImages WHERE (Image_CRC=50 AND Image_Type=2) "
                    "[0,3,1]",
                    "get TransparencyLevel", "Close"}));
  EXPECT_EQ(Shown(read), "50 1050 4 3 8 16 8 12 C:\\p\\50.png");
  EXPECT_EQ(read.GetData8bpp(), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(read.GetData8bppORG(), test::PixelsOf(4, 3, 8));
  EXPECT_TRUE(read.ReadImagePropsFromDB(3));
  EXPECT_EQ(read.TransparencyLevel(), 0);
}

TEST_F(PageImage, OfARowThatIsNotInUseIsNotRead) {
  for (Long status = 0; status <= 2; ++status) PutImage(status + 1, 50, status);
  LinkPage(6, 2, 50, 8);
  TakeLog();
  const std::string before = Shown(*image_);
  EXPECT_FALSE(image_->ReadImagePropsFromDB(2));
  EXPECT_EQ(Statements().size(), 1u);
  EXPECT_EQ(Shown(*image_), before);
  EXPECT_EQ(InvokeByName(*image_, "ReadImagePropsFromDB", {Long{2}}), Variant(false));
  PutImage(4, 50, kImageInUse);
  EXPECT_EQ(InvokeByName(*image_, "ReadImagePropsFromDB", {Long{2}}), Variant(true));
}

TEST_F(PageImage, MayHaveNoBitsNoPathAndNoPixels) {
  PutImage(1, 50, kImageInUse, automation::NullValue{});
  Connection().Execute("UPDATE ProjectImages SET ImagePath=NULL,Data8bpp=NULL,Data8bppORG=NULL");
  image_->Bits(5);
  EXPECT_TRUE(image_->ReadImagePropsFromDB(2));
  EXPECT_EQ(Shown(*image_), "50 1050 4 3 0 0 0 0 ");
}

TEST_F(PageImage, StaysAsItWasWhenReadingFails) {
  const std::string before = Shown(*image_);
  for (const char* column : {"LibCRC", "DxORG", "DyORG"}) {
    EmptyTables();
    PutImage(1, 50, kImageInUse, Long{16});
    Connection().Execute("UPDATE ProjectImages SET LibCRC=1,DxORG=2,DyORG=3,ImagePath='q',Data8bpp=NULL");
    Connection().Execute(std::string("UPDATE ProjectImages SET ") + column + "=NULL");
    EXPECT_EQ(test::ErrorOf([&] { image_->ReadImagePropsFromDB(2); }), 94) << column;
    EXPECT_EQ(Shown(*image_), before) << column;
  }
  Connection().Execute("UPDATE ProjectImages SET DyORG=3");
  PutRow("PagesAndImages", {{"Page_ID", Long{6}}, {"Image_Type", Long{2}}, {"Image_CRC", Long{50}}});
  EXPECT_EQ(test::ErrorOf([&] { image_->ReadImagePropsFromDB(2); }), 94);
  EXPECT_EQ(Shown(*image_), before);
  EXPECT_TRUE(image_->ReadImagePropsFromDB(3));
  EXPECT_EQ(Shown(*image_), "50 1 2 3 0 16 0 12 q");
}

TEST_F(PageImage, ThatWasSavedIsReadAgain) {
  image_->SaveToDBEx(6, 2, 3, 2, 8);
  clsPageImage read;
  read.CRC8bpp(50);
  ASSERT_TRUE(read.ReadImagePropsFromDB(2));
  EXPECT_EQ(Shown(read), "50 1050 4 3 4 8 8 12 C:\\p\\50.png");
}

}  // namespace
}  // namespace quenzel7
