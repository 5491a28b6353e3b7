#include <gtest/gtest.h>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "shapes/group.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/tree_text.h"

/// Pages with all classes and with groups, brought into projects and loaded again.
namespace quenzel7::cli {
namespace {

class PageImportTest : public test::CliProjectTest {
 protected:
  /// A page with these elements, in no canonical form.
  static std::string Page(const std::string& elements) {
    return R"({"page":1,"panel":{"type":1,"width":320,"height":240},"elements":[)" + elements + "]}";
  }
  std::string Tree() { return test::TreeText(Load().elements); }
  std::vector<std::string> ElementRows() {
    return Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "Type", "GroupID", "OrderIndex"});
  }
  std::size_t ElementCount() { return Rows("SELECT ID FROM HMI_Elements", {"ID"}).size(); }
};

const char* const kNested = R"(
  {"class": "clsGroup"},
  {"class": "clsRoundRect", "Xs": 1},
  {"class": "clsGroup", "elements": [
    {"class": "clsEllipse", "Xs": 2, "FillStyle": "eFS_Solid"},
    {"class": "clsGroup", "elements": [
      {"class": "clsGroup", "elements": []},
      {"class": "clsLine", "Xs": 3}]},
    {"class": "clsRoundRect", "Xs": 4, "VisibleOpAddr": 7}]},
  {"class": "clsGroup", "elements": []},
  {"class": "clsRectangle", "Xs": 5, "TouchOprndAddr": 8})";

const char* const kNestedTree =
    "clsGroup [], clsRoundRect 1, clsGroup [clsEllipse 2, clsGroup [clsGroup [], clsLine 3], clsRoundRect "
    "4], "
    "clsGroup [], clsRectangle 5";

TEST_F(PageImportTest, EveryClassGetsTheOrderOfTheFile) {
  const std::string classes[] = {"clsRoundRect", "clsEllipse", "clsLine", "clsRectangle"};
  std::string elements;
  for (int round = 0; round < 2; ++round) {
    for (const std::string& name : classes) {
      elements += (elements.empty() ? "" : ", ") + (R"({"class": ")" + name + "\"}");
    }
  }
  Import(Page(elements));
  EXPECT_EQ(ElementRows(), (std::vector<std::string>{"1 7 -1 1", "2 6 -1 2", "3 2 -1 3", "4 1 -1 4",
                                                     "5 7 -1 5", "6 6 -1 6", "7 2 -1 7", "8 1 -1 8"}));
}

TEST_F(PageImportTest, MembersAreSavedInDrawingOrderAndGroupsAfterThem) {
  Import(Page(R"({"class": "clsLine"},
      {"class": "clsGroup", "elements": [
        {"class": "clsEllipse"}, {"class": "clsGroup", "elements": [{"class": "clsRoundRect"}]}, {"class": "clsLine"}]},
      {"class": "clsRectangle"})"));
  EXPECT_EQ(
      Rows("SELECT * FROM HMI_Elements WHERE Type<>8 ORDER BY ID", {"ID", "Type", "GroupID", "OrderIndex"}),
      (std::vector<std::string>{"1 2 -1 1", "2 6 6 2", "3 7 4 3", "5 2 6 4", "7 1 -1 5"}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE Type=8 ORDER BY ID", {"ID", "GroupID", "DisplayID"}),
            (std::vector<std::string>{"4 6 1", "6 -1 1"}));
}

TEST_F(PageImportTest, GroupsComeBackWithTheirMembers) {
  Import(Page(kNested));
  EXPECT_EQ(Tree(), kNestedTree);
  Open(corvane1::ProjectMode::ReadOnly);
  EXPECT_EQ(Tree(), kNestedTree);
}

TEST_F(PageImportTest, LoadedGroupsAreAsDeepAsTheyNest) {
  Import(Page(R"({"class": "clsGroup", "elements": [{"class": "clsGroup"}]}, {"class": "clsGroup"})"));
  const LoadedPage page = Load();
  EXPECT_EQ(automation::GetByName(*page.elements.at(0), "Depth"), automation::Variant(Long{2}));
  EXPECT_EQ(automation::GetByName(*page.elements.at(1), "Depth"), automation::Variant(Long{1}));
}

TEST_F(PageImportTest, MembersKeepWhatTheRowDoesNot) {
  Import(Page(kNested));
  const LoadedPage page = Load();
  EXPECT_EQ(MembersOf(*page.elements.at(2)).at(0)->FillStyle(), eFS_Solid);
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"ElementID", "Property"}),
            std::vector<std::string>{"3 FillStyle"});
}

