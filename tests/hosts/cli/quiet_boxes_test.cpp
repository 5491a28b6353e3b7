#include "hosts/cli/quiet_boxes.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

void ShowBox() { Platform::Current().messageBoxes->Show("text", corvane1::kOkButton, "caption"); }

TEST(QuietBoxes, HidesAndCountsBoxesWhileItLivesAndGivesTheOthersBack) {
  Platform::Current() = Platform();
  std::ostringstream shown;
  Platform::Current().messageBoxes = std::make_shared<corvane1::CollectedMessageBoxes>(&shown);
  testing::internal::CaptureStderr();
  {
    const QuietBoxes quiet;
    EXPECT_EQ(quiet.Count(), 0u);
    ShowBox();
    ShowBox();
    EXPECT_EQ(quiet.Count(), 2u);
  }
  EXPECT_EQ(shown.str(), "");
  ShowBox();
  EXPECT_EQ(shown.str(), "caption: text\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  Platform::Current() = Platform();
}

}  // namespace
}  // namespace quenzel7::cli
