#include "shapes/bitmap.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "framework/bitmap_size.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "tests/support/picture_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::Mark;
using automation::Variant;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::PictureSample;

using Bitmap = test::PictureTest<clsBitmap>;
using Longs = std::vector<Long>;

const automation::Interface& Contract() { return ItfHmiElement::InterfaceOf(); }
const automation::Interface& Image() { return ItfImage::InterfaceOf<clsBitmap>(); }

/// The selection rectangle as a drawing shows it: left, top, right, bottom.
Longs BoundsOf(clsBitmap& bitmap) {
  ItfImage& image = bitmap;
  const Long crc = image.Image8bppCRC();
  // The picture itself is not to be looked at.
  image.Image8bppCRC(kPaintedImage);
  const gdi::Surface surface(1, 1);
  gdi::Recorder recorder;
  bitmap.Draw(surface.Dc(), true);
  image.Image8bppCRC(crc);
  Longs bounds(4);
  const std::string last = recorder.Calls().back();
  EXPECT_EQ(std::sscanf(last.c_str(), "DrawFocusRect(dc:%*d, {%d, %d, %d, %d})", &bounds[0], &bounds[1],
                        &bounds[2], &bounds[3]),
            4)
      << last;
  return bounds;
}

// --- What it is ---

TEST_F(Bitmap, PublishesItsDefaultInterfaceInSlotOrder) {
  const std::vector<std::string> expected = {
      "get OrderIndex() As Long",
      "put OrderIndex(Long)",
      "get ColOpPropBag() As Collection",
      "putref ColOpPropBag(Collection)",
      "get VisibleOpAddr() As Long",
      "put VisibleOpAddr(Long)",
      "get TouchOprndAddr() As Long",
      "put TouchOprndAddr(Long)",
      "get ColorBack() As Long",
      "put ColorBack(Long)",
      "get ColorBackTouch() As Long",
      "put ColorBackTouch(Long)",
      "get GroupID() As Long",
      "put GroupID(Long)",
      "get ID() As Long",
      "put ID(Long)",
      "get StretchImage() As Boolean",
      "put StretchImage(Boolean)",
      "get hBmp() As Long",
      "put hBmp(Long)",
      "get Xs() As Long",
      "put Xs(Long)",
      "get Ys() As Long",
      "put Ys(Long)",
      "get Dx() As Long",
      "put Dx(Long)",
      "get Dy() As Long",
      "put Dy(Long)",
      "get ImageCRC() As Long",
      "put ImageCRC(Long)",
      "get TransparencyLevel() As Long",
      "put TransparencyLevel(Long)",
      "get ImageIndexInVar() As Long",
      "put ImageIndexInVar(Long)",
      "get Bits() As Long",
      "put Bits(Long)",
      "get ReplicaForDraw() As clsBitmap",
      "call ResizeImageEx(Long, Long, Long, Long) As Boolean",
      "call ResizeImage(Long, Long, Long, Long, Long) As Boolean",
      "call InvertColors()",
      "call SaveToDB() As Boolean",
      "call Rotate()",
      "call SetImage8bppProps(Long, Long, Long, ByRef Byte(), Long, Long, Long, ByRef Byte(), Long, Long, "
      "String)",
      "call SetImage8bppPropsEx(Long, Long, Long, ByRef Byte(), Long, Long, Long, ByRef Byte(), Long, Long, "
      "String, "
      "Long)",
      "call UpdateImageIndexInVar(Long, Long, Long)",
      "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
  };
  const std::vector<std::string> slots = clsBitmap::ClassOf().Default().Slots();
  ASSERT_EQ(slots.size(), expected.size());
  for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(slots[i], expected[i]);
}

