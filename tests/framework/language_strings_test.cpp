#include "framework/language_strings.h"

#include <gtest/gtest.h>

#include "framework/project.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "tests/support/empty_connection.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7 {
namespace {

using corvane1::LibraryString;
using corvane1::TextExtent;
using test::CallLog;
using test::ErrorOf;

constexpr Long kAskedFor = 70;
constexpr Long kFontBefore = -77;

/// Notes the calls of two services in one list, and raises error 1000 + n at the n-th call and, if asked to,
/// at all that follow.
struct Calls {
  std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
  std::size_t failAt = 0;
  bool keepsFailing = false;

  void Note(const std::string& call) {
    log->push_back(call);
    const std::size_t count = log->size();
    if (failAt == 0 || count < failAt || (count > failAt && !keepsFailing)) return;
    throw automation::AutomationError(static_cast<automation::ErrorNumber>(1000 + count), "call failed");
  }
};

/// Texts of string 70 by language, from 1 on. It keeps no other string.
class StringLibraryDouble final : public corvane1::StringLibrary {
 public:
  explicit StringLibraryDouble(Calls& calls) : calls_(calls) {}

  std::vector<LibraryString> texts;
  Long language = 3;

  void Open(const ado::ConnectionRef& project, Long option) override {
    calls_.Note(std::string("open ") + (project == ProjectConnection() ? "project" : "other") + " " +
                std::to_string(option));
  }
  Long GetCount() override {
    calls_.Note("count");
    return static_cast<Long>(texts.size());
  }
  Long Language() override {
    calls_.Note("language?");
    return language;
  }
  void Language(Long selected) override {
    calls_.Note("language " + std::to_string(selected));
    language = selected;
  }
  LibraryString GetString(Long number) override {
    calls_.Note("string " + std::to_string(number));
    const bool isKept = number == kAskedFor && language >= 1 && language <= static_cast<Long>(texts.size());
    return isKept ? texts[static_cast<std::size_t>(language - 1)] : LibraryString{"EMPTY STRING", -5};
  }

 private:
  Calls& calls_;
};

class FailingFonts final : public test::FontDouble {
 public:
  explicit FailingFonts(Calls& calls) : FontDouble(std::make_shared<CallLog>()), calls_(calls) {}
  corvane1::TextExtent GetTextRect(const std::string& text, Long fontNumber) override {
    calls_.Note("measure " + text + " in font " + std::to_string(fontNumber));
    return FontDouble::GetTextRect(text, fontNumber);
  }

 private:
  Calls& calls_;
};

/// A library and fonts that note and fail.
class LanguageStrings : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(std::make_shared<test::EmptyConnection>());
    Platform::Current().projectDatabase = database;
    Platform::Current().stringLibrary = library_;
    Platform::Current().fontService = fonts_;
  }
  void TearDown() override { Platform::Current() = Platform(); }

  /// The next language's text, its font, and what it measures.
  void Add(const std::string& text, Long font, Long width, Long height) {
    library_->texts.push_back({text, font});
    fonts_->Measures(text, {width, height});
  }
  /// Lets each service call of `look` fail in turn, and expects the calls up to that one, and then the
  /// language put back if it is known. `lastLanguage` is the one that is current before it is put back.
  template <class Look>
  void FailEachCallOf(Look look, Long lastLanguage) {
    look();
    const CallLog whole = *calls_.log;
    ASSERT_GT(whole.size(), 3u);
    for (calls_.failAt = 1; calls_.failAt <= whole.size(); ++calls_.failAt) {
      calls_.log->clear();
      library_->language = 3;
      EXPECT_EQ(ErrorOf(look), static_cast<Long>(1000 + calls_.failAt));
      CallLog expected(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(calls_.failAt));
      // Until the language is known there is none to put back, and putting it back is tried once.
      const bool isLast = calls_.failAt == whole.size();
      if (calls_.failAt > 2 && !isLast) expected.push_back("language 3");
      EXPECT_EQ(*calls_.log, expected) << "failing at " << calls_.failAt;
      EXPECT_EQ(library_->language, isLast ? lastLanguage : 3) << "failing at " << calls_.failAt;
    }
  }

  Calls calls_;
  const std::shared_ptr<StringLibraryDouble> library_ = std::make_shared<StringLibraryDouble>(calls_);
  const std::shared_ptr<FailingFonts> fonts_ = std::make_shared<FailingFonts>(calls_);
};

class WidestLanguage : public LanguageStrings {
 protected:
  std::string Widest() { return WidestLanguageString(kAskedFor, font_); }

  Long font_ = kFontBefore;
};

