#include "platform/automation/call_by_name.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/collection.h"
#include "tests/platform/automation/sample_object.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

/// Calls a method on the arguments, so that written-back ones can be looked at.
Variant Call(Object& object, std::string_view name, std::vector<Variant>& arguments) {
  return CallByName(object, name, CallKind::Method, arguments);
}

TEST(CallByName, ReadsAndWritesAProperty) {
  Sample sample;
  PutByName(sample, "Size", Long{12});
  EXPECT_EQ(sample.Size(), 12);
  EXPECT_EQ(GetByName(sample, "Size"), Variant(Long{12}));
}

TEST(CallByName, CaseDoesNotMatter) {
  Sample sample;
  PutByName(sample, "sIZE", Long{3});
  EXPECT_EQ(GetByName(sample, "SIZE"), Variant(Long{3}));
  EXPECT_EQ(InvokeByName(sample, "nOT", {true}), Variant(false));
}

TEST(CallByName, ConvertsWhatIsWrittenToTheTypeOfTheProperty) {
  Sample sample;
  PutByName(sample, "Size", "2.5");
  EXPECT_EQ(sample.Size(), 2);
  PutByName(sample, "Label", Long{5});
  EXPECT_EQ(sample.Label(), "5");
  EXPECT_RAISES(94, "invalid use of Null: a number was expected", PutByName(sample, "Size", NullValue{}));
  EXPECT_EQ(sample.Size(), 2);
}

TEST(CallByName, AnEnumerationGoesByItsNumber) {
  Sample sample;
  PutByName(sample, "Flavour", Long{-2});
  EXPECT_EQ(sample.Flavour(), Taste::Sour);
  EXPECT_EQ(GetByName(sample, "Flavour"), Variant(Long{-2}));
  EXPECT_EQ(InvokeByName(sample, "Opposite", {Long{-2}}), Variant(Long{1}));
}

TEST(CallByName, PutGivesBackNothing) {
  Sample sample;
  Variant argument(Long{5});
  EXPECT_EQ(CallByName(sample, "Size", CallKind::Put, Arguments(&argument, 1)), Variant());
  EXPECT_EQ(sample.Size(), 5);
}

TEST(CallByName, PutRefTakesAnObject) {
  Sample sample;
  const auto weight = std::make_shared<Weight>(5);
  Variant argument(weight);
  EXPECT_EQ(CallByName(sample, "Load", CallKind::PutRef, Arguments(&argument, 1)), Variant());
  EXPECT_EQ(sample.Loaded(), weight);
}

TEST(CallByName, PutByNameWritesByReferenceWhereThePropertyTakesItSo) {
  Sample sample;
  const auto weight = std::make_shared<Weight>(5);
  PutByName(sample, "load", weight);
  EXPECT_EQ(sample.Loaded(), weight);
}

TEST(CallByName, PutByNameWritesByValueWhereBothArePossible) {
  Member member = Property<Long>("Both", "", nullptr, AUTOMATION_SETTER(Sample, Long, Size));
  member.putRef = AUTOMATION_SETTER(Sample, Long, Secret);
  const Interface interface("One", std::span(&member, 1));
  Sample sample;
  PutByName(sample, interface, "Both", Long{5});
  EXPECT_EQ(sample.Size(), 5);
}

TEST(CallByName, GoesThroughTheInterfaceThatItIsGiven) {
  Sample sample;
  EXPECT_EQ(GetByName(sample, kSampleShortInterface, "Size"), Variant(Long{4711}));
  EXPECT_EQ(GetByName(sample, "Size"), Variant(Long{1}));
  EXPECT_EQ(InvokeByName(sample, kSampleInterface, "Not", {false}), Variant(true));
  EXPECT_RAISES(383, "SampleShort.Size can be read only",
                PutByName(sample, kSampleShortInterface, "Size", Long{1}));
}

TEST(CallByName, AnUnknownMemberIsToldWithTheNearest) {
  Sample sample;
  EXPECT_RAISES(438, "_Sample.Seize does not exist; nearest is \"Size\"", GetByName(sample, "Seize"));
  EXPECT_RAISES(438, "_Sample.swop does not exist; nearest is \"Swap\"", InvokeByName(sample, "swop"));
  EXPECT_RAISES(438, "_Sample.Labels does not exist; nearest is \"Label\"", PutByName(sample, "Labels", "a"));
}

TEST(CallByName, AnInterfaceWithoutMembersHasNoNearest) {
  Weight weight(1);
  EXPECT_RAISES(438, "Weight.Size does not exist", GetByName(weight, "Size"));
}

TEST(CallByName, AMethodIsNoProperty) {
  Sample sample;
  Variant argument(true);
  const char* const text = "_Sample.Not is a method, not a property";
  EXPECT_RAISES(438, text, GetByName(sample, "not"));
  EXPECT_RAISES(438, text, PutByName(sample, "Not", true));
  EXPECT_RAISES(438, text, CallByName(sample, "Not", CallKind::PutRef, Arguments(&argument, 1)));
}

