/// The row of a variable: what saving, loading, deleting and copying ask of the project, of the handler and
/// of the host, and in which order.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/call_by_name.h"
#include "platform/corvane1/message_service.h"
#include "tests/support/raises.h"
#include "tests/support/saved_variable.h"
#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::Variant;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::Joined;
using test::OperandsIn;

constexpr enVarType kEveryType[] = {
    eVT_BinaryImage,   eVT_BinaryText, eVT_ListText,   eVT_ListImage,   eVT_DateTime,      eVT_TimeFunctions,
    eVT_Timer,         eVT_Numeric,    eVT_BarGraph,   eVT_RangeTexts,  eVT_RangeImages,   eVT_Password,
    eVT_DisplayString, eVT_Counter,    eVT_ShapeGraph, eVT_UTC,         eVT_MovingImage,   eVT_Meter,
    eVT_TankGraph,     eVT_Trend,      eVT_LED,        eVT_Thermometer, eVT_SDTrendViewer, eVT_SDBrowser,
    eVT_NumericRange,  eVT_PassString};

bool IsOneOf(Long type, std::initializer_list<Long> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

class RowOfVariable : public test::SavedVariable {
 protected:
  /// Lets the database's next number be this one.
  void SetNextId(Long id) {
    Connection().Execute("DELETE FROM HMI_Elements");
    Connection().Execute("INSERT INTO HMI_Elements (ID) VALUES (" + std::to_string(id - 1) + ")");
    Connection().Execute("DELETE FROM HMI_Elements");
  }
  /// Shows it in another size than at rest.
  static void Stretch(ItfHmiElement& element) {
    element.UpdateBoundingRectangle(5, 6, ePD_DownRight);
    element.Stretch(5, 6, ePD_DownRight);
    element.UpdateDisplayWithTransx();
    ASSERT_EQ(DescriptorOf(element, 4), (Descriptor{12, 13, 145, 156}));
  }
  /// A colour on which no bevel can be read.
  static Long DarkColor() {
    const auto colors = Platform::Current().colorService;
    Long dark = 0;
    while (dark < 255 && colors->GetClosestGradientColor(dark) == dark) ++dark;
    EXPECT_NE(colors->GetClosestGradientColor(dark), dark);
    return dark;
  }
  void SetColumn(const std::string& column, const std::string& value) {
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=" + value);
  }
};

const CallLog kNewRow = {"open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]", "AddNew", "get ID",
                         "put GUID=9:Long"};
const CallLog kOldRow = {"open SELECT * FROM HMI_ELEMENTS WHERE ID=5 [3,3,1]"};
const CallLog kFirstColumns = {"put Type=5:Long",
                               "put Xs=12:Long",
                               "put Ys=13:Long",
                               "put Dx=140:Long",
                               "put Dy=150:Long",
                               "put DisplayID=7:Long",
                               "put GroupID=11:Long",
                               "put TouchOprndAddr=22:Long",
                               "put EnabledOpAddr=28:Long",
                               "put VisibleOpAddr=23:Long",
                               "put HighlightOpAddr=29:Long",
                               "put KeypadSuccessOpAddr=30:Long",
                               "put VarType=8:Long"};
const CallLog kLastColumns = {"put VarKeyPadEntry=True:Boolean",
                              "put TabIndex=26:Byte",
                              "put VarOprndType=24:Long",
                              "put VarOprndAddr=25:Long",
                              "put Text=level:String",
                              "put ColorBack=16:Long",
                              "put ColorBackTouch=18:Long",
                              "put GlobalVarID=0:Long",
                              "put Binary=Array",
                              "put DefaultDisplay=1:Long",
                              "put FontNumber=5:Long",
                              "put DescriptionFontNumber=6:Long",
                              "put DescriptionFontNumber=6:Long",
                              "put ColorBack=16:Long",
                              "put ColorBackTouch=18:Long",
                              "put ColorFore=0:Integer",
                              "put ColorForeTouch=0:Integer",
                              "put ColorHatch=0:Integer",
                              "put PenStyle=0:Integer",
                              "put PenWidth=0:Integer",
                              "put HatchStyle=3:Long",
                              "put Alignment=7:Long",
                              "put Flat3D=2:Long",
                              "put StorageText=31:Long",
                              "put StorageLibNum=32:Long",
                              "put StrStorageOprndType=33:Long",
                              "put StrStorageOprndAddr=34:Long",
                              "put StrStorageFont=35:Long"};
const CallLog kWritten = {"Update", "get ID", "Close"};

// --- Saving ---

TEST_F(RowOfVariable, ANewRowIsMadeInThisOrder) {
  const auto variable = Distinct();
  EXPECT_EQ(LogOfSaving(*variable),
            Joined({kNewRow, kFirstColumns, kLastColumns, kWritten, {"saved 5", "page 7"}}));
  EXPECT_EQ(variable->ID(), 5);
}

TEST_F(RowOfVariable, AnOldRowIsRewrittenInThisOrder) {
  const auto variable = Distinct();
  variable->SaveToDB();
  EXPECT_EQ(LogOfSaving(*variable),
            Joined({kOldRow, kFirstColumns, {"keypad 5 True"}, kLastColumns, kWritten, {"saved 5"}}));
  EXPECT_EQ(variable->ID(), 5);
  // The row keeps its unique number.
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID"}), CallLog{"5 9"});
}

TEST_F(RowOfVariable, HostsAreToldThatItWasSaved) {
  const auto variable = Distinct();
  EXPECT_EQ(InvokeByName(*variable, "SaveToDB"), Variant(true));
  EXPECT_EQ(variable->ID(), 5);
  EXPECT_TRUE(InvokeByName(*variable, ItfHmiElement::InterfaceOf(), "SaveToDB").IsEmpty());
  EXPECT_EQ(InvokeByName(*variable, "SaveToDBEx"), Variant(true));
  EXPECT_EQ(Changes().ChangedPages(), std::vector<Long>{7});
  // The project service is told, not the change tracker.
  EXPECT_TRUE(Changes().ChangedElements().empty());
}

TEST_F(RowOfVariable, WritesThePlaceAtRestWhileItIsDragged) {
  const auto variable = Distinct();
  variable->ItfHmiElement::Move(3, 4);
  variable->ItfHmiElement::UpdateDisplayWithTransx();
  variable->ItfHmiElement::SaveLastLegalPosition();
  Stretch(*variable);
  const CallLog log = LogOfSaving(*variable);
  EXPECT_EQ(PutsInto("Xs", log), CallLog{"12:Long"});
  EXPECT_EQ(PutsInto("Ys", log), CallLog{"13:Long"});
  EXPECT_EQ(PutsInto("Dx", log), CallLog{"140:Long"});
  EXPECT_EQ(PutsInto("Dy", log), CallLog{"150:Long"});
}

TEST_F(RowOfVariable, ThePageIsItsOwnOrTheOpenOneOrNone) {
  const std::pair<Long, const char*> kPages[] = {{0, "7"}, {-1, "-1"}, {5, "5"}, {1, "1"}, {-2, "-2"}};
  for (const auto& [page, written] : kPages) {
    const auto variable = Distinct();
    variable->DisplayID(page);
    variable->TabIndex(255);
    const CallLog log = LogOfSaving(*variable);
    EXPECT_EQ(PutsInto("DisplayID", log), CallLog{std::string(written) + ":Long"});
    // The tab number is looked for where the variable will be.
    EXPECT_TRUE(Has(log,
                    "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND "
                    "(DisplayID=" +
                        std::string(written) + ") ORDER BY TabIndex [3,1,1]"));
    // The host's open page is the one that has changed.
    EXPECT_EQ(log.back(), "page 7");
  }
}

TEST_F(RowOfVariable, TheHostIsToldOfTheKeypadBetweenTypeAndEntry) {
  const struct {
    bool isNew;
    Long global;
    bool keypad;
    CallLog told;
  } kCases[] = {
      {true, 0, true, {}},
      {true, -1, true, {}},
      {true, 1, true, {"global keypad 1 True"}},
      {true, 6, false, {"global keypad 6 False"}},
      {false, 0, true, {"keypad 5 True"}},
      {false, 0, false, {"keypad 5 False"}},
      {false, -1, true, {}},
      {false, 1, false, {"global keypad 1 False"}},
      {false, 6, true, {"global keypad 6 True"}},
  };
  for (const auto& [isNew, global, keypad, told] : kCases) {
    const auto variable = Distinct();
    if (!isNew) variable->SaveToDB();
    const Long id = variable->ID();
    variable->GlobalVarID(global);
    variable->KeypadEntry(keypad);
    const CallLog log = LogOfSaving(*variable);
    const auto from = std::find(log.begin(), log.end(), "put VarType=8:Long");
    const auto to = std::find_if(
        from, log.end(), [](const std::string& call) { return call.starts_with("put VarKeyPadEntry="); });
    ASSERT_NE(to, log.end());
    CallLog expected = told;
    for (std::string& call : expected) {
      if (call.starts_with("keypad 5")) call.replace(7, 1, std::to_string(id));
    }
    EXPECT_EQ(CallLog(from + 1, to), expected) << isNew << global;
    EXPECT_EQ(*to, std::string("put VarKeyPadEntry=") + (keypad ? "True" : "False") + ":Boolean");
    EXPECT_EQ(PutsInto("GlobalVarID", log), CallLog{std::to_string(global) + ":Long"});
  }
}

TEST_F(RowOfVariable, AVariableThatIsTouchedTakesAPlaceInTheTabOrder) {
  const CallLog next = {
      "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER BY "
      "TabIndex [3,1,1]",
      "Close"};
  const struct {
    Long touch, before, after;
    CallLog steps;
  } kCases[] = {{-1, 9, 255, {}},   {-1, 255, 255, {}}, {-2, 9, 9, {}},
                {-2, 255, 0, next}, {0, 255, 0, next},  {0, 9, 9, {}},
                {5, 255, 0, next},  {5, 254, 254, {}},  {5, 0, 0, {}}};
  for (const auto& [touch, before, after, steps] : kCases) {
    const auto variable = Distinct();
    variable->TouchOprndAddr(touch);
    variable->TabIndex(before);
    const CallLog log = LogOfSaving(*variable);
    const auto from = std::find(log.begin(), log.end(), "put VarKeyPadEntry=True:Boolean");
    const auto to = std::find(from, log.end(), "put VarOprndType=24:Long");
    ASSERT_NE(to, log.end());
    EXPECT_EQ(CallLog(from + 1, to), Joined({steps, {"put TabIndex=" + std::to_string(after) + ":Byte"}}))
        << touch << ' ' << before;
    EXPECT_EQ(variable->TabIndex(), after);
    Connection().Execute("DELETE FROM HMI_Elements");
  }
}

TEST_F(RowOfVariable, ATabNumberThatIsNoByteIsAnError) {
  for (const Long number : {-1, 256}) {
    const auto variable = Distinct();
    variable->TabIndex(number);
    const test::Raised raised = test::RaisedBy([&] { variable->SaveToDB(); });
    EXPECT_EQ(raised.number, 6) << number;
    EXPECT_TRUE(raised.description.starts_with("column 'TabIndex' of HMI_Elements: ")) << raised;
    EXPECT_EQ(variable->ID(), -1);
  }
  EXPECT_TRUE(Elements().empty());
}

TEST_F(RowOfVariable, TheFirstGapInTheTabNumbersOfThePageIsTaken) {
  const auto take = [] {
    const auto variable = Distinct();
    variable->TabIndex(255);
    variable->SaveToDB();
    return variable->TabIndex();
  };
  EXPECT_EQ(take(), 0);
  EXPECT_EQ(take(), 1);
  EXPECT_EQ(take(), 2);
  Connection().Execute("DELETE FROM HMI_Elements WHERE TabIndex=1");
  EXPECT_EQ(take(), 1);
  EXPECT_EQ(take(), 3);
}

TEST_F(RowOfVariable, AVariableThatCanNoLongerBeTouchedLosesItsTabNumber) {
  const auto variable = Distinct();
  variable->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"TabIndex"}), CallLog{"26"});
  variable->TouchOprndAddr(-1);
  variable->SaveToDB();
  EXPECT_EQ(variable->TabIndex(), 255);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"TabIndex"}), CallLog{"255"});
}

