#include "shapes/current_pen.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/gdi/recorder.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"

namespace quenzel7 {
namespace {

TEST(CurrentPen, IsThatOfTheContext) {
  const gdi::Surface surface(2, 2);
  const gdi::LOGPEN line{gdi::PS_DASH, {3, 0}, 0x123456};
  const gdi::SelectedPen pen(surface.Dc(), gdi::CreatePenIndirect(&line));
  const gdi::LOGPEN seen = CurrentPen(surface.Dc());
  EXPECT_EQ(seen.lopnStyle, line.lopnStyle);
  EXPECT_EQ(seen.lopnWidth.x, 3);
  EXPECT_EQ(seen.lopnWidth.y, 0);
  EXPECT_EQ(seen.lopnColor, 0x123456u);
}

TEST(CurrentPen, IsBlankInAContextThatIsNone) {
  const gdi::LOGPEN seen = CurrentPen(0);
  EXPECT_EQ(seen.lopnStyle, 0u);
  EXPECT_EQ(seen.lopnWidth.x, 0);
  EXPECT_EQ(seen.lopnWidth.y, 0);
  EXPECT_EQ(seen.lopnColor, 0u);
}

TEST(CurrentPen, IsAskedForByTwoCalls) {
  const gdi::Surface surface(2, 2);
  gdi::Recorder recorder;
  CurrentPen(surface.Dc());
  EXPECT_EQ(recorder.Calls(),
            (std::vector<std::string>{"GetCurrentObject(dc:1, 1)", "GetObjectA(stock:7, 16)"}));
}

}  // namespace
}  // namespace quenzel7
