/// The rows of texts and frames: what saving and loading ask of the project and of the services, in which
/// order, and what happens when one of these calls fails.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/call_by_name.h"
#include "platform/corvane1/project_string_library.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::Joined;
using test::kNewRow;
using test::kOldRow;
using test::OperandsIn;

constexpr Long kDatabaseError = static_cast<Long>(automation::ErrorNumber::Database);

/// An empty store of operands that notes which of them is looked for, each once in a row.
class SoughtStore final : public fennick1::OperandStore {
 public:
  explicit SoughtStore(test::RecordingConnection& recorder) : recorder_(recorder) {}
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    if (key == last_) return {};
    last_ = key;
    recorder_.Note("operand " + std::to_string(key.type) + " " + std::to_string(key.address));
    return {};
  }
  void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
  void Remove(const fennick1::OperandKey&) override {}
  Long FreeAddress(Long, Long) override { return 0; }

 private:
  test::RecordingConnection& recorder_;
  fennick1::OperandKey last_;
};

template <class Element>
class TextRows : public test::SavedTextBearing<Element> {
 protected:
  /// What saving asks of the project.
  CallLog LogOfSaving(Element& element) {
    this->TakeLog();
    element.SaveToDB();
    return this->TakeLog();
  }

  /// Of a log, what decides on the place in the tab order.
  static CallLog TabStepsOf(const CallLog& log) {
    CallLog steps;
    bool isBehindColumns = false;
    for (const std::string& call : log) {
      // The last of the columns that are written before the place is known.
      isBehindColumns |= call == (kIsText ? "put DefaultDisplay=0:Integer" : "put VisibleOpAddr=-1:Long");
      if (isBehindColumns) steps.push_back(call);
      if (call.starts_with("put TabIndex")) break;
    }
    if (!steps.empty()) steps.erase(steps.begin());
    return steps;
  }

  /// The row of the element that was saved first, opened anew through the log.
  ado::RecordsetRef OpenedRow(Long id = 5) {
    const auto row =
        ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id),
                           ado::adOpenStatic, ado::adLockReadOnly);
    this->TakeLog();
    return row;
  }

  /// String 70 of the library, by language.
  void Keep(const std::vector<corvane1::LibraryString>& texts) {
    test::HeldStrings& strings = *this->services_.strings;
    strings.texts.clear();
    strings.languages = static_cast<Long>(texts.size());
    for (Long language = 1; language <= strings.languages; ++language) {
      strings.texts[{70, language}] = texts[static_cast<std::size_t>(language - 1)];
    }
  }

  /// A saved element that shows string 70.
  std::shared_ptr<Element> SavedOfString70(Long id = 70) {
    auto element = this->Distinct();
    element->StorageStringType(0);
    element->StorageStringID(id);
    element->SaveToDB();
    return element;
  }

  static constexpr bool kIsText = std::is_same_v<Element, clsText>;
};
TYPED_TEST_SUITE(TextRows, test::TextBearingTypes, test::ClassNameOfShape);
using RowsOfText = TextRows<clsText>;

// --- Saving a text ---

const CallLog kColumnsOfText =
    Joined({test::PutsOfHead("4"),
            {"put TouchOprndAddr=22:Long", "put VisibleOpAddr=23:Long", "put EnabledOpAddr=-1:Long",
             "put HighlightOpAddr=-1:Long", "put KeypadSuccessOpAddr=-1:Long"},
            test::kPutsOfStyle});

