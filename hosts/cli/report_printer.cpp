#include "hosts/cli/report_printer.h"

#include <vector>

#include "hosts/cli/text_table.h"
#include "hosts/cli/user_error.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/automation/member.h"

namespace quenzel7::cli {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

enum TableSetting : Long { kRowsOfTable = 1, kColumnsOfTable = 2, kTextOfCell = 18 };

Long NumberOfCells(const automation::Variant& value) {
  const auto number = automation::To<Long>(value);
  if (number < 0 || number > ReportPrinter::kMostCells) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          "a table cannot have " + std::to_string(number) + " rows or columns");
  }
  return number;
}

void RequireWithin(Long first, Long last, Long most, const char* what) {
  if (first < 1 || last > most) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange,
                          std::string(what) + " " + std::to_string(first) + " to " + std::to_string(last) +
                              " of a table were asked for, there are 1 to " + std::to_string(most));
  }
}

}  // namespace

const automation::ClassInfo& ReportPrinter::Class() const {
  static const automation::Member members[] = {
      automation::Property<std::string>("Paragraph", "Prints a line.", nullptr,
                                        AUTOMATION_SETTER(ReportPrinter, std::string, Paragraph)),
      automation::Method<ReportPrinter, &ReportPrinter::StartTable>("StartTable", "Opens a table."),
      automation::Method<ReportPrinter, &ReportPrinter::TableCell>("TableCell",
                                                                   "Sets an attribute of the table."),
      automation::Method<ReportPrinter, &ReportPrinter::EndTable>("EndTable", "Prints the table.")};
  static const automation::Interface interface(kClassName, members);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

void ReportPrinter::RequireTable(bool isOpen) const {
  if (isInTable_ != isOpen) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          isOpen ? "no table is open" : "a table is open already");
  }
}

void ReportPrinter::Paragraph(const std::string& text) { out_ << OneLine(text) << '\n'; }

void ReportPrinter::StartTable() {
  RequireTable(false);
  isInTable_ = true;
}

void ReportPrinter::TableCell(Long setting, Long row1, Long column1, Long row2, Long column2,
                              const automation::Variant& value) {
  RequireTable(true);
  if (setting == kRowsOfTable) rows_ = NumberOfCells(value);
  if (setting == kColumnsOfTable) columns_ = NumberOfCells(value);
  if (setting != kTextOfCell) return;
  RequireWithin(row1, row2, rows_, "rows");
  RequireWithin(column1, column2, columns_, "columns");
  const auto text = automation::To<std::string>(value);
  for (Long row = row1; row <= row2; ++row) {
    for (Long column = column1; column <= column2; ++column) cells_[{row, column}] = text;
  }
}

void ReportPrinter::EndTable() {
  RequireTable(true);
  const auto textOf = [this](Long row, Long column) {
    const auto cell = cells_.find({row, column});
    return cell == cells_.end() ? std::string() : cell->second;
  };
  std::vector<TextTable::Column> headings;
  for (Long column = 1; column <= columns_; ++column) {
    headings.push_back({OneLine(textOf(1, column)), TextTable::Side::Left});
  }
  TextTable table(std::move(headings));
  for (Long row = 2; row <= rows_; ++row) {
    std::vector<std::string> cells;
    for (Long column = 1; column <= columns_; ++column) cells.push_back(textOf(row, column));
    table.Add(std::move(cells));
  }
  if (rows_ > 0) table.Write(out_);
  isInTable_ = false;
  rows_ = columns_ = 0;
  cells_.clear();
}

}  // namespace quenzel7::cli
