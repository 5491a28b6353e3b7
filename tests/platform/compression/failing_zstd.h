#pragma once

namespace quenzel7::compression {

/// The calls of the library that can be made to find no memory.
enum class ZstdCall { None, CreateCompressor, Compress, CreateDecompressor, Decompress };

/// While it lives the call finds no memory after it has worked that often; the others work.
class FailingZstd {
 public:
  explicit FailingZstd(ZstdCall call, int works = 0);
  FailingZstd(const FailingZstd&) = delete;
  FailingZstd& operator=(const FailingZstd&) = delete;
  ~FailingZstd();
};

}  // namespace quenzel7::compression
