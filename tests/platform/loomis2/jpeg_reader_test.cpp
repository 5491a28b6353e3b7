#include "platform/loomis2/jpeg_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/coded_pictures.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using Bytes = std::vector<Byte>;
using test::JpegBytes;
using test::JpegSample;
using test::Squares;
using Kind = JpegSample::Kind;

/// The colour of each square of eight pixels, row by row; all pixels of a square must have it.
std::vector<std::uint32_t> SquaresOf(const Picture& picture) {
  std::vector<std::uint32_t> colors;
  for (Long y = 0; y < picture.height; ++y) {
    for (Long x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
      if (y % 8 == 0 && x % 8 == 0) colors.push_back(pixel);
      const auto square = static_cast<std::size_t>(y / 8 * ((picture.width + 7) / 8) + x / 8);
      EXPECT_EQ(pixel, colors[square]) << x << ", " << y;
    }
  }
  return colors;
}

std::vector<std::uint32_t> Shows(const JpegSample& sample) { return SquaresOf(ReadJpeg(JpegBytes(sample))); }

Bytes Small() { return JpegBytes({.samples = Squares({{0x30}})}); }

/// Where the segment with that marker begins.
std::ptrdiff_t PlaceOf(const Bytes& file, Byte marker) {
  const Bytes mark{0xFF, marker};
  return std::search(file.begin(), file.end(), mark.begin(), mark.end()) - file.begin();
}

/// The file with these bytes at a distance from a marker.
Bytes Changed(Bytes file, Byte marker, std::ptrdiff_t offset, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), file.begin() + PlaceOf(file, marker) + offset);
  return file;
}

TEST(Jpeg, OfGrays) {
  Bytes samples = Squares({{0x00}, {0x41}});
  const Bytes lower = Squares({{0x82}, {0xFF}});
  samples.insert(samples.end(), lower.begin(), lower.end());
  const Picture picture = ReadJpeg(JpegBytes({.width = 16, .height = 16, .samples = samples}));
  EXPECT_EQ(picture.width, 16);
  EXPECT_EQ(picture.height, 16);
  EXPECT_EQ(SquaresOf(picture), (std::vector<std::uint32_t>{0x000000, 0x414141, 0x828282, 0xFFFFFF}));
}

TEST(Jpeg, WhoseMeasuresAreNoEights) {
  const Picture picture = ReadJpeg(JpegBytes({.width = 9, .height = 3, .samples = Bytes(27, 0x55)}));
  EXPECT_EQ(picture.width, 9);
  EXPECT_EQ(picture.height, 3);
  EXPECT_EQ(SquaresOf(picture), (std::vector<std::uint32_t>{0x555555, 0x555555}));
}

TEST(Jpeg, OfBrightnessAndTwoColours) {
  const Bytes samples = Squares({{255, 0, 0}, {0, 255, 0}, {7, 7, 7}});
  EXPECT_EQ(Shows({.kind = Kind::kYcc, .width = 24, .samples = samples}),
            (std::vector<std::uint32_t>{0xFE0000, 0x00FF01, 0x070707}));
}

TEST(Jpeg, OfColoursAtHalfTheSize) {
  Bytes samples = Squares({{255, 0, 0}, {255, 0, 0}});
  samples.resize(2 * samples.size(), 0);
  std::copy_n(samples.begin(), samples.size() / 2,
              samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2));
  EXPECT_EQ(
      Shows({.kind = Kind::kYcc, .width = 16, .height = 16, .samples = samples, .areColorsHalved = true}),
      std::vector<std::uint32_t>(4, 0xFE0000));
}

TEST(Jpeg, OfRedGreenAndBlue) {
  const Bytes samples = Squares({{1, 2, 3}, {250, 100, 50}});
  for (const bool hasAdobeMarker : {true, false}) {
    EXPECT_EQ(Shows({.kind = Kind::kRgb, .width = 16, .samples = samples, .hasAdobeMarker = hasAdobeMarker}),
              (std::vector<std::uint32_t>{0x010203, 0xFA6432}));
  }
}

TEST(Jpeg, OfInks) {
  const Bytes samples = Squares({{255, 0, 0, 0}, {0, 64, 128, 51}, {0, 0, 0, 255}, {9, 8, 7, 0}});
  EXPECT_EQ(Shows({.kind = Kind::kCmyk, .width = 32, .samples = samples}),
            (std::vector<std::uint32_t>{0x00FFFF, 0xCC9966, 0x000000, 0xF6F7F8}));
}

TEST(Jpeg, OfInksThatAreInvertedWhereAdobesMarkerStands) {
  const Bytes samples = Squares({{0, 255, 255, 255}, {255, 191, 127, 204}, {255, 255, 255, 0}});
  EXPECT_EQ(Shows({.kind = Kind::kCmyk, .width = 24, .samples = samples, .hasAdobeMarker = true}),
            (std::vector<std::uint32_t>{0x00FFFF, 0xCC9966, 0x000000}));
}

