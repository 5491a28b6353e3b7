#include "server/services/late_object.h"

#include "server/services/late_connection.h"
#include "tests/server/services/late_double.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::NullValue;
using automation::ObjectRef;
using automation::Variant;
using Calls = std::vector<std::string>;

/// An object with a table of members.
class Tabled final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "Tabled";

  const automation::ClassInfo& Class() const override;

  Long Sum(Long a, Long b) { return a * 100 + b; }
  std::string Name() const {
    if (name == "438") throw AutomationError(ErrorNumber::NoSuchMember, "from within");
    return name;
  }
  void Name(const std::string& value) { name = value; }

  std::string name = "table";
};

constexpr automation::Member kTabledMembers[] = {
    automation::Method<Tabled, &Tabled::Sum>("Sum", "", "a, b"),
    automation::Property<std::string>("Name", "", AUTOMATION_GETTER(Tabled, Name),
                                      AUTOMATION_SETTER(Tabled, std::string, Name)),
};

const automation::ClassInfo& Tabled::Class() const {
  static const automation::Interface interface("Tabled", kTabledMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces};
  return info;
}

TEST(LateObject, NeedsAnObject) {
  EXPECT_EQ(test::ErrorOf([] { LateObject{nullptr}; }), 91);
  const auto host = NewHostObject();
  EXPECT_EQ(LateObject(host).Ref(), host);
}

TEST(LateObject, CallsMembersOfATable) {
  const auto tabled = std::make_shared<Tabled>();
  const LateObject host(tabled);
  EXPECT_EQ(host.Call<Long>("Sum", {Long{3}, Long{4}}), 304);
  EXPECT_EQ(host.Get<std::string>("Name"), "table");
  host.Put("Name", "new");
  EXPECT_EQ(host.TextIfThere("Name"), "new");
  EXPECT_EQ(host.TextIfThere("Path"), std::nullopt);
  EXPECT_RAISES(438, "Tabled.Path does not exist; nearest is \"Name\"", host.Get("Path"));
  EXPECT_RAISES(438, "Tabled.Sun does not exist; nearest is \"Sum\"", host.Call("Sun"));
}

TEST(LateObject, CallsMembersWithoutATable) {
  const auto late = NewHostObject();
  late->Giving("call Sum", Long{7}).Giving("get Name", "late").Giving("put Name", Variant());
  const LateObject host(late);
  EXPECT_EQ(host.Call<Long>("Sum", {Long{3}, Long{4}}), 7);
  EXPECT_EQ(host.Get<std::string>("Name"), "late");
  host.Put("Name", "new");
  EXPECT_EQ(host.TextIfThere("Name"), "late");
  EXPECT_EQ(late->Take(), (Calls{"call Sum Long:3 Long:4", "get Name", "put Name String:new", "get Name"}));
  EXPECT_EQ(host.TextIfThere("Path"), std::nullopt);
  EXPECT_RAISES(438, "the host's object has no Path", host.Get("Path"));
}

TEST(LateObject, GivesBackWhatACallWrites) {
  const auto late = NewHostObject();
  late->members["call Swap"] = [](automation::Arguments arguments) {
    std::swap(arguments[0], arguments[1]);
    return Variant("swapped");
  };
  Variant arguments[] = {Long{1}, "two"};
  EXPECT_EQ(LateObject(late).Call<std::string>("Swap", automation::Arguments(arguments)), "swapped");
  EXPECT_EQ(arguments[0], Variant("two"));
  EXPECT_EQ(arguments[1], Variant(Long{1}));
}

TEST(LateObject, AnOptionalTextMayBeEmptyOrNull) {
  const auto late = NewHostObject();
  const LateObject host(late);
  late->Giving("get Path", Variant());
  EXPECT_EQ(host.TextIfThere("Path"), std::nullopt);
  late->Giving("get Path", NullValue{});
  EXPECT_EQ(host.TextIfThere("Path"), std::nullopt);
  late->Giving("get Path", "");
  EXPECT_EQ(host.TextIfThere("Path"), "");
  late->Giving("get Path", NewHostObject());
  EXPECT_EQ(test::ErrorOf([&] { host.TextIfThere("Path"); }), 13);
}

