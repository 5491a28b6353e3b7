#include "platform/corvane1/project_database.h"

#include "platform/automation/automation_error.h"
#include "platform/corvane1/application.h"

namespace quenzel7::corvane1 {

ado::ConnectionRef HeldProjectDatabase::OpenConnection() {
  if (!connection_) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet, "no project is open");
  }
  return connection_;
}

std::string HeldProjectDatabase::Path() { return FolderOf(OpenConnection()->FilePath()); }

}  // namespace quenzel7::corvane1