TEST_F(RowOfVariable, EachTypeHasItsTouchStyle) {
  for (const enVarType type : kEveryType) {
    const bool isList = IsOneOf(type, {1, 4, 12});
    const bool isTouchedByItself = IsOneOf(type, {23, 27, 28});
    // The handler cannot tell of a calendar, so no keypad here.
    for (const Long touch : {-1, 5}) {
      const auto variable = WithNotedHandler(type);
      variable->TouchOprndAddr(touch);
      variable->SaveToDB();
      const bool takesPart = !isList && (touch != -1 || isTouchedByItself);
      EXPECT_EQ(variable->TabIndex(), takesPart ? 26 : 255) << type << ' ' << touch;
    }
  }
}

TEST_F(RowOfVariable, ATextThatATouchSwitchesTakesAPlaceInTheTabOrder) {
  for (const bool isSwitch : {false, true}) {
    const auto variable = Distinct(eVT_BinaryText);
    variable->TouchOprndAddr(-1);
    dynamic_cast<clsVarBinaryText&>(*variable->BinaryHandlers(eVT_BinaryText)).Switch(isSwitch);
    variable->SaveToDB();
    EXPECT_EQ(variable->TabIndex(), isSwitch ? 26 : 255);
  }
  // A picture never does.
  const auto picture = WithNotedHandler(eVT_BinaryImage);
  dynamic_cast<test::HandlerInRow&>(*picture->BinaryHandlers(eVT_BinaryImage)).isSwitch = true;
  picture->TouchOprndAddr(-1);
  picture->SaveToDB();
  EXPECT_EQ(picture->TabIndex(), 255);
}

TEST_F(RowOfVariable, TheFontIsWrittenWhereATextPaintsAndOfMeterAndThermometer) {
  for (const enVarType type : kEveryType) {
    for (const Long drawing : {kTextElement, kBitmapElement, kFrameElement}) {
      const auto variable = WithNotedHandler(type, drawing);
      const CallLog log = LogOfSaving(*variable);
      const bool hasFont = drawing == kTextElement || IsOneOf(type, {21, 25});
      EXPECT_EQ(PutsInto("FontNumber", log), CallLog{hasFont ? "5:Long" : "0:Integer"}) << type;
      EXPECT_EQ(PutsInto("DescriptionFontNumber", log), (CallLog{hasFont ? "6:Long" : "0:Integer", "6:Long"}))
          << type;
    }
  }
}

TEST_F(RowOfVariable, ANumberKeepsItsFontAndABarDoesNot) {
  Distinct()->SaveToDB();
  Distinct(eVT_BarGraph)->SaveToDB();
  EXPECT_EQ(
      Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"VarType", "FontNumber", "DescriptionFontNumber"}),
      (CallLog{"8 5 6", "9 0 6"}));
}

