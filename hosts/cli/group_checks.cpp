#include "hosts/cli/group_checks.h"

#include <algorithm>

#include "framework/element_types.h"
#include "shapes/group.h"

namespace quenzel7::cli {
namespace {

using Findings = std::map<Long, std::vector<std::string>>;

/// A group that was found, and how groups lie in it.
struct Group {
  /// The group that owns it; nullptr without one that there is.
  Group* owner = nullptr;
  /// Groups that it owns and that have not been measured yet.
  Long unmeasured = 0;
  Long height = 1;
  /// In a circle of groups that has been told.
  bool told = false;
};

std::string WrongGroup(const GroupedRow& row, const GroupedRow* owner) {
  if (!owner) return "no row";
  const std::string named = "row " + std::to_string(owner->id);
  if (owner->type != kGroupElement) return named + ", which is no group";
  if (row.page && owner->page && *row.page != *owner->page) {
    return named + ", a group on page " + std::to_string(*owner->page);
  }
  return {};
}

/// Measures each group after those that it owns. Those that lie in a circle are never reached.
void Measure(std::map<Long, Group>& groups) {
  std::vector<Group*> ready;
  for (auto& [id, group] : groups) {
    if (group.unmeasured == 0) ready.push_back(&group);
  }
  while (!ready.empty()) {
    Group* owner = ready.back()->owner;
    const Long height = ready.back()->height;
    ready.pop_back();
    if (!owner) continue;
    owner->height = std::max(owner->height, height + 1);
    if (--owner->unmeasured == 0) ready.push_back(owner);
  }
}

/// The way around a circle; of a long one both ends.
std::string Circle(Group& first, const std::map<const Group*, Long>& ids) {
  constexpr std::size_t kMostNamed = 10;
  std::vector<std::string> way;
  for (Group* group = &first; !group->told; group = group->owner) {
    group->told = true;
    way.push_back(std::to_string(ids.at(group)));
  }
  way.push_back(way.front());
  if (way.size() > kMostNamed) {
    const auto begin = way.begin() + kMostNamed / 2, end = way.end() - kMostNamed / 2;
    const std::string left = "(" + std::to_string(end - begin) + " more)";
    way.insert(way.erase(begin, end), left);
  }
  std::string path;
  for (const std::string& step : way) path += (path.empty() ? "" : " -> ") + step;
  return path;
}

}  // namespace

Findings CheckGroups(const std::vector<GroupedRow>& rows) {
  Findings findings;
  std::map<Long, const GroupedRow*> byId;
  std::map<Long, Group> groups;
  std::map<const Group*, Long> ids;
  for (const GroupedRow& row : rows) {
    byId[row.id] = &row;
    if (row.type == kGroupElement) ids[&groups[row.id]] = row.id;
  }
  for (const GroupedRow& row : rows) {
    if (!row.groupId || *row.groupId == kNone) continue;
    const auto owner = byId.find(*row.groupId);
    const std::string wrong = WrongGroup(row, owner == byId.end() ? nullptr : owner->second);
    if (!wrong.empty()) {
      findings[row.id].push_back("GroupID " + std::to_string(*row.groupId) + " names " + wrong +
                                 "; -1 or the ID of a group of its page was expected");
    } else if (row.type == kGroupElement) {
      groups[row.id].owner = &groups[*row.groupId];
      ++groups[*row.groupId].unmeasured;
    }
  }
  Measure(groups);
  for (auto& [id, group] : groups) {
    if (group.unmeasured > 0 && !group.told) {
      findings[id].push_back("groups lie in one another without end, " + Circle(group, ids) +
                             "; GroupID -1 was expected in one of them");
    } else if (group.unmeasured == 0 && !group.owner && group.height > clsGroup::kMaxDepth) {
      findings[id].push_back("groups are nested " + std::to_string(group.height) + " deep; at most " +
                             std::to_string(clsGroup::kMaxDepth) + " was expected");
    }
  }
  return findings;
}

}  // namespace quenzel7::cli
