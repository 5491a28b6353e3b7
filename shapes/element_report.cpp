#include "shapes/element_report.h"

#include "platform/automation/call_by_name.h"
#include "shapes/element_columns.h"

namespace quenzel7 {

void ElementReport::Line(const std::string& text) { automation::PutByName(printer_, "Paragraph", text); }

void ElementReport::Coordinates(const Descriptor& place) {
  const auto [xs, ys, dx, dy] = place;
  Line("Coordinates (Left,Top,Width,Height): (" + std::to_string(xs) + "," + std::to_string(ys) + "," +
       std::to_string(dx) + "," + std::to_string(dy) + ")");
}

void ElementReport::MemoryBit(const std::string& label, Long address) {
  if (address != kNone) Line(label + "MB " + std::to_string(address));
}

}  // namespace quenzel7
