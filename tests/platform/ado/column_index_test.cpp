#include "platform/ado/column_index.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace quenzel7::ado {
namespace {

TEST(ColumnIndex, FindsEachColumnAtItsPlace) {
  const ColumnIndex columns({"ID", "Xs", "KeypadSuccessOpAddr"});
  EXPECT_EQ(columns.Find("ID"), 0);
  EXPECT_EQ(columns.Find("Xs"), 1);
  EXPECT_EQ(columns.Find("KeypadSuccessOpAddr"), 2);
}

TEST(ColumnIndex, TheCaseOfLettersDoesNotMatter) {
  const ColumnIndex columns({"Guid", "DescriptionFontNumber"});
  EXPECT_EQ(columns.Find("GUID"), 0);
  EXPECT_EQ(columns.Find("guid"), 0);
  EXPECT_EQ(columns.Find("dESCRIPTIONfONTnUMBER"), 1);
}

TEST(ColumnIndex, OtherNamesAreNotFound) {
  const ColumnIndex columns({"Xs", "DescriptionFontNumber"});
  for (const char* name : {"", "X", "Xss", "Ys", "DescriptionFontNumbe", "DescriptionFontNumbers"}) {
    EXPECT_EQ(columns.Find(name), ColumnIndex::kNone) << name;
  }
}

TEST(ColumnIndex, NamesThatDifferOnlyInTheMiddleAreToldApart) {
  const ColumnIndex columns({"AbcdefghOneOpqrstuv", "AbcdefghTwoOpqrstuv"});
  EXPECT_EQ(columns.Find("abcdefghTWOopqrstuv"), 1);
  EXPECT_EQ(columns.Find("abcdefghSIXopqrstuv"), ColumnIndex::kNone);
}

TEST(ColumnIndex, OnlyLettersHaveACase) {
  // '[' and '{', '_' and DEL differ in the same bit as 'a' and 'A'.
  const ColumnIndex columns({"a[b", "Image_CRC"});
  EXPECT_EQ(columns.Find("A[B"), 0);
  EXPECT_EQ(columns.Find("a{b"), ColumnIndex::kNone);
  EXPECT_EQ(columns.Find("Image\x7F"
                         "CRC"),
            ColumnIndex::kNone);
}

TEST(ColumnIndex, OfColumnsWithOneNameTheFirstIsFound) {
  const ColumnIndex columns({"Name", "ID", "NAME"});
  EXPECT_EQ(columns.Find("name"), 0);
}

TEST(ColumnIndex, WhatFollowedLastTimeDecidesNothing) {
  const ColumnIndex columns({"ID", "Xs", "Ys", "xs"});
  for (const char* name : {"ID", "Xs", "Ys", "ID", "Ys", "Xs", "ID", "Ys", "Xs", "Xs", "Xs", "ID"}) {
    EXPECT_EQ(columns.Find(name), std::string(name) == "ID" ? 0 : std::string(name) == "Xs" ? 1 : 2) << name;
  }
  EXPECT_EQ(columns.Find("Dx"), ColumnIndex::kNone);
  EXPECT_EQ(columns.Find("xs"), 1);
  EXPECT_EQ(columns.Find("xs"), 1);
}

TEST(ColumnIndex, NamesOfEveryLengthAreToldApartAtEveryLetter) {
  for (std::size_t size = 1; size <= 20; ++size) {
    const std::string name(size, 'a');
    const ColumnIndex columns({name, "Other"});
    EXPECT_EQ(columns.Find(name), 0) << size;
    for (std::size_t place = 0; place < size; ++place) {
      std::string changed = name;
      changed[place] = 'b';
      // Asked for after the column that it is compared with first.
      EXPECT_EQ(columns.Find("Other"), 1);
      EXPECT_EQ(columns.Find(name), 0);
      EXPECT_EQ(columns.Find("Other"), 1);
      EXPECT_EQ(columns.Find(changed), ColumnIndex::kNone) << size << ' ' << place;
    }
    EXPECT_EQ(columns.Find(name + "a"), ColumnIndex::kNone) << size;
    EXPECT_EQ(columns.Find(name.substr(1)), ColumnIndex::kNone) << size;
  }
}

TEST(ColumnIndex, WithoutColumnsNothingIsFound) {
  EXPECT_EQ(ColumnIndex({}).Find(""), ColumnIndex::kNone);
  EXPECT_EQ(ColumnIndex({}).Find("ID"), ColumnIndex::kNone);
}

TEST(ColumnIndex, NamesKeepTheirOrderAndSpelling) {
  EXPECT_EQ(ColumnIndex({"b", "A"}).Names(), (std::vector<std::string>{"b", "A"}));
}

TEST(ColumnIndex, ManyColumnsAreAllFound) {
  std::vector<std::string> names;
  for (int number = 0; number < 2000; ++number) names.push_back("Column" + std::to_string(number));
  const ColumnIndex columns(names);
  for (int number = 0; number < 2000; ++number) {
    ASSERT_EQ(columns.Find("COLUMN" + std::to_string(number)), number);
  }
  EXPECT_EQ(columns.Find("Column2000"), ColumnIndex::kNone);
}

}  // namespace
}  // namespace quenzel7::ado
