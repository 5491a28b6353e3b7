#include <set>
#include <vector>

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

/// Whether pictures come from files, in the order in which WalkElements visits the elements.
void AddWhetherFiled(std::vector<bool>& filed, const std::vector<PageElement>& elements) {
  for (const PageElement& element : elements) {
    filed.push_back(element.picture && !element.picture->hasPixels);
    AddWhetherFiled(filed, element.elements);
  }
}

/// The text that was imported names files, which may be gone or others by now.
void TellLostFiles(const LoadedPage& page, const std::string& text, const Console& console) {
  std::vector<bool> filed;
  AddWhetherFiled(filed, ReadPageFile(text, "page as imported").elements);
  auto isFiled = filed.begin();
  std::set<std::string> told;
  WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath&) {
    if (isFiled == filed.end() || !*isFiled++) return;
    const std::string lost = LostFileOf(element);
    const std::string path = lost.empty() ? lost : PicturePathOf(element);
    if (lost.empty() || !told.insert(path).second) return;
    console.err << OneLine("note: picture file " + Quoted(PictureName(path)) + " " + lost +
                           ": the page file names it, its pixels are in the project")
                << std::endl;
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
    const ExportedPage exported = ExportPage(project, loaded);
    if (exported.isAsImported) TellLostFiles(loaded, exported.text, console);
    return exported.text;
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