TEST_F(Bitmap, IsAnElementAndAPictureOfItsOwnClass) {
  EXPECT_EQ(clsBitmap::ClassOf().name, "clsBitmap");
  ASSERT_EQ(clsBitmap::ClassOf().interfaces.size(), 3u);
  EXPECT_EQ(clsBitmap::ClassOf().interfaces[1], &Contract());
  EXPECT_EQ(clsBitmap::ClassOf().interfaces[2], &Image());
  EXPECT_EQ(Image().Name(), "ItfImage");
  EXPECT_EQ(clsBitmap().ElementType(), 3);
  EXPECT_NE(dynamic_cast<const clsBitmap*>(clsBitmap::ClassOf().create().get()), nullptr);
}

TEST_F(Bitmap, MarksWhatIsNotOfThePage) {
  std::vector<std::string> identity, transient, notCarried;
  for (const automation::Member& member : clsBitmap::ClassOf().Default().Members()) {
    EXPECT_FALSE(member.documentation.empty()) << member.name;
    if (member.mark == Mark::Identity) identity.emplace_back(member.name);
    if (member.mark == Mark::Transient) transient.emplace_back(member.name);
    if (member.mark == Mark::NotCarried) notCarried.emplace_back(member.name);
  }
  EXPECT_EQ(identity, (std::vector<std::string>{"OrderIndex", "GroupID", "ID"}));
  EXPECT_EQ(transient, (std::vector<std::string>{"StretchImage", "hBmp"}));
  EXPECT_EQ(notCarried, (std::vector<std::string>{"ColorBackTouch"}));
}

TEST_F(Bitmap, StartsWithoutPictureAndPlace) {
  clsBitmap bitmap;
  EXPECT_EQ(bitmap.ID(), -1);
  EXPECT_EQ(bitmap.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(DescriptorOf(bitmap, location), Descriptor{});
  EXPECT_EQ(bitmap.ColorBack(), -1);
  EXPECT_EQ(bitmap.hBmp(), 0);
  EXPECT_EQ(bitmap.ImageCRC(), -1);
  EXPECT_EQ(bitmap.Bits(), 0);
  EXPECT_EQ(bitmap.TransparencyLevel(), 0);
  EXPECT_EQ(bitmap.ImageIndexInVar(), 0);
  EXPECT_EQ(bitmap.TouchOprndAddr(), -1);
  EXPECT_EQ(bitmap.VisibleOpAddr(), -1);
  ASSERT_NE(bitmap.ColOpPropBag(), nullptr);
  EXPECT_EQ(bitmap.ColOpPropBag()->Count(), 0);
  EXPECT_EQ(bitmap.OrderIndex(), 0);
  EXPECT_TRUE(bitmap.StretchImage());
  EXPECT_FALSE(bitmap.IsCanceled());
  const ItfImage& image = bitmap;
  EXPECT_EQ(image.ImageLibCRC(), -1);
  EXPECT_EQ(image.ImagePath(), "");
  EXPECT_TRUE(image.GetImageData8bpp().empty());
  EXPECT_EQ(image.Dx(), 0);
  EXPECT_EQ(image.Dy(), 0);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{0, 0, 0, 0}));
  Descriptor natural{1, 1, 1, 1};
  bitmap.GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  EXPECT_EQ(natural, Descriptor{});
  // Reading it makes it the colour behind the picture.
  bitmap.ColorBack(4);
  EXPECT_EQ(bitmap.ColorBackTouch(), 0);
  EXPECT_EQ(bitmap.ColorBack(), -1);
}

TEST_F(Bitmap, AsksForItsTransparencyAlone) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  EXPECT_EQ(clsBitmap().TransparencyLevel(), 0);
  EXPECT_EQ(settings->asked, std::vector<std::string>{"6000/6048/0"});
  settings->answer = "3";
  // The second question, about key 6048.
  EXPECT_EQ(clsBitmap().TransparencyLevel(), 328);
  settings->answer = "glass";
  EXPECT_EQ(ErrorOf([] { clsBitmap(); }), 13);
}

// --- Properties ---

