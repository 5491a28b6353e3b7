#include "hosts/cli/element_picture.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/diff_side.h"
#include "hosts/cli/renderer.h"
#include "images/image_queries.h"
#include "shapes/bitmap.h"
#include "shapes/button.h"
#include "shapes/line.h"
#include "tests/hosts/cli/picture_fixture.h"

namespace quenzel7::cli {
namespace {

using Lines = std::vector<std::string>;

class ElementPicture : public test::PictureTest {
 protected:
  static const char* Pump() { return "\"Picture\": \"pump.bmp\""; }
  static std::string Button(Long flat, const Lines& more) {
    Lines lines = {"\"ColorBack\": 8", "\"Txt\": \"\"", "\"Flat3D\": " + std::to_string(flat)};
    lines.insert(lines.end(), more.begin(), more.end());
    return Element("Button", 0, 0, 16, 12, lines);
  }
  std::string ImportError(const std::string& element) {
    return test::MessageOf([&] { ImportElements({element}); });
  }
  static std::string PictureError(const std::string& picture) {
    return test::MessageOf([&] { PictureFromJson(Json::parse(picture)); });
  }
};

TEST_F(ElementPicture, ABitmapTakesItsFileAtItsSize) {
  ImportElements({Bitmap(1, 2, 4, 2, {Pump()})});
  const LoadedPage page = Load();
  ItfHmiElement& bitmap = *page.elements[0];
  EXPECT_EQ(PanelPixelsOf(bitmap), (PixelBytes{kRed, kRed, kWhite, kWhite, kBlack, kBlack, kBlue, kBlue}));
  EXPECT_EQ(PictureCrcOf(bitmap), Platform::Current().crcService->Crc(PanelPixelsOf(bitmap)));
  EXPECT_EQ(PicturePathOf(bitmap), "pump.bmp;" + File("pump.bmp"));
  EXPECT_EQ(GetImageDataORGByCRC(PictureCrcOf(bitmap)), (PixelBytes{kRed, kWhite, kBlack, kBlue}));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx", "Dy", "DxORG", "DyORG", "RecordStatus", "Bits"}),
            Lines{"4 2 2 2 3 0"});
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages", {"Element_ID", "Image_Index", "TransparencyLevel"}),
            Lines{"1 0 0"});
}

TEST_F(ElementPicture, ARaisedButtonTakesItsFileInsideItsFrame) {
  ImportElements({Button(1, {Pump()}), Button(0, {Pump()})});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages ORDER BY [Index]", {"Dx", "Dy"}), (Lines{"8 4", "16 12"}));
}

TEST_F(ElementPicture, TheSamePictureIsKeptOnce) {
  ImportElements({Bitmap(0, 0, 4, 2, {Pump()}), Bitmap(4, 4, 4, 2, {Pump()})});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx"}), Lines{"4"});
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages", {"Element_ID"}), (Lines{"1", "2"}));
}

TEST_F(ElementPicture, TransparencyIsKeptWithTheLink) {
  ImportElements({Bitmap(0, 0, 2, 2, {"\"TransparencyLevel\": 1", Pump()}),
                  Button(0, {"\"TransparencyLevel\": 2", Pump()})});
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages", {"TransparencyLevel"}), (Lines{"1", "2"}));
}

TEST_F(ElementPicture, ABitmapWithoutAPictureIsPaintedWhite) {
  ImportElements({Element("Rectangle", 0, 0, 8, 8, {"\"FillStyle\": \"eFS_Solid\"", "\"ColorBack\": 9"}),
                  Bitmap(2, 2, 3, 2)});
  const auto pixels = RenderPage(Load(), NoTerminal()).pixels;
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFFFFFFu), 6);
  EXPECT_EQ(pixels[2 * 8 + 2], 0xFFFFFFu);
  EXPECT_EQ(pixels[3 * 8 + 4], 0xFFFFFFu);
}

