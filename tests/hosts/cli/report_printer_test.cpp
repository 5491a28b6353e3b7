#include "hosts/cli/report_printer.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"

namespace quenzel7::cli {
namespace {

using automation::InvokeByName;
using automation::Variant;
using test::ErrorOf;

class PrintedReport : public ::testing::Test {
 protected:
  /// A table attribute, as elements set it.
  void Set(Long setting, Long row1, Long column1, Long row2, Long column2, const Variant& value) {
    InvokeByName(printer_, "TableCell", {setting, row1, column1, row2, column2, value});
  }
  void Cell(Long row, Long column, const std::string& text) { Set(18, row, column, row, column, text); }
  void Size(Long rows, Long columns) {
    Set(1, 0, 0, 0, 0, rows);
    Set(2, 0, 0, 0, 0, columns);
  }
  void Open(Long rows, Long columns) {
    InvokeByName(printer_, "StartTable");
    Size(rows, columns);
  }
  void Close() { InvokeByName(printer_, "EndTable"); }
  std::string Printed() const { return out_.str(); }

  std::ostringstream out_;
  ReportPrinter printer_{out_};
};

TEST_F(PrintedReport, EachParagraphIsALine) {
  automation::PutByName(printer_, "Paragraph", "Features:");
  automation::PutByName(printer_, "Paragraph", "         Format: 99");
  automation::PutByName(printer_, "Paragraph", "");
  automation::PutByName(printer_, "Paragraph", "Text: a\r\nb");
  EXPECT_EQ(Printed(), "Features:\n         Format: 99\n\nText: a\\r\\nb\n");
}

TEST_F(PrintedReport, ATableHasColumnsThatAreAsWideAsTheirCells) {
  Open(3, 2);
  Set(13, 1, 1, 3, 1, "10%");
  Cell(1, 1, "Index");
  Set(13, 1, 2, 3, 2, "90%");
  Cell(1, 2, "Text");
  Cell(2, 1, "1");
  Cell(2, 2, "pump");
  Cell(3, 1, "2");
  Cell(3, 2, "one\r\ntwo");
  EXPECT_EQ(Printed(), "");
  Close();
  automation::PutByName(printer_, "Paragraph", "behind");
  EXPECT_EQ(Printed(), "Index  Text\n1      pump\n2      one\\r\\ntwo\nbehind\n");
}

TEST_F(PrintedReport, CellsWithoutATextAreEmpty) {
  Open(2, 3);
  Cell(1, 1, "a");
  Cell(1, 3, "c");
  Cell(2, 2, "middle");
  Close();
  EXPECT_EQ(Printed(), "a          c\n   middle\n");
}

TEST_F(PrintedReport, ATextCanBeThatOfSeveralCells) {
  Open(3, 3);
  Set(18, 1, 2, 2, 3, "x");
  Cell(3, 1, "y");
  Close();
  EXPECT_EQ(Printed(), "   x  x\n   x  x\ny\n");
}

TEST_F(PrintedReport, ANumberIsShownAsAText) {
  Open(1, 1);
  Set(18, 1, 1, 1, 1, Long{7});
  Close();
  EXPECT_EQ(Printed(), "7\n");
}

TEST_F(PrintedReport, ATableOfOneRowIsItsHeadings) {
  Open(1, 2);
  Cell(1, 1, "From");
  Cell(1, 2, "To\n");
  Close();
  EXPECT_EQ(Printed(), "From  To\\n\n");
}

TEST_F(PrintedReport, ATableWithoutRowsPrintsNothing) {
  Open(0, 2);
  Close();
  EXPECT_EQ(Printed(), "");
}

TEST_F(PrintedReport, TheNextTableBeginsAnew) {
  Open(2, 1);
  Cell(1, 1, "a");
  Cell(2, 1, "b");
  Close();
  InvokeByName(printer_, "StartTable");
  EXPECT_EQ(ErrorOf([&] { Cell(1, 1, "c"); }), 9);
  Size(2, 1);
  Cell(1, 1, "d");
  Close();
  EXPECT_EQ(Printed(), "a\nb\nd\n\n");
  InvokeByName(printer_, "StartTable");
  Close();
  EXPECT_EQ(Printed(), "a\nb\nd\n\n");
}

TEST_F(PrintedReport, OtherAttributesChangeNothing) {
  Open(1, 1);
  for (const Long setting : {-1, 0, 3, 13, 17, 19, 20}) Set(setting, 1, 1, 9, 9, "20%");
  Cell(1, 1, "a");
  Close();
  EXPECT_EQ(Printed(), "a\n");
}

TEST_F(PrintedReport, CellsBeyondTheTableAreAnError) {
  Open(2, 3);
  EXPECT_RAISES(9, "rows 0 to 0 of a table were asked for, there are 1 to 2", Cell(0, 1, "x"));
  EXPECT_RAISES(9, "rows 2 to 3 of a table were asked for, there are 1 to 2", Set(18, 2, 1, 3, 1, "x"));
  EXPECT_RAISES(9, "columns 0 to 0 of a table were asked for, there are 1 to 3", Cell(1, 0, "x"));
  EXPECT_RAISES(9, "columns 3 to 4 of a table were asked for, there are 1 to 3", Set(18, 1, 3, 1, 4, "x"));
  Cell(2, 3, "x");
  Close();
  EXPECT_EQ(Printed(), "\n    x\n");
}

TEST_F(PrintedReport, ATableHasOnlySoManyRowsAndColumns) {
  Open(1, 1);
  for (const Long setting : {1, 2}) {
    for (const Long number : {-1, ReportPrinter::kMostCells + 1}) {
      EXPECT_RAISES(5, "a table cannot have " + std::to_string(number) + " rows or columns",
                    Set(setting, 0, 0, 0, 0, number));
    }
    EXPECT_EQ(ErrorOf([&] { Set(setting, 0, 0, 0, 0, ReportPrinter::kMostCells); }), 0);
    EXPECT_EQ(ErrorOf([&] { Set(setting, 0, 0, 0, 0, "many"); }), 13);
    Set(setting, 0, 0, 0, 0, Long{1});
  }
  Close();
  EXPECT_EQ(Printed(), "\n");
}

TEST_F(PrintedReport, TablesAreOpenedAndClosedInTurn) {
  EXPECT_RAISES(5, "no table is open", Close());
  EXPECT_RAISES(5, "no table is open", Set(1, 0, 0, 0, 0, Long{1}));
  InvokeByName(printer_, "StartTable");
  EXPECT_RAISES(5, "a table is open already", InvokeByName(printer_, "StartTable"));
  Close();
  EXPECT_RAISES(5, "no table is open", Close());
}

}  // namespace
}  // namespace quenzel7::cli
