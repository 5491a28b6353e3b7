/// What is a text's own: its defaults, the size that it would like, its report.
#include "shapes/text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "framework/touch_style.h"
#include "tests/support/empty_connection.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using corvane1::LibraryString;
using test::CallLog;
using test::ErrorOf;

/// Settings of one section that are told to it by key, and what was asked, as "section/key/fallback".
class ToldSettings final : public corvane1::Settings {
 public:
  std::map<Long, std::string> texts;
  CallLog asked;

  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + "/" + std::to_string(key) + "/" + fallback);
    const auto found = texts.find(key);
    return found != texts.end() ? found->second : fallback;
  }
};

class Text : public test::TextBearing<clsText> {
 protected:
  std::shared_ptr<ToldSettings> Told(std::map<Long, std::string> texts) {
    const auto settings = std::make_shared<ToldSettings>();
    settings->texts = std::move(texts);
    Platform::Current().settings = settings;
    return settings;
  }

  void SetUp() override {
    TextBearing::SetUp();
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(std::make_shared<test::EmptyConnection>());
    Platform::Current().projectDatabase = database;
  }

  /// A text of the library's string 70, whose texts are given by language.
  std::shared_ptr<clsText> OfString70(const std::vector<LibraryString>& texts) {
    test::HeldStrings& strings = *services_.strings;
    strings.languages = static_cast<Long>(texts.size());
    strings.texts.clear();
    for (Long language = 1; language <= strings.languages; ++language) {
      strings.texts[{70, language}] = texts[static_cast<std::size_t>(language - 1)];
    }
    auto text = Small("constant");
    text->StorageStringID(70);
    return text;
  }

  struct Size {
    Long dx = -5, dy = -6;
    friend bool operator==(const Size&, const Size&) = default;
  };
  static Size Optimal(const clsText& text) {
    Size size;
    text.GetOptimalDimensions(size.dx, size.dy);
    return size;
  }
};

// --- Defaults ---

TEST_F(Text, StartsWithTheEmbeddedDefaults) {
  clsText text;
  EXPECT_EQ(text.Txt(), "Text");
  EXPECT_EQ(text.Flat3D(), 3);
  EXPECT_EQ(text.ColorBack(), 103);
  EXPECT_EQ(text.ColorFore(), 5);
  EXPECT_EQ(text.ColorBackTouch(), 103);
  EXPECT_EQ(text.ColorForeTouch(), 5);
  EXPECT_EQ(text.Alignment(), 4);
  EXPECT_EQ(text.VisibleOpAddr(), -1);
}

TEST_F(Text, AsksForItsDefaultsInThisOrderByItsStyle) {
  const struct {
    const char* style;
    bool isFlat;
  } kStyles[] = {{"0", true},  {"4", true},  {"1", false}, {"2", false},
                 {"3", false}, {"5", false}, {"-1", false}};
  for (const auto& [style, isFlat] : kStyles) {
    const auto settings = Told({{6043, style}});
    clsText text;
    EXPECT_EQ(text.Flat3D(), std::stol(style));
    EXPECT_EQ(settings->asked,
              (CallLog{"6000/6043/3", isFlat ? "6000/6046/103" : "6000/6020/103", "6000/6021/5",
                       isFlat ? "6000/6057/103" : "6000/6058/103", "6000/6059/5", "6000/6040/4"}))
        << style;
  }
}

TEST_F(Text, TakesEachDefaultFromItsOwnSetting) {
  const std::map<Long, std::string> kAll = {{6020, "20"}, {6021, "21"}, {6040, "7"},  {6046, "46"},
                                            {6057, "57"}, {6058, "58"}, {6059, "59"}, {6042, "99"},
                                            {6018, "98"}, {6019, "97"}, {6039, "96"}, {6045, "95"}};
  for (const char* style : {"0", "4"}) {
    auto texts = kAll;
    texts[6043] = style;
    Told(texts);
    const clsText text;
    EXPECT_EQ(text.ColorBack(), 46);
    EXPECT_EQ(text.ColorFore(), 21);
    EXPECT_EQ(text.ColorBackTouch(), 57);
    EXPECT_EQ(text.ColorForeTouch(), 59);
    EXPECT_EQ(text.Alignment(), 7);
  }
  auto texts = kAll;
  texts[6043] = "2";
  Told(texts);
  const clsText text;
  EXPECT_EQ(text.Flat3D(), 2);
  EXPECT_EQ(text.ColorBack(), 20);
  EXPECT_EQ(text.ColorFore(), 21);
  EXPECT_EQ(text.ColorBackTouch(), 58);
  EXPECT_EQ(text.ColorForeTouch(), 59);
  EXPECT_EQ(text.Alignment(), 7);
}

