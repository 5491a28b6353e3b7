#include "hosts/cli/text_table.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::cli {
namespace {

TEST(TextTable, ColumnsAreAsWideAsTheirWidestCell) {
  TextTable table(
      {{"ID", TextTable::Side::Right}, {"class", TextTable::Side::Left}, {"n", TextTable::Side::Right}});
  table.Add({"7", "clsRectangle", "1"});
  table.Add({"1234", "x", "22"});
  std::ostringstream out;
  table.Write(out);
  EXPECT_EQ(out.str(),
            "  ID  class          n\n"
            "   7  clsRectangle   1\n"
            "1234  x             22\n");
}

TEST(TextTable, WritesNoBlanksAtTheEndOfALine) {
  TextTable table({{"a", TextTable::Side::Left}, {"b", TextTable::Side::Left}});
  table.Add({"x", ""});
  table.Add({"x", "long"});
  std::ostringstream out;
  table.Write(out);
  EXPECT_EQ(out.str(), "a  b\nx\nx  long\n");
}

TEST(TextTable, CountsCharactersAndKeepsCellsOnOneLine) {
  TextTable table({{"name", TextTable::Side::Left}, {"n", TextTable::Side::Left}});
  table.Add({"Käse", "1"});
  table.Add({"a\nb", "2"});
  std::ostringstream out;
  table.Write(out);
  EXPECT_EQ(out.str(), "name  n\nKäse  1\na\\nb  2\n");
}

TEST(TextTable, AnEmptyTableHasItsHeadings) {
  std::ostringstream out;
  TextTable({{"page", TextTable::Side::Right}, {"name", TextTable::Side::Left}}).Write(out);
  EXPECT_EQ(out.str(), "page  name\n");
}

}  // namespace
}  // namespace quenzel7::cli
