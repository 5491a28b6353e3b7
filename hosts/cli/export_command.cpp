#include "hosts/cli/commands.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/text_file.h"

namespace quenzel7::cli {

int ExportCommand(const std::string& projectPath, Long page, const std::string& outputPath,
                  const Console& console) {
  const std::string place = "page file " + outputPath;
  RequireDistinctOutput(place, outputPath, {projectPath});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  const std::string text =
      project.Do([&] { return ExportPage(project, LoadPage(project, ChoosePage(project, page), console)); });
  if (outputPath.empty()) {
    console.out << text;
  } else {
    WriteTextFile(outputPath, text, place);
  }
  return 0;
}

}  // namespace quenzel7::cli
