#include "hosts/cli/host_tables.h"

#include <gtest/gtest.h>

#include "hosts/cli/element_calls.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/every_kind_element.h"

namespace quenzel7::cli {
namespace {

using HostPagesTest = test::CliProjectTest;
using HostGroupsTest = test::CliProjectTest;
using HostPropertiesTest = test::CliProjectTest;

TEST_F(HostPagesTest, GiveBackAllThatWasKept) {
  HostPages pages(Connection());
  pages.Create();
  pages.Keep({{4, "Käse's", {3, 480, 272}}, "source 'x'\r\n", "imported"});
  const auto kept = HostPages(Connection()).Find(4);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->info.number, 4);
  EXPECT_EQ(kept->info.name, "Käse's");
  EXPECT_EQ(kept->info.panel, (Panel{3, 480, 272}));
  EXPECT_EQ(kept->source, "source 'x'\r\n");
  EXPECT_EQ(kept->imported, "imported");
}

TEST_F(HostPagesTest, AnotherPageIsNotFound) {
  HostPages pages(Connection());
  EXPECT_FALSE(pages.Find(4));
  pages.Create();
  pages.Keep({{4, "", {}}, "", ""});
  EXPECT_FALSE(pages.Find(5));
}

TEST_F(HostPagesTest, CreatingTwiceKeepsThePages) {
  HostPages pages(Connection());
  pages.Create();
  pages.Keep({{4, "a", {}}, "", ""});
  pages.Create();
  EXPECT_TRUE(pages.Find(4));
}

TEST_F(HostPagesTest, APageTakesThePlaceOfItsNumber) {
  HostPages pages(Connection());
  pages.Create();
  pages.Keep({{4, "a", {}}, "", ""});
  pages.Keep({{5, "b", {}}, "", ""});
  pages.Keep({{4, "c", {}}, "", ""});
  EXPECT_EQ(Rows("SELECT DisplayID, Name FROM HostPages ORDER BY DisplayID", {"DisplayID", "Name"}),
            (std::vector<std::string>{"4 c", "5 b"}));
}

TEST_F(HostPagesTest, AllAreThoseKeptAndThoseThatElementsStandOn) {
  HostPages pages(Connection());
  EXPECT_TRUE(pages.All().empty());
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID, Type) VALUES (9, 1)");
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID, Type) VALUES (2, 1)");
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID, Type) VALUES (2, 1)");
  ASSERT_EQ(pages.All().size(), 2u);
  pages.Create();
  pages.Keep({{2, "two", {1, 128, 64}}, "", ""});
  pages.Keep({{5, "five", {2, 64, 32}}, "", ""});
  const std::vector<PageInfo> all = pages.All();
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].number, 2);
  EXPECT_EQ(all[0].name, "two");
  EXPECT_EQ(all[0].panel, (Panel{1, 128, 64}));
  EXPECT_EQ(all[1].number, 5);
  EXPECT_EQ(all[2].number, 9);
  EXPECT_EQ(all[2].name, "");
  EXPECT_EQ(all[2].panel, (Panel{0, 320, 240}));
}

TEST_F(HostPagesTest, RefuseAPanelOfAnImpossibleSize) {
  HostPages pages(Connection());
  pages.Create();
  const auto error = [&](Long width, Long height) {
    pages.Keep({{4, "", {1, width, height}}, "", ""});
    return test::MessageOf([&] { Session().Do([&] { pages.All(); }); });
  };
  EXPECT_EQ(error(1, 1), "");
  EXPECT_EQ(error(4096, 4096), "");
  const auto wrong = [](const std::string& column, Long size) {
    return "project p.qz7: HostPages, row 1: column '" + column + "' of HostPages: " + std::to_string(size) +
           " was found; a number of pixels from 1 to 4096 was expected";
  };
  EXPECT_EQ(error(0, 1), wrong("Width", 0));
  EXPECT_EQ(error(1, 0), wrong("Height", 0));
  EXPECT_EQ(error(4097, 1), wrong("Width", 4097));
  EXPECT_EQ(error(1, 4097), wrong("Height", 4097));
}

TEST_F(HostPagesTest, ErrorsTellTheColumn) {
  HostPages pages(Connection());
  pages.Create();
  for (const char* column : {"DisplayID", "PanelType", "Width", "Height", "Name"}) {
    Connection().Execute("DELETE * FROM HostPages");
    pages.Keep({{4, "", {}}, "", ""});
    Connection().Execute(std::string("UPDATE HostPages SET ") + column + "=x'ff'");
    EXPECT_EQ(test::MessageOf([&] { Session().Do([&] { pages.All(); }); }),
              std::string("project p.qz7: HostPages, row 1: column '") + column +
                  "' of HostPages: type mismatch: Array where a " +
                  (column == std::string("Name") ? "text" : "number") + " was expected");
  }
}

