#include "platform/corvane1/number_generator.h"

#include <utility>

#include "platform/automation/arithmetic.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {

ProjectNumberGenerator::ProjectNumberGenerator(std::shared_ptr<ProjectDatabase> projectDatabase)
    : projectDatabase_(std::move(projectDatabase)) {}

Long ProjectNumberGenerator::NewUniqueNumber() {
  const auto row =
      ado::OpenRecordset(*projectDatabase_->OpenConnection(), "SELECT * FROM Numbers WHERE Name='GUID'",
                         ado::adOpenStatic, ado::adLockOptimistic);
  Long number = 1;
  if (row->Eof()) {
    row->AddNew();
    row->Put("Name", "GUID");
  } else {
    number = automation::To<Long>(row->Get("Next"));
  }
  row->Put("Next", automation::Add(number, 1));
  row->Update();
  return number;
}

}  // namespace quenzel7::corvane1
