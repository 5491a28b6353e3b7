#include "server/services/host_services.h"

#include "platform/automation/automation_error.h"
#include "platform/corvane1/project_file.h"
#include "tests/server/services/forwarding_object.h"
#include "tests/server/services/late_double.h"
#include "tests/server/services/services_fixture.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::ObjectRef;
using automation::PutByName;
using automation::To;
using automation::Variant;

constexpr const char* kServices[] = {"MessageBoxes", "Messages", "ErrorLog", "ProjectDatabase",
                                     "Changes",      "Frame",    "Settings", "Colors",
                                     "Fonts",        "Strings",  "Panels"};

/// What a host of the library's own language may put in use.
class OwnMessageBoxes final : public corvane1::MessageBoxes {
 public:
  Long Show(const std::string&, Long, const std::string&) override { return 4; }
};

class HostServicesTest : public ServicesTest {
 protected:
  void Supply(std::string_view service, const ObjectRef& object) { PutByName(*services_, service, object); }
  static Long Show(const std::string& text) {
    return Platform::Current().messageBoxes->Show(text, 0, "caption");
  }
};

TEST_F(HostServicesTest, CannotBeCreatedByItsNumber) {
  EXPECT_EQ(HostServices::ClassOf().name, "HostServices");
  EXPECT_EQ(HostServices::ClassOf().create, nullptr);
  EXPECT_EQ(HostServices::ClassOf().interfaces.size(), 1u);
  EXPECT_EQ(HostServices::ClassOf().Default().Name(), "HostServices");
}

TEST_F(HostServicesTest, HasTheseMembers) {
  EXPECT_EQ(SlotsOf(HostServices::ClassOf()),
            "get MessageBoxes() As Object\n"
            "putref MessageBoxes(Object)\n"
            "get Messages() As Object\n"
            "putref Messages(Object)\n"
            "get ErrorLog() As Object\n"
            "putref ErrorLog(Object)\n"
            "get ProjectDatabase() As Object\n"
            "putref ProjectDatabase(Object)\n"
            "get Changes() As EmbeddedChanges\n"
            "get Frame() As EmbeddedFrame\n"
            "get Settings() As EmbeddedSettings\n"
            "get Colors() As PanelColors\n"
            "get Fonts() As PanelFonts\n"
            "get Strings() As ProjectStrings\n"
            "get Panels() As PanelList\n"
            "get Recorder() As CallRecorder\n"
            "get Page() As Long\n"
            "put Page(Long)\n"
            "get ChosenFile() As String\n"
            "put ChosenFile(String)\n"
            "call NewCollection() As Collection\n"
            "call NewPropertyBag() As PropertyBag\n"
            "call NewOperand() As Operand\n"
            "call Describe([String]) As String\n"
            "call Reset()\n");
}

TEST_F(HostServicesTest, DescribesByTheFunctionThatItWasGiven) {
  EXPECT_EQ(Listed(InvokeByName(*services_, "Describe", {"clsRectangle"})), "about \"clsRectangle\"");
  EXPECT_EQ(Listed(InvokeByName(*services_, "Describe")), "about \"\"");
}

TEST_F(HostServicesTest, GivesTheSameViewWhileTheServiceIsTheSame) {
  for (const char* const name : kServices) {
    const ObjectRef view = Service(name);
    EXPECT_EQ(Service(name), view) << name;
    Renew();
    EXPECT_NE(Service(name), view) << name;
  }
}

TEST_F(HostServicesTest, AViewStaysOfTheServiceThatItWasAskedOf) {
  const ObjectRef view = Service("MessageBoxes");
  Show("old");
  Renew();
  Show("new");
  EXPECT_EQ(Listed(GetByName(*view, "Shown")), "((old, 0, caption))");
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((new, 0, caption))");
}

