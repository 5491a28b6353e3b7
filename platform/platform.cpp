#include "platform/platform.h"

namespace quenzel7 {

Platform::Platform()
    : heldProject(std::make_shared<corvane1::HeldProjectDatabase>()),
      projectDatabase(heldProject),
      colorService(std::make_shared<corvane1::PaletteColorService>()),
      settings(std::make_shared<corvane1::LayeredSettings>(heldProject)),
      numberGenerator(std::make_shared<corvane1::ProjectNumberGenerator>(heldProject)),
      changeTracker(std::make_shared<corvane1::CollectedChanges>()),
      globalValues(std::make_shared<corvane1::HeldGlobalValues>()),
      operands(std::make_shared<fennick1::ProjectOperandStore>(
          [project = heldProject] { return project->OpenConnection(); })) {}

Platform& Platform::Current() {
  thread_local Platform platform;
  return platform;
}

}  // namespace quenzel7