TEST_F(Bitmap, PositionWritersSetAllDescriptorsAndTheirEdgeOfTheBounds) {
  clsBitmap bitmap;
  bitmap.Xs(3);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{3, 0, 0, 0}));
  bitmap.Ys(4);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{3, 4, 0, 0}));
  bitmap.Dx(50);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{3, 4, 53, 0}));
  bitmap.Dy(60);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{3, 4, 53, 64}));
  // The far edges stay where they are.
  bitmap.Xs(5);
  bitmap.Ys(7);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{5, 7, 53, 64}));
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(bitmap, location), (Descriptor{5, 7, 50, 60})) << location;
  }
  EXPECT_EQ(bitmap.Xs(), 5);
  EXPECT_EQ(bitmap.Ys(), 7);
  EXPECT_EQ(bitmap.Dx(), 50);
  EXPECT_EQ(bitmap.Dy(), 60);
  // Its own size is not that of its picture.
  EXPECT_EQ(static_cast<ItfImage&>(bitmap).Dx(), 0);
  EXPECT_EQ(static_cast<ItfImage&>(bitmap).Dy(), 0);
}

TEST_F(Bitmap, ItsFarEdgesLieBehindItsPlaceAtRest) {
  clsBitmap bitmap;
  bitmap.Xs(3);
  bitmap.Ys(4);
  bitmap.Move(100, 200);
  bitmap.UpdateDisplayWithTransx();
  bitmap.Dx(50);
  bitmap.Dy(60);
  EXPECT_EQ(BoundsOf(bitmap), (Longs{103, 204, 53, 64}));
}

TEST_F(Bitmap, AnEdgeBeyond32BitsOverflows) {
  clsBitmap bitmap;
  bitmap.Xs(1);
  EXPECT_EQ(ErrorOf([&] { bitmap.Dx(2147483647); }), 6);
  bitmap.Ys(1);
  EXPECT_EQ(ErrorOf([&] { bitmap.Dy(2147483647); }), 6);
  EXPECT_EQ(ErrorOf([&] { bitmap.Dy(2147483646); }), 0);
}

TEST_F(Bitmap, ReadingTheOtherColorGives0AndMakesItTheColorBehindThroughBothFaces) {
  clsBitmap bitmap;
  bitmap.ColorBack(7);
  bitmap.ColorBackTouch(8);
  EXPECT_EQ(bitmap.ColorBack(), 7);
  EXPECT_EQ(automation::GetByName(bitmap, "ColorBackTouch"), Variant(Long{0}));
  EXPECT_EQ(bitmap.ColorBack(), 8);
  bitmap.ColorBack(9);
  EXPECT_EQ(automation::GetByName(bitmap, Contract(), "ColorBackTouch"), Variant(Long{0}));
  EXPECT_EQ(bitmap.ColorBack(), 8);
}

TEST_F(Bitmap, ATransparencyIsWrittenIntoAllLinksAtOnce) {
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (6,0,0,401)");
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (6,1,0,402)");
  Connection().Execute("INSERT INTO ElementsAndImages VALUES (7,0,0,402)");
  clsBitmap bitmap;
  bitmap.ID(6);
  TakeLog();
  bitmap.TransparencyLevel(3);
  const CallLog expected = {"execute UPDATE ElementsAndImages SET TransparencyLevel=3 WHERE Element_ID=6"};
  EXPECT_EQ(TakeLog(), expected);
  EXPECT_EQ(bitmap.TransparencyLevel(), 3);
  EXPECT_EQ(Links(), (std::vector<std::string>{"6 0 3 401", "6 1 3 402", "7 0 0 402"}));
  // Without a row it has no links.
  clsBitmap().TransparencyLevel(9);
  EXPECT_EQ(Links(), (std::vector<std::string>{"6 0 3 401", "6 1 3 402", "7 0 0 402"}));
  TakeLog();
  bitmap.ID(8);
  automation::PutByName(bitmap, Contract(), "TransparencyLevel", Variant(Long{4}));
  EXPECT_EQ(TakeLog(),
            CallLog{"execute UPDATE ElementsAndImages SET TransparencyLevel=4 WHERE Element_ID=8"});
  EXPECT_EQ(bitmap.TransparencyLevel(), 4);
}

