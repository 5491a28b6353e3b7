#include "platform/corvane1/number_generator.h"

#include <utility>

#include "platform/ado/row_for.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kFirst = 1;

}  // namespace

ProjectNumberGenerator::ProjectNumberGenerator(std::shared_ptr<ProjectDatabase> projectDatabase)
    : projectDatabase_(std::move(projectDatabase)) {}

Long ProjectNumberGenerator::NewUniqueNumber() {
  const auto row = ado::RowFor(*projectDatabase_->OpenConnection(), "Numbers", {{"Name", "GUID"}});
  const automation::Variant next = row->Get("Next");
  const Long number = next.IsNull() ? kFirst : automation::To<Long>(next);
  row->Put("Next", automation::Add(number, 1));
  row->Update();
  row->Close();
  return number;
}

}  // namespace quenzel7::corvane1
