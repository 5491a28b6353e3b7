/// Every form of statement that elements, image store and trends send, on data where each gives something
/// else.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ado/jet_dialect.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::To;
using automation::Variant;

class SystemStatements : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    for (const char* statement : {
             "CREATE TABLE HMI_Elements(ID INTEGER PRIMARY KEY AUTOINCREMENT, GUID INTEGER, Type INTEGER, "
             "DisplayID"
             " INTEGER, TabIndex INTEGER, OrderIndex INTEGER, Text TEXT)",
             "CREATE TABLE HMI_Operands(ElementID INTEGER, OprndType INTEGER, OprndAddr INTEGER, OprndNetID "
             "INTEGER,"
             " OprndPurpose INTEGER)",
             "CREATE TABLE DownloadDLUs(GUID INTEGER)",
             "CREATE TABLE ProjectImages(\"Index\" INTEGER PRIMARY KEY AUTOINCREMENT, CRC INTEGER, LibCRC "
             "INTEGER, Dx"
             " INTEGER, Dy INTEGER, DxORG INTEGER, DyORG INTEGER, Data8bpp BLOB, Data8bppORG BLOB, ImagePath "
             "TEXT,"
             " RecordStatus INTEGER, Bits INTEGER)",
             "CREATE TABLE ElementsAndImages(Element_ID INTEGER, Image_Index INTEGER, TransparencyLevel "
             "INTEGER,"
             " Image_CRC INTEGER)",
             "CREATE TABLE PagesAndImages(Page_ID INTEGER, Image_Type INTEGER, TransparencyLevel INTEGER, "
             "Image_CRC"
             " INTEGER)",
             "CREATE TABLE Pages(Id INTEGER, Description TEXT, ModuleID INTEGER)",
             "CREATE TABLE DispModules(ModuleId INTEGER, ModuleName TEXT)",
             "CREATE TABLE Trends(TrendID INTEGER PRIMARY KEY, HistoryPoints INTEGER, Name TEXT)",
             "CREATE TABLE Curves(CurveID INTEGER PRIMARY KEY, Name TEXT, DefaultColor INTEGER)",
             "INSERT INTO HMI_Elements VALUES(1,101,5,7,0,1,'first')",
             "INSERT INTO HMI_Elements VALUES(2,102,3,7,255,5,'second')",
             "INSERT INTO HMI_Elements VALUES(3,103,11,7,1,3,'third')",
             "INSERT INTO HMI_Elements VALUES(4,104,5,8,0,9,'fourth')",
             "INSERT INTO HMI_Elements VALUES(5,105,5,7,0,2,'fifth')",
             "INSERT INTO DownloadDLUs VALUES(101)",
             "INSERT INTO DownloadDLUs VALUES(-102)",
             "INSERT INTO ProjectImages VALUES(1,-11,-1,1,1,1,1,x'01',x'02','a.bmp',3,0)",
             "INSERT INTO ProjectImages VALUES(2,12,-1,2,2,2,2,x'03',x'04',Null,2,16)",
             "INSERT INTO ProjectImages VALUES(3,13,77,3,4,5,6,x'05',x'06','c.bmp',3,16)",
             "INSERT INTO ProjectImages VALUES(4,14,-1,0,0,0,0,Null,Null,Null,2,0)",
             "INSERT INTO ProjectImages VALUES(5,15,-1,0,0,0,0,Null,Null,Null,0,0)",
             "INSERT INTO ProjectImages VALUES(6,16,-1,0,0,0,0,Null,Null,Null,1,0)",
             "INSERT INTO ElementsAndImages VALUES(1,2,0,-11)",
             "INSERT INTO ElementsAndImages VALUES(1,0,1,12)",
             "INSERT INTO ElementsAndImages VALUES(1,1,0,-11)",
             "INSERT INTO ElementsAndImages VALUES(2,0,4,-11)",
             "INSERT INTO PagesAndImages VALUES(7,1,1,12)",
             "INSERT INTO Pages VALUES(7,'Main page',70)",
             "INSERT INTO Pages VALUES(8,'Other page',80)",
             "INSERT INTO DispModules VALUES(70,'Module A')",
             "INSERT INTO DispModules VALUES(80,'Module B')",
             "INSERT INTO Trends VALUES(2,40,'Boiler')",
             "INSERT INTO Curves VALUES(8,'h',1)",
             "INSERT INTO Curves VALUES(16,'p',2)",
             "INSERT INTO Curves VALUES(9,'i',3)",
             "INSERT INTO Curves VALUES(17,'q',4)",
         }) {
      Run(statement);
    }
  }

  /// The rows that a query gives under a kind of opening, columns parted by blanks.
  Lines Ask(const std::string& query, const std::vector<std::string>& columns,
            CursorType cursor = adOpenStatic, LockType lock = adLockOptimistic) {
    Lines lines;
    for (const auto rows = Open(query, cursor, lock); !rows->Eof(); rows->MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        const Variant value = rows->Get(column);
        if (!line.empty()) line += ' ';
        line += value.IsNull() ? "Null" : value.IsArray() ? "bytes" : To<std::string>(value);
      }
      lines.push_back(line);
    }
    return lines;
  }
  /// The numbers of a column in the whole table, in order.
  Lines All(const std::string& table, const std::vector<std::string>& columns) {
    return Ask("SELECT * FROM " + table + " ORDER BY " + columns.front(), columns, adOpenStatic,
               adLockReadOnly);
  }
};

