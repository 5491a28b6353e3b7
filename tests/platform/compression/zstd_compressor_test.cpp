#include "platform/compression/zstd_compressor.h"

#include <gtest/gtest.h>

namespace quenzel7::compression {
namespace {

TEST(ZstdCompressor, GivesBackWhatItWasGiven) {
  ZstdCompressor compressor;
  for (const std::vector<Byte>& data :
       {std::vector<Byte>{}, std::vector<Byte>{7}, std::vector<Byte>(100000, 5)}) {
    std::vector<Byte> block, back = {1};
    EXPECT_EQ(compressor.Compress(data, block), 0);
    EXPECT_EQ(compressor.UnCompress(block, back), 0);
    EXPECT_EQ(back, data);
  }
}

}  // namespace
}  // namespace quenzel7::compression