TEST_F(ElementPicture, SavingABitmapWithoutAPictureAlarmsNobody) {
  std::ostringstream log;
  Platform::Current().errorLog = std::make_shared<corvane1::CollectedErrors>(&log);
  ImportElements({"\"clsGroup\",\n      \"elements\": [{\"class\": " + Bitmap(2, 2, 3, 2) + "}]",
                  Bitmap(0, 0, 6, 4), Element("Button", 0, 0, 5, 5)});
  EXPECT_EQ(log.str(), "");
  Session().OpenPage(1);
  const LoadedPage page = Load();
  DeleteElement(Session(), *page.elements[1]);
  RestoreElement(Session(), *page.elements[1]);
  EXPECT_EQ(log.str(), "");
}

TEST_F(ElementPicture, EachBitmapWithoutAPictureHasItsOwnSize) {
  ImportElements({Element("Rectangle", 0, 0, 8, 8, {"\"FillStyle\": \"eFS_Solid\"", "\"ColorBack\": 9"}),
                  Bitmap(0, 0, 3, 2), Bitmap(4, 4, 1, 1)});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC", "Dx", "Dy"}), Lines{"-1 0 0"});
  const LoadedPage page = Load();
  const auto pixels = RenderPage(page, NoTerminal()).pixels;
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFFFFFFu), 7);
  // Saved again it is as large as before.
  Session().OpenPage(1);
  SaveElement(Session(), *page.elements[1]);
  EXPECT_EQ(RenderPage(page, NoTerminal()).pixels, pixels);
}

TEST_F(ElementPicture, ARaisedButtonNeedsRoomForItsPicture) {
  const auto error = [this](Long dx, Long dy) {
    return ImportError(Element("Button", 0, 0, dx, dy, {"\"Flat3D\": 1", Pump()}));
  };
  const std::string place = "page file x, element 1 (clsButton): property \"Picture\": ";
  const std::string noRoom = place + "there is no room for it: inside the element it would be ";
  EXPECT_EQ(error(8, 8), noRoom + "0x0");
  EXPECT_EQ(error(9, 8), noRoom + "1x0");
  EXPECT_EQ(error(8, 9), noRoom + "0x1");
  EXPECT_EQ(error(4, 9), noRoom + "-4x1");
  EXPECT_EQ(error(9, 9), "");
}

TEST_F(ElementPicture, ExportTellsFilesThatTheImportedTextNames) {
  const std::string given = "\"Picture\": {\"path\": \"pump.bmp\", \"panelPixels\": \"AAAAAA==\"}";
  const std::string text =
      PageOf({"\"clsGroup\",\n      \"elements\": [{\"class\": " + Bitmap(0, 0, 4, 2, {Pump()}) + "}]",
              Element("Line", 0, 0, 2, 2), Bitmap(0, 0, 2, 2, {"\"Picture\": \"fan.bmp\""}),
              Bitmap(0, 0, 2, 2, {Pump()}), Bitmap(0, 0, 2, 2, {given}), Bitmap(0, 0, 1, 1)});
  Import(text, File(""));
  const auto notes = [&](const std::string& expected) {
    std::ostringstream out, err;
    ExportCommand(Path(), {}, "", {out, err});
    EXPECT_EQ(out.str() == text, expected == text);
    return err.str();
  };
  EXPECT_EQ(notes(text), "");
  std::filesystem::remove(File("pump.bmp"));
  WriteBmp("fan.bmp", {{0}});
  const std::string end = ": the page file names it, its pixels are in the project\n";
  EXPECT_EQ(notes(text), "note: picture file \"pump.bmp\" is not there" + end +
                             "note: picture file \"fan.bmp\" is another one now" + end);
  Connection().Execute("UPDATE HMI_Elements SET Xs=5");
  EXPECT_EQ(notes(""), "");
}

