#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/ado/connection.h"

namespace quenzel7::corvane1 {

/// Holds the connection of the project that the host has open.
class ProjectDatabase {
 public:
  virtual ~ProjectDatabase() = default;

  /// The open connection; error 91 when no project is open.
  virtual ado::ConnectionRef OpenConnection() = 0;
  /// The folder that the project's file stands in, without a separator at its end: whoever looks for a file
  /// appends one and more. Empty for the root, and for a project that is in no file. Error 91 when no project
  /// is open.
  virtual std::string Path() = 0;
};

/// The embedded default: holds whatever connection it was given last, or follows another database.
class HeldProjectDatabase final : public ProjectDatabase {
 public:
  ado::ConnectionRef OpenConnection() override;
  /// As the connection tells it, or the database that is followed.
  std::string Path() override;
  /// The open connection; none when no project is open.
  ado::ConnectionRef ConnectionIfOpen();

  /// Takes the connection of a project that has been opened; none when it has been closed.
  void Hold(ado::ConnectionRef connection) { connection_ = std::move(connection); }
  /// The connection that is held, or none.
  const ado::ConnectionRef& Held() const { return connection_; }

  /// From now on the other database is asked for its project, anew each time, so that a project that it opens
  /// or closes meanwhile is never missed; none goes back to what is held here.
  void Follow(std::shared_ptr<ProjectDatabase> other) { followed_ = std::move(other); }

 private:
  ado::ConnectionRef connection_;
  std::shared_ptr<ProjectDatabase> followed_;
};

}  // namespace quenzel7::corvane1
