#include "platform/corvane1/collected.h"

#include <iostream>

#include "platform/corvane1/one_line.h"

namespace quenzel7::corvane1 {

LineOutput::LineOutput() : LineOutput(&std::cerr) {}

void LineOutput::Print(const std::string& text) const {
  if (output_ != nullptr) *output_ << OneLine(text) << std::endl;
}

}  // namespace quenzel7::corvane1