TEST_F(ElementPicture, CanonicalPagesNameTheFile) {
  const std::string text = PageOf(
      {Bitmap(1, 2, 4, 2, {"\"TransparencyLevel\": 1", Pump()}), Button(0, {Pump()}), Bitmap(0, 0, 1, 1)});
  Import(text, File(""));
  EXPECT_EQ(Export(), text);
  EXPECT_EQ(Canonical(), text);
  Open(corvane1::ProjectMode::ReadOnly);
  EXPECT_EQ(Export(), text);
  EXPECT_EQ(Canonical(), text);
}

TEST_F(ElementPicture, APictureOfTwoByteBytesTellsItsBits) {
  const std::string text = PageOf({Bitmap(
      0, 0, 2, 2, {"\"Picture\": {\n        \"path\": \"pump.bmp\",\n        \"bits\": 16\n      }"})});
  Import(text, File(""));
  EXPECT_EQ(Canonical(), text);
  const LoadedPage page = Load();
  EXPECT_EQ(PanelPixelsOf(*page.elements[0]).size(), 8u);
  EXPECT_EQ(MeasureOf(*page.elements[0]).bits, 16);
}

TEST_F(ElementPicture, FilesAreSeenFromTheFolderOfThePageFile) {
  std::filesystem::create_directories(File("a/b"));
  for (const char* name : {"../../pump.bmp", "..\\..\\pump.bmp", "./../../pump.bmp"}) {
    Import(PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": " + Json(name).dump()})}), File("a/b"));
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"ImagePath"}),
              Lines{std::string(name) + ";" + File("pump.bmp")});
    EXPECT_NE(Canonical().find("\"Picture\": " + Json(name).dump()), std::string::npos) << Canonical();
  }
  const std::string absolute = PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": \"" + File("pump.bmp") + "\""})});
  Import(absolute, File("a/b"));
  EXPECT_EQ(Canonical(), absolute);
}

TEST_F(ElementPicture, WithoutTheFileCanonicalPagesHoldThePixels) {
  ImportElements({Bitmap(0, 0, 4, 2, {Pump()})});
  const std::string source = Rows("SELECT * FROM ProjectImages", {"LibCRC"})[0];
  std::filesystem::remove(File("pump.bmp"));
  const std::string pixels =
      PageOf({Bitmap(0, 0, 4, 2,
                     {"\"Picture\": {\n        \"path\": \"pump.bmp;" + File("pump.bmp") +
                      "\",\n        \"source\": " + source +
                      ",\n        \"width\": 2,\n        \"height\": 2,\n        \"pixels\": \"AAgJYA==\",\n"
                      "        \"panelPixels\": \"AAAICAkJYGA=\"\n      }"})});
  EXPECT_EQ(Canonical(), pixels);
  const Lines columns = {"CRC", "LibCRC", "Dx", "Dy", "DxORG", "DyORG", "ImagePath", "Bits"};
  const Lines before = Rows("SELECT * FROM ProjectImages", columns);
  // Nothing is lost on the way, whatever folder it is imported from.
  Import(pixels, "/");
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", columns), before);
  EXPECT_EQ(Canonical(), pixels);
}

TEST_F(ElementPicture, AFileThatGivesAnotherPictureIsNotNamed) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  WriteBmp("pump.bmp", {{0x000000, 0x000000}, {0x000000, 0x000000}});
  EXPECT_NE(Canonical().find("\"pixels\": \"AAgJYA==\""), std::string::npos);
  // The same pixels in another file, which the library would not read again for this picture.
  Connection().Execute("UPDATE ProjectImages SET LibCRC=5");
  WriteBmp("pump.bmp", {{0xE00000, 0xFFFFFF}, {0x000000, 0x0066E8}});
  EXPECT_NE(Canonical().find("\"source\": 5"), std::string::npos);
}

TEST_F(ElementPicture, AFileThatGivesOtherPanelPixelsIsNotNamed) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  Connection().Execute("UPDATE ProjectImages SET CRC=5");
  Connection().Execute("UPDATE ElementsAndImages SET Image_CRC=5");
  EXPECT_NE(Canonical().find("\"panelPixels\": \"AAgJYA==\""), std::string::npos);
}

