#include "hosts/cli/page_snapshot.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "tests/hosts/cli/every_kind_element.h"
#include "tests/hosts/cli/snapshots.h"

namespace quenzel7::cli {
namespace {

class PageSnapshotTest : public test::SnapshotTest {};

TEST_F(PageSnapshotTest, HasTheMembersOfAGroupAfterIt) {
  const PageSnapshot page =
      SnapshotOf(List({Line(1), Group(List({Line(2), Group(Line(3)), Line(4)})), Group(""), Line(5)}));
  ASSERT_EQ(page.elements.size(), 8u);
  const auto told = [&page](auto member) {
    std::vector<std::size_t> numbers;
    for (const ElementSnapshot& element : page.elements) numbers.push_back(element.*member);
    return numbers;
  };
  constexpr std::size_t kPage = kNoElement;
  EXPECT_EQ(told(&ElementSnapshot::group),
            (std::vector<std::size_t>{kPage, kPage, 1, 1, 3, 1, kPage, kPage}));
  EXPECT_EQ(told(&ElementSnapshot::place), (std::vector<std::size_t>{1, 2, 1, 2, 1, 3, 3, 4}));
  EXPECT_EQ(told(&ElementSnapshot::inside), (std::vector<std::size_t>{0, 4, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(page.elements[0].elementClass, &clsLine::ClassOf());
  EXPECT_FALSE(page.elements[0].IsGroup());
  EXPECT_TRUE(page.elements[3].IsGroup());
  EXPECT_EQ(page.info.name, "Boiler");
}

TEST_F(PageSnapshotTest, NamesElementsByTheirPlaces) {
  const PageSnapshot page = SnapshotOf(List({Line(1), Group(List({Line(2), Group(Line(3))}))}));
  EXPECT_EQ(page.NameOf(0), "element 1 (clsLine)");
  EXPECT_EQ(page.NameOf(1), "element 2 (clsGroup)");
  EXPECT_EQ(page.NameOf(4), "element 2 (clsGroup), element 2 (clsGroup), element 1 (clsLine)");
}

TEST_F(PageSnapshotTest, ValuesAreThoseOfAPageFile) {
  const PageSnapshot page = SnapshotOf(Line(7, "\"PenStyle\": 1, \"TouchOprndAddr\": 4"));
  const ElementSnapshot& line = page.elements[0];
  ASSERT_EQ(line.properties.size(), line.values.size());
  std::map<std::string_view, std::string> values;
  for (std::size_t at = 0; at < line.values.size(); ++at) values[line.properties[at]] = line.values[at];
  EXPECT_EQ(values["Xs"], "7");
  EXPECT_EQ(values["PenStyle"], "\"ePS_Dash\"");
  EXPECT_EQ(values["TouchOprndAddr"], "4");
  EXPECT_EQ(values.count("ID"), 0u);
  EXPECT_EQ(line.properties[0], "Xs");
}

TEST_F(PageSnapshotTest, TextsThatAreNoUtf8AreShownAllTheSame) {
  const auto element = std::make_shared<test::EveryKindElement>();
  element->Label("a\xff\n");
  const PageSnapshot page = TakeSnapshot({{}, {element}}, {});
  const auto& values = page.elements[0].values;
  EXPECT_EQ(std::count(values.begin(), values.end(), "\"a\xEF\xBF\xBD\\n\""), 1);
}

TEST_F(PageSnapshotTest, OnlyElementsWithARowHaveAnIdentity) {
  const LoadedPage loaded = PageOf(List({Line(1), Line(2), Line(3)}));
  loaded.elements[0]->ID(11);
  loaded.elements[1]->ID(12);
  const PageSnapshot page = TakeSnapshot(loaded, {{11, "5"}, {12, ""}});
  EXPECT_EQ(page.elements[0].identity, "11 5");
  EXPECT_EQ(page.elements[1].identity, "12 ");
  EXPECT_EQ(page.elements[2].identity, std::nullopt);
}

}  // namespace
}  // namespace quenzel7::cli
