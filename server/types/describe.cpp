#include "server/types/describe.h"

#include <nlohmann/json.hpp>

#include "platform/automation/member.h"
#include "server/types/identifiers.h"
#include "server/types/member_ids.h"
#include "server/types/member_lines.h"
#include "server/types/type_catalog.h"

namespace quenzel7::server {
namespace {

using automation::ClassInfo;
using automation::EnumInfo;
using automation::EnumMember;
using automation::Interface;
using automation::Member;
using automation::Role;
using automation::Slot;
using automation::TypeInfo;
/// Keys stay in the order in which they are written.
using Json = nlohmann::ordered_json;

void PutType(Json& json, const TypeInfo& type) {
  json["type"] = type.enumeration ? automation::TypeOf<Long>().name : type.name;
  if (type.enumeration) json["enumeration"] = type.enumeration->name;
}

Json JsonOf(const ClassInfo& info) {
  Json interfaces = Json::array();
  for (const Interface* interface : info.interfaces) interfaces.push_back(interface->Name());
  return {{"name", info.name},
          {"progid", ProgrammaticName(info.name)},
          {"clsid", GuidText(ClassId(info.name))},
          {"creatable", IsCreatable(info)},
          {"interfaces", std::move(interfaces)}};
}

Json ParametersOf(const Member& member) {
  const auto names = member.ParameterNames();
  Json parameters = Json::array();
  for (std::size_t place = 0; place < member.parameters.size(); ++place) {
    const bool isOptional = place >= member.Required();
    Json parameter = {{"name", names.at(place)}};
    PutType(parameter, member.parameters[place].type);
    parameter["byref"] = member.parameters[place].byReference;
    parameter["optional"] = isOptional;
    if (isOptional) {
      const automation::Variant standIn = member.StandIn(place);
      if (standIn.If<Long>()) parameter["default"] = *standIn.If<Long>();
    }
    parameters.push_back(std::move(parameter));
  }
  return parameters;
}

Json JsonOf(const Member& member, DISPID id) {
  Json json = {{"name", member.name}, {"id", id}, {"kind", member.IsMethod() ? "method" : "property"}};
  PutType(json, member.type);
  json["get"] = member.get != nullptr;
  json["put"] = member.put != nullptr;
  json["putref"] = member.putRef != nullptr;
  if (member.role != Role::None) json["role"] = member.role == Role::Value ? "value" : "enumerator";
  if (const auto mark = MarkName(member.mark); !mark.empty()) json["mark"] = mark;
  json["parameters"] = ParametersOf(member);
  json["slots"] = Json::array();
  json["doc"] = member.documentation;
  return json;
}

Json JsonOf(const Interface& interface) {
  const auto members = interface.Members();
  Json list = Json::array(), lines = Json::array();
  for (std::size_t place = 0; place < members.size(); ++place) {
    list.push_back(JsonOf(members[place], MemberId(interface, place)));
  }
  for (const Slot& slot : interface.SlotOrder()) {
    const std::string line = slot.Text();
    list[static_cast<std::size_t>(slot.member - members.data())]["slots"].push_back(line);
    lines.push_back(line);
  }
  return {{"name", interface.Name()},
          {"iid", GuidText(InterfaceId(interface.Name()))},
          {"slots", std::move(lines)},
          {"members", std::move(list)}};
}

Json JsonOf(const EnumInfo& enumeration) {
  Json members = Json::array();
  for (const EnumMember& member : enumeration.members) {
    members.push_back({{"name", member.name}, {"value", member.value}});
  }
  return {{"name", enumeration.name}, {"members", std::move(members)}};
}

template <class Type>
Json ListOf(const std::vector<const Type*>& types) {
  Json list = Json::array();
  for (const Type* type : types) list.push_back(JsonOf(*type));
  return list;
}

}  // namespace

std::string Describe(std::string_view name, Classes further) {
  const TypeCatalog all = TypeCatalog::All(further);
  const TypeCatalog catalog = name.empty() ? all : all.Named(name);
  const Json json = {{"classes", ListOf(catalog.classes)},
                     {"interfaces", ListOf(catalog.interfaces)},
                     {"enumerations", ListOf(catalog.enumerations)}};
  return json.dump();
}

}  // namespace quenzel7::server
