#include "hosts/gdi_replay/case_file.h"

#include <gtest/gtest.h>

#include <fstream>

namespace quenzel7::gdi_replay {
namespace {

class CaseFile : public testing::Test {
 protected:
  std::filesystem::path Write(const std::string& text) {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    file_ = std::filesystem::path(testing::TempDir()) / (std::string(info->name()) + ".txt");
    std::ofstream(file_) << text;
    return file_;
  }
  void TearDown() override { std::filesystem::remove(file_); }

  std::string ErrorOf(const std::string& text) {
    try {
      ReadCases(Write(text));
    } catch (const FormatError& error) {
      const std::string message = error.what();
      const std::string name = file_.filename().string();
      EXPECT_TRUE(message.starts_with(name + ":"));
      return message.substr(name.size());
    }
    return "no error";
  }

  std::filesystem::path file_;
};

TEST_F(CaseFile, HasCasesWithTheirSteps) {
  const auto cases =
      ReadCases(Write("# about\n\ncase first\nsurface S 4 3 32\nquery GetBkColor S\nresult 0x00ffffff\n"
                      "endcase\ncase second quirk\n# nobody knows\ndc D\nendcase\n"));
  ASSERT_EQ(cases.size(), 2u);
  EXPECT_EQ(cases[0].name, "first");
  EXPECT_FALSE(cases[0].isQuirk);
  EXPECT_EQ(cases[0].comment, "");
  ASSERT_EQ(cases[0].steps.size(), 2u);
  EXPECT_EQ(cases[0].steps[0].line, 4);
  EXPECT_EQ(cases[0].steps[0].words, (std::vector<std::string>{"surface", "S", "4", "3", "32"}));
  EXPECT_EQ(cases[0].steps[1].result, (std::vector<std::string>{"0x00ffffff"}));
  EXPECT_EQ(cases[1].name, "second");
  EXPECT_TRUE(cases[1].isQuirk);
  EXPECT_EQ(cases[1].comment, "nobody knows");
}

TEST_F(CaseFile, PixelsAreRunsRepeatsAndDigits) {
  const auto cases =
      ReadCases(Write("case c\nsurface S 4 3 32\ncheck S\npixels 4 3\npalette a ffffff b 0000ff\n"
                      "2*a b 80c0ff\n=1\n4*b\nend\nendcase\n"));
  const auto& picture = cases[0].steps[1].picture;
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 4);
  EXPECT_EQ(picture->height, 3);
  const std::vector<gdi::COLORREF> expected{0xFFFFFF, 0xFFFFFF, 0x0000FF, 0x80C0FF, 0xFFFFFF, 0xFFFFFF,
                                            0x0000FF, 0x80C0FF, 0x0000FF, 0x0000FF, 0x0000FF, 0x0000FF};
  EXPECT_EQ(picture->colors, expected);
  EXPECT_EQ(picture->At(2, 1), 0x0000FFu);
}

TEST_F(CaseFile, MapHasPixels) {
  const auto cases = ReadCases(
      Write("case c\nquery PtInRegionMap R 0 0 2 1\nresult map\npixels 2 1\n000000 000001\nend\nendcase\n"));
  EXPECT_EQ(cases[0].steps[0].picture->colors, (std::vector<gdi::COLORREF>{0, 1}));
}

TEST_F(CaseFile, ErrorsNameFileAndLine) {
  const std::string head = "case c\ncheck S\npixels 2 1\n";
  EXPECT_EQ(ErrorOf("surface S 1 1 32\n"), ":1: \"case\" expected, found \"surface\"");
  EXPECT_EQ(ErrorOf("case\n"), ":1: \"case NAME\" or \"case NAME quirk\" expected");
  EXPECT_EQ(ErrorOf("case a b\n"), ":1: \"case NAME\" or \"case NAME quirk\" expected");
  EXPECT_EQ(ErrorOf("case a\ndc D\n"), ":2: file ends inside case a");
  EXPECT_EQ(ErrorOf("case a\nresult 1\nendcase\n"), ":2: result without a query");
  EXPECT_EQ(ErrorOf("case a\ndc D\nresult 1\nendcase\n"), ":3: result without a query");
  EXPECT_EQ(ErrorOf("case a\npixels 1 1\nendcase\n"), ":2: pixels without a check or a map");
  EXPECT_EQ(ErrorOf("case a\nquery X\nresult 1\npixels 1 1\n"), ":4: pixels without a check or a map");
  EXPECT_EQ(ErrorOf("case a\nquery X\ndc D\nendcase\n"), ":2: query without result");
  EXPECT_EQ(ErrorOf("case a\nquery X\nendcase\n"), ":2: query without result");
  EXPECT_EQ(ErrorOf("case a\ncheck S\nendcase\n"), ":2: no pixels follow");
  EXPECT_EQ(ErrorOf("case a\ncheck S\npixels 0 1\n"), ":3: \"pixels W H\" expected, each 1 to 4096");
  EXPECT_EQ(ErrorOf("case a\ncheck S\npixels 4097 1\n"), ":3: \"pixels W H\" expected, each 1 to 4096");
  EXPECT_EQ(ErrorOf("case a\ncheck S\npixels 4\n"), ":3: \"pixels W H\" expected, each 1 to 4096");
  EXPECT_EQ(ErrorOf(head), ":3: file ends inside pixels");
  EXPECT_EQ(ErrorOf(head + "3*ffffff\n"), ":4: \"3*ffffff\" is not a run of pixels");
  EXPECT_EQ(ErrorOf(head + "0*ffffff\n"), ":4: \"0*ffffff\" is not a run of pixels");
  EXPECT_EQ(ErrorOf(head + "2*a\n"), ":4: \"2*a\" is not a run of pixels");
  EXPECT_EQ(ErrorOf(head + "fffff\n"), ":4: \"fffff\" is not a run of pixels");
  EXPECT_EQ(ErrorOf(head + "ffffff\n"), ":4: row is 1 pixels wide, expected 2");
  EXPECT_EQ(ErrorOf(head + "2*ffffff ffffff\n"), ":4: row is 3 pixels wide, expected 2");
  EXPECT_EQ(ErrorOf(head + "=1\n"), ":4: \"=1\" repeats no row");
  EXPECT_EQ(ErrorOf(head + "2*ffffff\n=x\n"), ":5: \"=x\" repeats no row");
  EXPECT_EQ(ErrorOf(head + "2*ffffff\n=1\n"), ":5: more than 1 rows");
  EXPECT_EQ(ErrorOf(head + "end\n"), ":4: 0 rows, expected 1");
  EXPECT_EQ(ErrorOf(head + "palette a\n"), ":4: palette needs pairs of a letter and six digits");
  EXPECT_EQ(ErrorOf(head + "palette ab ffffff\n"), ":4: palette needs pairs of a letter and six digits");
  EXPECT_EQ(ErrorOf(head + "palette a gggggg\n"), ":4: palette needs pairs of a letter and six digits");
}

TEST(ReadCases, NeedsAFile) { EXPECT_THROW(ReadCases("/no/such/file.txt"), FormatError); }

TEST(ParseNumber, IsDecimalOrHexadecimalOf32Bits) {
  EXPECT_EQ(ParseNumber("12"), 12);
  EXPECT_EQ(ParseNumber("-12"), -12);
  EXPECT_EQ(ParseNumber("0x11206"), 0x11206);
  EXPECT_EQ(ParseNumber("0xffffffff"), -1);
  EXPECT_EQ(ParseNumber("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ParseNumber("-2147483649"), std::nullopt);
  EXPECT_EQ(ParseNumber("4294967295"), -1);
  EXPECT_EQ(ParseNumber("4294967296"), std::nullopt);
  EXPECT_EQ(ParseNumber(""), std::nullopt);
  EXPECT_EQ(ParseNumber("0x"), std::nullopt);
  EXPECT_EQ(ParseNumber("0x-1"), std::nullopt);
  EXPECT_EQ(ParseNumber("1.5"), std::nullopt);
  EXPECT_EQ(ParseNumber("1a"), std::nullopt);
}

}  // namespace
}  // namespace quenzel7::gdi_replay
