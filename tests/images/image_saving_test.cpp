#include "images/image_saving.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/support/image_fixture.h"
#include "tests/support/noting_services.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using corvane1::ErrorReport;
using test::CallLog;
using test::operator+;
using test::LibraryPicture;
using Lines = std::vector<std::string>;

const std::string kFreeRows = "open SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY Index [2,3,1]";
const std::string kOrphans =
    "open SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages) [2,3,1]";

std::string CountOf(const std::string& crc) {
  return "execute SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=" + crc +
         " AND RecordStatus IN (3,2)";
}
std::string RowsOf(const std::string& crc, const std::string& states) {
  return "open SELECT * FROM ProjectImages WHERE CRC=" + crc + " AND " + states + " [2,3,1]";
}
const std::string kBitmapStates = "RecordStatus IN (3,2)";
const std::string kListStates = "(RecordStatus=3 Or RecordStatus=2)";
const std::string kPageStates = "RecordStatus=3";

/// What is written for Picture(50) in the order of a bitmap, and in that of lists and pages.
const CallLog kBitmapPuts = {"put Dx=3:Long",
                             "put Dy=2:Long",
                             "put Data8bpp=Array",
                             "put LibCRC=1050:Long",
                             "put DxORG=4:Long",
                             "put DyORG=3:Long",
                             "put Data8bppORG=Array",
                             "put ImagePath=C:\\p\\50.png:String",
                             "put RecordStatus=3:Long",
                             "put Bits=0:Long",
                             "Update",
                             "Close"};
const CallLog kRecordPuts = {"put Dx=3:Long",
                             "put Dy=2:Long",
                             "put LibCRC=1050:Long",
                             "put DxORG=4:Long",
                             "put DyORG=3:Long",
                             "put RecordStatus=3:Long",
                             "put ImagePath=C:\\p\\50.png:String",
                             "put Data8bpp=Array",
                             "put Data8bppORG=Array",
                             "put Bits=0:Long",
                             "Update",
                             "Close"};

/// A link of element 6 and index 2 that is 4 transparent.
const std::string kLink = "open SELECT * FROM ElementsAndImages WHERE Element_ID=6 AND Image_Index=2 [3,3,1]";
CallLog LinkPuts(const std::string& crc) {
  return {"put Image_CRC=" + crc + ":Long",
          "put TransparencyLevel=4:Long",
          "put Element_ID=6:Long",
          "put Image_Index=2:Long",
          "Update",
          "Close"};
}

const std::string kSaved50 = "1050 3 2 4 3 C:\\p\\50.png 8x8 12x8";
const std::string kFree = "-1 0 0 0 0 Null Null Null";

class ImageSaving : public test::ImageProjectTest {
 protected:
  void SaveOfBitmap(LibraryPicture picture) { AddBitmapImageToProject(ToSave(picture), 6, 2, 4); }
  Long SaveOfList(LibraryPicture picture) { return UpdateListImage(ToSave(picture)); }
  void SaveOfPage(LibraryPicture picture) { UpdatePageImage(ToSave(picture)); }
  /// All three, for what they have in common.
  std::vector<std::function<void(LibraryPicture)>> Savings() {
    return {[this](LibraryPicture picture) { SaveOfBitmap(std::move(picture)); },
            [this](LibraryPicture picture) { SaveOfList(std::move(picture)); },
            [this](LibraryPicture picture) { SaveOfPage(std::move(picture)); }};
  }
  /// Picture 50 with pixels that do not fit its size.
  static LibraryPicture Damaged() {
    LibraryPicture picture = Picture(50);
    picture.data.push_back(0);
    return picture;
  }
  /// Panel pixels of one colour in the size of the picture, padded with 0.
  static PixelBytes PixelsOf8(const LibraryPicture& picture) {
    PixelBytes pixels = test::PixelsOf(picture.dx, picture.dy, 8);
    if (picture.dx % 2 == 1) {
      for (std::size_t i = 3; i < pixels.size(); i += 4) pixels[i] = 0;
    }
    return pixels;
  }
  std::vector<ErrorReport> Reports() const { return {Errors().begin(), Errors().end()}; }
  static ErrorReport Repaired(const std::string& className, const std::string& method) {
    return {"Corrupted Image",
            static_cast<Long>(0x80040257),
            "Corrupted image data from file: C:\\p\\50.png",
            "Quenzel7.dll",
            className,
            method,
            48};
  }
};

