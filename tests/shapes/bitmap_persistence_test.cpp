/// Bitmaps in the project: what saving, loading and deleting ask of it, in which order, and what is in the
/// project afterwards.
#include <gtest/gtest.h>

#include <algorithm>

#include "images/image_compression.h"
#include "platform/automation/call_by_name.h"
#include "shapes/bitmap.h"
#include "tests/support/logging_services.h"
#include "tests/support/picture_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::Joined;
using test::kNewRow;
using test::kOldRow;
using test::PictureSample;

constexpr Long kDatabaseError = static_cast<Long>(automation::ErrorNumber::Database);

/// A sample in which no two numbers are alike.
PictureSample DistinctPicture() {
  PictureSample sample;
  sample.index = 0;
  sample.transparency = 4;
  return sample;
}

class SavedBitmap : public test::PictureTest<clsBitmap> {
 protected:
  static std::shared_ptr<clsBitmap> Distinct(const PictureSample& sample = DistinctPicture()) {
    auto bitmap = std::make_shared<clsBitmap>();
    test::Give(*bitmap, sample);
    bitmap->GroupID(11);
    bitmap->Xs(12);
    bitmap->Ys(13);
    bitmap->Dx(14);
    bitmap->Dy(15);
    bitmap->ColorBack(16);
    bitmap->ColorBackTouch(18);
    bitmap->TouchOprndAddr(22);
    bitmap->VisibleOpAddr(23);
    bitmap->OrderIndex(24);
    bitmap->ColOpPropBag(bitmap->BuildOpPropBag());
    return bitmap;
  }

  CallLog LogOfSaving(clsBitmap& bitmap) {
    TakeLog();
    EXPECT_TRUE(bitmap.SaveToDB());
    return TakeLog();
  }

  PixelBytes PixelsIn(const std::string& column, Long crc = 401) {
    const auto row = Connection().Execute("SELECT * FROM ProjectImages WHERE CRC=" + std::to_string(crc));
    return UnCompressData(automation::To<PixelBytes>(row->Get(column)));
  }
  /// The system pictures: number, CRC, size, state.
  std::vector<std::string> SystemPictures() {
    return Rows("SELECT * FROM ProjectImages ORDER BY \"Index\"",
                {"Index", "CRC", "Dx", "Dy", "RecordStatus"});
  }
};

// --- Saving ---

/// Links of a new element that were left behind.
const CallLog kRelease = {
    "open SELECT * FROM ElementsAndImages WHERE Element_ID=-1 [0,3,1]",
    "Close",
    "execute DELETE * FROM ElementsAndImages WHERE Element_ID=-1",
    "open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
    "get MaxIndex",
    "Close",
};
const CallLog kColumns = {
    "put Type=3:Long",
    "put Xs=12:Long",
    "put Ys=13:Long",
    "put Dx=14:Long",
    "put Dy=15:Long",
    "put DisplayID=7:Long",
    "put GroupID=11:Long",
    "put ColorBack=16:Long",
    "put ColorBackTouch=18:Long",
    "put ColorFore=0:Long",
    "put ColorForeTouch=0:Long",
    "put ColorHatch=0:Long",
    "put PenStyle=0:Long",
    "put PenWidth=0:Long",
    "put HatchStyle=0:Long",
    "put TouchOprndAddr=22:Long",
    "put VisibleOpAddr=23:Long",
    "put FontNumber=0:Integer",
    "put DescriptionFontNumber=0:Integer",
    "put Alignment=0:Integer",
    "put Flat3D=0:Integer",
    "put VarType=0:Integer",
    "put VarKeyPadEntry=-1:Integer",
    "put VarOprndType=-1:Integer",
    "put VarOprndAddr=-1:Integer",
    "put KeypadSuccessOpAddr=-1:Long",
    "put EnabledOpAddr=-1:Long",
    "put HighlightOpAddr=-1:Long",
    "put GlobalVarID=0:Integer",
    "put DefaultDisplay=0:Integer",
    "put TabIndex=255:Byte",
};
const CallLog kPictureColumns = {
    "put Dx=3:Long",
    "put Dy=2:Long",
    "put Data8bpp=Array",
    "put LibCRC=402:Long",
    "put DxORG=6:Long",
    "put DyORG=1:Long",
    "put Data8bppORG=Array",
    "put ImagePath=pumps\\one.bmp:String",
    "put RecordStatus=3:Long",
    "put Bits=8:Long",
    "Update",
    "Close",
};
const CallLog kCount = {
    "execute SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=401 AND RecordStatus IN (3,2)",
    "get NumberOfImages",
    "Close",
};
const std::string kOpenLink =
    "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 AND Image_Index=0 [3,3,1]";
