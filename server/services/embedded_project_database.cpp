#include "server/services/embedded_project_database.h"

#include "platform/automation/automation_error.h"
#include "platform/corvane1/application.h"
#include "platform/corvane1/project_file.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Method;
using corvane1::ProjectMode;
using View = EmbeddedProjectDatabase;

constexpr automation::Member kMembers[] = {
    automation::LastOptional(Method<View, &View::Open>(
                                 "Open",
                                 "Opens a project file and gives its connection. Mode: 0 open, 1 create when "
                                 "it is not there, 2 only read.",
                                 "path, mode"),
                             Long{static_cast<Long>(ProjectMode::Create)}),
    Method<View, &View::Close>("Close", "Closes the project."),
    Method<View, &View::OpenConnection>("OpenConnection", "The connection of the open project."),
    automation::Property<std::string>("Path", "The folder of the project's file.",
                                      AUTOMATION_GETTER(View, Path), nullptr),
};

ProjectMode ModeOf(Long mode) {
  if (mode < 0 || mode > static_cast<Long>(ProjectMode::ReadOnly)) {
    throw AutomationError(
        ErrorNumber::InvalidProcedureCall,
        "a project cannot be opened in mode " + std::to_string(mode) + ": 0 to 2 are expected");
  }
  return static_cast<ProjectMode>(mode);
}

}  // namespace

const automation::ClassInfo& EmbeddedProjectDatabase::ClassOf() { return ServiceClass<View>(kMembers); }

ado::ConnectionRef EmbeddedProjectDatabase::Open(const std::string& path, Long mode) {
  Service()->Hold(corvane1::OpenProject(path, ModeOf(mode)));
  return Service()->Held();
}

void EmbeddedProjectDatabase::Close() {
  const ado::ConnectionRef connection = Service()->Held();
  if (!connection) return;
  Service()->Hold(nullptr);
  connection->Close();
}

ado::ConnectionRef EmbeddedProjectDatabase::OpenConnection() const {
  if (!Service()->Held()) throw AutomationError(ErrorNumber::ObjectNotSet, "no project is open");
  return Service()->Held();
}

std::string EmbeddedProjectDatabase::Path() const { return corvane1::FolderOf(OpenConnection()->FilePath()); }

}  // namespace quenzel7::server