// A new picture.

TEST_F(ImageSaving, OfABitmapAddsARowALinkAndLooksForAnOrphan) {
  SaveOfBitmap(Picture(50));
  EXPECT_EQ(Writes(), CallLog({CountOf("50"), "Close", kFreeRows, "AddNew", "put CRC=50:Long"}) +
                          kBitmapPuts + CallLog({kLink, "AddNew"}) + LinkPuts("50") +
                          CallLog({kOrphans, "Close"}));
  EXPECT_EQ(Images(), Lines{"1 50 3"});
  EXPECT_EQ(ImageAt(1), kSaved50);
  EXPECT_EQ(Links(), Lines{"6 2 4 50"});
  EXPECT_TRUE(Errors().empty());
}

TEST_F(ImageSaving, OfAListOrAPageAddsARowOnly) {
  EXPECT_EQ(SaveOfList(Picture(50)), 50);
  const CallLog log = CallLog({CountOf("50"), "Close", kFreeRows, "AddNew", "put CRC=50:Long"}) + kRecordPuts;
  EXPECT_EQ(Writes(), log);
  EXPECT_EQ(ImageAt(1), kSaved50);
  EmptyTables();
  SaveOfPage(Picture(50));
  EXPECT_EQ(Writes(), log);
  EXPECT_EQ(Images(), Lines{"2 50 3"});
  EXPECT_EQ(ImageAt(2), kSaved50);
  EXPECT_EQ(Links(), Lines{});
  EXPECT_TRUE(Errors().empty());
}

TEST_F(ImageSaving, TakesTheFreeRowOfLowestIndexUnderANewKey) {
  for (const auto& save : Savings()) {
    PutImage(1, 10, kImageInUse);
    Link(1, 0, 10);
    PutImage(2, 20, kSystemImageRead);
    PutImage(4, 40, kFreeImage);
    PutImage(3, 30, kFreeImage);
    PutImage(5, 50, kSystemImageWritten);
    TakeLog();
    save(Picture(50));
    const CallLog log = Writes();
    ASSERT_GT(log.size(), 5u);
    EXPECT_EQ(CallLog(log.begin(), log.begin() + 5),
              (CallLog{CountOf("50"), "Close", kFreeRows, "put CRC=50:Long", "put Dx=3:Long"}));
    EXPECT_EQ(Images(), (Lines{"1 10 3", "2 20 0", "3 50 3", "4 40 2", "5 50 1"}));
    EXPECT_EQ(ImageAt(3), kSaved50);
    EXPECT_EQ(ImageAt(4), kFree);
    EmptyTables();
  }
}

// A picture whose row is there.

TEST_F(ImageSaving, WritesTheRowInUseAnewAndItKeepsItsIndex) {
  const struct {
    std::function<void(LibraryPicture)> save;
    CallLog begin;
  } cases[] = {{Savings()[0], CallLog({RowsOf("50", kBitmapStates)}) + kBitmapPuts},
               {Savings()[1], CallLog({RowsOf("50", kListStates)}) + kRecordPuts},
               {Savings()[2], CallLog({RowsOf("50", kPageStates)}) + kRecordPuts}};
  for (const auto& example : cases) {
    PutImage(1, 10, kFreeImage);
    PutImage(7, 50, kImageInUse);
    Connection().Execute("UPDATE ProjectImages SET Dx=9,Dy=9,ImagePath='x',LibCRC=9,DxORG=9,DyORG=9");
    Link(6, 2, 99);
    TakeLog();
    example.save(Picture(50));
    const CallLog log = Writes(), begin = CallLog({CountOf("50"), "Close"}) + example.begin;
    ASSERT_GE(log.size(), begin.size());
    EXPECT_EQ(CallLog(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(begin.size())), begin);
    EXPECT_EQ(Images(), (Lines{"1 10 2", "7 50 3"}));
    EXPECT_EQ(ImageAt(7), kSaved50);
    EmptyTables();
  }
}

