#include "images/image_rows.h"

#include <gtest/gtest.h>

#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using test::CallLog;
using test::operator+;
using test::TrimStatements;
using Lines = std::vector<std::string>;

const std::string kOrphans =
    "SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages)";

/// What is done to set the current row free.
const CallLog kFreeing = {"put LibCRC=-1:Long",      "put DxORG=0:Long",
                          "put DyORG=0:Long",        "put Data8bppORG=Null",
                          "put Dx=0:Long",           "put Dy=0:Long",
                          "put ImagePath=Null",      "put Data8bpp=Null",
                          "put RecordStatus=2:Long", "Update"};

const std::string kFree = "-1 0 0 0 0 Null Null Null";

class ImageRows : public test::ImageProjectTest {
 protected:
  /// What a query's first row gives.
  template <class Read>
  auto FirstOf(const std::string& query, Read read) {
    const auto rows = OpenImageRows(query, ado::adOpenForwardOnly);
    return read(*rows);
  }
};

TEST_F(ImageRows, StatesAndColumnsHaveTheseNumbers) {
  EXPECT_EQ(kSystemImageRead, 0);
  EXPECT_EQ(kSystemImageWritten, 1);
  EXPECT_EQ(kFreeImage, 2);
  EXPECT_EQ(kImageInUse, 3);
  EXPECT_EQ(kImageColumnsWithBits, 12);
  EXPECT_EQ(OpenImageRows("SELECT * FROM ProjectImages", ado::adOpenStatic)->FieldCount(), 12);
}

TEST_F(ImageRows, AreOpenedAsTextWithOptimisticLocking) {
  for (const auto cursor : {ado::adOpenForwardOnly, ado::adOpenDynamic, ado::adOpenStatic}) {
    OpenImageRows("SELECT * FROM ProjectImages", cursor);
    EXPECT_EQ(TakeLog(), CallLog{"open SELECT * FROM ProjectImages [" +
                                 std::to_string(static_cast<Long>(cursor)) + ",3,1]"});
  }
}

TEST_F(ImageRows, TheFirstRowIsReadIfThereIsOne) {
  const std::string query = "SELECT CRC FROM ProjectImages ORDER BY CRC";
  Lines read;
  const auto note = [&](const ado::Recordset& row) {
    read.push_back(automation::To<std::string>(row.Get("CRC")));
  };
  EXPECT_FALSE(ReadFirstImageRow(query, note));
  EXPECT_EQ(TakeLog(), (CallLog{"open " + query + " [0,3,1]", "Close"}));
  PutImage(1, 50, kImageInUse);
  PutImage(2, 40, kImageInUse);
  EXPECT_TRUE(ReadFirstImageRow(query, note));
  EXPECT_EQ(read, Lines{"40"});
  EXPECT_EQ(TakeLog(), (CallLog{"open " + query + " [0,3,1]", "get CRC", "Close"}));
}

TEST_F(ImageRows, AValueThatIsNotThereIsAnErrorThatTellsTheColumn) {
  PutRow("ProjectImages", {{"Index", Long{3}}, {"LibCRC", Long{-4}}, {"ImagePath", "p"}});
  const auto number = [&](const char* column) {
    return FirstOf("SELECT * FROM ProjectImages", [&](ado::Recordset& row) { return NumberIn(row, column); });
  };
  EXPECT_EQ(number("LibCRC"), -4);
  EXPECT_RAISES(94, "column 'Dx': invalid use of Null: a number was expected", number("Dx"));
  EXPECT_EQ(test::DescriptionOf([&] { number("ImagePath"); }).find("column 'ImagePath': "), 0u);
}