TEST_F(RowOfVariable, TheSideRowsOfTheHandlerAreSavedFromTheSecondTimeOn) {
  const auto variable = WithNotedHandler(eVT_Trend);
  const CallLog first = LogOfSaving(*variable);
  EXPECT_FALSE(Has(first, "handler.SaveToDB 5 23"));
  EXPECT_EQ(PlaceOf("handler.SaveToDB", first), static_cast<int>(first.size()));
  EXPECT_EQ(PlaceOf("drawing.", first), static_cast<int>(first.size()));
  const CallLog second = LogOfSaving(*variable);
  // Behind all columns and before the row is written.
  const int place = PlaceOf("handler.SaveToDB 5 23", second);
  ASSERT_LT(place, static_cast<int>(second.size()));
  const auto at = second.begin() + place;
  EXPECT_EQ(CallLog(at - 1, at + 2),
            (CallLog{"put StrStorageFont=35:Long", "handler.SaveToDB 5 23", "Update"}));
}

TEST_F(RowOfVariable, TheDrawingElementOfAPictureIsSizedBeforeItsHandlerIsSaved) {
  for (const enVarType type : kEveryType) {
    const std::string save = "handler.SaveToDB ";
    const auto variable = WithNotedHandler(type);
    variable->SaveToDB();
    variable->ItfHmiElement::Move(3, 4);
    variable->ItfHmiElement::Stretch(5, 6, ePD_DownRight);
    variable->ItfHmiElement::UpdateDisplayWithTransx();
    const std::string id = std::to_string(variable->ID());
    const CallLog own = {save + id + " " + std::to_string(type)};
    const CallLog sized = Joined({{"drawing.Dx=140", "drawing.Dy=150"}, own});
    const auto ofHandler = [](CallLog log) {
      std::erase_if(log, [](const std::string& call) {
        return call == "handler.BinaryData?" ||
               (!call.starts_with("handler.") && !call.starts_with("drawing."));
      });
      return log;
    };
    EXPECT_EQ(ofHandler(LogOfSaving(*variable)), IsOneOf(type, {1, 4, 12, 22}) ? sized : own) << type;
    EXPECT_TRUE(variable->SaveToDBEx());
    EXPECT_EQ(ofHandler(TakeLog()), type == 22 ? sized : own) << type;
  }
}

TEST_F(RowOfVariable, SavingWithoutTellingTheHostDoesAllElseAlike) {
  const auto variable = Distinct();
  TakeLog();
  EXPECT_TRUE(variable->SaveToDBEx());
  EXPECT_EQ(TakeLog(), Joined({kNewRow, kFirstColumns, kLastColumns, kWritten}));
  EXPECT_EQ(variable->ID(), 5);
  EXPECT_TRUE(variable->SaveToDBEx());
  EXPECT_EQ(TakeLog(), Joined({kOldRow, kFirstColumns, {"keypad 5 True"}, kLastColumns, kWritten}));
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(RowOfVariable, TheSettingsOfTheHandlerGoIntoTheRowAsTheyAre) {
  const auto variable = WithNotedHandler(eVT_Timer);
  const CallLog log = LogOfSaving(*variable);
  const int place = PlaceOf("put Binary=Array", log);
  ASSERT_LT(place, static_cast<int>(log.size()));
  EXPECT_EQ(log[static_cast<std::size_t>(place) - 1], "handler.BinaryData?");
  const auto row = RowOf(5);
  EXPECT_EQ(automation::To<std::vector<Byte>>(row->Get("Binary")), (std::vector<Byte>{1, 2, 3}));
}

TEST_F(RowOfVariable, NumbersAbove32767AreRefused) {
  const auto messages = std::make_shared<corvane1::CollectedMessages>(nullptr);
  Platform::Current().messageService = messages;
  SetNextId(32767);
  const auto last = Distinct();
  EXPECT_TRUE(last->SaveToDB());
  EXPECT_EQ(last->ID(), 32767);
  EXPECT_TRUE(messages->Shown().empty());
  // The number of an old row does not matter.
  EXPECT_TRUE(last->SaveToDB());
  for (const Long next : {32768, 32769}) {
    SetNextId(next);
    for (const auto save : {&clsVar::SaveToDB, &clsVar::SaveToDBEx}) {
      const auto variable = Distinct();
      variable->GlobalVarID(6);
      const std::size_t shown = messages->Shown().size();
      TakeLog();
      EXPECT_FALSE(((*variable).*save)());
      EXPECT_EQ(TakeLog(),
                (CallLog{"open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]", "AddNew", "get ID"}));
      EXPECT_EQ(variable->ID(), -1);
      ASSERT_EQ(messages->Shown().size(), shown + 1);
      EXPECT_EQ(messages->Shown().back().number, 536);
      EXPECT_EQ(messages->Shown().back().text, corvane1::MessageText(536, Variant()));
    }
    EXPECT_TRUE(Elements().empty());
    const auto variable = Distinct();
    EXPECT_EQ(InvokeByName(*variable, "SaveToDB"), Variant(false));
  }
  EXPECT_EQ(Rows("SELECT * FROM Numbers", {"Next"}), CallLog{"10"});
}

TEST_F(RowOfVariable, TheSizeIsThatOfTheProject) {
  const auto variable = Distinct();
  variable->SaveToDB();
  const Long size = Changes().ElementSize(5);
  class Sizes final : public corvane1::ChangeTracker {
   public:
    void NotifyElementChanged(Long) override {}
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long elementId) override { return 100 + elementId; }
  };
  EXPECT_GT(size, 0);
  Platform::Current().changeTracker = std::make_shared<Sizes>();
  TakeLog();
  EXPECT_EQ(variable->HMIElementSize(), 105);
  EXPECT_EQ(TakeLog(), CallLog{"project size 5"});
  EXPECT_EQ(InvokeByName(*variable, "HMIElementSize"), Variant(Long{105}));
}

TEST_F(RowOfVariable, AVariableWithoutAHandlerIsNotSaved) {
  clsVar variable;
  variable.VarType(eVT_Float);
  EXPECT_EQ(ErrorOf([&] { variable.SaveToDB(); }), 91);
  EXPECT_EQ(ErrorOf([&] { variable.SaveToDBEx(); }), 91);
  EXPECT_EQ(variable.ID(), -1);
  EXPECT_TRUE(Elements().empty());
}

TEST_F(RowOfVariable, AFreshVariableIsSavedWhenItsTouchStyleAsksForItsHandler) {
  for (const Long touch : {5, -2}) {
    clsVar variable;
    variable.GlobalVarID(6);
    variable.TouchOprndAddr(touch);
    Events().Clear();
    EXPECT_EQ(ErrorOf([&] { variable.SaveToDB(); }), 91) << touch;
    const std::vector<corvane1::ProjectEvent> told = {{corvane1::ProjectEventKind::GlobalVarKeypad, 6}};
    EXPECT_EQ(Events().Events(), told) << touch;
    EXPECT_EQ(variable.ID(), -1);
    EXPECT_TRUE(Elements().empty());
  }
  clsVar variable;
  EXPECT_TRUE(variable.SaveToDB());
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"VarType", "TabIndex"}), CallLog{"2 255"});
}

TEST_F(RowOfVariable, AVariableWithoutAStringOfItsOwnIsNeitherSavedNorLoaded) {
  const auto variable = Distinct();
  variable->ListText(nullptr);
  EXPECT_EQ(ErrorOf([&] { variable->SaveToDB(); }), 91);
  EXPECT_TRUE(Elements().empty());
  const auto saved = Distinct();
  saved->SaveToDB();
  EXPECT_EQ(ErrorOf([&] { variable->LoadFromDB(*RowOf(saved->ID())); }), 91);
}

// --- Loading ---

const CallLog kFirstRead = {"get ID",
                            "get GroupID",
                            "get Xs",
                            "get Ys",
                            "get Dx",
                            "get Dy",
                            "get TouchOprndAddr",
                            "get EnabledOpAddr",
                            "get VisibleOpAddr",
                            "get HighlightOpAddr",
                            "get KeypadSuccessOpAddr",
                            "get VarType",
                            "get VarKeyPadEntry",
                            "get VarOprndType",
                            "get VarOprndAddr",
                            "get Text",
                            "get GlobalVarID",
                            "get Binary"};
