#include "hosts/cli/project_checks.h"

#include <gtest/gtest.h>

#include "hosts/cli/demo_files.h"
#include "platform/corvane1/settings.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/every_kind_element.h"

namespace quenzel7::cli {
namespace {

using Lines = std::vector<std::string>;

class ProjectChecks : public test::CliProjectTest {
 protected:
  CheckResult Check() { return CheckProject(Session(), NoTerminal()); }
  /// What is found after the statements.
  Lines Findings(const Lines& statements) {
    for (const std::string& statement : statements) Connection().Execute(statement);
    return Check().findings;
  }
  /// Page 1 with rectangle 1, ellipse 2 with touch and hide operand, and group 5 of line 3 and round
  /// rectangle 4.
  void ImportFour() {
    Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsRectangle", "Xs": 10, "Dx": 10, "Dy": 10},
      {"class": "clsEllipse", "Dx": 10, "Dy": 10, "TouchOprndAddr": 5, "VisibleOpAddr": 6},
      {"class": "clsGroup", "elements": [{"class": "clsLine", "Dx": 10},
                                         {"class": "clsRoundRect", "Dx": 10, "Dy": 10}]}]})");
  }
  void MakeLanguages() {
    Connection().Execute("INSERT INTO StringLanguages (Language, Name) VALUES (1, 'English')");
    Connection().Execute("INSERT INTO StringLanguages (Language, Name) VALUES (2, 'Deutsch')");
  }
};

TEST_F(ProjectChecks, AnEmptyProjectIsSound) {
  const CheckResult result = Check();
  EXPECT_EQ(result.findings, Lines());
  EXPECT_EQ(result.notes, Lines());
  EXPECT_EQ(result.pages, 0u);
  EXPECT_EQ(result.elements, 0u);
  EXPECT_EQ(result.operandRows, 0u);
}

TEST_F(ProjectChecks, TheDemoPageIsSound) {
  ImportDemo();
  const CheckResult result = Check();
  EXPECT_EQ(result.findings, Lines());
  EXPECT_EQ(result.notes, Lines());
  EXPECT_EQ(result.pages, 1u);
}

TEST_F(ProjectChecks, CountsWhatItLooksAt) {
  ImportFour();
  Import(PageText(2, {}));
  const CheckResult result = Check();
  EXPECT_EQ(result.findings, Lines());
  EXPECT_EQ(result.pages, 2u);
  EXPECT_EQ(result.elements, 5u);
  EXPECT_EQ(result.operandRows, 2u);
}

TEST_F(ProjectChecks, TellsOfAnOperandThatPicksAStringWithoutARow) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 60, "Dy": 24, "StorageStringType": 3, "StorageStringID": 4}]})");
  EXPECT_EQ(Check().findings, Lines());
  EXPECT_EQ(Findings({"UPDATE HMI_Operands SET OprndType=1"}),
            (Lines{"page 1, row 1 (clsText): StorageStringID 4 has no row in HMI_Operands; one of MW 4 with "
                   "eOP_StorageStringIdOperand was expected"}));
}

TEST_F(ProjectChecks, TellsOfTextsThatAreCutAndOfCharactersThatAreNoneWithoutABox) {
  testing::internal::CaptureStderr();
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 20, "Dy": 24, "Flat3D": 0, "Txt": "boiler", "FontNumber": 0},
      {"class": "clsFrame", "Dx": 60, "Dy": 24, "Txt": "\u0416"},
      {"class": "clsText", "Dx": 60, "Dy": 24},
      {"class": "clsText", "Dx": 60, "Dy": 24, "StorageStringID": 7}]})");
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
  testing::internal::CaptureStderr();
  EXPECT_EQ(
      Check().findings,
      (Lines{
          "page 1, row 1 (clsText): shows only \"bo\" of its text \"boiler\" at size (20, 24); (48, 16) was "
          "expected",
          "page 1, row 2 (clsFrame): shows nothing of 1 line of its text \"\u0416\"; characters of code page "
          "1252 were expected",
          "page 1, row 4 (clsText): StorageStringID 7 names no text of the string library; the number of "
          "one that some language has was expected"}));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(ProjectChecks, TellsOfEveryLanguageInWhichATextIsCut) {
  MakeLanguages();
  Connection().Execute("INSERT INTO LibraryStrings VALUES (7, 1, 'boiler', 0)");
  Connection().Execute("INSERT INTO LibraryStrings VALUES (7, 2, 'Kessel', 0)");
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 20, "Dy": 24, "Flat3D": 0, "StorageStringID": 7}]})");
  EXPECT_EQ(
      Check().findings,
      (Lines{"page 1, row 1 (clsText): shows only \"bo\" of its text \"boiler\" in language 1 at size (20, "
             "24); (48, 16) was expected",
             "page 1, row 1 (clsText): shows only \"Ke\" of its text \"Kessel\" in language 2 at size (20, "
             "24); (48, 16) was expected"}));
}