TEST_F(ImageRows, TextsAndPixelsMayBeNull) {
  PutImage(1, 50, kImageInUse);
  PutImage(2, 40, kFreeImage);
  const auto read = [&](Long index, auto get) {
    return FirstOf("SELECT * FROM ProjectImages WHERE [Index]=" + std::to_string(index), get);
  };
  const auto text = [](ado::Recordset& row) { return TextIn(row, "ImagePath"); };
  EXPECT_EQ(read(1, text), "C:\\p\\50.png");
  EXPECT_EQ(read(2, text), "");
  const auto pixels = [](ado::Recordset& row) { return PixelsIn(row, "Data8bpp"); };
  EXPECT_EQ(read(1, pixels), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(read(2, pixels), PixelBytes{});
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(ImageRows, BitsThatAreNotThereAre0) {
  PutImage(1, 50, kImageInUse, Long{16});
  PutImage(2, 40, kImageInUse, automation::NullValue{});
  const auto bits = [&](Long index) {
    return FirstOf("SELECT * FROM ProjectImages WHERE [Index]=" + std::to_string(index),
                   [](ado::Recordset& row) { return BitsIn(row); });
  };
  EXPECT_EQ(bits(1), 16);
  EXPECT_EQ(bits(2), 0);
}

TEST_F(ImageRows, AreCountedByTheDatabase) {
  PutImage(1, 50, kImageInUse);
  PutImage(2, 50, kFreeImage);
  EXPECT_EQ(CountOf("SELECT COUNT(*) AS N FROM ProjectImages", "N"), 2);
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT COUNT(*) AS N FROM ProjectImages", "get N", "Close"}));
}

TEST_F(ImageRows, AreTakenFromTheCurrentOneOn) {
  for (Long i = 1; i <= 3; ++i) PutImage(i, i * 10, kImageInUse);
  const auto rows = OpenImageRows("SELECT * FROM ProjectImages ORDER BY [Index]", ado::adOpenStatic);
  rows->MoveNext();
  std::vector<Long> taken;
  ForEachRow(*rows, [&](ado::Recordset& row) { taken.push_back(NumberIn(row, "CRC")); });
  EXPECT_EQ(taken, (std::vector<Long>{20, 30}));
  ForEachRow(*rows, [&](ado::Recordset&) { taken.clear(); });
  EXPECT_EQ(taken.size(), 2u);
}

TEST_F(ImageRows, AreSetFreeFieldByFieldAndKeepTheirCrc) {
  PutImage(4, 50, kImageInUse, Long{16});
  {
    const auto rows = OpenImageRows("SELECT * FROM ProjectImages", ado::adOpenDynamic);
    TakeLog();
    FreeImageRow(*rows);
  }
  EXPECT_EQ(TakeLog(), kFreeing);
  EXPECT_EQ(Images(), Lines{"4 50 2"});
  EXPECT_EQ(ImageAt(4), kFree);
}

TEST_F(ImageRows, OrphansAreRowsInUseThatNoElementAndNoPageHas) {
  EXPECT_EQ(OrphanImagesQuery(), kOrphans);
  for (Long status = 0; status <= 3; ++status) PutImage(status + 1, 10 * (status + 1), status);
  PutImage(5, 50, kImageInUse);
  PutImage(6, 60, kImageInUse);
  Link(1, 0, 50);
  LinkPage(1, 0, 60);
  EXPECT_EQ(Rows(OrphanImagesQuery(), {"CRC"}), Lines{"40"});
}

TEST_F(ImageRows, OnlyTheFirstOrphanIsSetFreeAndNothingIsTrimmed) {
  for (Long i = 1; i <= 3; ++i) PutImage(i, i * 10, kImageInUse);
  Link(1, 0, 10);
  FreeFirstOrphanImage();
  EXPECT_EQ(TakeLog(), CallLog{"open " + kOrphans + " [2,3,1]"} + kFreeing + CallLog{"Close"});
  EXPECT_EQ(Images(), (Lines{"1 10 3", "2 20 2", "3 30 3"}));
  FreeFirstOrphanImage();
  EXPECT_EQ(Images(), (Lines{"1 10 3", "2 20 2", "3 30 2"}));
  TakeLog();
  FreeFirstOrphanImage();
  EXPECT_EQ(TakeLog(), (CallLog{"open " + kOrphans + " [2,3,1]", "Close"}));
}

TEST_F(ImageRows, ARowGoesFreeWhenNothingHasItsPicture) {
  const CallLog counts = {"execute SELECT COUNT(*) AS NumOfImages FROM ElementsAndImages WHERE Image_CRC=50",
                          "execute SELECT COUNT(*) AS NumOfImages FROM PagesAndImages WHERE Image_CRC=50"};
  PutImage(1, 50, kImageInUse);
  Link(1, 0, 50);
  FreeImageWithoutLinks(50, FreeingOrder::PanelPixelsFirst);
  EXPECT_EQ(Statements(), counts);
  LinkPage(1, 0, 50);
  Connection().Execute("DELETE FROM ElementsAndImages");
  FreeImageWithoutLinks(50, FreeingOrder::OriginalPixelsFirst);
  EXPECT_EQ(Statements(), counts);
  EXPECT_EQ(Images(), Lines{"1 50 3"});
  Connection().Execute("DELETE FROM PagesAndImages");
  FreeImageWithoutLinks(50, FreeingOrder::PanelPixelsFirst);
  EXPECT_EQ(Statements(),
            counts + CallLog{"execute UPDATE ProjectImages SET "
                             "LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,"
                             "Data8bppORG=NULL,RecordStatus=2 WHERE CRC=50 AND RecordStatus=3"});
  EXPECT_EQ(Images(), Lines{"1 50 2"});
  EXPECT_EQ(ImageAt(1), kFree);
  FreeImageWithoutLinks(50, FreeingOrder::OriginalPixelsFirst);
  EXPECT_EQ(Statements().back(),
            "execute UPDATE ProjectImages SET "
            "LibCRC=-1,DxORG=0,DyORG=0,Data8bppORG=NULL,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,"
            "RecordStatus=2 WHERE CRC=50 AND RecordStatus=3");
}

TEST_F(ImageRows, OnlyRowsInUseOfThatCrcGoFree) {
  for (Long status = 0; status <= 3; ++status) PutImage(status + 1, 50, status);
  PutImage(5, 51, kImageInUse);
  FreeImageWithoutLinks(50, FreeingOrder::OriginalPixelsFirst);
  EXPECT_EQ(Images(), (Lines{"1 50 0", "2 50 1", "3 50 2", "4 50 2", "5 51 3"}));
  EXPECT_EQ(ImageAt(1), ImageAt(2));
  EXPECT_EQ(ImageAt(4), kFree);
}

// Giving a row another number.

const std::string kRow2 = " WHERE Index=2 AND RecordStatus IN (2,3)";
const CallLog kLook = {"open SELECT CRC FROM ProjectImages" + kRow2 + " [0,3,1]", "Close"};

TEST_F(ImageRows, AreMovedBehindAllOthersByOneStatement) {
  // Rows that are numbered by hand use up a number each.
  const struct { Long status, number; } cases[] = {{kFreeImage, 8}, {kImageInUse, 11}};
  for (const auto& [status, number] : cases) {
    EmptyTables();
    PutImage(2, 50, status, Long{16});
    PutImage(7, 60, kSystemImageRead);
    TakeLog();
    EXPECT_TRUE(MoveImageRow(2));
    EXPECT_EQ(Writes(),
              (kLook + CallLog{"open SELECT * FROM ProjectImages WHERE RecordStatus=-1 [2,3,1]", "AddNew",
                               "put RecordStatus=2:Long", "Update", "Delete", "Close",
                               "execute UPDATE ProjectImages SET Index=" + std::to_string(number) + kRow2}));
    EXPECT_EQ(Images(), (Lines{"7 60 0", std::to_string(number) + " 50 " + std::to_string(status)}));
  }
}

TEST_F(ImageRows, AreMovedWithEveryColumnThatTheyHave) {
  const Lines columns = {"CRC",      "LibCRC",      "Dx",        "Dy",           "DxORG", "DyORG",
                         "Data8bpp", "Data8bppORG", "ImagePath", "RecordStatus", "Bits",  "More"};
  Long number = 3;
  for (const Long count : {12, 11, 13}) {
    // Each column is compared inside the database: which of them tell row 2 from row 3?
    const auto sameAsRow3 = [&](const std::string& index) {
      std::string condition;
      for (const std::string& column : columns) {
        if (count == 11 && column == "Bits") continue;
        if (count != 13 && column == "More") continue;
        condition += " AND a." + column + " IS b." + column;
      }
      return Rows("SELECT a.CRC FROM ProjectImages a, ProjectImages b WHERE b.\"Index\"=3 AND a.\"Index\"=" +
                      index + condition,
                  {"CRC"});
    };
    EmptyTables();
    if (count == 11) ForgetBits();
    if (count == 13) {
      Connection().Execute("ALTER TABLE ProjectImages ADD COLUMN Bits");
      Connection().Execute("ALTER TABLE ProjectImages ADD COLUMN More");
    }
    for (const char* index : {"2", "3"}) {
      Connection().Execute(std::string("INSERT INTO ProjectImages (\"Index\",CRC,LibCRC,Dx,Dy,DxORG,DyORG,"
                                       "Data8bpp,Data8bppORG,ImagePath,RecordStatus) VALUES (") +
                           index + ",1,2,3,4,5,6,x'07',x'08','nine',3)");
    }
    if (count != 11) Connection().Execute("UPDATE ProjectImages SET Bits=16");
    if (count == 13) Connection().Execute("UPDATE ProjectImages SET More='more'");
    EXPECT_EQ(OpenImageRows("SELECT * FROM ProjectImages", ado::adOpenStatic)->FieldCount(), count);
    EXPECT_TRUE(MoveImageRow(2));
    const std::string moved = std::to_string(++number);
    EXPECT_EQ(Images(), (Lines{"3 1 3", moved + " 1 3"}));
    EXPECT_EQ(sameAsRow3(moved), Lines{"1"}) << count;
  }
}

TEST_F(ImageRows, ThatAreMissingOrThePanelsOwnAreNotMoved) {
  PutImage(1, 10, kImageInUse);
  PutImage(3, 30, kImageInUse);
  for (const Long status : {-1, 4, Long{kSystemImageRead}, Long{kSystemImageWritten}}) {
    TakeLog();
    EXPECT_FALSE(MoveImageRow(2));
    EXPECT_EQ(TakeLog(), kLook);
    EXPECT_EQ(Images(), (Lines{"1 10 3", "3 30 3"}));
    PutImage(2, 20, status);
    const Lines before = Images();
    TakeLog();
    EXPECT_FALSE(MoveImageRow(2)) << status;
    EXPECT_EQ(TakeLog(), kLook);
    EXPECT_EQ(Images(), before);
    Connection().Execute("DELETE FROM ProjectImages WHERE CRC=20");
  }
}

TEST_F(ImageRows, TheNextPictureGetsANumberAboveThatOfAMovedOne) {
  PutImage(1, 10, kImageInUse);
  PutImage(2, 20, kImageInUse);
  EXPECT_TRUE(MoveImageRow(1));
  EXPECT_TRUE(MoveImageRow(2));
  PutRow("ProjectImages", {{"CRC", Long{30}}, {"RecordStatus", Long{3}}});
  EXPECT_EQ(Images(), (Lines{"3 10 3", "4 20 3", "5 30 3"}));
  Connection().Execute("DELETE FROM ProjectImages WHERE CRC=30");
  EXPECT_TRUE(MoveImageRow(3));
  EXPECT_EQ(Images(), (Lines{"4 20 3", "6 10 3"}));
}

TEST_F(ImageRows, ANumberBehindTheLastThereIsIsAnOverflow) {
  PutImage(2, 20, kImageInUse);
  PutImage(2147483647, 30, kImageInUse);
  EXPECT_EQ(test::ErrorOf([] { MoveImageRow(2); }), 6);
  EXPECT_EQ(Images(), (Lines{"2 20 3", "2147483647 30 3"}));
}

TEST_F(ImageRows, AFailureOfAnyCallOfAMovePassesUpAndTheRowStays) {
  const auto prepare = [&] { PutImage(2, 20, kImageInUse); };
  const auto check = [&] {
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages WHERE RecordStatus=3", {"CRC"}), Lines{"20"});
    EXPECT_EQ(ImageAt(2), "none");
  };
  EXPECT_EQ(FailAtEachCall(
                prepare, [] { MoveImageRow(2); }, check),
            10);
}

// The trim.

TEST_F(ImageRows, NothingIsTrimmedFromAnEmptyTable) {
  TrimImageRows();
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
                                "get MaxIndex", "Close"}));
}

