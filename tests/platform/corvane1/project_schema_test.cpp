#include "platform/corvane1/project_schema.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/convert.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::corvane1 {
namespace {

using automation::To;
using automation::Variant;
using Lines = std::vector<std::string>;

class ProjectSchemaTest : public ::testing::Test {
 protected:
  void SetUp() override {
    connection_ = ado::OpenSqlite(folder_.File("schema.db"), {.mode = ado::OpenMode::Create});
  }
  /// Makes the tables by the statements, without those that begin with `left out`.
  void Make(const std::string& leftOut = "-") {
    for (const std::string& statement : ProjectSchemaStatements()) {
      if (statement.rfind(leftOut, 0) != 0) connection_->Execute(statement);
    }
  }
  /// The columns of a table as the engine has them: "name type", with "*" where it belongs to the primary
  /// key.
  Lines Columns(const std::string& table) {
    Lines lines;
    for (const auto rows = connection_->Execute("PRAGMA table_info(" + table + ")"); !rows->Eof();
         rows->MoveNext()) {
      EXPECT_TRUE(rows->Get("dflt_value").IsNull());
      EXPECT_EQ(rows->Get("notnull"), Variant(Long{0}));
      lines.push_back(To<std::string>(rows->Get("name")) + " " + To<std::string>(rows->Get("type")) +
                      (rows->Get("pk") == Variant(Long{0}) ? "" : "*"));
    }
    return lines;
  }
  Lines Names(const std::string& type) {
    Lines names;
    const auto rows = connection_->Execute("SELECT name FROM sqlite_master WHERE type='" + type +
                                           "' AND name NOT LIKE 'sqlite%' ORDER BY name");
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(To<std::string>(rows->Get("name")));
    return names;
  }