TEST_F(Bitmap, TheTransparencyOfThePictureLeavesTheLinksAlone) {
  clsBitmap bitmap;
  TakeLog();
  static_cast<ItfImage&>(bitmap).TransparencyLevel(3);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(bitmap.TransparencyLevel(), 3);
  EXPECT_EQ(static_cast<ItfImage&>(bitmap).TransparencyLevel(), 3);
}

TEST_F(Bitmap, ATransparencyThatCannotBeWrittenIsTakenAllTheSame) {
  clsBitmap bitmap;
  Recorder().FailAt(1);
  EXPECT_EQ(ErrorOf([&] { bitmap.TransparencyLevel(3); }),
            static_cast<Long>(automation::ErrorNumber::Database));
  EXPECT_EQ(bitmap.TransparencyLevel(), 3);
}

TEST_F(Bitmap, WritingACrcTakesThatPictureFromTheProject) {
  PictureSample sample = test::TwoByteSample();
  AddBitmapImageToProject(sample.ToSave(), 70, 0, 0);
  clsBitmap bitmap;
  TakeLog();
  bitmap.ImageCRC(401);
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT * FROM ProjectImages WHERE CRC=401 AND RecordStatus=3 [0,3,1]",
                                "get Data8bpp", "get Dx", "get Dy", "Close",
                                "open SELECT CRC,[Bits] FROM ProjectImages WHERE CRC=401 [0,3,1]", "get Bits",
                                "get Bits", "Close"}));
  const ItfImage& image = bitmap;
  EXPECT_EQ(bitmap.ImageCRC(), 401);
  EXPECT_EQ(image.GetImageData8bpp(), sample.data);
  EXPECT_EQ(image.Dx(), 3);
  EXPECT_EQ(image.Dy(), 2);
  EXPECT_EQ(bitmap.Bits(), 16);
  // Neither its place in the page nor the rest of the picture.
  EXPECT_EQ(bitmap.Dx(), 0);
  EXPECT_EQ(image.ImageLibCRC(), -1);
}

TEST_F(Bitmap, WritingAnUnknownCrcKeepsPixelsAndSizeAndForgetsTheBits) {
  const PictureSample sample = test::TwoByteSample();
  const auto bitmap = WithPicture(sample);
  const ItfImage& image = *bitmap;
  automation::PutByName(*bitmap, Contract(), "hBmpCRC", Variant(Long{-1}));
  EXPECT_EQ(bitmap->ImageCRC(), -1);
  EXPECT_EQ(bitmap->hBmpCRC(), -1);
  EXPECT_EQ(image.GetImageData8bpp(), sample.data);
  EXPECT_EQ(image.Dx(), 3);
  EXPECT_EQ(bitmap->Bits(), 0);
}

TEST_F(Bitmap, ThePaintedCrcIsNotLookedUp) {
  const auto bitmap = WithPicture(test::TwoByteSample());
  TakeLog();
  bitmap->ImageCRC(0x3F3F3F3F);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(bitmap->ImageCRC(), 0x3F3F3F3F);
  EXPECT_EQ(bitmap->Bits(), 16);
  bitmap->ImageCRC(0x3F3F3F3E);
  EXPECT_FALSE(TakeLog().empty());
}

TEST_F(Bitmap, TheCrcOfThePictureIsWrittenWithoutLookingItUp) {
  clsBitmap bitmap;
  TakeLog();
  static_cast<ItfImage&>(bitmap).Image8bppCRC(401);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(bitmap.ImageCRC(), 401);
  EXPECT_EQ(bitmap.hBmpCRC(), 401);
  EXPECT_EQ(static_cast<ItfImage&>(bitmap).Image8bppCRC(), 401);
}

