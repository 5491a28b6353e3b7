#include "hosts/cli/page_tree.h"

#include <gtest/gtest.h>

#include "shapes/group.h"
#include "shapes/line.h"
#include "tests/hosts/cli/tree_text.h"

namespace quenzel7::cli {
namespace {

/// A line with the key and Xs `id`.
PageRow Line(Long id, Long group, Long order) {
  const ElementRef line = std::make_shared<clsLine>();
  line->ID(id);
  line->Xs(id);
  line->GroupID(group);
  return {line, order};
}

PageRow Group(Long id, Long group, std::optional<Long> place = {}) {
  const ElementRef element = std::make_shared<clsGroup>();
  element->ID(id);
  element->GroupID(group);
  return {element, place};
}

std::string TreeText(const std::vector<PageRow>& rows) { return test::TreeText(TreeOf(rows)); }

TEST(PageTree, ElementsWithoutGroupComeInDrawingOrder) {
  EXPECT_EQ(TreeText({Line(1, -1, 3), Line(2, -1, 1), Line(3, -1, 2)}), "clsLine 2, clsLine 3, clsLine 1");
}

TEST(PageTree, ElementsOfOneOrderComeByTheirKeys) {
  EXPECT_EQ(TreeText({Line(3, -1, 1), Line(1, -1, 1), Line(2, -1, 1)}), "clsLine 1, clsLine 2, clsLine 3");
}

TEST(PageTree, MembersComeIntoTheirGroupsInDrawingOrder) {
  EXPECT_EQ(TreeText({Line(1, 9, 4), Line(2, 8, 2), Line(3, 9, 3), Group(8, 9), Group(9, -1)}),
            "clsGroup [clsGroup [clsLine 2], clsLine 3, clsLine 1]");
}

TEST(PageTree, AGroupStandsWhereItsLowestMemberStands) {
  EXPECT_EQ(TreeText({Line(1, -1, 1), Line(2, 9, 2), Line(3, -1, 3), Line(4, 9, 4), Group(9, -1)}),
            "clsLine 1, clsGroup [clsLine 2, clsLine 4], clsLine 3");
  EXPECT_EQ(TreeText({Line(1, -1, 2), Line(2, 8, 1), Group(8, 9), Group(9, -1)}),
            "clsGroup [clsGroup [clsLine 2]], clsLine 1");
}

TEST(PageTree, AnEmptyGroupStandsJustBelowTheElementOfItsPlace) {
  EXPECT_EQ(TreeText({Line(1, -1, 1), Line(2, -1, 2), Group(3, -1, 2)}), "clsLine 1, clsGroup [], clsLine 2");
  EXPECT_EQ(TreeText({Line(1, -1, 1), Group(3, -1, 2)}), "clsLine 1, clsGroup []");
}

TEST(PageTree, EmptyGroupsOfOnePlaceComeByTheirKeys) {
  EXPECT_EQ(TreeText({Line(2, 5, 1), Group(1, 5, 1), Group(4, -1, 2), Group(3, -1, 2), Group(5, -1)}),
            "clsGroup [clsGroup [], clsLine 2], clsGroup [], clsGroup []");
  const std::vector<ElementRef> tree = TreeOf({Group(4, -1, 2), Group(3, -1, 2)});
  EXPECT_EQ(tree.at(0)->ID(), 3);
  EXPECT_EQ(tree.at(1)->ID(), 4);
}

TEST(PageTree, AnEmptyGroupWithoutPlaceLiesOnTop) {
  EXPECT_EQ(TreeText({Group(1, -1), Line(2, -1, 7)}), "clsLine 2, clsGroup []");
}

TEST(PageTree, TheKeptPlaceIsOfNoAccountOnceAGroupHasMembers) {
  EXPECT_EQ(TreeText({Line(1, -1, 1), Line(2, 3, 2), Group(3, -1, 1)}), "clsLine 1, clsGroup [clsLine 2]");
}

TEST(PageTree, GroupsAreAsDeepAsTheyNest) {
  const std::vector<ElementRef> tree = TreeOf({Line(1, 7, 1), Group(7, 8), Group(8, 9), Group(9, -1)});
  EXPECT_EQ(std::dynamic_pointer_cast<clsGroup>(tree.at(0))->Depth(), 3);
}

TEST(PageTree, AnElementWhoseGroupIsNotThereStandsAlone) {
  EXPECT_EQ(TreeText({Line(1, 77, 2), Line(2, -1, 1), Group(3, 78, 3)}), "clsLine 2, clsLine 1, clsGroup []");
}

TEST(PageTree, AnElementWhoseGroupIsNoGroupStandsAlone) {
  EXPECT_EQ(TreeText({Line(1, 2, 1), Line(2, 2, 2)}), "clsLine 1, clsLine 2");
}

TEST(PageTree, WhatIsInNoGroupIsNotInOneThatSaysItIsNoRow) {
  EXPECT_EQ(TreeText({Group(-1, -1), Line(1, -1, 2), Group(4, -1), Line(2, 4, 1)}),
            "clsGroup [clsLine 2], clsLine 1, clsGroup []");
}

TEST(PageTree, GroupsInThemselvesStandAloneWithTheirMembers) {
  EXPECT_EQ(TreeText({Group(1, 1)}), "clsGroup []");
  EXPECT_EQ(TreeText({Group(1, 1), Line(2, 1, 5)}), "clsGroup [clsLine 2]");
  EXPECT_EQ(TreeText({Group(1, 2), Group(2, 3), Group(3, 1), Line(4, 1, 1), Line(5, 2, 3), Line(6, 3, 2)}),
            "clsGroup [clsLine 4], clsGroup [clsLine 6], clsGroup [clsLine 5]");
}

TEST(PageTree, AGroupInAGroupThatIsInItselfStaysThere) {
  for (const bool cycleFirst : {true, false}) {
    std::vector<PageRow> rows = {Group(1, 2), Group(2, 1), Line(4, 3, 2), Line(5, 2, 1)};
    rows.insert(cycleFirst ? rows.end() : rows.begin(), Group(3, 1));
    EXPECT_EQ(TreeText(rows), "clsGroup [clsLine 5], clsGroup [clsGroup [clsLine 4]]");
  }
}

/// Groups 1, 2 ... each in the one before.
std::vector<ElementRef> Chain(Long count) {
  std::vector<PageRow> rows;
  for (Long id = 1; id <= count; ++id) rows.push_back(Group(id, id == 1 ? -1 : id - 1, id));
  return TreeOf(rows);
}

TEST(PageTree, GroupsThatStandTooDeepStandAlone) {
  ASSERT_EQ(Chain(32).size(), 1u);
  EXPECT_EQ(std::dynamic_pointer_cast<clsGroup>(Chain(32)[0])->Depth(), 32);
  const std::vector<ElementRef> cut = Chain(33);
  ASSERT_EQ(cut.size(), 2u);
  EXPECT_EQ(CountElements({cut[0]}), 32u);
  EXPECT_EQ(cut[1]->ID(), 33);
}

TEST(PageTree, NoNestingExhaustsTheStack) {
  constexpr Long kMany = 50'000;
  const std::vector<ElementRef> tree = Chain(kMany);
  EXPECT_EQ(tree.size(), 1563u);
  EXPECT_EQ(CountElements(tree), static_cast<std::size_t>(kMany));
}

TEST(PageTree, AnElementInAGroupAtTheDeepestLevelIsItsMember) {
  std::vector<PageRow> rows;
  for (Long id = 1; id <= 32; ++id) rows.push_back(Group(id, id - 1));
  rows.push_back(Line(40, 32, 1));
  const std::vector<ElementRef> tree = TreeOf(rows);
  ASSERT_EQ(tree.size(), 1u);
  EXPECT_EQ(CountElements(tree), 33u);
}

}  // namespace
}  // namespace quenzel7::cli
