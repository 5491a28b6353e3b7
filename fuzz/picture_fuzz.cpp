#include "fuzz/fuzzed.h"
#include "fuzz/picture_bytes.h"
#include "platform/loomis2/picture_file.h"

namespace {

std::string Run(std::span<const std::uint8_t> bytes) {
  return quenzel7::fuzz::ReadAsPicture(&quenzel7::loomis2::DecodePicture, bytes);
}

}  // namespace

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quenzel7::fuzz::Fuzzed(&Run, data, size);
}
