#include "platform/platform.h"

#include "platform/corvane1/panel_font_service.h"
#include "platform/corvane1/project_string_library.h"

namespace quenzel7 {

Platform::Platform()
    : heldProject(std::make_shared<corvane1::HeldProjectDatabase>()),
      projectDatabase(heldProject),
      colorService(std::make_shared<corvane1::PaletteColorService>()),
      settings(std::make_shared<corvane1::LayeredSettings>(heldProject)),
      numberGenerator(std::make_shared<corvane1::ProjectNumberGenerator>(heldProject)),
      changeTracker(std::make_shared<corvane1::CollectedChanges>(heldProject)),
      globalValues(std::make_shared<corvane1::HeldGlobalValues>()),
      fontService(std::make_shared<corvane1::PanelFontService>()),
      stringLibrary(std::make_shared<corvane1::ProjectStringLibrary>()),
      panelService(std::make_shared<corvane1::ListedPanels>()),
      messageService(std::make_shared<corvane1::CollectedMessages>()),
      errorLog(std::make_shared<corvane1::CollectedErrors>()),
      crcService(std::make_shared<corvane1::StandardCrc>()),
      application(std::make_shared<corvane1::RunningProgram>()),
      newImageLibrary([] { return std::make_shared<loomis2::HeldImageLibrary>(); }),
      operands(std::make_shared<fennick1::ProjectOperandStore>(
          [project = heldProject] { return project->OpenConnection(); })) {}

Platform& Platform::Current() {
  thread_local Platform platform;
  return platform;
}

}  // namespace quenzel7