TEST_F(HostServicesTest, AHostsOwnObjectTakesThePlaceOfTheEmbeddedService) {
  const ObjectRef view = Service("MessageBoxes");
  Show("before");
  const auto own = NewHostObject();
  own->Giving("call Show", Long{7});
  Supply("MessageBoxes", own);
  EXPECT_EQ(Service("MessageBoxes"), own);
  EXPECT_EQ(Show("now"), 7);
  EXPECT_EQ(own->calls, (std::vector<std::string>{"call Show String:now Long:0 String:caption"}));

  const auto second = NewHostObject();
  second->Giving("call Show", Long{3});
  Supply("MessageBoxes", second);
  EXPECT_EQ(Service("MessageBoxes"), second);
  EXPECT_EQ(Show("then"), 3);

  Supply("MessageBoxes", nullptr);
  EXPECT_EQ(Service("MessageBoxes"), view);
  EXPECT_EQ(Show("after"), 1);
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((before, 0, caption), (after, 0, caption))");
}

TEST_F(HostServicesTest, NothingBringsBackTheEmbeddedServiceThoughNobodyHadSeenIt) {
  Show("before");
  Supply("MessageBoxes", NewHostObject());
  Supply("MessageBoxes", nullptr);
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((before, 0, caption))");
}

TEST_F(HostServicesTest, NothingBringsBackTheEmbeddedServiceOfTheThreadsNewPlatform) {
  Supply("MessageBoxes", NewHostObject());
  Renew();
  Show("new");
  Supply("MessageBoxes", NewHostObject());
  Supply("MessageBoxes", nullptr);
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((new, 0, caption))");
}

TEST_F(HostServicesTest, NothingMakesAnEmbeddedServiceWhereThereWasNone) {
  Platform::Current().messageBoxes = std::make_shared<OwnMessageBoxes>();
  Supply("MessageBoxes", nullptr);
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "()");
  EXPECT_EQ(Told("MessageBoxes", "Printed"), "True");
}

TEST_F(HostServicesTest, AViewPutsItsServiceInUse) {
  const ObjectRef old = Service("MessageBoxes");
  PutByName(*old, "Answer", Long{6});
  Renew();
  EXPECT_EQ(Show("new"), 1);
  Supply("MessageBoxes", old);
  EXPECT_EQ(Service("MessageBoxes"), old);
  EXPECT_EQ(Show("old"), 6);
}

TEST_F(HostServicesTest, AServiceOfAHostInTheLibrarysLanguageHasNoView) {
  Platform::Current().messageBoxes = std::make_shared<OwnMessageBoxes>();
  EXPECT_RAISES(91, "message boxes: the embedded service is not in use", Service("MessageBoxes"));
  class OwnDatabase final : public corvane1::ProjectDatabase {
    ado::ConnectionRef OpenConnection() override { return nullptr; }
    std::string Path() override { return {}; }
  };
  Platform::Current().projectDatabase = std::make_shared<OwnDatabase>();
  EXPECT_RAISES(91, "project database: the embedded service is not in use", Service("ProjectDatabase"));
}

TEST_F(HostServicesTest, MessagesAndErrorsGoToAHostsOwnObjectsToo) {
  Platform& platform = Platform::Current();
  Variant argument = "a";
  platform.messageService->ShowMessage(77, argument);
  platform.errorLog->Report({"before", 1});
  const auto messages = NewHostObject(), log = NewHostObject();
  messages->Giving("call ShowMessage", Long{7});
  log->Giving("call Report", Variant());
  Supply("Messages", messages);
  Supply("ErrorLog", log);
  EXPECT_EQ(Service("Messages"), messages);
  EXPECT_EQ(Service("ErrorLog"), log);
  EXPECT_EQ(platform.messageService->ShowMessage(78, argument), 7);
  platform.errorLog->Report({"now", 2});
  EXPECT_EQ(messages->calls.size(), 1u);
  EXPECT_EQ(log->calls.size(), 1u);
  Supply("Messages", nullptr);
  Supply("ErrorLog", nullptr);
  EXPECT_EQ(Told("Messages", "Shown"), "((77, message 77: a))");
  EXPECT_EQ(Told("ErrorLog", "Reports"), "((before, 1, , , , , 0))");
}

