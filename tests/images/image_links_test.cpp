#include "images/image_links.h"

#include <gtest/gtest.h>

#include "tests/support/image_fixture.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::operator+;
using test::TrimStatements;
using Lines = std::vector<std::string>;

class ImageLinks : public test::ImageProjectTest {
 protected:
  /// Element 1 has 10 and 20, element 2 has 20, page 1 has 30; row 4 is free, and 40 is the panel's own.
  void PutSharedImages() {
    PutImage(1, 40, kSystemImageRead);
    PutImage(2, 10, kImageInUse);
    PutImage(3, 30, kImageInUse);
    PutImage(4, 99, kFreeImage);
    PutImage(5, 20, kImageInUse);
    Link(1, 0, 10);
    Link(1, 1, 20);
    Link(2, 0, 20);
    LinkPage(1, 0, 30);
  }

  static CallLog Counts(const std::string& crc) {
    return {"execute SELECT COUNT(*) AS NumOfImages FROM ElementsAndImages WHERE Image_CRC=" + crc,
            "execute SELECT COUNT(*) AS NumOfImages FROM PagesAndImages WHERE Image_CRC=" + crc};
  }
  static std::string FreeingOf(const std::string& crc) {
    return "execute UPDATE ProjectImages SET "
           "LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,"
           "Data8bppORG=NULL,RecordStatus=2 WHERE CRC=" +
           crc + " AND RecordStatus=3";
  }
};

TEST_F(ImageLinks, AreFoundByThese) {
  EXPECT_EQ(ElementImageLinkQuery(-7, 3),
            "SELECT * FROM ElementsAndImages WHERE Element_ID=-7 AND Image_Index=3");
  EXPECT_EQ(PageImageLinkQuery(7, -3), "SELECT * FROM PagesAndImages WHERE Page_ID=7 AND Image_Type=-3");
}

TEST_F(ImageLinks, AreWrittenInTheOrderOfTheirColumnsNewOrOld) {
  const LinkColumns columns = {{"Image_Index", 2}, {"Element_ID", 1}, {"Image_CRC", 10}};
  const CallLog puts = {"put Image_Index=2:Long", "put Element_ID=1:Long", "put Image_CRC=10:Long", "Update",
                        "Close"};
  WriteImageLink(ElementImageLinkQuery(1, 2), ado::adOpenStatic, columns);
  const std::string query = "open SELECT * FROM ElementsAndImages WHERE Element_ID=1 AND Image_Index=2";
  EXPECT_EQ(TakeLog(), (CallLog{query + " [3,3,1]", "AddNew"} + puts));
  WriteImageLink(ElementImageLinkQuery(1, 2), ado::adOpenDynamic, columns);
  EXPECT_EQ(TakeLog(), CallLog{query + " [2,3,1]"} + puts);
  EXPECT_EQ(Links(), Lines{"1 2 Null 10"});
}

TEST_F(ImageLinks, TellHowTransparentAPictureIs) {
  Link(1, 0, 10, 5);
  Link(1, 2, 20, 6);
  Link(2, 2, 20, 7);
  EXPECT_EQ(GetElementImageTransparency(1, 2), 6);
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=1 AND "
                                "Image_Index=2 [0,3,1]",
                                "get TransparencyLevel", "Close"}));
  EXPECT_EQ(GetElementImageTransparency(1, 0), 5);
  EXPECT_EQ(GetElementImageTransparency(1, 1), 0);
  EXPECT_EQ(GetElementImageTransparency(3, 0), 0);
}

TEST_F(ImageLinks, TellHowTransparentTheFirstPictureIs) {
  Link(1, 2, 20, 6);
  Link(1, 0, 10, 5);
  EXPECT_EQ(GetElementTransparency(1), 6);
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=1",
                                "get TransparencyLevel", "Close"}));
  EXPECT_EQ(GetElementTransparency(2), 0);
}

