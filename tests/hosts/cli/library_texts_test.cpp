#include "hosts/cli/library_texts.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/corvane1/project_string_library.h"
#include "shapes/frame.h"
#include "shapes/rectangle.h"
#include "shapes/text.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/every_kind_element.h"
#include "tests/hosts/cli/library_fixture.h"
#include "variables/var_element.h"

namespace quenzel7::cli {
namespace {

using LibraryTexts = test::LibraryTest;

TEST_F(LibraryTexts, TextsAndFramesBearText) {
  EXPECT_TRUE(BearsText(clsText()));
  EXPECT_TRUE(BearsText(clsFrame()));
  EXPECT_FALSE(BearsText(clsRectangle()));
  EXPECT_FALSE(BearsText(test::EveryKindElement()));
}

TEST_F(LibraryTexts, TextsAndVariablesHaveACaption) {
  clsText text;
  text.Txt("a\nb");
  EXPECT_EQ(CaptionOf(text), "\"a\nb\"");
  clsVar variable;
  variable.VarName("Speed");
  EXPECT_EQ(CaptionOf(variable), "\"Speed\"");
  clsFrame frame;
  frame.Txt("");
  EXPECT_EQ(CaptionOf(frame), "\"\"");
  clsRectangle rectangle;
  EXPECT_EQ(CaptionOf(rectangle), "");
}

TEST_F(LibraryTexts, ALibraryStringIsShownForEveryNumberButNoneAndWithoutAnOperand) {
  clsText element;
  EXPECT_FALSE(ShowsLibraryString(element));
  for (const Long number : {-2, 0, 5}) {
    element.StorageStringID(number);
    EXPECT_TRUE(ShowsLibraryString(element)) << number;
  }
  element.StorageStringType(3);
  EXPECT_FALSE(ShowsLibraryString(element));
  clsRectangle other;
  EXPECT_FALSE(ShowsLibraryString(other));
}

TEST_F(LibraryTexts, ARowHasItsOwnTextAndFontForTheElementThatShowsAString) {
  SetString(5, 1, "boiler", 2);
  Import(PageOf(Text("\"Txt\": \"own\", \"FontNumber\": 4, \"StorageStringID\": 5")));
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  const ElementRef element = Load().elements.at(0);
  EXPECT_EQ(element->Txt(), "boiler");
  EXPECT_EQ(element->FontNumber(), 2);
  TakeRowsText(*element, *row);
  EXPECT_EQ(element->Txt(), "own");
  EXPECT_EQ(element->FontNumber(), 4);
  TakeLibrarysText(*element);
  EXPECT_EQ(element->Txt(), "boiler");
  EXPECT_EQ(element->FontNumber(), 2);
}

TEST_F(LibraryTexts, TheRowsTextIsTakenWithoutAnotherBox) {
  SetString(5, 1, "boiler", -1);
  Import(PageOf(Text("\"StorageStringID\": 5")));
  const ElementRef element = Load().elements.at(0);
  Connection().Execute("UPDATE HMI_Elements SET Text='\u0416'");
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  TakeRowsText(*element, *row);
  EXPECT_EQ(element->Txt(), "\u0416");
  EXPECT_EQ(Boxes(), "");
}

TEST_F(LibraryTexts, AStringWithoutAFontLeavesTheFont) {
  SetString(5, 1, "boiler", -1);
  clsText element;
  element.FontNumber(4);
  element.StorageStringID(5);
  TakeLibrarysText(element);
  EXPECT_EQ(element.Txt(), "boiler");
  EXPECT_EQ(element.FontNumber(), 4);
}

TEST_F(LibraryTexts, FontZeroOfAStringIsAFont) {
  SetString(5, 1, "boiler", 0);
  clsText element;
  element.FontNumber(4);
  element.StorageStringID(5);
  TakeLibrarysText(element);
  EXPECT_EQ(element.FontNumber(), 0);
}

TEST_F(LibraryTexts, WhatShowsNoStringKeepsItsText) {
  SetString(0, 1, "boiler", 2);
  clsText constant, picked;
  picked.StorageStringType(3);
  picked.StorageStringID(0);
  for (clsText* element : {&constant, &picked}) {
    TakeLibrarysText(*element);
    EXPECT_EQ(element->Txt(), "Text");
  }
  test::EveryKindElement other;
  TakeLibrarysText(other);
  const auto none =
      ado::OpenRecordset(Connection(), "SELECT ID FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  TakeRowsText(constant, *none);
  EXPECT_EQ(constant.Txt(), "Text");
}

}  // namespace
}  // namespace quenzel7::cli
