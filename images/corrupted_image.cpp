#include "images/corrupted_image.h"

#include <memory>

#include "framework/element_types.h"
#include "framework/library_services.h"
#include "framework/project.h"
#include "images/image_links.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

/// What the host's log knows damaged pictures by.
constexpr Long kCorruptedImageError = static_cast<Long>(0x80040257);
/// What is logged beside a repair.
constexpr Long kRepairValue = 48;
/// What the host shows anew when an element has gone: everything, in the view of the pages.
constexpr Long kEverything = -1, kPagesView = 12;

constexpr CorruptedImageSource kDrawing{"clsBitmap", "Draw"};

void Log(const std::string& title, const std::string& text, const CorruptedImageSource& source, Long value) {
  ReportLibraryError(title, kCorruptedImageError, text, std::string(source.className),
                     std::string(source.method), value);
}

}  // namespace

void LogRepairedImage(const std::string& path, const CorruptedImageSource& source) {
  Log("Corrupted Image", "Corrupted image data from file: " + path, source, kRepairValue);
}

void ReportCorruptedImage(const std::string& pPath, Long pElementID) {
  const std::string id = std::to_string(pElementID);
  const ado::ConnectionRef project = ProjectConnection();
  std::string module, page;
  {
    const ado::RecordsetRef place = ado::OpenRecordset(
        *project,
        "SELECT DispModules.ModuleName, Pages.Description, HMI_Elements.ID FROM DispModules INNER JOIN "
        "(HMI_Elements INNER JOIN Pages ON HMI_Elements.DisplayID = Pages.Id) ON DispModules.ModuleId = "
        "Pages.ModuleID WHERE HMI_Elements.ID=" +
            id,
        ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    if (!place->Eof()) {
      module = TextIn(*place, "ModuleName");
      page = TextIn(*place, "Description");
    }
    place->Close();
  }
  Long type = 0;
  std::string variable;
  ReadFirstImageRow("SELECT * FROM HMI_Elements WHERE ID= " + id, [&](const ado::Recordset& row) {
    type = NumberIn(row, "Type");
    if (type == kVariableElement) variable = TextIn(row, "Text");
  });
  const std::string where = " in module " + module + ", display " + page +
                            " holds corrupted image data from file: " + pPath + "\r\n";
  // "varible" is what hosts look for in their logs.
  const std::string text =
      type == kVariableElement
          ? "A variable: " + variable + where + "This varible will be removed from project"
          : "A picture of element" + where + "This picture will be removed from project";
  // A button goes on without its picture.
  if (type != kButtonElement) project->Execute("DELETE * FROM HMI_Elements WHERE ID= " + id);
  ReleaseElementImages(pElementID);
  const std::shared_ptr<corvane1::HostFrame> frame = Platform::Current().hostFrame;
  frame->InterruptWork();
  frame->SetPointer(corvane1::kArrowPointer);
  Log("Corruted Image", text, kDrawing, 0);
  frame->Refresh(kEverything, kPagesView);
  frame->SetPointer(corvane1::kBusyPointer);
}

}  // namespace quenzel7