TEST_F(HostPagesTest, TellWhatAPageIsWithoutPageFile) {
  HostPages pages(Connection());
  pages.Create();
  for (const char* column : {"Source", "Imported"}) {
    pages.Keep({{4, "", {}}, "", ""});
    Connection().Execute(std::string("UPDATE HostPages SET ") + column + "=x'ff'");
    EXPECT_EQ(test::MessageOf([&] { Session().Do([&] { pages.Find(4); }); }),
              std::string("project p.qz7: page 4 of HostPages: column '") + column +
                  "' of HostPages: type mismatch: Array where a text was expected");
  }
}

TEST_F(HostPagesTest, APageFileIsRequiredOfThePage) {
  const std::string place = "page 4 of HostPages: column 'Source' of HostPages";
  const auto error = [](const std::string& source) {
    return test::MessageOf([&] { HostPages::RequireSource({{4, "", {}}, source, ""}); });
  };
  EXPECT_EQ(error(PageText(4, {})), "");
  EXPECT_EQ(error(PageText(5, {})), place + ": holds page 5");
  EXPECT_EQ(error("{}"), place + ": \"page\" is missing");
}

TEST_F(HostPagesTest, HaveRowsThatAreNoPageToo) {
  HostPages pages(Connection());
  EXPECT_FALSE(pages.Has(4));
  pages.Create();
  pages.Keep({{4, "", {1, 0, 0}}, "", ""});
  EXPECT_TRUE(pages.Has(4));
  EXPECT_FALSE(pages.Has(5));
}

TEST_F(HostPagesTest, TellOfAnElementThatStandsOnNoPage) {
  Connection().Execute("INSERT INTO HMI_Elements (Type) VALUES (1)");
  EXPECT_EQ(test::MessageOf([&] { Session().Do([&] { HostPages(Connection()).All(); }); }),
            "project p.qz7: a row of HMI_Elements stands on no page");
}

TEST_F(HostPagesTest, KeptGoesOnAfterARowThatIsNoPage) {
  HostPages pages(Connection());
  const auto tell = [](const std::string& row, const automation::AutomationError& error) {
    ADD_FAILURE() << row << ": " << error.Description();
  };
  EXPECT_TRUE(pages.Kept(tell).empty());
  pages.Create();
  for (const Long number : {7, 3, 5}) pages.Keep({{number, "", {}}, "", ""});
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID, Type) VALUES (9, 1)");
  Connection().Execute("UPDATE HostPages SET Height=4097 WHERE DisplayID=3");
  std::vector<std::string> wrong;
  const std::vector<PageInfo> kept =
      pages.Kept([&wrong](const std::string& row, const automation::AutomationError& error) {
        wrong.push_back(row + ": " + error.Description());
      });
  EXPECT_EQ(wrong, (std::vector<std::string>{
                       "2: column 'Height' of HostPages: 4097 was found; a number of pixels from 1 to 4096 "
                       "was expected"}));
  ASSERT_EQ(kept.size(), 2u);
  EXPECT_EQ(kept[0].number, 5);
  EXPECT_EQ(kept[1].number, 7);
}

TEST_F(HostGroupsTest, KeepThePlaceOfAGroup) {
  HostGroups groups(Connection());
  groups.Create();
  groups.Keep(5, 7);
  groups.Keep(6, 8);
  groups.Keep(5, 9);
  EXPECT_EQ(groups.Find(5), Long{9});
  EXPECT_EQ(HostGroups(Connection()).Find(6), Long{8});
  EXPECT_EQ(groups.Find(7), std::nullopt);
  EXPECT_EQ(Rows("SELECT * FROM HostGroups", {"ElementID"}).size(), 2u);
}

TEST_F(HostGroupsTest, TellThePlaceThatIsNone) {
  HostGroups groups(Connection());
  groups.Create();
  groups.Keep(5, 7);
  Connection().Execute("UPDATE HostGroups SET OrderIndex='low'");
  EXPECT_EQ(test::MessageOf([&] { Session().Do([&] { groups.Find(5); }); }),
            "project p.qz7: column 'OrderIndex' of HostGroups: type mismatch: \"low\" is not a number");
}

TEST_F(HostGroupsTest, AreForgotten) {
  HostGroups groups(Connection());
  groups.Create();
  groups.Keep(5, 7);
  groups.Keep(6, 8);
  groups.Forget(5);
  EXPECT_EQ(groups.Find(5), std::nullopt);
  EXPECT_EQ(groups.Find(6), Long{8});
}

TEST_F(HostGroupsTest, CreatingTwiceKeepsThem) {
  HostGroups groups(Connection());
  groups.Create();
  groups.Keep(5, 7);
  groups.Create();
  EXPECT_EQ(groups.Find(5), Long{7});
}

