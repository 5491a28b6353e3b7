#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "framework/enums.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/demo_files.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/picture.h"
#include "hosts/cli/project_checks.h"
#include "hosts/cli/stored_pictures.h"
#include "hosts/cli/text_check.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/png_reader.h"
#include "variables/graphs/bargraph.h"
#include "variables/var_element.h"
#include "variables/var_types.h"

namespace quenzel7::cli {
namespace {

using quenzel7::test::TemporaryFolder;

struct DemoRun {
  int status;
  std::string told;
};

DemoRun RunDemo(const std::string& folder) {
  std::ostringstream out, err;
  const int status = DemoCommand(folder, {out, err});
  EXPECT_EQ(err.str(), "");
  return {status, out.str()};
}

std::vector<std::string> Texts(const LoadedPage& page) {
  std::vector<std::string> texts;
  WalkElements(page.elements, [&texts](ItfHmiElement& element, const ElementPath&) {
    if (BearsText(element)) texts.push_back(element.Txt());
  });
  return texts;
}

TEST(Demo, ItsPageIsTheFileInTheDemoFolder) {
  EXPECT_EQ(DemoPage(), ReadTextFile(QUENZEL7_SOURCE_DIR "/demo/boiler.json", "demo page"));
}

TEST(Demo, ItsSecondPageIsTheFileInTheDemoFolderAndIsExportedByteForByte) {
  const std::string file = ReadTextFile(QUENZEL7_SOURCE_DIR "/demo/machine.json", "demo page");
  EXPECT_EQ(DemoMachine(), file);
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  EXPECT_EQ(ReadTextFile(folder.File("machine.json"), "file"), file);
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  EXPECT_EQ(ExportPage(project, LoadPageAsFiled(project, ChoosePage(project, 2), {out, err})).text, file);
}

TEST(Demo, ItsSecondPageShowsEveryTypeOfVariableWholly) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  EXPECT_EQ(CheckProject(project, {out, err}).findings, std::vector<std::string>());
  const LoadedPage page = LoadPage(project, ChoosePage(project, 2), {out, err});
  std::map<enVarType, int> types;
  std::map<Long, int> directions;
  int ofOtherPages = 0;
  for (const ElementRef& element : page.elements) {
    const auto variable = std::dynamic_pointer_cast<clsVar>(element);
    if (!variable) continue;
    ++types[variable->VarType()];
    ofOtherPages += variable->GlobalVarID() > 0;
    if (const auto bar = std::dynamic_pointer_cast<clsVarBargraph>(HandlerOf(*element))) {
      ++directions[bar->BargraphType()];
    }
  }
  for (const auto& type : automation::EnumInfoOf<enVarType>::value.members) {
    if (!NewHandler(type.value)) continue;
    EXPECT_GT(types[static_cast<enVarType>(type.value)], 0) << type.name;
  }
  EXPECT_EQ(directions.size(), 4u);
  EXPECT_EQ(ofOtherPages, 1);
}

TEST(Demo, PaintsItsSecondPageAsThePictureOfTheReadme) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  const Picture painted = test::ReadPng(folder.File("machine.png"));
  const Picture shown = test::ReadPng(QUENZEL7_SOURCE_DIR "/docs/pictures/machine.png");
  ASSERT_EQ(painted.width, 480);
  ASSERT_EQ(painted.height, 320);
  EXPECT_EQ(shown.width, painted.width);
  EXPECT_EQ(DifferingPixels(painted, shown), 0u);
}

TEST(Demo, ItsTextsAreTheFileInTheDemoFolderAndAreExportedByteForByte) {
  EXPECT_EQ(DemoStrings(), ReadTextFile(QUENZEL7_SOURCE_DIR "/demo/strings.csv", "demo strings"));
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  EXPECT_EQ(ReadTextFile(folder.File("strings.csv"), "file"), DemoStrings());
  EXPECT_EQ(ExportStringsCommand(folder.File("boiler.qz7"), folder.File("out.csv")), 0);
  EXPECT_EQ(ReadTextFile(folder.File("out.csv"), "file"), DemoStrings());
}

