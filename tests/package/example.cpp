#include "platform/corvane1/project_file.h"
#include "platform/platform.h"
#include "shapes/rectangle.h"

int main() {
  using namespace quenzel7;
  Platform::Current().heldProject->Hold(corvane1::OpenProject("tank.qz7", corvane1::ProjectMode::Create));
  const auto tank = std::make_shared<clsRectangle>();
  tank->Xs(10), tank->Ys(10), tank->Dx(100), tank->Dy(40);
  tank->HatchStyle(eHS_Cross);
  tank->Stretch(20, 0, ePD_Right);
  tank->SaveLastLegalPosition(), tank->UpdateInitialDescriptor();
  tank->SaveToDB();
  return tank->ID() > 0 && tank->Dx() == 120 ? 0 : 1;
}
