#include "fuzz/fuzzed.h"
#include "fuzz/settings_checks.h"

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quenzel7::fuzz::Fuzzed(&quenzel7::fuzz::CheckSettingsOfAllHandlers, data, size);
}