TEST_F(ElementPicture, WithoutOriginalPixelsThereIsNoSizeOfTheirs) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  Connection().Execute("UPDATE ProjectImages SET Data8bppORG=NULL, ImagePath='', LibCRC=-1");
  EXPECT_EQ(Canonical(),
            PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": {\n        \"panelPixels\": \"AAgJYA==\"\n      }"})}));
}

TEST_F(ElementPicture, ExportTellsAPictureWithoutPixels) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  Connection().Execute("DELETE * FROM ProjectImages");
  std::ostringstream out, err;
  EXPECT_EQ(ExportCommand(Path(), {}, "", {out, err}), 0);
  EXPECT_EQ(out.str(), PageOf({Bitmap(0, 0, 2, 2)}));
  EXPECT_EQ(err.str(),
            "note: row 1 of HMI_Elements (clsBitmap): its picture has no pixels and is not exported\n");
}

TEST_F(ElementPicture, PathsOfOtherHostsAreNotTakenForNames) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  const auto exported = [this](const std::string& path) {
    Connection().Execute("UPDATE ProjectImages SET ImagePath='" + path + "'");
    const std::string text = Canonical();
    const auto at = text.find("\"Picture\": ");
    return text.substr(at, text.find('\n', at) - at);
  };
  EXPECT_EQ(exported("pump.bmp"), "\"Picture\": {");
  EXPECT_EQ(exported("library;" + File("pump.bmp")), "\"Picture\": {");
  EXPECT_EQ(exported("ump.bmp;" + File("pump.bmp")), "\"Picture\": {");
  EXPECT_EQ(exported("pump.bmp;" + File("pump.bmp") + ";x"), "\"Picture\": {");
  EXPECT_EQ(exported(""), "\"Picture\": {");
  EXPECT_EQ(exported(File("pump.bmp")), "\"Picture\": \"" + File("pump.bmp") + "\"");
  EXPECT_EQ(exported(";" + File("pump.bmp")), "\"Picture\": \"" + File("pump.bmp") + "\"");
}

TEST_F(ElementPicture, PanelPixelsThatDoNotFitAreMadeOfTheOriginalOnes) {
  ImportElements({Bitmap(0, 0, 4, 2, {Pump()})});
  std::filesystem::remove(File("pump.bmp"));
  Connection().Execute("UPDATE HMI_Elements SET Dx=2");
  const std::string text = Canonical();
  EXPECT_EQ(text.find("panelPixels"), std::string::npos);
  Import(text, "/");
  EXPECT_EQ(PanelPixelsOf(*Load().elements[0]), (PixelBytes{kRed, kWhite, kBlack, kBlue}));
}

TEST_F(ElementPicture, APictureWithoutPixelsIsLeftOut) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()}), Bitmap(0, 0, 2, 2)});
  EXPECT_FALSE(HasPictureWithoutPixels(*Load().elements[0]));
  EXPECT_FALSE(HasPictureWithoutPixels(*Load().elements[1]));
  Connection().Execute("DELETE * FROM ProjectImages");
  EXPECT_TRUE(HasPictureWithoutPixels(*Load().elements[0]));
  EXPECT_EQ(Canonical(), PageOf({Bitmap(0, 0, 2, 2), Bitmap(0, 0, 2, 2)}));
  clsLine line;
  EXPECT_FALSE(HasPictureWithoutPixels(line));
}

TEST_F(ElementPicture, ATextTellsItFromOthers) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()}), Bitmap(0, 0, 2, 2)});
  const Lines keys = Rows("SELECT * FROM ProjectImages WHERE CRC<>-1", {"CRC", "LibCRC"});
  ASSERT_EQ(keys.size(), 1u);
  const auto blank = keys[0].find(' ');
  EXPECT_EQ(PictureText(*Load().elements[0]),
            "\"pump.bmp\" (CRC " + keys[0].substr(0, blank) + ", source " + keys[0].substr(blank + 1) + ")");
  EXPECT_EQ(PictureText(*Load().elements[1]), "none");
}

