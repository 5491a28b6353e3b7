#include "hosts/cli/text_check.h"

#include <gtest/gtest.h>

#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/corvane1/settings.h"
#include "shapes/frame.h"
#include "shapes/rectangle.h"
#include "shapes/text.h"
#include "tests/hosts/cli/library_fixture.h"
#include "variables/var_element.h"

namespace quenzel7::cli {
namespace {

class TextCheck : public test::LibraryTest {
 protected:
  /// What is found, a line each.
  static std::string Found(ItfHmiElement& element) {
    std::string lines;
    for (const std::string& finding : CheckText(element)) lines += (lines.empty() ? "" : "\n") + finding;
    return lines;
  }
  /// Characters of font 0 are 8 wide and 16 high.
  template <class Element>
  static void Show(Element& element, const std::string& text, Long dx, Long dy) {
    element.Flat3D(0);
    element.FontNumber(0);
    element.Dx(dx);
    element.Dy(dy);
    element.Txt(text);
  }
};

TEST_F(TextCheck, ATextThatFitsIsSound) {
  clsText text;
  Show(text, "boiler\r\nhouse", 48, 32);
  EXPECT_EQ(Found(text), "");
  clsText empty;
  Show(empty, "", 0, 0);
  EXPECT_EQ(Found(empty), "");
  clsRectangle other;
  EXPECT_EQ(Found(other), "");
}

TEST_F(TextCheck, ASampleOfAVariableThatIsCutIsTold) {
  Import(PageOf(
      R"({"class": "clsVar", "VarType": "eVT_Numeric", "Dx": 40, "Dy": 16, "Flat3D": 0, "FontNumber": 0},
      {"class": "clsVar", "VarType": "eVT_Numeric", "Dx": 48, "Dy": 16, "Flat3D": 0, "FontNumber": 0},
      {"class": "clsVar", "VarType": "eVT_DisplayString", "Handler": {"StringPattern": ""}},
      {"class": "clsVar", "VarType": "eVT_BarGraph"})"));
  const LoadedPage page = Load();
  EXPECT_EQ(Found(*page.elements.at(0)),
            "shows only \"-9999\" of its text \"-99999\" at size (40, 16); (48, 16) was expected");
  EXPECT_EQ(Found(*page.elements.at(1)), "");
  EXPECT_EQ(Found(*page.elements.at(2)), "shows an empty text; a sample of its value was expected");
  EXPECT_EQ(Found(*page.elements.at(3)), "");
}

TEST_F(TextCheck, EveryTextOfAListIsJudgedAndTheOneThatIsShownStays) {
  Import(PageOf(
      R"({"class": "clsVar", "VarType": "eVT_ListText", "Dx": 16, "Dy": 16, "Flat3D": 0, "FontNumber": 0,
      "Handler": {"ListTexts": [{"Txt": "ab"}, {}, {"Txt": "abc"}]}})"));
  const LoadedPage page = Load();
  EXPECT_EQ(Found(*page.elements.at(0)),
            "shows only \"ab\" of its text \"abc\" (Handler.ListTexts[3]) at size (16, 16); (24, 16) was "
            "expected");
  const auto variable = std::dynamic_pointer_cast<clsVar>(page.elements.at(0));
  EXPECT_EQ(variable->DefaultDisplay(), 1);
  EXPECT_EQ(automation::GetByName(*HandlerOf(*variable)->DrawingElement(), "Txt"), automation::Variant("ab"));
}

TEST_F(TextCheck, ABitWithOtherThanTwoTextsIsTold) {
  Import(PageOf(R"({"class": "clsVar", "Dx": 200, "Dy": 40}, {"class": "clsVar", "Dx": 200, "Dy": 40},
      {"class": "clsVar", "Dx": 200, "Dy": 40},
      {"class": "clsVar", "VarType": "eVT_ListText", "Dx": 200, "Dy": 40})"));
  const LoadedPage page = Load();
  const auto handlerOf = [&page](std::size_t place) { return HandlerOf(*page.elements.at(place)); };
  automation::InvokeByName(*handlerOf(1), "AppendText");
  automation::InvokeByName(*handlerOf(2), "Clear");
  automation::InvokeByName(*handlerOf(2), "AppendText");
  EXPECT_EQ(Found(*page.elements.at(0)), "");
  EXPECT_EQ(Found(*page.elements.at(1)), "Handler.ListTexts has 3 texts; two texts were expected");
  EXPECT_EQ(Found(*page.elements.at(2)), "Handler.ListTexts has 1 text; two texts were expected");
  EXPECT_EQ(Found(*page.elements.at(3)), "");
}

TEST_F(TextCheck, StringsOfVariablesThatTheLibraryLacksAreTold) {
  SetString(4, 2, "Kessel", -1);
  Import(PageOf(R"({"class": "clsVar", "Dx": 200, "Dy": 40, "Handler": {"StorageText": -1,
        "ListTexts": [{"StorageStringID": 4}, {"StorageStringID": 5}]}},
      {"class": "clsVar", "VarType": "eVT_Numeric", "Dx": 200, "Dy": 40, "Handler": {"StorageText": -1,
        "ListText": {"StorageStringID": 6}}},
      {"class": "clsVar", "Dx": 200, "Dy": 40, "Handler": {"ListTexts": [{"StorageStringID": 5}, {}]}},
      {"class": "clsVar", "Dx": 200, "Dy": 40, "Handler": {"StorageText": -1,
        "ListTexts": [{"StorageStringID": -1}, {"StorageStringID": 9, "StorageStringType": 3}]}})"));
  const LoadedPage page = Load();
  const std::string noString =
      " names no text of the string library; the number of one that some language has was expected";
  EXPECT_EQ(Found(*page.elements.at(0)), "Handler.ListTexts[2].StorageStringID 5" + noString);
  EXPECT_EQ(Found(*page.elements.at(1)), "Handler.ListText.StorageStringID 6" + noString);
  EXPECT_EQ(Found(*page.elements.at(2)), "");
  EXPECT_EQ(Found(*page.elements.at(3)), "");
}

TEST_F(TextCheck, TellsWhatIsShownOfATextThatIsCutAndTheSizeThatItNeeds) {
  clsText text;
  Show(text, "boiler\r\nhouse", 47, 32);
  EXPECT_EQ(Found(text),
            "shows only \"boile\r\nhouse\" of its text \"boiler\r\nhouse\" at size (47, 32); (48, 32) was "
            "expected");
  Show(text, "boiler\r\nhouse", 48, 31);
  EXPECT_EQ(Found(text),
            "shows only \"boiler\" of its text \"boiler\r\nhouse\" at size (48, 31); (48, 32) was expected");
  clsFrame frame;
  Show(frame, "boiler", 20, 20);
  EXPECT_EQ(Found(frame), "shows only \"bo\" of its text \"boiler\" at size (20, 20); (56, 24) was expected");
}

TEST_F(TextCheck, AStyleThatAsksForNoSizeNeedsALargerOne) {
  clsText text;
  Show(text, "boiler", 20, 21);
  text.Flat3D(5);
  EXPECT_EQ(Found(text),
            "shows only \"bo\" of its text \"boiler\" at size (20, 21); a larger one was expected");
  text.Dx(-20);
  EXPECT_EQ(Found(text), "shows nothing of its text \"boiler\" at size (-20, 21); a larger one was expected");
}

TEST_F(TextCheck, TellsOfLinesOutsideTheCodePageWithoutABox) {
  clsText text;
  Show(text, "\u0416\r\nboiler\r\n\u0428", 48, 48);
  Boxes();
  EXPECT_EQ(
      Found(text),
      "shows nothing of 2 lines of its text \"\u0416\r\nboiler\r\n\u0428\"; characters of code page 1252 "
      "were expected");
  EXPECT_EQ(Boxes(), "");
  corvane1::LayeredSettings(Platform::Current().heldProject).SetInProject(7000, 1, "1251");
  Open();
  EXPECT_EQ(Found(text), "");
  Show(text, "\u00e4", 48, 48);
  EXPECT_EQ(Found(text),
            "shows nothing of 1 line of its text \"\u00e4\"; characters of code page 1251 were expected");
}

TEST_F(TextCheck, TellsOfLinesThatAreCutBesideThoseOutsideTheCodePage) {
  clsText text;
  Show(text, "boiler\r\n\u0416\r\nhouse", 48, 48);
  const std::string foreign =
      "shows nothing of 1 line of its text \"boiler\r\n\u0416\r\nhouse\"; characters of code page 1252 were "
      "expected";
  EXPECT_EQ(Found(text), foreign);
  text.Dy(47);
  EXPECT_EQ(Found(text), foreign +
                             "\nshows only \"boiler\r\n\" of its text \"boiler\r\n\u0416\r\nhouse\" at "
                             "size (48, 47); (48, 48) was expected");
  // A line of which only a character in the middle is a foreign one is not shown at all.
  Show(text, "boiler\r\na\u0416b", 47, 32);
  EXPECT_EQ(Found(text),
            "shows nothing of 1 line of its text \"boiler\r\na\u0416b\"; characters of code page 1252 were "
            "expected\n"
            "shows only \"boile\r\n\" of its text \"boiler\r\na\u0416b\" at size (47, 32); (48, 32) was "
            "expected");
}

TEST_F(TextCheck, ATextOfWhichNothingFitsShowsNothing) {
  clsText text;
  Show(text, "boiler", 7, 16);
  EXPECT_EQ(Found(text), "shows nothing of its text \"boiler\" at size (7, 16); (48, 16) was expected");
  Show(text, "boiler\r\nhouse", 7, 32);
  EXPECT_EQ(Found(text),
            "shows nothing of its text \"boiler\r\nhouse\" at size (7, 32); (48, 32) was expected");
  text.Dx(8);
  EXPECT_EQ(Found(text),
            "shows only \"b\r\nh\" of its text \"boiler\r\nhouse\" at size (8, 32); (48, 32) was expected");
}

TEST_F(TextCheck, TellsOfAStringThatTheLibraryDoesNotHave) {
  SetString(5, 2, "Kessel", -1);
  clsText text;
  Show(text, "EMPTY STRING", 200, 20);
  EXPECT_EQ(Found(text), "");
  text.StorageStringID(6);
  EXPECT_EQ(Found(text),
            "StorageStringID 6 names no text of the string library; the number of one that some language has "
            "was expected");
  text.StorageStringID(5);
  EXPECT_EQ(Found(text), "");
}

TEST_F(TextCheck, JudgesAStringOfTheLibraryInEveryLanguage) {
  // In language 1 it takes the largest area, in language 2 it is wider.
  SetString(5, 1, "boiler\r\nhouse", -1);
  SetString(5, 2, "Dampfkessel", -1);
  clsText text;
  Show(text, "boiler\r\nhouse", 88, 32);
  text.StorageStringID(5);
  EXPECT_EQ(Found(text), "");
  text.Dx(87);
  EXPECT_EQ(
      Found(text),
      "shows only \"Dampfkesse\" of its text \"Dampfkessel\" in language 2 at size (87, 32); (88, 32) was "
      "expected");
  text.Dx(47);
  EXPECT_EQ(
      Found(text),
      "shows only \"boile\r\nhouse\" of its text \"boiler\r\nhouse\" in language 1 at size (47, 32); (88, "
      "32) was expected\n"
      "shows only \"Dampf\" of its text \"Dampfkessel\" in language 2 at size (47, 32); (88, 32) was "
      "expected");
  EXPECT_EQ(text.Txt(), "boiler\r\nhouse");
  EXPECT_EQ(text.FontNumber(), 0);
}

TEST_F(TextCheck, JudgesEachLanguageInItsOwnFont) {
  SetString(5, 1, "boiler", -1);
  // Its characters are 16 wide and 32 high.
  SetString(5, 2, "Ofen", 38);
  clsText text;
  Show(text, "boiler", 63, 32);
  text.StorageStringID(5);
  EXPECT_EQ(Found(text),
            "shows only \"Ofe\" of its text \"Ofen\" in language 2 at size (63, 32); (64, 32) was expected");
  SetString(5, 2, "Ofen", -1);
  EXPECT_EQ(Found(text), "");
}

TEST_F(TextCheck, TellsOfCharactersOutsideTheCodePageInAnyLanguage) {
  SetString(5, 1, "boiler", -1);
  SetString(5, 2, "\u0416", -1);
  clsText text;
  Show(text, "boiler", 100, 32);
  text.StorageStringID(5);
  Boxes();
  EXPECT_EQ(Found(text),
            "shows nothing of 1 line of its text \"\u0416\" in language 2; characters of code page 1252 were "
            "expected");
  SetString(5, 1, "\u0416\r\n\u0428", -1);
  EXPECT_EQ(
      Found(text),
      "shows nothing of 2 lines of its text \"\u0416\r\n\u0428\" in language 1; characters of code page "
      "1252 were expected\n"
      "shows nothing of 1 line of its text \"\u0416\" in language 2; characters of code page 1252 were "
      "expected");
  EXPECT_EQ(Boxes(), "");
}

}  // namespace
}  // namespace quenzel7::cli