TEST(Demo, TellsWhatItMadeAndWhatBecameOfIt) {
  const TemporaryFolder temporary;
  const std::string folder = temporary.File("a/b");
  const DemoRun run = RunDemo(folder);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.told,
      "quenzel7 demo\n"
      "  page file  " +
          folder +
          "/boiler.json\n"
          "  pictures   5 files in " +
          folder +
          "/pictures\n"
          "  project    page 1: 455 elements imported into " +
          folder +
          "/boiler.qz7\n"
          "  strings    8 texts and 4 languages imported into " +
          folder +
          "/boiler.qz7\n"
          "  picture    " +
          folder +
          "/before.png: the page as imported\n"
          "  drag       the first knob is moved: (34, 238, 18, 18) -> (106, 238, 18, 18), last step "
          "eCS_Legall\n"
          "  drag       the second knob is moved beyond the page: (96, 260, 12, 20) -> (36, 260, 12, 20),"
          " last step eCS_OutOfRAnge\n"
          "  drag       the bar is stretched past its other end: (81, 293, 34, 8) -> (47, 293, 34, 8),"
          " last step eCS_Legall\n"
          "  drag       the evening is made smaller: (190, 326, 90, 60) -> (190, 326, 75, 50), last step "
          "eCS_Legall\n"
          "  drag       the wagon, groups in a group, goes to the fire: (236, 166, 64, 40) -> (170, 166, 64, "
          "40),"
          " last step eCS_Legall\n"
          "  drag       the wagon is pulled beyond the page: (170, 166, 64, 40) -> (162, 166, 64, 40),"
          " last step eCS_OutOfRAnge\n"
          "  undo       element 429 is deleted and comes back as element 456\n"
          "  picture    " +
          folder +
          "/after.png: after the drags, from the objects that were dragged\n"
          "  page file  " +
          folder +
          "/machine.json\n"
          "  project    page 2: 49 elements imported into " +
          folder +
          "/boiler.qz7\n"
          "  picture    " +
          folder +
          "/reopened.png: from the project opened again, in new objects\n"
          "  picture    " +
          folder +
          "/machine.png: the second page, a screen of variables\n"
          "  picture    " +
          folder +
          "/sheet.png: all that the graphics interface draws\n"
          "  compared   after.png and reopened.png are the same, pixel by pixel (192000 pixels)\n");
}

TEST(Demo, ItsPicturesShowTheChange) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  const Picture before = test::ReadPng(folder.File("before.png"));
  const Picture after = test::ReadPng(folder.File("after.png"));
  const Picture reopened = test::ReadPng(folder.File("reopened.png"));
  EXPECT_EQ(before.width, 480);
  EXPECT_EQ(before.height, 400);
  EXPECT_GT(DifferingPixels(before, after), 8000u);
  EXPECT_LT(DifferingPixels(before, after), 11000u);
  EXPECT_EQ(DifferingPixels(after, reopened), 0u);
}

TEST(Demo, PicturesThatDifferGiveStatusOne) {
  std::ostringstream out, err;
  EXPECT_EQ(CompareDemoPictures({2, 1, {1, 2}}, {2, 1, {1, 3}}, {out, err}), 1);
  EXPECT_EQ(out.str(), "  compared   after.png and reopened.png DIFFER in 1 pixels\n");
}

TEST(Demo, ReplacesAnEarlierDemo) {
  const TemporaryFolder folder;
  WriteTextFile(folder.File("boiler.qz7"), "something else", "file");
  WriteTextFile(folder.File("other.txt"), "stays", "file");
  const DemoRun first = RunDemo(folder.File(""));
  const DemoRun second = RunDemo(folder.File(""));
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(second.told, first.told);
  EXPECT_EQ(ReadTextFile(folder.File("other.txt"), "file"), "stays");
}

