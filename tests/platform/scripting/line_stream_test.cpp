#include "platform/scripting/line_stream.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "tests/support/raises.h"

namespace quenzel7::scripting {
namespace {

using Lines = std::vector<std::string>;
using namespace std::string_literals;

LineStream StreamOf(const std::string& text) {
  return LineStream(std::make_unique<std::istringstream>(text), "words");
}

Lines LinesOf(const std::string& text) {
  LineStream stream = StreamOf(text);
  Lines lines;
  while (!stream.AtEndOfStream()) lines.push_back(stream.ReadLine());
  return lines;
}

TEST(LineStream, EndsLinesWithCrLfLfOrCr) {
  EXPECT_EQ(LinesOf("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(LinesOf("a\n\rb"), (Lines{"a", "", "b"}));
}

TEST(LineStream, KeepsEmptyLines) {
  EXPECT_EQ(LinesOf("\r\n\r\na\n\nb\r\rc"), (Lines{"", "", "a", "", "b", "", "c"}));
}

TEST(LineStream, BeginsNoLineBehindTheLastEnd) {
  EXPECT_EQ(LinesOf("a\r\n"), Lines{"a"});
  EXPECT_EQ(LinesOf("a\n"), Lines{"a"});
  EXPECT_EQ(LinesOf("a\r"), Lines{"a"});
  EXPECT_EQ(LinesOf("a\n\n"), (Lines{"a", ""}));
  EXPECT_EQ(LinesOf("\n"), Lines{""});
  EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(LineStream, DropsAByteOrderMarkAtTheStartOnly) {
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF\xC3\xA4\n\xEF\xBB\xBF"
                    "b"),
            (Lines{"\xC3\xA4",
                   "\xEF\xBB\xBF"
                   "b"}));
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF"), Lines{});
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF\xEF\xBB\xBF"), Lines{"\xEF\xBB\xBF"});
  EXPECT_EQ(LinesOf("\xEF\xBB"), Lines{"\xEF\xBB"});
  EXPECT_EQ(LinesOf("\xEF\xBB"
                    "c"),
            Lines{"\xEF\xBB"
                  "c"});
}

TEST(LineStream, GivesBytesAsTheyAre) {
  EXPECT_EQ(LinesOf("a\0b \xFF\t\n\xD7\x90"s), (Lines{"a\0b \xFF\t"s, "\xD7\x90"}));
}

TEST(LineStream, TellsTheEndWithoutReadingOn) {
  LineStream stream = StreamOf("a\nb");
  EXPECT_FALSE(stream.AtEndOfStream());
  EXPECT_FALSE(stream.AtEndOfStream());
  EXPECT_EQ(stream.ReadLine(), "a");
  EXPECT_FALSE(stream.AtEndOfStream());
  EXPECT_EQ(stream.ReadLine(), "b");
  EXPECT_TRUE(stream.AtEndOfStream());
  EXPECT_TRUE(stream.AtEndOfStream());
}

TEST(LineStream, RaisesPastItsEnd) {
  LineStream stream = StreamOf("a");
  stream.ReadLine();
  EXPECT_RAISES(62, "words: there is no line left to read", stream.ReadLine());
  EXPECT_RAISES(62, "words: there is no line left to read", stream.ReadLine());
  EXPECT_RAISES(62, "words: there is no line left to read", StreamOf("").ReadLine());
}

TEST(LineStream, RaisesWhenItsInputCannotBeReadOn) {
  // Has bytes for 3 times 4, the fourth time the disk fails.
  struct Failing : std::stringbuf {
    int_type underflow() override {
      if (--times < 0) throw std::runtime_error("disk");
      setg(bytes, bytes, bytes + 4);
      return traits_type::to_int_type(bytes[0]);
    }
    pos_type seekpos(pos_type, std::ios_base::openmode) override {
      setg(bytes, bytes, bytes + 4);
      return 0;
    }
    char bytes[4] = {'a', 'b', '\n', 'c'};
    int times = 3;
  };
  struct Input : std::istream {
    Input() : std::istream(&buffer) {}
    Failing buffer;
  };
  LineStream stream(std::make_unique<Input>(), "words");
  EXPECT_EQ(stream.ReadLine(), "ab");
  EXPECT_EQ(stream.ReadLine(), "cab");
  EXPECT_EQ(stream.ReadLine(), "cab");
  EXPECT_RAISES(57, "words: the file cannot be read on", stream.ReadLine());
  EXPECT_RAISES(57, "words: the file cannot be read on", stream.AtEndOfStream());
}

}  // namespace
}  // namespace quenzel7::scripting