TEST_F(ProjectChecks, TellsOfFontsOfTheLibraryThatThePanelDoesNotHave) {
  MakeLanguages();
  const std::string end = ", which the panel does not have; the number of one of its fonts was expected";
  EXPECT_EQ(
      Findings({"INSERT INTO LibraryStrings VALUES (7, 2, 'Kessel', 40)",
                "INSERT INTO LibraryStrings VALUES (7, 1, 'boiler', 39)",
                "INSERT INTO LibraryStrings VALUES (8, 1, 'tank', -1)",
                "INSERT INTO LibraryStrings VALUES (6, 1, 'pump', -2)",
                "INSERT INTO LibraryStrings VALUES (6, 2, 'Pumpe', Null)",
                "INSERT INTO HMI_Operands VALUES (1, 1, 1, 1, Null)"}),
      (Lines{"HMI_Operands, row 1: column 'OprndPurpose' of HMI_Operands: invalid use of Null: a number "
             "was expected",
             "string library: text 6 in language 1 has font -2" + end,
             "string library: text 7 in language 2 has font 40" + end}));
}

TEST_F(ProjectChecks, TellsOfTouchableTextsWithTheSamePlaceInTheTabOrder) {
  const std::string elements = R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 60, "Dy": 24, "TouchOprndAddr": 1, "TabIndex": 3},
      {"class": "clsText", "Dx": 60, "Dy": 24},
      {"class": "clsRectangle", "Dx": 60, "Dy": 24, "TouchOprndAddr": 1},
      {"class": "clsFrame", "Dx": 60, "Dy": 24, "TouchOprndAddr": 1, "TabIndex": 3},
      {"class": "clsText", "Dx": 60, "Dy": 24, "TouchOprndAddr": 1, "TabIndex": 4},
      {"class": "clsText", "Dx": 60, "Dy": 24, "TouchOprndAddr": 1, "TabIndex": 3}]})";
  Import(elements);
  const std::string end = " is that of row 1, too; a place of its own in the tab order was expected";
  const Lines two = {"page 1, row 4 (clsFrame): TabIndex 3" + end,
                     "page 1, row 6 (clsText): TabIndex 3" + end};
  EXPECT_EQ(Check().findings, two);
  // What is not touched has no place, whatever its row says; another page has an order of its own.
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET TabIndex=4 WHERE ID=2",
                      "UPDATE HMI_Elements SET DisplayID=2 WHERE ID=4"}),
            Lines{two[1]});
  // 255 is no place.
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET TabIndex=255"}), Lines());
}

TEST_F(ProjectChecks, TellsOfNumbersThatMeanNothingToATextOrAFrame) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 96, "Dy": 48, "Flat3D": 4, "Alignment": 8, "FontNumber": 39},
      {"class": "clsText", "Dx": 60, "Dy": 24, "Flat3D": 5, "Alignment": 9, "FontNumber": 40},
      {"class": "clsFrame", "Dx": 60, "Dy": 24, "Flat3D": 3, "Alignment": 0, "FontNumber": 0},
      {"class": "clsFrame", "Dx": 60, "Dy": 24, "Flat3D": 4},
      {"class": "clsFrame", "Dx": 60, "Dy": 24, "Flat3D": -1, "Alignment": -1, "FontNumber": -1},
      {"class": "clsText", "Dx": 60, "Dy": 24, "Flat3D": 0}]})");
  const std::string text = "page 1, row 2 (clsText): ", frame = "page 1, row 5 (clsFrame): ";
  const std::string font = ", which the panel does not have; the number of one of its fonts was expected";
  EXPECT_EQ(
      Check().findings,
      (Lines{text + "Flat3D is 5; a number from 0 to 4 was expected",
             text + "Alignment is 9; a number from 0 to 8 was expected", text + "FontNumber is 40" + font,
             "page 1, row 4 (clsFrame): Flat3D is 4; a number from 0 to 3 was expected",
             frame + "Flat3D is -1; a number from 0 to 3 was expected",
             frame + "Alignment is -1; a number from 0 to 8 was expected",
             frame + "FontNumber is -1" + font}));
}

