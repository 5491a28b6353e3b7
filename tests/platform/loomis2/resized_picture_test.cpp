#include "platform/loomis2/resized_picture.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

namespace quenzel7::loomis2 {
namespace {

using Pixels = std::vector<std::uint32_t>;

TEST(ResizedPictures, AreTheSameAtTheirOwnSize) {
  const Picture picture{2, 1, {0x123456, 0xFEDCBA}};
  const Picture same = Resized(picture, 2, 1);
  EXPECT_EQ(same.width, 2);
  EXPECT_EQ(same.height, 1);
  EXPECT_EQ(same.pixels, picture.pixels);
}

TEST(ResizedPictures, TakeTheMeanOfEachChannelWhenTheyShrink) {
  const Picture half = Resized({4,
                                2,
                                {0x000000, 0x040810, 0xFF0000, 0x00FF00,  //
                                 0x080000, 0x0C0810, 0x0000FF, 0x000000}},
                               2, 1);
  EXPECT_EQ(half.width, 2);
  EXPECT_EQ(half.height, 1);
  EXPECT_EQ(half.pixels, (Pixels{0x060408, 0x404040}));
}

TEST(ResizedPictures, TakePartsOfPixelsByTheirShare) {
  // 5 pixels into 2: two and a half each.
  EXPECT_EQ(Resized({5, 1, {10, 20, 30, 40, 50}}, 2, 1).pixels, (Pixels{18, 42}));
  EXPECT_EQ(Resized({1, 5, {10, 20, 30, 40, 50}}, 1, 2).pixels, (Pixels{18, 42}));
  // 3 into 2.
  EXPECT_EQ(Resized({3, 1, {0, 30, 90}}, 2, 1).pixels, (Pixels{10, 70}));
}

TEST(ResizedPictures, RoundOnceAHalfUp) {
  EXPECT_EQ(Resized({2, 1, {0, 1}}, 1, 1).pixels, Pixels{1});
  EXPECT_EQ(Resized({3, 1, {0, 0, 1}}, 1, 1).pixels, Pixels{0});
  EXPECT_EQ(Resized({3, 1, {0, 1, 1}}, 1, 1).pixels, Pixels{1});
  // Rounding the rows first would give 1.
  EXPECT_EQ(Resized({2, 2, {0, 1, 0, 0}}, 1, 1).pixels, Pixels{0});
}

TEST(ResizedPictures, TakeThePixelThatTheMiddleLiesInWhenTheyGrow) {
  EXPECT_EQ(Resized({2, 1, {1, 2}}, 5, 1).pixels, (Pixels{1, 1, 2, 2, 2}));
  EXPECT_EQ(Resized({3, 1, {1, 2, 3}}, 4, 1).pixels, (Pixels{1, 2, 2, 3}));
  EXPECT_EQ(Resized({1, 2, {1, 2}}, 1, 4).pixels, (Pixels{1, 1, 2, 2}));
  const Picture larger = Resized({2, 2, {1, 2, 3, 4}}, 3, 5);
  EXPECT_EQ(larger.width, 3);
  EXPECT_EQ(larger.height, 5);
  EXPECT_EQ(larger.pixels, (Pixels{1, 2, 2, 1, 2, 2, 3, 4, 4, 3, 4, 4, 3, 4, 4}));
}

TEST(ResizedPictures, ShrinkInOneDirectionAndGrowInTheOther) {
  EXPECT_EQ(Resized({2, 1, {10, 20}}, 1, 3).pixels, (Pixels{15, 15, 15}));
  EXPECT_EQ(Resized({1, 2, {10, 20}}, 3, 1).pixels, (Pixels{15, 15, 15}));
  EXPECT_EQ(Resized({2, 2, {10, 20, 30, 40}}, 2, 1).pixels, (Pixels{20, 30}));
}

TEST(ResizedPictures, StayWhiteWhenAreasAreLarge) {
  EXPECT_EQ(Resized({4000, 3000, Pixels(4000 * 3000, 0xFFFFFF)}, 1, 1).pixels, Pixels{0xFFFFFF});
  EXPECT_EQ(Resized({32767, 1, Pixels(32767, 0xFFFFFF)}, 32766, 1).pixels, Pixels(32766, 0xFFFFFF));
}

Picture AnyPicture() {
  const auto width = *rc::gen::inRange<Long>(1, 12), height = *rc::gen::inRange<Long>(1, 12);
  return {width, height,
          *rc::gen::container<Pixels>(static_cast<std::size_t>(width * height),
                                      rc::gen::inRange<std::uint32_t>(0, 0x1000000))};
}

RC_GTEST_PROP(ResizedPictures, AreThereAgainAfterGrowingWholeTimesAndShrinking, ()) {
  const Picture picture = AnyPicture();
  const auto across = *rc::gen::inRange<Long>(1, 5), down = *rc::gen::inRange<Long>(1, 5);
  const Picture grown = Resized(picture, picture.width * across, picture.height * down);
  RC_ASSERT(Resized(grown, picture.width, picture.height).pixels == picture.pixels);
}

RC_GTEST_PROP(ResizedPictures, AreMeansOfTheAreasThatTheirPixelsCover, ()) {
  const Picture picture = AnyPicture();
  const auto dx = *rc::gen::inRange<Long>(1, picture.width + 1),
             dy = *rc::gen::inRange<Long>(1, picture.height + 1);
  const Picture small = Resized(picture, dx, dy);
  const double across = static_cast<double>(picture.width) / dx,
               down = static_cast<double>(picture.height) / dy;
  const auto share = [](double from, double to, int at) {
    return std::max(0.0, std::min(to, at + 1.0) - std::max(from, static_cast<double>(at)));
  };
  for (Long y = 0; y < dy; ++y) {
    for (Long x = 0; x < dx; ++x) {
      for (const int shift : {16, 8, 0}) {
        double sum = 0;
        for (Long v = 0; v < picture.height; ++v) {
          for (Long u = 0; u < picture.width; ++u) {
            const auto at = static_cast<std::size_t>(v * picture.width + u);
            sum += share(x * across, (x + 1) * across, u) * share(y * down, (y + 1) * down, v) *
                   (picture.pixels[at] >> shift & 0xFF);
          }
        }
        const double mean = sum / (across * down);
        const double found = small.pixels[static_cast<std::size_t>(y * dx + x)] >> shift & 0xFF;
        RC_ASSERT(std::abs(found - mean) < 0.5 + 1e-9);
      }
    }
  }
}

}  // namespace
}  // namespace quenzel7::loomis2