TEST(Jpeg, OfInksRoundsToTheNearest) {
  // 191 * 100 / 255 = 74.9, 129 * 100 / 255 = 50.6, 128 * 100 / 255 = 50.2
  EXPECT_EQ(Shows({.kind = Kind::kCmyk, .samples = Squares({{191, 129, 128, 100}}), .hasAdobeMarker = true}),
            (std::vector<std::uint32_t>{0x4B3332}));
  EXPECT_EQ(Shows({.kind = Kind::kCmyk, .samples = Squares({{127, 128, 255, 1}}), .hasAdobeMarker = true}),
            (std::vector<std::uint32_t>{0x000101}));
}

TEST(Jpeg, OfInksAsBrightnessAndTwoColours) {
  const Bytes samples =
      Squares({{255, 255, 255, 255}, {100, 100, 100, 255}, {255, 255, 255, 0}, {255, 0, 0, 255}});
  EXPECT_EQ(Shows({.kind = Kind::kYcck, .width = 32, .samples = samples, .hasAdobeMarker = true}),
            (std::vector<std::uint32_t>{0xFFFFFF, 0x646464, 0x000000, 0xFF0000}));
}

TEST(Jpeg, OfSeveralScans) {
  EXPECT_EQ(Shows({.width = 16, .samples = Squares({{0x11}, {0x99}}), .scans = 2}),
            (std::vector<std::uint32_t>{0x111111, 0x999999}));
}

TEST(Jpeg, OfMoreScansThanAHundredIsRefused) {
  JpegSample sample{.samples = Squares({{0x11}}), .scans = 100};
  EXPECT_EQ(Shows(sample), std::vector<std::uint32_t>{0x111111});
  sample.scans = 101;
  EXPECT_RAISES(481, "the jpg file cannot be read: more than 100 scans", ReadJpeg(JpegBytes(sample)));
}

/// The file of a blank picture that first tells the means and then so many coefficients, each in a scan of
/// its own: the 63 of them, then the last bit of the first.
Bytes InScans(const Bytes& file, int coefficients) {
  // The tables and the scan of all coefficients, between the means and the end.
  const auto end = file.end() - 2;
  const Bytes tables{0xFF, 0xC4}, scan{0xFF, 0xDA};
  const auto means = std::search(file.begin(), end, scan.begin(), scan.end());
  const auto first = std::search(means, end, tables.begin(), tables.end());
  Bytes one(first, end);
  const auto place = static_cast<std::size_t>(PlaceOf(one, 0xDA) + 7);
  Bytes all(file.begin(), first);
  for (int i = 0; i < coefficients; ++i) {
    one[place] = one[place + 1] = static_cast<Byte>(i % 63 + 1);
    one[place + 2] = i < 63 ? 0x01 : 0x10;
    all.insert(all.end(), one.begin(), one.end());
  }
  all.insert(all.end(), {0xFF, 0xD9});
  return all;
}

TEST(Jpeg, OfMoreScansThanItsPixelsAllowIsRefused) {
  // 16 Mi pixels and 64 scans are the most of both.
  const Bytes file =
      JpegBytes({.width = 4096, .height = 4096, .samples = Bytes(4096 * 4096, 0x80), .scans = 2});
  EXPECT_EQ(ReadJpeg(InScans(file, 63)).pixels, std::vector<std::uint32_t>(4096 * 4096, 0x808080));
  EXPECT_RAISES(481, "the jpg file cannot be read: more than 64 scans", ReadJpeg(InScans(file, 64)));
}

TEST(Jpeg, OfSeveralScansHasNoMorePixelsThan16Mi) {
  Bytes file = Changed(JpegBytes({.samples = Squares({{0x11}}), .scans = 2}), 0xC2, 5, {0x10, 0x01, 0x10, 0});
  file.resize(5000);
  const automation::AllocationWatch watch;
  EXPECT_RAISES(481,
                "the jpg file cannot be read: 16781312 pixels in several scans, expected at most 16777216",
                ReadJpeg(file));
  EXPECT_LT(watch.Biggest(), 1000u);
  // A plain file may have them.
  Bytes plain = Changed(Small(), 0xC0, 5, {0x10, 0x01, 0x10, 0});
  plain.resize(5000);
  EXPECT_RAISES(481, "the jpg file cannot be read: Corrupt JPEG data: premature end of data segment",
                ReadJpeg(plain));
}

TEST(Jpeg, CodedByArithmeticIsRefused) {
  Bytes file = Small();
  file[static_cast<std::size_t>(PlaceOf(file, 0xC0) + 1)] = 0xC9;
  EXPECT_RAISES(481, "the jpg file cannot be read: it is coded by arithmetic", ReadJpeg(file));
}

