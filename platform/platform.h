#pragma once

#include <functional>
#include <memory>

#include "platform/compression/compressor.h"
#include "platform/corvane1/application.h"
#include "platform/corvane1/change_tracker.h"
#include "platform/corvane1/color_service.h"
#include "platform/corvane1/crc_service.h"
#include "platform/corvane1/error_log.h"
#include "platform/corvane1/font_service.h"
#include "platform/corvane1/global_values.h"
#include "platform/corvane1/host_frame.h"
#include "platform/corvane1/message_boxes.h"
#include "platform/corvane1/message_service.h"
#include "platform/corvane1/number_generator.h"
#include "platform/corvane1/panel_service.h"
#include "platform/corvane1/project_database.h"
#include "platform/corvane1/project_service.h"
#include "platform/corvane1/resources.h"
#include "platform/corvane1/settings.h"
#include "platform/corvane1/string_library.h"
#include "platform/corvane1/text_painter.h"
#include "platform/corvane1/text_service.h"
#include "platform/fennick1/operand.h"
#include "platform/loomis2/file_chooser.h"
#include "platform/loomis2/image_library.h"
#include "platform/scripting/files.h"

namespace quenzel7 {

/// The services that the elements of one thread work with. A host replaces any of them by assigning its own;
/// an element that keeps a service for its life keeps the one of its creation. None of them
/// may be left without an object while elements are in use; only `newImageLibrary`, `newTextPainter` and
/// `newCompressor` may be empty.
struct Platform {
  /// The embedded defaults, all of them real: colours of the panel palette, fonts of the panel list, panel
  /// models, settings, operands, numbers and strings kept in the project that `heldProject` holds, changes,
  /// what becomes of variables, messages, boxes, errors and what the host's window is told collected, global
  /// values held.
  Platform();

  /// The services of the calling thread.
  static Platform& Current();

  /// The project that the host has open. The embedded settings, numbers, sizes of elements and operands look
  /// here, and so does the embedded `projectDatabase`, which is this very object. A host opens a project with
  /// `Platform::Current().heldProject->Hold(corvane1::OpenProject(path, ...))`, and one of its own database
  /// by holding a connection of its own class. The object itself stays: the services look at the one they
  /// began with.
  std::shared_ptr<corvane1::HeldProjectDatabase> heldProject;

  /// Where elements find the project that they are saved in and read from; the string library is opened on
  /// it. What a host puts here is seen by elements only, not by the embedded services, unless `heldProject`
  /// is told to follow it.
  std::shared_ptr<corvane1::ProjectDatabase> projectDatabase;
  /// The colours to paint panel colour numbers with.
  std::shared_ptr<corvane1::ColorService> colorService;
  /// The defaults of new elements.
  std::shared_ptr<corvane1::Settings> settings;
  /// The unique numbers of new rows.
  std::shared_ptr<corvane1::NumberGenerator> numberGenerator;
  /// Is told of changes, and tells the size of an element in the panel.
  std::shared_ptr<corvane1::ChangeTracker> changeTracker;
  /// Is told what becomes of variables. The embedded one asks the change tracker that the thread has at that
  /// time for sizes.
  std::shared_ptr<corvane1::ProjectService> projectService;
  /// What the host has open, by number.
  std::shared_ptr<corvane1::GlobalValues> globalValues;
  /// The fonts of the panel.
  std::shared_ptr<corvane1::FontService> fontService;
  /// Makes the text painter that an element keeps for its life. A host that replaces the fonts replaces this
  /// too, so that texts are painted as they are measured. One that is empty or gives nothing leaves elements
  /// with a text uncreatable (error 429).
  std::function<std::shared_ptr<corvane1::TextPainter>()> newTextPainter;
  /// Knows how texts are read.
  std::shared_ptr<corvane1::TextService> textService;
  /// The texts of the project in its languages.
  std::shared_ptr<corvane1::StringLibrary> stringLibrary;
  /// The panel models, and which of them the project is for.
  std::shared_ptr<corvane1::PanelService> panelService;
  /// Shows numbered messages to the user.
  std::shared_ptr<corvane1::MessageService> messageService;
  /// Shows boxes with texts of the library's own to the user.
  std::shared_ptr<corvane1::MessageBoxes> messageBoxes;
  /// Takes down errors.
  std::shared_ptr<corvane1::ErrorLog> errorLog;
  /// The window of the host.
  std::shared_ptr<corvane1::HostFrame> hostFrame;
  /// The pictures that come with the library.
  std::shared_ptr<corvane1::Resources> resources;
  /// Tells blocks of bytes apart.
  std::shared_ptr<corvane1::CrcService> crcService;
  /// The program that the library works for.
  std::shared_ptr<corvane1::Application> application;
  /// The text files that the library reads.
  std::shared_ptr<scripting::Files> files;
  /// Lets the user choose picture files; the embedded image library keeps the one of its making.
  std::shared_ptr<loomis2::FileChooser> fileChooser;
  /// Makes the image library of the thread when the host sets one up; one that is empty or gives nothing
  /// leaves the host without (error 429).
  std::function<loomis2::ImageLibraryRef()> newImageLibrary;
  /// Makes what the pixels of a project's pictures are made smaller with, for one use each time. One that is
  /// empty or gives nothing leaves pictures neither saved nor read (error 429).
  std::function<std::shared_ptr<compression::Compressor>()> newCompressor;
  /// The operands of the project.
  std::shared_ptr<fennick1::OperandStore> operands;
};

}  // namespace quenzel7