const CallLog kThenRead = {
    "get ColorBack",  "get ColorBackTouch",       "get Alignment", "get Flat3D", "get TabIndex",
    "get FontNumber", "get DescriptionFontNumber"};
const CallLog kTransparency = {"execute SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=5"};
const CallLog kLastRead = {"get StorageText", "get StorageLibNum", "get StrStorageOprndType",
                           "get StrStorageOprndAddr", "get StrStorageFont"};

TEST_F(RowOfVariable, IsReadInThisOrder) {
  WithNotedHandler(eVT_RangeTexts, kTextElement)->SaveToDB();
  SetColumn("DefaultDisplay", "2");
  const auto row = RowOf(5);
  clsVar variable;
  variable.SetBinaryHandler(eVT_RangeTexts, NotedHandler());
  EXPECT_TRUE(variable.LoadFromDB(*row));
  EXPECT_EQ(TakeLog(), Joined({kFirstRead,
                               {"handler.BinaryData=3", "get DefaultDisplay", "handler.BuildImageList 5"},
                               kThenRead,
                               {"handler.BuildOpPropBag"},
                               kTransparency,
                               {"Close"},
                               kLastRead,
                               {"handler.ReSync 2 5"}}));
}

TEST_F(RowOfVariable, APictureIsShownBeforeTheHandlerLoadsItsOwn) {
  WithNotedHandler(eVT_ListImage)->SaveToDB();
  Link(5, 0, 61, 3);
  const auto row = RowOf(5);
  clsVar variable;
  variable.SetBinaryHandler(eVT_ListImage, NotedHandler());
  EXPECT_TRUE(static_cast<ItfHmiElement&>(variable).LoadFromDB(*row));
  CallLog log = TakeLog();
  EXPECT_EQ(variable.TransparencyLevel(), 3);
  const int shown = PlaceOf("drawing.hBmpCRC=61", log);
  EXPECT_EQ(log[static_cast<std::size_t>(shown) + 1], "handler.BuildImageList 5");
  const int asked =
      PlaceOf("open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=5", log);
  EXPECT_LT(PlaceOf("get DefaultDisplay", log), asked);
  EXPECT_LT(asked, shown);
  EXPECT_LT(shown, PlaceOf("get ColorBack", log));
}

TEST_F(RowOfVariable, TakesAllThatWasSaved) {
  const auto saved = Distinct();
  saved->GlobalVarID(36);
  saved->DisplayID(3);
  saved->SaveToDB();
  Link(5, 0, 61, 3);
  Reopen();
  const auto loaded = Loaded(5);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*loaded, location), (Descriptor{12, 13, 140, 150})) << location;
  }
  EXPECT_EQ(loaded->ID(), 5);
  EXPECT_EQ(loaded->GroupID(), 11);
  EXPECT_EQ(loaded->TouchOprndAddr(), 22);
  EXPECT_EQ(loaded->EnabledOpAddr(), 28);
  EXPECT_EQ(loaded->VisibleOpAddr(), 23);
  EXPECT_EQ(loaded->HighlightOpAddr(), 29);
  EXPECT_EQ(loaded->KeypadSuccessOpAddr(), 30);
  EXPECT_EQ(loaded->VarType(), eVT_Numeric);
  EXPECT_TRUE(loaded->KeypadEntry());
  EXPECT_EQ(loaded->OperandType(), 24);
  EXPECT_EQ(loaded->OperandAddress(), 25);
  EXPECT_EQ(loaded->VarName(), "level");
  EXPECT_EQ(loaded->GlobalVarID(), 36);
  EXPECT_EQ(loaded->DefaultDisplay(), 1);
  EXPECT_EQ(loaded->ColorBack(), 16);
  EXPECT_EQ(loaded->ColorBackTouch(), 18);
  EXPECT_EQ(loaded->Alignment(), 7);
  EXPECT_EQ(loaded->Flat3D(), 2);
  EXPECT_EQ(loaded->TabIndex(), 26);
  EXPECT_EQ(loaded->FontNumber(), 5);
  EXPECT_EQ(loaded->DescriptionFontNumber(), 6);
  EXPECT_EQ(loaded->TransparencyLevel(), 3);
  EXPECT_EQ(loaded->StorageText(), 31);
  EXPECT_EQ(loaded->StorageLibNum(), 32);
  EXPECT_EQ(loaded->ListText()->StorageStringType(), 33);
  EXPECT_EQ(loaded->ListText()->StorageStringID(), 34);
  EXPECT_EQ(loaded->ListText()->StorageFont(), 35);
  EXPECT_EQ(OperandsIn(loaded->GetColOpPropertyBag()),
            (CallLog{"1 22", "24 25", "1 28", "1 23", "1 29", "1 30"}));
  // The frame that the user sees while stretching begins there too.
  loaded->ItfHmiElement::UpdateBoundingRectangle(0, 0, ePD_DownRight);
  loaded->ItfHmiElement::GetSizeFromBoundingRect();
  EXPECT_EQ(DescriptorOf(*loaded, 3), (Descriptor{12, 13, 140, 150}));
  // The page is not read: saving goes to the open one.
  EXPECT_EQ(PutsInto("DisplayID", LogOfSaving(*loaded)), CallLog{"7:Long"});
}

TEST_F(RowOfVariable, TheHatchIsACrossWhateverTheRowHolds) {
  const auto saved = Distinct();
  saved->HatchStyle(static_cast<enHatchStyle>(99));
  EXPECT_EQ(PutsInto("HatchStyle", LogOfSaving(*saved)), CallLog{"99:Long"});
  for (const char* held : {"99", "3", "NULL"}) {
    SetColumn("HatchStyle", held);
    EXPECT_EQ(Loaded(5)->HatchStyle(), 4);
  }
}

TEST_F(RowOfVariable, StyleAndColourOfTheRowHoldAgainstThoseOfTheType) {
  // A meter is flat and has a colour of its own when it becomes one.
  WithNotedHandler(eVT_Meter)->SaveToDB();
  clsVar meter;
  meter.SetBinaryHandler(eVT_Meter, NotedHandler());
  EXPECT_TRUE(meter.LoadFromDB(*RowOf(5)));
  EXPECT_EQ(meter.Flat3D(), 2);
  EXPECT_EQ(meter.ColorBack(), 16);
  // A raised text keeps colours on which no bevel can be read.
  const Long dark = DarkColor();
  for (const enVarType type : {eVT_ListText, eVT_RangeTexts}) {
    const auto listOf = [type](clsVar& variable) -> TextListHandler& {
      return dynamic_cast<TextListHandler&>(*variable.BinaryHandlers(type));
    };
    const auto saved = Distinct(type);
    if (listOf(*saved).ListCount() == 0) listOf(*saved).AppendText();
    listOf(*saved).ListTexts(1)->ColorBack(dark);
    listOf(*saved).DrawingElement()->ColorBack(dark);
    saved->SaveToDB();
    SetColumn("Flat3D", "1");
    const auto loaded = Loaded(saved->ID());
    EXPECT_EQ(loaded->Flat3D(), 1);
    EXPECT_EQ(listOf(*loaded).ListTexts(1)->ColorBack(), dark) << type;
    EXPECT_EQ(listOf(*loaded).DrawingElement()->ColorBack(), dark) << type;
  }
}

TEST_F(RowOfVariable, AddressesAreTakenWithoutBagsOnTheWay) {
  Distinct()->SaveToDB();
  const auto asked = std::make_shared<test::AskedStore>();
  Platform::Current().operands = asked;
  Loaded(5);
  EXPECT_EQ(asked->asked, (std::vector<Long>{22, 25, 28, 23, 29, 30}));
}

