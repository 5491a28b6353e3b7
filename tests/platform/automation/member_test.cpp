#include "platform/automation/member.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quenzel7::automation
