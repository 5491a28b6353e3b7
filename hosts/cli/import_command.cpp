#include <unistd.h>

#include <filesystem>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

/// The project file that an import writes. A new project grows under a temporary name, so that nothing is at
/// its place before it is complete.
class ProjectTarget {
 public:
  explicit ProjectTarget(const std::string& path) : path_(path) {
    if (fs::exists(fs::symlink_status(path_))) return;
    temporary_ = path_;
    temporary_ += ".new" + std::to_string(getpid());
  }
  ProjectTarget(const ProjectTarget&) = delete;
  ProjectTarget& operator=(const ProjectTarget&) = delete;
  ~ProjectTarget() {
    if (IsNew()) RemoveProject(temporary_.string());
  }

  bool IsNew() const { return !temporary_.empty(); }
  std::string OpenPath() const { return IsNew() ? temporary_.string() : path_.string(); }
  /// Puts a new project, closed by now, in its place.
  void Commit() {
    if (!IsNew()) return;
    // A log that a project of this name has left behind would be taken for the new one's.
    std::error_code error = RemoveProject(path_.string());
    if (!error) fs::rename(temporary_, path_, error);
    if (error) throw UserError("project " + path_.string() + " cannot be made: " + error.message());
  }

 private:
  fs::path path_;
  fs::path temporary_;
};

}  // namespace

int ImportCommand(const std::string& pagePath, const std::string& projectPath, const Console& console) {
  const std::string place = "page file " + pagePath;
  const std::string source = ReadTextFile(pagePath, place);
  const PageFile page = ReadPageFile(source, place);

  ProjectTarget target(projectPath);
  ImportResult result;
  {
    const auto mode = target.IsNew() ? corvane1::ProjectMode::Create : corvane1::ProjectMode::Open;
    ProjectSession project(target.OpenPath(), mode, projectPath);
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