const CallLog kLinkColumns = {"put Image_CRC=401:Long",
                              "put TransparencyLevel=4:Long",
                              "put Element_ID=5:Long",
                              "put Image_Index=0:Long",
                              "Update",
                              "Close"};
const CallLog kOrphans = {
    "open SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
    "ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages) [2,3,1]",
    "Close"};

TEST_F(SavedBitmap, ANewRowIsMadeInThisOrder) {
  const auto bitmap = Distinct();
  const CallLog log = LogOfSaving(*bitmap);
  EXPECT_EQ(log, Joined({kNewRow,
                         kRelease,
                         kColumns,
                         {"put OrderIndex=1:Long", "Update", "get ID", "Close"},
                         kCount,
                         {"open SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY Index [2,3,1]",
                          "AddNew", "put CRC=401:Long"},
                         kPictureColumns,
                         {kOpenLink, "AddNew"},
                         kLinkColumns,
                         kOrphans,
                         {"element 5", "page 7"}}));
  EXPECT_EQ(bitmap->ID(), 5);
  EXPECT_EQ(bitmap->OrderIndex(), 1);
  EXPECT_EQ(Pictures(), std::vector<std::string>{"1 401 402 3 2 6 1 pumps\\one.bmp 3 8"});
  EXPECT_EQ(Links(), std::vector<std::string>{"5 0 4 401"});
  EXPECT_EQ(PixelsIn("Data8bpp"), DistinctPicture().data);
  EXPECT_EQ(PixelsIn("Data8bppORG"), DistinctPicture().dataOrg);
}

