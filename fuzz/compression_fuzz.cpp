#include "fuzz/compression_checks.h"
#include "fuzz/fuzzed.h"
#include "platform/compression/zstd_compressor.h"

namespace {

std::string Run(std::span<const std::uint8_t> bytes) {
  using namespace quenzel7;
  compression::ZstdCompressor compressor(fuzz::kLargestFuzzedData);
  return fuzz::CheckCompression(compressor, bytes);
}

}  // namespace

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quenzel7::fuzz::Fuzzed(&Run, data, size);
}
