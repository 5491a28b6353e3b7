#include "hosts/cli/csv_document.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

using Fields = std::vector<std::string>;
using Records = std::vector<Fields>;

Records RecordsOf(std::string_view text) {
  Records records;
  for (const CsvRecord& record : ReadCsv(text, "file x")) records.push_back(record.fields);
  return records;
}

std::vector<std::size_t> LinesOf(std::string_view text) {
  std::vector<std::size_t> lines;
  for (const CsvRecord& record : ReadCsv(text, "file x")) lines.push_back(record.line);
  return lines;
}

std::string RefusalOf(std::string_view text) {
  return test::MessageOf([&] { ReadCsv(text, "file x"); });
}

TEST(ReadCsv, PartsRecordsAndFields) {
  EXPECT_EQ(RecordsOf("a,b\r\nc,,d\r\n"), (Records{{"a", "b"}, {"c", "", "d"}}));
  EXPECT_EQ(RecordsOf(",\r\n"), (Records{{"", ""}}));
  EXPECT_EQ(RecordsOf(""), Records{});
}

TEST(ReadCsv, TheLastLineNeedsNoEnd) {
  EXPECT_EQ(RecordsOf("a\r\nb"), (Records{{"a"}, {"b"}}));
  EXPECT_EQ(RecordsOf("a,"), (Records{{"a", ""}}));
  EXPECT_EQ(RecordsOf("\"a\""), (Records{{"a"}}));
}

TEST(ReadCsv, LinesMayEndInALineFeedAlone) {
  EXPECT_EQ(RecordsOf("a,b\nc\n"), (Records{{"a", "b"}, {"c"}}));
  EXPECT_EQ(RecordsOf("\"a\"\n\"b\"\n"), (Records{{"a"}, {"b"}}));
}

TEST(ReadCsv, AnEmptyLineIsARecordOfOneEmptyField) {
  EXPECT_EQ(RecordsOf("a\r\n\r\nb\r\n"), (Records{{"a"}, {""}, {"b"}}));
}

TEST(ReadCsv, ACarriageReturnAloneIsACharacter) {
  EXPECT_EQ(RecordsOf("a\rb\r\n"), (Records{{"a\rb"}}));
  EXPECT_EQ(RecordsOf("a\r"), (Records{{"a\r"}}));
}

TEST(ReadCsv, FieldsInQuotesHoldEverything) {
  EXPECT_EQ(RecordsOf("\"a,\"\"b\"\"\r\nc\",\"\",d\r\n"), (Records{{"a,\"b\"\r\nc", "", "d"}}));
  EXPECT_EQ(RecordsOf("\"\"\"\"\r\n"), (Records{{"\""}}));
}

TEST(ReadCsv, TellsTheLineOnWhichARecordBegins) {
  EXPECT_EQ(LinesOf("a\r\n\"b\r\nc\nd\",e\r\nf\ng"), (std::vector<std::size_t>{1, 2, 5, 6}));
}

TEST(ReadCsv, PassesOverAByteOrderMark) {
  EXPECT_EQ(RecordsOf("\xEF\xBB\xBF"
                      "a\r\n"),
            (Records{{"a"}}));
  EXPECT_EQ(RecordsOf("\xEF\xBB\xBF"), Records{});
  EXPECT_EQ(RecordsOf("a\xEF\xBB\xBF"), (Records{{"a\xEF\xBB\xBF"}}));
}

TEST(ReadCsv, RefusesWhatIsNotUtf8) {
  EXPECT_EQ(RefusalOf("a\r\nb\r\n\"\xE4\"\r\n"), "file x, line 3: the text is not UTF-8");
  EXPECT_EQ(RefusalOf("\xC3"), "file x, line 1: the text is not UTF-8");
  EXPECT_EQ(RecordsOf("a\xEF\xBF\xBD,b"), (Records{{"a\xEF\xBF\xBD", "b"}}));
}

TEST(ReadCsv, RefusesAFieldInQuotesWithoutEnd) {
  EXPECT_EQ(RefusalOf("a\r\nb,\"c\r\nd\r\n"),
            "file x, line 2: the field in quotes that begins here does not end");
  EXPECT_EQ(RefusalOf("\""), "file x, line 1: the field in quotes that begins here does not end");
}

TEST(ReadCsv, RefusesTextBehindAFieldInQuotes) {
  const std::string refusal = ": behind a field in quotes there is neither a comma nor the line's end";
  EXPECT_EQ(RefusalOf("a\r\n\"b\r\nc\"d\r\n"), "file x, line 3" + refusal);
  EXPECT_EQ(RefusalOf("\"a\"\r"), "file x, line 1" + refusal);
}

TEST(ReadCsv, RefusesAQuoteInAFieldWithoutThem) {
  EXPECT_EQ(RefusalOf("a\r\nb\"c\"\r\n"),
            "file x, line 2: there is a quote in a field that is not in quotes");
  EXPECT_EQ(RefusalOf(" \"a\"\r\n"), "file x, line 1: there is a quote in a field that is not in quotes");
}

TEST(CsvLine, HasQuotesOnlyWhereTheyAreNeeded) {
  EXPECT_EQ(CsvLine({"a", "", "b c"}), "a,,b c\r\n");
  EXPECT_EQ(CsvLine({"a,b", "say \"a\"", "\r", "\n", " "}), "\"a,b\",\"say \"\"a\"\"\",\"\r\",\"\n\", \r\n");
}

TEST(CsvLine, IsReadBackAsItWas) {
  const Fields fields{"", "a", ",", "\"", "\r\n", "\"\"", "a\rb", "\xC3\xA4"};
  EXPECT_EQ(RecordsOf(CsvLine(fields) + CsvLine({"x"})), (Records{fields, {"x"}}));
}

TEST(LineOf, NamesPlaceAndLine) { EXPECT_EQ(LineOf("file x", 12), "file x, line 12"); }

}  // namespace
}  // namespace quenzel7::cli
