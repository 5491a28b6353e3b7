#include <string>

#include "hosts/cli/commands.h"
#include "hosts/cli/text_table.h"
#include "server/services/service_classes.h"
#include "server/types/describe.h"
#include "server/types/identifiers.h"
#include "server/types/member_lines.h"
#include "server/types/reference.h"
#include "server/types/type_catalog.h"

namespace quenzel7::cli {
namespace {

using Side = TextTable::Side;

std::string InterfaceNames(const automation::ClassInfo& info) {
  std::string names;
  for (const automation::Interface* interface : info.interfaces) {
    if (!names.empty()) names += ", ";
    names += interface->Name();
  }
  return names;
}

void TellClasses(const server::TypeCatalog& catalog, std::ostream& out) {
  TextTable table({{"class", Side::Left},
                   {"programmatic name", Side::Left},
                   {"hosts create it", Side::Left},
                   {"interfaces", Side::Left}});
  for (const automation::ClassInfo* info : catalog.classes) {
    table.Add({std::string(info->name), server::ProgrammaticName(info->name),
               server::IsCreatable(*info) ? "yes" : "no", InterfaceNames(*info)});
  }
  table.Write(out);
}

/// What a member is stands below it.
void TellMembers(const automation::Interface& interface, std::ostream& out) {
  TextTable table({{"number", Side::Right},
                   {"slots", Side::Left},
                   {"call", Side::Left},
                   {std::string(interface.Name()), Side::Left}});
  for (const server::MemberLine& line : server::MemberLines(interface)) {
    table.Add({std::to_string(line.id), line.slots, line.calls, line.signature});
    const std::string mark = line.mark.empty() ? "" : " [" + std::string(line.mark) + "]";
    table.Add({"", "", "", "  " + std::string(line.documentation) + mark});
  }
  table.Write(out);
}

void TellEnumeration(const automation::EnumInfo& enumeration, std::ostream& out) {
  TextTable table({{std::string(enumeration.name), Side::Left}, {"value", Side::Right}});
  for (const automation::EnumMember& member : enumeration.members) {
    table.Add({std::string(member.name), std::to_string(member.value)});
  }
  table.Write(out);
}

/// Of a class the members of its default interface: the others are asked for by their own names. Enumerations
/// are told where there is nothing else.
void TellNamed(const server::TypeCatalog& named, std::ostream& out) {
  if (!named.classes.empty()) {
    TellClasses(named, out);
    out << '\n';
  }
  if (!named.interfaces.empty() && !named.interfaces.front()->Members().empty()) {
    TellMembers(*named.interfaces.front(), out);
    return;
  }
  for (const automation::EnumInfo* enumeration : named.enumerations) {
    if (enumeration != named.enumerations.front()) out << '\n';
    TellEnumeration(*enumeration, out);
  }
}

}  // namespace

int ClassesCommand(const std::string& name, ClassesForm form, const Console& console) {
  switch (form) {
    case ClassesForm::AsJson:
      console.out << server::Describe(name, server::ServiceClasses()) << '\n';
      break;
    case ClassesForm::AsReference:
      console.out << server::Reference(server::ServiceClasses());
      break;
    case ClassesForm::AsText:
      const server::TypeCatalog all = server::TypeCatalog::All(server::ServiceClasses());
      if (name.empty()) {
        TellClasses(all, console.out);
      } else {
        TellNamed(all.Named(name), console.out);
      }
      break;
  }
  return 0;
}

}  // namespace quenzel7::cli