TEST_F(HostServicesTest, EachServiceSaysThatTheEmbeddedOneIsNotInUse) {
  class OwnMessages final : public corvane1::MessageService {
    Long ShowMessage(Long, Variant&) override { return 0; }
  };
  class OwnLog final : public corvane1::ErrorLog {
    void Report(const corvane1::ErrorReport&) override {}
  };
  Platform::Current().messageService = std::make_shared<OwnMessages>();
  Platform::Current().errorLog = std::make_shared<OwnLog>();
  EXPECT_RAISES(91, "messages: the embedded service is not in use", Service("Messages"));
  EXPECT_RAISES(91, "error log: the embedded service is not in use", Service("ErrorLog"));
  Supply("Messages", nullptr);
  Supply("ErrorLog", nullptr);
  EXPECT_EQ(Told("Messages", "Shown"), "()");
  EXPECT_EQ(Told("ErrorLog", "Reports"), "()");
}

TEST_F(HostServicesTest, OpensAPage) {
  EXPECT_EQ(Listed(GetByName(*services_, "Page")), "0");
  PutByName(*services_, "Page", Long{7});
  EXPECT_EQ(Listed(GetByName(*services_, "Page")), "7");
  EXPECT_EQ(Platform::Current().globalValues->Value(corvane1::kOpenPageValue), 7);
}

TEST_F(HostServicesTest, AHostsOwnGlobalValuesTellThePageOnly) {
  class OwnValues final : public corvane1::GlobalValues {
    Long Value(Long number) override { return number * 10; }
  };
  Platform::Current().globalValues = std::make_shared<OwnValues>();
  EXPECT_EQ(Listed(GetByName(*services_, "Page")), "250");
  EXPECT_RAISES(91, "global values: the embedded service is not in use",
                PutByName(*services_, "Page", Long{7}));
}

TEST_F(HostServicesTest, PreparesTheFileThatIsChosenNext) {
  const auto chooser = Platform::Current().fileChooser;
  EXPECT_EQ(Listed(GetByName(*services_, "ChosenFile")), "");
  PutByName(*services_, "ChosenFile", "a.bmp");
  PutByName(*services_, "ChosenFile", "b.bmp");
  EXPECT_EQ(Listed(GetByName(*services_, "ChosenFile")), "b.bmp");
  EXPECT_EQ(chooser->Choose({}), "b.bmp");
  EXPECT_EQ(Listed(GetByName(*services_, "ChosenFile")), "");
  EXPECT_EQ(chooser->Choose({}), "");
  PutByName(*services_, "ChosenFile", "c.bmp");
  PutByName(*services_, "ChosenFile", "");
  PutByName(*services_, "ChosenFile", "d.bmp");
  EXPECT_EQ(chooser->Choose({}), "d.bmp");
}

TEST_F(HostServicesTest, AnEmptyChoiceLeavesNoneForLater) {
  PutByName(*services_, "ChosenFile", "");
  std::dynamic_pointer_cast<loomis2::PreparedFileChooser>(Platform::Current().fileChooser)->Prepare("a.bmp");
  EXPECT_EQ(Listed(GetByName(*services_, "ChosenFile")), "a.bmp");
}

TEST_F(HostServicesTest, AHostsOwnFileChooserIsNotPrepared) {
  class OwnChooser final : public loomis2::FileChooser {
    std::string Choose(const std::vector<loomis2::FileType>&) override { return {}; }
  };
  Platform::Current().fileChooser = std::make_shared<OwnChooser>();
  constexpr const char* kText = "file chooser: the embedded service is not in use";
  EXPECT_RAISES(91, kText, GetByName(*services_, "ChosenFile"));
  EXPECT_RAISES(91, kText, PutByName(*services_, "ChosenFile", "a.bmp"));
}

TEST_F(HostServicesTest, MakesObjectsThatMembersTake) {
  for (const char* const name : {"Collection", "PropertyBag", "Operand"}) {
    const auto make = [&] { return To<ObjectRef>(InvokeByName(*services_, std::string("New") + name)); };
    const ObjectRef made = make();
    EXPECT_EQ(made->Class().name, name);
    EXPECT_NE(make(), made);
  }
}

