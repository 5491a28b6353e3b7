/// What the three handlers share that show one text out of several: their list, what they show of it, and the
/// room that all of it takes.
#include "variables/text/text_list.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "tests/support/raises.h"
#include "tests/support/text_list_fixture.h"
#include "variables/text/binary_text.h"
#include "variables/text/list_text.h"
#include "variables/text/range_text.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using corvane1::LibraryString;
using corvane1::TextExtent;
using test::CallLog;
using test::ErrorOf;

template <class Handler>
struct New;
template <>
struct New<clsVarBinaryText> {
  static constexpr Long kTexts = 2, kColorBack = 6060, kColorFore = 6061;
};
template <>
struct New<clsVarListText> {
  static constexpr Long kTexts = 1, kColorBack = 6062, kColorFore = 6063;
};
template <>
struct New<clsVarRangeText> {
  static constexpr Long kTexts = 1, kColorBack = 6064, kColorFore = 6065;
};

/// Notes what it is asked for, and finds for every colour the one 100 further on.
class GradientColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long) override { return 0; }
  Long GetClosestGradientColor(Long colorNumber) override {
    asked.push_back(colorNumber);
    if (during) during();
    if (colorNumber == failing) {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no colour");
    }
    return colorNumber + 100;
  }

  std::vector<Long> asked;
  Long failing = -1;
  std::function<void()> during;
};

template <class Handler>
class TextList : public test::TextLists<Handler> {
 protected:
  /// Texts in a flat text element in font 0, in which a character takes 1 x 2 pixels.
  static std::shared_ptr<Handler> Flat(const CallLog& texts) {
    auto handler = TextList::Of(texts);
    handler->DrawingElement()->ItfHmiElement::Flat3D(Long{0});
    handler->DrawingElement()->FontNumber(0);
    handler->DrawingElement()->Txt("");
    return handler;
  }
  static TextExtent RoomOf(Handler& handler) {
    TextExtent size = {-3, -4};
    handler.GetOptimalDimensions(size.width, size.height);
    return size;
  }
  /// Puts as many others in the place of all texts.
  static void Replace(Handler& handler) {
    const Long texts = handler.ListCount();
    handler.Clear();
    for (Long text = 1; text <= texts; ++text) {
      handler.AppendText();
      handler.ListTexts(text)->Txt("a text of the host");
      handler.ListTexts(text)->ColorBack(99);
    }
  }
  /// The string of that number in languages 1, 2...
  void Keep(Long number, const std::vector<LibraryString>& texts) {
    this->services_.strings->languages = static_cast<Long>(texts.size());
    Long language = 0;
    for (const LibraryString& text : texts) this->services_.strings->texts[{number, ++language}] = text;
  }
};
using ListTypes = ::testing::Types<clsVarBinaryText, clsVarListText, clsVarRangeText>;
TYPED_TEST_SUITE(TextList, ListTypes, test::ClassNameOfShape);
using AnyTextList = TextList<clsVarListText>;

// --- Creation ---

TYPED_TEST(TextList, IsNewWithItsTextsAllEmptyAndNoStringOfTheLibrary) {
  const TypeParam handler;
  ASSERT_EQ(handler.ListCount(), New<TypeParam>::kTexts);
  for (Long text = 1; text <= handler.ListCount(); ++text) {
    const clsVarTextElement& entry = *handler.ListTexts(text);
    EXPECT_EQ(entry.Txt(), "");
    EXPECT_EQ(entry.ColorBack(), 103);
    EXPECT_EQ(entry.ColorFore(), 5);
    EXPECT_EQ(entry.StorageStringID(), -1);
    EXPECT_EQ(entry.StorageStringType(), 0);
    EXPECT_EQ(entry.StorageText(), "");
    EXPECT_EQ(entry.StorageFont(), 4);
    EXPECT_EQ(entry.From(), (OperandPair{0, 0}));
    EXPECT_EQ(entry.To(), (OperandPair{0, 0}));
  }
  EXPECT_EQ(handler.StorageText(), 0);
  EXPECT_EQ(handler.StorageLibNum(), 0);
  ASSERT_NE(handler.DrawingElement(), nullptr);
  ASSERT_NE(handler.ColOpPropBag(), nullptr);
  EXPECT_EQ(handler.ColOpPropBag()->Count(), 0);
}