TEST_F(ElementPicture, AnotherPictureMakesAnotherPage) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  Session().OpenPage(1);
  const LoadedPage page = Load();
  TakePicture(*page.elements[0], {"fan.bmp"}, File(""));
  SaveElement(Session(), *page.elements[0]);
  EXPECT_EQ(Export(), PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": \"fan.bmp\""})}));
}

TEST_F(ElementPicture, AFileThatCannotBeReadLeavesTheProjectAsItWas) {
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  const Lines before = Rows("SELECT * FROM HMI_Elements", {"ID", "Dx"});
  WriteTextFile(File("notes.bmp"), "These are notes.", "file");
  EXPECT_EQ(test::MessageOf([&] {
              ImportElements({Bitmap(0, 0, 3, 3, {"\"Picture\": \"fan.bmp\""}),
                              Bitmap(0, 0, 2, 2, {"\"Picture\": \"gone.bmp\""})});
            }),
            "page file x, element 2 (clsBitmap): property \"Picture\": picture file \"" + File("gone.bmp") +
                "\": there is no such file");
  EXPECT_EQ(ImportError(Bitmap(0, 0, 0, 2, {Pump()})),
            "page file x, element 1 (clsBitmap): property \"Picture\": picture file \"" + File("pump.bmp") +
                "\": 0 x 2 is no size of a picture");
  EXPECT_EQ(ImportError(Button(0, {"\"Picture\": \"notes.bmp\""})).substr(0, 64 + File("notes.bmp").size()),
            ("page file x, element 1 (clsButton): property \"Picture\": picture file \"" + File("notes.bmp"))
                .substr(0, 64 + File("notes.bmp").size()));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "Dx"}), before);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx"}), Lines{"2"});
}

TEST_F(ElementPicture, WhatFollowsFromThePictureCannotBeSet) {
  for (const char* name : {"ImageCRC", "Bits", "ImageIndexInVar"}) {
    EXPECT_EQ(ImportError(Bitmap(0, 0, 2, 2, {Quoted(name) + ": 5"})),
              "page file x, element 1 (clsBitmap): property " + Quoted(name) +
                  " cannot be set: it follows from \"Picture\"");
  }
  EXPECT_EQ(ImportError(Element("Line", 0, 0, 2, 2, {Pump()})),
            "page file x, element 1 (clsLine): property \"Picture\" does not exist; nearest is \"PenStyle\"");
  EXPECT_EQ(
      ImportError(Bitmap(0, 0, 2, 2, {"\"Pikture\": 1"})),
      "page file x, element 1 (clsBitmap): property \"Pikture\" does not exist; nearest is \"Picture\"");
  EXPECT_EQ(
      ImportError(Bitmap(0, 0, 2, 2, {"\"Picture\": 1"})),
      "page file x, element 1 (clsBitmap): property \"Picture\" must be a text or an object, 1 was given");
  EXPECT_EQ(ImportError(Bitmap(0, 0, 2, 2, {Pump(), "\"PICTURE\": \"a\""})),
            "page file x, element 1 (clsBitmap): property \"PICTURE\" is given twice");
}