TEST_F(RowsOfText, ANewRowIsMadeInThisOrder) {
  const auto text = Distinct();
  EXPECT_EQ(LogOfSaving(*text),
            Joined({kNewRow,
                    kColumnsOfText,
                    {"put TabIndex=26:Byte", "put VarOprndType=24:Long", "put VarOprndAddr=25:Long",
                     "put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(text->ID(), 5);
  EXPECT_EQ(text->OrderIndex(), 1);
}

TEST_F(RowsOfText, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto text = Distinct();
  text->SaveToDB();
  text->OrderIndex(30);
  EXPECT_EQ(LogOfSaving(*text),
            Joined({kOldRow,
                    kColumnsOfText,
                    {"put TabIndex=26:Byte", "put VarOprndType=24:Long", "put VarOprndAddr=25:Long",
                     "put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex", "TabIndex"}),
            std::vector<std::string>{"5 9 30 26"});
}

TEST_F(RowsOfText, ATouchWithoutAnOperandGivesUpItsPlaceAndTakesTheNext) {
  const auto text = Distinct();
  text->TouchOprndAddr(-2);
  CallLog columns = kColumnsOfText;
  std::replace(columns.begin(), columns.end(), std::string("put TouchOprndAddr=22:Long"),
               std::string("put TouchOprndAddr=-2:Long"));
  EXPECT_EQ(
      LogOfSaving(*text),
      Joined({kNewRow,
              columns,
              {"put VarKeyPadEntry=0:Integer",
               "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) "
               "ORDER BY TabIndex [3,1,1]",
               "Close", "put TabIndex=0:Byte", "put VarOprndType=24:Long", "put VarOprndAddr=25:Long",
               "put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
}

TEST_F(RowsOfText, TakesNoOrderFromTheRow) {
  const auto text = Distinct();
  text->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=40");
  text->SaveToDB();
  EXPECT_EQ(text->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"OrderIndex"}), std::vector<std::string>{"1"});
}

// --- Saving ---

TYPED_TEST(TextRows, EveryNumberBelow0IsThatOfANewElement) {
  for (const Long id : {-1, -2, -70}) {
    const auto element = this->Distinct();
    element->ID(id);
    const CallLog log = this->LogOfSaving(*element);
    EXPECT_EQ(log.at(0), "open SELECT * FROM HMI_ELEMENTS WHERE ID=" + std::to_string(id) + " [3,3,1]");
    EXPECT_EQ(log.at(1), "AddNew");
    EXPECT_GE(element->ID(), 5);
  }
  EXPECT_EQ(this->Elements(), (std::vector<std::string>{"5", "6", "7"}));
  const auto zero = this->Distinct();
  zero->ID(0);
  EXPECT_EQ(ErrorOf([&] { zero->SaveToDB(); }), 3021);
  EXPECT_EQ(this->Elements().size(), 3u);
}

TYPED_TEST(TextRows, SavingTakesTheseStepsInTheTabOrder) {
  const std::string next =
      "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER BY "
      "TabIndex [3,1,1]";
  const CallLog nextPlace = {next, "get TabIndex", "get TabIndex", "get TabIndex", "Close"};
  const CallLog noKeypad = {"put VarKeyPadEntry=0:Integer"};
  const struct {
    Long touch, before, after;
    CallLog steps;
  } kCases[] = {
      {-2, 255, 2, Joined({noKeypad, nextPlace})},
      {-2, 9, 2, Joined({noKeypad, nextPlace})},
      {-1, 255, 255, noKeypad},
      {-1, 9, 255, noKeypad},
      {-3, 9, 2, Joined({noKeypad, nextPlace})},
      {0, 255, 2, nextPlace},
      {0, 9, 9, {}},
      {5, 255, 2, nextPlace},
      {5, 254, 254, {}},
      {5, 0, 0, {}},
  };
  // Places 0, 1 and 3 are taken on the page, 2 only elsewhere.
  for (const Long place : {0, 1, 3}) {
    this->Connection().Execute("INSERT INTO HMI_Elements (DisplayID,TabIndex) VALUES (7," +
                               std::to_string(place) + ")");
  }
  this->Connection().Execute("INSERT INTO HMI_Elements (DisplayID,TabIndex) VALUES (8,2)");
  for (const auto& [touch, before, after, steps] : kCases) {
    const auto element = this->Distinct();
    element->TouchOprndAddr(touch);
    element->TabIndex(before);
    const CallLog log = this->LogOfSaving(*element);
    EXPECT_EQ(this->TabStepsOf(log), Joined({steps, {"put TabIndex=" + std::to_string(after) + ":Byte"}}))
        << touch << ' ' << before;
    EXPECT_EQ(element->TabIndex(), after) << touch << ' ' << before;
    this->Connection().Execute("DELETE FROM HMI_Elements WHERE ID=" + std::to_string(element->ID()));
  }
}

TYPED_TEST(TextRows, ATabPlaceThatDoesNotFit8BitsIsAnErrorThatNamesTheColumn) {
  for (const Long place : {256, -1, 70000}) {
    const auto element = this->Distinct();
    element->TabIndex(place);
    const test::Raised raised = test::RaisedBy([&] { element->SaveToDB(); });
    EXPECT_EQ(raised.number, 6) << place;
    EXPECT_TRUE(raised.description.starts_with("column 'TabIndex' of HMI_Elements: ")) << raised;
    EXPECT_TRUE(this->Elements().empty());
    EXPECT_EQ(element->ID(), -1);
  }
  for (const Long place : {0, 254}) {
    const auto element = this->Distinct();
    element->TabIndex(place);
    element->SaveToDB();
    EXPECT_EQ(this->Loaded(element->ID())->TabIndex(), place);
  }
}

TYPED_TEST(TextRows, SavesItsPlaceAtRestItsWholeTextAndFitsNothing) {
  const auto element = this->Distinct();
  element->Dx(1);
  element->Move(100, 100);
  element->SaveLastLegalPosition();
  element->UpdateDisplayWithTransx();
  element->ActualText("seen");
  element->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys", "Text"}),
            std::vector<std::string>{"12 13 one\r\ntwo"});
  EXPECT_EQ(this->services_.ShownBy(*element), "seen");
}

TYPED_TEST(TextRows, BothFacesOfSaveToDBSave) {
  const auto element = this->Distinct();
  EXPECT_EQ(automation::InvokeByName(*element, "SaveToDB"), automation::Variant(true));
  EXPECT_EQ(automation::InvokeByName(*element, ItfHmiElement::InterfaceOf(), "SaveToDB"),
            automation::Variant());
  EXPECT_EQ(this->Elements(), std::vector<std::string>{"5"});
}

// --- Loading ---

TYPED_TEST(TextRows, ComesBackFromAReopenedProject) {
  const auto saved = this->Distinct();
  saved->Txt(
      "Gr\xC3\xB6\xC3\x9F"
      "e\r\n'second' \"line\"; ");
  saved->SaveToDB();
  this->Reopen();
  const auto loaded = this->Loaded(5);
  test::ExpectAlike(*loaded, *saved, {"ColOpPropBag"});
  EXPECT_EQ(loaded->ID(), 5);
  EXPECT_EQ(loaded->GroupID(), 11);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*loaded, location), (Descriptor{12, 13, 140, 150})) << location;
  }
  EXPECT_EQ(loaded->ColorBack(), 16);
  EXPECT_EQ(loaded->ColorFore(), 17);
  EXPECT_EQ(loaded->ColorBackTouch(), 18);
  EXPECT_EQ(loaded->ColorForeTouch(), 19);
  EXPECT_EQ(loaded->Txt(),
            "Gr\xC3\xB6\xC3\x9F"
            "e\r\n'second' \"line\"; ");
  EXPECT_EQ(loaded->FontNumber(), 5);
  EXPECT_EQ(loaded->Alignment(), 6);
  EXPECT_EQ(loaded->Flat3D(), 2);
  EXPECT_EQ(loaded->TouchOprndAddr(), 22);
  EXPECT_EQ(loaded->VisibleOpAddr(), this->kHides ? 23 : 0);
  EXPECT_EQ(loaded->StorageStringType(), 24);
  EXPECT_EQ(loaded->StorageStringID(), 25);
  EXPECT_EQ(loaded->TabIndex(), 26);
  EXPECT_EQ(loaded->OrderIndex(), 1);
}

TYPED_TEST(TextRows, EveryNumberIsKeptIn32Bits) {
  constexpr Long kMost = 2147483647;
  const auto element = this->Distinct();
  element->Flat3D(Long{70000});
  element->StorageStringType(kMost);
  element->StorageStringID(-kMost);
  element->GroupID(-kMost);
  element->ColorBack(kMost);
  element->ColorForeTouch(70001);
  element->TouchOprndAddr(70002);
  element->Alignment(Integer{-32768});
  element->Txt("a");
  element->FontNumber(246995310);
  element->SaveToDB();
  const auto loaded = this->Loaded(5);
  test::ExpectAlike(*loaded, *element, {"ColOpPropBag"});
  EXPECT_EQ(loaded->FontNumber(), 246995310);
  this->Connection().Execute("UPDATE HMI_Elements SET Alignment=32768");
  EXPECT_RAISES(6, "column 'Alignment' of HMI_Elements: overflow: 32768 does not fit 16 bits",
                this->Loaded(5));
}

TEST_F(RowsOfText, LoadsInThisOrderAndBuildsTheBagsBeforeAndAfterTheAddressOfTheStringsOperand) {
  Distinct()->SaveToDB();
  const auto row = OpenedRow();
  clsText text;
  NoteServices();
  Platform::Current().operands = std::make_shared<SoughtStore>(Recorder());
  EXPECT_FALSE(text.LoadFromDB(*row));
  EXPECT_EQ(TakeLog(), (CallLog{"get ID",
                                "get GroupID",
                                "get Xs",
                                "get Ys",
                                "get Dx",
                                "height of font 4",
                                "widths of font 4",
                                "get Dy",
                                "height of font 4",
                                "widths of font 4",
                                "get ColorBack",
                                "get ColorFore",
                                "get ColorBackTouch",
                                "get ColorForeTouch",
                                "get Text",
                                "get FontNumber",
                                "get Alignment",
                                "get Flat3D",
                                "get TouchOprndAddr",
                                "get VisibleOpAddr",
                                "get VarOprndType",
                                "operand 1 22",
                                "operand 1 23",
                                "operand 24 -1",
                                "get VarOprndAddr",
                                "operand 1 22",
                                "operand 1 23",
                                "operand 24 25",
                                "get TabIndex",
                                "get OrderIndex",
                                "height of font 5",
                                "widths of font 5"}));
  EXPECT_EQ(OperandsIn(text.ColOpPropBag()), (CallLog{"1 22", "1 23", "24 25"}));
  Connection().Execute("UPDATE HMI_Elements SET VarOprndAddr=26");
  text.LoadFromDB(*OpenedRow());
  EXPECT_EQ(OperandsIn(text.ColOpPropBag()), (CallLog{"1 22", "1 23", "24 26"}));
  EXPECT_EQ(text.StorageStringID(), 26);
}

TYPED_TEST(TextRows, LoadsTheStringOfTheLibraryBetweenItsNumberAndTheTabOrder) {
  this->Keep({{"abc", 1}, {"EMPTY STRING", 3}, {"abcdefgh", 6}});
  this->SavedOfString70();
  const auto row = this->OpenedRow();
  TypeParam element;
  this->NoteServices();
  element.LoadFromDB(*row);
  const CallLog log = this->TakeLog();
  const auto from = std::find(log.begin(), log.end(), "get VarOprndAddr");
  EXPECT_EQ(
      CallLog(from, log.end()),
      (CallLog{"get VarOprndAddr", "open strings of the project -1", "language?", "languages?", "language 1",
               "string 70", "measure abc in font 1", "language 2", "string 70", "language 3", "string 70",
               "measure abcdefgh in font 6", "language 3", "string 70", "language 2", "get TabIndex",
               "get OrderIndex", "height of font 6", "widths of font 6"}));
}

TYPED_TEST(TextRows, TakesTextAndFontOfTheWidestLanguageAndLeavesTheCurrentOne) {
  this->Keep({{"abcdef", 1}, {"abc", 9}, {"abcdefgh", 1}});
  this->SavedOfString70();
  const auto loaded = this->Loaded(5);
  // 12 x 4, 30 x 20 and 16 x 4 pixels.
  EXPECT_EQ(loaded->Txt(), "abc");
  EXPECT_EQ(loaded->FontNumber(), 9);
  EXPECT_EQ(this->services_.ShownBy(*loaded), "abc");
  EXPECT_EQ(this->services_.strings->current, 2);
  // The row keeps what was saved.
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"FontNumber"}), std::vector<std::string>{"5"});
}