TEST_F(HostServicesTest, ANewOperandIsOneOfTheThreadsProject) {
  const test::TemporaryFolder folder;
  InvokeByName(*Service("ProjectDatabase"), "Open", {folder.File("plant.qz7")});
  const ObjectRef operand = To<ObjectRef>(InvokeByName(*services_, "NewOperand"));
  PutByName(*operand, "OperandType", Long{1});
  PutByName(*operand, "OperandAddress", Long{5});
  EXPECT_EQ(Listed(GetByName(*operand, "IsDefined")), "False");
  InvokeByName(*operand, "AddToProject");
  EXPECT_TRUE(Platform::Current().operands->IsDefined({1, 5, 0}));
}

TEST_F(HostServicesTest, OnlyAnObjectCanTakeThePlaceOfAService) {
  EXPECT_EQ(test::ErrorOf([&] { PutByName(*services_, "MessageBoxes", "boxes"); }), 13);
  EXPECT_EQ(Told("MessageBoxes", "Answer"), "1");
}

TEST_F(HostServicesTest, AllServicesSeeTheProjectOfAHostsOwnDatabase) {
  const test::TemporaryFolder folder;
  const auto own = NewHostObject();
  const auto give = [&](const char* name) {
    const auto connection = corvane1::OpenProject(folder.File(name), corvane1::ProjectMode::Create);
    own->Giving("call OpenConnection", connection);
    return connection;
  };
  Supply("ProjectDatabase", own);
  EXPECT_EQ(Service("ProjectDatabase"), own);
  EXPECT_EQ(own->calls, std::vector<std::string>());

  Platform& platform = Platform::Current();
  const auto first = give("first.qz7");
  EXPECT_EQ(platform.projectDatabase->OpenConnection(), first);
  EXPECT_EQ(platform.heldProject->OpenConnection(), first);
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 1);
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 2);
  first->Execute("INSERT INTO Settings (Section, Key, Value) VALUES (1, 2, 'of the first')");
  EXPECT_EQ(platform.settings->GetSetting(1, 2, "none"), "of the first");

  // The host goes on to another project by itself.
  const auto second = give("second.qz7");
  EXPECT_EQ(platform.settings->GetSetting(1, 2, "none"), "none");
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 1);

  // It closes that one.
  own->Giving("call OpenConnection", ObjectRef());
  EXPECT_EQ(platform.settings->GetSetting(1, 2, "none"), "none");
  EXPECT_RAISES(91, "no project is open: the host gave no connection",
                platform.numberGenerator->NewUniqueNumber());
}

TEST_F(HostServicesTest, TheEmbeddedServicesWorkInADatabaseThatIsKnownByItsMembersAlone) {
  const test::TemporaryFolder folder;
  const auto connection = corvane1::OpenProject(folder.File("plant.qz7"), corvane1::ProjectMode::Create);
  const auto own = NewHostObject();
  own->Giving("call OpenConnection", std::make_shared<ForwardingObject>(connection));
  Supply("ProjectDatabase", own);

  Called("Settings", "SetProjectSetting", {Long{1}, Long{2}, "text"});
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}}), "text");
  Called("Strings", "SetLanguage", {Long{1}, "English"});
  Called("Strings", "SetLanguage", {Long{2}, "Deutsch"});
  Called("Strings", "SetText", {Long{9}, Long{2}, "zwei", Long{5}});
  PutByName(*Service("Strings"), "Language", Long{2});
  EXPECT_EQ(Called("Strings", "Text", {Long{9}}), "zwei");
  EXPECT_EQ(Told("Strings", "Texts"), "((9, 2, zwei, 5))");
  Platform& platform = Platform::Current();
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 1);
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 2);
  platform.operands->Add({1, 0, 0}, {"comment", {}});
  EXPECT_TRUE(platform.operands->IsDefined({1, 0, 0}));
  EXPECT_EQ(platform.operands->FreeAddress(1, 0), 1);
  platform.operands->Remove({1, 0, 0});
  EXPECT_FALSE(platform.operands->IsDefined({1, 0, 0}));
  EXPECT_EQ(platform.changeTracker->ElementSize(5), 0);

  {
    ado::Transaction undone(*platform.projectDatabase->OpenConnection());
    EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 3);
  }
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 3);
  {
    ado::Transaction lasting(*platform.projectDatabase->OpenConnection());
    EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 4);
    lasting.Commit();
  }
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 5);
  EXPECT_EQ(Listed(connection->Execute("SELECT * FROM Numbers")->Get("Next")), "6");
}

