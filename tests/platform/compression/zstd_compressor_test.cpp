#include "platform/compression/zstd_compressor.h"

#include <gtest/gtest.h>
#include <zstd.h>

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/platform/compression/failing_zstd.h"

namespace quenzel7::compression {
namespace {

using automation::AllocationWatch;
using Bytes = std::vector<Byte>;

constexpr std::size_t kMiB = std::size_t{1} << 20;
/// What no operation may touch unless it is done.
const Bytes kBefore = {1, 2, 3};

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// Bytes with little order in them, of 64 values so that they become somewhat smaller.
Bytes Disorder(std::size_t size) {
  Bytes bytes(size);
  std::uint32_t state = 1;
  for (Byte& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<Byte>(state >> 26);
  }
  return bytes;
}

Bytes BlockOf(const Bytes& data) {
  Bytes block;
  EXPECT_EQ(ZstdCompressor().Compress(data, block), kCompressionDone);
  return block;
}

/// The status that a block gives; the result stays as it was unless done.
Long StatusOf(const Bytes& block, ZstdCompressor compressor = ZstdCompressor()) {
  Bytes data = kBefore;
  const Long status = compressor.UnCompress(block, data);
  EXPECT_TRUE(status == kCompressionDone || data == kBefore) << status;
  return status;
}

void ExpectReturns(const Bytes& data) {
  Bytes back = kBefore;
  EXPECT_EQ(ZstdCompressor().UnCompress(BlockOf(data), back), kCompressionDone);
  EXPECT_TRUE(back == data) << data.size();
}

const Bytes kHeader = {'Q', 'z', '7', 1};
const Bytes kMagic = {0x28, 0xB5, 0x2F, 0xFD};

/// A block whose frame begins with that description: its window, if any, then its size in four bytes.
Bytes BlockSaying(Byte descriptor, const Bytes& window, std::uint32_t size) {
  const Bytes told = {static_cast<Byte>(size), static_cast<Byte>(size >> 8), static_cast<Byte>(size >> 16),
                      static_cast<Byte>(size >> 24)};
  return Joined({kHeader, kMagic, {descriptor}, window, told});
}
constexpr Byte kWindowAndSize = 0x84, kSizeAlone = 0xA4;

TEST(CompressionStatuses, AreTheseNumbers) {
  EXPECT_EQ(kCompressionDone, 0);
  EXPECT_EQ(kNoBlock, 1);
  EXPECT_EQ(kUnknownFormat, 2);
  EXPECT_EQ(kBlockTruncated, 3);
  EXPECT_EQ(kBlockDamaged, 4);
  EXPECT_EQ(kBlockTooLarge, 5);
  EXPECT_EQ(kNoRoom, 6);
}

TEST(ZstdCompressor, GivesBackBytesOfEverySize) {
  for (const std::size_t size : {1, 2, 3, 255, 256, 257, 65791, 65792, 65793, 131072, 131073}) {
    ExpectReturns(Bytes(size, 7));
    ExpectReturns(Disorder(size));
  }
  for (const std::size_t size :
       {kMiB - 1, kMiB, kMiB + 1, 2 * kMiB - 1, 2 * kMiB, 2 * kMiB + 1, 5 * kMiB + 3}) {
    ExpectReturns(Bytes(size, 7));
    ExpectReturns(Disorder(size));
  }
}

TEST(ZstdCompressor, MakesAnEmptyBlockOfNoBytesAndBack) {
  Bytes block = kBefore, data = kBefore;
  EXPECT_EQ(ZstdCompressor().Compress({}, block), kCompressionDone);
  EXPECT_EQ(block, Bytes{});
  EXPECT_EQ(ZstdCompressor().UnCompress({}, data), kCompressionDone);
  EXPECT_EQ(data, Bytes{});
}

TEST(ZstdCompressor, MayPutTheResultInTheSamePlace) {
  const Bytes data = Disorder(1000);
  Bytes bytes = data;
  ZstdCompressor compressor;
  EXPECT_EQ(compressor.Compress(bytes, bytes), kCompressionDone);
  EXPECT_EQ(bytes, BlockOf(data));
  EXPECT_EQ(compressor.UnCompress(bytes, bytes), kCompressionDone);
  EXPECT_EQ(bytes, data);
}

TEST(ZstdCompressor, MakesAFrameOfTheUsualLevelWithItsSizeAndAChecksum) {
  // Each level makes something else of these.
  Bytes data(100000);
  for (std::size_t place = 0; place < data.size(); ++place) {
    data[place] = static_cast<Byte>(place * place / 64 % 7 * 31 + (place % 13 == 0 ? place / 977 : 0));
  }
  const Bytes block = BlockOf(data);
  const std::unique_ptr<ZSTD_CCtx, std::size_t (*)(ZSTD_CCtx*)> context(ZSTD_createCCtx(), ZSTD_freeCCtx);
  ZSTD_CCtx_setParameter(context.get(), ZSTD_c_compressionLevel, 3);
  ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1);
  Bytes frame(ZSTD_compressBound(data.size()));
  frame.resize(ZSTD_compress2(context.get(), frame.data(), frame.size(), data.data(), data.size()));
  EXPECT_EQ(block, Joined({kHeader, frame}));
  EXPECT_EQ(ZSTD_getFrameContentSize(frame.data(), frame.size()), 100000u);
  EXPECT_EQ(frame[4] & 4, 4);
  EXPECT_LT(block.size(), 20000u);
}

TEST(ZstdCompressor, ReadsBlocksThatWereMadeBefore) {
  const Bytes block = {'Q',  'z',  '7',  1,    0x28, 0xB5, 0x2F, 0xFD, 0x24, 0x27, 0x45, 0x00, 0x00,
                       0x10, 0x61, 0x61, 0x01, 0x00, 0x1E, 0x80, 0x05, 0xCB, 0xBD, 0x3E, 0x6A};
  Bytes data;
  EXPECT_EQ(ZstdCompressor().UnCompress(block, data), kCompressionDone);
  EXPECT_EQ(data, Bytes(39, 'a'));
}

TEST(ZstdCompressor, RefusesWhatDoesNotBeginAsABlockDoes) {
  for (const Bytes& bytes :
       {Bytes{0}, Bytes{'q'}, Bytes{'Q', 'Z', '7', 1}, Bytes{'Q', 'z', '8', 1}, Bytes{'Q', 'y'}}) {
    EXPECT_EQ(StatusOf(bytes), kNoBlock);
  }
  const Bytes block = BlockOf(Bytes(9, 9));
  EXPECT_EQ(StatusOf({block.begin() + 4, block.end()}), kNoBlock);
}

TEST(ZstdCompressor, TellsABlockOfAnotherFormat) {
  Bytes block = BlockOf(Bytes(9, 9));
  for (const int format : {0, 2, 255}) {
    block[3] = static_cast<Byte>(format);
    EXPECT_EQ(StatusOf(block), kUnknownFormat);
    EXPECT_EQ(StatusOf({'Q', 'z', '7', static_cast<Byte>(format)}), kUnknownFormat);
  }
}

TEST(ZstdCompressor, TellsABlockThatEndsTooEarly) {
  const Bytes small = BlockOf(Disorder(300));
  for (std::size_t size = 1; size < small.size(); ++size) {
    EXPECT_EQ(StatusOf({small.begin(), small.begin() + static_cast<std::ptrdiff_t>(size)}), kBlockTruncated)
        << size;
  }
  for (const std::size_t whole : {3 * kMiB / 2, 2 * kMiB}) {
    const Bytes block = BlockOf(Disorder(whole));
    for (const std::size_t missing :
         {std::size_t{1}, std::size_t{4}, std::size_t{5}, block.size() / 2, block.size() - 20}) {
      EXPECT_EQ(StatusOf({block.begin(), block.end() - static_cast<std::ptrdiff_t>(missing)}),
                kBlockTruncated)
          << missing;
    }
  }
}

TEST(ZstdCompressor, TellsADamagedBlock) {
  const Bytes block = BlockOf(Disorder(300));
  EXPECT_EQ(StatusOf(Joined({block, {0}})), kBlockDamaged);
  EXPECT_EQ(StatusOf(Joined({block, block})), kBlockDamaged);
  const auto with = [&](std::size_t place, Byte change) {
    Bytes changed = block;
    changed[place] ^= change;
    return StatusOf(changed);
  };
  EXPECT_EQ(with(4, 1), kBlockDamaged);
  EXPECT_EQ(with(7, 1), kBlockDamaged);
  // The reserved bit of the description, the size, the middle, the checksum.
  EXPECT_EQ(with(8, 8), kBlockDamaged);
  EXPECT_EQ(with(9, 1), kBlockDamaged);
  EXPECT_EQ(with(block.size() / 2, 1), kBlockDamaged);
  EXPECT_EQ(with(block.size() - 1, 1), kBlockDamaged);
}

TEST(ZstdCompressor, NeverTakesAChangedBlockForAnother) {
  const Bytes data = Disorder(300);
  const Bytes block = BlockOf(data);
  for (std::size_t bit = 0; bit < block.size() * 8; ++bit) {
    Bytes changed = block;
    changed[bit / 8] ^= static_cast<Byte>(1 << bit % 8);
    Bytes back;
    EXPECT_TRUE(ZstdCompressor().UnCompress(changed, back) != kCompressionDone || back == data) << bit;
  }
}

TEST(ZstdCompressor, TellsABlockThatHoldsMoreOrLessThanItSays) {
  for (const std::size_t told : {2 * kMiB, 3 * kMiB - 1, 3 * kMiB + 1, 4 * kMiB}) {
    Bytes block = BlockOf(Disorder(3 * kMiB));
    ASSERT_EQ(block[8], kWindowAndSize);
    for (int byte = 0; byte < 4; ++byte) block[10 + byte] = static_cast<Byte>(told >> 8 * byte);
    EXPECT_EQ(StatusOf(block), kBlockDamaged) << told;
  }
}

TEST(ZstdCompressor, RefusesAFrameThatDoesNotTellItsSize) {
  const std::unique_ptr<ZSTD_CCtx, std::size_t (*)(ZSTD_CCtx*)> context(ZSTD_createCCtx(), ZSTD_freeCCtx);
  ZSTD_CCtx_setParameter(context.get(), ZSTD_c_contentSizeFlag, 0);
  ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1);
  const Bytes data(300, 5);
  Bytes frame(ZSTD_compressBound(data.size()));
  frame.resize(ZSTD_compress2(context.get(), frame.data(), frame.size(), data.data(), data.size()));
  EXPECT_EQ(StatusOf(Joined({kHeader, frame})), kBlockDamaged);
}