TEST_F(ProjectChecks, JudgesTheFontOfTheRowAndNotTheOneThatTheLibraryShows) {
  MakeLanguages();
  Connection().Execute("INSERT INTO LibraryStrings VALUES (7, 1, 'boiler', 3)");
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 90, "Dy": 24, "Flat3D": 0, "StorageStringID": 7, "FontNumber": 40}]})");
  EXPECT_EQ(
      Check().findings,
      (Lines{"page 1, row 1 (clsText): FontNumber is 40, which the panel does not have; the number of one "
             "of its fonts was expected"}));
}

TEST_F(ProjectChecks, TellsOfALibraryThatCannotBeRead) {
  MakeLanguages();
  const Lines findings = Findings({"INSERT INTO LibraryStrings VALUES (7, 2, 'Kessel', 'big')"});
  EXPECT_EQ(findings, Lines{"string library: type mismatch: \"big\" is not a number"});
}

TEST_F(ProjectChecks, AProjectWithoutALibraryIsSound) {
  ImportFour();
  EXPECT_EQ(Findings({"DROP TABLE LibraryStrings", "DROP TABLE StringLanguages"}), Lines());
}

TEST_F(ProjectChecks, AnErrorOfOneCheckHidesNothingOfTheOthers) {
  ImportFour();
  Import(R"({"page": 2, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [
      {"class": "clsText", "Dx": 60, "Dy": 24, "Flat3D": 0, "StorageStringType": 3, "StorageStringID": 4},
      {"class": "clsGroup"}]})");
  corvane1::LayeredSettings settings(Platform::Current().heldProject);
  settings.SetInProject(7000, 1, "x");
  // A flat text without any room is not measured when it is made and loaded.
  settings.SetInProject(6000, 6043, "0");
  Open();
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET Dx=0, Dy=0, TouchOprndAddr=-2, GroupID=7 WHERE ID=6",
                "DELETE * FROM HMI_Operands WHERE ElementID=6"}),
      (Lines{
          "page 2, row 6 (clsText): is touchable (TouchOprndAddr -2) and stands in group 7; TouchOprndAddr "
          "-1 was expected in a group",
          "page 2, row 6 (clsText): has size (0, 0); a width and a height other than 0 was expected",
          "page 2, row 6 (clsText): setting 7000/1: type mismatch: \"x\" is not a number",
          "page 2, row 6 (clsText): StorageStringID 4 has no row in HMI_Operands; one of MW 4 with "
          "eOP_StorageStringIdOperand was expected"}));
}

TEST_F(ProjectChecks, TellsOfTypesThatAreNone) {
  ImportFour();
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET Type=99 WHERE ID=1"}),
            (Lines{"page 1, row 1: there is no class of element type 99"}));
}

TEST_F(ProjectChecks, TellsOfColumnsThatDoNotLoadWithTheirError) {
  ImportFour();
  EXPECT_EQ(
      Findings(
          {"UPDATE HMI_Elements SET PenWidth=Null WHERE ID=1", "UPDATE HMI_Elements SET Xs='left' WHERE ID=2",
           "UPDATE HMI_Elements SET Type=Null WHERE ID=3", "UPDATE HMI_Elements SET Dx=5000000000 WHERE ID=4",
           "UPDATE HMI_Elements SET GroupID=Null WHERE ID=5"}),
      (Lines{
          "page 1, row 1 (clsRectangle): column 'PenWidth' of HMI_Elements: invalid use of Null: a number "
          "was expected",
          "page 1, row 2 (clsEllipse): column 'Xs' of HMI_Elements: type mismatch: \"left\" is not a number",
          "page 1, row 3: column 'Type' of HMI_Elements: invalid use of Null: a number was expected",
          "page 1, row 4 (clsRoundRect): column 'Dx' of HMI_Elements: overflow: 5000000000.000000 does not "
          "fit 32 bits",
          "page 1, row 5 (clsGroup): column 'GroupID' of HMI_Elements: invalid use of Null: a number was "
          "expected"}));
}