TEST_F(WidestLanguage, IsFoundByTheseCallsInThisOrder) {
  Add("one", 11, 10, 8);
  Add("two", 12, 30, 8);
  Add("three", 13, 20, 8);
  EXPECT_EQ(Widest(), "two");
  EXPECT_EQ(font_, 12);
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "count",                //
                                  "language 1", "string 70", "measure one in font 11",    //
                                  "language 2", "string 70", "measure two in font 12",    //
                                  "language 3", "string 70", "measure three in font 13",  //
                                  "language 2", "string 70", "language 3"}));
}

TEST_F(WidestLanguage, IsThatOfTheLargestAreaAndNotOfTheLargestWidth) {
  Add("wide", 1, 100, 8);
  Add("tall", 2, 30, 30);
  EXPECT_EQ(Widest(), "tall");
  EXPECT_EQ(font_, 2);
}

TEST_F(WidestLanguage, AmongEqualsIsTheFirst) {
  Add("small", 1, 5, 8);
  Add("first", 2, 12, 10);
  Add("turned", 3, 10, 12);
  Add("again", 4, 12, 10);
  EXPECT_EQ(Widest(), "first");
  EXPECT_EQ(font_, 2);
}

TEST_F(WidestLanguage, MeasuresAStringWithoutAFontAsTheFontServiceDoes) {
  Add("none", -1, 12, 10);
  EXPECT_EQ(Widest(), "none");
  EXPECT_EQ(font_, -1);
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "count", "language 1", "string 70",
                                  "measure none in font -1", "language 1", "string 70", "language 3"}));
}

TEST_F(WidestLanguage, MayBeTheLast) {
  Add("one", 1, 12, 10);
  Add("two", 2, 11, 11);
  EXPECT_EQ(Widest(), "two");
}

TEST_F(WidestLanguage, PassesOverEmptyStringsWithoutMeasuring) {
  Add("EMPTY STRING", 1, 500, 500);
  Add("two", 2, 1, 1);
  Add("EMPTY STRING", 3, 500, 500);
  EXPECT_EQ(Widest(), "two");
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "count", "language 1", "string 70",
                                  "language 2", "string 70", "measure two in font 2", "language 3",
                                  "string 70", "language 2", "string 70", "language 3"}));
}

TEST_F(WidestLanguage, MeasuresTextsThatOnlyResembleTheEmptyString) {
  Add("Empty String", 1, 2, 2);
  Add("EMPTY STRING ", 2, 3, 3);
  Add("", 3, 4, 4);
  EXPECT_EQ(Widest(), "");
  EXPECT_EQ(font_, 3);
  EXPECT_EQ(calls_.log->at(5), "measure Empty String in font 1");
  EXPECT_EQ(calls_.log->at(8), "measure EMPTY STRING  in font 2");
  EXPECT_EQ(calls_.log->at(11), "measure  in font 3");
}

TEST_F(WidestLanguage, WithEveryLanguageEmptyIsTheStringInLanguage0) {
  Add("EMPTY STRING", 1, 500, 500);
  Add("EMPTY STRING", 2, 500, 500);
  EXPECT_EQ(Widest(), "EMPTY STRING");
  EXPECT_EQ(font_, -5);
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "count", "language 1", "string 70",
                                  "language 2", "string 70", "language 0", "string 70", "language 3"}));
}

TEST_F(WidestLanguage, WithoutLanguagesIsTheStringInLanguage0) {
  EXPECT_EQ(Widest(), "EMPTY STRING");
  EXPECT_EQ(font_, -5);
  EXPECT_EQ(*calls_.log,
            (CallLog{"open project -1", "language?", "count", "language 0", "string 70", "language 3"}));
}

TEST_F(WidestLanguage, WithoutAnyAreaIsTheStringInLanguage0) {
  Add("flat", 1, 50, 0);
  Add("thin", 2, 0, 50);
  Add("negative", 3, -1, 50);
  EXPECT_EQ(Widest(), "EMPTY STRING");
  EXPECT_EQ(font_, -5);
}

TEST_F(WidestLanguage, NeedsNoMoreThanOnePixel) {
  Add("flat", 1, 50, 0);
  Add("dot", 2, 1, 1);
  EXPECT_EQ(Widest(), "dot");
}

TEST_F(WidestLanguage, ComparesAreasBeyond32Bits) {
  Add("large", 1, 65536, 65536);
  Add("larger", 2, 65536, 65537);
  EXPECT_EQ(Widest(), "larger");
}

TEST_F(WidestLanguage, LeavesTheCurrentLanguageAsItWas) {
  for (const Long language : {0, 1, 2, 9}) {
    library_->texts.clear();
    Add("one", 1, 1, 1);
    Add("two", 2, 2, 2);
    library_->language = language;
    EXPECT_EQ(Widest(), "two");
    EXPECT_EQ(library_->language, language);
  }
}

