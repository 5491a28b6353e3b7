#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/compression/compressor.h"

namespace quenzel7::fuzz {

/// The limit of compressors that are checked: enough for bytes that come out in several steps.
inline constexpr std::size_t kLargestFuzzedData = std::size_t{4} << 20;

/// Takes the bytes as a block, as what is in a block behind its header, and as what a block is made of. Gives
/// the promise of compressors that was not kept, or nothing.
std::string CheckCompression(compression::Compressor& compressor, std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz
