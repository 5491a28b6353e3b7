#pragma once

#include <cstddef>
#include <vector>

#include "platform/compression/compressor.h"

namespace quenzel7::compression {

/// How an operation of ZstdCompressor ended.
enum CompressionStatus : Long {
  kCompressionDone = 0,
  /// The bytes do not begin as a block does.
  kNoBlock = 1,
  /// The block is of a format that is not known here, as a later version may have made it.
  kUnknownFormat = 2,
  /// The block ends too early.
  kBlockTruncated = 3,
  /// What is in the block contradicts itself: its checksum, which must be there, its size, or bytes behind
  /// its end.
  kBlockDamaged = 4,
  /// There are more bytes than a block may have, or the block says so.
  kBlockTooLarge = 5,
  /// There is no room for the result.
  kNoRoom = 6,
};

/// The most bytes that are made into a block, and that a block is made into: 256 MiB.
inline constexpr std::size_t kLargestData = std::size_t{1} << 28;

/// The embedded default. A block is empty for no bytes; else "Qz7", a byte that tells the format, and what
/// the format makes of the bytes:
///   1   a frame of the Zstandard format (RFC 8878) with the size of its content and a checksum
///
/// The result is left alone unless the status is kCompressionDone. The memory that a block takes to become
/// bytes again follows those that have come out so far, not the size that the block tells: no more than three
/// times as much, and 10 MiB.
class ZstdCompressor final : public Compressor {
 public:
  /// For blocks of no more bytes than that.
  explicit ZstdCompressor(std::size_t largestData = kLargestData) : largestData_(largestData) {}

  /// Gives a CompressionStatus: kBlockTooLarge or kNoRoom when not done.
  Long Compress(const std::vector<Byte>& data, std::vector<Byte>& block) override;
  /// Gives a CompressionStatus.
  Long UnCompress(const std::vector<Byte>& block, std::vector<Byte>& data) override;

 private:
  std::size_t largestData_;
};

}  // namespace quenzel7::compression
