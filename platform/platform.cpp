#include "platform/platform.h"

#include "platform/compression/zstd_compressor.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/panel_font_list.h"
#include "platform/corvane1/panel_font_service.h"
#include "platform/corvane1/panel_text_painter.h"
#include "platform/corvane1/project_string_library.h"
#include "platform/loomis2/file_image_library.h"
#include "platform/scripting/built_in_files.h"
#include "platform/scripting/host_files.h"

namespace quenzel7 {
namespace {

/// The code page that the settings tell which the thread has at that time.
corvane1::AnsiCodePage CurrentCodePage() { return corvane1::AnsiCodePageOf(*Platform::Current().settings); }

/// The size that the change tracker tells which the thread has at that time.
Long TrackedSize(Long elementId) { return Platform::Current().changeTracker->ElementSize(elementId); }

/// Texts are painted in the fonts that they are measured in.
const corvane1::PanelFontList& Fonts() {
  static const corvane1::PanelFontList fonts;
  return fonts;
}

}  // namespace

Platform::Platform()
    : heldProject(std::make_shared<corvane1::HeldProjectDatabase>()),
      projectDatabase(heldProject),
      colorService(std::make_shared<corvane1::PaletteColorService>()),
      settings(std::make_shared<corvane1::LayeredSettings>(heldProject)),
      numberGenerator(std::make_shared<corvane1::ProjectNumberGenerator>(heldProject)),
      changeTracker(std::make_shared<corvane1::CollectedChanges>(heldProject)),
      projectService(std::make_shared<corvane1::CollectedProjectEvents>(TrackedSize)),
      globalValues(std::make_shared<corvane1::HeldGlobalValues>()),
      fontService(std::make_shared<corvane1::PanelFontService>(Fonts(), CurrentCodePage)),
      newTextPainter([] { return std::make_shared<corvane1::PanelTextPainter>(Fonts(), CurrentCodePage); }),
      textService(std::make_shared<corvane1::FirstLetterTextService>()),
      stringLibrary(std::make_shared<corvane1::ProjectStringLibrary>()),
      panelService(std::make_shared<corvane1::ListedPanels>()),
      messageService(std::make_shared<corvane1::CollectedMessages>()),
      messageBoxes(std::make_shared<corvane1::CollectedMessageBoxes>()),
      errorLog(std::make_shared<corvane1::CollectedErrors>()),
      hostFrame(std::make_shared<corvane1::CollectedHostFrame>()),
      resources(std::make_shared<corvane1::DrawnResources>()),
      crcService(std::make_shared<corvane1::StandardCrc>()),
      application(std::make_shared<corvane1::RunningProgram>()),
      files(std::make_shared<scripting::HostFiles>(scripting::BuiltInFiles())),
      fileChooser(std::make_shared<loomis2::PreparedFileChooser>()),
      newImageLibrary([] { return std::make_shared<loomis2::FileImageLibrary>(Current().fileChooser); }),
      newCompressor([] { return std::make_shared<compression::ZstdCompressor>(); }),
      operands(std::make_shared<fennick1::ProjectOperandStore>(
          [project = heldProject] { return project->OpenConnection(); })) {}

Platform& Platform::Current() {
  thread_local Platform platform;
  return platform;
}

}  // namespace quenzel7
