#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::cli {

/// What a row of HMI_Elements says of its place among the groups; nothing where it does not say it in
/// numbers.
struct GroupedRow {
  Long id;
  std::optional<Long> page;
  std::optional<Long> type;
  std::optional<Long> groupId;
};

/// What is wrong with the groups of a project, by the ID of the row where it is: group IDs that name no group
/// of the row's page, groups that lie in one another (told once, at the lowest row), and groups nested too
/// deep (told at the outermost one).
std::map<Long, std::vector<std::string>> CheckGroups(const std::vector<GroupedRow>& rows);

}  // namespace quenzel7::cli
