#include "images/image_queries.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "images/image_rows.h"
#include "tests/support/failing_memory.h"
#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using Crcs = std::vector<Long>;
using Size = std::pair<Long, Long>;

class ImageQueries : public test::ImageProjectTest {
 protected:
  /// Pictures 10, 20, 30 and 40 of the states 0 to 3.
  void PutAllStates() {
    for (Long status = 0; status <= 3; ++status) PutImage(status + 1, (status + 1) * 10, status, status + 13);
  }
  static Size OriginalSize(Long crc) {
    Size size{7, 7};
    GetImageOriginalDimansions(crc, size.first, size.second);
    return size;
  }
  static Size PanelSize(Long crc) {
    Size size{7, 7};
    GetImageDimensions(crc, size.first, size.second);
    return size;
  }
};

TEST_F(ImageQueries, AskTheseStatements) {
  const std::string images = "open SELECT ", from = " FROM ProjectImages WHERE CRC=-5",
                    inUse = " AND RecordStatus=3", end = " [0,3,1]";
  Long dx, dy;
  PixelBytes data;
  const struct {
    std::function<void()> ask;
    std::string statement;
  } cases[] = {
      {[] { GetImageData8bppByCRC(-5); }, images + "CRC,Data8bpp" + from + end},
      {[] { GetImageBitsByCRC(-5); }, images + "CRC,[Bits]" + from + end},
      {[] { GetImageDataORGByCRC(-5); }, images + "CRC,Data8bppORG" + from + end},
      {[&] { GetImageOriginalDimansions(-5, dx, dy); }, images + "CRC,DxORG,DyORG" + from + inUse + end},
      {[&] { GetImageDimensions(-5, dx, dy); }, images + "Dx,Dy" + from + inUse + end},
      {[&] { GetImageRecord(-5, data, dx, dy); }, images + "*" + from + inUse + end},
      {[] { GetImageLibCRC(-5); }, images + "LibCRC" + from + end},
      {[] { GetImagePathFromDB(-5); }, images + "ImagePath" + from + end},
      {[] { GetElementImageCRCs(-5); },
       "open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=-5 ORDER BY (Image_Index)" +
           end},
      {[] { GetDistinctElementImageCRCs(-5); },
       "open SELECT DISTINCT Image_CRC FROM ElementsAndImages WHERE Element_ID=-5" + end},
  };
  for (const auto& query : cases) {
    query.ask();
    EXPECT_EQ(TakeLog(), (CallLog{query.statement, "Close"}));
  }
}

TEST_F(ImageQueries, ReadColumnsInThisOrder) {
  PutImage(1, 50, kImageInUse);
  const auto readBy = [&](const std::function<void()>& ask) {
    TakeLog();
    ask();
    const CallLog log = TakeLog();
    EXPECT_EQ(log.back(), "Close");
    return CallLog(log.begin() + 1, log.end() - 1);
  };
  Long dx = 0, dy = 0;
  PixelBytes data;
  EXPECT_EQ(readBy([&] { GetImageRecord(50, data, dx, dy); }), (CallLog{"get Data8bpp", "get Dx", "get Dy"}));
  EXPECT_EQ(readBy([&] { GetImageDimensions(50, dx, dy); }), (CallLog{"get Dx", "get Dy"}));
  EXPECT_EQ(readBy([&] { GetImageOriginalDimansions(50, dx, dy); }), (CallLog{"get DxORG", "get DyORG"}));
  EXPECT_EQ(readBy([] { GetImageData8bppByCRC(50); }), CallLog{"get Data8bpp"});
}

