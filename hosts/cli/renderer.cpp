#include "hosts/cli/renderer.h"

#include "hosts/cli/element_calls.h"
#include "hosts/cli/progress_bar.h"
#include "platform/gdi/surface.h"

namespace quenzel7::cli {

Picture RenderPage(const LoadedPage& page, const Console& console) {
  const Panel& panel = page.info.panel;
  gdi::Surface surface(panel.width, panel.height);
  surface.Clear(gdi::RGB(255, 255, 255));
  ProgressBar progress(console, "painting", page.elements.size());
  for (const ElementRef& element : page.elements) {
    Call(*element, "Draw", {Long{surface.Dc()}, false});
    progress.Advance();
  }
  const auto pixels = surface.Pixels();
  return {panel.width, panel.height, {pixels.begin(), pixels.end()}};
}

}  // namespace quenzel7::cli
