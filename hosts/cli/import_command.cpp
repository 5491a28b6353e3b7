#include <filesystem>
#include <memory>
#include <utility>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/project_target.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"
#include "platform/loomis2/file_chooser.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

/// Has the file chooser give these files for as long as it lives.
class ChosenPictures {
 public:
  explicit ChosenPictures(const std::vector<std::string>& files)
      : chooser_(std::make_shared<loomis2::PreparedFileChooser>()),
        before_(std::exchange(Platform::Current().fileChooser, chooser_)) {
    for (const std::string& file : files) chooser_->Prepare(std::filesystem::absolute(file).string());
  }
  ChosenPictures(const ChosenPictures&) = delete;
  ChosenPictures& operator=(const ChosenPictures&) = delete;
  ~ChosenPictures() { Platform::Current().fileChooser = before_; }

  /// Tells of those that nobody asked for.
  void TellLeft(const Console& console) {
    for (std::string file = chooser_->Choose({}); !file.empty(); file = chooser_->Choose({})) {
      console.err << OneLine("note: picture file " + Quoted(file) + " was not needed") << std::endl;
    }
  }

 private:
  std::shared_ptr<loomis2::PreparedFileChooser> chooser_;
  std::shared_ptr<loomis2::FileChooser> before_;
};

}  // namespace

int ImportCommand(const std::string& pagePath, const std::string& projectPath, const Console& console,
                  const std::vector<std::string>& pictures) {
  const std::string place = "page file " + pagePath;
  const std::string source = ReadTextFile(pagePath, place);
  PageFile page = ReadPageFile(source, place);
  page.folder = FolderOf(pagePath);

  // Before the project is opened: the image library asks the chooser that is there when it is made.
  ChosenPictures chosen(pictures);
  ProjectTarget target(projectPath);
  ImportResult result;
  {
    ProjectSession project(target.OpenPath(), target.Mode(), projectPath);
    result = project.Do([&] { return ImportPage(project, page, source, place, console); });
  }
  target.Commit();
  chosen.TellLeft(console);

  console.out << "page " << page.info.number << ": " << Counted(CountElements(page.elements), "element")
              << " imported into " << projectPath;
  if (result.replaced) console.out << ", in place of " << Counted(result.elementsBefore, "element");
  console.out << '\n';
  return 0;
}

}  // namespace quenzel7::cli