TEST_F(ProjectChecks, TellsOfPropertiesOfTheHostThatCannotBeSet) {
  ImportFour();
  EXPECT_EQ(
      Findings({"INSERT INTO HostProperties (ElementID, Property, Value) VALUES (3, 'FillStile', '1')"}),
      (Lines{"page 1, row 3 (clsLine): property \"FillStile\" in HostProperties: does not exist"}));
}

TEST_F(ProjectChecks, TellsOfElementsOnNoPage) {
  ImportFour();
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET DisplayID=Null WHERE ID=2"}),
      (Lines{"no page, row 2 (clsEllipse): column 'DisplayID' of HMI_Elements: invalid use of Null: a number "
             "was expected"}));
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET DisplayID='first' WHERE ID=2"}),
      (Lines{
          "no page, row 2 (clsEllipse): column 'DisplayID' of HMI_Elements: type mismatch: \"first\" is not "
          "a number"}));
}

TEST_F(ProjectChecks, TellsOfGroupIdsAtTheirRows) {
  ImportFour();
  const std::string expected = "; -1 or the ID of a group of its page was expected";
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET GroupID=77 WHERE ID=1",
                      "UPDATE HMI_Elements SET GroupID=1 WHERE ID=3"}),
            (Lines{"page 1, row 1 (clsRectangle): GroupID 77 names no row" + expected,
                   "page 1, row 3 (clsLine): GroupID 1 names row 1, which is no group" + expected}));
}

TEST_F(ProjectChecks, TellsOfGroupsOnAnotherPageAndInThemselves) {
  ImportFour();
  Import(
      R"({"page": 2, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [{"class": "clsGroup"}]})");
  EXPECT_EQ(
      Findings(
          {"UPDATE HMI_Elements SET GroupID=6 WHERE ID=4", "UPDATE HMI_Elements SET GroupID=6 WHERE ID=6"}),
      (Lines{
          "page 1, row 4 (clsRoundRect): GroupID 6 names row 6, a group on page 2; -1 or the ID of a group "
          "of "
          "its page was expected",
          "page 2, row 6 (clsGroup): groups lie in one another without end, 6 -> 6; GroupID -1 was expected "
          "in one of them"}));
}

TEST_F(ProjectChecks, MembersOfARowThatDoesNotLoadAreFound) {
  ImportFour();
  // The group's row does not load, and is a group all the same.
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GroupID='none' WHERE ID=5"}),
      (Lines{"page 1, row 5 (clsGroup): column 'GroupID' of HMI_Elements: type mismatch: \"none\" is not a "
             "number"}));
}

TEST_F(ProjectChecks, TellsOfTouchableMembersOfGroups) {
  ImportFour();
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GroupID=5 WHERE ID=2"}),
      (Lines{
          "page 1, row 2 (clsEllipse): is touchable (TouchOprndAddr 5) and stands in group 5; TouchOprndAddr "
          "-1 was expected in a group"}));
}

TEST_F(ProjectChecks, TellsOfElementsOffThePage) {
  ImportFour();
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET Xs=311 WHERE ID=1", "UPDATE HMI_Elements SET Ys=240 WHERE ID=4"}),
      (Lines{"page 1, row 1 (clsRectangle): lies partly off the page, at (311, 0) with size (10, 10); a "
             "place on "
             "320 by 240 pixels was expected",
             "page 1, row 4 (clsRoundRect): lies wholly off the page, at (0, 240) with size (10, 10); a "
             "place on "
             "320 by 240 pixels was expected"}));
}