TEST_F(SystemStatements, TheHighestOrderIndexOfAPage) {
  const std::string query = "SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=";
  EXPECT_EQ(Ask(query + "7", {"MaxOrderIndex"}, adOpenStatic, adLockReadOnly), (Lines{"5"}));
  EXPECT_EQ(Ask(query + "8", {"MaxOrderIndex"}, adOpenStatic, adLockReadOnly), (Lines{"9"}));
  EXPECT_EQ(Ask(query + "-1", {"MaxOrderIndex"}, adOpenStatic, adLockReadOnly), (Lines{"Null"}));
}

TEST_F(SystemStatements, TheTabNumbersOfAPage) {
  const std::string query =
      "SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=";
  EXPECT_EQ(Ask(query + "7) ORDER BY TabIndex", {"TabIndex"}, adOpenStatic, adLockReadOnly),
            (Lines{"0", "1"}));
  EXPECT_EQ(Ask(query + "9) ORDER BY TabIndex", {"TabIndex"}, adOpenStatic, adLockReadOnly), Lines{});
}

TEST_F(SystemStatements, OperandRowsComeAndGo) {
  const std::string insert =
      "INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES ";
  Run(insert + "(1,1,-1,0,2)");
  Run(insert + "(1,1,5,0,5)");
  Run(insert + "(2,37,6,0,3)");
  EXPECT_EQ(All("HMI_Operands", {"OprndAddr", "ElementID", "OprndType", "OprndNetID", "OprndPurpose"}),
            (Lines{"-1 1 1 0 2", "5 1 1 0 5", "6 2 37 0 3"}));
  const auto remove = [&](const std::string& address) {
    Run("DELETE * FROM HMI_Operands WHERE ElementID=1 AND OprndType=1 AND OprndAddr=" + address +
        " AND OprndNetID =0 AND OprndPurpose=2");
  };
  remove("5");
  EXPECT_EQ(All("HMI_Operands", {"OprndAddr"}), (Lines{"-1", "5", "6"}));
  remove("-1");
  EXPECT_EQ(All("HMI_Operands", {"OprndAddr"}), (Lines{"5", "6"}));
  Run("DELETE * FROM HMI_Operands WHERE ElementID=1");
  EXPECT_EQ(All("HMI_Operands", {"OprndAddr"}), (Lines{"6"}));
}

TEST_F(SystemStatements, AnElementIsFoundAndDeleted) {
  EXPECT_EQ(Ask("SELECT * FROM HMI_ELEMENTS WHERE ID=2", {"Guid", "type"}), (Lines{"102 3"}));
  EXPECT_EQ(Ask("SELECT * FROM HMI_Elements WHERE ID= 2", {"Text"}), (Lines{"second"}));
  EXPECT_EQ(Ask("SELECT * FROM HMI_ELEMENTS WHERE ID=-1", {"ID"}), Lines{});
  Run("DELETE FROM DownloadDLUs WHERE GUID = -102");
  EXPECT_EQ(All("DownloadDLUs", {"GUID"}), (Lines{"101"}));
  Run("DELETE * FROM HMI_Elements WHERE ID=2");
  Run("DELETE * FROM HMI_Elements WHERE ID= 3");
  EXPECT_EQ(All("HMI_Elements", {"ID"}), (Lines{"1", "4", "5"}));
}

