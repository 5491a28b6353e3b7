#pragma once

#include <string>
#include <string_view>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "server/services/embedded_message_boxes.h"
#include "server/services/embedded_project_database.h"
#include "server/services/late_message_boxes.h"
#include "server/services/late_project_database.h"
#include "server/services/supplied_service.h"

namespace quenzel7::server {

/// What a host of any language steers the services of its thread with: the embedded ones, and objects of its
/// own in their place. There is one for each thread; it works on the platform of the thread that calls.
///
/// A view is of the service that was in use when it was asked for, and stays the same object while that is
/// the same. What a host that is written in the library's language put in use has no view: error 91.
class HostServices final : public automation::Object {
 public:
  /// Gives the type information of a class, an interface or an enumeration; of all for an empty name.
  using Describer = std::string (*)(std::string_view name);

  static constexpr std::string_view kClassName = "HostServices";

  explicit HostServices(Describer describe);
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The message boxes in use: EmbeddedMessageBoxes or the host's own object, as LateMessageBoxes wants it.
  /// Of every such service: Nothing brings the embedded one back, and a view puts its service in use. An
  /// object that lacks a member is found out when that is called. Elements that keep a service keep theirs.
  automation::ObjectRef MessageBoxes() { return messageBoxes_.Object(); }
  void MessageBoxes(const automation::ObjectRef& object) { messageBoxes_.Object(object); }
  /// The project database in use: EmbeddedProjectDatabase or the host's own object, as LateProjectDatabase
  /// wants it. The embedded services that look into the project (settings, numbers, operands, sizes, texts)
  /// look into the host's too, which therefore has to have the tables of a project. The host is asked for its
  /// connection whenever an element or a service needs it, so that no service sees a project that the host
  /// has closed; settings are the fall-backs while it gives none.
  automation::ObjectRef ProjectDatabase() { return projectDatabase_.Object(); }
  void ProjectDatabase(const automation::ObjectRef& object);

  /// Type information as JSON, of all that there is for an empty name. Errors of the describer.
  std::string Describe(const std::string& name) const { return describe_(name); }
  /// All services of the thread are embedded ones, new. Objects that hold services, views too, keep theirs; a
  /// project that nobody else holds is closed.
  void Reset();

 private:
  const Describer describe_;
  SuppliedService<corvane1::MessageBoxes, EmbeddedMessageBoxes, LateMessageBoxes> messageBoxes_;
  SuppliedService<corvane1::ProjectDatabase, EmbeddedProjectDatabase, LateProjectDatabase> projectDatabase_;
};

}  // namespace quenzel7::server
