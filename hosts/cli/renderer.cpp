#include "hosts/cli/renderer.h"

#include <iterator>
#include <string_view>

#include "framework/element_types.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/progress_bar.h"
#include "platform/gdi/surface.h"

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

void Paint(ItfHmiElement& element, const Layer& layer, Long hdc) {
  const automation::Variant noBoundingRect = false;
  if (!IsGroup(element)) {
    if (layer.holds(automation::To<Long>(Read(element, "ElementType")))) {
      Call(element, "Draw", {hdc, noBoundingRect});
    }
    return;
  }
  // The frames of a group are painted by a method of its class, the rest by the contract of all elements.
  const bool isOfContract = ItfHmiElement::InterfaceOf().Find(layer.ofGroup) != nullptr;
  automation::InvokeByName(element, isOfContract ? ItfHmiElement::InterfaceOf() : element.Class().Default(),
                           layer.ofGroup, {hdc, noBoundingRect});
}

}  // namespace

Picture RenderPage(const LoadedPage& page, const Console& console) {
  const Panel& panel = page.info.panel;
  gdi::Surface surface(panel.width, panel.height);
  surface.Clear(gdi::RGB(255, 255, 255));
  ProgressBar progress(console, "painting", std::size(kLayers) * page.elements.size());
  for (const Layer& layer : kLayers) {
    for (const ElementRef& element : page.elements) {
      Paint(*element, layer, surface.Dc());
      progress.Advance();
    }
  }
  const auto pixels = surface.Pixels();
  return {panel.width, panel.height, {pixels.begin(), pixels.end()}};
}

}  // namespace quenzel7::cli