TEST_F(ProjectChecks, TellsOfElementsOfSizeZero) {
  ImportFour();
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET Dx=0 WHERE ID=3"}),
            (Lines{"page 1, row 3 (clsLine): has size (0, 0); another one than (0, 0) was expected"}));
}

TEST_F(ProjectChecks, TellsOfOperandsWithoutARow) {
  ImportFour();
  EXPECT_EQ(
      Findings({"DELETE * FROM HMI_Operands"}),
      (Lines{"page 1, row 2 (clsEllipse): TouchOprndAddr 5 has no row in HMI_Operands; one of MB 5 with "
             "eOP_TouchOperand was expected",
             "page 1, row 2 (clsEllipse): VisibleOpAddr 6 has no row in HMI_Operands; one of MB 6 with "
             "eOP_VisibleOperand was expected"}));
}

TEST_F(ProjectChecks, ARowThatDiffersInAnythingIsNotTheOperands) {
  const std::string line =
      "page 1, row 2 (clsEllipse): TouchOprndAddr 5 has no row in HMI_Operands; one of MB 5 with "
      "eOP_TouchOperand was "
      "expected";
  for (const char* change : {"ElementID=1", "OprndType=2", "OprndAddr=4", "OprndNetID=1", "OprndPurpose=4"}) {
    Open();
    ImportFour();
    const std::string statement = std::string("UPDATE HMI_Operands SET ") + change + " WHERE OprndPurpose=2";
    // Importing again gives new numbers.
    const Lines found = Findings({statement});
    ASSERT_EQ(found.size(), 1u) << change;
    EXPECT_EQ(found[0].substr(found[0].find(" (")), line.substr(line.find(" ("))) << change;
    Connection().Execute("DELETE * FROM HMI_Elements");
    Connection().Execute("DELETE * FROM HMI_Operands");
  }
}

TEST_F(ProjectChecks, NoOperandAndATouchWithoutOneNeedNoRow) {
  ImportFour();
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET TouchOprndAddr=-2 WHERE ID=1",
                      "UPDATE HMI_Elements SET VisibleOpAddr=-2 WHERE ID=1"}),
            Lines());
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET TouchOprndAddr=0 WHERE ID=1"}),
      (Lines{"page 1, row 1 (clsRectangle): TouchOprndAddr 0 has no row in HMI_Operands; one of MB 0 with "
             "eOP_TouchOperand was expected"}));
}

TEST_F(ProjectChecks, TellsOfOperandRowsWithoutAnElement) {
  ImportFour();
  EXPECT_EQ(
      Findings({"INSERT INTO HMI_Operands VALUES (9, 1, 10, 0, 2)",
                "INSERT INTO HMI_Operands VALUES (8, 3, 7, 4, 77)"}),
      (Lines{
          "HMI_Operands, row 3 (MB 10, eOP_TouchOperand): ElementID 9 names no row; the ID of a row of "
          "HMI_Elements was expected",
          "HMI_Operands, row 4 (MW 7, network 4, purpose 77): ElementID 8 names no row; the ID of a row of "
          "HMI_Elements was expected"}));
}

TEST_F(ProjectChecks, TellsOfOperandRowsThatAreNoneAndGoesOn) {
  ImportFour();
  EXPECT_EQ(
      Findings({"INSERT INTO HMI_Operands VALUES (Null, 1, 10, 0, 2)",
                "INSERT INTO HMI_Operands VALUES (1, 'MB', 10, 0, 2)",
                "INSERT INTO HMI_Operands VALUES (1, 1, Null, 0, 2)",
                "INSERT INTO HMI_Operands VALUES (1, 1, 1, Null, 2)",
                "INSERT INTO HMI_Operands VALUES (1, 1, 1, 1, Null)"}),
      (Lines{"HMI_Operands, row 3: column 'ElementID' of HMI_Operands: invalid use of Null: a number was "
             "expected",
             "HMI_Operands, row 4: column 'OprndType' of HMI_Operands: type mismatch: \"MB\" is not a number",
             "HMI_Operands, row 5: column 'OprndAddr' of HMI_Operands: invalid use of Null: a number was "
             "expected",
             "HMI_Operands, row 6: column 'OprndNetID' of HMI_Operands: invalid use of Null: a number was "
             "expected",
             "HMI_Operands, row 7: column 'OprndPurpose' of HMI_Operands: invalid use of Null: a number was "
             "expected"}));
}

