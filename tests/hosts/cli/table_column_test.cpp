#include "hosts/cli/table_column.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli {
namespace {

class TableColumn : public test::CliProjectTest {
 protected:
  ado::RecordsetRef Row() {
    return ado::OpenRecordset(Connection(), "SELECT 7 AS Seven, 'x' AS Letter, Null AS Nothing",
                              ado::adOpenStatic, ado::adLockReadOnly);
  }
  automation::ErrorNumber ErrorOf(std::string_view column, std::string& description) {
    try {
      ReadColumn<Long>(*Row(), "Sevens", column);
    } catch (const automation::AutomationError& error) {
      description = error.Description();
      return error.Code();
    }
    return {};
  }
};

TEST_F(TableColumn, IsReadAsItsType) {
  EXPECT_EQ(ReadColumn<Long>(*Row(), "Sevens", "Seven"), 7);
  EXPECT_EQ(ReadColumn<std::string>(*Row(), "Sevens", "Letter"), "x");
}

TEST_F(TableColumn, ErrorsTellColumnAndTable) {
  std::string description;
  EXPECT_EQ(ErrorOf("Letter", description), automation::ErrorNumber::TypeMismatch);
  EXPECT_EQ(description, "column 'Letter' of Sevens: type mismatch: \"x\" is not a number");
  EXPECT_EQ(ErrorOf("Nothing", description), automation::ErrorNumber::InvalidUseOfNull);
  EXPECT_EQ(description, "column 'Nothing' of Sevens: invalid use of Null: a number was expected");
  EXPECT_EQ(static_cast<int>(ErrorOf("Eight", description)), 3265);
  EXPECT_EQ(description, "column 'Eight' of Sevens: the recordset has no column 'Eight'");
}

}  // namespace
}  // namespace quenzel7::cli
