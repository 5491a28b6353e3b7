#include "platform/corvane1/error_log.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::corvane1 {
namespace {

const ErrorReport kReport = {"clsBitmap", 5, "no pixels", "Quenzel7.dll", "first", "second", -3};

TEST(ErrorLines, TellEverything) {
  EXPECT_EQ(ErrorLine(kReport), "Quenzel7.dll: clsBitmap: error 5: no pixels; first; second; -3");
}

TEST(ErrorLines, LeaveOutWhatIsEmpty) {
  EXPECT_EQ(ErrorLine({}), "error 0");
  EXPECT_EQ(ErrorLine({.source = "clsBitmap", .number = 5}), "clsBitmap: error 5");
  EXPECT_EQ(ErrorLine({.description = "no pixels", .module = "Quenzel7.dll"}),
            "Quenzel7.dll: error 0: no pixels");
  EXPECT_EQ(ErrorLine({.text2 = "second"}), "error 0; second");
  EXPECT_EQ(ErrorLine({.text1 = "first", .value = 1}), "error 0; first; 1");
}

TEST(ErrorLines, AreOneLine) { EXPECT_EQ(ErrorLine({.description = "a\r\nb"}), "error 0: a b"); }

TEST(ErrorLog, KeepsAndPrintsWhatWasReported) {
  std::ostringstream output;
  CollectedErrors log(&output);
  EXPECT_TRUE(log.Reports().empty());
  log.Report(kReport);
  log.Report({.number = 7});
  EXPECT_EQ(log.Reports(), (std::deque<ErrorReport>{kReport, {.number = 7}}));
  EXPECT_EQ(output.str(), ErrorLine(kReport) + "\nerror 7\n");
  log.Clear();
  EXPECT_TRUE(log.Reports().empty());
}

TEST(ErrorLog, PrintsWhereItIsTold) {
  std::ostringstream output;
  std::ostringstream other;
  CollectedErrors log(&output);
  log.Output(&other);
  log.Report({.number = 7});
  log.Output(nullptr);
  log.Report({.number = 8});
  EXPECT_EQ(output.str(), "");
  EXPECT_EQ(other.str(), "error 7\n");
  EXPECT_EQ(log.Reports().size(), 2u);
}

TEST(ErrorLog, PrintsOnStandardErrorUnlessTold) {
  testing::internal::CaptureStderr();
  CollectedErrors().Report({.number = 7});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "error 7\n");
}

TEST(ErrorLog, KeepsTheLatestOnly) {
  CollectedErrors log(nullptr);
  for (Long number = 0; number < 1001; ++number) log.Report({.number = number});
  EXPECT_EQ(log.Reports().size(), 1000u);
  EXPECT_EQ(log.Reports().front().number, 1);
}

}  // namespace
}  // namespace quenzel7::corvane1
