#include "platform/compression/zstd_compressor.h"

#include <zstd.h>
#include <zstd_errors.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <span>

namespace quenzel7::compression {
namespace {

using Bytes = std::vector<Byte>;

constexpr std::array<Byte, 3> kBeginning = {'Q', 'z', '7'};
/// Every frame begins so, the lowest byte first.
constexpr std::array<Byte, 4> kFrameBeginning = {ZSTD_MAGICNUMBER & 0xFF, ZSTD_MAGICNUMBER >> 8 & 0xFF,
                                                 ZSTD_MAGICNUMBER >> 16 & 0xFF,
                                                 ZSTD_MAGICNUMBER >> 24 & 0xFF};

/// The format that new blocks have.
constexpr Byte kZstdFormat = 1;

/// No frame may ask for more than 2 to this power bytes of what came before; those made here take a quarter.
constexpr int kLargestWindow = 23;
/// The bit of the byte behind the beginning that says that a checksum follows the content.
constexpr Byte kChecksumFlag = 4;
/// As much is made of a block before it is believed that there is more.
constexpr std::size_t kFirstStep = std::size_t{1} << 20;

struct Release {
  void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
  void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
};

CompressionStatus StatusOf(std::size_t error) {
  switch (ZSTD_getErrorCode(error)) {
    case ZSTD_error_memory_allocation:
      return kNoRoom;
    case ZSTD_error_frameParameter_windowTooLarge:
      return kBlockTooLarge;
    default:
      return kBlockDamaged;
  }
}

/// Whether the bytes begin so; `otherwise` tells that they do not.
CompressionStatus Begin(std::span<const Byte> bytes, std::span<const Byte> beginning,
                        CompressionStatus otherwise) {
  const std::size_t size = std::min(bytes.size(), beginning.size());
  if (!std::equal(beginning.begin(), beginning.begin() + static_cast<std::ptrdiff_t>(size), bytes.begin())) {
    return otherwise;
  }
  return size < beginning.size() ? kBlockTruncated : kCompressionDone;
}

CompressionStatus UnpackFrame(std::span<const Byte> frame, std::size_t largest, Bytes& data) {
  if (const CompressionStatus status = Begin(frame, kFrameBeginning, kBlockDamaged)) return status;
  const auto described = frame.subspan(kFrameBeginning.size());
  if (described.empty()) return kBlockTruncated;
  // Without one, changed bytes would be taken for those that were packed.
  if ((described.front() & kChecksumFlag) == 0) return kBlockDamaged;
  unsigned long long size = ZSTD_getFrameContentSize(frame.data(), frame.size());
  if (size == ZSTD_CONTENTSIZE_UNKNOWN) return kBlockDamaged;
  // With a beginning that cannot be read there is nothing to make; the frame will tell what is wrong with it.
  if (size == ZSTD_CONTENTSIZE_ERROR) size = 0;
  if (size > largest) return kBlockTooLarge;

  const std::unique_ptr<ZSTD_DCtx, Release> context(ZSTD_createDCtx());
  if (!context) return kNoRoom;
  ZSTD_DCtx_setParameter(context.get(), ZSTD_d_windowLogMax, kLargestWindow);
  const auto whole = static_cast<std::size_t>(size);
  ZSTD_inBuffer in{frame.data(), frame.size(), 0};
  for (std::size_t done = 0, room = std::min(whole, kFirstStep);; room = std::min(whole, room * 2)) {
    data.resize(room);
    ZSTD_outBuffer out{data.data(), room, done};
    const std::size_t left = ZSTD_decompressStream(context.get(), &out, &in);
    if (ZSTD_isError(left)) return StatusOf(left);
    done = out.pos;
    if (left == 0) return in.pos == in.size ? kCompressionDone : kBlockDamaged;
    // A frame that holds more than it says is an error of the library.
    if (done < room || room == whole) return kBlockTruncated;
  }
}

/// A format by the byte behind the beginning of a block.
struct Format {
  Byte number;
  CompressionStatus (*unpack)(std::span<const Byte> packed, std::size_t largest, Bytes& data);
};
constexpr Format kFormats[] = {
    {kZstdFormat, UnpackFrame},
};

/// Does something that may find no memory.
template <class Action>
Long Within(Action action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    return kNoRoom;
  }
}

}  // namespace

Long ZstdCompressor::Compress(const Bytes& data, Bytes& block) {
  if (data.size() > largestData_) return kBlockTooLarge;
  return Within([&] {
    Bytes made;
    if (!data.empty()) {
      const std::unique_ptr<ZSTD_CCtx, Release> context(ZSTD_createCCtx());
      if (!context) return kNoRoom;
      ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1);
      constexpr std::size_t kHeader = kBeginning.size() + 1;
      made.resize(kHeader + ZSTD_compressBound(data.size()));
      *std::copy(kBeginning.begin(), kBeginning.end(), made.begin()) = kZstdFormat;
      const std::size_t size = ZSTD_compress2(context.get(), made.data() + kHeader, made.size() - kHeader,
                                              data.data(), data.size());
      if (ZSTD_isError(size)) return StatusOf(size);
      made.resize(kHeader + size);
    }
    block = std::move(made);
    return kCompressionDone;
  });
}

Long ZstdCompressor::UnCompress(const Bytes& block, Bytes& data) {
  return Within([&] {
    Bytes made;
    if (!block.empty()) {
      if (const CompressionStatus status = Begin(block, kBeginning, kNoBlock)) return status;
      const auto rest = std::span(block).subspan(kBeginning.size());
      if (rest.empty()) return kBlockTruncated;
      const auto* format = std::find_if(std::begin(kFormats), std::end(kFormats),
                                        [&](const Format& known) { return known.number == rest.front(); });
      if (format == std::end(kFormats)) return kUnknownFormat;
      if (const CompressionStatus status = format->unpack(rest.subspan(1), largestData_, made)) return status;
    }
    data = std::move(made);
    return kCompressionDone;
  });
}

}  // namespace quenzel7::compression
