#include "server/types/member_ids.h"

#include <gtest/gtest.h>

#include "platform/ado/recordset.h"
#include "platform/automation/collection.h"
#include "shapes/rectangle.h"

namespace quenzel7::server {
namespace {

using automation::Interface;
using automation::Member;

const Interface& CollectionInterface() { return automation::Collection::ClassOf().Default(); }

TEST(MemberIds, CountFromOneInSlotOrder) {
  EXPECT_EQ(MemberId(CollectionInterface(), 0), 1);  // Add
  EXPECT_EQ(MemberId(CollectionInterface(), 1), 2);  // Count
  EXPECT_EQ(MemberId(CollectionInterface(), 3), 4);  // Remove
}

TEST(MemberIds, AMemberWithARoleHasTheNumberThatHostsKnowForIt) {
  EXPECT_EQ(MemberId(CollectionInterface(), 2), DISPID_VALUE);    // Item
  EXPECT_EQ(MemberId(CollectionInterface(), 4), DISPID_NEWENUM);  // _NewEnum
}

TEST(MemberIds, LeadBackToTheMember) {
  const auto members = CollectionInterface().Members();
  EXPECT_EQ(MemberOfId(CollectionInterface(), 1), &members[0]);
  EXPECT_EQ(MemberOfId(CollectionInterface(), 4), &members[3]);
  EXPECT_EQ(MemberOfId(CollectionInterface(), DISPID_VALUE), &members[2]);
  EXPECT_EQ(MemberOfId(CollectionInterface(), DISPID_NEWENUM), &members[4]);
}

TEST(MemberIds, APlaceIsNoNumberOfAMemberWithARole) {
  EXPECT_EQ(MemberOfId(CollectionInterface(), 3), nullptr);
  EXPECT_EQ(MemberOfId(CollectionInterface(), 5), nullptr);
}

TEST(MemberIds, OtherNumbersAreOfNoMember) {
  for (const DISPID id : {-1, -2, -3, -5, 6, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
    EXPECT_EQ(MemberOfId(CollectionInterface(), id), nullptr) << id;
  }
}

TEST(MemberIds, TheLastMemberIsTheLastNumber) {
  const Interface& interface = clsRectangle::ClassOf().Default();
  const auto members = interface.Members();
  const auto last = static_cast<DISPID>(members.size());
  EXPECT_EQ(MemberOfId(interface, last), &members.back());
  EXPECT_EQ(MemberOfId(interface, last + 1), nullptr);
}

TEST(MemberIds, AnInterfaceWithoutSuchARoleHasNoMemberOfThatNumber) {
  EXPECT_EQ(MemberOfId(clsRectangle::ClassOf().Default(), DISPID_VALUE), nullptr);
  EXPECT_EQ(MemberOfId(ado::Recordset::ClassOf().Default(), DISPID_NEWENUM), nullptr);
}

TEST(ParameterIds, CountFromZeroAndAreFoundInAnyCase) {
  const Member& open = *ado::Recordset::ClassOf().Default().Find("Open");
  EXPECT_EQ(ParameterId(open, "source"), 0);
  EXPECT_EQ(ParameterId(open, "CONNECTION"), 1);
  EXPECT_EQ(ParameterId(open, "Options"), 4);
}

TEST(ParameterIds, ANameThatTheMemberDoesNotHaveIsUnknown) {
  const auto& interface = ado::Recordset::ClassOf().Default();
  EXPECT_EQ(ParameterId(*interface.Find("Open"), "sourc"), DISPID_UNKNOWN);
  EXPECT_EQ(ParameterId(*interface.Find("Open"), ""), DISPID_UNKNOWN);
  EXPECT_EQ(ParameterId(*interface.Find("EOF"), "value"), DISPID_UNKNOWN);
}

}  // namespace
}  // namespace quenzel7::server