TEST_F(PageImportTest, OnlyGroupsWithoutMembersHaveAKeptPlace) {
  Import(Page(kNested));
  EXPECT_EQ(Rows("SELECT * FROM HostGroups ORDER BY ElementID", {"ElementID", "OrderIndex"}),
            (std::vector<std::string>{"1 1", "4 3", "9 5"}));
}

TEST_F(PageImportTest, MembersGetTheirOperandRows) {
  Import(Page(kNested));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY ElementID", {"ElementID", "OprndAddr", "OprndPurpose"}),
            (std::vector<std::string>{"7 7 5", "10 8 2"}));
}

TEST_F(PageImportTest, ExportGivesTheImportedBytesOfGroups) {
  Import(Page(kNested));
  EXPECT_EQ(Export(), Page(kNested));
  Open(corvane1::ProjectMode::ReadOnly);
  EXPECT_EQ(Export(), Page(kNested));
}

TEST_F(PageImportTest, TheCanonicalFormOfGroupsSaysTheSame) {
  Import(Page(kNested));
  LoadedPage page = Load();
  const std::string canonical = CanonicalPageText(page.info, page.elements);
  Import(canonical);
  EXPECT_EQ(Tree(), kNestedTree);
  EXPECT_EQ(Export(), canonical);
  page = Load();
  EXPECT_EQ(CanonicalPageText(page.info, page.elements), canonical);
}

TEST_F(PageImportTest, AChangedMemberIsAnEdit) {
  Import(Page(kNested));
  Connection().Execute("UPDATE HMI_Elements SET Ys=9 WHERE ID=5");
  EXPECT_NE(Export(), Page(kNested));
}

TEST_F(PageImportTest, AnotherGroupIsAnEdit) {
  Import(Page(kNested));
  Connection().Execute("UPDATE HMI_Elements SET GroupID=-1 WHERE ID=5");
  EXPECT_NE(Export(), Page(kNested));
  EXPECT_EQ(Tree(),
            "clsGroup [], clsRoundRect 1, clsGroup [clsEllipse 2, clsGroup [clsGroup []], clsRoundRect 4], "
            "clsLine 3, clsGroup [], clsRectangle 5");
}

TEST_F(PageImportTest, ReplacingAPageDeletesGroupsAndMembersOnce) {
  Import(Page(kNested));
  const ImportResult result = Import(Page(R"({"class": "clsLine"})"));
  EXPECT_TRUE(result.replaced);
  EXPECT_EQ(result.elementsBefore, 10u);
  EXPECT_EQ(ElementRows(), std::vector<std::string>{"11 2 -1 1"});
  for (const char* table : {"HMI_Operands", "HostProperties", "HostGroups"}) {
    EXPECT_TRUE(Rows(std::string("SELECT ElementID FROM ") + table, {"ElementID"}).empty()) << table;
  }
}

TEST_F(PageImportTest, ReplacingAPageTakesElementsOfDamagedGroupsToo) {
  Import(Page(kNested));
  // The inner group lies in itself, and a member's group is gone.
  Connection().Execute("UPDATE HMI_Elements SET GroupID=6 WHERE ID=6");
  Connection().Execute("UPDATE HMI_Elements SET GroupID=99 WHERE ID=3");
  EXPECT_EQ(Import(Page("")).elementsBefore, 10u);
  EXPECT_EQ(ElementCount(), 0u);
}

class DamagedPage : public PageImportTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(DamagedPage, IsRepairedByReplacingIt) {
  const std::string other =
      R"({"page":2,"panel":{"type":1,"width":9,"height":9},"elements":[{"class":"clsGroup"},
          {"class":"clsEllipse","FillStyle":"eFS_Solid","VisibleOpAddr":7}]})";
  Import(Page(kNested));
  Import(other);
  Connection().Execute(GetParam());
  const ImportResult result = Import(Page(R"({"class": "clsLine", "TouchOprndAddr": 9})"));
  EXPECT_TRUE(result.replaced);
  EXPECT_EQ(result.elementsBefore, 10u);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "Type", "GroupID"}),
            (std::vector<std::string>{"11 8 -1", "12 6 -1", "13 2 -1"}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY ElementID", {"ElementID", "OprndAddr", "OprndPurpose"}),
            (std::vector<std::string>{"12 7 5", "13 9 2"}));
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"ElementID"}), std::vector<std::string>{"12"});
  EXPECT_EQ(Rows("SELECT * FROM HostGroups", {"ElementID"}), std::vector<std::string>{"11"});
  EXPECT_EQ(Rows("SELECT * FROM Operands WHERE Address IN (7, 9) ORDER BY Address", {"Address"}),
            (std::vector<std::string>{"7", "9"}));
  EXPECT_EQ(Tree(), "clsLine 0");
  EXPECT_EQ(Export(2), other);
}

