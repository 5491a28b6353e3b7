/// Every form of statement that is sent about pictures and their links, on a project file with rows where
/// each gives something else.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/ado/jet_dialect.h"
#include "platform/automation/array.h"
#include "platform/automation/convert.h"
#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

using namespace ado;
using automation::Array;
using automation::NullValue;
using automation::To;
using automation::Variant;
using Lines = std::vector<std::string>;
using Bytes = std::vector<Byte>;

const std::string kOrphans =
    "SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages)";
const std::string kFree = "SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY Index";
const std::string kSystem = "SELECT * FROM ProjectImages WHERE RecordStatus IN (0,1) order by [index]";
const std::string kClearOrphans =
    "UPDATE ProjectImages SET LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,"
    "Data8bppORG=NULL,RecordStatus=2 WHERE ( RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages))";

/// A value as a test shows it: bytes in hexadecimal in angle brackets.
std::string Shown(const Variant& value) {
  if (value.IsNull()) return "Null";
  if (!value.IsArray()) return To<std::string>(value);
  std::string text = "<";
  for (const Byte byte : value.Elements().Cells<Byte>()) {
    text += "0123456789ABCDEF"[byte >> 4];
    text += "0123456789ABCDEF"[byte & 15];
  }
  return text + ">";
}

std::string Number(Long number) { return std::to_string(number); }

class ImageStatements : public ::testing::Test {
 protected:
  /// The indices, states and CRCs of pictures all rise and fall differently, as do the links.
  void SetUp() override {
    connection_ = project_.Open();
    for (const char* statement :
         {"INSERT INTO ProjectImages VALUES(1,50,77,3,2,6,4,x'0102',x'03','a.bmp',3,16)",
          "INSERT INTO ProjectImages VALUES(2,-11,-1,0,0,0,0,NULL,NULL,NULL,2,0)",
          "INSERT INTO ProjectImages VALUES(3,20,-1,5,6,7,8,x'05',x'','b.bmp',3,0)",
          "INSERT INTO ProjectImages VALUES(4,-20,-1,0,0,0,0,NULL,NULL,NULL,2,NULL)",
          "INSERT INTO ProjectImages VALUES(5,10,-1,1,1,1,1,x'06',x'07',NULL,3,8)",
          "INSERT INTO ProjectImages VALUES(6,61,-1,9,9,9,9,x'08',x'09',NULL,1,0)",
          "INSERT INTO ProjectImages VALUES(7,60,-1,9,9,9,9,x'0A',x'0B',NULL,0,0)",
          "INSERT INTO ProjectImages VALUES(8,51,-1,1,1,1,1,x'0C',x'0D',NULL,3,0)",
          "INSERT INTO ElementsAndImages VALUES(1,2,0,51)",
          "INSERT INTO ElementsAndImages VALUES(1,0,1,50)",
          "INSERT INTO ElementsAndImages VALUES(1,1,0,51)",
          "INSERT INTO ElementsAndImages VALUES(2,5,4,50)",
          "INSERT INTO ElementsAndImages VALUES(2,0,0,50)",
          "INSERT INTO PagesAndImages VALUES(7,1,3,50)",
          "INSERT INTO PagesAndImages VALUES(8,2,0,50)",
          "INSERT INTO DispModules VALUES(70,'Module A')",
          "INSERT INTO DispModules VALUES(80,'Module B')",
          "INSERT INTO Pages VALUES(7,70,'Main page')",
          "INSERT INTO Pages VALUES(8,80,'Other page')",
          "INSERT INTO HMI_Elements(ID,Type,DisplayID,Text) VALUES(2,11,7,'two')",
          "INSERT INTO HMI_Elements(ID,Type,DisplayID,Text) VALUES(4,5,8,'four')"}) {
      connection_->Execute(statement);
    }
  }

