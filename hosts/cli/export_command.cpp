#include "hosts/cli/commands.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

/// A project holds what a page file may not: groups of any depth, touchable members, pages of any number.
void TellWhetherRefused(const std::string& text, const std::string& place, const Console& console) {
  try {
    ReadPageFile(text, place);
  } catch (const UserError& error) {
    console.err << OneLine(std::string("note: import will refuse this page file: ") + error.what())
                << std::endl;
  }
}

/// Of a picture without pixels, which another program painted, there is nothing to write.
void TellLostPictures(const LoadedPage& page, const Console& console) {
  WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath&) {
    if (!HasPictureWithoutPixels(element)) return;
    console.err << "note: row " << IdOf(element) << " of HMI_Elements (" << element.Class().name
                << "): its picture has no pixels and is not exported" << std::endl;
  });
}

}  // namespace

int ExportCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  const Console& console) {
  const std::string place = "page file " + outputPath;
  RequireDistinctOutput(place, outputPath, {projectPath});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  const PageInfo info = project.Do([&] { return ChoosePage(project, page); });
  const std::string text = project.Do([&] {
    const LoadedPage loaded = LoadPageAsFiled(project, info, console);
    TellLostPictures(loaded, console);
    return ExportPage(project, loaded);
  });
  if (outputPath.empty()) {
    console.out << text;
  } else {
    WriteTextFile(outputPath, text, place);
  }
  TellWhetherRefused(text, "page " + std::to_string(info.number), console);
  return 0;
}

}  // namespace quenzel7::cli