TYPED_TEST(TextRows, AStringWithoutAFontKeepsTheFontOfTheRow) {
  this->Keep({{"abc", -1}});
  this->SavedOfString70();
  const auto fonts = std::make_shared<test::FontDouble>(std::make_shared<CallLog>());
  fonts->Measures("abc", {3, 3});
  Platform::Current().fontService = fonts;
  EXPECT_EQ(this->Loaded(5)->Txt(), "abc");
  EXPECT_EQ(this->Loaded(5)->FontNumber(), 5);
  for (const Long font : {0, -2, 8}) {
    this->Keep({{"abc", font}});
    EXPECT_EQ(this->Loaded(5)->FontNumber(), font);
  }
}

TYPED_TEST(TextRows, AStringWithoutAnyTextIsThatOfNoLanguage) {
  this->Keep({{"EMPTY STRING", 3}, {"EMPTY STRING", 4}});
  this->SavedOfString70();
  const auto loaded = this->Loaded(5);
  EXPECT_EQ(loaded->Txt(), "EMPTY STRING");
  EXPECT_EQ(loaded->FontNumber(), 5);
  EXPECT_EQ(this->services_.strings->current, 2);
}

TYPED_TEST(TextRows, LooksIntoTheLibraryForANumberThatIsNoAddressAndNotMinus1) {
  this->Keep({{"abc", 3}});
  const struct {
    Long type, id;
    bool isLookedUp;
  } kCases[] = {{0, 70, true}, {0, 0, true}, {0, -1, false}, {0, -2, true}, {1, 70, false}, {-1, 70, false}};
  for (const auto& [type, id, isLookedUp] : kCases) {
    const auto element = this->Distinct();
    element->StorageStringType(type);
    element->StorageStringID(id);
    element->SaveToDB();
    const auto row = this->OpenedRow(element->ID());
    this->NoteServices();
    TypeParam loaded;
    loaded.LoadFromDB(*row);
    this->services_.NoteInto({});
    const CallLog log = this->TakeLog();
    EXPECT_EQ(std::count(log.begin(), log.end(), "open strings of the project -1"), isLookedUp ? 1 : 0)
        << type << ' ' << id;
    EXPECT_EQ(loaded.Txt(), !isLookedUp ? "one\r\ntwo" : id == 70 ? "abc" : "EMPTY STRING");
    EXPECT_EQ(loaded.StorageStringID(), id);
  }
}

