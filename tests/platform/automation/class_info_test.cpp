#include "platform/automation/class_info.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/automation/sample_object.h"

namespace quenzel7::automation {
namespace {

Member Named(std::string_view name) {
  Member member;
  member.name = name;
  return member;
}

TEST(EqualFolded, LettersOfBothCasesAreTheSame) {
  EXPECT_TRUE(EqualFolded("abcXYZ", "ABCxyz"));
  EXPECT_TRUE(EqualFolded("", ""));
  EXPECT_TRUE(EqualFolded("Az", "aZ"));
}

TEST(EqualFolded, OtherTextsDiffer) {
  EXPECT_FALSE(EqualFolded("abc", "abd"));
  EXPECT_FALSE(EqualFolded("abc", "ab"));
  EXPECT_FALSE(EqualFolded("ab", "abc"));
  EXPECT_FALSE(EqualFolded("", "a"));
}

TEST(Folded, IsInLowerCaseWhereALetterHasOne) {
  EXPECT_EQ(Folded("AbcZ@[\xC4`{9"), "abcz@[\xC4`{9");
  EXPECT_EQ(Folded(""), "");
}

TEST(EqualFolded, OnlyLettersFold) {
  EXPECT_FALSE(EqualFolded("@", "`"));
  EXPECT_FALSE(EqualFolded("[", "{"));
  EXPECT_FALSE(EqualFolded("\xC4", "\xE4"));
}

TEST(NearestName, TakesTheFewestChanges) {
  EXPECT_EQ(NearestName("PenWidht", {"PenStyle", "PenWidth", "Width"}), "PenWidth");
  EXPECT_EQ(NearestName("olor", {"Colours", "Color", "Door"}), "Color");
  EXPECT_EQ(NearestName("Colorr", {"Colt", "Color", "Co"}), "Color");
  EXPECT_EQ(NearestName("", {"abc", "a", "ab"}), "a");
}

TEST(NearestName, CountsReplacedAddedAndRemovedLettersAlike) {
  // One replaced letter is one change, not a removal and an addition.
  EXPECT_EQ(NearestName("abcd", {"abcdxx", "abxd"}), "abxd");
  EXPECT_EQ(NearestName("abcd", {"wxcd", "abcde"}), "abcde");
  EXPECT_EQ(NearestName("abcd", {"wxcd", "abd"}), "abd");
  EXPECT_EQ(NearestName("kitten", {"sitxing", "sitting"}), "sitting");
}

TEST(NearestName, ALetterMoreInFrontCountsLikeAnyOther) {
  EXPECT_EQ(NearestName("xab", {"xb", "ab"}), "xb");
  EXPECT_EQ(NearestName("xab", {"ab", "xb"}), "ab");
}

TEST(NearestName, CaseIsNoChange) { EXPECT_EQ(NearestName("XS", {"XY", "xs"}), "xs"); }

TEST(NearestName, TheFirstOfEquallyNearOnesWins) {
  EXPECT_EQ(NearestName("Xs", {"Ys", "Xd", "Xe"}), "Ys");
  EXPECT_EQ(NearestName("Xs", {"Xd", "Ys", "Xe"}), "Xd");
}

TEST(NearestName, IsEmptyWithoutNames) { EXPECT_EQ(NearestName("Xs", {}), ""); }

TEST(Interface, FindsMembersWithoutRegardToCase) {
  EXPECT_EQ(kSampleInterface.Find("Size"), &kSampleInterface.Members()[0]);
  EXPECT_EQ(kSampleInterface.Find("sIZE"), &kSampleInterface.Members()[0]);
  EXPECT_EQ(kSampleInterface.Find("inherited"), &kSampleInterface.Members().back());
  EXPECT_EQ(kSampleInterface.Find("Sizes"), nullptr);
  EXPECT_EQ(kSampleInterface.Find(""), nullptr);
}

TEST(Interface, KnowsItsNameAndItsMembersInOrder) {
  EXPECT_EQ(kSampleInterface.Name(), "_Sample");
  ASSERT_EQ(kSampleInterface.Members().size(), std::size(kSampleMembers));
  EXPECT_EQ(kSampleInterface.Members().front().name, "Size");
  EXPECT_EQ(kSampleInterface.Members().back().name, "Inherited");
}

TEST(Interface, WithoutMembersFindsNone) {
  const Interface interface("None", {});
  EXPECT_EQ(interface.Find("Size"), nullptr);
  EXPECT_EQ(interface.Find(""), nullptr);
  EXPECT_TRUE(interface.Slots().empty());
}

TEST(Interface, FindsEveryOneOfManyMembers) {
  std::vector<std::string> names;
  for (int number = 0; number < 1000; ++number) names.push_back("Member" + std::to_string(number));
  std::vector<Member> members;
  for (const std::string& name : names) members.push_back(Named(name));
  const Interface interface("Many", members);
  for (const Member& member : members) EXPECT_EQ(interface.Find(member.name), &member) << member.name;
  for (int number = 1000; number < 3000; ++number) {
    EXPECT_EQ(interface.Find("Member" + std::to_string(number)), nullptr);
  }
}

TEST(Interface, FindsBothMembersOfEveryPairHoweverTheyCollide) {
  std::vector<std::string> names;
  for (char letter = 'a'; letter <= 'z'; ++letter) names.push_back(std::string("Member") + letter);
  for (const std::string& a : names) {
    for (const std::string& b : names) {
      if (a == b) continue;
      const Member members[] = {Named(a), Named(b)};
      const Interface interface("Pair", members);
      ASSERT_EQ(interface.Find(a), &members[0]) << a << " " << b;
      ASSERT_EQ(interface.Find(b), &members[1]) << a << " " << b;
      for (const std::string& other : names) {
        if (other != a && other != b) {
          ASSERT_EQ(interface.Find(other), nullptr) << other;
        }
      }
    }
  }
}

TEST(Interface, SlotsTellEveryMemberInOrder) {
  EXPECT_EQ(kSampleInterface.Slots(), (std::vector<std::string>{
                                          "get Size() As Long",
                                          "put Size(Long)",
                                          "put Label(String)",
                                          "get Label() As String",
                                          "get Flavour() As enTaste",
                                          "put Flavour(enTaste)",
                                          "get Serial() As Long",
                                          "put Secret(Long)",
                                          "putref Load(Weight)",
                                          "call Sum(Long, Integer, Byte) As Long",
                                          "call Swap(ByRef Long, ByRef Long)",
                                          "call Describe(String, ByRef String, ByRef Byte) As Boolean",
                                          "call Grow([Long], [Long]) As Long",
                                          "call KindOf([Variant]) As String",
                                          "call Stamp(ByRef Variant)",
                                          "call Advance(ByRef Long, [Long])",
                                          "call Weigh(Weight, Weight) As Long",
                                          "call Heavier(Weight) As Weight",
                                          "call Same(Object) As Object",
                                          "call Not(Boolean) As Boolean",
                                          "call NextByte(Byte) As Byte",
                                          "call NextInteger(Integer) As Integer",
                                          "call Half(Single) As Single",
                                          "call Third(Double) As Double",
                                          "call Cent(Currency) As Currency",
                                          "call Reversed(Byte()) As Byte()",
                                          "call Echo(Variant) As Variant",
                                          "call Opposite(enTaste) As enTaste",
                                          "call Fail(ByRef Long)",
                                          "call Inherited(Long) As Long",
                                      }));
}

TEST(Interface, SlotsOfAPropertyWithAllThreeAccessors) {
  Member member = Property<Weight>(
      "Load", "", [](Object&) { return Variant(); }, [](Object&, const Variant&) {});
  member.putRef = [](Object&, const Variant&) {};
  EXPECT_EQ(Interface("One", std::span(&member, 1)).Slots(),
            (std::vector<std::string>{"get Load() As Weight", "put Load(Weight)", "putref Load(Weight)"}));
  member.writerFirst = true;
  EXPECT_EQ(Interface("One", std::span(&member, 1)).Slots(),
            (std::vector<std::string>{"putref Load(Weight)", "put Load(Weight)", "get Load() As Weight"}));
}

TEST(Interface, AWriterCanStandBehindTheNextMember) {
  const auto property = [](const char* name) {
    return Property<Long>(
        name, "", [](Object&) { return Variant(); }, [](Object&, const Variant&) {});
  };
  using Slots = std::vector<std::string>;
  const Member beforeProperty[] = {WriterAfterNext(property("A")), property("B"), property("C")};
  EXPECT_EQ(Interface("One", beforeProperty).Slots(),
            (Slots{"get A() As Long", "get B() As Long", "put B(Long)", "put A(Long)", "get C() As Long",
                   "put C(Long)"}));
  const Member beforeMethod[] = {WriterAfterNext(property("A")), Method<Sample, &Sample::Swap>("Swap", "")};
  EXPECT_EQ(Interface("One", beforeMethod).Slots(),
            (Slots{"get A() As Long", "call Swap(ByRef Long, ByRef Long)", "put A(Long)"}));
  const Member last[] = {property("B"), WriterAfterNext(property("A"))};
  EXPECT_EQ(Interface("One", last).Slots(),
            (Slots{"get B() As Long", "put B(Long)", "get A() As Long", "put A(Long)"}));
}

TEST(Interface, AnOptionalByReferenceArgumentStandsInBrackets) {
  const Member member = LastOptional(Method<Sample, &Sample::Swap>("Swap", ""));
  EXPECT_EQ(Interface("One", std::span(&member, 1)).Slots(),
            (std::vector<std::string>{"call Swap(ByRef Long, [ByRef Long])"}));
}

TEST(ClassInfo, TheFirstInterfaceIsTheDefault) { EXPECT_EQ(&Sample().Class().Default(), &kSampleInterface); }

TEST(ClassInfo, FindsInterfacesWithoutRegardToCase) {
  EXPECT_EQ(Sample().Class().FindInterface("sampleshort"), &kSampleShortInterface);
  EXPECT_EQ(Sample().Class().FindInterface("_SAMPLE"), &kSampleInterface);
  EXPECT_EQ(Sample().Class().FindInterface("Sample"), nullptr);
}

TEST(NearestName, CountsAChangedFirstLetterOnce) { EXPECT_EQ(NearestName("ab", {"ba", "xb"}), "xb"); }

TEST(SlotOrder, TellsTheMemberAndTheKindOfCallOfEverySlot) {
  Member member = Property<Weight>(
      "Load", "", [](Object&) { return Variant(); }, [](Object&, const Variant&) {});
  member.putRef = [](Object&, const Variant&) {};
  const Member members[] = {WriterAfterNext(member), Method<Sample, &Sample::Swap>("Swap", "")};
  const Interface interface("Two", members);
  const struct {
    const Member* member;
    CallKind kind;
  } kExpected[] = {{&members[0], CallKind::Get},
                   {&members[0], CallKind::Put},
                   {&members[1], CallKind::Method},
                   {&members[0], CallKind::PutRef}};
  const std::vector<Slot> slots = interface.SlotOrder();
  ASSERT_EQ(slots.size(), std::size(kExpected));
  for (std::size_t place = 0; place < slots.size(); ++place) {
    EXPECT_EQ(slots[place].member, kExpected[place].member) << place;
    EXPECT_EQ(slots[place].kind, kExpected[place].kind) << place;
  }
}

}  // namespace
}  // namespace quenzel7::automation
