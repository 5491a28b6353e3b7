#include "server/services/late_project_database.h"

#include "platform/corvane1/application.h"
#include "server/services/late_connection.h"

namespace quenzel7::server {

using automation::ObjectRef;

ado::ConnectionRef LateProjectDatabase::OpenConnection() {
  // The host may put another database in place of this one while it is asked.
  const auto self = shared_from_this();
  const ObjectRef given = host_.Call<ObjectRef>("OpenConnection");
  if (standing_ && HostObjectOf(standing_) == given) return standing_;
  standing_.reset();
  ado::ConnectionRef connection = ConnectionOf(given);
  if (!connection) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet,
                                      "no project is open: the host gave no connection");
  }
  if (connection != given) standing_ = connection;
  return connection;
}

std::string LateProjectDatabase::Path() {
  const auto self = shared_from_this();
  if (const auto path = host_.TextIfThere("Path")) return *path;
  return corvane1::FolderOf(OpenConnection()->FilePath());
}

}  // namespace quenzel7::server
