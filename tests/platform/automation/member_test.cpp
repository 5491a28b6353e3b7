#include "platform/automation/member.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/platform/automation/sample_object.h"

namespace quenzel7::automation {
namespace {

const Member& Of(std::string_view name) { return *kSampleInterface.Find(name); }

TEST(TypeOf, NamesEveryTypeAndTellsTheKindThatCarriesIt) {
  const struct {
    TypeInfo type;
    const char* name;
    VariantKind kind;
  } kTypes[] = {
      {TypeOf<void>(), "", VariantKind::Empty},
      {TypeOf<bool>(), "Boolean", VariantKind::Boolean},
      {TypeOf<Byte>(), "Byte", VariantKind::Byte},
      {TypeOf<Integer>(), "Integer", VariantKind::Integer},
      {TypeOf<Long>(), "Long", VariantKind::Long},
      {TypeOf<Single>(), "Single", VariantKind::Single},
      {TypeOf<Double>(), "Double", VariantKind::Double},
      {TypeOf<Currency>(), "Currency", VariantKind::Currency},
      {TypeOf<std::string>(), "String", VariantKind::String},
      {TypeOf<std::vector<Byte>>(), "Byte()", VariantKind::Array},
      {TypeOf<std::vector<Long>>(), "Long()", VariantKind::Array},
      {TypeOf<std::vector<std::string>>(), "String()", VariantKind::Array},
      {TypeOf<Variant>(), "Variant", VariantKind::Variant},
      {TypeOf<Object>(), "Object", VariantKind::Object},
      {TypeOf<ObjectRef>(), "Object", VariantKind::Object},
      {TypeOf<Weight>(), "Weight", VariantKind::Object},
      {TypeOf<WeightRef>(), "Weight", VariantKind::Object},
  };
  for (const auto& [type, name, kind] : kTypes) {
    EXPECT_EQ(type.name, name);
    EXPECT_EQ(type.kind, kind) << name;
    EXPECT_EQ(type.enumeration, nullptr) << name;
  }
}

TEST(TypeOf, AnEnumerationCarriesItsMembers) {
  const TypeInfo type = TypeOf<Taste>();
  EXPECT_EQ(type.name, "enTaste");
  EXPECT_EQ(type.kind, VariantKind::Long);
  ASSERT_NE(type.enumeration, nullptr);
  ASSERT_EQ(type.enumeration->members.size(), 2u);
  EXPECT_EQ(type.enumeration->members[1].name, "eTA_Sour");
  EXPECT_EQ(type.enumeration->members[1].value, -2);
}

TEST(Method, DescribesItsArgumentsAndItsResult) {
  const Member& member = Of("Describe");
  EXPECT_TRUE(member.IsMethod());
  EXPECT_EQ(member.get, nullptr);
  EXPECT_EQ(member.put, nullptr);
  EXPECT_EQ(member.putRef, nullptr);
  EXPECT_EQ(member.optional, 0);
  EXPECT_EQ(member.type.name, "Boolean");
  EXPECT_EQ(member.documentation, "Writes back.");
  ASSERT_EQ(member.parameters.size(), 3u);
  EXPECT_EQ(member.parameters[0].type.name, "String");
  EXPECT_FALSE(member.parameters[0].byReference);
  EXPECT_TRUE(member.parameters[1].byReference);
  EXPECT_EQ(member.parameters[2].type.name, "Byte");
  EXPECT_TRUE(member.parameters[2].byReference);
}

TEST(Method, ObjectsAreNeverByReference) {
  for (const Parameter& parameter : Of("Weigh").parameters) {
    EXPECT_EQ(parameter.type.name, "Weight");
    EXPECT_FALSE(parameter.byReference);
  }
}

TEST(Property, HasTheThunksThatItWasGiven) {
  const Member& both = Of("Size");
  EXPECT_FALSE(both.IsMethod());
  EXPECT_NE(both.get, nullptr);
  EXPECT_NE(both.put, nullptr);
  EXPECT_EQ(both.putRef, nullptr);
  EXPECT_FALSE(both.writerFirst);
  EXPECT_EQ(both.mark, Mark::None);
  EXPECT_EQ(both.type.name, "Long");
  EXPECT_EQ(both.documentation, "How big.");
  EXPECT_TRUE(both.parameters.empty());
  EXPECT_EQ(Of("Serial").put, nullptr);
  EXPECT_EQ(Of("Secret").get, nullptr);
}

TEST(Property, KeepsItsMark) {
  EXPECT_EQ(Of("Label").mark, Mark::Identity);
  EXPECT_EQ(Of("Serial").mark, Mark::NotStored);
}

TEST(PutRefProperty, CanBeWrittenByReferenceOnly) {
  const Member& member = Of("Load");
  EXPECT_EQ(member.get, nullptr);
  EXPECT_EQ(member.put, nullptr);
  EXPECT_NE(member.putRef, nullptr);
  EXPECT_EQ(member.type.name, "Weight");
  EXPECT_EQ(member.documentation, "What it carries.");
}

TEST(WriterFirst, ChangesNothingElse) {
  const Member& member = Of("Label");
  EXPECT_TRUE(member.writerFirst);
  EXPECT_NE(member.get, nullptr);
  EXPECT_NE(member.put, nullptr);
}

TEST(LastOptional, SaysWhatStandsForTheArgument) {
  EXPECT_EQ(Of("Advance").optional, 1);
  EXPECT_EQ(Of("Advance").defaults[0], std::optional<Long>(7));
  EXPECT_EQ(Of("Advance").defaults[1], std::nullopt);
  EXPECT_EQ(Of("KindOf").optional, 1);
  EXPECT_EQ(Of("KindOf").defaults[0], std::nullopt);
}

TEST(ParameterNames, AreThoseOfTheListInOrder) {
  using Names = std::vector<std::string_view>;
  const auto namesOf = [](std::string_view list) {
    Member member;
    member.parameterNames = list;
    return member.ParameterNames();
  };
  EXPECT_EQ(namesOf("pX"), Names{"pX"});
  EXPECT_EQ(namesOf("pX, pY,pZ"), (Names{"pX", "pY", "pZ"}));
  EXPECT_EQ(namesOf("(pX, p_Y)"), (Names{"pX", "p_Y"}));
  EXPECT_EQ(namesOf("( pX , pY )"), (Names{"pX", "pY"}));
  EXPECT_EQ(namesOf(""), Names{});
  EXPECT_EQ(namesOf("()"), Names{});
}

static_assert(detail::NamesIn("") == 0);
static_assert(detail::NamesIn("()") == 0);
static_assert(detail::NamesIn("a") == 1);
static_assert(detail::NamesIn("(a)") == 1);
static_assert(detail::NamesIn("a, b") == 2);
static_assert(detail::NamesIn("(a, b,c)") == 3);

constexpr Member SwapNamed(std::string_view names) {
  return Method<Sample, &Sample::Swap>("Swap", "Exchanges.", names);
}

/// Whether an entry for a method of two parameters can stand in a constant table with the first letters of
/// "a, b, c" for names.
template <std::size_t Letters>
concept CanBeTabled = requires {
  typename std::bool_constant<(SwapNamed(std::string_view("a, b, c").substr(0, Letters)), true)>;
};
static_assert(CanBeTabled<0>);
static_assert(!CanBeTabled<1>);
static_assert(CanBeTabled<4>);
static_assert(!CanBeTabled<7>);

TEST(Method, KeepsTheNamesOfItsParameters) {
  EXPECT_EQ(SwapNamed("a, b").parameterNames, "a, b");
  EXPECT_EQ(SwapNamed("(a, b)").ParameterNames(), (std::vector<std::string_view>{"a", "b"}));
  EXPECT_EQ(Of("Heavier").ParameterNames(), std::vector<std::string_view>{});
}

TEST(Method, OfAConstantMethodKeepsTheNamesToo) {
  const Member member = Method<Sample, &Sample::Not>("Not", "The opposite.", "value");
  EXPECT_EQ(member.ParameterNames(), std::vector<std::string_view>{"value"});
}

TEST(Method, RefusesAnotherNumberOfNames) {
  for (const char* names : {"a", "a, b, c", "()"}) {
    try {
      SwapNamed(names);
      ADD_FAILURE() << names;
    } catch (const std::invalid_argument& error) {
      EXPECT_STREQ(error.what(), "each parameter has one name");
    }
  }
}

TEST(Required, CountsTheArgumentsThatCannotBeLeftOut) {
  EXPECT_EQ(Of("Sum").Required(), 3u);
  EXPECT_EQ(Of("Advance").Required(), 1u);
  EXPECT_EQ(Of("Grow").Required(), 0u);
  EXPECT_EQ(Of("Size").Required(), 0u);
}

TEST(StandIn, IsWhatStandsForTheArgumentAtThatPlace) {
  EXPECT_EQ(Of("Grow").StandIn(0), Variant(Long{3}));
  EXPECT_EQ(Of("Grow").StandIn(1), Variant(Long{2}));
  EXPECT_EQ(Of("Advance").StandIn(1), Variant(Long{7}));
  EXPECT_EQ(Of("KindOf").StandIn(0), Variant());
}

TEST(Role, IsNoneUnlessItIsGiven) {
  for (const Member& member : kSampleMembers) EXPECT_EQ(member.role, Role::None) << member.name;
}

TEST(Role, ChangesNothingElse) {
  const Member value = AsValue(Of("Size"));
  EXPECT_EQ(value.role, Role::Value);
  EXPECT_EQ(value.name, "Size");
  EXPECT_EQ(value.get, Of("Size").get);
  EXPECT_EQ(value.put, Of("Size").put);
  const Member enumerator = AsEnumerator(Of("Same"));
  EXPECT_EQ(enumerator.role, Role::Enumerator);
  EXPECT_EQ(enumerator.name, "Same");
  EXPECT_EQ(enumerator.method, Of("Same").method);
}

/// The place of the argument that an action's error tells.
template <class Action>
std::optional<std::size_t> ArgumentOfErrorIn(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.Argument();
  }
  ADD_FAILURE() << "nothing was raised";
  return {};
}

std::optional<std::size_t> ArgumentOfErrorIn(std::string_view method, std::vector<Variant> arguments) {
  Sample sample;
  return ArgumentOfErrorIn([&] { Of(method).method(sample, arguments); });
}

TEST(Thunks, TellWhichArgumentCouldNotBeTaken) {
  EXPECT_EQ(ArgumentOfErrorIn("Sum", {"x", Long{1}, Long{1}}), 0u);
  EXPECT_EQ(ArgumentOfErrorIn("Sum", {Long{1}, "x", Long{1}}), 1u);
  EXPECT_EQ(ArgumentOfErrorIn("Sum", {Long{1}, Long{1}, Long{256}}), 2u);
  EXPECT_EQ(ArgumentOfErrorIn("Swap", {Long{1}, "x"}), 1u);
  EXPECT_EQ(ArgumentOfErrorIn("Weigh", {std::make_shared<Weight>(1), Variant()}), 1u);
  EXPECT_EQ(ArgumentOfErrorIn("Heavier", {std::make_shared<Sample>()}), 0u);
}

TEST(Thunks, TellTheFirstOfSeveralArgumentsThatCouldNotBeTaken) {
  EXPECT_EQ(ArgumentOfErrorIn("Sum", {Long{1}, "x", "y"}), 1u);
}

TEST(Thunks, TellThatTheValueOfAPropertyCouldNotBeTaken) {
  Sample sample;
  EXPECT_EQ(ArgumentOfErrorIn([&] { Of("Size").put(sample, "x"); }), 0u);
  EXPECT_EQ(ArgumentOfErrorIn([&] { Of("Load").putRef(sample, Long{1}); }), 0u);
}

TEST(Thunks, TellNoArgumentWhenTheMemberItselfFails) {
  EXPECT_EQ(ArgumentOfErrorIn("Fail", {Long{1}}), std::nullopt);
}

}  // namespace
}  // namespace quenzel7::automation
