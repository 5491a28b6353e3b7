#include "server/registration/section_text.h"

#include <gtest/gtest.h>

namespace quenzel7::server {
namespace {

std::string Rest(std::string_view text) { return WithoutSections(text, "Ours."); }

TEST(SectionText, LeavesOutSectionsOfThatBeginning) {
  EXPECT_EQ(Rest("[Theirs]\na = 1\n[Ours.b]\nc = 2\nd = 3\n[More]\ne = 4\n"),
            "[Theirs]\na = 1\n[More]\ne = 4\n");
}

TEST(SectionText, OfOnlySuchSectionsNothingIsLeft) {
  EXPECT_EQ(Rest("[Ours.a]\nb = 1\n\n[Ours.b]\nc = 2\n"), "");
  EXPECT_EQ(Rest(""), "");
  EXPECT_EQ(Rest("\n \t\n"), "");
}

TEST(SectionText, TheWholeBeginningCounts) {
  EXPECT_EQ(Rest("[Ours]\na\n"), "[Ours]\na\n");
  EXPECT_EQ(Rest("[OursAsWell]\na\n"), "[OursAsWell]\na\n");
  EXPECT_EQ(Rest("[NotOurs.a]\na\n"), "[NotOurs.a]\na\n");
  EXPECT_EQ(Rest("[Ours.]\na\n"), "");
}

TEST(SectionText, CaseAndBlanksMeanNothing) {
  EXPECT_EQ(Rest("  [ oURS.a ]  \r\nb = 1\r\n[Theirs]\r\nc\r\n"), "[Theirs]\r\nc\n");
  EXPECT_EQ(WithoutSections("[@a]\nb\n", "`a"), "[@a]\nb\n") << "only letters have another case";
  EXPECT_EQ(WithoutSections("[{a]\nb\n", "[a"), "[{a]\nb\n");
  EXPECT_EQ(WithoutSections("[AZ]\nb\n", "az"), "");
}

TEST(SectionText, WhatIsNotUnderstoodStaysWhereItIs) {
  EXPECT_EQ(Rest("; a remark\n\nloose = 1\n[Theirs]\n= ]nonsense[\n\n\nx\n[Ours.a]\n; gone\n"),
            "; a remark\n\nloose = 1\n[Theirs]\n= ]nonsense[\n\n\nx\n");
  EXPECT_EQ(Rest("a [Ours.a]\n"), "a [Ours.a]\n") << "no section begins within a line";
}

TEST(SectionText, ASectionNeedsNoClosingBracketAndNoEndOfLine) {
  EXPECT_EQ(Rest("[Theirs]\na\n[Ours.a"), "[Theirs]\na\n");
  EXPECT_EQ(Rest("[Ours.a]\nb\n[Theirs"), "[Theirs\n");
  EXPECT_EQ(Rest("[Theirs] [Ours.a]\na"), "[Theirs] [Ours.a]\na\n");
}

TEST(SectionText, AnEditorsMarkHidesNoSection) {
  EXPECT_EQ(Rest("\xEF\xBB\xBF[Ours.a]\nb\n[Theirs]\nc\n"), "[Theirs]\nc\n");
}

TEST(SectionText, EndsWithoutEmptyLines) {
  EXPECT_EQ(Rest("[Theirs]\na\n\n \n[Ours.a]\nb\n"), "[Theirs]\na\n");
}

}  // namespace
}  // namespace quenzel7::server
