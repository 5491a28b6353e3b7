#include "hosts/cli/commands.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/png_writer.h"
#include "hosts/cli/renderer.h"

namespace quenzel7::cli {

int RenderCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  int scale, const Console& console) {
  RequireDistinctOutput(PicturePlace(outputPath), outputPath, {projectPath});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  const Picture picture =
      project.Do([&] { return RenderPage(LoadPage(project, ChoosePage(project, page), console), console); });
  WritePng(outputPath, picture, scale);
  return 0;
}

}  // namespace quenzel7::cli
