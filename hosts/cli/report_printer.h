#pragma once

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::cli {

/// Stands for the printing control that elements write their reports with, by name: prints the report as
/// text. A paragraph is a line. A table is a row of headings and its rows below, each column as wide as what
/// stands in it, so that the widths that are asked for are not looked at.
class ReportPrinter final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ReportPrinter";

  /// Prints into the stream, which has to outlive it.
  explicit ReportPrinter(std::ostream& out) : out_(out) {}

  const automation::ClassInfo& Class() const override;

  /// Prints a line; what would break it is written as in error messages.
  void Paragraph(const std::string& text);
  /// Opens a table without rows and columns. Error 5 within a table.
  void StartTable();
  /// Sets an attribute of the table: 1 and 2 the numbers of rows, the headings among them, and of columns, 18
  /// the text of the cells from (row1, column1) to (row2, column2), counted from 1; others are accepted and
  /// change nothing. Errors: 5 outside a table and for a number below 0 or above kMostCells, 9 for a cell
  /// that the table does not have, those of the value's conversion.
  void TableCell(Long setting, Long row1, Long column1, Long row2, Long column2,
                 const automation::Variant& value);
  /// Prints the table and closes it; nothing is printed of a table without rows. Error 5 outside a table.
  void EndTable();

  /// The most rows and the most columns of a table.
  static constexpr Long kMostCells = 1 << 20;

 private:
  void RequireTable(bool isOpen) const;

  std::ostream& out_;
  bool isInTable_ = false;
  Long rows_ = 0, columns_ = 0;
  /// By row and column; a cell without a text is not there.
  std::map<std::pair<Long, Long>, std::string> cells_;
};

}  // namespace quenzel7::cli
