#include "server/services/panel_list.h"

#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using PanelListTest = ServicesTest;

/// Knows one panel of its own.
class OwnPanels final : public corvane1::PanelService {
 public:
  corvane1::PanelValues SelectPanel(Long) override { return {7, 6}; }
  Long CurrentPanelType() override { return 90; }
  corvane1::PanelModel Model(Long type) override { return {type, 10, 20, 3, {4, 5}}; }
};

TEST_F(PanelListTest, HasTheseMembers) {
  EXPECT_EQ(PanelList::ClassOf().name, "PanelList");
  EXPECT_EQ(SlotsOf(PanelList::ClassOf()),
            "get CurrentPanelType() As Long\n"
            "call SelectPanel(Long) As Variant\n"
            "call Model(Long) As Variant\n"
            "get Models() As Variant\n");
  EXPECT_EQ(PanelList::ClassOf().Default().Find("Model")->role, automation::Role::Value);
}

TEST_F(PanelListTest, SelectsAPanel) {
  EXPECT_EQ(Told("Panels", "CurrentPanelType"), "0");
  EXPECT_EQ(Called("Panels", "SelectPanel", {Long{2}}), "(9, 8)");
  EXPECT_EQ(Told("Panels", "CurrentPanelType"), "2");
  EXPECT_EQ(Platform::Current().panelService->CurrentPanelType(), 2);
}

TEST_F(PanelListTest, TellsTheModels) {
  EXPECT_EQ(Called("Panels", "Model", {Long{3}}), "(3, 480, 272, 16, 65536, 8, 9)");
  EXPECT_EQ(test::ErrorOf([&] { Called("Panels", "Model", {Long{15}}); }), 5);
  const automation::Variant models = automation::GetByName(*Service("Panels"), "Models");
  EXPECT_EQ(models.Elements().Size(), corvane1::PanelModels().size());
  EXPECT_EQ(Listed(models.Elements().At(1)), "(2, 128, 64, 1, 2, 9, 8)");
}

TEST_F(PanelListTest, TellsAHostsOwnPanelsButNotTheirList) {
  Platform::Current().panelService = std::make_shared<OwnPanels>();
  EXPECT_EQ(Told("Panels", "CurrentPanelType"), "90");
  EXPECT_EQ(Called("Panels", "SelectPanel", {Long{1}}), "(7, 6)");
  EXPECT_EQ(Called("Panels", "Model", {Long{1}}), "(1, 10, 20, 3, 8, 4, 5)");
  EXPECT_RAISES(91, "panels: the embedded service is not in use", Told("Panels", "Models"));
}

}  // namespace
}  // namespace quenzel7::server