TEST_F(WidestLanguage, WithoutAProjectAsksTheLibraryNothing) {
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([this] { Widest(); }), 91);
  EXPECT_TRUE(calls_.log->empty());
  EXPECT_EQ(font_, kFontBefore);
}

TEST_F(WidestLanguage, PutsTheLanguageBackWhicheverCallFails) {
  Add("one", 11, 10, 8);
  Add("two", 12, 30, 8);
  FailEachCallOf([this] { Widest(); }, 2);
}

TEST_F(WidestLanguage, TellsNoFontUntilTheStringIsFound) {
  Add("one", 11, 10, 8);
  for (calls_.failAt = 1; calls_.failAt <= 8; ++calls_.failAt) {
    calls_.log->clear();
    font_ = kFontBefore;
    EXPECT_EQ(ErrorOf([this] { Widest(); }), static_cast<Long>(1000 + calls_.failAt));
    EXPECT_EQ(font_, kFontBefore) << "failing at " << calls_.failAt;
  }
}

TEST_F(WidestLanguage, RaisesTheFirstOfTwoErrors) {
  Add("one", 11, 10, 8);
  calls_.failAt = 5;
  calls_.keepsFailing = true;
  EXPECT_EQ(ErrorOf([this] { Widest(); }), 1005);
  EXPECT_EQ(calls_.log->back(), "language 3");
}

class RoomForLanguages : public LanguageStrings {
 protected:
  void SetUp() override {
    LanguageStrings::SetUp();
    fonts_->Measures("EMPTY", {40, 16});
  }
  static constexpr Long kFontOfWhoShows = 77;
  static TextExtent Room() { return RoomForAllLanguages(kAskedFor, kFontOfWhoShows); }
};

TEST_F(RoomForLanguages, MeasuresATextWithoutAFontOfItsOwnInThatOfWhoShowsIt) {
  Add("none", -1, 10, 8);
  Add("zero", 0, 30, 8);
  Add("other", -2, 20, 9);
  EXPECT_EQ(Room(), (TextExtent{30, 9}));
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "count",  //
                                  "language 1", "string 70", "measure none in font 77",                //
                                  "language 2", "string 70", "measure zero in font 0",                 //
                                  "language 3", "string 70", "measure other in font -2",               //
                                  "language 3"}));
}

TEST_F(RoomForLanguages, IsFoundByTheseCallsInThisOrder) {
  Add("one", 11, 10, 8);
  Add("two", 12, 30, 8);
  Add("three", 13, 20, 9);
  EXPECT_EQ(Room(), (TextExtent{30, 9}));
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "count",  //
                                  "language 1", "string 70", "measure one in font 11",                 //
                                  "language 2", "string 70", "measure two in font 12",                 //
                                  "language 3", "string 70", "measure three in font 13",               //
                                  "language 3"}));
  EXPECT_EQ(library_->language, 3);
}

TEST_F(RoomForLanguages, GrowsInWidthAndHeightSeparately) {
  Add("wide", 1, 100, 8);
  Add("tall", 2, 30, 50);
  Add("small", 3, 10, 4);
  EXPECT_EQ(Room(), (TextExtent{100, 50}));
}

TEST_F(RoomForLanguages, GrowsInOneMeasureAlone) {
  Add("one", 1, 20, 20);
  Add("wider", 2, 21, 19);
  EXPECT_EQ(Room(), (TextExtent{21, 20}));
  library_->texts.pop_back();
  Add("higher", 2, 19, 21);
  EXPECT_EQ(Room(), (TextExtent{20, 21}));
}

TEST_F(RoomForLanguages, OfOneTextSmallerThanTheWordForNoneIsThatOfTheText) {
  Add("one", 1, 39, 15);
  EXPECT_EQ(Room(), (TextExtent{39, 15}));
}

TEST_F(RoomForLanguages, TheFirstTextReplacesTheWordAlsoBehindEmptyLanguages) {
  Add("EMPTY STRING", 1, 500, 500);
  Add("two", 2, 3, 2);
  Add("EMPTY STRING", 3, 500, 500);
  Add("four", 4, 2, 5);
  EXPECT_EQ(Room(), (TextExtent{3, 5}));
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "count",  //
                                  "language 1", "string 70",                                           //
                                  "language 2", "string 70", "measure two in font 2",                  //
                                  "language 3", "string 70",                                           //
                                  "language 4", "string 70", "measure four in font 4", "language 3"}));
}

TEST_F(RoomForLanguages, ATextWithoutSizeReplacesTheWordToo) {
  Add("", 1, 0, 0);
  EXPECT_EQ(Room(), (TextExtent{0, 0}));
}