TEST_F(ImageQueries, ReadPixelsOfEveryState) {
  PutAllStates();
  EXPECT_EQ(GetImageData8bppByCRC(10), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(GetImageData8bppByCRC(20), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(GetImageData8bppByCRC(30), PixelBytes{});
  EXPECT_EQ(GetImageData8bppByCRC(40), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(GetImageData8bppByCRC(50), PixelBytes{});
  EXPECT_EQ(GetImageDataORGByCRC(10), test::PixelsOf(4, 3, 8));
  EXPECT_EQ(GetImageDataORGByCRC(30), PixelBytes{});
  EXPECT_EQ(GetImageDataORGByCRC(40), test::PixelsOf(4, 3, 8));
  EXPECT_EQ(GetImageDataORGByCRC(50), PixelBytes{});
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(ImageQueries, ReadThePictureInUseWhereAFreeRowHasItsCrcToo) {
  PutImage(3, 10, kFreeImage);
  PutImage(4, 10, kImageInUse, Long{16});
  EXPECT_EQ(GetImageBitsByCRC(10), 16);
  EXPECT_EQ(GetImageLibCRC(10), 1010);
  EXPECT_EQ(GetImagePathFromDB(10), "C:\\p\\10.png");
  EXPECT_EQ(PanelSize(10), Size(3, 2));
}

TEST_F(ImageQueries, ReadBits) {
  PutAllStates();
  PutImage(9, 90, kImageInUse, automation::NullValue{});
  EXPECT_EQ(GetImageBitsByCRC(10), 13);
  EXPECT_EQ(GetImageBitsByCRC(40), 16);
  EXPECT_EQ(GetImageBitsByCRC(50), 0);
  EXPECT_EQ(GetImageBitsByCRC(90), 0);
}

TEST_F(ImageQueries, ReadNoBitsInAProjectWithoutThem) {
  PutAllStates();
  ForgetBits();
  TakeLog();
  EXPECT_EQ(GetImageBitsByCRC(40), 0);
  const CallLog log = TakeLog();
  EXPECT_EQ(test::StatementsIn(log),
            (CallLog{"open SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=40 [0,3,1]",
                     "open SELECT * FROM ProjectImages WHERE RecordStatus=-1 [0,3,1]"}));
  EXPECT_EQ(log.back(), "Close");
}

TEST_F(ImageQueries, PassOnAFailureThatHasAnotherReason) {
  PutAllStates();
  Recorder().FailAt(1);
  EXPECT_EQ(test::DescriptionOf([] { GetImageBitsByCRC(40); }),
            "failed at open SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=40 [0,3,1]");
}

TEST_F(ImageQueries, OfATableWithMoreColumnsReadBitsAndPassOnFailures) {
  PutAllStates();
  Connection().Execute("ALTER TABLE ProjectImages ADD COLUMN More");
  EXPECT_EQ(GetImageBitsByCRC(40), 16);
  for (const int call : {1, 2, 3, 4}) {
    Recorder().FailAt(call);
    EXPECT_EQ(test::ErrorOf([] { GetImageBitsByCRC(40); }),
              static_cast<Long>(automation::ErrorNumber::Database))
        << call;
    TakeLog();
  }
}

TEST_F(ImageQueries, ReadSizesOfPicturesInUseOnly) {
  PutAllStates();
  for (const Long crc : {10, 20, 30, 50}) {
    EXPECT_EQ(OriginalSize(crc), Size(-1, -1)) << crc;
    EXPECT_EQ(PanelSize(crc), Size(7, 7)) << crc;
  }
  EXPECT_EQ(OriginalSize(40), Size(4, 3));
  EXPECT_EQ(PanelSize(40), Size(3, 2));
}

TEST_F(ImageQueries, ReadRecordsOfPicturesInUseOnly) {
  PutAllStates();
  for (const Long crc : {10, 20, 30, 50}) {
    PixelBytes data = {9};
    Long dx = 5, dy = 6;
    GetImageRecord(crc, data, dx, dy);
    EXPECT_EQ(data, PixelBytes{9}) << crc;
    EXPECT_EQ(Size(dx, dy), Size(5, 6)) << crc;
  }
  PixelBytes data = {9};
  Long dx = 5, dy = 6;
  GetImageRecord(40, data, dx, dy);
  EXPECT_EQ(data, test::PixelsOf(3, 2, 8));
  EXPECT_EQ(Size(dx, dy), Size(3, 2));
}

TEST_F(ImageQueries, ReadWhereAPictureCameFrom) {
  PutAllStates();
  EXPECT_EQ(GetImageLibCRC(10), 1010);
  EXPECT_EQ(GetImageLibCRC(30), -1);
  EXPECT_EQ(GetImageLibCRC(40), 1040);
  EXPECT_EQ(GetImageLibCRC(50), -1);
  EXPECT_EQ(GetImagePathFromDB(20), "C:\\p\\20.png");
  EXPECT_EQ(GetImagePathFromDB(30), "");
  EXPECT_EQ(GetImagePathFromDB(50), "");
}

TEST_F(ImageQueries, RefuseANumberThatIsNotThere) {
  PutRow("ProjectImages",
         {{"CRC", Long{10}}, {"RecordStatus", Long{3}}, {"Dx", Long{1}}, {"DxORG", Long{1}}});
  const std::string null = ": invalid use of Null: a number was expected";
  EXPECT_RAISES(94, "column 'LibCRC'" + null, GetImageLibCRC(10));
  EXPECT_RAISES(94, "column 'DyORG'" + null, OriginalSize(10));
  EXPECT_RAISES(94, "column 'Dy'" + null, PanelSize(10));
  EXPECT_EQ(GetImageData8bppByCRC(10), PixelBytes{});
  EXPECT_EQ(GetImagePathFromDB(10), "");
}

// The pictures of an element.

TEST_F(ImageQueries, ListTheLinksByIndexAndOneMore) {
  EXPECT_EQ(GetElementImageCRCs(1), (Crcs{-1}));
  Link(1, 2, 30);
  Link(1, 0, 10);
  Link(1, 1, 10);
  Link(2, 0, 40);
  EXPECT_EQ(GetElementImageCRCs(1), (Crcs{10, 10, 30, -1}));
  EXPECT_EQ(GetElementImageCRCs(2), (Crcs{40, -1}));
}

TEST_F(ImageQueries, ListEachPictureOnce) {
  EXPECT_EQ(GetDistinctElementImageCRCs(1), Crcs{});
  Link(1, 0, 20);
  Link(1, 1, 10);
  Link(1, 2, 20);
  Link(2, 0, 40);
  Crcs crcs = GetDistinctElementImageCRCs(1);
  std::sort(crcs.begin(), crcs.end());
  EXPECT_EQ(crcs, (Crcs{10, 20}));
}

TEST_F(ImageQueries, OfAVariableCountFirst) {
  Link(1, 0, 10);
  GetCRCsOfVarImages(1, 2);
  EXPECT_EQ(
      Statements(),
      (CallLog{
          "open SELECT COUNT(Image_CRC) as ActualCount FROM ElementsAndImages WHERE Element_ID=1 [0,3,1]",
          "open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=1 ORDER BY "
          "(Image_Index) [0,3,1]"}));
  EXPECT_EQ(GetCRCsOfVarImages(1, 0), Crcs{});
  EXPECT_EQ(GetCRCsOfVarImages(1, -1), Crcs{});
  EXPECT_EQ(TakeLog(), CallLog{});
}

TEST_F(ImageQueries, OfAVariableLeaveHolesOpen) {
  const struct {
    Crcs indexes;
    Long places;
    Crcs found;
  } cases[] = {
      {{}, 2, {-1, -1}},
      {{0}, 1, {10}},
      {{0, 1, 2}, 3, {10, 11, 12}},
      // As many rows as places: their indexes do not count.
      {{1, 2, 3}, 3, {10, 11, 12}},
      {{0, 0, 7}, 3, {10, 11, 12}},
      {{5}, 1, {10}},
      // Holes in the middle, at the beginning and at the end.
      {{0, 2}, 3, {10, -1, 11}},
      {{1, 2}, 3, {-1, 10, 11}},
      {{0, 1}, 3, {10, 11, -1}},
      {{2}, 3, {-1, -1, 10}},
      {{3}, 3, {-1, -1, -1}},
      // Rows behind the last place.
      {{0, 1, 2}, 2, {10, 11}},
      {{0, 3}, 3, {10, -1, -1}},
      {{0, 1, 4, 9}, 2, {10, 11}},
      {{2, 3}, 1, {-1}},
      // A row that is never met keeps the rest from their places.
      {{-1, 0}, 3, {-1, -1, -1}},
      {{0, 0, 1}, 4, {10, -1, -1, -1}},
      {{1, 1}, 3, {-1, 10, -1}},
  };
  for (const auto& example : cases) {
    Connection().Execute("DELETE FROM ElementsAndImages");
    Long crc = 10;
    for (const Long index : example.indexes) Link(1, index, crc++);
    Link(2, 0, 99);
    EXPECT_EQ(GetCRCsOfVarImages(1, example.places), example.found)
        << ::testing::PrintToString(example.indexes) << " " << example.places;
  }
}

TEST_F(ImageQueries, OfAVariableBeyondTheMostAreAnErrorBeforeAnythingIsAsked) {
  EXPECT_EQ(kMostVarImages, 16777216);
  for (const Long count : {kMostVarImages + 1, std::numeric_limits<Long>::max()}) {
    const test::Failing memory(0, 100000);
    EXPECT_RAISES(7, "no room for " + std::to_string(count) + " pictures of a variable",
                  GetCRCsOfVarImages(1, count));
    // Not even their places were asked for.
    EXPECT_EQ(test::allocationsLeft, 0);
    EXPECT_EQ(TakeLog(), CallLog{});
  }
  Link(1, 3, 10);
  const Crcs most = GetCRCsOfVarImages(1, kMostVarImages);
  ASSERT_EQ(most.size(), 16777216u);
  EXPECT_EQ(most[3], 10);
  EXPECT_EQ(most.back(), -1);
}

TEST_F(ImageQueries, OfAVariableThatHaveNoRoomAreAnError) {
  const auto ask = [] {
    const test::Failing memory(0, 40000);
    GetCRCsOfVarImages(1, 10000);
  };
  EXPECT_RAISES(7, "no room for 10000 pictures of a variable", ask());
  EXPECT_EQ(GetCRCsOfVarImages(1, 10000), Crcs(10000, -1));
}

}  // namespace
}  // namespace quenzel7