TEST_F(ImageLinks, OfAnElementBecomeTransparentTogether) {
  Link(1, 0, 10, 5);
  Link(1, 1, 20, 6);
  Link(2, 0, 20, 7);
  SetElementTransparency(-3, 1);
  EXPECT_EQ(TakeLog(),
            CallLog{"execute UPDATE ElementsAndImages SET TransparencyLevel=-3 WHERE Element_ID=1"});
  EXPECT_EQ(Links(), (Lines{"1 0 -3 10", "1 1 -3 20", "2 0 7 20"}));
}

// Releasing all pictures of an element.

TEST_F(ImageLinks, ReleasingLeavesWhatOthersHave) {
  PutSharedImages();
  ReleaseElementImages(1);
  EXPECT_EQ(Statements(), CallLog{"open SELECT * FROM ElementsAndImages WHERE Element_ID=1 [0,3,1]"} +
                              CallLog{"execute DELETE * FROM ElementsAndImages WHERE Element_ID=1"} +
                              Counts("10") + CallLog{FreeingOf("10")} + Counts("20") +
                              TrimStatements({"5", "5"}));
  EXPECT_EQ(Links(), Lines{"2 0 0 20"});
  EXPECT_EQ(Images(), (Lines{"1 40 0", "2 10 2", "3 30 3", "4 99 2", "5 20 3"}));
  EXPECT_EQ(ImageAt(2), "-1 0 0 0 0 Null Null Null");
  EXPECT_EQ(ImageAt(5), "1020 3 2 4 3 C:\\p\\20.png 8x8 12x8");
}

TEST_F(ImageLinks, ReleasingTheLastTrimsFromTheTopDownToWhatIsInUse) {
  PutSharedImages();
  ReleaseElementImages(1);
  Statements();
  ReleaseElementImages(2);
  EXPECT_EQ(Statements(), CallLog{"open SELECT * FROM ElementsAndImages WHERE Element_ID=2 [0,3,1]"} +
                              CallLog{"execute DELETE * FROM ElementsAndImages WHERE Element_ID=2"} +
                              Counts("20") + CallLog{FreeingOf("20")} + TrimStatements({"5", "4", "3", "3"}));
  EXPECT_EQ(Images(), (Lines{"1 40 0", "2 10 2", "3 30 3"}));
}

TEST_F(ImageLinks, APictureThatAPageHasStays) {
  PutSharedImages();
  Link(3, 0, 30);
  ReleaseElementImages(3);
  EXPECT_EQ(Images()[2], "3 30 3");
  EXPECT_EQ(PageLinks(), Lines{"1 0 0 30"});
}

TEST_F(ImageLinks, ReleasingAnElementWithoutPicturesOnlyTrims) {
  PutImage(1, 10, kImageInUse);
  PutImage(2, 20, kFreeImage);
  ReleaseElementImages(-1);
  EXPECT_EQ(Statements(), CallLog{"open SELECT * FROM ElementsAndImages WHERE Element_ID=-1 [0,3,1]"} +
                              CallLog{"execute DELETE * FROM ElementsAndImages WHERE Element_ID=-1"} +
                              TrimStatements({"2", "1", "1"}));
  // A row that nothing has is left to the collections.
  EXPECT_EQ(Images(), Lines{"1 10 3"});
}

TEST_F(ImageLinks, APictureThatAnElementHasTwiceIsLookedAtTwice) {
  PutImage(1, 10, kImageInUse);
  Link(1, 0, 10);
  Link(1, 1, 10);
  ReleaseElementImages(1);
  EXPECT_EQ(Statements(), CallLog{"open SELECT * FROM ElementsAndImages WHERE Element_ID=1 [0,3,1]"} +
                              CallLog{"execute DELETE * FROM ElementsAndImages WHERE Element_ID=1"} +
                              Counts("10") + CallLog{FreeingOf("10")} + Counts("10") +
                              CallLog{FreeingOf("10")} + TrimStatements({"1", "Null"}));
  EXPECT_EQ(Images(), Lines{});
}