TEST_F(ProjectChecks, AnElementThatDoesNotLoadIsOneForItsOperands) {
  ImportFour();
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET Type=99 WHERE ID=2"}),
            (Lines{"page 1, row 2: there is no class of element type 99"}));
}

TEST_F(ProjectChecks, TellsOfUniqueNumbersThatStandTwice) {
  ImportFour();
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GUID=3 WHERE ID<>5"}),
      (Lines{
          "page 1, row 2 (clsEllipse): GUID 3 is that of row 1, too; a number of its own was expected",
          "page 1, row 3 (clsLine): GUID 3 is that of row 1, too; a number of its own was expected",
          "page 1, row 4 (clsRoundRect): GUID 3 is that of row 1, too; a number of its own was expected"}));
}

TEST_F(ProjectChecks, GroupsNeedNoUniqueNumber) {
  ImportFour();
  EXPECT_EQ(Findings({"UPDATE HMI_Elements SET GUID=Null WHERE Type=8"}), Lines());
}

TEST_F(ProjectChecks, TellsOfUniqueNumbersThatAreNoneAndGoesOn) {
  ImportFour();
  const std::string start = "): column 'GUID' of HMI_Elements: ";
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GUID=x'00ff0a' WHERE ID IN (1, 5)",
                "UPDATE HMI_Elements SET GUID=Null WHERE ID=2",
                "UPDATE HMI_Elements SET GUID='abc' WHERE ID=3", "UPDATE HMI_Elements SET Dy=0 WHERE ID=4"}),
      (Lines{"page 1, row 1 (clsRectangle" + start + "type mismatch: Array where a number was expected",
             "page 1, row 2 (clsEllipse" + start + "invalid use of Null: a number was expected",
             "page 1, row 3 (clsLine" + start + "type mismatch: \"abc\" is not a number",
             "page 1, row 4 (clsRoundRect): has size (10, 0); a width and a height other than 0 was expected",
             "page 1, row 5 (clsGroup" + start + "type mismatch: Array where a number was expected"}));
}

TEST_F(ProjectChecks, TellsOfPlacesOfGroupsThatAreNone) {
  ImportFour();
  const std::string place = "page 1, row 5 (clsGroup): column 'OrderIndex' of HostGroups: ";
  EXPECT_EQ(
      Findings({"DROP TABLE HostGroups", "CREATE TABLE HostGroups (ElementID INTEGER, OrderIndex INTEGER)",
                "INSERT INTO HostGroups VALUES (5, Null)", "INSERT INTO HostGroups VALUES (1, Null)"}),
      (Lines{place + "invalid use of Null: a number was expected"}));
  EXPECT_EQ(Findings({"DROP TABLE HostGroups", "CREATE TABLE HostGroups (ElementID INTEGER)",
                      "INSERT INTO HostGroups VALUES (5)"}),
            (Lines{place + "the recordset has no column 'OrderIndex'"}));
}

TEST_F(ProjectChecks, TellsOfPageFilesThatAreNone) {
  Import(PageText(1, {}));
  Import(PageText(2, {}));
  Import(PageText(3, {}));
  Import(PageText(4, {}));
  const std::string column = " of HostPages: column 'Source' of HostPages";
  EXPECT_EQ(
      Findings(
          {"UPDATE HostPages SET Source=x'fffe' WHERE DisplayID=1",
           "UPDATE HostPages SET Source='{' WHERE DisplayID=2",
           "UPDATE HostPages SET Source=(SELECT Source FROM HostPages WHERE DisplayID=4) WHERE DisplayID=3",
           "UPDATE HostPages SET Imported=x'fffe' WHERE DisplayID=4"}),
      (Lines{
          "page 1" + column + ": type mismatch: Array where a text was expected",
          "page 2" + column +
              ", line 1, column 2: malformed JSON: syntax error while parsing object key - unexpected end of "
              "input; expected string literal",
          "page 3" + column + ": holds page 4",
          "page 4 of HostPages: column 'Imported' of HostPages: type mismatch: Array where a text was "
          "expected"}));
  EXPECT_EQ(Check().notes, Lines());
}

