#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "framework/enums.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/demo_page.h"
#include "hosts/cli/picture.h"
#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/png_reader.h"

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

TEST(Demo, ItsPageIsTheFileInTheDemoFolder) {
  EXPECT_EQ(DemoPage(), ReadTextFile(QUENZEL7_SOURCE_DIR "/demo/boiler.json", "demo page"));
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
          "  project    page 1: 183 elements imported into " +
          folder +
          "/boiler.qz7\n"
          "  picture    " +
          folder +
          "/before.png: the page as imported\n"
          "  drag       the first knob is moved: (40, 251, 12, 20) -> (136, 251, 12, 20), last step "
          "eCS_Legall\n"
          "  drag       the second knob is moved beyond the page: (160, 279, 12, 20) -> (82, 279, 12, 20),"
          " last step eCS_OutOfRAnge\n"
          "  drag       the bar is stretched past its other end: (298, 259, 50, 8) -> (248, 259, 50, 8),"
          " last step eCS_Legall\n"
          "  undo       element 182 is deleted and comes back as element 184\n"
          "  picture    " +
          folder +
          "/after.png: after the drags, from the objects that were dragged\n"
          "  picture    " +
          folder +
          "/reopened.png: from the project opened again, in new objects\n"
          "  picture    " +
          folder +
          "/sheet.png: all that the graphics interface draws\n"
          "  compared   after.png and reopened.png are the same, pixel by pixel (153600 pixels)\n");
}

TEST(Demo, ItsPicturesShowTheChange) {
  const TemporaryFolder folder;
  RunDemo(folder.File(""));
  const Picture before = test::ReadPng(folder.File("before.png"));
  const Picture after = test::ReadPng(folder.File("after.png"));
  const Picture reopened = test::ReadPng(folder.File("reopened.png"));
  EXPECT_EQ(before.width, 480);
  EXPECT_EQ(before.height, 320);
  EXPECT_GT(DifferingPixels(before, after), 500u);
  EXPECT_LT(DifferingPixels(before, after), 3000u);
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
  const LoadedPage page = LoadPage(project, ChoosePage(project, 0), {out, err});
  std::map<Long, ElementRef> touched;
  for (const ElementRef& element : page.elements) {
    if (element->IsTouchable()) touched[element->TouchOprndAddr()] = element;
  }
  EXPECT_EQ(touched.at(101)->Xs(), 136);
  EXPECT_EQ(touched.at(102)->Xs(), 82);
  EXPECT_EQ(touched.at(103)->Xs(), 248);
  // The lamp has a new row at its old place, still solid, and its operands again.
  EXPECT_EQ(touched.at(104)->ID(), 184);
  EXPECT_EQ(touched.at(104)->OrderIndex(), 182);
  EXPECT_EQ(touched.at(104)->FillStyle(), eFS_Solid);
  const auto rows =
      ado::OpenRecordset(project.Connection(),
                         "SELECT OprndAddr, OprndPurpose FROM HMI_Operands WHERE ElementID=184 ORDER BY "
                         "OprndPurpose",
                         ado::adOpenStatic, ado::adLockReadOnly);
  ASSERT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Get("OprndAddr"), automation::Variant(Long{104}));
  EXPECT_EQ(rows->Get("OprndPurpose"), automation::Variant(Long{eOP_TouchOperand}));
  rows->MoveNext();
  EXPECT_EQ(rows->Get("OprndAddr"), automation::Variant(Long{23}));
  EXPECT_EQ(rows->Get("OprndPurpose"), automation::Variant(Long{eOP_VisibleOperand}));
}

TEST(Demo, ItsPageShowsEveryStyle) {
  const PageFile page = ReadPageFile(DemoPage(), "demo page");
  std::map<std::pair<Long, Long>, int> pens;
  std::map<Long, int> hatches, fills;
  int touchedAndHidden = 0;
  for (const PageElement& description : page.elements) {
    const ElementRef element = MakeElement({description.elementClass, [&] {
                                              std::vector<PropertyValue> values;
                                              for (const PropertyValue& value : description.values) {
                                                if (value.property->name != "TouchOprndAddr")
                                                  values.push_back(value);
                                              }
                                              return values;
                                            }()});
    ++pens[{element->PenStyle(), element->PenWidth()}];
    ++hatches[element->HatchStyle()];
    ++fills[element->FillStyle()];
    touchedAndHidden += element->VisibleOpAddr() != -1 && description.values.size() > 4;
  }
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

TEST(Demo, TellsWhenAnEarlierProjectCannotBeRemoved) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.File("boiler.qz7/x"));
  std::ostringstream out, err;
  EXPECT_EQ(test::MessageOf([&] {
              DemoCommand(folder.File("."), {out, err});
            }),
            "project " + folder.File(".") + "/boiler.qz7 cannot be removed: Directory not empty");
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
