#include "hosts/cli/group_checks.h"

#include <gtest/gtest.h>

#include "framework/element_types.h"

namespace quenzel7::cli {
namespace {

using Findings = std::map<Long, std::vector<std::string>>;

GroupedRow Single(Long id, std::optional<Long> groupId, std::optional<Long> page = 1) {
  return {id, page, Long{kRectangleElement}, groupId};
}

GroupedRow Group(Long id, std::optional<Long> groupId, std::optional<Long> page = 1) {
  return {id, page, Long{kGroupElement}, groupId};
}

/// Groups in one another, the outermost first, and an element in the innermost one.
std::vector<GroupedRow> Nested(Long depth) {
  std::vector<GroupedRow> rows = {Group(1, -1)};
  for (Long id = 2; id <= depth; ++id) rows.push_back(Group(id, id - 1));
  rows.push_back(Single(depth + 1, depth));
  return rows;
}

const std::string kExpected = "; -1 or the ID of a group of its page was expected";

TEST(GroupChecks, NothingIsWrongWithMembersOfGroupsOfTheirPage) {
  EXPECT_EQ(CheckGroups({}), Findings());
  EXPECT_EQ(CheckGroups({Single(1, -1), Single(2, 3), Group(3, 4), Group(4, -1), Group(5, 4), Group(6, -1)}),
            Findings());
}

TEST(GroupChecks, AGroupIdHasToNameARow) {
  EXPECT_EQ(
      CheckGroups({Single(1, 7), Group(2, 0)}),
      (Findings{{1, {"GroupID 7 names no row" + kExpected}}, {2, {"GroupID 0 names no row" + kExpected}}}));
  EXPECT_EQ(CheckGroups({Single(1, -2)}), (Findings{{1, {"GroupID -2 names no row" + kExpected}}}));
}

TEST(GroupChecks, AGroupIdHasToNameAGroup) {
  EXPECT_EQ(CheckGroups({Single(1, -1), Single(2, 1), {3, 1, {}, -1}, Single(4, 3)}),
            (Findings{{2, {"GroupID 1 names row 1, which is no group" + kExpected}},
                      {4, {"GroupID 3 names row 3, which is no group" + kExpected}}}));
}

TEST(GroupChecks, AnElementThatIsNoGroupIsNotItsOwnGroup) {
  EXPECT_EQ(CheckGroups({Single(1, 1)}),
            (Findings{{1, {"GroupID 1 names row 1, which is no group" + kExpected}}}));
}

TEST(GroupChecks, AGroupIdHasToNameAGroupOfTheSamePage) {
  EXPECT_EQ(CheckGroups({Single(1, 2), Group(2, -1, 5)}),
            (Findings{{1, {"GroupID 2 names row 2, a group on page 5" + kExpected}}}));
}

TEST(GroupChecks, RowsThatAreOnNoPageAreNotComparedByIt) {
  EXPECT_EQ(CheckGroups({Single(1, 2, std::nullopt), Group(2, -1, 5)}), Findings());
  EXPECT_EQ(CheckGroups({Single(1, 2), Group(2, -1, std::nullopt)}), Findings());
}

TEST(GroupChecks, AGroupIdThatIsNoNumberIsNoneOfItsAffairs) {
  EXPECT_EQ(CheckGroups({Single(1, std::nullopt), Group(2, std::nullopt)}), Findings());
}

TEST(GroupChecks, ThreeGroupsInOneAnotherAreAllowed) { EXPECT_EQ(CheckGroups(Nested(3)), Findings()); }

TEST(GroupChecks, MoreAreToldAtTheOutermostOne) {
  EXPECT_EQ(CheckGroups(Nested(4)), (Findings{{1, {"groups are nested 4 deep; at most 3 was expected"}}}));
  EXPECT_EQ(CheckGroups(Nested(9)), (Findings{{1, {"groups are nested 9 deep; at most 3 was expected"}}}));
}

TEST(GroupChecks, TheDeepestBranchCounts) {
  for (const Long shallow : {10, 30}) {
    std::vector<GroupedRow> rows = {Group(20, -1), Group(21, 20), Group(22, 21), Group(23, 22)};
    rows.push_back(Group(shallow, 20));
    EXPECT_EQ(CheckGroups(rows), (Findings{{20, {"groups are nested 4 deep; at most 3 was expected"}}}));
  }
}

TEST(GroupChecks, ManyGroupsInOneAnotherAreNoTrouble) {
  EXPECT_EQ(CheckGroups(Nested(100'000)),
            (Findings{{1, {"groups are nested 100000 deep; at most 3 was expected"}}}));
}

TEST(GroupChecks, GroupsInOneAnotherAreToldOnceWithTheirWay) {
  const std::string expected = "; GroupID -1 was expected in one of them";
  EXPECT_EQ(CheckGroups({Group(4, 4)}),
            (Findings{{4, {"groups lie in one another without end, 4 -> 4" + expected}}}));
  EXPECT_EQ(CheckGroups({Group(2, 9), Group(5, 2), Group(9, 5)}),
            (Findings{{2, {"groups lie in one another without end, 2 -> 9 -> 5 -> 2" + expected}}}));
}

TEST(GroupChecks, OfALongCircleBothEndsAreTold) {
  const auto circle = [](Long count) {
    std::vector<GroupedRow> rows;
    for (Long id = 1; id <= count; ++id) rows.push_back(Group(id, id == count ? 1 : id + 1));
    return CheckGroups(rows);
  };
  const std::string start = "groups lie in one another without end, 1 -> 2 -> 3 -> 4 -> 5 -> ";
  const std::string expected = "; GroupID -1 was expected in one of them";
  EXPECT_EQ(circle(9), (Findings{{1, {start + "6 -> 7 -> 8 -> 9 -> 1" + expected}}}));
  EXPECT_EQ(circle(10), (Findings{{1, {start + "(1 more) -> 7 -> 8 -> 9 -> 10 -> 1" + expected}}}));
  EXPECT_EQ(circle(20'000),
            (Findings{{1, {start + "(19991 more) -> 19997 -> 19998 -> 19999 -> 20000 -> 1" + expected}}}));
}

TEST(GroupChecks, EachCircleIsTold) {
  const std::string expected = "; GroupID -1 was expected in one of them";
  EXPECT_EQ(CheckGroups({Group(1, 2), Group(2, 1), Group(3, 3)}),
            (Findings{{1, {"groups lie in one another without end, 1 -> 2 -> 1" + expected}},
                      {3, {"groups lie in one another without end, 3 -> 3" + expected}}}));
}

TEST(GroupChecks, GroupsThatHangInACircleAreNotPartOfIt) {
  EXPECT_EQ(
      CheckGroups({Group(1, 4), Group(2, 1), Group(4, 4)}),
      (Findings{
          {4, {"groups lie in one another without end, 4 -> 4; GroupID -1 was expected in one of them"}}}));
}

TEST(GroupChecks, AGroupOfAnotherPageOwnsNothingHere) {
  // Were the groups of page 2 counted, there would be four in one another.
  const std::vector<GroupedRow> rows = {Group(1, -1, 2), Group(2, 1, 2), Group(3, 2), Group(4, 3)};
  EXPECT_EQ(CheckGroups(rows), (Findings{{3, {"GroupID 2 names row 2, a group on page 2" + kExpected}}}));
}

}  // namespace
}  // namespace quenzel7::cli
