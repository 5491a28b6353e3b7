#include "hosts/cli/renderer.h"

#include <iterator>
#include <string_view>

#include "framework/element_types.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/progress_bar.h"
#include "platform/gdi/owned.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/picture_painting.h"

namespace quenzel7::cli {
namespace {

bool IsFrame(Long elementType) { return elementType == kFrameElement; }
bool IsVariable(Long elementType) { return elementType == kVariableElement; }
bool IsOther(Long elementType) { return !IsFrame(elementType) && !IsVariable(elementType); }

/// One of the layers in which a page is painted: which elements belong to it, and the method by which a group
/// paints its share. Frames lie below all, variables above all.
struct Layer {
  bool (*holds)(Long elementType);
  std::string_view ofGroup;
};

constexpr Layer kLayers[] = {
    {IsFrame, "DrawFramesInGroup"},
    {IsOther, "DrawNonVarsInGroup"},
    {IsVariable, "DrawVarsInGroup"},
};

constexpr bool kNoBoundingRect = false;

/// Pictures of the project in their own size at the page's top left.
void PaintBehind(const LoadedPage& page, Long hdc) {
  for (const BackPicture& picture : page.pictures) {
    const gdi::OwnedBitmap bitmap(BitmapOfPixels(picture.pixels, picture.dx, picture.dy, picture.bits));
    if (picture.transparency == 0) {
      PaintOpaquePicture(hdc, 0, 0, bitmap.Get(), BitmapSizeOf(bitmap.Get()));
    } else {
      PaintTransparentPicture(hdc, 0, 0, bitmap.Get(), picture.pixels, picture.bits,
                              *Platform::Current().colorService);
    }
  }
}

void Paint(ItfHmiElement& element, const Layer& layer, Long hdc, const Console& console) {
  if (!IsGroup(element)) {
    if (layer.holds(automation::To<Long>(Read(element, "ElementType")))) {
      if (!DrawElement(element, hdc)) {
        console.err << "note: row " << IdOf(element) << " of HMI_Elements (" << element.Class().name
                    << ") is not painted: its picture is damaged" << std::endl;
      }
    }
    return;
  }
  // The frames of a group are painted by a method of its class, the rest by the contract of all elements.
  const bool isOfContract = ItfHmiElement::InterfaceOf().Find(layer.ofGroup) != nullptr;
  automation::InvokeByName(element, isOfContract ? ItfHmiElement::InterfaceOf() : element.Class().Default(),
                           layer.ofGroup, {hdc, kNoBoundingRect});
}

}  // namespace

bool DrawElement(ItfHmiElement& element, Long hdc) {
  try {
    Call(element, "Draw", {hdc, kNoBoundingRect});
    return true;
  } catch (const automation::AutomationError&) {
    if (!PictureInterfaceOf(element.Class())) throw;
    return false;
  }
}

Picture RenderPage(const LoadedPage& page, const Console& console) {
  const Panel& panel = page.info.panel;
  gdi::Surface surface(panel.width, panel.height);
  surface.Clear(gdi::RGB(255, 255, 255));
  PaintBehind(page, surface.Dc());
  ProgressBar progress(console, "painting", std::size(kLayers) * page.elements.size());
  for (const Layer& layer : kLayers) {
    for (const ElementRef& element : page.elements) {
      Paint(*element, layer, surface.Dc(), console);
      progress.Advance();
    }
  }
  const auto pixels = surface.Pixels();
  return {panel.width, panel.height, {pixels.begin(), pixels.end()}};
}

}  // namespace quenzel7::cli
