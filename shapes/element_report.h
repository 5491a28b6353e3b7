#pragma once

#include <string>

#include "framework/position.h"
#include "platform/automation/object.h"
#include "platform/automation/types.h"

namespace quenzel7 {

/// The lines that an element writes into a printed report, each one a paragraph. Errors of the printing
/// control; lines already written stay.
class ElementReport {
 public:
  explicit ElementReport(automation::Object& printer) : printer_(printer) {}

  void Line(const std::string& text);
  /// Where the element is and how large.
  void Coordinates(const Descriptor& place);
  /// The memory bit that serves some purpose; no line for address -1.
  void MemoryBit(const std::string& label, Long address);

 protected:
  /// The printing control, for what is no line.
  automation::Object& Printer() const { return printer_; }

 private:
  automation::Object& printer_;
};

}  // namespace quenzel7
