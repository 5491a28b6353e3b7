#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/cli/commands.h"
#include "hosts/cli/text_file.h"
#include "server/services/service_classes.h"
#include "server/types/class_table.h"
#include "server/types/describe.h"
#include "tests/support/raises.h"

namespace quenzel7::cli {
namespace {

std::string Told(const std::string& name, ClassesForm form = ClassesForm::AsText) {
  std::ostringstream out, err;
  EXPECT_EQ(ClassesCommand(name, form, {out, err}), 0);
  EXPECT_EQ(err.str(), "");
  return out.str();
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(ClassesCommand, TellsTheClassesWithTheirNamesAndInterfaces) {
  const auto lines = LinesOf(Told(""));
  ASSERT_EQ(lines.size(), server::PublishedClasses().size() + server::ServiceClasses().size() + 1);
  EXPECT_EQ(lines[0],
            "class                    programmatic name                 hosts create it  interfaces");
  EXPECT_EQ(lines[1],
            "clsRectangle             Quenzel7.clsRectangle             yes              _clsRectangle, "
            "ItfHmiElement");
  EXPECT_EQ(lines.back(),
            "CallRecorder             Quenzel7.CallRecorder             no               CallRecorder");
}

TEST(ClassesCommand, TellsTheMembersOfAClassInSlotOrder) {
  EXPECT_EQ(Told("COLLECTION"),
            "class       programmatic name    hosts create it  interfaces\n"
            "Collection  Quenzel7.Collection  no               Collection\n"
            "\n"
            "number  slots  call  Collection\n"
            "     1  1      call  Add(Item As Variant, Optional Key As Variant)\n"
            "                       Appends a value, under a key if one is given.\n"
            "     2  2      get   Count As Long\n"
            "                       Number of values.\n"
            "     0  3      call  Item(Index As Variant) As Variant\n"
            "                       The value at a place from 1, or under a key.\n"
            "     4  4      call  Remove(Index As Variant)\n"
            "                       Takes the value at a place or under a key out.\n"
            "    -4  5      get   _NewEnum As Object\n"
            "                       Walks over the values in order.\n");
}

TEST(ClassesCommand, OfAClassItTellsTheDefaultInterfaceAlone) {
  const std::string told = Told("clsRectangle");
  EXPECT_NE(told.find("  _clsRectangle\n"), std::string::npos);
  EXPECT_EQ(told.find("UpdateDisplayWithTransx"), std::string::npos);
}

TEST(ClassesCommand, TellsTheMembersOfAnInterfaceAndTheirMarks) {
  const auto lines = LinesOf(Told("_clsrectangle"));
  EXPECT_EQ(lines[0].substr(0, 6), "number");
  EXPECT_EQ(lines[0].substr(lines[0].size() - 13), "_clsRectangle");
  std::size_t marked = 0;
  for (const std::string& line : lines) {
    if (line.find(" [NotStored]") == line.size() - 12) ++marked;
  }
  EXPECT_EQ(marked, 1u);
}

TEST(ClassesCommand, TellsTheMembersOfAnEnumeration) {
  EXPECT_EQ(Told("enfillstyle"),
            "enFillStyle  value\n"
            "eFS_Hollow       0\n"
            "eFS_Solid        1\n");
}

TEST(ClassesCommand, OfTheClassOfEnumerationsItTellsThese) {
  const std::string told = Told("clsEnums");
  EXPECT_EQ(LinesOf(told)[1], "clsEnums  Quenzel7.clsEnums  no               clsEnums");
  EXPECT_EQ(told.find("number  slots"), std::string::npos);
  EXPECT_NE(told.find("clsEnums\n\nenVarType "), std::string::npos);
  EXPECT_NE(told.find("\n\nenFillStyle  value\neFS_Hollow       0\neFS_Solid        1\n\n"),
            std::string::npos);
  EXPECT_NE(told.find("\n\nenSdBrowserOpID "), std::string::npos);
}

TEST(ClassesCommand, AnUnknownNameIsToldWithTheNearest) {
  std::ostringstream out, err;
  for (const ClassesForm form : {ClassesForm::AsText, ClassesForm::AsJson}) {
    EXPECT_RAISES(5,
                  "there is no class, interface or enumeration \"clsRectangel\"; nearest is \"clsRectangle\"",
                  ClassesCommand("clsRectangel", form, {out, err}));
  }
  EXPECT_EQ(out.str(), "");
}

TEST(ClassesCommand, GivesTheTypeInformationAsJson) {
  EXPECT_EQ(Told("", ClassesForm::AsJson), server::Describe("", server::ServiceClasses()) + "\n");
  EXPECT_EQ(Told("enFillStyle", ClassesForm::AsJson), server::Describe("enFillStyle") + "\n");
}

/// With QUENZEL7_RENEW_GOLDENS=1 in the environment the page is written anew.
TEST(ClassesCommand, ThePageOfAllClassesIsTheOneOfTheDocumentation) {
  const std::string path = QUENZEL7_SOURCE_DIR "/docs/reference.md";
  const std::string page = Told("", ClassesForm::AsReference);
  const char* renew = std::getenv("QUENZEL7_RENEW_GOLDENS");
  if (renew && std::string(renew) == "1") WriteTextFile(path, page, "page");
  EXPECT_TRUE(ReadTextFile(path, "page") == page)
      << path << " is not what the member tables say; QUENZEL7_RENEW_GOLDENS=1 writes it anew";
}

}  // namespace
}  // namespace quenzel7::cli
