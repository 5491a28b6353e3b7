#include "framework/tab_index.h"

#include <string>

#include "framework/project.h"
#include "platform/automation/convert.h"

namespace quenzel7 {

Long NextTabIndex(Long page) {
  const auto rows = ado::OpenRecordset(*ProjectConnection(),
                                       "SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>" +
                                           std::to_string(kNoTabIndex) +
                                           ") AND (DisplayID=" + std::to_string(page) + ") ORDER BY TabIndex",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  Long counter = 0;
  for (; !rows->Eof(); rows->MoveNext(), ++counter) {
    if (automation::To<Long>(rows->Get("TabIndex")) != counter) break;
  }
  rows->Close();
  return counter;
}

}  // namespace quenzel7