TEST_F(ImageRows, ATopThatIsInUseStaysWithWhatIsBelow) {
  PutImage(1, 10, kFreeImage);
  PutImage(2, 20, kImageInUse);
  TrimImageRows();
  const CallLog round = {"open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
                         "execute DELETE * FROM ProjectImages WHERE Index=2 AND RecordStatus=2", "Close"};
  EXPECT_EQ(Writes(), round + round);
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 20 3"}));
}

TEST_F(ImageRows, FreeRowsAtTheTopGoOneAfterAnother) {
  PutImage(1, 10, kFreeImage);
  PutImage(3, 30, kImageInUse);
  PutImage(5, 50, kFreeImage);
  PutImage(9, 90, kFreeImage);
  TrimImageRows();
  EXPECT_EQ(Statements(), TrimStatements({"9", "5", "3", "3"}));
  EXPECT_EQ(Images(), (Lines{"1 10 2", "3 30 3"}));
}

TEST_F(ImageRows, ATableOfFreeRowsBecomesEmpty) {
  PutImage(1, 10, kFreeImage);
  PutImage(2, 20, kFreeImage);
  TrimImageRows();
  EXPECT_EQ(Statements(), TrimStatements({"2", "1", "Null"}));
  EXPECT_EQ(Images(), Lines{});
}

