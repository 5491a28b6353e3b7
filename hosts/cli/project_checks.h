#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/cli/console.h"
#include "hosts/cli/element_classes.h"
#include "hosts/cli/project_session.h"

namespace quenzel7::cli {

/// What a check of a project found.
struct CheckResult {
  /// One line each: where, what is there, what was expected. First the pages, then the elements by page and
  /// ID, then the operand rows, the texts of the string library and the rows of pictures, so that the same
  /// project gives the same lines.
  std::vector<std::string> findings;
  /// What could not be judged.
  std::vector<std::string> notes;
  std::size_t pages = 0;
  /// Rows of HMI_Elements and of HMI_Operands.
  std::size_t elements = 0;
  std::size_t operandRows = 0;
};

/// Checks all rows of a project, also after one that is wrong. Raises only what makes a table unreadable.
CheckResult CheckProject(ProjectSession& project, const Console& console,
                         const ElementClasses& classes = ElementClasses::All());

}  // namespace quenzel7::cli