TEST_F(ImageSaving, OfABitmapWritesTheLinkThatIsThere) {
  PutImage(1, 10, kImageInUse);
  Link(6, 1, 10, 9);
  Link(6, 2, 10, 9);
  Link(5, 2, 10, 9);
  TakeLog();
  SaveOfBitmap(Picture(50));
  const CallLog log = Writes(), end = CallLog({kLink}) + LinkPuts("50") + CallLog({kOrphans, "Close"});
  EXPECT_EQ(CallLog(log.end() - static_cast<std::ptrdiff_t>(end.size()), log.end()), end);
  EXPECT_EQ(Links(), (Lines{"5 2 9 10", "6 1 9 10", "6 2 4 50"}));
}

TEST_F(ImageSaving, OfABitmapOrAListTakesTheFreeRowOfThePictureBack) {
  for (std::size_t which : {0, 1}) {
    PutImage(1, 10, kFreeImage);
    PutImage(2, 50, kFreeImage);
    TakeLog();
    Savings()[which](Picture(50));
    EXPECT_EQ(Statements()[1], RowsOf("50", which == 0 ? kBitmapStates : kListStates));
    EXPECT_EQ(Images(), (Lines{"1 10 2", "2 50 3"})) << which;
    EXPECT_EQ(ImageAt(2), kSaved50);
    EmptyTables();
  }
}

TEST_F(ImageSaving, OfAPageCountsAFreeRowAndAddsAnotherAllTheSame) {
  PutImage(1, 10, kFreeImage);
  PutImage(2, 50, kFreeImage);
  TakeLog();
  SaveOfPage(Picture(50));
  EXPECT_EQ(Writes(),
            CallLog({CountOf("50"), "Close", RowsOf("50", kPageStates), "AddNew", "put CRC=50:Long"}) +
                kRecordPuts);
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 50 2", "3 50 3"}));
}

TEST_F(ImageSaving, LeavesRowsOfThePanelItselfAlone) {
  for (const auto& save : Savings()) {
    PutImage(1, 50, kSystemImageRead);
    PutImage(2, 50, kSystemImageWritten);
    save(Picture(50, 9));
    EXPECT_EQ(Images().size(), 3u);
    EXPECT_EQ(ImageAt(1), kSaved50);
    EXPECT_EQ(ImageAt(2), kSaved50);
    EmptyTables();
  }
}

TEST_F(ImageSaving, OfABitmapFreesOneOrphanOnly) {
  for (Long i = 1; i <= 3; ++i) PutImage(i, i * 10, kImageInUse);
  SaveOfBitmap(Picture(50));
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 20 3", "3 30 3", "4 50 3"}));
  SaveOfBitmap(Picture(50));
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 20 2", "3 30 3", "4 50 3"}));
}

TEST_F(ImageSaving, OfABitmapFreesThePictureThatItReplaces) {
  SaveOfBitmap(Picture(40));
  SaveOfBitmap(Picture(50));
  EXPECT_EQ(Images(), (Lines{"1 40 2", "2 50 3"}));
  EXPECT_EQ(ImageAt(1), kFree);
  SaveOfBitmap(Picture(40));
  EXPECT_EQ(Images(), (Lines{"1 40 3", "2 50 2"}));
}

TEST_F(ImageSaving, WritesTheBitsOfThePicture) {
  for (const auto& save : Savings()) {
    LibraryPicture picture = Picture(50);
    picture.bits = 16;
    picture.data = PixelBytes(12, 1);
    save(picture);
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"16"});
    EmptyTables();
  }
  EXPECT_TRUE(Errors().empty());
}

TEST_F(ImageSaving, OfAListNeedsNoColumnForBits) {
  ForgetBits();
  EXPECT_EQ(SaveOfList(Picture(50)), 50);
  CallLog puts = kRecordPuts;
  puts.erase(puts.end() - 3);
  EXPECT_EQ(Writes(), CallLog({CountOf("50"), "Close", kFreeRows, "AddNew", "put CRC=50:Long"}) + puts);
  EXPECT_EQ(ImageAt(1), kSaved50);
  EXPECT_EQ(test::ErrorOf([&] { SaveOfBitmap(Picture(50)); }), 3265);
  EXPECT_EQ(test::ErrorOf([&] { SaveOfPage(Picture(50)); }), 3265);
}

TEST_F(ImageSaving, OfAListWritesBitsIntoATableOf12ColumnsOnly) {
  Connection().Execute("ALTER TABLE ProjectImages ADD COLUMN More");
  TakeLog();
  SaveOfList(Picture(50));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"Null"});
  SaveOfPage(Picture(50));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"0"});
}

