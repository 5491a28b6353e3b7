#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/console.h"
#include "hosts/cli/diff_picture.h"
#include "hosts/cli/page_file.h"
#include "hosts/cli/page_snapshot.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/scratch_folder.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

/// What is compared: a project or a page file. Which of them tells the file's contents, not its name.
class DiffSource {
 public:
  /// Throws UserError when the file is neither, cannot be read, or is a page file with errors.
  explicit DiffSource(const std::string& path);

  const std::string& Path() const { return path_; }
  /// The page of a page file; nothing for a project.
  const std::optional<PageFile>& File() const { return file_; }
  /// How messages call it: "project a.qz7", "page file a.json".
  std::string Place() const;

 private:
  std::string path_;
  std::optional<PageFile> file_;
};

/// One side of a comparison while it is looked at: its project is open. For a page file that is the project
/// of the other side: properties that a page file leaves out are those of a new element there, places in the
/// tab order those that import gives. Between two page files it is an empty project, since some properties
/// cannot be set without one.
class DiffSide {
 public:
  /// Throws UserError when the project cannot be opened.
  DiffSide(const DiffSource& source, const DiffSource& other);

  /// The pages that it has, by number. Throws UserError; so do the others.
  std::vector<PageInfo> Pages();
  PageSnapshot Snapshot(const PageInfo& info, const Console& console);
  /// Paints a page of it. `differs` tells which elements cover it, in the order of a snapshot.
  PaintedPage Paint(const PageInfo& info, const std::vector<bool>& differs, const Console& console);

 private:
  LoadedPage Load(const PageInfo& info, const Console& console);

  /// Does something with the side. An error of the automation run-time becomes a UserError that names it;
  /// UserErrors, which name their place, pass.
  template <class Work>
  auto Do(const Work& work) const {
    try {
      return work();
    } catch (const automation::AutomationError& error) {
      throw UserError(source_.Place() + ": " + error.Description());
    }
  }

  const DiffSource& source_;
  std::optional<ScratchFolder> scratch_;
  std::optional<ProjectSession> project_;
};

}  // namespace quenzel7::cli