  RecordsetRef Run(const std::string& statement) { return connection_->Execute(statement); }
  RecordsetRef Open(const std::string& query, CursorType cursor, LockType lock = adLockOptimistic) {
    return OpenRecordset(*connection_, query, cursor, lock);
  }
  static Lines LinesOf(Recordset& rows, const Lines& columns) {
    Lines lines;
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        line += (line.empty() ? "" : " ") + Shown(rows.Get(column));
      }
      lines.push_back(line);
    }
    return lines;
  }
  /// The rows that a query gives, columns parted by blanks.
  Lines Ask(const std::string& query, const Lines& columns, CursorType cursor = adOpenForwardOnly,
            LockType lock = adLockOptimistic) {
    return LinesOf(*Open(query, cursor, lock), columns);
  }
  /// The same of a statement that the connection runs.
  Lines Executed(const std::string& query, const Lines& columns) { return LinesOf(*Run(query), columns); }
  /// Everything that there is of the picture of that number, but for the number.
  Lines Picture(Long index) {
    return Executed("SELECT * FROM ProjectImages WHERE Index=" + Number(index),
                    {"CRC", "LibCRC", "Dx", "Dy", "DxORG", "DyORG", "Data8bpp", "Data8bppORG", "ImagePath",
                     "RecordStatus", "Bits"});
  }
  Lines Indexes() { return Executed("SELECT * FROM ProjectImages", {"Index"}); }

  /// How the engine goes about a statement; of a query only for the rows' numbers when `keys`.
  Lines Plan(std::string statement, bool keys = false) {
    if (keys) statement.replace(statement.find('*'), 1, "rowid");
    return Executed("EXPLAIN QUERY PLAN " + TranslateJet(statement).text, {"detail"});
  }

  TemporaryProject project_;
  SqliteConnectionRef connection_;
};

TEST_F(ImageStatements, AColumnOfAPictureIsFoundByItsCrc) {
  EXPECT_EQ(Ask("SELECT CRC,Data8bpp FROM ProjectImages WHERE CRC=50", {"CRC", "Data8bpp"}),
            (Lines{"50 <0102>"}));
  EXPECT_EQ(Ask("SELECT CRC,Data8bpp FROM ProjectImages WHERE CRC=-50", {"CRC"}), Lines{});
  EXPECT_EQ(Ask("SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=10", {"Bits"}), (Lines{"8"}));
  EXPECT_EQ(Ask("SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=-20", {"Bits"}), (Lines{"Null"}));
  EXPECT_EQ(Ask("SELECT CRC,Data8bppORG FROM ProjectImages WHERE CRC=50", {"Data8bppORG"}), (Lines{"<03>"}));
  EXPECT_EQ(Ask("SELECT CRC,Data8bppORG FROM ProjectImages WHERE CRC=-11", {"Data8bppORG"}), (Lines{"Null"}));
  EXPECT_EQ(Ask("SELECT LibCRC FROM ProjectImages WHERE CRC=50", {"LibCRC"}), (Lines{"77"}));
  EXPECT_EQ(Ask("SELECT ImagePath FROM ProjectImages WHERE CRC=20", {"ImagePath"}), (Lines{"b.bmp"}));
  EXPECT_EQ(Ask("SELECT ImagePath FROM ProjectImages WHERE CRC=10", {"ImagePath"}), (Lines{"Null"}));
}

TEST_F(ImageStatements, ABlockWithoutBytesIsReadAsOne) {
  for (const CursorType cursor : {adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic}) {
    EXPECT_EQ(Ask("SELECT CRC,Data8bppORG FROM ProjectImages WHERE CRC=20", {"Data8bppORG"}, cursor),
              (Lines{"<>"}));
  }
  EXPECT_EQ(Picture(3), (Lines{"20 -1 5 6 7 8 <05> <> b.bmp 3 0"}));
}

TEST_F(ImageStatements, TheSizesOfAPictureInUseAreFound) {
  EXPECT_EQ(
      Ask("SELECT CRC,DxORG,DyORG FROM ProjectImages WHERE CRC=50 AND RecordStatus=3", {"DxORG", "DyORG"}),
      (Lines{"6 4"}));
  EXPECT_EQ(Ask("SELECT Dx,Dy FROM ProjectImages WHERE CRC=50 AND RecordStatus=3", {"Dx", "Dy"}),
            (Lines{"3 2"}));
  EXPECT_EQ(Ask("SELECT Dx,Dy FROM ProjectImages WHERE CRC=-11 AND RecordStatus=3", {"Dx"}), Lines{});
  EXPECT_EQ(Ask("SELECT Dx,Dy FROM ProjectImages WHERE CRC=60 AND RecordStatus=3", {"Dx"}), Lines{});
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=50 AND RecordStatus=3", {"Data8bpp", "Dx", "Dy"}),
            (Lines{"<0102> 3 2"}));
}

