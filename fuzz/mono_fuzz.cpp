#include "fuzz/fuzzed.h"
#include "fuzz/mono_checks.h"

namespace {

std::string Run(std::span<const std::uint8_t> bytes) {
  return quenzel7::fuzz::CheckMono(quenzel7::fuzz::kMonoCoding, bytes);
}

}  // namespace

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quenzel7::fuzz::Fuzzed(&Run, data, size);
}
