#include "server/services/embedded_changes.h"

#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::ObjectRef;

using EmbeddedChangesTest = ServicesTest;

TEST_F(EmbeddedChangesTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedChanges::ClassOf().name, "EmbeddedChanges");
  EXPECT_EQ(SlotsOf(EmbeddedChanges::ClassOf()),
            "get Elements() As Long()\n"
            "get Pages() As Long()\n"
            "get Events() As Variant\n"
            "call Clear()\n");
}

TEST_F(EmbeddedChangesTest, TellsWhatChanged) {
  EXPECT_EQ(Told("Changes", "Elements"), "()");
  EXPECT_EQ(Told("Changes", "Pages"), "()");
  corvane1::ChangeTracker& tracker = *Platform::Current().changeTracker;
  tracker.NotifyElementChanged(5);
  tracker.NotifyElementChanged(3);
  tracker.NotifyElementChanged(5);
  tracker.NotifyPageChanged(7);
  EXPECT_EQ(Told("Changes", "Elements"), "(5, 3)");
  EXPECT_EQ(Told("Changes", "Pages"), "(7)");
}

TEST_F(EmbeddedChangesTest, TellsEventsByTheNamesOfTheCalls) {
  EXPECT_EQ(Told("Changes", "Events"), "()");
  corvane1::ProjectService& project = *Platform::Current().projectService;
  project.NotifyElementSaved(1);
  project.NotifyVarKeypad(2, true);
  project.NotifyGlobalVarKeypad(3, true);
  project.NotifyElementDeleted(4);
  project.NotifyGlobalElementDeleted(nullptr);
  EXPECT_EQ(Told("Changes", "Events"),
            "((ElementSaved, 1, False), (VarKeypad, 2, True), (GlobalVarKeypad, 3, True), "
            "(ElementDeleted, 4, False), (GlobalElementDeleted, 0, False))");
}

TEST_F(EmbeddedChangesTest, ForgetsAllOfIt) {
  Platform::Current().changeTracker->NotifyElementChanged(5);
  Platform::Current().changeTracker->NotifyPageChanged(7);
  Platform::Current().projectService->NotifyElementSaved(1);
  Called("Changes", "Clear");
  EXPECT_EQ(Told("Changes", "Elements"), "()");
  EXPECT_EQ(Told("Changes", "Pages"), "()");
  EXPECT_EQ(Told("Changes", "Events"), "()");
}

TEST_F(EmbeddedChangesTest, IsAnotherViewWhenEitherServiceIsAnother) {
  const ObjectRef view = Service("Changes");
  Platform::Current().changeTracker = std::make_shared<corvane1::CollectedChanges>();
  const ObjectRef second = Service("Changes");
  EXPECT_NE(second, view);
  Platform::Current().projectService = std::make_shared<corvane1::CollectedProjectEvents>();
  EXPECT_NE(Service("Changes"), second);
}

TEST_F(EmbeddedChangesTest, NeedsBothEmbeddedServices) {
  class OwnTracker final : public corvane1::ChangeTracker {
    void NotifyElementChanged(Long) override {}
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long) override { return 0; }
  };
  class OwnProject final : public corvane1::ProjectService {
    void NotifyElementSaved(Long) override {}
    void NotifyVarKeypad(Long, bool) override {}
    void NotifyGlobalVarKeypad(Long, bool) override {}
    void NotifyElementDeleted(Integer) override {}
    void NotifyGlobalElementDeleted(const ObjectRef&) override {}
    Long ElementSize(Long) override { return 0; }
  };
  Platform::Current().projectService = std::make_shared<OwnProject>();
  EXPECT_RAISES(91, "project service: the embedded service is not in use", Service("Changes"));
  Renew();
  Platform::Current().changeTracker = std::make_shared<OwnTracker>();
  EXPECT_RAISES(91, "change tracker: the embedded service is not in use", Service("Changes"));
}

}  // namespace
}  // namespace quenzel7::server
