#include "framework/grp_elmnts_srv.h"

#include "framework/library_state.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/member.h"
#include "platform/gdi/types.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using automation::Method;
using automation::VariantKind;

/// The panel whose pictures are white on black.
constexpr Long kWhiteOnBlackPanel = 2;

/// Where the pictures lie, seen from the program's folder.
constexpr const char* kImageFolder = "\\..\\Data\\Images\\";

/// In slot order: those operations on a project's pictures that are not there yet stand around
/// GetImageLibCRC.
constexpr automation::Member kMembers[] = {
    Method<clsGrpElmntsSrv, &clsGrpElmntsSrv::ChangeHMIPanel>("ChangeHMIPanel",
                                                              "Sets the panel that the project is for."),
    Method<clsGrpElmntsSrv, &clsGrpElmntsSrv::InitImageLibrary>(
        "InitImageLibrary",
        "Makes the image library with its name and the panel's colours, an array of Long."),
    automation::Property<loomis2::ImageLibraryRef>("ImageLibrary",
                                                   "The image library; none until it is made.",
                                                   AUTOMATION_GETTER(clsGrpElmntsSrv, ImageLibrary), nullptr),
    Method<clsGrpElmntsSrv, &clsGrpElmntsSrv::GetImageLibCRC>("GetImageLibCRC", "8209 whatever the picture."),
};

}  // namespace

const automation::ClassInfo& clsGrpElmntsSrv::ClassOf() {
  static const automation::Interface interface("_clsGrpElmntsSrv", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<clsGrpElmntsSrv>(); }};
  return info;
}

void clsGrpElmntsSrv::ChangeHMIPanel(Long pPanelType) {
  LibraryState& state = LibraryState::Current();
  state.CurrentPanelType = pPanelType;
  const corvane1::PanelValues values = Platform::Current().panelService->SelectPanel(pPanelType);
  state.PanelBackColor = values.backColor;
  state.PanelValue2 = values.inkColor;
  state.StretchMode = pPanelType == kWhiteOnBlackPanel ? gdi::WHITEONBLACK : gdi::BLACKONWHITE;
}

void clsGrpElmntsSrv::InitImageLibrary(const std::string& pImageLibName, automation::Variant& pPalette) {
  const auto& make = Platform::Current().newImageLibrary;
  const loomis2::ImageLibraryRef library = make ? make() : nullptr;
  if (!library) {
    throw automation::AutomationError(automation::ErrorNumber::ClassNotCreatable,
                                      "the image library cannot be created");
  }
  LibraryState::Current().ImageLibrary = library;
  library->Name(pImageLibName);
  library->Folder(Platform::Current().application->Path() + kImageFolder);
  library->Palette(pPalette);
}

loomis2::ImageLibraryRef clsGrpElmntsSrv::ImageLibrary() const {
  return LibraryState::Current().ImageLibrary;
}

Long clsGrpElmntsSrv::GetImageLibCRC(Long) const {
  return static_cast<Long>(VariantKind::Array) + static_cast<Long>(VariantKind::Byte);
}

}  // namespace quenzel7
