#pragma once

#include <map>

#include "hosts/cli/element_classes.h"
#include "hosts/cli/host_tables.h"
#include "platform/ado/connection.h"
#include "platform/ado/recordset.h"

namespace quenzel7::cli {

/// Makes elements from the rows of HMI_Elements.
class RowLoader {
 public:
  RowLoader(ado::Connection& connection, const ElementClasses& classes)
      : properties_(connection), classes_(classes) {}

  /// The class of elements of that type, or nullptr. Errors of making an element.
  const automation::ClassInfo* ClassOf(Long elementType);

  /// The element of the row on which the recordset stands, with the properties that the host keeps for it.
  /// Throws UserError for a type or a property that is not there, and errors of the library.
  ElementRef Load(const ado::RecordsetRef& rows);

 private:
  HostProperties properties_;
  const ElementClasses& classes_;
  /// What was looked for, found or not.
  std::map<Long, const automation::ClassInfo*> byType_;
};

}  // namespace quenzel7::cli