TEST_F(ImageStatements, ATableOfBeforeTheBitsHasElevenColumns) {
  const std::string query = "SELECT * FROM ProjectImages WHERE CRC=50 AND (RecordStatus=3 Or RecordStatus=2)";
  EXPECT_EQ(Open(query, adOpenDynamic)->FieldCount(), 12);
  Run("ALTER TABLE ProjectImages DROP COLUMN Bits");
  connection_ = project_.Open();
  const RecordsetRef row = Open(query, adOpenDynamic);
  EXPECT_EQ(row->FieldCount(), 11);
  row->Put("Dx", Long{9});
  row->Update();
  EXPECT_EQ(Ask("SELECT Dx,Dy FROM ProjectImages WHERE CRC=50 AND RecordStatus=3", {"Dx"}), (Lines{"9"}));
  EXPECT_EQ(
      test::ErrorOf([&] { Open("SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=50", adOpenForwardOnly); }),
      -2147467259);
}

TEST_F(ImageStatements, TheRowForAPictureIsFound) {
  const auto count = [&](Long crc) {
    return Shown(Run("SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=" + Number(crc) +
                     " AND RecordStatus IN (3,2)")
                     ->Get("NumberOfImages"));
  };
  EXPECT_EQ(count(50), "1");
  EXPECT_EQ(count(-11), "1");
  EXPECT_EQ(count(60), "0");
  EXPECT_EQ(count(61), "0");
  EXPECT_EQ(count(99), "0");
  for (const char* states : {"RecordStatus IN (3,2)", "(RecordStatus=3 Or RecordStatus=2)"}) {
    const auto ask = [&](Long crc) {
      return Ask("SELECT * FROM ProjectImages WHERE CRC=" + Number(crc) + " AND " + states, {"Index"},
                 adOpenDynamic);
    };
    EXPECT_EQ(ask(50), (Lines{"1"}));
    EXPECT_EQ(ask(-20), (Lines{"4"}));
    EXPECT_EQ(ask(60), Lines{});
  }
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=-20 AND RecordStatus=3", {"Index"}, adOpenDynamic),
            Lines{});
  EXPECT_EQ(Ask(kFree, {"Index"}, adOpenDynamic), (Lines{"2", "4"}));
}

TEST_F(ImageStatements, PicturesInUseComeBeforeFreeOnesOfTheirCrc) {
  Run("UPDATE ProjectImages SET CRC=50 WHERE Index=4");
  Run("UPDATE ProjectImages SET CRC=50 WHERE Index=8");
  const Lines order = {"1", "8", "4"};
  EXPECT_EQ(
      Ask("SELECT * FROM ProjectImages WHERE CRC=50 AND RecordStatus IN (3,2)", {"Index"}, adOpenDynamic),
      order);
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=50 AND (RecordStatus=3 Or RecordStatus=2)", {"Index"},
                adOpenDynamic),
            order);
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=50", {"Index"}), order);
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=50 AND RecordStatus=3", {"Index"}), (Lines{"1", "8"}));
}

TEST_F(ImageStatements, AFoundPictureIsWrittenOver) {
  const RecordsetRef row =
      Open("SELECT * FROM ProjectImages WHERE CRC=-11 AND RecordStatus IN (3,2)", adOpenDynamic);
  row->Put("Dx", Long{3});
  row->Put("Dy", Long{4});
  row->Put("Data8bpp", Array::OfBytes(Bytes{0, 0xFF, 0x10}));
  row->Put("LibCRC", Long{-5});
  row->Put("DxORG", Long{5});
  row->Put("DyORG", Long{6});
  row->Put("Data8bppORG", Array::OfBytes({}));
  row->Put("ImagePath", std::string("c:\\p;q.bmp"));
  row->Put("RecordStatus", Long{3});
  row->Put("Bits", Long{16});
  row->Update();
  row->Close();
  EXPECT_EQ(Picture(2), (Lines{"-11 -5 3 4 5 6 <00FF10> <> c:\\p;q.bmp 3 16"}));
}