TEST_F(ElementPicture, EveryMistakeInAPictureIsNamed) {
  EXPECT_EQ(PictureError(R"("")"), "must name a file or give pixels");
  EXPECT_EQ(PictureError(R"({})"), "must name a file or give pixels");
  EXPECT_EQ(PictureError(R"("a;b")"), "must name a file without a \";\" in its name, \"a;b\" was given");
  EXPECT_EQ(PictureError(R"({"path": "a;b"})"),
            "must name a file without a \";\" in its name, \"a;b\" was given");
  EXPECT_EQ(PictureError(R"({"pth": "a"})"), "\"pth\" does not exist; nearest is \"path\"");
  EXPECT_EQ(PictureError(R"({"path": "a", "Path": "b"})"), "\"Path\" is given twice");
  EXPECT_EQ(PictureError(R"({"path": 1})"), "\"path\" must be a text, 1 was given");
  EXPECT_EQ(PictureError(R"({"path": "a", "bits": -1})"), "\"bits\" must be 0 or 16, -1 was given");
  EXPECT_EQ(PictureError(R"({"path": "a", "bits": 8})"), "\"bits\" must be 0 or 16, 8 was given");
  EXPECT_EQ(PictureError(R"({"path": "a", "bits": "16"})"), "\"bits\" must be 0 or 16, \"16\" was given");
  EXPECT_EQ(PictureError(R"({"path": "a", "bits": 0, "source": -1})"), "");
  EXPECT_EQ(PictureError(R"({"path": "a", "width": 1})"), "\"width\" is given without \"pixels\"");
  EXPECT_EQ(PictureError(R"({"panelPixels": "AAgJYA==", "height": 1})"),
            "\"height\" is given without \"pixels\"");
  EXPECT_EQ(PictureError(R"({"path": "a", "source": 0})"), "\"source\" is given without \"pixels\"");
  EXPECT_EQ(PictureError(R"({"panelPixels": "AAgJYA==", "source": 0})"), "");
  EXPECT_EQ(PictureError(R"({"width": 0})"), "\"width\" must be a whole number from 1 to 32767, 0 was given");
  EXPECT_EQ(PictureError(R"({"height": 32768})"),
            "\"height\" must be a whole number from 1 to 32767, 32768 was given");
  EXPECT_EQ(PictureError(R"({"pixels": "A"})"), "\"pixels\" must be bytes in base64, \"A\" was given");
  EXPECT_EQ(PictureError(R"({"panelPixels": ""})"),
            "\"panelPixels\" must be bytes in base64, \"\" was given");
  EXPECT_EQ(PictureError(R"({"source": 1.5})"),
            "\"source\" must be a whole number from -2147483648 to 2147483647, 1.5 was given");
}

TEST_F(ElementPicture, PixelsHaveToFit) {
  const auto error = [this](const std::string& picture) {
    return ImportError(Bitmap(0, 0, 2, 2, {"\"Picture\": " + picture}));
  };
  const std::string place = "page file x, element 1 (clsBitmap): property \"Picture\": ";
  EXPECT_EQ(error(R"({"width": 3, "height": 1, "pixels": "AAgJ"})"),
            place + "\"pixels\" must be the pixels of a picture of 3x1, 3 bytes were given");
  EXPECT_EQ(error(R"({"panelPixels": "AAgJ"})"),
            place + "\"panelPixels\" must be the pixels of a picture of 2x2, 3 bytes were given");
  EXPECT_EQ(error(R"({"width": 2, "height": 2, "pixels": "AAgJYA=="})"), "");
  EXPECT_EQ(error(R"({"panelPixels": "AAgJYA=="})"), "");
  EXPECT_EQ(
      Rows("SELECT * FROM ProjectImages WHERE RecordStatus=3", {"Dx", "Dy", "DxORG", "DyORG", "LibCRC"}),
      Lines{"2 2 0 0 -1"});
}

TEST_F(ElementPicture, NamesAndPathsComeApart) {
  EXPECT_EQ(PicturePath("a/../b.bmp", "/x"), "a/../b.bmp;/x/b.bmp");
  EXPECT_EQ(PicturePath("c\\b.bmp", "/x"), "c\\b.bmp;/x/c/b.bmp");
  EXPECT_EQ(PicturePath("/y/b.bmp", "/x"), "/y/b.bmp;/y/b.bmp");
  EXPECT_EQ(PicturePath("a;b", "/x"), ";/x/a;b");
  EXPECT_EQ(PictureName("a.bmp;/x/a.bmp"), "a.bmp");
  EXPECT_EQ(PictureName(";/x/a.bmp"), ";/x/a.bmp");
  EXPECT_EQ(PictureName("/x/a.bmp"), "/x/a.bmp");
}