TEST(ZstdCompressor, RefusesAFrameWithoutAChecksum) {
  const Bytes data(300, 5);
  Bytes frame(ZSTD_compressBound(data.size()));
  frame.resize(ZSTD_compress(frame.data(), frame.size(), data.data(), data.size(), 3));
  EXPECT_EQ(StatusOf(Joined({kHeader, frame})), kBlockDamaged);
  for (std::size_t size = 4; size < frame.size(); ++size) {
    EXPECT_EQ(StatusOf(Joined({kHeader, {frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(size)}})),
              size == 4 ? kBlockTruncated : kBlockDamaged)
        << size;
  }
}

TEST(ZstdCompressor, ReadsAFrameOfNoBytes) {
  const Bytes frame = {0x24, 0, 1, 0, 0, 0x99, 0xE9, 0xD8, 0x51};
  Bytes data = kBefore;
  EXPECT_EQ(ZstdCompressor().UnCompress(Joined({kHeader, kMagic, frame}), data), kCompressionDone);
  EXPECT_EQ(data, Bytes());
  for (std::size_t size = 0; size < frame.size(); ++size) {
    const Bytes part(frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(StatusOf(Joined({kHeader, kMagic, part})), kBlockTruncated) << size;
  }
  EXPECT_EQ(StatusOf(Joined({kHeader, kMagic, frame, {0}})), kBlockDamaged);
}

TEST(ZstdCompressor, RefusesAFrameThatIsToBeSkipped) {
  const Bytes skipped = {0x50, 0x2A, 0x4D, 0x18, 2, 0, 0, 0, 1, 2};
  EXPECT_EQ(StatusOf(Joined({kHeader, skipped})), kBlockDamaged);
}

TEST(ZstdCompressor, TakesNoMoreBytesThanItsLimit) {
  ZstdCompressor small(100);
  Bytes block = kBefore, data;
  EXPECT_EQ(small.Compress(Bytes(101, 1), block), kBlockTooLarge);
  EXPECT_EQ(block, kBefore);
  EXPECT_EQ(small.Compress(Bytes(100, 1), block), kCompressionDone);
  EXPECT_EQ(StatusOf(block, small), kCompressionDone);
  EXPECT_EQ(StatusOf(BlockOf(Bytes(101, 1)), small), kBlockTooLarge);
}

TEST(ZstdCompressor, TakesUpTo256MiBUnlessTold) {
  EXPECT_EQ(kLargestData, 256 * kMiB);
  EXPECT_EQ(StatusOf(BlockSaying(kWindowAndSize, {0x58}, 256 * kMiB)), kBlockTruncated);
  EXPECT_EQ(StatusOf(BlockSaying(kWindowAndSize, {0x58}, 256 * kMiB + 1)), kBlockTooLarge);
  // Of this much no memory is asked for.
  const Bytes huge = Joined({kHeader, kMagic, {0xC4, 0x58, 0, 0, 0, 0, 0, 0, 0, 0x80}});
  EXPECT_EQ(StatusOf(huge), kBlockTooLarge);
}

TEST(ZstdCompressor, RefusesAFrameThatLooksBackTooFar) {
  // Eight MiB, and the next number that can be told.
  EXPECT_EQ(StatusOf(BlockSaying(kWindowAndSize, {0x68}, 100 * kMiB)), kBlockTruncated);
  EXPECT_EQ(StatusOf(BlockSaying(kWindowAndSize, {0x69}, 100 * kMiB)), kBlockTooLarge);
  EXPECT_EQ(StatusOf(BlockSaying(kSizeAlone, {}, 8 * kMiB)), kBlockTruncated);
  EXPECT_EQ(StatusOf(BlockSaying(kSizeAlone, {}, 8 * kMiB + 1)), kBlockTooLarge);
}

TEST(ZstdCompressor, AsksForMemoryOnlyAsBytesComeOut) {
  const Bytes empty = BlockSaying(kWindowAndSize, {0x58}, 200 * kMiB);
  Bytes zeros = BlockOf(Bytes(64 * kMiB));
  ASSERT_LT(zeros.size(), 4000u);
  zeros.resize(zeros.size() / 2);
  Bytes data;
  {
    const AllocationWatch watch;
    EXPECT_EQ(ZstdCompressor().UnCompress(empty, data), kBlockTruncated);
    EXPECT_EQ(watch.Biggest(), kMiB);
    EXPECT_EQ(watch.Count(), 1u);
  }
  const AllocationWatch watch;
  EXPECT_EQ(ZstdCompressor().UnCompress(zeros, data), kBlockTruncated);
  EXPECT_EQ(watch.Biggest(), 32 * kMiB);
  EXPECT_EQ(watch.Count(), 6u);
}

TEST(ZstdCompressor, TwiceAsManyBytesComeOutAtEachStep) {
  const Bytes data(9 * kMiB, 1);
  const Bytes block = BlockOf(data);
  Bytes result = kBefore;
  {
    const FailingZstd failing(ZstdCall::Decompress, 4);
    EXPECT_EQ(ZstdCompressor().UnCompress(block, result), kNoRoom);
    EXPECT_EQ(result, kBefore);
  }
  // Up to 1, 2, 4, 8 and 9 MiB.
  const FailingZstd failing(ZstdCall::Decompress, 5);
  EXPECT_EQ(ZstdCompressor().UnCompress(block, result), kCompressionDone);
  EXPECT_TRUE(result == data);
}

TEST(ZstdCompressor, AsksForNoMoreThanASmallBlockSays) {
  const Bytes block = BlockOf(Bytes(5000, 1));
  Bytes data;
  const AllocationWatch watch;
  EXPECT_EQ(ZstdCompressor().UnCompress(block, data), kCompressionDone);
  EXPECT_EQ(watch.Biggest(), 5000u);
}

TEST(ZstdCompressor, TellsWhenThereIsNoRoom) {
  const Bytes data(5000, 1);
  const Bytes block = BlockOf(data);
  Bytes result = kBefore;
  {
    const AllocationWatch watch(4999);
    EXPECT_EQ(ZstdCompressor().Compress(data, result), kNoRoom);
    EXPECT_EQ(ZstdCompressor().UnCompress(block, result), kNoRoom);
  }
  for (const ZstdCall call : {ZstdCall::CreateCompressor, ZstdCall::Compress}) {
    const FailingZstd failing(call);
    EXPECT_EQ(ZstdCompressor().Compress(data, result), kNoRoom);
  }
  for (const ZstdCall call : {ZstdCall::CreateDecompressor, ZstdCall::Decompress}) {
    const FailingZstd failing(call);
    EXPECT_EQ(ZstdCompressor().UnCompress(block, result), kNoRoom);
  }
  EXPECT_EQ(result, kBefore);
}

}  // namespace
}  // namespace quenzel7::compression