TEST_F(ImageStatements, ARecordsetThatIsEmptyTakesANewPicture) {
  for (const Long crc : {99, 100}) {
    Run("DELETE * FROM ProjectImages WHERE Index=8");
    const RecordsetRef row =
        Open("SELECT * FROM ProjectImages WHERE CRC=" + Number(crc) + " AND RecordStatus=3", adOpenDynamic);
    EXPECT_TRUE(row->Eof());
    row->AddNew();
    EXPECT_FALSE(row->Eof());
    row->Put("CRC", crc);
    row->Put("Data8bpp", Array::OfBytes(Bytes{1}));
    row->Put("Data8bppORG", NullValue{});
    row->Update();
    // The number of a picture that has gone does not come back.
    EXPECT_EQ(Shown(row->Get("Index")), Number(crc - 90));
    row->Close();
    EXPECT_EQ(Picture(crc - 90), (Lines{Number(crc) + " Null Null Null Null Null <01> Null Null Null Null"}));
  }
}

TEST_F(ImageStatements, SystemPicturesAreFoundByTheirPlace) {
  const RecordsetRef rows = Open(kSystem, adOpenKeyset);
  EXPECT_EQ(LinesOf(*rows, {"index", "CRC"}), (Lines{"6 61", "7 60"}));
  rows->MoveFirst();
  EXPECT_EQ(Shown(rows->Get("Index")), "6");
  rows->Move(1);
  EXPECT_EQ(Shown(rows->Get("Index")), "7");
  rows->Put("CRC", Long{62});
  rows->Put("Data8bpp", Array::OfBytes(Bytes{1, 2}));
  rows->Put("RecordStatus", Long{1});
  rows->Update();
  rows->MoveFirst();
  rows->Move(2);
  EXPECT_TRUE(rows->Eof());
  rows->Close();
  EXPECT_EQ(Picture(7), (Lines{"62 -1 9 9 9 9 <0102> <0B> Null 1 0"}));
}

TEST_F(ImageStatements, ASystemPictureIsNumberedByHand) {
  const RecordsetRef behind = Open(kSystem, adOpenKeyset);
  behind->MoveFirst();
  behind->Move(2);
  behind->AddNew();
  behind->Put("Index", Long{20});
  behind->Put("RecordStatus", Long{1});
  behind->Update();
  behind->Close();
  EXPECT_EQ(Ask(kSystem, {"Index"}, adOpenKeyset), (Lines{"6", "7", "20"}));

  Run("DELETE * FROM ProjectImages");
  const RecordsetRef empty = Open(kSystem, adOpenKeyset);
  EXPECT_TRUE(empty->Eof());
  empty->AddNew();
  empty->Put("Index", Long{2});
  empty->Put("CRC", Long{5});
  empty->Put("RecordStatus", Long{1});
  empty->Update();
  EXPECT_EQ(Shown(empty->Get("Index")), "2");
  empty->Close();
  EXPECT_EQ(Indexes(), (Lines{"2"}));
  Run("INSERT INTO ProjectImages(CRC) VALUES(1)");
  EXPECT_EQ(Indexes(), (Lines{"2", "21"}));
}

TEST_F(ImageStatements, ASystemPictureCannotTakeTheNumberOfAnother) {
  Run("DELETE * FROM ProjectImages WHERE Index=6");
  Run("DELETE * FROM ProjectImages WHERE Index=7");
  const RecordsetRef rows = Open(kSystem, adOpenKeyset);
  rows->AddNew();
  rows->Put("Index", Long{1});
  EXPECT_EQ(test::ErrorOf([&] { rows->Update(); }), -2147467259);
  EXPECT_EQ(Picture(1), (Lines{"50 77 3 2 6 4 <0102> <03> a.bmp 3 16"}));
}

TEST_F(ImageStatements, APictureMakesRoomForASystemPicture) {
  const std::string row = " WHERE Index=1 AND RecordStatus IN (2,3)";
  EXPECT_EQ(Ask("SELECT CRC FROM ProjectImages" + row, {"CRC"}), (Lines{"50"}));
  const auto added = [&](bool stays) {
    const RecordsetRef rows = Open("SELECT * FROM ProjectImages WHERE RecordStatus=-1", adOpenDynamic);
    rows->AddNew();
    rows->Put("RecordStatus", Long{2});
    rows->Update();
    const std::string index = Shown(rows->Get("Index"));
    if (!stays) rows->Delete();
    rows->Close();
    return index;
  };
  EXPECT_EQ(added(false), "9");
  Run("UPDATE ProjectImages SET Index=9" + row);
  EXPECT_EQ(Picture(1), Lines{});
  EXPECT_EQ(Picture(9), (Lines{"50 77 3 2 6 4 <0102> <03> a.bmp 3 16"}));
  Run("UPDATE ProjectImages SET Index=10 WHERE Index=6 AND RecordStatus IN (2,3)");
  EXPECT_EQ(Indexes(), (Lines{"2", "3", "4", "5", "6", "7", "8", "9"}));
  // The next one is numbered behind it.
  EXPECT_EQ(added(true), "10");
}

