#pragma once

#include <memory>
#include <string>

#include "platform/corvane1/project_database.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// The project database of a host's own: an object with `OpenConnection()`, which gives a connection of the
/// library or one as LateConnection wants it, and a property `Path`, the project's folder, if it likes.
///
/// The host is asked each time, so that it may open and close projects as it pleases. While it gives the same
/// object, elements and services see the same connection. Errors as LateObject.
class LateProjectDatabase final : public corvane1::ProjectDatabase,
                                  public HostBacked,
                                  public std::enable_shared_from_this<LateProjectDatabase> {
 public:
  explicit LateProjectDatabase(automation::ObjectRef host) : host_(std::move(host)) {}

  const automation::ObjectRef& HostObject() const override { return host_.Ref(); }

  /// Error 91 when the host gives none: no project is open.
  ado::ConnectionRef OpenConnection() override;
  /// The host's `Path`; where it has none, the folder of the connection's file.
  std::string Path() override;

 private:
  const LateObject host_;
  /// What stands for the connection that the host gave last, if anything had to.
  ado::ConnectionRef standing_;
};

}  // namespace quenzel7::server