TEST(LateObject, AnOptionalTextPassesErrorsUp) {
  const auto late = NewHostObject();
  late->members["get Path"] = [](automation::Arguments) -> Variant {
    throw AutomationError(ErrorNumber::PathNotFound, "no such folder");
  };
  EXPECT_RAISES(76, "no such folder", LateObject(late).TextIfThere("Path"));
  // A table tells what members there are, so that this one comes from within.
  const auto tabled = std::make_shared<Tabled>();
  tabled->name = "438";
  EXPECT_RAISES(438, "from within", LateObject(tabled).TextIfThere("Name"));
}

TEST(LateObject, ErrorsOfTheHostPassUpAsTheyAre) {
  const auto late = NewHostObject();
  late->members["call Sum"] = [](automation::Arguments) -> Variant {
    throw AutomationError(static_cast<ErrorNumber>(4711), "on purpose", "Host.Sum");
  };
  try {
    LateObject(late).Call("Sum");
    FAIL();
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), 4711);
    EXPECT_EQ(error.Description(), "on purpose");
    EXPECT_EQ(error.Source(), "Host.Sum");
  }
}

TEST(LateObject, AResultThatDoesNotFitTellsWhichMemberGaveIt) {
  const auto late = NewHostObject();
  late->Giving("call Sum", "text").Giving("get Count", NewHostObject());
  const LateObject host(late);
  EXPECT_EQ(test::ErrorOf([&] { host.Call<Long>("Sum"); }), 13);
  EXPECT_EQ(test::DescriptionOf([&] { host.Call<Long>("Sum"); }).find("what the host's Sum gave: "), 0u);
  EXPECT_EQ(test::ErrorOf([&] { host.Get<Long>("Count"); }), 13);
  EXPECT_EQ(test::DescriptionOf([&] { host.Get<Long>("Count"); }).find("what the host's Count gave: "), 0u);
  std::vector<Variant> arguments;
  EXPECT_EQ(
      test::DescriptionOf([&] { host.Call<Long>("Sum", arguments); }).find("what the host's Sum gave: "), 0u);
}

TEST(LateObject, LivesWhileItIsCalled) {
  auto late = NewHostObject();
  const std::weak_ptr<LateDouble> watched = late;
  auto host = std::make_unique<LateObject>(std::move(late));
  bool lived = false;
  const LateDouble::Handler letGo = [&](automation::Arguments) {
    host.reset();
    lived = !watched.expired();
    return Variant("5");
  };
  const auto again = [&](const char* member) {
    auto next = NewHostObject();
    next->members[member] = letGo;
    lived = false;
    host = std::make_unique<LateObject>(std::move(next));
  };
  watched.lock()->members["call Sum"] = letGo;
  EXPECT_EQ(host->Call<Long>("Sum"), 5);
  EXPECT_TRUE(lived);
  EXPECT_TRUE(watched.expired());
  again("get Name");
  EXPECT_EQ(host->Get<Long>("Name"), 5);
  again("put Name");
  host->Put("Name", Long{1});
  EXPECT_EQ(host, nullptr);
}

TEST(HostObjectOf, IsTheHostsOwnWhereAnotherStandsForIt) {
  const auto host = NewHostObject();
  EXPECT_EQ(HostObjectOf(std::make_shared<LateConnection>(host)), host);
  const auto connection = std::make_shared<test::EmptyConnection>();
  EXPECT_EQ(HostObjectOf(connection), connection);
  EXPECT_EQ(HostObjectOf(nullptr), nullptr);
}

}  // namespace
}  // namespace quenzel7::server