TEST_F(Bitmap, ItsPictureIsReadAndWrittenFieldByField) {
  clsBitmap bitmap;
  ItfImage& image = bitmap;
  image.ImageLibCRC(1);
  image.ImageIndexInVar(2);
  image.SetImageData8bpp({3, 4});
  image.ImagePath("five");
  image.Dx(6);
  image.Dy(7);
  EXPECT_EQ(image.ImageLibCRC(), 1);
  EXPECT_EQ(image.ImageIndexInVar(), 2);
  EXPECT_EQ(bitmap.ImageIndexInVar(), 2);
  EXPECT_EQ(image.GetImageData8bpp(), (PixelBytes{3, 4}));
  EXPECT_EQ(image.ImagePath(), "five");
  EXPECT_EQ(image.Dx(), 6);
  EXPECT_EQ(image.Dy(), 7);
  EXPECT_EQ(bitmap.Dx(), 0);
  EXPECT_EQ(bitmap.Dy(), 0);
  for (const char* name : {"Image8bppCRC", "ImageLibCRC", "ImageIndexInVar", "Dx", "Dy"}) {
    automation::PutByName(bitmap, Image(), name, Variant(Long{20}));
    EXPECT_EQ(automation::GetByName(bitmap, Image(), name), Variant(Long{20})) << name;
  }
  EXPECT_EQ(image.Dx(), 20);
  EXPECT_EQ(bitmap.Dx(), 0);
}

TEST_F(Bitmap, OwnsItsBitmapAndDeletesItOnEveryReplacement) {
  const std::size_t before = gdi::LiveObjects();
  {
    clsBitmap bitmap;
    const Long first = gdi::CreateBitmap(1, 1, 1, 1, nullptr),
               second = gdi::CreateBitmap(1, 1, 1, 1, nullptr);
    bitmap.hBmp(first);
    EXPECT_EQ(bitmap.hBmp(), first);
    automation::PutByName(bitmap, "hBmp", Variant(second));
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    EXPECT_EQ(BitmapSizeOf(first).w, 0);
    EXPECT_EQ(BitmapSizeOf(second).w, 1);
    // The same one again stays alive.
    bitmap.hBmp(second);
    EXPECT_EQ(BitmapSizeOf(bitmap.hBmp()).w, 1);
    EXPECT_EQ(automation::GetByName(bitmap, "hBmp"), Variant(second));
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(Bitmap, GivesItsNaturalSizeAtItsPlaceAtRest) {
  const auto bitmap = WithPicture();
  bitmap->Move(5, 5);
  bitmap->UpdateDisplayWithTransx();
  Descriptor natural;
  bitmap->GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  EXPECT_EQ(natural, (Descriptor{10, 20, 6, 1}));
}

TEST_F(Bitmap, MovesThePlacesOfPicturesByOneStatement) {
  for (const char* row : {"6,0,0,401", "6,1,0,402", "6,2,0,403", "7,2,0,403"}) {
    Connection().Execute(std::string("INSERT INTO ElementsAndImages VALUES (") + row + ")");
  }
  clsBitmap bitmap;
  bitmap.ID(9);
  TakeLog();
  bitmap.UpdateImageIndexInVar(6, 1, 4);
  EXPECT_EQ(TakeLog(), CallLog{"execute UPDATE ElementsAndImages SET Image_Index=Image_Index+(4) WHERE "
                               "Element_ID=6 AND Image_Index>=1;"});
  EXPECT_EQ(Links(), (std::vector<std::string>{"6 0 0 401", "6 5 0 402", "6 6 0 403", "7 2 0 403"}));
  bitmap.UpdateImageIndexInVar(6, 6, -1);
  EXPECT_EQ(Links(), (std::vector<std::string>{"6 0 0 401", "6 5 0 402", "6 5 0 403", "7 2 0 403"}));
}

TEST_F(Bitmap, ResizeImageOnlySaysThatItIsNoLongerInUse) {
  const auto bitmap = WithPicture();
  bitmap->ID(6);
  TakeLog();
  EXPECT_FALSE(bitmap->ResizeImage(3, 2, 30, 20, 0));
  ASSERT_EQ(Boxes().Shown().size(), 1u);
  EXPECT_EQ(Boxes().Shown().front().text, "The function ResizeImage is obsolate. use ResizeImageEx instead");
  EXPECT_EQ(Boxes().Shown().front().buttons, 0);
  EXPECT_EQ(Boxes().Shown().front().caption, "Quenzel7");
  EXPECT_EQ(static_cast<ItfImage&>(*bitmap).Dx(), 3);
  EXPECT_TRUE(TakeLog().empty());
}

// --- Pictures as a whole, and copies ---

TEST_F(Bitmap, TakesAWholePictureWithItsSizeAsItsOwn) {
  PictureSample sample;
  sample.index = 4;
  sample.transparency = 5;
  TakeLog();
  clsBitmap bitmap;
  bitmap.Xs(10);
  bitmap.Ys(20);
  bitmap.Bits(16);
  static_cast<ItfImage&>(bitmap).SetImage8bppProps(sample.libCrc, sample.dxOrg, sample.dyOrg, sample.dataOrg,
                                                   sample.crc, sample.dx, sample.dy, sample.data,
                                                   sample.index, sample.transparency, sample.path);
  const ItfImage& image = bitmap;
  EXPECT_EQ(image.ImageLibCRC(), 402);
  EXPECT_EQ(image.Image8bppCRC(), 401);
  EXPECT_EQ(image.Dx(), 3);
  EXPECT_EQ(image.Dy(), 2);
  EXPECT_EQ(image.GetImageData8bpp(), sample.data);
  EXPECT_EQ(image.ImageIndexInVar(), 4);
  EXPECT_EQ(image.TransparencyLevel(), 5);
  EXPECT_EQ(image.ImagePath(), "pumps\\one.bmp");
  EXPECT_EQ(bitmap.Bits(), 16);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(bitmap, location), (Descriptor{10, 20, 3, 2}));
  }
  Descriptor natural;
  bitmap.GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  EXPECT_EQ(natural, (Descriptor{10, 20, 6, 1}));
  test::Give(bitmap, sample);
  EXPECT_EQ(bitmap.Bits(), 8);
  // Neither link nor store is touched.
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(BoundsOf(bitmap), (Longs{10, 20, 13, 22}));
}

