#include "fuzz/compression_checks.h"

#include <vector>

#include "platform/compression/zstd_compressor.h"

namespace quenzel7::fuzz {
namespace {

using compression::Compressor;
using Bytes = std::vector<Byte>;

std::string CheckData(Compressor& compressor, const Bytes& data) {
  Bytes block;
  Bytes back;
  if (compressor.Compress(data, block) != 0) return "data within the limit become a block";
  if (compressor.UnCompress(block, back) != 0) return "a block that was made can be read";
  return back == data ? "" : "a block gives what it was made of";
}

std::string CheckBlock(Compressor& compressor, const Bytes& block) {
  const Bytes before = {'b', 'e', 'f', 'o', 'r', 'e'};
  Bytes data = before;
  const Long status = compressor.UnCompress(block, data);
  if (status < compression::kCompressionDone || status > compression::kBlockTooLarge) {
    return "any bytes are a block, or one of the known things is wrong with them";
  }
  if (status != compression::kCompressionDone) return data == before ? "" : "a refused block gives nothing";
  if (data.size() > kLargestFuzzedData) return "a block gives no more than the limit";
  return CheckData(compressor, data);
}

}  // namespace

std::string CheckCompression(Compressor& compressor, std::span<const std::uint8_t> bytes) {
  const Bytes given(bytes.begin(), bytes.end());
  Bytes packed = {'Q', 'z', '7', 1};
  packed.insert(packed.end(), given.begin(), given.end());
  for (const Bytes& block : {given, packed}) {
    if (const std::string complaint = CheckBlock(compressor, block); !complaint.empty()) return complaint;
  }
  return CheckData(compressor, given);
}

}  // namespace quenzel7::fuzz