TEST_F(Text, ItsColourWhileTouchedIsThatAtRestUnlessTold) {
  const auto settings = Told({{6021, "76.5"}});
  const clsText text;
  EXPECT_EQ(text.ColorFore(), 76);
  EXPECT_EQ(text.ColorForeTouch(), 76);
  EXPECT_EQ(settings->asked[4], "6000/6059/76");
}

TEST_F(Text, CannotBeMadeFromAWrongSettingWhichTheErrorNames) {
  for (const Long key : {6043, 6020, 6021, 6058, 6059, 6040}) {
    Told({{key, "none"}});
    EXPECT_EQ(ErrorOf([] { clsText(); }), 13) << key;
    EXPECT_NE(test::DescriptionOf([] { clsText(); }).find("setting 6000/" + std::to_string(key) + ":"),
              std::string::npos);
  }
  Told({{6040, "32768"}});
  EXPECT_EQ(ErrorOf([] { clsText(); }), 6);
  Told({{6040, "32767"}});
  EXPECT_EQ(clsText().Alignment(), 32767);
}

TEST_F(Text, ChangesColoursUnderATouchOnlyWhenTheyDiffer) {
  Platform::Current().operands = std::make_shared<test::AskedStore>();
  clsText text;
  EXPECT_EQ(GetTouchStyle(text), eTS_None);
  text.ColorForeTouch(9);
  EXPECT_EQ(GetTouchStyle(text), eTS_None);
  text.TouchOprndAddr(0);
  EXPECT_EQ(GetTouchStyle(text), eTS_ChangeColors);
  text.ColorForeTouch(text.ColorFore());
  EXPECT_EQ(GetTouchStyle(text), eTS_MB_Connected);
  text.ColorBackTouch(9);
  EXPECT_EQ(GetTouchStyle(text), eTS_ChangeColors);
  text.TouchOprndAddr(-2);
  EXPECT_EQ(GetTouchStyle(text), eTS_None);
}

// --- The size that it would like ---

TEST_F(Text, WouldLikeTheRoomOfItsWholeTextAndOfItsFrame) {
  const struct { Long style, allowance; } kStyles[] = {{0, 0}, {1, 8}, {2, 2}, {3, 8}, {4, 0}};
  for (const auto& [style, allowance] : kStyles) {
    const auto text = Small("abcd\r\nab");
    text->FontNumber(2);
    text->Dx(1);
    text->Dy(1);
    text->Flat3D(style);
    EXPECT_EQ(Optimal(*text), (Size{12 + allowance, 12 + allowance})) << style;
    text->Xs(3);
    text->Ys(4);
    text->Move(50, 50);
    text->UpdateDisplayWithTransx();
    Long xs = 0, ys = 0;
    Size size;
    static_cast<ItfHmiElement&>(*text).GetOptimalDimensions(xs, ys, size.dx, size.dy);
    EXPECT_EQ(xs, 3);
    EXPECT_EQ(ys, 4);
    EXPECT_EQ(size, (Size{12 + allowance, 12 + allowance})) << style;
  }
}

TEST_F(Text, LeavesTheSizeAloneForAStyleThatThereIsNot) {
  for (const Long style : {-1, 5, 8}) {
    const auto text = Small("abcd");
    text->Flat3D(style);
    EXPECT_EQ(Optimal(*text), Size{}) << style;
    Long xs = 0, ys = 0;
    Size size;
    text->Xs(3);
    text->Ys(4);
    static_cast<ItfHmiElement&>(*text).GetOptimalDimensions(xs, ys, size.dx, size.dy);
    EXPECT_EQ(xs, 3);
    EXPECT_EQ(ys, 4);
    EXPECT_EQ(size, Size{}) << style;
  }
}

TEST_F(Text, MeasuresBeforeItLooksAtTheStyle) {
  const auto text = Small("abcd");
  text->Flat3D(Long{5});
  CallLog log;
  services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  Optimal(*text);
  EXPECT_EQ(log, (CallLog{"height of font 0", "widths of font 0"}));
  services_.NoteInto(nullptr);
}