TEST_F(ImageSaving, OfNoPictureRunsAsWritten) {
  LibraryPicture none;
  SaveOfBitmap(none);
  EXPECT_EQ(Images(), Lines{"1 -1 3"});
  EXPECT_EQ(Links(), Lines{"6 2 4 -1"});
  EXPECT_EQ(Statements()[0], CountOf("-1"));
  EXPECT_EQ(SaveOfList(none), -1);
  SaveOfPage(none);
  EXPECT_EQ(Images(), Lines{"1 -1 3"});
}

// Damaged pixels.

TEST_F(ImageSaving, PixelsThatDoNotFitAreMadeAnewFromTheOriginal) {
  Long index = 0;
  for (const Long bits : {0, 16}) {
    for (const auto& save : Savings()) {
      const auto library = UseNotingLibrary();
      LibraryPicture picture = Damaged();
      picture.bits = bits;
      save(picture);
      EXPECT_EQ(library->calls, bits == 16
                                    ? (Lines{"from 16bpp 12 bytes 4x3", "stretch #1 3x2", "to 16bpp #2 3x2"})
                                    : (Lines{"from 8bpp 12 bytes 4x3", "stretch #1 3x2",
                                             "to 8bpp mode 0 #2 of 256 colours 3x2"}));
      EXPECT_EQ(library->Kept(), Lines{});
      EXPECT_EQ(ImageAt(++index), "1050 3 2 4 3 C:\\p\\50.png 2x1 12x8");
      EmptyTables();
    }
  }
  EXPECT_EQ(Errors().size(), 6u);
}

TEST_F(ImageSaving, ARepairIsLoggedAndTheCallersPixelsAreTheNewOnes) {
  UseNotingLibrary();
  LibraryPicture picture = Damaged();
  AddBitmapImageToProject(ToSave(picture), 6, 2, 4);
  EXPECT_EQ(picture.data, (PixelBytes{1, 2}));
  SaveOfList(Damaged());
  SaveOfPage(Damaged());
  EXPECT_EQ(Reports(), (std::vector<ErrorReport>{Repaired("clsBitmap", "prvAddImageToProject"),
                                                 Repaired("clsVarImageElement", "prvUpdateProjectimages"),
                                                 Repaired("clsPageBkImage", "prvUpdateProjectimages")}));
}

TEST_F(ImageSaving, OfABitmapOrAPageKeepsTheKeyOfRepairedPixels) {
  UseNotingLibrary();
  SaveOfBitmap(Damaged());
  EXPECT_EQ(Images(), Lines{"1 50 3"});
  EXPECT_EQ(Links(), Lines{"6 2 4 50"});
  SaveOfPage(Damaged());
  EXPECT_EQ(Images(), Lines{"1 50 3"});
}

TEST_F(ImageSaving, OfAListTakesTheCrcOfRepairedPixels) {
  UseNotingLibrary();
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  const CallLog writes = Writes();
  EXPECT_EQ(writes[4],
            "execute SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=77 AND "
            "RecordStatus IN (3,2)");
  EXPECT_EQ(writes[8], "put CRC=77:Long");
  EXPECT_EQ(Images(), Lines{"1 77 3"});
}

TEST_F(ImageSaving, OfAListWithARepairedPictureThatTheProjectHasSharesItsRow) {
  UseNotingLibrary();
  PutImage(1, 77, kImageInUse);
  PutImage(2, 40, kFreeImage);
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  EXPECT_EQ(Images(), (Lines{"1 77 3", "2 40 2"}));
}

TEST_F(ImageSaving, OfAListLeavesTheRowOfTheOldCrcToOthers) {
  UseNotingLibrary();
  PutImage(1, 50, kImageInUse);
  Link(1, 0, 50);
  TakeLog();
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  const CallLog log = Writes();
  ASSERT_GT(log.size(), 8u);
  EXPECT_EQ(CallLog(log.begin(), log.begin() + 9),
            (CallLog{CountOf("50"), "Close", RowsOf("50", kListStates), "Close", CountOf("77"), "Close",
                     kFreeRows, "AddNew", "put CRC=77:Long"}));
  EXPECT_EQ(Images(), (Lines{"1 50 3", "2 77 3"}));
  EXPECT_EQ(ImageAt(1), kSaved50);
  EXPECT_EQ(ImageAt(2), "1050 3 2 4 3 C:\\p\\50.png 2x1 12x8");
}