TEST_F(ProjectChecks, TellsOfPropertiesThatTheHostDoesNotKeep) {
  ImportFour();
  EXPECT_EQ(Findings({"INSERT INTO HostProperties (ElementID, Property, Value) VALUES (3, 'ID', '1')"}),
            (Lines{"page 1, row 3 (clsLine): property \"ID\" in HostProperties: cannot be set: it is none of "
                   "those that are kept there"}));
}

TEST_F(ProjectChecks, TellsOfARowThatSaysItIsNone) {
  ImportFour();
  // Nothing is in the group -1, the touchable ellipse neither.
  EXPECT_EQ(
      Findings({"DELETE * FROM HMI_Elements WHERE ID IN (3, 4)", "UPDATE HMI_Elements SET ID=-1 WHERE ID=5"}),
      (Lines{"page 1, row -1 (clsGroup): has ID -1, which stands for no row; another one was expected"}));
}

TEST_F(ProjectChecks, AGroupOfAnotherPageDoesNotHoldWhatIsTouched) {
  ImportFour();
  Import(
      R"({"page": 2, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [{"class": "clsGroup"}]})");
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GroupID=6 WHERE ID=2"}),
      (Lines{"page 1, row 2 (clsEllipse): GroupID 6 names row 6, a group on page 2; -1 or the ID of a group "
             "of its page was expected"}));
}

TEST_F(ProjectChecks, TellsOfPagesOfTheHostThatAreNone) {
  ImportFour();
  Import(PageText(2, {ElementText(310, 2, 30, 40)}));
  const CheckResult result = [this] {
    Connection().Execute("UPDATE HostPages SET Width=0 WHERE DisplayID=2");
    return Check();
  }();
  EXPECT_EQ(result.findings,
            (Lines{"HostPages, row 2: column 'Width' of HostPages: 0 was found; a number of pixels from 1 to "
                   "4096 was expected"}));
  EXPECT_EQ(
      result.notes,
      (Lines{"page 2 has a wrong row in HostPages: how large it is and what lies off it is not known"}));
  EXPECT_EQ(result.pages, 2u);
}

TEST_F(ProjectChecks, APageOfAnotherHostHasNoSizeToBeOff) {
  ImportFour();
  Connection().Execute("DROP TABLE HostPages");
  Connection().Execute("DROP TABLE HostProperties");
  Connection().Execute("UPDATE HMI_Elements SET Xs=5000 WHERE ID=1");
  const CheckResult result = Check();
  EXPECT_EQ(result.findings, Lines());
  EXPECT_EQ(result.notes,
            (Lines{"page 1 is not in HostPages: how large it is and what lies off it is not known"}));
  EXPECT_EQ(result.pages, 1u);
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET Dx=0 WHERE ID=4"}),
      (Lines{
          "page 1, row 4 (clsRoundRect): has size (0, 10); a width and a height other than 0 was expected"}));
}

TEST_F(ProjectChecks, TellsEverythingOfEveryRowByPageAndId) {
  Import(PageText(12, {ElementText(1, 1, 1, 1)}));
  Import(PageText(3, {ElementText(1, 1, 1, 1), ElementText(1, 1, 1, 1)}));
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET GroupID=9, Xs=-1, GUID=3 WHERE ID=3",
                "UPDATE HMI_Elements SET Xs=-1", "UPDATE HMI_Elements SET GUID=3 WHERE ID=1",
                "UPDATE HMI_Elements SET Type=9, OrderIndex=3 WHERE ID=2",
                "INSERT INTO HMI_Operands VALUES (4, 1, 10, 0, 2)"}),
      (Lines{
          "page 3, row 2: there is no class of element type 9",
          "page 3, row 3 (clsRectangle): GroupID 9 names no row; -1 or the ID of a group of its page was "
          "expected",
          "page 3, row 3 (clsRectangle): lies wholly off the page, at (-1, 1) with size (1, 1); a place on "
          "320 "
          "by 240 pixels was expected",
          "page 12, row 1 (clsRectangle): GUID 3 is that of row 3, too; a number of its own was expected",
          "page 12, row 1 (clsRectangle): lies wholly off the page, at (-1, 1) with size (1, 1); a place on "
          "320 by 240 pixels was expected",
          "HMI_Operands, row 1 (MB 10, eOP_TouchOperand): ElementID 4 names no row; the ID of a row of "
          "HMI_Elements was expected"}));
}