TEST_F(ImageRows, RowsOfThePanelItselfAreNotTrimmed) {
  PutImage(1, 10, kSystemImageRead);
  PutImage(2, 20, kFreeImage);
  TrimImageRows();
  EXPECT_EQ(Images(), Lines{"1 10 0"});
  PutImage(3, 30, kSystemImageWritten);
  TrimImageRows();
  EXPECT_EQ(Images(), (Lines{"1 10 0", "3 30 1"}));
}

// All that nothing has.

TEST_F(ImageRows, AllOrphansAreCollectedAndTheTopTrimmed) {
  for (Long i = 1; i <= 5; ++i) PutImage(i, i * 10, kImageInUse);
  Link(1, 0, 10);
  LinkPage(1, 0, 30);
  CollectOrphanImages();
  CallLog expected = {"open " + kOrphans + " [2,3,1]"};
  for (int row = 0; row < 3; ++row) expected = expected + kFreeing;
  const CallLog log = Writes();
  ASSERT_GT(log.size(), expected.size());
  EXPECT_EQ(CallLog(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(expected.size()) + 1),
            expected + CallLog{"Close"});
  EXPECT_EQ(test::StatementsIn(log), CallLog{expected[0]} + TrimStatements({"5", "4", "3", "3"}));
  EXPECT_EQ(Images(), (Lines{"1 10 3", "2 20 2", "3 30 3"}));
  EXPECT_EQ(ImageAt(2), kFree);
}

TEST_F(ImageRows, AllOrphansAreCollectedByOneStatementToo) {
  for (Long i = 1; i <= 5; ++i) PutImage(i, i * 10, i == 4 ? kSystemImageWritten : kImageInUse);
  Link(1, 0, 10);
  LinkPage(1, 0, 30);
  CollectOrphanImagesAtOnce();
  EXPECT_EQ(Statements(),
            CallLog{"execute UPDATE ProjectImages SET "
                    "LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,Data8bppORG=NULL,"
                    "RecordStatus=2 WHERE ( RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
                    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages))"} +
                TrimStatements({"5", "4", "4"}));
  EXPECT_EQ(Images(), (Lines{"1 10 3", "2 20 2", "3 30 3", "4 40 1"}));
  EXPECT_EQ(ImageAt(2), kFree);
}

TEST_F(ImageRows, WithoutAProjectAreAnError) {
  CloseProject();
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(test::ErrorOf([] { TrimImageRows(); }), 91);
}

}  // namespace
}  // namespace quenzel7
