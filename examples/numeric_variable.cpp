// The life of a numeric variable, from C++: made, placed, saved, painted, reported, dragged, deleted, and
// brought back by an undo. The same as numeric_variable.py, linked with the libraries.
//
//     numeric_variable [FOLDER]
//
// Leaves plant.qz7, numeric_variable.png and dragged.png in the folder, the current one when none is named.
// Every step checks what came of it: the exit code is 1, and a message tells, when something is not as it
// should be.
#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "images/grp_elmnts_srv.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/collection.h"
#include "platform/automation/convert.h"
#include "platform/automation/member.h"
#include "platform/automation/property_bag.h"
#include "platform/corvane1/project_file.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "platform/png/png_file.h"
#include "variables/text/numeric.h"
#include "variables/var_element.h"

namespace {

using namespace quenzel7;
using automation::To;
using automation::Variant;

constexpr Long kPanel = 7, kWidth = 320, kHeight = 240;
constexpr Long kMemoryWord = 3, kPressure = 5;
constexpr Long kBlue = 2;
/// A touch that opens the keypad has no operand of its own.
constexpr Long kKeypad = -2;
constexpr std::uint32_t kWhite = 0xFFFFFF, kInk = 0x0000C8;

/// Ends the program when a result is not the right one.
template <class Found, class Wanted>
void Expect(const std::string& what, const Found& found, const Wanted& wanted) {
  if (found == wanted) return;
  std::ostringstream text;
  text << what << ": found " << found << ", expected " << wanted;
  throw std::runtime_error(text.str());
}

/// What a report is printed on: any object with this member. Here it keeps the lines.
class Printer final : public automation::Object {
 public:
  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {automation::Property<std::string>(
        "Paragraph", "Prints a line.", nullptr, AUTOMATION_SETTER(Printer, std::string, Paragraph))};
    static const automation::Interface interface("Printer", members);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"Printer", interfaces, nullptr};
    return info;
  }

  void Paragraph(const std::string& line) { lines_.push_back(line); }
  bool Has(const std::string& text) const {
    return std::any_of(lines_.begin(), lines_.end(),
                       [&](const std::string& line) { return line.find(text) != std::string::npos; });
  }

 private:
  std::vector<std::string> lines_;
};

/// The element alone on an empty page, which is white.
gdi::Surface Paint(ItfHmiElement& element, const std::filesystem::path& path) {
  gdi::Surface surface(kWidth, kHeight);
  surface.Clear(kWhite);
  element.Draw(surface.Dc(), false);
  png::SavePng(path.string(), {surface.Width(), surface.Height(), surface.Pixels()});
  return surface;
}

/// The smallest box around all that is not white, as "x y dx dy".
std::string BoxOf(const gdi::Surface& surface) {
  Long left = kWidth, top = kHeight, right = -1, bottom = -1;
  for (Long y = 0; y < kHeight; ++y) {
    for (Long x = 0; x < kWidth; ++x) {
      if (surface.At(x, y) == kWhite) continue;
      left = std::min(left, x), right = std::max(right, x);
      top = std::min(top, y), bottom = std::max(bottom, y);
    }
  }
  std::ostringstream box;
  box << left << ' ' << top << ' ' << right - left + 1 << ' ' << bottom - top + 1;
  return box.str();
}

std::string PlaceOf(const clsVar& variable) {
  std::ostringstream place;
  place << variable.Xs() << ' ' << variable.Ys() << ' ' << variable.Dx() << ' ' << variable.Dy();
  return place.str();
}

/// A byte for each pixel of the page, and for the edges behind the last ones; 1 where a touch element stands.
Variant MapWithATouchElement() {
  automation::Array map(automation::VariantKind::Byte, {0, kWidth}, {0, kHeight});
  for (Long x = 200; x < 300; ++x) {
    for (Long y = 0; y < 100; ++y) map.Set(x, y, Byte{1});
  }
  return map;
}

/// Drags the variable by three steps of the mouse. Each is told as the whole way since the drag began; where
/// the variable may not stay, it is shown where it last could.
void Drag(ItfHmiElement& variable, Variant& taken) {
  struct Step {
    Long dx, dy;
    enCollisionStatus wanted;
  };
  variable.SaveInitialPosition();
  for (const Step& step :
       std::array<Step, 3>{{{55, 30, eCS_Legall}, {100, 30, eCS_Overlap}, {-30, 0, eCS_OutOfRAnge}}}) {
    variable.Move(step.dx, step.dy);
    const enCollisionStatus status = variable.GetTransformState(taken);
    Expect("step by " + std::to_string(step.dx), status, step.wanted);
    if (status == eCS_Legall) {
      variable.SaveLastLegalPosition();
      variable.UpdateDisplayWithTransx();
    } else {
      variable.UpdateDisplayWithLastLegal();
    }
  }
  variable.UpdateInitialDescriptor();
}

Long NumberIn(ado::Recordset& row, std::string_view column) { return To<Long>(row.Get(column)); }

