#include <gtest/gtest.h>

#include "hosts/cli/commands.h"
#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli {
namespace {

class CheckCommandTest : public test::CliProjectTest {
 protected:
  struct Run {
    int status;
    std::string out;
  };
  Run Check() {
    std::ostringstream out, err;
    const int status = CheckCommand(Path(), {out, err});
    EXPECT_EQ(err.str(), "");
    return {status, out.str()};
  }
};

TEST_F(CheckCommandTest, ASoundProjectHasNothingFound) {
  Import(PageText(1, {ElementText(1, 2, 30, 40, "\"TouchOprndAddr\": 5"), ElementText(1, 2, 30, 40)}));
  const Run run = Check();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "nothing found in 1 page, 2 elements and 1 operand row\n");
}

TEST_F(CheckCommandTest, AnEmptyProjectHasNothingToBeFound) {
  const Run run = Check();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "nothing found in 0 pages, 0 elements and 0 operand rows\n");
}

TEST_F(CheckCommandTest, EachFindingIsALineAndTheStatusIsOne) {
  Import(PageText(1, {ElementText(1, 2, 0, 40), ElementText(1, 2, 30, 40)}));
  Connection().Execute("UPDATE HMI_Elements SET Type=99 WHERE ID=2");
  const Run run = Check();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "page 1, row 1 (clsRectangle): has size (0, 40); a width and a height other than 0 was expected\n"
            "page 1, row 2: there is no class of element type 99\n"
            "2 findings in 1 page, 2 elements and 0 operand rows\n");
}

TEST_F(CheckCommandTest, AFindingOfOddTextsStaysOnItsLine) {
  Import(PageText(1, {ElementText(1, 2, 30, 40)}));
  Connection().Execute("UPDATE HMI_Elements SET Xs='a\nb'");
  const Run run = Check();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      "page 1, row 1 (clsRectangle): column 'Xs' of HMI_Elements: type mismatch: \"a\\nb\" is not a number\n"
      "1 finding in 1 page, 1 element and 0 operand rows\n");
}

TEST_F(CheckCommandTest, ANoteIsNoFinding) {
  Import(PageText(1, {ElementText(1, 2, 30, 40)}));
  Connection().Execute("DELETE * FROM HostPages");
  const Run run = Check();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "note: page 1 is not in HostPages: how large it is and what lies off it is not known\n"
            "nothing found in 1 page, 1 element and 0 operand rows\n");
}

}  // namespace
}  // namespace quenzel7::cli
