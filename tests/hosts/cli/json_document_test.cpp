#include "hosts/cli/json_document.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

std::string ErrorIn(std::string_view text) {
  return test::MessageOf([text] { ParseJson(text, "file x"); });
}

TEST(JsonDocument, ReadsAllKindsOfValues) {
  const Json json =
      ParseJson(R"({"n":null,"b":true,"i":-3,"u":4,"f":1.5,"s":"x","a":[1,[2],{}],"o":{"k":false}})", "x");
  EXPECT_EQ(json.dump(),
            R"({"n":null,"b":true,"i":-3,"u":4,"f":1.5,"s":"x","a":[1,[2],{}],"o":{"k":false}})");
}

TEST(JsonDocument, ReadsASingleValue) { EXPECT_EQ(ParseJson(" 5\n", "x"), Json(5)); }

TEST(JsonDocument, KeepsAKeyThatComesTwice) {
  const Json json = ParseJson(R"({"a":1,"b":2,"a":3})", "x");
  EXPECT_EQ(json.dump(), R"({"a":1,"b":2,"a":3})");
}

TEST(JsonDocument, TellsLineAndColumnOfWhatIsMalformed) {
  EXPECT_EQ(
      ErrorIn("{\n  \"a\": 1,\n  }"),
      "file x, line 3, column 3: malformed JSON: syntax error while parsing object key - unexpected '}'; "
      "expected string literal");
}

TEST(JsonDocument, CountsColumnsInCharacters) {
  EXPECT_EQ(ErrorIn("[\"äöü\" 1]").substr(0, 23), "file x, line 1, column ");
  EXPECT_EQ(ErrorIn("[\"äöü\" }").substr(0, 25), "file x, line 1, column 8:");
}

TEST(JsonDocument, TellsWhereTheTextEndsTooEarly) {
  EXPECT_EQ(ErrorIn("{\"a\": [1,\n2").substr(0, 25), "file x, line 2, column 2:");
  EXPECT_EQ(ErrorIn("").substr(0, 25), "file x, line 1, column 1:");
}

TEST(JsonDocument, RefusesWhatFollowsTheValue) {
  EXPECT_EQ(ErrorIn("{}\n{}").substr(0, 25), "file x, line 2, column 1:");
}

TEST(JsonDocument, RefusesNullBytesWhereverTheyAre) {
  using namespace std::string_literals;
  EXPECT_EQ(ErrorIn("{}\0garbage"s), "file x, line 1, column 3: malformed JSON: a null byte");
}

TEST(JsonDocument, RefusesTextThatIsNoUtf8) {
  EXPECT_EQ(ErrorIn("[\"\xff\"]").substr(0, 25), "file x, line 1, column 3:");
}

TEST(JsonDocument, TellsOfNumbersThatNoDoubleHolds) {
  EXPECT_EQ(ErrorIn("[1e999]"), "file x, line 1, column 6: malformed JSON: number overflow parsing '1e999'");
}

TEST(JsonDocument, RefusesWhatNestsTooDeep) {
  const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
  EXPECT_EQ(ErrorIn(nested(16)), "");
  EXPECT_EQ(ErrorIn(nested(17)), "file x: nests more than 16 deep");
  EXPECT_EQ(ErrorIn(std::string(1000000, '[')), "file x: nests more than 16 deep");
}

TEST(JsonDocument, ShowsValuesAsJson) {
  EXPECT_EQ(Shown(Json("a\nb")), "\"a\\nb\"");
  EXPECT_EQ(Shown(Json(1.5)), "1.5");
}

TEST(JsonDocument, CutsLongValuesBetweenCharacters) {
  EXPECT_EQ(Shown(Json(std::string(58, 'x'))), "\"" + std::string(58, 'x') + "\"");
  EXPECT_EQ(Shown(Json(std::string(59, 'x'))), "\"" + std::string(59, 'x') + "...");
  EXPECT_EQ(Shown(Json(std::string(58, 'x') + "äx")), "\"" + std::string(58, 'x') + "...");
}

}  // namespace
}  // namespace quenzel7::cli