TEST_F(ImageStatements, TheColumnsOfPicturesAreCountedWithoutAnyOfThem) {
  const std::string query = "SELECT * FROM ProjectImages WHERE RecordStatus=-1";
  const RecordsetRef rows = Open(query, adOpenForwardOnly);
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->FieldCount(), 12);
  rows->Close();
  Run("ALTER TABLE ProjectImages DROP COLUMN Bits");
  connection_ = project_.Open();
  EXPECT_EQ(Open(query, adOpenForwardOnly)->FieldCount(), 11);
}

TEST_F(ImageStatements, PicturesWithoutLinksComeInTheOrderOfTheTableAndCanBeCleared) {
  for (const CursorType cursor : {adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic}) {
    EXPECT_EQ(Ask(kOrphans, {"Index", "CRC"}, cursor), (Lines{"3 20", "5 10"}));
  }
  const RecordsetRef row = Open(kOrphans, adOpenDynamic);
  row->Put("LibCRC", Long{-1});
  for (const char* column : {"DxORG", "DyORG", "Dx", "Dy"}) row->Put(column, Long{0});
  for (const char* column : {"Data8bppORG", "ImagePath", "Data8bpp"}) row->Put(column, NullValue{});
  row->Put("RecordStatus", Long{2});
  row->Update();
  EXPECT_EQ(Picture(3), (Lines{"20 -1 0 0 0 0 Null Null Null 2 0"}));
  EXPECT_EQ(Ask(kOrphans, {"Index"}, adOpenDynamic), (Lines{"5"}));
  EXPECT_EQ(Ask(kFree, {"Index"}, adOpenDynamic), (Lines{"2", "3", "4"}));
}

TEST_F(ImageStatements, PicturesWithoutLinksAreClearedInALoop) {
  const RecordsetRef rows = Open(kOrphans, adOpenDynamic);
  for (; !rows->Eof(); rows->MoveNext()) {
    rows->Put("RecordStatus", Long{2});
    rows->Update();
  }
  rows->Close();
  EXPECT_EQ(Ask(kFree, {"Index"}, adOpenDynamic), (Lines{"2", "3", "4", "5"}));
}

TEST_F(ImageStatements, PicturesAreClearedByOneStatement) {
  Run(kClearOrphans);
  EXPECT_EQ(Picture(1), (Lines{"50 77 3 2 6 4 <0102> <03> a.bmp 3 16"}));
  EXPECT_EQ(Picture(3), (Lines{"20 -1 0 0 0 0 Null Null Null 2 0"}));
  EXPECT_EQ(Picture(5), (Lines{"10 -1 0 0 0 0 Null Null Null 2 8"}));
  EXPECT_EQ(Picture(6), (Lines{"61 -1 9 9 9 9 <08> <09> Null 1 0"}));
  EXPECT_EQ(Picture(8), (Lines{"51 -1 1 1 1 1 <0C> <0D> Null 3 0"}));
}

TEST_F(ImageStatements, APictureIsClearedByItsCrc) {
  Run("UPDATE ProjectImages SET LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,"
      "Data8bppORG=NULL,RecordStatus=2 WHERE CRC=50 AND RecordStatus=3");
  EXPECT_EQ(Picture(1), (Lines{"50 -1 0 0 0 0 Null Null Null 2 16"}));
  Run("UPDATE ProjectImages SET LibCRC=-1,DxORG=0,DyORG=0,Data8bppORG=NULL,Dx=0,Dy=0,ImagePath=NULL,"
      "Data8bpp=NULL,RecordStatus=2 WHERE CRC=10 AND RecordStatus=3");
  EXPECT_EQ(Picture(5), (Lines{"10 -1 0 0 0 0 Null Null Null 2 8"}));
  Run("UPDATE ProjectImages SET LibCRC=-1,DxORG=0,DyORG=0,Data8bppORG=NULL,Dx=0,Dy=0,ImagePath=NULL,"
      "Data8bpp=NULL,RecordStatus=2 WHERE CRC=60 AND RecordStatus=3");
  EXPECT_EQ(Picture(7), (Lines{"60 -1 9 9 9 9 <0A> <0B> Null 0 0"}));
}