TEST_F(Text, NeedsNoRoomWithoutAText) {
  const auto text = Small("");
  EXPECT_EQ(Optimal(*text), (Size{0, 0}));
  text->Flat3D(Long{1});
  EXPECT_EQ(Optimal(*text), (Size{8, 8}));
}

TEST_F(Text, MeasuresBlanksLikeOtherCharacters) { EXPECT_EQ(Optimal(*Small("   ")), (Size{3, 2})); }

TEST_F(Text, AllowanceBeyond32BitsIsAnErrorThatLeavesTheSizeAlone) {
  class Vast final : public test::FontDouble {
   public:
    Vast(Long width, Long height) : FontDouble(std::make_shared<CallLog>()), width_(width), height_(height) {}
    Long GetCharHeight(Long) override { return height_; }
    std::array<Long, 256> GetCharWidths(Long) override {
      std::array<Long, 256> widths;
      widths.fill(width_);
      return widths;
    }

   private:
    Long width_, height_;
  };
  constexpr Long kMost = 2147483647;
  const auto text = Small("a");
  for (const auto& [width, height] : {std::pair<Long, Long>{kMost - 7, 1}, {1, kMost - 7}}) {
    Platform::Current().fontService = std::make_shared<Vast>(width, height);
    text->Flat3D(Long{1});
    Size size;
    EXPECT_EQ(ErrorOf([&] { text->GetOptimalDimensions(size.dx, size.dy); }), 6);
    EXPECT_EQ(size, Size{});
    text->Flat3D(Long{0});
    EXPECT_EQ(Optimal(*text), (Size{width, height}));
  }
}

TEST_F(Text, LosesNothingAtItsOptimalSize) {
  // The fonts of the panel, whose characters differ in width.
  Platform::Current() = Platform();
  for (const char* words : {"a", "Pump 1", "Pump 1\r\nis off", "\r\n\r\n", "WWWW\r\niiii\r\n."}) {
    for (Long style = 0; style <= 4; ++style) {
      for (Long font = 0; font <= 5; ++font) {
        const auto text = Small(words);
        text->Flat3D(style);
        text->FontNumber(font);
        const Size size = Optimal(*text);
        text->Dx(size.dx);
        text->Dy(size.dy);
        EXPECT_EQ(text->ActualText(), words) << style << ' ' << font;
        // A bevel is allowed one pixel more than it takes.
        const bool hasSpare = style == 1 || style == 3;
        text->Dy(size.dy - 1);
        EXPECT_EQ(text->ActualText() == words, hasSpare) << style << ' ' << font;
        text->Dy(size.dy - 2);
        EXPECT_NE(text->ActualText(), words) << style << ' ' << font;
      }
    }
  }
}

// --- The library's string in all languages ---

TEST_F(Text, WouldLikeTheRoomOfAllLanguagesOfItsString) {
  const auto text = OfString70({{"abc", 1}, {"EMPTY STRING", 9}, {"abcdef\r\nab", 0}});
  // 6 x 4 and 6 x 4 in single pixels: the first is three characters of 2 x 4.
  EXPECT_EQ(Optimal(*text), (Size{6, 4}));
  services_.strings->texts[{70, 1}] = {"abcd", 1};
  EXPECT_EQ(Optimal(*text), (Size{8, 4}));
  services_.strings->texts[{70, 3}] = {"ab\r\nab\r\nab", 0};
  EXPECT_EQ(Optimal(*text), (Size{8, 6}));
  text->Flat3D(Long{3});
  EXPECT_EQ(Optimal(*text), (Size{16, 14}));
  text->Flat3D(Long{2});
  EXPECT_EQ(Optimal(*text), (Size{10, 8}));
  text->Flat3D(Long{5});
  EXPECT_EQ(Optimal(*text), Size{});
}

TEST_F(Text, AStringSmallerThanTheWordForNoneNeedsNoMoreThanItsOwnRoom) {
  EXPECT_EQ(Optimal(*OfString70({{"a", 0}})), (Size{1, 2}));
  EXPECT_EQ(Optimal(*OfString70({{"EMPTY STRING", 3}, {"a", 0}})), (Size{1, 2}));
}

