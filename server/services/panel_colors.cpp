#include "server/services/panel_colors.h"

#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using View = PanelColors;

constexpr automation::Member kMembers[] = {
    AsValue(Method<View, &View::Color>("Color", "The colour of a panel colour number.", "number")),
    Method<View, &View::ShadeColor>(
        "ShadeColor", "The colour of a line of a raised frame: 1 to 4 dark, 5 to 8 light.", "level, number"),
    Method<View, &View::FaceColor>("FaceColor", "The colour of the face of a frame.", "number"),
    Method<View, &View::ClosestGradientColor>(
        "ClosestGradientColor", "The number of the nearest colour on which a bevel can be read.", "number"),
    automation::Property<std::vector<Long>>("Palette", "The colours of numbers 0 to 255.",
                                            AUTOMATION_GETTER(View, Palette), nullptr),
};

}  // namespace

const automation::ClassInfo& PanelColors::ClassOf() { return ServiceClass<View>(kMembers); }

Long PanelColors::Color(Long number) { return static_cast<Long>(Service()->GetColor(number)); }

Long PanelColors::ShadeColor(Long level, Long number) {
  return static_cast<Long>(Service()->Get3DShadeColor(level, number));
}

Long PanelColors::FaceColor(Long number) { return static_cast<Long>(Service()->Get3DFaceColor(number)); }

Long PanelColors::ClosestGradientColor(Long number) { return Service()->GetClosestGradientColor(number); }

std::vector<Long> PanelColors::Palette() const {
  const automation::Array palette = Service()->GetPalette();
  const auto cells = palette.Cells<Long>();
  return {cells.begin(), cells.end()};
}

}  // namespace quenzel7::server
