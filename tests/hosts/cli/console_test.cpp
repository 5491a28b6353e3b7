#include "hosts/cli/console.h"

#include <gtest/gtest.h>

#include <sstream>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

TEST(RunCommand, GivesTheStatusOfTheCommand) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCommand({out, err}, [] { return 1; }), 1);
  EXPECT_EQ(err.str(), "");
}

TEST(RunCommand, TellsAnErrorInOneLineAndGivesStatusTwo) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCommand({out, err}, []() -> int { throw UserError("project x\ny has no pages"); }), 2);
  EXPECT_EQ(err.str(), "project x\\ny has no pages\n");
  EXPECT_EQ(out.str(), "");
}

TEST(RunCommand, TellsEveryKindOfException) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCommand({out, err}, []() -> int { throw std::runtime_error("no memory"); }), 2);
  EXPECT_EQ(err.str(), "no memory\n");
}

TEST(RunCommand, TellsWhenStandardOutputCannotBeWritten) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCommand({out, err},
                       [&out] {
                         out.setstate(std::ios::badbit);
                         return 0;
                       }),
            2);
  EXPECT_EQ(err.str(), "standard output cannot be written\n");
}

}  // namespace
}  // namespace quenzel7::cli
