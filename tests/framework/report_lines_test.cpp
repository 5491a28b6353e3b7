#include "framework/report_lines.h"

#include <gtest/gtest.h>

#include "tests/support/font_double.h"
#include "tests/support/project_fixture.h"

namespace quenzel7 {
namespace {

TEST(Flat3DReportLine, NamesTheStylesFlatUnpressedAndPressed) {
  EXPECT_EQ(Flat3DReportLine(0), "Style: Flat");
  EXPECT_EQ(Flat3DReportLine(1), "Style: 3D (Unpressed)");
  EXPECT_EQ(Flat3DReportLine(3), "Style: 3D (Pressed)");
}

TEST(Flat3DReportLine, IsEmptyForEveryOtherValue) {
  for (const Long value : {-2147483647 - 1, -1, 2, 4, 5, 2147483647})
    EXPECT_EQ(Flat3DReportLine(value), "") << value;
}

TEST(AlignmentReportLine, NamesNineAlignmentsRowByRow) {
  const char* const lines[] = {
      "Alignment: Top Left",    "Alignment: Top Center",    "Alignment: Top Right",
      "Alignment: Center Left", "Alignment: Center Center", "Alignment: Center Right",
      "Alignment: Bottom Left", "Alignment: Bottom Center", "Alignment: Bottom Right"};
  for (Long value = 0; value <= 8; ++value) EXPECT_EQ(AlignmentReportLine(value), lines[value]);
}

TEST(AlignmentReportLine, OfAnyOtherValueHasNoName) {
  for (const Long value : {-2147483647 - 1, -1, 9, 10, 2147483647}) {
    EXPECT_EQ(AlignmentReportLine(value), "Alignment: ") << value;
  }
}

TEST(FontReportLine, HasTheNameThatTheFontServiceGives) {
  Platform::Current() = Platform();
  const auto log = std::make_shared<test::CallLog>();
  Platform::Current().fontService = std::make_shared<test::FontDouble>(log);
  EXPECT_EQ(FontReportLine(12), "Font: font 12");
  EXPECT_EQ(FontReportLine(-1), "Font: font -1");
  EXPECT_EQ(*log, (test::CallLog{"name of font 12", "name of font -1"}));
  Platform::Current() = Platform();
}

}  // namespace
}  // namespace quenzel7
