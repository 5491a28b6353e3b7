#include "server/types/member_lines.h"

#include "server/types/member_ids.h"

namespace quenzel7::server {
namespace {

using automation::CallKind;
using automation::Interface;
using automation::Mark;
using automation::Member;
using automation::Slot;
using automation::TypeInfo;

std::string ParameterText(const Member& member, std::size_t place, std::string_view name,
                          const WriteType& writeType) {
  const automation::Parameter& parameter = member.parameters[place];
  const bool isOptional = place >= member.Required();
  std::string text = isOptional ? "Optional " : "";
  if (parameter.byReference) text += "ByRef ";
  text += std::string(name) + " As " + writeType(parameter.type);
  if (!isOptional) return text;
  const automation::Variant standIn = member.StandIn(place);
  return standIn.If<Long>() ? text + " = " + std::to_string(*standIn.If<Long>()) : text;
}

std::string Signature(const Member& member, const WriteType& writeType) {
  std::string text(member.name);
  if (member.IsMethod()) {
    const auto names = member.ParameterNames();
    text += "(";
    for (std::size_t place = 0; place < member.parameters.size(); ++place) {
      if (place > 0) text += ", ";
      text += ParameterText(member, place, names.at(place), writeType);
    }
    text += ")";
  }
  return member.type.name.empty() ? text : text + " As " + writeType(member.type);
}

void AppendWord(std::string& text, std::string_view word) {
  if (!text.empty()) text += ' ';
  text += word;
}

}  // namespace

std::string TypeName(const TypeInfo& type) { return std::string(type.name); }

std::string_view CallName(CallKind kind) {
  switch (kind) {
    case CallKind::Get:
      return "get";
    case CallKind::Put:
      return "put";
    case CallKind::PutRef:
      return "putref";
    case CallKind::Method:
      break;
  }
  return "call";
}

std::string_view MarkName(Mark mark) {
  switch (mark) {
    case Mark::Identity:
      return "Identity";
    case Mark::NotStored:
      return "NotStored";
    case Mark::NotCarried:
      return "NotCarried";
    case Mark::Transient:
      return "Transient";
    case Mark::None:
      break;
  }
  return "";
}

std::vector<MemberLine> MemberLines(const Interface& interface, const WriteType& writeType) {
  const auto members = interface.Members();
  std::vector<MemberLine> lines;
  for (std::size_t place = 0; place < members.size(); ++place) {
    const Member& member = members[place];
    lines.push_back({MemberId(interface, place), "", "", Signature(member, writeType), MarkName(member.mark),
                     member.documentation});
  }
  const std::vector<Slot> slots = interface.SlotOrder();
  for (std::size_t place = 0; place < slots.size(); ++place) {
    MemberLine& line = lines[static_cast<std::size_t>(slots[place].member - members.data())];
    AppendWord(line.slots, std::to_string(place + 1));
    AppendWord(line.calls, CallName(slots[place].kind));
  }
  return lines;
}

}  // namespace quenzel7::server
