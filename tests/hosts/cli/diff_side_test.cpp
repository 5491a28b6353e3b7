#include "hosts/cli/diff_side.h"

#include <gtest/gtest.h>

#include "hosts/cli/picture.h"
#include "hosts/cli/text_file.h"
#include "platform/corvane1/settings.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/library_fixture.h"
#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

class DiffSideTest : public test::CliProjectTest {
 protected:
  std::string Write(const std::string& name, const std::string& text) {
    WriteTextFile(folder_.File(name), text, "file");
    return folder_.File(name);
  }
  std::string File(const std::string& name) const { return folder_.File(name); }
  /// The value of a property of the first element.
  static std::string ValueOf(const PageSnapshot& page, std::string_view property) {
    const ElementSnapshot& element = page.elements.at(0);
    for (std::size_t at = 0; at < element.values.size(); ++at) {
      if (element.properties[at] == property) return element.values[at];
    }
    return "none";
  }

 private:
  quenzel7::test::TemporaryFolder folder_;
};

TEST_F(DiffSideTest, ContentsTellProjectAndPageFileApart) {
  EXPECT_FALSE(DiffSource(Path()).File());
  EXPECT_EQ(DiffSource(Path()).Place(), "project " + Path());
  for (const char* before : {"", " \t\r\n", "\xef\xbb\xbf", "\xef\xbb\xbf\n "}) {
    const std::string path = Write("page.qz7", before + PageText(4, {}));
    const DiffSource source(path);
    ASSERT_TRUE(source.File());
    EXPECT_EQ(source.File()->info.number, 4);
    EXPECT_EQ(source.Path(), path);
    EXPECT_EQ(source.Place(), "page file " + path);
  }
}

TEST_F(DiffSideTest, WhatIsNeitherIsRefused) {
  for (const char* text :
       {"", "  ", "[]", "SQLite format 3", "SQLite format 4", "\xef\xbb{", "\xef\xbb\xbf"}) {
    const std::string path = Write("x", text);
    EXPECT_EQ(test::MessageOf([&] { DiffSource{path}; }),
              "file " + path +
                  " is neither a project nor a page file: it begins neither as a database file nor with {")
        << text;
  }
}

TEST_F(DiffSideTest, WhatCannotBeReadIsTold) {
  EXPECT_EQ(test::MessageOf([&] { DiffSource{File("none")}; }),
            "file " + File("none") + " cannot be read: No such file or directory");
}

TEST_F(DiffSideTest, APageFileWithErrorsIsTold) {
  const std::string path = Write("x", "{}");
  EXPECT_EQ(test::MessageOf([&] { DiffSource{path}; }), "page file " + path + ": \"page\" is missing");
}

TEST_F(DiffSideTest, ADamagedProjectIsRefusedWhenItIsOpened) {
  const DiffSource source(Write("x", std::string("SQLite format 3\0and no more", 28)));
  EXPECT_EQ(test::MessageOf([&] { DiffSide(source, source); }).substr(0, 12), "project file");
}

TEST_F(DiffSideTest, GivesThePagesOfAProjectAndOfAPageFile) {
  Import(PageText(3, {ElementText(1, 2, 3, 4)}));
  Import(PageText(1, {}));
  const DiffSource project(Path()), file(Write("x", PageText(8, {})));
  const auto numbers = [](const std::vector<PageInfo>& pages) {
    std::vector<Long> found;
    for (const PageInfo& page : pages) found.push_back(page.number);
    return found;
  };
  EXPECT_EQ(numbers(DiffSide(project, file).Pages()), (std::vector<Long>{1, 3}));
  EXPECT_EQ(numbers(DiffSide(file, project).Pages()), (std::vector<Long>{8}));
}

TEST_F(DiffSideTest, ElementsOfAProjectHaveAnIdentity) {
  const std::string text = PageText(3, {ElementText(1, 2, 3, 4)});
  Import(text);
  Connection().Execute("UPDATE HMI_Elements SET GUID=77");
  const DiffSource project(Path()), file(Write("x", text));
  const PageInfo info = DiffSide(file, project).Pages().at(0);
  EXPECT_EQ(DiffSide(project, file).Snapshot(info, NoTerminal()).elements.at(0).identity, "1 77");
  EXPECT_EQ(DiffSide(file, project).Snapshot(info, NoTerminal()).elements.at(0).identity, std::nullopt);
  Connection().Execute("UPDATE HMI_Elements SET GUID=Null");
  EXPECT_EQ(DiffSide(project, file).Snapshot(info, NoTerminal()).elements.at(0).identity, "1 ");
  // A damaged number is no reason not to compare.
  Connection().Execute("UPDATE HMI_Elements SET GUID=x'00ff'");
  EXPECT_EQ(DiffSide(project, file).Snapshot(info, NoTerminal()).elements.at(0).identity, "1 ");
}