TEST_F(ImageLinks, RowsOfThePanelItselfAreNotReleased) {
  PutImage(1, 10, kSystemImageRead);
  PutImage(2, 20, kSystemImageWritten);
  Link(1, 0, 10);
  Link(1, 1, 20);
  ReleaseElementImages(1);
  EXPECT_EQ(Images(), (Lines{"1 10 0", "2 20 1"}));
  EXPECT_EQ(ImageAt(2), "1020 3 2 4 3 C:\\p\\20.png 8x8 12x8");
}

TEST_F(ImageLinks, AFailureOfAnyCallOfAReleasePassesUp) {
  EXPECT_EQ(FailAtEachCall([&] { PutSharedImages(); }, [] { ReleaseElementImages(1); },
                           [&] { EXPECT_EQ(Links(), Lines{"2 0 0 20"}); }),
            28);
}

// Releasing one picture.

TEST_F(ImageLinks, ReleasingOnePictureLeavesTheOthers) {
  PutSharedImages();
  ReleaseElementImage(10, 1, 0);
  EXPECT_EQ(
      Statements(),
      CallLog{"execute DELETE * FROM ElementsAndImages WHERE Element_ID=1 AND Image_CRC=10 AND "
              "Image_Index=0"} +
          Counts("10") +
          CallLog{"execute UPDATE ProjectImages SET LibCRC=-1,DxORG=0,DyORG=0,Data8bppORG=NULL,Dx=0,Dy=0,"
                  "ImagePath=NULL,Data8bpp=NULL,RecordStatus=2 WHERE CRC=10 AND RecordStatus=3"} +
          TrimStatements({"5", "5"}));
  EXPECT_EQ(Links(), (Lines{"1 1 0 20", "2 0 0 20"}));
  EXPECT_EQ(Images()[1], "2 10 2");
}

TEST_F(ImageLinks, ReleasingOnePictureCountsWhoElseHasIt) {
  PutSharedImages();
  ReleaseElementImage(20, 1, 1);
  EXPECT_EQ(Images()[4], "5 20 3");
  ReleaseElementImage(20, 2, 0);
  EXPECT_EQ(Images(), (Lines{"1 40 0", "2 10 3", "3 30 3"}));
}

TEST_F(ImageLinks, ReleasingAPictureUnderAnotherIndexLeavesTheLink) {
  PutSharedImages();
  ReleaseElementImage(10, 1, 1);
  ReleaseElementImage(20, 1, 0);
  EXPECT_EQ(Links().size(), 3u);
  EXPECT_EQ(Images().size(), 5u);
}

// Links behind the last one.

TEST_F(ImageLinks, BehindTheCountAreDeletedInTheOrderOfTheirIndexes) {
  Link(1, 7, 10);
  Link(1, 0, 20);
  Link(1, 3, 30);
  Link(2, 9, 40);
  TrimElementImages(1, 2);
  EXPECT_EQ(TakeLog(),
            (CallLog{"open SELECT * FROM ElementsAndImages WHERE Element_ID=1 Order By Image_Index [2,3,1]",
                     "Delete", "Close"}));
  EXPECT_EQ(Links(), (Lines{"1 0 0 20", "1 3 0 30", "2 9 0 40"}));
}

TEST_F(ImageLinks, AreTrimmedByCount) {
  const struct {
    Long count;
    std::size_t left;
  } cases[] = {{4, 3}, {3, 3}, {2, 2}, {1, 1}, {0, 3}, {-1, 3}};
  for (const auto& trim : cases) {
    Connection().Execute("DELETE FROM ElementsAndImages");
    for (Long i = 0; i < 3; ++i) Link(1, i, 10);
    TrimElementImages(1, trim.count);
    EXPECT_EQ(Links().size(), trim.left) << trim.count;
  }
  TakeLog();
  TrimElementImages(1, 0);
  EXPECT_EQ(TakeLog(), CallLog{});
}

}  // namespace
}  // namespace quenzel7
