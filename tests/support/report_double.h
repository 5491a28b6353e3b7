#pragma once

#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace quenzel7::test {

/// Stands for the printing control: keeps the lines that are appended by name.
class ReportDouble final : public automation::Object {
 public:
  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {automation::Property<std::string>(
        "Paragraph", "Appends a line.", nullptr, AUTOMATION_SETTER(ReportDouble, std::string, Append))};
    static const automation::Interface interface("ReportDouble", members);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"ReportDouble", interfaces, nullptr};
    return info;
  }

  void Append(std::string line) { lines_.push_back(std::move(line)); }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

}  // namespace quenzel7::test