TEST_F(DiffSideTest, WhatAPageFileLeavesOutIsThatOfTheOtherProject) {
  corvane1::LayeredSettings(Platform::Current().heldProject).SetInProject(6000, 6050, "7");
  const DiffSource project(Path());
  const DiffSource file(Write("x", PageText(1, {ElementText(1, 2, 3, 4, "\"TouchOprndAddr\": 5")})));
  Platform::Current() = Platform();
  DiffSide beside(file, project);
  EXPECT_EQ(ValueOf(beside.Snapshot(file.File()->info, NoTerminal()), "PenWidth"), "7");
}

TEST_F(DiffSideTest, TwoPageFilesNeedNoProject) {
  const DiffSource file(Write("x", PageText(1, {ElementText(1, 2, 3, 4, "\"TouchOprndAddr\": 5")})));
  Platform::Current() = Platform();
  DiffSide side(file, file);
  const PageSnapshot page = side.Snapshot(file.File()->info, NoTerminal());
  EXPECT_EQ(ValueOf(page, "PenWidth"), "1");
  EXPECT_EQ(ValueOf(page, "TouchOprndAddr"), "5");
  EXPECT_EQ(page.info.name, "Boiler");
}

TEST_F(DiffSideTest, ARowThatDoesNotLoadIsTold) {
  Import(PageText(1, {ElementText(1, 2, 3, 4)}));
  Connection().Execute("UPDATE HMI_Elements SET Type=99");
  const DiffSource project(Path());
  EXPECT_EQ(test::MessageOf([&] { DiffSide(project, project).Snapshot({}, NoTerminal()); }),
            "project " + Path() + ", row 1 of HMI_Elements: there is no class of element type 99");
}

TEST_F(DiffSideTest, ATableThatCannotBeReadIsToldWithTheSide) {
  Import(PageText(1, {ElementText(1, 2, 3, 4)}));
  Connection().Execute("UPDATE HostPages SET Width=0");
  const DiffSource project(Path());
  EXPECT_EQ(test::MessageOf([&] { DiffSide(project, project).Pages(); }),
            "project " + Path() +
                ": HostPages, row 1: column 'Width' of HostPages: 0 was found; a number of pixels from 1 to "
                "4096 was "
                "expected");
}

using DiffSideTexts = test::LibraryTest;

TEST_F(DiffSideTexts, APageFileHasThePlacesInTheTabOrderThatImportGives) {
  std::string frame = Text(R"("TouchOprndAddr": 0, "TabIndex": 9)");
  frame.replace(frame.find("clsText"), 7, "clsFrame");
  const std::string text = PageOf(
      Text(R"("TouchOprndAddr": 5)") + "," + Text(R"("TabIndex": 7)") + "," +
      Text(R"("TouchOprndAddr": 5, "TabIndex": 1)") + "," + Text(R"("TouchOprndAddr": -2, "TabIndex": 1)") +
      "," + frame + "," + R"({"class": "clsRectangle", "Dx": 5, "Dy": 5, "TouchOprndAddr": 5},)" +
      R"({"class": "clsGroup", "elements": [{"class": "clsLine", "Dx": 5}, )" + Text(R"("TabIndex": 4)") +
      "]}," + Text(R"("TouchOprndAddr": 5, "TabIndex": 255)") + "," +
      Text(R"("TouchOprndAddr": 5, "TabIndex": 3)") + "," + Text(R"("TouchOprndAddr": 5)"));
  const quenzel7::test::TemporaryFolder folder;
  WriteTextFile(folder.File("page"), text, "file");
  Import(text);
  const DiffSource project(Path()), file(folder.File("page"));
  const auto places = [this](const DiffSource& source, const DiffSource& other) {
    DiffSide side(source, other);
    std::vector<std::string> found;
    for (const ElementSnapshot& element : side.Snapshot(side.Pages().at(0), NoTerminal()).elements) {
      for (std::size_t at = 0; at < element.values.size(); ++at) {
        if (element.properties[at] == "TabIndex") found.push_back(element.values[at]);
      }
    }
    return found;
  };
  EXPECT_EQ(places(file, project),
            (std::vector<std::string>{"0", "255", "1", "2", "9", "255", "3", "3", "4"}));
  EXPECT_EQ(places(project, file), places(file, project));
  EXPECT_EQ(places(file, file), places(file, project));
}

TEST_F(DiffSideTexts, WhatTheTabOrderHasNoRoomForHasNoPlace) {
  std::string elements;
  for (int count = 0; count < 257; ++count)
    elements += (count == 0 ? "" : ",") + Text(R"("TouchOprndAddr": 5)");
  const quenzel7::test::TemporaryFolder folder;
  WriteTextFile(folder.File("page"), PageOf(elements), "file");
  const DiffSource file(folder.File("page"));
  const PageSnapshot page = DiffSide(file, file).Snapshot(file.File()->info, NoTerminal());
  const auto placeOf = [&page](std::size_t index) {
    const ElementSnapshot& element = page.elements.at(index);
    for (std::size_t at = 0; at < element.values.size(); ++at) {
      if (element.properties[at] == "TabIndex") return element.values[at];
    }
    return std::string();
  };
  EXPECT_EQ(placeOf(254), "254");
  EXPECT_EQ(placeOf(255), "255");
  EXPECT_EQ(placeOf(256), "255");
}