TEST(CallByName, APropertyIsNoMethod) {
  Sample sample;
  EXPECT_RAISES(438, "_Sample.Size is a property, not a method", InvokeByName(sample, "Size"));
  EXPECT_RAISES(438, "_Sample.Load is a property, not a method", InvokeByName(sample, "Load"));
}

TEST(CallByName, AWriteOnlyPropertyCannotBeRead) {
  Sample sample;
  EXPECT_RAISES(394, "_Sample.Secret can be written only", GetByName(sample, "secret"));
  EXPECT_RAISES(394, "_Sample.Load can be written only", GetByName(sample, "Load"));
  PutByName(sample, "Secret", Long{4});
  EXPECT_EQ(sample.Size(), 8);
}

TEST(CallByName, AReadOnlyPropertyCannotBeWritten) {
  Sample sample;
  Variant argument(Long{1});
  EXPECT_RAISES(383, "_Sample.Serial can be read only", PutByName(sample, "serial", Long{1}));
  EXPECT_RAISES(383, "_Sample.Serial can be read only",
                CallByName(sample, "Serial", CallKind::PutRef, Arguments(&argument, 1)));
  EXPECT_EQ(GetByName(sample, "Serial"), Variant(Long{4711}));
}

TEST(CallByName, TheOtherKindOfWritingIsRefused) {
  Sample sample;
  Variant argument(std::make_shared<Weight>(1));
  EXPECT_RAISES(438, "_Sample.Load takes an object by reference",
                CallByName(sample, "Load", CallKind::Put, Arguments(&argument, 1)));
  EXPECT_RAISES(438, "_Sample.Size takes a value",
                CallByName(sample, "Size", CallKind::PutRef, Arguments(&argument, 1)));
}

TEST(CallByName, TheNumberOfArgumentsOfAPropertyIsChecked) {
  Sample sample;
  std::vector<Variant> two = {Long{1}, Long{2}};
  EXPECT_RAISES(450, "_Sample.Size takes 0 arguments, 2 were given",
                CallByName(sample, "Size", CallKind::Get, two));
  EXPECT_RAISES(450, "_Sample.Size takes 1 arguments, 2 were given",
                CallByName(sample, "Size", CallKind::Put, two));
  EXPECT_RAISES(449, "_Sample.Size takes 1 arguments, 0 were given",
                CallByName(sample, "Size", CallKind::Put));
  EXPECT_RAISES(450, "_Sample.Load takes 1 arguments, 2 were given",
                CallByName(sample, "Load", CallKind::PutRef, two));
  EXPECT_RAISES(449, "_Sample.Load takes 1 arguments, 0 were given",
                CallByName(sample, "Load", CallKind::PutRef));
  EXPECT_EQ(sample.Size(), 1);
}

TEST(CallByName, TheNumberOfArgumentsOfAMethodIsChecked) {
  Sample sample;
  EXPECT_RAISES(449, "_Sample.Sum takes 3 arguments, 2 were given",
                InvokeByName(sample, "sum", {Long{1}, Long{2}}));
  EXPECT_RAISES(450, "_Sample.Sum takes 3 arguments, 4 were given",
                InvokeByName(sample, "Sum", {Long{1}, Long{2}, Long{3}, Long{4}}));
  EXPECT_RAISES(449, "_Sample.Advance takes 1 to 2 arguments, 0 were given", InvokeByName(sample, "Advance"));
  EXPECT_RAISES(450, "_Sample.Advance takes 1 to 2 arguments, 3 were given",
                InvokeByName(sample, "Advance", {Long{1}, Long{2}, Long{3}}));
  EXPECT_RAISES(450, "_Sample.Grow takes 0 to 2 arguments, 3 were given",
                InvokeByName(sample, "Grow", {Long{1}, Long{2}, Long{3}}));
}

TEST(CallByName, ArgumentsGoInInOrderAndConverted) {
  Sample sample;
  EXPECT_EQ(InvokeByName(sample, "Sum", {Long{1}, "2", 3.0}), Variant(Long{10203}));
  EXPECT_RAISES(6, "overflow: 256 does not fit a byte",
                InvokeByName(sample, "Sum", {Long{1}, Long{2}, Long{256}}));
  EXPECT_RAISES(6, "overflow: 32768 does not fit 16 bits",
                InvokeByName(sample, "Sum", {Long{1}, Long{32768}, Long{2}}));
}

TEST(CallByName, ByReferenceArgumentsAreWrittenBack) {
  Sample sample;
  std::vector<Variant> arguments = {Long{1}, "2"};
  EXPECT_EQ(Call(sample, "Swap", arguments), Variant());
  EXPECT_EQ(arguments, (std::vector<Variant>{Long{2}, Long{1}}));
}

