/// The rows of buttons and of their pictures: what saving, loading and deleting ask of the project, in which
/// order, and what happens when one of these calls fails.
#include <gtest/gtest.h>

#include <algorithm>

#include "images/image_queries.h"
#include "tests/support/button_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ButtonPicture;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::GivePicture;
using test::Joined;
using test::kNewRow;
using test::kOldRow;
using test::OperandsIn;

constexpr Long kDatabaseError = static_cast<Long>(automation::ErrorNumber::Database);

class RowsOfButton : public test::SavedButton {
 protected:
  CallLog LogOfSaving(clsButton& button) {
    NotePictures();
    button.SaveToDB();
    return TakeLog();
  }
  CallLog LogOfDeleting(clsButton& button) {
    NotePictures();
    static_cast<ItfHmiElement&>(button).DeleteFromDB();
    return TakeLog();
  }

  std::shared_ptr<clsButton> Loaded(Long id) { return LoadedFrom<clsButton>(id); }

  /// A button in a new row with a picture that fits.
  std::shared_ptr<clsButton> SavedWithPicture(const ButtonPicture& picture = Fitting()) {
    auto button = Distinct();
    GivePicture(*button, picture);
    button->SaveToDB();
    TakeLog();
    return button;
  }
};

const CallLog kColumns = Joined({test::PutsOfHead("11"),
                                 {"put TouchOprndAddr=22:Long", "put EnabledOpAddr=28:Long",
                                  "put VisibleOpAddr=23:Long", "put HighlightOpAddr=29:Long"},
                                 test::kPutsOfStyle,
                                 {"put KeypadSuccessOpAddr=-1:Long"}});
const CallLog kLastColumns = {"put VarOprndType=24:Long", "put VarOprndAddr=25:Long"};

// --- Saving ---