TEST_F(ImageStatements, FreePicturesAreTrimmedFromTheTop) {
  for (const char* index : {"8", "7", "6", "5"})
    Run("DELETE * FROM ProjectImages WHERE Index=" + std::string(index));
  for (const char* highest : {"4", "3", "3"}) {
    const Lines found = Executed("SELECT Max(Index) AS MaxIndex FROM ProjectImages", {"MaxIndex"});
    ASSERT_EQ(found, (Lines{highest}));
    Run("DELETE * FROM ProjectImages WHERE Index=" + found.front() + " AND RecordStatus=2");
  }
  EXPECT_EQ(Indexes(), (Lines{"1", "2", "3"}));
  Run("DELETE * FROM ProjectImages");
  EXPECT_EQ(Ask("SELECT Max(Index) AS MaxIndex FROM ProjectImages", {"MaxIndex"}), (Lines{"Null"}));
}

TEST_F(ImageStatements, TheLinksOfAnElementAreFound) {
  EXPECT_EQ(
      Ask("SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=1 ORDER BY (Image_Index)",
          {"Image_Index", "Image_CRC"}),
      (Lines{"0 50", "1 51", "2 51"}));
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 Order By Image_Index", {"Image_Index"}),
            (Lines{"0", "1", "2"}));
  EXPECT_EQ(Ask("SELECT COUNT(Image_CRC) as ActualCount FROM ElementsAndImages WHERE Element_ID=1",
                {"ActualCount"}),
            (Lines{"3"}));
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=-1", {"Image_CRC"}), Lines{});
  EXPECT_EQ(Ask("SELECT * FROM PagesAndImages WHERE Page_ID=8 AND Image_Type=2", {"TransparencyLevel"},
                adOpenDynamic),
            (Lines{"0"}));
}

TEST_F(ImageStatements, TheLinksOfAnElementComeInTheOrderInWhichTheyWereMade) {
  EXPECT_EQ(Ask("SELECT DISTINCT Image_CRC FROM ElementsAndImages WHERE Element_ID=1", {"Image_CRC"}),
            (Lines{"51", "50"}));
  for (const CursorType cursor : {adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic}) {
    EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1", {"Image_Index", "Image_CRC"}, cursor),
              (Lines{"2 51", "0 50", "1 51"}));
  }
  EXPECT_EQ(Shown(Run("SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=2")
                      ->Get("TransparencyLevel")),
            "4");
}

TEST_F(ImageStatements, ALinkIsWrittenOverOrAdded) {
  const auto link = [&](Long index, CursorType cursor) {
    return Open("SELECT * FROM ElementsAndImages WHERE Element_ID=1 AND Image_Index=" + Number(index),
                cursor);
  };
  for (const CursorType cursor : {adOpenDynamic, adOpenStatic}) {
    const RecordsetRef there = link(2, cursor);
    EXPECT_FALSE(there->Eof());
    there->Put("Image_CRC", static_cast<Long>(-90 - cursor));
    there->Update();
    there->Close();
    const RecordsetRef missing = link(7 + cursor, cursor);
    EXPECT_TRUE(missing->Eof());
    missing->AddNew();
    missing->Put("Element_ID", Long{1});
    missing->Put("Image_Index", static_cast<Long>(7 + cursor));
    missing->Put("TransparencyLevel", Long{1});
    missing->Put("Image_CRC", Long{10});
    missing->Update();
    missing->Close();
  }
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 Order By Image_Index",
                {"Image_Index", "TransparencyLevel", "Image_CRC"}),
            (Lines{"0 1 50", "1 0 51", "2 0 -93", "9 1 10", "10 1 10"}));
}

TEST_F(ImageStatements, LinksBehindACountAreDeleted) {
  const RecordsetRef rows =
      Open("SELECT * FROM ElementsAndImages WHERE Element_ID=1 Order By Image_Index", adOpenForwardOnly);
  for (rows->MoveNext(); !rows->Eof(); rows->MoveNext()) rows->Delete();
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1", {"Image_Index"}), (Lines{"0"}));
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=2", {"Image_Index"}), (Lines{"5", "0"}));
}

