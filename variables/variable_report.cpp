#include "variables/variable_report.h"

#include "framework/operands.h"
#include "framework/report_lines.h"
#include "platform/automation/call_by_name.h"
#include "platform/platform.h"
#include "shapes/frame_styles.h"
#include "variables/var_element.h"

namespace quenzel7 {
namespace {

using automation::Variant;

/// What the printing control knows of tables, by number.
enum TableSetting : Long { kRowsOfTable = 1, kColumnsOfTable = 2, kWidthOfColumn = 13, kTextOfCell = 18 };

/// Cells of a table, from the first to the last.
struct TableArea {
  Long row1, column1, row2, column2;
};

/// A setting that has no place in the table.
constexpr TableArea kNowhere = {0, 0, 0, 0};

void SetTable(automation::Object& printer, TableSetting setting, const TableArea& area,
              const Variant& value) {
  automation::InvokeByName(printer, "TableCell",
                           {Variant(Long{setting}), Variant(area.row1), Variant(area.column1),
                            Variant(area.row2), Variant(area.column2), value});
}

/// A variable is drawn pressed with every style but two.
std::string StyleLine(Long flat3D) {
  return Flat3DReportLine(flat3D == kFlat || flat3D == kRaised ? flat3D : kSunken);
}

}  // namespace

/// What each of the common lines tells of the variable, in their order.
struct VariableReport::CommonLines {
  struct Entry {
    ReportLine line;
    void (*write)(VariableReport& report, const clsVar& variable);
  };

  // clang-format off
  static constexpr Entry kTable[] = {
      {ReportLine::Link, [](VariableReport& report, const clsVar& variable) {
         report.Line("Linked Operand: " + OperandReportText({variable.OperandType(), variable.OperandAddress()})); }},
      {ReportLine::Hide, [](VariableReport& report, const clsVar& variable) {
         report.MemoryBit("Hide Operand: ", variable.VisibleOpAddr()); }},
      {ReportLine::DisableView, [](VariableReport& report, const clsVar& variable) {
         report.MemoryBit("Disable View Operand: ", variable.EnabledOpAddr()); }},
      {ReportLine::MarkingView, [](VariableReport& report, const clsVar& variable) {
         report.MemoryBit("Marking View Operand: ", variable.HighlightOpAddr()); }},
      {ReportLine::LegalEntry, [](VariableReport& report, const clsVar& variable) {
         report.MemoryBit("Legal entry Operand: ", variable.KeypadSuccessOpAddr()); }},
      {ReportLine::DescriptionFont, [](VariableReport& report, const clsVar& variable) {
         if (variable.KeypadEntry()) report.Line("Description " + FontReportLine(variable.DescriptionFontNumber())); }},
      {ReportLine::Font, [](VariableReport& report, const clsVar& variable) {
         report.Line(FontReportLine(variable.FontNumber())); }},
      {ReportLine::Alignment, [](VariableReport& report, const clsVar& variable) {
         report.Line(AlignmentReportLine(variable.Alignment())); }},
      {ReportLine::Style, [](VariableReport& report, const clsVar& variable) {
         report.Line(StyleLine(variable.Flat3D())); }},
      {ReportLine::Features, [](VariableReport& report, const clsVar&) { report.Line("Features:"); }},
  };
  // clang-format on
};

void VariableReport::Common(const ReportLines& lines) {
  for (const CommonLines::Entry& common : CommonLines::kTable) {
    if (lines.Has(common.line)) common.write(*this, variable_);
  }
}

void VariableReport::Feature(std::string_view label, const std::string& value) {
  constexpr std::size_t kIndent = 9;
  Line(std::string(kIndent, ' ').append(label) + value);
}

void VariableReport::Feature(std::string_view label, const OperandPair& operand) {
  Feature(label, OperandReportText(operand));
}

void VariableReport::FeatureIf(bool isSo, std::string_view label) {
  if (isSo) Feature(label, "Yes");
}

void VariableReport::Table(std::span<const ReportColumn> columns,
                           const std::vector<std::vector<std::string>>& rows) {
  automation::Object& printer = Printer();
  const auto lastRow = static_cast<Long>(rows.size() + 1);
  automation::InvokeByName(printer, "StartTable");
  SetTable(printer, kRowsOfTable, kNowhere, Variant(lastRow));
  SetTable(printer, kColumnsOfTable, kNowhere, Variant(static_cast<Long>(columns.size())));
  const auto writeCell = [&printer](Long row, Long column, std::string_view text) {
    SetTable(printer, kTextOfCell, {row, column, row, column}, Variant(std::string(text)));
  };
  Long column = 0;
  for (const auto& [header, width] : columns) {
    ++column;
    SetTable(printer, kWidthOfColumn, {1, column, lastRow, column}, Variant(std::string(width)));
    writeCell(1, column, header);
  }
  Long row = 1;
  for (const std::vector<std::string>& cells : rows) {
    ++row;
    column = 0;
    for (const std::string& cell : cells) writeCell(row, ++column, cell);
  }
  automation::InvokeByName(printer, "EndTable");
}

std::string OperandReportText(const OperandPair& operand) {
  return OperandDescription(operand.type, operand.address, kLocalNetwork);
}

}  // namespace quenzel7