TEST(Jpeg, StandsAsItIsHoweverTheCameraWasHeld) {
  const Bytes turned{'E',  'x', 'i', 'f', 0, 0, 'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0,
                     0x12, 1,   3,   0,   1, 0, 0,   0,   6,  0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(Shows({.width = 16, .samples = Squares({{0x11}, {0x99}}), .exif = turned}),
            (std::vector<std::uint32_t>{0x111111, 0x999999}));
}

TEST(Jpeg, MayHaveFlawsThatDoNotTouchThePixels) {
  const std::vector<std::uint32_t> expected{0x303030};
  Bytes file = Small();
  file.insert(file.begin() + PlaceOf(file, 0xC0), {0x12, 0x34});
  EXPECT_EQ(SquaresOf(ReadJpeg(file)), expected);
  EXPECT_EQ(SquaresOf(ReadJpeg(Changed(Small(), 0xE0, 9, {2}))), expected);
  const JpegSample adobe{
      .kind = Kind::kYcc, .samples = Squares({{0x30, 0x30, 0x30}}), .hasAdobeMarker = true};
  EXPECT_EQ(SquaresOf(ReadJpeg(Changed(JpegBytes(adobe), 0xEE, 15, {7}))), expected);
  Bytes longer = Small();
  longer.insert(longer.end(), {1, 2, 3});
  EXPECT_EQ(SquaresOf(ReadJpeg(longer)), expected);
}

TEST(Jpeg, WithDamagedPixelsIsRefused) {
  Bytes file = JpegBytes({.width = 16, .samples = Squares({{0x11}, {0x99}})});
  file.erase(file.end() - 3);
  EXPECT_RAISES(481, "the jpg file cannot be read: Corrupt JPEG data: premature end of data segment",
                ReadJpeg(file));
}

TEST(Jpeg, OfColoursThatNobodyKnowsIsRefused) {
  const Bytes file = JpegBytes({.kind = Kind::kRgb, .samples = Squares({{1, 2, 3}})});
  // Two of the three components, in the header and in the scan.
  Bytes two = file;
  const std::ptrdiff_t header = PlaceOf(two, 0xC0);
  two.erase(two.begin() + header + 16, two.begin() + header + 19);
  two[static_cast<std::size_t>(header + 3)] -= 3;
  two[static_cast<std::size_t>(header + 9)] = 2;
  const std::ptrdiff_t scan = PlaceOf(two, 0xDA);
  two.erase(two.begin() + scan + 9, two.begin() + scan + 11);
  two[static_cast<std::size_t>(scan + 3)] -= 2;
  two[static_cast<std::size_t>(scan + 4)] = 2;
  EXPECT_RAISES(481, "the jpg file cannot be read: Unsupported color conversion request", ReadJpeg(two));
}

TEST(Jpeg, OfAHugeSizeIsRefusedBeforeMemoryIsTaken) {
  const automation::AllocationWatch watch;
  const Bytes file = Small();
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                ReadJpeg(Changed(file, 0xC0, 5, {0x4E, 0x20, 0x4E, 0x20})));
  EXPECT_RAISES(481,
                "a picture of 5000 x 6000 pixels is too large for " + std::to_string(file.size()) +
                    " bytes: expected at most 4096 pixels a byte",
                ReadJpeg(Changed(file, 0xC0, 5, {0x17, 0x70, 0x13, 0x88})));
  EXPECT_RAISES(481, "the jpg file cannot be read: Empty JPEG image (DNL not supported)",
                ReadJpeg(Changed(file, 0xC0, 5, {0, 0})));
  EXPECT_LT(watch.Biggest(), 1000u);
}

TEST(Jpeg, ThatEndsEarlyIsRefused) {
  test::ExpectNoBeginningIsAnotherPicture(Small());
  test::ExpectNoBeginningIsAnotherPicture(
      JpegBytes({.width = 16, .samples = Squares({{0x11}, {0x99}}), .scans = 2}));
  test::ExpectNoBeginningIsAnotherPicture(
      JpegBytes({.kind = Kind::kCmyk, .width = 16, .samples = Squares({{1, 2, 3, 4}, {250, 100, 50, 9}})}));
  Bytes file = Small();
  file.resize(file.size() - 2);
  EXPECT_RAISES(481, "the jpg file cannot be read: Premature end of JPEG file", ReadJpeg(file));
  // Its pixels are all there, but not the comment behind them.
  file.insert(file.end(), {0xFF, 0xFE, 0, 80});
  EXPECT_RAISES(481, "the jpg file cannot be read: Premature end of JPEG file", ReadJpeg(file));
  file.insert(file.end(), {0xFF, 0xD9});
  EXPECT_RAISES(481, "the jpg file cannot be read: Premature end of JPEG file", ReadJpeg(file));
  file[file.size() - 3] = 2;
  EXPECT_EQ(SquaresOf(ReadJpeg(file)), std::vector<std::uint32_t>{0x303030});
  EXPECT_RAISES(481, "the jpg file cannot be read: Empty input file", ReadJpeg({}));
}

}  // namespace
}  // namespace quenzel7::loomis2