TEST_F(ProjectChecks, SettingsWithWhichNoElementCanBeMadeAreToldAtEachRow) {
  Import(PageText(1, {ElementText(1, 2, 30, 40), ElementText(1, 2, 30, 40)}));
  corvane1::LayeredSettings(Platform::Current().heldProject).SetInProject(6000, 6050, "broad");
  Open();
  EXPECT_EQ(Check().findings,
            (Lines{"page 1, row 1: setting 6000/6050: type mismatch: \"broad\" is not a number",
                   "page 1, row 2: setting 6000/6050: type mismatch: \"broad\" is not a number"}));
}

TEST_F(ProjectChecks, WhatIsWrongWithVariablesIsTold) {
  const std::string variable = R"({"class": "clsVar", "VarType": "eVT_ListText", "Dx": 50, "Dy": 20)";
  const std::string touched = variable + R"(, "OperandType": 3, "OperandAddress": 5, "TouchOprndAddr": 4})";
  Import(R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [)" + touched + ", " +
         touched + ", " + variable + "}, " + variable + "}, " + variable + "}]}");
  EXPECT_EQ(Check().findings, Lines());
  EXPECT_EQ(
      Findings({"UPDATE HMI_Elements SET TabIndex=0 WHERE ID=2",
                "DELETE FROM HMI_Operands WHERE OprndPurpose=1",
                "UPDATE HMI_Elements SET Flat3D=4, Alignment=9, FontNumber=77 WHERE ID=2",
                "UPDATE HMI_Elements SET Binary=x'0102' WHERE ID=3",
                "UPDATE HMI_Elements SET DefaultDisplay=2 WHERE ID=4",
                "UPDATE HMI_Elements SET VarType=7 WHERE ID=5"}),
      (Lines{
          "page 1, row 1 (clsVar): OperandAddress 5 has no row in HMI_Operands; one of MW 5 with "
          "eOP_VarLinkOperand was expected",
          "page 1, row 2 (clsVar): TabIndex 0 is that of row 1, too; a place of its own in the tab order was "
          "expected",
          "page 1, row 2 (clsVar): Flat3D is 4; a number from 0 to 3 was expected",
          "page 1, row 2 (clsVar): Alignment is 9; a number from 0 to 8 was expected",
          "page 1, row 2 (clsVar): FontNumber is 77, which the panel does not have; the number of one of its "
          "fonts was expected",
          "page 1, row 2 (clsVar): OperandAddress 5 has no row in HMI_Operands; one of MW 5 with "
          "eOP_VarLinkOperand was expected",
          "page 1, row 3 (clsVar): column 'Binary' of HMI_Elements: not the contents of a property bag: the "
          "bytes end too early",
          "page 1, row 4 (clsVar): property \"DefaultDisplay\" must be the number of a text of the list, 1 "
          "to "
          "1, it is 2",
          "page 1, row 5 (clsVar): property \"VarType\" must be a type that there is a handler for "
          "(eVT_BinaryText, eVT_ListText, eVT_Numeric, eVT_BarGraph, eVT_RangeTexts, eVT_Password, "
          "eVT_DisplayString), it is \"eVT_Timer\""}));
}

TEST_F(ProjectChecks, NothingOfTheProjectChanges) {
  ImportFour();
  Open(corvane1::ProjectMode::ReadOnly);
  EXPECT_EQ(Check().findings, Lines());
}

TEST_F(ProjectChecks, ShowsProgressOnATerminal) {
  ImportFour();
  std::ostringstream out, err;
  CheckProject(Session(), {out, err, true});
  EXPECT_NE(err.str().find("checking [#########################] 100 %"), std::string::npos);
}

}  // namespace
}  // namespace quenzel7::cli