TEST_F(SystemStatements, ImageColumnsAreFoundByCrc) {
  const auto ask = [&](const std::string& query, const std::vector<std::string>& columns) {
    return Ask(query, columns, adOpenForwardOnly, adLockOptimistic);
  };
  EXPECT_EQ(ask("SELECT CRC,Data8bpp FROM ProjectImages WHERE CRC=-11", {"CRC", "Data8bpp"}),
            (Lines{"-11 bytes"}));
  EXPECT_EQ(ask("SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=13", {"Bits"}), (Lines{"16"}));
  EXPECT_EQ(ask("SELECT CRC,Data8bppORG FROM ProjectImages WHERE CRC=14", {"Data8bppORG"}), (Lines{"Null"}));
  EXPECT_EQ(
      ask("SELECT CRC,DxORG,DyORG FROM ProjectImages WHERE CRC=13 AND RecordStatus=3", {"DxORG", "DyORG"}),
      (Lines{"5 6"}));
  EXPECT_EQ(ask("SELECT Dx,Dy FROM ProjectImages WHERE CRC=12 AND RecordStatus=3", {"Dx"}), Lines{});
  EXPECT_EQ(ask("SELECT * FROM ProjectImages WHERE CRC=13 AND RecordStatus=3", {"Data8bpp", "Dx", "Dy"}),
            (Lines{"bytes 3 4"}));
  EXPECT_EQ(ask("SELECT LibCRC FROM ProjectImages WHERE CRC=13", {"LibCRC"}), (Lines{"77"}));
  EXPECT_EQ(ask("SELECT ImagePath FROM ProjectImages WHERE CRC=12", {"ImagePath"}), (Lines{"Null"}));
}

TEST_F(SystemStatements, LinksOfAnElementComeInOrder) {
  EXPECT_EQ(
      Ask("SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=1 ORDER BY (Image_Index)",
          {"Image_Index", "Image_CRC"}),
      (Lines{"0 12", "1 -11", "2 -11"}));
  EXPECT_EQ(Ask("SELECT DISTINCT Image_CRC FROM ElementsAndImages WHERE Element_ID=1", {"Image_CRC"}).size(),
            2u);
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 Order By Image_Index", {"Image_Index"}),
            (Lines{"0", "1", "2"}));
  EXPECT_EQ(Ask("SELECT COUNT(Image_CRC) as ActualCount FROM ElementsAndImages WHERE Element_ID=1",
                {"ActualCount"}),
            (Lines{"3"}));
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 AND Image_Index=2", {"Image_CRC"},
                adOpenDynamic),
            (Lines{"-11"}));
  EXPECT_EQ(
      Ask("SELECT * FROM PagesAndImages WHERE Page_ID=7 AND Image_Type=1", {"Image_CRC"}, adOpenDynamic),
      (Lines{"12"}));
}

TEST_F(SystemStatements, TransparencyIsReadAndWritten) {
  const std::string of = "SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=";
  EXPECT_EQ(Ask(of + "1 AND Image_Index=0", {"TransparencyLevel"}), (Lines{"1"}));
  EXPECT_EQ(Run(of + "2")->Get("TransparencyLevel"), Variant(Long{4}));
  Run("UPDATE ElementsAndImages SET TransparencyLevel=0 WHERE Element_ID=2");
  EXPECT_EQ(Run(of + "2")->Get("TransparencyLevel"), Variant(Long{0}));
  EXPECT_EQ(Ask("SELECT TransparencyLevel FROM PagesAndImages WHERE (Image_CRC=12 AND Image_Type=1)",
                {"TransparencyLevel"}),
            (Lines{"1"}));
}