TYPED_TEST(TextList, TakesTheColoursOfEachNewTextFromTheSettingsAnew) {
  const auto handler = this->Of({});
  const auto settings = std::make_shared<test::TracedSettings>();
  // The answers end in the number of the question and in the last digit of the key.
  settings->answer = "7";
  Platform::Current().settings = settings;
  const std::string back = std::to_string(New<TypeParam>::kColorBack),
                    fore = std::to_string(New<TypeParam>::kColorFore);
  const CallLog asked = {"6000/6021/5", "6000/6020/103", "6000/" + back + "/103", "6000/" + fore + "/5"};

  handler->AppendText();
  EXPECT_EQ(settings->asked, asked);
  EXPECT_EQ(handler->ListTexts(1)->ColorBack(), 730 + New<TypeParam>::kColorBack % 10);
  EXPECT_EQ(handler->ListTexts(1)->ColorFore(), 740 + New<TypeParam>::kColorFore % 10);
  settings->asked.clear();
  settings->answer = "8";
  handler->InsertBefore(1);
  EXPECT_EQ(settings->asked, asked);
  EXPECT_EQ(handler->ListTexts(1)->ColorBack(), 830 + New<TypeParam>::kColorBack % 10);
  EXPECT_EQ(handler->ListTexts(1)->ColorFore(), 840 + New<TypeParam>::kColorFore % 10);
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 730 + New<TypeParam>::kColorBack % 10);
  settings->asked.clear();
  const TypeParam fresh;
  EXPECT_EQ(std::count(settings->asked.begin(), settings->asked.end(), asked[2]), New<TypeParam>::kTexts);
  EXPECT_EQ(std::count(settings->asked.begin(), settings->asked.end(), asked[3]), New<TypeParam>::kTexts);
}

TYPED_TEST(TextList, KeepsItsTextsWhereASettingIsNoColour) {
  const auto handler = this->Of({"a"});
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "x";
  Platform::Current().settings = settings;
  EXPECT_EQ(ErrorOf([&] { handler->AppendText(); }), 13);
  EXPECT_EQ(ErrorOf([&] { handler->InsertBefore(1); }), 13);
  EXPECT_EQ(this->TextsOf(*handler), CallLog{"a"});
}

// --- The list ---

TYPED_TEST(TextList, AppendsBehindTheLast) {
  const auto handler = this->Of({"a", "b"});
  handler->AppendText();
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b", ""}));
}

TYPED_TEST(TextList, ClearsAllTexts) {
  const auto handler = this->Of({"a", "b"});
  handler->Clear();
  EXPECT_EQ(handler->ListCount(), 0);
  EXPECT_RAISES(9, "text 1 of a list was asked for, there are 1 to 0", handler->ListTexts(1));
  handler->Clear();
  handler->AppendText();
  EXPECT_EQ(this->TextsOf(*handler), CallLog{""});
}

TYPED_TEST(TextList, GivesItsTextsCountedFrom1) {
  const auto handler = this->Of({"a", "b", "c"});
  EXPECT_EQ(handler->ListTexts(1)->Txt(), "a");
  EXPECT_EQ(handler->ListTexts(2)->Txt(), "b");
  EXPECT_EQ(handler->ListTexts(3)->Txt(), "c");
  EXPECT_EQ(handler->ListTexts(2), handler->ListTexts(2));
  EXPECT_RAISES(9, "text 0 of a list was asked for, there are 1 to 3", handler->ListTexts(0));
  EXPECT_RAISES(9, "text 4 of a list was asked for, there are 1 to 3", handler->ListTexts(4));
  EXPECT_RAISES(9, "text -1 of a list was asked for, there are 1 to 3", handler->ListTexts(-1));
  EXPECT_EQ(ErrorOf([&] { handler->ListTexts(std::numeric_limits<Long>::min()); }), 9);
  EXPECT_EQ(ErrorOf([&] { handler->ListTexts(std::numeric_limits<Long>::max()); }), 9);
}

