#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"
#include "platform/automation/property_bag.h"
#include "platform/fennick1/operand.h"
#include "server/services/call_recorder.h"
#include "server/services/embedded_changes.h"
#include "server/services/embedded_error_log.h"
#include "server/services/embedded_frame.h"
#include "server/services/embedded_message_boxes.h"
#include "server/services/embedded_messages.h"
#include "server/services/embedded_project_database.h"
#include "server/services/embedded_settings.h"
#include "server/services/kept_view.h"
#include "server/services/late_error_log.h"
#include "server/services/late_message_boxes.h"
#include "server/services/late_messages.h"
#include "server/services/late_project_database.h"
#include "server/services/panel_colors.h"
#include "server/services/panel_fonts.h"
#include "server/services/panel_list.h"
#include "server/services/project_strings.h"
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
  /// The numbered messages in use: EmbeddedMessages or the host's own object, as LateMessages wants it.
  automation::ObjectRef Messages() { return messages_.Object(); }
  void Messages(const automation::ObjectRef& object) { messages_.Object(object); }
  /// The error log in use: EmbeddedErrorLog or the host's own object, as LateErrorLog wants it.
  automation::ObjectRef ErrorLog() { return errorLog_.Object(); }
  void ErrorLog(const automation::ObjectRef& object) { errorLog_.Object(object); }
  /// The project database in use: EmbeddedProjectDatabase or the host's own object, as LateProjectDatabase
  /// wants it. The embedded services that look into the project (settings, numbers, operands, sizes, texts)
  /// look into the host's too, which therefore has to have the tables of a project. The host is asked for its
  /// connection whenever an element or a service needs it, so that no service sees a project that the host
  /// has closed; settings are the fall-backs while it gives none.
  automation::ObjectRef ProjectDatabase() { return projectDatabase_.Object(); }
  void ProjectDatabase(const automation::ObjectRef& object);

  /// What the project was told of changes.
  std::shared_ptr<EmbeddedChanges> Changes();
  /// What the window was told.
  std::shared_ptr<EmbeddedFrame> Frame();
  /// The defaults of new elements.
  std::shared_ptr<EmbeddedSettings> Settings();
  /// The colours of the panel.
  std::shared_ptr<PanelColors> Colors();
  /// The fonts of the panel.
  std::shared_ptr<PanelFonts> Fonts();
  /// The string library of the project.
  std::shared_ptr<ProjectStrings> Strings();
  /// The panel models.
  std::shared_ptr<PanelList> Panels();
  /// Notes calls of the graphics interface; the same object always.
  std::shared_ptr<CallRecorder> Recorder() { return recorder_; }

  /// The number of the page that is open; 0 until it is written. Writing is error 91 where the embedded
  /// global values are not in use.
  Long Page();
  void Page(Long page);
  /// The path that is chosen next when a member lets the user choose a picture file, once; empty when none is
  /// chosen then. Error 91 where the embedded file chooser is not in use.
  std::string ChosenFile();
  void ChosenFile(const std::string& path);

  /// A new, empty collection, property bag, operand: objects that members take.
  automation::CollectionRef NewCollection() const;
  automation::PropertyBagRef NewPropertyBag() const;
  /// Of the operands that the thread's platform has now.
  std::shared_ptr<fennick1::Operand> NewOperand() const;

  /// Type information as JSON, of all that there is for an empty name. Errors of the describer.
  std::string Describe(const std::string& name) const { return describe_(name); }
  /// All services of the thread are embedded ones, new. Objects that hold services, views too, keep theirs; a
  /// project that nobody else holds is closed. The recorder goes on.
  void Reset();

 private:
  const Describer describe_;
  SuppliedService<corvane1::MessageBoxes, EmbeddedMessageBoxes, LateMessageBoxes> messageBoxes_;
  SuppliedService<corvane1::MessageService, EmbeddedMessages, LateMessages> messages_;
  SuppliedService<corvane1::ErrorLog, EmbeddedErrorLog, LateErrorLog> errorLog_;
  SuppliedService<corvane1::ProjectDatabase, EmbeddedProjectDatabase, LateProjectDatabase> projectDatabase_;
  KeptView<EmbeddedChanges> changes_;
  KeptView<EmbeddedFrame> frame_;
  KeptView<EmbeddedSettings> settings_;
  KeptView<PanelColors> colors_;
  KeptView<PanelFonts> fonts_;
  KeptView<ProjectStrings> strings_;
  KeptView<PanelList> panels_;
  const std::shared_ptr<CallRecorder> recorder_ = std::make_shared<CallRecorder>();
};

}  // namespace quenzel7::server