TEST_F(SystemStatements, IndexesOfLinksAreShifted) {
  const auto shift = [&](const std::string& by) {
    Run("UPDATE ElementsAndImages SET Image_Index=Image_Index+(" + by +
        ") WHERE Element_ID=1 AND Image_Index>=1;");
  };
  shift("-1");
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 ORDER BY Image_Index", {"Image_Index"}),
            (Lines{"0", "0", "1"}));
  shift("3");
  EXPECT_EQ(Ask("SELECT * FROM ElementsAndImages WHERE Element_ID=1 ORDER BY Image_Index", {"Image_Index"}),
            (Lines{"0", "0", "4"}));
}

TEST_F(SystemStatements, ARowForAPictureIsFound) {
  const auto count = [&](const std::string& crc) {
    return Run("SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=" + crc +
               " AND RecordStatus IN (3,2)")
        ->Get("NumberOfImages");
  };
  EXPECT_EQ(count("-11"), Variant(Long{1}));
  EXPECT_EQ(count("12"), Variant(Long{1}));
  EXPECT_EQ(count("15"), Variant(Long{0}));
  const auto ask = [&](const std::string& query) { return Ask(query, {"Index"}, adOpenDynamic); };
  EXPECT_EQ(ask("SELECT * FROM ProjectImages WHERE CRC=12 AND RecordStatus IN (3,2)"), (Lines{"2"}));
  EXPECT_EQ(ask("SELECT * FROM ProjectImages WHERE CRC=12 AND (RecordStatus=3 Or RecordStatus=2)"),
            (Lines{"2"}));
  EXPECT_EQ(ask("SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY Index"), (Lines{"2", "4"}));
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE RecordStatus IN (0,1) order by [index]", {"index"},
                adOpenKeyset),
            (Lines{"5", "6"}));
}

TEST_F(SystemStatements, PicturesWithoutLinksAreFoundAndCleared) {
  const std::string orphans =
      "SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
      "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages)";
  for (const CursorType cursor : {adOpenStatic, adOpenDynamic}) {
    EXPECT_EQ(Ask(orphans, {"CRC"}, cursor), (Lines{"13"}));
  }
  const auto row = Open(orphans, adOpenDynamic);
  row->Put("LibCRC", Long{-1});
  row->Put("Data8bpp", automation::NullValue{});
  row->Put("RecordStatus", Long{2});
  row->Update();
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=13", {"Index", "LibCRC", "Data8bpp", "RecordStatus"}),
            (Lines{"3 -1 Null 2"}));
  EXPECT_EQ(Ask(orphans, {"CRC"}), Lines{});
}

TEST_F(SystemStatements, PicturesAreClearedByOneStatement) {
  Run("UPDATE ProjectImages SET "
      "LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,Data8bppORG=NULL,"
      "RecordStatus=2 WHERE ( RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
      "ElementsAndImages) AND CRC "
      "NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages))");
  const std::vector<std::string> columns = {"Index", "LibCRC",   "Dx",          "Dy",        "DxORG",
                                            "DyORG", "Data8bpp", "Data8bppORG", "ImagePath", "RecordStatus"};
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=13", columns),
            (Lines{"3 -1 0 0 0 0 Null Null Null 2"}));
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=-11", columns),
            (Lines{"1 -1 1 1 1 1 bytes bytes a.bmp 3"}));
  Run("UPDATE ProjectImages SET "
      "LibCRC=-1,DxORG=0,DyORG=0,Data8bppORG=NULL,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,"
      "RecordStatus=2 WHERE CRC=-11 AND RecordStatus=3");
  EXPECT_EQ(Ask("SELECT * FROM ProjectImages WHERE CRC=-11", columns),
            (Lines{"1 -1 0 0 0 0 Null Null Null 2"}));
}

TEST_F(SystemStatements, LinksAreCountedAndReleased) {
  const auto count = [&](const std::string& table, const std::string& crc) {
    return Run("SELECT COUNT(*) AS NumOfImages FROM " + table + " WHERE Image_CRC=" + crc)
        ->Get("NumOfImages");
  };
  EXPECT_EQ(count("ElementsAndImages", "-11"), Variant(Long{3}));
  EXPECT_EQ(count("PagesAndImages", "12"), Variant(Long{1}));
  Run("DELETE * FROM ElementsAndImages WHERE Element_ID=1 AND Image_CRC=-11 AND Image_Index=2");
  EXPECT_EQ(count("ElementsAndImages", "-11"), Variant(Long{2}));
  Run("DELETE * FROM ElementsAndImages WHERE Element_ID=1");
  EXPECT_EQ(count("ElementsAndImages", "-11"), Variant(Long{1}));
}