TYPED_TEST(TextList, InsertsANewTextBeforeOneOfTheList) {
  const auto handler = this->Of({"a", "b", "c"});
  const auto second = handler->ListTexts(2);
  handler->InsertBefore(3);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b", "", "c"}));
  handler->InsertBefore(1);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"", "a", "b", "", "c"}));
  handler->InsertBefore(5);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"", "a", "b", "", "", "c"}));
  EXPECT_EQ(handler->ListTexts(3), second);
}

TYPED_TEST(TextList, InsertsNothingBeforeWhatIsNoTextOfIt) {
  const auto handler = this->Of({"a", "b"});
  EXPECT_RAISES(9, "text 0 of a list was asked for, there are 1 to 2", handler->InsertBefore(0));
  EXPECT_RAISES(9, "text 3 of a list was asked for, there are 1 to 2", handler->InsertBefore(3));
  EXPECT_EQ(ErrorOf([&] { handler->InsertBefore(-1); }), 9);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b"}));
  handler->Clear();
  EXPECT_EQ(ErrorOf([&] { handler->InsertBefore(1); }), 9);
  EXPECT_EQ(handler->ListCount(), 0);
}

TYPED_TEST(TextList, RemovesOneText) {
  const auto handler = this->Of({"a", "b", "c", "d"});
  handler->RemoveText(2);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "c", "d"}));
  handler->RemoveText(3);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "c"}));
  handler->RemoveText(1);
  EXPECT_EQ(this->TextsOf(*handler), CallLog{"c"});
  handler->RemoveText(1);
  EXPECT_EQ(handler->ListCount(), 0);
}

TYPED_TEST(TextList, RemovesNothingThatIsNoTextOfIt) {
  const auto handler = this->Of({"a", "b"});
  EXPECT_RAISES(9, "text 0 of a list was asked for, there are 1 to 2", handler->RemoveText(0));
  EXPECT_RAISES(9, "text 3 of a list was asked for, there are 1 to 2", handler->RemoveText(3));
  EXPECT_EQ(ErrorOf([&] { handler->RemoveText(-1); }), 9);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b"}));
  handler->Clear();
  EXPECT_EQ(ErrorOf([&] { handler->RemoveText(1); }), 9);
}

TYPED_TEST(TextList, ForgetsTheStringsOfAllItsTexts) {
  const auto handler = this->Of({"a", "b", "c"});
  for (const Long text : {1, 2, 3}) {
    handler->ListTexts(text)->StorageStringID(text - 1);
    handler->ListTexts(text)->StorageStringType(5);
  }
  handler->StorageText(-1);
  handler->DeleteAllStorageIDs();
  for (const Long text : {1, 2, 3}) {
    EXPECT_EQ(handler->ListTexts(text)->StorageStringID(), -1) << text;
    EXPECT_EQ(handler->ListTexts(text)->StorageStringType(), 5) << text;
  }
  EXPECT_EQ(handler->StorageText(), -1);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b", "c"}));
}

// --- What is shown ---

TYPED_TEST(TextList, ShowsItsOwnTextOfAStateInTheGivenFont) {
  const auto handler = this->Of({"a", "b"});
  clsText& drawing = *handler->DrawingElement();
  drawing.ColorFore(61);
  handler->ListTexts(1)->ColorBack(71);
  handler->ListTexts(2)->ColorBack(72);
  handler->ListTexts(2)->ColorFore(82);
  handler->ListTexts(2)->StorageStringID(70);
  handler->ListTexts(2)->StorageFont(93);
  // The text comes first, and is fitted in the font that was there.
  EXPECT_EQ(this->AskedBy([&] { handler->ReSyncDrawingElementParams(2, 9); }),
            (CallLog{"height of font 4", "widths of font 4", "height of font 9", "widths of font 9"}));
  EXPECT_EQ(drawing.Txt(), "b");
  EXPECT_EQ(drawing.ColorBack(), 72);
  EXPECT_EQ(drawing.FontNumber(), 9);
  EXPECT_EQ(drawing.ColorFore(), 61);
  // Without a place a flat text is not fitted, which the counting fonts could not do in that font.
  drawing.ItfHmiElement::Flat3D(Long{0});
  handler->ReSyncDrawingElementParams(1, -1);
  EXPECT_EQ(drawing.Txt(), "a");
  EXPECT_EQ(drawing.ColorBack(), 71);
  EXPECT_EQ(drawing.FontNumber(), -1);
}

