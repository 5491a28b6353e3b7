#include "platform/corvane1/project_database.h"

#include "platform/automation/automation_error.h"
#include "platform/corvane1/application.h"

namespace quenzel7::corvane1 {

ado::ConnectionRef HeldProjectDatabase::OpenConnection() {
  // The other database may be let go of while it is asked.
  if (const auto followed = followed_) return followed->OpenConnection();
  if (!connection_) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet, "no project is open");
  }
  return connection_;
}

std::string HeldProjectDatabase::Path() {
  if (const auto followed = followed_) return followed->Path();
  return FolderOf(OpenConnection()->FilePath());
}

ado::ConnectionRef HeldProjectDatabase::ConnectionIfOpen() {
  if (!followed_) return connection_;
  try {
    return OpenConnection();
  } catch (const automation::AutomationError& error) {
    if (error.Code() != automation::ErrorNumber::ObjectNotSet) throw;
    return nullptr;
  }
}

}  // namespace quenzel7::corvane1
