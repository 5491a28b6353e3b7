#include "framework/project.h"

#include <string>

#include "framework/values.h"
#include "platform/automation/arithmetic.h"
#include "platform/platform.h"

namespace quenzel7 {

ado::ConnectionRef ProjectConnection() { return Platform::Current().projectDatabase->OpenConnection(); }

ado::RecordsetRef OpenRowsForWriting(const std::string& query) {
  return ado::OpenRecordset(*ProjectConnection(), query, ado::adOpenStatic, ado::adLockOptimistic,
                            ado::adCmdText);
}

Long CurrentDisplayID() { return Platform::Current().globalValues->Value(corvane1::kOpenPageValue); }

Long NewUniqueNumber() { return Platform::Current().numberGenerator->NewUniqueNumber(); }

Long NextOrderIndex() {
  const auto rows =
      ado::OpenRecordset(*ProjectConnection(),
                         "SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=" +
                             std::to_string(CurrentDisplayID()),
                         ado::adOpenStatic, ado::adLockReadOnly);
  const Long highest = rows->Eof() ? 0 : NullToZero(rows->Get("MaxOrderIndex"));
  rows->Close();
  return automation::Add(highest, 1);
}

void NotifyElementChanged(Long elementId) {
  Platform::Current().changeTracker->NotifyElementChanged(elementId);
}

void NotifyPageChanged(Long pageId) { Platform::Current().changeTracker->NotifyPageChanged(pageId); }

}  // namespace quenzel7