TEST_F(ImageSaving, OfAListFindsTheRowOfTheRepairedPixels) {
  UseNotingLibrary();
  PutImage(1, 77, kImageInUse);
  PutImage(2, 50, kImageInUse);
  TakeLog();
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  EXPECT_EQ(Statements(),
            (CallLog{CountOf("50"), RowsOf("50", kListStates), CountOf("77"), RowsOf("77", kListStates)}));
  EXPECT_EQ(Images(), (Lines{"1 77 3", "2 50 3"}));
  EXPECT_EQ(ImageAt(1), "1050 3 2 4 3 C:\\p\\50.png 2x1 12x8");
}

TEST_F(ImageSaving, OfAListWithTheSameCrcAfterARepairStaysInItsRow) {
  UseNotingLibrary()->crc = 50;
  PutImage(1, 50, kImageInUse);
  TakeLog();
  EXPECT_EQ(SaveOfList(Damaged()), 50);
  EXPECT_EQ(Statements(), (CallLog{CountOf("50"), RowsOf("50", kListStates)}));
  EXPECT_EQ(Images(), Lines{"1 50 3"});
}

TEST_F(ImageSaving, OfAListLooksForAFreeRowOfTheRepairedPixels) {
  UseNotingLibrary();
  PutImage(1, 50, kImageInUse);
  PutImage(4, 40, kFreeImage);
  PutImage(3, 30, kFreeImage);
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  EXPECT_EQ(Images(), (Lines{"1 50 3", "3 77 3", "4 40 2"}));
  Connection().Execute("UPDATE ProjectImages SET RecordStatus=2,CRC=30 WHERE CRC=77");
  Connection().Execute("UPDATE ProjectImages SET CRC=77 WHERE CRC=40");
  EXPECT_EQ(SaveOfList(Damaged()), 77);
  EXPECT_EQ(Images(), (Lines{"1 50 3", "3 30 2", "4 77 3"}));
}

TEST_F(ImageSaving, ARepairIsLoggedAfterAllElse) {
  UseNotingLibrary();
  const auto errors = std::make_shared<test::NotingErrors>(Recorder());
  Platform::Current().errorLog = errors;
  const CallLog ends[] = {{kOrphans, "Close", "log"}, {"Update", "Close", "log"}, {"Update", "Close", "log"}};
  for (std::size_t which = 0; which < 3; ++which) {
    Savings()[which](Damaged());
    const CallLog log = Writes();
    ASSERT_GT(log.size(), 3u);
    EXPECT_EQ(CallLog(log.end() - 3, log.end()), ends[which]);
    EXPECT_EQ(std::count(log.begin(), log.end(), "log"), 1);
    EXPECT_EQ(errors->reports.size(), which + 1);
    EmptyTables();
  }
}

TEST_F(ImageSaving, ARepairIsNotLoggedWhenTheLinkFails) {
  UseNotingLibrary();
  SaveOfBitmap(Damaged());
  const CallLog log = TakeLog();
  const auto link = std::find(log.begin(), log.end(), kLink);
  ASSERT_NE(link, log.end());
  EXPECT_EQ(Errors().size(), 1u);
  EmptyTables();
  Recorder().FailAt(static_cast<int>(link - log.begin()) + 1);
  EXPECT_EQ(test::DescriptionOf([&] { SaveOfBitmap(Damaged()); }), "failed at " + kLink);
  EXPECT_EQ(Errors().size(), 1u);
}

TEST_F(ImageSaving, OfNoPictureWithASizeIsRepairedAndLogged) {
  const auto library = UseNotingLibrary();
  LibraryPicture none;
  none.dx = 14;
  none.dy = 15;
  SaveOfBitmap(none);
  EXPECT_EQ(library->calls,
            (Lines{"from 8bpp 0 bytes 0x0", "stretch #1 14x15", "to 8bpp mode 0 #2 of 256 colours 14x15"}));
  EXPECT_EQ(Errors().size(), 1u);
  EXPECT_EQ(Images(), Lines{"1 -1 3"});
  EXPECT_EQ(Links(), Lines{"6 2 4 -1"});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx", "Dy"}), Lines{"14 15"});
}

