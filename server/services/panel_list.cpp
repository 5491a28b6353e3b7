#include "server/services/panel_list.h"

#include "server/services/embedded.h"
#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using automation::Property;
using automation::Variant;
using View = PanelList;

constexpr automation::Member kMembers[] = {
    Property<Long>("CurrentPanelType", "The panel type that was selected last.",
                   AUTOMATION_GETTER(View, CurrentPanelType), nullptr),
    Method<View, &View::SelectPanel>(
        "SelectPanel", "Makes a panel type the current one; an array of its back and ink colours.",
        "panelType"),
    AsValue(Method<View, &View::Model>("Model",
                                       "The model of a type: an array of type, width, height, bits a pixel, "
                                       "number of colours, back and ink colours.",
                                       "panelType")),
    Property<Variant>("Models", "All models, by type.", AUTOMATION_GETTER(View, Models), nullptr),
};

Fields FieldsOf(const corvane1::PanelModel& model) {
  return {model.type,           model.width,    model.height,
          model.bitsPerPixel,   model.Colors(), model.values.backColor,
          model.values.inkColor};
}

}  // namespace

const automation::ClassInfo& PanelList::ClassOf() { return ServiceClass<View>(kMembers); }

Variant PanelList::SelectPanel(Long panelType) {
  const corvane1::PanelValues values = Service()->SelectPanel(panelType);
  return ArrayOf({values.backColor, values.inkColor});
}

Variant PanelList::Model(Long panelType) { return ArrayOf(FieldsOf(Service()->Model(panelType))); }

Variant PanelList::Models() const {
  static_cast<void>(EmbeddedOf<corvane1::ListedPanels>(Service(), "panels"));
  return Rows(corvane1::PanelModels(), FieldsOf);
}

}  // namespace quenzel7::server
