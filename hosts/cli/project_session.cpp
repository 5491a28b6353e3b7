#include "hosts/cli/project_session.h"

#include <filesystem>
#include <utility>

#include "hosts/cli/user_error.h"
#include "platform/platform.h"

namespace quenzel7::cli {

ProjectSession::ProjectSession(const std::string& path, corvane1::ProjectMode mode, const std::string& name)
    : place_("project " + name) {
  try {
    connection_ = corvane1::OpenProject(path, mode);
  } catch (const automation::AutomationError& error) {
    // The error tells the path that was opened.
    std::string description = error.Description();
    if (const auto at = description.find(path); at != std::string::npos)
      description.replace(at, path.size(), name);
    throw UserError(description);
  }
  Platform& platform = Platform::Current();
  heldBefore_ = platform.heldProject->Held();
  platform.heldProject->Hold(connection_);
  valuesBefore_ = std::exchange(platform.globalValues, openPage_);
}

ProjectSession::~ProjectSession() {
  Platform& platform = Platform::Current();
  platform.globalValues = valuesBefore_;
  platform.heldProject->Hold(heldBefore_);
  try {
    connection_->Close();
  } catch (const automation::AutomationError&) {
    // Everything that had to last was committed.
  }
}

std::error_code RemoveProject(const std::string& path) {
  std::error_code first;
  for (const char* ending : {"", "-wal", "-shm", "-journal"}) {
    std::error_code error;
    std::filesystem::remove(path + ending, error);
    if (error && !first) first = error;
  }
  return first;
}

}  // namespace quenzel7::cli