TYPED_TEST(TextList, ShowsAStringOfTheLibraryInTheStringsFont) {
  this->OpenEmptyProject();
  this->Keep(70, {{"one", 5}, {"three", 6}});
  for (const Long storage : {-1, 1, 2, -2}) {
    const auto handler = this->Of({"a", "b"});
    clsText& drawing = *handler->DrawingElement();
    handler->ListTexts(2)->ColorBack(72);
    handler->ListTexts(2)->StorageStringID(70);
    handler->StorageText(storage);
    EXPECT_EQ(this->AskedBy([&] { handler->ReSyncDrawingElementParams(2, 9); }),
              (CallLog{"open strings of the project -1", "language?", "languages?",  //
                       "language 1", "string 70", "measure one in font 5",           //
                       "language 2", "string 70", "measure three in font 6",         //
                       "language 2", "string 70", "language 2",                      //
                       "height of font 4", "widths of font 4", "height of font 6", "widths of font 6"}));
    EXPECT_EQ(drawing.Txt(), "three") << storage;
    EXPECT_EQ(drawing.ColorBack(), 72) << storage;
    EXPECT_EQ(drawing.FontNumber(), 6) << storage;
  }
}

TYPED_TEST(TextList, ShowsAStringWithoutAFontInTheGivenOne) {
  this->OpenEmptyProject();
  const auto handler = this->Of({"a"});
  handler->ListTexts(1)->StorageStringID(70);
  handler->StorageText(-1);
  // The counting fonts find no area in a string without a font, so that language 0 tells.
  this->services_.strings->texts[{70, 0}] = {"one", -1};
  handler->ReSyncDrawingElementParams(1, 9);
  EXPECT_EQ(handler->DrawingElement()->Txt(), "one");
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 9);
  this->Keep(70, {{"one", 0}});
  handler->ReSyncDrawingElementParams(1, 9);
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 0);
}

TYPED_TEST(TextList, ShowsNothingElseForAStateThatItDoesNotHave) {
  this->OpenEmptyProject();
  for (const Long storage : {0, -1}) {
    const auto handler = this->Of({"a", "b"});
    handler->ReSyncDrawingElementParams(1, 9);
    const Long before = handler->DrawingElement()->ColorBack();
    handler->StorageText(storage);
    for (const Long state : {0, 3, -1}) {
      EXPECT_EQ(this->AskedBy([&] {
        EXPECT_EQ(ErrorOf([&] { handler->ReSyncDrawingElementParams(state, 7); }), 9) << state;
      }),
                CallLog{});
    }
    EXPECT_EQ(handler->DrawingElement()->Txt(), "a");
    EXPECT_EQ(handler->DrawingElement()->FontNumber(), 9);
    EXPECT_EQ(handler->DrawingElement()->ColorBack(), before);
  }
}

TYPED_TEST(TextList, ShowsWhatItShowedWhenTheLibraryFails) {
  const auto handler = this->Of({"a"});
  handler->ReSyncDrawingElementParams(1, 9);
  handler->ListTexts(1)->Txt("b");
  handler->ListTexts(1)->ColorBack(72);
  handler->StorageText(-1);
  EXPECT_EQ(ErrorOf([&] { handler->ReSyncDrawingElementParams(1, 7); }), 91);
  EXPECT_EQ(handler->DrawingElement()->Txt(), "a");
  EXPECT_EQ(handler->DrawingElement()->ColorBack(), 103);
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 9);
}

TYPED_TEST(TextList, WithoutTheStateThatIsShownFailsOnlyWhenItIsShownAnew) {
  const auto handler = this->Of({"a", "b"});
  handler->ReSyncDrawingElementParams(2, 9);
  handler->RemoveText(2);
  EXPECT_EQ(handler->DrawingElement()->Txt(), "b");
  EXPECT_EQ(ErrorOf([&] { handler->ReSyncDrawingElementParams(2, 9); }), 9);
}