TEST_F(Bitmap, AReplicaForDrawHasThePictureAlone) {
  PictureSample sample = test::TwoByteSample();
  sample.index = 4;
  sample.transparency = 5;
  const auto bitmap = WithPicture(sample);
  bitmap->ID(6);
  bitmap->GroupID(7);
  bitmap->ColorBack(8);
  bitmap->VisibleOpAddr(9);
  bitmap->OrderIndex(10);
  bitmap->StretchImage(false);
  TakeLog();
  const auto copy = bitmap->ReplicaForDraw();
  // The transparency is no one's to save.
  EXPECT_TRUE(TakeLog().empty());
  const auto named =
      std::dynamic_pointer_cast<clsBitmap>(automation::GetByName(*bitmap, "ReplicaForDraw").Object());
  ASSERT_NE(named, nullptr);
  EXPECT_NE(named, bitmap);
  EXPECT_EQ(named->ID(), -1);
  EXPECT_EQ(static_cast<ItfImage&>(*named).GetImageData8bpp(), sample.data);
  EXPECT_EQ(copy->ID(), -1);
  EXPECT_EQ(copy->GroupID(), -1);
  EXPECT_EQ(copy->ColorBack(), -1);
  EXPECT_EQ(copy->VisibleOpAddr(), -1);
  EXPECT_EQ(copy->OrderIndex(), 0);
  EXPECT_TRUE(copy->StretchImage());
  EXPECT_EQ(copy->hBmp(), 0);
  EXPECT_EQ(DescriptorOf(*copy, 1), (Descriptor{0, 0, 3, 2}));
  for (const automation::Member& member : Image().Members()) {
    if (member.get) {
      EXPECT_EQ(member.get(*copy), member.get(*bitmap)) << member.name;
    }
  }
  EXPECT_EQ(static_cast<ItfImage&>(*copy).GetImageData8bpp(), sample.data);
  EXPECT_EQ(copy->Bits(), 16);
  Descriptor natural;
  copy->GetOptimalDimensions(natural.xs, natural.ys, natural.dx, natural.dy);
  EXPECT_EQ(natural, (Descriptor{0, 0, 6, 1}));
}

