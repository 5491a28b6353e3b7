/// Every form of statement that elements and trends send, on data where each gives something else. Those of
/// pictures stand with the project's tables.
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
             "CREATE TABLE Trends(TrendID INTEGER PRIMARY KEY, HistoryPoints INTEGER, Name TEXT)",
             "CREATE TABLE Curves(CurveID INTEGER PRIMARY KEY, Name TEXT, DefaultColor INTEGER)",
             "INSERT INTO HMI_Elements VALUES(1,101,5,7,0,1,'first')",
             "INSERT INTO HMI_Elements VALUES(2,102,3,7,255,5,'second')",
             "INSERT INTO HMI_Elements VALUES(3,103,11,7,1,3,'third')",
             "INSERT INTO HMI_Elements VALUES(4,104,5,8,0,9,'fourth')",
             "INSERT INTO HMI_Elements VALUES(5,105,5,7,0,2,'fifth')",
             "INSERT INTO DownloadDLUs VALUES(101)",
             "INSERT INTO DownloadDLUs VALUES(-102)",
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
        line += value.IsNull() ? "Null" : To<std::string>(value);
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