TYPED_TEST(TextRows, FitsItsTextLastOfAll) {
  const auto saved = this->Distinct();
  saved->StorageStringType(0);
  saved->StorageStringID(-1);
  saved->Dx(20);
  saved->FontNumber(9);
  saved->Flat3D(Long{0});
  saved->SaveToDB();
  EXPECT_EQ(this->services_.ShownBy(*this->Loaded(5)), "on|tw");
  TypeParam used;
  used.Txt("before");
  used.ActualText("seen");
  used.LoadFromDB(*this->OpenedRow());
  EXPECT_EQ(this->services_.ShownBy(used), "on|tw");
}

TYPED_TEST(TextRows, EveryColumnThatIsReadMayNotBeNull) {
  this->Distinct()->SaveToDB();
  std::vector<const char*> columns = {"GroupID",
                                      "Xs",
                                      "Ys",
                                      "Dx",
                                      "Dy",
                                      "ColorBack",
                                      "ColorFore",
                                      "ColorBackTouch",
                                      "ColorForeTouch",
                                      "Text",
                                      "FontNumber",
                                      "Alignment",
                                      "Flat3D",
                                      "TouchOprndAddr",
                                      "VarOprndType",
                                      "VarOprndAddr",
                                      "TabIndex",
                                      "OrderIndex"};
  if (this->kHides) columns.push_back("VisibleOpAddr");
  for (const char* column : columns) {
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=NULL");
    const test::Raised raised = test::RaisedBy([&] { this->Loaded(5); });
    EXPECT_EQ(raised.number, 94) << column;
    EXPECT_TRUE(raised.description.starts_with(std::string("column '") + column + "' of HMI_Elements: "))
        << raised;
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=1");
  }
  this->Loaded(5);
}