TEST(Demo, LeavesAProjectInWhichTheChangesStand) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  const LoadedPage page = LoadPage(project, ChoosePage(project, 1), {out, err});
  std::map<Long, ElementRef> touched;
  std::size_t wagon = 0;
  for (std::size_t index = 0; index < page.elements.size(); ++index) {
    const ElementRef& element = page.elements[index];
    if (element->IsTouchable()) touched[element->TouchOprndAddr()] = element;
    WalkElement(*element, [&wagon, index](ItfHmiElement& part) {
      if (part.VisibleOpAddr() == 60) wagon = index;
    });
  }
  EXPECT_EQ(touched.at(101)->Xs(), 106);
  EXPECT_EQ(touched.at(102)->Xs(), 36);
  EXPECT_EQ(touched.at(103)->Xs(), 47);
  // All of the wagon, eight pixels to the left of the fire.
  const PageFile source = ReadPageFile(DemoPage(), "demo page");
  const ElementRef before = MakeElement(source.elements.at(wagon));
  std::vector<ItfHmiElement*> parts, partsBefore;
  WalkElement(*page.elements.at(wagon), [&parts](ItfHmiElement& part) { parts.push_back(&part); });
  WalkElement(*before, [&partsBefore](ItfHmiElement& part) { partsBefore.push_back(&part); });
  ASSERT_EQ(parts.size(), partsBefore.size());
  ASSERT_GT(parts.size(), 20u);
  for (std::size_t index = 0; index < parts.size(); ++index) {
    EXPECT_EQ(parts[index]->Xs(), IsGroup(*parts[index]) ? 0 : partsBefore[index]->Xs() - 74);
  }
  EXPECT_EQ(automation::GetByName(*page.elements.at(wagon), "Depth"), automation::Variant(Long{3}));
  // The push button has a new row at its old place, still solid, and its operands again.
  EXPECT_EQ(touched.at(104)->ID(), 456);
  EXPECT_EQ(touched.at(104)->OrderIndex(), 401);
  EXPECT_EQ(touched.at(104)->FillStyle(), eFS_Solid);
  const auto rows =
      ado::OpenRecordset(project.Connection(),
                         "SELECT OprndAddr, OprndPurpose FROM HMI_Operands WHERE ElementID=456 ORDER BY "
                         "OprndPurpose",
                         ado::adOpenStatic, ado::adLockReadOnly);
  ASSERT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Get("OprndAddr"), automation::Variant(Long{104}));
  EXPECT_EQ(rows->Get("OprndPurpose"), automation::Variant(Long{eOP_TouchOperand}));
  rows->MoveNext();
  EXPECT_EQ(rows->Get("OprndAddr"), automation::Variant(Long{23}));
  EXPECT_EQ(rows->Get("OprndPurpose"), automation::Variant(Long{eOP_VisibleOperand}));
}

TEST(Demo, ItsPageShowsEveryShapeInEveryStyle) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  const LoadedPage page = LoadPage(project, ChoosePage(project, 1), {out, err});
  std::map<std::string_view, int> classes;
  std::map<std::pair<Long, Long>, int> pens;
  std::map<Long, int> hatches, fills, lineWidths;
  std::map<std::pair<int, int>, int> directions;
  std::size_t deepest = 0;
  int touchedAndHidden = 0;
  WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath& path) {
    ++classes[element.Class().name];
    deepest = std::max(deepest, path.size());
    if (IsGroup(element)) return;
    if (element.ElementType() == 2) {
      const auto sign = [](Long value) { return (value > 0) - (value < 0); };
      ++lineWidths[element.PenWidth()];
      ++directions[{sign(element.Dx()), sign(element.Dy())}];
      return;
    }
    ++pens[{element.PenStyle(), element.PenWidth()}];
    ++hatches[element.HatchStyle()];
    ++fills[element.FillStyle()];
    touchedAndHidden += element.IsTouchable() && element.VisibleOpAddr() != -1;
  });
  for (const automation::ClassInfo* shape : ElementClasses::All().Classes()) {
    if (IsVariableClass(*shape)) continue;
    EXPECT_GT(classes[shape->name], 0) << shape->name;
  }
  EXPECT_EQ(deepest, 4u);
  for (const Long width : {1, 2, 3, 4, 5}) EXPECT_GT(lineWidths[width], 0) << width;
  // Every sign of both sides but none of a line without length.
  EXPECT_EQ(directions.size(), 8u);
  EXPECT_EQ(directions.count({0, 0}), 0u);
  for (const auto& style : automation::EnumInfoOf<enPenStyle>::value.members) {
    for (const Long width : {1, 2, 5})
      EXPECT_GT((pens[{style.value, width}]), 0) << style.name << " " << width;
  }
  for (const auto& hatch : automation::EnumInfoOf<enHatchStyle>::value.members) {
    EXPECT_GT(hatches[hatch.value], 0) << hatch.name;
  }
  EXPECT_GT(fills[eFS_Hollow], 0);
  EXPECT_GT(fills[eFS_Solid], 0);
  EXPECT_GT(touchedAndHidden, 0);
}