TEST_F(ImageSaving, WhatCannotBeRepairedIsSavedAsItIsAndLogged) {
  const auto library = UseNotingLibrary();
  library->status = loomis2::kImageRefused;
  for (const auto& save : Savings()) {
    save(Damaged());
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC", "RecordStatus"}), Lines{"50 3"});
    EmptyTables();
  }
  EXPECT_EQ(SaveOfList(Damaged()), 50);
  EXPECT_EQ(ImageAt(4), "1050 3 2 4 3 C:\\p\\50.png 9x8 12x8");
  EXPECT_EQ(Errors().size(), 4u);
}

TEST_F(ImageSaving, WithoutAnImageLibraryARepairIsAnErrorAndNothingIsWritten) {
  LibraryState::Current() = {};
  for (const auto& save : Savings()) EXPECT_EQ(test::ErrorOf([&] { save(Damaged()); }), 91);
  EXPECT_EQ(Images(), Lines{});
  for (const auto& save : Savings()) save(Picture(50));
  EXPECT_EQ(Images(), Lines{"1 50 3"});
}

TEST_F(ImageSaving, APaintedPictureIsNotChecked) {
  const auto library = UseNotingLibrary();
  for (const auto& save : Savings()) {
    LibraryPicture picture = Damaged();
    picture.crc = kPaintedImage;
    picture.data.clear();
    save(picture);
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC", "RecordStatus"}), Lines{"1061109567 3"});
    EmptyTables();
  }
  EXPECT_EQ(library->calls, Lines{});
  EXPECT_TRUE(Errors().empty());
}

TEST_F(ImageSaving, ARepairWithTheEmbeddedLibraryFitsTheSizeAndIsNotRepeated) {
  for (const Long bits : {0, 16}) {
    EmptyTables();
    LibraryPicture picture = Damaged();
    picture.bits = bits;
    if (bits == 16) picture.dataOrg = PixelBytes(24, 0x21);
    const auto repairs = Errors().size();
    picture.crc = UpdateListImage(ToSave(picture));
    EXPECT_EQ(Errors().size(), repairs + 1);
    EXPECT_NE(picture.crc, 50);
    EXPECT_EQ(picture.data, bits == 16 ? PixelBytes(12, 0x21) : PixelsOf8(picture));
    EXPECT_EQ(UpdateListImage(ToSave(picture)), picture.crc);
    EXPECT_EQ(Errors().size(), repairs + 1);
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC"}), Lines{std::to_string(picture.crc)});
  }
}

TEST_F(ImageSaving, AFailureOfAnyCallPassesUp) {
  EXPECT_EQ(FailAtEachCall([&] { PutImage(1, 10, kImageInUse); }, [&] { SaveOfBitmap(Picture(50)); },
                           [&] {
                             EXPECT_EQ(Links(), Lines{"6 2 4 50"});
                             EXPECT_EQ(Images().size(), 2u);
                           }),
            38);
  const auto isOne = [&] { EXPECT_EQ(Images().size(), 1u); };
  EXPECT_EQ(FailAtEachCall([] {}, [&] { SaveOfPage(Picture(50)); }, isOne), 18);
  EXPECT_EQ(FailAtEachCall([] {}, [&] { SaveOfList(Picture(50)); }, isOne), 18);
}

// Pictures of the panel itself.

TEST_F(ImageSaving, OfThePanelItselfWritesTheKeyFirstAndNoBits) {
  LibraryPicture picture = Picture(50);
  picture.data.clear();
  const auto row = OpenImageRows("SELECT * FROM ProjectImages", ado::adOpenKeyset);
  row->AddNew();
  TakeLog();
  WriteSystemImage(*row, ToSave(picture));
  EXPECT_EQ(TakeLog(), (CallLog{"put CRC=50:Long", "put Dx=3:Long", "put Dy=2:Long", "put DxORG=4:Long",
                                "put DyORG=3:Long", "put Data8bpp=Array", "put LibCRC=1050:Long",
                                "put Data8bppORG=Array", "put ImagePath=C:\\p\\50.png:String",
                                "put RecordStatus=1:Long"}));
  row->Update();
  EXPECT_EQ(Images(), Lines{"1 50 1"});
  EXPECT_TRUE(Errors().empty());
}

}  // namespace
}  // namespace quenzel7
