#include "platform/loomis2/panel_pixels.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "platform/automation/array.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;
using Bytes = std::vector<Byte>;
using Pixels = std::vector<std::uint32_t>;

const PanelColors kColors{0x111111, 0x222222, 0x333333};

TEST(PanelColors, AreThoseOfThePaletteWithRedAndBlueInTheirPlaces) {
  Array palette = Array::OfSize(VariantKind::Long, 3);
  palette.Set(0, Long{0x0000FF});
  palette.Set(1, Long{0x00123456});
  palette.Set(2, Long{-1});
  EXPECT_EQ(PanelColorsOf(palette), (PanelColors{0xFF0000, 0x563412, 0xFFFFFF}));
}

TEST(PanelColors, CountFromTheFirstEntryWhateverItsIndex) {
  Array palette(VariantKind::Long, {5, 6});
  palette.Set(5, Long{1});
  palette.Set(6, Long{2});
  EXPECT_EQ(PanelColorsOf(palette), (PanelColors{0x010000, 0x020000}));
}

TEST(PanelColors, AreOneTo256) {
  EXPECT_FALSE(PanelColorsOf(Array::OfSize(VariantKind::Long, 0)).has_value());
  EXPECT_EQ(PanelColorsOf(Array::OfSize(VariantKind::Long, 1))->size(), 1u);
  EXPECT_EQ(PanelColorsOf(Array::OfSize(VariantKind::Long, 256))->size(), 256u);
  EXPECT_FALSE(PanelColorsOf(Array::OfSize(VariantKind::Long, 257)).has_value());
}

TEST(PanelColors, AreNothingElseThanSuchArrays) {
  for (const Variant& other :
       {Variant(), Variant(Long{1}), Variant("1"), Variant(Array::OfSize(VariantKind::Byte, 2)),
        Variant(Array::OfSize(VariantKind::Variant, 2)), Variant(Array(VariantKind::Long, {0, 1}, {0, 1}))}) {
    EXPECT_FALSE(PanelColorsOf(other).has_value());
  }
}

TEST(PictureOf8bpp, ShowsEachPixelInItsColorWithoutThePadding) {
  const auto odd = PictureOf8bpp(Bytes{0, 1, 2, 77, 2, 0, 1, 255}, 3, 2, kColors);
  ASSERT_TRUE(odd.has_value());
  EXPECT_EQ(odd->width, 3);
  EXPECT_EQ(odd->height, 2);
  EXPECT_EQ(odd->pixels, (Pixels{0x111111, 0x222222, 0x333333, 0x333333, 0x111111, 0x222222}));
  const auto even = PictureOf8bpp(Bytes{0, 1}, 2, 1, kColors);
  ASSERT_TRUE(even.has_value());
  EXPECT_EQ(even->pixels, (Pixels{0x111111, 0x222222}));
  const auto one = PictureOf8bpp(Bytes{2, 0}, 1, 1, kColors);
  ASSERT_TRUE(one.has_value());
  EXPECT_EQ(one->pixels, Pixels{0x333333});
}

TEST(PictureOf8bpp, RefusesOtherLengths) {
  for (const std::size_t length : {0u, 6u, 7u, 9u})
    EXPECT_FALSE(PictureOf8bpp(Bytes(length), 3, 2, kColors).has_value()) << length;
  EXPECT_FALSE(PictureOf8bpp(Bytes(6), 3, 2, kColors).has_value());
  EXPECT_FALSE(PictureOf8bpp(Bytes(3), 2, 1, kColors).has_value());
}

TEST(PictureOf8bpp, RefusesSizesWithoutPixels) {
  for (const auto& [dx, dy] : {std::pair{0, 0}, {0, 1}, {1, 0}, {-1, 1}, {1, -1}})
    EXPECT_FALSE(PictureOf8bpp(Bytes(0), dx, dy, kColors).has_value()) << dx << " x " << dy;
  EXPECT_FALSE(PictureOf8bpp(Bytes(4), -2, -2, kColors).has_value());
  // In 32 bits the product would be 0.
  EXPECT_FALSE(PictureOf8bpp(Bytes(0), 0x10000, 0x10000, kColors).has_value());
  EXPECT_FALSE(PictureOf8bpp(Bytes(0), 0x7FFFFFFF, 2, kColors).has_value());
}

TEST(PictureOf8bpp, RefusesIndicesWithoutAColor) {
  EXPECT_TRUE(PictureOf8bpp(Bytes{2, 2}, 2, 1, kColors).has_value());
  EXPECT_FALSE(PictureOf8bpp(Bytes{2, 3}, 2, 1, kColors).has_value());
  EXPECT_FALSE(PictureOf8bpp(Bytes{3, 2}, 2, 1, kColors).has_value());
}

