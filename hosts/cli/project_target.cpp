#include "hosts/cli/project_target.h"

#include <unistd.h>

#include "hosts/cli/project_session.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

namespace fs = std::filesystem;

ProjectTarget::ProjectTarget(const std::string& path) : path_(path) {
  if (fs::exists(fs::symlink_status(path_))) return;
  temporary_ = path_;
  temporary_ += ".new" + std::to_string(getpid());
}

ProjectTarget::~ProjectTarget() {
  if (IsNew()) RemoveProject(temporary_.string());
}

std::string ProjectTarget::OpenPath() const { return IsNew() ? temporary_.string() : path_.string(); }

corvane1::ProjectMode ProjectTarget::Mode() const {
  return IsNew() ? corvane1::ProjectMode::Create : corvane1::ProjectMode::Open;
}

void ProjectTarget::Commit() {
  if (!IsNew()) return;
  // A log that a project of this name has left behind would be taken for the new one's.
  std::error_code error = RemoveProject(path_.string());
  if (!error) fs::rename(temporary_, path_, error);
  if (error) throw UserError("project " + path_.string() + " cannot be made: " + error.message());
}

}  // namespace quenzel7::cli