TYPED_TEST(TextRows, AMissingColumnIsAnErrorThatNamesIt) {
  this->Distinct()->SaveToDB();
  const auto narrow = ado::OpenRecordset(
      this->Connection(),
      "SELECT ID,GroupID,Xs,Ys,Dx,Dy,ColorBack,ColorFore,ColorBackTouch,ColorForeTouch FROM HMI_Elements",
      ado::adOpenStatic, ado::adLockReadOnly);
  TypeParam element;
  const test::Raised raised = test::RaisedBy([&] { element.LoadFromDB(*narrow); });
  EXPECT_EQ(raised.number, 3265);
  EXPECT_TRUE(raised.description.starts_with("column 'Text' of HMI_Elements: ")) << raised;
  EXPECT_EQ(element.Dy(), 150);
}

TYPED_TEST(TextRows, IgnoresWhatAFaceOfAnotherClassKeeps) {
  this->Distinct()->SaveToDB();
  this->Connection().Execute(
      "UPDATE HMI_Elements SET ColorHatch=NULL, PenStyle=NULL, EnabledOpAddr=NULL, VarType=NULL, Type=NULL, "
      "DisplayID=99");
  EXPECT_EQ(this->Loaded(5)->Txt(), "one\r\ntwo");
}

// --- A project that fails at each step ---

