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
inline constexpr Long kProjectVersion = 3;

/// A column. No column has a default: what was not written is Null.
struct SchemaColumn {
  std::string_view name;
  /// As the engine declares it.
  std::string_view type;
  /// A project without the column is whole all the same.
  bool optional = false;
};

struct SchemaTable {
  std::string_view name;
  std::span<const SchemaColumn> columns;
  /// The columns of the primary key when it is none of the columns' types; else empty.
  std::string_view primaryKey;
  /// The project version that brought the table.
  Long since = 1;
};

struct SchemaIndex {
  std::string_view name;
  std::string_view table;
  std::string_view columns;
  /// The project version that brought the index.
  Long since = 1;
};

/// The table of the elements comes first.
std::span<const SchemaTable> ProjectTables();
std::span<const SchemaIndex> ProjectIndexes();

/// The statements that make an empty database a project.
std::vector<std::string> ProjectSchemaStatements();

/// The statements that make a project of an older version one of `kProjectVersion`: they create the tables
/// that came later, and raise the version. None for a project of this version or a newer one.
std::vector<std::string> ProjectUpgradeStatements(Long fromVersion);

/// The statements that let a connection which may not write read a project of an older version: each table
/// that came later is seen as an empty one, which cannot be written. They leave the file alone.
std::vector<std::string> ProjectStandInStatements(Long fromVersion);

/// The version that the database says it has.
Long ProjectVersionOf(ado::Connection& connection);

/// What the database lacks of the tables, columns and indexes of a project of that version, as "column 'Xs'
/// of table HMI_Elements"; empty when it lacks nothing. More than the lists name does not matter, and neither
/// do optional columns.
std::string MissingFromProject(ado::Connection& connection, Long version = kProjectVersion);

/// What the database of a project of that version already has under the name of a table or index that came
/// later, as "view LibraryStrings"; empty when nothing keeps the project from being brought up to date.
std::string InTheWayOfLaterTables(ado::Connection& connection, Long version);

}  // namespace quenzel7::corvane1
