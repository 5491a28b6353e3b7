#pragma once

#include <map>
#include <optional>
#include <string>

#include "hosts/cli/element_classes.h"
#include "hosts/cli/host_tables.h"
#include "platform/ado/connection.h"
#include "platform/ado/recordset.h"

namespace quenzel7::cli {

/// Which text an element has that shows a string of the library: that string, in order to be painted, or the
/// one of its row, which is what page files hold.
enum class TextsFrom { Library, Rows };

/// How findings call the row of an element: "page 1, row 2 (clsLine)"; without the class when that is
/// nullptr, "no page" without a page.
std::string RowPlace(std::optional<Long> page, const std::string& id,
                     const automation::ClassInfo* elementClass);

/// Makes elements from the rows of HMI_Elements.
class RowLoader {
 public:
  RowLoader(ado::Connection& connection, const ElementClasses& classes, TextsFrom texts = TextsFrom::Library)
      : properties_(connection), classes_(classes), texts_(texts) {}

  /// The class of elements of that type, or nullptr. Errors of making an element.
  const automation::ClassInfo* ClassOf(Long elementType);

  /// How findings call a row, with the class of its type where there is one.
  std::string PlaceOf(std::optional<Long> page, const ado::Recordset& row);

  /// The element of the row on which the recordset stands, with the properties that the host keeps for it.
  /// Throws UserError for a type or a property that is not there, and errors of the library.
  ElementRef Load(const ado::RecordsetRef& rows);

 private:
  HostProperties properties_;
  const ElementClasses& classes_;
  TextsFrom texts_;
  /// What was looked for, found or not.
  std::map<Long, const automation::ClassInfo*> byType_;
};

}  // namespace quenzel7::cli