TYPED_TEST(TextRows, ANewOneWhoseSavingFailsHasOnlyDoneWhatCameBefore) {
  const auto make = [this] {
    const auto element = this->Distinct();
    element->TabIndex(255);
    return element;
  };
  const auto first = make();
  const CallLog calls = this->LogOfSaving(*first);
  first->DeleteFromDB();
  const auto placeOf = [&calls](const std::string& call) {
    return std::find(calls.begin(), calls.end(), call) - calls.begin();
  };
  ASSERT_GT(calls.size(), 40u);
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    this->Connection().Execute("DELETE FROM HMI_Elements");
    this->Changes().Clear();
    const auto element = make();
    this->TakeLog();
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { element->SaveToDB(); }), kDatabaseError) << calls[step];
    this->Recorder().FailAt(0);
    EXPECT_EQ(this->TakeLog().size(), static_cast<std::size_t>(step) + 1) << calls[step];
    EXPECT_EQ(this->Elements().size(), step > placeOf("Update") ? 1u : 0u) << calls[step];
    EXPECT_EQ(element->ID() != -1, step > placeOf("get ID")) << calls[step];
    EXPECT_EQ(element->TabIndex() != 255, step >= placeOf("put TabIndex=0:Byte")) << calls[step];
    EXPECT_EQ(this->Changes().ChangedElements().size(), step > placeOf("element 5") ? 1u : 0u) << calls[step];
    EXPECT_TRUE(this->Changes().ChangedPages().empty()) << calls[step];
  }
}

TYPED_TEST(TextRows, AnOldOneWhoseSavingFailsKeepsItsRowUntilTheUpdate) {
  const auto element = this->Distinct();
  element->SaveToDB();
  const CallLog calls = this->LogOfSaving(*element);
  const auto update = std::find(calls.begin(), calls.end(), "Update") - calls.begin();
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    this->Connection().Execute("UPDATE HMI_Elements SET Text='old', VarOprndAddr=1");
    this->Changes().Clear();
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { element->SaveToDB(); }), kDatabaseError) << calls[step];
    this->Recorder().FailAt(0);
    EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "Text", "VarOprndAddr"}),
              std::vector<std::string>{step > update ? "5 one\r\ntwo 25" : "5 old 1"})
        << calls[step];
    EXPECT_TRUE(this->Changes().ChangedElements().empty()) << calls[step];
    EXPECT_EQ(element->ID(), 5);
  }
}

TYPED_TEST(TextRows, LoadingThatFailsAtAnyCallPutsTheLanguageBack) {
  this->Keep({{"abc", 1}, {"ab", 3}, {"abcdef", 2}});
  this->SavedOfString70();
  const auto row = this->OpenedRow();
  const auto load = [&](TypeParam& element) {
    this->TakeLog();
    this->NoteServices();
    const Long error = ErrorOf([&] { element.LoadFromDB(*row); });
    this->services_.NoteInto({});
    this->Recorder().FailAt(0);
    return error;
  };
  TypeParam whole;
  EXPECT_EQ(load(whole), 0);
  const CallLog calls = this->TakeLog();
  const auto lastOf = [&](const std::string& call) {
    return static_cast<int>(calls.rend() - std::find(calls.rbegin(), calls.rend(), call)) - 1;
  };
  const int putBack = lastOf("language 2");
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    this->services_.strings->current = 2;
    TypeParam element;
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(load(element), kDatabaseError) << calls[static_cast<std::size_t>(step)];
    // Nothing can be put back when that is what fails.
    EXPECT_EQ(this->services_.strings->current, step == putBack ? 3 : 2) << step;
    const bool isChosen = step > putBack;
    EXPECT_EQ(element.Txt(), isChosen                    ? "abcdef"
                             : step > lastOf("get Text") ? "one\r\ntwo"
                             : TestFixture::kIsText      ? "Text"
                                                         : "Frame")
        << step;
    EXPECT_EQ(element.FontNumber(), isChosen ? 2 : step > lastOf("get FontNumber") ? 5 : 4) << step;
    EXPECT_EQ(element.TabIndex(), step > lastOf("get TabIndex") ? 26 : 255) << step;
  }
}

