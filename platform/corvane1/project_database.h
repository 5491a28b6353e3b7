#pragma once

#include <string>

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

/// The embedded default: holds whatever connection it was given last.
class HeldProjectDatabase final : public ProjectDatabase {
 public:
  ado::ConnectionRef OpenConnection() override;
  /// As the connection tells it.
  std::string Path() override;

  /// Takes the connection of a project that has been opened; none when it has been closed.
  void Hold(ado::ConnectionRef connection) { connection_ = std::move(connection); }
  /// The connection that is held, or none.
  const ado::ConnectionRef& Held() const { return connection_; }

 private:
  ado::ConnectionRef connection_;
};

}  // namespace quenzel7::corvane1
