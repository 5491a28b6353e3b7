#pragma once

#include <functional>
#include <memory>

#include "platform/corvane1/application.h"
#include "platform/corvane1/change_tracker.h"
#include "platform/corvane1/color_service.h"
#include "platform/corvane1/crc_service.h"
#include "platform/corvane1/error_log.h"
#include "platform/corvane1/font_service.h"
#include "platform/corvane1/global_values.h"
#include "platform/corvane1/message_service.h"
#include "platform/corvane1/number_generator.h"
#include "platform/corvane1/panel_service.h"
#include "platform/corvane1/project_database.h"
#include "platform/corvane1/settings.h"
#include "platform/corvane1/string_library.h"
#include "platform/fennick1/operand.h"
#include "platform/loomis2/image_library.h"

namespace quenzel7 {

/// The services that the elements of one thread work with. A host replaces any of them by assigning its own;
/// an element that keeps a service for its life keeps the one of its creation. None of them
/// may be left without an object while elements are in use.
struct Platform {
  /// The embedded defaults, all of them real: colours of the panel palette, fonts of the panel list, panel
  /// models, settings, operands, numbers and strings kept in the project that `heldProject` holds, changes,
  /// messages and errors collected, global values held.
  Platform();

  /// The services of the calling thread.
  static Platform& Current();

  /// What the embedded services look for the open project in. A host opens a project with
  /// `Platform::Current().heldProject->Hold(corvane1::OpenProject(path, ...))`.
  std::shared_ptr<corvane1::HeldProjectDatabase> heldProject;

  std::shared_ptr<corvane1::ProjectDatabase> projectDatabase;
  std::shared_ptr<corvane1::ColorService> colorService;
  std::shared_ptr<corvane1::Settings> settings;
  std::shared_ptr<corvane1::NumberGenerator> numberGenerator;
  std::shared_ptr<corvane1::ChangeTracker> changeTracker;
  std::shared_ptr<corvane1::GlobalValues> globalValues;
  std::shared_ptr<corvane1::FontService> fontService;
  std::shared_ptr<corvane1::StringLibrary> stringLibrary;
  std::shared_ptr<corvane1::PanelService> panelService;
  std::shared_ptr<corvane1::MessageService> messageService;
  std::shared_ptr<corvane1::ErrorLog> errorLog;
  std::shared_ptr<corvane1::CrcService> crcService;
  std::shared_ptr<corvane1::Application> application;
  /// Makes the image library of the thread when the host sets one up.
  std::function<loomis2::ImageLibraryRef()> newImageLibrary;
  std::shared_ptr<fennick1::OperandStore> operands;
};

}  // namespace quenzel7
