#pragma once

#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::test {

/// Stands for the printing control: keeps the lines that are appended by name, and what is asked of tables
/// among them: "StartTable", "TableCell 18 2,1-2,1 text:String", "EndTable".
class ReportDouble final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ReportDouble";

  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {
        automation::Property<std::string>("Paragraph", "Appends a line.", nullptr,
                                          AUTOMATION_SETTER(ReportDouble, std::string, Append)),
        automation::Method<ReportDouble, &ReportDouble::StartTable>("StartTable", "Opens a table."),
        automation::Method<ReportDouble, &ReportDouble::TableCell>("TableCell", "Sets a table attribute."),
        automation::Method<ReportDouble, &ReportDouble::EndTable>("EndTable", "Prints the table.")};
    static const automation::Interface interface("ReportDouble", members);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"ReportDouble", interfaces, nullptr};
    return info;
  }

  void Append(std::string line) {
    if (lines_.size() == most_) {
      throw automation::AutomationError(automation::ErrorNumber::Database, "no paper for " + line);
    }
    lines_.push_back(std::move(line));
  }
  void StartTable() { Append("StartTable"); }
  void TableCell(Long setting, Long row1, Long column1, Long row2, Long column2,
                 const automation::Variant& value) {
    const auto place = [](Long row, Long column) {
      return std::to_string(row) + "," + std::to_string(column);
    };
    Append("TableCell " + std::to_string(setting) + " " + place(row1, column1) + "-" + place(row2, column2) +
           " " + Shown(value));
  }
  void EndTable() { Append("EndTable"); }

  /// Lets all that comes after so many lines fail with a database error.
  void FailAfter(std::size_t lines) { most_ = lines; }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
  std::size_t most_ = static_cast<std::size_t>(-1);
};

}  // namespace quenzel7::test
