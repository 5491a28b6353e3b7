#include "server/types/member_lines.h"

#include <gtest/gtest.h>

#include "framework/element_contract.h"
#include "tests/server/types/further_class.h"

namespace quenzel7::server {
namespace {

using automation::CallKind;
using automation::Mark;
using automation::TypeInfo;

/// The line of a member of Station, its fields between bars.
std::vector<std::string> Lines() {
  std::vector<std::string> lines;
  for (const MemberLine& line : MemberLines(test::Station::ClassOf().Default())) {
    lines.push_back(std::to_string(line.id) + "|" + line.slots + "|" + line.calls + "|" + line.signature +
                    "|" + std::string(line.mark) + "|" + std::string(line.documentation));
  }
  return lines;
}

TEST(MemberLines, TellNumberSlotsCallsSignatureMarkAndMeaning) {
  EXPECT_EQ(Lines(), (std::vector<std::string>{
                         "1|1 3|get put|Height As Long|Identity|In metres.",
                         "2|2|get|Now As enWeather|NotStored|Fine | foul.",
                         "3|4|get|Chart As Byte()|NotCarried|A picture.",
                         "4|5 6|putref get|Owner As Object||Whose it is.",
                         "0|7|call|Of(name As String) As Variant||A reading.",
                         "-4|8|get|_NewEnum As Object|Transient|All readings.",
                         "7|9|call|Measure(sky As enWeather, ByRef result As Long, frame As clsRectangle, "
                         "Optional unit As Variant, Optional times As Long = 7)||Measures.",
                     }));
}

TEST(MemberLines, AMethodWithoutParametersHasEmptyParentheses) {
  const auto member = automation::Method<test::Station, &test::Station::NewEnum>("All", "");
  const automation::Interface interface("One", std::span(&member, 1));
  EXPECT_EQ(MemberLines(interface)[0].signature, "All() As Object");
}

TEST(MemberLines, WriteTypesAsTheyAreTold) {
  const auto lines = MemberLines(test::Station::ClassOf().Default(),
                                 [](const TypeInfo& type) { return "<" + std::string(type.name) + ">"; });
  EXPECT_EQ(lines[0].signature, "Height As <Long>");
  EXPECT_EQ(lines[4].signature, "Of(name As <String>) As <Variant>");
}

TEST(MemberLines, AreThereForEveryMemberOfTheContractInOrder) {
  const auto members = ItfHmiElement::InterfaceOf().Members();
  const auto lines = MemberLines(ItfHmiElement::InterfaceOf());
  ASSERT_EQ(lines.size(), members.size());
  for (std::size_t place = 0; place < members.size(); ++place) {
    EXPECT_EQ(lines[place].documentation, members[place].documentation);
  }
}

TEST(CallName, TellsEveryWayToCall) {
  EXPECT_EQ(CallName(CallKind::Get), "get");
  EXPECT_EQ(CallName(CallKind::Put), "put");
  EXPECT_EQ(CallName(CallKind::PutRef), "putref");
  EXPECT_EQ(CallName(CallKind::Method), "call");
}

TEST(MarkName, TellsEveryMark) {
  EXPECT_EQ(MarkName(Mark::None), "");
  EXPECT_EQ(MarkName(Mark::Identity), "Identity");
  EXPECT_EQ(MarkName(Mark::NotStored), "NotStored");
  EXPECT_EQ(MarkName(Mark::NotCarried), "NotCarried");
  EXPECT_EQ(MarkName(Mark::Transient), "Transient");
}

}  // namespace
}  // namespace quenzel7::server
