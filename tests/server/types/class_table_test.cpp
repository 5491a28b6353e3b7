#include "server/types/class_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "framework/element_contract.h"
#include "framework/enums.h"
#include "platform/automation/collection.h"
#include "platform/automation/property_bag.h"
#include "server/types/member_ids.h"
#include "shapes/rectangle.h"
#include "variables/binary_handler_contract.h"

namespace quenzel7::server {
namespace {

using automation::ClassInfo;
using automation::Interface;
using automation::Member;
using Names = std::vector<std::string>;

const ClassInfo& Published(std::string_view name) {
  for (const ClassInfo* info : PublishedClasses()) {
    if (info->name == name) return *info;
  }
  throw std::invalid_argument("no class of that name is published");
}

TEST(ClassTable, HoldsTheCreatableClassesAndThenTheOthers) {
  Names names;
  for (const ClassInfo* info : PublishedClasses()) names.emplace_back(info->name);
  EXPECT_EQ(names, (Names{"clsRectangle",
                          "clsEllipse",
                          "clsRoundRect",
                          "clsLine",
                          "clsText",
                          "clsBitmap",
                          "clsButton",
                          "clsFrame",
                          "clsGroup",
                          "clsGrpElmntsSrv",
                          "clsVarImageElement",
                          "clsPageImage",
                          "ItfImage",
                          "clsVar",
                          "clsVarTextElement",
                          "clsVarBinaryText",
                          "clsVarListText",
                          "clsVarNumeric",
                          "clsVarBargraph",
                          "clsVarRangeText",
                          "clsVarDisplayString",
                          "clsEnums",
                          "ItfHmiElement",
                          "ItfVarBinaryHandler",
                          "Collection",
                          "PropertyBag",
                          "Connection",
                          "Recordset",
                          "Field",
                          "Operand",
                          "ImageLibrary"}));
}

TEST(ClassTable, TellsWhichClassesHostsCanCreate) {
  Names names;
  for (const ClassInfo* info : PublishedClasses()) {
    if (IsCreatable(*info)) names.emplace_back(info->name);
  }
  EXPECT_EQ(
      names,
      (Names{"clsRectangle",       "clsEllipse",     "clsRoundRect",  "clsLine",        "clsText",
             "clsBitmap",          "clsButton",      "clsFrame",      "clsGroup",       "clsGrpElmntsSrv",
             "clsVarImageElement", "clsPageImage",   "ItfImage",      "clsVar",         "clsVarTextElement",
             "clsVarBinaryText",   "clsVarListText", "clsVarNumeric", "clsVarBargraph", "clsVarRangeText",
             "clsVarDisplayString"}));
}

TEST(ClassTable, WhatCanBeCreatedIsCreatedAsThatClass) {
  for (const ClassInfo* info : PublishedClasses()) {
    if (!IsCreatable(*info)) continue;
    ASSERT_NE(info->create, nullptr) << info->name;
    EXPECT_EQ(&info->create()->Class(), info) << info->name;
  }
}

TEST(ClassTable, FindsACreatableClassByItsNameInAnyCase) {
  EXPECT_EQ(FindCreatable("clsRectangle"), &clsRectangle::ClassOf());
  EXPECT_EQ(FindCreatable("CLSRECTANGLE"), &clsRectangle::ClassOf());
  EXPECT_EQ(FindCreatable("clsVarDisplayString"), &Published("clsVarDisplayString"));
}

TEST(ClassTable, FindsNoClassThatHostsCannotCreate) {
  for (const char* name : {"clsEnums", "ItfHmiElement", "ItfVarBinaryHandler", "Collection", "PropertyBag",
                           "ImageLibrary", "clsRectangl", "_clsRectangle", ""}) {
    EXPECT_EQ(FindCreatable(name), nullptr) << name;
  }
}

TEST(ClassTable, WhatTheLibraryMakesForItselfIsNotForHostsToCreate) {
  ASSERT_NE(automation::Collection::ClassOf().create, nullptr);
  EXPECT_FALSE(IsCreatable(automation::Collection::ClassOf()));
  ASSERT_NE(automation::PropertyBag::ClassOf().create, nullptr);
  EXPECT_FALSE(IsCreatable(automation::PropertyBag::ClassOf()));
}

TEST(ClassTable, AClassOfTheSameNameThatIsNotPublishedIsNotCreatable) {
  const ClassInfo other = clsRectangle::ClassOf();
  EXPECT_FALSE(IsCreatable(other));
}

TEST(ClassTable, AContractIsAClassThatHasNothingButItself) {
  for (const Interface* contract : {&ItfHmiElement::InterfaceOf(), &ItfVarBinaryHandler::InterfaceOf()}) {
    const ClassInfo& info = Published(contract->Name());
    ASSERT_EQ(info.interfaces.size(), 1u) << info.name;
    EXPECT_EQ(info.interfaces[0], contract) << info.name;
    EXPECT_EQ(info.create, nullptr) << info.name;
  }
}

/// Classes may have a contract each with calls of its own: what hosts see of it is the same.
TEST(ClassTable, NamesStandForOneClassAndOneInterface) {
  std::set<std::string> classes;
  std::map<std::string, const Interface*> interfaces;
  for (const ClassInfo* info : PublishedClasses()) {
    EXPECT_TRUE(classes.insert(automation::Folded(info->name)).second) << info->name;
    for (const Interface* interface : info->interfaces) {
      const Interface& first =
          *interfaces.try_emplace(automation::Folded(interface->Name()), interface).first->second;
      EXPECT_EQ(interface->Name(), first.Name()) << info->name;
      EXPECT_EQ(interface->Slots(), first.Slots()) << info->name;
    }
  }
}

/// Calls the action with every member of every interface that is published.
template <class Action>
void ForEachMember(Action action) {
  for (const ClassInfo* info : PublishedClasses()) {
    for (const Interface* interface : info->interfaces) {
      for (std::size_t place = 0; place < interface->Members().size(); ++place) {
        const Member& member = interface->Members()[place];
        SCOPED_TRACE(std::string(interface->Name()) + '.' + std::string(member.name));
        action(*interface, place, member);
      }
    }
  }
}

TEST(EveryPublishedMember, NamesEachOfItsParametersOnce) {
  ForEachMember([](const Interface&, std::size_t, const Member& member) {
    const auto names = member.ParameterNames();
    EXPECT_EQ(names.size(), member.parameters.size());
    std::set<std::string> unique;
    for (const std::string_view name : names) {
      EXPECT_TRUE(unique.insert(automation::Folded(name)).second) << name;
    }
  });
}

TEST(EveryPublishedMember, HasANameOfItsOwnInItsInterface) {
  ForEachMember([](const Interface& interface, std::size_t, const Member& member) {
    EXPECT_EQ(interface.Find(member.name), &member);
  });
}

TEST(EveryPublishedMember, IsDocumented) {
  ForEachMember([](const Interface&, std::size_t, const Member& member) {
    EXPECT_FALSE(member.documentation.empty());
  });
}

TEST(EveryPublishedMember, IsTheOneThatItsNumberLeadsTo) {
  std::size_t members = 0;
  ForEachMember([&members](const Interface& interface, std::size_t place, const Member& member) {
    EXPECT_EQ(MemberOfId(interface, MemberId(interface, place)), &member);
    ++members;
  });
  EXPECT_GT(members, 1000u);
}

}  // namespace
}  // namespace quenzel7::server