TEST_F(ElementPicture, AnImportedPageDiffersInNothingAndAnotherPictureIsTold) {
  const std::string text = PageOf({Bitmap(0, 0, 2, 2, {"\"TransparencyLevel\": 1", Pump()})});
  Import(text, File(""));
  WriteTextFile(File("a.json"), text, "file");
  WriteTextFile(File("b.json"), PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": \"fan.bmp\""})}), "file");
  const auto diff = [this](const std::string& file) {
    std::ostringstream out, err;
    DiffCommand(Path(), File(file), {}, File("d.png"), {out, err});
    return out.str() + err.str();
  };
  EXPECT_EQ(diff("a.json"), "nothing differs in 1 page with 1 element\n");
  const std::string told = diff("b.json");
  EXPECT_EQ(told.substr(0, told.find("Picture \"pump.bmp\" (CRC ")),
            "page 1: element 1 (clsBitmap): TransparencyLevel 1 -> 0\npage 1: element 1 (clsBitmap): ");
  EXPECT_NE(told.find(" -> \"fan.bmp\" (CRC "), std::string::npos);
  EXPECT_NE(told.find("2 differences on 1 page\n"), std::string::npos);
}

TEST_F(ElementPicture, APictureInUseKeepsItsFirstName) {
  // The same pixels at the panel's size, of another file and of other original pixels.
  WriteBmp("large.bmp", {{0xE00000, 0xE00000, 0xFFFFFF, 0xFFFFFF}, {0x000000, 0x000000, 0x0066E8, 0x0066E8}});
  const std::string large = "\"Picture\": \"large.bmp\"";
  const Lines columns = {"CRC", "LibCRC", "DxORG", "DyORG", "ImagePath"};
  ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
  const Lines before = Rows("SELECT * FROM ProjectImages", columns);
  const std::string text = PageOf({Bitmap(0, 0, 2, 2, {large})});
  const std::string second = "{\n  \"page\": 2" + text.substr(text.find(','));
  Import(second, File(""));
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", columns), before);
  EXPECT_EQ(GetImageDataORGByCRC(PictureCrcOf(*Load(2).elements[0])),
            (PixelBytes{kRed, kWhite, kBlack, kBlue}));
  EXPECT_EQ(Export(2), second);
  EXPECT_EQ(Export(1), PageOf({Bitmap(0, 0, 2, 2, {Pump()})}));
  WriteTextFile(File("second.json"), second, "file");
  std::ostringstream out, err;
  EXPECT_EQ(DiffCommand(Path(), File("second.json"), 2, "", {out, err}), 0);
  EXPECT_EQ(out.str(), "nothing differs in 1 page with 1 element\n");
  // When nothing has it any more, it is free for another name.
  Import("{\n  \"page\": 2" + PageOf({}).substr(text.find(',')), File(""));
  ImportElements({Bitmap(0, 0, 2, 2, {large})});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages WHERE RecordStatus=3", {"DxORG", "ImagePath"}),
            Lines{"4 large.bmp;" + File("large.bmp")});
}

TEST_F(ElementPicture, ARowWhoseOriginalPixelsDoNotServeTakesNewOnes) {
  for (const char* damage : {"Data8bppORG=NULL", "DxORG=3", "Bits=16", "RecordStatus=2"}) {
    ImportElements({});
    ImportElements({Bitmap(0, 0, 2, 2, {Pump()})});
    Connection().Execute(std::string("UPDATE ProjectImages SET ImagePath='x', ") + damage +
                         " WHERE RecordStatus=3");
    const std::string text = PageOf({Bitmap(0, 0, 2, 2, {Pump()})});
    Import("{\n  \"page\": 2" + text.substr(text.find(',')), File(""));
    EXPECT_EQ(Rows("SELECT * FROM ProjectImages WHERE RecordStatus=3", {"DxORG", "Bits", "ImagePath"}),
              Lines{"2 0 pump.bmp;" + File("pump.bmp")})
        << damage;
    Import("{\n  \"page\": 2" + PageOf({}).substr(text.find(',')), File(""));
  }
}