void Run(const std::filesystem::path& folder) {
  // Before anything is drawn the library is told which panel the project is for, and its colours.
  clsGrpElmntsSrv service;
  service.ChangeHMIPanel(kPanel);
  Variant palette = Platform::Current().colorService->GetPalette();
  service.InitImageLibrary("plant", palette);

  const std::filesystem::path path = folder / "plant.qz7";
  std::filesystem::remove(path);
  const auto project = corvane1::OpenProject(path.string(), corvane1::ProjectMode::Create);
  Platform::Current().heldProject->Hold(project);

  // 1. A variable is a shell; what it shows is told by its type, and done by the handler of that type.
  const auto variable = std::make_shared<clsVar>();
  variable->VarName("Pressure");
  variable->VarType(eVT_Numeric);
  const auto number = std::dynamic_pointer_cast<clsVarNumeric>(variable->BinaryHandlers(eVT_Numeric));
  number->Format("999.9");
  number->Postfix("bar");
  const ElementRef drawing = number->DrawingElement();
  drawing->ColorFore(kBlue);
  // The sample text follows the handler's settings when it is told to.
  number->ReSyncDrawingElementParams(variable->DefaultDisplay(), variable->FontNumber());
  Expect("sample text", drawing->Txt(), "-999.9 bar");

  // 2. Its place, and the operand whose value it shows.
  variable->Xs(20), variable->Ys(30), variable->Dx(120), variable->Dy(40);
  variable->OperandType(kMemoryWord), variable->OperandAddress(kPressure);
  variable->KeypadEntry(true);
  variable->TouchOprndAddr(kKeypad);
  Variant taken = MapWithATouchElement();
  ItfHmiElement& contract = *variable;
  Expect("place", contract.GetTransformState(taken), eCS_Legall);

  // 3. Saving makes the row, writes the handler's settings into its column Binary, and tells the host. The
  // rows of the operands are written from the operand bags.
  {
    ado::Transaction transaction(*project);
    contract.SaveToDB();
    variable->BuildOpPropBag();
    contract.RestoreAllOperands();
    transaction.Commit();
  }
  Expect("number of the row", variable->ID(), 1);
  const auto row = project->Execute("SELECT * FROM HMI_Elements WHERE ID=1");
  Expect("column Xs", NumberIn(*row, "Xs"), 20);
  Expect("column Text", To<std::string>(row->Get("Text")), "Pressure");
  automation::PropertyBag stored;
  stored.Contents(To<std::vector<Byte>>(row->Get("Binary")));
  Expect("stored postfix", To<std::string>(stored.ReadProperty("Postfix")), "bar");
  const std::string uses = "SELECT * FROM HMI_Operands ORDER BY OprndType DESC";
  Expect("operand row", NumberIn(*project->Execute(uses), "OprndAddr"), kPressure);

  // 4. The host repaints: the variable clears its area, its drawing element paints the sample text.
  {
    const gdi::Surface surface = Paint(contract, folder / "numeric_variable.png");
    Expect("painted box", BoxOf(surface), "20 30 120 40");
    const auto ink = std::ranges::count(surface.Pixels(), kInk);
    if (ink < 90 || ink > 700) throw std::runtime_error("the text has " + std::to_string(ink) + " pixels");
  }

  // 5. The change key tells whether the panel's copy is up to date; the report is for the documentation.
  const Long key = variable->GetDataCRC();
  number->Postfix("mbar");
  Expect("whether the change key stayed", variable->GetDataCRC() == key, false);
  number->Postfix("bar");
  Expect("change key", variable->GetDataCRC(), key);
  Printer printer;
  variable->CreatePrinterReportEX(printer);
  Expect("whether the report tells the postfix", printer.Has("Postfix: bar"), true);

  Drag(contract, taken);
  contract.SaveToDB();
  Expect("place at rest", PlaceOf(*variable), "75 60 120 40");
  Expect("painted box", BoxOf(Paint(contract, folder / "dragged.png")), "75 60 120 40");

  // 6. Deleting takes the row and its operand rows; the object lives on, and an undo saves it again, in a new
  // row. Its operand bags bring the operands back.
  contract.DeleteFromDB();
  Expect("whether there are no rows", project->Execute("SELECT * FROM HMI_Elements")->Eof(), true);
  Expect("whether there are no operand rows", project->Execute(uses)->Eof(), true);
  variable->ID(-1);
  contract.SaveToDB();
  contract.RestoreAllOperands();
  const auto again = std::make_shared<clsVar>();
  const auto saved = project->Execute("SELECT * FROM HMI_Elements");
  again->LoadFromDB(*saved);
  Expect("place that was brought back", PlaceOf(*again), "75 60 120 40");
  const auto loaded = std::dynamic_pointer_cast<clsVarNumeric>(again->BinaryHandlers(eVT_Numeric));
  Expect("postfix that was brought back", loaded->Postfix(), "bar");
  Expect("row that uses the operand", NumberIn(*project->Execute(uses), "ElementID"), 2);

  Platform::Current().heldProject->Hold(nullptr);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    Run(count > 1 ? arguments[1] : ".");
    std::cout << "The numeric variable went all the way\n";
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