TEST_F(HostServicesTest, SettingsAreReadOnceForEachProjectOfTheHost) {
  const auto rows = NewHostObject(), connection = NewHostObject(), own = NewHostObject();
  rows->Giving("call Open", Variant()).Giving("get EOF", true).Giving("call Close", Variant());
  connection->Giving("call CreateRecordset", rows);
  own->Giving("call OpenConnection", connection);
  Supply("ProjectDatabase", own);
  for (int setting = 0; setting < 3; ++setting) {
    EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{setting}, "none"}), "none");
  }
  EXPECT_EQ(own->calls.size(), 3u);
  EXPECT_EQ(connection->calls, (std::vector<std::string>{"call CreateRecordset"}));
  EXPECT_EQ(rows->calls, (std::vector<std::string>{
                             "call Open String:SELECT * FROM Settings Object:HostObject Long:3 Long:1 Long:1",
                             "get EOF", "call Close"}));
}

TEST_F(HostServicesTest, TheEmbeddedDatabaseComesBackWithItsProject) {
  const test::TemporaryFolder folder;
  const ObjectRef embedded = Service("ProjectDatabase");
  const ObjectRef connection = To<ObjectRef>(InvokeByName(*embedded, "Open", {folder.File("embedded.qz7")}));
  const auto other = std::make_shared<test::EmptyConnection>();
  const auto own = NewHostObject();
  own->Giving("call OpenConnection", other);
  Platform& platform = Platform::Current();
  for (const ObjectRef& back : {ObjectRef(), embedded}) {
    Supply("ProjectDatabase", own);
    EXPECT_EQ(platform.heldProject->OpenConnection(), other);
    EXPECT_EQ(To<ObjectRef>(InvokeByName(*embedded, "OpenConnection")), connection);
    Supply("ProjectDatabase", back);
    EXPECT_EQ(Service("ProjectDatabase"), embedded);
    EXPECT_EQ(platform.projectDatabase, platform.heldProject);
    EXPECT_EQ(platform.heldProject->OpenConnection(), connection);
  }
}

TEST_F(HostServicesTest, NothingBringsBackTheHeldProjectAfterADatabaseOfTheLibrarysLanguage) {
  const auto own = NewHostObject();
  Platform& platform = Platform::Current();
  platform.projectDatabase = std::make_shared<LateProjectDatabase>(own);
  Supply("ProjectDatabase", nullptr);
  EXPECT_EQ(platform.projectDatabase, platform.heldProject);
}

TEST_F(HostServicesTest, AViewOfAnEarlierPlatformBringsItsProjectToAllServices) {
  const auto connection = std::make_shared<test::EmptyConnection>();
  Platform::Current().heldProject->Hold(connection);
  const ObjectRef old = Service("ProjectDatabase");
  Renew();
  Supply("ProjectDatabase", old);
  EXPECT_EQ(Platform::Current().projectDatabase->OpenConnection(), connection);
  EXPECT_EQ(Platform::Current().heldProject->OpenConnection(), connection);
}

TEST_F(HostServicesTest, ResetMakesTheServicesOfTheThreadAnew) {
  const test::TemporaryFolder folder;
  const std::weak_ptr<automation::Object> connection =
      To<ObjectRef>(InvokeByName(*Service("ProjectDatabase"), "Open", {folder.File("plant.qz7")}));
  Show("before");
  std::vector<std::weak_ptr<automation::Object>> views;
  for (const char* const name : kServices) views.push_back(Service(name));
  const ObjectRef recorder = Service("Recorder");
  Supply("MessageBoxes", NewHostObject());
  Supply("ProjectDatabase", NewHostObject());
  InvokeByName(*services_, "Reset");
  for (const auto& view : views) EXPECT_TRUE(view.expired());
  EXPECT_TRUE(connection.expired());
  EXPECT_EQ(Service("Recorder"), recorder);
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "()");
  EXPECT_EQ(Platform::Current().projectDatabase, Platform::Current().heldProject);
  EXPECT_RAISES(91, "no project is open", Called("ProjectDatabase", "OpenConnection"));
}

}  // namespace
}  // namespace quenzel7::server
