#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "platform/corvane1/project_schema.h"

namespace quenzel7::test {

/// Makes of a project what that version would have made: without the tables that came later.
inline void MakeOlder(ado::Connection& project, Long version) {
  for (const corvane1::SchemaTable& table : corvane1::ProjectTables()) {
    if (table.since > version) project.Execute("DROP TABLE " + std::string(table.name));
  }
  project.Execute("VACUUM");
  project.Execute("PRAGMA user_version=" + std::to_string(version));
}

}  // namespace quenzel7::test
