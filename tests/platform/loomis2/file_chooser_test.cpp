#include "platform/loomis2/file_chooser.h"

#include <gtest/gtest.h>

namespace quenzel7::loomis2 {
namespace {

TEST(PictureFileTypes, AreOfferedInThisOrder) {
  EXPECT_EQ(PictureFileTypes(),
            (std::vector<FileType>{{"All Picture Files", "*.bmp;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur"},
                                   {"Bitmaps (*.bmp)", "*.bmp"},
                                   {"GIF Images (*.gif)", "*.gif"},
                                   {"JPEG Images (*.jpg)", "*.jpg"},
                                   {"Metafiles (*.wmf;*.emf)", "*.wmf;*.emf"},
                                   {"Icons (*.ico;*.cur)", "*.ico;*.cur"}}));
}

TEST(PreparedFileChooser, ChoosesNothingUnprepared) {
  EXPECT_EQ(PreparedFileChooser().Choose(PictureFileTypes()), "");
}

TEST(PreparedFileChooser, GivesEachPreparedPathOnceInTheirOrder) {
  PreparedFileChooser chooser;
  chooser.Prepare("b.bmp");
  chooser.Prepare("a.bmp");
  chooser.Prepare("b.bmp");
  EXPECT_EQ(chooser.Choose({}), "b.bmp");
  EXPECT_EQ(chooser.Choose({}), "a.bmp");
  chooser.Prepare("c.bmp");
  EXPECT_EQ(chooser.Choose({}), "b.bmp");
  EXPECT_EQ(chooser.Choose({}), "c.bmp");
  EXPECT_EQ(chooser.Choose({}), "");
}

TEST(PreparedFileChooser, TellsWhatComesNextUntilItForgets) {
  PreparedFileChooser chooser;
  EXPECT_EQ(chooser.Next(), "");
  chooser.Prepare("b.bmp");
  chooser.Prepare("a.bmp");
  EXPECT_EQ(chooser.Next(), "b.bmp");
  EXPECT_EQ(chooser.Choose({}), "b.bmp");
  EXPECT_EQ(chooser.Next(), "a.bmp");
  chooser.Clear();
  EXPECT_EQ(chooser.Next(), "");
  EXPECT_EQ(chooser.Choose({}), "");
}

}  // namespace
}  // namespace quenzel7::loomis2
