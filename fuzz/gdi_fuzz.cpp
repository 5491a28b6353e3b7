#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "fuzz/gdi_calls.h"

/// What the fuzzer calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string complaint = quenzel7::fuzz::RunGdiCalls({data, size});
  if (!complaint.empty()) {
    std::fprintf(stderr, "Not kept: %s\n", complaint.c_str());
    std::abort();
  }
  return 0;
}
