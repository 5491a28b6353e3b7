#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "hosts/cli/image_setup.h"
#include "hosts/cli/user_error.h"
#include "platform/ado/connection.h"
#include "platform/corvane1/global_values.h"
#include "platform/corvane1/project_file.h"

namespace quenzel7::cli {

/// An open project: while it lives, the services of the thread work with it, and the image library of the
/// thread has the panel's colours.
class ProjectSession {
 public:
  /// Throws UserError when the file is no project that can be opened so. `path` is the file, `name` how
  /// messages call it.
  ProjectSession(const std::string& path, corvane1::ProjectMode mode, const std::string& name);
  ProjectSession(const std::string& path, corvane1::ProjectMode mode) : ProjectSession(path, mode, path) {}
  ProjectSession(const ProjectSession&) = delete;
  ProjectSession& operator=(const ProjectSession&) = delete;
  /// Closes the project.
  ~ProjectSession();

  ado::Connection& Connection() { return *connection_; }
  /// How messages call the project: "project boiler.qz7".
  const std::string& Place() const { return place_; }

  /// Does something with the project. An error of the automation run-time becomes a UserError that names the
  /// project; UserErrors, which name their place, pass.
  template <class Work>
  decltype(auto) Do(const Work& work) const {
    try {
      return work();
    } catch (const automation::AutomationError& error) {
      throw UserError(place_ + ": " + error.Description());
    }
  }

  /// Makes a page the one that is open in the host: new elements come onto it.
  void OpenPage(Long number) { openPage_->Set(corvane1::kOpenPageValue, number); }

 private:
  std::string place_;
  ImageSetup images_;
  ado::ConnectionRef connection_;
  ado::ConnectionRef heldBefore_;
  std::shared_ptr<corvane1::HeldGlobalValues> openPage_ = std::make_shared<corvane1::HeldGlobalValues>();
  std::shared_ptr<corvane1::GlobalValues> valuesBefore_;
};

/// Removes a project that is not open, and what the database engine may have left beside it. Nothing has to
/// be there. Gives the first error.
std::error_code RemoveProject(const std::string& path);

}  // namespace quenzel7::cli
