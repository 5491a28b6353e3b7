#pragma once

#include "shapes/element_report.h"

namespace quenzel7 {

class clsVar;

/// The lines that a variable writes into a printed report.
class VariableReport : public ElementReport {
 public:
  VariableReport(automation::Object& printer, const clsVar& variable)
      : ElementReport(printer), variable_(variable) {}

  const clsVar& Variable() const { return variable_; }

 private:
  const clsVar& variable_;
};

}  // namespace quenzel7
