#pragma once

#include <string>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

enum class ProjectMode : Byte {
  /// The project has to be there.
  Open,
  /// A project that is not there is made; its folder has to be there.
  Create,
  /// The project has to be there; statements that would change it fail.
  ReadOnly,
};

/// Opens a project file after checking that it is one, whole, and with everything that a project has. A file
/// that is refused stays as it was, byte for byte, with nothing new beside it. A new project comes into being
/// under a name of its own beside the path (path + ".creating") and takes the path when it is complete.
///
/// A project that an older version made is brought up to date when it is opened for writing: what came later
/// is added, all of it or nothing, and no row is touched. Opened read-only it stays as it is, and the tables
/// that it does not have are seen empty, for as long as the connection lives: also after another connection
/// has brought the file up to date.
///
/// Of `options` the mode is not looked at.
///
/// Errors, all naming the file: 76 when there is no such file, or no such folder for a new one; a database
/// error when the path is a folder, the file cannot be read or (but in ReadOnly) written, is no project, is
/// damaged, has been made by a newer version, lacks a table, column or index, has something else where a
/// later version has a table, or when another connection keeps it locked for longer than the busy timeout.
ado::SqliteConnectionRef OpenProject(const std::string& path, ProjectMode mode,
                                     const ado::OpenOptions& options = {});

}  // namespace quenzel7::corvane1