TEST_F(HostGroupsTest, AProjectOfAnotherHostHasNone) {
  EXPECT_EQ(HostGroups(Connection()).Find(5), std::nullopt);
}

TEST_F(HostPropertiesTest, KeepsWhatTheRowDoesNotAndWhatDiffers) {
  HostProperties properties(Connection());
  properties.Create();
  clsRectangle solid;
  static_cast<ItfHmiElement&>(solid).ID(5);
  solid.FillStyle(eFS_Solid);
  solid.ColorBack(7);
  properties.Keep(solid);
  clsRectangle hollow;
  static_cast<ItfHmiElement&>(hollow).ID(6);
  properties.Keep(hollow);
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"ElementID", "Property", "Value"}),
            (std::vector<std::string>{"5 FillStyle \"eFS_Solid\""}));
}

TEST_F(HostPropertiesTest, AreSetOnTheElementOfTheirRow) {
  HostProperties properties(Connection());
  properties.Create();
  properties.Create();
  clsRectangle solid;
  static_cast<ItfHmiElement&>(solid).ID(5);
  solid.FillStyle(eFS_Solid);
  properties.Keep(solid);
  clsRectangle loaded;
  static_cast<ItfHmiElement&>(loaded).ID(6);
  properties.Apply(loaded);
  EXPECT_EQ(loaded.FillStyle(), eFS_Hollow);
  static_cast<ItfHmiElement&>(loaded).ID(5);
  properties.Apply(loaded);
  EXPECT_EQ(loaded.FillStyle(), eFS_Solid);
}

TEST_F(HostPropertiesTest, AreReplacedAndForgotten) {
  HostProperties properties(Connection());
  properties.Create();
  clsRectangle element;
  static_cast<ItfHmiElement&>(element).ID(5);
  element.FillStyle(eFS_Solid);
  properties.Keep(element);
  properties.Keep(element);
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"ElementID"}), std::vector<std::string>{"5"});
  properties.Forget(6);
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"ElementID"}), std::vector<std::string>{"5"});
  element.FillStyle(eFS_Hollow);
  properties.Keep(element);
  EXPECT_TRUE(Rows("SELECT * FROM HostProperties", {"ElementID"}).empty());
  element.FillStyle(eFS_Solid);
  properties.Keep(element);
  properties.Forget(5);
  EXPECT_TRUE(Rows("SELECT * FROM HostProperties", {"ElementID"}).empty());
}

TEST_F(HostPropertiesTest, TellWhatCannotBeSet) {
  HostProperties properties(Connection());
  properties.Create();
  clsRectangle element;
  static_cast<ItfHmiElement&>(element).ID(5);
  const auto error = [&](const std::string& name, const std::string& value) {
    Connection().Execute("DELETE * FROM HostProperties");
    Connection().Execute("INSERT INTO HostProperties (ElementID, Property, Value) VALUES (5, '" + name +
                         "', '" + value + "')");
    return test::MessageOf([&] { properties.Apply(element); });
  };
  EXPECT_EQ(error("Gone", "1"), "property \"Gone\" in HostProperties: does not exist");
  for (const char* name : {"ID", "Xs", "SaveToDB"}) {
    EXPECT_EQ(error(name, "3"), std::string("property \"") + name +
                                    "\" in HostProperties: cannot be set: it is none of those that are kept "
                                    "there");
  }
  EXPECT_EQ(IdOf(element), 5);
  EXPECT_EQ(
      error("FillStyle", "1.5"),
      "property \"FillStyle\" in HostProperties: must be a member of enFillStyle or a whole number, 1.5 was "
      "given");
  EXPECT_EQ(error("FillStyle", "[").substr(0, 62),
            "property \"FillStyle\" in HostProperties: value, line 1, column ");
  const auto damaged = [&](const std::string& column) {
    error("FillStyle", "1");
    Connection().Execute("UPDATE HostProperties SET " + column + "=x'ff'");
    return test::MessageOf([&] { Session().Do([&] { properties.Apply(element); }); });
  };
  const std::string mismatch = " of HostProperties: type mismatch: Array where a text was expected";
  EXPECT_EQ(damaged("Property"), "project p.qz7: column 'Property'" + mismatch);
  EXPECT_EQ(damaged("Value"), "property \"FillStyle\" in HostProperties: column 'Value'" + mismatch);
}

TEST_F(HostPropertiesTest, AProjectOfAnotherHostHasNone) {
  clsRectangle element;
  HostProperties(Connection()).Apply(element);
  EXPECT_EQ(element.FillStyle(), eFS_Hollow);
}

}  // namespace
}  // namespace quenzel7::cli