  test::TemporaryFolder folder_;
  ado::ConnectionRef connection_;
};

TEST_F(ProjectSchemaTest, MakesTheTables) {
  Make();
  EXPECT_EQ(Names("table"), (Lines{"DispModules", "DownloadDLUs", "ElementsAndImages", "HMI_Elements",
                                   "HMI_Operands", "LibraryStrings", "Numbers", "Operands", "Pages",
                                   "PagesAndImages", "ProjectImages", "Settings", "StringLanguages"}));
  EXPECT_EQ(ProjectTables().size(), 13u);
}

TEST_F(ProjectSchemaTest, AnElementRowHasTheseColumns) {
  Make();
  EXPECT_EQ(Columns("HMI_Elements"), (Lines{"ID INTEGER*",
                                            "GUID INTEGER",
                                            "Type INTEGER",
                                            "Xs INTEGER",
                                            "Ys INTEGER",
                                            "Dx INTEGER",
                                            "Dy INTEGER",
                                            "DisplayID INTEGER",
                                            "GroupID INTEGER",
                                            "ColorBack INTEGER",
                                            "ColorFore INTEGER",
                                            "ColorBackTouch INTEGER",
                                            "ColorForeTouch INTEGER",
                                            "ColorHatch INTEGER",
                                            "PenStyle INTEGER",
                                            "PenWidth INTEGER",
                                            "HatchStyle INTEGER",
                                            "TouchOprndAddr INTEGER",
                                            "VisibleOpAddr INTEGER",
                                            "FontNumber INTEGER",
                                            "DescriptionFontNumber INTEGER",
                                            "Alignment INTEGER",
                                            "Flat3D INTEGER",
                                            "VarType INTEGER",
                                            "VarKeyPadEntry INTEGER",
                                            "VarOprndType INTEGER",
                                            "VarOprndAddr INTEGER",
                                            "GlobalVarID INTEGER",
                                            "DefaultDisplay INTEGER",
                                            "KeypadSuccessOpAddr INTEGER",
                                            "EnabledOpAddr INTEGER",
                                            "HighlightOpAddr INTEGER",
                                            "TabIndex INTEGER",
                                            "OrderIndex INTEGER",
                                            "Text TEXT",
                                            "Binary BLOB",
                                            "StorageText INTEGER",
                                            "StorageLibNum INTEGER",
                                            "StrStorageOprndType INTEGER",
                                            "StrStorageOprndAddr INTEGER",
                                            "StrStorageFont INTEGER"}));
}

TEST_F(ProjectSchemaTest, TheOtherTablesHaveTheseColumns) {
  Make();
  EXPECT_EQ(Columns("HMI_Operands"), (Lines{"ElementID INTEGER", "OprndType INTEGER", "OprndAddr INTEGER",
                                            "OprndNetID INTEGER", "OprndPurpose INTEGER"}));
  EXPECT_EQ(Columns("DownloadDLUs"), (Lines{"GUID INTEGER"}));
  EXPECT_EQ(Columns("Operands"),
            (Lines{"Type INTEGER*", "Address INTEGER*", "NetID INTEGER*", "Comment TEXT", "Value CURRENCY"}));
  EXPECT_EQ(Columns("Settings"), (Lines{"Section INTEGER*", "Key INTEGER*", "Value TEXT"}));
  EXPECT_EQ(Columns("Numbers"), (Lines{"Name TEXT*", "Next INTEGER"}));
  EXPECT_EQ(Columns("StringLanguages"), (Lines{"Language INTEGER*", "Name TEXT"}));
  EXPECT_EQ(Columns("LibraryStrings"),
            (Lines{"Number INTEGER*", "Language INTEGER*", "Text TEXT", "FontNumber INTEGER"}));
  EXPECT_EQ(Columns("ProjectImages"),
            (Lines{"Index INTEGER*", "CRC INTEGER", "LibCRC INTEGER", "Dx INTEGER", "Dy INTEGER",
                   "DxORG INTEGER", "DyORG INTEGER", "Data8bpp BLOB", "Data8bppORG BLOB", "ImagePath TEXT",
                   "RecordStatus INTEGER", "Bits INTEGER"}));
  EXPECT_EQ(Columns("ElementsAndImages"), (Lines{"Element_ID INTEGER", "Image_Index INTEGER",
                                                 "TransparencyLevel INTEGER", "Image_CRC INTEGER"}));
  EXPECT_EQ(Columns("PagesAndImages"), (Lines{"Page_ID INTEGER", "Image_Type INTEGER",
                                              "TransparencyLevel INTEGER", "Image_CRC INTEGER"}));
  EXPECT_EQ(Columns("DispModules"), (Lines{"ModuleId INTEGER*", "ModuleName TEXT"}));
  EXPECT_EQ(Columns("Pages"), (Lines{"Id INTEGER*", "ModuleID INTEGER", "Description TEXT"}));
}

TEST_F(ProjectSchemaTest, PicturesAreNumberedLikeElementsButForNumbersThatAreWritten) {
  Make();
  const auto number = [&] {
    return connection_->Execute("SELECT Max(Index) AS N FROM ProjectImages")->Get("N");
  };
  connection_->Execute("INSERT INTO ProjectImages(Index) VALUES(4)");
  connection_->Execute("DELETE FROM ProjectImages");
  connection_->Execute("INSERT INTO ProjectImages(CRC) VALUES(7)");
  EXPECT_EQ(number(), Variant(Long{5}));
  connection_->Execute("INSERT INTO ProjectImages(Index) VALUES(1)");
  EXPECT_EQ(number(), Variant(Long{5}));
}

TEST_F(ProjectSchemaTest, ElementsAreNumberedWithNumbersThatNeverComeBack) {
  Make();
  connection_->Execute("INSERT INTO HMI_Elements(Xs) VALUES(1)");
  connection_->Execute("DELETE FROM HMI_Elements");
  connection_->Execute("INSERT INTO HMI_Elements(Xs) VALUES(1)");
  EXPECT_EQ(connection_->Execute("SELECT ID FROM HMI_Elements")->Get("ID"), Variant(Long{2}));
}

TEST_F(ProjectSchemaTest, AnUnwrittenColumnIsNull) {
  Make();
  const auto row = ado::OpenRecordset(*connection_, "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                      ado::adLockOptimistic);
  row->AddNew();
  row->Update();
  for (const SchemaColumn& column : ProjectTables().front().columns) {
    EXPECT_EQ(row->Get(column.name).IsNull(), column.name != "ID") << column.name;
  }
}

TEST_F(ProjectSchemaTest, MakesTheIndexesThatTheQueriesUse) {
  Make();
  EXPECT_EQ(Names("index"), (Lines{"DownloadDLUs_Guid", "ElementsAndImages_Crc", "ElementsAndImages_Element",
                                   "ElementsAndImages_Place", "HMI_Elements_Order", "HMI_Elements_Tab",
                                   "HMI_Operands_Element", "PagesAndImages_Crc", "PagesAndImages_Page",
                                   "ProjectImages_Crc", "ProjectImages_Status"}));
  const auto plan = [&](const std::string& query) {
    return To<std::string>(connection_->Execute("EXPLAIN QUERY PLAN " + query)->Get("detail"));
  };
  EXPECT_EQ(plan("SELECT MAX(OrderIndex) FROM HMI_Elements WHERE DisplayID=7"),
            "SEARCH HMI_Elements USING COVERING INDEX HMI_Elements_Order (DisplayID=?)");
  EXPECT_EQ(plan("SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER "
                 "BY TabIndex"),
            "SEARCH HMI_Elements USING COVERING INDEX HMI_Elements_Tab (DisplayID=?)");
  EXPECT_EQ(plan("SELECT * FROM HMI_Operands WHERE ElementID=1"),
            "SEARCH HMI_Operands USING INDEX HMI_Operands_Element (ElementID=?)");
  EXPECT_EQ(
      plan("DELETE FROM HMI_Operands WHERE ElementID=1 AND OprndType=1 AND OprndAddr=2 AND OprndNetID=0"),
      "SEARCH HMI_Operands USING INDEX HMI_Operands_Element (ElementID=? AND OprndType=? AND OprndAddr=?)");
  EXPECT_EQ(plan("DELETE FROM DownloadDLUs WHERE GUID=1"),
            "SEARCH DownloadDLUs USING INDEX DownloadDLUs_Guid (GUID=?)");
}

TEST_F(ProjectSchemaTest, MarksTheFile) {
  Make();
  EXPECT_EQ(kProjectApplicationId, ('Q' << 24) + ('z' << 16) + ('l' << 8) + '7');
  EXPECT_EQ(connection_->Execute("PRAGMA application_id")->Get("application_id"),
            Variant(kProjectApplicationId));
  EXPECT_EQ(kProjectVersion, 3);
  EXPECT_EQ(connection_->Execute("PRAGMA user_version")->Get("user_version"), Variant(Long{3}));
  EXPECT_EQ(ProjectVersionOf(*connection_), 3);
}

TEST_F(ProjectSchemaTest, AWholeProjectLacksNothing) {
  Make();
  EXPECT_EQ(MissingFromProject(*connection_), "");
}

TEST_F(ProjectSchemaTest, MoreThanAProjectHasDoesNotMatter) {
  Make();
  connection_->Execute("ALTER TABLE HMI_Elements ADD COLUMN More");
  connection_->Execute("CREATE TABLE Other(A)");
  EXPECT_EQ(MissingFromProject(*connection_), "");
}

TEST_F(ProjectSchemaTest, NamesAreFoundWhateverTheirCase) {
  Make();
  connection_->Execute("ALTER TABLE HMI_Elements RENAME COLUMN Xs TO XS");
  connection_->Execute("DROP INDEX DownloadDLUs_Guid");
  connection_->Execute("CREATE INDEX downloaddlus_GUID ON DownloadDLUs(GUID)");
  EXPECT_EQ(MissingFromProject(*connection_), "");
}

TEST_F(ProjectSchemaTest, EachMissingTableIsNamed) {
  EXPECT_EQ(MissingFromProject(*connection_), "table HMI_Elements");
  for (const SchemaTable& table : ProjectTables()) {
    const std::string name(table.name);
    const auto connection = ado::OpenSqlite(folder_.File(name), {.mode = ado::OpenMode::Create});
    for (const std::string& statement : ProjectSchemaStatements()) connection->Execute(statement);
    connection->Execute("DROP TABLE " + name);
    EXPECT_EQ(MissingFromProject(*connection), "table " + name);
  }
}

TEST_F(ProjectSchemaTest, EachMissingColumnIsNamed) {
  Make();
  for (const SchemaTable& table : ProjectTables()) {
    for (const SchemaColumn& column : table.columns) {
      const std::string rename = "ALTER TABLE " + std::string(table.name) + " RENAME COLUMN \"" +
                                 std::string(column.name) + "\" TO ";
      connection_->Execute(rename + "Gone");
      const std::string missing =
          "column '" + std::string(column.name) + "' of table " + std::string(table.name);
      EXPECT_EQ(MissingFromProject(*connection_), column.optional ? "" : missing);
      EXPECT_EQ(column.optional, missing == "column 'Bits' of table ProjectImages") << missing;
      connection_->Execute("ALTER TABLE " + std::string(table.name) + " RENAME COLUMN Gone TO \"" +
                           std::string(column.name) + "\"");
    }
  }
  EXPECT_EQ(MissingFromProject(*connection_), "");
}

TEST_F(ProjectSchemaTest, EachMissingIndexIsNamed) {
  Make("CREATE INDEX");
  for (const SchemaIndex& index : ProjectIndexes()) {
    EXPECT_EQ(MissingFromProject(*connection_),
              "index " + std::string(index.name) + " of table " + std::string(index.table));
    connection_->Execute("CREATE INDEX " + std::string(index.name) + " ON " + std::string(index.table) + "(" +
                         std::string(index.columns) + ")");
  }
  EXPECT_EQ(MissingFromProject(*connection_), "");
}

// Older versions.

TEST_F(ProjectSchemaTest, EachTableSaysWhichVersionBroughtIt) {
  Lines later;
  for (const SchemaTable& table : ProjectTables()) {
    if (table.since != 1) later.push_back(std::string(table.name) + " " + std::to_string(table.since));
  }
  for (const SchemaIndex& index : ProjectIndexes()) {
    if (index.since != 1) later.push_back(std::string(index.name) + " " + std::to_string(index.since));
  }
  EXPECT_EQ(later, (Lines{"StringLanguages 2", "LibraryStrings 2", "ProjectImages 3", "ElementsAndImages 3",
                          "PagesAndImages 3", "DispModules 3", "Pages 3", "ProjectImages_Status 3",
                          "ProjectImages_Crc 3", "ElementsAndImages_Element 3", "ElementsAndImages_Place 3",
                          "ElementsAndImages_Crc 3", "PagesAndImages_Page 3", "PagesAndImages_Crc 3"}));
}

TEST_F(ProjectSchemaTest, AnUpgradeAddsWhatCameLaterAndRaisesTheVersion) {
  const Lines second = {
      "CREATE TABLE StringLanguages(\"Language\" INTEGER, \"Name\" TEXT, PRIMARY KEY(Language))",
      "CREATE TABLE LibraryStrings(\"Number\" INTEGER, \"Language\" INTEGER, \"Text\" TEXT, "
      "\"FontNumber\" INTEGER, PRIMARY KEY(Number, Language))"};
  const Lines third = {
      "CREATE TABLE ProjectImages(\"Index\" INTEGER PRIMARY KEY AUTOINCREMENT, \"CRC\" INTEGER, "
      "\"LibCRC\" INTEGER, \"Dx\" INTEGER, \"Dy\" INTEGER, \"DxORG\" INTEGER, \"DyORG\" INTEGER, "
      "\"Data8bpp\" BLOB, \"Data8bppORG\" BLOB, \"ImagePath\" TEXT, \"RecordStatus\" INTEGER, "
      "\"Bits\" INTEGER)",
      "CREATE TABLE ElementsAndImages(\"Element_ID\" INTEGER, \"Image_Index\" INTEGER, "
      "\"TransparencyLevel\" INTEGER, \"Image_CRC\" INTEGER)",
      "CREATE TABLE PagesAndImages(\"Page_ID\" INTEGER, \"Image_Type\" INTEGER, "
      "\"TransparencyLevel\" INTEGER, \"Image_CRC\" INTEGER)",
      "CREATE TABLE DispModules(\"ModuleId\" INTEGER, \"ModuleName\" TEXT, PRIMARY KEY(ModuleId))",
      "CREATE TABLE Pages(\"Id\" INTEGER, \"ModuleID\" INTEGER, \"Description\" TEXT, PRIMARY KEY(Id))",
      "CREATE INDEX ProjectImages_Status ON ProjectImages(RecordStatus, \"Index\", CRC)",
      "CREATE INDEX ProjectImages_Crc ON ProjectImages(CRC, RecordStatus DESC, \"Index\")",
      "CREATE INDEX ElementsAndImages_Element ON ElementsAndImages(Element_ID)",
      "CREATE INDEX ElementsAndImages_Place ON ElementsAndImages(Image_Index, Element_ID)",
      "CREATE INDEX ElementsAndImages_Crc ON ElementsAndImages(Image_CRC)",
      "CREATE INDEX PagesAndImages_Page ON PagesAndImages(Page_ID, Image_Type)",
      "CREATE INDEX PagesAndImages_Crc ON PagesAndImages(Image_CRC)",
      "PRAGMA user_version=3"};
  EXPECT_EQ(ProjectUpgradeStatements(2), third);
  Lines both = second;
  both.insert(both.end(), third.begin(), third.end());
  EXPECT_EQ(ProjectUpgradeStatements(1), both);
  EXPECT_EQ(ProjectUpgradeStatements(3), Lines{});
  EXPECT_EQ(ProjectUpgradeStatements(4), Lines{});
}

TEST_F(ProjectSchemaTest, AnUpgradeFromNothingMakesAllTablesAndIndexes) {
  EXPECT_EQ(ProjectUpgradeStatements(0).size(), ProjectTables().size() + ProjectIndexes().size() + 1);
  Lines all = ProjectUpgradeStatements(0);
  all.push_back("PRAGMA application_id=1366977591");
  EXPECT_EQ(ProjectSchemaStatements(), all);
}

TEST_F(ProjectSchemaTest, AnOlderProjectLacksOnlyWhatItsVersionHas) {
  Make();
  connection_->Execute("DROP TABLE Pages");
  connection_->Execute("DROP INDEX ProjectImages_Crc");
  EXPECT_EQ(MissingFromProject(*connection_, 2), "");
  EXPECT_EQ(MissingFromProject(*connection_, 3), "table Pages");
  connection_->Execute("DROP TABLE LibraryStrings");
  EXPECT_EQ(MissingFromProject(*connection_, 1), "");
  EXPECT_EQ(MissingFromProject(*connection_, 2), "table LibraryStrings");
  EXPECT_EQ(MissingFromProject(*connection_), "table LibraryStrings");
  connection_->Execute("DROP INDEX HMI_Elements_Tab");
  EXPECT_EQ(MissingFromProject(*connection_, 1), "index HMI_Elements_Tab of table HMI_Elements");
  EXPECT_EQ(MissingFromProject(*connection_, 0), "");
}

TEST_F(ProjectSchemaTest, WhatHasTheNameOfALaterTableIsInItsWay) {
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 1), "");
  const struct {
    const char* change;
    const char* undo;
    const char* inTheWay;
  } cases[] = {
      {"CREATE TABLE librarystrings(A)", "DROP TABLE librarystrings", "table librarystrings"},
      {"CREATE VIEW StringLanguages AS SELECT 1 AS A", "DROP VIEW StringLanguages", "view StringLanguages"},
      {"CREATE TABLE T(A)", "DROP TABLE T", ""}};
  for (const auto& named : cases) {
    connection_->Execute(named.change);
    EXPECT_EQ(InTheWayOfLaterTables(*connection_, 1), named.inTheWay);
    EXPECT_EQ(InTheWayOfLaterTables(*connection_, 2), "");
    EXPECT_EQ(InTheWayOfLaterTables(*connection_, 3), "");
    connection_->Execute(named.undo);
  }
  Make();
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 3), "");
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 2), "table ProjectImages");
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 1), "table StringLanguages");
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 0), "table HMI_Elements");
}