TEST_F(RowsOfButton, ANewRowIsMadeInThisOrder) {
  const auto button = Distinct();
  EXPECT_EQ(LogOfSaving(*button),
            Joined({kNewRow,
                    kColumns,
                    {"put TabIndex=26:Byte"},
                    kLastColumns,
                    {"put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(button->ID(), 5);
  EXPECT_EQ(button->OrderIndex(), 1);
}

TEST_F(RowsOfButton, AnOldRowIsRewrittenInThisOrder) {
  const auto button = Distinct();
  button->SaveToDB();
  button->OrderIndex(30);
  EXPECT_EQ(LogOfSaving(*button),
            Joined({kOldRow,
                    kColumns,
                    {"put TabIndex=26:Byte"},
                    kLastColumns,
                    {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID"}), CallLog{"5 9"});
}

TEST_F(RowsOfButton, SavingGivesAndTakesThePlaceInTheTabOrder) {
  const CallLog next = {
      "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER BY "
      "TabIndex [3,1,1]",
      "Close"};
  const CallLog noKeypad = {"put VarKeyPadEntry=0:Integer"};
  const struct {
    Long touch, before, after;
    CallLog steps;
  } kCases[] = {{-1, 9, 255, noKeypad},
                {-1, 255, 255, noKeypad},
                {-2, 9, 0, Joined({noKeypad, next})},
                {0, 255, 0, next},
                {0, 9, 9, {}},
                {5, 255, 0, next},
                {5, 254, 254, {}},
                {5, 0, 0, {}}};
  for (const auto& [touch, before, after, steps] : kCases) {
    const auto button = Distinct();
    button->TouchOprndAddr(touch);
    button->TabIndex(before);
    const CallLog log = LogOfSaving(*button);
    const auto from = std::find(log.begin(), log.end(), "put KeypadSuccessOpAddr=-1:Long");
    const auto to = std::find(log.begin(), log.end(), kLastColumns.front());
    ASSERT_LT(from - log.begin(), to - log.begin());
    EXPECT_EQ(CallLog(from + 1, to), Joined({steps, {"put TabIndex=" + std::to_string(after) + ":Byte"}}))
        << touch << ' ' << before;
    EXPECT_EQ(button->TabIndex(), after);
    Connection().Execute("DELETE FROM HMI_Elements");
  }
  const auto button = Distinct();
  button->TabIndex(256);
  EXPECT_EQ(ErrorOf([&] { button->SaveToDB(); }), 6);
}

TEST_F(RowsOfButton, ThePictureIsSavedBehindTheRowAndBeforeTheHostHearsOfIt) {
  const auto button = Distinct();
  GivePicture(*button, Fitting());
  const CallLog log = LogOfSaving(*button);
  const auto row = std::find(log.begin(), log.end(), "get ID");
  EXPECT_EQ(CallLog(row, row + 3),
            (CallLog{"get ID", "Close",
                     "execute SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=61 AND "
                     "RecordStatus IN (3,2)"}));
  EXPECT_EQ(CallLog(log.end() - 2, log.end()), (CallLog{"element 5", "page 7"}));
  const auto link =
      std::find(log.begin(), log.end(),
                "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 AND Image_Index=0 [2,3,1]");
  ASSERT_NE(link, log.end());
  EXPECT_EQ(CallLog(link + 1, link + 8),
            (CallLog{"AddNew", "put Element_ID=5:Long", "put Image_Index=0:Long",
                     "put TransparencyLevel=0:Long", "put Image_CRC=61:Long", "Update", "Close"}));
  EXPECT_EQ(PictureRows(), CallLog{"61 3 140 150 140 150 62 C:\\pictures\\valve.bmp 0"});
  EXPECT_EQ(Links(), CallLog{"5 61 0 0"});
  EXPECT_EQ(GetImageData8bppByCRC(61), PixelBytes(140 * 150, 5));
  EXPECT_EQ(GetImageDataORGByCRC(61), PixelBytes(140 * 150, 6));
  // Nothing was made anew.
  for (const std::string& call : log) EXPECT_FALSE(call.starts_with("load")) << call;
}

TEST_F(RowsOfButton, APictureOfAnotherOwnSizeIsMadeAnewAtThatOfTheButton) {
  const struct {
    Long dxOrg, dyOrg;
    bool isMade;
  } kCases[] = {{140, 150, false}, {139, 150, true}, {141, 150, true}, {140, 149, true}, {140, 151, true}};
  for (const auto& [dxOrg, dyOrg, isMade] : kCases) {
    for (const Long bits : {0, 8, 16}) {
      const auto button = Distinct();
      ButtonPicture picture = Fitting();
      if (bits == 16) picture.data.assign(2 * 140 * 150, 5);
      picture.dxOrg = dxOrg;
      picture.dyOrg = dyOrg;
      picture.bits = bits;
      picture.level = 4;
      GivePicture(*button, picture);
      const CallLog log = LogOfSaving(*button);
      const auto load = std::find(log.begin(), log.end(), "load C:\\pictures\\valve.bmp 62, 140 x 150");
      EXPECT_EQ(load != log.end(), isMade) << dxOrg << ' ' << dyOrg;
      if (isMade) {
        EXPECT_EQ(*(load + 1), bits == 16 ? "convert 16, 140 x 150" : "convert, 140 x 150");
        EXPECT_EQ(*(load - 1), "Close");
      }
      const std::string crc = !isMade ? "61" : bits == 16 ? "106" : "90";
      const std::string ownSize = std::to_string(dxOrg) + " " + std::to_string(dyOrg);
      EXPECT_EQ(PictureRows(), CallLog{crc + " 3 140 150 " + ownSize + " 62 C:\\pictures\\valve.bmp " +
                                       (bits == 16 ? "16" : "0")});
      const Long id = button->ID();
      EXPECT_EQ(Links(), CallLog{std::to_string(id) + " " + crc + " 0 4"});
      EXPECT_EQ(std::to_string(button->Image().CRC8bpp()), crc);
      static_cast<ItfHmiElement&>(*button).DeleteFromDB();
    }
  }
}

TEST_F(RowsOfButton, ThePictureOfARaisedOneIsSavedWithoutTheFrame) {
  const auto button = Distinct();
  static_cast<ItfHmiElement&>(*button).Flat3D(Integer{1});
  GivePicture(*button, Fitting(132, 142));
  LogOfSaving(*button);
  EXPECT_EQ(PictureRows(), CallLog{"61 3 132 142 132 142 62 C:\\pictures\\valve.bmp 0"});
}

TEST_F(RowsOfButton, APaintedPictureIsSavedAndNoneIsNot) {
  const auto button = Distinct();
  ButtonPicture picture = Fitting();
  picture.crc = 0x3F3F3F3F;
  GivePicture(*button, picture);
  button->SaveToDB();
  EXPECT_EQ(Links(), CallLog{"5 1061109567 0 0"});
  Connection().Execute("DELETE FROM ElementsAndImages");
  picture.crc = -1;
  GivePicture(*button, picture);
  EXPECT_EQ(LogOfSaving(*button).back(), "element 5");
  EXPECT_TRUE(Links().empty());
}

TEST_F(RowsOfButton, APictureIsKeptWhateverItsKeyButForMinus1) {
  for (const Long crc : {-2, 0}) {
    ButtonPicture picture = Fitting();
    picture.crc = crc;
    picture.level = 4;
    const auto button = SavedWithPicture(picture);
    EXPECT_EQ(Links(), CallLog{std::to_string(button->ID()) + " " + std::to_string(crc) + " 0 4"});
    EXPECT_EQ(PictureRows(),
              CallLog{std::to_string(crc) + " 3 140 150 140 150 62 C:\\pictures\\valve.bmp 0"});
    const auto loaded = Loaded(button->ID());
    EXPECT_EQ(loaded->Image().CRC8bpp(), crc);
    EXPECT_EQ(loaded->Image().GetData8bpp(), picture.data);
    EXPECT_EQ(loaded->Image().TransparencyLevel(), 4);
    static_cast<ItfHmiElement&>(*button).DeleteFromDB();
  }
}

TEST_F(RowsOfButton, SavingAgainKeepsOneLinkAndSetsThePictureBeforeFree) {
  const auto button = SavedWithPicture();
  ButtonPicture other = Fitting();
  other.crc = 71;
  other.level = 2;
  GivePicture(*button, other);
  button->SaveToDB();
  EXPECT_EQ(Links(), CallLog{"5 71 0 2"});
  ASSERT_EQ(PictureRows().size(), 2u);
  EXPECT_TRUE(PictureRows()[1].starts_with("71 3 140 150")) << PictureRows()[1];
  EXPECT_FALSE(PictureRows()[0].starts_with("61 3")) << PictureRows()[0];
}

TEST_F(RowsOfButton, WritesPicturesInAProjectFromBeforeTheyToldTheirBits) {
  Connection().Execute("ALTER TABLE ProjectImages DROP COLUMN Bits");
  ButtonPicture picture = Fitting();
  picture.data.assign(2 * 140 * 150, 5);
  picture.bits = 16;
  const auto button = SavedWithPicture(picture);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC", "RecordStatus", "Dx", "Dy"}),
            CallLog{"61 3 140 150"});
  const auto loaded = Loaded(5);
  EXPECT_EQ(loaded->Image().CRC8bpp(), 61);
  EXPECT_EQ(loaded->Image().Bits(), 0);
}

// --- Loading ---

TEST_F(RowsOfButton, ComesBackFromAReopenedProject) {
  ButtonPicture picture = Fitting();
  picture.data.assign(2 * 140 * 150, 5);
  picture.bits = 16;
  picture.level = 7;
  const auto saved = SavedWithPicture(picture);
  Reopen();
  const auto loaded = Loaded(5);
  test::ExpectAlike(*loaded, *saved, {"ColOpPropBag"});
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*loaded, location), (Descriptor{12, 13, 140, 150})) << location;
  }
  EXPECT_EQ(loaded->EnabledOpAddr(), 28);
  EXPECT_EQ(loaded->VisibleOpAddr(), 23);
  EXPECT_EQ(loaded->HighlightOpAddr(), 29);
  EXPECT_EQ(loaded->Image().CRC8bpp(), 61);
  EXPECT_EQ(loaded->Image().GetData8bpp(), picture.data);
  EXPECT_EQ(loaded->Image().GetData8bppORG(), picture.dataOrg);
  EXPECT_EQ(loaded->Image().DxORG(), 140);
  EXPECT_EQ(loaded->Image().DyORG(), 150);
  EXPECT_EQ(loaded->Image().SourceCRC(), 62);
  EXPECT_EQ(loaded->Image().Path(), picture.path);
  EXPECT_EQ(loaded->Image().TransparencyLevel(), 7);
  EXPECT_EQ(loaded->Image().Bits(), 16);
  EXPECT_EQ(OperandsIn(loaded->ColOpPropBag()), (CallLog{"1 22", "1 28", "1 23", "1 29", "24 25"}));
}

const CallLog kColumnsRead = {"get ID",
                              "get GroupID",
                              "get Xs",
                              "get Ys",
                              "get Dx",
                              "get Dy",
                              "get ColorBack",
                              "get ColorFore",
                              "get ColorBackTouch",
                              "get ColorForeTouch",
                              "get Text",
                              "get FontNumber",
                              "get Alignment",
                              "get TouchOprndAddr",
                              "get EnabledOpAddr",
                              "get VisibleOpAddr",
                              "get HighlightOpAddr",
                              "get Flat3D",
                              "get TabIndex",
                              "get OrderIndex",
                              "get VarOprndType",
                              "get VarOprndAddr"};

TEST_F(RowsOfButton, ReadsItsColumnsInThisOrderAndThenLooksForAPicture) {
  Distinct()->SaveToDB();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  clsButton button;
  EXPECT_FALSE(static_cast<ItfHmiElement&>(button).LoadFromDB(*row));
  EXPECT_EQ(TakeLog(), Joined({kColumnsRead,
                               {"open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE "
                                "Element_ID=5 ORDER BY (Image_Index) [0,3,1]",
                                "Close"}}));
}

TEST_F(RowsOfButton, ReadsItsPictureInThisOrder) {
  SavedWithPicture();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  clsButton button;
  static_cast<ItfHmiElement&>(button).LoadFromDB(*row);
  CallLog log = TakeLog();
  std::erase_if(log, [](const std::string& call) { return !call.starts_with("open"); });
  const auto picture = [](const std::string& columns, const std::string& end = "") {
    return "open SELECT " + columns + " FROM ProjectImages WHERE CRC=61" + end + " [0,3,1]";
  };
  EXPECT_EQ(
      log,
      (CallLog{"open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=5 ORDER BY "
               "(Image_Index) [0,3,1]",
               picture("CRC,Data8bpp"), picture("CRC,Data8bppORG"),
               picture("CRC,DxORG,DyORG", " AND RecordStatus=3"), picture("LibCRC"), picture("ImagePath"),
               "open SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=5 AND "
               "Image_Index=0 [0,3,1]",
               picture("CRC,[Bits]")}));
}

TEST_F(RowsOfButton, OfSeveralPicturesTheFirstByItsIndexIsItsOwn) {
  SavedWithPicture();
  Connection().Execute("UPDATE ElementsAndImages SET Image_Index=3");
  Connection().Execute(
      "INSERT INTO ElementsAndImages (Element_ID,Image_CRC,Image_Index,TransparencyLevel) VALUES (5,80,1,6)");
  EXPECT_EQ(Loaded(5)->Image().CRC8bpp(), 80);
  EXPECT_EQ(Loaded(5)->Image().TransparencyLevel(), 0);
  EXPECT_EQ(Loaded(5)->Image().DxORG(), -1);
}

TEST_F(RowsOfButton, ARowWithoutAPictureLeavesTheOneThatIsThere) {
  Distinct()->SaveToDB();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  clsButton button;
  ButtonPicture picture;
  picture.level = 3;
  GivePicture(button, picture);
  static_cast<ItfHmiElement&>(button).LoadFromDB(*row);
  EXPECT_EQ(button.Image().CRC8bpp(), 61);
  EXPECT_EQ(button.Image().TransparencyLevel(), 3);
}

TEST_F(RowsOfButton, TakesTextAndFontOfTheLibrarysStringBeforeItFitsThem) {
  test::HeldStrings& strings = *services_.strings;
  strings.languages = 2;
  strings.texts = {{{70, 1}, {"abc", 1}}, {{70, 2}, {"abcdef", 9}}};
  const struct {
    Long type, id;
    const char* text;
    Long font;
  } kCases[] = {{0, 70, "abcdef", 9}, {0, -1, "one\r\ntwo", 5}, {24, 70, "one\r\ntwo", 5}};
  for (const auto& [type, id, text, font] : kCases) {
    const auto button = Distinct();
    button->StorageStringType(type);
    button->StorageStringID(id);
    button->SaveToDB();
    const auto loaded = Loaded(button->ID());
    EXPECT_EQ(loaded->Txt(), text) << type << ' ' << id;
    EXPECT_EQ(loaded->FontNumber(), font) << type << ' ' << id;
    EXPECT_EQ(services_.ShownBy(*loaded), type == 0 && id == 70 ? "abcdef"
                                          : type == 24          ? "one\r\ntwo"
                                                                : "one|two");
  }
}

TEST_F(RowsOfButton, TheLibrarysStringIsReadBeforeThePictureAndFittedBehindIt) {
  services_.strings->languages = 1;
  services_.strings->texts = {{{70, 1}, {"abc", 1}}};
  const auto saved = Distinct();
  saved->StorageStringType(0);
  saved->StorageStringID(70);
  GivePicture(*saved, Fitting());
  saved->SaveToDB();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  clsButton button;
  NoteServices();
  TakeLog();
  static_cast<ItfHmiElement&>(button).LoadFromDB(*row);
  const CallLog log = TakeLog();
  services_.NoteInto(nullptr);
  const auto placeOf = [&log](const std::string& call) {
    return std::find(log.begin(), log.end(), call) - log.begin();
  };
  EXPECT_LT(placeOf("get VarOprndAddr"), placeOf("string 70"));
  EXPECT_LT(placeOf("string 70"), placeOf("open SELECT Image_CRC,Image_Index FROM ElementsAndImages WHERE "
                                          "Element_ID=5 ORDER BY (Image_Index) [0,3,1]"));
  EXPECT_EQ(CallLog(log.end() - 3, log.end()), (CallLog{"Close", "height of font 1", "widths of font 1"}));
}

TEST_F(RowsOfButton, EveryColumnThatIsReadMayNotBeNull) {
  Distinct()->SaveToDB();
  for (const std::string& read : kColumnsRead) {
    const std::string column = read.substr(4);
    if (column == "ID") continue;
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=NULL");
    const test::Raised raised = test::RaisedBy([&] { Loaded(5); });
    EXPECT_EQ(raised.number, 94) << column;
    EXPECT_TRUE(raised.description.starts_with("column '" + column + "' of HMI_Elements: ")) << raised;
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=1");
  }
}

// --- Deletion ---

TEST_F(RowsOfButton, TheRowGoesThenTheOperandsThenThePictures) {
  const auto button = SavedWithPicture();
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
  const CallLog log = LogOfDeleting(*button);
  const CallLog first = {"execute SELECT * FROM HMI_Elements WHERE ID=5",
                         "get Guid",
                         "Close",
                         "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                         "execute DELETE * FROM HMI_Elements WHERE ID=5",
                         "execute DELETE * FROM HMI_Operands WHERE ElementID=5",
                         "remove operand 22",
                         "remove operand 28",
                         "remove operand 23",
                         "remove operand 29",
                         "remove operand 25",
                         "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 [0,3,1]"};
  ASSERT_GT(log.size(), first.size());
  EXPECT_EQ(CallLog(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(first.size())), first);
  EXPECT_EQ(log.back(), "page 7");
  EXPECT_TRUE(Elements().empty());
  EXPECT_TRUE(Links().empty());
  EXPECT_TRUE(PictureRows().empty());
}

// --- A project that fails at each step ---

TEST_F(RowsOfButton, ANewOneWhoseSavingFailsHasOnlyDoneWhatCameBefore) {
  const auto make = [] {
    auto button = Distinct();
    button->TabIndex(255);
    GivePicture(*button, Fitting());
    return button;
  };
  const auto whole = make();
  const CallLog calls = LogOfSaving(*whole);
  static_cast<ItfHmiElement&>(*whole).DeleteFromDB();
  const auto placeOf = [&calls](const std::string& call) {
    return static_cast<int>(std::find(calls.begin(), calls.end(), call) - calls.begin());
  };
  const int rowWritten = placeOf("Update"), idRead = placeOf("get ID");
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    const auto button = make();
    TakeLog();
    Changes().Clear();
    Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { button->SaveToDB(); }), kDatabaseError) << step;
    Recorder().FailAt(0);
    EXPECT_EQ(TakeLog().size(), static_cast<std::size_t>(step) + 1) << step;
    EXPECT_EQ(Elements().size(), step > rowWritten ? 1u : 0u) << step;
    EXPECT_EQ(button->ID() != -1, step > idRead) << step;
    EXPECT_EQ(Changes().ChangedElements().empty(), step < static_cast<int>(calls.size()) - 1) << step;
    EXPECT_TRUE(Changes().ChangedPages().empty()) << step;
    for (const char* table : {"HMI_Elements", "ProjectImages", "ElementsAndImages"}) {
      Connection().Execute(std::string("DELETE FROM ") + table);
    }
  }
}

TEST_F(RowsOfButton, ADeletionThatFailsHasOnlyDoneWhatCameBefore) {
  const auto first = SavedWithPicture();
  const CallLog calls = LogOfDeleting(*first);
  const auto placeOf = [&calls](const std::string& beginning) {
    return static_cast<int>(
        std::find_if(calls.begin(), calls.end(),
                     [&](const std::string& call) { return call.starts_with(beginning); }) -
        calls.begin());
  };
  const int row = placeOf("execute DELETE * FROM HMI_Elements");
  const int links = placeOf("execute DELETE * FROM ElementsAndImages");
  ASSERT_LT(row, links);
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    const auto button = SavedWithPicture();
    Changes().Clear();
    Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*button).DeleteFromDB(); }), kDatabaseError) << step;
    Recorder().FailAt(0);
    TakeLog();
    EXPECT_EQ(Elements().empty(), step > row) << step;
    EXPECT_EQ(Links().empty(), step > links) << step;
    EXPECT_TRUE(Changes().ChangedPages().empty()) << step;
    for (const char* table : {"HMI_Elements", "ProjectImages", "ElementsAndImages"}) {
      Connection().Execute(std::string("DELETE FROM ") + table);
    }
  }
}

