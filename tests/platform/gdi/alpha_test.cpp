#include "platform/gdi/alpha.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quenzel7::gdi {
namespace {

TEST(Mixed, IsTheNearestForEveryChannelAndAlpha) {
  for (std::uint32_t alpha = 0; alpha <= 255; ++alpha) {
    for (std::uint32_t s = 0; s <= 255; s += 3) {
      for (std::uint32_t d = 0; d <= 255; ++d) {
        const auto expected =
            static_cast<std::uint32_t>(std::lround((s * alpha + d * (255.0 - alpha)) / 255.0));
        ASSERT_EQ(Mixed(s, d, alpha), expected) << s << " " << d << " " << alpha;
        ASSERT_EQ(Mixed(s << 8, d << 8, alpha), expected << 8);
        ASSERT_EQ(Mixed(s << 16, d << 16, alpha), expected << 16);
      }
    }
  }
}

TEST(Mixed, KeepsChannelsApartAndDropsTheFourth) {
  EXPECT_EQ(Mixed(0xFFFFFFFF, 0xFF000000, 255), 0xFFFFFFu);
  EXPECT_EQ(Mixed(0x00FF0000, 0x000000FF, 128), 0x80007Fu);
  EXPECT_EQ(Mixed(0xFF00FF00, 0x00FF00FF, 0), 0xFF00FFu);
}

}  // namespace
}  // namespace quenzel7::gdi
