#include "variables/calendar_words.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <set>

#include "framework/enums.h"
#include "platform/corvane1/utf8.h"
#include "platform/scripting/built_in_files.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using Words = std::vector<std::string>;
using corvane1::TextExtent;

constexpr struct {
  Long language;
  const char *file, *sunday, *january;
} kLanguages[] = {
    {0, "Calendar_English.txt", "Sunday", "January"},
    {1, "Calendar_Hebrew.txt", "יום ראשון", "ינואר"},
    {2, "Calendar_Dutch.txt", "zondag", "januari"},
    {3, "Calendar_German.txt", "Sonntag", "Januar"},
    {4, "Calendar_French.txt", "dimanche", "janvier"},
    {5, "Calendar_Itanlian.txt", "domenica", "gennaio"},
    {6, "Calendar_Spanish.txt", "domingo", "enero"},
    {7, "Calendar_Portuguese.txt", "domingo", "janeiro"},
    {8, "Calendar_Danish.txt", "søndag", "januar"},
    {9, "Calendar_Swedish.txt", "söndag", "januari"},
    {10, "Calendar_Norwegian.txt", "søndag", "januar"},
    {11, "Calendar_Turkish.txt", "Pazar", "Ocak"},
    {13, "Calendar_Polish.txt", "niedziela", "styczeń"},
    {14, "Calendar_Greek.txt", "Κυριακή", "Ιανουάριος"},
    {15, "Calendar_Hungarian.txt", "vasárnap", "január"},
    {16, "Calendar_Czech.txt", "neděle", "leden"},
    {17, "Calendar_Slovene.txt", "nedelja", "januar"},
    {18, "Calendar_Russian.txt", "воскресенье", "январь"},
    {19, "Calendar_Chinese.txt", "星期日", "一月"},
    {22, "Calendar_Bulgarian.txt", "неделя", "януари"},
    {23, "Calendar_Japanese.txt", "日曜日", "1月"},
    {24, "Calendar_Korean.txt", "일요일", "1월"},
    {25, "Calendar_Vietnamese.txt", "Chủ Nhật", "Tháng 1"},
    {26, "Calendar_Slovak.txt", "nedeľa", "január"},
};

/// A project without word files of its own to begin with, and fonts that are measured by counting.
class CalendarWord : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    std::filesystem::create_directory(folder_.File("Projects"));
    connection_ = corvane1::OpenProject(folder_.File("Projects/plant.qz7"), corvane1::ProjectMode::Create);
    Platform::Current().heldProject->Hold(connection_);
    services_.Install();
    NewTextsAre("0");
  }
  void TearDown() override { Platform::Current() = Platform(); }

  /// Chooses the frame style of new texts.
  static void NewTextsAre(const char* style) {
    const auto settings = std::make_shared<corvane1::LayeredSettings>(Platform::Current().heldProject);
    settings->Set(6000, 6043, style);
    Platform::Current().settings = settings;
  }

  /// Gives the project a word file.
  void Write(const std::string& name, const std::string& text) {
    std::filesystem::create_directory(folder_.File("Strings"));
    std::ofstream(folder_.File("Strings/" + name), std::ios::binary) << text;
  }

  test::TemporaryFolder folder_;
  ado::ConnectionRef connection_;
  test::CountingServices services_;
};

TEST(CalendarFileName, IsThatOfTheLanguage) {
  std::set<std::string_view> builtIn;
  for (const scripting::BuiltInFile& file : scripting::BuiltInFiles()) builtIn.insert(file.name);
  EXPECT_EQ(builtIn.size(), std::size(kLanguages));
  for (const auto& row : kLanguages) {
    EXPECT_EQ(CalendarFileName(row.language), row.file);
    EXPECT_EQ(builtIn.count(row.file), 1u) << row.file;
  }
}

TEST(CalendarFileName, RaisesForNumbersWithoutAFile) {
  EXPECT_RAISES(5, "language 12 has no calendar words", CalendarFileName(12));
  EXPECT_RAISES(5, "language -1 has no calendar words", CalendarFileName(-1));
  constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();
  for (const Long language : {20, 21, 27, 28, kLeast, kMost}) {
    EXPECT_EQ(test::ErrorOf([&] { CalendarFileName(language); }), 5) << language;
  }
}

TEST_F(CalendarWord, ComesWithTheLibraryInEveryLanguage) {
  for (const auto& row : kLanguages) {
    const struct {
      Long format;
      std::size_t count;
    } sections[] = {{2, 7}, {3, 31}, {4, 12}};
    for (const auto& section : sections) {
      const Words words = CalendarWords(row.language, section.format);
      EXPECT_EQ(words.size(), section.count) << row.file << ", " << section.format;
      EXPECT_EQ(std::set<std::string>(words.begin(), words.end()).size(), section.count) << row.file;
      for (const std::string& word : words) {
        EXPECT_NE(word, "");
        for (std::string_view rest = word; !rest.empty();) {
          EXPECT_NE(corvane1::TakeCharacter(rest), U'\xFFFD') << row.file << ": " << word;
        }
      }
    }
    EXPECT_EQ(CalendarWords(row.language, 2).front(), row.sunday);
    EXPECT_EQ(CalendarWords(row.language, 4).front(), row.january);
    const Words days = CalendarWords(row.language, 3);
    for (std::size_t day = 1; day <= days.size(); ++day) {
      EXPECT_EQ(days[day - 1].find(std::to_string(day)), 0u) << row.file;
    }
  }
}

