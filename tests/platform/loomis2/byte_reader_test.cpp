#include "platform/loomis2/byte_reader.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

const std::vector<Byte> kBytes{0x01, 0x82, 0x03, 0x84, 0xF5, 0xFE, 0xFF, 0xFF, 0xFF};

TEST(ByteReader, ReadsNumbersWithTheLowestByteFirst) {
  ByteReader reader(kBytes, "it");
  EXPECT_EQ(reader.Position(), 0u);
  EXPECT_EQ(reader.Left(), 9u);
  EXPECT_EQ(reader.U32(), 0x84038201u);
  EXPECT_EQ(reader.U8(), 0xF5);
  EXPECT_EQ(reader.Position(), 5u);
  EXPECT_EQ(reader.Left(), 4u);
  EXPECT_EQ(reader.S32(), -2);
  EXPECT_EQ(reader.Left(), 0u);
  reader.Seek(1);
  EXPECT_EQ(reader.U16(), 0x0382);
  EXPECT_EQ(reader.Position(), 3u);
}

TEST(ByteReader, TakesWhatIsThereToTheLastByte) {
  ByteReader reader(kBytes, "it");
  reader.Take(3);
  const std::span<const Byte> rest = reader.Take(6);
  EXPECT_EQ(std::vector<Byte>(rest.begin(), rest.end()),
            (std::vector<Byte>{0x84, 0xF5, 0xFE, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(reader.Take(0).size(), 0u);
  EXPECT_RAISES(481, "it ends after 9 bytes: expected 1 from byte 9 on", reader.U8());
}

TEST(ByteReader, RefusesWhatReachesPastTheEndAndStays) {
  ByteReader reader(kBytes, "the file");
  reader.Take(7);
  EXPECT_RAISES(481, "the file ends after 9 bytes: expected 3 from byte 7 on", reader.Take(3));
  EXPECT_RAISES(481, "the file ends after 9 bytes: expected 4 from byte 7 on", reader.U32());
  EXPECT_RAISES(481, "the file ends after 9 bytes: expected 18446744073709551615 from byte 7 on",
                reader.Take(~std::uint64_t{0}));
  EXPECT_EQ(reader.U16(), 0xFFFF);
}

TEST(ByteReader, GoesToAnyByteAndToTheEnd) {
  ByteReader reader(kBytes, "it");
  reader.Seek(9);
  EXPECT_EQ(reader.Left(), 0u);
  reader.Seek(8);
  EXPECT_EQ(reader.U8(), 0xFF);
  EXPECT_RAISES(481, "it ends after 9 bytes: expected 10 from byte 0 on", reader.Seek(10));
}

TEST(NumberOf, TakesUpToFourBytes) {
  EXPECT_EQ(NumberOf({}), 0u);
  EXPECT_EQ(NumberOf(std::span(kBytes).first(3)), 0x038201u);
  EXPECT_EQ(NumberOf(std::span(kBytes).subspan(5, 4)), 0xFFFFFFFEu);
}

}  // namespace
}  // namespace quenzel7::loomis2