TEST_F(RowOfVariable, ThePictureOfTheShownStateIsTheDrawingElementsOwn) {
  const struct {
    enVarType type;
    Long shown;
    const char* crc;
  } kCases[] = {
      // There are pictures at the indexes 1 and 2; a list ends with none.
      {eVT_ListImage, 1, "61"},
      {eVT_ListImage, 2, "62"},
      {eVT_ListImage, 3, "-1"},
      {eVT_RangeImages, 1, "61"},
      {eVT_RangeImages, 2, "62"},
      {eVT_MovingImage, 2, "62"},
      {eVT_MovingImage, 3, "-1"},
      // That of a bit has one place for each state.
      {eVT_BinaryImage, 1, "-1"},
      {eVT_BinaryImage, 2, "61"},
  };
  const auto saved = WithNotedHandler(eVT_Timer);
  saved->SaveToDB();
  Link(5, 1, 61);
  Link(5, 2, 62);
  Link(6, 0, 63);
  for (const auto& [type, shown, crc] : kCases) {
    SetColumn("VarType", std::to_string(type));
    SetColumn("DefaultDisplay", std::to_string(shown));
    if (type == eVT_BinaryImage) Connection().Execute("DELETE FROM ElementsAndImages WHERE Image_Index=2");
    clsVar variable;
    variable.SetBinaryHandler(type, NotedHandler());
    EXPECT_TRUE(variable.LoadFromDB(*RowOf(5)));
    CallLog log = TakeLog();
    std::erase_if(log, [](const std::string& call) { return !call.starts_with("drawing."); });
    EXPECT_EQ(log, CallLog{std::string("drawing.hBmpCRC=") + crc}) << type << ' ' << shown;
  }
}

TEST_F(RowOfVariable, AStateWithoutAPlaceForItsPictureIsAnError) {
  const std::pair<enVarType, Long> kCases[] = {{eVT_ListImage, 4},   {eVT_ListImage, 0},
                                               {eVT_ListImage, -1},  {eVT_RangeImages, 4},
                                               {eVT_BinaryImage, 3}, {eVT_BinaryImage, 0}};
  WithNotedHandler(eVT_Timer)->SaveToDB();
  for (const Long index : {0, 1}) Link(5, index, 61 + index);
  for (const auto& [type, shown] : kCases) {
    SetColumn("DefaultDisplay", std::to_string(shown));
    SetColumn("VarType", std::to_string(type));
    clsVar variable;
    variable.SetBinaryHandler(type, NotedHandler());
    const auto row = RowOf(5);
    const test::Raised raised = test::RaisedBy([&] { variable.LoadFromDB(*row); });
    EXPECT_EQ(raised.number, 9) << type << ' ' << shown;
    EXPECT_EQ(raised.description, "variable 5 shows picture " + std::to_string(shown) + ", it has 1 to " +
                                      (type == eVT_BinaryImage ? "2" : "3"));
    const CallLog log = TakeLog();
    EXPECT_EQ(PlaceOf("handler.BuildImageList", log), static_cast<int>(log.size()));
  }
}

TEST_F(RowOfVariable, EveryTypeBuildsItsPicturesAndOnlySomeBringTheirElementUpToDate) {
  WithNotedHandler(eVT_Timer, kTextElement)->SaveToDB();
  Link(5, 0, 61);
  for (const enVarType type : kEveryType) {
    SetColumn("VarType", std::to_string(type));
    clsVar variable;
    variable.SetBinaryHandler(type, NotedHandler());
    EXPECT_TRUE(variable.LoadFromDB(*RowOf(5)));
    const CallLog log = TakeLog();
    EXPECT_TRUE(Has(log, "handler.BuildImageList 5")) << type;
    EXPECT_EQ(Has(log, "drawing.hBmpCRC=61"), IsOneOf(type, {1, 4, 12, 20})) << type;
    const bool isUpToDate = IsOneOf(type, {2, 3, 8, 11, 13, 29, 30});
    EXPECT_EQ(Has(log, "handler.ReSync 1 5"), isUpToDate) << type;
    EXPECT_EQ(log.back(), isUpToDate ? "handler.ReSync 1 5" : "get StrStorageFont") << type;
  }
}

TEST_F(RowOfVariable, AStateBeyondItsTextsIsSavedAndNotLoaded) {
  const struct {
    enVarType type;
    Long texts;
  } kLists[] = {{eVT_ListText, 1}, {eVT_RangeTexts, 1}, {eVT_BinaryText, 2}};
  for (const auto& [type, texts] : kLists) {
    const auto variable = Distinct(type);
    auto& list = dynamic_cast<TextListHandler&>(*variable->BinaryHandlers(type));
    while (list.ListCount() <= texts && type != eVT_BinaryText) list.AppendText();
    variable->DefaultDisplay(texts + 1);
    while (list.ListCount() > texts) list.RemoveText(list.ListCount());
    EXPECT_EQ(variable->DefaultDisplay(), texts + 1);
    EXPECT_TRUE(variable->SaveToDB());
    const auto row = RowOf(variable->ID());
    clsVar loaded;
    EXPECT_RAISES(9,
                  "text " + std::to_string(texts + 1) + " of a list was asked for, there are 1 to " +
                      std::to_string(texts),
                  loaded.LoadFromDB(*row));
    EXPECT_EQ(loaded.DefaultDisplay(), texts + 1);
  }
}

TEST_F(RowOfVariable, ARowOfATypeWithoutAHandlerFailsAtTheLink) {
  Distinct()->SaveToDB();
  for (const Long type : {0, 10, 14, 17, 26, 31, -1}) {
    SetColumn("VarType", std::to_string(type));
    clsVar variable;
    const auto row = RowOf(5);
    const test::Raised raised = test::RaisedBy([&] { variable.LoadFromDB(*row); });
    EXPECT_EQ(raised.number, 91) << type;
    EXPECT_EQ(raised.description, "column 'VarOprndType' of HMI_Elements: variable 5 of type " +
                                      std::to_string(type) + " has no handler");
    EXPECT_EQ(TakeLog().back(), "get VarOprndType");
    EXPECT_TRUE(variable.KeypadEntry());
    EXPECT_EQ(variable.VarName(), "");
  }
}

CallLog ColumnsRead() { return Joined({kFirstRead, {"get DefaultDisplay"}, kThenRead, kLastRead}); }

TEST_F(RowOfVariable, NoColumnThatIsReadMayBeNull) {
  const auto saved = Distinct();
  for (const std::string& read : ColumnsRead()) {
    const std::string column = read.substr(4);
    if (column == "ID") continue;
    saved->SaveToDB();
    SetColumn(column, "NULL");
    const auto row = RowOf(5);
    clsVar variable;
    const test::Raised raised = test::RaisedBy([&] { variable.LoadFromDB(*row); });
    EXPECT_EQ(raised.number, 94) << column;
    EXPECT_TRUE(raised.description.starts_with("column '" + column + "' of HMI_Elements: ")) << raised;
    EXPECT_EQ(TakeLog().back(), read);
  }
}

TEST_F(RowOfVariable, NoColumnThatIsReadMayBeMissing) {
  Distinct()->SaveToDB();
  const CallLog all = ColumnsRead();
  for (const std::string& missing : all) {
    std::string columns;
    for (const std::string& read : all) {
      if (read != missing) columns += (columns.empty() ? "" : ",") + read.substr(4);
    }
    const auto row = RowOf(5, columns);
    clsVar variable;
    const test::Raised raised = test::RaisedBy([&] { variable.LoadFromDB(*row); });
    EXPECT_EQ(raised.number, 3265) << missing;
    EXPECT_TRUE(raised.description.starts_with("column '" + missing.substr(4) + "' of HMI_Elements: "))
        << raised;
  }
  // What is not read may be.
  std::string columns;
  for (const std::string& read : all) columns += (columns.empty() ? "" : ",") + read.substr(4);
  EXPECT_TRUE(clsVar().LoadFromDB(*RowOf(5, columns)));
}