TYPED_TEST(TextList, ConvertsTheBackgroundsOfItsTextsAndThenThatOfTheElement) {
  const auto colors = std::make_shared<GradientColors>();
  const auto handler = this->Of({"a", "b"});
  handler->ListTexts(1)->ColorBack(71);
  handler->ListTexts(2)->ColorBack(72);
  handler->DrawingElement()->ColorBack(73);
  Platform::Current().colorService = colors;
  handler->ConvertFlatColorToClosestGradientColor();
  EXPECT_EQ(colors->asked, (std::vector<Long>{71, 72, 73}));
  EXPECT_EQ(handler->ListTexts(1)->ColorBack(), 171);
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 172);
  EXPECT_EQ(handler->DrawingElement()->ColorBack(), 173);
  for (const Long text : {1, 2}) EXPECT_EQ(handler->ListTexts(text)->ColorFore(), 5);
  EXPECT_EQ(handler->DrawingElement()->ColorFore(), 5);

  colors->failing = 172;
  EXPECT_EQ(ErrorOf([&] { handler->ConvertFlatColorToClosestGradientColor(); }), 5);
  EXPECT_EQ(handler->ListTexts(1)->ColorBack(), 271);
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 172);
  EXPECT_EQ(handler->DrawingElement()->ColorBack(), 173);
}

// --- The room that all texts take ---

TYPED_TEST(TextList, NeedsTheGreatestWidthAndTheGreatestHeightOfItsTexts) {
  const auto handler = this->Flat({"abcdef", "a\r\nb\r\nc", "abc\r\nd"});
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{6, 6}));
  EXPECT_EQ(this->RoomOf(*this->Flat({"a\r\nb\r\nc", "abcdef"})), (TextExtent{6, 6}));
  EXPECT_EQ(this->RoomOf(*this->Flat({"abc"})), (TextExtent{3, 2}));
}

TYPED_TEST(TextList, LeavesTheRoomAloneWhereThereIsNothingToMeasure) {
  Long dx = 70, dy = 80;
  this->Flat({})->GetOptimalDimensions(dx, dy);
  EXPECT_EQ((TextExtent{dx, dy}), (TextExtent{70, 80}));
  // A frame that has no size of its own.
  const auto handler = this->Flat({"abc"});
  handler->DrawingElement()->ItfHmiElement::Flat3D(9);
  handler->GetOptimalDimensions(dx, dy);
  EXPECT_EQ((TextExtent{dx, dy}), (TextExtent{70, 80}));
}

TYPED_TEST(TextList, HoldsAsManyTextsAsDataMayTellOf) {
  const auto handler = this->Flat({});
  for (Long text = 0; text < TextListHandler::kMostTexts; ++text) handler->AppendText();
  EXPECT_RAISES(7, "no room for a list of 65537 texts: 65536 are the most", handler->AppendText());
  EXPECT_RAISES(7, "no room for a list of 65537 texts: 65536 are the most", handler->InsertBefore(1));
  EXPECT_EQ(handler->ListCount(), 65536);
  handler->RemoveText(1);
  handler->InsertBefore(1);
  EXPECT_EQ(handler->ListCount(), 65536);
}

TYPED_TEST(TextList, NeedsItInTheFontAndTheStyleOfTheElement) {
  const auto handler = this->Flat({"abcdef", "a\r\nb\r\nc"});
  clsText& drawing = *handler->DrawingElement();
  drawing.FontNumber(2);
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{18, 18}));
  drawing.ItfHmiElement::Flat3D(Long{2});
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{20, 20}));
  drawing.ItfHmiElement::Flat3D(Long{3});
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{26, 26}));
  // The element does not show its texts in turn for that.
  EXPECT_EQ(drawing.Txt(), "");
  EXPECT_EQ(drawing.FontNumber(), 2);
}

TYPED_TEST(TextList, WithTextsOfItsOwnLooksNeitherAtTheElementsTextNorIntoTheLibrary) {
  for (const Long storage : {0, 1, -2}) {
    const auto handler = this->Flat({"abc"});
    handler->ListTexts(1)->StorageStringID(70);
    handler->DrawingElement()->Txt("abcdef\r\n");
    handler->StorageText(storage);
    EXPECT_EQ(this->RoomOf(*handler), (TextExtent{3, 2})) << storage;
  }
}

