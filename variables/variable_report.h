#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shapes/element_report.h"
#include "variables/operand_pair.h"

namespace quenzel7 {

class clsVar;

/// Lines that the reports of several types have in common, in the order in which they are written.
enum class ReportLine {
  /// The operand that the variable shows; without a name where there is none.
  Link,
  /// The memory bits that the variable has beside it.
  Hide,
  DisableView,
  MarkingView,
  LegalEntry,
  /// Of a variable with a keypad.
  DescriptionFont,
  Font,
  Alignment,
  Style,
  /// The heading of the type's own lines.
  Features,
};

/// The common lines that a type has.
class ReportLines {
 public:
  constexpr ReportLines(std::initializer_list<ReportLine> lines) {
    for (const ReportLine line : lines) bits_ |= BitOf(line);
  }
  constexpr bool Has(ReportLine line) const { return (bits_ & BitOf(line)) != 0; }

 private:
  static constexpr std::uint32_t BitOf(ReportLine line) {
    return std::uint32_t{1} << static_cast<unsigned>(line);
  }

  std::uint32_t bits_ = 0;
};

/// Those of a text that has everything.
inline constexpr ReportLines kAllReportLines = {ReportLine::Link,        ReportLine::Hide,
                                                ReportLine::DisableView, ReportLine::MarkingView,
                                                ReportLine::LegalEntry,  ReportLine::DescriptionFont,
                                                ReportLine::Font,        ReportLine::Alignment,
                                                ReportLine::Style,       ReportLine::Features};

/// Those before a table of texts.
inline constexpr ReportLines kTableReportLines = {ReportLine::Link, ReportLine::Hide, ReportLine::Style};

/// A column of a table: what stands above it, and its share of the page, such as "10%".
struct ReportColumn {
  std::string_view header;
  std::string_view width;
};

/// The lines and tables that a variable writes into a printed report. Errors of the printing control and of
/// the services that are asked for names; what was written by then stays.
class VariableReport : public ElementReport {
 public:
  VariableReport(automation::Object& printer, const clsVar& variable)
      : ElementReport(printer), variable_(variable) {}

  const clsVar& Variable() const { return variable_; }

  /// Writes the common lines that the type has, as far as the variable has what they tell of.
  void Common(const ReportLines& lines);
  /// Writes a line of the type's own, indented under the heading.
  void Feature(std::string_view label, const std::string& value);
  void Feature(std::string_view label, Long value) { Feature(label, std::to_string(value)); }
  /// The same with the operand's name; without one for type 0 and for what the project does not have.
  void Feature(std::string_view label, const OperandPair& operand);
  /// Writes the label with "Yes" where something is so, nothing otherwise.
  void FeatureIf(bool isSo, std::string_view label);
  /// Prints a table: a row of headers, then the rows, each with one cell for a column.
  ///
  /// The control is asked by name: `StartTable`, `TableCell(setting, row1, column1, row2, column2, value)`
  /// with rows and columns counted from 1, `EndTable`. Settings 1 and 2 are the numbers of rows and of
  /// columns and go without a place, as 0; 13 is the width of a column from the first row to the last; 18 is
  /// the text of one cell. How cells are aligned and framed is left to the control.
  void Table(std::span<const ReportColumn> columns, const std::vector<std::vector<std::string>>& rows);

 private:
  struct CommonLines;

  const clsVar& variable_;
};

/// The operand's name as reports show it.
std::string OperandReportText(const OperandPair& operand);

}  // namespace quenzel7
