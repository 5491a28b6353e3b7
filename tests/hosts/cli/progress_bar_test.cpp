#include "hosts/cli/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::cli {
namespace {

std::string ShownFor(bool isTerminal, std::size_t steps, std::size_t done) {
  std::ostringstream out, err;
  {
    ProgressBar bar({out, err, isTerminal}, "importing", steps);
    for (std::size_t index = 0; index < done; ++index) bar.Advance();
  }
  EXPECT_EQ(out.str(), "");
  return err.str();
}

const std::string kWiped = "\r" + std::string(9 + 2 + 25 + 2 + 5, ' ') + "\r";

TEST(ProgressBar, ShowsHowFarTheWorkIsAndIsWipedOutAtTheEnd) {
  EXPECT_EQ(ShownFor(true, 2, 2),
            "\rimporting [                         ]   0 %"
            "\rimporting [############             ]  50 %"
            "\rimporting [#########################] 100 %" +
                kWiped);
}

TEST(ProgressBar, IsDrawnAnewOnlyWhenThePercentageChanges) {
  const std::string shown = ShownFor(true, 1000, 19);
  EXPECT_EQ(shown,
            "\rimporting [                         ]   0 %"
            "\rimporting [                         ]   1 %" +
                kWiped);
}

TEST(ProgressBar, FourPercentAreOneMark) {
  const std::string shown = ShownFor(true, 100, 4);
  EXPECT_NE(shown.find("\rimporting [                         ]   3 %"), std::string::npos);
  EXPECT_NE(shown.find("\rimporting [#                        ]   4 %"), std::string::npos);
}

TEST(ProgressBar, ShowsNothingWithoutATerminal) { EXPECT_EQ(ShownFor(false, 2, 2), ""); }

TEST(ProgressBar, ShowsNothingWhenThereIsNothingToDo) { EXPECT_EQ(ShownFor(true, 0, 0), ""); }

}  // namespace
}  // namespace quenzel7::cli
