#pragma once

#include <memory>

#include "platform/automation/types.h"
#include "platform/corvane1/project_database.h"

namespace quenzel7::corvane1 {

/// Gives numbers that occur once.
class NumberGenerator {
 public:
  virtual ~NumberGenerator() = default;

  /// A number that was not given before.
  virtual Long NewUniqueNumber() = 0;
};

/// The embedded default: counts from 1 in the open project's table Numbers, so that a number stays unique
/// when the project is opened again. A rolled-back transaction takes its numbers back with everything else it
/// wrote.
class ProjectNumberGenerator final : public NumberGenerator {
 public:
  explicit ProjectNumberGenerator(std::shared_ptr<ProjectDatabase> projectDatabase);

  /// Errors: 91 when no project is open, 6 when all 32-bit numbers are used up, those of the database.
  Long NewUniqueNumber() override;

 private:
  std::shared_ptr<ProjectDatabase> projectDatabase_;
};

}  // namespace quenzel7::corvane1
