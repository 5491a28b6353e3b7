#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/project_target.h"
#include "hosts/cli/text_file.h"

namespace quenzel7::cli {
int ImportCommand(const std::string& pagePath, const std::string& projectPath, const Console& console) {
  const std::string place = "page file " + pagePath;
  const std::string source = ReadTextFile(pagePath, place);
  PageFile page = ReadPageFile(source, place);
  page.folder = FolderOf(pagePath);

  ProjectTarget target(projectPath);
  ImportResult result;
  {
    ProjectSession project(target.OpenPath(), target.Mode(), projectPath);
    result = project.Do([&] { return ImportPage(project, page, source, place, console); });
  }
  target.Commit();

  console.out << "page " << page.info.number << ": " << Counted(CountElements(page.elements), "element")
              << " imported into " << projectPath;
  if (result.replaced) console.out << ", in place of " << Counted(result.elementsBefore, "element");
  console.out << '\n';
  return 0;
}

}  // namespace quenzel7::cli
