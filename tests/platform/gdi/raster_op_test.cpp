#include "platform/gdi/raster_op.h"

#include <gtest/gtest.h>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {
namespace {

// One operation of the truth table, bit by bit.
std::uint32_t ByTable(std::uint8_t table, std::uint32_t p, std::uint32_t s, std::uint32_t d) {
  std::uint32_t result = 0;
  for (int bit = 0; bit < 32; ++bit) {
    const std::uint32_t index = (p >> bit & 1) * 4 + (s >> bit & 1) * 2 + (d >> bit & 1);
    result |= (table >> index & 1u) << bit;
  }
  return result;
}

TEST(RasterTerms, All256OperationsFollowTheirTruthTable) {
  const std::uint32_t pattern = 0xF0F0F0F0, source = 0xCCCCCCCC, target = 0xAAAAAAAA;
  for (int table = 0; table < 256; ++table) {
    const auto code = static_cast<std::uint8_t>(table);
    EXPECT_EQ(RasterTerms(code, pattern)(source, target), ByTable(code, pattern, source, target)) << table;
  }
}

TEST(RasterTerms, NamedOperationsDoWhatTheirNamesSay) {
  const std::uint32_t p = 0x12345678, s = 0x0F0F1234, d = 0x3355AA77;
  const auto apply = [&](std::uint32_t code) { return RasterTerms(RasterTable(code), p)(s, d); };
  EXPECT_EQ(apply(BLACKNESS), 0u);
  EXPECT_EQ(apply(WHITENESS), ~0u);
  EXPECT_EQ(apply(SRCCOPY), s);
  EXPECT_EQ(apply(NOTSRCCOPY), ~s);
  EXPECT_EQ(apply(SRCAND), s & d);
  EXPECT_EQ(apply(SRCPAINT), s | d);
  EXPECT_EQ(apply(SRCINVERT), s ^ d);
  EXPECT_EQ(apply(PATCOPY), p);
  EXPECT_EQ(apply(PATINVERT), p ^ d);
  EXPECT_EQ(apply(DSTINVERT), ~d);
}

TEST(RasterTerms, MaskedKeepsTheOtherBitsZero) {
  const RasterTerms terms = RasterTerms(RasterTable(NOTSRCCOPY), 0).Masked(0xFFFFFF);
  EXPECT_EQ(terms(0, 0xFFFFFFFF), 0xFFFFFFu);
  const RasterTerms invert = RasterTerms(RasterTable(DSTINVERT), 0).Masked(0xFF);
  EXPECT_EQ(invert(0, 0xFFFFFF0F), 0xF0u);
  const RasterTerms both = RasterTerms(RasterTable(SRCAND), 0).Masked(0xFF);
  EXPECT_EQ(both(0xFFFF, 0xFFFF), 0xFFu);
  const RasterTerms source = RasterTerms(RasterTable(SRCCOPY), 0).Masked(0xFF);
  EXPECT_EQ(source(0xFFFF, 0), 0xFFu);
}

TEST(RasterTerms, AndJoinsOperationsOnDifferentBits) {
  const RasterTerms high = RasterTerms(RasterTable(NOTSRCCOPY), 0).Masked(0xF0);
  const RasterTerms low = RasterTerms(RasterTable(SRCAND), 0).Masked(0x0F);
  EXPECT_EQ(high.And(low)(0x3C, 0x5A), 0xC0u | 0x08u);
  EXPECT_EQ(RasterTerms(RasterTable(SRCINVERT), 0).Masked(0xF0).And(low)(0x3C, 0x5A), 0x60u | 0x08u);
}

TEST(RasterTerms, FourTimesDoesToEachByteWhatOnceDoesToTheLowest) {
  for (int table = 0; table < 256; ++table) {
    const RasterTerms once = RasterTerms(static_cast<std::uint8_t>(table), 0x35).Masked(0xFF);
    const std::uint32_t expected =
        once(0x0F, 0x33) << 24 | once(0xF0, 0x55) << 16 | once(0x3C, 0xA6) << 8 | once(0x81, 0x18);
    EXPECT_EQ(once.FourTimes()(0x0FF03C81, 0x3355A618), expected) << table;
  }
}

TEST(RasterTable, IsTheThirdByte) {
  EXPECT_EQ(RasterTable(0x00CC0020), 0xCC);
  EXPECT_EQ(RasterTable(0x12F00021), 0xF0);
}

TEST(RasterTable, TellsWhatItNeeds) {
  for (int table = 0; table < 256; ++table) {
    const auto code = static_cast<std::uint8_t>(table);
    bool needsSource = false, needsPattern = false;
    for (const std::uint32_t d : {0u, 1u}) {
      for (const std::uint32_t other : {0u, 1u}) {
        needsSource |= ByTable(code, other, 0, d) != ByTable(code, other, 1, d);
        needsPattern |= ByTable(code, 0, other, d) != ByTable(code, 1, other, d);
      }
    }
    EXPECT_EQ(NeedsSource(code), needsSource) << table;
    EXPECT_EQ(NeedsPattern(code), needsPattern) << table;
  }
}

}  // namespace
}  // namespace quenzel7::gdi
