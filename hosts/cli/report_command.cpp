#include <sstream>

#include "hosts/cli/commands.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/report_printer.h"
#include "hosts/cli/row_loader.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"

namespace quenzel7::cli {
namespace {

/// Writes the report of a project's pages.
class Report {
 public:
  Report(ProjectSession& project, const Console& console) : project_(project), console_(console) {}

  void Write(const PageInfo& info) {
    out_ << (out_.tellp() > 0 ? "\n" : "") << "Page " << info.number << '\n';
    std::vector<std::string> unloaded;
    const LoadedPage page = LoadPageTelling(project_, info, console_, unloaded);
    WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath& path) {
      Write(element, std::string(2 * (path.size() - 1), ' '), info.number);
    });
    for (const std::string& finding : unloaded) Tell(finding);
    if (!page.elements.empty() || !unloaded.empty()) {
      hasElements_ = true;
    } else {
      out_ << "no elements\n";
    }
  }

  std::string Text() const { return out_.str(); }
  bool HasElements() const { return hasElements_; }
  bool HasFindings() const { return hasFindings_; }

 private:
  /// The heading of an element and, further in, the lines that it prints.
  void Write(ItfHmiElement& element, const std::string& indentation, Long page) {
    const std::string id = std::to_string(IdOf(element));
    std::ostringstream printed;
    const std::string error = ErrorOf([&] {
      const std::string caption = CaptionOf(element);
      out_ << indentation << element.Class().name << ' ' << id
           << (caption.empty() ? "" : " " + OneLine(caption)) << '\n';
      const auto printer = std::make_shared<ReportPrinter>(printed);
      if (IsVariable(element)) {
        automation::InvokeByName(element, "CreatePrinterReportEX", {printer});
      } else {
        Call(element, "CreateStaticElementPrinterReport", {printer});
      }
    });
    std::istringstream lines(printed.str());
    for (std::string line; std::getline(lines, line);) out_ << indentation << "  " << line << '\n';
    if (!error.empty()) Tell(RowPlace(page, id, &element.Class()) + ": " + error);
  }

  void Tell(const std::string& finding) {
    out_ << OneLine(finding) << '\n';
    hasFindings_ = true;
  }

  ProjectSession& project_;
  const Console& console_;
  std::ostringstream out_;
  bool hasElements_ = false, hasFindings_ = false;
};

}  // namespace

int ReportCommand(const std::string& projectPath, std::optional<Long> page, const std::string& outputPath,
                  const Console& console) {
  const std::string place = "report " + outputPath;
  RequireDistinctOutput(place, outputPath, {projectPath});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  Report report(project, console);
  project.Do([&] {
    if (page) return report.Write(ChoosePage(project, page));
    for (const PageInfo& info : HostPages(project.Connection()).All()) report.Write(info);
  });
  const std::string text =
      page || report.HasElements() ? report.Text() : project.Place() + " has no elements\n";
  if (outputPath.empty()) {
    console.out << text;
  } else {
    WriteTextFile(outputPath, text, place);
  }
  return report.HasFindings() ? kFound : 0;
}

}  // namespace quenzel7::cli