TEST_F(RowOfVariable, SettingsThatAreNoneAreAnErrorOfEveryType) {
  for (const auto type :
       {eVT_BinaryText, eVT_ListText, eVT_Numeric, eVT_BarGraph, eVT_RangeTexts, eVT_DisplayString}) {
    const auto saved = Distinct(type);
    saved->SaveToDB();
    for (const char* bytes : {"x''", "x'00'", "x'5142616701'"}) {
      SetColumn("Binary", bytes);
      const auto row = RowOf(saved->ID());
      clsVar variable;
      const test::Raised raised = test::RaisedBy([&] { variable.LoadFromDB(*row); });
      EXPECT_EQ(raised.number, 331) << type << bytes;
      EXPECT_TRUE(raised.description.starts_with("column 'Binary' of HMI_Elements: ")) << raised;
      EXPECT_EQ(TakeLog().back(), "get Binary");
    }
  }
}

TEST_F(RowOfVariable, LoadingWorksByName) {
  Distinct()->SaveToDB();
  const auto own = std::make_shared<clsVar>();
  EXPECT_EQ(InvokeByName(*own, "LoadFromDB", {RowOf(5)}), Variant(true));
  EXPECT_EQ(GetByName(*own, "VarName"), Variant("level"));
  const auto element = std::make_shared<clsVar>();
  EXPECT_EQ(InvokeByName(*element, ItfHmiElement::InterfaceOf(), "LoadFromDB", {RowOf(5)}), Variant(true));
  EXPECT_EQ(element->ID(), 5);
}

// --- Deletion ---

TEST_F(RowOfVariable, IsDeletedInThisOrder) {
  const auto variable = WithNotedHandler(eVT_Trend);
  variable->GlobalVarID(36);
  variable->SaveToDB();
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (9)");
  Link(5, 0, 61);
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
  const CallLog log = LogOfDeleting(*variable);
  const CallLog first = {"execute SELECT * FROM HMI_Elements WHERE ID=5",
                         "get Guid",
                         "Close",
                         "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                         "execute DELETE * FROM HMI_Elements WHERE ID=5",
                         "deleted 5",
                         "global gone clsVar",
                         "execute DELETE * FROM HMI_Operands WHERE ElementID=5",
                         "remove operand 22",
                         "remove operand 25",
                         "remove operand 28",
                         "remove operand 23",
                         "remove operand 29",
                         "remove operand 30",
                         "handler.DeleteAllOperands",
                         "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 [0,3,1]"};
  ASSERT_GT(log.size(), first.size());
  EXPECT_EQ(CallLog(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(first.size())), first);
  EXPECT_TRUE(Has(log, "execute DELETE * FROM ElementsAndImages WHERE Element_ID=5"));
  EXPECT_EQ(log.back(), "page 7");
  EXPECT_TRUE(Elements().empty());
  EXPECT_TRUE(Rows("SELECT * FROM ElementsAndImages", {"Element_ID"}).empty());
  EXPECT_TRUE(Rows("SELECT * FROM DownloadDLUs", {"GUID"}).empty());
}

TEST_F(RowOfVariable, OnlyAVariableThatShowsAGlobalOneTellsOfThat) {
  for (const Long global : {-1, 0, 1, 36}) {
    const auto variable = Distinct();
    variable->SaveToDB();
    const Long id = variable->ID();
    variable->GlobalVarID(global);
    Events().Clear();
    static_cast<ItfHmiElement&>(*variable).DeleteFromDB();
    using corvane1::ProjectEventKind;
    std::vector<corvane1::ProjectEvent> events = {{ProjectEventKind::ElementDeleted, id}};
    if (global > 0) events.push_back({ProjectEventKind::GlobalElementDeleted, global});
    EXPECT_EQ(Events().Events(), events) << global;
  }
}

TEST_F(RowOfVariable, AGlobalOneThatNobodySharesIsToldWithoutAnElement) {
  clsVar variable;
  variable.VarType(eVT_Numeric);
  variable.GlobalVarID(36);
  variable.SaveToDB();
  Events().Clear();
  const CallLog log = LogOfDeleting(variable);
  EXPECT_TRUE(Has(log, "global gone without an element"));
  const std::vector<corvane1::ProjectEvent> told = {{corvane1::ProjectEventKind::ElementDeleted, 5},
                                                    {corvane1::ProjectEventKind::GlobalElementDeleted, 0}};
  EXPECT_EQ(Events().Events(), told);
}

TEST_F(RowOfVariable, ADeletedOneIsNotSavedUnderItsOldNumber) {
  const auto variable = WithNotedHandler(eVT_Trend);
  variable->GlobalVarID(36);
  variable->SaveToDB();
  static_cast<ItfHmiElement&>(*variable).DeleteFromDB();
  Events().Clear();
  Changes().Clear();
  for (const auto save : {&clsVar::SaveToDB, &clsVar::SaveToDBEx}) {
    TakeLog();
    EXPECT_EQ(ErrorOf([&] { ((*variable).*save)(); }), 3021);
    const CallLog log = TakeLog();
    EXPECT_EQ(PlaceOf("handler.SaveToDB", log), static_cast<int>(log.size()));
    EXPECT_EQ(variable->ID(), 5);
    EXPECT_TRUE(Events().Events().empty());
    EXPECT_TRUE(Changes().ChangedPages().empty());
    EXPECT_TRUE(Elements().empty());
  }
}

TEST_F(RowOfVariable, ItsNumberIsToldIn16Bits) {
  const auto variable = Distinct();
  variable->SaveToDB();
  SetColumn("ID", "32767");
  variable->ID(32767);
  EXPECT_TRUE(Has(LogOfDeleting(*variable), "deleted 32767"));
  const auto beyond = Distinct();
  beyond->SaveToDB();
  SetColumn("ID", "32768");
  beyond->ID(32768);
  TakeLog();
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*beyond).DeleteFromDB(); }), 6);
  EXPECT_EQ(TakeLog().back(), "execute DELETE * FROM HMI_Elements WHERE ID=32768");
}

TEST_F(RowOfVariable, WithoutARowThereIsNothingToDelete) {
  const auto variable = Distinct();
  EXPECT_EQ(ErrorOf([&] { InvokeByName(*variable, "DeleteFromDB"); }), 3021);
  EXPECT_TRUE(Events().Events().empty());
}

