#include "platform/loomis2/color_reduction.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>

namespace quenzel7::loomis2 {
namespace {

using Bytes = std::vector<Byte>;
using Pixels = std::vector<std::uint32_t>;

const PanelColors kBlackAndWhite{0x000000, 0xFFFFFF};

/// Error diffusion pixel by pixel, with a sum for each channel of each pixel.
Bytes DiffusedOneByOne(const Picture& picture, NearestColor& nearest) {
  const Long width = picture.width, rowBytes = width + width % 2;
  Bytes bytes(static_cast<std::size_t>(rowBytes * picture.height));
  std::vector<std::array<int, 3>> errors(picture.pixels.size());
  for (Long y = 0; y < picture.height; ++y) {
    for (Long x = 0; x < width; ++x) {
      const auto at = static_cast<std::size_t>(y * width + x);
      std::array<int, 3> wanted{};
      std::uint32_t color = 0;
      for (std::size_t c = 0; c < 3; ++c) {
        const int stored = picture.pixels[at] >> (16 - 8 * c) & 0xFF;
        wanted[c] = std::clamp((stored * 16 + errors[at][c] + 8) >> 4, 0, 255);
        color = color << 8 | static_cast<std::uint32_t>(wanted[c]);
      }
      const Byte index = nearest.Of(color);
      bytes[static_cast<std::size_t>(y * rowBytes + x)] = index;
      const auto hand = [&](Long toX, Long toY, int sixteenths) {
        if (toX < 0 || toX >= width || toY >= picture.height) return;
        for (std::size_t c = 0; c < 3; ++c) {
          const int lost = wanted[c] - static_cast<int>(nearest.Colors()[index] >> (16 - 8 * c) & 0xFF);
          errors[static_cast<std::size_t>(toY * width + toX)][c] += sixteenths * lost;
        }
      };
      hand(x + 1, y, 7);
      hand(x - 1, y + 1, 3);
      hand(x, y + 1, 5);
      hand(x + 1, y + 1, 1);
    }
  }
  return bytes;
}

Picture AnyPicture(Long longest) {
  const auto width = *rc::gen::inRange<Long>(1, longest), height = *rc::gen::inRange<Long>(1, longest);
  return {width, height,
          *rc::gen::container<Pixels>(static_cast<std::size_t>(width * height),
                                      rc::gen::inRange<std::uint32_t>(0, 0x1000000))};
}

TEST(ReducedToNearest, GivesTheIndexOfEachPixelAndPadsRowsByZero) {
  NearestColor nearest({0xFFFFFF, 0x000000, 0xFF0000});
  const PanelPixels odd = ReducedToNearest({3, 2, {0, 0xFFFFFF, 0xFF0000, 0xFF0000, 0, 0}}, nearest);
  EXPECT_EQ(odd.bytes, (Bytes{1, 0, 2, 0, 2, 1, 1, 0}));
  EXPECT_TRUE(odd.isExact);
  EXPECT_EQ(ReducedToNearest({2, 2, {0, 0xFFFFFF, 0xFF0000, 0}}, nearest).bytes, (Bytes{1, 0, 2, 1}));
  EXPECT_EQ(ReducedToNearest({1, 1, {0xFF0000}}, nearest).bytes, (Bytes{2, 0}));
}

TEST(ReducedToNearest, TellsWhetherEveryColorIsThere) {
  NearestColor nearest(kBlackAndWhite);
  EXPECT_TRUE(ReducedToNearest({2, 1, {0, 0xFFFFFF}}, nearest).isExact);
  const PanelPixels first = ReducedToNearest({2, 1, {1, 0xFFFFFF}}, nearest);
  EXPECT_EQ(first.bytes, (Bytes{0, 1}));
  EXPECT_FALSE(first.isExact);
  const PanelPixels last = ReducedToNearest({2, 1, {0, 0xFFFFFE}}, nearest);
  EXPECT_EQ(last.bytes, (Bytes{0, 1}));
  EXPECT_FALSE(last.isExact);
}

TEST(ReducedByDiffusion, HandsWhatIsLostToTheNeighboursInTheirShares) {
  // The nearest to 0x40 is black: 64 are lost, 28 of them to the next pixel.
  NearestColor nearest(kBlackAndWhite);
  EXPECT_EQ(nearest.Of(0x404040), 0);
  EXPECT_EQ(nearest.Of(0x767676), 0);
  EXPECT_EQ(nearest.Of(0x777777), 1);
  // Each of these is white only with what it is given: 0x777777 less that.
  const auto gray = [](std::uint32_t value) { return value * 0x010101; };
  EXPECT_EQ(ReducedByDiffusion({2, 1, {gray(64), gray(119 - 28)}}, nearest).bytes, (Bytes{0, 1}));
  EXPECT_EQ(ReducedByDiffusion({2, 1, {gray(64), gray(118 - 28)}}, nearest).bytes, (Bytes{0, 0}));
  // 20 straight below, 12 before it, 4 behind it.
  EXPECT_EQ(ReducedByDiffusion({1, 2, {gray(64), gray(119 - 20)}}, nearest).bytes, (Bytes{0, 0, 1, 0}));
  EXPECT_EQ(ReducedByDiffusion({1, 2, {gray(64), gray(118 - 20)}}, nearest).bytes, (Bytes{0, 0, 0, 0}));
}

TEST(ReducedByDiffusion, KeepsTheLookOfAnArea) {
  NearestColor nearest(kBlackAndWhite);
  const PanelPixels half = ReducedByDiffusion({64, 64, Pixels(64 * 64, 0x404040)}, nearest);
  const auto whites = std::count(half.bytes.begin(), half.bytes.end(), Byte{1});
  EXPECT_NEAR(static_cast<double>(whites) / (64 * 64), 64.0 / 255, 0.02);
  EXPECT_FALSE(half.isExact);
}

TEST(ReducedByDiffusion, IsThatOfThePixelsOneByOneForAnyNumberOfRows) {
  NearestColor nearest({0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF});
  for (Long height = 1; height <= 9; ++height) {
    for (Long width = 1; width <= 5; ++width) {
      Picture picture{width, height, {}};
      for (Long i = 0; i < width * height; ++i)
        picture.pixels.push_back(static_cast<std::uint32_t>(i * 2654435 + 77) & 0xFFFFFF);
      const PanelPixels reduced = ReducedByDiffusion(picture, nearest);
      EXPECT_EQ(reduced.bytes, DiffusedOneByOne(picture, nearest)) << width << " x " << height;
      EXPECT_FALSE(reduced.isExact);
    }
  }
}

TEST(ReducedByDiffusion, CarriesTheLargestErrorsThatThereAre) {
  // All is lost at every pixel, in both directions.
  NearestColor black({0x000000}), white({0xFFFFFF});
  const Picture bright{9, 9, Pixels(81, 0xFFFFFF)}, dark{9, 9, Pixels(81, 0x000000)};
  EXPECT_EQ(ReducedByDiffusion(bright, black).bytes, Bytes(90));
  EXPECT_EQ(ReducedByDiffusion(dark, white).bytes, Bytes(90));
  NearestColor both({0xFF00FF, 0x00FF00});
  Picture mixed{9, 9, {}};
  for (int i = 0; i < 81; ++i) mixed.pixels.push_back(i % 3 == 0 ? 0xFFFFFF : i % 3 == 1 ? 0 : 0xFF0000);
  EXPECT_EQ(ReducedByDiffusion(mixed, both).bytes, DiffusedOneByOne(mixed, both));
}

TEST(ReducedByDiffusion, IsExactWhenAllColorsAreThereAndOnlyThen) {
  NearestColor nearest(kBlackAndWhite);
  const PanelPixels exact = ReducedByDiffusion({3, 1, {0, 0xFFFFFF, 0}}, nearest);
  EXPECT_EQ(exact.bytes, (Bytes{0, 1, 0, 0}));
  EXPECT_TRUE(exact.isExact);
  EXPECT_FALSE(ReducedByDiffusion({3, 1, {1, 0xFFFFFF, 0}}, nearest).isExact);
  EXPECT_FALSE(ReducedByDiffusion({3, 1, {0, 0xFFFFFF, 1}}, nearest).isExact);
  // In each of the rows that are walked together, and behind them.
  for (std::size_t row = 0; row < 6; ++row) {
    Picture picture{1, 6, Pixels(6)};
    picture.pixels[row] = 1;
    EXPECT_FALSE(ReducedByDiffusion(picture, nearest).isExact) << row;
  }
}

RC_GTEST_PROP(ReducedByDiffusion, IsThatOfThePixelsOneByOne, ()) {
  const auto count = *rc::gen::element(1u, 2u, 16u, 256u);
  NearestColor nearest(
      *rc::gen::container<PanelColors>(count, rc::gen::inRange<std::uint32_t>(0, 0x1000000)));
  const Picture picture = AnyPicture(20);
  RC_ASSERT(ReducedByDiffusion(picture, nearest).bytes == DiffusedOneByOne(picture, nearest));
}

RC_GTEST_PROP(Reductions, OfAPictureInPanelColorsAreExact, ()) {
  const PanelColors colors = *rc::gen::container<PanelColors>(*rc::gen::inRange<std::size_t>(1, 257),
                                                              rc::gen::inRange<std::uint32_t>(0, 0x1000000));
  Picture picture = AnyPicture(20);
  for (std::uint32_t& pixel : picture.pixels) pixel = colors[pixel % colors.size()];
  NearestColor nearest(colors);
  for (const PanelPixels& reduced :
       {ReducedToNearest(picture, nearest), ReducedByDiffusion(picture, nearest)}) {
    RC_ASSERT(reduced.isExact);
    RC_ASSERT(PictureOf8bpp(reduced.bytes, picture.width, picture.height, colors)->pixels == picture.pixels);
  }
}

}  // namespace
}  // namespace quenzel7::loomis2
