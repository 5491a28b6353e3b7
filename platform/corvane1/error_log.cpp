#include "platform/corvane1/error_log.h"

#include "platform/corvane1/one_line.h"

namespace quenzel7::corvane1 {

std::string ErrorLine(const ErrorReport& report) {
  std::string line;
  for (const std::string* origin : {&report.module, &report.source}) {
    if (!origin->empty()) line += *origin + ": ";
  }
  line += "error " + std::to_string(report.number);
  if (!report.description.empty()) line += ": " + report.description;
  for (const std::string* text : {&report.text1, &report.text2}) {
    if (!text->empty()) line += "; " + *text;
  }
  if (report.value != 0) line += "; " + std::to_string(report.value);
  return OneLine(line);
}

}  // namespace quenzel7::corvane1
