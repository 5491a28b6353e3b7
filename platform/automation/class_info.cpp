#include "platform/automation/class_info.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <optional>
#include <utility>

namespace quenzel7::automation {
namespace {

char Fold(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// FNV-1a (Fowler, Noll, Vo) over the folded letters.
std::uint32_t FoldedHash(std::string_view name) {
  std::uint32_t hash = 2166136261u;
  for (const char letter : name) {
    hash ^= static_cast<unsigned char>(Fold(letter));
    hash *= 16777619u;
  }
  return hash;
}

std::string DescribeParameter(const Parameter& parameter, bool optional) {
  std::string text = (parameter.byReference ? "ByRef " : "") + std::string(parameter.type.name);
  return optional ? "[" + text + "]" : text;
}

}  // namespace

bool EqualFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Fold(x) == Fold(y); });
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), Fold);
  return folded;
}

Variant Member::StandIn(std::size_t place) const {
  const auto standIn = defaults[place - Required()];
  return standIn ? Variant(*standIn) : Variant();
}

std::string Slot::Text() const {
  const std::string name(member->name);
  const std::string type(member->type.name);
  switch (kind) {
    case CallKind::Get:
      return "get " + name + "() As " + type;
    case CallKind::Put:
      return "put " + name + "(" + type + ")";
    case CallKind::PutRef:
      return "putref " + name + "(" + type + ")";
    case CallKind::Method:
      break;
  }
  std::string line = "call " + name + "(";
  for (std::size_t index = 0; index < member->parameters.size(); ++index) {
    if (index > 0) line += ", ";
    line += DescribeParameter(member->parameters[index], index >= member->Required());
  }
  return line + ")" + (type.empty() ? "" : " As " + type);
}

std::vector<std::string_view> Member::ParameterNames() const {
  constexpr std::string_view kBetween = "(), ";
  std::vector<std::string_view> names;
  std::string_view rest = parameterNames;
  for (std::size_t start = rest.find_first_not_of(kBetween); start != std::string_view::npos;
       start = rest.find_first_not_of(kBetween)) {
    rest.remove_prefix(start);
    const std::size_t size = std::min(rest.find_first_of(kBetween), rest.size());
    names.push_back(rest.substr(0, size));
    rest.remove_prefix(size);
  }
  return names;
}

Interface::Interface(std::string_view name, std::span<const Member> members)
    : name_(name),
      members_(members),
      // At most half full, so that a search ends soon.
      table_(std::bit_ceil(members.size() * 2 + 1)),
      mask_(table_.size() - 1) {
  for (std::size_t index = 0; index < members_.size(); ++index) {
    std::size_t place = FoldedHash(members_[index].name) & mask_;
    while (table_[place] != 0) place = (place + 1) & mask_;
    table_[place] = static_cast<std::uint16_t>(index + 1);
  }
}

const Member* Interface::Find(std::string_view name) const {
  for (std::size_t place = FoldedHash(name) & mask_; table_[place] != 0; place = (place + 1) & mask_) {
    const Member& member = members_[table_[place] - 1];
    if (EqualFolded(member.name, name)) return &member;
  }
  return nullptr;
}

std::vector<Slot> Interface::SlotOrder() const {
  std::vector<Slot> slots;
  std::optional<Slot> heldBack;
  for (const Member& member : members_) {
    const std::optional<Slot> behindThis = std::exchange(heldBack, std::nullopt);
    std::vector<Slot> own;
    if (member.method) own.push_back({&member, CallKind::Method});
    if (member.get) own.push_back({&member, CallKind::Get});
    if (member.put) own.push_back({&member, CallKind::Put});
    if (member.putRef) own.push_back({&member, CallKind::PutRef});
    if (member.writerFirst) std::reverse(own.begin(), own.end());
    if (member.writerAfterNext) {
      heldBack = own.back();
      own.pop_back();
    }
    slots.insert(slots.end(), own.begin(), own.end());
    if (behindThis) slots.push_back(*behindThis);
  }
  if (heldBack) slots.push_back(*heldBack);
  return slots;
}

std::vector<std::string> Interface::Slots() const {
  std::vector<std::string> lines;
  for (const Slot& slot : SlotOrder()) lines.push_back(slot.Text());
  return lines;
}

const Interface* ClassInfo::FindInterface(std::string_view interfaceName) const {
  for (const Interface* interface : interfaces) {
    if (EqualFolded(interface->Name(), interfaceName)) return interface;
  }
  return nullptr;
}

std::string_view NearestName(std::string_view asked, const std::vector<std::string_view>& names) {
  std::string_view nearest;
  std::size_t fewest = static_cast<std::size_t>(-1);
  for (const std::string_view name : names) {
    // One row of the distance table at a time.
    std::vector<std::size_t> row(name.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < asked.size(); ++i) {
      std::size_t diagonal = row[0];
      row[0] = i + 1;
      for (std::size_t j = 0; j < name.size(); ++j) {
        const std::size_t replaced = diagonal + (Fold(asked[i]) == Fold(name[j]) ? 0 : 1);
        diagonal = row[j + 1];
        row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
      }
    }
    if (row.back() < fewest) {
      fewest = row.back();
      nearest = name;
    }
  }
  return nearest;
}

}  // namespace quenzel7::automation
