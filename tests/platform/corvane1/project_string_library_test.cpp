#include "platform/corvane1/project_string_library.h"

#include <gtest/gtest.h>

#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/older_project.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::corvane1 {
namespace {

const LibraryString kNothing = {"EMPTY STRING", -1};

class StringLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    library_.Open(connection_, -1);
    library_.SetLanguage(1, "English");
    library_.SetLanguage(2, "Deutsch");
  }

  TemporaryProject project_;
  ado::ConnectionRef connection_ = project_.Open();
  ProjectStringLibrary library_;
};

TEST(StringLibraryBeforeOpen, HasNoTextsAndStandsOnTheFirstLanguage) {
  ProjectStringLibrary library;
  EXPECT_EQ(library.Language(), 1);
  EXPECT_RAISES(91, "the string library is not open", library.GetString(1));
  EXPECT_RAISES(91, "the string library is not open", library.GetCount());
  EXPECT_RAISES(91, "the string library is not open", library.SetLanguage(1, "English"));
  EXPECT_RAISES(91, "the string library is not open", library.LanguageName(1));
  EXPECT_RAISES(91, "the string library is not open", library.SetString(1, 1, {"a", 2}));
  EXPECT_RAISES(91, "the string library is not open", library.AllStrings());
  library.Language(0);
  EXPECT_RAISES(91, "the string library is not open", library.GetString(1));
}

TEST(StringLibraryBeforeOpen, IsNotOpenedOnNothing) {
  ProjectStringLibrary library;
  EXPECT_RAISES(91, "the string library needs an open project", library.Open(nullptr, -1));
}

TEST(StringLibraryOfANewProject, HasNoLanguages) {
  const TemporaryProject project;
  const auto connection = project.Open();
  ProjectStringLibrary library;
  library.Open(connection, -1);
  EXPECT_EQ(library.GetCount(), 0);
  EXPECT_EQ(library.GetString(1), kNothing);
  EXPECT_RAISES(5, "language 1 of the string library: it has no language", library.SetString(1, 1, {"a", 2}));
}

TEST_F(StringLibraryTest, CountsItsLanguagesFromOne) {
  EXPECT_EQ(library_.GetCount(), 2);
  library_.SetLanguage(3, "Ivrit");
  EXPECT_EQ(library_.GetCount(), 3);
  EXPECT_EQ(library_.LanguageName(1), "English");
  EXPECT_EQ(library_.LanguageName(2), "Deutsch");
  EXPECT_EQ(library_.LanguageName(3), "Ivrit");
}

TEST_F(StringLibraryTest, ALanguageCanGetAnotherName) {
  library_.SetLanguage(2, "German");
  EXPECT_EQ(library_.GetCount(), 2);
  EXPECT_EQ(library_.LanguageName(1), "English");
  EXPECT_EQ(library_.LanguageName(2), "German");
}

TEST_F(StringLibraryTest, ALanguageIsAddedUnderTheNumberThatWasAskedFor) {
  connection_->Execute("UPDATE StringLanguages SET Language=9 WHERE Language=2");
  library_.SetLanguage(3, "third");
  EXPECT_EQ(library_.LanguageName(3), "third");
  EXPECT_EQ(library_.GetCount(), 3);
}

TEST_F(StringLibraryTest, ALanguageInAGapIsToldApart) {
  connection_->Execute("UPDATE StringLanguages SET Language=9 WHERE Language=2");
  EXPECT_RAISES(5, "language 2 of the string library is missing: their numbers have a gap",
                library_.LanguageName(2));
  EXPECT_EQ(library_.LanguageName(1), "English");
}

TEST_F(StringLibraryTest, LanguagesLeaveNoGap) {
  for (const Long language : {-1, 0, 4}) {
    EXPECT_RAISES(
        5,
        "language " + std::to_string(language) + " of the string library: a number from 1 to 3 is expected",
        library_.SetLanguage(language, "x"));
  }
  for (const Long language : {0, 3}) {
    const std::string refusal =
        "language " + std::to_string(language) + " of the string library: a number from 1 to 2 is expected";
    EXPECT_RAISES(5, refusal, library_.LanguageName(language));
    EXPECT_RAISES(5, refusal, library_.SetString(1, language, {"a", 2}));
  }
  EXPECT_EQ(library_.GetCount(), 2);
}