TEST_F(RowOfVariable, ADeletionIsUndoneWithANewRow) {
  constexpr Long kBit = 1, kConstant16 = 34, kConstant32 = 35;
  const auto variable = Distinct();
  for (const Long address : {22, 28, 23, 29, 30}) Define(address, "bit " + std::to_string(address));
  const auto defineValue = [](Long type, Long address, Currency value) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(type);
    operand.OperandAddress(address);
    operand.OperandValue(value);
    operand.AddToProject();
  };
  const auto units = [](std::int64_t value) { return automation::To<Currency>(Variant(Long(value))); };
  variable->OperandType(kConstant16);
  variable->OperandAddress(50);
  defineValue(kConstant16, 50, units(123));
  auto& number = dynamic_cast<clsVarNumeric&>(*variable->BinaryHandlers(eVT_Numeric));
  number.UseEntryLimits(true);
  number.EntryLimitMinOpType(kConstant32);
  number.EntryLimitMinOpAddress(60);
  defineValue(kConstant32, 60, units(456));
  number.EntryLimitMaxOpType(kBit);
  number.EntryLimitMaxOpAddress(70);
  Define(70, "limit");
  variable->SaveToDB();
  variable->BuildOpPropBag();
  static_cast<ItfHmiElement&>(*variable).DeleteFromDB();
  EXPECT_TRUE(Elements().empty());
  EXPECT_FALSE(IsDefined(22));
  EXPECT_FALSE(IsDefined(70));
  EXPECT_FALSE(IsDefined(50, kConstant16));
  EXPECT_FALSE(IsDefined(60, kConstant32));
  Define(0, "taken", 37);

  variable->ID(-1);
  EXPECT_TRUE(variable->SaveToDB());
  variable->RestoreAllOperands();
  EXPECT_TRUE(variable->SaveToDB());
  EXPECT_EQ(variable->ID(), 6);
  EXPECT_EQ(Elements(), CallLog{"6"});
  // Values come back at the first free place, as constants of the other kind.
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY OprndPurpose, OprndType",
                 {"ElementID", "OprndType", "OprndAddr", "OprndPurpose"}),
            (CallLog{"6 37 1 1", "6 1 22 2", "6 1 70 3", "6 38 0 3", "6 1 28 4", "6 1 23 5", "6 1 29 6",
                     "6 1 30 7"}));
  for (const Long address : {22, 28, 23, 29, 30, 70}) EXPECT_TRUE(IsDefined(address)) << address;
  EXPECT_EQ(OperandValueOf(37, 1, 0), units(123));
  EXPECT_EQ(OperandValueOf(38, 0, 0), units(456));
  Reopen();
  const auto loaded = Loaded(6);
  EXPECT_EQ(loaded->OperandType(), 37);
  EXPECT_EQ(loaded->OperandAddress(), 1);
  const auto& again = dynamic_cast<clsVarNumeric&>(*loaded->BinaryHandlers(eVT_Numeric));
  EXPECT_EQ(again.EntryLimitMinOpType(), 38);
  EXPECT_EQ(again.EntryLimitMinOpAddress(), 0);
  EXPECT_EQ(again.EntryLimitMaxOpType(), 1);
  EXPECT_EQ(again.EntryLimitMaxOpAddress(), 70);
}

// --- Replica ---

TEST_F(RowOfVariable, AReplicaHasTheSameProperties) {
  const auto variable = Distinct();
  variable->GlobalVarID(36);
  variable->DisplayID(3);
  variable->DefaultDisplay(2);
  variable->SaveToDB();
  variable->TransparencyLevel(4);
  variable->ListText()->Txt("kept");
  variable->ListText()->ColorFore(41);
  variable->ListText()->ColorBack(42);
  const auto copy = variable->Replica();
  test::ExpectAlike(*copy, *variable, {"ListText", "GetColOpPropertyBag"});
  EXPECT_EQ(copy->ID(), 5);
  EXPECT_EQ(copy->VarType(), eVT_Numeric);
  EXPECT_EQ(copy->VarName(), "level");
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*copy, location), (Descriptor{12, 13, 140, 150})) << location;
  }
  EXPECT_EQ(copy->ColorBack(), 16);
  EXPECT_EQ(copy->ColorBackTouch(), 18);
  EXPECT_EQ(copy->TransparencyLevel(), 4);
  EXPECT_EQ(copy->DefaultDisplay(), 2);
  EXPECT_EQ(copy->GlobalVarID(), 36);
  EXPECT_EQ(copy->GroupID(), 11);
  EXPECT_EQ(copy->HatchStyle(), 3);
  EXPECT_TRUE(copy->KeypadEntry());
  EXPECT_EQ(copy->TouchOprndAddr(), 22);
  EXPECT_EQ(copy->EnabledOpAddr(), 28);
  EXPECT_EQ(copy->Alignment(), 7);
  EXPECT_EQ(copy->Flat3D(), 2);
  EXPECT_EQ(copy->TabIndex(), 26);
  EXPECT_EQ(copy->FontNumber(), 5);
  EXPECT_EQ(copy->DescriptionFontNumber(), 6);
  EXPECT_EQ(copy->VisibleOpAddr(), 23);
  EXPECT_EQ(copy->HighlightOpAddr(), 29);
  EXPECT_EQ(copy->KeypadSuccessOpAddr(), 30);
  EXPECT_EQ(copy->OperandType(), 24);
  EXPECT_EQ(copy->OperandAddress(), 25);
  EXPECT_EQ(copy->StorageText(), 31);
  EXPECT_EQ(copy->StorageLibNum(), 32);
  ASSERT_NE(copy->ListText(), variable->ListText());
  EXPECT_EQ(copy->ListText()->Txt(), "kept");
  EXPECT_EQ(copy->ListText()->ColorFore(), 41);
  EXPECT_EQ(copy->ListText()->ColorBack(), 42);
  EXPECT_EQ(copy->ListText()->StorageStringID(), 34);
  EXPECT_EQ(copy->ListText()->StorageStringType(), 33);
  EXPECT_EQ(copy->ListText()->StorageFont(), 35);
  EXPECT_EQ(PutsInto("DisplayID", LogOfSaving(*copy)), CallLog{"3:Long"});
}

TEST_F(RowOfVariable, AReplicaLeavesTheRestOfItsStringAsItIs) {
  const auto variable = Distinct();
  variable->ListText()->FromOpType(1);
  variable->ListText()->FromOpAddress(2);
  variable->ListText()->ToOpType(3);
  variable->ListText()->ToOpAddress(4);
  variable->ListText()->StorageText("chosen");
  const auto copy = variable->Replica();
  EXPECT_EQ(copy->ListText()->FromOpType(), 0);
  EXPECT_EQ(copy->ListText()->FromOpAddress(), 0);
  EXPECT_EQ(copy->ListText()->ToOpType(), 0);
  EXPECT_EQ(copy->ListText()->ToOpAddress(), 0);
  EXPECT_EQ(copy->ListText()->StorageText(), "");
}

TEST_F(RowOfVariable, AReplicaOfADraggedVariableIsAtRestWhereThatWas) {
  const auto variable = Distinct();
  variable->ItfHmiElement::Move(3, 4);
  variable->ItfHmiElement::UpdateDisplayWithTransx();
  Stretch(*variable);
  const auto copy = variable->Replica();
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*copy, location), (Descriptor{12, 13, 140, 150})) << location;
  }
}

TEST_F(RowOfVariable, AReplicaIsGivenThroughTheContractAlike) {
  const auto variable = Distinct();
  variable->TransparencyLevel(4);
  const auto copy = std::dynamic_pointer_cast<clsVar>(static_cast<ItfHmiElement&>(*variable).Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, variable);
  test::ExpectAlike(*copy, *variable, {"ListText", "GetColOpPropertyBag"});
  EXPECT_EQ(automation::ToReference<clsVar>(InvokeByName(*variable, "Replica")).VarName(), "level");
}

TEST_F(RowOfVariable, AReplicaSharesTheOperandBags) {
  const auto variable = Distinct();
  const auto bags = variable->BuildOpPropBag();
  const auto copy = variable->Replica();
  const auto numberOf = [](clsVar& owner) -> clsVarNumeric& {
    return dynamic_cast<clsVarNumeric&>(*owner.BinaryHandlers(eVT_Numeric));
  };
  EXPECT_EQ(copy->GetColOpPropertyBag(), bags);
  EXPECT_EQ(numberOf(*copy).ColOpPropBag(), numberOf(*variable).ColOpPropBag());
  // With a row, where each address that the replica is given builds bags on the way.
  numberOf(*variable).UseEntryLimits(true);
  numberOf(*variable).EntryLimitMinOpType(1);
  variable->SaveToDB();
  variable->BuildOpPropBag();
  const auto own = variable->GetColOpPropertyBag(), ofHandler = numberOf(*variable).ColOpPropBag();
  const auto other = variable->Replica();
  EXPECT_EQ(other->GetColOpPropertyBag(), own);
  EXPECT_EQ(numberOf(*other).ColOpPropBag(), ofHandler);
  EXPECT_EQ(variable->GetColOpPropertyBag(), own);
  EXPECT_EQ(numberOf(*variable).ColOpPropBag(), ofHandler);
  ASSERT_NE(ofHandler, nullptr);
  EXPECT_GT(ofHandler->Count(), 0);
}

