#include "images/grp_elmnts_srv.h"

#include "framework/library_state.h"
#include "images/image_list.h"
#include "images/image_queries.h"
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

using Srv = clsGrpElmntsSrv;

constexpr automation::Member kMembers[] = {
    Method<Srv, &Srv::ChangeHMIPanel>("ChangeHMIPanel", "Sets the panel that the project is for.",
                                      "pPanelType"),
    Method<Srv, &Srv::InitImageLibrary>(
        "InitImageLibrary",
        "Makes the image library with its name and the panel's colours, an array of Long.",
        "pImageLibName, pPalette"),
    automation::Property<loomis2::ImageLibraryRef>("ImageLibrary",
                                                   "The image library; none until it is made.",
                                                   AUTOMATION_GETTER(Srv, ImageLibrary), nullptr),
    Method<Srv, &Srv::GetCRCsOfVarImages>("GetCRCsOfVarImages",
                                          "The picture for each index of a variable; -1 where it has none.",
                                          "pElement_ID, pNumOfImages"),
    Method<Srv, &Srv::GetImageData8bppByCRC>("GetImageData8bppByCRC", "The panel pixels of a picture.",
                                             "pCRC"),
    Method<Srv, &Srv::GetImageLibCRC>("GetImageLibCRC", "8209 whatever the picture.", "pImageCRC"),
    Method<Srv, &Srv::GetImagePathFromDB>("GetImagePathFromDB", "The file that a picture came from.",
                                          "pImageCRC"),
    Method<Srv, &Srv::GetImageOriginalDimansions>(
        "GetImageOriginalDimansions", "A picture's own size; both -1 when there is none.", "pCRC, pDx, pDy"),
    Method<Srv, &Srv::SaveToDbForBimaryHandler>("SaveToDbForBimaryHandler",
                                                "Saves the pictures of a variable's list.",
                                                "pElementID, pVarType, pColImageList, pDx, pDy"),
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

std::vector<Long> clsGrpElmntsSrv::GetCRCsOfVarImages(Long pElement_ID, Long pNumOfImages) const {
  return quenzel7::GetCRCsOfVarImages(pElement_ID, pNumOfImages);
}

PixelBytes clsGrpElmntsSrv::GetImageData8bppByCRC(Long pCRC) const {
  return quenzel7::GetImageData8bppByCRC(pCRC);
}

std::string clsGrpElmntsSrv::GetImagePathFromDB(Long pImageCRC) const {
  return quenzel7::GetImagePathFromDB(pImageCRC);
}

void clsGrpElmntsSrv::GetImageOriginalDimansions(Long pCRC, Long& pDx, Long& pDy) const {
  quenzel7::GetImageOriginalDimansions(pCRC, pDx, pDy);
}

void clsGrpElmntsSrv::SaveToDbForBimaryHandler(Long pElementID, enVarType pVarType,
                                               automation::CollectionRef& pColImageList, Long pDx, Long pDy) {
  SaveImageList(pElementID, pVarType, pColImageList, pDx, pDy);
}

Long clsGrpElmntsSrv::GetImageLibCRC(Long pImageCRC) const {
  GetImageData8bppByCRC(pImageCRC);
  return static_cast<Long>(VariantKind::Array) + static_cast<Long>(VariantKind::Byte);
}

}  // namespace quenzel7