TEST(Demo, ItsPageShowsTextsAndFramesOfEveryStyle) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::ostringstream out, err;
  const LoadedPage page = LoadPage(project, ChoosePage(project, 1), {out, err});
  std::map<std::pair<std::string_view, Long>, int> styles;
  std::map<std::string_view, int> ofLibrary;
  int ofSeveralLines = 0, touchable = 0, framesInGroups = 0;
  WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath& path) {
    if (!BearsText(element)) return;
    EXPECT_EQ(CheckText(element), std::vector<std::string>());
    const std::string_view name = element.Class().name;
    ++styles[{name, element.Flat3D()}];
    ofLibrary[name] += ShowsLibraryString(element);
    ofSeveralLines += element.Txt().find("\r\n") != std::string::npos;
    touchable += element.IsTouchable();
    framesInGroups += name == "clsFrame" && path.size() > 1;
  });
  for (const Long style : {0, 1, 2, 3, 4}) EXPECT_GT((styles[{"clsText", style}]), 0) << style;
  for (const Long style : {0, 1, 2, 3}) EXPECT_GT((styles[{"clsFrame", style}]), 0) << style;
  for (const Long style : {0, 1, 2}) EXPECT_GT((styles[{"clsButton", style}]), 1) << style;
  EXPECT_EQ(styles.size(), 12u);
  EXPECT_GT(ofLibrary["clsText"], 0);
  EXPECT_GT(ofLibrary["clsFrame"], 0);
  EXPECT_GT(ofSeveralLines, 1);
  EXPECT_GT(touchable, 1);
  EXPECT_GT(framesInGroups, 1);
  // What is shown is the text that takes the most room.
  const auto texts = Texts(page);
  for (const char* text :
       {"Quenzel", "7", "Calefacci\u00f3n", "Operation", "\u00b0C", "Feed water\r\n62 %"}) {
    EXPECT_EQ(std::count(texts.begin(), texts.end(), text), 1) << text;
  }
}

TEST(Demo, ItsPicturesAreTheFilesInTheDemoFolder) {
  std::vector<std::string> names;
  for (const DemoPicture& picture : DemoPictures()) {
    names.emplace_back(picture.name);
    EXPECT_EQ(picture.bytes,
              ReadTextFile(QUENZEL7_SOURCE_DIR "/demo/pictures/" + names.back(), "demo picture"));
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"drop.gif", "evening.jpg", "fan.bmp", "start.bmp", "warning.ico"}));
}

TEST(Demo, ItsPageShowsPicturesOfAllKindsAndSharesThem) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  ProjectSession project(folder.File("boiler.qz7"), corvane1::ProjectMode::ReadOnly);
  std::map<Long, std::size_t> users;
  for (const PictureLink& link : PictureLinks(project.Connection())) ++users[link.crc];
  std::vector<std::pair<std::string, std::size_t>> pictures;
  for (const StoredPicture& picture : StoredPictures(project.Connection())) {
    pictures.emplace_back(PictureName(picture.path), users[picture.crc]);
  }
  // The row of the evening became free when it was made smaller, and the second page took it.
  EXPECT_EQ(pictures, (std::vector<std::pair<std::string, std::size_t>>{{"pictures/fan.bmp", 1},
                                                                        {"pictures/drop.gif", 2},
                                                                        {"pictures/warning.ico", 1},
                                                                        {"pictures/start.bmp", 1},
                                                                        {"pictures/start.bmp", 2},
                                                                        {"pictures/start.bmp", 1},
                                                                        {"pictures/evening.jpg", 1}}));
}

TEST(Demo, TellsWhenAnEarlierProjectCannotBeRemoved) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.File("boiler.qz7/x"));
  std::ostringstream out, err;
  EXPECT_EQ(test::MessageOf([&] {
              DemoCommand(folder.File("."), {out, err});
            }),
            "project " + folder.File(".") + "/boiler.qz7 cannot be removed: Directory not empty");
}

TEST(Demo, TellsWhenTheFolderOfItsPicturesCannotBeMade) {
  const TemporaryFolder folder;
  WriteTextFile(folder.File("pictures"), "a file", "file");
  std::ostringstream out, err;
  EXPECT_EQ(test::MessageOf([&] {
              DemoCommand(folder.File("."), {out, err});
            }),
            "folder " + folder.File(".") + "/pictures cannot be made: Not a directory");
}

TEST(Demo, TellsWhenItsFolderCannotBeMade) {
  std::ostringstream out, err;
  EXPECT_EQ(test::MessageOf([&] {
              DemoCommand("/dev/null/x", {out, err});
            }),
            "folder /dev/null/x cannot be made: Not a directory");
}

}  // namespace
}  // namespace quenzel7::cli