TEST_F(ElementPicture, ThePathOfAPictureIsNoDifference) {
  std::filesystem::copy_file(File("pump.bmp"), File("copy.bmp"));
  WriteTextFile(File("a.json"), PageOf({Bitmap(0, 0, 2, 2, {Pump()})}), "file");
  WriteTextFile(File("b.json"), PageOf({Bitmap(0, 0, 2, 2, {"\"Picture\": \"copy.bmp\""})}), "file");
  std::ostringstream out, err;
  EXPECT_EQ(DiffCommand(File("a.json"), File("b.json"), {}, "", {out, err}), 0);
  EXPECT_EQ(out.str(), "nothing differs in 1 page with 1 element\n");
}

TEST_F(ElementPicture, PicturesAreChosenForThoseThatAreNotThere) {
  const auto gone = [](const std::string& name) { return "\"Picture\": \"" + name + "\""; };
  WriteTextFile(File("page.json"),
                PageOf({Bitmap(0, 0, 2, 2, {gone("a.bmp")}), Bitmap(0, 0, 2, 2, {Pump()}),
                        Bitmap(0, 0, 2, 4, {gone("b.bmp")})}),
                "file");
  const auto before = Platform::Current().fileChooser;
  const std::string place =
      "page file " + File("page.json") + ", element 1 (clsBitmap): property \"Picture\": ";
  std::ostringstream out, err;
  const auto import = [&](const Lines& files) {
    return ImportCommand(File("page.json"), File("new.qz7"), {out, err}, files);
  };
  const std::string wrong = place + "picture file \"" + File("a.bmp") + "\": there is no such file";
  EXPECT_EQ(test::MessageOf([&] { import({}); }), wrong);
  EXPECT_EQ(test::MessageOf([&] { import({File("c.bmp")}); }),
            wrong + ", and the one that was chosen for it cannot be read");
  WriteTextFile(File("notes.bmp"), "These are notes.", "file");
  EXPECT_EQ(test::MessageOf([&] { import({File("notes.bmp")}); }),
            wrong + ", and the one that was chosen for it cannot be read");
  EXPECT_EQ(Platform::Current().fileChooser, before);
  EXPECT_EQ(err.str(), "");
  const std::string last = std::filesystem::relative(File("pump.bmp")).string();
  EXPECT_EQ(import({File("fan.bmp"), File("pump.bmp"), last}), 0);
  EXPECT_EQ(err.str(),
            "note: picture file \"" + std::filesystem::absolute(last).string() + "\" was not needed\n");
  std::ostringstream listed;
  ListImagesCommand(File("new.qz7"), {listed, err});
  EXPECT_NE(listed.str().find("element 1  " + File("fan.bmp")), std::string::npos) << listed.str();
  EXPECT_NE(listed.str().find("element 3  " + File("pump.bmp")), std::string::npos) << listed.str();
}

TEST_F(ElementPicture, OperandsOfAButtonGetTheirRows) {
  ImportElements({Button(2, {"\"EnabledOpAddr\": 4", "\"VisibleOpAddr\": 5", "\"HighlightOpAddr\": 6"})});
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY OprndAddr", {"OprndAddr", "OprndPurpose"}),
            (Lines{"4 " + std::to_string(eOP_EnabledOperand), "5 " + std::to_string(eOP_VisibleOperand),
                   "6 " + std::to_string(eOP_HighlightOperand)}));
}

}  // namespace
}  // namespace quenzel7::cli
