#include "server/services/project_strings.h"

#include "platform/corvane1/project_file.h"
#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

using automation::PutByName;

class ProjectStringsTest : public ServicesTest {
 protected:
  void Open(const char* name = "plant.qz7") {
    Platform::Current().heldProject->Hold(
        corvane1::OpenProject(folder_.File(name), corvane1::ProjectMode::Create));
  }
  void AddLanguages() {
    Called("Strings", "SetLanguage", {Long{1}, "English"});
    Called("Strings", "SetLanguage", {Long{2}, "Deutsch"});
  }

  test::TemporaryFolder folder_;
};

TEST_F(ProjectStringsTest, HasTheseMembers) {
  EXPECT_EQ(ProjectStrings::ClassOf().name, "ProjectStrings");
  EXPECT_EQ(SlotsOf(ProjectStrings::ClassOf()),
            "get LanguageCount() As Long\n"
            "get Language() As Long\n"
            "put Language(Long)\n"
            "call LanguageName(Long) As String\n"
            "call SetLanguage(Long, String)\n"
            "call Text(Long) As String\n"
            "call FontNumber(Long) As Long\n"
            "call SetText(Long, Long, String, [Long])\n"
            "get Texts() As Variant\n");
  EXPECT_EQ(ProjectStrings::ClassOf().Default().Find("Text")->role, automation::Role::Value);
}

TEST_F(ProjectStringsTest, KeepsLanguages) {
  Open();
  EXPECT_EQ(Told("Strings", "LanguageCount"), "0");
  AddLanguages();
  EXPECT_EQ(Told("Strings", "LanguageCount"), "2");
  EXPECT_EQ(Called("Strings", "LanguageName", {Long{2}}), "Deutsch");
  EXPECT_EQ(test::ErrorOf([&] { Called("Strings", "LanguageName", {Long{3}}); }), 5);
  EXPECT_EQ(test::ErrorOf([&] { Called("Strings", "SetLanguage", {Long{4}, "a"}); }), 5);
}

TEST_F(ProjectStringsTest, KeepsTextsInEachLanguage) {
  Open();
  AddLanguages();
  Called("Strings", "SetText", {Long{9}, Long{2}, "zwei", Long{5}});
  Called("Strings", "SetText", {Long{9}, Long{1}, "two"});
  Called("Strings", "SetText", {Long{8}, Long{1}, "one", Long{6}});
  EXPECT_EQ(Told("Strings", "Language"), "1");
  EXPECT_EQ(Called("Strings", "Text", {Long{9}}), "two");
  EXPECT_EQ(Called("Strings", "FontNumber", {Long{9}}), "-1");
  PutByName(*Service("Strings"), "Language", Long{2});
  EXPECT_EQ(Told("Strings", "Language"), "2");
  EXPECT_EQ(Called("Strings", "Text", {Long{9}}), "zwei");
  EXPECT_EQ(Called("Strings", "FontNumber", {Long{9}}), "5");
  EXPECT_EQ(Called("Strings", "Text", {Long{8}}), "EMPTY STRING");
  EXPECT_EQ(Told("Strings", "Texts"), "((8, 1, one, 6), (9, 1, two, -1), (9, 2, zwei, 5))");
  Called("Strings", "SetText", {Long{9}, Long{2}, ""});
  EXPECT_EQ(Told("Strings", "Texts"), "((8, 1, one, 6), (9, 1, two, -1))");
}

TEST_F(ProjectStringsTest, AreThoseOfTheProjectThatIsOpen) {
  Open("first.qz7");
  AddLanguages();
  PutByName(*Service("Strings"), "Language", Long{2});
  Open("second.qz7");
  EXPECT_EQ(Told("Strings", "LanguageCount"), "0");
  EXPECT_EQ(Told("Strings", "Language"), "1");
  EXPECT_EQ(Told("Strings", "Texts"), "()");
  Open("first.qz7");
  EXPECT_EQ(Called("Strings", "LanguageName", {Long{1}}), "English");
}

TEST_F(ProjectStringsTest, NeedAnOpenProject) {
  constexpr const char* kText = "no project is open";
  EXPECT_RAISES(91, kText, Told("Strings", "LanguageCount"));
  EXPECT_RAISES(91, kText, Told("Strings", "Language"));
  EXPECT_RAISES(91, kText, PutByName(*Service("Strings"), "Language", Long{2}));
  EXPECT_RAISES(91, kText, Called("Strings", "LanguageName", {Long{1}}));
  EXPECT_RAISES(91, kText, Called("Strings", "SetLanguage", {Long{1}, "English"}));
  EXPECT_RAISES(91, kText, Called("Strings", "Text", {Long{1}}));
  EXPECT_RAISES(91, kText, Called("Strings", "FontNumber", {Long{1}}));
  EXPECT_RAISES(91, kText, Called("Strings", "SetText", {Long{1}, Long{1}, "a"}));
  EXPECT_RAISES(91, kText, Told("Strings", "Texts"));
}

TEST_F(ProjectStringsTest, OfAHostsOwnLibraryOnlyReadingIsThere) {
  class OwnLibrary final : public corvane1::StringLibrary {
   public:
    void Open(const ado::ConnectionRef& project, Long option) override {
      opened = project;
      told = option;
    }
    Long GetCount() override { return 3; }
    Long Language() override { return language; }
    void Language(Long number) override { language = number; }
    corvane1::LibraryString GetString(Long number) override { return {"text", number + 1}; }

    ado::ConnectionRef opened;
    Long told = 0, language = 4;
  };
  Open();
  const auto library = std::make_shared<OwnLibrary>();
  Platform::Current().stringLibrary = library;
  EXPECT_EQ(Told("Strings", "LanguageCount"), "3");
  EXPECT_EQ(library->opened, Platform::Current().heldProject->Held());
  EXPECT_EQ(library->told, -1);
  EXPECT_EQ(Told("Strings", "Language"), "4");
  PutByName(*Service("Strings"), "Language", Long{6});
  EXPECT_EQ(library->language, 6);
  EXPECT_EQ(Called("Strings", "Text", {Long{1}}), "text");
  EXPECT_EQ(Called("Strings", "FontNumber", {Long{1}}), "2");
  constexpr const char* kText = "string library: the embedded service is not in use";
  EXPECT_RAISES(91, kText, Called("Strings", "LanguageName", {Long{1}}));
  EXPECT_RAISES(91, kText, Called("Strings", "SetLanguage", {Long{1}, "English"}));
  EXPECT_RAISES(91, kText, Called("Strings", "SetText", {Long{1}, Long{1}, "a"}));
  EXPECT_RAISES(91, kText, Told("Strings", "Texts"));
}

}  // namespace
}  // namespace quenzel7::server