TEST_F(ImageStatements, TransparencyIsReadAndWritten) {
  EXPECT_EQ(Ask("SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=1 AND Image_Index=0",
                {"TransparencyLevel"}),
            (Lines{"1"}));
  Run("UPDATE ElementsAndImages SET TransparencyLevel=9 WHERE Element_ID=2");
  EXPECT_EQ(Executed("SELECT * FROM ElementsAndImages", {"Element_ID", "TransparencyLevel"}),
            (Lines{"1 0", "1 1", "1 0", "2 9", "2 9"}));
  EXPECT_EQ(Ask("SELECT TransparencyLevel FROM PagesAndImages WHERE (Image_CRC=50 AND Image_Type=1)",
                {"TransparencyLevel"}),
            (Lines{"3"}));
}

TEST_F(ImageStatements, IndexesOfLinksAreShifted) {
  const auto shift = [&](Long by) {
    Run("UPDATE ElementsAndImages SET Image_Index=Image_Index+(" + Number(by) +
        ") WHERE Element_ID=1 AND Image_Index>=1;");
    return Executed("SELECT * FROM ElementsAndImages", {"Element_ID", "Image_Index"});
  };
  EXPECT_EQ(shift(-1), (Lines{"1 1", "1 0", "1 0", "2 5", "2 0"}));
  EXPECT_EQ(shift(3), (Lines{"1 4", "1 0", "1 0", "2 5", "2 0"}));
}

TEST_F(ImageStatements, LinksAreCountedAndReleased) {
  const auto count = [&](const std::string& table, Long crc) {
    return Shown(Run("SELECT COUNT(*) AS NumOfImages FROM " + table + " WHERE Image_CRC=" + Number(crc))
                     ->Get("NumOfImages"));
  };
  EXPECT_EQ(count("ElementsAndImages", 50), "3");
  EXPECT_EQ(count("ElementsAndImages", 51), "2");
  EXPECT_EQ(count("PagesAndImages", 50), "2");
  EXPECT_EQ(count("PagesAndImages", 51), "0");
  Run("DELETE * FROM ElementsAndImages WHERE Element_ID=1 AND Image_CRC=51 AND Image_Index=2");
  EXPECT_EQ(count("ElementsAndImages", 51), "1");
  Run("DELETE * FROM ElementsAndImages WHERE Element_ID=1");
  EXPECT_EQ(count("ElementsAndImages", 51), "0");
  EXPECT_EQ(count("ElementsAndImages", 50), "2");
}

TEST_F(ImageStatements, TheModuleAndThePageOfAnElementAreFound) {
  const auto ask = [&](Long element) {
    return Ask(
        "SELECT DispModules.ModuleName, Pages.Description, HMI_Elements.ID FROM DispModules INNER JOIN "
        "(HMI_Elements INNER JOIN Pages ON HMI_Elements.DisplayID = Pages.Id) ON DispModules.ModuleId = "
        "Pages.ModuleID WHERE HMI_Elements.ID=" +
            Number(element),
        {"ModuleName", "Description", "ID"}, adOpenForwardOnly, adLockReadOnly);
  };
  EXPECT_EQ(ask(2), (Lines{"Module A Main page 2"}));
  EXPECT_EQ(ask(4), (Lines{"Module B Other page 4"}));
  EXPECT_EQ(ask(3), Lines{});
  EXPECT_EQ(Ask("SELECT * FROM HMI_Elements WHERE ID= 4", {"Type", "Text"}), (Lines{"5 four"}));
  Run("DELETE * FROM HMI_Elements WHERE ID= 4");
  EXPECT_EQ(Executed("SELECT * FROM HMI_Elements", {"ID"}), (Lines{"2"}));
}

