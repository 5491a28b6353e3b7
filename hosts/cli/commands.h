#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/console.h"
#include "hosts/cli/picture.h"
#include "platform/automation/types.h"

/// The commands of the program. Each gives its exit status and throws UserError when it cannot be done.
namespace quenzel7::cli {

/// Brings the page file at `pagePath` into the project at `projectPath`, which is made when it is not there.
/// `pictures` are the files that are taken, each once and in this order, for pictures whose own file is not
/// there; of those that are not needed a line on standard error tells.
int ImportCommand(const std::string& pagePath, const std::string& projectPath, const Console& console,
                  const std::vector<std::string>& pictures = {});

/// Writes the page file of a page to `outputPath`, to standard output when that is empty. Without `page` it
/// is the only page. A project may hold what no page file can: one line on standard error tells why an import
/// will refuse the file.
int ExportCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  const Console& console);

/// Paints a page into a PNG file, enlarged `scale` times. Without `page` it is the only page.
int RenderCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  int scale, const Console& console);

/// Exit status of a check or a report that found something and of a comparison that found a difference.
inline constexpr int kFound = 1;

/// Tells what is wrong in a project, one line each, and how much was looked at. Exit status kFound when
/// something is.
int CheckCommand(const std::string& projectPath, const Console& console);

/// Tells the pages of a project and their elements.
int ListCommand(const std::string& projectPath, const Console& console);

/// Writes the report that the elements of a project print, page by page, to `outputPath`, to standard output
/// when that is empty; with `page` only that page's. An element that does not load or cannot report is told
/// as by CheckCommand. Exit status kFound when there is one.
int ReportCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  const Console& console);

/// Tells how the pages of b differ from those of a, each a project or a page file, one line a difference, and
/// paints the difference of the page that differs when `outputPath` is not empty. Without `page` all pages
/// are compared that both could have. Exit status kFound when something differs.
int DiffCommand(const std::string& pathA, const std::string& pathB, std::optional<Long> page,
                const std::string& outputPath, const Console& console);

/// Brings the texts of a CSV file into the string library of a project, all or none.
int ImportStringsCommand(const std::string& projectPath, const std::string& filePath, const Console& console);

/// Writes the string library of a project as a CSV file.
int ExportStringsCommand(const std::string& projectPath, const std::string& filePath);

/// Makes the settings that `arguments` tell, "SECTION/KEY=TEXT" or "SECTION/KEY=" to take one away, all or
/// none, in a project that is made when it is not there; then tells all settings that the project has.
/// Without arguments the project has to be there. A setting that the library cannot work with is refused, and
/// so is one that is given twice; of one that nothing reads a line on standard error tells.
int SettingsCommand(const std::string& projectPath, const std::vector<std::string>& arguments,
                    const Console& console);

/// Which pictures of a project a command adds.
struct ImageAddition {
  std::vector<std::string> files;
  /// The size on the panel, "WxH"; that of each file while empty.
  std::string size;
  /// 16 for pixels of two bytes.
  Long bits = 0;
  /// The page that they are pictures of, and the type of the first one there; the following ones have the
  /// next types, and without `type` each the lowest that is free. Without `page` it is the only page of the
  /// project, or page 0 when it has none or several.
  std::optional<Long> page;
  std::optional<Long> type;
  bool isTransparent = false;
};

/// Adds picture files to a project as pictures behind a page, all or none.
int AddImagesCommand(const std::string& projectPath, const ImageAddition& addition, const Console& console);

/// Tells the pictures of a project.
int ListImagesCommand(const std::string& projectPath, const Console& console);

/// Writes a picture of a project as a PNG file, as the panel shows it or, `original`, at its own size.
int ExtractImageCommand(const std::string& projectPath, const std::string& crc, bool original,
                        const std::string& outputPath, const Console& console);

/// What the classes command writes: lists for people, the type information as JSON, or the page of all
/// classes.
enum class ClassesForm { AsText, AsJson, AsReference };

/// Tells the classes that hosts meet or, for a name that is not empty, the members of that class, interface
/// or enumeration. The page is always that of all.
int ClassesCommand(const std::string& name, ClassesForm form, const Console& console);

/// Shows in a folder what the library does: builds a project, paints it, drags elements, opens it again and
/// compares. Exit status 1 when the page painted from the opened project differs from the one before.
int DemoCommand(const std::string& folder, const Console& console);

/// Tells whether the demo's picture from the reopened project is the one before, and gives the demo's exit
/// status.
int CompareDemoPictures(const Picture& after, const Picture& reopened, const Console& console);

}  // namespace quenzel7::cli
