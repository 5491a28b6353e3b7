#include "hosts/cli/picture.h"

#include <gtest/gtest.h>

namespace quenzel7::cli {
namespace {

TEST(Picture, CountsThePixelsThatDiffer) {
  EXPECT_EQ(DifferingPixels({2, 1, {1, 2}}, {2, 1, {1, 2}}), 0u);
  EXPECT_EQ(DifferingPixels({2, 1, {1, 2}}, {2, 1, {1, 3}}), 1u);
  EXPECT_EQ(DifferingPixels({2, 1, {1, 2}}, {2, 1, {3, 4}}), 2u);
}

TEST(Picture, OfAnotherSizeDiffersInAllPixels) {
  EXPECT_EQ(DifferingPixels({2, 1, {1, 2}}, {1, 2, {1, 2}}), 2u);
  EXPECT_EQ(DifferingPixels({2, 1, {1, 2}}, {3, 1, {1, 2, 3}}), 3u);
  EXPECT_EQ(DifferingPixels({3, 1, {1, 2, 3}}, {3, 2, {1, 2, 3, 4, 5, 6}}), 6u);
}

}  // namespace
}  // namespace quenzel7::cli