TYPED_TEST(TextList, FromTheLibraryNeedsWhatTheElementsTextAndEveryLanguageNeed) {
  this->OpenEmptyProject();
  this->Keep(0, {{"ab", 2}, {"EMPTY STRING", 50}, {"abcdefgh", -1}});
  this->Keep(70, {{"EMPTY STRING", 50}, {"a\r\nb", 3}, {"a", 5}});
  const auto handler = this->Flat({"a text that does not count", "another", "one more"});
  clsText& drawing = *handler->DrawingElement();
  handler->ListTexts(1)->StorageStringID(0);
  handler->ListTexts(3)->StorageStringID(70);
  handler->StorageText(-1);
  drawing.Txt("four");
  drawing.FontNumber(1);
  // In font 1: "four" 8 x 4 and "abcdefgh" 16 x 4; "ab" in font 2 is 6 x 6, two lines in font 3 take 4 x 16,
  // "a" in font 5 is 6 x 12.
  TextExtent room;
  const CallLog asked = this->AskedBy([&] { room = this->RoomOf(*handler); });
  EXPECT_EQ(room, (TextExtent{16, 16}));
  CallLog ofFonts, ofStrings;
  bool isOpen = false;
  for (const std::string& call : asked) {
    isOpen = isOpen || call.starts_with("open");
    if (!isOpen || call.starts_with("widths")) continue;
    ofStrings.push_back(call);
  }
  EXPECT_EQ(ofStrings, (CallLog{"open strings of the project -1",
                                "language?",
                                "height of font 1",  //
                                "languages?",        //
                                "language 1",
                                "string 0",
                                "height of font 2",  //
                                "language 2",
                                "string 0",  //
                                "language 3",
                                "string 0",
                                "height of font 1",  //
                                "languages?",        //
                                "language 1",
                                "string 70",  //
                                "language 2",
                                "string 70",
                                "height of font 3",  //
                                "language 3",
                                "string 70",
                                "height of font 5",
                                "language 2"}));
  EXPECT_EQ(this->services_.strings->current, 2);
  EXPECT_EQ(drawing.Txt(), "four");
  EXPECT_EQ(drawing.FontNumber(), 1);
}

TYPED_TEST(TextList, FromTheLibraryWithoutStringsNeedsWhatTheElementsTextNeeds) {
  this->OpenEmptyProject();
  const auto handler = this->Flat({"abcdefgh"});
  handler->StorageText(-1);
  handler->DrawingElement()->Txt("four");
  CallLog ofStrings = this->AskedBy([&] { EXPECT_EQ(this->RoomOf(*handler), (TextExtent{4, 2})); });
  std::erase_if(ofStrings, [](const std::string& call) { return call.find("font") != std::string::npos; });
  EXPECT_EQ(ofStrings, (CallLog{"open strings of the project -1", "language?", "language 2"}));
}

TYPED_TEST(TextList, FromTheLibraryHasTheRoomOfTheStyleForEveryText) {
  this->OpenEmptyProject();
  this->Keep(70, {{"abcdef", -1}, {"a\r\nb\r\nc", 0}});
  const auto handler = this->Flat({""});
  handler->ListTexts(1)->StorageStringID(70);
  handler->StorageText(-1);
  handler->DrawingElement()->ItfHmiElement::Flat3D(Long{1});
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{14, 14}));
}

TYPED_TEST(TextList, LeavesTheSizeAloneWhenTheLibraryFails) {
  const auto handler = this->Flat({"abc"});
  handler->StorageText(-1);
  Long dx = 3, dy = 4;
  EXPECT_EQ(ErrorOf([&] { handler->GetOptimalDimensions(dx, dy); }), 91);
  EXPECT_EQ(dx, 3);
  EXPECT_EQ(dy, 4);
}

// --- Hosts that change the list while they are asked ---

TYPED_TEST(TextList, ShowsTheTextThatItBeganWith) {
  const auto handler = this->Of({"a", "b"});
  handler->ListTexts(2)->ColorBack(72);
  this->services_.NoteInto([&](const std::string& call) {
    if (call == "height of font 4") this->Replace(*handler);
  });
  handler->ReSyncDrawingElementParams(2, 9);
  this->services_.NoteInto({});
  EXPECT_EQ(handler->DrawingElement()->Txt(), "b");
  EXPECT_EQ(handler->DrawingElement()->ColorBack(), 72);
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 9);
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 99);
}