TEST(CallByName, OnlyByReferenceArgumentsAreWrittenBack) {
  Sample sample;
  std::vector<Variant> arguments = {Long{123}, Variant(), Variant()};
  EXPECT_EQ(Call(sample, "Describe", arguments), Variant(true));
  EXPECT_EQ(arguments, (std::vector<Variant>{Long{123}, "123!", Byte{4}}));
}

TEST(CallByName, LeftOutArgumentsAreWhatTheTableSays) {
  Sample sample;
  EXPECT_EQ(InvokeByName(sample, "Grow"), Variant(Long{1 + 3 * 2}));
  EXPECT_EQ(InvokeByName(sample, "Grow", {Long{5}}), Variant(Long{7 + 5 * 2}));
  EXPECT_EQ(InvokeByName(sample, "Grow", {Long{1}, Long{100}}), Variant(Long{17 + 100}));
}

TEST(CallByName, ALeftOutArgumentWithoutANumberIsEmpty) {
  Sample sample;
  EXPECT_EQ(InvokeByName(sample, "KindOf"), Variant("Empty"));
  EXPECT_EQ(InvokeByName(sample, "KindOf", {Variant(NullValue{})}), Variant("Null"));
}

TEST(CallByName, ByReferenceArgumentsAreWrittenBackWhenOthersAreLeftOut) {
  Sample sample;
  std::vector<Variant> arguments = {Long{10}};
  Call(sample, "Advance", arguments);
  EXPECT_EQ(arguments, (std::vector<Variant>{Long{17}}));
}

TEST(CallByName, AVariantByReferenceIsTheHostsOwn) {
  Sample sample;
  std::vector<Variant> arguments = {Long{10}};
  Call(sample, "Stamp", arguments);
  EXPECT_EQ(sample.Seen(), arguments.data());
  EXPECT_EQ(arguments[0], Variant("stamped"));
}

TEST(CallByName, ObjectsGoInAsReferences) {
  Sample sample;
  const auto first = std::make_shared<Weight>(4);
  const auto second = std::make_shared<Weight>(7);
  EXPECT_EQ(InvokeByName(sample, "Weigh", {first, second}), Variant(Long{507}));
  EXPECT_EQ(first->grams, 5);
  EXPECT_RAISES(91, "an object was expected and none was given",
                InvokeByName(sample, "Weigh", {first, Variant()}));
  EXPECT_RAISES(13, "type mismatch: an object of class Collection does not fit here",
                InvokeByName(sample, "Weigh", {first, std::make_shared<Collection>()}));
  EXPECT_EQ(first->grams, 5);
}

TEST(CallByName, SharedObjectsMayBeNone) {
  Sample sample;
  const Variant heavier = InvokeByName(sample, "Heavier", {std::make_shared<Weight>(4)});
  EXPECT_EQ(To<WeightRef>(heavier)->grams, 5);
  const Variant none = InvokeByName(sample, "Heavier", {Variant()});
  EXPECT_TRUE(none.IsObject());
  EXPECT_EQ(none.Object(), nullptr);
  const auto object = std::make_shared<Collection>();
  EXPECT_EQ(InvokeByName(sample, "Same", {object}), Variant(object));
}

TEST(CallByName, ResultsHaveTheTypeOfTheMember) {
  Sample sample;
  const std::vector<Byte> bytes = {1, 2, 3};
  const std::vector<Byte> reversed = {3, 2, 1};
  EXPECT_EQ(InvokeByName(sample, "Not", {Long{0}}), Variant(true));
  EXPECT_EQ(InvokeByName(sample, "NextByte", {Long{7}}), Variant(Byte{8}));
  EXPECT_EQ(InvokeByName(sample, "NextInteger", {Long{7}}), Variant(Integer{8}));
  EXPECT_EQ(InvokeByName(sample, "Half", {Long{7}}), Variant(3.5f));
  EXPECT_EQ(InvokeByName(sample, "Third", {Long{9}}), Variant(3.0));
  EXPECT_EQ(InvokeByName(sample, "Cent", {1.5}), Variant(Currency{15100}));
  EXPECT_EQ(InvokeByName(sample, "Reversed", {From(bytes)}), From(reversed));
  EXPECT_EQ(InvokeByName(sample, "Echo", {Variant(NullValue{})}), Variant(NullValue{}));
  EXPECT_EQ(InvokeByName(sample, "Inherited", {Long{7}}), Variant(Long{1007}));
}

TEST(CallByName, ErrorsOfTheMemberPassThroughAndNothingIsWrittenBack) {
  Sample sample;
  std::vector<Variant> arguments = {Long{1}};
  try {
    Call(sample, "Fail", arguments);
    FAIL() << "nothing was raised";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), "failed on purpose");
    EXPECT_EQ(error.Source(), "Sample");
  }
  EXPECT_EQ(arguments[0], Variant(Long{1}));
}