INSTANTIATE_TEST_SUITE_P(EveryTable, DamagedPage,
                         ::testing::Values("UPDATE HMI_Elements SET Type=99 WHERE DisplayID=1",
                                           "UPDATE HMI_Elements SET Type=99 WHERE ID IN (1, 3, 10)",
                                           "UPDATE HMI_Elements SET Xs='left' WHERE ID=7",
                                           "UPDATE HMI_Elements SET GUID=Null WHERE DisplayID=1",
                                           "UPDATE HMI_Elements SET GUID=x'00ff' WHERE ID=7",
                                           "UPDATE HMI_Elements SET ID=-1 WHERE ID=8",
                                           "UPDATE HMI_Elements SET ID=5000000000 WHERE ID=5",
                                           "UPDATE HostGroups SET OrderIndex=x'ff' WHERE ElementID=1",
                                           "UPDATE HostPages SET Width=0 WHERE DisplayID=1",
                                           "UPDATE HostPages SET Source=x'ff' WHERE DisplayID=1",
                                           "INSERT INTO HostProperties VALUES (10, 'Nope', '1')",
                                           "INSERT INTO HostProperties VALUES (10, 'ID', '3')",
                                           "INSERT INTO HMI_Operands VALUES (7, 1, Null, 0, 2)"));

TEST_F(PageImportTest, AGroupOnAnotherPageHoldsNothingOfThisOne) {
  Import(Page(R"({"class": "clsGroup", "elements": [{"class": "clsLine", "Xs": 1}]})"));
  Connection().Execute("UPDATE HMI_Elements SET DisplayID=2 WHERE Type=8");
  EXPECT_EQ(Tree(), "clsLine 1");
  EXPECT_EQ(test::TreeText(Load(2).elements), "clsGroup []");
}

TEST_F(PageImportTest, APageOfAnotherHostHasItsGroups) {
  Import(Page(kNested));
  for (const char* table : {"HostPages", "HostProperties", "HostGroups"}) {
    Connection().Execute(std::string("DROP TABLE ") + table);
  }
  EXPECT_EQ(Tree(),
            "clsRoundRect 1, clsGroup [clsEllipse 2, clsGroup [clsLine 3, clsGroup []], clsRoundRect 4], "
            "clsRectangle 5, clsGroup [], clsGroup []");
  EXPECT_EQ(Import(Page("")).elementsBefore, 10u);
}

TEST_F(PageImportTest, ErrorsOfMembersNameTheWholePlace) {
  Connection().Execute("INSERT INTO Numbers (Name, Next) VALUES ('GUID', 2147483647)");
  EXPECT_EQ(
      test::MessageOf([this] {
        Import(Page(R"({"class": "clsGroup"}, {"class": "clsGroup", "elements": [{"class": "clsLine"}]})"));
      }),
      "page file x, element 2 (clsGroup), element 1 (clsLine): overflow: 2147483647 + 1 does not fit 32 "
      "bits");
}

/// A page that no page file can describe.
PageFile NestedPage(int groups, PageElement innermost) {
  for (int depth = 0; depth < groups; ++depth) {
    PageElement group{&clsGroup::ClassOf(), {}, {}};
    group.elements.push_back(std::move(innermost));
    innermost = std::move(group);
  }
  PageFile page;
  page.elements.push_back(std::move(innermost));
  return page;
}

TEST_F(PageImportTest, TheLibraryIsAskedWhetherGroupsNestTooDeep) {
  const auto import = [this](int groups) {
    const PageFile page = NestedPage(groups, {&clsRectangle::ClassOf(), {}});
    return test::MessageOf([&] { ImportPage(Session(), page, "", "page file x", NoTerminal()); });
  };
  EXPECT_EQ(import(3), "");
  EXPECT_EQ(import(4), "page file x, element 1 (clsGroup): groups nest at most 3 deep");
  EXPECT_EQ(Tree(), "clsGroup [clsGroup [clsGroup [clsRectangle 0]]]");
}

TEST_F(PageImportTest, AGroupThatRefusesItsMembersIsAnError) {
  const auto messages = std::make_shared<corvane1::CollectedMessages>(nullptr);
  Platform::Current().messageService = messages;
  const automation::Member* touch = clsRectangle::ClassOf().Default().Find("TouchOprndAddr");
  const PageFile page = NestedPage(1, {&clsRectangle::ClassOf(), {{touch, Long{5}}}});
  EXPECT_EQ(test::MessageOf([&] { ImportPage(Session(), page, "", "page file x", NoTerminal()); }),
            "page file x, element 1 (clsGroup): a group holds no touchable element");
  ASSERT_EQ(messages->Shown().size(), 1u);
  EXPECT_EQ(messages->Shown()[0].number, 6);
  EXPECT_EQ(ElementCount(), 0u);
}

