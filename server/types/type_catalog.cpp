#include "server/types/type_catalog.h"

#include <algorithm>
#include <string>

#include "framework/enums.h"
#include "platform/automation/automation_error.h"
#include "server/types/identifiers.h"

namespace quenzel7::server {
namespace {

using automation::ClassInfo;
using automation::EnumInfo;
using automation::Interface;
using automation::Member;
using automation::Parameter;
using automation::TypeInfo;

std::string_view NameOf(const Interface& interface) { return interface.Name(); }
template <class Type>
std::string_view NameOf(const Type& type) {
  return type.name;
}

template <class Type>
const Type* Find(const std::vector<const Type*>& types, std::string_view name) {
  const auto found = std::find_if(types.begin(), types.end(), [name](const Type* known) {
    return automation::EqualFolded(NameOf(*known), name);
  });
  return found == types.end() ? nullptr : *found;
}

template <class Type>
void AddOnce(std::vector<const Type*>& types, const Type& added) {
  if (!Find(types, NameOf(added))) types.push_back(&added);
}

template <class Type>
void AppendNames(std::vector<std::string_view>& names, const std::vector<const Type*>& types) {
  for (const Type* type : types) names.push_back(NameOf(*type));
}

}  // namespace

void TypeCatalog::AddPublishedEnumerations() {
  for (const EnumInfo* published : clsEnums::Enumerations()) AddOnce(enumerations, *published);
}

void TypeCatalog::Add(const TypeInfo& type) {
  if (type.enumeration) AddOnce(enumerations, *type.enumeration);
}

void TypeCatalog::Add(const Interface& added) {
  AddOnce(interfaces, added);
  for (const Member& member : added.Members()) {
    Add(member.type);
    for (const Parameter& parameter : member.parameters) Add(parameter.type);
  }
}

void TypeCatalog::Add(const ClassInfo& added) {
  classes.push_back(&added);
  for (const Interface* interface : added.interfaces) Add(*interface);
}

TypeCatalog TypeCatalog::All(Classes further) {
  TypeCatalog catalog;
  catalog.AddPublishedEnumerations();
  for (const Classes group : {PublishedClasses(), further}) {
    for (const ClassInfo* info : group) catalog.Add(*info);
  }
  return catalog;
}

TypeCatalog TypeCatalog::Named(std::string_view name) const {
  TypeCatalog named;
  const std::string_view className = ClassOfProgrammaticName(name);
  if (const ClassInfo* info = Find(classes, className.empty() ? name : className)) {
    named.Add(*info);
    if (info == &clsEnums::ClassOf()) named.AddPublishedEnumerations();
  } else if (const Interface* interface = Find(interfaces, name)) {
    named.Add(*interface);
  } else if (const EnumInfo* enumeration = Find(enumerations, name)) {
    named.enumerations.push_back(enumeration);
  } else {
    std::vector<std::string_view> names;
    AppendNames(names, classes);
    AppendNames(names, interfaces);
    AppendNames(names, enumerations);
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall,
                                      "there is no class, interface or enumeration \"" + std::string(name) +
                                          "\"; nearest is \"" +
                                          std::string(automation::NearestName(name, names)) + "\"");
  }
  return named;
}

}  // namespace quenzel7::server