TEST_F(StringLibraryTest, GivesTheTextOfTheCurrentLanguageWithItsFont) {
  library_.SetString(7, 1, {"tank", 4});
  library_.SetString(7, 2, {"Kessel \xC3\xA4\r\n'x'", 5});
  library_.SetString(8, 1, {"pump", -1});
  EXPECT_EQ(library_.GetString(7), (LibraryString{"tank", 4}));
  EXPECT_EQ(library_.GetString(8), (LibraryString{"pump", -1}));
  library_.Language(2);
  EXPECT_EQ(library_.Language(), 2);
  EXPECT_EQ(library_.GetString(7), (LibraryString{"Kessel \xC3\xA4\r\n'x'", 5}));
  EXPECT_EQ(library_.GetString(8), kNothing);
}

TEST_F(StringLibraryTest, ATextCanBeReplacedAndTakenAway) {
  library_.SetString(7, 1, {"tank", 4});
  library_.SetString(7, 2, {"Kessel", 5});
  library_.SetString(8, 1, {"pump", 6});
  library_.SetString(7, 1, {"boiler", 9});
  EXPECT_EQ(library_.GetString(7), (LibraryString{"boiler", 9}));
  library_.SetString(7, 1, {"", 9});
  EXPECT_EQ(library_.GetString(7), kNothing);
  EXPECT_TRUE(connection_->Execute("SELECT * FROM LibraryStrings WHERE Number=7 AND Language=1")->Eof());
  EXPECT_EQ(library_.GetString(8), (LibraryString{"pump", 6}));
  library_.Language(2);
  EXPECT_EQ(library_.GetString(7), (LibraryString{"Kessel", 5}));
}

TEST_F(StringLibraryTest, AnEmptyOrMissingTextIsTheEmptyStringInNoFont) {
  EXPECT_EQ(library_.GetString(7), kNothing);
  connection_->Execute("INSERT INTO LibraryStrings VALUES(1,1,'',3)");
  connection_->Execute("INSERT INTO LibraryStrings VALUES(2,1,NULL,3)");
  connection_->Execute("INSERT INTO LibraryStrings VALUES(3,1,'pump',NULL)");
  EXPECT_EQ(library_.GetString(1), kNothing);
  EXPECT_EQ(library_.GetString(2), kNothing);
  EXPECT_EQ(library_.GetString(3), (LibraryString{"pump", -1}));
}

TEST_F(StringLibraryTest, ANumberThatIsNoLanguageIsTakenAndHasNoText) {
  for (const Long language : {0, 3, -1}) {
    connection_->Execute("INSERT INTO LibraryStrings VALUES(1," + std::to_string(language) + ",'stray',3)");
    library_.Language(language);
    EXPECT_EQ(library_.Language(), language);
    EXPECT_EQ(library_.GetString(1), kNothing) << language;
  }
}

TEST_F(StringLibraryTest, OpeningTheSameProjectAgainKeepsTheLanguage) {
  library_.Language(2);
  library_.Open(connection_, -1);
  EXPECT_EQ(library_.Language(), 2);
}

TEST_F(StringLibraryTest, AnotherProjectBeginsWithTheFirstLanguage) {
  library_.SetString(7, 1, {"tank", 4});
  library_.Language(2);
  const auto other = project_.Open("other.qz7");
  library_.Open(other, -1);
  EXPECT_EQ(library_.Language(), 1);
  EXPECT_EQ(library_.GetCount(), 0);
  EXPECT_EQ(library_.GetString(7), kNothing);
  library_.Open(connection_, -1);
  EXPECT_EQ(library_.GetString(7), (LibraryString{"tank", 4}));
}