TEST_F(PageImportTest, ShowsProgressOverAllElements) {
  std::ostringstream out, err;
  const std::string text = Page(R"({"class": "clsGroup", "elements": [{"class": "clsLine"}]})");
  ImportPage(Session(), ReadPageFile(text, "x"), text, "x", {out, err, true});
  EXPECT_NE(err.str().find("importing [############             ]  50 %"), std::string::npos);
  EXPECT_NE(err.str().find("importing [#########################] 100 %"), std::string::npos);
}

class PageChangeTest : public PageImportTest {
 protected:
  void SetUp() override {
    PageImportTest::SetUp();
    Import(Page(kNested));
    Session().OpenPage(1);
  }
  /// Deletes the first element with that Xs and brings it back.
  void DeleteAndRestore(Long xs) {
    const LoadedPage page = Load();
    WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath&) {
      if (IsGroup(element) || element.Xs() != xs) return;
      DeleteElement(Session(), element);
      RestoreElement(Session(), element);
    });
  }
};

TEST_F(PageChangeTest, SavingAGroupSavesAllThatIsInIt) {
  const LoadedPage page = Load();
  ItfHmiElement& group = *page.elements.at(2);
  WalkElement(group, [](ItfHmiElement& element) {
    element.Ys(77);
    element.FillStyle(eFS_Solid);
  });
  SaveElement(Session(), group);
  EXPECT_EQ(Rows("SELECT ID FROM HMI_Elements WHERE Ys=77", {"ID"}),
            (std::vector<std::string>{"3", "5", "7"}));
  EXPECT_EQ(Rows("SELECT ElementID FROM HostProperties ORDER BY ElementID", {"ElementID"}),
            (std::vector<std::string>{"3", "7"}));
}

TEST_F(PageChangeTest, DeletingAGroupDeletesAllThatIsInIt) {
  const LoadedPage page = Load();
  DeleteElement(Session(), *page.elements.at(2));
  EXPECT_EQ(ElementCount(), 4u);
  EXPECT_EQ(Tree(), "clsGroup [], clsRoundRect 1, clsGroup [], clsRectangle 5");
  EXPECT_TRUE(Rows("SELECT * FROM HostProperties", {"ElementID"}).empty());
  EXPECT_EQ(Rows("SELECT * FROM HostGroups ORDER BY ElementID", {"ElementID"}),
            (std::vector<std::string>{"1", "9"}));
}

TEST_F(PageChangeTest, AnElementOfEveryClassComesBackAtItsPlace) {
  for (const Long xs : {1, 2, 3, 4, 5}) {
    DeleteAndRestore(xs);
    EXPECT_EQ(Tree(), kNestedTree) << xs;
  }
  // In the object as in the row.
  const LoadedPage page = Load();
  ItfHmiElement& ellipse = *MembersOf(*page.elements.at(2)).at(0);
  DeleteElement(Session(), ellipse);
  RestoreElement(Session(), ellipse);
  EXPECT_EQ(ellipse.OrderIndex(), 2);
  EXPECT_EQ(ellipse.GroupID(), 8);
  EXPECT_EQ(ElementCount(), 10u);
  EXPECT_EQ(Export(), Page(kNested));
}

TEST_F(PageChangeTest, AGroupComesBackWithAllThatWasInIt) {
  const LoadedPage page = Load();
  ItfHmiElement& group = *page.elements.at(2);
  DeleteElement(Session(), group);
  RestoreElement(Session(), group);
  EXPECT_EQ(test::TreeText(page.elements), kNestedTree);
  Connection().Execute("DELETE * FROM HMI_Elements WHERE ID IN (1, 9)");
  EXPECT_EQ(Tree(),
            "clsRoundRect 1, clsGroup [clsEllipse 2, clsGroup [clsLine 3, clsGroup []], clsRoundRect 4], "
            "clsRectangle 5");
  EXPECT_EQ(ElementCount(), 8u);
  EXPECT_EQ(Rows("SELECT * FROM HostProperties", {"Property", "Value"}),
            std::vector<std::string>{"FillStyle \"eFS_Solid\""});
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY OprndAddr", {"OprndAddr", "OprndPurpose"}),
            (std::vector<std::string>{"7 5", "8 2"}));
}

}  // namespace
}  // namespace quenzel7::cli