TEST_F(ProjectSchemaTest, WhatHasTheNameOfALaterIndexIsInItsWay) {
  connection_->Execute("CREATE TABLE T(A)");
  connection_->Execute("CREATE INDEX DownloadDLUs_guid ON T(A)");
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 1), "");
  EXPECT_EQ(InTheWayOfLaterTables(*connection_, 0), "index DownloadDLUs_guid");
}

TEST_F(ProjectSchemaTest, StandInsAreSeenEmptyAndTakeNothing) {
  EXPECT_TRUE(ProjectStandInStatements(3).empty());
  EXPECT_EQ(ProjectStandInStatements(2),
            (Lines{"CREATE TEMP VIEW ProjectImages AS SELECT NULL AS \"Index\", NULL AS \"CRC\", NULL AS "
                   "\"LibCRC\", NULL AS \"Dx\", NULL AS \"Dy\", NULL AS \"DxORG\", NULL AS \"DyORG\", "
                   "NULL AS \"Data8bpp\", NULL AS \"Data8bppORG\", NULL AS \"ImagePath\", NULL AS "
                   "\"RecordStatus\", NULL AS \"Bits\" WHERE 0",
                   "CREATE TEMP VIEW ElementsAndImages AS SELECT NULL AS \"Element_ID\", NULL AS "
                   "\"Image_Index\", NULL AS \"TransparencyLevel\", NULL AS \"Image_CRC\" WHERE 0",
                   "CREATE TEMP VIEW PagesAndImages AS SELECT NULL AS \"Page_ID\", NULL AS \"Image_Type\", "
                   "NULL AS \"TransparencyLevel\", NULL AS \"Image_CRC\" WHERE 0",
                   "CREATE TEMP VIEW DispModules AS SELECT NULL AS \"ModuleId\", NULL AS \"ModuleName\" "
                   "WHERE 0",
                   "CREATE TEMP VIEW Pages AS SELECT NULL AS \"Id\", NULL AS \"ModuleID\", NULL AS "
                   "\"Description\" WHERE 0"}));
  const Lines first = ProjectStandInStatements(1);
  ASSERT_EQ(first.size(), 7u);
  EXPECT_EQ(
      Lines(first.begin(), first.begin() + 2),
      (Lines{"CREATE TEMP VIEW StringLanguages AS SELECT NULL AS \"Language\", NULL AS \"Name\" WHERE 0",
             "CREATE TEMP VIEW LibraryStrings AS SELECT NULL AS \"Number\", NULL AS \"Language\", NULL AS "
             "\"Text\", NULL AS \"FontNumber\" WHERE 0"}));
  for (const std::string& statement : ProjectStandInStatements(1)) connection_->Execute(statement);
  EXPECT_TRUE(connection_->Execute("SELECT * FROM LibraryStrings WHERE Number=1")->Eof());
  EXPECT_EQ(test::ErrorOf([&] { connection_->Execute("INSERT INTO LibraryStrings(Number) VALUES(1)"); }),
            -2147467259);
  EXPECT_EQ(Names("table"), Lines{});
}

}  // namespace
}  // namespace quenzel7::corvane1