TEST_F(SystemStatements, FreePicturesAtTheTopAreTrimmed) {
  Run("DELETE * FROM ProjectImages WHERE Index=6");
  Run("DELETE * FROM ProjectImages WHERE Index=5");
  for (const char* highest : {"4", "3", "3"}) {
    const Lines found = Ask("SELECT Max(Index) AS MaxIndex FROM ProjectImages", {"MaxIndex"});
    ASSERT_EQ(found, (Lines{highest}));
    Run("DELETE * FROM ProjectImages WHERE Index=" + found.front() + " AND RecordStatus=2");
  }
  Run("DELETE * FROM ProjectImages");
  EXPECT_EQ(Ask("SELECT Max(Index) AS MaxIndex FROM ProjectImages", {"MaxIndex"}), (Lines{"Null"}));
}

TEST_F(SystemStatements, TheModuleAndPageOfAnElementAreFoundThroughNestedJoins) {
  const std::string query =
      "SELECT DispModules.ModuleName, Pages.Description, HMI_Elements.ID FROM DispModules INNER JOIN "
      "(HMI_Elements INNER "
      "JOIN Pages ON HMI_Elements.DisplayID = Pages.Id) ON DispModules.ModuleId = Pages.ModuleID WHERE "
      "HMI_Elements.ID=";
  const std::vector<std::string> columns = {"ModuleName", "Description", "ID"};
  EXPECT_EQ(Ask(query + "2", columns, adOpenForwardOnly, adLockReadOnly), (Lines{"Module A Main page 2"}));
  EXPECT_EQ(Ask(query + "4", columns, adOpenForwardOnly, adLockReadOnly), (Lines{"Module B Other page 4"}));
  EXPECT_EQ(Ask(query + "9", columns, adOpenForwardOnly, adLockReadOnly), Lines{});
}

TEST_F(SystemStatements, TrendsAndTheirCurvesAreFound) {
  EXPECT_EQ(Ask("SELECT * From Trends Where TrendID=2", {"Name", "HistoryPoints"}), (Lines{"Boiler 40"}));
  EXPECT_EQ(Ask("Select * From Trends Where TrendID=3", {"Name"}), Lines{});
  EXPECT_EQ(Ask("Select * From Curves Where CurveID >=9 And CurveID <=16 Order by CurveID",
                {"CurveID", "DefaultColor"}),
            (Lines{"9 3", "16 2"}));
  EXPECT_EQ(Ask("Select * From Curves Where CurveID=17", {"Name"}), (Lines{"q"}));
}

TEST_F(SystemStatements, OtherNumbersLeaveTheSameText) {
  for (const char* statement :
       {"INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (@,@,@,0,@)",
        "DELETE * FROM HMI_Operands WHERE ElementID=@ AND OprndType=@ AND OprndAddr=@ AND OprndNetID =@ AND "
        "OprndPurpose=@",
        "SELECT * FROM HMI_ELEMENTS WHERE ID=@", "SELECT * FROM HMI_Elements WHERE ID= @",
        "DELETE FROM DownloadDLUs WHERE GUID = @",
        "UPDATE ElementsAndImages SET TransparencyLevel=@ WHERE Element_ID=@",
        "UPDATE ElementsAndImages SET Image_Index=Image_Index+(@) WHERE Element_ID=@ AND Image_Index>=@;",
        "SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=@) ORDER BY "
        "TabIndex",
        "Select * From Curves Where CurveID >=@ And CurveID <=@ Order by CurveID"}) {
    const auto with = [statement](const std::string& number) {
      std::string text = statement;
      for (auto at = text.find('@'); at != std::string::npos; at = text.find('@'))
        text.replace(at, 1, number);
      return text;
    };
    LiftedStatement first;
    LiftLiterals(with("1"), first);
    for (const char* number : {"-1", "-32768", "0", "2147483647"}) {
      LiftedStatement other;
      LiftLiterals(with(number), other);
      EXPECT_EQ(other.text, first.text);
    }
  }
}

}  // namespace
}  // namespace quenzel7::ado
