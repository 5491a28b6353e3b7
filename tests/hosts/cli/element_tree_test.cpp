#include "hosts/cli/element_tree.h"

#include <gtest/gtest.h>

#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/support/raises.h"

namespace quenzel7::cli {
namespace {

using GroupRef = std::shared_ptr<clsGroup>;

GroupRef Group(const std::vector<ElementRef>& members) {
  auto group = std::make_shared<clsGroup>();
  for (const ElementRef& member : members) AddMember(*group, member);
  return group;
}

class ElementTree : public ::testing::Test {
 protected:
  const ElementRef line_ = std::make_shared<clsLine>();
  const ElementRef ellipse_ = std::make_shared<clsEllipse>();
  const ElementRef rectangle_ = std::make_shared<clsRectangle>();
  const GroupRef inner_ = Group({ellipse_, rectangle_});
  const GroupRef outer_ = Group({line_, inner_});
};

TEST_F(ElementTree, OnlyTheGroupHoldsElements) {
  EXPECT_TRUE(IsGroupClass(clsGroup::ClassOf()));
  EXPECT_FALSE(IsGroupClass(clsRectangle::ClassOf()));
  EXPECT_TRUE(IsGroup(*inner_));
  EXPECT_FALSE(IsGroup(*line_));
}

TEST_F(ElementTree, TellsHowDeepGroupsNest) { EXPECT_EQ(NestsTooDeep(), "groups nest at most 3 deep"); }

TEST_F(ElementTree, MembersComeInTheirOrder) {
  EXPECT_EQ(MembersOf(*inner_), (std::vector<ElementRef>{ellipse_, rectangle_}));
  EXPECT_EQ(MembersOf(*outer_), (std::vector<ElementRef>{line_, inner_}));
  EXPECT_TRUE(MembersOf(*Group({})).empty());
}

TEST_F(ElementTree, WhatIsNoGroupHasNoMembers) { EXPECT_TRUE(MembersOf(*line_).empty()); }

TEST_F(ElementTree, AMemberStandsUnderTheKeyOfItsObject) {
  EXPECT_EQ(inner_->ColGroup()->Item(clsGroup::KeyOf(*rectangle_)), automation::Variant(rectangle_));
}

TEST_F(ElementTree, AMemberIsAddedOnce) {
  EXPECT_EQ(quenzel7::test::ErrorOf([this] { AddMember(*inner_, ellipse_); }), 457);
  EXPECT_EQ(MembersOf(*inner_).size(), 2u);
}

TEST_F(ElementTree, AGroupIsOneDeeperThanItsDeepestMember) {
  EXPECT_EQ(inner_->Depth(), 1);
  EXPECT_EQ(outer_->Depth(), 2);
  const GroupRef outermost = Group({outer_});
  EXPECT_EQ(outermost->Depth(), 3);
  AddMember(*outermost, Group({}));
  EXPECT_EQ(outermost->Depth(), 3);
}

TEST_F(ElementTree, IsWalkedGroupsBeforeTheirMembers) {
  std::vector<std::pair<ItfHmiElement*, ElementPath>> visited;
  WalkElements(
      {outer_, std::make_shared<clsLine>(), Group({})},
      [&visited](ItfHmiElement& element, const ElementPath& path) { visited.emplace_back(&element, path); });
  ASSERT_EQ(visited.size(), 7u);
  ItfHmiElement* const expected[] = {outer_.get(), line_.get(), inner_.get(), ellipse_.get(),
                                     rectangle_.get()};
  for (std::size_t index = 0; index < std::size(expected); ++index) {
    EXPECT_EQ(visited[index].first, expected[index]) << index;
  }
  const ElementPath paths[] = {{1}, {1, 1}, {1, 2}, {1, 2, 1}, {1, 2, 2}, {2}, {3}};
  for (std::size_t index = 0; index < std::size(paths); ++index) {
    EXPECT_EQ(visited[index].second, paths[index]) << index;
  }
}

TEST_F(ElementTree, OneElementIsWalkedWithAllThatIsInIt) {
  std::vector<ItfHmiElement*> visited;
  WalkElement(*outer_, [&visited](ItfHmiElement& element) { visited.push_back(&element); });
  EXPECT_EQ(visited, (std::vector<ItfHmiElement*>{outer_.get(), line_.get(), inner_.get(), ellipse_.get(),
                                                  rectangle_.get()}));
}

TEST_F(ElementTree, CountsGroupsAndMembers) {
  EXPECT_EQ(CountElements({}), 0u);
  EXPECT_EQ(CountElements({outer_, std::make_shared<clsLine>()}), 6u);
}

}  // namespace
}  // namespace quenzel7::cli