TEST_F(RoomForLanguages, OfATextThatOnlyResemblesTheEmptyStringIsMeasured) {
  Add("Empty String", 1, 2, 3);
  EXPECT_EQ(Room(), (TextExtent{2, 3}));
}

TEST_F(RoomForLanguages, WithEveryLanguageEmptyIsThatOfTheWord) {
  Add("EMPTY STRING", 1, 500, 500);
  Add("EMPTY STRING", 2, 500, 500);
  EXPECT_EQ(Room(), (TextExtent{40, 16}));
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "count",
                                  "language 1", "string 70", "language 2", "string 70", "language 3"}));
}

TEST_F(RoomForLanguages, WithoutLanguagesIsThatOfTheWord) {
  EXPECT_EQ(Room(), (TextExtent{40, 16}));
  EXPECT_EQ(*calls_.log,
            (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "count", "language 3"}));
}

TEST_F(RoomForLanguages, LeavesTheCurrentLanguageAsItWas) {
  Add("one", 1, 1, 1);
  Add("two", 2, 2, 2);
  for (const Long language : {0, 1, 2, 9}) {
    library_->language = language;
    EXPECT_EQ(Room(), (TextExtent{2, 2}));
    EXPECT_EQ(library_->language, language);
  }
}

TEST_F(RoomForLanguages, WithoutAProjectAsksNothing) {
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([] { Room(); }), 91);
  EXPECT_TRUE(calls_.log->empty());
}

TEST_F(RoomForLanguages, PutsTheLanguageBackWhicheverCallFails) {
  Add("one", 11, 10, 8);
  Add("two", 12, 30, 8);
  FailEachCallOf([] { Room(); }, 2);
}

TEST_F(RoomForLanguages, RaisesTheFirstOfTwoErrors) {
  Add("one", 11, 10, 8);
  calls_.failAt = 3;
  calls_.keepsFailing = true;
  EXPECT_EQ(ErrorOf([] { Room(); }), 1003);
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "measure EMPTY in font 0", "language 3"}));
}

class StringsInAllLanguages : public LanguageStrings {
 protected:
  /// Visits strings, noting with the calls of the services when the library was open and which text came.
  void Visit(const std::vector<Long>& numbers) {
    ForEachLanguageString(
        numbers, [this] { calls_.Note("opened"); },
        [this](const LibraryString& string) {
          calls_.Note("visit " + string.text + " in font " + std::to_string(string.fontNumber));
        });
  }
};

TEST_F(StringsInAllLanguages, AreVisitedByTheseCallsInThisOrder) {
  Add("one", 11, 0, 0);
  Add("two", -1, 0, 0);
  Visit({kAskedFor, 5, kAskedFor});
  const CallLog ofString = {"count",                                            //
                            "language 1", "string 70", "visit one in font 11",  //
                            "language 2", "string 70", "visit two in font -1"};
  CallLog expected = {"open project -1", "language?", "opened"};
  expected.insert(expected.end(), ofString.begin(), ofString.end());
  // The library keeps no string 5.
  for (const char* call : {"count", "language 1", "string 5", "language 2", "string 5"}) {
    expected.emplace_back(call);
  }
  expected.insert(expected.end(), ofString.begin(), ofString.end());
  expected.emplace_back("language 3");
  EXPECT_EQ(*calls_.log, expected);
}

TEST_F(StringsInAllLanguages, AreNotVisitedWhereALanguageHasNoText) {
  Add("EMPTY STRING", 1, 0, 0);
  Add("Empty String", 2, 0, 0);
  Add("", 3, 0, 0);
  Visit({kAskedFor});
  EXPECT_EQ(*calls_.log,
            (CallLog{"open project -1", "language?", "opened", "count", "language 1", "string 70",  //
                     "language 2", "string 70", "visit Empty String in font 2",                     //
                     "language 3", "string 70", "visit  in font 3", "language 3"}));
}

TEST_F(StringsInAllLanguages, OfNoNumberOpenTheLibraryAllTheSame) {
  Add("one", 11, 0, 0);
  Visit({});
  EXPECT_EQ(*calls_.log, (CallLog{"open project -1", "language?", "opened", "language 3"}));
}

TEST_F(StringsInAllLanguages, WithoutAProjectAskNothing) {
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([this] { Visit({kAskedFor}); }), 91);
  EXPECT_TRUE(calls_.log->empty());
}

TEST_F(StringsInAllLanguages, PutTheLanguageBackWhicheverCallFails) {
  Add("one", 11, 0, 0);
  Add("two", 12, 0, 0);
  FailEachCallOf([this] { Visit({kAskedFor}); }, 2);
}

}  // namespace
}  // namespace quenzel7
