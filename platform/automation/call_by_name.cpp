#include "platform/automation/call_by_name.h"

#include <string>
#include <vector>

#include "platform/automation/automation_error.h"

namespace quenzel7::automation {
namespace {

std::string Qualified(const Interface& interface, std::string_view name) {
  return std::string(interface.Name()) + "." + std::string(name);
}

[[noreturn]] void RaiseNoSuchMember(const Interface& interface, std::string_view name) {
  std::vector<std::string_view> names;
  for (const Member& member : interface.Members()) names.push_back(member.name);
  const std::string nearest(NearestName(name, names));
  throw AutomationError(ErrorNumber::NoSuchMember,
                        Qualified(interface, name) + " does not exist" +
                            (nearest.empty() ? "" : "; nearest is \"" + nearest + "\""));
}

[[noreturn]] void RaiseWrongUse(const Interface& interface, const Member& member, CallKind kind) {
  const std::string name = Qualified(interface, member.name);
  if (member.IsMethod())
    throw AutomationError(ErrorNumber::NoSuchMember, name + " is a method, not a property");
  switch (kind) {
    case CallKind::Method:
      throw AutomationError(ErrorNumber::NoSuchMember, name + " is a property, not a method");
    case CallKind::Get:
      throw AutomationError(ErrorNumber::PropertyIsWriteOnly, name + " can be written only");
    case CallKind::Put:
    case CallKind::PutRef:
      break;
  }
  if (!member.put && !member.putRef) {
    throw AutomationError(ErrorNumber::PropertyIsReadOnly, name + " can be read only");
  }
  throw AutomationError(ErrorNumber::NoSuchMember,
                        name + (member.putRef ? " takes an object by reference" : " takes a value"));
}

void RequireArguments(const Interface& interface, const Member& member, std::size_t given, std::size_t least,
                      std::size_t most) {
  if (given >= least && given <= most) return;
  throw AutomationError(
      given < least ? ErrorNumber::ArgumentNotOptional : ErrorNumber::WrongNumberOfArguments,
      Qualified(interface, member.name) + " takes " + (least == most ? "" : std::to_string(least) + " to ") +
          std::to_string(most) + " arguments, " + std::to_string(given) + " were given");
}

Variant CallMethod(const Interface& interface, const Member& member, Object& object, Arguments arguments) {
  const std::size_t most = member.parameters.size();
  RequireArguments(interface, member, arguments.size(), member.Required(), most);
  if (arguments.size() == most) return member.method(object, arguments);
  std::vector<Variant> all(arguments.begin(), arguments.end());
  for (std::size_t place = all.size(); place < most; ++place) all.push_back(member.StandIn(place));
  Variant result = member.method(object, all);
  for (std::size_t index = 0; index < arguments.size(); ++index) arguments[index] = all[index];
  return result;
}

Variant CallMember(Object& object, const Interface& interface, std::string_view name, CallKind kind,
                   Arguments arguments) {
  const Member* member = interface.Find(name);
  if (!member) RaiseNoSuchMember(interface, name);
  switch (kind) {
    case CallKind::Method:
      if (!member->method) break;
      return CallMethod(interface, *member, object, arguments);
    case CallKind::Get:
      if (!member->get) break;
      RequireArguments(interface, *member, arguments.size(), 0, 0);
      return member->get(object);
    case CallKind::Put:
      if (!member->put) break;
      RequireArguments(interface, *member, arguments.size(), 1, 1);
      member->put(object, arguments.front());
      return {};
    case CallKind::PutRef:
      if (!member->putRef) break;
      RequireArguments(interface, *member, arguments.size(), 1, 1);
      member->putRef(object, arguments.front());
      return {};
  }
  RaiseWrongUse(interface, *member, kind);
}

}  // namespace

Variant CallByName(Object& object, const Interface& interface, std::string_view name, CallKind kind,
                   Arguments arguments) {
  if (interface.Late()) return interface.Late()(object, name, kind, arguments);
  try {
    return CallMember(object, interface, name, kind, arguments);
  } catch (const AutomationError& error) {
    if (!error.Argument()) throw;
    throw error.OfNoArgument();
  }
}

Variant CallByName(Object& object, std::string_view name, CallKind kind, Arguments arguments) {
  return CallByName(object, object.Class().Default(), name, kind, arguments);
}

Variant GetByName(Object& object, const Interface& interface, std::string_view name) {
  return CallByName(object, interface, name, CallKind::Get);
}

Variant GetByName(Object& object, std::string_view name) {
  return GetByName(object, object.Class().Default(), name);
}

void PutByName(Object& object, const Interface& interface, std::string_view name, const Variant& value) {
  const Member* member = interface.Find(name);
  const bool byReference = interface.Late() ? value.IsObject() : member && !member->put && member->putRef;
  Variant argument = value;
  CallByName(object, interface, name, byReference ? CallKind::PutRef : CallKind::Put,
             Arguments(&argument, 1));
}

void PutByName(Object& object, std::string_view name, const Variant& value) {
  PutByName(object, object.Class().Default(), name, value);
}

Variant InvokeByName(Object& object, const Interface& interface, std::string_view name,
                     std::initializer_list<Variant> arguments) {
  std::vector<Variant> places(arguments);
  return CallByName(object, interface, name, CallKind::Method, places);
}

Variant InvokeByName(Object& object, std::string_view name, std::initializer_list<Variant> arguments) {
  return InvokeByName(object, object.Class().Default(), name, arguments);
}

}  // namespace quenzel7::automation