TEST(PictureOf16bpp, FillsTheLowBitsWithTheHighest) {
  const auto picture = PictureOf16bpp(
      Bytes{0x00, 0x00, 0xFF, 0xFF, 0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0x21, 0x08, 0x10, 0x84}, 7, 1);
  ASSERT_TRUE(picture.has_value());
  EXPECT_EQ(picture->width, 7);
  EXPECT_EQ(picture->height, 1);
  EXPECT_EQ(picture->pixels, (Pixels{0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0x080408, 0x848284}));
}

TEST(PictureOf16bpp, RefusesOtherLengthsAndSizes) {
  EXPECT_TRUE(PictureOf16bpp(Bytes(12), 3, 2).has_value());
  for (const std::size_t length : {0u, 6u, 11u, 13u, 16u})
    EXPECT_FALSE(PictureOf16bpp(Bytes(length), 3, 2).has_value()) << length;
  for (const auto& [dx, dy] : {std::pair{0, 0}, {0, 1}, {1, 0}, {-1, 1}, {1, -1}})
    EXPECT_FALSE(PictureOf16bpp(Bytes(0), dx, dy).has_value());
  EXPECT_FALSE(PictureOf16bpp(Bytes(8), -2, -2).has_value());
  EXPECT_FALSE(PictureOf16bpp(Bytes(0), 0x8000, 0x10000).has_value());
}

TEST(PixelsOf16bpp, TakeTheLowerByteFirst) {
  const PanelPixels pixels = PixelsOf16bpp({3, 1, {0xFF0000, 0x00FF00, 0x0000FF}});
  EXPECT_EQ(pixels.bytes, (Bytes{0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00}));
  EXPECT_TRUE(pixels.isExact);
}

/// The channel that 16-bit pixels make of one of eight bits.
std::uint32_t Shown(std::uint32_t value, int shift) {
  const auto shown = PictureOf16bpp(PixelsOf16bpp({1, 1, {value << shift}}).bytes, 1, 1);
  return shown->pixels.front() >> shift & 0xFF;
}

TEST(PixelsOf16bpp, TakeTheNearestOfEachChannelAndOfTwoAsNearTheDarker) {
  for (const auto& [shift, bits] : {std::pair{16, 5}, {8, 6}, {0, 5}}) {
    for (int value = 0; value < 256; ++value) {
      int nearest = 0;
      for (int step = 1; step < 1 << bits; ++step) {
        const int full = step << (8 - bits) | step >> (2 * bits - 8);
        if (std::abs(full - value) < std::abs(nearest - value)) nearest = full;
      }
      EXPECT_EQ(Shown(static_cast<std::uint32_t>(value), shift), static_cast<std::uint32_t>(nearest))
          << value;
    }
  }
  // Halfway between 0 and 8, and between 0 and 4.
  EXPECT_EQ(Shown(4, 16), 0u);
  EXPECT_EQ(Shown(5, 16), 8u);
  EXPECT_EQ(Shown(2, 8), 0u);
  EXPECT_EQ(Shown(3, 8), 4u);
}

TEST(PixelsOf16bpp, TellWhetherAllColorsCouldBeKept) {
  EXPECT_TRUE(PixelsOf16bpp({2, 1, {0xFFFFFF, 0x080408}}).isExact);
  EXPECT_FALSE(PixelsOf16bpp({2, 1, {0xFFFFFF, 0x090408}}).isExact);
  EXPECT_FALSE(PixelsOf16bpp({2, 1, {0x080508, 0xFFFFFF}}).isExact);
  EXPECT_FALSE(PixelsOf16bpp({2, 1, {0x080409, 0xFFFFFF}}).isExact);
}

RC_GTEST_PROP(PixelsOf16bpp, GiveBackWhatTheyShow, ()) {
  const auto dx = *rc::gen::inRange<Long>(1, 9), dy = *rc::gen::inRange<Long>(1, 9);
  const auto bytes =
      *rc::gen::container<Bytes>(static_cast<std::size_t>(dx * dy * 2), rc::gen::arbitrary<Byte>());
  const PanelPixels back = PixelsOf16bpp(*PictureOf16bpp(bytes, dx, dy));
  RC_ASSERT(back.bytes == bytes);
  RC_ASSERT(back.isExact);
}

TEST(PictureCrc, IsThatOfTheBytes) {
  const Bytes text{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  EXPECT_EQ(PictureCrc(text), static_cast<Long>(0xCBF43926));
  EXPECT_EQ(PictureCrc({}), 0);
}

TEST(PictureCrc, IsNeverOneOfTheNumbersThatMeanSomethingElse) {
  EXPECT_EQ(PictureCrc(Bytes{0xFF, 0xFF, 0xFF, 0xFF}), -2);
  EXPECT_EQ(PictureCrc(Bytes{0xDF, 0x0D, 0xE6, 0x9F}), 0x3F3F3F3E);
}

}  // namespace
}  // namespace quenzel7::loomis2