TYPED_TEST(TextList, ConvertsTheTextsThatItBeganWith) {
  const auto colors = std::make_shared<GradientColors>();
  const auto handler = this->Of({"a", "b"});
  handler->ListTexts(1)->ColorBack(71);
  handler->ListTexts(2)->ColorBack(72);
  handler->DrawingElement()->ColorBack(73);
  const TextElementRef second = handler->ListTexts(2);
  colors->during = [&] { this->Replace(*handler); };
  Platform::Current().colorService = colors;
  handler->ConvertFlatColorToClosestGradientColor();
  EXPECT_EQ(colors->asked, (std::vector<Long>{71, 72, 73}));
  EXPECT_EQ(second->ColorBack(), 172);
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 99);
  EXPECT_EQ(handler->DrawingElement()->ColorBack(), 173);
}

TYPED_TEST(TextList, NeedsTheRoomOfTheTextsThatItBeganWith) {
  const auto handler = this->Flat({"abc", "abcdef"});
  const auto isOfAText = [](const std::string& call) { return call.starts_with("height"); };
  const CallLog asked = this->AskedBy([&] { this->RoomOf(*handler); });
  // The last two are those of the texts.
  auto left = std::count_if(asked.begin(), asked.end(), isOfAText);
  ASSERT_GE(left, 2);
  this->services_.NoteInto([&](const std::string& call) {
    if (isOfAText(call) && left-- == 2) this->Replace(*handler);
  });
  EXPECT_EQ(this->RoomOf(*handler), (TextExtent{6, 2}));
  this->services_.NoteInto({});
  EXPECT_EQ(handler->ListTexts(2)->ColorBack(), 99);
}

// --- Fonts ---

TYPED_TEST(TextList, UsesTheFontOfTheElementAndThoseOfItsStrings) {
  const auto handler = this->Of({"a", "b"});
  handler->DrawingElement()->FontNumber(7);
  handler->ListTexts(1)->StorageFont(8);
  handler->ListTexts(2)->StorageFont(9);
  for (const Long font : {7, 8, 9}) EXPECT_TRUE(handler->IsHmiFontInUse(font)) << font;
  for (const Long font : {4, 6, 10, 0, -1}) EXPECT_FALSE(handler->IsHmiFontInUse(font)) << font;
  handler->Clear();
  EXPECT_TRUE(handler->IsHmiFontInUse(7));
  EXPECT_FALSE(handler->IsHmiFontInUse(8));
}

TYPED_TEST(TextList, LeavesItsFontsAndPicturesToTheVariable) {
  const auto handler = this->Of({"a", "b"});
  handler->DrawingElement()->FontNumber(7);
  handler->ListTexts(1)->StorageFont(8);
  const std::vector<Byte> before = handler->GetBinaryData();
  const auto fonts = std::make_shared<automation::Collection>();
  fonts->Add(Variant(Long{1}), "7");
  fonts->Add(Variant(Long{2}), "8");
  automation::CollectionRef collection = fonts, none;
  handler->ValidateFontNumber(collection);
  handler->ValidateFontNumber(none);
  EXPECT_EQ(collection, fonts);
  EXPECT_EQ(none, nullptr);
  for (const Long font : {5, 6}) handler->UpdateOnFontDelete(font);
  Variant table = automation::From(std::vector<Long>(9, 3));
  handler->SetNewFontNumberByLookUpTBL(table);
  handler->Rotate();
  handler->InvertColors();
  handler->BuildImageList(1);
  handler->ResizeImages(1, 2, 3, 4);
  handler->SaveToDB(1, eVT_ListText);
  EXPECT_EQ(handler->DrawingElement()->FontNumber(), 7);
  EXPECT_EQ(handler->ListTexts(1)->StorageFont(), 8);
  EXPECT_EQ(handler->GetBinaryData(), before);
}

// --- The end ---

