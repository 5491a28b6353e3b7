#include "hosts/cli/element_matching.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/snapshots.h"

namespace quenzel7::cli {
namespace {

class ElementMatchingTest : public test::SnapshotTest {
 protected:
  /// The partners of the elements of a, -1 for none. What stands for b has to answer to it.
  static std::vector<int> Partners(const PageSnapshot& a, const PageSnapshot& b) {
    const ElementMatching matching = MatchElements(a, b);
    EXPECT_EQ(matching.ofA.size(), a.elements.size());
    EXPECT_EQ(matching.ofB.size(), b.elements.size());
    std::vector<int> partners;
    std::size_t pairs = 0;
    for (std::size_t index = 0; index < matching.ofA.size(); ++index) {
      const std::size_t partner = matching.ofA[index];
      partners.push_back(partner == kNoElement ? -1 : static_cast<int>(partner));
      if (partner == kNoElement) continue;
      ++pairs;
      EXPECT_EQ(matching.ofB.at(partner), index);
    }
    for (const std::size_t partner : matching.ofB) pairs -= partner != kNoElement;
    EXPECT_EQ(pairs, 0u);
    return partners;
  }
  static std::vector<int> Partners(const std::string& a, const std::string& b) {
    return Partners(SnapshotOf(a), SnapshotOf(b));
  }
  /// Gives the elements ID and GUID.
  static PageSnapshot With(PageSnapshot page, const std::vector<std::string>& identities) {
    for (std::size_t index = 0; index < identities.size(); ++index)
      page.elements[index].identity = identities[index];
    return page;
  }
};

using Indexes = std::vector<int>;

/// A value in so many properties of a line that none of another value is like it.
std::string Far(int value) {
  const std::string text = std::to_string(value);
  std::string more;
  for (const char* name : {"Ys", "Dx", "Dy", "ColorFore", "PenWidth", "VisibleOpAddr", "ColorForeTouch",
                           "ColorBackTouch", "ColorBack"}) {
    more += (more.empty() ? "\"" : ", \"") + std::string(name) + "\": " + text;
  }
  return more;
}

TEST_F(ElementMatchingTest, EmptyPagesHaveNothingToMatch) {
  EXPECT_EQ(Partners("", ""), Indexes());
  EXPECT_EQ(Partners("", Line(1)), Indexes());
  EXPECT_EQ(Partners(Line(1), ""), (Indexes{-1}));
}

TEST_F(ElementMatchingTest, EqualElementsArePartnersInTheirOrder) {
  EXPECT_EQ(Partners(List({Line(1), Line(2), Line(3)}), List({Line(1), Box(9), Line(2), Line(3)})),
            (Indexes{0, 2, 3}));
}

TEST_F(ElementMatchingTest, OneThatChangedIsThePartnerOfTheNearestOne) {
  EXPECT_EQ(Partners(List({Line(1, "\"PenWidth\": 5"), Line(2)}),
                     List({Line(2, "\"PenWidth\": 2, \"ColorFore\": 8"), Line(1, "\"PenWidth\": 6")})),
            (Indexes{1, 0}));
}

TEST_F(ElementMatchingTest, ElementsOfDifferentClassesAreNoPartners) {
  EXPECT_EQ(Partners(Line(1), Box(1)), (Indexes{-1}));
}

TEST_F(ElementMatchingTest, ElementsThatDifferInMoreThanHalfAreNoPartners) {
  const auto colours = [](int count) {
    const char* const names[] = {
        "Ys", "Dx", "Dy", "ColorFore", "PenWidth", "VisibleOpAddr", "ColorForeTouch", "ColorBackTouch"};
    std::string more;
    for (int at = 0; at < count; ++at) more += std::string(at == 0 ? "\"" : ", \"") + names[at] + "\": 77";
    return more;
  };
  const std::size_t properties = SnapshotOf(Line(1)).elements[0].values.size();
  ASSERT_EQ(properties, 12u);
  EXPECT_EQ(Partners(Line(1), Line(1, colours(6))), (Indexes{0}));
  EXPECT_EQ(Partners(Line(1), Line(1, colours(7))), (Indexes{-1}));
}

TEST_F(ElementMatchingTest, EqualOnesThatMovedArePartners) {
  EXPECT_EQ(Partners(List({Line(1), Line(2), Line(3), Line(4)}), List({Line(4), Line(1), Line(2), Line(3)})),
            (Indexes{1, 2, 3, 0}));
}

TEST_F(ElementMatchingTest, MembersOfEqualGroupsArePartners) {
  EXPECT_EQ(Partners(List({Group(List({Line(1), Group(Line(2))})), Line(3)}),
                     List({Line(4), Group(List({Line(1), Group(Line(2))})), Line(3)})),
            (Indexes{1, 2, 3, 4, 5}));
}

TEST_F(ElementMatchingTest, GroupsWithTheMostInCommonArePartners) {
  const std::string first = Group(List({Line(1), Line(2), Line(3)}));
  const std::string second = Group(List({Box(1), Box(2), Box(3)}));
  EXPECT_EQ(Partners(List({first, second}),
                     List({Group(List({Box(1), Box(2), Line(3)})), Group(List({Line(1), Line(2), Box(3)}))})),
            (Indexes{4, 5, 6, 3, 0, 1, 2, 7}));
}

TEST_F(ElementMatchingTest, AGroupThatWasDraggedIsKnownByTheLookOfItsMembers) {
  const auto pair = [](Long xs) { return Group(List({Line(xs, Far(3)), Line(xs + 5, "\"Dx\": 9")})); };
  const auto other = [](Long xs) { return Group(Box(xs, "\"PenWidth\": 4")); };
  EXPECT_EQ(Partners(List({other(70), pair(10)}), pair(100)), (Indexes{-1, -1, 0, 1, 2}));
}

TEST_F(ElementMatchingTest, AGroupThatWasPaintedAnewIsKnownByTheSpotsOfItsMembers) {
  const auto pair = [](const std::string& more) {
    return Group(Line(4, "\"Ys\": 5, \"Dx\": 6, \"Dy\": 7, " + more));
  };
  EXPECT_EQ(Partners(List({Group(Line(9)), pair("\"ColorFore\": 1")}), pair("\"ColorFore\": 2")),
            (Indexes{-1, -1, 0, 1}));
}

TEST_F(ElementMatchingTest, WhatTwoGroupsHaveNotInCommonKeepsThemApart) {
  const auto group = [](std::initializer_list<int> values) {
    std::vector<std::string> lines;
    for (const int value : values) lines.push_back(Line(value, Far(value)));
    return Group(List(lines));
  };
  EXPECT_EQ(Partners(group({1, 2, 3}), List({group({1, 7, 8}), group({1, 2, 3, 4, 5, 6})})),
            (Indexes{4, 5, 6, 7}));
  EXPECT_EQ(Partners(group({1, 2, 3}), List({group({1, 2, 3, 4, 5, 6, 7, 8, 9}), group({1, 2})})),
            (Indexes{10, 11, 12, 3}));
  EXPECT_EQ(Partners(List({group({1, 2, 3, 4, 5, 6, 7, 8, 9}), group({1, 2})}), group({1, 2, 3})),
            (Indexes{-1, -1, -1, 3, -1, -1, -1, -1, -1, -1, 0, 1, 2}));
}

TEST_F(ElementMatchingTest, GroupsWithNothingInCommonAreNoPartners) {
  EXPECT_EQ(Partners(Group(Line(1, Far(1))), Group(Line(2, Far(2)))), (Indexes{-1, -1}));
  EXPECT_EQ(Partners(Group(Line(1)), Group("")), (Indexes{-1, -1}));
}

TEST_F(ElementMatchingTest, AGroupOfSameIdAndGuidIsAPartnerWhateverIsInIt) {
  const PageSnapshot a = With(SnapshotOf(Group(Line(1, Far(1)))), {"7 ", "8 3"});
  EXPECT_EQ(Partners(a, With(SnapshotOf(Group(Line(2, Far(2)))), {"7 ", "9 4"})), (Indexes{0, -1}));
}

TEST_F(ElementMatchingTest, GroupsInGroupsAreMatchedWithinTheirPartners) {
  EXPECT_EQ(Partners(Group(List({Line(1), Group(List({Line(2), Line(3)}))})),
                     Group(List({Line(1), Group(List({Line(2), Line(4)}))}))),
            (Indexes{0, 1, 2, 3, 4}));
}

TEST_F(ElementMatchingTest, AGroupThatMovedIntoAnotherIsAPartner) {
  const std::string inner = Group(List({Line(2), Line(3)}));
  EXPECT_EQ(Partners(List({inner, Group(Box(1))}), Group(List({Box(1), inner}))), (Indexes{2, 3, 4, 0, 1}));
}

TEST_F(ElementMatchingTest, AnElementThatMovedIntoAGroupIsAPartner) {
  EXPECT_EQ(Partners(List({Line(1), Group(Box(2))}), Group(List({Box(2), Line(1)}))), (Indexes{2, 0, 1}));
}

TEST_F(ElementMatchingTest, AnEqualOneInAnotherGroupComesBeforeALikeOneInTheSame) {
  EXPECT_EQ(Partners(List({Line(1), Group(Box(2))}), List({Line(3), Group(List({Box(2), Line(1)}))})),
            (Indexes{3, 1, 2}));
}

TEST_F(ElementMatchingTest, AmongEqualOnesThatOfTheSameGroupIsThePartner) {
  // The line of the group has become a box; both lines stand elsewhere in the order.
  EXPECT_EQ(Partners(List({Group(List({Line(1), Box(2), Box(3)})), Line(1), Box(4)}),
                     List({Box(4), Line(1), Group(List({Box(2), Box(3), Line(1)}))})),
            (Indexes{2, 5, 3, 4, 1, 0}));
}

TEST_F(ElementMatchingTest, AmongLikeOnesThatOfTheSameGroupIsThePartner) {
  EXPECT_EQ(Partners(List({Group(List({Box(2), Line(1, "\"PenWidth\": 5")})), Box(4)}),
                     List({Line(1, "\"PenWidth\": 6"),
                           Group(List({Box(2), Line(1, "\"PenWidth\": 7, \"Dx\": 3")})), Box(4)})),
            (Indexes{1, 2, 3, 4}));
}

TEST_F(ElementMatchingTest, ALikeOneInAnotherGroupIsAPartnerWhenThereIsNoOther) {
  EXPECT_EQ(Partners(List({Line(1), Group(Box(2))}), Group(List({Box(2), Line(3)}))), (Indexes{2, 0, 1}));
}

TEST_F(ElementMatchingTest, SameIdAndGuidComeBeforeLikeness) {
  const PageSnapshot a =
      With(SnapshotOf(List({Box(1), Line(1), Line(5, "\"PenWidth\": 5")})), {"1 1", "2 2", "3 3"});
  const std::string changed = List({Box(1), Line(1, "\"PenWidth\": 4"), Line(5, Far(9))});
  EXPECT_EQ(Partners(a, With(SnapshotOf(changed), {"1 1", "2 2", "3 3"})), (Indexes{0, 1, 2}));
  EXPECT_EQ(Partners(a, With(SnapshotOf(changed), {"1 1", "3 3", "2 2"})), (Indexes{0, 2, 1}));
  // Without them, and with other ones, likeness decides.
  EXPECT_EQ(Partners(a, SnapshotOf(changed)), (Indexes{0, 1, -1}));
  EXPECT_EQ(Partners(a, With(SnapshotOf(changed), {"1 1", "2 9", "9 3"})), (Indexes{0, 1, -1}));
}

TEST_F(ElementMatchingTest, IdentitiesThatContradictMostEqualElementsDoNotCount) {
  const auto page = [](int value) { return List({Box(1), Box(2), Box(3), Line(7, Far(value))}); };
  const PageSnapshot a = With(SnapshotOf(page(1)), {"1 1", "2 2", "3 3", "4 4"});
  EXPECT_EQ(Partners(a, With(SnapshotOf(page(2)), {"1 1", "2 2", "9 9", "4 4"})), (Indexes{0, 1, 2, 3}));
  EXPECT_EQ(Partners(a, With(SnapshotOf(page(2)), {"1 1", "8 8", "9 9", "4 4"})), (Indexes{0, 1, 2, -1}));
  const PageSnapshot two = With(SnapshotOf(List({Box(1), Box(2), Line(7, Far(1))})), {"1 1", "2 2", "4 4"});
  EXPECT_EQ(Partners(two, With(SnapshotOf(List({Box(1), Box(2), Line(7, Far(2))})), {"1 1", "8 8", "4 4"})),
            (Indexes{0, 1, 2}));
}

TEST_F(ElementMatchingTest, IdentitiesThatOnlyOnePageHasContradictNothing) {
  const auto page = [](int value) {
    return With(SnapshotOf(List({Box(1), Box(2), Box(3), Line(7, Far(value))})),
                {"1 1", "2 2", "3 3", "4 4"});
  };
  PageSnapshot a = page(1), b = page(2);
  a.elements[1].identity.reset();
  b.elements[2].identity.reset();
  EXPECT_EQ(Partners(a, b), (Indexes{0, 1, 2, 3}));
}

TEST_F(ElementMatchingTest, IdentitiesAreOfTheClass) {
  const PageSnapshot a = With(SnapshotOf(Line(1)), {"1 1"});
  EXPECT_EQ(Partners(a, With(SnapshotOf(Box(1)), {"1 1"})), (Indexes{-1}));
}

/// A page of many lines, each with a colour of its own in so many properties.
std::vector<std::string> Many(int count, Long from, int colour) {
  std::vector<std::string> lines;
  for (int at = 0; at < count; ++at) {
    lines.push_back("{\"class\": \"clsLine\", \"Xs\": " + std::to_string(from + at) +
                    ", \"Ys\": " + std::to_string(from + at) + ", \"Dx\": " + std::to_string(at) +
                    ", \"ColorFore\": " + std::to_string(colour) + "}");
  }
  return lines;
}

TEST_F(ElementMatchingTest, ManyThatChangedAllAreKnownByTheirSpots) {
  const auto before = Many(600, 0, 1);
  auto after = Many(600, 0, 2);
  std::rotate(after.begin(), after.begin() + 100, after.end());
  const auto partners = Partners(List(before), List(after));
  for (int at = 0; at < 600; ++at) ASSERT_EQ(partners[static_cast<std::size_t>(at)], (at + 500) % 600);
}

TEST_F(ElementMatchingTest, ManyThatWereDraggedAreKnownByTheirLook) {
  const auto before = Many(600, 0, 1);
  auto after = Many(600, 1000, 1);
  std::rotate(after.begin(), after.begin() + 100, after.end());
  const auto partners = Partners(List(before), List(after));
  for (int at = 0; at < 600; ++at) ASSERT_EQ(partners[static_cast<std::size_t>(at)], (at + 500) % 600);
}

TEST_F(ElementMatchingTest, ManyOthersAreMatchedInTheirOrder) {
  const auto partners = Partners(List(Many(600, 0, 1)), List(Many(501, 1000, 2)));
  for (int at = 0; at < 600; ++at) ASSERT_EQ(partners[static_cast<std::size_t>(at)], at < 501 ? at : -1);
}

TEST_F(ElementMatchingTest, ManyOfWhichSomeAreKnownLeaveTheRestToTheirOrder) {
  auto after = Many(300, 1000, 1);
  const auto others = Many(600, 2000, 2);
  after.insert(after.end(), others.begin() + 300, others.end());
  const auto partners = Partners(List(Many(600, 0, 1)), List(after));
  for (int at = 0; at < 600; ++at) ASSERT_EQ(partners[static_cast<std::size_t>(at)], at);
}

TEST_F(ElementMatchingTest, ManyThatDifferInMoreThanHalfAreNoPartners) {
  std::vector<std::string> before, after;
  for (int at = 0; at < 600; ++at) {
    before.push_back(Line(at));
    after.push_back(Line(1000 + at, Far(77)));
  }
  EXPECT_EQ(Partners(List(before), List(after)), Indexes(600, -1));
}

TEST_F(ElementMatchingTest, UpTo250000PairsAreComparedEachWithEach) {
  ASSERT_EQ(kMostComparedPairs, 250'000u);
  // Nearest to its partner by Ys and Dx, and known neither by look nor by spot.
  std::vector<std::string> after;
  for (int at = 499; at >= 0; --at) {
    const std::string place = std::to_string(at);
    after.push_back(Line(5000 + at, "\"Ys\": " + place + ", \"Dx\": " + place + ", \"ColorFore\": 2"));
  }
  const auto compared = Partners(List(Many(500, 0, 1)), List(after));
  const auto inOrder = Partners(List(Many(501, 0, 1)), List(after));
  for (int at = 0; at < 500; ++at) {
    ASSERT_EQ(compared[static_cast<std::size_t>(at)], 499 - at);
    ASSERT_EQ(inOrder[static_cast<std::size_t>(at)], at);
  }
  EXPECT_EQ(inOrder[500], -1);
}

TEST_F(ElementMatchingTest, ManyAreKnownByTheirLookBeforeTheirSpots) {
  std::vector<std::string> before, after;
  for (int at = 0; at < 600; ++at) {
    before.push_back(Line(at, "\"ColorFore\": " + std::to_string(at)));
    after.push_back(Line(at, "\"ColorFore\": " + std::to_string((at + 1) % 600)));
  }
  const auto partners = Partners(List(before), List(after));
  for (int at = 0; at < 600; ++at) ASSERT_EQ(partners[static_cast<std::size_t>(at)], (at + 599) % 600);
}

TEST_F(ElementMatchingTest, ManyGroupsThatWereDraggedAreKnownByTheLookOfTheirMembers) {
  const auto groups = [](Long from) {
    std::vector<std::string> all = Many(501, from, 1);
    for (std::string& member : all) member = Group(member);
    return all;
  };
  auto after = groups(1000);
  std::rotate(after.begin(), after.begin() + 100, after.end());
  const auto partners = Partners(List(groups(0)), List(after));
  // Each group with its member right after it.
  for (int at = 0; at < 1002; ++at) {
    ASSERT_EQ(partners[static_cast<std::size_t>(at)], (at + 802) % 1002);
  }
}

}  // namespace
}  // namespace quenzel7::cli
