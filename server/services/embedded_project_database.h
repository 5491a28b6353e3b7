#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "platform/automation/class_info.h"
#include "platform/corvane1/project_database.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The embedded holder of the open project: opens project files and closes them. What it tells is what it
/// holds itself, also while a host's own database is in use.
class EmbeddedProjectDatabase final : public ServiceView<corvane1::HeldProjectDatabase> {
 public:
  using Embedded = corvane1::HeldProjectDatabase;

  static constexpr std::string_view kClassName = "EmbeddedProjectDatabase";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Opens a project file and holds its connection. `mode` is 0 for a file that has to be there, 1 for one
  /// that is made when it is not, 2 for one that has to be there and is only read. A connection that was held
  /// before is let go, not closed: whoever has it goes on with it. Errors of corvane1::OpenProject, and 5 for
  /// another mode; what was held stays held then.
  ado::ConnectionRef Open(const std::string& path, Long mode);
  /// Closes the connection and holds none; nothing when there is none.
  void Close();
  /// The connection that is held; error 91 when no project is open.
  ado::ConnectionRef OpenConnection() const;
  /// The folder of the project's file, without a separator at its end; empty for a project that is in no
  /// file. Error 91 when no project is open.
  std::string Path() const;
};

}  // namespace quenzel7::server
