#include "server/types/type_catalog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/enums.h"
#include "tests/server/types/further_class.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using Names = std::vector<std::string>;

Names ClassesOf(const TypeCatalog& catalog) {
  Names names;
  for (const auto* info : catalog.classes) names.emplace_back(info->name);
  return names;
}

Names InterfacesOf(const TypeCatalog& catalog) {
  Names names;
  for (const auto* interface : catalog.interfaces) names.emplace_back(interface->Name());
  return names;
}

Names EnumerationsOf(const TypeCatalog& catalog) {
  Names names;
  for (const auto* enumeration : catalog.enumerations) names.emplace_back(enumeration->name);
  return names;
}

TEST(TypeCatalog, HasTheClassesInTheOrderOfTheirTableAndFurtherOnesBehind) {
  std::vector<const automation::ClassInfo*> expected(PublishedClasses().begin(), PublishedClasses().end());
  EXPECT_EQ(TypeCatalog::All().classes, expected);
  expected.push_back(&test::Station::ClassOf());
  EXPECT_EQ(TypeCatalog::All(test::FurtherClasses()).classes, expected);
}

TEST(TypeCatalog, HasEachInterfaceOnceWhereAClassFirstHasIt) {
  EXPECT_EQ(InterfacesOf(TypeCatalog::All(test::FurtherClasses())), (Names{"_clsRectangle",
                                                                           "ItfHmiElement",
                                                                           "_clsEllipse",
                                                                           "_clsRoundRect",
                                                                           "_clsLine",
                                                                           "_clsText",
                                                                           "_clsBitmap",
                                                                           "ItfImage",
                                                                           "_clsButton",
                                                                           "_clsFrame",
                                                                           "_clsGroup",
                                                                           "_clsGrpElmntsSrv",
                                                                           "_clsVarImageElement",
                                                                           "_clsPageImage",
                                                                           "_clsVar",
                                                                           "_clsVarTextElement",
                                                                           "_clsVarBinaryText",
                                                                           "ItfVarBinaryHandler",
                                                                           "_clsVarListText",
                                                                           "_clsVarNumeric",
                                                                           "_clsVarBargraph",
                                                                           "_clsVarRangeText",
                                                                           "_clsVarDisplayString",
                                                                           "clsEnums",
                                                                           "Collection",
                                                                           "PropertyBag",
                                                                           "Connection",
                                                                           "Recordset",
                                                                           "Field",
                                                                           "Operand",
                                                                           "_ImageLibrary",
                                                                           "_Station"}));
}

TEST(TypeCatalog, HasThePublishedEnumerationsAndThenOthersThatMembersTake) {
  Names expected;
  for (const auto* published : clsEnums::Enumerations()) expected.emplace_back(published->name);
  expected.insert(expected.end(), {"CursorType", "LockType", "CommandOption"});
  EXPECT_EQ(EnumerationsOf(TypeCatalog::All()), expected);
  expected.push_back("enWeather");
  EXPECT_EQ(EnumerationsOf(TypeCatalog::All(test::FurtherClasses())), expected);
}

TEST(TypeCatalog, AClassConsistsOfItsInterfacesAndTheEnumerationsOfTheirMembers) {
  EXPECT_EQ(ClassesOf(TypeCatalog::All().Named("quenzel7.CLSLINE")), Names{"clsLine"});
  const TypeCatalog catalog = TypeCatalog::All().Named("RECORDSET");
  EXPECT_EQ(ClassesOf(catalog), Names{"Recordset"});
  EXPECT_EQ(InterfacesOf(catalog), Names{"Recordset"});
  EXPECT_EQ(EnumerationsOf(catalog), (Names{"CursorType", "LockType", "CommandOption"}));
  EXPECT_EQ(InterfacesOf(TypeCatalog::All().Named("clsButton")),
            (Names{"_clsButton", "ItfHmiElement", "ItfImage"}));
}

TEST(TypeCatalog, EnumerationsOfPropertiesCountAsThoseOfParametersDo) {
  EXPECT_EQ(EnumerationsOf(TypeCatalog::All().Named("_clsRectangle")),
            (Names{"enHatchStyle", "enPenStyle", "enFillStyle"}));
}

TEST(TypeCatalog, AnInterfaceConsistsOfItsEnumerations) {
  const TypeCatalog catalog = TypeCatalog::All(test::FurtherClasses()).Named("_station");
  EXPECT_EQ(ClassesOf(catalog), Names{});
  EXPECT_EQ(InterfacesOf(catalog), Names{"_Station"});
  EXPECT_EQ(EnumerationsOf(catalog), Names{"enWeather"});
}

TEST(TypeCatalog, AnEnumerationIsByItself) {
  const TypeCatalog catalog = TypeCatalog::All().Named("envartype");
  EXPECT_EQ(ClassesOf(catalog), Names{});
  EXPECT_EQ(InterfacesOf(catalog), Names{});
  EXPECT_EQ(EnumerationsOf(catalog), Names{"enVarType"});
}

TEST(TypeCatalog, TheClassOfEnumerationsConsistsOfThoseThatItPublishes) {
  const TypeCatalog catalog = TypeCatalog::All().Named("clsEnums");
  EXPECT_EQ(ClassesOf(catalog), Names{"clsEnums"});
  EXPECT_EQ(catalog.enumerations.size(), clsEnums::Enumerations().size());
}

TEST(TypeCatalog, ANameOfAClassAndAnInterfaceIsTheClass) {
  EXPECT_EQ(ClassesOf(TypeCatalog::All().Named("ItfHmiElement")), Names{"ItfHmiElement"});
}

TEST(TypeCatalog, AnUnknownNameIsToldWithTheNearestOfAll) {
  const TypeCatalog all = TypeCatalog::All();
  const auto expectNearest = [&all](const std::string& name, const std::string& nearest) {
    EXPECT_RAISES(
        5, "there is no class, interface or enumeration \"" + name + "\"; nearest is \"" + nearest + "\"",
        all.Named(name));
  };
  expectNearest("clsRectangel", "clsRectangle");
  expectNearest("_clsFrames", "_clsFrame");
  expectNearest("enVarTypes", "enVarType");
}

}  // namespace
}  // namespace quenzel7::server