TEST_F(RowsOfButton, LoadingThatFailsAtAnyCallHasOnlyReadWhatCameBefore) {
  ButtonPicture picture = Fitting();
  picture.level = 4;
  picture.bits = 8;
  SavedWithPicture(picture);
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  {
    clsButton whole;
    static_cast<ItfHmiElement&>(whole).LoadFromDB(*row);
  }
  const CallLog calls = TakeLog();
  const auto readBy = [&](const std::string& call, int nth = 1) {
    int place = -1;
    for (; nth > 0; --nth) {
      place = static_cast<int>(std::find(calls.begin() + place + 1, calls.end(), call) - calls.begin());
    }
    return place;
  };
  // Each question about the picture ends with a call of its own.
  std::vector<int> answered;
  for (std::size_t call = 0; call < calls.size(); ++call) {
    if (calls[call] == "Close") answered.push_back(static_cast<int>(call));
  }
  ASSERT_EQ(answered.size(), 8u);
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    clsButton button;
    Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(button).LoadFromDB(*row); }), kDatabaseError) << step;
    Recorder().FailAt(0);
    EXPECT_EQ(button.EnabledOpAddr(), step > readBy("get EnabledOpAddr") ? 28 : -1) << step;
    EXPECT_EQ(button.HighlightOpAddr(), step > readBy("get HighlightOpAddr") ? 29 : -1) << step;
    EXPECT_EQ(button.ColOpPropBag()->Count(), step > readBy("get VarOprndAddr") ? 5 : 0) << step;
    const clsVarImageElement& image = button.Image();
    EXPECT_EQ(image.CRC8bpp(), step > answered[0] ? 61 : -1) << step;
    EXPECT_EQ(image.GetData8bpp().empty(), step <= answered[1]) << step;
    EXPECT_EQ(image.GetData8bppORG().empty(), step <= answered[2]) << step;
    EXPECT_EQ(image.DxORG(), step > answered[3] ? 140 : 0) << step;
    EXPECT_EQ(image.DyORG(), step > answered[3] ? 150 : 0) << step;
    EXPECT_EQ(image.SourceCRC(), step > answered[4] ? 62 : -1) << step;
    EXPECT_EQ(image.Path(), step > answered[5] ? "C:\\pictures\\valve.bmp" : "") << step;
    EXPECT_EQ(image.TransparencyLevel(), step > answered[6] ? 4 : 0) << step;
    EXPECT_EQ(image.Bits(), 0) << step;
  }
  TakeLog();
}

}  // namespace
}  // namespace quenzel7