TEST_F(StringLibraryTest, ReadsWithoutLockingAndWritesInPlaceAndCloses) {
  using test::CallLog;
  const auto recorder = std::make_shared<test::RecordingConnection>(connection_);
  library_.Open(recorder, -1);
  const std::string count = "execute SELECT COUNT(*) AS Languages FROM StringLanguages";

  EXPECT_EQ(library_.GetCount(), 2);
  EXPECT_EQ(recorder->Take(), (CallLog{count, "get Languages", "Close"}));

  EXPECT_EQ(library_.LanguageName(2), "Deutsch");
  EXPECT_EQ(recorder->Take(),
            (CallLog{count, "get Languages", "Close",
                     "open SELECT Name FROM StringLanguages WHERE Language=2 [3,1,1]", "get Name", "Close"}));

  library_.SetLanguage(3, "Ivrit");
  EXPECT_EQ(
      recorder->Take(),
      (CallLog{count, "get Languages", "Close", "open SELECT * FROM StringLanguages WHERE Language=3 [3,3,1]",
               "AddNew", "put Language=3:Long", "put Name=Ivrit:String", "Update", "Close"}));

  library_.SetString(7, 1, {"tank", 4});
  EXPECT_EQ(recorder->Take(),
            (CallLog{count, "get Languages", "Close",
                     "open SELECT * FROM LibraryStrings WHERE Number=7 AND Language=1 [3,3,1]", "AddNew",
                     "put Number=7:Long", "put Language=1:Long", "put Text=tank:String",
                     "put FontNumber=4:Long", "Update", "Close"}));

  const std::string query = " AND Language=1 AND Language IN (SELECT Language FROM StringLanguages) [3,1,1]";
  library_.GetString(7);
  EXPECT_EQ(recorder->Take(), (CallLog{"open SELECT * FROM LibraryStrings WHERE Number=7" + query, "get Text",
                                       "get FontNumber", "Close"}));
  library_.GetString(8);
  EXPECT_EQ(recorder->Take(), (CallLog{"open SELECT * FROM LibraryStrings WHERE Number=8" + query, "Close"}));

  library_.SetString(7, 1, {"", 4});
  EXPECT_EQ(recorder->Take(),
            (CallLog{count, "get Languages", "Close",
                     "execute DELETE * FROM LibraryStrings WHERE Number=7 AND Language=1"}));
}

TEST_F(StringLibraryTest, ListsAllTextsByNumberAndLanguage) {
  EXPECT_EQ(library_.AllStrings(), std::vector<NumberedString>{});
  library_.SetString(10, 2, {"Kessel", -1});
  library_.SetString(10, 1, {"boiler", 3});
  library_.SetString(9, 2, {"EMPTY STRING", 0});
  library_.SetString(-1, 1, {"first", 1});
  EXPECT_EQ(library_.AllStrings(), (std::vector<NumberedString>{{-1, 1, {"first", 1}},
                                                                {9, 2, {"EMPTY STRING", 0}},
                                                                {10, 1, {"boiler", 3}},
                                                                {10, 2, {"Kessel", -1}}}));
}

TEST_F(StringLibraryTest, ListsNoEmptyTextsAndNoneWithoutALanguage) {
  for (const char* row : {"1, 1, NULL, 4", "2, 1, '', 4", "3, 1, 'text', NULL", "4, 3, 'lost', 4"}) {
    connection_->Execute("INSERT INTO LibraryStrings (Number, Language, Text, FontNumber) VALUES (" +
                         std::string(row) + ")");
  }
  EXPECT_EQ(library_.AllStrings(), (std::vector<NumberedString>{{3, 1, {"text", -1}}}));
}

TEST_F(StringLibraryTest, DoesNotKeepTheProjectOpen) {
  library_.Language(2);
  const std::weak_ptr<ado::Connection> watched = connection_;
  connection_ = nullptr;
  EXPECT_TRUE(watched.expired());
  EXPECT_RAISES(91, "the string library is not open", library_.GetString(1));
  connection_ = project_.Open();
  library_.Open(connection_, -1);
  EXPECT_EQ(library_.Language(), 1);
  EXPECT_EQ(library_.GetCount(), 2);
}

TEST_F(StringLibraryTest, OfAnOlderProjectThatIsOnlyReadIsEmpty) {
  test::MakeOlder(*connection_, 1);
  const auto reader = OpenProject(project_.Folder() + "/project.qz7", ProjectMode::ReadOnly);
  ProjectStringLibrary library;
  library.Open(reader, -1);
  EXPECT_EQ(library.GetCount(), 0);
  EXPECT_EQ(library.GetString(1), kNothing);
  EXPECT_RAISES(3251, "the recordset's rows are not plain rows of one table",
                library.SetLanguage(1, "English"));
  EXPECT_EQ(library.GetCount(), 0);
}

TEST_F(StringLibraryTest, ReadsAProjectThatCannotBeWritten) {
  library_.SetString(7, 1, {"tank", 4});
  const auto reader = OpenProject(project_.Folder() + "/project.qz7", ProjectMode::ReadOnly);
  ProjectStringLibrary library;
  library.Open(reader, -1);
  EXPECT_EQ(library.GetString(7), (LibraryString{"tank", 4}));
  EXPECT_EQ(test::ErrorOf([&] { library.SetString(7, 1, {"x", 4}); }), -2147467259);
}

}  // namespace
}  // namespace quenzel7::corvane1