TEST_F(CalendarWord, IsThatOfTheFormat) {
  EXPECT_EQ(CalendarWords(0, eTFT_CW),
            (Words{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}));
  EXPECT_EQ(CalendarWords(0, eTFT_CM), (Words{"January", "February", "March", "April", "May", "June", "July",
                                              "August", "September", "October", "November", "December"}));
  EXPECT_EQ(CalendarWords(0, eTFT_CD).back(), "31");
  EXPECT_EQ(CalendarWords(23, eTFT_CD).back(), "31日");
}

TEST_F(CalendarWord, HasNoOtherFormats) {
  EXPECT_RAISES(5, "format 1 has no calendar words", CalendarWords(0, 1));
  for (const Long format : {-1, 0, 5, 6}) {
    EXPECT_EQ(test::ErrorOf([&] { CalendarWords(0, format); }), 5) << format;
  }
  EXPECT_RAISES(5, "language 21 has no calendar words", CalendarWords(21, 2));
}

TEST_F(CalendarWord, IsThatOfTheProjectWhereItHasAFile) {
  Write(
      "Calendar_French.txt",
      "of no section\r\n//Day Of Week//\r\ndim\r\nlun\r\n\r\nnone\r\n//Month//\r\njan\r\n\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(CalendarWords(4, 2), (Words{"dim", "lun"}));
  EXPECT_EQ(CalendarWords(4, 4), (Words{"jan", "\xC3\xA9t\xC3\xA9"}));
  EXPECT_EQ(CalendarWords(4, 3), Words{});
  EXPECT_EQ(CalendarWords(0, 2).size(), 7u);
}

TEST_F(CalendarWord, StandsBehindItsHeaderExactly) {
  Write("calendar_english.TXT",
        "\n//day of week//\na\n //Month//\nb\n//Month// \nc\n\n//Month//\nd\n//Month//\n \ne");
  EXPECT_EQ(CalendarWords(0, 4), (Words{"d", "//Month//", " ", "e"}));
  EXPECT_EQ(CalendarWords(0, 2), Words{});
  Write("calendar_english.TXT", "//Month//\n\nd");
  EXPECT_EQ(CalendarWords(0, 4), Words{});
  Write("calendar_english.TXT", "//Month//");
  EXPECT_EQ(CalendarWords(0, 4), Words{});
  Write("calendar_english.TXT", "");
  EXPECT_EQ(CalendarWords(0, 4), Words{});
}

TEST_F(CalendarWord, ComesWithTheLibraryForAProjectWithoutAFile) {
  Platform::Current().heldProject->Hold(std::make_shared<test::EmptyConnection>());
  EXPECT_EQ(CalendarWords(3, 2).front(), "Sonntag");
}

TEST_F(CalendarWord, IsLookedForWhereTheProjectOfTheElementsIs) {
  Write("Calendar_English.txt", "//Month//\nmine");
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  Platform::Current().projectDatabase = database;
  EXPECT_RAISES(91, "no project is open", CalendarWords(0, 4));
  database->Hold(connection_);
  Platform::Current().heldProject->Hold(nullptr);
  EXPECT_EQ(CalendarWords(0, 4), Words{"mine"});
}

TEST_F(CalendarWord, PassesOnWhatTheFilesRaise) {
  Write("Calendar_English.txt", "");
  std::filesystem::remove(folder_.File("Strings/Calendar_English.txt"));
  std::filesystem::create_directory(folder_.File("Strings/Calendar_English.txt"));
  EXPECT_EQ(test::ErrorOf([] { CalendarWords(0, 2); }), 70);
}

TEST_F(CalendarWord, IsLargestInEachDirectionByItself) {
  // Each character of font 2 is 3 pixels wide, each line 6 high.
  Write("Calendar_English.txt", "//Month//\nabc\nabcdef\nab\n\n//Day Of Week//\nabcdefgh\n");
  EXPECT_EQ(LargestCalendarWord(0, 4, 2), (TextExtent{18, 6}));
  EXPECT_EQ(LargestCalendarWord(0, 2, 2), (TextExtent{24, 6}));
  EXPECT_EQ(LargestCalendarWord(0, 4, 0), (TextExtent{6, 2}));
}

TEST_F(CalendarWord, HasTheFrameOfNewTexts) {
  Write("Calendar_English.txt", "//Month//\nabc");
  EXPECT_EQ(LargestCalendarWord(0, 4, 2), (TextExtent{9, 6}));
  NewTextsAre("1");
  EXPECT_EQ(LargestCalendarWord(0, 4, 2), (TextExtent{17, 14}));
}

TEST_F(CalendarWord, OfAnotherCodePageIsToldAndHasNoWidth) {
  const auto boxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  Platform::Current().messageBoxes = boxes;
  EXPECT_EQ(LargestCalendarWord(23, 2, 2), (TextExtent{0, 6}));
  EXPECT_EQ(boxes->Shown().size(), 7u);
}

TEST_F(CalendarWord, HasNoSizeWithoutWords) {
  Write("Calendar_English.txt", "//Day Of Week//\nabc");
  EXPECT_EQ(LargestCalendarWord(0, 4, 2), (TextExtent{0, 0}));
  EXPECT_EQ(test::ErrorOf([] { LargestCalendarWord(12, 4, 2); }), 5);
  EXPECT_EQ(test::ErrorOf([] { LargestCalendarWord(0, 1, 2); }), 5);
}

}  // namespace
}  // namespace quenzel7
