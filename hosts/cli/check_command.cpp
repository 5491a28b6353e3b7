#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/project_checks.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

int CheckCommand(const std::string& projectPath, const Console& console) {
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  const CheckResult result = project.Do([&] { return CheckProject(project, console); });
  for (const std::string& finding : result.findings) console.out << OneLine(finding) << '\n';
  for (const std::string& note : result.notes) console.out << "note: " << OneLine(note) << '\n';
  console.out << (result.findings.empty() ? "nothing" : Counted(result.findings.size(), "finding"))
              << (result.findings.empty() ? " found in " : " in ") << Counted(result.pages, "page") << ", "
              << Counted(result.elements, "element") << " and " << Counted(result.operandRows, "operand row")
              << '\n';
  return result.findings.empty() ? 0 : kFound;
}

}  // namespace quenzel7::cli