TEST_F(ImageStatements, PicturesAreFoundWithoutLookingAtTheOthers) {
  const std::string search = "SEARCH ProjectImages USING ";
  const Lines byCrc = {search + "INDEX ProjectImages_Crc (CRC=?)"};
  for (const char* query : {"SELECT CRC,Data8bpp FROM ProjectImages WHERE CRC=1",
                            "SELECT LibCRC FROM ProjectImages WHERE CRC=1"}) {
    EXPECT_EQ(Plan(query), byCrc) << query;
  }
  const Lines byState = {search + "INDEX ProjectImages_Crc (CRC=? AND RecordStatus=?)"};
  for (const char* query : {"SELECT CRC,DxORG,DyORG FROM ProjectImages WHERE CRC=1 AND RecordStatus=3",
                            "SELECT Dx,Dy FROM ProjectImages WHERE CRC=1 AND RecordStatus=3",
                            "SELECT * FROM ProjectImages WHERE CRC=1 AND RecordStatus=3",
                            "UPDATE ProjectImages SET Dx=0,RecordStatus=2 WHERE CRC=1 AND RecordStatus=3"}) {
    EXPECT_EQ(Plan(query), byState) << query;
  }
  const Lines byStateAlone = {search + "COVERING INDEX ProjectImages_Crc (CRC=? AND RecordStatus=?)"};
  EXPECT_EQ(
      Plan("SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=1 AND RecordStatus IN (3,2)"),
      byStateAlone);
  for (const char* query : {"SELECT * FROM ProjectImages WHERE CRC=1 AND RecordStatus IN (3,2)",
                            "SELECT * FROM ProjectImages WHERE CRC=1 AND (RecordStatus=3 Or RecordStatus=2)",
                            "SELECT * FROM ProjectImages WHERE CRC=1 AND RecordStatus=3"}) {
    EXPECT_EQ(Plan(query, true), byStateAlone) << query;
  }
  EXPECT_EQ(Plan("SELECT Max(Index) AS MaxIndex FROM ProjectImages"), (Lines{"SEARCH ProjectImages"}));
  EXPECT_EQ(Plan("DELETE * FROM ProjectImages WHERE Index=1 AND RecordStatus=2"),
            (Lines{"SEARCH ProjectImages USING INTEGER PRIMARY KEY (rowid=?)"}));
}

TEST_F(ImageStatements, StatesAreFoundWithoutLookingAtPictures) {
  const std::string byState =
      "SEARCH ProjectImages USING COVERING INDEX ProjectImages_Status (RecordStatus=?)";
  EXPECT_EQ(Plan(kFree, true), (Lines{byState}));
  EXPECT_EQ(Plan(kSystem, true).front(), byState);
  const Lines links = {"USING INDEX ElementsAndImages_Crc FOR IN-OPERATOR",
                       "USING INDEX PagesAndImages_Crc FOR IN-OPERATOR"};
  EXPECT_EQ(Plan(kOrphans, true), (Lines{byState, links[0], links[1]}));
  EXPECT_EQ(
      Plan(kClearOrphans),
      (Lines{"SEARCH ProjectImages USING INDEX ProjectImages_Status (RecordStatus=?)", links[0], links[1]}));
}

TEST_F(ImageStatements, LinksAreFoundByWhatTheyLink) {
  const auto plan = [&](const std::string& statement) { return Plan(statement).front(); };
  EXPECT_EQ(plan("SELECT * FROM ElementsAndImages WHERE Element_ID=1"),
            "SEARCH ElementsAndImages USING INDEX ElementsAndImages_Element (Element_ID=?)");
  const std::string place =
      "SEARCH ElementsAndImages USING INDEX ElementsAndImages_Place (Image_Index=? AND Element_ID=?)";
  EXPECT_EQ(plan("SELECT * FROM ElementsAndImages WHERE Element_ID=1 AND Image_Index=2"), place);
  EXPECT_EQ(plan("DELETE * FROM ElementsAndImages WHERE Element_ID=1 AND Image_CRC=3 AND Image_Index=2"),
            place);
  EXPECT_EQ(plan("SELECT COUNT(*) AS NumOfImages FROM ElementsAndImages WHERE Image_CRC=3"),
            "SEARCH ElementsAndImages USING COVERING INDEX ElementsAndImages_Crc (Image_CRC=?)");
  EXPECT_EQ(plan("SELECT COUNT(*) AS NumOfImages FROM PagesAndImages WHERE Image_CRC=3"),
            "SEARCH PagesAndImages USING COVERING INDEX PagesAndImages_Crc (Image_CRC=?)");
  EXPECT_EQ(plan("SELECT * FROM PagesAndImages WHERE Page_ID=7 AND Image_Type=1"),
            "SEARCH PagesAndImages USING INDEX PagesAndImages_Page (Page_ID=? AND Image_Type=?)");
}

}  // namespace
}  // namespace quenzel7::corvane1