TEST_F(DiffSideTexts, BothSidesAreComparedByTheirOwnTextsAndPaintedWithTheLibrarys) {
  // The second line has no room, and cannot be measured.
  SetString(5, 1, "library\r\n\u0416", -1);
  const std::string shown = PageOf(Text("\"Txt\": \"library\\r\\n\u0416\""));
  const std::string own = PageOf(Text("\"Txt\": \"\u0416\", \"StorageStringID\": 5"));
  const quenzel7::test::TemporaryFolder folder;
  WriteTextFile(folder.File("own"), own, "file");
  WriteTextFile(folder.File("shown"), shown, "file");
  Import(own);
  Boxes();
  const DiffSource project(Path()), file(folder.File("own")), expected(folder.File("shown"));
  const PageInfo info = file.File()->info;
  const Picture picture = DiffSide(expected, project).Paint(info, {true}, NoTerminal()).picture;
  for (const auto& [source, other] : {std::pair(&project, &file), std::pair(&file, &project)}) {
    DiffSide side(*source, *other);
    EXPECT_EQ(side.Snapshot(info, NoTerminal()).elements.at(0).values.at(9), "\"\u0416\"");
    EXPECT_EQ(DifferingPixels(side.Paint(info, {true}, NoTerminal()).picture, picture), 0u);
  }
  EXPECT_EQ(Boxes(), "");
}

TEST_F(DiffSideTest, VariablesOfAPageFileAreThoseThatImportMakes) {
  const std::string page =
      R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [)"
      R"({"class": "clsVar", "TouchOprndAddr": 4}, {"class": "clsLine"}, {"class": "clsVar", "TouchOprndAddr": 5},)"
      R"({"class": "clsVar", "TouchOprndAddr": -2, "TabIndex": 7, "KeypadEntry": true},)"
      R"({"class": "clsVar", "TabIndex": 9}, {"class": "clsVar", "VarType": "eVT_BarGraph"}]})";
  const DiffSource file(Write("x", page));
  Import(page);
  const PageSnapshot imported = TakeSnapshot(LoadAsFiled(), {});
  const PageSnapshot read = DiffSide(file, file).Snapshot(file.File()->info, NoTerminal());
  std::vector<std::string> places;
  ASSERT_EQ(read.elements.size(), imported.elements.size());
  for (std::size_t index = 0; index < read.elements.size(); ++index) {
    const ElementSnapshot& element = read.elements[index];
    EXPECT_EQ(element.elementClass, imported.elements[index].elementClass);
    EXPECT_EQ(element.values, imported.elements[index].values) << index;
    for (std::size_t at = 0; at < element.values.size(); ++at) {
      if (element.properties[at] == "TabIndex") places.push_back(element.values[at]);
    }
  }
  EXPECT_EQ(places, (std::vector<std::string>{"0", "1", "7", "255", "255"}));
}

TEST_F(DiffSideTest, PaintsThePageAndTellsWhatSomeElementsCover) {
  // What covers is what paints, in whatever colour.
  const auto box = [](Long xs, int colour) {
    return "{\"class\": \"clsRectangle\", \"Xs\": " + std::to_string(xs) +
           ", \"Dx\": 1, \"Dy\": 1, \"ColorBack\": " + std::to_string(colour) +
           ", \"ColorFore\": " + std::to_string(colour) + "}";
  };
  constexpr std::uint32_t W = 0xFFFFFF, K = 0x000000;
  const DiffSource file(
      Write("x", R"({"page": 1, "panel": {"type": 1, "width": 5, "height": 1}, "elements": [)" + box(0, 9) +
                     ", {\"class\": \"clsGroup\", \"elements\": [" + box(1, -1) + ", " + box(2, 9) + "]}, " +
                     box(3, 9) + "]}"));
  const auto paint = [&](const std::vector<bool>& differs) {
    return DiffSide(file, file).Paint(file.File()->info, differs, NoTerminal());
  };
  const PaintedPage page = paint({true, false, true, true, false});
  EXPECT_EQ(page.picture.width, 5);
  EXPECT_EQ(page.picture.pixels, (std::vector<std::uint32_t>{K, W, K, K, W}));
  EXPECT_EQ(page.covered, (std::vector<bool>{true, true, true, false, false}));
  // A group paints nothing itself.
  EXPECT_EQ(paint({false, true, false, false, true}).covered,
            (std::vector<bool>{false, false, false, true, false}));
}

}  // namespace
}  // namespace quenzel7::cli