TEST_F(Text, AStringWithoutAFontNeedsTheRoomThatItTakesInTheFontOfTheElement) {
  const auto text = OfString70({{"abc", -1}});
  text->FontNumber(6);
  EXPECT_EQ(Optimal(*text), (Size{21, 14}));
}

TEST_F(Text, AStringWithoutAnyTextNeedsTheRoomOfTheWordForNone) {
  EXPECT_EQ(Optimal(*OfString70({})), (Size{5, 2}));
  EXPECT_EQ(Optimal(*OfString70({{"EMPTY STRING", 7}, {"EMPTY STRING", 7}})), (Size{5, 2}));
}

TEST_F(Text, OnlyANumberOfTheLibraryFromZeroOnMeansAllLanguages) {
  const auto text = OfString70({{"abcdefghijkl", 0}});
  EXPECT_EQ(Optimal(*text), (Size{12, 2}));
  services_.strings->texts[{0, 1}] = {"ab", 0};
  text->StorageStringID(0);
  EXPECT_EQ(Optimal(*text), (Size{2, 2}));
  for (const Long constant : {-1, -2}) {
    text->StorageStringID(constant);
    EXPECT_EQ(Optimal(*text), (Size{8, 2})) << constant;
  }
  // The number is the address of an operand then.
  text->StorageStringID(70);
  text->StorageStringType(1);
  EXPECT_EQ(Optimal(*text), (Size{8, 2}));
  text->StorageStringType(-1);
  EXPECT_EQ(Optimal(*text), (Size{8, 2}));
}

TEST_F(Text, AsksForTheRoomOfAllLanguagesInThisOrder) {
  const auto text = OfString70({{"abc", 1}, {"EMPTY STRING", 9}, {"ab", 3}});
  text->FontNumber(7);
  CallLog log;
  services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  Optimal(*text);
  EXPECT_EQ(log, (CallLog{"open strings of the project -1", "language?", "measure EMPTY in font 0",
                          "languages?", "language 1", "string 70", "measure abc in font 1", "language 2",
                          "string 70", "language 3", "string 70", "measure ab in font 3", "language 2"}));
  EXPECT_EQ(services_.strings->current, 2);
  log.clear();
  text->StorageStringID(-1);
  Optimal(*text);
  EXPECT_EQ(log, (CallLog{"height of font 7", "widths of font 7"}));
}

TEST_F(Text, AServiceThatFailsMidwayLeavesLanguageAndSizeAsTheyWere) {
  const auto text = OfString70({{"abc", 1}, {"ab", 3}, {"a", 2}});
  CallLog log;
  std::size_t failAt = 0;
  services_.NoteInto([&](const std::string& call) {
    log.push_back(call);
    if (log.size() != failAt) return;
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no " + call);
  });
  Optimal(*text);
  const CallLog whole = log;
  ASSERT_EQ(whole.size(), 14u);
  for (failAt = 1; failAt <= whole.size(); ++failAt) {
    log.clear();
    services_.strings->current = 2;
    Size size;
    EXPECT_RAISES(5, "no " + whole[failAt - 1], text->GetOptimalDimensions(size.dx, size.dy));
    EXPECT_EQ(size, Size{}) << whole[failAt - 1];
    // Only the last call is the one that puts the language back.
    EXPECT_EQ(services_.strings->current, failAt == whole.size() ? 3 : 2) << whole[failAt - 1];
  }
}

// --- Report ---

TEST_F(Text, ReportsItsHideOperandLast) {
  const auto text = Small("own");
  for (const Long address : {0, 23, -2}) {
    text->VisibleOpAddr(address);
    test::ReportDouble report;
    text->CreateStaticElementPrinterReport(report);
    ASSERT_EQ(report.Lines().size(), 6u);
    EXPECT_EQ(report.Lines().back(), "Hide Operand: MB " + std::to_string(address));
  }
  text->VisibleOpAddr(-1);
  test::ReportDouble report;
  text->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines(), (CallLog{"Coordinates (Left,Top,Width,Height): (0,0,50,20)", "Text: own",
                                     "Font: no. 0", "Alignment: Center Center", "Style: Flat"}));
}

TEST_F(Text, ReportsNoString) {
  const auto text = Small("own");
  text->StorageStringID(7);
  test::ReportDouble report;
  text->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines().size(), 5u);
}

}  // namespace
}  // namespace quenzel7
