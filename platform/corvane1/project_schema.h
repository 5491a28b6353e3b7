#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/automation/types.h"

/// What a project file holds. Everything that creates or checks a project goes by these lists.
namespace quenzel7::corvane1 {

/// Marks a database file as a project: the letters "Qzl7".
inline constexpr Long kProjectApplicationId = 0x517A6C37;
/// The version of the tables below.
inline constexpr Long kProjectVersion = 1;

/// A column. No column has a default: what was not written is Null.
struct SchemaColumn {
  std::string_view name;
  /// As the engine declares it.
  std::string_view type;
};

struct SchemaTable {
  std::string_view name;
  std::span<const SchemaColumn> columns;
  /// The columns of the primary key when it is none of the columns' types; else empty.
  std::string_view primaryKey;
};

struct SchemaIndex {
  std::string_view name;
  std::string_view table;
  std::string_view columns;
};

std::span<const SchemaTable> ProjectTables();
std::span<const SchemaIndex> ProjectIndexes();

/// The statements that make an empty database a project.
std::vector<std::string> ProjectSchemaStatements();

/// What the database lacks of a project's tables, columns and indexes, as "column 'Xs' of table
/// HMI_Elements"; empty when it lacks nothing. More than the lists name does not matter.
std::string MissingFromProject(ado::Connection& connection);

}  // namespace quenzel7::corvane1