TEST_F(Bitmap, AReplicaIsAlikeInAllFieldsAndSharesTheOperandBags) {
  PictureSample sample = test::TwoByteSample();
  sample.index = 4;
  sample.transparency = 5;
  const auto bitmap = WithPicture(sample);
  bitmap->ID(6);
  bitmap->GroupID(7);
  bitmap->ColorBack(8);
  bitmap->ColorBackTouch(9);
  bitmap->TouchOprndAddr(11);
  bitmap->VisibleOpAddr(12);
  bitmap->OrderIndex(10);
  bitmap->StretchImage(false);
  bitmap->Dx(30);
  bitmap->Dy(40);
  // Some of the four places, which a copy does not have.
  bitmap->Move(1, 1);
  TakeLog();
  const auto copy = std::dynamic_pointer_cast<clsBitmap>(bitmap->Replica());
  EXPECT_TRUE(TakeLog().empty());
  ASSERT_NE(copy, nullptr);
  // Before the other colour is read, which moves it here.
  EXPECT_EQ(copy->ColorBack(), 8);
  test::ExpectAlike(*copy, *bitmap, {"ReplicaForDraw"});
  for (const automation::Member& member : Image().Members()) {
    if (member.get) {
      EXPECT_EQ(member.get(*copy), member.get(*bitmap)) << member.name;
    }
  }
  EXPECT_EQ(copy->ColOpPropBag(), bitmap->ColOpPropBag());
  EXPECT_EQ(copy->ColorBack(), 9);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*copy, location), (Descriptor{10, 20, 30, 40})) << location;
  }
  EXPECT_EQ(BoundsOf(*copy), (Longs{10, 20, 40, 60}));
  EXPECT_EQ(static_cast<ItfImage&>(*copy).Dx(), 3);
  EXPECT_EQ(copy->hBmp(), 0);
}

TEST_F(Bitmap, SharesACollectionOfBagsThatItIsGiven) {
  clsBitmap bitmap;
  const auto bags = std::make_shared<automation::Collection>();
  bitmap.ColOpPropBag(bags);
  EXPECT_EQ(bitmap.ColOpPropBag(), bags);
  EXPECT_EQ(automation::GetByName(bitmap, "ColOpPropBag").Object(), bags);
}

// --- Report ---

TEST_F(Bitmap, TellsPlaceTransparencyAndHideOperandInAReport) {
  const auto bitmap = WithPicture();
  bitmap->Move(5, 5);
  bitmap->UpdateDisplayWithTransx();
  test::ReportDouble printer;
  bitmap->CreateStaticElementPrinterReport(printer);
  EXPECT_EQ(printer.Lines(), (std::vector<std::string>{"Coordinates (Left,Top,Width,Height): (10,20,3,2)",
                                                       "Transparent: No"}));
  bitmap->VisibleOpAddr(12);
  for (const Long level : {1, -1, 2}) {
    bitmap->TransparencyLevel(level);
    test::ReportDouble other;
    bitmap->CreateStaticElementPrinterReport(other);
    EXPECT_EQ(other.Lines(), (std::vector<std::string>{"Coordinates (Left,Top,Width,Height): (10,20,3,2)",
                                                       "Transparent: Yes", "Hide Operand: MB 12"}));
  }
}

}  // namespace
}  // namespace quenzel7