TEST_F(SavedBitmap, AnExistingRowIsRewrittenInThisOrder) {
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  bitmap->OrderIndex(30);
  EXPECT_EQ(LogOfSaving(*bitmap),
            Joined({kOldRow,
                    kColumns,
                    {"put OrderIndex=30:Long", "Update", "get ID", "Close"},
                    kCount,
                    {"open SELECT * FROM ProjectImages WHERE CRC=401 AND RecordStatus IN (3,2) [2,3,1]"},
                    kPictureColumns,
                    {kOpenLink},
                    kLinkColumns,
                    kOrphans,
                    {"element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"GUID", "OrderIndex"}), std::vector<std::string>{"9 30"});
  EXPECT_EQ(Pictures().size(), 1u);
  EXPECT_EQ(Links().size(), 1u);
}

TEST_F(SavedBitmap, SavesItsPlaceAtRest) {
  const auto bitmap = Distinct();
  bitmap->Move(100, 200);
  bitmap->SaveLastLegalPosition();
  bitmap->UpdateDisplayWithTransx();
  bitmap->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys", "Dx", "Dy"}),
            std::vector<std::string>{"12 13 14 15"});
}

TEST_F(SavedBitmap, LinksThatWereLeftUnderNoElementGoWithANewOneAlone) {
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (-1,0,0,777)");
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  EXPECT_EQ(Links(), std::vector<std::string>{"5 0 4 401"});
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (-1,0,0,777)");
  bitmap->SaveToDB();
  EXPECT_EQ(Links().size(), 2u);
}

TEST_F(SavedBitmap, ItsLinkHasThePlaceOfThePicture) {
  PictureSample sample = DistinctPicture();
  sample.index = 3;
  Distinct(sample)->SaveToDB();
  EXPECT_EQ(Links(), std::vector<std::string>{"5 3 4 401"});
}

TEST_F(SavedBitmap, AnotherPictureSetsTheFormerFree) {
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  PictureSample other = DistinctPicture();
  other.crc = 501;
  test::Give(*bitmap, other);
  bitmap->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages ORDER BY \"Index\"", {"Index", "CRC", "RecordStatus"}),
            (std::vector<std::string>{"1 401 2", "2 501 3"}));
  EXPECT_EQ(Links(), std::vector<std::string>{"5 0 4 501"});
}

TEST_F(SavedBitmap, BothFacesOfSaveToDBSave) {
  const auto bitmap = Distinct();
  EXPECT_EQ(automation::InvokeByName(*bitmap, "SaveToDB"), automation::Variant(true));
  EXPECT_EQ(automation::InvokeByName(*bitmap, ItfHmiElement::InterfaceOf(), "SaveToDB"),
            automation::Variant());
  EXPECT_EQ(Elements(), std::vector<std::string>{"5"});
}

TEST_F(SavedBitmap, OfPixelsOfTheWrongLengthIsRepairedAndLogged) {
  PictureSample sample = DistinctPicture();
  sample.dxOrg = 2;
  sample.dataOrg = {3, 5};
  for (const PixelBytes& pixels : {PixelBytes{}, PixelBytes{1, 2, 3, 4, 5, 6, 7}, PixelBytes(9)}) {
    Errors().Clear();
    sample.data = pixels;
    const auto bitmap = Distinct(sample);
    bitmap->SaveToDB();
    // The original pixels, two by one, at three by two.
    const PixelBytes repaired = static_cast<ItfImage&>(*bitmap).GetImageData8bpp();
    ASSERT_EQ(repaired.size(), 8u);
    EXPECT_EQ(repaired[0], 3);
    EXPECT_EQ(repaired[2], 5);
    EXPECT_EQ(repaired[6], 5);
    EXPECT_EQ(PixelsIn("Data8bpp"), repaired);
    EXPECT_EQ(bitmap->ImageCRC(), 401);
    ASSERT_EQ(Errors().Reports().size(), 1u);
    const corvane1::ErrorReport expected{"Corrupted Image",
                                         static_cast<Long>(0x80040257),
                                         "Corrupted image data from file: pumps\\one.bmp",
                                         "Quenzel7.dll",
                                         "clsBitmap",
                                         "prvAddImageToProject",
                                         48};
    EXPECT_EQ(Errors().Reports().front(), expected);
  }
}

TEST_F(SavedBitmap, WithAnIdThatHasNoRowIsAnError) {
  const auto bitmap = Distinct();
  bitmap->ID(70);
  EXPECT_EQ(ErrorOf([&] { bitmap->SaveToDB(); }), 3021);
  EXPECT_TRUE(Pictures().empty());
}

// --- Loading ---

TEST_F(SavedBitmap, LoadsInThisOrder) {
  Distinct()->SaveToDB();
  TakeLog();
  LoadedFrom<clsBitmap>(5);
  const std::string image = "open SELECT ";
  EXPECT_EQ(
      TakeLog(),
      (CallLog{
          "open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]", "get ID", "get GroupID", "get Xs", "get Ys",
          "get Dx", "get Dy", "get Dx", "get Dy", "get TouchOprndAddr", "get VisibleOpAddr",
          image + "Image_CRC,Image_Index FROM ElementsAndImages WHERE Element_ID=5 ORDER BY "
                  "(Image_Index) [0,3,1]",
          "get Image_CRC", "Close", image + "* FROM ProjectImages WHERE CRC=401 AND RecordStatus=3 [0,3,1]",
          "get Data8bpp", "get Dx", "get Dy", "Close",
          image + "CRC,[Bits] FROM ProjectImages WHERE CRC=401 [0,3,1]", "get Bits", "get Bits", "Close",
          image + "CRC,Data8bpp FROM ProjectImages WHERE CRC=401 [0,3,1]", "get Data8bpp", "Close",
          image + "CRC,Data8bppORG FROM ProjectImages WHERE CRC=401 [0,3,1]", "get Data8bppORG", "Close",
          image + "CRC,DxORG,DyORG FROM ProjectImages WHERE CRC=401 AND RecordStatus=3 [0,3,1]", "get DxORG",
          "get DyORG", "Close", image + "LibCRC FROM ProjectImages WHERE CRC=401 [0,3,1]", "get LibCRC",
          "Close", image + "ImagePath FROM ProjectImages WHERE CRC=401 [0,3,1]", "get ImagePath", "Close",
          image + "TransparencyLevel FROM ElementsAndImages WHERE Element_ID=5 AND Image_Index=0 "
                  "[0,3,1]",
          "get TransparencyLevel", "Close", "get ColorBack", "get ColorBackTouch", "get OrderIndex",
          image + "CRC,[Bits] FROM ProjectImages WHERE CRC=401 [0,3,1]", "get Bits", "get Bits", "Close",
          // The fixture's look at the row afterwards.
          "get ID"}));
}

TEST_F(SavedBitmap, ComesBackFromAReopenedProject) {
  PictureSample two = test::TwoByteSample();
  two.transparency = 4;
  for (const PictureSample& sample : {DistinctPicture(), two}) {
    const auto saved = Distinct(sample);
    saved->SaveToDB();
    Reopen();
    const auto loaded = LoadedFrom<clsBitmap>(saved->ID());
    EXPECT_EQ(loaded->ColorBack(), 16);
    test::ExpectAlike(*loaded, *saved, {"ReplicaForDraw", "ColOpPropBag"});
    EXPECT_EQ(loaded->ColorBack(), 18);
    const automation::Interface& image = ItfImage::InterfaceOf<clsBitmap>();
    for (const automation::Member& member : image.Members()) {
      if (member.get) {
        EXPECT_EQ(member.get(*loaded), member.get(*saved)) << member.name;
      }
    }
    EXPECT_EQ(static_cast<ItfImage&>(*loaded).GetImageData8bpp(), sample.data);
    EXPECT_EQ(loaded->Bits(), sample.bits);
    EXPECT_EQ(loaded->TransparencyLevel(), 4);
    Descriptor natural;
    loaded->GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
    EXPECT_EQ(natural, (Descriptor{12, 13, 6, 1}));
    for (Long location = 1; location <= 4; ++location) {
      EXPECT_EQ(DescriptorOf(*loaded, location), (Descriptor{12, 13, 14, 15})) << location;
    }
    ASSERT_EQ(loaded->ColOpPropBag()->Count(), 2);
    EXPECT_EQ(AddressInBag(*loaded, 1), 22);
    EXPECT_EQ(AddressInBag(*loaded, 2), 23);
    // The original pixels are what a repair shows.
    static_cast<ItfImage&>(*loaded).SetImageData8bpp({});
    loaded->SaveToDB();
    Connection().Execute("DELETE FROM ProjectImages");
    Connection().Execute("DELETE FROM ElementsAndImages");
    EXPECT_EQ(static_cast<ItfImage&>(*loaded).GetImageData8bpp().size(), sample.data.size());
  }
}

TEST_F(SavedBitmap, WithoutALinkIsWithoutAPictureAndOfTheSizeOfItsElement) {
  const auto saved = Distinct();
  saved->SaveToDB();
  Connection().Execute("DELETE FROM ElementsAndImages");
  const auto loaded = LoadedFrom<clsBitmap>(5);
  const ItfImage& image = *loaded;
  EXPECT_EQ(loaded->ImageCRC(), -1);
  EXPECT_TRUE(image.GetImageData8bpp().empty());
  EXPECT_EQ(image.Dx(), 14);
  EXPECT_EQ(image.Dy(), 15);
  EXPECT_EQ(image.ImageLibCRC(), -1);
  EXPECT_EQ(image.ImagePath(), "");
  EXPECT_EQ(loaded->Bits(), 0);
  EXPECT_EQ(loaded->TransparencyLevel(), 0);
  Descriptor natural;
  loaded->GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  EXPECT_EQ(natural, (Descriptor{12, 13, -1, -1}));
}

TEST_F(SavedBitmap, LoadsThePictureOfTheLowestPlaceAndTheTransparencyOfPlace0) {
  Distinct()->SaveToDB();
  Connection().Execute("UPDATE ElementsAndImages SET Image_Index=2, TransparencyLevel=6");
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (5,3,8,777)");
  EXPECT_EQ(LoadedFrom<clsBitmap>(5)->ImageCRC(), 401);
  EXPECT_EQ(LoadedFrom<clsBitmap>(5)->TransparencyLevel(), 0);
}

TEST_F(SavedBitmap, PixelsThatCannotBeDecompressedAreNoneAndToldOf) {
  Distinct()->SaveToDB();
  Connection().Execute("UPDATE ProjectImages SET Data8bpp=X'00112233'");
  const auto loaded = LoadedFrom<clsBitmap>(5);
  EXPECT_TRUE(static_cast<ItfImage&>(*loaded).GetImageData8bpp().empty());
  // Through the writer of the CRC, and once more.
  ASSERT_EQ(Boxes().Shown().size(), 2u);
  EXPECT_EQ(Boxes().Shown()[0].text, "Failed to UnCompress Data");
  EXPECT_EQ(loaded->ImageCRC(), 401);
  EXPECT_EQ(static_cast<ItfImage&>(*loaded).ImagePath(), "pumps\\one.bmp");
}

TEST_F(SavedBitmap, ANullInAnyColumnThatItReadsIsAnErrorThatNamesIt) {
  Distinct()->SaveToDB();
  for (const std::string column : {"GroupID", "Xs", "Ys", "Dx", "Dy", "TouchOprndAddr", "VisibleOpAddr",
                                   "ColorBack", "ColorBackTouch", "OrderIndex"}) {
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=NULL");
    EXPECT_RAISES(94, "column '" + column + "' of HMI_Elements: invalid use of Null: a number was expected",
                  LoadedFrom<clsBitmap>(5));
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=1");
  }
}

// --- Deleting ---

TEST_F(SavedBitmap, IsDeletedInThisOrder) {
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  bitmap->RestoreAllOperands();
  bitmap->hBmp(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (9)");
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (10)");
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  bitmap->DeleteFromDB();
  const CallLog log = TakeLog();
  const CallLog expected = {
      "execute SELECT * FROM HMI_Elements WHERE ID=5",
      "get Guid",
      "Close",
      "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
      "execute DELETE * FROM HMI_Operands WHERE ElementID=5",
      "remove operand 22",
      "remove operand 23",
      "execute DELETE * FROM HMI_Elements WHERE ID=5",
      "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 [0,3,1]",
      "get Image_CRC",
      "Close",
      "execute DELETE * FROM ElementsAndImages WHERE Element_ID=5",
      "execute SELECT COUNT(*) AS NumOfImages FROM ElementsAndImages WHERE Image_CRC=401",
      "get NumOfImages",
      "Close",
      "execute SELECT COUNT(*) AS NumOfImages FROM PagesAndImages WHERE Image_CRC=401",
      "get NumOfImages",
      "Close",
      "execute UPDATE ProjectImages SET LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,DyORG=0,"
      "Data8bppORG=NULL,RecordStatus=2 WHERE CRC=401 AND RecordStatus=3",
      "open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
      "get MaxIndex",
      "get MaxIndex",
      "execute DELETE * FROM ProjectImages WHERE Index=1 AND RecordStatus=2",
      "Close",
      "open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
      "get MaxIndex",
      "Close",
      "page 7"};
  EXPECT_EQ(log, expected);
  EXPECT_EQ(bitmap->hBmp(), 0);
  EXPECT_TRUE(Elements().empty());
  EXPECT_TRUE(Pictures().empty());
  EXPECT_TRUE(Links().empty());
  EXPECT_TRUE(OperandRows().empty());
  EXPECT_EQ(Rows("SELECT * FROM DownloadDLUs", {"GUID"}), std::vector<std::string>{"10"});
  // The object keeps its fields.
  EXPECT_EQ(bitmap->ID(), 5);
  EXPECT_EQ(bitmap->ImageCRC(), 401);
}

TEST_F(SavedBitmap, HasNoBitmapAnyMoreWhenItsPicturesCannotBeReleased) {
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  bitmap->hBmp(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
  TakeLog();
  Recorder().FailAt(7);
  EXPECT_EQ(ErrorOf([&] { bitmap->DeleteFromDB(); }), kDatabaseError);
  EXPECT_EQ(TakeLog().back(), "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 [0,3,1]");
  EXPECT_EQ(bitmap->hBmp(), 0);
  EXPECT_TRUE(Elements().empty());
}

TEST_F(SavedBitmap, TwoShareOnePictureUntilTheLastGoes) {
  const auto first = Distinct(), second = Distinct();
  first->SaveToDB();
  second->SaveToDB();
  EXPECT_EQ(Pictures().size(), 1u);
  first->DeleteFromDB();
  EXPECT_EQ(Pictures(), std::vector<std::string>{"1 401 402 3 2 6 1 pumps\\one.bmp 3 8"});
  EXPECT_EQ(Links(), std::vector<std::string>{"6 0 4 401"});
  second->DeleteFromDB();
  EXPECT_TRUE(Pictures().empty());
}

TEST_F(SavedBitmap, AnUndoneDeletionBringsOperandsRowAndPictureBack) {
  const auto bitmap = Distinct();
  bitmap->SaveToDB();
  bitmap->RestoreAllOperands();
  bitmap->DeleteFromDB();
  bitmap->ID(-1);
  bitmap->SaveToDB();
  bitmap->RestoreAllOperands();
  EXPECT_EQ(Elements(), std::vector<std::string>{"6"});
  EXPECT_EQ(Links(), std::vector<std::string>{"6 0 4 401"});
  // The database gives no number twice.
  EXPECT_EQ(Pictures(), std::vector<std::string>{"2 401 402 3 2 6 1 pumps\\one.bmp 3 8"});
  const auto rows = OperandRows();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].substr(0, 2), "6 ");
  EXPECT_TRUE(IsDefined(22));
  EXPECT_TRUE(IsDefined(23));
  Reopen();
  EXPECT_EQ(LoadedFrom<clsBitmap>(6)->ImageCRC(), 401);
}

// --- Failures ---

/// Runs an action with each of its calls of the database failing in turn, then without; gives how many calls
/// it has. `ready` makes things ready before each.
template <class Ready, class Action>
int FailingAtEachCall(test::RecordingConnection& recorder, Ready ready, Action action) {
  for (int call = 1; call < 200; ++call) {
    ready();
    recorder.Take();
    recorder.FailAt(call);
    const Long error = ErrorOf(action);
    recorder.FailAt(0);
    if (error == 0) return call - 1;
    EXPECT_EQ(error, kDatabaseError) << call;
    // Some find out why before they tell of it.
    EXPECT_GE(recorder.Take().size(), static_cast<std::size_t>(call));
  }
  ADD_FAILURE() << "there is no end of it";
  return 0;
}

TEST_F(SavedBitmap, ACallThatFailsEndsASaveWhichSucceedsWhenItIsRepeated) {
  std::shared_ptr<clsBitmap> bitmap;
  const std::size_t all = LogOfSaving(*Distinct()).size();
  const int calls = FailingAtEachCall(
      Recorder(),
      [&] {
        for (const char* table : {"HMI_Elements", "ProjectImages", "ElementsAndImages"}) {
          Connection().Execute(std::string("DELETE FROM ") + table);
        }
        bitmap = Distinct();
      },
      [&] {
        try {
          bitmap->SaveToDB();
        } catch (const automation::AutomationError&) {
          Recorder().FailAt(0);
          // What was noted by then is looked at by the caller.
          const CallLog log = TakeLog();
          bitmap->SaveToDB();
          EXPECT_EQ(Links().back(), std::to_string(bitmap->ID()) + " 0 4 401");
          TakeLog();
          for (const std::string& call : log) Recorder().Note(call);
          throw;
        }
      });
  EXPECT_EQ(calls, static_cast<int>(all));
}

TEST_F(SavedBitmap, ACallThatFailsEndsLoadingAndDeleting) {
  Distinct()->SaveToDB();
  TakeLog();
  LoadedFrom<clsBitmap>(5);
  const int callsOfLoading = static_cast<int>(TakeLog().size());
  EXPECT_EQ(FailingAtEachCall(
                Recorder(), [] {}, [&] { LoadedFrom<clsBitmap>(5); }),
            callsOfLoading);
  std::shared_ptr<clsBitmap> bitmap;
  const int calls = FailingAtEachCall(
      Recorder(),
      [&] {
        bitmap = Distinct();
        bitmap->SaveToDB();
      },
      [&] { bitmap->DeleteFromDB(); });
  EXPECT_GT(calls, 20);
  EXPECT_TRUE(Changes().ChangedPages().size() > 0);
}

// --- Pictures of the panel itself ---

class SystemPicture : public SavedBitmap {
 protected:
  void SetUp() override {
    SavedBitmap::SetUp();
    library_ = std::make_shared<test::LoggingImageLibrary>(Recorder());
    LibraryState::Current().ImageLibrary = library_;
    bitmap_ = WithPicture();
    TakeLog();
  }
  void TearDown() override {
    bitmap_ = nullptr;
    SavedBitmap::TearDown();
  }

  void AddRow(Long index, Long status) {
    Connection().Execute("INSERT INTO ProjectImages (\"Index\",CRC,RecordStatus) VALUES (" +
                         std::to_string(index) + ",70" + std::to_string(index) + "," +
                         std::to_string(status) + ")");
  }

  std::shared_ptr<test::LoggingImageLibrary> library_;
  std::shared_ptr<clsBitmap> bitmap_;
};

const CallLog kWriteSystem = {"put CRC=501:Long",
                              "put Dx=29:Long",
                              "put Dy=21:Long",
                              "put DxORG=6:Long",
                              "put DyORG=1:Long",
                              "put Data8bpp=Array",
                              "put LibCRC=402:Long",
                              "put Data8bppORG=Array",
                              "put ImagePath=pumps\\one.bmp:String",
                              "put RecordStatus=1:Long",
                              "Update",
                              "Close"};
const char* const kOpenSystem =
    "open SELECT * FROM ProjectImages WHERE RecordStatus IN (0,1) order by [index] [1,3,1]";

TEST_F(SystemPicture, IsAddedUnderItsNumberInThisOrder) {
  bitmap_->SetImageSystem(1);
  EXPECT_EQ(TakeLog(),
            Joined({{kOpenSystem, "AddNew", "put Index=1:Long", "mode pumps\\one.bmp",
                     "load pumps\\one.bmp 402 29x21", "to8 by 7 29x21 as 29x21", "from8 [8 9] as 29x21"},
                    kWriteSystem}));
  EXPECT_EQ(SystemPictures(), std::vector<std::string>{"1 501 29 21 1"});
  EXPECT_EQ(PixelsIn("Data8bpp", 501), (PixelBytes{8, 9}));
  EXPECT_EQ(PixelsIn("Data8bppORG", 501), test::PictureSample().dataOrg);
  EXPECT_EQ(Frame().Pointers(), (std::deque<Long>{11, 0}));
}

TEST_F(SystemPicture, IsSmallForTheFirstAloneAndAPageForAllOthers) {
  bitmap_->SetImageSystem(2);
  EXPECT_EQ(TakeLog().at(4), "load pumps\\one.bmp 402 320x240");
  EXPECT_EQ(SystemPictures(), std::vector<std::string>{"2 501 320 240 1"});
  bitmap_->SetImageSystem(1);
  EXPECT_EQ(SystemPictures(), std::vector<std::string>{"2 501 29 21 1"});
  bitmap_->SetImageSystem(0);
  EXPECT_EQ(SystemPictures(), std::vector<std::string>{"2 501 320 240 1"});
}

TEST_F(SystemPicture, TakesItsNumberFromThePictureOfAnElement) {
  AddRow(1, 3);
  bitmap_->SetImageSystem(1);
  // The new row had used up number 2.
  EXPECT_EQ(SystemPictures(), (std::vector<std::string>{"1 501 29 21 1", "3 701 Null Null 3"}));
}

TEST_F(SystemPicture, TakesNoNumberFromAnother) {
  AddRow(4, 0);
  AddRow(6, 1);
  const std::vector<std::string> before = SystemPictures();
  for (const Long option : {4, 6}) {
    EXPECT_EQ(ErrorOf([&] { bitmap_->SetImageSystem(option); }), kDatabaseError) << option;
    EXPECT_EQ(SystemPictures(), before) << option;
  }
  Connection().Execute("DELETE FROM ProjectImages");
  bitmap_->SetImageSystem(2);
  const std::vector<std::string> one = {"2 501 320 240 1"};
  EXPECT_EQ(SystemPictures(), one);
  // The second picture of the panel would be that of number 2, which the first has.
  EXPECT_EQ(ErrorOf([&] { bitmap_->SetImageSystem(2); }), kDatabaseError);
  EXPECT_EQ(SystemPictures(), one);
}

TEST_F(SystemPicture, PassesUpAFailureThatHasAnotherReason) {
  // The second time the picture is small already.
  bitmap_->SetImageSystem(1);
  Connection().Execute("DELETE FROM ProjectImages");
  TakeLog();
  bitmap_->SetImageSystem(1);
  const CallLog added = TakeLog();
  const auto update = std::find(added.begin(), added.end(), "Update");
  ASSERT_NE(update, added.end());
  Connection().Execute("DELETE FROM ProjectImages");
  TakeLog();
  // Nothing has that number: there is nothing to make room.
  Recorder().FailAt(static_cast<int>(update - added.begin()) + 1);
  EXPECT_EQ(test::DescriptionOf([&] { bitmap_->SetImageSystem(1); }), "failed at Update");
  Recorder().FailAt(0);
  EXPECT_EQ(TakeLog().back(), "Close");
  EXPECT_TRUE(SystemPictures().empty());
  // A row that is there already is not moved for its own sake.
  AddRow(1, 0);
  AddRow(2, 3);
  TakeLog();
  bitmap_->SetImageSystem(1);
  const CallLog rewritten = TakeLog();
  const auto again = std::find(rewritten.begin(), rewritten.end(), "Update");
  Recorder().FailAt(static_cast<int>(again - rewritten.begin()) + 1);
  EXPECT_EQ(test::DescriptionOf([&] { bitmap_->SetImageSystem(1); }), "failed at Update");
  Recorder().FailAt(0);
  EXPECT_EQ(TakeLog().back(), "Update");
}

TEST_F(SystemPicture, GoesIntoTheRowOfThatPlaceAmongThoseOfThePanel) {
  AddRow(1, 3);
  AddRow(4, 0);
  AddRow(5, 2);
  AddRow(6, 1);
  const std::vector<std::string> before = {"1 701 Null Null 3", "4 704 Null Null 0", "5 705 Null Null 2",
                                           "6 706 Null Null 1"};
  const std::string page = " 501 320 240 1";
  for (const auto& [option, place, index] : {std::tuple{2, 3, 6}, {0, 1, 4}, {-3, 1, 4}}) {
    bitmap_->SetImageSystem(option);
    std::vector<std::string> expected = before;
    expected.at(static_cast<std::size_t>(place)) = std::to_string(index) + page;
    EXPECT_EQ(SystemPictures(), expected) << option;
    Connection().Execute("DELETE FROM ProjectImages WHERE CRC=501");
    AddRow(index, index == 4 ? 0 : 1);
  }
  TakeLog();
  bitmap_->SetImageSystem(1);
  EXPECT_EQ(SystemPictures().at(1), "4 501 29 21 1");
  const CallLog log = TakeLog();
  EXPECT_EQ(std::count(log.begin(), log.end(), "AddNew"), 0);
  EXPECT_EQ(log.at(0), kOpenSystem);
  EXPECT_EQ(log.at(1), "MoveFirst");
  EXPECT_EQ(log.at(2), "mode pumps\\one.bmp");
  bitmap_->SetImageSystem(2);
  const CallLog second = TakeLog();
  EXPECT_EQ(second.at(1), "MoveFirst");
  EXPECT_EQ(second.at(2), "Move 1");
}

TEST_F(SystemPicture, BeyondTheLastRowIsAddedUnderItsNumber) {
  AddRow(4, 0);
  AddRow(6, 1);
  bitmap_->SetImageSystem(3);
  EXPECT_EQ(SystemPictures(),
            (std::vector<std::string>{"3 501 320 240 1", "4 704 Null Null 0", "6 706 Null Null 1"}));
  bitmap_->SetImageSystem(9);
  EXPECT_EQ(SystemPictures().size(), 4u);
  EXPECT_EQ(SystemPictures().back(), "9 501 320 240 1");
}

TEST_F(SystemPicture, IsWrittenAsItIsWhenThereWasNothingToDo) {
  PictureSample sample;
  sample.crc = -1;
  test::Give(*bitmap_, sample);
  bitmap_->SetImageSystem(1);
  EXPECT_EQ(SystemPictures(), std::vector<std::string>{"1 -1 3 2 1"});
}

}  // namespace
}  // namespace quenzel7
