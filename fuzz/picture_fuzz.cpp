#include "fuzz/fuzzed.h"
#include "fuzz/picture_bytes.h"

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quenzel7::fuzz::Fuzzed(&quenzel7::fuzz::ReadAsPicture, data, size);
}