TYPED_TEST(TextList, ReleasesItsElementItsTextsAndItsBags) {
  const auto handler = this->Of({"a", "b"});
  const std::weak_ptr<clsText> drawing = handler->DrawingElement();
  const std::weak_ptr<clsVarTextElement> text = handler->ListTexts(2);
  handler->ReleaseResources();
  EXPECT_EQ(handler->DrawingElement(), nullptr);
  EXPECT_EQ(handler->ItfVarBinaryHandler::DrawingElement(), nullptr);
  EXPECT_EQ(handler->ColOpPropBag(), nullptr);
  EXPECT_EQ(handler->ListCount(), 0);
  EXPECT_TRUE(drawing.expired());
  EXPECT_TRUE(text.expired());
  Long dx = 3, dy = 4;
  EXPECT_EQ(ErrorOf([&] { handler->GetOptimalDimensions(dx, dy); }), 91);
  EXPECT_EQ(ErrorOf([&] { handler->IsHmiFontInUse(7); }), 91);
  EXPECT_EQ(ErrorOf([&] { handler->ReSyncDrawingElementParams(1, 9); }), 9);
}

// --- The length in the data ---

TYPED_TEST(TextList, TakesAsManyTextsAsTheDataTell) {
  const auto kept = this->Of({"a", "b", "c"});
  TypeParam handler;
  handler.SetBinaryData(kept->GetBinaryData());
  EXPECT_EQ(this->TextsOf(handler), (CallLog{"a", "b", "c"}));
  handler.SetBinaryData(this->Of({"d"})->GetBinaryData());
  EXPECT_EQ(this->TextsOf(handler), CallLog{"d"});
  handler.SetBinaryData(this->Of({})->GetBinaryData());
  EXPECT_EQ(handler.ListCount(), 0);
}

TYPED_TEST(TextList, OfALengthBelow1IsEmpty) {
  for (const Long count : {0, -1, std::numeric_limits<Long>::min()}) {
    const Variant length(count);
    TypeParam handler;
    handler.SetBinaryData(this->DataWith(*this->Of({"a"}), "ListCount", &length));
    EXPECT_EQ(handler.ListCount(), 0) << count;
  }
}

TYPED_TEST(TextList, HasNoRoomForMoreThan65536Texts) {
  const auto handler = this->Of({"a", "b"});
  Variant length(Long{65537});
  EXPECT_RAISES(7, "setting 'ListCount': no room for a list of 65537 texts: 65536 are the most",
                handler->SetBinaryData(this->DataWith(*handler, "ListCount", &length)));
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b"}));
  length = Variant(Long{65536});
  // There is room; the third text is missing in the data.
  EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(this->DataWith(*handler, "ListCount", &length)); }), 327);
  EXPECT_EQ(handler->ListCount(), 65536);
  EXPECT_EQ(handler->ListTexts(2)->Txt(), "b");
}

TYPED_TEST(TextList, KeepsItsTextsWhenTheDataTellNoLength) {
  const auto handler = this->Of({"a", "b"});
  const Variant word(std::string("many"));
  EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(this->DataWith(*handler, "ListCount", &word)); }), 13);
  EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(this->DataWith(*handler, "ListCount", nullptr)); }), 327);
  EXPECT_EQ(this->TextsOf(*handler), (CallLog{"a", "b"}));
}

TYPED_TEST(TextList, LoadsOldDataWithoutTheLibrarysSettings) {
  for (const char* name : {"StorageText", "StorageLibNum", "StorageStringID_1", "StorageStringType_1"}) {
    const auto kept = this->Of({"a"});
    TypeParam handler;
    handler.StorageText(8);
    handler.StorageLibNum(9);
    handler.SetBinaryData(this->DataWith(*kept, name, nullptr));
    const std::string missing = name;
    EXPECT_EQ(handler.StorageText(), 0) << name;
    EXPECT_EQ(handler.StorageLibNum(), 0) << name;
    EXPECT_EQ(handler.ListTexts(1)->StorageStringID(), missing == "StorageStringID_1" ? 0 : -1) << name;
    EXPECT_EQ(handler.ListTexts(1)->StorageStringType(), 0) << name;
  }
  for (const char* name : {"Txt_1", "ColorFore_1", "ColorBack_1", "DrawingText_Txt", "DrawingText_FontNumber",
                           "DrawingText_ColorFore", "DrawingText_ColorBack"}) {
    const auto handler = this->Of({"a"});
    EXPECT_EQ(ErrorOf([&] { handler->SetBinaryData(this->DataWith(*handler, name, nullptr)); }), 327) << name;
  }
}

}  // namespace
}  // namespace quenzel7