/// The error that an action raises.
template <class Action>
AutomationError ErrorIn(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error;
  }
  ADD_FAILURE() << "nothing was raised";
  return AutomationError(ErrorNumber::Overflow, "none");
}

TEST(CallByName, AnErrorOfItsArgumentsIsOneOfNoArgumentForWhoeverCallsByName) {
  Sample sample;
  const AutomationError ofMethod = ErrorIn([&] { InvokeByName(sample, "Sum", {Long{1}, "x", Long{1}}); });
  EXPECT_EQ(ofMethod.Argument(), std::nullopt);
  EXPECT_EQ(ofMethod.Number(), 13);
  EXPECT_EQ(ofMethod.Description(), "type mismatch: \"x\" is not a number");
  EXPECT_EQ(ofMethod.Source(), "Quenzel7");
  const AutomationError ofProperty = ErrorIn([&] { PutByName(sample, "Size", "x"); });
  EXPECT_EQ(ofProperty.Argument(), std::nullopt);
  EXPECT_EQ(ofProperty.Number(), 13);
}

/// An object without a table of members, which notes the last call.
class LateObject final : public Object {
 public:
  const ClassInfo& Class() const override {
    static const Interface interface("Late", &Call);
    static const Interface* const interfaces[] = {&interface};
    static const ClassInfo info{"Late", interfaces};
    return info;
  }

  std::string name;
  CallKind kind = CallKind::Method;
  std::vector<Variant> arguments;

 private:
  static Variant Call(Object& object, std::string_view name, CallKind kind, Arguments arguments) {
    auto& self = static_cast<LateObject&>(object);
    self.name = name;
    self.kind = kind;
    self.arguments.assign(arguments.begin(), arguments.end());
    if (name == "Fail") throw AutomationError(ErrorNumber::Overflow, "too big", "Host").OfArgument(1);
    for (Variant& argument : arguments) argument = "written back";
    return "result";
  }
};

TEST(LateCall, AnInterfaceHasOneInsteadOfMembers) {
  const Interface& interface = LateObject().Class().Default();
  EXPECT_NE(interface.Late(), nullptr);
  EXPECT_EQ(interface.Name(), "Late");
  EXPECT_TRUE(interface.Members().empty());
  EXPECT_EQ(interface.Find("Fail"), nullptr);
  EXPECT_EQ(kSampleInterface.Late(), nullptr);
}

TEST(LateCall, GetsTheCallAsItIsAndGivesItsResult) {
  LateObject object;
  std::vector<Variant> arguments = {Long{1}, "two"};
  EXPECT_EQ(CallByName(object, "anyNAME", CallKind::Method, arguments), Variant("result"));
  EXPECT_EQ(object.name, "anyNAME");
  EXPECT_EQ(object.kind, CallKind::Method);
  EXPECT_EQ(object.arguments, (std::vector<Variant>{Long{1}, "two"}));
  EXPECT_EQ(arguments, (std::vector<Variant>{"written back", "written back"}));
}

TEST(LateCall, IsToldHowTheMemberIsCalled) {
  LateObject object;
  EXPECT_EQ(GetByName(object, "Value"), Variant("result"));
  EXPECT_EQ(object.kind, CallKind::Get);
  EXPECT_TRUE(object.arguments.empty());
  EXPECT_EQ(InvokeByName(object, "Show", {true}), Variant("result"));
  EXPECT_EQ(object.kind, CallKind::Method);
  PutByName(object, "Value", Long{5});
  EXPECT_EQ(object.kind, CallKind::Put);
  EXPECT_EQ(object.arguments, std::vector<Variant>{Long{5}});
}

TEST(LateCall, AnObjectIsWrittenByReferenceAlsoWhenItIsNone) {
  LateObject object;
  const auto weight = std::make_shared<Weight>(5);
  PutByName(object, "Load", weight);
  EXPECT_EQ(object.kind, CallKind::PutRef);
  EXPECT_EQ(object.arguments, std::vector<Variant>{weight});
  object.kind = CallKind::Get;
  PutByName(object, "Load", ObjectRef());
  EXPECT_EQ(object.kind, CallKind::PutRef);
}

TEST(LateCall, WhatItRaisesPasses) {
  LateObject object;
  const AutomationError error = ErrorIn([&] { InvokeByName(object, "Fail"); });
  EXPECT_EQ(error.Number(), 6);
  EXPECT_EQ(error.Description(), "too big");
  EXPECT_EQ(error.Source(), "Host");
  EXPECT_EQ(error.Argument(), 1u);
}

}  // namespace
}  // namespace quenzel7::automation