TEST_F(RowOfVariable, AReplicaHasACopyOfTheHandlerOfItsTypeAlone) {
  const auto variable = Distinct(eVT_ListText);
  const auto listOf = [](clsVar& owner) -> clsVarListText& {
    return dynamic_cast<clsVarListText&>(*owner.BinaryHandlers(eVT_ListText));
  };
  listOf(*variable).ListTexts(1)->Txt("list");
  variable->VarType(eVT_Numeric);
  const auto numberOf = [](clsVar& owner) -> clsVarNumeric& {
    return dynamic_cast<clsVarNumeric&>(*owner.BinaryHandlers(eVT_Numeric));
  };
  numberOf(*variable).Format("9.9");
  const auto copy = variable->Replica();
  EXPECT_NE(&numberOf(*copy), &numberOf(*variable));
  EXPECT_EQ(numberOf(*copy).Format(), "9.9");
  EXPECT_NE(&listOf(*copy), &listOf(*variable));
  EXPECT_EQ(listOf(*copy).ListTexts(1)->Txt(), "");
  EXPECT_EQ(listOf(*variable).ListTexts(1)->Txt(), "list");
}

TEST_F(RowOfVariable, TheHandlerIsAskedForItsReplica) {
  const auto variable = WithNotedHandler(eVT_Trend);
  dynamic_cast<test::HandlerInRow&>(*variable->BinaryHandlers(eVT_Trend)).data = {4, 5};
  TakeLog();
  const auto copy = variable->Replica();
  const CallLog log = TakeLog();
  EXPECT_EQ(log, (CallLog{"execute UPDATE ElementsAndImages SET TransparencyLevel=0 WHERE Element_ID=-1",
                          "handler.Replica"}));
  const auto handler = std::dynamic_pointer_cast<test::HandlerInRow>(copy->BinaryHandlers(eVT_Trend));
  ASSERT_NE(handler, nullptr);
  EXPECT_NE(handler, variable->BinaryHandlers(eVT_Trend));
  EXPECT_EQ(handler->data, (std::vector<Byte>{4, 5}));
  EXPECT_EQ(copy->OperandType(), 24);
}

TEST_F(RowOfVariable, AReplicaOfARaisedTextKeepsItsColours) {
  const auto variable = Distinct(eVT_ListText);
  const auto listOf = [](clsVar& owner) -> clsVarListText& {
    return dynamic_cast<clsVarListText&>(*owner.BinaryHandlers(eVT_ListText));
  };
  variable->Flat3D(1);
  const Long dark = DarkColor();
  listOf(*variable).ListTexts(1)->ColorBack(dark);
  EXPECT_EQ(listOf(*variable->Replica()).ListTexts(1)->ColorBack(), dark);
}

TEST_F(RowOfVariable, TheWritersOfAReplicaRunInThisOrder) {
  const auto variable = Distinct();
  variable->SaveToDB();
  Link(5, 0, 61, 1);
  Link(6, 0, 61, 1);
  variable->TransparencyLevel(4);
  Connection().Execute("UPDATE ElementsAndImages SET TransparencyLevel=2");
  const auto asked = std::make_shared<test::AskedStore>();
  Platform::Current().operands = asked;
  TakeLog();
  const auto copy = variable->Replica();
  // The row of the ID that it keeps is written again.
  EXPECT_EQ(TakeLog(),
            CallLog{"execute UPDATE ElementsAndImages SET TransparencyLevel=4 WHERE Element_ID=5"});
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages ORDER BY Element_ID", {"TransparencyLevel"}),
            (CallLog{"4", "2"}));
  // Each address that is written builds bags of what is there by then: touch, link, enabled, hide, highlight,
  // keypad success.
  CallLog seen;
  std::string line;
  for (const Long address : asked->asked) {
    if (address == 22 && !line.empty()) seen.push_back(std::exchange(line, ""));
    line += (line.empty() ? "" : " ") + std::to_string(address);
  }
  seen.push_back(line);
  // Repeats of an address are left out.
  EXPECT_EQ(seen,
            (CallLog{"22 0 -1", "22 0 28 -1", "22 0 28 23 -1", "22 0 28 23 29 -1", "22 0 28 23 29 30"}));
}

TEST_F(RowOfVariable, AReplicaOfAVariableWithoutARowBuildsNoBags) {
  const auto variable = Distinct();
  const auto asked = std::make_shared<test::AskedStore>();
  Platform::Current().operands = asked;
  variable->Replica();
  EXPECT_TRUE(asked->asked.empty());
}

TEST_F(RowOfVariable, WhatIsMissingCannotBeCopied) {
  const auto variable = Distinct();
  variable->VarType(eVT_Float);
  EXPECT_EQ(ErrorOf([&] { variable->Replica(); }), 91);
  variable->VarType(eVT_Numeric);
  variable->ListText(nullptr);
  EXPECT_EQ(ErrorOf([&] { variable->Replica(); }), 91);
  const auto unset = Distinct();
  unset->ColOpPropBag(nullptr);
  EXPECT_EQ(unset->Replica()->GetColOpPropertyBag(), nullptr);
}

// --- Several types together ---

TEST_F(RowOfVariable, VariablesOfAllTypesComeBackFromAReopenedProject) {
  constexpr enVarType kTypes[] = {eVT_BinaryText, eVT_ListText, eVT_Numeric,      eVT_BarGraph,
                                  eVT_RangeTexts, eVT_Password, eVT_DisplayString};
  std::vector<std::vector<Byte>> settings;
  std::vector<Long> keys;
  for (const enVarType type : kTypes) {
    const auto variable = Distinct(type);
    variable->StorageText(0);
    auto& handler = *variable->BinaryHandlers(type);
    if (auto* bar = dynamic_cast<clsVarBargraph*>(&handler)) {
      bar->MinOpType(1);
      bar->MaxOpAddress(52);
      bar->BargraphType(eBD_TopToBottom);
      bar->ColorFore(33);
    } else if (auto* number = dynamic_cast<clsVarNumeric*>(&handler)) {
      number->Format("9.99");
      number->Postfix("bar");
      number->ReSyncDrawingElementParams(1, 5);
    } else if (auto* string = dynamic_cast<clsVarDisplayString*>(&handler)) {
      string->StringPattern("pattern");
    } else {
      auto& texts = dynamic_cast<TextListHandler&>(handler);
      if (type != eVT_BinaryText) texts.AppendText();
      texts.ListTexts(2)->Txt("two");
      texts.ListTexts(2)->ColorBack(44);
      texts.ReSyncDrawingElementParams(1, 5);
    }
    EXPECT_TRUE(variable->SaveToDB());
    settings.push_back(handler.BinaryData());
    keys.push_back(variable->GetDataCRC());
  }
  Reopen();
  ASSERT_EQ(Elements().size(), std::size(kTypes));
  for (std::size_t place = 0; place < std::size(kTypes); ++place) {
    const auto loaded = Loaded(static_cast<Long>(5 + place));
    EXPECT_EQ(loaded->VarType(), kTypes[place]);
    EXPECT_EQ(loaded->BinaryHandlers(kTypes[place])->BinaryData(), settings[place]) << kTypes[place];
    EXPECT_EQ(loaded->GetDataCRC(), keys[place]) << kTypes[place];
    EXPECT_EQ(loaded->VarName(), "level");
    // Saved as they came, they stay the same.
    EXPECT_TRUE(loaded->SaveToDB());
    EXPECT_EQ(Loaded(static_cast<Long>(5 + place))->GetDataCRC(), keys[place]);
  }
}

}  // namespace
}  // namespace quenzel7
