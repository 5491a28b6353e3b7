#include "hosts/cli/text_check.h"

#include <gtest/gtest.h>

#include "platform/corvane1/settings.h"
#include "shapes/frame.h"
#include "shapes/rectangle.h"
#include "shapes/text.h"
#include "tests/hosts/cli/library_fixture.h"

namespace quenzel7::cli {
namespace {

class TextCheck : public test::LibraryTest {
 protected:
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
  EXPECT_EQ(CheckText(text), "");
  clsText empty;
  Show(empty, "", 0, 0);
  EXPECT_EQ(CheckText(empty), "");
  clsRectangle other;
  EXPECT_EQ(CheckText(other), "");
}

TEST_F(TextCheck, TellsWhatIsShownOfATextThatIsCutAndTheSizeThatItNeeds) {
  clsText text;
  Show(text, "boiler\r\nhouse", 47, 32);
  EXPECT_EQ(CheckText(text),
            "shows only \"boile\r\nhouse\" of its text \"boiler\r\nhouse\" at size (47, 32); (48, 32) was "
            "expected");
  Show(text, "boiler\r\nhouse", 48, 31);
  EXPECT_EQ(CheckText(text),
            "shows only \"boiler\" of its text \"boiler\r\nhouse\" at size (48, 31); (48, 32) was expected");
  clsFrame frame;
  Show(frame, "boiler", 20, 20);
  EXPECT_EQ(CheckText(frame),
            "shows only \"bo\" of its text \"boiler\" at size (20, 20); (56, 24) was expected");
}

TEST_F(TextCheck, AStyleWithoutAnAllowanceLeavesTheSize) {
  clsText text;
  Show(text, "boiler", 20, 21);
  text.Flat3D(5);
  EXPECT_EQ(CheckText(text),
            "shows only \"bo\" of its text \"boiler\" at size (20, 21); (20, 21) was expected");
}

TEST_F(TextCheck, TellsOfLinesOutsideTheCodePageWithoutABox) {
  clsText text;
  Show(text, "\u0416\r\nboiler\r\n\u0428", 48, 48);
  Boxes();
  EXPECT_EQ(
      CheckText(text),
      "shows nothing of 2 lines of its text \"\u0416\r\nboiler\r\n\u0428\"; characters of code page 1252 "
      "were expected");
  EXPECT_EQ(Boxes(), "");
  corvane1::LayeredSettings(Platform::Current().heldProject).SetInProject(7000, 1, "1251");
  Open();
  EXPECT_EQ(CheckText(text), "");
  Show(text, "\u00e4", 48, 48);
  EXPECT_EQ(CheckText(text),
            "shows nothing of 1 line of its text \"\u00e4\"; characters of code page 1251 were expected");
}

TEST_F(TextCheck, TellsOfAStringThatTheLibraryDoesNotHave) {
  SetString(5, 2, "Kessel", -1);
  clsText text;
  Show(text, "EMPTY STRING", 200, 20);
  EXPECT_EQ(CheckText(text), "");
  text.StorageStringID(6);
  EXPECT_EQ(CheckText(text),
            "StorageStringID 6 names no text of the string library; the number of one that some language has "
            "was expected");
  Show(text, "Kessel", 200, 20);
  EXPECT_EQ(CheckText(text), "");
}

}  // namespace
}  // namespace quenzel7::cli