TYPED_TEST(TextRows, MakingOneTouchesNoDatabaseOnceTheProjectsSettingsAreKnown) {
  Platform::Current().heldProject->Hold(ProjectConnection());
  { const TypeParam first; }
  EXPECT_EQ(this->TakeLog(), (CallLog{"open SELECT * FROM Settings [3,1,1]", "Close"}));
  { const TypeParam second; }
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(TextRows, ReleasingOneWritesNothing) {
  {
    const auto element = this->Distinct();
    element->SaveToDB();
    element->Txt("other");
    this->TakeLog();
  }
  EXPECT_TRUE(this->TakeLog().empty());
}

/// The library's texts kept in the project, measured in the fonts of the panel.
TYPED_TEST(TextRows, ShowsTheWidestTextOfAReopenedProject) {
  const auto begin = [] {
    auto library = std::make_shared<corvane1::ProjectStringLibrary>();
    library->Open(ProjectConnection(), -1);
    Platform::Current().stringLibrary = library;
    return library;
  };
  Platform::Current().fontService = Platform().fontService;
  const auto library = begin();
  // A new project may have its first language.
  for (Long language = library->GetCount() + 1; language <= 3; ++language) {
    library->SetLanguage(language, "L" + std::to_string(language));
  }
  library->SetString(70, 1, {"On", 2});
  library->SetString(70, 2, {"Eingeschaltet", 1});
  library->SetString(70, 3, {"Acceso", 3});
  this->SavedOfString70();
  this->Reopen();
  const auto reopened = begin();
  reopened->Language(3);
  const auto loaded = this->Loaded(5);
  EXPECT_EQ(loaded->Txt(), "Eingeschaltet");
  EXPECT_EQ(loaded->FontNumber(), 1);
  EXPECT_EQ(reopened->Language(), 3);
}

// --- Replica ---

TYPED_TEST(TextRows, AReplicaHasTheSameValuesInAllDescriptors) {
  const auto element = this->Distinct();
  element->SaveToDB();
  element->IsCanceled(true);
  element->Move(50, 50);
  element->UpdateDisplayWithTransx();
  const auto copy = std::dynamic_pointer_cast<TypeParam>(element->Replica());
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(copy, element);
  test::ExpectAlike(*copy, *element, {"ColOpPropBag", "IsCanceled"});
  EXPECT_EQ(copy->ID(), 5);
  EXPECT_EQ(copy->TabIndex(), 26);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*copy, location), (Descriptor{12, 13, 140, 150})) << location;
  }
  EXPECT_FALSE(copy->IsCanceled());
  EXPECT_TRUE(element->IsCanceled());
}

TYPED_TEST(TextRows, AReplicaShowsWhatIsShownAtTheMoment) {
  const auto element = this->Distinct();
  element->StorageStringType(0);
  element->StorageStringID(-1);
  element->ActualText("seen");
  const auto copy = element->Replica();
  EXPECT_EQ(this->services_.ShownBy(*copy), "seen");
  EXPECT_EQ(this->services_.ShownBy(*element), "seen");
  EXPECT_EQ(copy->Txt(), "one\r\ntwo");
}

TYPED_TEST(TextRows, AReplicaSharesTheBagsUnlessAnOperandPicksTheStringOfARow) {
  const struct {
    Long id, type;
    bool isShared;
  } kCases[] = {{-1, 0, true}, {5, 0, true}, {-1, 24, true}, {5, 24, false}, {-2, 24, false}};
  for (const auto& [id, type, isShared] : kCases) {
    const auto element = this->Distinct();
    element->StorageStringType(type);
    element->ID(id);
    element->ColOpPropBag(element->BuildOpPropBag());
    const auto copy = std::dynamic_pointer_cast<TypeParam>(element->Replica());
    EXPECT_EQ(copy->ColOpPropBag() == element->ColOpPropBag(), isShared) << id << ' ' << type;
    EXPECT_EQ(OperandsIn(copy->ColOpPropBag()), OperandsIn(element->ColOpPropBag())) << id << ' ' << type;
  }
}

TYPED_TEST(TextRows, AReplicaAddsAndRemovesNoRowsAndLeavesItsSource) {
  const auto element = this->Distinct();
  element->TouchOprndAddr(-1);
  element->VisibleOpAddr(-1);
  element->ID(5);
  const auto bags = element->ColOpPropBag();
  this->TakeLog();
  const auto copy = element->Replica();
  copy->Txt("other");
  copy->TouchOprndAddr(9);
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_EQ(element->ColOpPropBag(), bags);
  EXPECT_EQ(element->Txt(), "one\r\ntwo");
  EXPECT_EQ(element->TouchOprndAddr(), -1);
}

}  // namespace
}  // namespace quenzel7
